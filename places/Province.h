// The province marks of Canadian and Australian place names and the status bar text that
// explains them.
#pragma once

#include <string>
#include <string_view>

namespace vesmo {

// The status bar text for a place `city` of nation `nazione`, or "" when no mark applies. For
// a nation whose name holds "Canada" (case ignored) the marks are the bare letters "BC", "PQ",
// "NS" ... anywhere in the name, case counting; then, for "Australia", the marks in brackets
// "(CT)", "(NS)" ..., case counting except for "(NT)". The first mark found, in the order of
// the table, gives the text.
std::string TestoProvincia(std::string_view nazione, std::string_view city);

} // namespace vesmo
