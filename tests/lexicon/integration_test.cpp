#include "lexicon/integration.hpp"

#include <gtest/gtest.h>

#include "core/erreurs.hpp"
#include "core/fichiers.hpp"
#include "core/horloge.hpp"
#include "core/texte.hpp"
#include "lexicon/arbre.hpp"
#include "lexicon/flechisseur.hpp"
#include "lexicon/tables_flexion_test.hpp"
#include "pipeline/arbre_etiquetage.hpp"
#include "pipeline/automate.hpp"
#include "support/support.hpp"

namespace telvoris {
namespace {

using test::DialogueScripte;
using test::DossierTemporaire;
using test::Ecrire;
using test::Lignes;
using test::Lire;
using test::MessageErreur;

const Instant kMidi{2026, 11, 24, 12, 0, 0};

fs::path Dico(const fs::path& r, std::string_view nom) { return Chemin(r, Joindre(DOSSIER_DICO, "/", nom)); }

TEST(Integration, TraductionCodesEtFusions) {
    auto T = [](std::string_view code) {
        const CodeTraduit t = TraduireCode(code);
        return t.categorie + "|" + t.flexion;
    };
    EXPECT_EQ(T("SMS"), "SM|s");
    EXPECT_EQ(T("SFX"), "SF|x");
    EXPECT_EQ(T("V31"), "V|3a");
    EXPECT_EQ(T("V28"), "V|2i");
    EXPECT_EQ(T("V67"), "V|6h");
    EXPECT_EQ(T("VYMS"), "V|yms");
    EXPECT_EQ(T("VF"), "V|f");
    EXPECT_EQ(T("JWX"), "J|xx");
    EXPECT_EQ(T("RFP"), "R|fp");
    EXPECT_EQ(T("PSAB"), "PS|ab");
    EXPECT_EQ(T("A"), "A|");
    EXPECT_EQ(CodeLemme("chevaux", "cheval"), "2l");
    EXPECT_EQ(CodeLemme("aimait", "aimer"), "3er");
    EXPECT_EQ(CodeLemme("table", "table"), "");
    EXPECT_EQ(CodeLemme("est", Utf8VersCp1252("être")), Utf8VersCp1252("3être"));
    EXPECT_EQ(CodeLemme("porte", "porter"), "0r");
    // Number and gender merge.
    EXPECT_EQ(FusionnerFlexions("SM", "s", "p"), "x");
    EXPECT_EQ(FusionnerFlexions("SM", "s", "x"), "");
    EXPECT_EQ(FusionnerFlexions("J", "fs", "ms"), "xs");
    EXPECT_EQ(FusionnerFlexions("R", "mp", "ms"), "mx");
    EXPECT_EQ(FusionnerFlexions("J", "xs", "ms"), "");
    // Persons, then tenses with the new letter first.
    EXPECT_EQ(FusionnerFlexions("V", "3a", "1a"), "8a");
    EXPECT_EQ(FusionnerFlexions("V", "2b", "1b"), "7b");
    EXPECT_EQ(FusionnerFlexions("V", "3b", "2b"), "9b");
    EXPECT_EQ(FusionnerFlexions("V", "8e", "8a"), "8k");
    EXPECT_EQ(FusionnerFlexions("V", "1c", "1a"), "1j");
    EXPECT_EQ(FusionnerFlexions("V", "2i", "2k"), "2l");
    EXPECT_EQ(FusionnerFlexions("V", "1g", "1k"), "1t");
    EXPECT_EQ(FusionnerFlexions("V", "3a", "3b"), "");
    EXPECT_EQ(FusionnerFlexions("V", "4a", "1a"), "");
    EXPECT_EQ(FusionnerFlexions("V", "yfs", "yms"), "yfs+yms");
    EXPECT_EQ(FusionnerFlexions("V", "yfs", "3a"), "");
}

// A tree with a few dictionary lines and the lists of the automatic pass.
void Arbre(const fs::path& r, std::vector<std::string> dico) {
    test::ContenuArbre a;
    a.dico = std::move(dico);
    test::ConstruireArbre(r, a);
}

TEST(Integration, ApportsFusionnesRapportEtSauvegarde) {
    DossierTemporaire d;
    const fs::path r = d.Chemin();
    Arbre(r, {"aime,0r.V:1a", "grand,.J:ms", "table,.SF:s", "porte,.SF:s"});
    const fs::path apports = r / "apports.txt";
    Ecrire(apports, Lignes({"aime,aimer,V31", "aime,aimer,V15", "aime,aimer,V35", "table,table,SFS", "tables,table,SFP",
                            "", "grand,grand,SMS", "porte,porter,V31", "porte,porte,SFS", "Grande,grand,JFS"}));
    DialogueScripte dlg;
    dlg.fichiers = {apports};
    HorlogeFixe h(kMidi);
    Contexte ctx{dlg, h, r};
    OperationIntegrationFormes(ctx);
    // The dictionary as it stood is in the dated backup.
    EXPECT_EQ(Lire(Chemin(r, "dico/olbrin_261124_1200/4a.txt")), Lignes({"aime,0r.V:1a"}));
    EXPECT_TRUE(fs::is_directory(Chemin(r, "dico/olbrin_accents")));
    EXPECT_EQ(Lire(Dico(r, "4a.txt")), Lignes({"aime,0r.V:8a/0r.V:8e"}));
    EXPECT_EQ(Lire(Dico(r, "5g.txt")), Lignes({"grand,.R:ms"}));
    EXPECT_EQ(Lire(Dico(r, "6g.txt")), Lignes({"grande,1.J:fs"}));
    EXPECT_EQ(Lire(Dico(r, "5t.txt")), Lignes({"table,.SF:s"}));
    EXPECT_EQ(Lire(Dico(r, "6t.txt")), Lignes({"tables,1.SF:p"}));
    EXPECT_EQ(Lire(Dico(r, "5p.txt")), Lignes({"porte,.SF:s/0r.V:3a"}));
    EXPECT_EQ(Lire(Chemin(r, "dico/apports_remarques_261124_1200.txt")),
              Lignes({"aime,aimer,V15\tDEJA REPERTORIEE : INTERPRETATION NOUVELLE",
                      "table,table,SFS\tDEJA REPERTORIEE : IDENTIQUE",
                      "tables,table,SFP\tENTREE TOTALEMENT ABSENTE", "tables,1.SF:p\t6\t20",
                      "grand,grand,SMS\t1SMJ\tgrand,.SM:s",
                      "porte,porter,V31\tDEJA REPERTORIEE : INTERPRETATION NOUVELLE",
                      "porte,porte,SFS\tDEJA REPERTORIEE : INTERPRETATION EXISTANTE",
                      "Grande,grand,JFS\tENTREE TOTALEMENT ABSENTE", "grande,1.J:fs\t6\t7"}));
    ASSERT_EQ(dlg.messages.size(), 1u);
    EXPECT_EQ(dlg.messages[0],
              Utf8VersCp1252("Terminé en 1 secondes 2 ajouts, avec 4 interprétations, à partir de 9 propositions"));

}

TEST(Integration, LignesToutesFaitesCorpusEtFusion) {
    DossierTemporaire d;
    const fs::path r = d.Chemin();
    Arbre(r, {"aime,0r.V:8a", "grand,.J:ms"});
    // Ready-made lines: the same person class with a new tense merges its letters.
    const fs::path lignes = r / "lignes.txt";
    Ecrire(lignes, Lignes({"aime,0r.V:8e", "grands,1.J:mp/1.SM:p"}));
    DialogueScripte dlg;
    dlg.fichiers = {lignes};
    HorlogeFixe h(kMidi);
    Contexte ctx{dlg, h, r};
    OperationIntegrationLignes(ctx);
    EXPECT_EQ(Lire(Dico(r, "4a.txt")), Lignes({"aime,0r.V:8k"}));
    // A noun reading of a lemma known as an adjective turns the reading into R.
    EXPECT_EQ(Lire(Dico(r, "6g.txt")), Lignes({"grands,1.R:mp"}));

    // The corpus dictionary holds the proposals alone, all 300 files written.
    const fs::path apports = r / "corpus" / "apports.txt";
    Ecrire(apports, Lignes({"chats,chat,SMP", "chat,chat,SMS"}));
    DialogueScripte dlg2;
    dlg2.fichiers = {apports};
    Contexte ctx2{dlg2, h, r};
    OperationDictionnaireCorpus(ctx2);
    EXPECT_EQ(Lire(r / "corpus/DICO_CORPUS/5c.txt"), Lignes({"chats,1.SM:p"}));
    EXPECT_EQ(Lire(r / "corpus/DICO_CORPUS/4c.txt"), Lignes({"chat,.SM:s"}));
    EXPECT_TRUE(fs::exists(r / "corpus/DICO_CORPUS/15t.txt"));
    EXPECT_EQ(Lire(Dico(r, "4c.txt")), "");

    // The fusion reads dico/olbrin_2 and writes dico/olbrin_fus, leaving dico/olbrin as it is.
    for (int l = 1; l <= 15; ++l)
        for (int c = 1; c <= 20; ++c) Ecrire(FichierCasier(r, "dico/olbrin_2", l, c), "");
    Ecrire(FichierCasier(r, "dico/olbrin_2", 5, 7), Lignes({"grand,.SM:s"}));
    DialogueScripte dlg3;
    Contexte ctx3{dlg3, h, r};
    OperationFusionDictionnaires(ctx3);
    EXPECT_EQ(Lire(Chemin(r, "dico/olbrin_fus/5g.txt")), Lignes({"grand,.R:ms"}));
    EXPECT_EQ(Lire(Dico(r, "5g.txt")), Lignes({"grand,.J:ms"}));
}

TEST(Integration, AnnulationEtLigneMalFormeeLaissentLeDictionnaire) {
    DossierTemporaire d;
    const fs::path r = d.Chemin();
    Arbre(r, {"chat,.SM:s"});
    HorlogeFixe h(kMidi);
    DialogueScripte annule;
    Contexte ctx{annule, h, r};
    EXPECT_NE(MessageErreur([&] { OperationIntegrationFormes(ctx); }).find("Fichier introuvable"), std::string::npos);
    EXPECT_EQ(Lire(Chemin(r, "dico/olbrin_261124_1200/4c.txt")), Lignes({"chat,.SM:s"}));
    EXPECT_EQ(Lire(Dico(r, "4c.txt")), Lignes({"chat,.SM:s"}));

    const fs::path apports = r / "apports.txt";
    Ecrire(apports, Lignes({"chats,chat,SMP", "chatte chat SFS"}));
    DialogueScripte dlg;
    dlg.fichiers = {apports};
    Contexte ctx2{dlg, h, r};
    const std::string m = MessageErreur([&] { OperationIntegrationFormes(ctx2); });
    EXPECT_NE(m.find("apports.txt, ligne 2"), std::string::npos) << m;
    // Nothing is written before the end: the first proposal is not in the dictionary.
    EXPECT_EQ(Lire(Dico(r, "5c.txt")), "");

    // A form with eleven readings is over the bound of a line.
    Arbre(r, {"a,.A/.B/.C/.D/.E/.F/.G/.H/.I/.J"});
    Ecrire(apports, Lignes({"a,a,N"}));
    DialogueScripte dlg3;
    dlg3.fichiers = {apports};
    Contexte ctx3{dlg3, h, r};
    EXPECT_NE(MessageErreur([&] { OperationIntegrationFormes(ctx3); }).find("MAX_LECTURES = 10"), std::string::npos);
}

// The round trip of a new word: inflected, integrated, then recognised by the automatic pass.
TEST(Integration, AllerRetourFlexionIntegrationPasseAutomatique) {
    DossierTemporaire d;
    const fs::path r = d.Chemin() / "MORVENTA" / "morv_res";
    Arbre(r, {"nous,.O", "ils,.O", "la,.O"});
    test::EcrireTablesFlexion(r);
    const fs::path liste = d.Chemin() / "lemmes.txt";
    Ecrire(liste, Lignes({"blorguer,V\t1", "zanfrelon,SM\t1"}));
    HorlogeFixe h(kMidi);
    DialogueScripte flx;
    flx.fichiers = {liste};
    Contexte c1{flx, h, r};
    OperationFlechisseur(c1);
    DialogueScripte ifs;
    ifs.fichiers = {d.Chemin() / "lemmes_FLEX.txt"};
    Contexte c2{ifs, h, r};
    OperationIntegrationFormes(c2);

    const fs::path corpus = test::ConstruireCorpus(
        d.Chemin() / "corpus",
        {{"texte", "<M f=Nous >Nous <M f=blorguons >blorguons <M f=les >les <M f=zanfrelons >zanfrelons<PC f=. >.\r\n"
                   "<M f=ils >ils <M f=blorguaient >blorguaient\r\n"}});
    DialogueScripte aup;
    aup.fichiers = {corpus};
    Contexte c3{aup, h, r};
    OperationPasseAutomatique(c3);
    const std::string texte = Lire(d.Chemin() / "corpus/OLBRIN_TT/texte.txt");
    EXPECT_NE(texte.find("<M f=blorguons l=blorguer_V x=4n >blorguons"), std::string::npos) << texte;
    EXPECT_NE(texte.find("<M f=zanfrelons l=zanfrelon_SM x=p >zanfrelons"), std::string::npos) << texte;
    EXPECT_NE(texte.find("<M f=blorguaient l=blorguer_V x=6b >blorguaient"), std::string::npos) << texte;
}

}  // namespace
}  // namespace telvoris
