// Hashing and a flat index of short texts (words, tags), shared by the word tables.
#pragma once

#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

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
        if (i < s.size()) std::memcpy(&reste, s.data() + i, s.size() - i);
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

}  // namespace telvoris
