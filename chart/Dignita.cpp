#include "chart/Dignita.h"

#include <vector>

#include "core/Aritmetica.h"

namespace vesmo {

const std::array<const char*, 3> NomiModalita{"CARDINALI", "FISSI", "MOBILI"};
const std::array<const char*, 4> NomiElementi{"FUOCO", "TERRA", "ARIA", "ACQUA"};
const std::array<const char*, 4> NomiDignita{"DOMICILIO", "ESILIO", "ESALTAZIONE", "CADUTA"};

namespace {

// A sign belongs to a group when its short name stands inside the group's string.
const std::array<const char*, 3> GruppiModalita{"ArieteCancroBilanCapri", "ToroLeoneScorpAcqua",
                                                "GemellVerginSagitPesci"};
const std::array<const char*, 4> GruppiElementi{"ArieteLeoneSagit", "ToroVerginCapri",
                                                "GemellBilanAcqua", "CancroScorpPesci"};

struct VoceDignita {
    const char* segno; // short name, as SegnoGradi gives it
    int tipo;          // 0 domicile, 1 exile, 2 exaltation, 3 fall
    const char* qualifica;
};

const std::array<std::vector<VoceDignita>, 10> Dignita{{
    {{"Leone", 0, ""}, {"Acqua", 1, ""}, {"Ariete", 2, ""}, {"Bilan", 3, ""}},
    {{"Cancro", 0, ""}, {"Capri", 1, ""}, {"Toro", 2, ""}, {"Scorp", 3, ""}},
    // Mercury's exaltation and fall share their cells with its domicile and exile.
    {{"Vergin", 0, "(Diurno + Esaltazione)"},
     {"Gemell", 0, "(Notturno)"},
     {"Pesci", 1, "(Diurno + Caduta)"},
     {"Sagit", 1, "(Notturno)"}},
    {{"Bilan", 0, "(Diurno)"},
     {"Toro", 0, "(Notturno)"},
     {"Ariete", 1, "(Diurno)"},
     {"Scorp", 1, "(Notturno)"},
     {"Pesci", 2, ""},
     {"Vergin", 3, ""}},
    {{"Scorp", 0, "(Diurno)"},
     {"Ariete", 0, "(Notturno)"},
     {"Toro", 1, "(Diurno)"},
     {"Bilan", 1, "(Notturno)"},
     {"Capri", 2, ""},
     {"Cancro", 3, ""}},
    {{"Sagit", 0, "(Diurno)"},
     {"Pesci", 0, "(Notturno)"},
     {"Gemell", 1, "(Diurno)"},
     {"Vergin", 1, "(Notturno)"},
     {"Cancro", 2, ""},
     {"Capri", 3, ""}},
    {{"Capri", 0, "(Diurno)"},
     {"Acqua", 0, "(Notturno)"},
     {"Cancro", 1, "(Diurno)"},
     {"Leone", 1, "(Notturno)"},
     {"Bilan", 2, ""},
     {"Ariete", 3, ""}},
    {{"Acqua", 0, ""}, {"Leone", 1, ""}, {"Scorp", 2, ""}, {"Toro", 3, ""}},
    {{"Pesci", 0, ""}, {"Vergin", 1, ""}, {"Cancro", 2, ""}, {"Capri", 3, ""}},
    {{"Scorp", 0, "(Notturno)"}, {"Toro", 1, "(Notturno)"}},
}};

// Rulers of the Ascendant by its sign (index 0 Ariete): day letter, night letter.
const std::array<std::array<const char*, 2>, 12> Reggenti{{{"^", "G"},
                                                           {"", "E"},
                                                           {"", "D"},
                                                           {"_", ""},
                                                           {"C", ""},
                                                           {"D", ""},
                                                           {"E", ""},
                                                           {"G", "^"},
                                                           {"H", "X"},
                                                           {"V", "W"},
                                                           {"W", "V"},
                                                           {"X", "H"}}};

int IndiceSegno(const std::string& nome) {
    for (int i = 0; i < 12; ++i)
        if (nome == NomiSegni[i]) return i;
    return -1;
}

} // namespace

const std::array<std::array<const char*, 4>, 10> TabellaDignita{{
    {"P", "b", "L", "Y"},
    {"O", "a", "M", "Z"},
    {"Q      N", "\\      [", "Q", "\\"},
    {"Y     M", "L     Z", "\\", "Q"},
    {"Z     L", "M     Y", "a", "O"},
    {"[     \\", "N     Q", "O", "a"},
    {"a     b", "O     P", "Y", "L"},
    {"b     Ta", "P", "Z", "M"},
    {"\\      T[", "Q", "O", "a"},
    {"TL     Z", "       M", "", ""},
}};

const std::array<const char*, 10> LettereCorpi{"C", "_", "D", "E", "G", "H", "V", "W", "X", "^"};

const char* const TestataTabellaDignita =
    " Pianeta    Domicilio         Esilio              Esaltazione    Caduta ";

std::vector<DignitaTrovata> DignitaDelCorpo(int corpo, const std::string& segno) {
    std::vector<DignitaTrovata> r;
    if (corpo < 0 || corpo >= static_cast<int>(Dignita.size())) return r;
    for (const auto& v : Dignita[static_cast<std::size_t>(corpo)])
        if (segno == v.segno) r.push_back({v.tipo, v.qualifica});
    return r;
}

Domicili CalcolaDomicili(const Posizioni& pos) {
    struct Voce {
        const Posizione* p;
        const char* nome;
    };
    const std::array<Voce, 12> voci{{{&pos.Sole, "Sole"},
                                     {&pos.Luna, "Luna"},
                                     {&pos.Mercurio, "Mercurio"},
                                     {&pos.Venere, "Venere"},
                                     {&pos.Marte, "Marte"},
                                     {&pos.Giove, "Giove"},
                                     {&pos.Saturno, "Saturno"},
                                     {&pos.Urano, "Urano"},
                                     {&pos.Nettuno, "Nettuno"},
                                     {&pos.Plutone, "Plutone"},
                                     {&pos.Asce, "ASC"},
                                     {&pos.MC, "MC"}}};
    Domicili d;
    for (std::size_t i = 0; i < voci.size(); ++i) {
        std::string segno;
        double g, m, s, dec;
        SegnoGradi(voci[i].p->Lo, segno, g, m, s, dec, 0);
        if (segno.empty()) continue;
        const std::string voce = std::string("  ") + voci[i].nome;
        for (std::size_t k = 0; k < GruppiModalita.size(); ++k) {
            if (std::string(GruppiModalita[k]).find(segno) != std::string::npos) {
                d.Modalita[k] += voce;
                ++d.ContiModalita[k];
            }
        }
        for (std::size_t k = 0; k < GruppiElementi.size(); ++k) {
            if (std::string(GruppiElementi[k]).find(segno) != std::string::npos) {
                d.Elementi[k] += voce;
                ++d.ContiElementi[k];
            }
        }
        if (i < 10) {
            for (const auto& v : Dignita[i]) {
                if (segno == v.segno) {
                    auto t = static_cast<std::size_t>(v.tipo);
                    d.Dignita[t] += voce + v.qualifica;
                    ++d.ContiDignita[t];
                }
            }
        }
    }

    double angolo = Norma360(pos.Sole.Lo - pos.Asce.Lo, 1);
    if (angolo == 0 || angolo == 180)
        d.Nascita = " sull'Asse AscDisc";
    else if (angolo > 180)
        d.Nascita = " Diurna";
    else
        d.Nascita = " Notturna";

    std::string segnoAsce;
    double g, m, s, dec;
    SegnoGradi(pos.Asce.Lo, segnoAsce, g, m, s, dec, 0);
    int iAsce = IndiceSegno(segnoAsce);
    if (iAsce >= 0) {
        d.ReggenteDiurno = Reggenti[static_cast<std::size_t>(iAsce)][0];
        d.ReggenteNotturno = Reggenti[static_cast<std::size_t>(iAsce)][1];
    }
    return d;
}

} // namespace vesmo
