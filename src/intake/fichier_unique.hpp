// Single-file import: a whole corpus in one text file, its sub-corpora cut by separator lines,
// with an optional table TABLEAU.txt of their metadata, becomes the one-text corpus
// ARCHIVE_BRUT/1.txt whose partitions are the sub-corpora.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "core/contexte.hpp"

namespace telvoris {

// The grid of TABLEAU.txt: rows 0 to 220 (line 1 of the file is row 0, the variable names) and
// columns 1 to 220.
inline constexpr int MAX_LIGNES_TABLEAU = 220;
inline constexpr int MAX_COLONNES_TABLEAU = 220;

struct TableauMetadonnees {
    std::vector<std::vector<std::string>> grille;  // grille[row][j - 1], rows as read
    int variables = 0;                              // the field count of the last line read
    // The cell of a row and a variable (from 1); a cell the file did not fill is empty. A row
    // beyond the grid is a bound error.
    std::string_view Valeur(int ligne, int variable) const;
};

// Loads TABLEAU.txt (tab-separated); a file longer or wider than the grid is a bound error.
TableauMetadonnees ChargerTableau(const std::filesystem::path& fichier);

// Copies `source` to ARCHIVE_BRUT/1.txt below `racine`, turning each line that begins with
// `separateur` into the metadata line of the next partition. Returns the number of partitions.
long long ConvertirFichierUnique(const std::filesystem::path& source, const std::filesystem::path& racine,
                                 std::string_view separateur, const TableauMetadonnees* tableau);

// The menu operation "Type : fichier unique à séparateurs".
void ImporterFichierUnique(Contexte& contexte);

}  // namespace telvoris
