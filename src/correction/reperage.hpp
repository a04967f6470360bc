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

// The concordance lines of a form in the texts of a list (at most ten): 50 characters of left
// context ending in the form, then at most 50 of right context.
class ConcordancierReperage {
public:
    explicit ConcordancierReperage(const ListeTextes& liste);
    std::vector<std::string> Lignes(std::string_view forme);

private:
    struct Texte {
        std::string nom;
        bool indexe = false;
        // Partitions (from 1) that hold each form, in increasing order.
        std::unordered_map<std::string, std::vector<int>> partitions;
    };
    void Indexer(Texte& t);
    const std::vector<std::string_view>& Morceaux(std::size_t texte);
    const ListeTextes& liste_;
    std::vector<Texte> textes_;
    // The tagged texts last read, split into partitions.
    std::size_t texteLu_ = static_cast<std::size_t>(-1);
    std::string contenuLu_;
    std::vector<std::string_view> morceauxLus_;
};

// smn_rcf "Repérage inconnus".
void OperationReperageInconnus(Contexte& ctx);

}  // namespace telvoris
