// The map viewers of Form3 opened from their menu items: the files chosen through the dialogs,
// the label count in the scene, a colour, a contribution mark, the zoom and detail panels, the
// hover list, "COLORATION", and the SVG and PNG exports.
#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTextEdit>

#include "gui/vue_carte_globe.hpp"
#include "gui/vue_carte_plan.hpp"
#include "outils.hpp"

namespace telvoris::test {
namespace {

QPushButton* BoutonDe(QWidget* v, const char* nom) { return v->findChild<QPushButton*>(QString::fromUtf8(nom)); }

void Cocher(QWidget* v, const char* texte) {
    for (auto* r : v->findChildren<QRadioButton*>())
        if (r->text() == QString::fromUtf8(texte)) {
            r->setChecked(true);
            return;
        }
    FAIL() << texte;
}

// The number of pixels of an image that are not white.
int Encre(const QImage& image) {
    int n = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixel(x, y) != qRgb(255, 255, 255)) ++n;
    return n;
}

TEST(VueCarte, CartePlaneDepuisLeMenu) {
    DossierTemporaire d;
    const fs::path f = d.Chemin() / "coli_PROJ12.txt";
    Ecrire(f, Lignes({"1/3", "Journal\t9800\t5960\t2\t0", "\xE9t\xE9\t100\t100\t1\t0", "bleu\t5000\t5000\t0\t0",
                      "vert\t2000\t5000\t0\t0", "**1\xA4" "60", "**2\xA4" "40", "***60", "***40"}));
    Banc b;
    b.app.Montrer("Form3");
    auto& z = b.Zone("Form3");
    QAction* a = z.Action("smn_v2");
    ASSERT_NE(a, nullptr);
    a->trigger();
    auto* v = z.Vue<gui::VuePlan>("VuePlan");
    ASSERT_NE(v, nullptr);
    ASSERT_NE(v->findChild<QWidget*>(QString::fromUtf8("B21_Paramètres")), nullptr);
    b.pilote.Ajouter(Fichier(f));
    BoutonDe(v, "PARAP_VAL_2")->click();
    ASSERT_TRUE(v->Carte());
    EXPECT_EQ(b.pilote.fichiers.size(), 1);
    EXPECT_TRUE(b.pilote.fichiers[0].startsWith(QString::fromUtf8("AFC à afficher|")));
    ASSERT_EQ(v->Etiquettes().size(), 4u);
    EXPECT_EQ(v->Etiquettes()[1]->Texte(), QString::fromUtf8("été"));
    EXPECT_EQ(v->Etiquettes()[0]->Couleur(), QColor(255, 0, 0));  // the column, in mode 1
    EXPECT_EQ(v->ListeColonnes()->toPlainText(), QStringLiteral("Journal\n"));
    EXPECT_EQ(v->ListeLignes()->toPlainText(), QString::fromUtf8("été\nbleu\nvert\n"));
    EXPECT_EQ(v->Legende()->text(),
              QString::fromUtf8("Axe horizontal : facteur n° 1; % d'inertie : 60. __ Axe vertical : facteur n° 2; % d'inertie : 40"));
    // The labels stand where the model put them, in the scene's twips.
    const auto& m = v->Carte()->Etiquettes()[2];
    EXPECT_EQ(v->Etiquettes()[2]->pos(), QPointF(m.gauche, m.haut));

    BoutonDe(v, "C223_AXE1")->click();
    EXPECT_EQ(v->Etiquettes()[0]->Fond(), QColor(192, 0, 192));
    EXPECT_EQ(v->Etiquettes()[1]->Fond(), QColor(255, 128, 255));
    EXPECT_FALSE(v->Etiquettes()[2]->AFond());
    BoutonDe(v, "RAFRAICHIR")->click();
    EXPECT_FALSE(v->Etiquettes()[0]->AFond());

    // A press on a label opens the zoom on the other side; "MASQUER" hides it.
    v->Vue()->surPressionEtiquette(0);
    EXPECT_FALSE(v->PanneauZoom()->isHidden());
    EXPECT_EQ(v->VueZoom()->Scene()->items().size() > 0, true);
    BoutonDe(v, "MASQUER")->click();
    EXPECT_TRUE(v->PanneauZoom()->isHidden());

    // Exports: the SVG holds every label, the PNG has ink.
    b.pilote.Ajouter(Texte(QString::fromStdString((d.Chemin() / "carte.svg").string())));
    BoutonDe(v, "EXPORTER_SVG")->click();
    const std::string svg = Lire(d.Chemin() / "carte.svg");
    EXPECT_NE(svg.find(">Journal</text>"), std::string::npos);
    EXPECT_NE(svg.find(">été</text>"), std::string::npos);
    b.pilote.Ajouter(Texte(QString::fromStdString((d.Chemin() / "carte.png").string())));
    BoutonDe(v, "EXPORTER_PNG")->click();
    QImage png(QString::fromStdString((d.Chemin() / "carte.png").string()));
    ASSERT_FALSE(png.isNull());
    EXPECT_EQ(png.width(), 1000);
    EXPECT_GT(Encre(png), 500);  // the two axes alone are 1,300 pixels long
    EXPECT_TRUE(b.pilote.imprevus.isEmpty());

    // "4 Couleurs" asks for the coding file after the map.
    Ecrire(d.Chemin() / "codage.txt", Lignes({"bleu\t2", "vert\t4"}));
    Cocher(v, "4 Couleurs");
    b.pilote.Ajouter(Fichier(f));
    b.pilote.Ajouter(Fichier(d.Chemin() / "codage.txt"));
    BoutonDe(v, "PARAP_VAL_2")->click();
    ASSERT_EQ(b.pilote.fichiers.size(), 3);
    EXPECT_TRUE(b.pilote.fichiers[2].startsWith(QString::fromUtf8("Fichier de codage|")));
    EXPECT_EQ(v->Etiquettes()[2]->Couleur(), QColor(0, 0, 255));
    EXPECT_EQ(v->Etiquettes()[3]->Couleur(), QColor(0, 128, 0));
    EXPECT_EQ(v->Etiquettes()[0]->Couleur(), QColor(0, 0, 0));

    // A bad file: the error box, the area stays.
    Ecrire(d.Chemin() / "mauvais.txt", Lignes({"1/1", "a\t1"}));
    Cocher(v, "Aucune");
    b.pilote.Ajouter(Fichier(d.Chemin() / "mauvais.txt"));
    BoutonDe(v, "PARAP_VAL_2")->click();
    ASSERT_FALSE(b.pilote.messages.isEmpty());
    EXPECT_TRUE(b.pilote.messages.last().contains(QString::fromUtf8("Ligne d'item incomplète")))
        << b.pilote.messages.last().toStdString();
    EXPECT_EQ(b.fin, -1);
}

TEST(VueCarte, PlanisphereDepuisLeMenu) {
    DossierTemporaire d;
    const fs::path f = d.Chemin() / "_PLANISPH_123.txt";
    Ecrire(f, Lignes({"&2/3", "LEMONDE\t100\t0\t4\t2\t0,5\t3,5", "FIGARO\t190\t0\t3\t0,1\t0,5\t0", "proche\t105\t1\t1\t1,2\t0\t0",
                      "voisin\t106\t1,5\t1\t0,1\t0\t0", "loin\t300\t-40\t2\t0,1\t0\t0", "***50", "***30", "***20"}));
    Ecrire(d.Chemin() / "codage.txt", Lignes({"loin\t1", "proche\t2"}));
    Banc b;
    b.app.Montrer("Form3");
    auto& z = b.Zone("Form3");
    z.Action("smn_v3")->trigger();
    auto* v = z.Vue<gui::VueGlobe>("VueGlobe");
    ASSERT_NE(v, nullptr);
    ASSERT_NE(v->findChild<QWidget*>(QString::fromUtf8("Paramètres")), nullptr);
    Cocher(v, "4 Couleurs");
    b.pilote.Ajouter(Fichier(f));
    b.pilote.Ajouter(Fichier(d.Chemin() / "codage.txt"));
    BoutonDe(v, "PARAP_VAL_3")->click();
    ASSERT_TRUE(v->Carte());
    ASSERT_EQ(v->Etiquettes().size(), 5u);
    EXPECT_EQ(v->Etiquettes()[4]->Couleur(), QColor(255, 0, 0));
    EXPECT_EQ(v->Etiquettes()[2]->Couleur(), QColor(0, 0, 255));
    EXPECT_EQ(v->ListeLignes()->toPlainText(), QStringLiteral("proche\nvoisin\nloin\n"));
    EXPECT_EQ(v->findChild<QTextEdit*>("facteurs")->toPlainText(), QStringLiteral("F.1 : 50 %\nF.2 : 30 %\nF.3 : 20 %\n"));

    // Contributions of factor 1: rows above 3/3 get the strong mark.
    BoutonDe(v, "O3_CONTRIB_LB1")->click();
    EXPECT_EQ(v->Etiquettes()[2]->Fond(), QColor(255, 128, 255));
    EXPECT_FALSE(v->Etiquettes()[3]->AFond());
    BoutonDe(v, "RAFRAICHIR")->click();
    EXPECT_FALSE(v->Etiquettes()[2]->AFond());

    // Rotation: four presses give the globe back.
    const QPointF avant = v->Etiquettes()[1]->pos();
    BoutonDe(v, "O3_ROTATION")->click();
    EXPECT_NE(v->Etiquettes()[1]->pos(), avant);
    for (int i = 0; i < 3; ++i) BoutonDe(v, "O3_ROTATION")->click();
    EXPECT_EQ(v->Etiquettes()[1]->pos(), avant);

    // Hover: "proche" and "voisin" stand together; "loin" alone opens nothing.
    v->Survoler(2, false);
    EXPECT_FALSE(v->BoiteSurvol()->isHidden());
    EXPECT_EQ(v->BoiteSurvol()->toPlainText(), QStringLiteral("proche\nvoisin\n"));
    v->Survoler(4, false);
    EXPECT_TRUE(v->BoiteSurvol()->isHidden());

    // Detail around LEMONDE: the close items and their list; "MASQUER" gives the globe back.
    v->Vue()->surPressionEtiquette(0);
    EXPECT_FALSE(v->PanneauDetail()->isHidden());
    EXPECT_EQ(v->ListeDetail()->toPlainText(), QStringLiteral("LEMONDE\nproche\nvoisin\n"));
    BoutonDe(v, "MASQUER")->click();
    EXPECT_TRUE(v->PanneauDetail()->isHidden());

    // COLORATION: the rows near LEMONDE.
    b.pilote.Ajouter(Texte("LEMONDE"));
    b.pilote.Ajouter(Texte("N"));
    BoutonDe(v, "O3_COLOR")->click();
    EXPECT_EQ(v->Etiquettes()[2]->Fond(), QColor(255, 128, 255));
    EXPECT_FALSE(v->Etiquettes()[4]->AFond());
    ASSERT_GE(b.pilote.questions.size(), 2);
    EXPECT_TRUE(b.pilote.questions[0].contains(QString::fromUtf8("Saisir le nom de la métadonnée pertinente n°1 ")));

    b.pilote.Ajouter(Texte(QString::fromStdString((d.Chemin() / "globe.png").string())));
    BoutonDe(v, "EXPORTER_PNG")->click();
    QImage png(QString::fromStdString((d.Chemin() / "globe.png").string()));
    ASSERT_FALSE(png.isNull());
    EXPECT_GT(Encre(png), 500);
    EXPECT_TRUE(b.pilote.imprevus.isEmpty());
}

}  // namespace
}  // namespace telvoris::test
