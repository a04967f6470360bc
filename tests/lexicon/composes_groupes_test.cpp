#include "lexicon/composes.hpp"
#include "lexicon/groupes.hpp"

#include <gtest/gtest.h>

#include "core/erreurs.hpp"
#include "core/fichiers.hpp"
#include "core/texte.hpp"
#include "lexicon/arbre.hpp"
#include "support/support.hpp"

namespace telvoris {
namespace {

using test::DossierTemporaire;
using test::Ecrire;
using test::Lignes;

void SerieComposes(const fs::path& r) {
    for (int w = 2; w <= 8; ++w)
        for (int c = 1; c <= 20; ++c) Ecrire(FichierCasier(r, "dico/comp/namb", w, c), "");
}

TEST(Composes, ChaineParPremierMotPlusLonguesClesDabord) {
    DossierTemporaire d;
    const fs::path r = d.Chemin();
    SerieComposes(r);
    Ecrire(FichierCasier(r, "dico/comp/namb", 2, 16), Lignes({"pomme de,.SF:s", "", "parce que,.CS"}));
    Ecrire(FichierCasier(r, "dico/comp/namb", 3, 16), Lignes({"pomme de terre,.SF:s", "pommes de terre,pomme_de_terre.SF:p"}));
    Ecrire(FichierCasier(r, "dico/comp/namb", 3, 1), Lignes({std::string("à peu près,.A"_cp)}));
    Ecrire(FichierCasier(r, "dico/comp/namb", 2, 14), Lignes({"new york,.N"}));
    TableComposes t;
    ChargerComposes(t, r);
    EXPECT_EQ(t.Chercher("pomme"), "|pomme de terre/pomme_de_terre_SF/s|pomme de/pomme_de_SF/s|");
    EXPECT_EQ(t.Nombre("pomme"), 2u);
    EXPECT_EQ(t.Chercher("pommes"), "|pommes de terre/pomme_de_terre_SF/p|");
    EXPECT_EQ(t.Chercher("à"_cp), "|à peu près/à_peu_près_A/|"_cp);
    EXPECT_EQ(t.Chercher("parce"), "|parce que/parce_que_CS/|");
    EXPECT_EQ(t.Chercher("new"), "|new york/new_york_N/|");
    EXPECT_EQ(t.Chercher("terre"), "");
    EXPECT_EQ(t.NombrePremiersMots(), 5u);
    EXPECT_EQ(t.NombreComposes(), 6u);
    // Loading clears what an earlier load left.
    ChargerComposes(t, r);
    EXPECT_EQ(t.NombreComposes(), 6u);
    EXPECT_EQ(SegmentCompose("cordon bleu"), "cordon bleu/cordon_bleu_/");
    // A reading as the validation session writes it, without a dot: the key is the lemma.
    EXPECT_EQ(SegmentCompose("chambre de commerce,SF:s"), "chambre de commerce/chambre_de_commerce_SF/s");
    EXPECT_EQ(SegmentCompose("bel et bien,M"), "bel et bien/bel_et_bien_M/");

    fs::remove(FichierCasier(r, "dico/comp/namb", 8, 3));
    try {
        ChargerComposes(t, r);
        ADD_FAILURE();
    } catch (const ErreurExecution& e) {
        EXPECT_NE(std::string(e.what()).find("8c.txt"), std::string::npos);
    }
}

TEST(Groupes, EntreesElideesMotsEtBornes) {
    DossierTemporaire d;
    const fs::path r = d.Chemin();
    Ecrire(Chemin(r, "utilitaires/preverb.txt"), Lignes({"il\t3\t1", "ne\tUNI\t1", "", "je ne\t1\t1"}));
    Ecrire(Chemin(r, "utilitaires/prenom.txt"), Lignes({"le\t1", "une\t3", "la\t3", "DS\t5"}));
    Ecrire(Chemin(r, "utilitaires/prevernom.txt"), Lignes({"le\t9\t9\t9", "que\t8\t3456\t1"}));
    GroupesContexte g;
    ChargerGroupesContexte(g, r);
    // 3 + 4 + 2 entries, and the elided twins of ne, je ne, le, une, le, que.
    EXPECT_EQ(g.NombreGroupes(), 15u);
    const GroupeContexte* e = g.Chercher("il");
    ASSERT_TRUE(e);
    EXPECT_EQ(e->type, 1);
    EXPECT_EQ(e->valeur_verbe, "3");
    EXPECT_EQ(e->valeur_classe, "1");
    EXPECT_EQ(e->valeur_nom, "");
    e = g.Chercher("je n'");
    ASSERT_TRUE(e);
    EXPECT_EQ(e->valeur_verbe, "1");
    // First entry wins: "le" of prenom.txt hides the one of prevernom.txt.
    e = g.Chercher("le");
    ASSERT_TRUE(e);
    EXPECT_EQ(e->type, 2);
    EXPECT_EQ(e->valeur_nom, "1");
    e = g.Chercher("l'");
    ASSERT_TRUE(e);
    EXPECT_EQ(e->type, 2);
    e = g.Chercher("qu'");
    ASSERT_TRUE(e);
    EXPECT_EQ(e->type, 3);
    EXPECT_EQ(e->valeur_nom, "8");
    EXPECT_EQ(e->valeur_verbe, "3456");
    EXPECT_EQ(e->valeur_classe, "1");
    EXPECT_FALSE(g.Chercher("la'"));
    EXPECT_FALSE(g.Chercher("je"));
    EXPECT_TRUE(g.EstMotDeGroupe("je"));
    EXPECT_TRUE(g.EstMotDeGroupe("n'"));
    EXPECT_TRUE(g.EstMotDeGroupe("DS"));
    EXPECT_FALSE(g.EstMotDeGroupe("je ne"));
    EXPECT_EQ(g.NombreMots(), 12u);

    std::vector<std::string> trop;
    for (int i = 0; i < 801; ++i) trop.push_back(std::string("b").append(std::to_string(i)) + "\t1");
    Ecrire(Chemin(r, "utilitaires/prenom.txt"), Lignes(trop));
    try {
        ChargerGroupesContexte(g, r);
        ADD_FAILURE();
    } catch (const ErreurExecution& e) {
        // The 200 single words of one initial are full before the 800 groups.
        EXPECT_NE(std::string(e.what()).find("(MAX_MOTS_GROUPES_CLASSE = 200)"), std::string::npos) << e.what();
    }
}

TEST(Groupes, PostclitiquesEtClassesDeVerbes) {
    DossierTemporaire d;
    const fs::path r = d.Chemin();
    Ecrire(Chemin(r, "utilitaires/POSTCLIT_DESAMB.txt"), Lignes({"-je\t1", "", "-vous\t245", "-on"}));
    const auto p = ChargerPostclitiquesDesamb(r);
    ASSERT_EQ(p.size(), 3u);
    EXPECT_EQ(p[1].forme, "-vous");
    EXPECT_EQ(p[1].code, "245");
    EXPECT_EQ(p[2].code, "");
    Ecrire(Chemin(r, "utilitaires/CATEGORIES_DE_VERBES_.txt"),
           Lignes({"verbe\ta\tb\tc", "aimer_V\tx\t\t", "partir_V\t\tx\t", "venir_V\t\t\tx", "dire_V\tx\tx\tx",
                   "voir_V\tx\tx\t", "faire_V\tx\t\tx", "aller_V\t\tx\tx", "rien_V\t\t\t", "court_V"}));
    const auto v = ChargerCategoriesVerbes(r);
    ASSERT_EQ(v.size(), 7u);
    std::vector<int> classes;
    for (const auto& c : v) classes.push_back(c.classe);
    EXPECT_EQ(classes, (std::vector<int>{1, 2, 3, 4, 5, 6, 7}));
    EXPECT_EQ(v[0].verbe, "aimer_V");
}

}  // namespace
}  // namespace telvoris
