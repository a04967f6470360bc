#include "stats/parametres.hpp"

#include <gtest/gtest.h>

#include "core/texte.hpp"
#include "stats/lexiques.hpp"
#include "stats/outils.hpp"

namespace telvoris {
namespace {

using test::DialogueNote;

std::vector<std::string> Questions(std::initializer_list<std::string_view> q) {
    return std::vector<std::string>(q.begin(), q.end());
}

TEST(ParametresReleve, ChampsDuPanneauSelonLeMode) {
    {
        DialogueNote d;
        d.reponses = {"2", "O", "O", "7"};
        const auto p = DemanderParametresReleve(d, ModeReleve::Lex);
        ASSERT_TRUE(p);
        EXPECT_EQ(p->NiveauLexical, 2);
        EXPECT_TRUE(p->LimitePhrase);
        EXPECT_TRUE(p->EmpanFixe);
        EXPECT_EQ(p->Empan, 7);
        EXPECT_EQ(d.questions, Questions({"niveau lexical à traiter"_cp, "relevé limité à la phrase ?"_cp,
                                          "limité à un empan cotextuel ?"_cp, "dimension de l'empan ?"_cp}));
        EXPECT_EQ(d.defauts, (std::vector<std::string>{"0", "N", "N", ""}));
    }
    {
        // Defaults: level 0, no sentence limit, no span, which is 10000; the size is not asked.
        DialogueNote d;
        const auto p = DemanderParametresReleve(d, ModeReleve::Mic);
        ASSERT_TRUE(p);
        EXPECT_EQ(p->NiveauLexical, 0);
        EXPECT_FALSE(p->LimitePhrase);
        EXPECT_FALSE(p->EmpanFixe);
        EXPECT_EQ(p->Empan, 10000);
        EXPECT_EQ(d.questions.size(), 3u);
    }
    for (ModeReleve mode : {ModeReleve::LexMu, ModeReleve::Mac}) {
        DialogueNote d;
        d.reponses = {"3", "O"};
        const auto p = DemanderParametresReleve(d, mode);
        ASSERT_TRUE(p);
        EXPECT_EQ(p->NiveauLexical, 3);
        EXPECT_EQ(d.questions, Questions({"niveau lexical à traiter"_cp}));
    }
}

TEST(ParametresReleve, ReponsesRefusees) {
    {
        DialogueNote d;
        d.reponses = {"0", "N", "O", ""};
        EXPECT_FALSE(DemanderParametresReleve(d, ModeReleve::TgLex));
        EXPECT_EQ(d.messages, std::vector<std::string>{"Vous devez renseigner le champ de longueur de l'empan"});
    }
    {
        DialogueNote d;
        d.reponses = {"0", "N", "O", "1a"};
        EXPECT_FALSE(DemanderParametresReleve(d, ModeReleve::Mic));
        EXPECT_EQ(d.messages.size(), 1u);
    }
    for (const char* niveau : {"4", "", "00", "-1"}) {
        DialogueNote d;
        d.reponses = {niveau};
        EXPECT_FALSE(DemanderParametresReleve(d, ModeReleve::Lex)) << niveau;
        EXPECT_EQ(d.questions.size(), 1u);
        EXPECT_EQ(d.messages.size(), 1u);
    }
    {
        DialogueNote d;
        d.reponses = {"1", "peut-être"};
        EXPECT_FALSE(DemanderParametresReleve(d, ModeReleve::Lex));
        EXPECT_EQ(d.messages.size(), 1u);
    }
}

TEST(ParametresReleve, LeMenuPoseLePanneauPuisLesQuestionsDuReleve) {
    test::Banc b;
    b.Index("t", {test::kSep, "<M f=Chat >\t2\t!", "<M f=chat >\t1\t!"});
    b.dialogue.reponses = {"1", "N", "N", "N"};
    b.dialogue.fichiers = {b.Liste({"t"})};
    OperationLexique(b.ctx);
    EXPECT_EQ(b.dialogue.questions,
              Questions({"niveau lexical à traiter"_cp, "relevé limité à la phrase ?"_cp, "limité à un empan cotextuel ?"_cp,
                         "Regrouper les post-clitiques avec les autres occurrences (O/N) ?"_cp}));
    EXPECT_EQ(b.Sortie("LEXIQUES/FORMES_TYP_261121_1005.txt"), test::Lignes({"Chat\t2", "chat\t1"}));
}

}  // namespace
}  // namespace telvoris
