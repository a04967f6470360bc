// The --fils option of the command line: the example corpus segmented and re-indexed on one
// thread and on three gives the same tree; a wrong count is a usage error.
#include <gtest/gtest.h>

#include <map>

#include "lancer.hpp"
#include "support/support.hpp"

namespace telvoris {
namespace {

using test::DossierTemporaire;
using test::Lancer;
namespace fs = std::filesystem;

// The example corpus through segmentation and re-indexing on `fils` threads.
std::map<std::string, std::string> Chaine(const std::string& fils) {
    DossierTemporaire d;
    fs::copy(test::DossierSource() / "exemples/presse", d.Chemin() / "presse", fs::copy_options::recursive);
    const auto liste = (d.Chemin() / "presse/REPERTOIRE.txt").string();
    const std::string res = test::RessourcesTest().string();
    for (const char* op : {"smn_seg", "smn_idx"}) {
        const auto e = Lancer({op, "--fils", fils, "--ressources", res, "-r", liste, "--horloge", "2026-11-21 10:00:00"});
        EXPECT_EQ(e.statut, 0) << op << " " << e.erreurs;
    }
    return test::Arbo(d.Chemin() / "presse");
}

TEST(LigneDeCommande, FilsMemeArbre) {
    const auto un = Chaine("1");
    EXPECT_GT(un.count("OLBRIN_TT/LEXINDEX/LA_GAZETTE_DE_L_EST_2024-03-02.txt"), 0u);
    EXPECT_TRUE(Chaine("3") == un);

    for (const char* faux : {"0", "abc", "2x", "300", "-1"}) {
        const auto e = Lancer({"smn_seg", "--fils", faux});
        EXPECT_EQ(e.statut, 2) << faux;
        EXPECT_EQ(e.erreurs, std::string("--fils attend un nombre de fils de 1 à 256 (reçu : « ") + faux + " »)\n");
    }
    const auto e = Lancer({"smn_seg", "--fils"});
    EXPECT_EQ(e.statut, 2);
    EXPECT_EQ(e.erreurs, "--fils attend un nombre de fils\n");
}

}  // namespace
}  // namespace telvoris
