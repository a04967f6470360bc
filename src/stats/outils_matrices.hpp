// The matrix tools of the statistics area: the sum of matrices of one shape, the extraction of the
// strong cells of a co-occurrence matrix, and the comparison of two co-occurrence matrices.
#pragma once

#include "core/contexte.hpp"

namespace telvoris {

// Matrices that these tools read and add.
inline constexpr std::size_t MAX_LIGNES_OUTILS = 5000;
inline constexpr std::size_t MAX_COLONNES_OUTILS = 1000;

void OperationAdditionnerMatrices(Contexte& ctx);  // smn_admat
void OperationExtractionTableau(Contexte& ctx);    // smn_extra
void OperationComparerMatrices(Contexte& ctx);     // smn_compmat

}  // namespace telvoris
