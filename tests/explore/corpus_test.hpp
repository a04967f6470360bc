// Builds small segmented-and-indexed corpora for the exploration tests: the four derived files
// of each text that the index builder reads, written the way the segment indexer writes them.
#pragma once

#include <filesystem>
#include <set>
#include <string>
#include <vector>

namespace telvoris::test {

struct PartitionTest {
    std::string meta;                 // the metadata line
    std::vector<std::string> lignes;  // tagged lines, without offsets
};

struct TexteTest {
    std::string nom;
    std::vector<PartitionTest> partitions;
};

// Writes OLBRIN_TT/{NB_PARTITIONS,TEXTE_ETIQ,LEXINDEX,TEXTE_NU}/<nom>.txt for each text and the
// list file `liste` naming them; `courts` are forms whose positions are not kept ("!").
// Returns the list file's path.
std::filesystem::path EcrireCorpus(const std::filesystem::path& racine, const std::vector<TexteTest>& textes,
                                   const std::set<std::string>& courts = {}, const std::string& liste = "REPERTOIRE.txt");

// A partition of n tokens "<M f=mI >mI" (I from `debut`), on one line.
PartitionTest PartitionNumerotee(const std::string& meta, int n, int debut = 1);

}  // namespace telvoris::test
