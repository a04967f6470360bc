// Numbers as the files of the system write them: rounding to nearest with ties to even on the
// decimal value, and the French text of a double or a single.
#pragma once

#include <string>

namespace telvoris {

// Rounds to `decimales` places, ties to even, on the number's decimal value (0,125 -> 0,12;
// 2,675 -> 2,68 since its decimal value is a tie).
double Round(double x, int decimales = 0);

// Up to 15 significant digits, no trailing zeros, decimal comma, exponent form for very large or
// small numbers ("-0,25", "3", "12,5", "1E-05", "1E+15").
std::string FormaterDouble(double x);
// The same with 7 significant digits.
std::string FormaterSingle(float x);

}  // namespace telvoris
