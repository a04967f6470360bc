// The macro-distribution: counts of row items in the partitions of the corpus, gathered by the
// value of a metadata key (one column a value), compared with their expectation and written for
// the correspondence analysis; and the partition lengths by year.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/contexte.hpp"
#include "stats/parametres.hpp"

namespace telvoris {

inline constexpr std::size_t MAX_LIGNES_MACRO = 5000;
inline constexpr std::size_t MAX_COLONNES_MACRO = 1000;
inline constexpr std::size_t MAX_PARTITIONS_TEXTE = 1000;

// The part of a date value that makes the column: `longueur` characters from `debut` (from 1).
struct CoupeDate {
    long long debut = 1;
    long long longueur = 4;
};

// Reads the answer "start-length"; a wrong answer shows its message and ends the program.
CoupeDate LireCoupeDate(std::string_view reponse);

// The raw table of a run: columns in order of first appearance (column 0 gathers what comes
// before any partition and is not written), each with its token total and its counts.
class ReleveurMacro {
public:
    ReleveurMacro(std::vector<std::string> lignes, std::string cle, std::optional<CoupeDate> coupe);
    ~ReleveurMacro();

    // One text: its tagged text (for the metadata lines) and its index.
    void Texte(std::string_view tague, std::string_view index, std::string_view nom);

    const std::vector<std::string>& Lignes() const { return lignes_; }
    // Columns from 1; Colonnes()[0] is column 0.
    const std::vector<std::string>& Colonnes() const { return colonnes_; }
    long long Jetons(std::size_t c) const { return jetons_[c]; }
    long long Brut(std::size_t r, std::size_t c) const { return brut_[c][r]; }

private:
    std::size_t Colonne(const std::string& valeur);
    std::vector<std::string> lignes_;
    std::string cle_;
    std::optional<CoupeDate> coupe_;
    struct Index;
    std::unique_ptr<Index> index_;
    std::vector<std::string> colonnes_{std::string()};
    std::vector<long long> jetons_{0};
    std::vector<std::vector<long long>> brut_;
    std::size_t courante_ = 0;
};

// The derived tables and the seven files in `dossier`. A column holding the whole total (p = 1)
// or an empty table is a division by zero, reported as such.
void EcrireMacro(const std::filesystem::path& dossier, const ReleveurMacro& releve, double ecretage, float seuilSpecificite);

void MacroDistribution(Contexte& ctx, const ParametresReleve& p);
void OperationMacroDistribution(Contexte& ctx);

// "longueur de partitions": the tokens of the index of each text, summed by the year read in its
// name, written to LONPARTS.txt of the corpus root for the years 1981 to 2015.
void OperationLongueurPartitions(Contexte& ctx);

}  // namespace telvoris
