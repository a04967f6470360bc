// The extraction functions of the exploration work area: sentences, paragraphs or documents that
// hold a key, cut out of the tagged corpus into a new corpus folder beside it, and the count of a
// key's occurrences by year. They read the prepared corpus directly, not the exploration index.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "core/contexte.hpp"

namespace telvoris {

inline constexpr std::size_t MAX_ITEMS_EXTRACTION = 10000;
inline constexpr std::size_t MAX_BLOCS_EXTRACTION = 10000;
inline constexpr long long MAX_ANNEE_QUANTIFICATION = 5000;
// The years written by the count: from 1 up to this one.
inline constexpr long long DERNIERE_ANNEE_QUANTIFIEE = 2020;

// What a sentence or paragraph extraction looks for: in "LI" mode a form equal to an item, in "CH"
// mode a form that holds an item and none of the excluded strings.
struct CleExtraction {
    bool parListe = false;
    std::vector<std::string> items;
    std::vector<std::string> exclus;
};

// Reads the answer to the key prompt: items cut on "/", and in "CH" mode what follows a "%" as the
// excluded strings. Empty items are dropped.
CleExtraction LireCleExtraction(std::string_view reponse, bool parListe);

// The name of an extraction's folder: the first item, with "_ETC" behind it when there are several.
std::string LibelleExtrait(const std::vector<std::string>& items);

// The extract of one tagged text: for each partition with at least one hit, its metadata line,
// then each hit's sentence on a line of its own.
std::string ExtrairePhrases(std::string_view texte, const CleExtraction& cle);

// The lines of a tagged text that hold the first item (and none of the excluded strings).
std::string ExtraireParagraphes(std::string_view texte, const CleExtraction& cle);

// The sentences that hold one of the built-in expressions ("un de ces", "une de ces").
std::string ExtraireExpressions(std::string_view texte, long long& occurrences);

// The documents of a tagged text whose block of `blocs` (TEXTE_MIN or TEXTE_NU) holds the key,
// each written back whole with its metadata line; empty when none does.
std::string ExtraireDocuments(std::string_view blocs, std::string_view etiquete, std::string_view cle);

// The non-overlapping occurrences of `cle` in `texte`.
long long CompterCle(std::string_view texte, std::string_view cle);

// The year a text's name counts under: the leading number of its first "_"-separated piece.
long long AnneeDuTexte(std::string_view nom);

void OperationExtrairePhrases(Contexte& ctx);
void OperationExtraireParagraphes(Contexte& ctx);
void OperationExtraireDocuments(Contexte& ctx);
void OperationExtraireExpressions(Contexte& ctx);
void OperationQuantifierOccurrences(Contexte& ctx);
// The same count from the statistics work area, whose closing message spells the time its way.
void OperationQuantifierOccurrencesStatistiques(Contexte& ctx);

}  // namespace telvoris
