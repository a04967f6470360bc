#include "explore/operations_vues.hpp"

#include "core/texte.hpp"

namespace telvoris {

void OperationVueExploration(Contexte& contexte) {
    contexte.dialogue.Afficher(
        "Cette commande montre une vue de l'exploration : elle s'emploie dans l'application de bureau "
        "(telvoris-gui). En ligne de commande, « telvoris requete » donne la concordance, les distributions "
        "et les co-occurrents, et peut les sauvegarder."_cp);
}

}  // namespace telvoris
