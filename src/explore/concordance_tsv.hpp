// The concordance as a table for other tools: one occurrence a line, tab-separated, with its
// reference (text, partition, title variables, position) and its left context, key and right
// context in columns of their own.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace telvoris {

struct EtatCorpus;
struct Requete;

// The text of each partition, from the corpus list and OLBRIN_TT/NB_PARTITIONS/<text>.txt, one
// line a partition: each text with the number of its first partition, not one name a partition
// (a large corpus has hundreds of thousands).
struct TextesPartitions {
    std::vector<std::string> noms;
    std::vector<long long> premieres;  // ascending
    long long fin = 1;                 // the first partition that no text holds
    // The name of the text holding partition p; "" for a partition that cannot be placed (past
    // the corpus's partitions, or after a missing count file).
    std::string_view De(long long p) const;
};
TextesPartitions TextesDesPartitions(const std::filesystem::path& liste, long long nbPartitions);

// The header line and one line per occurrence, in the order shown (left sort when `triGauche`),
// CP1252, lines joined by LF with none after the last (as the terminal prints a result).
// `titres` are the title variables, each a column read from METADONNEES_QORX/<variable>.txt.
std::string ConcordanceTsv(const EtatCorpus& etat, const Requete& requete, bool triGauche,
                           const TextesPartitions& textes, const std::vector<std::string>& titres);

}  // namespace telvoris
