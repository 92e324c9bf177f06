// A form's controls found by name, read as the user reads them and typed into key by key; the
// boxes the user was shown; a modal window acted on once it shows.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QString>
#include <QTest>
#include <QTimer>
#include <QVariant>
#include <QWidget>
#include <functional>
#include <initializer_list>
#include <memory>
#include <utility>

#include "core/Messaggi.h"

namespace vesmo::test {

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

// The rows of a list, top to bottom.
inline QStringList Voci(const QListWidget* l) {
    QStringList r;
    for (int i = 0; i < l->count(); ++i)
        r << l->item(i)->text();
    return r;
}

// Box `k` of the `n` the user was shown, by its title and text; false when there were not `n`.
inline bool Box(const MessaggiRegistrati& m, std::size_t n, std::size_t k,
                const std::string& titolo, const std::string& testo) {
    EXPECT_EQ(m.registro.size(), n);
    if (m.registro.size() != n || k >= n) return false;
    EXPECT_EQ(m.registro[k].titolo, titolo);
    EXPECT_EQ(m.registro[k].testo, testo);
    return true;
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
