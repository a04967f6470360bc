// Upkeep of the dictionary of simple forms: removing listed lemmas or whole lines (the whole
// dictionary copied aside first), statistics, and extractions by category or by lemma.
#pragma once

#include <filesystem>

#include "core/contexte.hpp"
#include "core/dialogue.hpp"

namespace telvoris {

namespace fs = std::filesystem;

inline constexpr std::size_t MAX_RETRAITS_LEMMES_CASIER = 20000;
inline constexpr std::size_t MAX_RETRAITS_LIGNES_CASIER = 1000;
inline constexpr std::size_t MAX_LIGNES_CASIER_MAINTENANCE = 10000;
inline constexpr std::size_t MAX_LEMMES_CASIER_MAINTENANCE = 20000;

struct BilanRetraits {
    long long suppressions = 0;
    long long simplifications = 0;
};

// Each lemma_CATEGORY of the list is taken out of every line of dico/olbrin (read from the backup
// folder `sauvegarde`); reports in dico/SUPPRESSIONS_FAITES.txt and SIMPLIFICATIONS_FAITES.txt.
// The bar of `dialogue`, when given, moves file by file.
BilanRetraits SupprimerLemmes(const fs::path& racine, const fs::path& sauvegarde, const fs::path& liste,
                              Dialogue* dialogue = nullptr);
// Each listed whole line is taken out of dico/olbrin; report in dico/SUPPRESSIONS_2.txt.
long long SupprimerLignes(const fs::path& racine, const fs::path& liste, Dialogue* dialogue = nullptr);

struct StatistiquesDico {
    long long formes = 0, ambigues = 0, lemmes = 0;
    long long categories[7] = {};  // A, J, N, R, SF, SM, V
};
StatistiquesDico CompterDictionnaire(const fs::path& racine);

void OperationSuppressionLemmes(Contexte& contexte);     // smn_spl
void OperationSuppressionLignes(Contexte& contexte);     // smn_spd
void OperationStatistiquesDico(Contexte& contexte);      // smn_std
void OperationExtraireCategorie(Contexte& contexte);     // smn_extracat
void OperationExtractionLemmesFormes(Contexte& contexte);  // smn_exlf

}  // namespace telvoris
