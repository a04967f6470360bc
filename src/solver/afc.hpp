// The correspondence analysis computed by axisolve: the factorial computation on the smaller
// side's cross-product, and the nine result files.
#pragma once

#include <Eigen/Core>
#include <string>

#include "solver/matrice.hpp"
#include "solver/nombres.hpp"

namespace axisolve {

// Factors kept when the caller does not say: enough for every map, bounded so that the result
// files of a 20,000-row matrix stay small.
inline constexpr int FACTEURS_PAR_DEFAUT = 100;

struct Resultat {
    double inertie = 0;                   // total inertia (phi-squared)
    Eigen::VectorXd valeurs;              // eigenvalues of the kept factors, decreasing
    int facteursNonTriviaux = 0;          // factors with a non-zero eigenvalue, kept or not
    Eigen::MatrixXd coordLignes, coordColonnes;  // principal coordinates, items x factors
    Eigen::MatrixXd contribLignes, contribColonnes;  // shares of each factor's inertia (sum 1)
    Eigen::MatrixXd cos2Lignes, cos2Colonnes;        // squared cosines
    Eigen::VectorXd dist2Lignes, dist2Colonnes;      // squared chi-square distances to the centroid
};

// The analysis. `maxFacteurs` <= 0 keeps every non-trivial factor. Each factor's sign is fixed so
// that its column coordinate of largest magnitude (the first one among equals) is positive.
// A matrix with a zero row or column sum, fewer than two rows or columns, or no inertia is
// degenerate and reported as such.
// The cells are turned into the standardised residuals where they stand and then released, so
// that the largest matrices need no second copy: `m.n` is empty afterwards, the names stay.
Resultat AnalyserEnPlace(Matrice& m, int maxFacteurs = FACTEURS_PAR_DEFAUT);
// The same on a copy.
inline Resultat Analyser(Matrice m, int maxFacteurs = FACTEURS_PAR_DEFAUT) { return AnalyserEnPlace(m, maxFacteurs); }

struct Sorties {
    std::string eigen, rcoor, rcontrib, rcos2, rdisto, ccoor, ccontrib, ccos2, cdisto;
};

// Writes the nine files: a header line, then eigen.txt one line per factor (number, eigenvalue,
// percentage of inertia, cumulated percentage), the others one line per item (name, one field per
// factor). Each file is written by blocks under a temporary name and then renamed, so a reader never
// sees a half-written file. The files are written in parallel; on failure the message names the
// first failing file in the order above.
void EcrireResultats(const Matrice& m, const Resultat& r, const Sorties& s);

}  // namespace axisolve
