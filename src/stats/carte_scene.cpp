#include "stats/carte_scene.hpp"

#include <algorithm>
#include <cstdio>

#include "core/texte.hpp"

namespace telvoris::carte {

namespace {

TexteScene Texte(const std::string& nom, double gauche, double haut, double largeur, double hauteur, int corps,
                 bool gras, Couleur couleur, std::optional<Couleur> fond, std::size_t item) {
    return TexteScene{nom, gauche, haut, largeur, hauteur, corps, gras, couleur, fond, item};
}

}  // namespace

Scene ScenePlan(const CartePlan& carte, const ZoomPlan* zoom) {
    Scene s;
    const auto& et = carte.Etiquettes();
    if (zoom) {
        s.largeur = s.hauteur = zoom->cote * FACTEUR_ZOOM;
        for (const auto& v : zoom->etiquettes) {
            const auto& e = et[v.indice];
            s.textes.push_back(Texte(e.nom, v.gauche, v.haut, e.largeur, e.hauteur, e.corps, e.gras, e.couleur, e.fond, v.indice));
        }
        // The axes, where they cross the window.
        const double ax = (COTE_CARRE / 2 - zoom->gauche) * FACTEUR_ZOOM, ay = (COTE_CARRE / 2 - zoom->haut) * FACTEUR_ZOOM;
        if (ay >= 0 && ay <= s.hauteur) s.traits.push_back({0, ay, s.largeur, ay, NOIR});
        if (ax >= 0 && ax <= s.largeur) s.traits.push_back({ax, 0, ax, s.hauteur, NOIR});
        return s;
    }
    s.largeur = LIMITE_ETIQUETTES;
    s.hauteur = COTE_CARRE;
    for (const auto& e : et) s.hauteur = std::max(s.hauteur, e.haut + e.hauteur);
    s.traits.push_back({0, COTE_CARRE / 2, COTE_CARRE, COTE_CARRE / 2, NOIR});
    s.traits.push_back({COTE_CARRE / 2, 0, COTE_CARRE / 2, COTE_CARRE, NOIR});
    for (std::size_t i = 0; i < et.size(); ++i) {
        const auto& e = et[i];
        s.textes.push_back(Texte(e.nom, e.gauche, e.haut, e.largeur, e.hauteur, e.corps, e.gras, e.couleur, e.fond, i));
    }
    return s;
}

Scene SceneGlobe(const CarteGlobe& carte) {
    Scene s;
    s.largeur = 18500 + 250;
    s.hauteur = 4705 * 2;
    const Couleur trait{160, 160, 160};
    s.traits.push_back({250, 4705, 18250, 4705, trait});
    s.traits.push_back({MERIDIEN_CENTRAL, 4705 - 4500, MERIDIEN_CENTRAL, 4705 + 4500, trait});
    const auto& et = carte.Etiquettes();
    for (std::size_t i = 0; i < et.size(); ++i) {
        const auto& e = et[i];
        s.largeur = std::max(s.largeur, e.gauche + e.largeur);
        s.hauteur = std::max(s.hauteur, e.haut + e.hauteur);
        s.textes.push_back(Texte(e.nom, e.gauche, e.haut, e.largeur, e.hauteur, e.corps, e.gras, e.couleur, e.fond, i));
    }
    return s;
}

Scene SceneDetail(const CarteGlobe& carte, const Detail& detail) {
    Scene s;
    const double cote = 2 * DEMI_ANGLE_DETAIL * TWIPS_PAR_DEGRE_DETAIL + 500;
    s.largeur = s.hauteur = cote;
    const double milieu = DEMI_ANGLE_DETAIL * TWIPS_PAR_DEGRE_DETAIL + 250;
    const Couleur trait{160, 160, 160};
    s.rects.push_back({250, 250, cote - 500, cote - 500, trait, false});
    s.traits.push_back({250, milieu, cote - 250, milieu, trait});
    s.traits.push_back({milieu, 250, milieu, cote - 250, trait});
    const auto& et = carte.Etiquettes();
    for (const auto& v : detail.etiquettes) {
        const auto& e = et[v.indice];
        s.textes.push_back(Texte(e.nom, v.gauche, v.haut, e.largeur, e.hauteur, e.corps, e.gras, e.couleur, e.fond, v.indice));
    }
    return s;
}

namespace {

std::string Rgb(Couleur c) {
    char b[8];
    std::snprintf(b, sizeof b, "#%02x%02x%02x", c.r, c.g, c.b);
    return b;
}

std::string Nombre(double v) {
    char b[32];
    std::snprintf(b, sizeof b, "%.10g", v);
    return b;
}

// Text for XML: UTF-8, the five special characters escaped, and the control characters that
// XML cannot hold replaced.
std::string EchapperXml(std::string_view cp1252) {
    std::string r;
    for (char c : Cp1252VersUtf8(cp1252)) {
        const auto u = static_cast<unsigned char>(c);
        switch (c) {
            case '&': r += "&amp;"; break;
            case '<': r += "&lt;"; break;
            case '>': r += "&gt;"; break;
            case '"': r += "&quot;"; break;
            case '\'': r += "&apos;"; break;
            default:
                if (u < 0x20 && c != '\t') r += '?';
                else r += c;
        }
    }
    return r;
}

}  // namespace

std::string SceneEnSvg(const Scene& s, std::string_view titre) {
    std::string o;
    o.reserve(200 + s.textes.size() * 160);
    o += "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
    // 1,440 twips an inch, 96 pixels an inch: the picture keeps its size on screen.
    o += "<svg xmlns=\"http://www.w3.org/2000/svg\" version=\"1.1\" width=\"" + Nombre(s.largeur / 15) + "\" height=\"" +
         Nombre(s.hauteur / 15) + "\" viewBox=\"0 0 " + Nombre(s.largeur) + " " + Nombre(s.hauteur) + "\">\n";
    o += "<title>" + EchapperXml(titre) + "</title>\n";
    o += "<rect x=\"0\" y=\"0\" width=\"" + Nombre(s.largeur) + "\" height=\"" + Nombre(s.hauteur) + "\" fill=\"#ffffff\"/>\n";
    for (const auto& r : s.rects)
        o += "<rect x=\"" + Nombre(r.gauche) + "\" y=\"" + Nombre(r.haut) + "\" width=\"" + Nombre(r.largeur) +
             "\" height=\"" + Nombre(r.hauteur) + "\" " +
             (r.plein ? "fill=\"" + Rgb(r.couleur) + "\"" : "fill=\"none\" stroke=\"" + Rgb(r.couleur) + "\" stroke-width=\"15\"") +
             "/>\n";
    for (const auto& t : s.traits)
        o += "<line x1=\"" + Nombre(t.x1) + "\" y1=\"" + Nombre(t.y1) + "\" x2=\"" + Nombre(t.x2) + "\" y2=\"" + Nombre(t.y2) +
             "\" stroke=\"" + Rgb(t.couleur) + "\" stroke-width=\"15\"/>\n";
    o += "<g font-family=\"Arial, Helvetica, sans-serif\">\n";
    for (const auto& t : s.textes) {
        if (t.fond)
            o += "<rect x=\"" + Nombre(t.gauche) + "\" y=\"" + Nombre(t.haut) + "\" width=\"" + Nombre(t.largeur) +
                 "\" height=\"" + Nombre(t.hauteur) + "\" fill=\"" + Rgb(*t.fond) + "\"/>\n";
        // The baseline sits at four fifths of the label's height, as in a label box.
        o += "<text x=\"" + Nombre(t.gauche) + "\" y=\"" + Nombre(t.haut + t.hauteur * 0.8) + "\" font-size=\"" +
             Nombre(t.corps * 20.0) + "\" fill=\"" + Rgb(t.couleur) + "\"" + (t.gras ? " font-weight=\"bold\"" : "") +
             ">" + EchapperXml(t.texte) + "</text>\n";
    }
    o += "</g>\n</svg>\n";
    return o;
}

}  // namespace telvoris::carte
