// A small indexed corpus shared by the tests of the navigator, the distribution view and the
// dictionary tab: three partitions in two texts, "chat" in the first and the third.
#pragma once

#include <filesystem>
#include <set>
#include <string>

#include "explore/corpus.hpp"
#include "support/support.hpp"

namespace telvoris::test {

// Partition 1 "Le chat dort." (JOURNAL A, short title X), 2 "la maison rouge" (B, X),
// 3 "un chat voit le chat" (A, Y): 4 + 3 + 5 tokens. Returns the list file.
std::filesystem::path CorpusVues(const std::filesystem::path& racine, const std::set<std::string>& courts = {});

// Opens and validates it: titles from JOURNAL, contrast on JOURNAL.
EtatCorpus OuvrirCorpusVues(const std::filesystem::path& liste);

}  // namespace telvoris::test
