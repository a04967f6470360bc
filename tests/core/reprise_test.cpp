// The records that let a stopped stage be taken back: the backup record, the build marks and the
// group of files of a saving point.
#include "core/reprise.hpp"

#include <gtest/gtest.h>

#include "core/erreurs.hpp"
#include "core/fichiers.hpp"
#include "support/support.hpp"

using namespace telvoris;
using namespace telvoris::test;

TEST(EcritureGroupee, ToutOuRienEtAchevementApresArret) {
    DossierTemporaire d;
    const fs::path journal = d.Chemin() / "#SAUVEGARDE_EN_COURS.txt";
    const fs::path t1 = d.Chemin() / "t1.txt", t2 = d.Chemin() / "sous/#ETAT.txt", t3 = d.Chemin() / "t3.txt";
    Ecrire(t1, "ancien 1");
    Ecrire(t2, "ancien 2");
    Ecrire(t3, "ancien 3");
    {
        EcritureGroupee g(journal);
        g.Ajouter(t1, "neuf 1");
        g.Ajouter(t2, "neuf 2");
        // Before the commit nothing has changed.
        EXPECT_EQ(Lire(t1), "ancien 1");
        g.Valider();
    }
    EXPECT_EQ(Lire(t1), "neuf 1");
    EXPECT_EQ(Lire(t2), "neuf 2");
    EXPECT_EQ(Lire(t3), "ancien 3");
    EXPECT_FALSE(fs::exists(journal));
    EXPECT_FALSE(fs::exists(EcritureGroupee::Provisoire(t1)));

    // Stopped before its journal: the temporaries are not taken, the files stay at the last save.
    EcrireFichier(EcritureGroupee::Provisoire(t1), "perdu 1");
    EXPECT_FALSE(EcritureGroupee::Achever(journal));
    EXPECT_EQ(Lire(t1), "neuf 1");

    // Stopped after its journal, one file already renamed: the save is finished.
    EcrireFichier(EcritureGroupee::Provisoire(t1), "trois 1");
    Ecrire(t2, "trois 2");
    EcrireFichier(EcritureGroupee::Provisoire(t3), "trois 3");
    Ecrire(journal, Lignes({"t1.txt", "sous/#ETAT.txt", "t3.txt"}));
    EXPECT_TRUE(EcritureGroupee::Achever(journal));
    EXPECT_EQ(Lire(t1), "trois 1");
    EXPECT_EQ(Lire(t2), "trois 2");
    EXPECT_EQ(Lire(t3), "trois 3");
    EXPECT_FALSE(fs::exists(journal));
}

TEST(Reprise, RetablissementEtErreurs) {
    DossierTemporaire d;
    const fs::path tt = d.Chemin() / "OLBRIN_TT";
    Ecrire(tt / "a.txt", "a original");
    Ecrire(tt / "b.txt", "b original");
    Reprise r(tt, "AVANT_X", "\xC9tape");
    EXPECT_FALSE(r.Retablir());
    r.Commencer();
    EXPECT_TRUE(r.EnCours());
    r.Sauvegarder("a", "a original");
    EcrireFichier(tt / "a.txt", "a moitié");
    r.Sauvegarder("b", "b original");
    r.Retirer("b");  // b failed and stayed whole
    EXPECT_EQ(Lire(r.Fichier()), "#EN_COURS\t\xC9tape\r\na\r\n");
    EXPECT_EQ(Lire(tt / "AVANT_X/a.txt"), "a original");

    // A new run over the unfinished one puts a back, and only a.
    Reprise again(tt, "AVANT_X", "\xC9tape");
    EXPECT_EQ(again.Retablir(), 1);
    EXPECT_EQ(Lire(tt / "a.txt"), "a original");
    again.Commencer();
    again.Terminer();
    EXPECT_FALSE(fs::exists(again.Fichier()));

    // A listed text whose backup was deleted: the message names the backup and the record's line.
    Reprise troisieme(tt, "AVANT_X", "\xC9tape");
    troisieme.Commencer();
    troisieme.Sauvegarder("a", "a original");
    fs::remove(tt / "AVANT_X/a.txt");
    EXPECT_EQ(MessageErreur([&] { troisieme.Retablir(); }),
              "La copie de sauvegarde manque pour rétablir le texte « a » : " + (tt / "AVANT_X/a.txt").generic_string() +
                  " (listé dans " + troisieme.Fichier().generic_string() + ", ligne 2)");

    // A build mark names the stage to run again until it is taken away.
    {
        MarqueChantier m(tt / "#M.txt", "Indexer");
        EXPECT_EQ(MarqueChantier::Inacheve(tt / "#M.txt"), "Indexer");
        m.Achever();
    }
    EXPECT_FALSE(MarqueChantier::Inacheve(tt / "#M.txt"));
}
