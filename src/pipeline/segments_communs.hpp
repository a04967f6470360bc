// What the segmenter and the segment indexer both read: the metadata line test and the short
// frequent words. Kept below both, since the segmenter runs the indexer.
#pragma once

#include <filesystem>
#include <string_view>

#include "pipeline/listes.hpp"

namespace telvoris {

inline constexpr std::size_t MAX_COURTS_FREQUENTS_CASE = 100;

// A metadata line opens a partition: "<QORX_ATTR " and at least 12 characters.
bool EstLigneMetadonnees(std::string_view ligne);

// Loads the short frequent words (by word bucket), which the indexer keeps without positions.
ListeCasiers ChargerCourtsFrequents(const std::filesystem::path& racine);

}  // namespace telvoris
