#include "correction/correction_auto.hpp"

#include <gtest/gtest.h>

#include "core/erreurs.hpp"
#include "core/horloge.hpp"
#include "correction/arbre_correction.hpp"

namespace telvoris {
namespace {

using test::C;
using test::Lignes;
using test::Lire;

struct Banc {
    test::DossierTemporaire tmp;
    fs::path res = tmp.Chemin() / "MORVENTA" / "morv_res";
    fs::path corpus = tmp.Chemin() / "corpus";
    fs::path liste;
    test::DialogueScripte d;
    HorlogeFixe horloge{Instant{2026, 3, 4, 10, 0, 0}};
    Contexte ctx{d, horloge, res};

    explicit Banc(const std::map<std::string, std::string>& textes) {
        test::ContenuCorrection a;
        a.dico = {"le", "chat", "est", "ici"};
        a.rescor = {"chatt\tchat",          "lhomme\tl'homme", "xhomme\tx'homme",  "pomdeter\tpomme de terre",
                    "vientil\tvient-il",    C("peutetre\tpeut-être"_cp)};
        a.accents = {C("eleve\télève"_cp)};
        test::ConstruireArbreCorrection(res, a);
        liste = test::ConstruireCorpus(corpus, textes);
    }
};

const std::string kLigne1 = "<M f=Le >Le <M f=chatt >chatt <M f=ab >ab <M f=x2y >x2y <M f=-il >-il "
                            "<M f=inconnu >inconnu <M f=lhomme >lhomme";
const std::string kLigne2 = "<M f=Pomdeter >Pomdeter <M f=vientil >vientil <M f=peutetre >peutetre "
                            "<M f=xhomme >xhomme <M f=eleve >eleve <M f=inconnu >inconnu <M f=Zut >Zut <PC f=. >.";

TEST(CorrectionAutomatique, ChaqueCasDeReparationOctetPourOctet) {
    const std::string source = Lignes({"<QORX_ATTR JOURNAL=A >", kLigne1, "", kLigne2});
    Banc b({{"t1", source}});
    b.d.fichiers = {b.liste};
    OperationCorrectionAutomatique(b.ctx);
    const fs::path sortie = b.corpus / "OLBRIN_TT" / "CORR_260304_1000" / "t1.txt";
    EXPECT_EQ(Lire(sortie),
              Lignes({"<QORX_ATTR JOURNAL=A >",
                      // short, with a digit, a post-clitic after "-", known: left alone; unresolved: fz=2
                      "<M f=Le >Le <M f=chat fz=1 >chatt <M f=ab >ab <M f=x2y >x2y <M f=-il >-il "
                      "<M f=inconnu  fz=2 >inconnu <M f=l' fz=1><M f=homme fz=1 >lhomme",
                      // two words; a post-clitic hyphen; a hyphen and an apostrophe the lists do not
                      // allow keep the tag; the accent store
                      "<M f=pomme fz=1> <M f=de terre fz=1 >Pomdeter <M f=vient fz=1><M f=-il fz=1 >vientil "
                      "<M f=peutetre >peutetre <M f=xhomme >xhomme " +
                          C("<M f=élève fz=1 >eleve"_cp) + " <M f=inconnu  fz=2 >inconnu <M f=Zut  fz=2 >Zut <PC f=. >."}));
    // The source stays as it was.
    EXPECT_EQ(Lire(b.corpus / "OLBRIN_TT" / "t1.txt"), source);
    EXPECT_EQ(Lire(b.corpus / "controle_corrections.txt"), Lignes({"Zut\t1", "inconnu\t2"}));
    ASSERT_EQ(b.d.messages.size(), 1u);
    EXPECT_EQ(b.d.messages[0], C("Terminé !\r\n14 mots\r\n10 inconnus\r\n7 résolus\r\n3 non-résolus"_cp));
}

TEST(CorrectionAutomatique, SansDossierEtiqueteLeProgrammeFinit) {
    test::DossierTemporaire tmp;
    const fs::path res = tmp.Chemin() / "res";
    test::ConstruireArbreCorrection(res, {});
    test::Ecrire(tmp.Chemin() / "c" / "liste.txt", Lignes({"t1"}));
    test::DialogueScripte d;
    HorlogeFixe h{Instant{}};
    Contexte ctx{d, h, res};
    d.fichiers = {tmp.Chemin() / "c" / "liste.txt"};
    try {
        OperationCorrectionAutomatique(ctx);
        FAIL() << "FinProgramme attendu";
    } catch (const FinProgramme& e) {
        EXPECT_EQ(std::string(e.what()), "Dossier OLBRIN_TT absent");
    }
}

TEST(CorrectionMotAMot, CasseGardeeGroupesEtSauvegarde) {
    const std::string source =
        Lignes({"<M f=Chatt l=x >Chatt <M f=CHATT >CHATT <M f=chatt >chatt <M f=Oeuvre >Oeuvre <M f=OEUVRE >OEUVRE",
                "<M f=Pomdeter >Pomdeter <M f=autre >autre <PC f=. >."});
    Banc b({{"t1", source}});
    test::Ecrire(b.corpus / "corr.txt", Lignes({"chatt\tchat", C("oeuvre\tœuvre"_cp), "pomdeter\tpomme de terre"}));
    b.d.fichiers = {b.corpus / "corr.txt", b.liste};
    OperationCorrectionMotAMot(b.ctx);
    const std::string attendu =
        Lignes({C("<M f=Chat fx=Chatt l=x >Chatt <M f=CHAT fx=CHATT >CHATT <M f=chat fx=chatt >chatt "
                  "<M f=Œuvre fx=Oeuvre >Oeuvre <M f=ŒUVRE fx=OEUVRE >OEUVRE"_cp),
                "<cw fx=Pomdeter ><w f=Pomme ><w f=de ><w f=terre ></cw>Pomdeter <M f=autre >autre <PC f=. >."});
    EXPECT_EQ(Lire(b.corpus / "OLBRIN_TT" / "t1.txt"), attendu);
    EXPECT_EQ(Lire(b.corpus / "OLBRIN_TT" / "AVANT_CORMAM" / "t1.txt"), source);
    EXPECT_EQ(b.d.messages.back(), C("Terminé. 6 corrections."_cp));
    // A second run backs up the state before it: the output of the first.
    b.d.fichiers = {b.corpus / "corr.txt", b.liste};
    OperationCorrectionMotAMot(b.ctx);
    EXPECT_EQ(Lire(b.corpus / "OLBRIN_TT" / "AVANT_CORMAM" / "t1.txt"), attendu);

    EXPECT_EQ(AppliquerCasse("'tis", "Tis"), "'tis");  // a sign keeps its code
    test::Ecrire(b.corpus / "corr.txt", Lignes({"chatt chat"}));
    b.d.fichiers = {b.corpus / "corr.txt", b.liste};
    EXPECT_EQ(test::MessageErreur([&] { OperationCorrectionMotAMot(b.ctx); }),
              "Ligne sans tabulation : « chatt chat » (" + (b.corpus / "corr.txt").string() + ", ligne 1)");
}

TEST(IntegrationStock, CopieDateeFusionEtClassesCourtes) {
    Banc b(std::map<std::string, std::string>{{"t1", ""}});
    const fs::path stock = b.res / "rescor" / "rescor";
    test::Ecrire(stock / "2a.txt", Lignes({"ab\tabc"}));
    test::Ecrire(b.corpus / "nouvelles.txt", Lignes({"Chatt\tX", "nouveau\tneuf", "", "1er\tpremier"}));
    b.d.fichiers = {b.corpus / "nouvelles.txt"};
    OperationIntegrationRescor(b.ctx);
    const fs::path copie = b.res / "rescor" / "rescor_260304_1000";
    EXPECT_EQ(Lire(copie / "2a.txt"), Lignes({"ab\tabc"}));
    EXPECT_EQ(Lire(copie / "5c.txt"), Lignes({"chatt\tchat"}));
    // A fault already there gets the new right form appended; classes 1 and 2 come out empty.
    EXPECT_EQ(Lire(stock / "5c.txt"), Lignes({"chatt\tchatX"}));
    EXPECT_EQ(Lire(stock / "7n.txt"), Lignes({"nouveau\tneuf"}));
    EXPECT_EQ(Lire(stock / "2a.txt"), "");
    EXPECT_NE(b.d.messages.back().find("1 paire(s)"), std::string::npos);

    // The other store works the same way into its own folder.
    test::Ecrire(b.corpus / "inc.txt", Lignes({"faux\tvrai"}));
    b.d.fichiers = {b.corpus / "inc.txt"};
    OperationIntegrationIncor(b.ctx);
    EXPECT_EQ(Lire(b.res / "incor" / "incor" / "4f.txt"), Lignes({"faux\tvrai"}));
    EXPECT_TRUE(fs::exists(b.res / "incor" / "incor_260304_1000" / "4f.txt"));

    // A store that lacks a file stops the run before anything is rewritten.
    fs::remove(stock / "9t.txt");
    b.d.fichiers = {b.corpus / "nouvelles.txt"};
    EXPECT_NE(test::MessageErreur([&] { OperationIntegrationRescor(b.ctx); }).find("9t.txt"), std::string::npos);
    EXPECT_EQ(Lire(stock / "5c.txt"), Lignes({"chatt\tchatX"}));
}

}  // namespace
}  // namespace telvoris
