// Compound review sessions: candidates <MK ...> kept as one token or given back as words.
#include <gtest/gtest.h>

#include "core/erreurs.hpp"
#include "core/horloge.hpp"
#include "core/fichiers.hpp"
#include "core/texte.hpp"
#include "pipeline/levee.hpp"
#include "arbre_etiquetage.hpp"
#include "support/support.hpp"

namespace telvoris {
namespace {

using test::DossierTemporaire;
using test::Ecrire;
using test::Lignes;
using test::Lire;
namespace fs = std::filesystem;

using test::C;

const std::string kPdt = "<MK f=pomme_de_terre z=3 >";
const std::string kDu = "<MK z=2 f=du >";
const std::string kCuite = "<MK f=pomme_de_terre_cuite z=4 >";

const std::string kT1 =
    "<M f=Il l=il_P >Il " + kPdt + "<M f=pomme l=pomme_SF x=s >pomme <M f=de l=de_BX >de <M f=terre >terre<PC f=. l=PT >.\r\n" +
    "<M f=la l=la_P >la " + kPdt + "<M f=pomme >pomme <M f=de >de <M f=terre >terre\r\n";
const std::string kT2 = kDu + "<M f=de >de <M f=le >le <M f=chat >chat\r\n" + kCuite + kPdt +
                        "<M f=pomme >pomme <M f=de >de <M f=terre >terre <M f=cuite >cuite";

struct Corpus {
    DossierTemporaire racine;
    test::DialogueScripte d;
    HorlogeFixe h{{2026, 11, 21, 10, 0, 0}};
    Contexte ctx{d, h, {}};
    Corpus() {
        Ecrire(TT() / "t1.txt", kT1);
        Ecrire(TT() / "t2.txt", kT2);
        fs::create_directories(TT() / "CONTROLE_COMPOSES");
        Ecrire(racine.Chemin() / "l.txt", Lignes({"t1", "t2"}));
    }
    fs::path TT() const { return racine.Chemin() / "OLBRIN_TT"; }
    fs::path Ctrl() const { return TT() / "CONTROLE_COMPOSES"; }
    ListeTextes Liste() const { return ChargerListeTextes(racine.Chemin() / "l.txt"); }
};

TEST(LeveeComposes, SessionEntiere) {
    Corpus c;
    SessionLevee s = SessionLevee::OuvrirComposes(c.Liste(), c.h, c.d);
    // The candidates are gathered on the first run, the most frequent first; <MK counts for one
    // position.
    EXPECT_EQ(Lire(c.Ctrl() / "#INDEX_MK.txt"),
              Lignes({kPdt + "\t3\t2-8-17", kDu + "\t1\t12", kCuite + "\t1\t16"}));
    EXPECT_EQ(Lire(c.TT() / "AVANT_LCA" / "261121_1000" / "t2.txt"), kT2);
    EXPECT_EQ(s.Etiquette(), EtiquetteSession::levcon_comp);
    EXPECT_EQ(s.LigneCas(), C("CAS n°1 sur 3 : pomme_de_terre : 3 occurrence(s)."_cp));
    ASSERT_EQ(s.NbLectures(), 1);
    // Contexts leave the candidates out; rows by reversed left context: "la ", "Il ", "chat ".
    EXPECT_EQ(s.Occurrence(0).position, 8);
    EXPECT_EQ(s.Occurrence(1).position, 2);
    EXPECT_EQ(s.Occurrence(1).droite, " pomme de terre . la pomme de terre");
    EXPECT_EQ(s.Occurrence(2).position, 17);
    EXPECT_EQ(s.Occurrence(2).gauche, std::string(64 - 11, ' ') + "de le chat ");
    s.Cocher(1, 1);
    s.Cocher(2, 1);
    ASSERT_TRUE(s.CasSuivant());
    // Kept: one <MC> token with the words' text behind it, the words emptied. Refused: the
    // candidate goes and the words stay.
    EXPECT_EQ(s.TexteFichier(0),
              "<M f=Il l=il_P >Il <MC f=pomme_de_terre z=3 >pomme de terre<M ><M ><M ><PC f=. l=PT >.\r\n"
              "<M f=la l=la_P >la <M ><M f=pomme >pomme <M f=de >de <M f=terre >terre\r\n");

    // "du" refused becomes the contracted article.
    EXPECT_EQ(s.LigneCas(), C("CAS n°2 sur 3 : du : 1 occurrence(s)."_cp));
    ASSERT_TRUE(s.CasSuivant());
    EXPECT_EQ(s.Jeton(12), C("<M f= l=le_DÂ x=ms >"_cp));

    // The outer candidate covers the compound kept inside it as three words.
    EXPECT_EQ(s.LigneCas(), C("CAS n°3 sur 3 : pomme_de_terre_cuite : 1 occurrence(s)."_cp));
    EXPECT_EQ(s.Occurrence(0).jeton, kCuite);
    s.CocherColonne(1);
    EXPECT_FALSE(s.CasSuivant());
    EXPECT_EQ(Lire(c.TT() / "t2.txt"),
              C("<M f= l=le_DÂ x=ms ><M f=de >de <M f=le >le <M f=chat >chat\r\n"_cp) +
                  "<MC f=pomme_de_terre_cuite z=4 >pomme de terre cuite<M ><M ><M ><M ><M >");
    EXPECT_EQ(Lire(c.Ctrl() / "#BILAN.txt"), Lignes({kPdt + "\t101", kDu + "\t0", kCuite + "\t1"}));
    EXPECT_EQ(Lire(c.Ctrl() / "#ETAT.txt"), Lignes({"3"}));
}

TEST(LeveeComposes, RevisionEtReprise) {
    Corpus c;
    {
        SessionLevee s = SessionLevee::OuvrirComposes(c.Liste(), c.h, c.d);
        s.CocherColonne(1);
        ASSERT_TRUE(s.CasSuivant());
        EXPECT_NE(s.TexteFichier(0), kT1);
        // REVISER restores tokens and separators alike.
        ASSERT_TRUE(s.Reviser());
        EXPECT_EQ(s.TexteFichier(0), kT1);
        EXPECT_EQ(s.TexteFichier(1), kT2);
        EXPECT_EQ(s.LibelleBouton(), "CAS PRECEDENT");
        ASSERT_TRUE(s.CasSuivant());
        EXPECT_EQ(s.NoCas(), 1u);
        ASSERT_TRUE(s.CasSuivant());
        EXPECT_EQ(s.NoCas(), 2u);
        s.Sauver();
    }
    EXPECT_EQ(Lire(c.Ctrl() / "#ETAT.txt"), Lignes({"1"}));
    std::string refuse = kT1;
    for (std::size_t i; (i = refuse.find(kPdt)) != std::string::npos;) refuse.replace(i, kPdt.size(), "<M >");
    EXPECT_EQ(Lire(c.TT() / "t1.txt"), refuse);
    // Resumed behind the number saved, with the earlier review lines kept in front.
    SessionLevee t = SessionLevee::OuvrirComposes(c.Liste(), c.h, c.d);
    EXPECT_EQ(t.NoCas(), 2u);
    ASSERT_TRUE(t.CasSuivant());
    EXPECT_EQ(t.NoCas(), 3u);
    t.Cocher(0, 1);
    EXPECT_FALSE(t.CasSuivant());
    EXPECT_EQ(Lire(c.Ctrl() / "#BILAN.txt"), Lignes({kPdt + "\t000", kDu + "\t0", kCuite + "\t1"}));
    // The inner candidate was absorbed by the outer compound.
    EXPECT_EQ(Lire(c.TT() / "t2.txt").substr(kT2.find('\n') + 1 + 6),
              "<MC f=pomme_de_terre_cuite z=4 >pomme de terre cuite<M ><M ><M ><M ><M >");
    // Everything done: the session ends at once.
    EXPECT_TRUE(SessionLevee::OuvrirComposes(c.Liste(), c.h, c.d).Terminee());
}

TEST(LeveeComposes, DossierAbsentEtIndexDonne) {
    Corpus c;
    // An index brought from elsewhere is read as it stands: here the outer candidate comes first,
    // so the inner one is absorbed before its turn, shows as <M > and is skipped.
    Ecrire(c.Ctrl() / "#INDEX_MK.txt", Lignes({kCuite + "\tx\t16", kPdt + "\t1\t17"}));
    c.d.fichiers.push_back(c.racine.Chemin() / "l.txt");
    c.d.reponses = {"I", "O"};
    OperationLeveeComposes(c.ctx);
    ASSERT_EQ(c.d.messages.size(), 1u);
    EXPECT_EQ(c.d.messages[0].substr(0, 54), C("CAS n°1 sur 2 : pomme_de_terre_cuite : 1 occurrence(s)."_cp).substr(0, 54));
    EXPECT_EQ(Lire(c.Ctrl() / "#ETAT.txt"), Lignes({"0"}));
    EXPECT_EQ(Lire(c.TT() / "t2.txt"), kT2);
    c.d.fichiers.push_back(c.racine.Chemin() / "l.txt");
    c.d.reponses = {"1", "1"};
    OperationLeveeComposes(c.ctx);
    EXPECT_NE(c.d.messages[c.d.messages.size() - 2].find("1 (.) " + std::string(32, ' ') + "de le chat pomme_de_terre_cuite [<M >]"),
              std::string::npos)
        << c.d.messages[c.d.messages.size() - 2];
    EXPECT_EQ(c.d.messages.back(), C("Opération terminée"_cp));
    EXPECT_EQ(Lire(c.Ctrl() / "#ETAT.txt"), Lignes({"2"}));
    EXPECT_EQ(Lire(c.Ctrl() / "#BILAN.txt"), Lignes({kCuite + "\t1", kPdt + "\t"}));
    EXPECT_EQ(Lire(c.TT() / "t2.txt").substr(kT2.find('\n') + 1),
              "<MC f=pomme_de_terre_cuite z=4 >pomme de terre cuite<M ><M ><M ><M ><M >");

    fs::remove_all(c.Ctrl());
    try {
        SessionLevee::OuvrirComposes(c.Liste(), c.h, c.d);
        ADD_FAILURE();
    } catch (const FinProgramme& e) {
        EXPECT_EQ(e.what(), TexteChemin(c.Ctrl()) +
                                C("----Il n'existe pas de dossier de composés ambigus. Veuillez vérifier vos données."_cp));
    }
}

}  // namespace
}  // namespace telvoris
