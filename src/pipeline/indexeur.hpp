// The segment indexer: from each tagged text of OLBRIN_TT, its bare text, lower-case text, token
// index, line marks, text with offsets, partition counts and metadata.
#pragma once

#include "core/contexte.hpp"
#include "core/liste_textes.hpp"
#include "pipeline/listes.hpp"

namespace telvoris {

inline constexpr int TAILLE_BLOC = 220;
// A position is three one-byte characters, the first of code (block / 220) + 34: the last block
// whose code still fits in a byte.
inline constexpr long long MAX_BLOCS = 221LL * TAILLE_BLOC + TAILLE_BLOC - 1;

// The three characters of the position of the n-th token of block b.
std::string CodePosition(long long bloc, int dansBloc);

// Indexes each text of the list on `fils` threads (0: every core), with the same files and
// messages as one thread gives. `courts` are the words counted without positions.
void Indexer(const ListeTextes& liste, const ListeCasiers& courts, Dialogue& dialogue, unsigned fils = 1);

// The menu operation "Réindexer".
void OperationReindexation(Contexte& contexte);

}  // namespace telvoris
