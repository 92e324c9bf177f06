// Small text helpers: widths counted in characters (UTF-8 code points), Latin-1 conversion,
// case-insensitive search, and the number texts of the Italian locale.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vesmo {

// Number of characters (code points) in a UTF-8 text.
std::size_t LunghezzaCaratteri(std::string_view utf8);

// The first n characters of a UTF-8 text (all of it when shorter).
std::string PrimiCaratteri(std::string_view utf8, std::size_t n);

// Cut to n characters, or pad with blanks on the right to n characters.
std::string TagliaOAllunga(std::string_view utf8, std::size_t n);

// Without surrounding blanks (spaces only, as a fixed-width field is padded).
std::string SenzaSpazi(std::string_view s);
std::string SenzaSpaziDestra(std::string_view s);

// Whether the bytes are valid UTF-8 (no overlong forms, no surrogates, nothing past U+10FFFF).
bool TestoUtf8Valido(std::string_view s);
// The text with each byte that is not part of a valid UTF-8 sequence replaced by U+FFFD.
std::string RiparaUtf8(std::string_view s);

// Latin-1 bytes to UTF-8, and back (characters outside Latin-1 become '?').
std::string DaLatin1(std::string_view latin1);
std::string ALatin1(std::string_view utf8);

// Position of `ago` in `pagliaio` ignoring the case of ASCII letters, or npos.
std::size_t CercaSenzaCaso(std::string_view pagliaio, std::string_view ago);
bool UgualeSenzaCaso(std::string_view a, std::string_view b);

// In capitals: the ASCII letters and the accented letters of the Latin alphabets ("Côte
// d'Ivoire" "CÔTE D'IVOIRE"); everything else stays as it is.
std::string Maiuscole(std::string_view utf8);

// The decimal separator of the workstation: the Italian comma.
inline constexpr char SeparatoreDecimale = ',';
inline constexpr char SeparatoreMigliaia = '.';

// The number at the start of a box's text, as every box of every form reads it: an optional
// sign, digits, and one decimal separator, the Italian comma or the dot ("1998,5", "-0.5").
// Returns how many characters make the number (0 when there is none) and puts its value in
// `valore`; blanks are not skipped.
std::size_t LeggiNumero(std::string_view testo, double& valore);

// The number at the start of a box's text: blanks before it are passed over, then LeggiNumero
// reads a sign and digits with the comma or the dot, the rest is ignored ("12abc" 12,
// "1998,5" 1998.5, "-" 0).
double ValoreTesto(std::string_view testo);

// A number as the platform's plain conversion writes it: up to 15 significant digits,
// no trailing zeros, the locale's decimal separator ("0,5", "-1", "2451545").
std::string TestoNumero(double x, char separatore = SeparatoreDecimale);
// A single-precision number as the platform writes it: up to seven significant digits, the
// locale's decimal separator ("2,5").
std::string TestoSingolo(float x);

// A number through a picture of digit placeholders: "0" a digit always shown, "#" a digit shown
// when significant, "." the decimal point and "," the thousands grouping of the locale; any other
// character stands as it is ("##0.0#°", "000", "#####,###.##").
std::string FormatoNumero(double x, std::string_view figura, char decimale = SeparatoreDecimale,
                          char migliaia = SeparatoreMigliaia);

} // namespace vesmo
