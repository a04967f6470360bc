#include "correction/identification.hpp"

#include <gtest/gtest.h>

#include "core/erreurs.hpp"
#include "core/horloge.hpp"
#include "core/reprise.hpp"
#include "correction/arbre_correction.hpp"

namespace telvoris {
namespace {

using test::C;
using test::Lignes;
using test::Lire;

std::string Numerote(std::string_view prefixe, int i, std::string_view suffixe) {
    std::string s(prefixe);
    s += std::to_string(i);
    s += suffixe;
    return s;
}

struct Banc {
    test::DossierTemporaire tmp;
    fs::path res = tmp.Chemin() / "MORVENTA" / "morv_res";
    fs::path corpus = tmp.Chemin() / "corpus";
    fs::path m = corpus / "MANQUANTS";
    test::DialogueScripte d;
    HorlogeFixe horloge{Instant{2026, 3, 4, 10, 0, 0}};
    Contexte ctx{d, horloge, res};

    Banc() {
        test::ConstruireArbreCorrection(res, {});
        test::Ecrire(corpus / "liste.txt", Lignes({"t1"}));
        std::vector<std::string> items = {"chatt\t3", "zorglub-x\t2", "tamour\t2", "hello\t1"};
        for (int i = 5; i <= 12; ++i) items.push_back(Numerote("mot", i, "\t1"));
        test::Ecrire(m / "LISTE_FC.txt", Lignes(items));
        test::Ecrire(m / "ETAT_FC.txt", "0");
        test::Ecrire(m / "CONC_FC" / "1.txt", Lignes({"    le chatt dort"}));
        test::Ecrire(m / "CORR_SUGGESTIONS.txt", Lignes({"tamour\tl'amour", "zorglub-x\tzorglub"}));
    }
    void Session(std::vector<std::string> reponses) {
        d.reponses.assign(reponses.begin(), reponses.end());
        d.fichiers = {corpus / "liste.txt"};
        OperationIdentificationInconnus(ctx);
    }
    SessionIdentification Ouvrir() { return SessionIdentification::Ouvrir(corpus, "FC", res, d); }
};

TEST(Identification, SessionArreteepuisReprise) {
    Banc b;
    b.Session({"FC",
               "1", "2", "chat",                     // 1: word for word
               "1", "3", "zorglub", "4", "x",         // 2: two pairs, then next
               "C pomme de terre",                    // a candidate compound
               "0", "amour", "sm", "1", "O",          // 3: general dictionary, noun class 1
               "3", "0",                              // 4: English
               "4",                                   // 5: nothing
               "5",                                   // 6: proper noun, general
               "6",                                   // 7: proper noun, particular
               "R2", "4",                             // back to 6, decided again; lands on 8
               "2", "parler", "V", "0", "O", "O",     // 8: particular, verb, manual flexion, inf+part
               "4",                                   // 9: nothing; saving point at 10
               "1", "A",                              // 10: correction form cancelled
               "Q", "O"});                            // stop: item 10 stays undone
    EXPECT_NE(b.d.messages[0].find(C("1ème cas sur 12 à examiner\r\nchatt\r\n3 occurrences.\r\n    le chatt dort\r\n"_cp)),
              std::string::npos);
    EXPECT_EQ(Lire(b.corpus / "MANQUANTS_TRX.txt"),
              Lignes({"2\tchatt\tchat", "3\tzorglub-x\tzorglub", "3\tzorglub-x\tx", "0\tamour,SM\t1", "5\t02_hello",
                      "3\tmot5", "3\tmot6", "1\tmot7,N", "1\tparler,V_D\t0", "3\tmot9"}));
    EXPECT_EQ(Lire(b.m / "DICO_GEN.txt"), Lignes({"amour,SM\t1"}));
    EXPECT_EQ(Lire(b.m / "DICO_PARTIC.txt"), Lignes({"mot7,N", "parler,V_D\t0"}));
    EXPECT_EQ(Lire(b.m / "CORRECTIONS.txt"), Lignes({"chatt\tchat"}));
    EXPECT_EQ(Lire(b.m / "INCORRECTIONS.txt"), Lignes({"zorglub-x\tzorglub", "zorglub-x\tx", "mot5", "mot6", "mot9"}));
    EXPECT_EQ(Lire(b.m / "ETRANGERS.txt"), Lignes({"02_hello"}));
    EXPECT_EQ(Lire(b.m / "ETAT_FC.txt"), "9");
    EXPECT_EQ(Lire(b.m / "CANDIDATS_COMP.txt"), Lignes({"pomme de terre"}));
    EXPECT_EQ(Lire(b.m / "CANDIDATS_NOMP.txt"), "");
    for (int k = 0; k <= 5; ++k) EXPECT_TRUE(fs::exists(b.m / Numerote("MNQVUS", k, ".txt")));

    // Taken up at the next item; only what this session holds is written.
    b.d.messages.clear();
    b.Session({"FC", "4", "4", "4"});
    EXPECT_NE(b.d.messages[0].find(C("10ème cas sur 12"_cp)), std::string::npos);
    EXPECT_EQ(Lire(b.m / "ETAT_FC.txt"), "12");
    EXPECT_EQ(Lire(b.corpus / "MANQUANTS_TRX.txt"), Lignes({"3\tmot10", "3\tmot11", "3\tmot12"}));
    EXPECT_EQ(Lire(b.m / "INCORRECTIONS.txt"), Lignes({"mot10", "mot11", "mot12"}));
    EXPECT_EQ(Lire(b.m / "DICO_GEN.txt"), "");
    // Nothing is left to show.
    b.d.messages.clear();
    b.Session({"FC"});
    EXPECT_EQ(b.d.messages.back(), C("Aucun cas à examiner."_cp));
}

TEST(Identification, ModeleRetourSuggestionsEtBornes) {
    Banc b;
    SessionIdentification s = b.Ouvrir();
    EXPECT_EQ(s.TexteCorrection(), "chatt");
    s.Choisir(4);
    // A word with a suggestion and a hyphen opens on the suggestion.
    EXPECT_EQ(s.TexteCorrection(), "zorglub");
    s.Choisir(4);
    EXPECT_EQ(s.TexteCorrection(), "l'amour");
    // Going back further than the first item stops at it; the next decision lands where we were.
    s.OuvrirRetour();
    s.Revenir(10);
    EXPECT_EQ(s.Courant(), 1u);
    s.Choisir(5);
    EXPECT_EQ(s.Courant(), 3u);
    EXPECT_EQ(s.Cas(1).decision, std::vector<std::string>{"0\tchatt,N"});
    // The entry form's panels follow the category.
    s.Choisir(0);
    EXPECT_EQ(s.TitreEntree(), "NOUVELLE ENTREE DICTIONNAIRE GENERAL");
    EXPECT_EQ(s.ChoixFlexion("J"), (std::vector<std::string>{"1\tgrand  > 1", "2\trapide  > 2", "0  >  FLEXION MANUELLE"}));
    EXPECT_EQ(s.ChoixFlexion("SF").size(), 7u);
    EXPECT_TRUE(s.ChoixFlexion("A").empty());
    s.Annuler();
    EXPECT_EQ(s.Courant(), 3u);

    // A word with a hyphen and no suggestion opens without it.
    test::Ecrire(b.m / "LISTE_NP.txt", Lignes({"porte-avion\t1"}));
    test::Ecrire(b.m / "ETAT_NP.txt", "0");
    EXPECT_EQ(SessionIdentification::Ouvrir(b.corpus, "NP", b.res, b.d).TexteCorrection(), "porteavion");

    // A list of exactly 5,000 lines: the last one is not read.
    std::string liste;
    for (int i = 1; i <= 5000; ++i) liste += Numerote("m", i, "\t1\r\n");
    test::Ecrire(b.m / "LISTE_FC.txt", liste);
    b.d.messages.clear();
    EXPECT_EQ(b.Ouvrir().NbCas(), 4999u);
    EXPECT_EQ(b.d.messages, std::vector<std::string>{"5000 items atteints"});

    // A missing state file is the file error.
    fs::remove(b.m / "ETAT_FC.txt");
    EXPECT_NE(test::MessageErreur([&] { b.Ouvrir(); }).find("ETAT_FC.txt"), std::string::npos);
    // A wrong family fails at the list.
    EXPECT_NE(test::MessageErreur([&] { SessionIdentification::Ouvrir(b.corpus, "XX", b.res, b.d); }).find("LISTE_XX.txt"),
              std::string::npos);
}

// A save killed after its files were all written whole, before they took their names: the next
// opening finishes it, so the lists and the progress stand at the same saving point; a save
// killed before its journal was written leaves the previous saving point whole.
TEST(Identification, SauvegardeCoupeeFinieALOuverture) {
    Banc b;
    SessionIdentification s = b.Ouvrir();
    for (int i = 0; i < 9; ++i) s.Choisir(4);  // items 1 to 9: nothing; saving point at 10
    EXPECT_EQ(Lire(b.m / "ETAT_FC.txt"), "10");
    const std::string incorrections = Lire(b.m / "INCORRECTIONS.txt");
    EXPECT_EQ(Lire(b.corpus / "MANQUANTS_TRX.txt").substr(0, 9), "3\tchatt\r\n");
    EXPECT_FALSE(fs::exists(b.m / "#SAUVEGARDE_EN_COURS.txt"));

    // Cut before the journal: new bytes beside the files, which stay as they were.
    const fs::path journal = b.m / "#SAUVEGARDE_EN_COURS.txt";
    {
        EcritureGroupee g(journal);
        g.Ajouter(b.m / "ETAT_FC.txt", "11");
        g.Ajouter(b.m / "INCORRECTIONS.txt", "tout autre\r\n");
    }
    SessionIdentification s2 = b.Ouvrir();
    EXPECT_EQ(s2.Courant(), 11u);
    EXPECT_EQ(Lire(b.m / "INCORRECTIONS.txt"), incorrections);

    // Cut after the journal: every file of the group takes its name at the opening.
    test::Ecrire(journal, Lignes({"ETAT_FC.txt", "INCORRECTIONS.txt", "../MANQUANTS_TRX.txt"}));
    test::Ecrire(EcritureGroupee::Provisoire(b.corpus / "MANQUANTS_TRX.txt"), "3\tmot11\r\n");
    SessionIdentification s3 = b.Ouvrir();
    EXPECT_EQ(s3.Courant(), 12u);
    EXPECT_EQ(Lire(b.m / "INCORRECTIONS.txt"), "tout autre\r\n");
    EXPECT_EQ(Lire(b.corpus / "MANQUANTS_TRX.txt"), "3\tmot11\r\n");
    EXPECT_FALSE(fs::exists(journal));
    EXPECT_FALSE(fs::exists(EcritureGroupee::Provisoire(b.m / "ETAT_FC.txt")));
}

}  // namespace
}  // namespace telvoris
