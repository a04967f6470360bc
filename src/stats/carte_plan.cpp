#include "stats/carte_plan.hpp"

#include <algorithm>

#include "core/erreurs.hpp"
#include "core/fichiers.hpp"
#include "core/texte.hpp"
#include "stats/commun.hpp"

namespace telvoris::carte {

namespace {

constexpr std::size_t kMaxAxes = 2;
constexpr std::size_t kMaxPourcentagesPlan = 25;
constexpr std::size_t kMaxLignesInertiePlan = 10;

// "n/m" of line 1: the counts of columns and rows.
std::pair<long long, long long> LireComptes(std::string_view ligne, const FichierCarte& f) {
    const auto barre = ligne.find('/');
    if (barre == std::string_view::npos)
        throw ErreurExecution(Joindre("La première ligne n'est pas « colonnes/lignes » : "_cp, f.Ou(1)));
    const long long n = stats::LireEntier(ligne.substr(0, barre), f.Ou(1));
    const long long m = stats::LireEntier(ligne.substr(barre + 1), f.Ou(1));
    if (n < 0 || m < 0) throw ErreurExecution(Joindre("Nombre négatif d'items : "_cp, f.Ou(1)));
    return {n, m};
}

}  // namespace

CartePlan CartePlan::Lire(const std::filesystem::path& fichier, const ParametresPlan& p,
                          const std::optional<std::filesystem::path>& fichierCodage, const Mesure& mesure) {
    CartePlan carte;
    carte.fichier_ = fichier;
    carte.parametres_ = p;
    std::optional<Codage> codage;
    if ((p.modeCouleur == 2 || p.modeCouleur == 3) && fichierCodage) codage = Codage::Lire(*fichierCodage);

    FichierCarte f{fichier, LireFichier(fichier)};
    LecteurLignes lecteur(f.contenu);
    std::string_view ligne;
    if (!lecteur.Suivante(ligne)) throw ErreurExecution(Joindre("Fichier de carte vide : "_cp, TexteChemin(fichier)));
    if (!ligne.empty() && ligne[0] == '&')
        throw ErreurExecution(Joindre("Ce fichier est celui d'un planisphère (3 facteurs) : "_cp, TexteChemin(fichier)));
    const auto [n, m] = LireComptes(ligne, f);
    (void)m;

    while (lecteur.Suivante(ligne)) {
        if (ligne.empty()) continue;
        if (ligne.starts_with("***")) {
            if (carte.inertie_.pourcentages.size() < kMaxPourcentagesPlan)
                carte.inertie_.pourcentages.emplace_back(ligne.substr(3));
            continue;
        }
        if (ligne.starts_with("**")) {
            if (carte.axes_.size() < kMaxAxes) {
                const std::string_view r = ligne.substr(2);
                const auto sep = r.find("¤"_cp);
                if (sep == std::string_view::npos)
                    carte.axes_.emplace_back(std::string(r), std::string());
                else
                    carte.axes_.emplace_back(std::string(r.substr(0, sep)), std::string(r.substr(sep + 1)));
            }
            continue;
        }
        if (ligne.starts_with("###")) {
            if (carte.stats_.size() < MAX_STATS_CARTE) carte.stats_.emplace_back(ligne.substr(3));
            continue;
        }
        if (carte.etiquettes_.size() >= MAX_ITEMS_CARTE)
            LimiteDepassee("MAX_ITEMS_CARTE", static_cast<long long>(MAX_ITEMS_CARTE),
                           Joindre("items dans "_cp, TexteChemin(fichier)));
        const auto champs = stats::DecouperChamps(ligne, "\t");
        const std::string ou = f.Ou(lecteur.Numero());
        if (champs.size() < 5) throw ErreurExecution(Joindre("Ligne d'item incomplète (5 champs attendus) : "_cp, ou));
        EtiquettePlan e;
        e.nom = NomSansBlancFinal(champs[0]);
        e.x = stats::LireEntier(champs[1], ou);
        e.y = stats::LireEntier(champs[2], ou);
        e.code1 = static_cast<int>(stats::LireEntier(champs[3], ou));
        e.code2 = static_cast<int>(stats::LireEntier(champs[4], ou));
        e.colonne = static_cast<long long>(carte.etiquettes_.size()) < n;
        e.corps = p.corps;
        e.gras = p.gras;
        const Taille t = mesure(e.nom, e.corps, e.gras);
        e.largeur = t.largeur;
        e.hauteur = t.hauteur;
        // Centred on its point, but never left of 0 nor right of the picture's edge.
        e.gauche = static_cast<double>(e.x) - e.largeur / 2;
        if (e.gauche < 0) e.gauche = 0;
        if (e.gauche + e.largeur > LIMITE_ETIQUETTES) e.gauche = LIMITE_ETIQUETTES - e.largeur;
        e.haut = static_cast<double>(e.y) - e.hauteur / 2;
        if (p.modeCouleur == 2 && codage)
            if (const auto code = codage->CodePour(e.nom)) e.couleur = CouleurDuCode(*code);
        if (e.colonne) {
            // Bold after placing: the label grows to the right from where it stands.
            if (!e.gras) {
                e.gras = true;
                const Taille tg = mesure(e.nom, e.corps, true);
                e.largeur = tg.largeur;
                e.hauteur = tg.hauteur;
            }
            if (p.modeCouleur == 1) e.couleur = ROUGE;
        }
        carte.etiquettes_.push_back(std::move(e));
    }
    carte.colonnes_ = static_cast<std::size_t>(
        std::count_if(carte.etiquettes_.begin(), carte.etiquettes_.end(), [](const auto& e) { return e.colonne; }));
    carte.lignes_ = carte.etiquettes_.size() - carte.colonnes_;
    return carte;
}

std::string CartePlan::TexteColonnes() const {
    std::string t;
    for (const auto& e : etiquettes_)
        if (e.colonne) t += e.nom + "\r\n";
    return t;
}

std::string CartePlan::TexteLignes() const {
    std::string t;
    for (const auto& e : etiquettes_)
        if (!e.colonne) t += e.nom + "\r\n";
    return t;
}

std::string CartePlan::Legende() const {
    if (axes_.empty()) return {};
    const auto axe = [&](std::size_t i) -> std::pair<std::string, std::string> {
        return i < axes_.size() ? axes_[i] : std::pair<std::string, std::string>{};
    };
    return Joindre("Axe horizontal : facteur n° "_cp, axe(0).first, "; % d'inertie : "_cp, axe(0).second,
                   ". __ Axe vertical : facteur n° "_cp, axe(1).first, "; % d'inertie : "_cp, axe(1).second);
}

std::vector<std::string> CartePlan::LignesInertie() const { return inertie_.Lignes("Facteur ", kMaxLignesInertiePlan); }

std::vector<Barre> CartePlan::BarresInertie() const { return inertie_.Barres(2000, 3500, 200, 2500); }

ZoomPlan CartePlan::Zoom(double gauche, double haut, double limite, double repere) const {
    ZoomPlan z;
    const double cote = z.cote;
    // A window that leaves the square is shifted back in, keeping its size.
    auto dedans = [&](double v) { return std::clamp(v, 0.0, limite - cote); };
    z.gauche = dedans(gauche);
    z.haut = dedans(haut);
    z.panneauADroite = repere < COTE_CARRE / 2;
    for (std::size_t i = 0; i < etiquettes_.size(); ++i) {
        const auto& e = etiquettes_[i];
        if (e.gauche >= z.gauche && e.gauche <= z.gauche + cote && e.haut >= z.haut && e.haut <= z.haut + cote)
            z.etiquettes.push_back({i, FACTEUR_ZOOM * (e.gauche - z.gauche), FACTEUR_ZOOM * (e.haut - z.haut)});
    }
    return z;
}

ZoomPlan CartePlan::ZoomEtiquette(std::size_t indice) const {
    const auto& e = etiquettes_.at(indice);
    return Zoom(e.gauche - DEMI_FENETRE_ZOOM, e.haut - DEMI_FENETRE_ZOOM, COTE_CARRE, e.gauche);
}

ZoomPlan CartePlan::ZoomFond(double x, double y) const {
    return Zoom(x - DEMI_FENETRE_ZOOM, y - DEMI_FENETRE_ZOOM, LIMITE_ZOOM_FOND, x);
}

void CartePlan::MarquerContributions(int axe) {
    for (auto& e : etiquettes_) {
        e.fond.reset();
        const int code = axe == 1 ? e.code1 : e.code2;
        if (code == 2)
            e.fond = FOND_CONTRIBUTION_FORTE;
        else if (code == 1)
            e.fond = FOND_CONTRIBUTION_MOYENNE;
    }
}

void CartePlan::Rafraichir() {
    for (auto& e : etiquettes_) e.fond.reset();
}

}  // namespace telvoris::carte
