// The monthly survey of sequences: for each month of a press corpus a lexicon, a memo and the
// sequences of the month (first step), then the rates and the total of all months (second step).
#pragma once

#include <string>
#include <string_view>

#include "core/contexte.hpp"

namespace telvoris {

// The month of a text from its name: "aaaa-mm" for "<JOURNAL>_aaaa-mm-jj", "aaaa_mm" for
// "<JOURNAL>_aaaa_mm_jj"; "SANS_DATE" when the name does not end in a date.
std::string MoisDuTexte(std::string_view nom);

void OperationSequences1(Contexte& ctx);       // smn_sqq
void OperationSequences2(Contexte& ctx);       // smn_sqq2
void OperationSequencesProvi(Contexte& ctx);   // smn_sqpr

}  // namespace telvoris
