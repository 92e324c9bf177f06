// The save dialog of the chart half: TemaSalva into an archive picked from the list.
#pragma once

#include <QDialog>
#include <string>

#include "core/Messaggi.h"
#include "core/Sessione.h"

class QListWidget;
class QPushButton;
class QListWidgetItem;

namespace vesmo {

class frmSalvoLyx : public QDialog {
    Q_OBJECT
public:
    // Lists the archives of `fileDB` and selects the one last used in the session.
    frmSalvoLyx(Sessione& sessione, const std::string& fileDB, Messaggi& messaggi,
                QWidget* genitore = nullptr);

    QListWidget* lstArchivi;
    QPushButton *cmdSalva, *Command4;

public slots:
    void cmdSalva_Click();
    void Command4_Click();
    void lstArchivi_DblClick(QListWidgetItem*);

private:
    Sessione& s_;
    std::string fileDB_;
    Messaggi& messaggi_;
};

} // namespace vesmo
