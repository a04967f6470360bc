#include "stats/sequences_mois.hpp"

#include <gtest/gtest.h>

#include "core/texte.hpp"
#include "stats/outils.hpp"

namespace telvoris {
namespace {

using test::Banc;
using test::kSep;
using test::Lignes;

std::string M(const std::string& f) { return "<M f=" + f + " l=" + f + "_X >" + f + " "; }

TEST(SequencesMois, PremiereEtDeuxiemeEtapeParMois) {
    EXPECT_EQ(MoisDuTexte("Le_Monde_2005_01_03"), "2005_01");
    EXPECT_EQ(MoisDuTexte("LE_MATIN_DU_SUD_2024-03-01"), "2024-03");
    EXPECT_EQ(MoisDuTexte("2024-03-01"), "SANS_DATE");
    EXPECT_EQ(MoisDuTexte("X_2024-3-01"), "SANS_DATE");
    EXPECT_EQ(MoisDuTexte("notes"), "SANS_DATE");
    EXPECT_EQ(MoisDuTexte("a_b_2005_x1_03"), "SANS_DATE");

    Banc b;
    const auto util = b.ctx.ressources / "utilitaires";
    test::Ecrire(util / "OUTILS.txt", Lignes({"de", "le"}));
    test::Ecrire(util / "dates.txt", Lignes({"janvier"}));
    test::Ecrire(util / "nombres.txt", Lignes({"deux"}));
    const std::string phrase = M("pomme") + M("de") + M("terre") + "<PC f=. l=. >. " + M("deux") + M("pommes");
    for (const std::string nom : {"J_2005_01_03", "J_2005_02_01", "J_2005_01_04"}) {
        b.Tague(nom, {"<QORX_ATTR JOURNAL=J >", phrase});
        b.Index(nom, {kSep, "<M f=pomme l=pomme_SF >\t1\t!", "<M f=de l=de_P >\t1\t!", "<M f=Terre l=terre_SF >\t1\t!",
                      "<M f=deux l=deux_U >\t1\t!", "<M f=pommes l=pomme_SF >\t1\t!", "<M f=2 l=2_U >\t1\t!"});
    }
    b.dialogue.reponses = {"2"};
    b.dialogue.fichiers = {b.Liste({"J_2005_01_03", "J_2005_02_01", "J_2005_01_04"})};
    OperationSequences1(b.ctx);
    // January holds two texts: counts doubled; the lexicon in bucket order; "2" counts nowhere.
    EXPECT_EQ(b.Sortie("LEXIQUES/PARMOIS_2005_01.txt"), Lignes({"de\t2", "deux\t2", "pomme\t2", "terre\t2", "pommes\t2"}));
    EXPECT_EQ(b.Sortie("MEMOS/MEMO_2005_01.txt"), Lignes({"N = 10", "V = 5"}));
    EXPECT_EQ(b.Sortie("MEMOS/MEMO_2005_02.txt"), Lignes({"N = 5", "V = 5"}));
    // "deux" may not open; "pomme de terre" is seen twice in January, once in February.
    EXPECT_EQ(b.Sortie("SEQUENCES/2005_01.txt"), Lignes({"pomme de terre\t2"}));
    EXPECT_EQ(b.Sortie("SEQUENCES/2005_02.txt"), "");
    EXPECT_EQ(b.Sortie("CONTROLE.txt"), Lignes({"2005_01\t10:05:00", "2005_02\t10:05:00"}));

    // The second step: rates against the month's N and the total of all months.
    test::Ecrire(b.racine / "SEQUENCES" / "2005_02.txt", Lignes({"pomme de terre\t1", "mise en oeuvre\t3"}));
    b.dialogue.fichiers = {b.Liste({"x"})};
    OperationSequences2(b.ctx);
    EXPECT_EQ(b.Sortie("SEQUENCES/TAUX_2005_01.txt"), Lignes({"pomme de terre\t2\t0,2"}));
    EXPECT_EQ(b.Sortie("SEQUENCES/TAUX_2005_02.txt"), Lignes({"pomme de terre\t1\t0,2", "mise en oeuvre\t3\t0,6"}));
    EXPECT_EQ(b.Sortie("SEQUENCES/A_TOTAL.txt"), Lignes({"pomme de terre\t3", "mise en oeuvre\t3", "N = 15"}));
    // A memo without "N = " is named.
    test::Ecrire(b.racine / "MEMOS" / "MEMO_2005_03.txt", Lignes({"V = 3"}));
    b.dialogue.fichiers = {b.Liste({"x"})};
    const auto m = test::MessageErreur([&] { OperationSequences2(b.ctx); });
    EXPECT_NE(m.find("MEMO_2005_03.txt"), std::string::npos) << m;
}

}  // namespace
}  // namespace telvoris
