// The lexicon commands of the statistics area: one lexicon of a list of texts ("Lexique"), the
// same by external merge for very large corpora ("Grand lexique"), one lexicon per text
// ("Lexiques_multiples"), and the filter of capitalised items ("Tri noms propres").
#pragma once

#include <map>
#include <string>
#include <vector>

#include "core/contexte.hpp"
#include "stats/casier_lexique.hpp"
#include "stats/parametres.hpp"

namespace telvoris {

inline constexpr std::size_t MAX_POSTCLITIQUES_RELEVE = 100;
// "Lexique" stops reading further texts when the bucket last touched holds more than this.
inline constexpr std::size_t ARRET_LEXIQUE = 199000;
// "Grand lexique": a pass takes no new item once one bucket holds this many entries.
inline constexpr std::size_t SATURATION_GRAND_LEXIQUE = 5000;
// "Grand lexique": a frequency band closes when it holds more items than this.
inline constexpr long long TAILLE_BANDE = 100000;
inline constexpr int MAX_BANDES = 100;

// The counting state of the statistics area, which lives as long as the work area does: the
// bucket table (whose class-0 buckets are never cleared), and the string and the high-count
// table of "Lexiques_multiples", which are not cleared between texts.
struct EtatReleves {
    CasierLexique casier;
    std::string chaineMultiples;
    // Items of one count from 1,001 to 100,000, at most 10 a count: the number kept and the slots.
    struct Rangee {
        std::size_t n = 0;
        std::vector<std::string> items;
    };
    std::map<long long, Rangee> milliers;
};

// The state of the statistics work area for this process.
EtatReleves& EtatStatistiques();

// The post-clitic list `utilitaires/postclit2.txt` of the resource tree, at most 100 words.
std::vector<std::string> ChargerPostclitiques(const std::filesystem::path& ressources);

// The commands once their panel is answered; each asks its own prompts and files.
void Lexique(Contexte& ctx, const ParametresReleve& p, EtatReleves& etat);
void GrandLexique(Contexte& ctx, const ParametresReleve& p, EtatReleves& etat);
void LexiquesMultiples(Contexte& ctx, const ParametresReleve& p, EtatReleves& etat);
void TriNomsPropres(Contexte& ctx);

// The capital class of an item for "Tri noms propres": 2 no small letter, 1 initial capital,
// 3 two capitals or more, 0 otherwise.
int ClasseMajuscules(std::string_view item);

// The menu operations: the panel, then the command.
void OperationLexique(Contexte& ctx);
void OperationGrandLexique(Contexte& ctx);
void OperationLexiquesMultiples(Contexte& ctx);
void OperationTriNomsPropres(Contexte& ctx);

}  // namespace telvoris
