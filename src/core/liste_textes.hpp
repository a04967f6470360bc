// The list of texts an operation works on, and the corpus root it fixes.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "core/dialogue.hpp"

namespace telvoris {

inline constexpr std::size_t MAX_TEXTES = 100000;

struct ListeTextes {
    std::filesystem::path doss_racine;  // the folder of the list file
    std::string nom;                    // the list file's name less its four-character extension (CP1252)
    std::vector<std::string> noms;      // one base name a line, blank lines included (CP1252)
};

// Loads a list file: up to 100,000 names, one a line.
ListeTextes ChargerListeTextes(const std::filesystem::path& fichier);

// Asks for the list file with the file dialog "Localiser le répertoire"; nullopt on Cancel.
std::optional<ListeTextes> ChoisirListeTextes(Dialogue& dialogue);

}  // namespace telvoris
