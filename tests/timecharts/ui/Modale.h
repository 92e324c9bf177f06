// What the menu's window tests share: the natal chart they start from, acting on a modal window
// once it shows, and finding a control by name.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QString>
#include <QTest>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <initializer_list>
#include <memory>
#include <utility>

#include "core/Aritmetica.h"
#include "core/Tema.h"

namespace vesmo::test {

// Padova, 10 April 1987 at 19:30, summer time, one hour east: the chart the chart half opens on.
inline Tema NataleDiProva() {
    Tema t;
    t.Nome = "Mario Rossi";
    t.City = "Padova";
    t.Stato = "Italy";
    t.Day = GiornoGiuliano(1987, 4, 10);
    t.OraL = 19.5;
    t.Lon = -GradiDecimali(11, 53, 0) / 15;
    t.Lat = 45.4;
    t.Fuso = -1;
    t.Estiva = 1;
    return t;
}

// Runs `azione` on the modal window named `nome` as soon as it is shown; a window that never
// shows fails the test and closes whatever modal window stands, so nothing hangs.
inline void AlModale(const QString& nome, std::function<void(QWidget*)> azione) {
    auto* t = new QTimer;
    auto giri = std::make_shared<int>(0);
    QObject::connect(t, &QTimer::timeout, [t, nome, azione, giri] {
        QWidget* w = QApplication::activeModalWidget();
        if (w && w->objectName() == nome) {
            t->stop();
            t->deleteLater();
            azione(w);
            // A failed assertion left the window open: close it, or the test would wait.
            if (::testing::Test::HasFatalFailure() && w->isVisible()) w->close();
            return;
        }
        if (++*giri > 2000) {
            t->stop();
            t->deleteLater();
            ADD_FAILURE() << "non si è aperta la finestra " << nome.toStdString();
            if (w) w->close();
        }
    });
    t->start(5);
}

template <class T> T* Figlio(QWidget* w, const char* nome) {
    T* c = w->findChild<T*>(nome);
    EXPECT_NE(c, nullptr) << nome;
    return c;
}

// What the user reads on the controls named in `attesi` (a line or label's text, a combo's
// current entry, a frame's title, a text box's text), each mismatch reported by name.
inline void Testi(QWidget* w, std::initializer_list<std::pair<const char*, QString>> attesi) {
    for (const auto& [nome, atteso] : attesi) {
        QWidget* c = w->findChild<QWidget*>(nome);
        if (!c) {
            ADD_FAILURE() << "manca " << nome;
            continue;
        }
        QVariant v = c->property("text");
        if (!v.isValid()) v = c->property("currentText");
        if (!v.isValid()) v = c->property("title");
        if (!v.isValid()) v = c->property("plainText");
        EXPECT_EQ(v.toString(), atteso) << nome;
    }
}

// Typed by the user, key by key, into the named line boxes, each emptied first.
inline void Scrivi(QWidget* w, std::initializer_list<std::pair<const char*, QString>> testi) {
    for (const auto& [nome, testo] : testi) {
        auto* t = Figlio<QLineEdit>(w, nome);
        if (!t) continue;
        t->clear();
        QTest::keyClicks(t, testo);
    }
}

} // namespace vesmo::test
