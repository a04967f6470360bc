// table_composes: the non-ambiguous compounds filed under their first word. Per first word one
// string holds all its compounds as "|key/lemma_CATEGORY/flexion|key/...|", longest keys first
// since the files are read from 8 words down to 2.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "core/jetons.hpp"
#include "lexicon/dictionnaire.hpp"

namespace telvoris {

inline constexpr std::size_t MAX_COMPOSES_CASIER = 20000;

class TableComposes {
public:
    TableComposes();
    // Adds one dictionary line "word word,lemma.CATEGORY:flexion" under its first word.
    void AjouterLigne(std::string_view ligne, std::string_view source);
    // The compound string of a first word, or "" when no compound begins with it.
    std::string_view Chercher(std::string_view premierMot) const;
    // Number of compounds of a first word.
    std::size_t Nombre(std::string_view premierMot) const;
    std::size_t NombrePremiersMots() const { return premiers_; }
    std::size_t NombreComposes() const { return composes_; }
    void Vider();

private:
    struct Casier {
        std::vector<std::string> premiers;
        std::vector<std::size_t> nombres;
        std::vector<std::string> chaines;
        IndexPremiers index;
    };
    std::vector<Casier> casiers_;
    std::size_t premiers_ = 0;
    std::size_t composes_ = 0;
};

// The segment of one compound line: "key/lemma_CATEGORY/flexion". An empty lemma is the key's
// words joined by "_".
std::string SegmentCompose(std::string_view ligne);

// Clears the table, then reads dico/comp/namb from 8-word files down to 2-word files.
void ChargerComposes(TableComposes& table, const std::filesystem::path& racine);

}  // namespace telvoris
