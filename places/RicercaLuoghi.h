// Finding places by the names people say: a place's own name, an Italian place's name without
// its province letters, and the other names of a place kept in the table NomiAlternativi:
//
//   NomiAlternativi  cCity (Intero32, the nation's cNaz), NomeAlt (Testo: the other name),
//                    City (Testo: the place's name in AllCity), Rango (Intero32: 0 for the
//                    place with the most people, then upwards)
//                    IcCityNomeAlt (cCity, NomeAlt, Rango), indNomeAlt (NomeAlt, Rango)
//
// A place is found in AllCity by its nation and name, which are unique together. Texts compare
// as the indexes compare them: case and accents ignored.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "core/store/Cursore.h"
#include "core/store/Database.h"
#include "places/IndiceNomi.h"

namespace vesmo {

inline constexpr const char* TabellaNomiAlternativi = "NomiAlternativi";

// Creates the table NomiAlternativi with its two indexes in an open database.
void CreaTabellaNomiAlternativi(Database& db);

struct LuogoTrovato {
    std::int32_t cCity = 0; // the nation's code
    std::string City;       // the name in AllCity
    std::string NomeAlt;    // the other name that matched; empty when the own name did
};

// How a name was matched.
enum class Corrispondenza {
    Nessuna,
    Propria,        // the place's own name
    SenzaProvincia, // an Italian place's name without its province letters
    Alternativa     // one of its other names
};

struct EsitoNome {
    Corrispondenza tipo = Corrispondenza::Nessuna;
    std::vector<LuogoTrovato> luoghi; // in index order; the best first for other names
};

// The answer of RisolviNome: one place, several that fit equally, or none.
enum class StatoRisoluzione { Trovato, Ambiguo, Nessuno };

struct Candidato {
    std::int32_t cCity = 0; // the nation's code
    std::string City;       // the name in AllCity
    std::string Nome;       // the name that matched, as written in the database ("Girgenti")
    std::string Sigla;      // the province letters of that name (Italy), else ""
    TipoNome tipo = TipoNome::Ufficiale;
    std::int32_t abitanti = 0;
    double Lon = 0, Lat = 0; // hours west positive, degrees
};

struct EsitoRisoluzione {
    StatoRisoluzione stato = StatoRisoluzione::Nessuno;
    // Trovato: the one place. Ambiguo: the places that fit equally, the most people first.
    std::vector<Candidato> candidati;
    std::string nome;                  // the name looked up, without the province
    std::string provincia;             // the province as given ("MI", "Milano"); "" when none
    std::string sigle;                 // the letters of today's provinces it stands for, "FC RN"
    bool provinciaSconosciuta = false; // given, but no Italian province of that name
    // The text that says which name matched: "Girgenti → Agrigento", "" when the official
    // name of the place did.
    std::string Corrispondenza() const;
};

// The distance beyond which a place is never the answer for a given province, in km.
inline constexpr double DistanzaMassimaProvincia = 80.0;

// What keeps a place found by name: the nation asked, and the province given with the name
// (its today's letters and the box of its places, degrees, east positive).
struct FiltroLuoghi {
    std::optional<std::int32_t> cNaz;
    bool conProvincia = false;
    std::set<std::string> sigle;
    double latMin = 0, latMax = 0, lonMin = 0, lonMax = 0;
    // In the nation, and with a province: Italian, of the province or within
    // DistanzaMassimaProvincia of its box.
    bool Ammesso(const Candidato& c) const;
    bool NellaProvincia(const Candidato& c) const { return sigle.count(c.Sigla) > 0; }
};

// The last step of RisolviNome, the rules between places that share a name (`trovati`, not
// empty, each place once); `libero` when neither a nation nor a province was given. Sets the
// state and the candidates of `e` and nothing else.
void ScegliCandidati(std::vector<Candidato> trovati, bool libero, EsitoRisoluzione& e);

class RicercaLuoghi {
public:
    // Works on the places of `db`; a file without NomiAlternativi finds no other names.
    explicit RicercaLuoghi(Database& db);
    ~RicercaLuoghi();

    // The places whose name is `testo`, surrounding blanks ignored, in the nation `cNaz` or in
    // every nation: those whose own name it is; else the Italian places whose name it is
    // followed by their province letters ("Castelnuovo (TN)"); else the places that have it
    // among their other names.
    EsitoNome NomeEsatto(std::optional<std::int32_t> cNaz, std::string_view testo);
    // The place (with the most people) that has `testo` among its other names.
    std::optional<LuogoTrovato> NomeAlternativo(std::optional<std::int32_t> cNaz,
                                                std::string_view testo);
    // Up to `n` places whose own name begins with `testo`, in index order.
    std::vector<LuogoTrovato> Comincia(std::optional<std::int32_t> cNaz, std::string_view testo,
                                       std::size_t n);
    // Up to `n` places with another name that begins with `testo`, in the order of those names,
    // each place once and none of `esclusi`.
    std::vector<LuogoTrovato> AlternativiCheCominciano(std::optional<std::int32_t> cNaz,
                                                       std::string_view testo, std::size_t n,
                                                       const std::vector<LuogoTrovato>& esclusi);
    // Up to `n` places whose names begin like `testo`: with the longest beginning of it that
    // begins any name.
    std::vector<LuogoTrovato> Simili(std::optional<std::int32_t> cNaz, std::string_view testo,
                                     std::size_t n);

    // The place that a name written as records write it stands for: "Abbiategrasso (MI)",
    // "Abbiategrasso (Milano)", "BUDDUSO'", "Girgenti (AG)", "Monteleone (CZ)", "Parigi". The name
    // is folded (PiegaNome) and sought once in the index of keys; the province in brackets
    // (today's or a former one, letters or name) keeps the places of that province or within
    // DistanzaMassimaProvincia of it. Of the places left, those of the best type of name win
    // (official, former official, hamlet, other name); with a province and no name, a unique
    // official name of the province that begins with it. Several places of the best type are
    // ambiguous, unless they lie in several nations, no nation and no province were given, and
    // one has ten times the people of every other. A text in brackets that is no Italian
    // province is taken as part of the name ("Toronto (ON)"). A database built without the
    // index of keys finds nothing here.
    EsitoRisoluzione RisolviNome(std::optional<std::int32_t> cNaz, std::string_view testo);
    // Up to `n` places with a name whose folded key begins with the folded `testo` ("GIRGENTI",
    // "BUDDUSO'", "Castelbolognese"), in key order, each place once and none of `esclusi`;
    // NomeAlt holds the name that matched when it is not the place's own.
    std::vector<LuogoTrovato> ChiaviCheCominciano(std::optional<std::int32_t> cNaz,
                                                  std::string_view testo, std::size_t n,
                                                  const std::vector<LuogoTrovato>& esclusi);

private:
    Database& db_;
    std::unique_ptr<Cursore> perCitta_, perNazione_, alt_, altTutti_, chiavi_, province_;
    bool senzaAlternativi_ = false, senzaChiavi_ = false;
    bool ApriChiavi();

    // The steps of RisolviNome, on the index of keys (open).
    // The province given in `e` into the filter; when it is no Italian province (or the nation
    // asked is not Italy), the whole text `testo` becomes the name and the province is dropped.
    void LeggiProvincia(const std::string& testo, EsitoRisoluzione& e, FiltroLuoghi& f);
    // The key row under the cursor as a candidate of type `tipo`.
    Candidato LeggiCandidato(TipoNome tipo) const;
    // The places the filter keeps whose key is `chiave`, each once with its best name; of the
    // province's own places alone when there are some.
    std::vector<Candidato> CandidatiDiChiave(const std::string& chiave, const FiltroLuoghi& f);
    // The places of the province whose official name's key begins with `chiave` (as Prefisso),
    // looking at no more than 20000 keys.
    std::vector<Candidato> CandidatiPerInizio(const std::string& chiave, const FiltroLuoghi& f);
    // For a name of two parts: the first other key of the name that resolves to one place,
    // with the name of `e`; none when no part does.
    std::optional<EsitoRisoluzione> RisolviMeta(const EsitoRisoluzione& e,
                                                const std::string& chiave, const FiltroLuoghi& f);
    Cursore& Luoghi(bool nazione);
    Cursore* Alternativi(bool nazione);
};

} // namespace vesmo
