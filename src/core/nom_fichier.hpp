// Names taken from a file's content (a paper's name, a metadata value, a list entry) used as one
// component of a path.
#pragma once

#include <string>
#include <string_view>

namespace telvoris {

// The name made safe as one path component, so that it can never leave its folder: "/" and "\",
// the characters that no file system takes (< > : " | ? * and the control codes), and every
// ".." are replaced by "_"; a name that would be empty, or only dots, becomes "_" as well.
// Other characters, accented letters included, stay as they are.
std::string NomDeFichierSur(std::string_view nom);

}  // namespace telvoris
