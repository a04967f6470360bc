#include "core/nombres.hpp"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace telvoris {

double Round(double x, int decimales) {
    if (!std::isfinite(x) || decimales < 0 || decimales > 15) return x;
    // The decimal value: the shortest text of 17 significant digits that is then read at 15,
    // so that 2.675 (stored as 2.67499999...) is the decimal 2.675.
    char b[64];
    std::snprintf(b, sizeof b, "%.14e", x);
    // b = "-d.dddddddddddddde+XX"
    std::string s(b);
    const bool negatif = s[0] == '-';
    if (negatif) s.erase(0, 1);
    const std::size_t e = s.find('e');
    const int exposant = std::atoi(s.c_str() + e + 1);
    std::string chiffres = s.substr(0, 1) + s.substr(2, e - 2);  // 15 digits
    // Digit at index i has weight 10^(exposant - i). Keep digits with weight >= 10^-decimales.
    const int garder = exposant + decimales + 1;  // number of digits kept
    if (garder >= static_cast<int>(chiffres.size())) return x;
    if (garder < 0) return negatif ? -0.0 : 0.0;
    std::string tete = chiffres.substr(0, static_cast<std::size_t>(garder));
    const std::string queue = chiffres.substr(static_cast<std::size_t>(garder));
    int comparaison;  // queue compared with one half
    if (queue[0] > '5') comparaison = 1;
    else if (queue[0] < '5') comparaison = -1;
    else comparaison = queue.find_first_not_of('0', 1) == std::string::npos ? 0 : 1;
    const bool pair = tete.empty() || ((tete.back() - '0') % 2 == 0);
    const bool monter = comparaison > 0 || (comparaison == 0 && !pair);
    // The value of tete as an integer, times 10^-decimales.
    double entier = tete.empty() ? 0.0 : std::strtod(tete.c_str(), nullptr);
    if (monter) entier += 1.0;
    char r[64];
    std::snprintf(r, sizeof r, "%.0fe-%d", entier, decimales);
    const double v = std::strtod(r, nullptr);
    return negatif ? -v : v;
}

namespace {

std::string Formater(double x, int chiffres) {
    if (x == 0.0) return "0";
    char b[64];
    std::snprintf(b, sizeof b, "%.*G", chiffres, x);
    std::string s(b);
    for (char& c : s)
        if (c == '.') c = ',';
    return s;
}

}  // namespace

std::string FormaterDouble(double x) { return Formater(x, 15); }
std::string FormaterSingle(float x) { return Formater(static_cast<double>(x), 7); }

}  // namespace telvoris
