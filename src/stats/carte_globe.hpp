// The globe map of three factors ("PLANISPHERE"): items placed by longitude and latitude on a
// band that narrows toward its poles, styled by their distance from the origin, with the 90°
// rotation, the detail view around an item, the hover lists of neighbours, the contribution
// marks and the colouring by metadata.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "core/dialogue.hpp"
#include "stats/carte_commun.hpp"

namespace telvoris::carte {

inline constexpr double MERIDIEN_CENTRAL = 9250;
inline constexpr double TWIPS_PAR_DEGRE_DETAIL = 150;
inline constexpr double DEMI_ANGLE_DETAIL = 45;
inline constexpr double ECART_VOISINS = 200;
inline constexpr double HAUTEUR_LIGNE_SURVOL = 250;
inline constexpr double DECALAGE_SURVOL = 500;
inline constexpr std::size_t MAX_FACTEURS_LISTES = 25;

inline constexpr Couleur GRIS_128{128, 128, 128};
inline constexpr Couleur GRIS_192{192, 192, 192};
inline constexpr Couleur GRIS_224{224, 224, 224};
inline constexpr Couleur SAILLANTE_MOYENNE{255, 128, 128};
inline constexpr Couleur SAILLANTE_FAIBLE{255, 224, 192};
inline constexpr Couleur FOND_CONTRIB_FORTE{255, 128, 255};
inline constexpr Couleur FOND_CONTRIB_MOYENNE{255, 192, 255};
inline constexpr Couleur FOND_METADONNEE1_1{255, 192, 192};
inline constexpr Couleur FOND_METADONNEE2_1{255, 128, 128};
inline constexpr Couleur FOND_METADONNEE_2{255, 128, 255};

// Rows within these angles of a chosen column carry its mark 2, or its mark 1, for "COLORATION".
inline constexpr double ANGLE_MARQUE_2 = 30;
inline constexpr double ANGLE_MARQUE_1 = 60;

// The panel Paramètres. Colour modes: 1 "Aucune", 2 "4 Couleurs", 3 "2 couleurs",
// 4 "2 couleurs graduées"; columns 1 "Comme lignes", 2 "Saillantes".
struct ParametresGlobe {
    int modeCouleur = 1;
    int colonnes = 1;
    int corps = 8;
};

struct EtiquetteGlobe {
    std::string nom;
    double longitude = 0, latitude = 0, distance = 0;
    double contributions[3] = {0, 0, 0};
    bool colonne = false;
    double gauche = 0, haut = 0, largeur = 0, hauteur = 0;
    double x = 0;  // the point on the band, after narrowing
    Couleur couleur = NOIR;
    bool gras = false;
    int corps = 8;
    std::optional<Couleur> fond;
};

// An item of the detail view, in the angles of the view centred on the clicked item.
struct VueDetail {
    std::size_t indice = 0;
    double longitude = 0, latitude = 0;  // latitude as a magnitude; `est` tells its side
    bool est = true;
    double gauche = 0, haut = 0;
};

struct Detail {
    std::size_t centre = 0;
    std::vector<VueDetail> etiquettes;
    std::string Liste(const std::vector<EtiquetteGlobe>& e) const;  // the box O3_ZOOM_RTB
};

// The angles of an item in a view centred on (L, P): returns nothing when the item lies beyond
// 45° of the centre along the new longitude.
struct AnglesDetail {
    double longitude = 0, latitude = 0;
    bool est = true;
};
AnglesDetail AnglesVueDetail(double longitude, double latitude, double L, double P);

// The pop-up list of the labels around a hovered one.
struct ListeSurvol {
    std::vector<std::size_t> indices;
    double gauche = 0, haut = 0, largeur = 0, hauteur = 0;
};

class CarteGlobe {
public:
    static CarteGlobe Lire(const std::filesystem::path& fichier, const ParametresGlobe& p,
                           const std::optional<std::filesystem::path>& codage, const Mesure& mesure = MesureApprochee);

    const std::vector<EtiquetteGlobe>& Etiquettes() const { return etiquettes_; }
    std::size_t NombreColonnes() const { return colonnes_; }
    std::size_t NombreLignes() const { return lignes_; }
    double DistanceMoyenne() const { return moyenne_; }
    const Inertie& InertieFacteurs() const { return inertie_; }
    const std::vector<std::string>& Stats() const { return stats_; }
    const ParametresGlobe& Parametres() const { return parametres_; }
    const std::filesystem::path& Fichier() const { return fichier_; }
    int Rotations() const { return rotations_; }

    std::string TexteColonnes() const;
    std::string TexteLignes() const;
    // "F.i : p %" for up to 25 factors, and the bars.
    std::vector<std::string> LignesInertie() const;
    std::vector<Barre> BarresInertie() const;

    // "90°": every item but those named "." turns by 90 degrees of longitude.
    void Tourner();
    // The detail view centred on an item.
    Detail DetailAutour(std::size_t indice) const;
    // The labels near a label of the globe (or of `detail` when given); empty when alone.
    ListeSurvol Survol(std::size_t indice, const Detail* detail = nullptr) const;
    // "Contributions" of a factor (1 to 3).
    void MarquerContributions(int facteur);
    // "COLORATION": asks the metadata and paints the rows; returns false when it stopped on a message.
    bool Colorer(Dialogue& dialogue);
    // The marks 1 and 2 of a row for a column, from the angle between them on the globe (0: none).
    int Marque(std::size_t ligne, std::size_t colonne) const;
    // "RAFRAICHIR GRAPHE".
    void Rafraichir();

private:
    void Placer(EtiquetteGlobe& e) const;
    void Indexer();
    void Styler(EtiquetteGlobe& e, const Mesure& mesure) const;

    std::filesystem::path fichier_;
    ParametresGlobe parametres_;
    std::vector<EtiquetteGlobe> etiquettes_;
    std::size_t colonnes_ = 0, lignes_ = 0;
    double moyenne_ = 0;
    Inertie inertie_;
    std::vector<std::string> stats_;
    int rotations_ = 0;
    std::vector<std::size_t> parGauche_;  // the items by left edge, for the hover lists
};

// The angle in degrees between two points of the globe.
double AngleEntre(double lon1, double lat1, double lon2, double lat2);

}  // namespace telvoris::carte
