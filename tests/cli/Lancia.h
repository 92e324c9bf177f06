// vesmo-cli run inside the test's own process, as a script would run it: the exit status and
// what went to stdout and to stderr.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <tuple>
#include <vector>

#include "cli/Comandi.h"

namespace vesmo::test {

struct Esito {
    int stato;
    std::string out, err;
};

inline Esito Lancia(const std::vector<std::string>& parole) {
    std::ostringstream out, err;
    const int stato = cli::Esegui(parole, out, err);
    return {stato, out.str(), err.str()};
}

// A bad argument: nothing on stdout, the one line `err` on stderr, status 2.
inline void Rifiutato(const std::vector<std::string>& parole, const std::string& err) {
    const Esito e = Lancia(parole);
    EXPECT_EQ(std::tuple(e.stato, e.out, e.err), std::tuple(2, "", err));
}

// A bad argument of the command `parole[0]`: its one line says `messaggio`.
inline void Rifiuta(const std::vector<std::string>& parole, const std::string& messaggio) {
    Rifiutato(parole, "vesmo-cli " + parole[0] + ": " + messaggio + "\n");
}

// The words of `a` followed by those of `b`.
inline std::vector<std::string> Con(std::vector<std::string> a, const std::vector<std::string>& b) {
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

// The chart of 10 April 1987 at 19:30 in Padova, zone -1 with summer time.
inline const std::vector<std::string> Natale{"--data", "10/04/1987", "--ora",    "19:30",
                                             "--lon",  "11E53",      "--lat",    "45N24",
                                             "--fuso", "-1",         "--estiva", "1"};

inline int Righe(const std::string& s) {
    return static_cast<int>(std::count(s.begin(), s.end(), '\n'));
}

} // namespace vesmo::test
