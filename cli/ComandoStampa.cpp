// vesmo-cli stampa: the printed page of a chart written to an A4 PDF or a PNG of the sheet, and
// the two bitmaps of the page's halves that the printing form prepares for sending.
#include <filesystem>
#include <iostream>
#include <optional>
#include <vector>

#include "chart/CalcolaTema.h"
#include "cli/Argomenti.h"
#include "cli/Comandi.h"
#include "cli/Json.h"
#include "cli/OpzioniTema.h"
#include "core/Messaggi.h"
#include "core/Testo.h"
#include "presentation/PaginaStampa.h"
#include "presentation/qt/ApplicazioneGrafica.h"
#include "presentation/qt/SalvaPagina.h"

namespace vesmo::cli {

namespace {

int LeggiSlot(const std::string& testo) {
    const char* nomi[4] = {"natale", "transito", "rivoluzione", "direzione"};
    for (int i = 0; i < 4; ++i)
        if (UgualeSenzaCaso(testo, nomi[i])) return i + 1;
    throw ErroreArgomenti("--slot vuole natale, transito, rivoluzione o direzione: " + testo);
}

// The name of the bitmaps: letters, digits, "-" and "_" only, as the form asks.
std::string LeggiNomeBitmap(const std::string& testo) {
    std::string nome = SenzaSpazi(testo);
    bool buono = !nome.empty();
    for (unsigned char c : nome)
        if (!std::isalnum(c) && c != '-' && c != '_') buono = false;
    if (!buono)
        throw ErroreArgomenti("--bmp vuole un nome di lettere e cifre (anche - e _): " + testo);
    return nome;
}

// What the command line asks of the page, its arguments checked: a bad or clashing one throws
// ErroreArgomenti, in the order the checks are written.
struct RichiestaStampa {
    std::optional<std::string> file; // the page, .pdf or .png (png tells which)
    bool png = false;
    std::optional<std::string> bmp; // the name typed for the two bitmaps
    std::string nomeBmp;            // that name checked
    std::filesystem::path cartella; // where the bitmaps go
    OpzioniPagina o;                // but the Moon, which the chart's options give
};

RichiestaStampa LeggiRichiesta(Argomenti& a) {
    auto ammesse = OpzioniDelTema();
    for (const char* o : {"out", "aspetti", "slot", "bmp", "dir", "orbita", "json"})
        ammesse.push_back(o);
    a.Consenti(ammesse);
    if (!a.Posizionali().empty())
        throw ErroreArgomenti("argomento inatteso: " + a.Posizionali().front());
    RichiestaStampa r;
    r.file = a.Opzione("out");
    r.bmp = a.Opzione("bmp");
    if (!r.file && !r.bmp) throw ErroreArgomenti("manca --out FILE.pdf|.png (o --bmp NOME)");
    if (r.file) {
        std::string ext = std::filesystem::path(*r.file).extension().string();
        if (UgualeSenzaCaso(ext, ".png"))
            r.png = true;
        else if (!UgualeSenzaCaso(ext, ".pdf"))
            throw ErroreArgomenti("--out vuole un file .pdf o .png: " + *r.file);
    }
    if (a.Opzione("dir") && !r.bmp) throw ErroreArgomenti("--dir vale solo con --bmp");
    r.nomeBmp = r.bmp ? LeggiNomeBitmap(*r.bmp) : std::string();
    r.cartella = a.Opzione("dir").value_or(std::filesystem::temp_directory_path().string());
    if (r.bmp && !std::filesystem::is_directory(r.cartella))
        throw ErroreArgomenti("--dir non è una cartella: " + r.cartella.string());
    r.o.CheStampa = LeggiSlot(a.Opzione("slot").value_or("natale"));
    r.o.DataStampa = DataOdierna();
    r.o.DisegnaAspetti = a.Flag("aspetti");
    if (auto orbita = a.Opzione("orbita")) {
        double v = LeggiNumero(*orbita, "--orbita");
        if (v < 0 || v > 30) throw ErroreArgomenti("--orbita vuole gradi da 0 a 30: " + *orbita);
        r.o.Aspetti.Orbita = static_cast<float>(v);
    }
    return r;
}

// Writes the page and the bitmaps asked for the cast chart; the files written, in that order.
// A file that cannot be written throws std::runtime_error with the reason.
std::vector<std::string> ScriviStampa(const RichiestaStampa& r, const Tema& tema,
                                      const Posizioni& pos) {
    std::vector<std::string> scritti;
    auto controlla = [&](const std::string& errore, const std::string& nome) {
        if (!errore.empty()) throw std::runtime_error(errore);
        scritti.push_back(nome);
    };
    const OpzioniPagina& o = r.o;
    if (r.file) {
        DisegnoPagina pagina = [&](Superficie& sup) { ComponiPagina(sup, tema, pos, o); };
        controlla(r.png ? SalvaAreaImmagine(*r.file, "PNG", AreaPagina(), 10, pagina)
                        : SalvaPaginaPdf(*r.file, pagina),
                  *r.file);
    }
    if (r.bmp) {
        // The name typed stands for the chart's name on the two images.
        Tema conNome = tema;
        conNome.Nome = r.nomeBmp;
        std::string primo = (r.cartella / (r.nomeBmp + "_1.bmp")).string();
        std::string secondo = (r.cartella / (r.nomeBmp + "_2.bmp")).string();
        controlla(
            SalvaAreaImmagine(primo, "BMP", AreaParteAlta(), TwipsPerPixelBitmap,
                              [&](Superficie& sup) { DisegnaParteAlta(sup, conNome, pos, o); }),
            primo);
        controlla(SalvaAreaImmagine(
                      secondo, "BMP", AreaParteBassa(), TwipsPerPixelBitmap,
                      [&](Superficie& sup) { DisegnaParteBassa(sup, conNome, pos, o, 0, 0); }),
                  secondo);
    }
    return scritti;
}

} // namespace

int ComandoStampa(const Parole& parole, std::ostream& out) {
    Argomenti a(parole, {"aspetti", "json"});
    RichiestaStampa r = LeggiRichiesta(a);
    Tema tema = LeggiTema(a);
    r.o.LunaGeo = LeggiLuna(a);
    MessaggiConsole messaggi(Avvisi());
    Case cuspidi;
    Posizioni pos;
    CastaTema(tema, cuspidi, pos, r.o.LunaGeo, messaggi);

    const ApplicazioneGrafica app;
    const std::vector<std::string> scritti = ScriviStampa(r, tema, pos);
    if (a.Flag("json")) {
        JsonLista lista;
        for (const std::string& s : scritti)
            lista.Valore(JsonTesto(s));
        out << JsonOggetto().Campo("File", lista.str()).str() << '\n';
    } else {
        out << "File\n";
        for (const std::string& s : scritti)
            out << s << '\n';
    }
    return 0;
}

} // namespace vesmo::cli
