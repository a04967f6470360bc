// A map as a list of drawing primitives in twips (y growing downward), as the views show it:
// the labels with their colours, weights and backgrounds, the axes, the frame of a zoom. The
// window draws it with its toolkit and the exports write it to SVG from the same list.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "stats/carte_commun.hpp"
#include "stats/carte_globe.hpp"
#include "stats/carte_plan.hpp"

namespace telvoris::carte {

struct TexteScene {
    std::string texte;  // CP1252
    double gauche = 0, haut = 0, largeur = 0, hauteur = 0;
    int corps = 8;
    bool gras = false;
    Couleur couleur = NOIR;
    std::optional<Couleur> fond;
    std::size_t item = 0;  // the item of the map it stands for
};

struct TraitScene {
    double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    Couleur couleur = NOIR;
};

struct RectScene {
    double gauche = 0, haut = 0, largeur = 0, hauteur = 0;
    Couleur couleur = NOIR;
    bool plein = false;
};

struct Scene {
    double largeur = 0, hauteur = 0;
    std::vector<RectScene> rects;
    std::vector<TraitScene> traits;
    std::vector<TexteScene> textes;
};

// The flat map: axes and labels; with a zoom, only the labels of its window, three times larger apart.
Scene ScenePlan(const CartePlan& carte, const ZoomPlan* zoom = nullptr);
// The globe band with its equator and central meridian, or the detail around an item.
Scene SceneGlobe(const CarteGlobe& carte);
Scene SceneDetail(const CarteGlobe& carte, const Detail& detail);

// The scene as an SVG document (UTF-8), one <text> an item.
std::string SceneEnSvg(const Scene& scene, std::string_view titre);

}  // namespace telvoris::carte
