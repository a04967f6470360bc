#include "cli/requete.hpp"

#include <unistd.h>

#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include "cli/dialogue_terminal.hpp"
#include "core/erreurs.hpp"
#include "core/horloge.hpp"
#include "core/texte.hpp"
#include "explore/commande_requete.hpp"

namespace telvoris {

int LancerCommandeRequete(int argc, char** argv) {
    std::vector<std::string> arguments;
    std::optional<Instant> fixe;
    for (int i = 2; i < argc; ++i) {
        const std::string a = argv[i];
        if (a == "--aide" || a == "-h" || a == "--help") {
            std::cout << UsageRequete();
            return 0;
        }
        if (a == "--horloge") {
            if (i + 1 >= argc || !(fixe = LireInstant(argv[i + 1]))) {
                std::cerr << "--horloge attend une date « AAAA-MM-JJ HH:MM:SS »\n";
                return 2;
            }
            ++i;
            continue;
        }
        arguments.push_back(a);
    }
    DialogueTerminal dialogue({}, isatty(STDIN_FILENO) != 0, isatty(STDERR_FILENO) != 0);
    HorlogeSysteme systeme;
    std::optional<HorlogeFixe> horlogeFixe;
    if (fixe) horlogeFixe.emplace(*fixe);
    const Horloge& horloge = horlogeFixe ? static_cast<const Horloge&>(*horlogeFixe) : systeme;
    try {
        return CommandeRequete(arguments, dialogue, horloge, std::cerr);
    } catch (const FinProgramme& e) {
        dialogue.MasquerProgression();
        std::cout << Cp1252VersUtf8(e.what()) << '\n';
        return 3;
    } catch (const ErreurExecution& e) {
        dialogue.MasquerProgression();
        std::cerr << Cp1252VersUtf8(e.what()) << '\n';
        return 1;
    } catch (const std::exception& e) {
        dialogue.MasquerProgression();
        std::cerr << "Erreur : " << e.what() << '\n';
        return 1;
    }
}

}  // namespace telvoris
