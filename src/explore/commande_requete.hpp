// `telvoris requete LISTE.txt [options]`: opens the index of a corpus, validates it with the
// variables given as options, runs one query and prints what the views would show.
#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "core/dialogue.hpp"
#include "core/horloge.hpp"

namespace telvoris {

// The usage text (UTF-8).
std::string UsageRequete();

// `arguments` follow the word "requete", in UTF-8. Results and messages go to the dialogue;
// usage errors to `erreurs`. Returns the exit status: 0 done, 2 usage. Execution errors and the
// end of the program are thrown as ErreurExecution and FinProgramme.
int CommandeRequete(const std::vector<std::string>& arguments, Dialogue& dialogue, const Horloge& horloge,
                    std::ostream& erreurs);

// The micro-distribution of the last query in numeric order: "z TAB n TAB form" lines of the
// retained co-occurrents, the highest deviation first (lemmas when `lemmes`).
struct EtatCorpus;
struct Requete;
std::string ListeCooccurrents(EtatCorpus& etat, const Requete& requete, bool lemmes);

}  // namespace telvoris
