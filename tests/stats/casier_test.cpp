#include "stats/casier_lexique.hpp"

#include <gtest/gtest.h>

#include "core/erreurs.hpp"
#include "core/texte.hpp"
#include "support/support.hpp"

namespace telvoris {
namespace {

TEST(CasierLexique, ClassesDeLaCopieStatistique) {
    // u, v and k share class 11; w to z, œ and accented initials fall in class 20; a digit or a
    // hyphen in class 0; 15 letters and 30 share the last length class.
    EXPECT_EQ(CasierLexique::Cle("kilo"), (CleMot{4, 11}));
    EXPECT_EQ(CasierLexique::Cle("unit"), (CleMot{4, 11}));
    EXPECT_EQ(CasierLexique::Cle("Vent"), (CleMot{4, 11}));
    EXPECT_EQ(CasierLexique::Cle("zoo"), (CleMot{3, 20}));
    EXPECT_EQ(CasierLexique::Cle("œuf"_cp), (CleMot{3, 20}));
    EXPECT_EQ(CasierLexique::Cle("Œuf"_cp), (CleMot{3, 20}));
    EXPECT_EQ(CasierLexique::Cle("été"_cp), (CleMot{3, 20}));
    EXPECT_EQ(CasierLexique::Cle("tout"), (CleMot{4, 20}));
    EXPECT_EQ(CasierLexique::Cle("12"), (CleMot{2, 0}));
    EXPECT_EQ(CasierLexique::Cle("-il"), (CleMot{3, 0}));
    EXPECT_EQ(CasierLexique::Cle(""), (CleMot{0, 0}));
    EXPECT_EQ(CasierLexique::Cle("anticonstitutio"), CasierLexique::Cle("anticonstitutionnellementxxxxx"));
}

TEST(CasierLexique, EcritureParFrequence) {
    CasierLexique c;
    c.Ajouter("zz", 1);
    c.Ajouter("b", 150000);
    c.Ajouter("ab", 6);
    c.Ajouter("a", 6);
    c.Ajouter("x|y", 9);
    c.Ajouter("b", 1);
    c.Ajouter("aa", 2);
    c.Ajouter("neg", -3);
    c.Ajouter("9", 50);
    test::DossierTemporaire d;
    {
        EcrivainFichier f(d.Chemin() / "lex.txt");
        EcrireParFrequence(c, f);
    }
    // Counts above 100,000 share the top slot and keep their value; "|" items, class 0 items and
    // counts below 1 are not written.
    EXPECT_EQ(test::Lire(d.Chemin() / "lex.txt"), test::Lignes({"b\t150001", "a\t6", "ab\t6", "aa\t2", "zz\t1"}));
    // Written entries are blanked; the "|" entry stays, and class 0 survives the clearing.
    EXPECT_EQ(c.Trouver("a", CasierLexique::Cle("a")), nullptr);
    ASSERT_NE(c.Trouver("x|y", CasierLexique::Cle("x|y")), nullptr);
    c.Vider();
    EXPECT_EQ(c.Trouver("x|y", CasierLexique::Cle("x|y")), nullptr);
    ASSERT_NE(c.Trouver("9", CasierLexique::Cle("9")), nullptr);
    EXPECT_EQ(c.Trouver("9", CasierLexique::Cle("9"))->compte, 50);
}

TEST(CasierLexique, CinquanteMilleEntreesParCase) {
    CasierLexique c;
    std::string mot = "aaaa";
    for (int i = 0; i < 50000; ++i) {
        mot[1] = static_cast<char>('a' + i % 26);
        mot[2] = static_cast<char>('a' + (i / 26) % 26);
        mot[3] = static_cast<char>('a' + (i / 676) % 26);
        c.Ajouter(mot + std::to_string(i / 17576), 1);
    }
    try {
        c.Ajouter("azzzz", 1);
        FAIL();
    } catch (const ErreurExecution& e) {
        EXPECT_NE(std::string(e.what()).find("50000"), std::string::npos) << e.what();
        EXPECT_NE(std::string(e.what()).find("azzzz"), std::string::npos) << e.what();
    }
}

}  // namespace
}  // namespace telvoris
