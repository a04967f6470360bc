// The terminal's second step of a correspondence analysis: finalising a result folder whose
// solver has ended (the panel's button of the statistics area).
#pragma once

namespace telvoris {

// telvoris finaliser-afc DOSSIER: rewrites the solver's files of DOSSIER and prints the inertia
// graph's texts. Status 0 done, 1 execution error, 2 usage.
int CommandeFinaliserAfc(int argc, char** argv);

}  // namespace telvoris
