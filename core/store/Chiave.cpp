#include "core/store/Chiave.h"

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>

namespace vesmo::store_detail {

namespace {

struct Intervallo {
    char32_t da, a;
    const char* piegato;
};

// Latin-1 letters and Latin Extended-A, as their plain lower-case letters.
constexpr Intervallo LettereLatine[] = {
    {0xC0, 0xC5, "a"},   {0xC6, 0xC6, "ae"},   {0xC7, 0xC7, "c"},   {0xC8, 0xCB, "e"},
    {0xCC, 0xCF, "i"},   {0xD0, 0xD0, "d"},    {0xD1, 0xD1, "n"},   {0xD2, 0xD6, "o"},
    {0xD8, 0xD8, "o"},   {0xD9, 0xDC, "u"},    {0xDD, 0xDD, "y"},   {0xDE, 0xDE, "th"},
    {0xDF, 0xDF, "ss"},  {0xE0, 0xE5, "a"},    {0xE6, 0xE6, "ae"},  {0xE7, 0xE7, "c"},
    {0xE8, 0xEB, "e"},   {0xEC, 0xEF, "i"},    {0xF0, 0xF0, "d"},   {0xF1, 0xF1, "n"},
    {0xF2, 0xF6, "o"},   {0xF8, 0xF8, "o"},    {0xF9, 0xFC, "u"},   {0xFD, 0xFD, "y"},
    {0xFE, 0xFE, "th"},  {0xFF, 0xFF, "y"},    {0x100, 0x105, "a"}, {0x106, 0x10D, "c"},
    {0x10E, 0x111, "d"}, {0x112, 0x11B, "e"},  {0x11C, 0x123, "g"}, {0x124, 0x127, "h"},
    {0x128, 0x131, "i"}, {0x132, 0x133, "ij"}, {0x134, 0x135, "j"}, {0x136, 0x138, "k"},
    {0x139, 0x142, "l"}, {0x143, 0x14B, "n"},  {0x14C, 0x151, "o"}, {0x152, 0x153, "oe"},
    {0x154, 0x159, "r"}, {0x15A, 0x161, "s"},  {0x162, 0x167, "t"}, {0x168, 0x173, "u"},
    {0x174, 0x175, "w"}, {0x176, 0x178, "y"},  {0x179, 0x17E, "z"}, {0x17F, 0x17F, "s"},
    {0x218, 0x219, "s"}, {0x21A, 0x21B, "t"},
};

// Folded forms of U+00C0..U+017F; null where the character stays as it is.
const std::array<const char*, 0xC0>& TabellaLatina() {
    static const std::array<const char*, 0xC0> tabella = [] {
        std::array<const char*, 0xC0> t{};
        for (const Intervallo& i : LettereLatine)
            for (char32_t c = i.da; c <= i.a; ++c)
                if (c >= 0xC0 && c < 0x180) t[c - 0xC0] = i.piegato;
        return t;
    }();
    return tabella;
}

// Next code point of `s` from `i`; a byte that does not start valid UTF-8 is taken as Latin-1.
char32_t Decodifica(std::string_view s, std::size_t& i) {
    auto b = [&](std::size_t k) { return static_cast<unsigned char>(s[k]); };
    unsigned char c = b(i);
    int n = 0;
    char32_t cp = 0;
    if (c < 0x80) {
        ++i;
        return c;
    } else if ((c & 0xE0) == 0xC0 && c >= 0xC2) {
        n = 1;
        cp = c & 0x1F;
    } else if ((c & 0xF0) == 0xE0) {
        n = 2;
        cp = c & 0x0F;
    } else if ((c & 0xF8) == 0xF0 && c <= 0xF4) {
        n = 3;
        cp = c & 0x07;
    } else {
        ++i;
        return c;
    }
    if (i + n >= s.size()) { // cut short
        ++i;
        return c;
    }
    for (int k = 1; k <= n; ++k) {
        if ((b(i + k) & 0xC0) != 0x80) {
            ++i;
            return c;
        }
        cp = (cp << 6) | (b(i + k) & 0x3F);
    }
    i += n + 1;
    return cp;
}

void Codifica(std::string& out, char32_t cp) {
    if (cp < 0x80) {
        out += static_cast<char>(cp);
    } else if (cp < 0x800) {
        out += static_cast<char>(0xC0 | (cp >> 6));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    } else if (cp < 0x10000) {
        out += static_cast<char>(0xE0 | (cp >> 12));
        out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | (cp >> 18));
        out += static_cast<char>(0x80 | ((cp >> 12) & 0x3F));
        out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    }
}

void AccodaEscape(std::string& chiave, std::string_view byte) {
    for (char c : byte) {
        if (c == '\x00') {
            chiave += '\x01';
            chiave += '\x01';
        } else if (c == '\x01') {
            chiave += '\x01';
            chiave += '\x02';
        } else {
            chiave += c;
        }
    }
    chiave += '\x00';
}

} // namespace

std::string PiegaTesto(std::string_view s) {
    std::string out;
    out.reserve(s.size());
    const auto& latine = TabellaLatina();
    std::size_t i = 0;
    while (i < s.size()) {
        unsigned char c = static_cast<unsigned char>(s[i]);
        if (c < 0x80) { // the common case, without decoding
            out +=
                (c >= 'A' && c <= 'Z') ? static_cast<char>(c + ('a' - 'A')) : static_cast<char>(c);
            ++i;
            continue;
        }
        char32_t cp = Decodifica(s, i);
        if (cp >= 0x300 && cp <= 0x36F) continue; // combining accents
        if (cp >= 0xC0 && cp < 0x180 && latine[cp - 0xC0]) {
            out += latine[cp - 0xC0];
            continue;
        }
        if (cp == 0x218 || cp == 0x219) {
            out += 's';
            continue;
        }
        if (cp == 0x21A || cp == 0x21B) {
            out += 't';
            continue;
        }
        if (cp >= 0x391 && cp <= 0x3A9)
            cp += 0x20; // Greek capitals
        else if (cp >= 0x410 && cp <= 0x42F)
            cp += 0x20; // Cyrillic capitals
        else if (cp >= 0x400 && cp <= 0x40F)
            cp += 0x50;
        Codifica(out, cp);
    }
    return out;
}

int ConfrontaPiegati(std::string_view a, std::string_view b) {
    std::string pa = PiegaTesto(a), pb = PiegaTesto(b);
    int c = pa.compare(pb);
    return c < 0 ? -1 : (c > 0 ? 1 : 0);
}

void CodificaNullo(std::string& chiave) {
    chiave += '\x01';
}

void CodificaNumero(std::string& chiave, double x) {
    if (x == 0) x = 0; // -0 and +0 are one key
    std::uint64_t u = std::bit_cast<std::uint64_t>(x);
    if (u & (std::uint64_t{1} << 63))
        u = ~u;
    else
        u |= std::uint64_t{1} << 63;
    chiave += '\x02';
    for (int k = 7; k >= 0; --k)
        chiave += static_cast<char>((u >> (8 * k)) & 0xFF);
}

void CodificaTesto(std::string& chiave, std::string_view utf8) {
    chiave += '\x03';
    AccodaEscape(chiave, PiegaTesto(utf8));
}

void CodificaBlob(std::string& chiave, std::string_view byte) {
    chiave += '\x04';
    AccodaEscape(chiave, byte);
}

void CodificaValore(std::string& chiave, const Valore& v) {
    if (v.Nullo())
        CodificaNullo(chiave);
    else if (v.ENumero())
        CodificaNumero(chiave, v.Numero());
    else
        CodificaTesto(chiave, v.Testo());
}

std::string SuccessorePrefisso(std::string p) {
    while (!p.empty() && static_cast<unsigned char>(p.back()) == 0xFF)
        p.pop_back();
    if (!p.empty()) p.back() = static_cast<char>(static_cast<unsigned char>(p.back()) + 1);
    return p;
}

} // namespace vesmo::store_detail
