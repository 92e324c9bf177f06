// Inside the store: the folding of texts for comparison and the byte keys of the indexes.
//
// An index key is one byte string made of its fields' encodings; byte order of the keys is the
// index order. A field encodes as a tag and a body, so that a shorter key is a prefix of a
// longer one and compares in the order of the leading fields alone:
//   null   01
//   number 02, then the double's 8 bytes in an order-keeping form (integers as doubles)
//   text   03, then the folded text with 00 and 01 escaped, then 00
//   blob   04, then the raw bytes escaped likewise, then 00
#pragma once

#include "core/store/Valore.h"

#include <string>
#include <string_view>

namespace vesmo::store_detail {

// The text as compared: Latin letters without accents and in lower case ("Città" -> "citta",
// "Straße" -> "strasse", "Œuvre" -> "oeuvre"), Greek and Cyrillic capitals lowered, combining
// accents dropped. Bytes that are not UTF-8 count as Latin-1 characters.
std::string PiegaTesto(std::string_view utf8);

// Three-way comparison of two texts once folded.
int ConfrontaPiegati(std::string_view a, std::string_view b);

void CodificaNullo(std::string& chiave);
void CodificaNumero(std::string& chiave, double x);
void CodificaTesto(std::string& chiave, std::string_view utf8);
void CodificaBlob(std::string& chiave, std::string_view byte);
void CodificaValore(std::string& chiave, const Valore& v);

// The least byte string above every string that begins with `prefisso` ("" when none).
std::string SuccessorePrefisso(std::string prefisso);

} // namespace vesmo::store_detail
