// The check of a resource tree: every file that the loaders read is present and parses, and
// the general dictionary loads with its interpretations (timed).
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace telvoris {

struct RapportRessources {
    // One line per folder or list: what was found (CP1252 texts).
    std::vector<std::string> comptes;
    // What is missing or malformed, one line each, naming the file (and the line).
    std::vector<std::string> problemes;
    // Time to load the general dictionary with interpretations, in seconds (0 when not loaded).
    double secondesChargement = 0;
    long long formesChargees = 0;
    bool Valide() const { return problemes.empty(); }
};

// At most this many faults are listed per file; the rest are counted.
inline constexpr int MAX_PROBLEMES_FICHIER = 10;

RapportRessources VerifierRessources(const std::filesystem::path& racine);

}  // namespace telvoris
