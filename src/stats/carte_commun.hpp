// What the two map models share: colours, the size of a label, the coding file that colours the
// labels, the records of a projection file, and the inertia figures that come with a map.
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace telvoris::carte {

struct Couleur {
    std::uint8_t r = 0, g = 0, b = 0;
    friend bool operator==(const Couleur&, const Couleur&) = default;
};

inline constexpr Couleur NOIR{0, 0, 0};
inline constexpr Couleur ROUGE{255, 0, 0};
inline constexpr Couleur BLEU{0, 0, 255};
inline constexpr Couleur MAGENTA{255, 0, 255};
inline constexpr Couleur VERT_FONCE{0, 128, 0};
inline constexpr Couleur COULEUR_BARRES{250, 100, 100};

// The colour of a code of the coding file (0 to 4).
Couleur CouleurDuCode(int code);

inline constexpr std::size_t MAX_ITEMS_CARTE = 5000;
inline constexpr std::size_t MAX_CODAGE_CLASSE = 1000;
inline constexpr std::size_t MAX_STATS_CARTE = 5;

// The size of a label in twips, for a text in a font of `corps` points, bold or not. The views
// measure with their toolkit; the models and the exports use an estimate of the same font.
struct Taille {
    double largeur = 0, hauteur = 0;
};
using Mesure = std::function<Taille(std::string_view texte, int corps, bool gras)>;
Taille MesureApprochee(std::string_view texte, int corps, bool gras);

// A name of a map file or coding file: the last character is cut when it is a blank.
std::string_view NomSansBlancFinal(std::string_view nom);

// The coding file: item, tab, code 0 to 4, entries kept by the initial class of the item.
class Codage {
public:
    static Codage Lire(const std::filesystem::path& fichier);
    // The code of the last entry of the name's initial class whose text occurs in the name.
    std::optional<int> CodePour(std::string_view nom) const;
    std::size_t Taille() const;

private:
    struct Entree {
        std::string texte;
        int code = 0;
    };
    std::array<std::vector<Entree>, 21> classes_;
};

// One bar of an inertia picture, in twips, y growing downward.
struct Barre {
    double gauche = 0, haut = 0, largeur = 0, hauteur = 0;
};

// The percentages of the factors (records "***") and what the viewers make of them.
struct Inertie {
    std::vector<std::string> pourcentages;  // as written in the file, decimal comma
    // The bars with their scale and pitch from the numbers given, the bottom at `bas`.
    std::vector<Barre> Barres(double echelleMax, double pasTotal, double gaucheDepart, double bas) const;
    // "<prefixe>i : Round(p, 2) %" for the first `max` factors.
    std::vector<std::string> Lignes(std::string_view prefixe, std::size_t max) const;
};

// A percentage of a file, read with its decimal comma.
double LirePourcentage(std::string_view texte, std::string_view ou);

// A map file read into lines, with the name used in messages.
struct FichierCarte {
    std::filesystem::path chemin;
    std::string contenu;
    std::string Ou(long long ligne) const;
};

}  // namespace telvoris::carte
