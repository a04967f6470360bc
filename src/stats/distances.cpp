#include "stats/distances.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <unordered_map>

#include "core/erreurs.hpp"
#include "core/fichiers.hpp"
#include "core/hachage.hpp"
#include "core/horloge.hpp"
#include "core/jetons.hpp"
#include "core/liste_textes.hpp"
#include "core/nombres.hpp"
#include "core/texte.hpp"
#include "stats/commun.hpp"

namespace telvoris {

using namespace stats;
namespace fs = std::filesystem;

struct DictionnaireItems::Impl {
    std::unordered_map<std::string, std::uint32_t, HachageTexte, std::equal_to<>> numeros;
};

DictionnaireItems::DictionnaireItems() : impl_(std::make_unique<Impl>()) {}
DictionnaireItems::~DictionnaireItems() = default;

std::uint32_t DictionnaireItems::Numero(std::string_view item) {
    auto it = impl_->numeros.find(item);
    if (it != impl_->numeros.end()) return it->second;
    const auto n = static_cast<std::uint32_t>(impl_->numeros.size());
    impl_->numeros.emplace(std::string(item), n);
    return n;
}

std::size_t DictionnaireItems::Taille() const { return impl_->numeros.size(); }

LexiqueNumerote DictionnaireItems::Lexique(const LignesLexique& lignes, std::string_view nom) {
    LexiqueNumerote l;
    std::array<std::size_t, (MAX_CLASSE_LONGUEUR + 1) * (MAX_CLASSE_INITIALE + 1)> parCasier{};
    std::unordered_map<std::uint32_t, std::size_t> place;
    for (const auto& [item, compte] : lignes) {
        const std::uint32_t n = Numero(item);
        l.lignes.push_back(n);
        l.total += compte;
        const auto [it, nouveau] = place.emplace(n, l.ordre.size());
        if (!nouveau) {
            l.ordre[it->second].second += compte;
            continue;
        }
        const CleMot cle = ClasserItem(item, Copie::Statistiques);
        if (++parCasier[static_cast<std::size_t>(cle.ClasseLongueur * (MAX_CLASSE_INITIALE + 1) + cle.ClasseInitiale)] >
            MAX_ENTREES_CASIER_DISTANCES)
            LimiteDepassee("MAX_ENTREES_CASIER_DISTANCES", MAX_ENTREES_CASIER_DISTANCES,
                           Joindre("entrées dans la case de « "_cp, item, " » ("_cp, nom, ")"));
        l.ordre.emplace_back(n, compte);
    }
    l.trie = l.ordre;
    std::sort(l.trie.begin(), l.trie.end());
    std::sort(l.lignes.begin(), l.lignes.end());
    return l;
}

std::vector<std::uint32_t> DictionnaireItems::Texte(std::string_view tague) {
    std::vector<std::uint32_t> jetons;
    LigneJetons lj;
    std::string forme;
    LecteurLignes lecteur(tague);
    std::string_view ligne;
    while (lecteur.Suivante(ligne)) {
        if (ligne.empty() || ligne.starts_with("<QORX_ATTR")) continue;
        DecouperLigne(ligne, lj, Copie::Statistiques);
        for (int i = 1; i <= lj.NbJetons; ++i) {
            const std::string_view j = lj.jeton[static_cast<std::size_t>(i)];
            if (!j.starts_with("<M")) continue;
            Minusculiser(LireAttributsVue(j).f, forme);
            jetons.push_back(Numero(forme));
        }
    }
    return jetons;
}

double DistanceJaccard(const LexiqueNumerote& l1, const LexiqueNumerote& l2) {
    // c: the lines of the second lexicon whose item the first holds.
    long long c = 0;
    std::size_t i = 0;
    for (const std::uint32_t n : l2.lignes) {
        while (i < l1.lignes.size() && l1.lignes[i] < n) ++i;
        if (i < l1.lignes.size() && l1.lignes[i] == n) ++c;
    }
    const auto v1 = static_cast<double>(l1.lignes.size()), v2 = static_cast<double>(l2.lignes.size());
    const double d = Diviser(v2 - static_cast<double>(c), v2, "lexique vide"_cp) +
                     Diviser(v1 - static_cast<double>(c), v1, "lexique vide"_cp);
    return Round(d, 3);
}

namespace {

// Round(v) to an integer for v >= 0, without the decimal text where the fraction is clearly on
// one side of one half: the decimal value of 15 digits lies within v x 1e-14 of v.
double ArrondiEntier(double v) {
    const double entier = std::floor(v), fraction = v - entier;
    if (std::fabs(fraction - 0.5) > v * 1e-14 + 1e-300) return fraction > 0.5 ? entier + 1 : entier;
    return Round(v);
}

}  // namespace

double DistanceLabbe(const LexiqueNumerote& a, const LexiqueNumerote& b) {
    const bool echange = a.total > b.total;
    const LexiqueNumerote& petit = echange ? b : a;
    const LexiqueNumerote& grand = echange ? a : b;
    const double u = Diviser(static_cast<double>(petit.total), static_cast<double>(grand.total), "lexique vide"_cp);
    // The larger text's counts brought to the smaller's size, each kept as a single, and their sum
    // rounded to an integer after each addition, in the order of the file.
    double nPrime = 0;
    for (const auto& [n, f2] : grand.ordre)
        nPrime = ArrondiEntier(nPrime + static_cast<float>(u * static_cast<double>(f2)));
    double d = 0;
    std::size_t i = 0, j = 0;
    const auto& p = petit.trie;
    const auto& g = grand.trie;
    while (i < p.size() || j < g.size()) {
        if (j >= g.size() || (i < p.size() && p[i].first < g[j].first)) {
            d += static_cast<double>(p[i++].second);
        } else if (i >= p.size() || g[j].first < p[i].first) {
            d += static_cast<float>(u * static_cast<double>(g[j++].second));
        } else {
            const float ug = static_cast<float>(u * static_cast<double>(g[j++].second));
            d += std::fabs(static_cast<double>(p[i++].second) - static_cast<double>(ug));
        }
    }
    return Round(Diviser(d, static_cast<double>(petit.total) + nPrime, "lexiques vides"_cp), 3);
}

double DistanceQrt(const std::vector<std::uint32_t>& t1, const std::vector<std::uint32_t>& t2) {
    const auto n1 = static_cast<long long>(t1.size()), n2 = static_cast<long long>(t2.size());
    const auto b1 = static_cast<long long>(Round(static_cast<double>(n1) / PAS_BLOC_QRT));
    const auto b2 = static_cast<long long>(Round(static_cast<double>(n2) / PAS_BLOC_QRT));
    Diviser(1, static_cast<double>(b1 * b2), "texte de moins de 250 occurrences"_cp);
    std::uint32_t plusGrand = 0;
    for (auto n : t1) plusGrand = std::max(plusGrand, n);
    for (auto n : t2) plusGrand = std::max(plusGrand, n);
    // The blocks of text 2 as (item, count) lists; a block past the end wraps to the start.
    std::vector<long long> compte(static_cast<std::size_t>(plusGrand) + 1, 0);
    std::vector<std::vector<std::pair<std::uint32_t, long long>>> blocs2(static_cast<std::size_t>(b2));
    for (long long j = 0; j < b2; ++j) {
        std::vector<std::uint32_t> vus;
        for (long long k = 0; k < TAILLE_BLOC_QRT; ++k) {
            const std::uint32_t n = t2[static_cast<std::size_t>((j * PAS_BLOC_QRT + k) % n2)];
            if (compte[n]++ == 0) vus.push_back(n);
        }
        for (auto n : vus) {
            blocs2[static_cast<std::size_t>(j)].emplace_back(n, compte[n]);
            compte[n] = 0;
        }
    }
    double s = 0;
    std::vector<std::uint32_t> vus;
    for (long long i = 0; i < b1; ++i) {
        vus.clear();
        for (long long k = 0; k < TAILLE_BLOC_QRT; ++k) {
            const std::uint32_t n = t1[static_cast<std::size_t>((i * PAS_BLOC_QRT + k) % n1)];
            if (compte[n]++ == 0) vus.push_back(n);
        }
        for (const auto& bloc : blocs2) {
            // Σ|f1 - f2| = 1000 + 1000 - 2 Σ min(f1, f2).
            long long communs = 0;
            for (const auto& [n, f2] : bloc) communs += std::min(compte[n], f2);
            s += static_cast<double>(2 * TAILLE_BLOC_QRT - 2 * communs) / 2;
        }
        for (auto n : vus) compte[n] = 0;
    }
    return s / static_cast<double>(b1 * b2);
}

namespace {

enum class Distance { Jaccard, Labbe, Qrt };

struct Choix {
    bool multiple = true;
    std::string suffixe;  // of the lexicons in LEXIQUES_MULTIPLES
};

std::optional<Choix> DemanderChoix(Dialogue& d) {
    Choix c;
    const std::string mode = Reponse(d, "Calcul simple -S- (une paire) ou multiple -M- (un corpus) ?", "TYPE DE CALCUL", "M");
    if (mode != "M" && mode != "S") {
        d.Afficher("Choix erroné : M ou S seulement. Vérifiez."_cp);
        return std::nullopt;
    }
    c.multiple = mode == "M";
    if (c.multiple) {
        const std::string type =
            Reponse(d, "Vocaulaire des formes -F-, des lemmes -L-, des catégories -C- ?"_cp, "TYPE DE DONNEES", "F");
        if (type == "F") c.suffixe = "_FORMIN.txt";
        else if (type == "L") c.suffixe = "_LEMMES.txt";
        else {
            d.Afficher("Choix erroné : F ou L seulement (aucun lexique de catégories). Vérifiez."_cp);
            return std::nullopt;
        }
    }
    return c;
}

std::string Valeur(Distance quoi, double v) { return FormaterDouble(quoi == Distance::Qrt ? v : Round(v, 3)); }

void Distances(Contexte& ctx, Distance quoi) {
    Dialogue& d = ctx.dialogue;
    const auto choix = DemanderChoix(d);
    if (!choix) return;
    DictionnaireItems dico;
    const auto calculer = [&](const fs::path& a, const fs::path& b) {
        if (quoi == Distance::Qrt) return DistanceQrt(dico.Texte(LireFichier(a)), dico.Texte(LireFichier(b)));
        const auto la = dico.Lexique(LireLexique(a), TexteChemin(a));
        const auto lb = dico.Lexique(LireLexique(b), TexteChemin(b));
        return quoi == Distance::Jaccard ? DistanceJaccard(la, lb) : DistanceLabbe(la, lb);
    };
    if (!choix->multiple) {
        const auto f1 = DemanderFichier(d, "lexique 1");
        if (!f1) return;
        const auto f2 = DemanderFichier(d, "lexique 2");
        if (!f2) return;
        const double v = calculer(*f1, *f2);
        // qrt says "Jaccard" too: its message has always read so.
        d.Afficher(Joindre(quoi == Distance::Labbe ? "Distance Labbé = "_cp : "Distance Jaccard = "_cp, Valeur(quoi, v)));
        return;
    }
    const auto liste = ChoisirListeTextes(d);
    if (!liste) return;
    std::vector<std::string> noms;
    std::vector<fs::path> fichiers;
    for (const auto& nom : liste->noms) {
        if (nom.empty()) continue;
        noms.push_back(nom);
        fichiers.push_back(quoi == Distance::Qrt ? Chemin(liste->doss_racine / "OLBRIN_TT", Joindre(nom, ".txt"))
                                                 : Chemin(liste->doss_racine / "LEXIQUES_MULTIPLES", Joindre(nom, choix->suffixe)));
        if (!FichierExiste(fichiers.back())) {
            d.Afficher(quoi == Distance::Qrt ? "Vous n'avez pas établi l'ensemble des données. Vérifiez."_cp
                                             : "Vous n'avez pas établi l'ensemble des lexiques. Vérifiez."_cp);
            return;
        }
    }
    const std::size_t n = noms.size();
    std::vector<LexiqueNumerote> lexiques;
    std::vector<std::vector<std::uint32_t>> textes;
    for (std::size_t i = 0; i < n; ++i) {
        d.Progression(noms[i], static_cast<long long>(i + 1), static_cast<long long>(n));
        if (quoi == Distance::Qrt) textes.push_back(dico.Texte(LireFichier(fichiers[i])));
        else lexiques.push_back(dico.Lexique(LireLexique(fichiers[i]), TexteChemin(fichiers[i])));
    }
    std::vector<double> carre(n * n, 0);
    for (std::size_t i = 0; i < n; ++i) {
        d.Progression(noms[i], static_cast<long long>(i + 1), static_cast<long long>(n));
        for (std::size_t j = i + 1; j < n; ++j) {
            const double v = quoi == Distance::Qrt       ? DistanceQrt(textes[i], textes[j])
                             : quoi == Distance::Jaccard ? DistanceJaccard(lexiques[i], lexiques[j])
                                                         : DistanceLabbe(lexiques[i], lexiques[j]);
            carre[i * n + j] = carre[j * n + i] = v;
        }
    }
    d.MasquerProgression();
    const std::string_view prefixe = quoi == Distance::Jaccard ? "JACCARD_" : quoi == Distance::Labbe ? "LABBE_" : "distance";
    EcrivainMatrice sortie(Chemin(liste->doss_racine, Joindre(prefixe, liste->nom, ".txt")), noms);
    for (std::size_t i = 0; i < n; ++i) {
        sortie.DebutLigne(noms[i]);
        for (std::size_t j = 0; j < n; ++j) sortie.Cellule(Valeur(quoi, carre[i * n + j]));
        sortie.FinLigne();
    }
    sortie.Fermer();
    d.Afficher("Terminé"_cp);
}

}  // namespace

void OperationJaccard(Contexte& ctx) { Distances(ctx, Distance::Jaccard); }
void OperationLabbe(Contexte& ctx) { Distances(ctx, Distance::Labbe); }
void OperationQrt(Contexte& ctx) { Distances(ctx, Distance::Qrt); }

void OperationVariete(Contexte& ctx) {
    Dialogue& d = ctx.dialogue;
    const auto liste = ChoisirListeTextes(d);
    if (!liste) return;
    const std::string horodate = Horodater(ctx.horloge);
    // The blocks run on from one text to the next; a last incomplete block is not counted.
    DictionnaireItems dico;
    std::vector<std::uint32_t> vu;  // block number + 1 in which an item was last seen
    long long jetons = 0, blocs = 0, somme = 0, distincts = 0;
    const std::size_t n = liste->noms.size();
    for (std::size_t i = 0; i < n; ++i) {
        if (liste->noms[i].empty()) continue;
        d.Progression(liste->noms[i], static_cast<long long>(i + 1), static_cast<long long>(n));
        for (const std::uint32_t item : dico.Texte(LireFichier(Chemin(liste->doss_racine / "OLBRIN_TT", Joindre(liste->noms[i], ".txt"))))) {
            if (item >= vu.size()) vu.resize(item + 1, 0);
            if (vu[item] != static_cast<std::uint32_t>(blocs + 1)) {
                vu[item] = static_cast<std::uint32_t>(blocs + 1);
                ++distincts;
            }
            if (++jetons % TAILLE_BLOC_VARIETE == 0) {
                somme += distincts;
                distincts = 0;
                ++blocs;
            }
        }
    }
    d.MasquerProgression();
    const double variete = Round(Diviser(static_cast<double>(somme), static_cast<double>(blocs),
                                         "moins de 1000 occurrences, aucun bloc complet"_cp));
    const std::string texte = Joindre("Variété par 1000 : "_cp, FormaterDouble(variete));
    EcrivainFichier sortie(Chemin(liste->doss_racine, Joindre("VARIETE_", horodate, ".txt")));
    sortie.Ligne(texte);
    sortie.Fermer();
    d.Afficher(texte);
}

}  // namespace telvoris
