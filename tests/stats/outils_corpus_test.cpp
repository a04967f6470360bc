#include "stats/outils_corpus.hpp"

#include <gtest/gtest.h>

#include "core/texte.hpp"
#include "stats/outils.hpp"

namespace telvoris {
namespace {

using test::Banc;
using test::Lignes;

TEST(OutilsCorpus, MetadonneesEtCategories) {
    const std::string l = "<QORX_ATTR JOURNAL=Le_Monde DATE=\"2005-01-03\" TITRE=\" N°=7 VIDE= >"_cp.data();
    EXPECT_EQ(ValeurMetadonnee(l, "JOURNAL"), "Le_Monde");
    EXPECT_EQ(ValeurMetadonnee(l, "DATE"), "2005-01-03");
    EXPECT_EQ(ValeurMetadonnee(l, "TITRE"), "\"");  // a lone quote stays
    EXPECT_EQ(ValeurMetadonnee(l, "N°"_cp), "7");
    EXPECT_EQ(ValeurMetadonnee(l, "VIDE"), "");
    EXPECT_EQ(ValeurMetadonnee(l, "PAGE"), std::nullopt);
    EXPECT_EQ(CategorieJeton("chat_SM"), "SM");
    EXPECT_EQ(CategorieJeton("porte-monnaie_x_SM"), "SM");
    EXPECT_EQ(CategorieJeton(".SF:fs/er.V:P3s"), "AMBIGU");
    EXPECT_EQ(CategorieJeton(","), "INCONNU");
}

TEST(OutilsCorpus, StatistiquesParPosSansEtAvecDate) {
    Banc b;
    b.Tague("t1", {"<QORX_ATTR JOURNAL=A DATE=2005-01-03 >", "<M f=Le l=le_D >Le <M f=chat l=chat_SM >chat <PC f=. l=. >.",
                   "<QORX_ATTR JOURNAL=B DATE=2006-02-01 >", "<M f=porte l=.SF:fs/er.V:P3s >porte <MC f=a_priori l=a_priori_R >a priori"});
    b.Tague("t2", {"<QORX_ATTR JOURNAL=C DATE=2005-12-31 >", "<M f=chien l=chien_SM >chien"});
    b.dialogue.fichiers = {b.Liste({"t1", "t2"})};
    b.dialogue.reponses = {"AUCUN"};
    OperationStatistiquesPos(b.ctx);
    // Only "<M " tokens: the compound and the punctuation are not counted.
    EXPECT_EQ(b.Sortie("FLEXTRA.txt"), Lignes({"\tTOTAL", "D\t1", "SM\t2", "AMBIGU\t1"}));
    b.dialogue.fichiers = {b.Liste({"t1", "t2"})};
    b.dialogue.reponses = {"DATE", "4"};
    OperationStatistiquesPos(b.ctx);
    EXPECT_EQ(b.Sortie("FLEXTRA.txt"), Lignes({"\t2005\t2006", "D\t1\t0", "SM\t2\t0", "AMBIGU\t0\t1"}));
    // Tokens before any metadata line make a column without a name.
    b.Tague("t3", {"<M f=vent l=vent_SM >vent", "<QORX_ATTR DATE=2007-01-01 >", "<M f=vent l=vent_SM >vent"});
    b.dialogue.fichiers = {b.Liste({"t3"})};
    b.dialogue.reponses = {"DATE", "4"};
    OperationStatistiquesPos(b.ctx);
    EXPECT_EQ(b.Sortie("FLEXTRA.txt"), Lignes({"\t\t2007", "SM\t1\t1"}));
    EXPECT_EQ(b.dialogue.questions.back(), std::string("Nombre de caractères à gauche de la date ?"_cp));
}

TEST(OutilsCorpus, ListeDescripteursComptesEtMessage) {
    Banc b;
    test::Ecrire(b.racine / "DCP" / "a.txt", Lignes({"<QORX_ATTR JOURNAL=X THEME=eco >", "texte", "<QORX_ATTR JOURNAL=Y THEME= >"}));
    test::Ecrire(b.racine / "DCP" / "sous" / "b.txt",
                 Lignes({"<QORX_ATTR JOURNAL=Y THEME=pol >", "<QORX_ATTR THEME=eco >", "<QORX_ATTR JOURNAL=Y >"}));
    b.dialogue.reponses = {"JOURNAL"};
    b.dialogue.fichiers = {b.Liste({"x"})};
    OperationListeDescripteurs(b.ctx);
    EXPECT_EQ(b.Sortie("LISTES_DESCRIPTEURS/JOURNAL.txt"), Lignes({"Y\t3", "X\t1"}));
    EXPECT_EQ(b.dialogue.messages.back(), "4 cas remplis.\r\n2 types de ce descripteur.\r\n5 articles au total.");
}

TEST(OutilsCorpus, EclairageParMotsEtParMetadonnees) {
    Banc b;
    const auto texte = b.racine / "OLBRIN_TT" / "t.txt";
    test::Ecrire(texte, Lignes({"<QORX_ATTR N=1 >", "<M f=a >a <M f=b >b <PC f=, l=, >, <M f=c >c", "<M f=d >d",
                                "<QORX_ATTR N=2 >", "<M f=e >e"}));
    b.dialogue.fichiers = {texte};
    b.dialogue.reponses = {"MOTS", "2"};
    OperationEclairage(b.ctx);
    EXPECT_EQ(b.Sortie("OLBRIN_TT/t_ECLAIRAGE.txt"),
              Lignes({"<QORX_ATTR N=1 >", "<M f=a >a <M f=b >b <PC f=. l=. >. <PC f=, l=, >, <M f=c >c",
                      "<M f=d >d <PC f=. l=. >.", "<QORX_ATTR N=2 >", "<M f=e >e"}));
    EXPECT_EQ(b.dialogue.messages.back(), std::string("Terminé : 2 parties."_cp));
    b.dialogue.fichiers = {texte};
    b.dialogue.reponses = {"META", "0"};
    OperationEclairage(b.ctx);
    EXPECT_EQ(b.Sortie("OLBRIN_TT/t_ECLAIRAGE.txt"),
              Lignes({"<QORX_ATTR N=1 >", "<M f=a >a <M f=b >b <PC f=, l=, >, <M f=c >c", "<M f=d >d", "<PC f=. l=. >.",
                      "<QORX_ATTR N=2 >", "<M f=e >e", "<PC f=. l=. >."}));
    b.dialogue.fichiers = {texte};
    b.dialogue.reponses = {"MOTS", "0"};
    EXPECT_NE(test::MessageErreur([&] { OperationEclairage(b.ctx); }).find("incorrect : 0"), std::string::npos);
}

}  // namespace
}  // namespace telvoris
