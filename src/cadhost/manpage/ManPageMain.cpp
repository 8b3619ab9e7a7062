// Writes ardo-cad.1 at build time, from the option table that ardo-cad --help prints.
#include <fstream>
#include <iostream>

#include "cadhost/console/ManPage.h"

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: ardo-cad-manpage OUTPUT.1\n";
        return 2;
    }
    std::ofstream out(argv[1], std::ios::binary);
    out << cadhost::console::manPage(ARDO_VERSION);
    out.close();
    if (!out) {
        std::cerr << "ardo-cad-manpage: cannot write " << argv[1] << '\n';
        return 1;
    }
    return 0;
}
