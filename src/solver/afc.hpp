// The correspondence analysis computed by axisolve: reading a matrix text file, the factorial
// computation on the smaller side's cross-product, and the nine result files.
#pragma once

#include <Eigen/Dense>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace axisolve {

// A malformed or degenerate matrix, a file that cannot be read or written: the message says which
// and where (UTF-8 for the terminal; item names are quoted as bytes).
class ErreurSolveur : public std::runtime_error {
public:
    explicit ErreurSolveur(const std::string& message) : std::runtime_error(message) {}
};

struct Matrice {
    std::vector<std::string> lignes;    // row names, as bytes
    std::vector<std::string> colonnes;  // column names, as bytes
    Eigen::MatrixXd n;                  // cells, lignes.size() x colonnes.size()
};

// Reads a matrix text file's content: line 1 a corner (text up to its first tab) then the column
// names behind tabs; each further line a row name and one cell per column behind a tab. Cells are
// non-negative numbers (decimal point or comma). Empty lines at the end are ignored. `source`
// names the file in messages.
Matrice LireMatrice(std::string_view texte, std::string_view source);
Matrice LireFichierMatrice(const std::string& chemin);

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
Resultat Analyser(const Matrice& m, int maxFacteurs = FACTEURS_PAR_DEFAUT);

// A number with a decimal point, 12 significant digits (far beyond what the maps use, and short of
// the last digits where rounding noise lies), never in exponent form.
std::string FormaterPoint(double x);

struct Sorties {
    std::string eigen, rcoor, rcontrib, rcos2, rdisto, ccoor, ccontrib, ccos2, cdisto;
};

// Writes the nine files: a header line, then eigen.txt one line per factor (number, eigenvalue,
// percentage of inertia, cumulated percentage), the others one line per item (name, one field per
// factor). Each file is written whole under a temporary name and then renamed, so a reader never
// sees a half-written file.
void EcrireResultats(const Matrice& m, const Resultat& r, const Sorties& s);

}  // namespace axisolve
