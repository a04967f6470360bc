// Readers of the files that the statistics tools take in (lexicons, matrices), the output names
// they build beside an input, and the small dialogue steps they share.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/contexte.hpp"

namespace telvoris::stats {

// A lexicon file: item, tab, count; one line an item. Empty lines are skipped. A line without a
// tab or with a count that is not an integer is an execution error naming the file and the line.
using LignesLexique = std::vector<std::pair<std::string, long long>>;
LignesLexique LireLexique(const std::filesystem::path& fichier);

// A matrix text file: line 1 a first field and the column names, then per row its name and one
// cell per column. A row with another number of cells, a cell that is not a number, or more rows
// or columns than the bounds is an execution error naming the file (and the line).
struct Matrice {
    std::vector<std::string> colonnes;
    std::vector<std::string> lignes;
    std::vector<std::vector<double>> cellules;  // [row][column]
};
Matrice LireMatrice(const std::filesystem::path& fichier, std::size_t maxLignes, std::size_t maxColonnes);

// The path less its last four characters (its ".txt"), and the file's name less them (CP1252).
std::filesystem::path SansExtension(const std::filesystem::path& fichier);
std::string NomSansExtension(const std::filesystem::path& fichier);
// A file beside `fichier`: its path less the extension, then `suite` (CP1252).
std::filesystem::path ACote(const std::filesystem::path& fichier, std::string_view suite);

// The file dialog of the statistics area; Cancel and an empty answer give nullopt.
std::optional<std::filesystem::path> DemanderFichier(Dialogue& dialogue, std::string_view titre);
// An input box whose answer must be an integer; anything else is the conversion failure.
long long DemanderEntier(Dialogue& dialogue, std::string_view texte, std::string_view titre, std::string_view defaut);
// The answer of an input box, "" on Cancel.
std::string Reponse(Dialogue& dialogue, std::string_view texte, std::string_view titre, std::string_view defaut);

// A division whose divisor may be zero: the runtime's failure, named.
double Diviser(double a, double b, std::string_view quoi);

}  // namespace telvoris::stats
