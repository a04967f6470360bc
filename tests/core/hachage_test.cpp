#include "core/hachage.hpp"

#include <gtest/gtest.h>

namespace telvoris {
namespace {

// Numbers follow first insertion, survive growth, and an emptied index takes new texts afresh
// (the partition index is emptied and refilled thousands of times in one run).
TEST(IndexTextes, OrdreCroissanceEtVidage) {
    IndexTextes index;
    for (int tour = 0; tour < 3; ++tour) {
        const int n = 100 + tour * 1000;
        for (int i = 0; i < n; ++i) {
            bool nouveau = false;
            EXPECT_EQ(index.Inserer("mot" + std::to_string(i), nouveau), static_cast<std::uint32_t>(i));
            EXPECT_TRUE(nouveau);
        }
        bool nouveau = true;
        EXPECT_EQ(index.Inserer("mot7", nouveau), 7u);
        EXPECT_FALSE(nouveau);
        EXPECT_EQ(index.Trouver("mot" + std::to_string(n - 1)), static_cast<std::uint32_t>(n - 1));
        EXPECT_EQ(index.Trouver("mot" + std::to_string(n)), IndexTextes::kAbsent);
        EXPECT_EQ(index.Texte(42), "mot42");
        EXPECT_EQ(index.Taille(), static_cast<std::size_t>(n));
        index.Vider();
        EXPECT_EQ(index.Trouver("mot1"), IndexTextes::kAbsent);
        EXPECT_EQ(index.Taille(), 0u);
    }
    // Texts that differ only past their eighth byte, or by length, are told apart.
    bool nouveau;
    EXPECT_NE(index.Inserer("abcdefgh1", nouveau), index.Inserer("abcdefgh2", nouveau));
    EXPECT_NE(index.Inserer("", nouveau), index.Inserer(std::string(1, '\0'), nouveau));
}

}  // namespace
}  // namespace telvoris
