// The concordance as a table for other tools: one occurrence a line, tab-separated, with its
// reference (text, partition, title variables, position) and its left context, key and right
// context in columns of their own.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace telvoris {

struct EtatCorpus;
struct Requete;

// The name of the text of each partition (index 1 up; slot 0 unused), from the corpus list and
// OLBRIN_TT/NB_PARTITIONS/<text>.txt, one line a partition. Partitions that cannot be placed
// (a count file missing) keep an empty name.
std::vector<std::string> TextesDesPartitions(const std::filesystem::path& liste, long long nbPartitions);

// The header line and one line per occurrence, in the order shown (left sort when `triGauche`),
// CP1252, lines joined by LF with none after the last (as the terminal prints a result).
// `titres` are the title variables, each a column read from METADONNEES_QORX/<variable>.txt.
std::string ConcordanceTsv(const EtatCorpus& etat, const Requete& requete, bool triGauche,
                           const std::vector<std::string>& textes, const std::vector<std::string>& titres);

}  // namespace telvoris
