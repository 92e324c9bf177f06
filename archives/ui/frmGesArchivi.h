// The archive management form of the launcher half: the list of archives, the creation of a new
// one, and the save of the entry form's chart. Opened as management form, or reduced to a save
// dialog by ModoSalvo().
#pragma once

#include <QDialog>
#include <string>

#include "core/Messaggi.h"
#include "core/Sessione.h"

class QComboBox;
class QGroupBox;
class QAction;
class QLabel;
class QLineEdit;
class QListWidget;
class QListWidgetItem;
class QPushButton;

namespace vesmo {

class frmGesArchivi : public QDialog {
    Q_OBJECT
public:
    // Lists the archives of `fileDB` and selects the first.
    frmGesArchivi(Sessione& sessione, const std::string& fileDB, Messaggi& messaggi,
                  QWidget* genitore = nullptr);

    // The save mode of mnuFilSalva (the caller has run LeggiTema on TemaCorrente): only the list,
    // cmdSalva and Command4, caption "Vesmo - Salvo".
    void ModoSalvo();

    // Fills lstArchivi again and selects its first item.
    void RiempiArchivi();

    QGroupBox *Frame1, *Frame2;
    QListWidget* lstArchivi;
    QPushButton *cmdSalva, *Command4, *cmdCrea;
    QLineEdit* Text1;
    QLabel* Label1;
    QComboBox* Combo1;
    QAction *mnFileImpSFtxt, *mnFileTT;

public slots:
    void cmdCrea_Click();
    void cmdSalva_Click();
    void Command4_Click();
    void lstArchivi_DblClick(QListWidgetItem*);

private:
    Sessione& s_;
    std::string fileDB_;
    Messaggi& messaggi_;
};

} // namespace vesmo
