#include "astrolog/qt/AvviaProgramma.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QProcess>
#include <unistd.h>

#include "core/qt/MessaggiQt.h"

extern char** environ;

namespace vesmo {

namespace {

// The kernel takes no single argument of more than 32 pages, and no command line whose
// arguments and environment together pass ARG_MAX.
constexpr std::size_t MassimoArgomento = 32 * 4096;

bool TroppoLunga(const std::string& programma, const std::vector<std::string>& argomenti) {
    std::size_t totale = programma.size() + 1;
    for (const std::string& a : argomenti) {
        if (a.size() >= MassimoArgomento) return true;
        totale += a.size() + 1 + sizeof(char*);
    }
    for (char** e = environ; e && *e; ++e)
        totale += std::char_traits<char>::length(*e) + 1 + sizeof(char*);
    const long limite = sysconf(_SC_ARG_MAX);
    return limite > 0 && totale >= static_cast<std::size_t>(limite);
}

} // namespace

EsitoPartenza AvviaDistaccato(const std::string& programma,
                              const std::vector<std::string>& argomenti,
                              const std::string& cartella) {
    if (TroppoLunga(programma, argomenti)) return EsitoPartenza::RigaTroppoLunga;
    QProcess p;
    p.setProgram(QS(programma));
    QStringList lista;
    for (const std::string& a : argomenti)
        lista << QS(a);
    p.setArguments(lista);
    if (!cartella.empty() && QFileInfo(QS(cartella)).isDir()) p.setWorkingDirectory(QS(cartella));
    qint64 pid = 0;
    return p.startDetached(&pid) ? EsitoPartenza::Avviato : EsitoPartenza::Fallito;
}

std::optional<std::string> ScegliFileInfo(QWidget* genitore, const std::string& dirAstrolog) {
    const QString file = QFileDialog::getSaveFileName(
        genitore, QStringLiteral("Vesmo - Salva Info Tema Natale"), QString(),
        QStringLiteral("File (*.dat) di Astrolog (*.dat);;Tutti i file (*.*) (*)"));
    if (!dirAstrolog.empty() && QFileInfo(QS(dirAstrolog)).isDir())
        QDir::setCurrent(QS(dirAstrolog));
    if (file.isEmpty()) return std::nullopt;
    return SS(file);
}

bool Command1_Avvia(Tema& tema, const SceltaAstrolog& scelta, const PercorsiVesmo& percorsi,
                    Messaggi& messaggi, std::string& pannello2) {
    return Avvia(tema, scelta, percorsi, messaggi, AvviaDistaccato, pannello2);
}

bool Command6_SalvaInfo(const Tema& tema, const TestiInfo& testi, const SceltaAstrolog& scelta,
                        const PercorsiVesmo& percorsi, Messaggi& messaggi, std::string& pannello2,
                        QWidget* genitore) {
    return SalvaInfo(
        tema, testi, scelta, messaggi,
        [&] { return ScegliFileInfo(genitore, percorsi.DirAstrolog); }, pannello2);
}

bool AvviaAstrologSchermo(Tema& temaSalva, const PercorsiVesmo& percorsi, Messaggi& messaggi) {
    return AvviaAstrolog(temaSalva, percorsi, messaggi, AvviaDistaccato);
}

} // namespace vesmo
