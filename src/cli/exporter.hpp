// `telvoris exporter FICHIER [--format csv|tsv]`: a copy of a lexicon, matrix, distribution,
// solver result or projection file that spreadsheet and statistics tools read with no option:
// UTF-8, a decimal point, a header row, one record a line. The file itself is never changed.
#pragma once

#include <filesystem>
#include <ostream>
#include <string>
#include <vector>

namespace telvoris {

enum class FormatExport { Csv, Tsv };

// What an export found and wrote.
struct BilanExport {
    std::filesystem::path fichier;  // the copy
    std::string genre;              // "lexique", "matrice", ... (UTF-8)
    long long lignes = 0;           // records written, header excluded
    long long ecartees = 0;         // lines of the source that are not records (map trailers)
};

// Writes the copy next to `source`, named as it with the extension .csv or .tsv. An unknown
// layout or a ragged line throws ErreurExecution naming the file and line.
BilanExport Exporter(const std::filesystem::path& source, FormatExport format);

std::string UsageExporter();

// `arguments` follow the word "exporter". Returns 0 done, 1 execution error, 2 usage.
int CommandeExporter(const std::vector<std::string>& arguments, std::ostream& sortie, std::ostream& erreurs);

}  // namespace telvoris
