// The lexicon tools of the statistics area: the Zipf table, the filter by string, the counts of a
// list, the sum of partial lexicons and the selection of the top items of a lexicon.
#pragma once

#include <string>
#include <vector>

#include "core/contexte.hpp"

namespace telvoris {

// "Zipf": the table of frequencies holds counts 0 to 10,000.
inline constexpr long long MAX_SEUIL_ZIPF = 10000;

void OperationZipf(Contexte& ctx);                  // smn_zipf
void OperationFiltrageLexique(Contexte& ctx);       // smn_fillex
void OperationEffectifsSurListe(Contexte& ctx);     // smn_rdesl
void OperationAdditionnerLexiques(Contexte& ctx);   // smn_adlex

// The panel "Paramètres" of the item selection, as its fields are answered.
struct ParametresSelection {
    std::string nombre;      // "Nombre d'items à retenir", digits only
    std::string exclus;      // "standard", "personnalisée" or "aucune"
    std::string filtre;      // "par catégories", "sans filtrage" or "Liste de lemmes"
    bool nombres = true;     // "Retenir les nombres ?"
};
// The selection once the panel is validated: asks its own boxes and files, writes
// <lexique>_SL_<n>.txt. An invalid number field shows the panel's message and does nothing.
void SelectionItems(Contexte& ctx, const ParametresSelection& p);
void OperationSelectionItems(Contexte& ctx);        // B12_Paramètres

}  // namespace telvoris
