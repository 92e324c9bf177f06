// vesmo-cli: the workstation's questions answered from a terminal.
#include <iostream>

#include "cli/Comandi.h"

int main(int argc, char** argv) {
    vesmo::cli::Parole parole(argv + 1, argv + argc);
    return vesmo::cli::Esegui(parole, std::cout, std::cerr);
}
