// Sampling and filtering of a corpus's raw texts before the pipeline: a sample list, a
// sub-corpus copied by a key of the names, the duplicate control over a ring of the last 300
// articles, and the filter of repeated article bodies.
#pragma once

#include <array>
#include <filesystem>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "core/contexte.hpp"
#include "core/liste_textes.hpp"

namespace telvoris {

// The duplicate control compares an article with the 300 before it, over all texts of a run.
inline constexpr std::size_t TAILLE_ANNEAU_CLES = 300;
// The repeat filter holds at most this many bodies for one initial class.
inline constexpr std::size_t MAX_CORPS_CASE = 20000;

// Writes REPETOIRE_ECHANTILLON_<pas>.txt: the names whose rank is a multiple of `pas`.
void EcrireEchantillon(const ListeTextes& liste, long long pas);

// Copies <dossier>/<name>.txt of each name holding `cle` into `cible`. Returns the count.
long long ExtraireSousCorpus(const ListeTextes& liste, std::string_view dossier, std::string_view cle,
                             const std::filesystem::path& cible);

// The key ring of the duplicate control, and the article counter, for a whole run.
class AnneauDoublons {
public:
    // Counts the article of this body and tells whether one of the 300 before it began alike.
    bool EstDoublon(std::string_view corps);
    long long Articles() const { return n_; }

private:
    std::array<std::string, TAILLE_ANNEAU_CLES> places_;
    long long n_ = 0;
};

struct BilanDoublons {
    long long gardes = 0;
    long long rejetes = 0;
};

// Splits ARCHIVE_BRUT/<name>.txt of each text into ARCHIVE_BRUT_NEW and ARCHIVE_BRUT_REJETS.
BilanDoublons ControlerDoublons(const ListeTextes& liste, Dialogue& dialogue);

// The bodies already met by the repeat filter, by the initial class of their first character.
class TableCorps {
public:
    // Adds a body not yet met and returns true; returns false for a body already there.
    bool Ajouter(const std::string& corps);

private:
    std::array<std::unordered_set<std::string>, 21> cases_;
};

// Writes ARCHIVE_BRUT_FILTRE/<name>.txt without the repeated articles, and REPERTOIRE_NEW.txt.
// Returns the number of texts written.
long long FiltrerRedites(const ListeTextes& liste, Dialogue& dialogue);

// The menu operations.
void OperationRepertoireEchantillon(Contexte& contexte);
void OperationExtraireSousCorpus(Contexte& contexte);
void OperationControleDoublons(Contexte& contexte);
void OperationFiltrageRedites(Contexte& contexte);

}  // namespace telvoris
