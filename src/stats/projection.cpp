#include "stats/projection.hpp"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string>

#include "core/erreurs.hpp"
#include "core/fichiers.hpp"
#include "core/horloge.hpp"
#include "core/jetons.hpp"
#include "core/nombres.hpp"
#include "core/texte.hpp"

namespace telvoris {

namespace {

constexpr std::string_view kTitre = "OP_Paramètres"_cp;
constexpr std::string_view kFiltre = "Text files (*.TXT)¢*.TXT"_cp;
constexpr std::string_view kFichierColonnes = "Fichier des coordonnées de colonnes"_cp;
constexpr std::string_view kFichierLignes = "Fichier des coordonnées de lignes"_cp;

std::string N(long long v) { return std::to_string(v); }

// "O" or "N" (either case); nullopt on Cancel or any other answer, which is told.
std::optional<bool> Case(Dialogue& d, std::string_view libelle, bool defaut) {
    const auto r = d.Demander(libelle, kTitre, defaut ? "O" : "N");
    if (!r) return std::nullopt;
    if (*r == "O" || *r == "o") return true;
    if (*r == "N" || *r == "n") return false;
    d.Afficher(Joindre("Répondez par O ou N : « "_cp, libelle, " »"_cp));
    return std::nullopt;
}

// A data file of the analysis: its lines after the header. `nom` is its path for messages.
struct Lignes {
    fs::path chemin;
    std::vector<std::string> lignes;
};

Lignes LireDonnees(const fs::path& chemin) {
    Lignes l{chemin, {}};
    const std::string texte = LireFichier(chemin);
    LecteurLignes lecteur(texte);
    std::string_view ligne;
    if (!lecteur.Suivante(ligne)) return l;
    while (lecteur.Suivante(ligne)) l.lignes.emplace_back(ligne);
    return l;
}

// A number of a finalised file (decimal comma; a point is taken as well).
double Nombre(std::string_view t, const Lignes& f, std::size_t ligne) {
    std::string s(t);
    for (char& c : s)
        if (c == ',') c = '.';
    char* fin = nullptr;
    const double v = s.empty() ? 0 : std::strtod(s.c_str(), &fin);
    if (s.empty() || fin != s.c_str() + s.size() || !std::isfinite(v))
        throw ErreurExecution(Joindre("Conversion impossible en nombre : « "_cp, t, " » (fichier "_cp,
                                      TexteChemin(f.chemin), ", ligne "_cp, N(static_cast<long long>(ligne) + 2), ")"_cp));
    return v;
}

// Field `k` (from 1) of a line; a line without it is the runtime's bound failure.
std::string_view Champ(const std::vector<std::string_view>& champs, long long k, const Lignes& f, std::size_t ligne) {
    if (k < 1 || static_cast<std::size_t>(k) > champs.size())
        throw ErreurExecution(Joindre("Champ "_cp, N(k), " absent à la ligne "_cp, N(static_cast<long long>(ligne) + 2),
                                      " de "_cp, TexteChemin(f.chemin), " ("_cp,
                                      N(static_cast<long long>(champs.size())), " champs)"_cp));
    return champs[static_cast<std::size_t>(k) - 1];
}

// The result folder of a chosen coordinate file: its path less the nine characters of "corco.txt".
std::string SansNomFichier(const fs::path& chemin) {
    const std::string s = chemin.string();
    return s.substr(0, s.size() >= 9 ? s.size() - 9 : 0);
}

void VerifierTaille(std::size_t n) {
    if (n > MAX_ITEMS_PROJECTION)
        LimiteDepassee("MAX_ITEMS_PROJECTION", static_cast<long long>(MAX_ITEMS_PROJECTION),
                       "éléments à projeter (lignes et colonnes)"_cp);
}

// The percentages (field 3, with a comma) of the finalised eigen.txt.
std::vector<std::string> Pourcentages(const fs::path& dossier) {
    const Lignes eigen = LireDonnees(fs::path(dossier.string() + "eigen.txt"));
    std::vector<std::string> p;
    for (std::size_t i = 0; i < eigen.lignes.size(); ++i) {
        const auto champs = Decouper(eigen.lignes[i], "\t");
        std::string t(Champ(champs, 3, eigen, i));
        if (const auto point = t.find('.'); point != std::string::npos) t[point] = ',';
        p.push_back(std::move(t));
    }
    return p;
}

void AjouterStats(EcrivainFichier& sortie, const fs::path& dossier) {
    const std::string texte = LireFichier(fs::path(dossier.string() + "STATS.txt"));
    LecteurLignes lecteur(texte);
    std::string_view ligne;
    while (lecteur.Suivante(ligne)) sortie.Ligne(Joindre("###", ligne));
}

std::string Trois(double v) { return FormaterDouble(Round(v, 3)); }

}  // namespace

std::optional<ParametresProjection> DemanderParametresProjection(Dialogue& d, int dimensions) {
    ParametresProjection p;
    for (int i = 1; i <= dimensions; ++i) {
        const auto r = d.Demander(Joindre("Pour l'axe "_cp, N(i)), kTitre, N(i));
        if (!r) return std::nullopt;
        long long facteur = 0;
        if (!r->empty()) {
            if (r->find_first_not_of("0123456789") != std::string::npos || r->size() > 9) {
                d.Afficher("Vous ne devez saisir ici qu'un nombre"_cp);
                return std::nullopt;
            }
            facteur = std::stoll(*r);
            if (facteur > 10)
                d.Afficher(Joindre("Attention ! Etes-vous certain que votre matrice comporte "_cp, N(facteur),
                                   " dimensions ou plus ?"_cp));
            for (long long autre : p.axes)
                if (autre == facteur) {
                    d.Afficher("Vous ne devez pas saisir 2 références identiques"_cp);
                    return std::nullopt;
                }
        }
        p.axes.push_back(facteur);
    }
    const std::pair<std::string_view, bool*> cases[] = {
        {"coord. colonnes", &p.coordColonnes},         {"coord. lignes", &p.coordLignes},
        {"valeurs propres", &p.valeursPropres},        {"noms variables colonnes", &p.nomsColonnes},
        {"noms variables lignes", &p.nomsLignes},      {"trace, chi-deux...", &p.trace}};
    for (const auto& [libelle, valeur] : cases) {
        const auto r = Case(d, libelle, *valeur);
        if (!r) return std::nullopt;
        *valeur = *r;
    }
    return p;
}

std::vector<std::pair<long long, long long>> PlacerPlan(const std::vector<std::pair<long long, long long>>& xy) {
    long long mx = 0, my = 0;
    for (const auto& [x, y] : xy) {
        mx = std::max(mx, std::llabs(x));
        my = std::max(my, std::llabs(y));
    }
    (void)my;  // the map keeps its proportions: both axes are scaled by the largest |x|
    if (mx == 0) throw ErreurExecution(std::string("Division par zéro : toutes les abscisses de la carte sont nulles"_cp));
    std::vector<std::pair<long long, long long>> r;
    long long m = 0;
    for (const auto& [x, y] : xy) {
        const long long X = 5000 + static_cast<long long>(Round(static_cast<double>(x) * 5000 / static_cast<double>(mx), 0));
        const long long Y = 5000 + static_cast<long long>(Round(static_cast<double>(y) * 5000 / static_cast<double>(mx), 0));
        m = std::max({m, std::llabs(X - 5000), std::llabs(Y - 5000)});
        r.emplace_back(X, Y);
    }
    const double k = 4800.0 / static_cast<double>(m);
    auto serrer = [k](long long c) {
        if (c <= 5000) return 5000 - static_cast<long long>(Round(k * static_cast<double>(5000 - c), 0));
        return 5000 + static_cast<long long>(Round(k * static_cast<double>(c - 5000), 0));
    };
    for (auto& [X, Y] : r) {
        X = serrer(X);
        Y = serrer(Y);
    }
    return r;
}

int CodeContribution(double contribution, std::size_t n) {
    const double a = 1.0 / static_cast<double>(n);
    if (contribution > 6 * a) return 2;
    if (contribution > 3 * a) return 1;
    return 0;
}

PointGlobe PlacerGlobe(double x, double y, double z) {
    const double pi = 4 * std::atan(1.0);
    PointGlobe p;
    const double xl = x == 0 ? 1.0 / 1000 : x;
    if (xl > 0) {
        if (y > 0) p.longitude = std::atan(xl / y) * 180 / pi;
        else if (y < 0) p.longitude = 90 + std::atan(-y / xl) * 180 / pi;
        else p.longitude = 90;
    } else {
        if (y > 0) p.longitude = 270 + std::atan(-y / xl) * 180 / pi;
        else if (y < 0) p.longitude = 180 + std::atan(xl / y) * 180 / pi;
        else p.longitude = 270;
    }
    const double r = std::sqrt(x * x + y * y);
    p.latitude = r == 0 ? 90 : std::atan(std::abs(z) / r) * 180 / pi;
    if (z < 0) p.latitude = -p.latitude;
    p.distance = std::sqrt(z * z + r * r);
    return p;
}

namespace {

// One kind of items of the flat map: names, the values of step 4, the two contributions.
struct ItemsPlan {
    std::vector<std::string> noms;
    std::vector<std::pair<long long, long long>> xy;
    std::vector<std::pair<double, double>> contributions;
};

// Reads the coordinate file and its contribution file for the flat map. `champsContribution`:
// the two fields (from 1) read in the contribution file.
ItemsPlan LirePlan(const fs::path& coordonnees, std::string_view nomContributions, long long a, long long b,
                   std::pair<long long, long long> champsContribution) {
    ItemsPlan items;
    const Lignes coord = LireDonnees(coordonnees);
    VerifierTaille(coord.lignes.size());
    // The factors are checked before anything else is read, so that a factor beyond the analysis
    // gets its message rather than a missing field of the contribution file.
    for (std::size_t i = 0; i < coord.lignes.size(); ++i) {
        const auto champs = Decouper(coord.lignes[i], "\t");
        const long long facteurs = static_cast<long long>(champs.size()) - 1;
        if (a > facteurs || b > facteurs || a < 1 || b < 1)
            throw FinProgramme(std::string(
                "Vous avez choisi un facteur qui n'existe pas dans les limites de la matrice analysée"_cp));
        auto valeur = [&](long long f) {
            const std::string_view champ = champs[static_cast<std::size_t>(f)];
            const double v = Round(Nombre(champ, coord, i) * 1000, 0);
            // A coordinate is kept in thousandths as an integer: one beyond that range is refused.
            if (!(std::fabs(v) <= 1e15))
                throw ErreurExecution(Joindre("Coordonnée hors limites (« "_cp, champ, " », au plus 1e12 en valeur absolue) : "_cp,
                                              TexteChemin(coord.chemin), ", ligne "_cp, N(static_cast<long long>(i) + 2)));
            return static_cast<long long>(v);
        };
        items.xy.emplace_back(valeur(a), valeur(b));
    }
    const Lignes contrib = LireDonnees(fs::path(SansNomFichier(coordonnees) + std::string(nomContributions)));
    for (std::size_t i = 0; i < coord.lignes.size(); ++i) {
        if (i >= contrib.lignes.size())
            throw ErreurExecution(Joindre("Ligne "_cp, N(static_cast<long long>(i) + 2), " absente de "_cp,
                                          TexteChemin(contrib.chemin)));
        const auto champs = Decouper(contrib.lignes[i], "\t");
        items.noms.emplace_back(champs[0]);
        items.contributions.emplace_back(Nombre(Champ(champs, champsContribution.first, contrib, i), contrib, i),
                                         Nombre(Champ(champs, champsContribution.second, contrib, i), contrib, i));
    }
    return items;
}

}  // namespace

std::optional<fs::path> ProjeterPlan(Dialogue& d, const ParametresProjection& p) {
    if (p.axes.size() < 2 || p.axes[0] == 0 || p.axes[1] == 0) {
        d.Afficher("L'un des champs de saisie des facteurs est vide."_cp);
        return std::nullopt;
    }
    if (!p.coordColonnes && !p.coordLignes) {
        d.Afficher("Cochez « coord. colonnes » ou « coord. lignes » : il n'y a rien à projeter."_cp);
        return std::nullopt;
    }
    const long long a = p.axes[0], b = p.axes[1];
    ItemsPlan colonnes, lignes;
    fs::path dernier;
    if (p.coordColonnes) {
        const auto f = d.ChoisirFichier(kFichierColonnes, kFiltre);
        if (!f) return std::nullopt;
        // The field of axis 2 is the one next to axis 1's, whichever factor axis 2 is.
        colonnes = LirePlan(*f, "conco.txt", a, b, {a + 1, a + 2});
        dernier = *f;
    }
    if (p.coordLignes) {
        const auto f = d.ChoisirFichier(kFichierLignes, kFiltre);
        if (!f) return std::nullopt;
        // The rows' contributions are those of the first two factors, whatever the axes.
        lignes = LirePlan(*f, "conli.txt", a, b, {2, 3});
        dernier = *f;
    }
    const std::size_t n = colonnes.noms.size() + lignes.noms.size();
    VerifierTaille(n);
    std::vector<std::pair<long long, long long>> xy = colonnes.xy;
    xy.insert(xy.end(), lignes.xy.begin(), lignes.xy.end());
    const auto places = PlacerPlan(xy);

    const std::string dossier = SansNomFichier(dernier);
    const fs::path sortie = dernier.parent_path() /
                            Joindre(p.coordColonnes ? "co" : "", p.coordLignes ? "li" : "", "_PROJ", N(a), N(b), ".txt");
    EcrivainFichier f(sortie);
    f.Ligne(Joindre(N(static_cast<long long>(colonnes.noms.size())), "/", N(static_cast<long long>(lignes.noms.size()))));
    std::size_t k = 0;
    for (const ItemsPlan* items : {&colonnes, &lignes})
        for (std::size_t i = 0; i < items->noms.size(); ++i, ++k)
            f.Ligne(Joindre(items->noms[i], "\t", N(places[k].first), "\t", N(places[k].second), "\t",
                            N(CodeContribution(items->contributions[i].first, n)), "\t",
                            N(CodeContribution(items->contributions[i].second, n))));
    if (p.valeursPropres) {
        const auto pct = Pourcentages(fs::path(dossier));
        for (long long axe : {a, b}) {
            if (static_cast<std::size_t>(axe) > pct.size())
                throw ErreurExecution(Joindre("Le facteur "_cp, N(axe), " n'a pas de ligne dans "_cp, dossier, "eigen.txt"));
            f.Ligne(Joindre("**", N(axe), "¤"_cp, pct[static_cast<std::size_t>(axe) - 1]));
        }
        for (std::size_t i = 0; i < pct.size() && i < MAX_FACTEURS_PLAN; ++i) f.Ligne(Joindre("***", pct[i]));
    }
    if (p.trace) AjouterStats(f, fs::path(dossier));
    f.Fermer();
    return sortie;
}

std::optional<fs::path> ProjeterGlobe(Dialogue& d, const ParametresProjection& p) {
    if (!p.coordColonnes && !p.coordLignes) {
        d.Afficher("Cochez « coord. colonnes » ou « coord. lignes » : il n'y a rien à projeter."_cp);
        return std::nullopt;
    }
    struct Item {
        std::string nom;
        PointGlobe point;
        double c[3];
    };
    std::vector<Item> colonnes, lignes;
    fs::path dernier;
    auto lire = [&](std::string_view titre, std::string_view coordNom, std::string_view contribNom,
                    std::vector<Item>& items) -> bool {
        const auto f = d.ChoisirFichier(titre, kFiltre);
        if (!f) return false;
        dernier = *f;
        const Lignes coord = LireDonnees(*f);
        const Lignes contrib = LireDonnees(fs::path(SansNomFichier(*f) + std::string(contribNom)));
        if (coord.lignes.size() != contrib.lignes.size()) {
            if (coordNom == "corco") throw FinProgramme("Diff corco/conco");
            throw FinProgramme(Joindre("Diff corli/conli ", N(static_cast<long long>(coord.lignes.size())), " ",
                                       N(static_cast<long long>(contrib.lignes.size()))));
        }
        VerifierTaille(coord.lignes.size());
        for (std::size_t i = 0; i < coord.lignes.size(); ++i) {
            // The name up to the first tab; the factors are counted among the fields behind it.
            const auto champs = Decouper(coord.lignes[i], "\t");
            const auto champsC = Decouper(contrib.lignes[i], "\t");
            Item it;
            it.nom.assign(champs[0]);
            double v[3];
            for (int j = 0; j < 3; ++j) {
                if (p.axes[static_cast<std::size_t>(j)] < 1)
                    throw ErreurExecution(Joindre("Facteur "_cp, N(p.axes[static_cast<std::size_t>(j)]),
                                                  " hors limites : le champ de l'axe "_cp, N(j + 1), " est vide ou nul"_cp));
                v[j] = Nombre(Champ(champs, p.axes[static_cast<std::size_t>(j)] + 1, coord, i), coord, i);
                it.c[j] = Nombre(Champ(champsC, p.axes[static_cast<std::size_t>(j)] + 1, contrib, i), contrib, i);
            }
            it.point = PlacerGlobe(v[0], v[1], v[2]);
            items.push_back(std::move(it));
        }
        return true;
    };
    if (p.coordColonnes && !lire(kFichierColonnes, "corco", "conco.txt", colonnes)) return std::nullopt;
    if (p.coordLignes && !lire(kFichierLignes, "corli", "conli.txt", lignes)) return std::nullopt;
    VerifierTaille(colonnes.size() + lignes.size());

    const std::string dossier = SansNomFichier(dernier);
    const fs::path sortie(Joindre(dossier, "_PLANISPH_", N(p.axes[0]), N(p.axes[1]), N(p.axes[2]), ".txt"));
    EcrivainFichier f(sortie);
    f.Ligne(Joindre("&", N(static_cast<long long>(colonnes.size())), "/", N(static_cast<long long>(lignes.size()))));
    for (const auto* items : {&colonnes, &lignes})
        for (const Item& it : *items)
            f.Ligne(Joindre(it.nom, "\t", Trois(it.point.longitude), "\t", Trois(it.point.latitude), "\t",
                            Trois(it.point.distance), "\t", Trois(it.c[0]), "\t", Trois(it.c[1]), "\t", Trois(it.c[2])));
    if (p.valeursPropres) {
        const auto pct = Pourcentages(fs::path(dossier));
        for (std::size_t i = 0; i < pct.size() && i < MAX_FACTEURS_GLOBE; ++i) f.Ligne(Joindre("***", pct[i]));
    }
    if (p.trace) AjouterStats(f, fs::path(dossier));
    f.Fermer();
    return sortie;
}

namespace {

void Projeter(Contexte& ctx, int dimensions) {
    Dialogue& d = ctx.dialogue;
    const auto p = DemanderParametresProjection(d, dimensions);
    if (!p) return;
    const std::string debut = TexteHeure(ctx.horloge.Maintenant());
    const auto sortie = dimensions == 2 ? ProjeterPlan(d, *p) : ProjeterGlobe(d, *p);
    if (!sortie) return;
    d.Resultat(TexteChemin(*sortie));
    d.Afficher(Joindre("Terminé en"_cp, TexteDuree(debut, ctx.horloge, Copie::Statistiques)));
}

}  // namespace

void OperationProjection2(Contexte& ctx) { Projeter(ctx, 2); }
void OperationProjection3(Contexte& ctx) { Projeter(ctx, 3); }

}  // namespace telvoris
