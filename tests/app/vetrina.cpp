// vesmo-vetrina FOLDER [WINDOW...]: shows each window (all without names) on the display and
// takes a screenshot of the screen with ImageMagick's `import`. Run under Xvfb.
#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>
#include <cstdio>

#include "core/qt/Schermo.h"
#include "tests/app/Finestre.h"

namespace {

void Attendi(int ms) {
    QElapsedTimer t;
    t.start();
    while (t.elapsed() < ms)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
}

} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    if (argc < 2) {
        std::fprintf(stderr, "uso: vesmo-vetrina CARTELLA [FINESTRA...]\n");
        return 2;
    }
    vesmo::SorvegliaFinestre();
    const QDir cartella(QString::fromLocal8Bit(argv[1]));
    QStringList scelte;
    for (int i = 2; i < argc; ++i)
        scelte << QString::fromLocal8Bit(argv[i]);
    QTemporaryDir dati;
    vesmo::test::BancoFinestre banco(dati.path().toStdString());
    int fatte = 0;
    for (auto& [nome, crea] : banco.Finestre()) {
        const QString n = QString::fromUtf8(nome);
        if (!scelte.isEmpty() && !scelte.contains(n)) continue;
        std::unique_ptr<QWidget> proprio = crea();
        QWidget* w = proprio ? proprio.get() : banco.menu.get();
        w->show();
        w->raise();
        Attendi(700);
        const QString file = cartella.filePath(QString(n).replace(' ', '_') + ".png");
        if (QProcess::execute(QStringLiteral("import"), {"-window", "root", file}) != 0)
            std::fprintf(stderr, "import non riuscito: %s\n", qPrintable(file));
        w->hide();
        ++fatte;
    }
    return fatte ? 0 : 1;
}
