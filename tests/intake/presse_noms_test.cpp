// Paper names from the downloads that are no safe file names, and a day file that cannot be
// written: the import keeps to ARCHIVE_BRUT and goes on with the other papers.
#include <gtest/gtest.h>

#include <set>

#include "core/erreurs.hpp"
#include "core/fichiers.hpp"
#include "core/texte.hpp"
#include "intake/presse.hpp"
#include "support/support.hpp"

namespace telvoris {
namespace {

namespace fs = std::filesystem;
using test::DossierTemporaire;
using test::Lignes;
using test::Lire;

fs::path RessourcesPresse() { return test::DossierSource() / "tests/fixtures/europresse/morv_res"; }

std::set<std::string> Arborescence(const fs::path& dossier) {
    std::set<std::string> noms;
    for (const auto& e : fs::recursive_directory_iterator(dossier))
        noms.insert(fs::relative(e.path(), dossier).generic_string());
    return noms;
}

TEST(PresseNoms, NomsDangereuxRestentDansArchiveBrutEtLesAutresJournauxSontEcrits) {
    DossierTemporaire d;
    const fs::path r = d.Chemin() / "corpus";
    fs::create_directories(r / "ARTICLES");
    fs::create_directories(r / "ARCHIVE_BRUT");
    const std::vector<std::vector<std::string>> articles = {
        {"Sud Ouest / Bordeaux, 3 janvier 2005", "lundi, 3 janvier 2005", "un"},
        {"../../evasion, no. 1", "lundi, 3 janvier 2005", "deux"},
        {"Le Monde, 3 janvier 2005", "lundi, 3 janvier 2005", "trois"},
        {"a\\b:c*d?e\"f<g>h|i", "lundi, 3 janvier 2005", "quatre"},
    };
    for (std::size_t i = 0; i < articles.size(); ++i)
        test::Ecrire(r / "ARTICLES" / (std::to_string(i + 1) + ".txt"), Lignes(articles[i]));
    test::DialogueScripte dialogue;
    const auto bilan = RegrouperArticles(r, ChargerNomsDeMois(RessourcesPresse()), 0, dialogue);
    EXPECT_EQ(bilan.articles, 4);
    EXPECT_EQ(bilan.fichiers, 4);
    // Nothing was written beside the corpus root, nor in a folder of ARCHIVE_BRUT.
    EXPECT_EQ(Arborescence(d.Chemin()).count("evasion_2005_01_03.txt"), 0u);
    EXPECT_EQ(Arborescence(r / "ARCHIVE_BRUT"),
              (std::set<std::string>{"Sud_Ouest___Bordeaux_2005_01_03.txt", "______evasion_2005_01_03.txt",
                                     "Le_Monde_2005_01_03.txt", "a_b_c_d_e_f_g_h_i_2005_01_03.txt"}));
    // The metadata line keeps the paper's name as the download gives it.
    EXPECT_EQ(Lire(r / "ARCHIVE_BRUT/Sud_Ouest___Bordeaux_2005_01_03.txt"),
              Lignes({"<QORX_ATTR JOURNAL=Sud_Ouest_/_Bordeaux DATE=2005_01_03 >", "un"}));
    EXPECT_EQ(Lire(r / "ARCHIVE_BRUT/______evasion_2005_01_03.txt"),
              Lignes({"<QORX_ATTR JOURNAL=../../evasion DATE=2005_01_03 >", "deux"}));

    // A day file that cannot be written (a folder stands at its name): the other papers are
    // written all the same, the report too, and the failure names the file.
    const fs::path r2 = d.Chemin() / "corpus2";
    fs::create_directories(r2 / "ARTICLES");
    fs::create_directories(r2 / "ARCHIVE_BRUT/Le_Monde_2005_01_03.txt");
    for (std::size_t i = 0; i < articles.size(); ++i)
        test::Ecrire(r2 / "ARTICLES" / (std::to_string(i + 1) + ".txt"), Lignes(articles[i]));
    const std::string message = test::MessageErreur(
        [&] { RegrouperArticles(r2, ChargerNomsDeMois(RessourcesPresse()), 0, dialogue); });
    EXPECT_NE(message.find("3 fichiers du jour écrits"), std::string::npos) << message;
    EXPECT_NE(message.find((r2 / "ARCHIVE_BRUT/Le_Monde_2005_01_03.txt").generic_string()), std::string::npos)
        << message;
    EXPECT_EQ(Lire(r2 / "ARCHIVE_BRUT/Sud_Ouest___Bordeaux_2005_01_03.txt"),
              Lignes({"<QORX_ATTR JOURNAL=Sud_Ouest_/_Bordeaux DATE=2005_01_03 >", "un"}));
    EXPECT_TRUE(fs::exists(r2 / "ARCHIVE_BRUT/a_b_c_d_e_f_g_h_i_2005_01_03.txt"));
    EXPECT_TRUE(fs::exists(r2 / "CONTROLE_PREMIERE_LIGNE.txt"));
}

}  // namespace
}  // namespace telvoris
