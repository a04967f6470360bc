#include "core/nom_fichier.hpp"

namespace telvoris {

std::string NomDeFichierSur(std::string_view nom) {
    std::string r;
    r.reserve(nom.size());
    for (std::size_t i = 0; i < nom.size(); ++i) {
        const auto c = static_cast<unsigned char>(nom[i]);
        const bool interdit = c < 32 || c == 127 || c == '/' || c == '\\' || c == '<' || c == '>' || c == ':' ||
                              c == '"' || c == '|' || c == '?' || c == '*';
        if (interdit) {
            r += '_';
        } else if (c == '.' && i + 1 < nom.size() && nom[i + 1] == '.') {
            // A run of dots: every pair goes, so that no ".." survives.
            r += "__";
            ++i;
        } else {
            r += static_cast<char>(c);
        }
    }
    if (r.find_first_not_of('.') == std::string::npos) r.assign(r.empty() ? "_" : std::string(r.size(), '_'));
    return r;
}

}  // namespace telvoris
