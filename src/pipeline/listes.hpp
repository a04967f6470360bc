// Word lists of the resource tree as the tagging stages hold them: flat lists, and lists kept
// by word bucket (length class and initial class) or by initial class only. Membership is an
// exact, case-sensitive comparison within the word's bucket; a hash set per bucket keeps it fast.
#pragma once

#include <cstdint>
#include <cstring>
#include <filesystem>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "core/jetons.hpp"

namespace telvoris {

// A fast hash for short texts (words, tags): eight bytes at a time, mixed by multiplication.
struct HachageTexte {
    using is_transparent = void;
    std::size_t operator()(std::string_view s) const noexcept {
        constexpr std::uint64_t kMul = 0x9E3779B97F4A7C15ULL;
        std::uint64_t h = s.size() * kMul;
        std::size_t i = 0;
        for (; i + 8 <= s.size(); i += 8) {
            std::uint64_t w;
            std::memcpy(&w, s.data() + i, 8);
            h = (h ^ w) * kMul;
            h ^= h >> 29;
        }
        std::uint64_t reste = 0;
        std::memcpy(&reste, s.data() + i, s.size() - i);
        h = (h ^ reste) * kMul;
        h ^= h >> 32;
        return static_cast<std::size_t>(h);
    }
};

// Texts numbered in order of first insertion and found by open addressing (a power-of-two table,
// linear probing). Vider() forgets only the slots in use and keeps the strings' capacity, so a
// table emptied at each partition costs nothing to reuse.
class IndexTextes {
public:
    static constexpr std::uint32_t kAbsent = 0xFFFFFFFFu;

    // The number of `t`, added when new (`nouveau` tells which).
    std::uint32_t Inserer(std::string_view t, bool& nouveau);
    std::uint32_t Trouver(std::string_view t) const;
    const std::string& Texte(std::uint32_t i) const { return textes_[i]; }
    std::size_t Taille() const { return n_; }
    void Vider();

private:
    std::size_t Sonder(std::string_view t, std::uint64_t h) const;
    void Agrandir();
    std::vector<std::string> textes_;
    std::vector<std::uint64_t> hachages_;
    std::vector<std::uint32_t> cases_;
    std::size_t n_ = 0;
};

using EnsembleTextes = std::unordered_set<std::string, HachageTexte, std::equal_to<>>;

// A flat list with a bound on its number of lines.
class ListePlate {
public:
    ListePlate(std::string nomLimite, std::size_t max) : nomLimite_(std::move(nomLimite)), max_(max) {}
    void Ajouter(std::string_view mot, std::string_view source);
    bool Contient(std::string_view mot) const { return mots_.find(mot) != mots_.end(); }
    std::size_t Taille() const { return taille_; }

private:
    std::string nomLimite_;
    std::size_t max_;
    std::size_t taille_ = 0;
    EnsembleTextes mots_;
};

// A list by word bucket: (length class, initial class) of the tagging copy, or initial class only.
class ListeCasiers {
public:
    enum class Cle { MotEntier, InitialeSeule };
    ListeCasiers(std::string nomLimite, std::size_t maxParCasier, Cle cle = Cle::MotEntier);

    // Adds a word to its own bucket.
    void Ajouter(std::string_view mot, std::string_view source);
    // Adds a word to a given bucket (a dictionary file fills the bucket it is named after).
    void AjouterDansCasier(CleMot casier, std::string_view mot, std::string_view source);
    bool Contient(std::string_view mot) const { return Contient(mot, ClasserItem(mot)); }
    // The same when the word's bucket is known already.
    bool Contient(std::string_view mot, CleMot cle) const;
    std::size_t Taille() const;

private:
    std::size_t Indice(CleMot cle) const;
    std::string nomLimite_;
    std::size_t max_;
    Cle cle_;
    std::vector<IndexTextes> casiers_;
    std::vector<std::size_t> comptes_;
};

// Reads a list file of the resource tree: its non-empty lines, in order.
std::vector<std::string> LireListe(const std::filesystem::path& fichier);

}  // namespace telvoris
