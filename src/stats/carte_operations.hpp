// The two map viewers as operations: their panel, the map file and the coding file asked in turn,
// and, without a window, the lists and figures that the view would show.
#pragma once

#include <filesystem>
#include <optional>

#include "core/contexte.hpp"
#include "stats/carte_globe.hpp"
#include "stats/carte_plan.hpp"

namespace telvoris::carte {

// The panels asked as prompts, one a field, with their defaults. nullopt on Cancel; a wrong answer
// gets "Saisie erronée. Recommencez." and the prompt again.
std::optional<ParametresPlan> DemanderParametresPlan(Dialogue& dialogue);
std::optional<ParametresGlobe> DemanderParametresGlobe(Dialogue& dialogue);

// The file dialog "AFC à afficher", then "Fichier de codage" when the colouring needs one.
struct ChoixCarte {
    std::filesystem::path fichier;
    std::optional<std::filesystem::path> codage;
};
std::optional<ChoixCarte> ChoisirFichiersCarte(Dialogue& dialogue, bool codageDemande);

// What the views show, as text: caption, inertia, the lists COLONNES and LIGNES.
std::string ResumePlan(const CartePlan& carte);
std::string ResumeGlobe(const CarteGlobe& carte);

}  // namespace telvoris::carte

namespace telvoris {
// smn_v2 "Visualisation 2 Facteurs" and smn_v3 "Visualisation 3 Facteurs".
void OperationVisualisation2(Contexte& ctx);
void OperationVisualisation3(Contexte& ctx);
}  // namespace telvoris
