// The correspondence analysis of Form3: the run from its menu with the real solver, the panel's
// button that finalises, the inertia graph drawn, and the question when Form3 closes too early.
#include <gtest/gtest.h>

#include <QGroupBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

#include "../cli/lancer.hpp"
#include "core/texte.hpp"
#include "gui/afc_vue.hpp"
#include "outils.hpp"
#include "stats/afc_lancement.hpp"

namespace telvoris {
namespace {

using namespace test;

const std::vector<std::string> kMatrice = {"\tA\tB\tC", "x\t4\t1\t0", "y\t1\t3\t2", "z\t0\t2\t5", "w\t2\t2\t1"};

struct EtatPropre {
    EtatPropre() { EtatAfcForm3() = EtatAfc{}; }
    ~EtatPropre() {
        if (EtatAfcForm3().processus > 0) AttendreSolveur(EtatAfcForm3().processus);
        EtatAfcForm3() = EtatAfc{};
    }
};

// Waits for the solver that the run started, as a person waits for its window to close.
void AttendreLeSolveur() {
    if (EtatAfcForm3().processus > 0) AttendreSolveur(EtatAfcForm3().processus);
}

TEST(AfcFenetre, LancementFinalisationEtGrapheCommeLaLigneDeCommande) {
    EtatPropre propre;
    DossierTemporaire d;
    Ecrire(d.Chemin() / "cli" / "M.txt", Lignes(kMatrice));
    Ecrire(d.Chemin() / "gui" / "M.txt", Lignes(kMatrice));
    const auto e = Lancer({"smn_afc", "--ressources", RessourcesTest().string(), "--horloge", kHorlogeCli, "--attendre",
                           "-r", (d.Chemin() / "cli" / "M.txt").string()});
    ASSERT_EQ(e.statut, 0) << e.erreurs;
    EtatAfcForm3() = EtatAfc{};

    Banc b;
    b.app.Montrer("Form3");
    b.pilote.Ajouter(Fichier(d.Chemin() / "gui" / "M.txt"));
    b.Choisir("Form3", "smn_afc");
    ASSERT_EQ(b.pilote.messages.size(), 1);
    EXPECT_EQ(b.pilote.messages[0], "ATTENTION, IL NE DOIT PAS Y AVOIR D'ESPACE DANS LES NOMS DE DOSSIERS !!!!!");
    EXPECT_EQ(b.pilote.fichiers[0].section(QLatin1Char('|'), 0, 1), QString::fromUtf8("matrice à analyser|Text files (*.TXT *.txt)"));
    auto* vue = b.Zone("Form3").Vue<gui::VueAfc>("afc");
    ASSERT_NE(vue, nullptr);
    EXPECT_TRUE(vue->Panneau()->isVisible());
    EXPECT_EQ(vue->Panneau()->title(), "Finalisez");
    EXPECT_EQ(vue->Bouton()->text(), "FINALISATION DES FICHIERS");
    EXPECT_FALSE(vue->Graphe()->isVisible());
    // The elapsed time goes to the result pane.
    EXPECT_TRUE(b.Zone("Form3").PanneauResultat()->toPlainText().contains(" 1 secondes"));

    AttendreLeSolveur();
    QTest::mouseClick(vue->Bouton(), Qt::LeftButton);
    ASSERT_TRUE(AttendreQue([&] { return !b.app.Occupee(); }));
    EXPECT_EQ(vue->Bouton()->text(), "Masquer le graphique");
    EXPECT_EQ(vue->Panneau()->title(), QString::fromUtf8("Graphe de décroissance des % d'inertie"));
    EXPECT_FALSE(EtatAfcForm3().AFC_A_FINALISER);
    EXPECT_TRUE(b.pilote.imprevus.isEmpty());
    EXPECT_EQ(Arbre(d.Chemin() / "gui"), Arbre(d.Chemin() / "cli"));

    // The graph on screen: the model's bars, in RGB(250, 100, 100), and its texts as the terminal
    // prints them.
    const GrapheInertie& g = vue->Graphe()->Graphe();
    ASSERT_FALSE(g.boites.empty());
    std::string textes;
    for (const auto& t : TextesDuGraphe(g)) textes += Cp1252VersUtf8(t) + "\n";
    EXPECT_NE(e.sortie.find(textes), std::string::npos) << e.sortie << "---\n" << textes;
    ASSERT_TRUE(vue->Graphe()->isVisible());
    const QImage img = vue->Graphe()->grab().toImage();
    const BoiteGraphe& premiere = g.boites[0];
    const QPoint milieu((premiere.gauche + premiere.largeur / 2) / 15, (premiere.haut + premiere.hauteur / 2) / 15);
    EXPECT_EQ(img.pixelColor(milieu), QColor(250, 100, 100));
    EXPECT_EQ(img.pixelColor(2, 2), QColor(Qt::white));

    // A second press hides the panel and sets the caption back.
    QTest::mouseClick(vue->Bouton(), Qt::LeftButton);
    ASSERT_TRUE(AttendreQue([&] { return !b.app.Occupee(); }));
    EXPECT_FALSE(vue->Panneau()->isVisible());
    EXPECT_EQ(vue->Bouton()->text(), "FINALISATION DES FICHIERS");
    // Closing Form3 now asks nothing.
    b.Zone("Form3").close();
    EXPECT_EQ(b.fin, 0);
    EXPECT_EQ(b.pilote.questions.size(), 0);
}

TEST(AfcFenetre, FermerForm3AvantLaFinalisation) {
    EtatPropre propre;
    DossierTemporaire d;
    Ecrire(d.Chemin() / "M.txt", Lignes(kMatrice));
    for (const char* reponse : {"oui", "OUI"}) {
        EtatAfcForm3() = EtatAfc{};
        Banc b;
        b.app.Montrer("Form3");
        b.pilote.Ajouter(Fichier(d.Chemin() / "M.txt"));
        b.Choisir("Form3", "smn_afc");
        ASSERT_TRUE(EtatAfcForm3().AFC_A_FINALISER);
        AttendreLeSolveur();
        b.pilote.Ajouter(Texte(reponse));
        b.Zone("Form3").close();
        // In every case the program ends; only "OUI" finalises first.
        EXPECT_EQ(b.fin, 0);
        ASSERT_EQ(b.pilote.questions.size(), 1);
        EXPECT_EQ(b.pilote.questions[0].section(QLatin1Char('|'), 1),
                  "ATTENTION, VOUS N'AVEZ PAS SAUVEGARDE VOS FICHIERS D'AFC. VOULEZ-VOUS LE FAIRE AVANT DE QUITTER ?|OUI");
        const std::string eigen = Lire(d.Chemin() / "M" / "eigen.txt");
        EXPECT_EQ(eigen.find('.') == std::string::npos, std::string(reponse) == "OUI") << reponse;
    }
}

TEST(AfcFenetre, MatriceFautiveFinDuProgramme) {
    EtatPropre propre;
    DossierTemporaire d;
    Ecrire(d.Chemin() / "M.txt", Lignes({"\tA\tB", "x\t1\t0", "y\t0\t0"}));
    Banc b;
    b.app.Montrer("Form3");
    b.pilote.Ajouter(Fichier(d.Chemin() / "M.txt"));
    b.Choisir("Form3", "smn_afc");
    ASSERT_EQ(b.pilote.messages.size(), 2);
    EXPECT_EQ(b.pilote.messages[1], QString::fromUtf8("Votre matrice comporte (au moins) une ligne totalisant zéro : "
                                                      "ligne 2. Vérifiez-la."));
    EXPECT_EQ(b.fin, 3);
}

}  // namespace
}  // namespace telvoris
