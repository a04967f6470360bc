#include "cli/afc.hpp"

#include <filesystem>
#include <iostream>

#include "core/erreurs.hpp"
#include "core/texte.hpp"
#include "stats/afc_finalisation.hpp"

namespace telvoris {

int CommandeFinaliserAfc(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "Usage : telvoris finaliser-afc DOSSIER\n"
                     "  DOSSIER : le dossier de résultats d'une AFC (la matrice X.txt a le dossier X)\n";
        return 2;
    }
    const std::filesystem::path dossier(argv[2]);
    try {
        FinaliserFichiersAfc(dossier);
        for (const auto& t : TextesDuGraphe(DessinerGrapheInertie(dossier))) std::cout << Cp1252VersUtf8(t) << '\n';
    } catch (const ErreurExecution& e) {
        std::cerr << Cp1252VersUtf8(e.what()) << '\n';
        return 1;
    }
    return 0;
}

}  // namespace telvoris
