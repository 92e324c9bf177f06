// A read-only grid over a table cursor: the rows in the order of the cursor's index, read once,
// so that a view shows 140,000 places smoothly; rows are found by bookmark and back.
#pragma once

#include <QAbstractTableModel>
#include <QStringList>
#include <functional>
#include <memory>
#include <unordered_map>
#include <vector>

#include "core/store/Cursore.h"

namespace vesmo {

class ModelloGriglia : public QAbstractTableModel {
    Q_OBJECT
public:
    // `campi`: the fields shown, one column each, with their heads.
    ModelloGriglia(QStringList campi, QObject* genitore = nullptr);

    // Reads every row of the cursor in index order; the cursor ends where it started.
    void Carica(Cursore& c);
    // The same, but only the rows' places are read now: a row's cells are read when the view
    // first asks for them, through a cursor of the grid's own on the same table of `db` (a
    // bookmark names its row in the whole table). For tables of a hundred thousand rows.
    void CaricaSuRichiesta(Cursore& c, Database& db);

    int rowCount(const QModelIndex& = {}) const override { return static_cast<int>(righe_.size()); }
    int columnCount(const QModelIndex& = {}) const override {
        return static_cast<int>(campi_.size());
    }
    QVariant data(const QModelIndex& indice, int ruolo) const override;
    QVariant headerData(int sezione, Qt::Orientation o, int ruolo) const override;

    // Editing: when on, a cell typed in is written straight to its row through `c` (the cursor
    // the rows were read from), without any check of the table's relations. A write the store
    // refuses is handed to Errore and the cell keeps its value.
    void Modificabile(Cursore* c, bool acceso) {
        scrittura_ = c;
        modificabile_ = acceso && c != nullptr;
    }
    bool Modificabile() const { return modificabile_; }
    std::function<void(const std::exception&)> Errore;
    Qt::ItemFlags flags(const QModelIndex& indice) const override;
    bool setData(const QModelIndex& indice, const QVariant& valore, int ruolo) override;

    // The row of a bookmark (-1 when absent), and the bookmark of a row.
    int RigaDi(const Segnalibro& s) const;
    Segnalibro SegnalibroDi(int riga) const { return righe_.at(static_cast<std::size_t>(riga)).s; }

private:
    struct Riga {
        Segnalibro s;
        mutable std::vector<QString> celle; // empty until read
    };
    void LeggiCelle(const Riga& r) const;
    // Reads the rows' places in index order, with their cells when `celle`.
    void Percorri(Cursore& c, bool celle);
    QStringList campi_;
    std::vector<Riga> righe_;
    std::unordered_map<std::int64_t, int> perSegnalibro_;
    std::unique_ptr<Cursore> lettore_;
    Cursore* scrittura_ = nullptr;
    bool modificabile_ = false;
};

} // namespace vesmo
