// A form's controls found by name, read as the user reads them and typed into key by key; the
// boxes the user was shown.
#pragma once

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QListWidget>
#include <QString>
#include <QTest>
#include <QVariant>
#include <QWidget>
#include <initializer_list>
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

} // namespace vesmo::test
