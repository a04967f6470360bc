#include "explore/carte_accueil.hpp"

#include <algorithm>
#include <cmath>
#include <optional>

#include "core/erreurs.hpp"
#include "core/fichiers.hpp"
#include "core/nombres.hpp"
#include "core/texte.hpp"

namespace telvoris {

namespace {

// A whole number as the legacy conversion takes it: blanks around, a sign, digits.
std::optional<long long> Entier(std::string_view s) {
    while (!s.empty() && s.front() == ' ') s.remove_prefix(1);
    while (!s.empty() && (s.back() == ' ' || s.back() == '\r')) s.remove_suffix(1);
    bool negatif = false;
    if (!s.empty() && (s.front() == '-' || s.front() == '+')) {
        negatif = s.front() == '-';
        s.remove_prefix(1);
    }
    if (s.empty() || s.size() > 15 || s.find_first_not_of("0123456789") != std::string_view::npos) return std::nullopt;
    long long v = 0;
    for (const char c : s) v = v * 10 + (c - '0');
    return negatif ? -v : v;
}

bool Chiffres(std::string_view s) { return !s.empty() && s.find_first_not_of("0123456789") == std::string_view::npos; }

}  // namespace

long long ItemCarte::Gauche() const { return zoome ? xZoom : x; }
long long ItemCarte::Haut() const { return zoome ? yZoom : y; }

long long LargeurLabelParDefaut(std::string_view texte) { return static_cast<long long>(texte.size()) * 100 + 60; }

void CarteAccueil::Charger(const std::filesystem::path& fichier, const MesureLabel& mesure) {
    CarteAccueil c;
    const std::string contenu = LireFichier(fichier);
    LecteurLignes lecteur(contenu);
    std::string_view ligne;
    long long numero = 0;
    int entetes = 0;
    bool lignesEnCours = true;
    while (lecteur.Suivante(ligne)) {
        ++numero;
        if (ligne.empty()) continue;
        const std::size_t t1 = ligne.find('\t');
        if (t1 == std::string_view::npos) {
            if (!ligne.starts_with("**") || ligne.starts_with("***")) continue;
            const std::string_view reste = ligne.substr(2);
            const std::size_t sep = reste.find("¤"_cp);
            const std::string_view facteur = reste.substr(0, sep);
            const std::string_view pourcent = sep == std::string_view::npos ? std::string_view() : reste.substr(sep + 1);
            ++entetes;
            if (entetes == 1)
                c.info = Joindre("Axe horizontal. Facteur ", facteur, ". Inertie = ", pourcent, "%. --- ");
            else if (entetes == 2)
                c.info += Joindre("Axe vertical. Facteur ", facteur, ". Inertie = ", pourcent, "%.");
            continue;
        }
        const std::size_t t2 = ligne.find('\t', t1 + 1);
        const auto x = Entier(ligne.substr(t1 + 1, t2 == std::string_view::npos ? std::string_view::npos : t2 - t1 - 1));
        const auto y = t2 == std::string_view::npos ? std::nullopt : Entier(ligne.substr(t2 + 1));
        if (!x || !y)
            throw ErreurExecution(Joindre("Conversion impossible dans "_cp, TexteChemin(fichier), ", ligne "_cp,
                                          std::to_string(numero),
                                          " : une ligne de carte porte un libellé, une abscisse et une ordonnée "
                                          "entières, séparés par une tabulation."_cp));
        if (c.items.size() >= MAX_ITEMS_CARTE)
            LimiteDepassee("MAX_ITEMS_CARTE", static_cast<long long>(MAX_ITEMS_CARTE), "libellés sur la carte"_cp);
        ItemCarte it;
        it.texte.assign(ligne.substr(0, t1));
        it.largeur = mesure(it.texte);
        // The label is centred on x and kept inside the field.
        long long gauche = *x - it.largeur / 2;
        if (gauche < 0) gauche = 0;
        if (gauche + it.largeur >= LARGEUR_CARTE) gauche = LARGEUR_CARTE - it.largeur - 200;
        it.x = gauche;
        it.y = *y;
        it.gaucheMini = static_cast<long long>(Round(static_cast<double>(it.x) / REDUCTION_MINIATURE));
        it.hautMini = static_cast<long long>(Round(static_cast<double>(it.y) / REDUCTION_MINIATURE));
        lignesEnCours = lignesEnCours && Chiffres(it.texte);
        c.items.push_back(std::move(it));
        if (lignesEnCours) c.NB_LIGNES = static_cast<long long>(c.items.size());
    }
    c.titreLignes = Joindre(std::to_string(c.NB_LIGNES), " lignes");
    if (c.NbColonnes() > 0) c.titreColonnes = Joindre(std::to_string(c.NbColonnes()), " colonnes");
    *this = std::move(c);
}

bool CarteAccueil::Cliquer(long long i, ListesMots& listes) const {
    if (i < 1 || i > NB_ITEMS() || i <= NB_LIGNES) return false;
    const std::string& t = items[static_cast<std::size_t>(i - 1)].texte;
    const std::size_t u = t.rfind('_');
    if (u != std::string::npos) {
        const std::string_view queue = std::string_view(t).substr(u + 1);
        if (!queue.empty() && std::all_of(queue.begin(), queue.end(), [](char c) { return c >= 'A' && c <= 'Z'; }))
            return AjouterSansRepeter(listes.LISTE_LEMMES, t);
    }
    return AjouterSansRepeter(listes.LISTE_FORMES, t);
}

void CarteAccueil::BasculerGroupe(bool colonnes) {
    bool& v = colonnes ? colonnesVisibles : lignesVisibles;
    v = !v;
    for (long long i = 1; i <= NB_ITEMS(); ++i)
        if ((i > NB_LIGNES) == colonnes) items[static_cast<std::size_t>(i - 1)].visible = v;
}

long long CarteAccueil::CouleurFond(bool colonnes, long long autreCouleur) const {
    return (colonnes ? colonnesVisibles : lignesVisibles) ? autreCouleur : BLANC;
}

void CarteAccueil::Rafraichir() {
    for (auto& it : items) it.visible = true;
    lignesVisibles = colonnesVisibles = true;
}

void CarteAccueil::Zoomer(double X, double Y, double facteur) {
    if (EST_ZOOM) {
        for (auto& it : items) it.zoome = false;
        EST_ZOOM = false;
        return;
    }
    const double vx = X / 500 * 450, vy = Y / 500 * 450;
    for (auto& it : items) {
        it.xZoom = static_cast<long long>(Round((static_cast<double>(it.x) - vx) * facteur));
        it.yZoom = static_cast<long long>(Round((static_cast<double>(it.y) - vy) * facteur));
        it.zoome = true;
    }
    EST_ZOOM = true;
    facteurZoom = facteur;
    regle1 = static_cast<long long>(Round(facteur * 60));
    regle2 = regle1 + 300;
}

}  // namespace telvoris
