// The tables of the places database that share the file with the chart archives. Every table the
// places database needs is named here, so that no archive command lists, opens, writes or drops
// it: a new places table gets its name added to this list (a test of the places schema checks
// that every table the places database holds stands here).
#pragma once

#include <array>
#include <string_view>

namespace vesmo {

inline constexpr std::array<std::string_view, 7> TabelleDeiLuoghi = {
    "AllCity", "Estive", "Fusi", "FusiEstiveUniti", "Nazioni", "ZoneOrarie", "NomiAlternativi"};

} // namespace vesmo
