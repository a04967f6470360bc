// The map models: the flat and globe files read into labels placed in twips, styles, colour modes
// with the coding file, zoom windows, contribution marks, rotation, detail angles, hover lists,
// colouring by metadata, and the SVG drawing checked by xmllint.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <numbers>

#include "core/texte.hpp"
#include "stats/carte_globe.hpp"
#include "stats/carte_operations.hpp"
#include "stats/carte_plan.hpp"
#include "stats/carte_scene.hpp"
#include "support/support.hpp"

namespace telvoris::test {
namespace {

using namespace telvoris::carte;

// A font of round figures: 100 twips a character (150 in bold), 25 twips of height a point.
Taille MesureTest(std::string_view texte, int corps, bool gras) {
    return {static_cast<double>(texte.size()) * (gras ? 150.0 : 100.0), corps * 25.0};
}

std::string U(std::string_view cp) { return Cp1252VersUtf8(cp); }

const std::string kLong(101, 'w');

fs::path FichierPlan(const fs::path& d) {
    Ecrire(d / "coli_PROJ13.txt",
           Lignes({"2/4", "A \t9800\t5960\t1\t0", "Bbb\t0\t5000\t0\t2", kLong + "\t9990\t5000\t2\t1", "yyyy\t5000\t5000\t0\t0",
                   "abc\t3000\t7000\t0\t1", "z\t5000\t5000\t0\t1", "**1\xA4" "50,5", "**3\xA4" "16,25", "***50,5", "***33,25",
                   "***16,25", "###10", "###", "###0"}));
    return d / "coli_PROJ13.txt";
}

struct Place {
    double gauche, haut, largeur;
};
Place P(const EtiquettePlan& e) { return {e.gauche, e.haut, e.largeur}; }
bool operator==(const Place& a, const Place& b) { return a.gauche == b.gauche && a.haut == b.haut && a.largeur == b.largeur; }
void PrintTo(const Place& p, std::ostream* os) { *os << "(" << p.gauche << ", " << p.haut << ", " << p.largeur << ")"; }

TEST(CartePlan, LectureEtPlacementDesEtiquettes) {
    DossierTemporaire d;
    const auto c = CartePlan::Lire(FichierPlan(d.Chemin()), ParametresPlan{}, std::nullopt, MesureTest);
    const auto& e = c.Etiquettes();
    ASSERT_EQ(e.size(), 6u);
    EXPECT_EQ(c.NombreColonnes(), 2u);
    EXPECT_EQ(c.NombreLignes(), 4u);
    // The trailing blank of "A " is cut; the column is placed before it turns bold, then grows right.
    EXPECT_EQ(e[0].nom, "A");
    EXPECT_EQ(P(e[0]), (Place{9750, 5960 - 100, 150}));
    EXPECT_TRUE(e[0].gras);
    EXPECT_EQ(e[0].couleur, ROUGE);
    // At X = 0 the left edge is clipped at 0: the label is no longer centred on its point.
    EXPECT_EQ(P(e[1]), (Place{0, 4900, 450}));
    // A label that would pass 15,000 ends there.
    EXPECT_EQ(P(e[2]), (Place{15000 - 10100, 4900, 10100}));
    EXPECT_FALSE(e[2].gras);
    EXPECT_EQ(e[2].couleur, NOIR);
    EXPECT_EQ(P(e[3]), (Place{4800, 4900, 400}));
    EXPECT_EQ(e[3].code1, 0);
    EXPECT_EQ(e[5].code2, 1);
    EXPECT_EQ(c.TexteColonnes(), "A\r\nBbb\r\n");
    EXPECT_EQ(c.TexteLignes(), kLong + "\r\nyyyy\r\nabc\r\nz\r\n");
    EXPECT_EQ(U(c.Legende()),
              "Axe horizontal : facteur n° 1; % d'inertie : 50,5. __ Axe vertical : facteur n° 3; % d'inertie : 16,25");
    EXPECT_EQ(c.LignesInertie(), (std::vector<std::string>{"Facteur 1 : 50,5 %", "Facteur 2 : 33,25 %", "Facteur 3 : 16,25 %"}));
    // Scale Round(2000 / 50,5) = 40, pitch Round(3500 / 3) = 1167, bottom at 2500.
    const auto b = c.BarresInertie();
    ASSERT_EQ(b.size(), 3u);
    EXPECT_EQ(b[0].gauche, 200);
    EXPECT_EQ(b[0].hauteur, 2020);
    EXPECT_EQ(b[0].haut, 480);
    EXPECT_EQ(b[0].largeur, 1127);
    EXPECT_EQ(b[1].gauche, 1367);
    EXPECT_EQ(b[1].hauteur, 1330);
    EXPECT_EQ(b[2].gauche, 2534);
    EXPECT_EQ(b[2].hauteur, 650);
    EXPECT_EQ(c.Stats(), (std::vector<std::string>{"10", "", "0"}));

    // With bold asked in the panel the labels are measured bold from the start.
    ParametresPlan gras;
    gras.gras = true;
    gras.corps = 10;
    const auto g = CartePlan::Lire(d.Chemin() / "coli_PROJ13.txt", gras, std::nullopt, MesureTest);
    EXPECT_EQ(P(g.Etiquettes()[0]), (Place{9800 - 75, 5960 - 125, 150}));
    EXPECT_EQ(g.Etiquettes()[0].corps, 10);
}

TEST(CartePlan, SansEnregistrementsNiInertieNiLegende) {
    DossierTemporaire d;
    Ecrire(d.Chemin() / "li_PROJ12.txt", Lignes({"0/2", "x\t100\t200\t0\t0", "y\t300\t400\t0\t0"}));
    const auto c = CartePlan::Lire(d.Chemin() / "li_PROJ12.txt", ParametresPlan{}, std::nullopt, MesureTest);
    EXPECT_TRUE(c.LignesInertie().empty());
    EXPECT_TRUE(c.BarresInertie().empty());
    EXPECT_EQ(c.Legende(), "");
    EXPECT_EQ(c.TexteColonnes(), "");
    EXPECT_EQ(c.NombreLignes(), 2u);
    // Rows are never made bold nor red.
    EXPECT_FALSE(c.Etiquettes()[0].gras);
    EXPECT_EQ(c.Etiquettes()[0].couleur, NOIR);
    const std::string resume = U(ResumePlan(c));
    EXPECT_EQ(resume, "2 étiquettes : 0 colonnes, 2 lignes\r\nLIGNES\r\nx\r\ny\r\n");
}

TEST(CartePlan, CodageQuatreCouleursEtMiseEnGras) {
    DossierTemporaire d;
    const auto f = FichierPlan(d.Chemin());
    // "Bbb" matches three entries of its class: the last one wins. "bc" is of another class than
    // "abc", so it is never tried on it. "yy " loses its blank.
    Ecrire(d.Chemin() / "codage.txt", Lignes({"B\t1", "bb\t2", "Bb\t4", "bc\t3", "yy \t3", "w\t0", "zz\t2"}));
    ParametresPlan p;
    p.modeCouleur = 2;
    const auto c = CartePlan::Lire(f, p, d.Chemin() / "codage.txt", MesureTest);
    const auto& e = c.Etiquettes();
    EXPECT_EQ(e[0].couleur, NOIR);  // a column, bold but not red outside mode 1
    EXPECT_TRUE(e[0].gras);
    EXPECT_EQ(e[1].couleur, VERT_FONCE);
    EXPECT_EQ(e[2].couleur, NOIR);
    EXPECT_EQ(e[3].couleur, MAGENTA);
    EXPECT_EQ(e[4].couleur, NOIR);
    EXPECT_EQ(e[5].couleur, NOIR);  // "zz" does not occur in "z"
    // Mode 3 reads the file but sets no colour, and columns are not red.
    p.modeCouleur = 3;
    const auto m3 = CartePlan::Lire(f, p, d.Chemin() / "codage.txt", MesureTest);
    for (const auto& x : m3.Etiquettes()) EXPECT_EQ(x.couleur, NOIR) << x.nom;
    // A mis-formed coding file stops the reading with its file and line.
    Ecrire(d.Chemin() / "mauvais.txt", Lignes({"a\t1", "b\t7"}));
    EXPECT_EQ(MessageErreur([&] { CartePlan::Lire(f, p, d.Chemin() / "mauvais.txt", MesureTest); }),
              "Code de couleur hors de 0 à 4 (7) dans " + (d.Chemin() / "mauvais.txt").string() + ", ligne 2");
    Ecrire(d.Chemin() / "sanstab.txt", Lignes({"a 1"}));
    EXPECT_EQ(MessageErreur([&] { CartePlan::Lire(f, p, d.Chemin() / "sanstab.txt", MesureTest); }),
              "Ligne sans tabulation dans le fichier de codage " + (d.Chemin() / "sanstab.txt").string() + ", ligne 1");
    // At most 1,000 entries for one initial class.
    std::vector<std::string> mille;
    for (int i = 0; i <= 1000; ++i) mille.push_back("m" + std::to_string(i) + "\t1");
    Ecrire(d.Chemin() / "mille.txt", Lignes(mille));
    EXPECT_NE(MessageErreur([&] { Codage::Lire(d.Chemin() / "mille.txt"); }).find("MAX_CODAGE_CLASSE = 1000"), std::string::npos);
    mille.pop_back();
    Ecrire(d.Chemin() / "mille.txt", Lignes(mille));
    EXPECT_EQ(Codage::Lire(d.Chemin() / "mille.txt").Taille(), 1000u);
}

TEST(CartePlan, FenetresDeZoomRameneesDansLeCarre) {
    DossierTemporaire d;
    const auto c = CartePlan::Lire(FichierPlan(d.Chemin()), ParametresPlan{}, std::nullopt, MesureTest);
    // "A" at (9750, 5860): the window 9084..10416 leaves the square and comes back to 8668..10000.
    auto z = c.ZoomEtiquette(0);
    EXPECT_EQ(z.gauche, 8668);
    EXPECT_EQ(z.haut, 5194);
    EXPECT_EQ(z.cote, 1332);
    EXPECT_FALSE(z.panneauADroite);
    ASSERT_EQ(z.etiquettes.size(), 1u);
    EXPECT_EQ(z.etiquettes[0].gauche, 3 * (9750 - 8668));
    EXPECT_EQ(z.etiquettes[0].haut, 3 * (5860 - 5194));
    // "Bbb" at (0, 4900): the window is pushed right to 0; "yyyy" and "z" stand outside it.
    z = c.ZoomEtiquette(1);
    EXPECT_EQ(z.gauche, 0);
    EXPECT_EQ(z.haut, 4234);
    EXPECT_TRUE(z.panneauADroite);
    ASSERT_EQ(z.etiquettes.size(), 1u);
    EXPECT_EQ(z.etiquettes[0].indice, 1u);
    // "yyyy" (4800, 4900) and "z" (4950, 4900) share a window.
    z = c.ZoomEtiquette(3);
    EXPECT_EQ(z.gauche, 4134);
    ASSERT_EQ(z.etiquettes.size(), 3u);  // the long label's left edge 4900 too
    EXPECT_EQ(z.etiquettes[1].indice, 3u);
    EXPECT_EQ(z.etiquettes[2].gauche, 3 * (4950 - 4134));
    // On the background the square is limited at 14,000.
    z = c.ZoomFond(13900, 100);
    EXPECT_EQ(z.gauche, 14000 - 1332);
    EXPECT_EQ(z.haut, 0);
    EXPECT_FALSE(z.panneauADroite);
    EXPECT_TRUE(z.etiquettes.empty());
}

TEST(CartePlan, ContributionsEtRafraichissement) {
    DossierTemporaire d;
    auto c = CartePlan::Lire(FichierPlan(d.Chemin()), ParametresPlan{}, std::nullopt, MesureTest);
    c.MarquerContributions(1);
    const auto& e = c.Etiquettes();
    EXPECT_EQ(e[0].fond, FOND_CONTRIBUTION_MOYENNE);
    EXPECT_EQ(e[1].fond, std::nullopt);
    EXPECT_EQ(e[2].fond, FOND_CONTRIBUTION_FORTE);
    EXPECT_EQ(e[2].fond, (Couleur{192, 0, 192}));
    c.MarquerContributions(2);
    EXPECT_EQ(e[0].fond, std::nullopt);
    EXPECT_EQ(e[1].fond, (Couleur{192, 0, 192}));
    EXPECT_EQ(e[5].fond, (Couleur{255, 128, 255}));
    c.Rafraichir();
    for (const auto& x : e) EXPECT_EQ(x.fond, std::nullopt);
}

TEST(CartePlan, FichiersMalFormes) {
    DossierTemporaire d;
    const auto f = d.Chemin() / "p.txt";
    auto lire = [&](const std::vector<std::string>& l) {
        Ecrire(f, Lignes(l));
        return MessageErreur([&] { CartePlan::Lire(f, ParametresPlan{}, std::nullopt, MesureTest); });
    };
    const std::string nom = f.string();
    EXPECT_EQ(lire({"1/1", "a\t1\t2\t0"}), "Ligne d'item incomplète (5 champs attendus) : " + nom + ", ligne 2");
    EXPECT_NE(lire({"1/1", "a\t1\tdeux\t0\t0"}).find(nom + ", ligne 2"), std::string::npos);
    EXPECT_EQ(lire({"12"}), "La première ligne n'est pas « colonnes/lignes » : " + nom + ", ligne 1");
    EXPECT_EQ(lire({"&1/1", "a\t1\t2\t3\t0\t0\t0"}), "Ce fichier est celui d'un planisphère (3 facteurs) : " + nom);
    EXPECT_EQ(lire({}), "Fichier de carte vide : " + nom);
    // 5,000 items are read; one more ends the view.
    std::vector<std::string> l{"0/5001"};
    for (int i = 0; i < 5000; ++i) l.push_back("i" + std::to_string(i) + "\t" + std::to_string(i * 2) + "\t5000\t0\t0");
    Ecrire(f, Lignes(l));
    EXPECT_EQ(CartePlan::Lire(f, ParametresPlan{}, std::nullopt, MesureTest).Etiquettes().size(), 5000u);
    l.push_back("trop\t1\t1\t0\t0");
    EXPECT_NE(lire(l).find("MAX_ITEMS_CARTE = 5000"), std::string::npos);
}

// ---------------------------------------------------------------------------------------------
// The globe.

fs::path FichierGlobe(const fs::path& d) {
    Ecrire(d / "_PLANISPH_123.txt",
           Lignes({"&1/4", "C1\t100\t0\t3\t2\t0,5\t3,5", "r1\t0,5\t10\t0,9\t0,8\t0\t0", "r2\t350\t-20\t2\t0,375\t0\t0",
                   ".\t200\t5\t0\t0\t0\t0", "r3\t90,01\t-2,5\t1,2\t0,4\t0\t0", "***50,5", "***30", "***19,5", "###7"}));
    return d / "_PLANISPH_123.txt";
}

TEST(CarteGlobe, PositionsRetrecissementAncrageEtStyles) {
    DossierTemporaire d;
    const auto c = CarteGlobe::Lire(FichierGlobe(d.Chemin()), ParametresGlobe{}, std::nullopt, MesureTest);
    const auto& e = c.Etiquettes();
    ASSERT_EQ(e.size(), 5u);
    EXPECT_EQ(c.NombreColonnes(), 1u);
    EXPECT_DOUBLE_EQ(c.DistanceMoyenne(), 7.1 / 5);
    // Each band of distance, M = 1.42.
    EXPECT_EQ(e[0].couleur, NOIR);
    EXPECT_TRUE(e[0].gras);
    EXPECT_EQ(e[0].corps, 12);
    EXPECT_EQ(e[1].couleur, GRIS_192);
    EXPECT_EQ(e[1].corps, 8);
    EXPECT_EQ(e[2].couleur, NOIR);
    EXPECT_FALSE(e[2].gras);
    EXPECT_EQ(e[2].corps, 10);
    EXPECT_EQ(e[3].couleur, GRIS_224);
    EXPECT_EQ(e[4].couleur, (Couleur{128, 128, 128}));
    EXPECT_EQ(e[4].corps, 10);
    // C1: X0 = 5250, no narrowing at the equator, anchor Round(5000 / 18000 x 300) = 83.
    EXPECT_EQ(e[0].haut, 4705);
    EXPECT_EQ(e[0].largeur, 300);
    EXPECT_DOUBLE_EQ(e[0].gauche, 5250 - 83);
    // r1: X0 = 275, h = 50, X = 275 + 8975 / 9000 x 50.
    const double x1 = 275 + 8975.0 / 9000 * 50;
    EXPECT_DOUBLE_EQ(e[1].x, x1);
    EXPECT_DOUBLE_EQ(e[1].gauche, x1 - 1);
    EXPECT_EQ(e[1].haut, 5205);
    // r2, right of the central meridian: X = 17750 - 8500 / 9000 x 200; anchor 192 of 200.
    const double x2 = 17750 - 8500.0 / 9000 * 200;
    EXPECT_DOUBLE_EQ(e[2].gauche, x2 - 192);
    EXPECT_EQ(e[2].haut, 3705);
    // r3: Round(4500,5) = 4500 and Round(-2,5) = -2 (ties to even): X0 = 4750, h = 2.
    EXPECT_DOUBLE_EQ(e[4].x, 4751);
    EXPECT_EQ(e[4].haut, 4705 - 125 + 0);
    EXPECT_DOUBLE_EQ(e[4].gauche, 4751 - 50);
    EXPECT_EQ(c.LignesInertie(), (std::vector<std::string>{"F.1 : 50,5 %", "F.2 : 30 %", "F.3 : 19,5 %"}));
    // Scale Round(1000 / 50,5) = 20, pitch Round(1500 / 3) = 500.
    const auto b = c.BarresInertie();
    ASSERT_EQ(b.size(), 3u);
    EXPECT_EQ(b[0].hauteur, 1010);
    EXPECT_EQ(b[1].gauche, 600);
    EXPECT_EQ(b[2].hauteur, 390);
    EXPECT_EQ(c.Stats(), std::vector<std::string>{"7"});
    EXPECT_EQ(c.TexteColonnes(), "C1\r\n");
    EXPECT_EQ(c.TexteLignes(), "r1\r\nr2\r\n.\r\nr3\r\n");

    // "Saillantes": the columns take the warm shades.
    ParametresGlobe s;
    s.colonnes = 2;
    s.corps = 10;
    const auto cs = CarteGlobe::Lire(d.Chemin() / "_PLANISPH_123.txt", s, std::nullopt, MesureTest);
    EXPECT_EQ(cs.Etiquettes()[0].couleur, ROUGE);
    EXPECT_EQ(cs.Etiquettes()[0].corps, 14);
    EXPECT_EQ(cs.Etiquettes()[1].couleur, GRIS_192);
}

TEST(CarteGlobe, StylesDesColonnesSaillantesAuxLimites) {
    DossierTemporaire d;
    // Distances 3, 2, 1, 0,5 and 3,5: M = 2; limits 3,34, 2, 1,333 and 0,667.
    Ecrire(d.Chemin() / "g.txt", Lignes({"&5/0", "a\t10\t0\t3\t0\t0\t0", "b\t20\t0\t2\t0\t0\t0", "c\t30\t0\t1\t0\t0\t0",
                                         "d\t40\t0\t0,5\t0\t0\t0", "e\t50\t0\t3,5\t0\t0\t0"}));
    ParametresGlobe s;
    s.colonnes = 2;
    const auto c = CarteGlobe::Lire(d.Chemin() / "g.txt", s, std::nullopt, MesureTest);
    const auto& e = c.Etiquettes();
    EXPECT_EQ(e[0].couleur, ROUGE);
    EXPECT_FALSE(e[0].gras);
    EXPECT_EQ(e[0].corps, 10);
    EXPECT_EQ(e[1].couleur, SAILLANTE_MOYENNE);  // d = M exactly
    EXPECT_EQ(e[1].corps, 10);
    EXPECT_EQ(e[2].couleur, SAILLANTE_FAIBLE);
    EXPECT_EQ(e[2].corps, 8);
    EXPECT_EQ(e[3].couleur, SAILLANTE_FAIBLE);
    EXPECT_EQ(e[4].couleur, ROUGE);
    EXPECT_TRUE(e[4].gras);
    EXPECT_EQ(e[4].corps, 12);
}

TEST(CarteGlobe, CodageQuatreEtDeuxCouleurs) {
    DossierTemporaire d;
    const auto f = FichierGlobe(d.Chemin());
    Ecrire(d.Chemin() / "COLOR_1.txt", Lignes({"C1\t4", "r1\t1", "r2\t3", "r\t2", "r3\t0"}));
    ParametresGlobe p;
    p.modeCouleur = 2;
    auto c = CarteGlobe::Lire(f, p, d.Chemin() / "COLOR_1.txt", MesureTest);
    EXPECT_EQ(c.Etiquettes()[0].couleur, VERT_FONCE);
    EXPECT_EQ(c.Etiquettes()[1].couleur, BLEU);  // "r" comes after "r1" and also occurs in "r1"
    EXPECT_EQ(c.Etiquettes()[2].couleur, BLEU);
    EXPECT_EQ(c.Etiquettes()[3].couleur, GRIS_224);
    EXPECT_EQ(c.Etiquettes()[4].couleur, NOIR);
    // Two colours: codes 3 and 4 leave the style's shade.
    Ecrire(d.Chemin() / "COLOR_2.txt", Lignes({"C1\t4", "r1\t1", "r2\t2", "r3\t3"}));
    p.modeCouleur = 3;
    c = CarteGlobe::Lire(f, p, d.Chemin() / "COLOR_2.txt", MesureTest);
    EXPECT_EQ(c.Etiquettes()[0].couleur, NOIR);
    EXPECT_EQ(c.Etiquettes()[1].couleur, ROUGE);
    EXPECT_EQ(c.Etiquettes()[2].couleur, BLEU);
    EXPECT_EQ(c.Etiquettes()[4].couleur, GRIS_128);
    // "2 couleurs graduées" reads the file and keeps the shades of distance.
    p.modeCouleur = 4;
    c = CarteGlobe::Lire(f, p, d.Chemin() / "COLOR_2.txt", MesureTest);
    EXPECT_EQ(c.Etiquettes()[1].couleur, GRIS_192);
}

TEST(CarteGlobe, QuatreRotationsRendentLeGlobeEtLePointResteHors) {
    DossierTemporaire d;
    auto c = CarteGlobe::Lire(FichierGlobe(d.Chemin()), ParametresGlobe{}, std::nullopt, MesureTest);
    const auto avant = c.Etiquettes();
    c.Tourner();
    const auto& e = c.Etiquettes();
    EXPECT_EQ(e[0].longitude, 190);
    EXPECT_EQ(e[0].gauche, 9750 - 158);  // a = 9500 / 18000, Round(158,33)
    EXPECT_EQ(e[0].haut, 4705);
    EXPECT_EQ(e[2].longitude, 80);  // 440 less 360
    EXPECT_DOUBLE_EQ(e[2].x, 4250 + 5000.0 / 9000 * 200);
    EXPECT_EQ(e[2].haut, avant[2].haut);
    EXPECT_EQ(e[3].longitude, 200);  // the item named "." stays
    EXPECT_EQ(e[3].gauche, avant[3].gauche);
    EXPECT_EQ(e[4].longitude, 180.01);
    c.Tourner();
    c.Tourner();
    c.Tourner();
    for (std::size_t i = 0; i < e.size(); ++i) {
        EXPECT_EQ(e[i].longitude, avant[i].longitude) << i;
        EXPECT_EQ(e[i].gauche, avant[i].gauche) << i;
        EXPECT_EQ(e[i].haut, avant[i].haut) << i;
    }
    // A longitude that reaches 360 exactly is not brought back to 0.
    Ecrire(d.Chemin() / "g.txt", Lignes({"&0/2", "a\t270\t0\t1\t0\t0\t0", "b\t10\t0\t1\t0\t0\t0"}));
    auto g = CarteGlobe::Lire(d.Chemin() / "g.txt", ParametresGlobe{}, std::nullopt, MesureTest);
    g.Tourner();
    EXPECT_EQ(g.Etiquettes()[0].longitude, 360);
    EXPECT_EQ(g.Etiquettes()[0].x, 18250);
}

// The angles of the detail computed apart: the point as a vector, turned about the east axis.
AnglesDetail Attendu(double lon, double lat, double L, double P) {
    const double k = std::numbers::pi / 180;
    const double dl = (lon - L) * k, f = lat * k, p = P * k;
    const double x = std::cos(f) * std::cos(dl), y = std::cos(f) * std::sin(dl), z = std::sin(f);
    const double x2 = x * std::cos(p) + z * std::sin(p), z2 = -x * std::sin(p) + z * std::cos(p);
    double l2 = std::atan2(z2, x2) / k;
    if (l2 < 0) l2 += 360;
    return {l2, std::asin(std::fabs(y)) / k, y >= 0};
}

TEST(CarteGlobe, AnglesDeLaVueDeDetail) {
    // Hand-computed: around (0, 0), a point 30° east on the equator stands 30° across the view.
    auto a = AnglesVueDetail(30, 0, 0, 0);
    EXPECT_NEAR(a.longitude, 0, 1e-9);
    EXPECT_NEAR(a.latitude, 30, 1e-9);
    EXPECT_TRUE(a.est);
    a = AnglesVueDetail(0, -30, 0, 0);
    EXPECT_NEAR(a.longitude, 330, 1e-9);
    EXPECT_NEAR(a.latitude, 0, 1e-9);
    a = AnglesVueDetail(0, 40, 0, 10);
    EXPECT_NEAR(a.longitude, 30, 1e-9);
    // Against the vector computation, over the four quadrants and both hemispheres.
    const double centres[][2] = {{0, 0}, {37, 12}, {200, -35}, {359, 60}, {90, -80}};
    int n = 0;
    for (const auto& c : centres)
        for (double lon = 0.5; lon < 360; lon += 23.75)
            for (double lat = -85; lat <= 85; lat += 17) {
                const auto g = AnglesVueDetail(lon, lat, c[0], c[1]);
                const auto w = Attendu(lon, lat, c[0], c[1]);
                double dl = std::fabs(g.longitude - w.longitude);
                dl = std::min(dl, 360 - dl);
                ASSERT_NEAR(dl, 0, 1e-7) << lon << " " << lat << " / " << c[0] << " " << c[1];
                ASSERT_NEAR(g.latitude, w.latitude, 1e-7) << lon << " " << lat;
                if (g.latitude > 1e-6) ASSERT_EQ(g.est, w.est) << lon << " " << lat;
                ++n;
            }
    EXPECT_EQ(n, 5 * 16 * 11);
    // The clicked item is the centre of its own view, from either hemisphere.
    for (double P : {-60.0, -5.0, 0.0, 33.3, 89.0}) {
        a = AnglesVueDetail(123.4, P, 123.4, P);
        EXPECT_NEAR(std::min(a.longitude, 360 - a.longitude), 0, 1e-9) << P;
        EXPECT_NEAR(a.latitude, 0, 1e-9) << P;
    }
}

TEST(CarteGlobe, DetailAutourDUnItemEtListes) {
    DossierTemporaire d;
    Ecrire(d.Chemin() / "g.txt", Lignes({"&1/4", "c\t0\t0\t1\t0\t0\t0", "e30\t30\t0\t1\t0\t0\t0", "n20\t0\t20\t1\t0\t0\t0",
                                         "s30\t0\t-30\t1\t0\t0\t0", "n50\t0\t50\t1\t0\t0\t0"}));
    const auto c = CarteGlobe::Lire(d.Chemin() / "g.txt", ParametresGlobe{}, std::nullopt, MesureTest);
    const auto detail = c.DetailAutour(0);
    // n50 lies 50° away along the new longitude: out of the 45° window.
    ASSERT_EQ(detail.etiquettes.size(), 4u);
    auto vue = [&](std::size_t i) { return detail.etiquettes[i]; };
    EXPECT_NEAR(vue(0).gauche, 7000, 1e-6);  // the centre, 45 x 150 + 250
    EXPECT_NEAR(vue(0).haut, 7000, 1e-6);
    EXPECT_NEAR(vue(1).gauche, 7000, 1e-6);
    EXPECT_NEAR(vue(1).haut, 75 * 150 + 250, 1e-6);
    EXPECT_NEAR(vue(2).gauche, 65 * 150 + 250, 1e-6);
    EXPECT_NEAR(vue(3).gauche, 15 * 150 + 250, 1e-6);  // new longitude 330
    EXPECT_EQ(detail.Liste(c.Etiquettes()), "c\r\ne30\r\nn20\r\ns30\r\n");
    // An item west of the centre sits on the other side of the middle line.
    Ecrire(d.Chemin() / "h.txt", Lignes({"&0/2", "c\t40\t0\t1\t0\t0\t0", "o\t20\t0\t1\t0\t0\t0"}));
    const auto h = CarteGlobe::Lire(d.Chemin() / "h.txt", ParametresGlobe{}, std::nullopt, MesureTest);
    const auto dh = h.DetailAutour(0);
    ASSERT_EQ(dh.etiquettes.size(), 2u);
    EXPECT_FALSE(dh.etiquettes[1].est);
    EXPECT_NEAR(dh.etiquettes[1].haut, 25 * 150 + 250, 1e-6);
}

TEST(CarteGlobe, ListesDeSurvol) {
    DossierTemporaire d;
    Ecrire(d.Chemin() / "g.txt",
           Lignes({"&0/6", "a1\t100\t0\t1\t0\t0\t0", "a2\t102\t1\t1\t0\t0\t0", "a3\t110\t0\t1\t0\t0\t0", "b1\t200\t0\t1\t0\t0\t0",
                   "b2\t201\t-1\t1\t0\t0\t0", "b3\t205\t0\t1\t0\t0\t0"}));
    const auto c = CarteGlobe::Lire(d.Chemin() / "g.txt", ParametresGlobe{}, std::nullopt, MesureTest);
    const auto& e = c.Etiquettes();
    auto l = c.Survol(0);
    EXPECT_EQ(l.indices, (std::vector<std::size_t>{0, 1}));
    EXPECT_EQ(l.hauteur, 500);
    EXPECT_EQ(l.gauche, e[0].gauche + e[0].largeur + 500);  // left of 6000: to the right
    EXPECT_EQ(l.haut, e[0].haut);
    // An isolated label opens no list.
    EXPECT_TRUE(c.Survol(2).indices.empty());
    // Right of 6000 the box opens to the left; b3 is within 200 of b2's left edge, not of b1's.
    l = c.Survol(4);
    EXPECT_EQ(l.indices, (std::vector<std::size_t>{3, 4, 5}));
    EXPECT_EQ(l.gauche, e[4].gauche - 500 - l.largeur);
    EXPECT_EQ(c.Survol(3).indices, (std::vector<std::size_t>{3, 4}));
    // In the detail, the positions of the detail count.
    const auto detail = c.DetailAutour(3);
    // b2 stands 150 twips from b1 each way; b3, 5° east, 750 twips below them.
    l = c.Survol(4, &detail);
    EXPECT_EQ(l.indices, (std::vector<std::size_t>{3, 4}));
    EXPECT_NEAR(l.haut, 46 * 150 + 250, 0.1);  // about one degree across the view
    EXPECT_TRUE(c.Survol(0, &detail).indices.empty());  // not in that detail
}

TEST(CarteGlobe, ContributionsParFacteur) {
    DossierTemporaire d;
    auto c = CarteGlobe::Lire(FichierGlobe(d.Chemin()), ParametresGlobe{}, std::nullopt, MesureTest);
    c.MarquerContributions(1);
    const auto& e = c.Etiquettes();
    // Rows: A = 1/4, limits 0,75 and 0,375 (the second not reached by 0,375 itself). Column: A = 1.
    EXPECT_EQ(e[0].fond, FOND_CONTRIB_MOYENNE);
    EXPECT_EQ(e[1].fond, (Couleur{255, 128, 255}));
    EXPECT_EQ(e[2].fond, std::nullopt);
    EXPECT_EQ(e[3].fond, std::nullopt);
    EXPECT_EQ(e[4].fond, (Couleur{255, 192, 255}));
    c.MarquerContributions(3);
    EXPECT_EQ(e[0].fond, FOND_CONTRIB_FORTE);
    EXPECT_EQ(e[1].fond, std::nullopt);
    c.Rafraichir();
    EXPECT_EQ(e[0].fond, std::nullopt);
}

TEST(CarteGlobe, ColorationParMetadonnees) {
    DossierTemporaire d;
    Ecrire(d.Chemin() / "g.txt", Lignes({"&2/3", "LEMONDE \t0\t0\t1\t0\t0\t0", "FIGARO\t90\t0\t1\t0\t0\t0", "proche\t10\t0\t1\t0\t0\t0",
                                         "moyen\t45\t0\t1\t0\t0\t0", "loin\t180\t10\t1\t0\t0\t0"}));
    auto c = CarteGlobe::Lire(d.Chemin() / "g.txt", ParametresGlobe{}, std::nullopt, MesureTest);
    EXPECT_EQ(c.Marque(2, 0), 2);
    EXPECT_EQ(c.Marque(3, 0), 1);
    EXPECT_EQ(c.Marque(4, 0), 0);
    EXPECT_EQ(c.Marque(3, 1), 1);
    // One metadata only.
    DialogueScripte un;
    un.reponses = {"LEMONDE", "N"};
    ASSERT_TRUE(c.Colorer(un));
    const auto& e = c.Etiquettes();
    EXPECT_EQ(e[2].fond, FOND_METADONNEE_2);
    EXPECT_EQ(e[3].fond, (Couleur{255, 192, 192}));
    EXPECT_EQ(e[4].fond, std::nullopt);
    EXPECT_EQ(e[0].fond, std::nullopt);  // columns are not painted
    EXPECT_TRUE(un.messages.empty());
    // A wrong answer asks again; the second metadata paints over the first.
    c.Rafraichir();
    DialogueScripte deux;
    deux.reponses = {"LEMONDE", "oui", "O", "FIGARO"};
    ASSERT_TRUE(c.Colorer(deux));
    ASSERT_EQ(deux.messages.size(), 1u);
    EXPECT_EQ(U(deux.messages[0]), "Saisie erronée. Recommencez.");
    EXPECT_EQ(e[2].fond, FOND_METADONNEE_2);
    EXPECT_EQ(e[3].fond, (Couleur{255, 128, 128}));  // 45° from both: the second's mark 1 wins
    // A name that is not a column: the message, and nothing is painted.
    c.Rafraichir();
    DialogueScripte faux;
    faux.reponses = {"proche"};
    EXPECT_FALSE(c.Colorer(faux));
    ASSERT_EQ(faux.messages.size(), 1u);
    EXPECT_EQ(U(faux.messages[0]), "Cette métadonnée n'est pas accessible dans votre fichier");
    for (const auto& x : e) EXPECT_EQ(x.fond, std::nullopt);
}

TEST(CarteGlobe, FichiersMalFormes) {
    DossierTemporaire d;
    const auto f = d.Chemin() / "g.txt";
    auto lire = [&](const std::vector<std::string>& l) {
        Ecrire(f, Lignes(l));
        return MessageErreur([&] { CarteGlobe::Lire(f, ParametresGlobe{}, std::nullopt, MesureTest); });
    };
    const std::string nom = f.string();
    EXPECT_EQ(lire({"&0/1", "a\t1\t2\t3\t0\t0"}), "Ligne d'item incomplète (7 champs attendus) : " + nom + ", ligne 2");
    EXPECT_EQ(lire({"1/1", "a\t1\t2\t0\t0"}), "Ce fichier n'est pas celui d'un planisphère (« & » attendu en tête) : " + nom);
    EXPECT_NE(lire({"&0/1", "a\t1\tx\t3\t0\t0\t0"}).find(nom + ", ligne 2"), std::string::npos);
    // A map with no item reads, with a mean distance of 0.
    Ecrire(f, Lignes({"&0/0"}));
    EXPECT_EQ(CarteGlobe::Lire(f, ParametresGlobe{}, std::nullopt, MesureTest).DistanceMoyenne(), 0);
}

// ---------------------------------------------------------------------------------------------
// The scene and its SVG.

bool XmlBienForme(const fs::path& f) {
    const std::string commande = "xmllint --noout '" + f.string() + "' 2>/dev/null";
    return std::system(commande.c_str()) == 0;
}

std::size_t Compter(const std::string& s, const std::string& motif) {
    std::size_t n = 0;
    for (auto p = s.find(motif); p != std::string::npos; p = s.find(motif, p + 1)) ++n;
    return n;
}

TEST(CarteSvg, DocumentsBienFormesAvecChaqueEtiquette) {
    ASSERT_EQ(std::system("xmllint --version >/dev/null 2>&1"), 0) << "xmllint (libxml2-utils) est requis";
    DossierTemporaire d;
    // Names that XML must escape, a CP1252 accent and a control character.
    Ecrire(d.Chemin() / "p.txt", Lignes({"1/3", "R&D <x>\t9800\t5960\t2\t0", "\xE9t\xE9 \"l'an\"\t100\t100\t1\t0", "a\x01" "b\t5000\t5000\t0\t0"}));
    auto plan = CartePlan::Lire(d.Chemin() / "p.txt", ParametresPlan{}, std::nullopt, MesureTest);
    plan.MarquerContributions(1);
    const std::string svg = SceneEnSvg(ScenePlan(plan), "p.txt");
    Ecrire(d.Chemin() / "p.svg", svg);
    EXPECT_TRUE(XmlBienForme(d.Chemin() / "p.svg")) << svg;
    EXPECT_EQ(Compter(svg, "<text "), 3u);
    EXPECT_NE(svg.find(">R&amp;D &lt;x&gt;</text>"), std::string::npos);
    EXPECT_NE(svg.find(">\xC3\xA9t\xC3\xA9 &quot;l&apos;an&quot;</text>"), std::string::npos);
    EXPECT_NE(svg.find(">a?b</text>"), std::string::npos);
    // The column in red and bold, its mark of contribution under it; the axes.
    EXPECT_NE(svg.find("fill=\"#ff0000\" font-weight=\"bold\">R&amp;D"), std::string::npos);
    EXPECT_NE(svg.find("fill=\"#c000c0\""), std::string::npos);
    EXPECT_NE(svg.find("fill=\"#ff80ff\""), std::string::npos);
    EXPECT_NE(svg.find("<line x1=\"0\" y1=\"5000\" x2=\"10000\" y2=\"5000\""), std::string::npos);
    EXPECT_NE(svg.find("viewBox=\"0 0 15000 10000\""), std::string::npos);

    // A zoom draws only the labels of its window.
    const auto z = plan.ZoomEtiquette(0);
    const std::string sz = SceneEnSvg(ScenePlan(plan, &z), "zoom");
    EXPECT_EQ(Compter(sz, "<text "), 1u);
    EXPECT_NE(sz.find("viewBox=\"0 0 3996 3996\""), std::string::npos);

    // The globe and its detail.
    auto globe = CarteGlobe::Lire(FichierGlobe(d.Chemin()), ParametresGlobe{}, std::nullopt, MesureTest);
    const std::string sg = SceneEnSvg(SceneGlobe(globe), "globe");
    Ecrire(d.Chemin() / "g.svg", sg);
    EXPECT_TRUE(XmlBienForme(d.Chemin() / "g.svg"));
    EXPECT_EQ(Compter(sg, "<text "), 5u);
    EXPECT_NE(sg.find("fill=\"#e0e0e0\">.</text>"), std::string::npos);
    const auto detail = globe.DetailAutour(0);
    const std::string sd = SceneEnSvg(SceneDetail(globe, detail), "detail");
    Ecrire(d.Chemin() / "d.svg", sd);
    EXPECT_TRUE(XmlBienForme(d.Chemin() / "d.svg"));
    EXPECT_EQ(Compter(sd, "<text "), detail.etiquettes.size());
}

TEST(CarteOperations, VisualisationsParLesInvites) {
    DossierTemporaire d;
    const auto plan = FichierPlan(d.Chemin());
    Ecrire(d.Chemin() / "codage.txt", Lignes({"B\t1"}));
    DialogueScripte dp;
    // A wrong mode is asked again; "4 Couleurs" then asks for the coding file after the map.
    dp.reponses = {"5", "4 couleurs", "noir", "9", "O"};
    dp.fichiers = {plan, d.Chemin() / "codage.txt"};
    const auto p = DemanderParametresPlan(dp);
    ASSERT_TRUE(p);
    EXPECT_EQ(p->modeCouleur, 2);
    EXPECT_EQ(p->corps, 9);
    EXPECT_TRUE(p->gras);
    EXPECT_EQ(dp.messages.size(), 1u);
    const auto choix = ChoisirFichiersCarte(dp, true);
    ASSERT_TRUE(choix);
    EXPECT_EQ(choix->fichier, plan);
    EXPECT_EQ(choix->codage, d.Chemin() / "codage.txt");
    // Cancel of a dialog stops.
    DialogueScripte vide;
    EXPECT_FALSE(ChoisirFichiersCarte(vide, false));

    DialogueScripte dg;
    dg.reponses = {"2 couleurs", "saillantes", "11"};
    const auto g = DemanderParametresGlobe(dg);
    ASSERT_TRUE(g);
    EXPECT_EQ(g->modeCouleur, 3);
    EXPECT_EQ(g->colonnes, 2);
    EXPECT_EQ(g->corps, 11);
    const auto globe = CarteGlobe::Lire(FichierGlobe(d.Chemin()), *g, std::nullopt, MesureTest);
    EXPECT_EQ(U(ResumeGlobe(globe)),
              "PLANISPHERE : 5 étiquettes : 1 colonnes, 4 lignes\r\nF.1 : 50,5 %\r\nF.2 : 30 %\r\nF.3 : 19,5 %\r\n"
              "COLONNES\r\nC1\r\nLIGNES\r\nr1\r\nr2\r\n.\r\nr3\r\n");
}

}  // namespace
}  // namespace telvoris::test
