#include "stats/sur_sous_emploi.hpp"
#include "stats/angulations.hpp"

#include <gtest/gtest.h>

#include "core/texte.hpp"
#include "stats/outils.hpp"

namespace telvoris {
namespace {

using test::Banc;
using test::Lignes;

// Reference values from Python: E = r / N * n, z = (f - E) / sqrt(E), printed with '%.15g'.
// N = 1000 (memo), n = 35: chat 6/50 -> 1.75, 3.21269802057843; chien 7/10 -> 0.35,
// 11.2405515878893; de 9/300 -> 10.5, -0.462910049886276.
TEST(Specificites, SeuilAbsentsEtMemoOctetPourOctet) {
    Banc b;
    const auto ref = b.racine / "ref" / "REF.txt";
    const auto memo = b.racine / "ref" / "MEMO.txt";
    const auto partiel = b.racine / "sous" / "PARTIEL.txt";
    // "chat" twice in the reference: the first entry is the one found.
    test::Ecrire(ref, Lignes({"de\t300", "chat\t50", "chien\t10", "le\t200", "chat\t999", "souris\t0"}));
    test::Ecrire(memo, Lignes({"N = 1000", "V = 5"}));
    test::Ecrire(partiel, Lignes({"chat\t6", "le\t5", "chien\t7", "lapin\t8", "de\t9", "souris\t0"}));
    b.dialogue.fichiers = {ref, memo, partiel};
    b.dialogue.reponses = {"P", "T"};
    OperationSpecificites(b.ctx);
    // "le" (5) is left out, "lapin" is not in the reference, "souris" has no expectation.
    EXPECT_EQ(test::Lire(b.racine / "sous" / "SPECIFICITES.txt"),
              Lignes({"chat\t6\t1,75\t3,21269802057843", "chien\t7\t0,35\t11,2405515878893",
                      "de\t9\t10,5\t-0,462910049886276"}));
    EXPECT_EQ(b.dialogue.titresFichiers,
              (std::vector<std::string>{std::string("LEXIQUE DE REFERENCE"), "FICHIER MEMO N/V", "LEXIQUE SPECIFIQUE"}));
    EXPECT_EQ(b.dialogue.questions[0], std::string("Le lexique de référence est-il total (T) ou partiel (P) ?"_cp));
    EXPECT_EQ(b.dialogue.defauts[1], "P");
    EXPECT_EQ(b.dialogue.messages, (std::vector<std::string>{std::string("Terminé en  1 secondes"_cp)}));

    // An empty memo: N fails at its conversion, naming the memo.
    test::Ecrire(memo, "");
    b.dialogue.fichiers = {ref, memo};
    b.dialogue.reponses = {"P"};
    const auto m = test::MessageErreur([&] { OperationSpecificites(b.ctx); });
    EXPECT_NE(m.find("MEMO.txt, ligne 1"), std::string::npos) << m;
    // A lexicon line without a tab is named.
    test::Ecrire(ref, Lignes({"de\t3", "chat"}));
    b.dialogue.fichiers = {ref};
    EXPECT_NE(test::MessageErreur([&] { OperationSpecificites(b.ctx); }).find("REF.txt, ligne 2"), std::string::npos);
}

TEST(Specificites, ColorationSeuilStrictEtPlusGrandeValeur) {
    Banc b;
    const auto m = b.racine / "AFC" / "ECART_REDUIT.txt";
    test::Ecrire(m, Lignes({"\tP1\tP2\tP3", "chat\t2\t5,5\t1", "chien\t2,5\t2\t9", "loup\t3\t3\t0", "rat\t-1\t2,5\t3,5"}));
    b.dialogue.reponses = {"2", "P2", "P1", "2,5"};
    b.dialogue.fichiers = {m};
    OperationSpecifColoration(b.ctx);
    // chien: 2,5 equals the threshold and does not count; loup: P2 and P1 tie, the first colour stays.
    EXPECT_EQ(test::Lire(b.racine / "AFC" / "COLOR_261121_1005.txt"), Lignes({"chat\t1", "loup\t1"}));
    EXPECT_EQ(b.dialogue.questions[1], std::string("Colonne sélectionnée n°1 ?"_cp));

    b.dialogue.reponses = {"1", "P9", "1"};
    b.dialogue.fichiers = {m};
    EXPECT_NE(test::MessageErreur([&] { OperationSpecifColoration(b.ctx); }).find("« P9 »"), std::string::npos);
    b.dialogue.reponses = {"5"};
    EXPECT_NE(test::MessageErreur([&] { OperationSpecifColoration(b.ctx); }).find("MAX_COULEURS"), std::string::npos);
}

TEST(Angulations, AnglesRemarquablesFichierZoneEtComparaison) {
    EXPECT_EQ(ArcCosinus(1), 0.0);
    EXPECT_EQ(Angle(37, 25, 37, 25), 0.0);
    EXPECT_NEAR(Angle(10, 30, 190, -30), 180.0, 1e-12);
    EXPECT_NEAR(Angle(0, 0, 90, 0), 90.0, 1e-12);
    EXPECT_NEAR(Angle(350, 0, 10, 0), 20.0, 1e-12);  // across longitude 0
    EXPECT_NEAR(Angle(0, 90, 123, 0), 90.0, 1e-12);

    Banc b;
    const auto globe = b.racine / "G_PLANISPH_123.txt";
    test::Ecrire(globe, Lignes({"&2/1", "A\t0,4\t0\t1\t0\t0\t0", "B\t90\t0\t1\t0\t0\t0", "# note", "*** 12", "C\t180\t0\t1\t0\t0\t0"}));
    b.dialogue.fichiers = {globe};
    OperationAngulationP3(b.ctx);
    const auto angles = b.racine / "G_PLANISPH_123" / "ANGULATIONS_3.txt";
    EXPECT_EQ(test::Lire(angles), Lignes({"A \tB \t90", "A \tC \t180", "B \tA \t90", "B \tC \t90", "C \tA \t180", "C \tB \t90"}));

    b.dialogue.reponses = {"A", "91", "O", "181"};
    b.dialogue.fichiers = {angles};
    OperationZoneAngulation(b.ctx);
    EXPECT_EQ(test::Lire(b.racine / "G_PLANISPH_123" / "COLOR_A.txt"), Lignes({"B \t1", "C \t2"}));
    b.dialogue.reponses = {"B", "90", "N"};
    b.dialogue.fichiers = {angles};
    OperationZoneAngulation(b.ctx);  // 90 is not below 90
    EXPECT_EQ(test::Lire(b.racine / "G_PLANISPH_123" / "COLOR_B.txt"), "");

    const auto autre = b.racine / "autre.txt";
    test::Ecrire(autre, Lignes({"A \tB \t80", "A \tC \t175,5", "B \tA \t80", "B \tC \t90", "C \tA \t180", "C \tB \t91"}));
    const auto liste = b.racine / "paires.txt";
    test::Ecrire(liste, Lignes({"une paire"}));
    b.dialogue.fichiers = {liste, angles, autre};
    b.dialogue.messages.clear();
    OperationComparerAngulations(b.ctx);
    EXPECT_EQ(test::Lire(b.racine / "G_PLANISPH_123" / "ANGULATIONS_3_COMPAR.txt"),
              Lignes({"A \tB \t10\t90\t80", "A \tC \t4,5\t180\t175,5", "B \tA \t10\t90\t80", "B \tC \t0\t90\t90",
                      "C \tA \t0\t180\t180", "C \tB \t1\t90\t91"}));
    EXPECT_EQ(test::Lire(b.racine / "G_PLANISPH_123" / "ANGULATIONS_3_COMPARSYNTHESE.txt"),
              Lignes({"A \t7,25", "B \t5", "C \t0,5"}));
    ASSERT_EQ(b.dialogue.messages.size(), 2u);
    EXPECT_EQ(b.dialogue.messages[1], std::string("Terminé. \r\nEcart moyen = 4,25"_cp));
}

}  // namespace
}  // namespace telvoris
