// The corpus tools of the statistics area: counts of the parts of speech by a metadata value, the
// values of one descriptor over the metadata of a folder, and the cutting of a text into parts.
#pragma once

#include <optional>
#include <string_view>

#include "core/contexte.hpp"

namespace telvoris {

// The value of a key in a metadata line "<QORX_ATTR KEY=value ... >": the text is split at "=",
// the key is the last blank-separated word on the left and the value runs to the first blank on
// the right, a pair of surrounding double quotes removed. nullopt when the key is absent.
std::optional<std::string_view> ValeurMetadonnee(std::string_view ligne, std::string_view cle);
bool EstLigneMetadonnee(std::string_view ligne);

// The part of speech of a token for "Statistiques par pos": the code behind the last "_" of l;
// "AMBIGU" for a reading list, "INCONNU" with no "_".
std::string_view CategorieJeton(std::string_view l);

// The boundary token that "ECLAIRAGE" adds at the end of each part.
inline constexpr std::string_view JETON_FIN_PARTIE = "<PC f=. l=. >.";

void OperationStatistiquesPos(Contexte& ctx);      // smn_stapos
void OperationListeDescripteurs(Contexte& ctx);    // smn_lds
void OperationEclairage(Contexte& ctx);            // Command1 "ECLAIRAGE"

}  // namespace telvoris
