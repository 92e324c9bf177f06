// vesmo-cli stampa: the printed page of a chart written to an A4 PDF or a PNG of the sheet, and
// the two bitmaps of the page's halves that the printing form prepares for sending.
#include <filesystem>
#include <iostream>

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

} // namespace

int ComandoStampa(const Parole& parole, std::ostream& out) {
    Argomenti a(parole, {"aspetti", "json"});
    auto ammesse = OpzioniDelTema();
    for (const char* o : {"out", "aspetti", "slot", "bmp", "dir", "orbita", "json"})
        ammesse.push_back(o);
    a.Consenti(ammesse);
    if (!a.Posizionali().empty())
        throw ErroreArgomenti("argomento inatteso: " + a.Posizionali().front());

    auto file = a.Opzione("out");
    auto bmp = a.Opzione("bmp");
    if (!file && !bmp) throw ErroreArgomenti("manca --out FILE.pdf|.png (o --bmp NOME)");
    bool png = false;
    if (file) {
        std::string ext = std::filesystem::path(*file).extension().string();
        if (UgualeSenzaCaso(ext, ".png"))
            png = true;
        else if (!UgualeSenzaCaso(ext, ".pdf"))
            throw ErroreArgomenti("--out vuole un file .pdf o .png: " + *file);
    }
    if (a.Opzione("dir") && !bmp) throw ErroreArgomenti("--dir vale solo con --bmp");
    std::string nomeBmp = bmp ? LeggiNomeBitmap(*bmp) : std::string();
    std::filesystem::path cartella =
        a.Opzione("dir").value_or(std::filesystem::temp_directory_path().string());
    if (bmp && !std::filesystem::is_directory(cartella))
        throw ErroreArgomenti("--dir non è una cartella: " + cartella.string());

    OpzioniPagina o;
    o.CheStampa = LeggiSlot(a.Opzione("slot").value_or("natale"));
    o.DataStampa = DataOdierna();
    o.DisegnaAspetti = a.Flag("aspetti");
    if (auto orbita = a.Opzione("orbita")) {
        double v = LeggiNumero(*orbita, "--orbita");
        if (v < 0 || v > 30) throw ErroreArgomenti("--orbita vuole gradi da 0 a 30: " + *orbita);
        o.Aspetti.Orbita = static_cast<float>(v);
    }

    Tema tema = LeggiTema(a);
    o.LunaGeo = LeggiLuna(a);
    MessaggiConsole messaggi(Avvisi());
    Case cuspidi;
    Posizioni pos;
    CastaTema(tema, cuspidi, pos, o.LunaGeo, messaggi);

    const ApplicazioneGrafica app;
    std::vector<std::string> scritti;
    auto controlla = [&](const std::string& errore, const std::string& nome) {
        if (!errore.empty()) throw std::runtime_error(errore);
        scritti.push_back(nome);
    };
    if (file) {
        DisegnoPagina pagina = [&](Superficie& sup) { ComponiPagina(sup, tema, pos, o); };
        controlla(png ? SalvaAreaImmagine(*file, "PNG", AreaPagina(), 10, pagina)
                      : SalvaPaginaPdf(*file, pagina),
                  *file);
    }
    if (bmp) {
        // The name typed stands for the chart's name on the two images.
        Tema conNome = tema;
        conNome.Nome = nomeBmp;
        std::string primo = (cartella / (nomeBmp + "_1.bmp")).string();
        std::string secondo = (cartella / (nomeBmp + "_2.bmp")).string();
        controlla(
            SalvaAreaImmagine(primo, "BMP", AreaParteAlta(), TwipsPerPixelBitmap,
                              [&](Superficie& sup) { DisegnaParteAlta(sup, conNome, pos, o); }),
            primo);
        controlla(SalvaAreaImmagine(
                      secondo, "BMP", AreaParteBassa(), TwipsPerPixelBitmap,
                      [&](Superficie& sup) { DisegnaParteBassa(sup, conNome, pos, o, 0, 0); }),
                  secondo);
    }

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
