#include "lexicon/dico_composes.hpp"

#include <gtest/gtest.h>

#include "core/erreurs.hpp"
#include "core/fichiers.hpp"
#include "core/horloge.hpp"
#include "core/texte.hpp"
#include "lexicon/arbre.hpp"
#include "pipeline/arbre_etiquetage.hpp"
#include "support/support.hpp"

namespace telvoris {
namespace {

using test::DialogueScripte;
using test::DossierTemporaire;
using test::Ecrire;
using test::Lignes;
using test::Lire;
using test::MessageErreur;

void Arbre(const fs::path& r, std::vector<std::string> dico, std::vector<std::string> namb,
           std::vector<std::string> amb = {}) {
    test::ContenuArbre a;
    a.dico = std::move(dico);
    a.composes = std::move(namb);
    test::ConstruireArbre(r, a);
    std::map<std::pair<int, int>, std::vector<std::string>> cellules;
    for (const auto& l : amb) {
        const std::string cle = l.substr(0, l.find(','));
        int mots = 1;
        for (char ch : cle) mots += ch == ' ';
        cellules[{mots, classe_mot(cle).ClasseInitiale}].push_back(l);
    }
    for (int w = 2; w <= 8; ++w)
        for (int c = 1; c <= 20; ++c) Ecrire(FichierCasier(r, DOSSIER_COMPOSES_AMB, w, c), Lignes(cellules[{w, c}]));
}

fs::path Candidats(const fs::path& dossier, int n) {
    std::vector<std::string> l;
    for (int i = 1; i <= n; ++i) l.push_back("mot" + std::to_string(i) + " compose\t" + std::to_string(100 - i));
    Ecrire(dossier / "candidats.txt", Lignes(l));
    return dossier / "candidats.txt";
}

TEST(SessionComposes, ConfirmationsRetourEnArriereEtReprise) {
    DossierTemporaire d;
    const fs::path r = d.Chemin();
    SessionComposes s(r, Candidats(r, 23));
    EXPECT_FALSE(s.AjoutsExistent());
    s.Demarrer(false);
    EXPECT_TRUE(s.AjoutsExistent());
    EXPECT_EQ(s.Etat(), "cas n°1 sur 23"_cp);
    EXPECT_EQ(s.Candidat(), "mot1 compose");
    std::vector<int> confirmations;
    for (int i = 0; i < 9; ++i) {
        s.Choisir(i == 4 ? OPTION_PASSER : 2);
        if (s.ConfirmationDue()) confirmations.push_back(s.Rang());
    }
    ASSERT_EQ(confirmations, std::vector<int>{10});
    s.Confirmer("OUI", s.Tampon());
    const fs::path comp = Chemin(r, "dico/comp");
    EXPECT_EQ(Lire(comp / "AJOUTS_ETAT.txt"), "10\r\n");
    EXPECT_TRUE(Lire(comp / "AJOUTS.txt").starts_with("mot1 compose,SM:s\t2\r\nmot2 compose,SM:s\t2\r\n"));
    // A refusal stays only when it is the case that triggered the confirmation.
    EXPECT_EQ(Lire(comp / "ANTIDICO.txt"), "");
    for (int i = 0; i < 10; ++i) s.Choisir(i == 9 ? OPTION_PASSER : 5);
    ASSERT_TRUE(s.ConfirmationDue());
    EXPECT_EQ(s.Rang(), 20);
    // Any answer but OUI: back ten ranks, and the buffer keeps what it holds.
    const std::string tampon = s.Tampon();
    s.Confirmer("NON", "");
    EXPECT_EQ(s.Rang(), 10);
    EXPECT_EQ(s.Tampon(), tampon);
    for (int i = 0; i < 10; ++i) s.Choisir(i == 9 ? OPTION_PASSER : 5);
    EXPECT_EQ(s.Rang(), 20);
    EXPECT_EQ(s.Tampon(), tampon + tampon);
    s.Confirmer("OUI", s.Tampon());
    EXPECT_EQ(Lire(comp / "ANTIDICO.txt"), "\r\nmot19 compose");
    EXPECT_EQ(Lire(comp / "AJOUTS_ETAT.txt"), "20\r\n");
    s.Choisir(OPTION_DIVERS, "O");
    EXPECT_FALSE(s.Valider(OptionFlexion::Aucune, {"x"}));
    EXPECT_TRUE(s.Valider(OptionFlexion::SF, {"mot22 compose", "mots22 composes"}));
    EXPECT_FALSE(s.ConfirmationDue());
    EXPECT_TRUE(s.Valider(OptionFlexion::J, {"a b", "as b", "ae b", "aes b"}));
    EXPECT_FALSE(s.ConfirmationDue());
    s.Choisir(OPTION_PASSER);
    // Past the last rank, a last confirmation.
    EXPECT_TRUE(s.ConfirmationDue());
    EXPECT_TRUE(s.Termine());
    EXPECT_EQ(s.Tampon(), Lignes({"mot20 compose,O\t2", "mot22 compose,.SF:s\t2", "mots22 composes,mot22 compose.SF:p\t2",
                                  "a b,.J:ms\t2", "as b,a b.J:mp\t2", "ae b,a b.J:fs\t2", "aes b,a b.J:fp\t2"}));
    s.Confirmer("OUI", s.Tampon());

    // A resumed session starts after the saved rank: the case at that rank is not shown again.
    EcrireFichier(comp / "AJOUTS_ETAT.txt", "10\r\n");
    SessionComposes reprise(r, Candidats(r, 23));
    ASSERT_TRUE(reprise.AjoutsExistent());
    reprise.Demarrer(true);
    EXPECT_EQ(reprise.Rang(), 11);
    EXPECT_EQ(reprise.Candidat(), "mot11 compose");
    EXPECT_TRUE(reprise.Valider(OptionFlexion::R, {"x y", "xs y"}));
    EXPECT_EQ(reprise.Tampon(), Lignes({"x y,.R:xs\t2", "xs y,x y.R:xp\t2"}));

    // Candidate 5,001 is never read.
    SessionComposes grande(r, Candidats(r, 5001));
    EXPECT_EQ(grande.Total(), 5000);
    EcrireFichier(comp / "AJOUTS_ETAT.txt", "sept");
    SessionComposes abimee(r, Candidats(r, 3));
    EXPECT_NE(MessageErreur([&] { abimee.Demarrer(true); }).find("AJOUTS_ETAT.txt, ligne 1"), std::string::npos);
}

TEST(SessionComposes, ArretEtRepriseAuTerminal) {
    DossierTemporaire d;
    const fs::path r = d.Chemin();
    const fs::path liste = Candidats(r, 12);
    HorlogeFixe h({2026, 11, 24, 9, 0, 0});
    DialogueScripte dlg;
    dlg.fichiers = {liste};
    // Nine cases, the confirmation at rank 10, one more case, then stop.
    dlg.reponses = {"1", "2", "3", "4", "5", "6", "7", "8", "A B", "9", "OUI", "V", "SM", "chose faite ; choses faites", "Q"};
    Contexte ctx{dlg, h, r};
    OperationIdentificationComposes(ctx);
    const fs::path comp = Chemin(r, "dico/comp");
    EXPECT_EQ(Lire(comp / "AJOUTS.txt"),
              Lignes({"mot1 compose,SF:s\t2", "mot2 compose,SF:p\t2", "mot3 compose,SM:s\t2", "mot4 compose,SM:p\t2",
                      "mot5 compose,N\t2", "mot6 compose,A\t2", "mot7 compose,M\t2", "mot8 compose,A B\t2"}));
    EXPECT_EQ(Lire(comp / "ANTIDICO.txt"), "\r\nmot9 compose");
    EXPECT_EQ(dlg.messages.front(), "cas n°1 sur 12 : mot1 compose"_cp);
    EXPECT_EQ(dlg.messages.back().substr(0, 18), "Session arrêtée au"_cp);
    // Resumed: rank 11 comes next (the case at rank 10 was settled, unconfirmed, and is lost).
    DialogueScripte dlg2;
    dlg2.fichiers = {liste};
    dlg2.reponses = {"O", "7", "V", "X", "7", "OUI"};
    Contexte ctx2{dlg2, h, r};
    OperationIdentificationComposes(ctx2);
    EXPECT_EQ(dlg2.messages[0], "cas n°11 sur 12 : mot11 compose"_cp);
    EXPECT_EQ(dlg2.messages[2], "Vous devez valider une option");
    EXPECT_EQ(dlg2.messages.back(), "Session terminée"_cp);
    EXPECT_EQ(Lire(comp / "AJOUTS_ETAT.txt"), "13\r\n");
    EXPECT_EQ(Lire(comp / "AJOUTS.txt").substr(Lire(comp / "AJOUTS.txt").size() - 38),
              "mot11 compose,M\t2\r\nmot12 compose,M\t2\r\n");
}

TEST(DictionnaireComposes, IntegrationOrdreSauvegardeEtComposants) {
    DossierTemporaire d;
    const fs::path r = d.Chemin();
    Arbre(r, {"pomme,.SF:s", "de,.O", "terre,.SF:s", "coup,.SM:s"},
          {"pomme de terre,pomme_de_terre.SF:s", "pomme de pin,.SF:s"}, {"coup de foudre,.SM:s"});
    const fs::path apports = r / "apports.txt";
    Ecrire(apports, Lignes({"pomme de terre,pomme de terre.SF:s\t2", "coup de foudre,.SM:s\t2",
                            "pomme de reinette,.SF:s\t2", "pomme d'api,.SF:s\t2", "coup de vent,.SM:s\t1"}));
    HorlogeFixe h({2026, 11, 24, 9, 0, 0});
    DialogueScripte dlg;
    dlg.fichiers = {apports};
    Contexte ctx{dlg, h, r};
    OperationIntegrationComposes(ctx);
    // Normalised, the first line equals a standing one; the second stands in amb already.
    // A new line goes in front of the first entry that compares as less than it.
    EXPECT_EQ(Lire(FichierCasier(r, DOSSIER_COMPOSES_NAMB, 3, 16)),
              Lignes({"pomme de terre,pomme_de_terre.SF:s", "pomme de reinette,.SF:s", "pomme de pin,.SF:s"}));
    EXPECT_EQ(Lire(FichierCasier(r, DOSSIER_COMPOSES_NAMB, 2, 16)), Lignes({"pomme d'api,.SF:s"}));
    EXPECT_EQ(Lire(FichierCasier(r, DOSSIER_COMPOSES_AMB, 3, 3)), Lignes({"coup de vent,.SM:s", "coup de foudre,.SM:s"}));
    EXPECT_EQ(Lire(Chemin(r, "dico/comp/svg/namb/3p.txt")),
              Lignes({"pomme de terre,pomme_de_terre.SF:s", "pomme de pin,.SF:s"}));
    EXPECT_EQ(Lire(Chemin(r, "dico/comp/svg/amb/3c.txt")), Lignes({"coup de foudre,.SM:s"}));
    EXPECT_TRUE(fs::exists(Chemin(r, "dico/comp/apports_rejetés.txt"_cp)));
    EXPECT_EQ(Lire(FichierUtilitaire(r, "COMPOSANTS.txt")), Lignes({"pin", "vent", "d'api", "foudre", "reinette"}));
    EXPECT_EQ(dlg.messages, (std::vector<std::string>{"2 ambigus dont 1 apports", "4 non-ambigus dont 2 apports"}));

    // The component list alone, words folded (this 2p file replaces the one that held d'api).
    Ecrire(FichierCasier(r, DOSSIER_COMPOSES_NAMB, 2, 16), Lignes({"Pomme Verte,.SF:s"}));
    DialogueScripte dlg2;
    Contexte ctx2{dlg2, h, r};
    OperationComposants(ctx2);
    EXPECT_EQ(Lire(FichierUtilitaire(r, "COMPOSANTS.txt")), Lignes({"pin", "vent", "verte", "foudre", "reinette"}));

    // Errors name the file and the line; a key of nine words is over the bound.
    Ecrire(apports, Lignes({"pomme de terre,.SF:s\t2", "pomme cuite,.SF:s"}));
    DialogueScripte dlg3;
    dlg3.fichiers = {apports};
    Contexte ctx3{dlg3, h, r};
    EXPECT_NE(MessageErreur([&] { OperationIntegrationComposes(ctx3); }).find("apports.txt, ligne 2"), std::string::npos);
    Ecrire(apports, Lignes({"a b c d e f g h i,.M\t2"}));
    DialogueScripte dlg4;
    dlg4.fichiers = {apports};
    Contexte ctx4{dlg4, h, r};
    EXPECT_NE(MessageErreur([&] { OperationIntegrationComposes(ctx4); }).find("MAX_MOTS_CLE = 8"), std::string::npos);
}

TEST(DictionnaireComposes, CorpusPassageEtSuppression) {
    DossierTemporaire d;
    const fs::path r = d.Chemin();
    Arbre(r, {}, {"pomme de pin,.SF:s"}, {"coup de vent,.SM:s", "coup de foudre,.SM:s", "bout de bois,.SM:s"});
    HorlogeFixe h({2026, 11, 24, 9, 0, 0});
    // The corpus dictionary writes every cell, class 0 under the grave accent.
    const fs::path apports = r / "corpus" / "apports.txt";
    Ecrire(apports, Lignes({"coup de vent,.SM:s\t1", "2 ou 3,.M\t2"}));
    DialogueScripte dlg;
    dlg.fichiers = {apports};
    Contexte ctx{dlg, h, r};
    EXPECT_NE(MessageErreur([&] { OperationDictionnaireCorpusComposes(ctx); }).find("ligne 2"), std::string::npos);
    Ecrire(apports, Lignes({"coup de vent,.SM:s\t1", "bout de bois,.SM:s\t2"}));
    dlg.fichiers = {apports};
    OperationDictionnaireCorpusComposes(ctx);
    EXPECT_EQ(Lire(r / "corpus/DICOMP_CORPUS/amb/3c.txt"), Lignes({"coup de vent,.SM:s"}));
    EXPECT_EQ(Lire(r / "corpus/DICOMP_CORPUS/namb/3b.txt"), Lignes({"bout de bois,.SM:s"}));
    EXPECT_TRUE(fs::exists(r / "corpus/DICOMP_CORPUS/namb/8`.txt"));

    // Listed amb lines go to CONTROLE.txt, and not to namb.
    Ecrire(Chemin(r, "dico/comp/AMBIGUS.txt"), Lignes({"coup de vent,.SM:s", "coup de vent,.SF:s"}));
    DialogueScripte dlg2;
    Contexte ctx2{dlg2, h, r};
    OperationPasserAmbNamb(ctx2);
    EXPECT_EQ(Lire(Chemin(r, "dico/comp/CONTROLE.txt")), Lignes({"coup de vent,.SM:s"}));
    EXPECT_EQ(Lire(FichierCasier(r, DOSSIER_COMPOSES_AMB, 3, 3)), Lignes({"coup de foudre,.SM:s"}));
    EXPECT_EQ(Lire(FichierCasier(r, DOSSIER_COMPOSES_NAMB, 3, 3)), "");

    // Removal: a wrong class ends the program with the message as it stands.
    DialogueScripte mauvais;
    mauvais.reponses = {"tous"};
    Contexte ctx3{mauvais, h, r};
    try {
        OperationSuppressionComposes(ctx3);
        ADD_FAILURE() << "pas de fin de programme";
    } catch (const FinProgramme& e) {
        EXPECT_EQ(std::string(e.what()), "Choixi mpossible : 'amb' ou 'namb'");
    }
    const fs::path retraits = r / "retraits.txt";
    Ecrire(retraits, Lignes({"coup de foudre,.SM:s", "bout de bois,.SM:p", "coup de foudre,.SM:s"}));
    DialogueScripte dlg4;
    dlg4.reponses = {"amb"};
    dlg4.fichiers = {retraits};
    Contexte ctx4{dlg4, h, r};
    OperationSuppressionComposes(ctx4);
    EXPECT_EQ(Lire(FichierCasier(r, DOSSIER_COMPOSES_AMB, 3, 3)), "");
    EXPECT_EQ(Lire(FichierCasier(r, DOSSIER_COMPOSES_AMB, 3, 2)), Lignes({"bout de bois,.SM:s"}));
    EXPECT_EQ(Lire(Chemin(r, "dico/comp/svg/amb/3c.txt")), Lignes({"coup de foudre,.SM:s"}));
    EXPECT_EQ(dlg4.messages, std::vector<std::string>{"Terminé. 1 suppressions pour 3 demandées."_cp.data()});
}

}  // namespace
}  // namespace telvoris
