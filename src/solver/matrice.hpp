// The matrix text file as the solver reads it: line 1 a corner (text up to its first tab) then the
// column names behind tabs; each further line a row name and one cell per column behind a tab.
#pragma once

#include <Eigen/Core>
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

// Rows are stored one after the other, as the file gives them, so that reading fills the memory in
// order and the analysis works on each row in place.
using TableauLignes = Eigen::Matrix<double, Eigen::Dynamic, Eigen::Dynamic, Eigen::RowMajor>;

struct Matrice {
    std::vector<std::string> lignes;    // row names, as bytes
    std::vector<std::string> colonnes;  // column names, as bytes
    TableauLignes n;                    // cells, lignes.size() x colonnes.size()
};

// Cells are non-negative numbers (decimal point or comma). Empty lines at the end are ignored;
// an empty line before a row is a row without cells. `source` names the file in messages.
// The text is read twice: once to count the rows, then into a table of that exact size, so that
// the cells take no more room than their own.
Matrice LireMatrice(std::string_view texte, std::string_view source);
// The same from a file, read by blocks: the file's text is never held whole.
Matrice LireFichierMatrice(const std::string& chemin);

}  // namespace axisolve
