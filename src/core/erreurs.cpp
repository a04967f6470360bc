#include "core/erreurs.hpp"

#include "core/texte.hpp"

namespace telvoris {

void LimiteDepassee(std::string_view nom, long long valeur, std::string_view contexte) {
    throw ErreurExecution(Joindre("Limite dépassée : plus de "_cp, std::to_string(valeur), " "_cp, contexte,
                                  " ("_cp, nom, " = "_cp, std::to_string(valeur), ")"_cp));
}

}  // namespace telvoris
