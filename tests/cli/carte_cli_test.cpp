// « telvoris carte »: a map file drawn to SVG without a window, and the viewers' operations.
#include <gtest/gtest.h>

#include <cstdlib>

#include "lancer.hpp"
#include "support/support.hpp"

namespace telvoris {
namespace {

using test::DossierTemporaire;
using test::Ecrire;
using test::Lancer;
using test::Lignes;
using test::Lire;
namespace fs = std::filesystem;

std::size_t Compter(const std::string& s, const std::string& motif) {
    std::size_t n = 0;
    for (auto p = s.find(motif); p != std::string::npos; p = s.find(motif, p + 1)) ++n;
    return n;
}

bool XmlBienForme(const fs::path& f) {
    return std::system(("xmllint --noout '" + f.string() + "' 2>/dev/null").c_str()) == 0;
}

TEST(CarteLigneDeCommande, SvgDuPlanEtDuPlanisphere) {
    DossierTemporaire d;
    const fs::path plan = d.Chemin() / "coli_PROJ12.txt", globe = d.Chemin() / "_PLANISPH_123.txt";
    Ecrire(plan, Lignes({"1/3", "Journal\t9800\t5960\t2\t0", "\xE9t\xE9\t100\t100\t1\t0", "bleu\t5000\t5000\t0\t0",
                         "vert\t2000\t5000\t0\t0", "**1\xA4" "60", "**2\xA4" "40", "***60", "***40"}));
    Ecrire(globe, Lignes({"&1/2", "Journal\t100\t0\t4\t2\t0,5\t3,5", "\xE9t\xE9\t110\t10\t1\t0,8\t0\t0",
                          "loin\t300\t-40\t2\t0,1\t0\t0"}));
    Ecrire(d.Chemin() / "codage.txt", Lignes({"bleu\t2", "vert\t4"}));

    auto e = Lancer({"carte", plan.string(), "--svg", (d.Chemin() / "p.svg").string(), "--codage",
                     (d.Chemin() / "codage.txt").string(), "--contributions", "1"});
    ASSERT_EQ(e.statut, 0) << e.erreurs;
    EXPECT_EQ(e.sortie, "4 étiquettes écrites dans " + (d.Chemin() / "p.svg").string() + "\n");
    const std::string svg = Lire(d.Chemin() / "p.svg");
    EXPECT_TRUE(XmlBienForme(d.Chemin() / "p.svg"));
    EXPECT_EQ(Compter(svg, "<text "), 4u);
    EXPECT_NE(svg.find(">été</text>"), std::string::npos);
    EXPECT_NE(svg.find("fill=\"#0000ff\">bleu</text>"), std::string::npos);
    EXPECT_NE(svg.find("fill=\"#008000\">vert</text>"), std::string::npos);
    EXPECT_NE(svg.find("fill=\"#c000c0\""), std::string::npos);  // Journal's mark on axis 1

    e = Lancer({"carte", globe.string(), "--svg", (d.Chemin() / "g.svg").string(), "--rotation", "1", "--saillantes"});
    ASSERT_EQ(e.statut, 0) << e.erreurs;
    const std::string sg = Lire(d.Chemin() / "g.svg");
    EXPECT_TRUE(XmlBienForme(d.Chemin() / "g.svg"));
    EXPECT_EQ(Compter(sg, "<text "), 3u);
    EXPECT_NE(sg.find("fill=\"#ff0000\" font-weight=\"bold\">Journal</text>"), std::string::npos);

    // The detail around "été": "loin" lies beyond 45 degrees.
    e = Lancer({"carte", globe.string(), "--svg", (d.Chemin() / "d.svg").string(), "--detail", "été"});
    ASSERT_EQ(e.statut, 0) << e.erreurs;
    EXPECT_EQ(e.sortie, "2 étiquettes écrites dans " + (d.Chemin() / "d.svg").string() + "\n");
    EXPECT_TRUE(XmlBienForme(d.Chemin() / "d.svg"));
}

TEST(CarteLigneDeCommande, ErreursEtUsage) {
    DossierTemporaire d;
    auto e = Lancer({"carte", (d.Chemin() / "absent.txt").string(), "--svg", (d.Chemin() / "x.svg").string()});
    EXPECT_EQ(e.statut, 1);
    EXPECT_NE(e.erreurs.find("absent.txt"), std::string::npos) << e.erreurs;
    EXPECT_FALSE(fs::exists(d.Chemin() / "x.svg"));
    e = Lancer({"carte", (d.Chemin() / "absent.txt").string()});
    EXPECT_EQ(e.statut, 2);
    EXPECT_NE(e.erreurs.find("Usage : telvoris carte FICHIER --svg SORTIE"), std::string::npos);
    e = Lancer({"carte", "f.txt", "--svg", "s.svg", "--rotation", "x"});
    EXPECT_EQ(e.statut, 2);
    EXPECT_NE(e.erreurs.find("Valeur manquante ou invalide pour --rotation"), std::string::npos);
    Ecrire(d.Chemin() / "p.txt", Lignes({"0/1", "a\t1\t2\t0\t0"}));
    e = Lancer({"carte", (d.Chemin() / "p.txt").string(), "--svg", (d.Chemin() / "x.svg").string(), "--mode", "2"});
    EXPECT_EQ(e.statut, 2);
    EXPECT_EQ(e.erreurs, "Le mode de coloration 2 demande un fichier de codage (--codage)\n");
    e = Lancer({"carte", (d.Chemin() / "p.txt").string(), "--svg", (d.Chemin() / "x.svg").string(), "--zoom", "b"});
    EXPECT_EQ(e.statut, 1);
    EXPECT_EQ(e.erreurs, "Item introuvable dans la carte : b\n");
}

TEST(CarteLigneDeCommande, VisualisationsSansFenetre) {
    DossierTemporaire d;
    Ecrire(d.Chemin() / "li_PROJ12.txt", Lignes({"0/2", "x\t100\t200\t0\t0", "y\t300\t400\t0\t0", "***70", "***30"}));
    const std::string res = test::RessourcesTest().string();
    auto e = Lancer({"smn_v2", "--ressources", res, "-r", "Aucune", "-r", "noir", "-r", "8", "-r", "N", "-r",
                     (d.Chemin() / "li_PROJ12.txt").string()});
    ASSERT_EQ(e.statut, 0) << e.erreurs;
    EXPECT_EQ(e.sortie, "2 étiquettes : 0 colonnes, 2 lignes\r\nFacteur 1 : 70 %\r\nFacteur 2 : 30 %\r\nLIGNES\r\nx\r\ny\r\n\n");
    // A flat file given to the globe viewer: the execution error names it.
    e = Lancer({"smn_v3", "--ressources", res, "-r", "Aucune", "-r", "Comme lignes", "-r", "8", "-r",
                (d.Chemin() / "li_PROJ12.txt").string()});
    EXPECT_EQ(e.statut, 1);
    EXPECT_EQ(e.erreurs, "Ce fichier n'est pas celui d'un planisphère (« & » attendu en tête) : " +
                             (d.Chemin() / "li_PROJ12.txt").string() + "\n");
}

}  // namespace
}  // namespace telvoris
