// Numbers as the solver reads them from a matrix and writes them in its result files.
#pragma once

#include <string>
#include <string_view>

namespace axisolve {

// A cell: digits, with at most one decimal point or comma, an optional leading sign. Returns false
// on anything else (exponents, blanks, a second separator, an empty cell). `negatif` is set for a
// leading minus, "-0" included, so that the caller can name the value as negative.
bool LireCellule(std::string_view t, double& v, bool& negatif);

// A number with a decimal point, 12 significant digits (far beyond what the maps use, and short of
// the last digits where rounding noise lies), never in exponent form: "0.25", "-1.5", "3", "0".
// Writes into `sortie`, which holds TAILLE_NOMBRE characters, and returns the number written.
inline constexpr std::size_t TAILLE_NOMBRE = 400;
std::size_t FormaterPoint(double x, char* sortie);
std::string FormaterPoint(double x);

}  // namespace axisolve
