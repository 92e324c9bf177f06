#include "places/ui/ModelloGriglia.h"

#include "core/qt/MessaggiQt.h"

namespace vesmo {

ModelloGriglia::ModelloGriglia(QStringList campi, QObject* genitore)
    : QAbstractTableModel(genitore), campi_(std::move(campi)) {}

void ModelloGriglia::Carica(Cursore& c) {
    beginResetModel();
    righe_.clear();
    perSegnalibro_.clear();
    std::optional<Segnalibro> dove;
    if (!c.BOF() && !c.Eof()) dove = c.Bookmark();
    if (c.RecordCount() > 0) {
        righe_.reserve(static_cast<std::size_t>(c.RecordCount()));
        for (c.MoveFirst(); !c.Eof(); c.MoveNext()) {
            Riga r;
            r.s = c.Bookmark();
            for (const QString& campo : campi_) {
                Valore v = c.Campo(SS(campo));
                r.celle.push_back(QS(v.Testo()));
            }
            perSegnalibro_[r.s.riga] = static_cast<int>(righe_.size());
            righe_.push_back(std::move(r));
        }
    }
    if (dove) c.VaiA(*dove);
    endResetModel();
}

QVariant ModelloGriglia::data(const QModelIndex& indice, int ruolo) const {
    if (!indice.isValid() || ruolo != Qt::DisplayRole) return {};
    return righe_.at(static_cast<std::size_t>(indice.row()))
        .celle.at(static_cast<std::size_t>(indice.column()));
}

QVariant ModelloGriglia::headerData(int sezione, Qt::Orientation o, int ruolo) const {
    if (ruolo != Qt::DisplayRole) return {};
    if (o == Qt::Horizontal) return campi_.value(sezione);
    return {};
}

int ModelloGriglia::RigaDi(const Segnalibro& s) const {
    auto it = perSegnalibro_.find(s.riga);
    return it == perSegnalibro_.end() ? -1 : it->second;
}

} // namespace vesmo
