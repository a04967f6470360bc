#include "pipeline/contexte_regles.hpp"

#include <gtest/gtest.h>

#include "core/erreurs.hpp"
#include "core/horloge.hpp"
#include "pipeline/arbre_etiquetage.hpp"
#include "pipeline/automate.hpp"

namespace telvoris {
namespace {

using test::DossierTemporaire;
using test::Lignes;
using test::Lire;

using test::C;

test::ContenuArbre Arbre() {
    test::ContenuArbre a;
    a.dico = {"il,.P",         "elle,.P",          "ne,.A",           "le,.DMS:ms/.P",        "voit,2ir.V:3a",
              "pas,.SM:x/.A",  C("est,.SM:s/3être.V:3a"_cp), "europe,.N", "sud,.SM:s",         C("à,.P"_cp),
              "l',.P",         "quel,.J:ms",       "que,.CS/.P",      C("soit,.CS/4être.V:3e"_cp), "chat,.SM:s",
              "porte,.SF:s/0r.V:1a", "pierre,.SF:s/.N", "mange,0r.V:1a/0r.V:3a/0r.V:2i", "de,.BX/.DS:x",
              "petits,.J:xp/.SM:p/0r.V:3a", "les,.DPP:p", "a,1avoir.V:3a", C("été,.SM:s/3être.V:yms"_cp)};
    a.composes = {"pomme de,.SF:s"};
    a.preverb = {"il\t3\t1", "elle\t3\t2"};
    a.prenom = {"le\t1", "DP\t2", "le de DP\t1"};
    a.prevernom = {C("à\t8\tF\t0"_cp), "de\t8\tF\t0"};
    a.postclit = {"-je\t1", "-il\t3"};
    a.verbes = {"porter_V\tx\t\t", "manger_V\tx\tx\t"};
    return a;
}

const ListesContexte& Listes() {
    static DossierTemporaire d;
    static ListesContexte l = [] {
        test::ConstruireArbre(d.Chemin(), Arbre());
        ListesContexte listes;
        ChargerListesContexte(listes, d.Chemin());
        return listes;
    }();
    return l;
}

std::string Passer(PasseContexte& p, std::string_view ligne) {
    std::string s;
    p.TraiterLigne(ligne, s);
    return s;
}

TEST(ReglesContexte, SignatureDesLectures) {
    EXPECT_EQ(SignatureLecture("0r.V:3a"), "V3");
    EXPECT_EQ(SignatureLecture("3être.V:yms+yfs"_cp), "Vyms");
    EXPECT_EQ(SignatureLecture(".V:f"), "Vf");
    EXPECT_EQ(SignatureLecture(".SM:x"), "SMx");
    EXPECT_EQ(SignatureLecture(".SW"), "SW");
    EXPECT_EQ(SignatureLecture(".J:xs"), "Jxs");
    EXPECT_EQ(SignatureLecture(".R:x"), "Rx");
    EXPECT_EQ(SignatureLecture(".DFS:fs"), "D");
    EXPECT_EQ(SignatureLecture(".N"), "N");
    EXPECT_EQ(SignatureLecture("abc"), "a");
    EXPECT_EQ(SignatureLecture(""), "");
}

TEST(ReglesContexte, ReglesDeMots) {
    PasseContexte p(Listes());
    // "ne" three places to the left, through words that meet the test.
    EXPECT_EQ(Passer(p, "<M f=il l=il_P >il <M f=ne l=ne_A >ne <M f=le l=le_O >le <M f=voit l=voir_V x=3a >voit "
                        "<M f=pas l=.SM:x/.A >pas"),
              "<M f=il l=il_P >il <M f=ne l=ne_A >ne <M f=le l=le_O >le <M f=voit l=voir_V x=3a >voit "
              "<M k=0 f=pas l=pas_A >pas");
    // "est" after a capital, not after "Sud", and after "à l'".
    EXPECT_EQ(Passer(p, C("<M f=Europe l=europe_N >Europe <M f=est l=.SM:s/3être.V:3a >est <M f=Sud l=sud_SM >Sud "
                          "<M f=est l=.SM:s/3être.V:3a >est <M f=à l=à_P >à <M f=l' l=l'_P >l'<M f=est l=.SM:s/3être.V:3a >est"_cp)),
              C("<M f=Europe l=europe_N >Europe <M k=0 f=est l=être_V x=3a >est <M f=Sud l=sud_SM >Sud "
                "<M f=est l=.SM:s/3être.V:3a >est <M f=à l=à_P >à <M f=l' l=l'_P >l'<M k=0 f=est l=être_V x=3a >est"_cp));
    // "soit" only in "quel que soit", with no blank before ">".
    EXPECT_EQ(Passer(p, C("<M k=7 f=quel l=quel_J x=ms >quel <M f=que l=que_O >que <M k=17 f=soit l=.CS/4être.V:3e >soit "
                          "<M f=que l=que_O >que <M f=soit l=.CS/4être.V:3e >soit"_cp)),
              C("<M k=7 f=quel l=quel_J x=ms >quel <M f=que l=que_O >que <M k=17 f=soit l=être_V x=3e>soit "
                "<M f=que l=que_O >que <M f=soit l=.CS/4être.V:3e >soit"_cp));
    // A word settled by a rule ends its lemma in " >": the next words still see its "_A".
    EXPECT_EQ(Passer(p, C("<M f=ne l=ne_A >ne <M f=pas l=.SM:x/.A >pas <M f=être l=.SM:s/.V:f >être "
                          "<M f=étaient l=7être.V:6b/.SM:p >étaient <M f=partis l=partir_J x=mp >partis"_cp)),
              C("<M f=ne l=ne_A >ne <M k=0 f=pas l=pas_A >pas <M k=0 f=être l=être_V x=f >être "
                "<M k=0 f=étaient l=être_V x=6b >étaient <M f=partis l=partir_J x=mp >partis"_cp));
    // Participle after "avoir", and after a word whose list holds "être"; the balise of a reading
    // with a flexion carries its blank and double quote into the text.
    EXPECT_EQ(Passer(p, C("<M f=a l=avoir_V x=3a >a <M f=été l=.SM:s/3être.V:yms >été <M f=partis l=.SM:p/1r.V:yms >partis"_cp)),
              C("<M f=a l=avoir_V x=3a >a <M f=été l=être_V x=yms > \"été <M f=partis l=partir_V x=yms > \"partis"_cp));
    // Noun rule; a proper noun after a sentence end; a small letter drops the proper noun.
    EXPECT_EQ(Passer(p, "<M f=chat l=chat_SM x=s >chat <M f=porte l=.SF:s/0r.V:1a >porte<PC f=. l=PT >. "
                        "<M f=Pierre l=.SF:s/.N >Pierre <M f=pierre l=.SF:s/.N >pierre"),
              "<M f=chat l=chat_SM x=s >chat <M f=porte l=porter_V x=1a > \"porte<PC f=. l=PT >. "
              "<M f=Pierre l=pierre_N >Pierre <M f=pierre l=pierre_SF x=s > \"pierre");
    const CompteursContexte& c = p.Compteurs();
    EXPECT_EQ(c.nb_soumis, 14);
    // Eleven words settled by rules, and "pierre" settled by dropping its proper-noun reading.
    EXPECT_EQ(c.nb_identifications, 12);
    EXPECT_EQ(c.nb_simplifications, 0);
    EXPECT_EQ(c.no_token, 30);
}

TEST(ReglesContexte, PostcliticLaPorteSurLesRegles) {
    PasseContexte p(Listes());
    // The noun rule writes the verb's balise, then "-je" rewrites it (and counts again).
    EXPECT_EQ(Passer(p, "<M f=chat l=chat_SM x=s >chat <M f=porte l=.SF:s/0r.V:1a >porte <M f=-je >-je"),
              "<M f=chat l=chat_SM x=s >chat <M f=porte l=porter_V x=1a >porte <M f=-je >-je");
    EXPECT_EQ(p.Compteurs().nb_identifications, 2);
    // "-t" then "-il": person 3; a code that no reading fits leaves the word a case, with no
    // left context tried.
    EXPECT_EQ(Passer(p, "<M f=il l=il_P >il <M f=mange l=0r.V:1a/0r.V:3a/0r.V:2i >mange <M f=-t >-t <M f=-il >-il "
                        "<M f=porte l=.SF:s/0r.V:1a >porte <M f=-il >-il"),
              "<M f=il l=il_P >il <M f=mange l=manger_V x=3a >mange <M f=-t >-t <M f=-il >-il "
              "<M f=porte l=.SF:s/0r.V:1a >porte <M f=-il >-il");
    EXPECT_EQ(p.Compteurs().nb_identifications, 3);
    EXPECT_EQ(p.Compteurs().nb_soumis, 3);
}

TEST(ReglesContexte, ContexteGaucheEtFiltres) {
    PasseContexte p(Listes());
    // A verb group: the person filter keeps 3a; a class against the group closes the gate.
    EXPECT_EQ(Passer(p, "<M f=il l=il_P >il <M f=mange l=0r.V:1a/0r.V:3a/0r.V:2i >mange"),
              "<M f=il l=il_P >il <M f=mange l=manger_V x=3a >mange");
    EXPECT_EQ(Passer(p, "<M f=elle l=elle_P >elle <M f=porte l=.SF:s/0r.V:1a/0r.V:3a >porte"),
              "<M f=elle l=elle_P >elle <M f=porte l=.SF:s/0r.V:1a/0r.V:3a >porte");
    // Class 5 goes against value 3 only for a signature without "x": value 2 lets it through.
    EXPECT_EQ(Passer(p, "<M f=elle l=elle_P >elle <M f=mange l=0r.V:1a/0r.V:3a/0r.V:2i >mange"),
              "<M f=elle l=elle_P >elle <M f=mange l=manger_V x=3a >mange");
    // A noun group rewrites "x" endings; the walk passes univocal closed-class words as items
    // ("les" gives DP) and stops at a compound, so "le de DP" is never formed.
    EXPECT_EQ(Passer(p, "<M f=le l=le_O >le <MC f=pomme_de l=pomme_de_SF >pomme de <M f=de l=de_O >de "
                        "<M f=les l=les_DPP x=p >les <M f=petits l=.J:xp/.SM:p/0r.V:3a >petits"),
              "<M f=le l=le_O >le <MC f=pomme_de l=pomme_de_SF >pomme de <M f=de l=de_O >de "
              "<M f=les l=les_DPP x=p >les <M f=petits l=.J:mp/.SM:p >petits");
    EXPECT_EQ(p.Compteurs().nb_simplifications, 1);
    // Without the compound the longest group wins: "le de DP" keeps singulars only.
    EXPECT_EQ(Passer(p, "<M f=le l=le_O >le <M f=de l=de_O >de <M f=les l=les_DPP x=p >les "
                        "<M f=petits l=.J:xp/.SM:p/0r.V:3a >petits"),
              "<M f=le l=le_O >le <M f=de l=de_O >de <M f=les l=les_DPP x=p >les "
              "<M f=petits l=.J:xp/.SM:p/0r.V:3a >petits");
    // After "à" alone, closed-class readings are kept in front of the nouns.
    EXPECT_EQ(Passer(p, C("<M f=à l=à_P >à <M f=bien l=.SM:s/.A/0r.V:1a >bien"_cp)),
              C("<M f=à l=à_P >à <M f=bien l=.A/.SM:s >bien"_cp));
    EXPECT_EQ(p.Compteurs().nb_simplifications, 2);
    // An ambiguous word ends the walk: "mange" never sees "il".
    const std::string ambigu =
        "<M f=il l=il_P >il <M f=porte l=.SF:s/0r.V:1a/0r.V:2i >porte <M f=mange l=0r.V:1a/0r.V:3a >mange";
    EXPECT_EQ(Passer(p, ambigu), ambigu);
}

TEST(ReglesContexte, BornesDeLIndexDesCas) {
    PasseContexte p(Listes());
    // Each line brings a reading list of its own; the 10,001st distinct list is past the bound.
    std::string s;
    for (int i = 1; i <= 10000; ++i) p.TraiterLigne("<M f=mot l=.SM:s/" + std::to_string(i) + ".V:3a >mot", s);
    try {
        p.TraiterLigne("<M f=mot l=.SM:s/0.V:3a >mot", s);
        ADD_FAILURE();
    } catch (const ErreurExecution& e) {
        EXPECT_NE(std::string(e.what()).find("MAX_LISTES_CAS = 10000"), std::string::npos) << e.what();
    }
}

TEST(ReglesContexte, TropDeLectures) {
    PasseContexte p(Listes());
    std::string liste = ".SM:s";
    for (int i = 0; i < 10; ++i) liste += "/0r.V:" + std::to_string(i % 6 + 1) + "a";
    try {
        Passer(p, "<M f=trop l=" + liste + " >trop");
        ADD_FAILURE();
    } catch (const ErreurExecution& e) {
        EXPECT_NE(std::string(e.what()).find("MAX_LECTURES = 10"), std::string::npos) << e.what();
        EXPECT_NE(std::string(e.what()).find(C("« trop »"_cp)), std::string::npos) << e.what();
    }
}

}  // namespace
}  // namespace telvoris

namespace telvoris {
namespace {

TEST(PasseAutomatique, CorpusIndexDesCasEtMessage) {
    DossierTemporaire arbre, corpus;
    test::ConstruireArbre(arbre.Chemin(), Arbre());
    const std::string a = Lignes({"<QORX_ATTR DATE=2024 >",
                                  "<M f=Il >Il <M f=mange >mange <M f=le >le <M f=chat >chat<PC f=. l=PT >.", "",
                                  "<M f=Elle >Elle <M f=porte >porte <M f=Pierre >Pierre <M f=x >x"});
    const std::string b = Lignes({"<M f=elle >elle <M f=porte >porte<PC f=. l=PT >. <M f=Pierre >Pierre <M >",
                                  "<M f=chat >chat <M f=mange >mange"});
    const fs::path liste = test::ConstruireCorpus(corpus.Chemin(), {{"a", a}, {"b", b}});
    test::DialogueScripte d;
    d.fichiers.push_back(liste);
    HorlogeFixe h({2026, 11, 21, 10, 0, 0});
    Contexte ctx{d, h, arbre.Chemin()};
    OperationPasseAutomatique(ctx);

    const fs::path tt = corpus.Chemin() / "OLBRIN_TT";
    EXPECT_EQ(Lire(tt / "AVANT_AUTOMATE_SIMPLES" / "a.txt"), a);
    EXPECT_EQ(Lire(tt / "AVANT_AUTOMATE_SIMPLES" / "b.txt"), b);
    // Blank lines dropped, no line end after the last line.
    EXPECT_EQ(Lire(tt / "a.txt"),
              "<QORX_ATTR DATE=2024 >\r\n"
              "<M f=Il l=il_P >Il <M f=mange l=manger_V x=3a >mange <M f=le l=le_O >le <M f=chat l=chat_SM x=s >chat"
              "<PC f=. l=PT >.\r\n"
              "<M f=Elle l=elle_P >Elle <M f=porte l=.SF:s/0r.V:1a >porte <M f=Pierre l=pierre_N >Pierre <M f=x >x");
    EXPECT_EQ(Lire(tt / "b.txt"),
              "<M f=elle l=elle_P >elle <M f=porte l=.SF:s/0r.V:1a >porte<PC f=. l=PT >. <M f=Pierre l=pierre_N >Pierre \r\n"
              "<M f=chat l=chat_SM x=s >chat <M f=mange l=0r.V:1a/0r.V:3a/0r.V:2i >mange");
    // Cases grouped by list id (porte's list came first), though "mange" comes first in the buckets.
    const std::string porte = "<M f=porte l=.SF:s/0r.V:1a >";
    const std::string mange = "<M f=mange l=0r.V:1a/0r.V:3a/0r.V:2i >";
    EXPECT_EQ(Lire(tt / "#INDEX_ms.txt"), Lignes({porte + "\t1\t7-11", mange + "\t2\t15"}));
    EXPECT_EQ(Lire(tt / "#INDEX_LEMMES.txt"), Lignes({"manger_V\t3\t" + mange + "-" + mange + "-" + mange,
                                                      "porte_SF\t2\t" + porte, "porter_V\t2\t" + porte}));
    EXPECT_EQ(Lire(tt / "#F_ETAT.txt"), Lignes({"0", "0"}));
    EXPECT_EQ(Lire(tt / "#BILAN.txt"), "");
    ASSERT_EQ(d.messages.size(), 2u);
    EXPECT_EQ(d.messages[0], C("Phase d'étiquetage automatique terminée en 1 secondes\r\n"
                               "      12 cas reconnus.\r\n"
                               "      dont 6 étiquetages univoques\r\n"
                               "      et 6 étiquetages pluriels. \r\n"
                               "       formes non identifiées.\r\n"
                               "        2 identifications, 0 simplifications\r\n"
                               "sur 5 cas soumis. "_cp));
    EXPECT_EQ(d.messages[1], C("Terminé !"_cp));

    // A second run leaves what carries l= and backs up the first run's output.
    const std::string apres = Lire(tt / "a.txt");
    d.fichiers.push_back(liste);
    OperationPasseAutomatique(ctx);
    EXPECT_EQ(Lire(tt / "AVANT_AUTOMATE_SIMPLES" / "a.txt"), apres);
    EXPECT_EQ(Lire(tt / "a.txt"), apres);

    // A missing list stops the run before any text or backup is touched.
    test::Ecrire(tt / "a.txt", a);
    fs::remove(FichierUtilitaire(arbre.Chemin(), "prenom.txt"));
    d.fichiers.push_back(liste);
    try {
        OperationPasseAutomatique(ctx);
        ADD_FAILURE();
    } catch (const ErreurExecution& e) {
        EXPECT_NE(std::string(e.what()).find("prenom.txt"), std::string::npos) << e.what();
    }
    EXPECT_EQ(Lire(tt / "a.txt"), a);
    EXPECT_EQ(Lire(tt / "AVANT_AUTOMATE_SIMPLES" / "a.txt"), apres);

    // A word with too many readings stops the run: the text being worked on is left as it was,
    // and its backup holds the state before the run.
    test::ConstruireArbre(arbre.Chemin(), Arbre());
    std::string trop = "<M f=x l=.SM:s";
    for (int i = 1; i <= 10; ++i) trop += "/0r.V:" + std::to_string(i % 6 + 1) + "a";
    const std::string avecTrop = Lignes({"<M f=chat >chat", trop + " >x"});
    test::Ecrire(tt / "b.txt", avecTrop);
    d.fichiers.push_back(liste);
    try {
        OperationPasseAutomatique(ctx);
        ADD_FAILURE();
    } catch (const ErreurExecution& e) {
        const std::string m = e.what();
        EXPECT_NE(m.find("MAX_LECTURES = 10"), std::string::npos) << m;
        EXPECT_NE(m.find("AVANT_AUTOMATE_SIMPLES/b.txt, ligne 2"), std::string::npos) << m;
    }
    EXPECT_EQ(Lire(tt / "b.txt"), avecTrop);
    EXPECT_EQ(Lire(tt / "AVANT_AUTOMATE_SIMPLES" / "b.txt"), avecTrop);

    // No OLBRIN_TT: the program ends.
    DossierTemporaire vide;
    test::Ecrire(vide.Chemin() / "liste.txt", Lignes({"a"}));
    d.fichiers.push_back(vide.Chemin() / "liste.txt");
    try {
        OperationPasseAutomatique(ctx);
        ADD_FAILURE();
    } catch (const FinProgramme& e) {
        EXPECT_EQ(e.what(), C("Ressources non constituées. Vérifiez"_cp));
    }
}

}  // namespace
}  // namespace telvoris
