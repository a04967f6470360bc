#include "solver/propres.hpp"

#include <Eigen/Eigenvalues>
#include <algorithm>
#include <cmath>
#include <exception>
#include <limits>
#include <utility>
#include <vector>

namespace axisolve {

namespace {

using Eigen::Index;

// Tiles of 256: a 2,000-column table gives 36 tiles, enough to keep two cores busy to the end,
// each large enough for the matrix product's own blocking.
constexpr Index TUILE = 256;
// Up to this size the full decomposition costs less than a millisecond.
constexpr Index PETITE = 64;

template <typename Source>
void ProduitParTuiles(const Source& a, Eigen::MatrixXd& g) {
    const Index q = a.rows();
    const Index nb = (q + TUILE - 1) / TUILE;
    std::vector<std::pair<Index, Index>> tuiles;
    // Off-diagonal tiles cost twice a diagonal one: they go first, the small ones fill the end.
    for (Index i = 0; i < nb; ++i)
        for (Index j = 0; j < i; ++j) tuiles.emplace_back(i, j);
    for (Index i = 0; i < nb; ++i) tuiles.emplace_back(i, i);
    std::exception_ptr erreur;
#pragma omp parallel for schedule(dynamic, 1)
    for (std::size_t t = 0; t < tuiles.size(); ++t) {
        try {
            const auto [i, j] = tuiles[t];
            const Index di = i * TUILE, ni = std::min(TUILE, q - di);
            const Index dj = j * TUILE, nj = std::min(TUILE, q - dj);
            if (i == j)
                g.block(di, di, ni, ni).selfadjointView<Eigen::Lower>().rankUpdate(a.middleRows(di, ni));
            else
                g.block(di, dj, ni, nj).noalias() = a.middleRows(di, ni) * a.middleRows(dj, nj).transpose();
        } catch (...) {
#pragma omp critical
            if (!erreur) erreur = std::current_exception();
        }
    }
    if (erreur) std::rethrow_exception(erreur);
}

// Gaussian elimination with row interchanges of the tridiagonal T - lambda I, and the solutions
// of its systems. A pivot too small to divide by is replaced by a tolerance of the matrix's scale,
// as inverse iteration expects: the near-singularity is what makes the eigenvector stand out.
class FacteursTridiagonaux {
public:
    FacteursTridiagonaux(const Eigen::VectorXd& d, const Eigen::VectorXd& e, double lambda, double tolerance)
        : u0_(d.size()), u1_(d.size()), u2_(d.size()), l_(d.size()), echange_(d.size(), 0) {
        const Index q = d.size();
        double x0 = d(0) - lambda, x1 = q > 1 ? e(0) : 0, x2 = 0;
        for (Index i = 0; i + 1 < q; ++i) {
            const double sous = e(i), diag = d(i + 1) - lambda, sur = i + 2 < q ? e(i + 1) : 0;
            if (std::abs(x0) >= std::abs(sous)) {
                const double m = x0 != 0 ? sous / x0 : 0;
                u0_(i) = x0, u1_(i) = x1, u2_(i) = x2, l_(i) = m;
                x0 = diag - m * x1, x1 = sur - m * x2, x2 = 0;
            } else {
                const double m = x0 / sous;
                echange_[static_cast<std::size_t>(i)] = 1;
                u0_(i) = sous, u1_(i) = diag, u2_(i) = sur, l_(i) = m;
                x0 = x1 - m * diag, x1 = x2 - m * sur, x2 = 0;
            }
        }
        u0_(q - 1) = x0;
        for (Index i = 0; i < q; ++i)
            if (std::abs(u0_(i)) < tolerance) u0_(i) = u0_(i) < 0 ? -tolerance : tolerance;
    }

    // Solves in place.
    void Resoudre(Eigen::VectorXd& b) const {
        const Index q = b.size();
        for (Index i = 0; i + 1 < q; ++i) {
            if (echange_[static_cast<std::size_t>(i)]) std::swap(b(i), b(i + 1));
            b(i + 1) -= l_(i) * b(i);
        }
        for (Index i = q - 1; i >= 0; --i) {
            double s = b(i);
            if (i + 1 < q) s -= u1_(i) * b(i + 1);
            if (i + 2 < q) s -= u2_(i) * b(i + 2);
            b(i) = s / u0_(i);
        }
    }

private:
    Eigen::VectorXd u0_, u1_, u2_, l_;
    std::vector<char> echange_;
};

}  // namespace

Eigen::MatrixXd ProduitCroise(const TableauLignes& x, bool colonnes) {
    const Index q = colonnes ? x.cols() : x.rows();
    Eigen::MatrixXd g = Eigen::MatrixXd::Zero(q, q);
    if (colonnes) ProduitParTuiles(x.transpose(), g);
    else ProduitParTuiles(x, g);
    return g;
}

ElementsPropres::ElementsPropres(Eigen::MatrixXd& g) : reduite_(g) {
    const Index q = g.rows();
    if (q <= PETITE) {
        Eigen::SelfAdjointEigenSolver<Eigen::MatrixXd> es(g);
        if (es.info() != Eigen::Success) throw ErreurSolveur("Échec du calcul des valeurs propres.");
        valeurs_ = es.eigenvalues();
        tous_ = es.eigenvectors();
        return;
    }
    // Brought to [-1, 1] first, against overflow and underflow, as a full decomposition does.
    g.triangularView<Eigen::StrictlyUpper>().setZero();
    echelle_ = g.cwiseAbs().maxCoeff();
    if (echelle_ == 0) echelle_ = 1;
    g.triangularView<Eigen::Lower>() /= echelle_;
    householder_.resize(q > 1 ? q - 1 : 0);
    if (q > 1) Eigen::internal::tridiagonalization_inplace(g, householder_);
    diagonale_ = g.diagonal();
    sousDiagonale_ = q > 1 ? Eigen::VectorXd(g.diagonal<-1>()) : Eigen::VectorXd();
    Eigen::SelfAdjointEigenSolver<Eigen::MatrixXd> es;
    es.computeFromTridiagonal(diagonale_, sousDiagonale_, Eigen::EigenvaluesOnly);
    if (es.info() != Eigen::Success) throw ErreurSolveur("Échec du calcul des valeurs propres.");
    valeurs_ = es.eigenvalues() * echelle_;
}

Eigen::MatrixXd ElementsPropres::Vecteurs(Index k) const {
    const Index q = valeurs_.size();
    k = std::min(k, q);
    Eigen::MatrixXd z(q, k);
    if (tous_.size() > 0) {
        for (Index f = 0; f < k; ++f) z.col(f) = tous_.col(q - 1 - f);
        return z;
    }
    if (k == 0) return z;
    const double eps = std::numeric_limits<double>::epsilon();
    double norme = 0;  // the 1-norm of the tridiagonal matrix
    for (Index i = 0; i < q; ++i)
        norme = std::max(norme, std::abs(diagonale_(i)) + (i > 0 ? std::abs(sousDiagonale_(i - 1)) : 0) +
                                    (i + 1 < q ? std::abs(sousDiagonale_(i)) : 0));
    if (norme == 0) norme = 1;
    // Eigenvalues closer than this form a cluster whose vectors are kept orthogonal to each other.
    const double proches = 1e-3 * norme;
    const double tolerance = eps * norme;
    // A fixed pseudo-random start for each vector, so that runs give the same bytes.
    std::uint64_t graine = 0x9E3779B97F4A7C15ull;
    auto alea = [&graine]() {
        graine = graine * 6364136223846793005ull + 1442695040888963407ull;
        return static_cast<double>(graine >> 11) / 9007199254740992.0 * 2 - 1;
    };
    Index debutGroupe = 0;
    double precedente = 0;
    for (Index f = 0; f < k; ++f) {
        double lambda = valeurs_(q - 1 - f) / echelle_;
        if (f > 0) {
            if (precedente - lambda > proches) debutGroupe = f;
            // Equal eigenvalues would give the same factors: the later one is moved a hair, as
            // inverse iteration requires, the orthogonalisation then finds the other direction.
            const double ecart = 10 * eps * std::abs(lambda);
            if (precedente - lambda < ecart) lambda = precedente - ecart;
        }
        precedente = lambda;
        const FacteursTridiagonaux lu(diagonale_, sousDiagonale_, lambda, tolerance);
        Eigen::VectorXd v(q);
        for (Index i = 0; i < q; ++i) v(i) = alea();
        // One solve is enough for a separated eigenvalue; the others sharpen vectors in a cluster.
        for (int iteration = 0; iteration < 4; ++iteration) {
            lu.Resoudre(v);
            v /= v.cwiseAbs().maxCoeff();
            for (Index g = debutGroupe; g < f; ++g) v -= z.col(g).dot(v) * z.col(g);
            v.normalize();
        }
        Index grand;
        v.cwiseAbs().maxCoeff(&grand);
        if (v(grand) < 0) v = -v;
        z.col(f) = v;
    }
    // Back to the basis of the original matrix.
    if (q > 1) {
        const Eigen::HouseholderSequence<Eigen::MatrixXd, Eigen::VectorXd> qh =
            Eigen::HouseholderSequence<Eigen::MatrixXd, Eigen::VectorXd>(reduite_, householder_)
                .setLength(q - 1)
                .setShift(1);
        z.applyOnTheLeft(qh);
    }
    return z;
}

}  // namespace axisolve
