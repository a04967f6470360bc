// The compound marker: runs of word tokens that stand in the non-ambiguous compound table become
// one <MC ...> token, the shortest compound starting at a word winning.
#pragma once

#include <string>
#include <string_view>

#include "core/contexte.hpp"
#include "core/liste_textes.hpp"

namespace telvoris {

class TableComposes;

struct CompteursComposes {
    long long nb_mots = 0;      // words followed by a word: the starting points tried
    long long nb_composes = 0;  // hits, proper nouns refused after a small letter included
};

// Marks the compounds of one tagged line; the result is appended to `sortie`.
void MarquerComposesLigne(std::string_view ligne, const TableComposes& table, CompteursComposes& compteurs,
                          std::string& sortie);

// Each text of the list: OLBRIN_TT/<name>.txt is copied to OLBRIN_TT/AVANT_COMP, then rewritten
// from that copy. A corpus without OLBRIN_TT ends the program before anything is changed. The
// texts are marked on `fils` threads (0: every core), with the same files, record and counts.
CompteursComposes MarquerComposes(const ListeTextes& liste, const TableComposes& table, Dialogue& dialogue,
                                  unsigned fils = 1);

// The menu operation "Composés".
void OperationComposes(Contexte& contexte);

}  // namespace telvoris
