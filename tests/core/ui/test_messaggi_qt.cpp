// The screen's message box answered by the user: each button of each kind of box, Return, Esc
// and the window's close button, on the real QMessageBox.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <functional>

#include "core/qt/MessaggiQt.h"

using namespace vesmo;

namespace {

// What the user does to the box once it stands.
enum class Gesto { Pulsante, Invio, Esc, Chiusura };

struct Caso {
    Pulsanti pulsanti;
    Gesto gesto;
    QMessageBox::StandardButton tasto; // the button pressed, for Gesto::Pulsante
    Risposta attesa;
};

// Waits for the modal box, then does `gesto` to it; what was seen goes to `visti`.
void AlComparire(std::function<void(QMessageBox*)> gesto, QStringList& visti) {
    auto* timer = new QTimer;
    timer->setInterval(10);
    QObject::connect(timer, &QTimer::timeout, [timer, gesto, &visti] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box) return;
        timer->stop();
        timer->deleteLater();
        visti.clear();
        for (QAbstractButton* b : box->buttons())
            visti << b->text().remove('&');
        gesto(box);
    });
    timer->start();
}

TEST(MessaggiQt, OgniPulsanteOgniTasto) {
    // Return presses the first button of the set, Esc and the close button the one that cancels.
    const Caso casi[] = {
        {Pulsanti::Ok, Gesto::Pulsante, QMessageBox::Ok, Risposta::Ok},
        {Pulsanti::Ok, Gesto::Invio, QMessageBox::NoButton, Risposta::Ok},
        {Pulsanti::Ok, Gesto::Esc, QMessageBox::NoButton, Risposta::Ok},
        {Pulsanti::Ok, Gesto::Chiusura, QMessageBox::NoButton, Risposta::Ok},
        {Pulsanti::OkAnnulla, Gesto::Pulsante, QMessageBox::Ok, Risposta::Ok},
        {Pulsanti::OkAnnulla, Gesto::Pulsante, QMessageBox::Cancel, Risposta::Annulla},
        {Pulsanti::OkAnnulla, Gesto::Invio, QMessageBox::NoButton, Risposta::Ok},
        {Pulsanti::OkAnnulla, Gesto::Esc, QMessageBox::NoButton, Risposta::Annulla},
        {Pulsanti::OkAnnulla, Gesto::Chiusura, QMessageBox::NoButton, Risposta::Annulla},
        {Pulsanti::InterrompiRiprovaIgnora, Gesto::Pulsante, QMessageBox::Abort,
         Risposta::Interrompi},
        {Pulsanti::InterrompiRiprovaIgnora, Gesto::Pulsante, QMessageBox::Retry, Risposta::Riprova},
        {Pulsanti::InterrompiRiprovaIgnora, Gesto::Pulsante, QMessageBox::Ignore, Risposta::Ignora},
        {Pulsanti::InterrompiRiprovaIgnora, Gesto::Invio, QMessageBox::NoButton,
         Risposta::Interrompi},
        {Pulsanti::InterrompiRiprovaIgnora, Gesto::Esc, QMessageBox::NoButton,
         Risposta::Interrompi},
        {Pulsanti::InterrompiRiprovaIgnora, Gesto::Chiusura, QMessageBox::NoButton,
         Risposta::Interrompi},
        {Pulsanti::SiNoAnnulla, Gesto::Pulsante, QMessageBox::Yes, Risposta::Si},
        {Pulsanti::SiNoAnnulla, Gesto::Pulsante, QMessageBox::No, Risposta::No},
        {Pulsanti::SiNoAnnulla, Gesto::Pulsante, QMessageBox::Cancel, Risposta::Annulla},
        {Pulsanti::SiNoAnnulla, Gesto::Invio, QMessageBox::NoButton, Risposta::Si},
        {Pulsanti::SiNoAnnulla, Gesto::Esc, QMessageBox::NoButton, Risposta::Annulla},
        {Pulsanti::SiNoAnnulla, Gesto::Chiusura, QMessageBox::NoButton, Risposta::Annulla},
        {Pulsanti::SiNo, Gesto::Pulsante, QMessageBox::Yes, Risposta::Si},
        {Pulsanti::SiNo, Gesto::Pulsante, QMessageBox::No, Risposta::No},
        {Pulsanti::SiNo, Gesto::Invio, QMessageBox::NoButton, Risposta::Si},
        {Pulsanti::SiNo, Gesto::Esc, QMessageBox::NoButton, Risposta::No},
        {Pulsanti::SiNo, Gesto::Chiusura, QMessageBox::NoButton, Risposta::No},
        {Pulsanti::RiprovaAnnulla, Gesto::Pulsante, QMessageBox::Retry, Risposta::Riprova},
        {Pulsanti::RiprovaAnnulla, Gesto::Pulsante, QMessageBox::Cancel, Risposta::Annulla},
        {Pulsanti::RiprovaAnnulla, Gesto::Invio, QMessageBox::NoButton, Risposta::Riprova},
        {Pulsanti::RiprovaAnnulla, Gesto::Esc, QMessageBox::NoButton, Risposta::Annulla},
        {Pulsanti::RiprovaAnnulla, Gesto::Chiusura, QMessageBox::NoButton, Risposta::Annulla},
    };
    MessaggiQt messaggi;
    for (std::size_t i = 0; i < std::size(casi); ++i) {
        const Caso& c = casi[i];
        SCOPED_TRACE(i);
        QStringList visti;
        bool premuto = false;
        AlComparire(
            [&](QMessageBox* box) {
                switch (c.gesto) {
                case Gesto::Pulsante:
                    if (QAbstractButton* b = box->button(c.tasto)) {
                        QTest::mouseClick(b, Qt::LeftButton);
                        premuto = true;
                    } else {
                        box->close();
                    }
                    break;
                case Gesto::Invio:
                    QTest::keyClick(box, Qt::Key_Return);
                    break;
                case Gesto::Esc:
                    QTest::keyClick(box, Qt::Key_Escape);
                    break;
                case Gesto::Chiusura:
                    box->close();
                    break;
                }
            },
            visti);
        const Risposta r = messaggi.Mostra("Titolo", "Testo", c.pulsanti, Icona::Domanda);
        if (c.gesto == Gesto::Pulsante) {
            EXPECT_TRUE(premuto) << "no such button among " << visti.join(", ").toStdString();
        }
        EXPECT_EQ(r, c.attesa) << visti.join(", ").toStdString();
    }
}

} // namespace
