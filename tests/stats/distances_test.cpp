#include "stats/distances.hpp"

#include <gtest/gtest.h>

#include "core/texte.hpp"
#include "stats/outils.hpp"

namespace telvoris {
namespace {

using test::Banc;
using test::Lignes;

LexiqueNumerote Lex(DictionnaireItems& dico, stats::LignesLexique l) { return dico.Lexique(l, "test"); }

// Labbé reference, from Python with single-precision products (struct 'f') and VB rounding of
// N' after each addition: A = le 5, chat 3, chien 2; B = le 4, chat 1, souris 6 gives
// D = 10.9090908, N' = 10, d = 0.545.
TEST(Distances, JaccardEtLabbeCasLimitesEtSymetrie) {
    DictionnaireItems dico;
    const auto a = Lex(dico, {{"le", 5}, {"chat", 3}, {"chien", 2}});
    const auto b = Lex(dico, {{"le", 4}, {"chat", 1}, {"souris", 6}});
    EXPECT_EQ(DistanceJaccard(a, a), 0.0);
    EXPECT_EQ(DistanceLabbe(a, a), 0.0);
    EXPECT_EQ(DistanceJaccard(a, b), 0.667);
    EXPECT_EQ(DistanceLabbe(a, b), 0.545);
    EXPECT_EQ(DistanceLabbe(b, a), 0.545);
    const auto x = Lex(dico, {{"x", 5}}), y = Lex(dico, {{"y", 5}});
    EXPECT_EQ(DistanceJaccard(x, y), 2.0);
    EXPECT_EQ(DistanceLabbe(x, y), 1.0);
    // U = 0,5: the halves of "x" and "y" round to even (0), so N' = 1 and d = 3 / (2 + 1).
    EXPECT_EQ(DistanceLabbe(Lex(dico, {{"x", 2}}), Lex(dico, {{"x", 1}, {"y", 1}, {"z", 2}})), 1.0);
    const auto vide = Lex(dico, {});
    EXPECT_NE(test::MessageErreur([&] { DistanceJaccard(a, vide); }).find("Division par zéro"), std::string::npos);
}

std::vector<std::string> TexteCyclique(int n, int mots, const std::string& prefixe) {
    std::string ligne;
    for (int i = 0; i < n; ++i) {
        const std::string f = prefixe + std::to_string(i % mots);
        ligne += "<M f=" + f + " l=" + f + "_SM >" + f + " ";
    }
    return {"<QORX_ATTR JOURNAL=X >", ligne, "<PC f=. l=. >."};
}

// qrt reference from an independent Python run of the block rule: text 1 = 600 tokens cycling
// over 7 words, text 2 = 800 tokens over 5 words: 284; text 3 = 700 tokens over 3 words then 600
// over 11 others: 580.
TEST(Distances, QrtContreUnCalculIndependant) {
    DictionnaireItems dico;
    const auto t1 = dico.Texte(Lignes(TexteCyclique(600, 7, "w")));
    EXPECT_EQ(t1.size(), 600u);  // punctuation is not counted
    const auto t2 = dico.Texte(Lignes(TexteCyclique(800, 5, "W")));
    // Case folds: "W0" and "w0" are one form.
    EXPECT_EQ(DistanceQrt(t1, t2), 284.0);
    std::vector<std::uint32_t> t3 = dico.Texte(Lignes(TexteCyclique(700, 3, "w")));
    for (int i = 700; i < 1300; ++i) {
        std::string z = "z";
        z += std::to_string(i % 11);
        t3.push_back(dico.Numero(z));
    }
    EXPECT_EQ(DistanceQrt(t1, t3), 580.0);
    EXPECT_EQ(DistanceQrt(t1, t1), 0.0);  // one block each
    EXPECT_NE(test::MessageErreur([&] { DistanceQrt(t1, {1, 2}); }).find("Division par zéro"), std::string::npos);
}

TEST(Distances, DialoguesModeSimpleEtModeMultiple) {
    Banc b;
    const auto l1 = b.racine / "a.txt", l2 = b.racine / "b.txt";
    test::Ecrire(l1, Lignes({"le\t5", "chat\t3", "chien\t2"}));
    test::Ecrire(l2, Lignes({"le\t4", "chat\t1", "souris\t6"}));
    b.dialogue.reponses = {"S"};
    b.dialogue.fichiers = {l1, l2};
    OperationLabbe(b.ctx);
    b.dialogue.reponses = {"S"};
    b.dialogue.fichiers = {l1, l2};
    OperationJaccard(b.ctx);
    b.dialogue.reponses = {"X"};
    OperationJaccard(b.ctx);
    EXPECT_EQ(b.dialogue.messages,
              (std::vector<std::string>{std::string("Distance Labbé = 0,545"_cp), "Distance Jaccard = 0,667",
                                        std::string("Choix erroné : M ou S seulement. Vérifiez."_cp)}));
    EXPECT_EQ(b.dialogue.questions[0], "Calcul simple -S- (une paire) ou multiple -M- (un corpus) ?");

    // Multiple mode over the lexicons of each text; a missing one stops with its message.
    test::Ecrire(b.racine / "LEXIQUES_MULTIPLES" / "t1_FORMIN.txt", Lignes({"le\t5", "chat\t3", "chien\t2"}));
    test::Ecrire(b.racine / "LEXIQUES_MULTIPLES" / "t2_FORMIN.txt", Lignes({"le\t4", "chat\t1", "souris\t6"}));
    test::Ecrire(b.racine / "LEXIQUES_MULTIPLES" / "t3_FORMIN.txt", Lignes({"le\t5", "chat\t3", "chien\t2"}));
    b.dialogue.messages.clear();
    b.dialogue.reponses = {"M", "F"};
    b.dialogue.fichiers = {b.Liste({"t1", "t2", "t3"}, "corpus.txt")};
    OperationLabbe(b.ctx);
    EXPECT_EQ(b.Sortie("LABBE_corpus.txt"),
              Lignes({"\tt1\tt2\tt3", "t1\t0\t0,545\t0", "t2\t0,545\t0\t0,545", "t3\t0\t0,545\t0"}));
    b.dialogue.reponses = {"M", "L"};
    b.dialogue.fichiers = {b.Liste({"t1"}, "corpus.txt")};
    OperationJaccard(b.ctx);
    // qrt reads the tagged texts, which this corpus lacks.
    b.dialogue.reponses = {"M", "F"};
    b.dialogue.fichiers = {b.Liste({"t1"}, "corpus.txt")};
    OperationQrt(b.ctx);
    EXPECT_EQ(b.dialogue.messages,
              (std::vector<std::string>{std::string("Terminé"_cp),
                                        std::string("Vous n'avez pas établi l'ensemble des lexiques. Vérifiez."_cp),
                                        std::string("Vous n'avez pas établi l'ensemble des données. Vérifiez."_cp)}));
}

TEST(Distances, QrtEnModeMultipleEtVarieteParMille) {
    Banc b;
    b.Tague("t1", TexteCyclique(600, 7, "w"));
    b.Tague("t2", TexteCyclique(800, 5, "w"));
    b.dialogue.reponses = {"M", "F"};
    b.dialogue.fichiers = {b.Liste({"t1", "t2"}, "corpus.txt")};
    OperationQrt(b.ctx);
    EXPECT_EQ(b.Sortie("distancecorpus.txt"), Lignes({"\tt1\tt2", "t1\t0\t284", "t2\t284\t0"}));
    // In simple mode qrt shows its value under the Jaccard label.
    b.dialogue.reponses = {"S"};
    b.dialogue.fichiers = {b.racine / "OLBRIN_TT" / "t1.txt", b.racine / "OLBRIN_TT" / "t2.txt"};
    OperationQrt(b.ctx);
    EXPECT_EQ(b.dialogue.messages.back(), "Distance Jaccard = 284");

    // Variety: 1400 tokens in a row across the two texts give one complete block, of 7 forms
    // (the 400 of t2 past token 1000 are an incomplete block).
    b.dialogue.fichiers = {b.Liste({"t1", "t2"}, "corpus.txt")};
    OperationVariete(b.ctx);
    EXPECT_EQ(b.dialogue.messages.back(), std::string("Variété par 1000 : 7"_cp));
    EXPECT_EQ(b.Sortie("VARIETE_261121_1005.txt"), Lignes({std::string("Variété par 1000 : 7"_cp)}));
    b.dialogue.fichiers = {b.Liste({"t1"}, "corpus.txt")};
    EXPECT_NE(test::MessageErreur([&] { OperationVariete(b.ctx); }).find("aucun bloc complet"), std::string::npos);
}

}  // namespace
}  // namespace telvoris
