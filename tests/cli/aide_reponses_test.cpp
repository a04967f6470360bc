// The command line as a newcomer meets it: the list and the help of every operation, options in
// any place, answers that run out, prompts at a terminal.
#include <gtest/gtest.h>

#include <sstream>

#include "lancer.hpp"
#include "support/support.hpp"

namespace telvoris {
namespace {

using test::DossierTemporaire;
using test::Ecrire;
using test::Lancer;
using test::LancerTerminal;
using test::Lignes;
using test::Lire;
namespace fs = std::filesystem;

const std::string kRessources = test::RessourcesTest().string();
const std::string kHorloge = "2026-11-21 10:00:00";

TEST(AideLigneDeCommande, ListeEtAideDeChaqueOperation) {
    auto liste = Lancer({"liste"});
    ASSERT_EQ(liste.statut, 0);
    // Grouped by work area, then by menu.
    const auto f1 = liste.sortie.find("Form1 (accueil et exploration)\n  Fichier\n    Form1.smn_idx\tIndexer\n");
    const auto f2 = liste.sortie.find("\nForm2 (environnement d'étiquetage)\n  Etablissement\n    Form2.smn_seg\tSegmentation\n");
    const auto f3 = liste.sortie.find("\nForm3 (statistiques)\n  Relevés\n    Form3.smn_lx\tLexique\n");
    EXPECT_NE(f1, std::string::npos) << liste.sortie;
    EXPECT_LT(f1, f2);
    EXPECT_LT(f2, f3);
    EXPECT_NE(f3, std::string::npos);

    // Every operation listed has a help with its place and its questions (or says it has none).
    std::istringstream lignes(liste.sortie);
    std::string ligne;
    int vues = 0;
    while (std::getline(lignes, ligne)) {
        if (!ligne.starts_with("    Form")) continue;
        const std::string id = ligne.substr(4, ligne.find('\t') - 4);
        const std::string legende = ligne.substr(ligne.find('\t') + 1);
        const auto aide = Lancer({id, "--help"});
        ++vues;
        EXPECT_EQ(aide.statut, 0) << id;
        EXPECT_TRUE(aide.sortie.starts_with(id + " : ")) << aide.sortie;
        EXPECT_NE(aide.sortie.find("« " + legende + " »"), std::string::npos) << aide.sortie;
        EXPECT_TRUE(aide.sortie.find("\n? ") != std::string::npos || aide.sortie.find("\nAucune question.") != std::string::npos)
            << id << " : " << aide.sortie;
        // "aide OPERATION" says the same.
        EXPECT_EQ(Lancer({"aide", id}).sortie, aide.sortie) << id;
    }
    EXPECT_GE(vues, 25);

    // The panel of the lexicons, with its defaults and answers, in the order it is asked.
    const auto lx = Lancer({"smn_lx", "--help"}).sortie;
    const auto niveau = lx.find("\n? niveau lexical à traiter [défaut : 0] (réponses : 0 formes, sans respect typogr. ; "
                                "1 formes, avecrespect typogr. ; 2 lemmes ; 3 noms propres seuls)\n");
    const auto phrase = lx.find("\n? relevé limité à la phrase ? [défaut : N] (réponses : O, N)\n");
    const auto dimension = lx.find("\n? dimension de l'empan ? [sans défaut]");
    const auto fichier = lx.find("\n? fichier « Localiser le répertoire » (*.txt) [sans défaut]");
    EXPECT_NE(niveau, std::string::npos) << lx;
    EXPECT_LT(niveau, phrase);
    EXPECT_LT(phrase, dimension);
    EXPECT_LT(dimension, fichier);
    EXPECT_NE(fichier, std::string::npos);
    // The bare id that two work areas share is the tagging environment's.
    EXPECT_TRUE(Lancer({"aide", "smn_idx"}).sortie.starts_with("Form2.smn_idx : Form2 (environnement d'étiquetage), menu "
                                                              "« Etablissement », « Réindexer »\n"));
    EXPECT_TRUE(Lancer({"--help", "Form1.smn_idx"}).sortie.starts_with("Form1.smn_idx : "));
    auto inconnue = Lancer({"aide", "smn_rien"});
    EXPECT_EQ(inconnue.statut, 2);
    EXPECT_EQ(inconnue.erreurs, "Opération inconnue : smn_rien (voir « telvoris liste »)\n");
}

TEST(AideLigneDeCommande, OptionsAvantOuApresLOperation) {
    DossierTemporaire d;
    fs::copy(test::DossierSource() / "exemples/presse", d.Chemin() / "presse", fs::copy_options::recursive);
    const auto liste = (d.Chemin() / "presse/REPERTOIRE.txt").string();
    auto e = Lancer({"--horloge", kHorloge, "--ressources", kRessources, "-r", liste, "smn_seg"});
    EXPECT_EQ(e.statut, 0) << e.erreurs;
    EXPECT_EQ(e.sortie, "Segmenté et indexé en 1 secondes\n");
    const std::string lexindex = Lire(d.Chemin() / "presse/OLBRIN_TT/LEXINDEX/LE_MATIN_DU_SUD_2024-03-01.txt");
    // Mixed on both sides: the answers keep their order.
    e = Lancer({"--horloge", kHorloge, "smn_lx", "--ressources", kRessources, "-r", "0", "-r", "N", "--reponse", "N", "-r",
                "N", "-r", liste});
    EXPECT_EQ(e.statut, 0) << e.erreurs;
    EXPECT_TRUE(fs::exists(d.Chemin() / "presse/LEXIQUES/FORMES_MIN_261121_1000.txt"));
    EXPECT_EQ(Lire(d.Chemin() / "presse/OLBRIN_TT/LEXINDEX/LE_MATIN_DU_SUD_2024-03-01.txt"), lexindex);

    EXPECT_EQ(Lancer({"--horloge", "hier", "smn_seg"}).statut, 2);
    EXPECT_EQ(Lancer({"smn_seg", "--horloge"}).statut, 2);
    e = Lancer({"--bavard", "smn_seg"});
    EXPECT_EQ(e.statut, 2);
    EXPECT_TRUE(e.erreurs.starts_with("Option inconnue : --bavard\n")) << e.erreurs;
    e = Lancer({"smn_seg", "en_trop"});
    EXPECT_EQ(e.statut, 2);
    EXPECT_TRUE(e.erreurs.starts_with("Argument inattendu : en_trop\n")) << e.erreurs;
}

TEST(AideLigneDeCommande, ReponsesManquantesEtAbandon) {
    DossierTemporaire d;
    Ecrire(d.Chemin() / "REPERTOIRE.txt", Lignes({"a", "b", "c"}));
    const std::string liste = (d.Chemin() / "REPERTOIRE.txt").string();
    // A question without a default, with no answer left and nobody to ask.
    auto e = Lancer({"smn_repech", "--ressources", kRessources, "-r", liste});
    EXPECT_EQ(e.statut, 2);
    EXPECT_EQ(e.erreurs, "Réponse manquante : Tous les combien ?\n"
                         "(question n° 2 ; à donner avec --reponse, voir « telvoris Form2.smn_repech --help »)\n");
    EXPECT_FALSE(fs::exists(d.Chemin() / "REPETOIRE_ECHANTILLON_.txt"));
    // Questions with a default take it; the file dialog after them has none.
    e = Lancer({"smn_lx", "--ressources", kRessources});
    EXPECT_EQ(e.statut, 2);
    EXPECT_TRUE(e.erreurs.starts_with("Réponse manquante : Localiser le répertoire\n(question n° 5 ;")) << e.erreurs;
    // The panel's span, asked only after O, has no default either.
    e = Lancer({"smn_lx", "--ressources", kRessources, "-r", "0", "-r", "N", "-r", "O"});
    EXPECT_EQ(e.statut, 2);
    EXPECT_TRUE(e.erreurs.starts_with("Réponse manquante : dimension de l'empan ?\n")) << e.erreurs;

    // An empty answer to a file dialog cancels on purpose: the operation stops and says so.
    e = Lancer({"smn_seg", "--ressources", kRessources, "-r", ""});
    EXPECT_EQ(e.statut, 0);
    EXPECT_EQ(e.sortie, "Opération abandonnée\n");
    // Answers that no question took are pointed out.
    e = Lancer({"smn_repech", "--ressources", kRessources, "-r", liste, "-r", "2", "-r", "de trop"});
    EXPECT_EQ(e.statut, 0) << e.erreurs;
    EXPECT_EQ(e.sortie, "Terminé\n");
    EXPECT_EQ(Lire(d.Chemin() / "REPETOIRE_ECHANTILLON_2.txt"), Lignes({"b"}));
    EXPECT_EQ(e.erreurs, "Attention : 1 réponse(s) donnée(s) avec --reponse n'ont servi à aucune question.\n");
}

TEST(AideLigneDeCommande, InvitesAuTerminal) {
    if (!fs::exists("/usr/bin/script")) GTEST_SKIP() << "script (util-linux) absent";
    DossierTemporaire d;
    // The panel's prompts show their default; Enter takes it. The file prompt shows "*.txt", and
    // an empty answer there abandons the operation.
    auto e = LancerTerminal({"smn_lx", "--ressources", kRessources}, "\n\n\n\n\n");
    EXPECT_EQ(e.statut, 0);
    EXPECT_NE(e.sortie.find("B11_Paramètres - niveau lexical à traiter [0] "), std::string::npos) << e.sortie;
    EXPECT_NE(e.sortie.find("B11_Paramètres - relevé limité à la phrase ? [N] "), std::string::npos) << e.sortie;
    EXPECT_NE(e.sortie.find("POST-CLITIQUES - Regrouper les post-clitiques avec les autres occurrences (O/N) ? [O] "),
              std::string::npos)
        << e.sortie;
    EXPECT_NE(e.sortie.find("Localiser le répertoire (*.txt) : "), std::string::npos) << e.sortie;
    EXPECT_EQ(e.sortie.find("¢"), std::string::npos) << e.sortie;
    EXPECT_TRUE(e.sortie.ends_with("Opération abandonnée\r\n")) << e.sortie;
    // The end of input at a question is Cancel too: the operation stops there and says so.
    e = LancerTerminal({"smn_lx", "--ressources", kRessources}, "\n");
    EXPECT_EQ(e.statut, 0);
    EXPECT_NE(e.sortie.find("B11_Paramètres - relevé limité à la phrase ? [N] "), std::string::npos) << e.sortie;
    EXPECT_EQ(e.sortie.find("Localiser le répertoire"), std::string::npos) << e.sortie;
    EXPECT_TRUE(e.sortie.ends_with("Opération abandonnée\r\n")) << e.sortie;
    // The legacy filter of the statistics dialogs reads the same.
    e = LancerTerminal({"smn_afc", "--ressources", kRessources}, "\n");
    EXPECT_NE(e.sortie.find("matrice à analyser (*.txt) : "), std::string::npos) << e.sortie;
    EXPECT_TRUE(e.sortie.ends_with("Opération abandonnée\r\n")) << e.sortie;
    // A question without a default shows no brackets.
    Ecrire(d.Chemin() / "REPERTOIRE.txt", Lignes({"a", "b"}));
    e = LancerTerminal({"smn_repech", "--ressources", kRessources, "-r", (d.Chemin() / "REPERTOIRE.txt").string()}, "1\n");
    EXPECT_EQ(e.statut, 0) << e.sortie;
    EXPECT_NE(e.sortie.find("Tous les combien ? "), std::string::npos) << e.sortie;
    EXPECT_EQ(e.sortie.find("Tous les combien ? ["), std::string::npos) << e.sortie;
    EXPECT_EQ(Lire(d.Chemin() / "REPETOIRE_ECHANTILLON_1.txt"), Lignes({"a", "b"}));
}

}  // namespace
}  // namespace telvoris
