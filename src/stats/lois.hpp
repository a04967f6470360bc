// The tests of the statistics area that rest on a law: Spearman's rank correlation, the chi-square
// of a matrix and of its pairs of rows, and the binomial table.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "core/contexte.hpp"

namespace telvoris {

inline constexpr std::size_t MAX_LIGNES_CHI_DEUX = 5000;
inline constexpr int MAX_EMPAN_BINOMIALE = 1000;
inline constexpr const char* kSeparateurPaires = "--------------------------";

// Ranks by descending count; equal counts share first + (last - first) / 2, in single precision.
std::vector<float> RangsSpearman(const std::vector<long long>& comptes);

// The four figures of "Spearman": N(N² - 1) / 3, Q = Σd² / that, 2Q and ρ = 1 - 2Q.
struct ResultatSpearman {
    double denominateur = 0, q = 0, deuxQ = 0, rho = 0;
};
ResultatSpearman Spearman(const std::vector<std::pair<std::string, long long>>& liste1,
                          const std::vector<std::pair<std::string, long long>>& liste2);

// P(k) = C(n, k) p^k (1 - p)^(n - k) for k = 0..n, and the tail Σ_{j >= k} P(j), computed in log
// space so that no coefficient or power overflows or underflows on the way.
struct LigneBinomiale {
    double probabilite = 0, queue = 0;
};
std::vector<LigneBinomiale> TableBinomiale(int n, double p);

void OperationSpearman(Contexte& ctx);           // smn_spear
void OperationChiDeux(Contexte& ctx);            // Smn_x2
void OperationBinomialeEssai(Contexte& ctx);     // smn_binom
void OperationBinomialeEtendue(Contexte& ctx);   // smn_bnmxl

}  // namespace telvoris
