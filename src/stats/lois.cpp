#include "stats/lois.hpp"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <unordered_map>

#include "core/erreurs.hpp"
#include "core/fichiers.hpp"
#include "core/nombres.hpp"
#include "core/texte.hpp"
#include "stats/commun.hpp"
#include "stats/fichiers_stats.hpp"

namespace telvoris {

using namespace stats;
namespace fs = std::filesystem;

std::vector<float> RangsSpearman(const std::vector<long long>& comptes) {
    std::vector<std::size_t> ordre(comptes.size());
    std::iota(ordre.begin(), ordre.end(), 0);
    std::stable_sort(ordre.begin(), ordre.end(), [&](std::size_t a, std::size_t b) { return comptes[a] > comptes[b]; });
    std::vector<float> rangs(comptes.size());
    for (std::size_t i = 0; i < ordre.size();) {
        std::size_t j = i;
        while (j + 1 < ordre.size() && comptes[ordre[j + 1]] == comptes[ordre[i]]) ++j;
        const float premier = static_cast<float>(i + 1), dernier = static_cast<float>(j + 1);
        const float rang = premier + (dernier - premier) / 2.0f;
        for (std::size_t k = i; k <= j; ++k) rangs[ordre[k]] = rang;
        i = j + 1;
    }
    return rangs;
}

ResultatSpearman Spearman(const std::vector<std::pair<std::string, long long>>& liste1,
                          const std::vector<std::pair<std::string, long long>>& liste2) {
    if (liste1.size() != liste2.size())
        throw ErreurExecution(Joindre("Les deux listes n'ont pas le même nombre d'items ("_cp,
                                      std::to_string(liste1.size()), " et "_cp, std::to_string(liste2.size()), ")"));
    std::vector<long long> c1, c2;
    for (const auto& l : liste1) c1.push_back(l.second);
    for (const auto& l : liste2) c2.push_back(l.second);
    const auto r1 = RangsSpearman(c1), r2 = RangsSpearman(c2);
    std::unordered_map<std::string, std::size_t> position2;
    for (std::size_t i = 0; i < liste2.size(); ++i) position2.emplace(liste2[i].first, i);
    double somme = 0;
    for (std::size_t i = 0; i < liste1.size(); ++i) {
        const auto it = position2.find(liste1[i].first);
        if (it == position2.end())
            throw ErreurExecution(Joindre("Item absent de la deuxième liste : « "_cp, liste1[i].first, " »"_cp));
        const double d = static_cast<double>(r1[i]) - static_cast<double>(r2[it->second]);
        somme += d * d;
    }
    const double n = static_cast<double>(liste1.size());
    ResultatSpearman r;
    r.denominateur = n * (n * n - 1) / 3;
    r.q = Diviser(somme, r.denominateur, "N(N² - 1) / 3 est nul (moins de deux items)"_cp);
    r.deuxQ = 2 * r.q;
    r.rho = 1 - 2 * r.q;
    return r;
}

void OperationSpearman(Contexte& ctx) {
    Dialogue& d = ctx.dialogue;
    const auto fichier = DemanderFichier(d, "liste ?");
    if (!fichier) return;
    // One line a rank: item and count of the first list, then item and count of the second.
    std::vector<std::pair<std::string, long long>> l1, l2;
    const std::string contenu = LireFichier(*fichier);
    LecteurLignes lecteur(contenu);
    std::string_view ligne;
    while (lecteur.Suivante(ligne)) {
        if (ligne.empty()) continue;
        const auto champs = Decouper(ligne, "\t");
        const auto ou = [&] { return Joindre(TexteChemin(*fichier), ", ligne "_cp, std::to_string(lecteur.Numero())); };
        if (champs.size() < 4)
            throw ErreurExecution(Joindre("Ligne sans les deux listes (item, effectif, item, effectif) : « "_cp, ligne,
                                          " » ("_cp, ou(), ")"));
        l1.emplace_back(std::string(champs[0]), LireEntierOu(champs[1], ou));
        l2.emplace_back(std::string(champs[2]), LireEntierOu(champs[3], ou));
    }
    const ResultatSpearman r = Spearman(l1, l2);
    EcrivainFichier sortie(fichier->parent_path() / "_SPEARMAN.txt");
    sortie.Ligne(FormaterDouble(r.denominateur));
    sortie.Ligne(FormaterDouble(r.q));
    sortie.Ligne(FormaterDouble(r.deuxQ));
    sortie.Ligne(FormaterDouble(r.rho));
    sortie.Fermer();
    d.Afficher("Terminé"_cp);
}

void OperationChiDeux(Contexte& ctx) {
    Dialogue& d = ctx.dialogue;
    const auto fichier = DemanderFichier(d, "matrice ?");
    if (!fichier) return;
    const Matrice m = LireMatrice(*fichier, MAX_LIGNES_CHI_DEUX, std::size_t(-1));
    const std::size_t nl = m.lignes.size(), nc = m.colonnes.size();
    std::vector<double> r(nl, 0), c(nc, 0);
    double t = 0;
    for (std::size_t i = 0; i < nl; ++i)
        for (std::size_t j = 0; j < nc; ++j) {
            r[i] += m.cellules[i][j];
            c[j] += m.cellules[i][j];
            t += m.cellules[i][j];
        }
    const fs::path dossier = fichier->parent_path();
    {
        EcrivainMatrice sortie(dossier / "CHI-DEUX.txt", m.colonnes);
        double chi2 = 0;
        for (std::size_t i = 0; i < nl; ++i) {
            sortie.DebutLigne(m.lignes[i]);
            for (std::size_t j = 0; j < nc; ++j) {
                const double e = t == 0 ? 0 : c[j] * r[i] / t;
                double v = 0;
                if (e != 0) {
                    v = (m.cellules[i][j] - e) / std::sqrt(e);
                    chi2 += v * v;
                }
                sortie.Cellule(FormaterDouble(v));
            }
            sortie.FinLigne();
        }
        sortie.DebutLigne("CHI-DEUX");
        sortie.Cellule(FormaterDouble(chi2));
        sortie.FinLigne();
        sortie.Fermer();
    }
    // Pairs of rows: the two rows as a 2 x columns table of their own.
    std::vector<double> paires(nl * nl, 0);
    EcrivainFichier liste(dossier / "CHI-DEUX-PAIRES.txt");
    const std::string ddl = std::to_string(static_cast<long long>(nc) - 1);
    for (std::size_t i = 0; i < nl; ++i) {
        if (i + 1 >= nl) break;
        for (std::size_t k = i + 1; k < nl; ++k) {
            const double somme = r[i] + r[k];
            double chi2 = 0;
            if (somme != 0) {
                const double pi = r[i] / somme, pk = r[k] / somme;
                for (std::size_t j = 0; j < nc; ++j) {
                    const double a = m.cellules[i][j], b = m.cellules[k][j], s = a + b;
                    const double ei = s * pi, ek = s * pk;
                    if (ei > 0) chi2 += (a - ei) * (a - ei) / ei;
                    if (ek > 0) chi2 += (b - ek) * (b - ek) / ek;
                }
            }
            paires[i * nl + k] = paires[k * nl + i] = chi2;
            liste.Ligne(Joindre(m.lignes[i], "\t", m.lignes[k], "\t", FormaterDouble(chi2), "\t", ddl));
        }
        liste.Ligne(kSeparateurPaires);
    }
    liste.Fermer();
    EcrivainMatrice carre(dossier / "CHI-DEUX-PAIRES_TAB.txt", m.lignes);
    for (std::size_t i = 0; i < nl; ++i) {
        carre.DebutLigne(m.lignes[i]);
        for (std::size_t k = 0; k < nl; ++k) carre.Cellule(FormaterDouble(paires[i * nl + k]));
        carre.FinLigne();
    }
    carre.Fermer();
    d.Afficher("Terminé"_cp);
}

std::vector<LigneBinomiale> TableBinomiale(int n, double p) {
    if (n < 0 || n > MAX_EMPAN_BINOMIALE)
        LimiteDepassee("MAX_EMPAN_BINOMIALE", MAX_EMPAN_BINOMIALE, Joindre("pour l'empan ("_cp, std::to_string(n), ")"));
    if (!(p >= 0 && p <= 1))
        throw ErreurExecution(Joindre("Probabilité hors de l'intervalle de 0 à 1 : "_cp, FormaterDouble(p)));
    std::vector<LigneBinomiale> table(static_cast<std::size_t>(n) + 1);
    const double lp = std::log(p), lq = std::log1p(-p);
    const double lfn = std::lgamma(n + 1.0);
    for (int k = 0; k <= n; ++k) {
        double v;
        if (p == 0) v = k == 0 ? 1 : 0;
        else if (p == 1) v = k == n ? 1 : 0;
        else v = std::exp(lfn - std::lgamma(k + 1.0) - std::lgamma(n - k + 1.0) + k * lp + (n - k) * lq);
        table[static_cast<std::size_t>(k)].probabilite = v;
    }
    double queue = 0;
    for (int k = n; k >= 0; --k) {
        queue += table[static_cast<std::size_t>(k)].probabilite;
        table[static_cast<std::size_t>(k)].queue = std::min(queue, 1.0);
    }
    return table;
}

namespace {

void Binomiale(Contexte& ctx) {
    Dialogue& d = ctx.dialogue;
    const long long n = DemanderEntier(d, "Empan ?", "", "");
    const double p = DemanderNombre(d, "Probabilité ?"_cp, "", "");
    if (n < 0 || n > MAX_EMPAN_BINOMIALE)
        LimiteDepassee("MAX_EMPAN_BINOMIALE", MAX_EMPAN_BINOMIALE, Joindre("pour l'empan ("_cp, std::to_string(n), ")"));
    const auto table = TableBinomiale(static_cast<int>(n), p);
    std::string texte = "k\tP(k)\tP(>= k)\r\n";
    for (std::size_t k = 0; k < table.size(); ++k)
        texte += Joindre(std::to_string(k), "\t", FormaterDouble(table[k].probabilite), "\t",
                         FormaterDouble(table[k].queue), "\r\n");
    d.Resultat(texte);
}

}  // namespace

void OperationBinomialeEssai(Contexte& ctx) { Binomiale(ctx); }
void OperationBinomialeEtendue(Contexte& ctx) { Binomiale(ctx); }

}  // namespace telvoris
