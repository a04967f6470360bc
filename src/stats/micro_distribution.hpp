// The micro-distribution: co-occurrences of row items (pivots) with column items within the lines
// of the tagged texts, compared with their expectation, written as four matrices for the
// correspondence analysis.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "core/contexte.hpp"
#include "stats/parametres.hpp"

namespace telvoris {

inline constexpr std::size_t MAX_LIGNES_MICRO = 1000;
inline constexpr std::size_t MAX_COLONNES_MICRO = 1000;
// Above this grand total the margins are scaled down (total / 100, sums / 10).
inline constexpr long long SEUIL_ECHELLE_MICRO = 1000000;

// The raw co-occurrence table and its margins, counted during the scan.
struct TableMicro {
    std::vector<std::string> lignes, colonnes;
    std::vector<long long> brut;  // row-major, lignes.size() x colonnes.size()
    std::vector<long long> sommeLigne, sommeColonne;
    long long total = 0;

    TableMicro(std::vector<std::string> l, std::vector<std::string> c);
    long long& Cellule(std::size_t r, std::size_t c) { return brut[r * colonnes.size() + c]; }
};

struct ReglagesMicro {
    ParametresReleve panneau;
    long long exclusion = 0;  // co-occurrents this close or closer are left out
};

namespace stats {
class IndexPremier;
}

// Scans the body lines of tagged texts into a table.
class ReleveurMicro {
public:
    ReleveurMicro(TableMicro& table, const ReglagesMicro& reglages);
    ~ReleveurMicro();
    void Texte(std::string_view texte);

private:
    TableMicro& table_;
    ReglagesMicro reglages_;
    std::unique_ptr<stats::IndexPremier> lignes_, colonnes_;
};

// The scale guard, then the four matrices and the strong deviations, in `dossier`.
void EcrireMicro(const std::filesystem::path& dossier, TableMicro& table, long long ecretage, double seuilForts);

// The command once its panel is answered: its prompts, the scan, the files.
void MicroDistribution(Contexte& ctx, const ParametresReleve& p);
void OperationMicroDistribution(Contexte& ctx);

}  // namespace telvoris
