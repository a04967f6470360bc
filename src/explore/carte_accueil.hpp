// The home-window map: a correspondence-analysis map read from a three-column file, shown as
// labels on a field 10000 units wide, whose word labels feed the word lists of a query.
#pragma once

#include <algorithm>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "core/texte.hpp"
#include "explore/listes_mots.hpp"

namespace telvoris {

inline constexpr long long LARGEUR_CARTE = 10000;
inline constexpr std::size_t MAX_ITEMS_CARTE = 10000;
inline constexpr double REDUCTION_MINIATURE = 6.67;
inline constexpr long long ITEMS_VISIBLES_GROUPE = 50;
inline constexpr long long BLANC = 16777215;

struct ItemCarte {
    std::string texte;
    long long x = 0, y = 0;          // COORD_AFC: x is the label's left edge, kept inside the field
    long long xZoom = 0, yZoom = 0;  // COORD_ZOOM
    long long largeur = 0;
    long long gaucheMini = 0, hautMini = 0;  // the twin on the miniature
    bool visible = true;
    long long Gauche() const;  // where the label stands now
    long long Haut() const;
    bool zoome = false;
};

// The width in map units of a label showing `texte`; the view measures it with its font.
using MesureLabel = std::function<long long(std::string_view texte)>;
// A width for when no font is at hand: 100 units a character and a margin.
long long LargeurLabelParDefaut(std::string_view texte);

class CarteAccueil {
public:
    std::vector<ItemCarte> items;  // NB_ITEMS
    long long NB_LIGNES = 0;       // the first items, partitions; the rest are lexical items
    std::string info;              // AFC_LB_INFO
    std::string titreLignes, titreColonnes;  // AFC_LB_TIT
    bool EST_ZOOM = false;
    bool lignesVisibles = true, colonnesVisibles = true;  // AFC_LB_LI, AFC_LB_COL
    double facteurZoom = 0;        // the factor of the last zoom
    long long regle1 = 0, regle2 = 0;  // Line6: factor x 60 and factor x 60 + 300

    long long NB_ITEMS() const { return static_cast<long long>(items.size()); }
    long long NbColonnes() const { return NB_ITEMS() - NB_LIGNES; }
    // The surplus that the scroll bars of each group cover (items past 50).
    long long SurplusLignes() const { return std::max(0LL, NB_LIGNES - ITEMS_VISIBLES_GROUPE); }
    long long SurplusColonnes() const { return std::max(0LL, NbColonnes() - ITEMS_VISIBLES_GROUPE); }

    // Reads a map file; a data line that is not "text TAB x TAB y" with whole numbers stops the
    // load with an error naming the file and the line. The map is replaced only on success.
    void Charger(const std::filesystem::path& fichier, const MesureLabel& mesure = LargeurLabelParDefaut);
    // A click on label i (1 up): a word goes to LISTE_FORMES, a lemma with its category to
    // LISTE_LEMMES; partitions give nothing. Returns whether a list grew.
    bool Cliquer(long long i, ListesMots& listes) const;
    // AFC_LB_LI (lignes) and AFC_LB_COL: flip the group's visibility.
    void BasculerGroupe(bool colonnes);
    long long CouleurFond(bool colonnes, long long autreCouleur) const;
    // AFC_RAF and smn_rfc: every label shown again at its coordinates.
    void Rafraichir();
    // The right button on the field at (X, Y): zoom in by `facteur` about that point, or back
    // out when zoomed.
    void Zoomer(double X, double Y, double facteur);
};

// The menu item that loads a map (smn_cg, smn_chg) asks its file under this title and filter.
inline constexpr std::string_view TITRE_CHARGER_CARTE = "AFC à afficher"_cp;
inline constexpr std::string_view FILTRE_CHARGER_CARTE = "Text files (*.TXT)¢*.TXT"_cp;

}  // namespace telvoris
