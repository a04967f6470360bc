// Over- and under-use of the items of a sub-corpus lexicon against a reference lexicon, and the coding file that
// colours a map from a table of reduced deviations.
#pragma once

#include "core/contexte.hpp"

namespace telvoris {

// An item of the specific lexicon of this count or less is left out.
inline constexpr long long SEUIL_SPECIFICITES = 5;
inline constexpr long long MAX_COULEURS = 4;

// The expected count and the reduced deviation of an item of count f in the sub-corpus (n items)
// when the reference (N items) holds it r times: E = r / N x n, z = (f - E) / sqrt(E).
struct Specificite {
    double attendu = 0, ecart = 0;
};
Specificite CalculerSpecificite(long long f, long long r, double N, double n);

void OperationSpecificites(Contexte& ctx);          // smn_sepc
void OperationSpecifColoration(Contexte& ctx);      // smn_spc

}  // namespace telvoris
