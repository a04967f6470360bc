// XML export: each article (partition) of a tagged text of OLBRIN_TT gives one file in each of two
// shapes: ARCHIVE_XMLTXM, one element a word with its readings as children, and ARCHIVE_XMLTEI,
// the readings as attributes. Nothing is escaped: the text goes out in CP1252 as it stands.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "core/contexte.hpp"

namespace telvoris {

// What one export run carries from paragraph to paragraph and from text to text.
struct EtatExportXml {
    std::string date;      // dateCreated of the head line, the day of the run
    std::string fragment;  // the token-table cell the flat shape's next paragraph head repeats
};

// Exports the tagged text `contenu` of the text `nom`: writes <nom>_<i>.txt, i from 1, into both
// folders (which must stand). Returns the number of articles.
long long ExporterTexteXml(std::string_view contenu, std::string_view nom, const std::filesystem::path& dossierTxm,
                           const std::filesystem::path& dossierTei, EtatExportXml& etat);

// The menu operation "Conversion XML-TXM".
void ExporterXml(Contexte& contexte);

}  // namespace telvoris
