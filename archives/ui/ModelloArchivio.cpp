#include "archives/ui/ModelloArchivio.h"

#include "core/Testo.h"
#include "core/qt/MessaggiQt.h"

namespace vesmo {

namespace {

// Rows kept read; beyond this the store starts again, the view asks only for what it shows.
constexpr std::size_t RigheTenute = 4096;

} // namespace

ModelloArchivio::ModelloArchivio(QObject* genitore) : QAbstractTableModel(genitore) {}

ModelloArchivio::~ModelloArchivio() = default;

void ModelloArchivio::Apri(Database& db, const std::string& tabella, const std::string& indice) {
    beginResetModel();
    rs_.reset();
    auto rs = std::make_unique<Cursore>(db, tabella);
    rs->Index(indice);
    campi_ = db.Campi(tabella);
    bool day = false, oraL = false;
    for (const DefCampo& c : campi_) {
        day = day || c.nome == "Day";
        oraL = oraL || c.nome == "OraL";
    }
    archivio_ = day && oraL;
    rs_ = std::move(rs);
    endResetModel();
    Ricarica();
}

void ModelloArchivio::Chiudi() {
    beginResetModel();
    rs_.reset();
    campi_.clear();
    righe_.clear();
    perSegnalibro_.clear();
    letti_.clear();
    endResetModel();
}

void ModelloArchivio::Ricarica() {
    beginResetModel();
    letti_.clear();
    perSegnalibro_.clear();
    righe_.clear();
    if (rs_) {
        rs_->Refresh();
        if (colonna_ < 0 && criteri_.Vuoti()) {
            righe_ = rs_->Segnalibri();
        } else {
            std::vector<Valore> parametri;
            const std::string dove = archivio_ ? CondizioneRicerca(criteri_, parametri) : "";
            const std::string ordine =
                colonna_ >= 0 && colonna_ < static_cast<int>(campi_.size())
                    ? OrdineCampo(campi_[static_cast<std::size_t>(colonna_)].nome,
                                  verso_ == Qt::DescendingOrder)
                    : "";
            righe_ = rs_->Segnalibri(dove, ordine, parametri);
        }
        perSegnalibro_.reserve(righe_.size());
        for (std::size_t i = 0; i < righe_.size(); ++i)
            perSegnalibro_[righe_[i].riga] = static_cast<int>(i);
    }
    endResetModel();
}

int ModelloArchivio::RigaDi(const Segnalibro& s) const {
    auto it = perSegnalibro_.find(s.riga);
    return it == perSegnalibro_.end() ? -1 : it->second;
}

int ModelloArchivio::rowCount(const QModelIndex& genitore) const {
    return genitore.isValid() ? 0 : static_cast<int>(righe_.size());
}

int ModelloArchivio::columnCount(const QModelIndex& genitore) const {
    return genitore.isValid() ? 0 : static_cast<int>(campi_.size());
}

const std::vector<QString>& ModelloArchivio::Celle(int riga) const {
    auto it = letti_.find(riga);
    if (it != letti_.end()) return it->second;
    if (letti_.size() >= RigheTenute) letti_.clear();
    std::vector<QString> celle;
    try {
        rs_->VaiA(righe_.at(static_cast<std::size_t>(riga)));
        for (const DefCampo& c : campi_)
            celle.push_back(QS(archivio_ ? TestoElenco(c.nome, rs_->Campo(c.nome))
                                         : rs_->Campo(c.nome).Testo()));
    } catch (const ErroreDB&) {
        // A row deleted elsewhere since the order was read: shown empty until the next reload.
        celle.assign(campi_.size(), QString());
    }
    return letti_.emplace(riga, std::move(celle)).first->second;
}

QVariant ModelloArchivio::data(const QModelIndex& indice, int ruolo) const {
    if (!indice.isValid() || !rs_ || (ruolo != Qt::DisplayRole && ruolo != Qt::EditRole)) return {};
    return Celle(indice.row()).at(static_cast<std::size_t>(indice.column()));
}

QVariant ModelloArchivio::headerData(int sezione, Qt::Orientation o, int ruolo) const {
    if (ruolo != Qt::DisplayRole) return {};
    if (o == Qt::Horizontal && sezione >= 0 && sezione < static_cast<int>(campi_.size()))
        return QS(archivio_ ? TitoloElenco(campi_[static_cast<std::size_t>(sezione)].nome)
                            : campi_[static_cast<std::size_t>(sezione)].nome);
    return {};
}

Qt::ItemFlags ModelloArchivio::flags(const QModelIndex& indice) const {
    Qt::ItemFlags f = QAbstractTableModel::flags(indice);
    if (modificabile_ && indice.isValid()) f |= Qt::ItemIsEditable;
    return f;
}

bool ModelloArchivio::setData(const QModelIndex& indice, const QVariant& valore, int ruolo) {
    if (!modificabile_ || !rs_ || !indice.isValid() || ruolo != Qt::EditRole) return false;
    const DefCampo& campo = campi_.at(static_cast<std::size_t>(indice.column()));
    std::string testo = SS(valore.toString());
    // The texts of a chart keep their width, as the save writes them.
    if (campo.tipo == TipoCampo::Testo && campo.dimensione > 0)
        testo = TagliaOAllunga(testo, static_cast<std::size_t>(campo.dimensione));
    Valore nuovo(testo);
    if (archivio_) {
        auto v = ValoreElenco(campo.nome, testo);
        if (!v) {
            if (Errore)
                Errore(std::runtime_error("Valore non valido per " + TitoloElenco(campo.nome) +
                                          ": " + testo));
            return false;
        }
        nuovo = *v;
    }
    const Segnalibro s = righe_.at(static_cast<std::size_t>(indice.row()));
    try {
        rs_->VaiA(s);
        rs_->Edit();
        rs_->Imposta(campo.nome, nuovo);
        rs_->Update();
    } catch (const std::exception& e) {
        rs_->CancelUpdate();
        if (Errore) Errore(e);
        return false;
    }
    Ricarica();
    if (RigaCambiata) RigaCambiata(s);
    return true;
}

void ModelloArchivio::sort(int colonna, Qt::SortOrder verso) {
    // The view may ask twice for the same order (QTableView::sortByColumn): once is enough.
    if (colonna == colonna_ && verso == verso_) return;
    colonna_ = colonna;
    verso_ = verso;
    Ricarica();
}

void ModelloArchivio::Filtra(const CriteriRicerca& criteri) {
    criteri_ = criteri;
    Ricarica();
}

} // namespace vesmo
