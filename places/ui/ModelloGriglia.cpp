#include "places/ui/ModelloGriglia.h"

#include "core/qt/MessaggiQt.h"
#include "places/ModuloDati.h"

namespace vesmo {

ModelloGriglia::ModelloGriglia(QStringList campi, QObject* genitore)
    : QAbstractTableModel(genitore), campi_(std::move(campi)) {}

void ModelloGriglia::CaricaSuRichiesta(Cursore& c, Database& db) {
    lettore_ = std::make_unique<Cursore>(db, c.Tabella());
    Percorri(c, false);
}

void ModelloGriglia::Carica(Cursore& c) {
    lettore_.reset();
    Percorri(c, true);
}

void ModelloGriglia::Percorri(Cursore& c, bool celle) {
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
            if (celle)
                for (const QString& campo : campi_)
                    r.celle.push_back(QS(c.Campo(SS(campo)).Testo()));
            perSegnalibro_[r.s.riga] = static_cast<int>(righe_.size());
            righe_.push_back(std::move(r));
        }
    }
    if (dove) c.VaiA(*dove);
    endResetModel();
}

void ModelloGriglia::LeggiCelle(const Riga& r) const {
    r.celle.clear();
    try {
        lettore_->VaiA(r.s);
        for (const QString& campo : campi_)
            r.celle.push_back(QS(lettore_->Campo(SS(campo)).Testo()));
    } catch (const ErroreDB&) {
        // Deleted since the grid was filled: an empty row.
        r.celle.assign(static_cast<std::size_t>(campi_.size()), QString());
    }
}

QVariant ModelloGriglia::data(const QModelIndex& indice, int ruolo) const {
    if (!indice.isValid() || (ruolo != Qt::DisplayRole && ruolo != Qt::EditRole)) return {};
    const Riga& r = righe_.at(static_cast<std::size_t>(indice.row()));
    if (r.celle.empty()) LeggiCelle(r);
    return r.celle.at(static_cast<std::size_t>(indice.column()));
}

QVariant ModelloGriglia::headerData(int sezione, Qt::Orientation o, int ruolo) const {
    if (ruolo != Qt::DisplayRole) return {};
    if (o == Qt::Horizontal) return campi_.value(sezione);
    return {};
}

Qt::ItemFlags ModelloGriglia::flags(const QModelIndex& indice) const {
    Qt::ItemFlags f = QAbstractTableModel::flags(indice);
    if (modificabile_ && indice.isValid()) f |= Qt::ItemIsEditable;
    return f;
}

bool ModelloGriglia::setData(const QModelIndex& indice, const QVariant& valore, int ruolo) {
    if (!modificabile_ || !indice.isValid() || ruolo != Qt::EditRole) return false;
    auto& riga = righe_.at(static_cast<std::size_t>(indice.row()));
    const std::string campo = SS(campi_.value(indice.column()));
    const std::string testo = SS(valore.toString());
    try {
        scrittura_->VaiA(riga.s);
        // A number stays a number: a field that holds one is given the number typed.
        const Valore prima = scrittura_->Campo(campo);
        Valore nuovo(testo);
        double n = 0;
        if (prima.ENumero() && NumeroDaCasella(testo, n)) nuovo = Valore(n);
        scrittura_->Edit();
        scrittura_->Imposta(campo, nuovo);
        scrittura_->Update();
        if (riga.celle.empty()) LeggiCelle(riga);
        riga.celle.at(static_cast<std::size_t>(indice.column())) =
            QS(scrittura_->Campo(campo).Testo());
    } catch (const std::exception& e) {
        if (scrittura_->Modo() != ModoModifica::Nessuno) scrittura_->CancelUpdate();
        if (Errore) Errore(e);
        return false;
    }
    emit dataChanged(indice, indice);
    return true;
}

int ModelloGriglia::RigaDi(const Segnalibro& s) const {
    auto it = perSegnalibro_.find(s.riga);
    return it == perSegnalibro_.end() ? -1 : it->second;
}

} // namespace vesmo
