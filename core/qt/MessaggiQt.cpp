#include "core/qt/MessaggiQt.h"

#include <QApplication>
#include <QInputDialog>
#include <QMessageBox>

#include "core/qt/MessaggiDellaFinestra.h"

namespace vesmo {

QWidget* MessaggiQt::Genitore() const {
    return genitore_ ? genitore_ : QApplication::activeWindow();
}

Risposta MessaggiQt::Mostra(const std::string& titolo, const std::string& testo, Pulsanti pulsanti,
                            Icona icona) {
    QMessageBox box(Genitore());
    box.setWindowTitle(QS(titolo));
    // Texts written with CR LF keep one line break each.
    QString t = QS(testo);
    t.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    t.replace(QChar('\r'), QChar('\n'));
    box.setText(t);
    switch (icona) {
    case Icona::Critico:
        box.setIcon(QMessageBox::Critical);
        break;
    case Icona::Domanda:
        box.setIcon(QMessageBox::Question);
        break;
    case Icona::Esclamativo:
        box.setIcon(QMessageBox::Warning);
        break;
    case Icona::Informazione:
        box.setIcon(QMessageBox::Information);
        break;
    case Icona::Nessuna:
        break;
    }
    // The buttons, the first of them the one Return presses.
    QMessageBox::StandardButtons b;
    QMessageBox::StandardButton primo = QMessageBox::Ok;
    switch (pulsanti) {
    case Pulsanti::Ok:
        b = QMessageBox::Ok;
        break;
    case Pulsanti::OkAnnulla:
        b = QMessageBox::Ok | QMessageBox::Cancel;
        break;
    case Pulsanti::InterrompiRiprovaIgnora:
        b = QMessageBox::Abort | QMessageBox::Retry | QMessageBox::Ignore;
        primo = QMessageBox::Abort;
        break;
    case Pulsanti::SiNoAnnulla:
        b = QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
        primo = QMessageBox::Yes;
        break;
    case Pulsanti::SiNo:
        b = QMessageBox::Yes | QMessageBox::No;
        primo = QMessageBox::Yes;
        break;
    case Pulsanti::RiprovaAnnulla:
        b = QMessageBox::Retry | QMessageBox::Cancel;
        primo = QMessageBox::Retry;
        break;
    }
    box.setStandardButtons(b);
    box.setDefaultButton(primo);
    QApplication::restoreOverrideCursor();
    switch (box.exec()) {
    case QMessageBox::Ok:
        return Risposta::Ok;
    case QMessageBox::Cancel:
        return Risposta::Annulla;
    case QMessageBox::Abort:
        return Risposta::Interrompi;
    case QMessageBox::Retry:
        return Risposta::Riprova;
    case QMessageBox::Ignore:
        return Risposta::Ignora;
    case QMessageBox::Yes:
        return Risposta::Si;
    case QMessageBox::No:
        return Risposta::No;
    default:
        break;
    }
    // A box closed by its window button counts as its cancel button, or its only one.
    if (pulsanti == Pulsanti::SiNo) return Risposta::No;
    if (pulsanti == Pulsanti::Ok) return Risposta::Ok;
    return Risposta::Annulla;
}

std::optional<std::string> MessaggiQt::Chiedi(const std::string& titolo, const std::string& testo,
                                              const std::string& predefinito) {
    bool ok = false;
    QString t = QS(testo);
    t.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    QString r =
        QInputDialog::getText(Genitore(), QS(titolo), t, QLineEdit::Normal, QS(predefinito), &ok);
    if (!ok) return std::nullopt;
    return SS(r);
}

namespace {

// The screen's boxes over `finestra` while it lives.
class SopraFinestra {
public:
    SopraFinestra(Messaggi& base, QWidget* finestra) : qt_(dynamic_cast<MessaggiQt*>(&base)) {
        if (!qt_) return;
        prima_ = qt_->GenitoreImpostato();
        qt_->ImpostaGenitore(finestra);
    }
    ~SopraFinestra() {
        if (qt_) qt_->ImpostaGenitore(prima_);
    }
    SopraFinestra(const SopraFinestra&) = delete;
    SopraFinestra& operator=(const SopraFinestra&) = delete;

private:
    MessaggiQt* qt_;
    QWidget* prima_ = nullptr;
};

} // namespace

Risposta MessaggiDellaFinestra::Mostra(const std::string& titolo, const std::string& testo,
                                       Pulsanti pulsanti, Icona icona) {
    SopraFinestra sopra(base_, finestra_);
    return base_.Mostra(titolo, testo, pulsanti, icona);
}

std::optional<std::string> MessaggiDellaFinestra::Chiedi(const std::string& titolo,
                                                         const std::string& testo,
                                                         const std::string& predefinito) {
    SopraFinestra sopra(base_, finestra_);
    return base_.Chiedi(titolo, testo, predefinito);
}

void MessaggiQt::Beep() {
    QApplication::beep();
}

void MessaggiQt::Occupato(bool acceso) {
    if (acceso)
        QApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QApplication::restoreOverrideCursor();
}

} // namespace vesmo
