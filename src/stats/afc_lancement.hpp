// The correspondence-analysis run of the statistics area: checking a matrix text file, the item
// and STATS files, the transposition, starting the solver axisolve without waiting, and the panel
// whose button finalises the results once the solver has ended.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "core/contexte.hpp"
#include "stats/afc_finalisation.hpp"

namespace telvoris {

inline constexpr std::size_t MAX_LIGNES_AFC = 20000;
inline constexpr std::size_t MAX_COLONNES_AFC = 1000;

// The button's captions, which are its state.
inline constexpr std::string_view LEGENDE_FINALISATION = "FINALISATION DES FICHIERS";
inline constexpr std::string_view LEGENDE_FINALISES = "FICHIERS FINALISES";
inline constexpr std::string_view LEGENDE_MASQUER = "Masquer le graphique";

// The panel B13_Finalisez of the statistics area, which lives as long as the program.
struct EtatAfc {
    bool AFC_A_FINALISER = false;
    bool panneauVisible = false;
    std::string legendeBouton;   // CO1_O3_L1
    std::string legendePanneau;  // B13_Finalisez (CP1252)
    std::filesystem::path dossier;  // the result folder of the last run
    long long processus = 0;        // the solver started by the last run, 0 when none is pending
    GrapheInertie graphe;           // the picture CO1_O3_P1
};
EtatAfc& EtatAfcForm3();

// How the run is carried out where there is no panel to press. `attendre`: wait for the solver and
// finalise in one go (the terminal's option). `solveur`: the program to start, instead of the
// search beside the executable and then on PATH.
struct OptionsAfc {
    bool attendre = false;
    std::optional<std::filesystem::path> solveur;
};
OptionsAfc& OptionsLancementAfc();

// The solver: `axisolve` in `dossierExecutable`, else in the folders of `path` (":"-separated),
// the first executable file found.
std::optional<std::filesystem::path> LocaliserSolveur(const std::filesystem::path& dossierExecutable,
                                                      std::string_view path);
std::filesystem::path DossierExecutableCourant();

// What the checks leave for the solver.
struct PreparationAfc {
    std::filesystem::path matrice;         // the chosen file
    std::filesystem::path dossier;         // its result folder: the path less its last four characters
    std::filesystem::path matriceSolveur;  // the file given to the solver (X_TRANSPOSEE.txt when transposed)
    bool transposee = false;
    long long total = 0;
};

// Steps of the run from the result folder to the transposition: the three files of the folder,
// the checks (FinProgramme with the run's messages), STATS.txt, X_TRANSPOSEE.txt.
PreparationAfc PreparerAfc(Dialogue& dialogue, const std::filesystem::path& matrice);

// The solver's arguments (the program itself not included).
std::vector<std::string> ArgumentsSolveur(const PreparationAfc& p);

// Starts the solver without waiting and returns its process number; a start that fails is an
// execution error. AttendreSolveur waits for it and returns its exit status (-1 when killed).
long long DemarrerSolveur(const std::filesystem::path& solveur, const std::vector<std::string>& arguments);
int AttendreSolveur(long long processus);

// smn_afc "AFC".
void OperationAfc(Contexte& ctx);
// The button CO1_O3_L1 of the panel.
void BoutonFinalisation(Contexte& ctx);
// Leaving the statistics area: with an analysis not finalised, offers to finalise it.
void GarderFermetureForm3(Contexte& ctx);

}  // namespace telvoris
