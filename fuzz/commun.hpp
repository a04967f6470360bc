// What the fuzz targets share: a dialogue that answers nothing, a scratch folder of the process,
// and the expected ways for a parser to refuse its input.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "core/dialogue.hpp"

namespace telvoris::fuzz {

namespace fs = std::filesystem;

// Takes the default of every input box, cancels every file dialog, shows nothing.
class DialogueMuet : public Dialogue {
public:
    std::optional<std::string> Demander(std::string_view, std::string_view, std::string_view defaut) override {
        return std::string(defaut);
    }
    std::optional<fs::path> ChoisirFichier(std::string_view, std::string_view) override { return std::nullopt; }
    void Afficher(std::string_view) override {}
    void Resultat(std::string_view) override {}
    void Progression(std::string_view, long long, long long) override {}
    void MasquerProgression() override {}
};

// A folder of this process under the system's temporary folder, emptied at each call and
// removed at exit.
const fs::path& DossierTravail();
void ViderDossierTravail();

// The resource tree of the tests, in the source tree.
fs::path RessourcesFixture();
fs::path DossierSource();

// Writes bytes to a file, creating its folders.
void EcrireOctets(const fs::path& fichier, std::string_view octets);

// Runs f; a refusal of the input with the system's messages (an execution error, the end of the
// program on a checked precondition) is a normal outcome. Anything else escapes and is a finding.
void Accepter(const std::function<void()>& f);

// Cuts an input holding several files into its pieces, at each line "@@@@" (LF-ended); missing
// pieces are empty.
std::vector<std::string_view> Morceaux(std::string_view entree, std::size_t n);

inline std::string_view Octets(const std::uint8_t* data, std::size_t taille) {
    return {reinterpret_cast<const char*>(data), taille};
}

}  // namespace telvoris::fuzz
