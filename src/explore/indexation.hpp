// The exploration index builder: from a segmented and indexed corpus, the tree
// <corpus>_QORX_INDEX that every view of the exploration reads.
#pragma once

#include <filesystem>

#include "core/contexte.hpp"
#include "core/liste_textes.hpp"

namespace telvoris {

// Metadata variables kept by the index; a new name past this count overwrites the variable
// resolved last, as the readers of the index expect.
inline constexpr int MAX_VARIABLES = 10;
// Counts above this stand apart at the head of the frequency lists.
inline constexpr long long MAX_FREQUENCE = 100000;

// The index folder of a loaded list.
std::filesystem::path DossierIndex(const ListeTextes& liste);

// Builds the index into `dossier` (which exists and is empty). `plier`: forms are folded to
// lower case (the answer "N" to "Discriminer les majuscules"). `largeur`: the characters of a
// position code, 0 for what the corpus needs (3 up to MAX_POSITION tokens, else 4); tests force 4.
void ConstruireIndex(const ListeTextes& liste, const std::filesystem::path& dossier, bool plier, Dialogue& dialogue,
                     int largeur = 0);

// The tokens of the whole corpus, from its NB_PARTITIONS files.
long long CompterJetonsCorpus(const ListeTextes& liste);

// The menu operation "Indexer" of the exploration work area.
void OperationIndexExploration(Contexte& contexte);

}  // namespace telvoris
