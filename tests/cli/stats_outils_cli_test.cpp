// End-to-end runs of the statistics tools on the example press corpus.
#include <gtest/gtest.h>

#include "lancer.hpp"
#include "support/support.hpp"

namespace telvoris {
namespace {

namespace fs = std::filesystem;
using test::Lancer;
using test::Lignes;
using test::Lire;

TEST(OutilsStatistiquesCli, CorpusExempleLexiquesDistancesSpecificitesEtSequences) {
    test::DossierTemporaire d;
    fs::copy(test::DossierSource() / "exemples/presse", d.Chemin() / "presse", fs::copy_options::recursive);
    // The fixture tree, with the two lists of the sequences.
    const fs::path res = d.Chemin() / "MORVENTA" / "morv_res";
    fs::create_directories(res);
    fs::copy(test::RessourcesTest(), res, fs::copy_options::recursive);
    test::Ecrire(res / "utilitaires" / "outils_2.txt", Lignes({"de", "la", "le", "les", "l'", "d'", "un", "une"}));
    test::Ecrire(res / "utilitaires" / "outils_3.txt", Lignes({"et", "ou", "pas", "-il"}));
    const fs::path racine = d.Chemin() / "presse";
    const std::string liste = (racine / "REPERTOIRE.txt").string(), r = res.string(), h = "2026-11-21 10:00:00";
    auto e = Lancer({"smn_seg", "--ressources", r, "-r", liste, "--horloge", h});
    ASSERT_EQ(e.statut, 0) << e.erreurs;
    e = Lancer({"smn_lexm", "--ressources", r, "-r", "0", "-r", liste, "--horloge", h});
    ASSERT_EQ(e.statut, 0) << e.erreurs;
    e = Lancer({"smn_lx", "--ressources", r, "-r", "0", "-r", "N", "-r", "N", "-r", "N", "-r", liste, "--horloge", h});
    ASSERT_EQ(e.statut, 0) << e.erreurs;
    const fs::path lexique = racine / "LEXIQUES" / "FORMES_MIN_261121_1000.txt";

    // Jaccard over the six texts: a square with 0 on its diagonal.
    e = Lancer({"smn_disja", "--ressources", r, "-r", "M", "-r", "F", "-r", liste});
    ASSERT_EQ(e.statut, 0) << e.erreurs;
    EXPECT_EQ(e.sortie, "Terminé\n");
    const std::string carre = Lire(racine / "JACCARD_REPERTOIRE.txt");
    EXPECT_EQ(std::count(carre.begin(), carre.end(), '\n'), 7);
    EXPECT_NE(carre.find("\r\nLE_MATIN_DU_SUD_2024-03-01\t0\t"), std::string::npos) << carre;

    // One text against the whole corpus, whose memo gives N.
    const fs::path texte = racine / "LEXIQUES_MULTIPLES" / "LE_MATIN_DU_SUD_2024-03-01_FORMIN.txt";
    e = Lancer({"smn_sepc", "--ressources", r, "--horloge", h, "-r", lexique.string(), "-r", "P", "-r",
                (racine / "LEXIQUES" / "MEMO_261121_1000.txt").string(), "-r", texte.string(), "-r", "T"});
    ASSERT_EQ(e.statut, 0) << e.erreurs;
    EXPECT_EQ(e.sortie, "Terminé en  1 secondes\n");
    const std::string specificites = Lire(racine / "LEXIQUES_MULTIPLES" / "SPECIFICITES.txt");
    EXPECT_EQ(specificites.substr(0, 6), "la\t13\t") << specificites;

    e = Lancer({"smn_sgr", "--ressources", r, "--horloge", h, "-r", "2", "-r", "N", "-r", lexique.string(), "-r", liste});
    ASSERT_EQ(e.statut, 0) << e.erreurs;
    const std::string table = Lire(racine / "LEXIQUES" / "SEG_REP_261121_1000.txt");
    EXPECT_EQ(table.substr(0, table.find("\r\n")),
              "CODICO\tSEQUENCE\tNB_OCC\tPIVOT\tTAUX_PIVOT\tTAUX_1\tTAUX_2\tTAUX_3\tTAUX_4\tTAUX_5\tTAUX_6");
    EXPECT_NE(table.find("\r\nA\tavant la fin\t2\tfin\t"), std::string::npos) << table;

    // A lexicon line without a tab stops the run with the execution status, naming the line.
    const fs::path mauvais = racine / "MAUVAIS.txt";
    test::Ecrire(mauvais, Lignes({"de\t12", "le 3"}));
    e = Lancer({"smn_zipf", "--ressources", r, "-r", "10", "-r", mauvais.string()});
    EXPECT_EQ(e.statut, 1);
    EXPECT_NE(e.erreurs.find("MAUVAIS.txt, ligne 2"), std::string::npos) << e.sortie << e.erreurs;
}

}  // namespace
}  // namespace telvoris
