// The shortcuts of the reading side on large corpora give what the plain ways give.
#include <gtest/gtest.h>

#include <cmath>

#include "core/erreurs.hpp"
#include "core/liste_textes.hpp"
#include "core/nombres.hpp"
#include "corpus_test.hpp"
#include "explore/corpus.hpp"
#include "explore/ecarts_texte.hpp"
#include "explore/indexation.hpp"
#include "explore/requete.hpp"
#include "support/support.hpp"

namespace telvoris {
namespace {

namespace fs = std::filesystem;

// Partitions of uneven lengths, empty ones among them (equal cumulative counts side by side),
// and runs long enough that the forward search has to leave its few steps.
TEST(LectureRapide, PartitionDepuisCommePartitionDe) {
    EtatCorpus e;
    e.CUMUL_MOTS = {0};
    const std::vector<long long> longueurs = {3, 0, 0, 7, 0, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 30, 0, 2, 0, 0, 0, 0,
                                              0, 0, 0, 0, 0, 0, 5};
    for (const long long l : longueurs) e.CUMUL_MOTS.push_back(e.CUMUL_MOTS.back() + l);
    e.NB_PARTS = static_cast<long long>(longueurs.size());
    const long long mots = e.CUMUL_MOTS.back();
    for (long long depuis = -1; depuis <= e.NB_PARTS + 1; ++depuis)
        for (long long q = -1; q <= mots + 3; ++q)
            ASSERT_EQ(e.PartitionDepuis(q, depuis), e.PartitionDe(q)) << "position " << q << " depuis " << depuis;
    // Walking up the corpus with the partition found each time, as a query does.
    long long p = 0;
    for (long long q = 1; q <= mots; ++q) {
        p = e.PartitionDepuis(q, p);
        ASSERT_EQ(p, e.PartitionDe(q)) << q;
    }
    EtatCorpus vide;
    EXPECT_EQ(vide.PartitionDepuis(1, 0), 0);
}

TEST(LectureRapide, LignesDeDistribution) {
    // "chat": 1, 0 and 2 occurrences in partitions of 4, 3 and 5 tokens; the fourth slot is
    // missing from the counts and reads as 0.
    const std::vector<std::string> noms = {"", "1.", "2.", "3.", "4."};
    const std::vector<long long> comptes = {0, 1, 0, 2};
    const std::vector<double> parts = {0, 4 / 12.0, 3 / 12.0, 5 / 12.0, 0.0};
    TexteEcarts ecarts;
    std::string texte = "en-tête\r\n";
    AjouterLignesDistribution(texte, 4, noms, comptes, parts, 3, ecarts);
    EXPECT_EQ(texte, "en-tête\r\n1.\t1\t0\r\n2.\t0\t-1\r\n3.\t2\t0,88\r\n4.\t0\t0\r\n");

    // Each value formatted once gives the same text as formatting it each time, ties to even
    // and the sign of zero included, whatever the order the values come in.
    const std::vector<double> valeurs = {0.125, -0.125, 2.675, -0.0, 0.0, 1e-9, -3.14159, 0.125, 1234.5678, -0.005, 0.015};
    for (int tour = 0; tour < 2; ++tour)
        for (const double z : valeurs) {
            EXPECT_EQ(ecarts.Arrondi(z), FormaterDouble(Round(z, 2))) << z;
            EXPECT_EQ(ecarts.Exact(z), FormaterDouble(z)) << z;
        }
    std::string entier;
    for (const long long v : {0LL, -7LL, 1234567890123LL}) AjouterEntier(entier, v);
    EXPECT_EQ(entier, "0-71234567890123");
}

// The example of the date format is the first line of the variable's file, however the file
// ends and however long that line is.
TEST(LectureRapide, ExempleDeDate) {
    test::DossierTemporaire d;
    const auto liste = test::EcrireCorpus(d.Chemin(), {{"t",
                                                        {test::PartitionNumerotee("<QORX_ATTR DATE=2005-01 >", 1, 1),
                                                         test::PartitionNumerotee("<QORX_ATTR DATE=2003-02 >", 2, 2)}}});
    test::DialogueScripte dialogue;
    const auto l = ChargerListeTextes(liste);
    fs::create_directories(DossierIndex(l));
    ConstruireIndex(l, DossierIndex(l), true, dialogue);
    EXPECT_EQ(OuvrirCorpus(liste).exempleDate, "2005-01");
    const auto fichier = DossierIndex(l) / "METADONNEES_QORX" / "DATE.txt";
    const std::string longue(10000, '7');
    for (const auto& [contenu, attendu] : std::vector<std::pair<std::string, std::string>>{
             {"2001\r2002\r", "2001"},
             {"2001\n2002\n", "2001"},
             {"2001", "2001"},
             {"", ""},
             {"\r\n2002\r\n", ""},
             {longue + "\r\n2002\r\n", longue},
             {longue, longue}}) {
        test::Ecrire(fichier, contenu);
        EXPECT_EQ(OuvrirCorpus(liste).exempleDate, attendu) << contenu.size();
    }
    fs::remove(fichier);
    EXPECT_THROW(OuvrirCorpus(liste), ErreurExecution);
}

}  // namespace
}  // namespace telvoris
