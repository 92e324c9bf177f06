// What the menu's window tests share: the natal chart they start from and acting on a modal
// window once it shows.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QString>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <memory>

#include "core/Aritmetica.h"
#include "core/Tema.h"
#include "tests/core/ui/Controlli.h"

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

} // namespace vesmo::test
