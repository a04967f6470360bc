#include "solver/nombres.hpp"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>

namespace axisolve {

bool LireCellule(std::string_view t, double& v, bool& negatif) {
    negatif = false;
    if (t.empty()) return false;
    // Counts are the usual case: a plain integer, converted with one rounding.
    std::uint64_t entier = 0;
    const auto e = std::from_chars(t.data(), t.data() + t.size(), entier);
    if (e.ec == std::errc() && e.ptr == t.data() + t.size()) {
        v = static_cast<double>(entier);
        return true;
    }
    // The general form, copied so that a decimal comma becomes a point.
    std::string grand;
    char court[64];
    char* s = court;
    if (t.size() > sizeof court) {
        grand.assign(t);
        s = grand.data();
    } else {
        std::memcpy(court, t.data(), t.size());
    }
    const std::size_t taille = t.size();
    if (s[0] == '-') negatif = true;
    bool separateur = false, chiffre = false;
    for (std::size_t k = (s[0] == '-' || s[0] == '+') ? 1 : 0; k < taille; ++k) {
        char& c = s[k];
        if (c >= '0' && c <= '9') chiffre = true;
        else if ((c == '.' || c == ',') && !separateur) { separateur = true; c = '.'; }
        else return false;
    }
    if (!chiffre) return false;
    const char* debut = s + (s[0] == '+' ? 1 : 0);
    const auto r = std::from_chars(debut, s + taille, v);
    if (r.ec != std::errc() || r.ptr != s + taille || !std::isfinite(v)) return false;
    if (v < 0) negatif = true;
    return true;
}

namespace {

// The general way: the decimal exponent from the logarithm, then the fixed notation rounded at
// the twelfth significant digit, trailing zeros dropped.
std::size_t FormaterLent(double x, char* sortie) {
    const int e = static_cast<int>(std::floor(std::log10(std::abs(x))));
    const int decimales = std::clamp(11 - e, 0, 40);
    char* fin = std::to_chars(sortie, sortie + TAILLE_NOMBRE, x, std::chars_format::fixed, decimales).ptr;
    if (std::memchr(sortie, '.', static_cast<std::size_t>(fin - sortie))) {
        while (fin[-1] == '0') --fin;
        if (fin[-1] == '.') --fin;
    }
    if (fin - sortie == 2 && sortie[0] == '-' && sortie[1] == '0') {
        sortie[0] = '0';
        return 1;
    }
    return static_cast<std::size_t>(fin - sortie);
}

}  // namespace

std::size_t FormaterPoint(double x, char* sortie) {
    if (!std::isfinite(x)) {
        const char* t = x != x ? "nan" : (x > 0 ? "inf" : "-inf");
        std::memcpy(sortie, t, std::strlen(t));
        return std::strlen(t);
    }
    if (x == 0) {
        sortie[0] = '0';
        return 1;
    }
    const double a = std::abs(x);
    // Outside this range the fixed notation has no decimals or too many zeros in front: the
    // general way.
    if (!(a >= 1e-28 && a < 1e11)) return FormaterLent(x, sortie);
    // The shortest digits that read back as x, rounded to 12. Where they lie too near the middle
    // of two 12-digit values, only the exact binary value decides: the general way again.
    char brut[40];
    const char* finBrut = std::to_chars(brut, brut + sizeof brut, a, std::chars_format::scientific).ptr;
    char chiffres[24];
    int n = 0;
    const char* p = brut;
    for (; p < finBrut && *p != 'e'; ++p)
        if (*p != '.') chiffres[n++] = *p;
    int exposant = 0;
    std::from_chars(p + 1 + (p[1] == '+' ? 1 : 0), finBrut, exposant);
    if (n > 12) {
        int queue = 0;
        for (int k = 12; k < 16; ++k) queue = queue * 10 + (k < n ? chiffres[k] - '0' : 0);
        if (queue >= 4990 && queue <= 5010) return FormaterLent(x, sortie);
        n = 12;
        if (queue > 5000) {
            int k = 11;
            while (k >= 0 && chiffres[k] == '9') chiffres[k--] = '0';
            if (k < 0) {
                chiffres[0] = '1';
                ++exposant;
            } else {
                ++chiffres[k];
            }
        }
    }
    while (n > 1 && chiffres[n - 1] == '0') --n;
    char* o = sortie;
    if (x < 0) *o++ = '-';
    if (exposant >= 0) {
        for (int k = 0; k <= exposant; ++k) *o++ = k < n ? chiffres[k] : '0';
        if (n > exposant + 1) {
            *o++ = '.';
            for (int k = exposant + 1; k < n; ++k) *o++ = chiffres[k];
        }
    } else {
        *o++ = '0';
        *o++ = '.';
        for (int k = -1; k > exposant; --k) *o++ = '0';
        for (int k = 0; k < n; ++k) *o++ = chiffres[k];
    }
    return static_cast<std::size_t>(o - sortie);
}

std::string FormaterPoint(double x) {
    char b[TAILLE_NOMBRE];
    return std::string(b, FormaterPoint(x, b));
}

}  // namespace axisolve
