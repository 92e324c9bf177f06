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
#include "core/ui/Controlli.h"

namespace vesmo {

frmInputIni::frmInputIni(PercorsiVesmo& percorsi, Messaggi& messaggi, QWidget* genitore)
    : QDialog(genitore), percorsi_(percorsi), messaggi_(messaggi) {
    setObjectName("frmInputIni");
    setWindowTitle(QStringLiteral("Vesmo - Confgurazione prima volta/First time"));
    CreaControlli();
    Disponi();
    ScegliFile = [this](const QString& titolo, const QString& filtro) -> std::optional<QString> {
        QString f = QFileDialog::getOpenFileName(this, titolo, QString(), filtro);
        if (f.isEmpty()) return std::nullopt;
        return f;
    };
    Collega();
}

void frmInputIni::CreaControlli() {
    TextDB = Casella(this, "TextDB");
    TextExe = Casella(this, "TextExe");
    TextNaz = Casella(this, "TextNaz");
    TextCity = Casella(this, "TextCity");
    TextDB->setReadOnly(true);
    TextExe->setReadOnly(true);
    TextDB->setMinimumWidth(420);
    CmdDB = Pulsante(this, "CmdDB", "&Sfoglia/Search");
    CmdExe = Pulsante(this, "CmdExe", "S&foglia/Search");
    CmdOk = Pulsante(this, "CmdOk", "&Ok");
    CmdOk->setDefault(true);
    cmdEsci = Pulsante(this, "cmdEsci", "&Esci");
    OptNazioni = Nome(new QRadioButton(QStringLiteral("per Nazioni"), this), "OptNazioni");
    OptCity = Nome(new QRadioButton(QStringLiteral("per City"), this), "OptCity");
}

void frmInputIni::Disponi() {
    auto* percorsiBox = Riquadro(this, "", "Percorsi / Path");
    auto* gp = new QGridLayout(percorsiBox);
    gp->addWidget(Etichetta(percorsiBox, " Database "), 0, 0);
    gp->addWidget(TextDB, 0, 1);
    gp->addWidget(CmdDB, 0, 2);
    gp->addWidget(Etichetta(percorsiBox, " Astrolog.Exe"), 1, 0);
    gp->addWidget(TextExe, 1, 1);
    gp->addWidget(CmdExe, 1, 2);

    auto* ordBox = Riquadro(this, "", "Ordinamento Database");
    auto* lo = new QVBoxLayout(ordBox);
    lo->addWidget(OptNazioni);
    lo->addWidget(OptCity);

    auto* locBox = Riquadro(this, "", "Località Default ");
    auto* gl = new QGridLayout(locBox);
    gl->addWidget(Etichetta(locBox, "Nazione  "), 0, 0);
    gl->addWidget(TextNaz, 0, 1);
    gl->addWidget(Etichetta(locBox, "City     "), 1, 0);
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
}

void frmInputIni::Collega() {
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
