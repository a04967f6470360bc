// The concordance of a query as a table: one occurrence a line with its reference columns.
#include <gtest/gtest.h>

#include <sstream>

#include "lancer.hpp"
#include "support/support.hpp"

namespace telvoris {
namespace {

using test::DossierTemporaire;
using test::Lancer;
namespace fs = std::filesystem;

const std::string kRessources = test::RessourcesTest().string();

std::vector<std::string> Champs(const std::string& ligne) {
    std::vector<std::string> c;
    std::size_t debut = 0;
    for (std::size_t tab; (tab = ligne.find('\t', debut)) != std::string::npos; debut = tab + 1) c.push_back(ligne.substr(debut, tab - debut));
    c.push_back(ligne.substr(debut));
    return c;
}

TEST(RequeteTsv, ConcordanceAvecSesReferences) {
    DossierTemporaire d;
    fs::copy(test::DossierSource() / "exemples/presse", d.Chemin() / "presse", fs::copy_options::recursive);
    const auto liste = (d.Chemin() / "presse/REPERTOIRE.txt").string();
    ASSERT_EQ(Lancer({"smn_seg", "--ressources", kRessources, "-r", liste}).statut, 0);
    ASSERT_EQ(Lancer({"Form1.smn_idx", "--ressources", kRessources, "-r", "N", "-r", liste}).statut, 0);

    auto e = Lancer({"requete", liste, "--forme", "port*", "--titre", "JOURNAL", "--titre", "DATE", "--format", "tsv"});
    ASSERT_EQ(e.statut, 0) << e.erreurs;
    std::istringstream lignes(e.sortie);
    std::string ligne;
    std::getline(lignes, ligne);
    EXPECT_EQ(ligne, "texte\tpartition\tJOURNAL\tDATE\tposition\tgauche\tpivot\tdroite");
    int n = 0;
    bool trafic = false;
    while (std::getline(lignes, ligne)) {
        ++n;
        const auto c = Champs(ligne);
        ASSERT_EQ(c.size(), 8u) << ligne;
        // The text named is the one of the partition: its newspaper and its date are in its name.
        EXPECT_EQ(c[0], c[2] + "_" + c[3]) << ligne;
        EXPECT_TRUE(c[6].starts_with("port")) << ligne;
        EXPECT_GT(std::stoll(c[1]), 0);
        EXPECT_FALSE(c[5].starts_with(" ") || c[7].ends_with(" ")) << ligne;
        if (c[7].starts_with("de commerce a progressé")) {
            trafic = true;
            EXPECT_EQ(c[0], "LE_MATIN_DU_SUD_2024-03-01");
            EXPECT_EQ(c[5], "Le trafic du");
            EXPECT_EQ(c[6], "port");
        }
    }
    EXPECT_EQ(n, 7) << e.sortie;
    EXPECT_TRUE(trafic) << e.sortie;

    // Sorted on the left, the same lines in another order; a sequence keeps its words in the key.
    auto g = Lancer({"requete", liste, "--forme", "port*", "--tri", "gauche", "--format", "tsv"});
    EXPECT_EQ(g.statut, 0);
    EXPECT_TRUE(g.sortie.starts_with("texte\tpartition\tposition\tgauche\tpivot\tdroite\n")) << g.sortie;
    EXPECT_EQ(std::count(g.sortie.begin(), g.sortie.end(), '\n'), 8);
    auto s = Lancer({"requete", liste, "--forme", "le trafic", "--format", "tsv"});
    EXPECT_EQ(s.statut, 0) << s.erreurs;
    EXPECT_NE(s.sortie.find("\t\tLe trafic\tdu port de commerce"), std::string::npos) << s.sortie;

    EXPECT_EQ(Lancer({"requete", liste, "--forme", "port", "--format", "xml"}).statut, 2);
}

}  // namespace
}  // namespace telvoris
