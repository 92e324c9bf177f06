// Place names as registries and archives write them, brought to one key: the folding that the
// database build uses for the keys of the name index and that every lookup uses for its text,
// so that a lookup is one seek of the index.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vesmo {

// The key of a name: case and accents ignored, typographic apostrophes (’ ‘ ʼ) taken as "'",
// and every blank, apostrophe, hyphen, point and other sign left out, so that an apostrophe
// written for a final accent ("BUDDUSO'"), an apostrophe written as a blank or left out
// ("L Aquila", "LAquila"), a hyphen for a blank ("Celle-Ligure") and words run together
// ("Castelbolognese") give the key of the official name. The words "S", "S.", "St", "Sto",
// "Sta", "San", "Santo", "Santa", "Sant'" (and "Saint", "Sainte", "Sankt") all count as one word.
//   PiegaNome("Sant'Agata de' Goti") == PiegaNome("S. AGATA DE GOTI") == "sagatadegoti"
std::string PiegaNome(std::string_view nome);
// The same without the words for "San": the key of a name whose words are all run together,
// "SANTAGATADEGOTI", "CELLEDISANVITO" ("santagatadegoti", "celledisanvito").
std::string PiegaNomeUnito(std::string_view nome);

// The keys under which a name is found: its two keys (PiegaNome, PiegaNomeUnito), and for a
// name of two languages ("Villabassa - Niederdorf", "Bolzano/Bozen") those of each half. No
// key is empty, none repeats.
std::vector<std::string> ChiaviNome(std::string_view nome);

// A place name with the province that follows it in brackets, "Abbiategrasso (MI)",
// "Abbiategrasso (Milano)": the name and the text in brackets, both without surrounding blanks.
// A text without a closing bracket at its end has no province.
struct NomeEProvincia {
    std::string nome;
    std::string provincia; // "" when none is given
};
NomeEProvincia DividiProvincia(std::string_view testo);

// A name written in capitals, as registries write it, in the case of an official name:
// "MONTELEONE DI CALABRIA" -> "Monteleone di Calabria", "SANT'ANGELO" -> "Sant'Angelo",
// "BUDDUSO'" -> "Buddusò". A name not in capitals is returned as it is.
std::string NomeDaMaiuscole(std::string_view nome);

} // namespace vesmo
