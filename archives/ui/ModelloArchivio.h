// The grid of an archive: a model over a table cursor in the order of its index. Only the
// bookmarks of the rows are read when it opens; a row's fields are read when the view asks for
// them and kept for a while, so that an archive of 100,000 charts opens and scrolls smoothly.
// When made editable, a cell typed into is written to its row at once. An archive's row shows
// as people read it (date GG/MM/AAAA, time HH:MM, coordinates "11E53"); a click on a column's
// header sorts by it, and a search shows only the charts it finds.
#pragma once

#include <QAbstractTableModel>
#include <functional>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "archives/Elenchi.h"
#include "core/store/Cursore.h"

namespace vesmo {

class ModelloArchivio : public QAbstractTableModel {
    Q_OBJECT
public:
    explicit ModelloArchivio(QObject* genitore = nullptr);
    ~ModelloArchivio() override;

    // Shows table `tabella` of `db` in the order of index `indice`; nothing when the table is
    // empty of rows. The database must outlive the model's use of it.
    void Apri(Database& db, const std::string& tabella, const std::string& indice);
    // Nothing shown.
    void Chiudi();
    // Reads the order of the rows again, after rows were added, deleted or changed.
    void Ricarica();

    // The row of a bookmark (-1 when absent), and the bookmark of a row.
    int RigaDi(const Segnalibro& s) const;
    Segnalibro SegnalibroDi(int riga) const { return righe_.at(static_cast<std::size_t>(riga)); }

    // Only the rows the search finds (all with empty criteria), in the order chosen.
    void Filtra(const CriteriRicerca& criteri);
    const CriteriRicerca& Criteri() const { return criteri_; }
    // The column the rows are sorted by (-1: the index's order) and the direction.
    int ColonnaOrdine() const { return colonna_; }
    Qt::SortOrder Verso() const { return verso_; }

    // Cells may be changed (the grid's updating on).
    void Modificabile(bool si) { modificabile_ = si; }
    bool Modificabile() const { return modificabile_; }

    // A change the database refused, for the form to tell.
    std::function<void(const std::exception&)> Errore;
    // A cell written: the row may stand elsewhere in the order now.
    std::function<void(const Segnalibro&)> RigaCambiata;

    int rowCount(const QModelIndex& genitore = {}) const override;
    int columnCount(const QModelIndex& genitore = {}) const override;
    QVariant data(const QModelIndex& indice, int ruolo) const override;
    QVariant headerData(int sezione, Qt::Orientation o, int ruolo) const override;
    Qt::ItemFlags flags(const QModelIndex& indice) const override;
    bool setData(const QModelIndex& indice, const QVariant& valore, int ruolo) override;
    void sort(int colonna, Qt::SortOrder verso = Qt::AscendingOrder) override;

private:
    const std::vector<QString>& Celle(int riga) const;

    std::unique_ptr<Cursore> rs_;
    std::vector<DefCampo> campi_;
    std::vector<Segnalibro> righe_;
    std::unordered_map<std::int64_t, int> perSegnalibro_;
    mutable std::unordered_map<int, std::vector<QString>> letti_;
    bool modificabile_ = false;
    bool archivio_ = false; // the table has the fields of an archive: shown as people read them
    int colonna_ = -1;
    Qt::SortOrder verso_ = Qt::AscendingOrder;
    CriteriRicerca criteri_;
};

} // namespace vesmo
