// The three work areas: start-up, menus from the operation table, moving, quitting, closing,
// running a batch from its menu, and the failures of a run.
#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>

#include "../cli/lancer.hpp"
#include "core/texte.hpp"
#include "gui/barre.hpp"
#include "gui/dialogue_qt.hpp"
#include "outils.hpp"
#include "shell/ressources.hpp"

namespace telvoris {
namespace {

using gui::VersQt;
using namespace test;

TEST(Demarrage, SansArborescenceLeMessageEtLaFin) {
    DossierTemporaire vide;
    Pilote p;
    gui::Application app;
    // A folder given that does not exist, then a search that finds nothing.
    EXPECT_FALSE(app.Demarrer(vide.Chemin() / "absent", vide.Chemin(), vide.Chemin()));
    ASSERT_EQ(p.messages.size(), 1);
    EXPECT_EQ(p.messages[0], VersQt(MessageRessourcesAbsentes()));
    EXPECT_EQ(p.messages[0], QString::fromUtf8("Le dossier 'morv_res' est absent. Copiez-le sur un lecteur interne, "
                                               "svp. Puis relancez l'application."));
    EXPECT_TRUE(app.Terminee());
    EXPECT_EQ(app.ZoneSiChargee("Form1"), nullptr);
}

TEST(Demarrage, ArborescenceTrouveeOuvreForm1Seule) {
    DossierTemporaire d;
    // The tree beside the executable, with its first folder in another case.
    const fs::path racine = d.Chemin() / "bin" / "morventa" / "morv_res";
    fs::create_directories(racine);
    Pilote p;
    gui::Application app;
    ASSERT_TRUE(app.Demarrer(std::nullopt, d.Chemin() / "bin", d.Chemin() / "maison"));
    EXPECT_EQ(app.Ressources(), racine);
    EXPECT_TRUE(p.messages.isEmpty());
    ASSERT_NE(app.ZoneVisible(), nullptr);
    EXPECT_EQ(app.ZoneVisible()->objectName(), "Form1");
    EXPECT_EQ(app.ZoneVisible()->windowTitle(), "TELVORIS_ACCUEIL ET EXPLORATION");
    // The two other areas load when first shown.
    EXPECT_EQ(app.ZoneSiChargee("Form2"), nullptr);
    EXPECT_EQ(app.ZoneSiChargee("Form3"), nullptr);
    // --ressources wins over the search.
    const fs::path autre = d.Chemin() / "ailleurs" / "MORVENTA" / "morv_res";
    fs::create_directories(autre);
    gui::Application app2;
    ASSERT_TRUE(app2.Demarrer(autre, d.Chemin() / "bin", std::nullopt));
    EXPECT_EQ(app2.Ressources(), autre);
}

// The menus of each area are the table's entries of that area, in table order, under their
// menus, with their captions as mnemonics and their help as tooltip; then the shell's items.
TEST(Menus, ConstruitsDepuisLaTableDesOperations) {
    Banc b;
    for (const char* zone : {"Form1", "Form2", "Form3"}) {
        gui::ZoneTravail& z = b.Zone(zone);
        std::vector<std::pair<QString, QString>> attendu, vu;
        std::vector<QString> menusAttendus;
        for (const Operation& op : Operations()) {
            if (op.zone != zone) continue;
            attendu.emplace_back(VersQt(op.menu), VersQt(op.legende));
            if (std::find(menusAttendus.begin(), menusAttendus.end(), VersQt(op.menu)) == menusAttendus.end())
                menusAttendus.push_back(VersQt(op.menu));
            QAction* a = z.Action(QString::fromLatin1(op.id.data(), op.id.size()));
            ASSERT_NE(a, nullptr) << op.id;
            const QString aide = QString::fromUtf8(op.aide.data(), op.aide.size());
            EXPECT_EQ(a->statusTip(), aide.section(QLatin1Char('\n'), 0, 0)) << op.id;
            if (!aide.isEmpty()) EXPECT_EQ(a->toolTip(), aide) << op.id;
        }
        std::vector<QString> menusVus;
        for (QAction* m : z.menuBar()->actions()) {
            if (!m->menu()) continue;
            if (std::find(menusAttendus.begin(), menusAttendus.end(), m->text()) == menusAttendus.end()) continue;
            menusVus.push_back(m->text());
            for (QAction* a : m->menu()->actions()) vu.emplace_back(m->text(), a->text());
        }
        EXPECT_EQ(menusVus, menusAttendus) << zone;
        // Grouped by menu in order of first appearance, the table order within each menu.
        std::vector<std::pair<QString, QString>> regroupe;
        for (const QString& m : menusAttendus)
            for (const auto& e : attendu)
                if (e.first == m) regroupe.push_back(e);
        EXPECT_EQ(vu, regroupe) << zone;
    }
    // A caption's "&" is the mnemonic, as in the table.
    EXPECT_EQ(b.Zone("Form2").Action("smn_seg")->text(), "&Segmentation");
    EXPECT_EQ(b.Zone("Form1").Action("smn_op")->text(), "&Ouvrir");
    EXPECT_EQ(b.Zone("Form2").Action("smn_cmp")->text(), QString::fromUtf8("Composés"));
    EXPECT_EQ(b.Zone("Form1").Action("smn_cl")->text(), "&Fermer");
    EXPECT_EQ(b.Zone("Form2").Action("smn_cl")->text(), "_Quitter");
    EXPECT_EQ(b.Zone("Form3").Action("smn_cl")->text(), "Quitter");
    EXPECT_EQ(b.Zone("Form2").windowTitle(), "ENVIRONNEMENT D'ETIQUETAGE SEMI-AUTOMATIQUE : OLBRIN");
    EXPECT_EQ(b.Zone("Form3").windowTitle(), "OUTILS DE COLLECTE ET DE PROJECTION POUR L'AFC");
}

TEST(Menus, PassageEntreLesZonesEtEtatConserve) {
    Banc b;
    struct Cas {
        const char* de;
        const char* id;
        const char* legende;
        const char* vers;
    };
    const Cas cas[] = {
        {"Form1", "smn_dtg", "Accès à Olbr&In", "Form2"},  {"Form2", "smn_stt", "Accès statistiques", "Form3"},
        {"Form3", "smn_xpl", "Accès exploration", "Form1"}, {"Form1", "smn_stt", "Accès aux fonctions statistiques", "Form3"},
        {"Form3", "smn_dtg", "Accès OlbrIn", "Form2"},      {"Form2", "smn_xpl", "Accès exploration", "Form1"},
    };
    b.Zone("Form2").PanneauResultat()->setPlainText(QString::fromUtf8("état gardé : œ € ’ « »"));
    for (const Cas& c : cas) {
        ASSERT_EQ(b.app.ZoneVisible()->objectName(), c.de);
        QAction* a = b.Zone(c.de).Action(c.id);
        ASSERT_NE(a, nullptr) << c.de << "." << c.id;
        EXPECT_EQ(a->text(), QString::fromUtf8(c.legende));
        a->trigger();
        int visibles = 0;
        for (const char* z : {"Form1", "Form2", "Form3"}) visibles += b.Zone(z).isVisible() ? 1 : 0;
        EXPECT_EQ(visibles, 1);
        EXPECT_EQ(b.app.ZoneVisible()->objectName(), c.vers);
    }
    EXPECT_EQ(b.Zone("Form2").PanneauResultat()->toPlainText(), QString::fromUtf8("état gardé : œ € ’ « »"));
    EXPECT_TRUE(b.pilote.questions.isEmpty());
    EXPECT_EQ(b.fin, -1);
}

TEST(Menus, QuitterSeulementSurOMajuscule) {
    for (const char* zone : {"Form1", "Form2", "Form3"}) {
        Banc b;
        b.app.Montrer(zone);
        b.pilote.Ajouter(Texte("o"));
        b.pilote.Ajouter(Annuler());
        b.pilote.Ajouter(Texte("N"));
        b.pilote.Ajouter(Texte(" O"));
        for (int i = 0; i < 4; ++i) b.Zone(zone).Action("smn_cl")->trigger();
        EXPECT_EQ(b.fin, -1) << zone;
        EXPECT_FALSE(b.app.Terminee());
        b.pilote.Ajouter(Texte("O"));
        b.Zone(zone).Action("smn_cl")->trigger();
        EXPECT_EQ(b.fin, 0) << zone;
        ASSERT_EQ(b.pilote.questions.size(), 5);
        EXPECT_EQ(b.pilote.questions[0], "INTERROMPRE ?|Voulez-vous interrompre la session (O/N) ?|O");
        EXPECT_TRUE(b.pilote.imprevus.isEmpty());
    }
}

TEST(Menus, AideEtFermetureDesFenetres) {
    {
        Banc b;
        b.Zone("Form1").Action("smn_aide")->trigger();
        ASSERT_EQ(b.pilote.messages.size(), 1);
        EXPECT_EQ(b.pilote.messages[0], QString::fromUtf8("Merci de vous reporter à la documentation jointe."));
        // Closing Form1 ends the program at once, with no question.
        b.Zone("Form1").close();
        EXPECT_EQ(b.fin, 0);
        EXPECT_TRUE(b.pilote.questions.isEmpty());
    }
    {
        // Form2 with no review running, Form3 with no analysis to finalise: the program ends.
        Banc b;
        b.app.Montrer("Form2");
        b.Zone("Form2").close();
        EXPECT_EQ(b.fin, 0);
        Banc c;
        c.app.Montrer("Form3");
        c.Zone("Form3").close();
        EXPECT_EQ(c.fin, 0);
        EXPECT_TRUE(b.pilote.questions.isEmpty());
        EXPECT_TRUE(c.pilote.questions.isEmpty());
    }
}

// The segmentation of the example corpus chosen from its menu writes, byte for byte, what the
// command line writes, with the bar shown during the run and the closing message at the end.
TEST(Execution, SegmentationDepuisLeMenuCommeLaLigneDeCommande) {
    DossierTemporaire d;
    const fs::path cli = d.Chemin() / "cli", gui = d.Chemin() / "gui";
    CopierExemple(cli);
    CopierExemple(gui);
    const auto e = Lancer({"smn_seg", "--ressources", RessourcesTest().string(), "--horloge", kHorlogeCli, "-r",
                           (cli / "REPERTOIRE.txt").string()});
    ASSERT_EQ(e.statut, 0) << e.erreurs;

    Banc b;
    b.app.Montrer("Form2");
    gui::ZoneTravail& z = b.Zone("Form2");
    bool barreVue = false;
    QObject::connect(z.LibelleBarre(), &QObject::objectNameChanged, [] {});
    b.pilote.Ajouter(Fichier(gui / "REPERTOIRE.txt"));
    QAction* a = z.Action("smn_seg");
    a->trigger();
    EXPECT_TRUE(b.app.Occupee());
    EXPECT_FALSE(z.menuBar()->isEnabled());
    ASSERT_TRUE(AttendreQue([&] {
        if (z.Barre()->isVisible() && z.Barre()->LargeurUnites() > 0) barreVue = true;
        return !b.app.Occupee();
    }));
    EXPECT_TRUE(z.menuBar()->isEnabled());
    EXPECT_FALSE(z.Barre()->isVisible());
    EXPECT_TRUE(b.pilote.imprevus.isEmpty());
    ASSERT_EQ(b.pilote.fichiers.size(), 1);
    EXPECT_TRUE(b.pilote.fichiers[0].startsWith(QString::fromUtf8("Localiser le répertoire|Text files (*.TXT *.txt)|")))
        << b.pilote.fichiers[0].toStdString();
    ASSERT_EQ(b.pilote.messages.size(), 1);
    EXPECT_EQ(b.pilote.messages[0], QString::fromUtf8("Segmenté et indexé en 1 secondes"));
    EXPECT_EQ(QString::fromStdString(e.sortie).trimmed(), b.pilote.messages[0]);
    EXPECT_EQ(Arbre(gui), Arbre(cli));
    EXPECT_EQ(b.fin, -1);
    (void)barreVue;

    // The file dialog opens next time in the folder last used.
    b.pilote.Ajouter(Fichier({}));
    z.Action("smn_idx")->trigger();
    ASSERT_TRUE(AttendreQue([&] { return !b.app.Occupee(); }));
    ASSERT_EQ(b.pilote.fichiers.size(), 2);
    EXPECT_TRUE(b.pilote.fichiers[1].endsWith(QLatin1Char('|') + QString::fromStdString(gui.string())))
        << b.pilote.fichiers[1].toStdString();
}

TEST(Execution, ErreurDExecutionLaFenetreReste) {
    DossierTemporaire d;
    CopierExemple(d.Chemin());
    Ecrire(d.Chemin() / "MANQUE.txt", Lignes({"texte_absent"}));
    Banc b;
    b.app.Montrer("Form2");
    b.pilote.Ajouter(Fichier(d.Chemin() / "MANQUE.txt"));
    b.Choisir("Form2", "smn_seg");
    ASSERT_EQ(b.pilote.messages.size(), 1);
    EXPECT_TRUE(b.pilote.messages[0].contains("texte_absent")) << b.pilote.messages[0].toStdString();
    EXPECT_EQ(b.fin, -1);
    EXPECT_TRUE(b.Zone("Form2").isVisible());
    EXPECT_TRUE(b.Zone("Form2").menuBar()->isEnabled());
    EXPECT_TRUE(b.Zone("Form2").PanneauResultat()->toPlainText().contains("texte_absent"));
    // The area goes on working after the error.
    b.pilote.Ajouter(Fichier(d.Chemin() / "REPERTOIRE.txt"));
    b.Choisir("Form2", "smn_seg");
    ASSERT_EQ(b.pilote.messages.size(), 2);
    EXPECT_TRUE(b.pilote.messages[1].startsWith(QString::fromUtf8("Segmenté et indexé en")));
}

TEST(Execution, FinDeProgrammeMontreLeMessageEtTermine) {
    DossierTemporaire d;
    Ecrire(d.Chemin() / "REPERTOIRE.txt", Lignes({"a"}));
    Banc b;
    b.app.Montrer("Form2");
    // A review with no automatic pass behind it: a checked precondition.
    b.pilote.Ajouter(Fichier(d.Chemin() / "REPERTOIRE.txt"));
    b.Choisir("Form2", "smn_lev");
    ASSERT_EQ(b.pilote.messages.size(), 1);
    EXPECT_EQ(b.pilote.messages[0], QString::fromUtf8("Vous devez d'abord avoir passé la fonction 'automates'."));
    EXPECT_EQ(b.fin, 3);
}

}  // namespace
}  // namespace telvoris
