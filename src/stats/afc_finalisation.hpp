// The finalisation of a correspondence-analysis run: the solver's nine files rewritten with the
// factors by decreasing eigenvalue and decimal commas, and the graph of decreasing inertia as a
// drawing model in twips.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace telvoris {

inline constexpr int MAX_FACTEURS_AFC = 10000;

// The factor numbers (from 1) in the order of the finalised files: keys Round(eigenvalue x 10000)
// decreasing, equal keys with the later factor first.
std::vector<int> OrdreFacteurs(const std::vector<long long>& cles);

// Rewrites eigen.txt and the eight item files of `dossier` and returns the factor order used.
// A missing file, an eigen.txt line with fewer than four fields, a field of a factor that a line
// does not have: execution errors naming the file (the files already rewritten stay).
std::vector<int> FinaliserFichiersAfc(const std::filesystem::path& dossier);

// The graph, in twips with y growing downward; colours are 0xRRGGBB.
struct BoiteGraphe {
    long long gauche = 0, haut = 0, largeur = 0, hauteur = 0;
    unsigned couleur = 0;
};
struct TexteGraphe {
    long long x = 0, y = 0;
    std::string texte;  // CP1252
};
struct GrapheInertie {
    std::vector<BoiteGraphe> boites;
    std::vector<TexteGraphe> textes;
};

// The height of a line of text in the picture (the default font of the picture box).
inline constexpr long long HAUTEUR_LIGNE_TWIPS = 195;
inline constexpr unsigned COULEUR_BARRES = 0xFA6464;  // RGB(250, 100, 100)

// The graph from the finalised eigen.txt and STATS.txt of `dossier`. No factor or a largest
// percentage of 0 is a division by zero, reported as an execution error.
GrapheInertie DessinerGrapheInertie(const std::filesystem::path& dossier);

// The graph as text lines, in the order of drawing (for the terminal's result pane).
std::vector<std::string> TextesDuGraphe(const GrapheInertie& g);

}  // namespace telvoris
