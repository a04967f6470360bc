#include "stats/carte_globe.hpp"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "core/erreurs.hpp"
#include "core/fichiers.hpp"
#include "core/nombres.hpp"
#include "core/texte.hpp"
#include "stats/commun.hpp"

namespace telvoris::carte {

namespace {

constexpr double kDegres = 180.0 / std::numbers::pi;
constexpr std::size_t kMaxPourcentagesGlobe = 50;

double Rad(double degres) { return degres / kDegres; }

// A longitude as thousandths of a degree: the files hold three decimals, so the turns of the
// globe add whole numbers and four of them give back the very same longitudes.
long long Milliemes(double degres) { return std::llround(degres * 1000); }

}  // namespace

CarteGlobe CarteGlobe::Lire(const std::filesystem::path& fichier, const ParametresGlobe& p,
                            const std::optional<std::filesystem::path>& fichierCodage, const Mesure& mesure) {
    CarteGlobe carte;
    carte.fichier_ = fichier;
    carte.parametres_ = p;
    std::optional<Codage> codage;
    if (p.modeCouleur >= 2 && fichierCodage) codage = Codage::Lire(*fichierCodage);

    FichierCarte f{fichier, LireFichier(fichier)};
    LecteurLignes lecteur(f.contenu);
    std::string_view ligne;
    if (!lecteur.Suivante(ligne)) throw ErreurExecution(Joindre("Fichier de carte vide : "_cp, TexteChemin(fichier)));
    if (ligne.empty() || ligne[0] != '&')
        throw ErreurExecution(Joindre("Ce fichier n'est pas celui d'un planisphère (« & » attendu en tête) : "_cp,
                                      TexteChemin(fichier)));
    const auto barre = ligne.find('/');
    if (barre == std::string_view::npos)
        throw ErreurExecution(Joindre("La première ligne n'est pas « &colonnes/lignes » : "_cp, f.Ou(1)));
    const long long n = stats::LireEntier(ligne.substr(1, barre - 1), f.Ou(1));
    stats::LireEntier(ligne.substr(barre + 1), f.Ou(1));

    while (lecteur.Suivante(ligne)) {
        if (ligne.empty()) continue;
        if (ligne.starts_with("***")) {
            if (carte.inertie_.pourcentages.size() < kMaxPourcentagesGlobe)
                carte.inertie_.pourcentages.emplace_back(ligne.substr(3));
            continue;
        }
        if (ligne.starts_with("**")) continue;
        if (ligne.starts_with("###")) {
            if (carte.stats_.size() < MAX_STATS_CARTE) carte.stats_.emplace_back(ligne.substr(3));
            continue;
        }
        if (carte.etiquettes_.size() >= MAX_ITEMS_CARTE)
            LimiteDepassee("MAX_ITEMS_CARTE", static_cast<long long>(MAX_ITEMS_CARTE),
                           Joindre("items dans "_cp, TexteChemin(fichier)));
        const auto champs = stats::DecouperChamps(ligne, "\t");
        const std::string ou = f.Ou(lecteur.Numero());
        if (champs.size() < 7) throw ErreurExecution(Joindre("Ligne d'item incomplète (7 champs attendus) : "_cp, ou));
        EtiquetteGlobe e;
        e.nom = NomSansBlancFinal(champs[0]);
        e.longitude = stats::LireNombre(champs[1], ou);
        e.latitude = stats::LireNombre(champs[2], ou);
        e.distance = stats::LireNombre(champs[3], ou);
        for (int k = 0; k < 3; ++k) e.contributions[k] = stats::LireNombre(champs[static_cast<std::size_t>(4 + k)], ou);
        e.colonne = static_cast<long long>(carte.etiquettes_.size()) < n;
        carte.etiquettes_.push_back(std::move(e));
    }
    double somme = 0;
    for (const auto& e : carte.etiquettes_) somme += e.distance;
    carte.moyenne_ = carte.etiquettes_.empty() ? 0 : somme / static_cast<double>(carte.etiquettes_.size());
    for (auto& e : carte.etiquettes_) {
        carte.Styler(e, mesure);
        if (codage && (p.modeCouleur == 2 || p.modeCouleur == 3)) {
            if (const auto code = codage->CodePour(e.nom)) {
                // With two colours only the first two codes (and 0, black) paint a label.
                if (p.modeCouleur == 2 || *code <= 2) e.couleur = CouleurDuCode(*code);
            }
        }
        carte.Placer(e);
    }
    carte.colonnes_ = static_cast<std::size_t>(
        std::count_if(carte.etiquettes_.begin(), carte.etiquettes_.end(), [](const auto& e) { return e.colonne; }));
    carte.lignes_ = carte.etiquettes_.size() - carte.colonnes_;
    carte.Indexer();
    return carte;
}

void CarteGlobe::Indexer() {
    parGauche_.resize(etiquettes_.size());
    for (std::size_t i = 0; i < parGauche_.size(); ++i) parGauche_[i] = i;
    std::stable_sort(parGauche_.begin(), parGauche_.end(),
                     [&](std::size_t a, std::size_t b) { return etiquettes_[a].gauche < etiquettes_[b].gauche; });
}

void CarteGlobe::Styler(EtiquetteGlobe& e, const Mesure& mesure) const {
    const double d = e.distance, M = moyenne_;
    const int base = parametres_.corps;
    const bool saillante = e.colonne && parametres_.colonnes == 2;
    e.gras = false;
    if (d > 1.67 * M) {
        e.couleur = saillante ? ROUGE : NOIR;
        e.gras = true;
        e.corps = base + 4;
    } else if (d > M) {
        e.couleur = saillante ? ROUGE : NOIR;
        e.corps = base + 2;
    } else if (d > 2 * M / 3) {
        e.couleur = saillante ? SAILLANTE_MOYENNE : GRIS_128;
        e.corps = base + 2;
    } else if (d > M / 3) {
        e.couleur = saillante ? SAILLANTE_FAIBLE : GRIS_192;
        e.corps = base;
    } else {
        e.couleur = saillante ? SAILLANTE_FAIBLE : GRIS_224;
        e.corps = base;
    }
    const Taille t = mesure(e.nom, e.corps, e.gras);
    e.largeur = t.largeur;
    e.hauteur = t.hauteur;
}

void CarteGlobe::Placer(EtiquetteGlobe& e) const {
    const double x0 = 250 + Round(50 * e.longitude, 0);
    e.haut = 4705 + Round(50 * e.latitude, 0);
    // The band narrows toward its poles, around the central meridian.
    const double r = Round(e.latitude, 0);
    const double h = r * r / 2;
    e.x = x0 < MERIDIEN_CENTRAL ? x0 + ((MERIDIEN_CENTRAL - x0) / 9000) * h : x0 - ((x0 - MERIDIEN_CENTRAL) / 9000) * h;
    // A label at the left end starts at its point, one at the right end ends at it.
    const double a = (e.x - 250) / 18000;
    e.gauche = e.x - Round(a * e.largeur, 0);
}

std::string CarteGlobe::TexteColonnes() const {
    std::string t;
    for (const auto& e : etiquettes_)
        if (e.colonne) t += e.nom + "\r\n";
    return t;
}

std::string CarteGlobe::TexteLignes() const {
    std::string t;
    for (const auto& e : etiquettes_)
        if (!e.colonne) t += e.nom + "\r\n";
    return t;
}

std::vector<std::string> CarteGlobe::LignesInertie() const { return inertie_.Lignes("F.", MAX_FACTEURS_LISTES); }

std::vector<Barre> CarteGlobe::BarresInertie() const {
    Inertie vingtCinq = inertie_;
    if (vingtCinq.pourcentages.size() > MAX_FACTEURS_LISTES) vingtCinq.pourcentages.resize(MAX_FACTEURS_LISTES);
    return vingtCinq.Barres(1000, 1500, 100, 1200);
}

void CarteGlobe::Tourner() {
    for (auto& e : etiquettes_) {
        if (e.nom == ".") continue;
        if (std::fabs(e.longitude) < 1e12) {
            long long l = Milliemes(e.longitude) + 90000;
            if (l > 360000) l -= 360000;
            e.longitude = static_cast<double>(l) / 1000;
        } else {
            // A longitude no projection writes: plain arithmetic, with no claim to come back.
            e.longitude += 90;
            if (e.longitude > 360) e.longitude -= 360;
        }
        Placer(e);
    }
    Indexer();
    rotations_ = (rotations_ + 1) % 4;
}

AnglesDetail AnglesVueDetail(double longitude, double latitude, double L, double P) {
    double delta = longitude - L;
    if (delta < 0) delta += 360;
    const double c = std::cos(Rad(std::fabs(latitude)));
    // Δ brought back to its quadrant: the point's part along the clicked meridian (u), across it
    // (w), and along the axis (s), all as magnitudes; the quadrant gives their signs.
    int quadrant;
    double reduit;
    if (delta < 90) { quadrant = 0; reduit = delta; }
    else if (delta < 180) { quadrant = 1; reduit = 180 - delta; }
    else if (delta < 270) { quadrant = 2; reduit = delta - 180; }
    else { quadrant = 3; reduit = 360 - delta; }
    const double u = c * std::cos(Rad(reduit));
    const double w = std::sqrt(std::max(0.0, c * c - u * u));
    const double s = std::sqrt(std::max(0.0, 1 - c * c));
    const bool versCentre = quadrant == 0 || quadrant == 3;
    const bool nord = latitude >= 0;
    // The rotation by P in the plane of the clicked meridian.
    double angle;
    if (u <= 1e-12) {
        angle = nord ? 90 : 270;
    } else {
        const double t = std::atan(s / u) * kDegres;
        if (versCentre) angle = nord ? t : 360 - t;
        else angle = nord ? 180 - t : 180 + t;
    }
    // Brought into [0, 360) in one step: a latitude read from a damaged file may be far out of
    // range, and turning by 360 at a time would not end.
    double nouvelle = std::fmod(angle - P, 360.0);
    if (nouvelle < 0) nouvelle += 360;
    if (nouvelle >= 360) nouvelle -= 360;
    AnglesDetail a;
    a.longitude = nouvelle;
    a.latitude = w >= 1 ? 90 : std::atan(w / std::sqrt(1 - w * w)) * kDegres;
    a.est = quadrant == 0 || quadrant == 1;
    return a;
}

Detail CarteGlobe::DetailAutour(std::size_t indice) const {
    const auto& centre = etiquettes_.at(indice);
    Detail d;
    d.centre = indice;
    for (std::size_t i = 0; i < etiquettes_.size(); ++i) {
        const auto a = AnglesVueDetail(etiquettes_[i].longitude, etiquettes_[i].latitude, centre.longitude, centre.latitude);
        if (!(a.longitude < DEMI_ANGLE_DETAIL || a.longitude > 360 - DEMI_ANGLE_DETAIL)) continue;
        VueDetail v;
        v.indice = i;
        v.longitude = a.longitude;
        v.latitude = a.latitude;
        v.est = a.est;
        v.gauche = (a.longitude < DEMI_ANGLE_DETAIL ? a.longitude + DEMI_ANGLE_DETAIL : a.longitude - (360 - DEMI_ANGLE_DETAIL)) *
                       TWIPS_PAR_DEGRE_DETAIL + 250;
        v.haut = (a.est ? a.latitude + DEMI_ANGLE_DETAIL : DEMI_ANGLE_DETAIL - a.latitude) * TWIPS_PAR_DEGRE_DETAIL + 250;
        d.etiquettes.push_back(v);
    }
    return d;
}

std::string Detail::Liste(const std::vector<EtiquetteGlobe>& e) const {
    std::string t;
    for (const auto& v : etiquettes) t += e[v.indice].nom + "\r\n";
    return t;
}

ListeSurvol CarteGlobe::Survol(std::size_t indice, const Detail* detail) const {
    ListeSurvol l;
    struct Place {
        std::size_t i;
        double gauche, haut;
    };
    std::vector<Place> places;
    std::optional<Place> survolee;
    if (detail) {
        for (const auto& v : detail->etiquettes) {
            places.push_back({v.indice, v.gauche, v.haut});
            if (v.indice == indice) survolee = places.back();
        }
    } else {
        const auto& e = etiquettes_.at(indice);
        survolee = Place{indice, e.gauche, e.haut};
    }
    if (!survolee) return l;
    const auto& e0 = etiquettes_[survolee->i];
    auto pres = [&](std::size_t i, double g, double h) {
        if (std::fabs(g - survolee->gauche) <= ECART_VOISINS && std::fabs(h - survolee->haut) <= e0.hauteur)
            l.indices.push_back(i);
    };
    if (detail) {
        for (const auto& p : places) pres(p.i, p.gauche, p.haut);
    } else {
        // Only the labels whose left edge is within reach are looked at, then kept in file order.
        auto debut = std::lower_bound(parGauche_.begin(), parGauche_.end(), survolee->gauche - ECART_VOISINS,
                                      [&](std::size_t i, double g) { return etiquettes_[i].gauche < g; });
        for (auto it = debut; it != parGauche_.end() && etiquettes_[*it].gauche <= survolee->gauche + ECART_VOISINS; ++it)
            pres(*it, etiquettes_[*it].gauche, etiquettes_[*it].haut);
        std::sort(l.indices.begin(), l.indices.end());
    }
    if (l.indices.size() < 2) {
        l.indices.clear();
        return l;
    }
    double large = 0;
    // The box is as wide as the widest label it lists, as measured when the map was read.
    for (auto i : l.indices) large = std::max(large, etiquettes_[i].largeur);
    l.largeur = large + 120;
    l.hauteur = HAUTEUR_LIGNE_SURVOL * static_cast<double>(l.indices.size());
    l.haut = survolee->haut;
    l.gauche = survolee->gauche < 6000 ? survolee->gauche + e0.largeur + DECALAGE_SURVOL
                                       : survolee->gauche - DECALAGE_SURVOL - l.largeur;
    return l;
}

void CarteGlobe::MarquerContributions(int facteur) {
    const std::size_t k = static_cast<std::size_t>(std::clamp(facteur, 1, 3) - 1);
    const double aLignes = lignes_ ? 1.0 / static_cast<double>(lignes_) : 0;
    const double aColonnes = colonnes_ ? 1.0 / static_cast<double>(colonnes_) : 0;
    for (auto& e : etiquettes_) {
        const double A = e.colonne ? aColonnes : aLignes;
        const double c = e.contributions[k];
        if (c > 3 * A)
            e.fond = FOND_CONTRIB_FORTE;
        else if (c > 1.5 * A)
            e.fond = FOND_CONTRIB_MOYENNE;
        else
            e.fond.reset();
    }
}

double AngleEntre(double lon1, double lat1, double lon2, double lat2) {
    const double p1 = Rad(lat1), p2 = Rad(lat2);
    double c = std::cos(p1) * std::cos(p2) * std::cos(Rad(lon2 - lon1)) + std::sin(p1) * std::sin(p2);
    c = std::clamp(c, -1.0, 1.0);
    return std::acos(c) * kDegres;
}

int CarteGlobe::Marque(std::size_t ligne, std::size_t colonne) const {
    const auto& l = etiquettes_.at(ligne);
    const auto& c = etiquettes_.at(colonne);
    const double a = AngleEntre(l.longitude, l.latitude, c.longitude, c.latitude);
    if (a <= ANGLE_MARQUE_2) return 2;
    if (a <= ANGLE_MARQUE_1) return 1;
    return 0;
}

bool CarteGlobe::Colorer(Dialogue& dialogue) {
    auto colonne = [&](int numero) -> std::optional<std::size_t> {
        const auto r = dialogue.Demander(
            Joindre("Saisir le nom de la métadonnée pertinente n°"_cp, std::to_string(numero), " "), "COLORATION", "");
        if (!r) return std::nullopt;
        const std::string_view nom = NomSansBlancFinal(*r);
        for (std::size_t i = 0; i < etiquettes_.size(); ++i)
            if (etiquettes_[i].colonne && etiquettes_[i].nom == nom) return i;
        dialogue.Afficher("Cette métadonnée n'est pas accessible dans votre fichier"_cp);
        return std::nullopt;
    };
    const auto premiere = colonne(1);
    if (!premiere) return false;
    std::optional<std::size_t> seconde;
    for (;;) {
        const auto r = dialogue.Demander("Voulez-vous saisir une 2ème métadonnée (O/N) ?"_cp, "COLORATION", "N");
        if (!r || *r == "N") break;
        if (*r == "O") {
            seconde = colonne(2);
            if (!seconde) return false;
            break;
        }
        dialogue.Afficher("Saisie erronée. Recommencez."_cp);
    }
    for (std::size_t i = 0; i < etiquettes_.size(); ++i) {
        if (etiquettes_[i].colonne) continue;
        const int m1 = Marque(i, *premiere);
        if (m1 == 1) etiquettes_[i].fond = FOND_METADONNEE1_1;
        if (m1 == 2) etiquettes_[i].fond = FOND_METADONNEE_2;
        if (seconde) {
            const int m2 = Marque(i, *seconde);
            if (m2 == 1) etiquettes_[i].fond = FOND_METADONNEE2_1;
            if (m2 == 2) etiquettes_[i].fond = FOND_METADONNEE_2;
        }
    }
    return true;
}

void CarteGlobe::Rafraichir() {
    for (auto& e : etiquettes_) e.fond.reset();
}

}  // namespace telvoris::carte
