// Finding the resource tree MORVENTA/morv_res at start-up.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace telvoris {

// The message shown when no resource tree is found; the program then ends.
std::string MessageRessourcesAbsentes();

// The places searched, in order, when no folder is given: beside the executable, in
// ../share, in the home folder, in /usr/local/share and /usr/share, then on mounted media.
std::vector<std::filesystem::path> LieuxRessources(const std::filesystem::path& dossierExecutable,
                                                   const std::optional<std::filesystem::path>& maison);

// The resource root: the given folder when there is one (it must exist), else the first place
// of the search order that holds MORVENTA/morv_res ("MORVENTA" compared without case).
// nullopt when nothing is found.
std::optional<std::filesystem::path> LocaliserRessources(const std::optional<std::filesystem::path>& option,
                                                         const std::filesystem::path& dossierExecutable,
                                                         const std::optional<std::filesystem::path>& maison);

}  // namespace telvoris
