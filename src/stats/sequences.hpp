// Recurrent sequences of words in a tagged corpus, with the rate of each word against a lexicon
// of single words; and what follows a chosen key in the nude text.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "core/contexte.hpp"
#include "core/fichiers.hpp"
#include "core/hachage.hpp"
#include "stats/casier_lexique.hpp"

namespace telvoris {

// A walk looks at most this many tokens after the opening word.
inline constexpr int MAX_MOTS_SUITE_SEQUENCE = 7;
// When one bucket of the sequence table passes this, the whole table is written out and cleared.
inline constexpr std::size_t MAX_ENTREES_CASIER_SEQUENCES = 5000;
inline constexpr int NB_TAUX_ENTETE = 6;

using EnsembleMots = std::unordered_set<std::string, HachageTexte, std::equal_to<>>;

// Reads one word a line (blank lines skipped).
EnsembleMots LireMots(const std::filesystem::path& fichier);
// The keys of the compound dictionary files (the text before the first comma of each line) of
// dico/comp/namb and dico/comp/amb, when those folders exist.
EnsembleMots ChargerClesComposes(const std::filesystem::path& ressources);

class ReleveurSequences {
public:
    // `nonOuvrants`: words that may not open a sequence; `nonFermants`: words that may not close
    // one. `composes`, when given, holds the known compounds that are not counted. With a lexicon
    // of single words the lines are those of the SEG_REP_ table; without, "sequence, tab, count".
    ReleveurSequences(EnsembleMots nonOuvrants, EnsembleMots nonFermants, const EnsembleMots* composes,
                      CasierLexique* lexique, long long seuil, EcrivainFichier& sortie);
    ~ReleveurSequences();
    // Counts the sequences of one tagged text.
    void Texte(std::string_view tague);
    // Writes the entries of at least the threshold, by count, and clears the table.
    void Vider();

private:
    struct Table;
    std::unique_ptr<Table> table_;
    EnsembleMots nonOuvrants_, nonFermants_;
    const EnsembleMots* composes_;
    CasierLexique* lexique_;
    long long seuil_;
    EcrivainFichier& sortie_;
};

// The header line of the SEG_REP_ table.
std::string EnteteSequences();

void OperationSequencesMots(Contexte& ctx);     // smn_sgr
void OperationUnAutreX(Contexte& ctx);          // smn_rcplt

}  // namespace telvoris
