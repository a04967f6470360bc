// The flat map of two factors: its file read into labels placed in twips on the square, the
// colourings, the zoom window, the contribution marks, and the panel that sets them.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "core/dialogue.hpp"
#include "stats/carte_commun.hpp"

namespace telvoris::carte {

inline constexpr double COTE_CARRE = 10000;
inline constexpr double LIMITE_ETIQUETTES = 15000;
inline constexpr double DEMI_FENETRE_ZOOM = 666;
inline constexpr double LIMITE_ZOOM_FOND = 14000;
inline constexpr double FACTEUR_ZOOM = 3;

inline constexpr Couleur FOND_CONTRIBUTION_FORTE{192, 0, 192};
inline constexpr Couleur FOND_CONTRIBUTION_MOYENNE{255, 128, 255};

// The panel B21_Paramètres. Colour modes: 1 "Aucune", 2 "4 Couleurs", 3 "Mise en gras".
struct ParametresPlan {
    int modeCouleur = 1;
    int surimpression = 0;  // "noir", "rouge", "vert", "bleu", "magenta"
    int corps = 8;
    bool gras = false;
};

struct EtiquettePlan {
    std::string nom;
    long long x = 0, y = 0;  // the point of the item in the square
    int code1 = 0, code2 = 0;
    bool colonne = false;
    double gauche = 0, haut = 0, largeur = 0, hauteur = 0;
    Couleur couleur = NOIR;
    bool gras = false;
    int corps = 8;
    std::optional<Couleur> fond;  // none: transparent
};

// A zoom window and the labels it shows, at three times their distance from its corner.
struct ZoomPlan {
    double gauche = 0, haut = 0, cote = 2 * DEMI_FENETRE_ZOOM;
    bool panneauADroite = true;  // the detail opens on the side that does not hold the label
    struct Vue {
        std::size_t indice;
        double gauche, haut;
    };
    std::vector<Vue> etiquettes;
};

class CartePlan {
public:
    // Reads a flat map file. The coding file is needed in modes 2 and 3 (read, and in mode 2 applied).
    static CartePlan Lire(const std::filesystem::path& fichier, const ParametresPlan& p,
                          const std::optional<std::filesystem::path>& codage, const Mesure& mesure = MesureApprochee);

    const std::vector<EtiquettePlan>& Etiquettes() const { return etiquettes_; }
    std::size_t NombreColonnes() const { return colonnes_; }
    std::size_t NombreLignes() const { return lignes_; }
    const Inertie& InertieFacteurs() const { return inertie_; }
    const std::vector<std::string>& Stats() const { return stats_; }
    const ParametresPlan& Parametres() const { return parametres_; }
    const std::filesystem::path& Fichier() const { return fichier_; }

    // The texts of the two lists: column names and row names, each behind a CR LF.
    std::string TexteColonnes() const;
    std::string TexteLignes() const;
    // The caption of the map panel, from the "**" records (empty without them).
    std::string Legende() const;
    // Up to 10 lines "Facteur i : p %", and the bars, of the inertia picture.
    std::vector<std::string> LignesInertie() const;
    std::vector<Barre> BarresInertie() const;

    // The zoom on a label, and on a point of the background.
    ZoomPlan ZoomEtiquette(std::size_t indice) const;
    ZoomPlan ZoomFond(double x, double y) const;

    // "Axe 1" / "Axe 2": the backgrounds by the contribution code of that axis.
    void MarquerContributions(int axe);
    // "RAFRAICHIR GRAPHE": every background transparent again.
    void Rafraichir();

private:
    ZoomPlan Zoom(double gauche, double haut, double limite, double repere) const;

    std::filesystem::path fichier_;
    ParametresPlan parametres_;
    std::vector<EtiquettePlan> etiquettes_;
    std::size_t colonnes_ = 0, lignes_ = 0;
    std::vector<std::pair<std::string, std::string>> axes_;  // "**": factor, percentage
    Inertie inertie_;
    std::vector<std::string> stats_;
};

}  // namespace telvoris::carte
