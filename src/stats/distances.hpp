// Distances between lexicons or texts (Jaccard, Labbé, qrt), one pair or every pair of a corpus,
// and the variety of the vocabulary by blocks of 1000 tokens.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/contexte.hpp"
#include "stats/fichiers_stats.hpp"

namespace telvoris {

// Items a bucket of the tables of the distances.
inline constexpr std::size_t MAX_ENTREES_CASIER_DISTANCES = 15000;
// qrt: blocks of 1000 tokens, one every 500.
inline constexpr long long TAILLE_BLOC_QRT = 1000;
inline constexpr long long PAS_BLOC_QRT = 500;
inline constexpr long long TAILLE_BLOC_VARIETE = 1000;

// A lexicon with its items numbered in a dictionary shared by the texts compared, in file order
// and sorted by number, so that a pair is compared by a merge.
class DictionnaireItems;
struct LexiqueNumerote {
    std::vector<std::pair<std::uint32_t, long long>> ordre;  // file order (duplicates summed)
    std::vector<std::pair<std::uint32_t, long long>> trie;   // by number
    std::vector<std::uint32_t> lignes;                       // one number a line, sorted
    long long total = 0;
};

// d = (V2 - c) / V2 + (V1 - c) / V1 rounded to 3 decimals, c the lines of the second lexicon whose
// item the first holds.
double DistanceJaccard(const LexiqueNumerote& l1, const LexiqueNumerote& l2);
// Labbé's distance, the smaller text first, rounded to 3 decimals.
double DistanceLabbe(const LexiqueNumerote& l1, const LexiqueNumerote& l2);
// The mean difference of the overlapping blocks of two texts given as numbered tokens.
double DistanceQrt(const std::vector<std::uint32_t>& t1, const std::vector<std::uint32_t>& t2);

// Numbers the items of lexicons and texts for the comparisons.
class DictionnaireItems {
public:
    DictionnaireItems();
    ~DictionnaireItems();
    std::uint32_t Numero(std::string_view item);
    std::size_t Taille() const;
    LexiqueNumerote Lexique(const stats::LignesLexique& lignes, std::string_view nom);
    // The normalised forms of the `<M` tokens of a tagged text.
    std::vector<std::uint32_t> Texte(std::string_view tague);

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

void OperationJaccard(Contexte& ctx);   // smn_disja
void OperationLabbe(Contexte& ctx);     // smn_lab
void OperationQrt(Contexte& ctx);       // smn_dqrt
void OperationVariete(Contexte& ctx);   // smn_v1000

}  // namespace telvoris
