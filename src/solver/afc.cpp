#include "solver/afc.hpp"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <functional>
#include <vector>

#include "solver/propres.hpp"

namespace axisolve {

namespace {

using Eigen::Index;

std::string Nombre(long long n) { return std::to_string(n); }

// Column sums and squared norms are gathered over this many fixed slices of rows, each summed in
// row order and the slices then added in order: the same result whatever the number of threads.
constexpr Index TRANCHES = 16;

template <typename F>
Eigen::VectorXd SommeParTranches(Index n, Index p, F&& ajouterLigne) {
    std::vector<Eigen::VectorXd> partielles(TRANCHES, Eigen::VectorXd::Zero(p));
#pragma omp parallel for schedule(dynamic, 1)
    for (Index t = 0; t < TRANCHES; ++t)
        for (Index i = n * t / TRANCHES; i < n * (t + 1) / TRANCHES; ++i) ajouterLigne(i, partielles[t]);
    Eigen::VectorXd somme = Eigen::VectorXd::Zero(p);
    for (const auto& v : partielles) somme += v;
    return somme;
}

}  // namespace

Resultat AnalyserEnPlace(Matrice& m, int maxFacteurs) {
    TableauLignes& x = m.n;
    const Index n = x.rows(), p = x.cols();
    if (n < 2 || p < 2)
        throw ErreurSolveur("Matrice dégénérée : il faut au moins deux lignes et deux colonnes (" + Nombre(n) +
                            " x " + Nombre(p) + ").");
    const Eigen::VectorXd sommesLignes = x.rowwise().sum();
    const Eigen::VectorXd sommesColonnes =
        SommeParTranches(n, p, [&x](Index i, Eigen::VectorXd& s) { s += x.row(i).transpose(); });
    for (Index i = 0; i < n; ++i)
        if (!(sommesLignes(i) > 0))
            throw ErreurSolveur("Matrice dégénérée : la ligne " + Nombre(i + 1) + " (« " + m.lignes[i] +
                                " ») totalise zéro.");
    for (Index j = 0; j < p; ++j)
        if (!(sommesColonnes(j) > 0))
            throw ErreurSolveur("Matrice dégénérée : la colonne " + Nombre(j + 1) + " (« " + m.colonnes[j] +
                                " ») totalise zéro.");
    const double total = sommesLignes.sum();
    // Cells that each fit can still sum past the largest number: said as such, not as a
    // degenerate matrix.
    if (!std::isfinite(total) || !sommesColonnes.allFinite())
        throw ErreurSolveur("Débordement : la somme des cellules de la matrice dépasse le plus grand nombre "
                            "représentable (environ 1,8e308) ; réduisez les valeurs de la matrice.");
    const Eigen::VectorXd r = sommesLignes / total;
    const Eigen::VectorXd c = sommesColonnes / total;
    const Eigen::VectorXd rRac = r.cwiseSqrt();
    const Eigen::RowVectorXd cRac = c.cwiseSqrt().transpose(), cLigne = c.transpose();

    // Standardised residuals (p_ij - r_i c_j) / sqrt(r_i c_j), in place of the cells.
    Resultat res;
    res.dist2Lignes.resize(n);
#pragma omp parallel for schedule(static)
    for (Index i = 0; i < n; ++i) {
        auto ligne = x.row(i);
        ligne = ((ligne / total - r(i) * cLigne) / rRac(i)).cwiseQuotient(cRac);
        res.dist2Lignes(i) = ligne.squaredNorm();
    }
    res.inertie = res.dist2Lignes.sum();
    res.dist2Lignes = res.dist2Lignes.cwiseQuotient(r);
    res.dist2Colonnes = SommeParTranches(n, p, [&x](Index i, Eigen::VectorXd& s) {
                            s += x.row(i).transpose().cwiseAbs2();
                        }).cwiseQuotient(c);
    if (!(res.inertie > 1e-20))
        throw ErreurSolveur("Matrice dégénérée : inertie nulle, toutes les lignes ont le même profil ; aucun facteur.");

    // The eigenproblem of the smaller side's cross-product: at most 2,000 x 2,000 for the largest
    // matrices; only the vectors of the kept factors are computed.
    const bool colonnesPetites = p <= n;
    const Index q = colonnesPetites ? p : n;
    Eigen::MatrixXd croise = ProduitCroise(x, colonnesPetites);
    const ElementsPropres propres(croise);
    const Eigen::VectorXd& lambdas = propres.Valeurs();  // increasing
    const double lmax = lambdas(q - 1);
    const double seuil = std::max(lmax * 1e-11, 1e-20);
    Index nonTriviaux = 0;
    for (Index k = q - 1; k >= 0 && lambdas(k) > seuil; --k) ++nonTriviaux;
    if (nonTriviaux == 0)
        throw ErreurSolveur("Matrice dégénérée : inertie nulle, toutes les lignes ont le même profil ; aucun facteur.");
    res.facteursNonTriviaux = static_cast<int>(nonTriviaux);
    const Index k = maxFacteurs > 0 ? std::min<Index>(nonTriviaux, maxFacteurs) : nonTriviaux;

    res.valeurs.resize(k);
    for (Index f = 0; f < k; ++f) res.valeurs(f) = lambdas(q - 1 - f);
    const Eigen::MatrixXd vecteurs = propres.Vecteurs(k);
    croise.resize(0, 0);
    const Eigen::VectorXd racines = res.valeurs.cwiseSqrt();
    if (colonnesPetites) {
        res.coordColonnes = cRac.transpose().cwiseInverse().asDiagonal() * vecteurs * racines.asDiagonal();
        res.coordLignes.noalias() = x * vecteurs;
        res.coordLignes = rRac.cwiseInverse().asDiagonal() * res.coordLignes;
    } else {
        res.coordLignes = rRac.cwiseInverse().asDiagonal() * vecteurs * racines.asDiagonal();
        res.coordColonnes.noalias() = x.transpose() * vecteurs;
        res.coordColonnes = cRac.transpose().cwiseInverse().asDiagonal() * res.coordColonnes;
    }
    x.resize(0, 0);

    for (Index f = 0; f < k; ++f) {
        // The first column coordinate of largest magnitude, allowing for rounding between equals.
        const double grand = res.coordColonnes.col(f).cwiseAbs().maxCoeff();
        Index j = 0;
        while (std::abs(res.coordColonnes(j, f)) < grand * (1 - 1e-9)) ++j;
        if (res.coordColonnes(j, f) < 0) {
            res.coordColonnes.col(f) *= -1;
            res.coordLignes.col(f) *= -1;
        }
    }

    // Rounding leaves values of about 1e-17 where the exact result is 0 (an item at the centroid,
    // on an axis of symmetry); they are written as 0 rather than as long strings of noise.
    auto nettoyer = [](auto&& v) {
        const double seuil = v.cwiseAbs().maxCoeff() * 1e-13;
        for (Index i = 0; i < v.size(); ++i)
            if (std::abs(v(i)) <= seuil) v(i) = 0;
    };
    for (Index f = 0; f < k; ++f) {
        nettoyer(res.coordLignes.col(f));
        nettoyer(res.coordColonnes.col(f));
    }
    nettoyer(res.dist2Lignes);
    nettoyer(res.dist2Colonnes);

    res.contribLignes = r.asDiagonal() * res.coordLignes.cwiseAbs2() * res.valeurs.cwiseInverse().asDiagonal();
    res.contribColonnes = c.asDiagonal() * res.coordColonnes.cwiseAbs2() * res.valeurs.cwiseInverse().asDiagonal();
    // An item whose profile is the centroid has no direction: its squared cosines are 0.
    auto inverseOuZero = [](const Eigen::VectorXd& d) {
        Eigen::VectorXd v(d.size());
        for (Index i = 0; i < d.size(); ++i) v(i) = d(i) > 0 ? 1 / d(i) : 0;
        return v;
    };
    res.cos2Lignes = inverseOuZero(res.dist2Lignes).asDiagonal() * res.coordLignes.cwiseAbs2();
    res.cos2Colonnes = inverseOuZero(res.dist2Colonnes).asDiagonal() * res.coordColonnes.cwiseAbs2();
    return res;
}

namespace {

// A result file written through a buffer under a temporary name, renamed when complete; removed
// if it is left unfinished.
class FichierResultat {
public:
    explicit FichierResultat(const std::string& chemin) : chemin_(chemin), provisoire_(chemin + ".partiel") {
        f_ = std::fopen(provisoire_.c_str(), "wb");
        if (!f_) throw ErreurSolveur("Écriture impossible : " + chemin_);
        tampon_.resize(1 << 20);
    }
    ~FichierResultat() {
        if (f_) {
            std::fclose(f_);
            std::remove(provisoire_.c_str());
        }
    }
    FichierResultat(const FichierResultat&) = delete;
    FichierResultat& operator=(const FichierResultat&) = delete;

    void Texte(std::string_view t) {
        if (plein_ + t.size() > tampon_.size()) Vider();
        if (t.size() > tampon_.size()) {
            Ecrire(t.data(), t.size());
            return;
        }
        std::copy(t.begin(), t.end(), tampon_.data() + plein_);
        plein_ += t.size();
    }
    void Nombre(double v) {
        if (plein_ + TAILLE_NOMBRE > tampon_.size()) Vider();
        plein_ += FormaterPoint(v, tampon_.data() + plein_);
    }
    void Fermer() {
        Vider();
        std::FILE* f = f_;
        f_ = nullptr;
        if (std::fclose(f) != 0) {
            std::remove(provisoire_.c_str());
            throw ErreurSolveur("Écriture impossible : " + chemin_);
        }
        std::error_code ec;
        std::filesystem::rename(provisoire_, chemin_, ec);
        if (ec) throw ErreurSolveur("Écriture impossible : " + chemin_ + " (" + ec.message() + ")");
    }

private:
    void Vider() {
        Ecrire(tampon_.data(), plein_);
        plein_ = 0;
    }
    void Ecrire(const char* d, std::size_t n) {
        if (n > 0 && std::fwrite(d, 1, n, f_) != n) throw ErreurSolveur("Écriture impossible : " + chemin_);
    }

    std::string chemin_, provisoire_;
    std::FILE* f_ = nullptr;
    std::vector<char> tampon_;
    std::size_t plein_ = 0;
};

void EnTete(FichierResultat& f, std::string_view quoi, Index k) {
    f.Texte(quoi);
    for (Index c = 1; c <= k; ++c) {
        f.Texte("\tF");
        f.Texte(std::to_string(c));
    }
    f.Texte("\r\n");
}

void EcrireItems(const std::string& chemin, std::string_view quoi, const std::vector<std::string>& noms,
                 const Eigen::MatrixXd& valeurs) {
    FichierResultat f(chemin);
    EnTete(f, quoi, valeurs.cols());
    for (Index i = 0; i < valeurs.rows(); ++i) {
        f.Texte(noms[static_cast<std::size_t>(i)]);
        for (Index c = 0; c < valeurs.cols(); ++c) {
            f.Texte("\t");
            f.Nombre(valeurs(i, c));
        }
        f.Texte("\r\n");
    }
    f.Fermer();
}

// The distance does not depend on the factor; it is repeated in each factor's field, so that the
// file has the shape of the others and is reordered with them.
void EcrireDistances(const std::string& chemin, std::string_view quoi, const std::vector<std::string>& noms,
                     const Eigen::VectorXd& d, Index k) {
    FichierResultat f(chemin);
    EnTete(f, quoi, k);
    char nombre[TAILLE_NOMBRE + 1];
    nombre[0] = '\t';
    for (Index i = 0; i < d.size(); ++i) {
        f.Texte(noms[static_cast<std::size_t>(i)]);
        const std::string_view champ(nombre, 1 + FormaterPoint(d(i), nombre + 1));
        for (Index c = 0; c < k; ++c) f.Texte(champ);
        f.Texte("\r\n");
    }
    f.Fermer();
}

void EcrireValeurs(const std::string& chemin, const Resultat& r) {
    FichierResultat f(chemin);
    f.Texte("facteur\tvaleur_propre\tpourcentage\tpourcentage_cumule\r\n");
    double cumul = 0;
    for (Index c = 0; c < r.valeurs.size(); ++c) {
        const double pct = 100 * r.valeurs(c) / r.inertie;
        cumul += pct;
        f.Texte(std::to_string(c + 1));
        f.Texte("\t");
        f.Nombre(r.valeurs(c));
        f.Texte("\t");
        f.Nombre(pct);
        f.Texte("\t");
        f.Nombre(cumul);
        f.Texte("\r\n");
    }
    f.Fermer();
}

}  // namespace

void EcrireResultats(const Matrice& m, const Resultat& r, const Sorties& s) {
    const Index k = r.valeurs.size();
    // In the order of the messages; the row files, the largest, are started first.
    const std::vector<std::function<void()>> travaux = {
        [&] { EcrireValeurs(s.eigen, r); },
        [&] { EcrireItems(s.rcoor, "lignes_coordonnees", m.lignes, r.coordLignes); },
        [&] { EcrireItems(s.rcontrib, "lignes_contributions", m.lignes, r.contribLignes); },
        [&] { EcrireItems(s.rcos2, "lignes_cos2", m.lignes, r.cos2Lignes); },
        [&] { EcrireDistances(s.rdisto, "lignes_distances_carrees", m.lignes, r.dist2Lignes, k); },
        [&] { EcrireItems(s.ccoor, "colonnes_coordonnees", m.colonnes, r.coordColonnes); },
        [&] { EcrireItems(s.ccontrib, "colonnes_contributions", m.colonnes, r.contribColonnes); },
        [&] { EcrireItems(s.ccos2, "colonnes_cos2", m.colonnes, r.cos2Colonnes); },
        [&] { EcrireDistances(s.cdisto, "colonnes_distances_carrees", m.colonnes, r.dist2Colonnes, k); },
    };
    const int ordre[] = {1, 2, 3, 4, 5, 6, 7, 8, 0};
    std::vector<std::exception_ptr> erreurs(travaux.size());
#pragma omp parallel for schedule(dynamic, 1)
    for (int t = 0; t < 9; ++t) {
        const int j = ordre[t];
        try {
            travaux[static_cast<std::size_t>(j)]();
        } catch (...) {
            erreurs[static_cast<std::size_t>(j)] = std::current_exception();
        }
    }
    for (const auto& e : erreurs)
        if (e) std::rethrow_exception(e);
}

}  // namespace axisolve
