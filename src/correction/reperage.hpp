// The unknown-word survey: the forms of a frequency lexicon that no list knows, split by case
// into two families under MANQUANTS, each with its list, its state, its work file and up to ten
// lines of concordance per item.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "core/contexte.hpp"
#include "core/liste_textes.hpp"
#include "lexicon/dictionnaire.hpp"

namespace telvoris {

inline constexpr std::string_view DOSSIER_MANQUANTS = "MANQUANTS";
inline constexpr std::size_t MAX_LIGNES_CONCORDANCE = 10;
inline constexpr std::size_t LARGEUR_CONTEXTE_REPERAGE = 50;

struct ParametresReperage {
    bool concordances = true;
    long long seuil = 1;
    long long longueurMinimale = 1;
};

struct BilanReperage {
    long long itemsFC = 0;
    long long itemsNP = 0;
};

// Walks the lexicon into the files of MANQUANTS (which must exist with its six files created).
BilanReperage ReperageInconnus(const ListeTextes& liste, const std::filesystem::path& lexique,
                               const TableFormes& connus, const ParametresReperage& p, Dialogue& dialogue);

// The concordance lines of each form in the texts of a list (at most ten a form): 50 characters
// of left context ending in the form, then at most 50 of right context. The texts are read once
// for all the forms, and each form gets its lines in the order of texts, partitions and lines.
std::vector<std::vector<std::string>> ConcordancesReperage(const ListeTextes& liste,
                                                           const std::vector<std::string>& formes);

// smn_rcf "Repérage inconnus".
void OperationReperageInconnus(Contexte& ctx);

}  // namespace telvoris
