// The two heavy steps of the analysis, on every core: the cross-product of a table with itself, and
// the leading eigenvectors of that symmetric matrix.
#pragma once

#include <Eigen/Core>

#include "solver/matrice.hpp"

namespace axisolve {

// The lower triangle of the cross-product of the table's columns (x' x, when `colonnes`) or of its
// rows (x x'). The product is cut into tiles computed in parallel; each tile is computed the same
// way whatever the number of threads, so the result does not depend on it.
Eigen::MatrixXd ProduitCroise(const TableauLignes& x, bool colonnes);

// The eigenvalues of a symmetric matrix and the eigenvectors of its largest ones only. The matrix
// is reduced to a tridiagonal one (as a full decomposition would), whose eigenvalues are found
// without vectors; each wanted vector is then found by inverse iteration on the tridiagonal matrix
// (kept orthogonal to its neighbours where eigenvalues are close) and taken back to the original
// basis. This spares the cost of all the vectors, most of the time of a full decomposition.
// A small matrix, where that cost is nothing, gets the full decomposition.
class ElementsPropres {
public:
    // `g`: lower triangle used; it is overwritten by the reduction.
    explicit ElementsPropres(Eigen::MatrixXd& g);
    // Every eigenvalue, increasing.
    const Eigen::VectorXd& Valeurs() const { return valeurs_; }
    // Unit eigenvectors of the k largest eigenvalues, the largest first.
    Eigen::MatrixXd Vecteurs(Eigen::Index k) const;

private:
    Eigen::MatrixXd& reduite_;
    Eigen::VectorXd householder_, diagonale_, sousDiagonale_;
    Eigen::VectorXd valeurs_;  // increasing, of the scaled matrix times the scale
    double echelle_ = 1;
    Eigen::MatrixXd tous_;     // small matrices: every vector, from the full decomposition
};

}  // namespace axisolve
