// The screen's message box answered by the user: each button of each kind of box, Return, Esc
// and the window's close button, on the real QMessageBox.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <functional>
#include <vector>

#include "core/qt/MessaggiQt.h"

using namespace vesmo;

namespace {

// Waits for the modal box, then does `gesto` to it.
void AlComparire(std::function<void(QMessageBox*)> gesto) {
    auto* timer = new QTimer;
    timer->setInterval(10);
    QObject::connect(timer, &QTimer::timeout, [timer, gesto] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box) return;
        timer->stop();
        timer->deleteLater();
        gesto(box);
    });
    timer->start();
}

TEST(MessaggiQt, OgniPulsanteOgniTasto) {
    // Each set with its buttons; Return presses the first, Esc and the close button answer
    // `annulla`.
    struct Insieme {
        Pulsanti pulsanti;
        std::vector<std::pair<QMessageBox::StandardButton, Risposta>> tasti;
        Risposta annulla;
    };
    using B = QMessageBox;
    const Insieme insiemi[] = {
        {Pulsanti::Ok, {{B::Ok, Risposta::Ok}}, Risposta::Ok},
        {Pulsanti::OkAnnulla,
         {{B::Ok, Risposta::Ok}, {B::Cancel, Risposta::Annulla}},
         Risposta::Annulla},
        {Pulsanti::InterrompiRiprovaIgnora,
         {{B::Abort, Risposta::Interrompi},
          {B::Retry, Risposta::Riprova},
          {B::Ignore, Risposta::Ignora}},
         Risposta::Interrompi},
        {Pulsanti::SiNoAnnulla,
         {{B::Yes, Risposta::Si}, {B::No, Risposta::No}, {B::Cancel, Risposta::Annulla}},
         Risposta::Annulla},
        {Pulsanti::SiNo, {{B::Yes, Risposta::Si}, {B::No, Risposta::No}}, Risposta::No},
        {Pulsanti::RiprovaAnnulla,
         {{B::Retry, Risposta::Riprova}, {B::Cancel, Risposta::Annulla}},
         Risposta::Annulla},
    };
    MessaggiQt messaggi;
    for (const Insieme& s : insiemi) {
        std::vector<std::tuple<std::string, std::function<void(QMessageBox*)>, Risposta>> gesti;
        for (auto [tasto, risposta] : s.tasti)
            gesti.emplace_back(
                "pulsante " + std::to_string(tasto),
                [tasto](QMessageBox* box) {
                    QAbstractButton* b = box->button(tasto);
                    EXPECT_NE(b, nullptr) << "no such button";
                    b ? QTest::mouseClick(b, Qt::LeftButton) : (void)box->close();
                },
                risposta);
        gesti.emplace_back(
            "Invio", [](QMessageBox* b) { QTest::keyClick(b, Qt::Key_Return); }, s.tasti[0].second);
        gesti.emplace_back(
            "Esc", [](QMessageBox* b) { QTest::keyClick(b, Qt::Key_Escape); }, s.annulla);
        gesti.emplace_back(
            "chiusura", [](QMessageBox* b) { b->close(); }, s.annulla);
        for (const auto& [nome, gesto, attesa] : gesti) {
            SCOPED_TRACE(std::to_string(int(s.pulsanti)) + " " + nome);
            AlComparire(gesto);
            EXPECT_EQ(messaggi.Mostra("Titolo", "Testo", s.pulsanti, Icona::Domanda), attesa);
        }
    }
}

} // namespace
