// The slices of TEXTE_ETIQUETE that a query or the navigator needs, each read once and kept.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace telvoris {

class Tranches {
public:
    Tranches(const std::filesystem::path& index, long long nbMots) : dossier_(index / "TEXTE_ETIQUETE"), nbMots_(nbMots) {}

    // The tag at a corpus position (1 up), or "" outside the corpus or past a short slice.
    std::string_view Balise(long long q);

private:
    struct Tranche {
        std::string texte;
        std::vector<std::string_view> balises;
    };
    std::filesystem::path dossier_;
    long long nbMots_;
    std::unordered_map<long long, std::unique_ptr<Tranche>> tranches_;
};

// Whether a tag of a slice (with its offset k) is the index tag `balise` (without it).
bool MemeBalise(std::string_view tranche, std::string_view balise);

}  // namespace telvoris
