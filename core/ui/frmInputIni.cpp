#include "core/ui/frmInputIni.h"

#include <QFileDialog>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "core/qt/MessaggiQt.h"

namespace vesmo {

frmInputIni::frmInputIni(PercorsiVesmo& percorsi, Messaggi& messaggi, QWidget* genitore)
    : QDialog(genitore), percorsi_(percorsi), messaggi_(messaggi) {
    setObjectName("frmInputIni");
    setWindowTitle(QStringLiteral("Vesmo - Confgurazione prima volta/First time"));

    auto nuovoTesto = [this](const char* nome) {
        auto* t = new QLineEdit(this);
        t->setObjectName(nome);
        return t;
    };
    auto nuovoPulsante = [this](const char* nome, const char* testo) {
        auto* b = new QPushButton(QString::fromUtf8(testo), this);
        b->setObjectName(nome);
        return b;
    };
    TextDB = nuovoTesto("TextDB");
    TextExe = nuovoTesto("TextExe");
    TextNaz = nuovoTesto("TextNaz");
    TextCity = nuovoTesto("TextCity");
    TextDB->setReadOnly(true);
    TextExe->setReadOnly(true);
    TextDB->setMinimumWidth(420);
    CmdDB = nuovoPulsante("CmdDB", "&Sfoglia/Search");
    CmdExe = nuovoPulsante("CmdExe", "S&foglia/Search");
    CmdOk = nuovoPulsante("CmdOk", "&Ok");
    CmdOk->setDefault(true);
    cmdEsci = nuovoPulsante("cmdEsci", "&Esci");
    OptNazioni = new QRadioButton(QStringLiteral("per Nazioni"), this);
    OptNazioni->setObjectName("OptNazioni");
    OptCity = new QRadioButton(QStringLiteral("per City"), this);
    OptCity->setObjectName("OptCity");

    auto* percorsiBox = new QGroupBox(QStringLiteral("Percorsi / Path"), this);
    auto* gp = new QGridLayout(percorsiBox);
    gp->addWidget(new QLabel(QStringLiteral(" Database "), percorsiBox), 0, 0);
    gp->addWidget(TextDB, 0, 1);
    gp->addWidget(CmdDB, 0, 2);
    gp->addWidget(new QLabel(QStringLiteral(" Astrolog.Exe"), percorsiBox), 1, 0);
    gp->addWidget(TextExe, 1, 1);
    gp->addWidget(CmdExe, 1, 2);

    auto* ordBox = new QGroupBox(QStringLiteral("Ordinamento Database"), this);
    auto* lo = new QVBoxLayout(ordBox);
    lo->addWidget(OptNazioni);
    lo->addWidget(OptCity);

    auto* locBox = new QGroupBox(QStringLiteral("Località Default "), this);
    auto* gl = new QGridLayout(locBox);
    gl->addWidget(new QLabel(QStringLiteral("Nazione  "), locBox), 0, 0);
    gl->addWidget(TextNaz, 0, 1);
    gl->addWidget(new QLabel(QStringLiteral("City     "), locBox), 1, 0);
    gl->addWidget(TextCity, 1, 1);

    auto* centro = new QHBoxLayout;
    centro->addWidget(ordBox);
    centro->addWidget(locBox, 1);
    auto* pulsanti = new QHBoxLayout;
    pulsanti->addStretch(1);
    pulsanti->addWidget(CmdOk);
    pulsanti->addWidget(cmdEsci);
    auto* tutto = new QVBoxLayout(this);
    tutto->addWidget(percorsiBox);
    tutto->addLayout(centro);
    tutto->addLayout(pulsanti);

    ScegliFile = [this](const QString& titolo, const QString& filtro) -> std::optional<QString> {
        QString f = QFileDialog::getOpenFileName(this, titolo, QString(), filtro);
        if (f.isEmpty()) return std::nullopt;
        return f;
    };

    connect(CmdDB, &QPushButton::clicked, this, &frmInputIni::CmdDB_Click);
    connect(CmdExe, &QPushButton::clicked, this, &frmInputIni::CmdExe_Click);
    connect(CmdOk, &QPushButton::clicked, this, &frmInputIni::CmdOk_Click);
    connect(cmdEsci, &QPushButton::clicked, this, &frmInputIni::cmdEsci_Click);
}

void frmInputIni::PresetPrimaVolta(const std::string& percorsoDB, const std::string& percorsoExe) {
    PrimaVolta = true;
    TextDB->setText(QS(percorsoDB));
    TextExe->setText(QS(percorsoExe));
    TextNaz->setText(QStringLiteral("Italy"));
    TextCity->setText(QStringLiteral("Padova"));
    OptNazioni->setChecked(true);
}

void frmInputIni::MostraConfig(const ConfigIni& cfg) {
    PrimaVolta = false;
    TextDB->setText(QS(percorsi_.FileDB));
    TextExe->setText(QS(percorsi_.CmdAstrolog));
    TextNaz->setText(QS(cfg.NazioneDefault.Valore()));
    TextCity->setText(QS(cfg.CityDefault.Valore()));
    if (cfg.Ordinamento.str() == "C")
        OptCity->setChecked(true);
    else if (cfg.Ordinamento.str() == "N")
        OptNazioni->setChecked(true);
}

void frmInputIni::CmdDB_Click() {
    auto scelto = ScegliFile(QStringLiteral("Vesmo - Cerca DataBase"),
                             QStringLiteral("DataBase formato Access (*.mdb *.Mdb *.MDB);;"
                                            "Tutti i file (*)"));
    if (!scelto) return;
    percorsi_.FileDB = SS(*scelto);
    TextDB->setText(*scelto);
}

void frmInputIni::CmdExe_Click() {
    auto scelto = ScegliFile(QStringLiteral("Vesmo - Cerca Astrolog.Exe"),
                             QStringLiteral("File Eseguibili (astrolog Astrolog *.exe *.Exe);;"
                                            "Tutti i file (*)"));
    if (!scelto) return;
    percorsi_.CmdAstrolog = SS(*scelto) + " ";
    TextExe->setText(*scelto);
}

void frmInputIni::CmdOk_Click() {
    ConfigIni cfg;
    std::string errore;
    if (!LeggiConfig(percorsi_.FileIni, cfg, &errore)) {
        messaggi_.Mostra("Vesmo - Configurazione",
                         "Impossibile leggere il file delle impostazioni:\n" + errore, Pulsanti::Ok,
                         Icona::Critico);
        return;
    }
    // What is stored as paths is what was last browsed: the two boxes only show it.
    cfg.PathDB = percorsi_.FileDB;
    cfg.PathExe = percorsi_.CmdAstrolog;
    cfg.NazioneDefault = SS(TextNaz->text());
    cfg.CityDefault = SS(TextCity->text());
    if (OptCity->isChecked()) cfg.Ordinamento = "C";
    if (OptNazioni->isChecked()) cfg.Ordinamento = "N";
    if (!ScriviConfig(percorsi_.FileIni, cfg, &errore)) {
        // Nothing is lost: the dialog stays open with what the user typed.
        messaggi_.Mostra("Vesmo - Configurazione",
                         "Impossibile scrivere il file delle impostazioni:\n" + errore,
                         Pulsanti::Ok, Icona::Critico);
        return;
    }
    Salvato = true;
    PrimaVolta = false;
    accept();
}

void frmInputIni::cmdEsci_Click() {
    reject();
}

} // namespace vesmo
