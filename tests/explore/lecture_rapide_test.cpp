// The shortcuts of the reading side on large corpora give what the plain ways give.
#include <gtest/gtest.h>

#include <cmath>

#include "core/erreurs.hpp"
#include "core/liste_textes.hpp"
#include "core/nombres.hpp"
#include "corpus_test.hpp"
#include "explore/corpus.hpp"
#include "explore/concordance_tsv.hpp"
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

// A corpus of two partitions (1 and 2 tokens), indexed; returns its list file.
fs::path CorpusIndexe(const fs::path& racine) {
    const auto liste = test::EcrireCorpus(racine, {{"t",
                                                    {test::PartitionNumerotee("<QORX_ATTR DATE=2005-01 >", 1, 1),
                                                     test::PartitionNumerotee("<QORX_ATTR DATE=2003-02 >", 2, 2)}}});
    test::DialogueScripte dialogue;
    const auto l = ChargerListeTextes(liste);
    fs::create_directories(DossierIndex(l));
    ConstruireIndex(l, DossierIndex(l), true, dialogue);
    return liste;
}

// The cumulative counts are read line by line whatever the line ends, a line that is not plain
// digits as any number is read (leading blanks, a sign, text after the digits, too many digits).
TEST(LectureRapide, CumulsDesPartitions) {
    test::DossierTemporaire d;
    const auto liste = CorpusIndexe(d.Chemin());
    test::DialogueScripte dialogue;
    EtatCorpus e = OuvrirCorpus(liste);
    ValiderCorpus(e, {}, dialogue);
    EXPECT_EQ(e.CUMUL_MOTS, (std::vector<long long>{0, 1, 3}));
    const auto fichier = e.PATH_INDEX / "LONPARTS_M.txt";
    test::Ecrire(fichier, "3\r\n5\n 7\r9x\r\n\r\n12345678901234567890\r\n-4\r\n+8\r\r\n11");
    ValiderCorpus(e, {}, dialogue);
    EXPECT_EQ(e.CUMUL_MOTS, (std::vector<long long>{0, 3, 5, 7, 9, 0, 1234567890123456789LL, -4, 8, 0, 11}));
    EXPECT_EQ(e.NB_PARTS, 10);
    EXPECT_EQ(e.NB_MOTS, 11);
    EXPECT_EQ(e.LONG_PART[2], 2);
    test::Ecrire(fichier, "");
    ValiderCorpus(e, {}, dialogue);
    EXPECT_EQ(e.NB_PARTS, 0);
    EXPECT_EQ(e.NB_MOTS, 0);
    fs::remove(fichier);
    EXPECT_THROW(ValiderCorpus(e, {}, dialogue), ErreurExecution);
}

// A query from the terminal without the distribution leaves the titles aside; with it, or by
// default, they are there.
TEST(LectureRapide, TitresSeulementDemandes) {
    test::DossierTemporaire d;
    const auto liste = CorpusIndexe(d.Chemin());
    test::DialogueScripte dialogue;
    EtatCorpus e = OuvrirCorpus(liste);
    ChoixVariables choix{{0}, std::nullopt};
    choix.titresPartitions = false;
    ValiderCorpus(e, choix, dialogue);
    EXPECT_TRUE(e.TITRE_PART.empty());
    EXPECT_TRUE(e.TITRE_COURT.empty());
    EXPECT_TRUE(e.titresCourts.empty());
    EXPECT_EQ(e.NB_PARTS, 2);
    ValiderCorpus(e, {{0}, std::nullopt}, dialogue);
    EXPECT_EQ(e.TITRE_PART, (std::vector<std::string>{"", "1. DATE=2005-01", "2. DATE=2003-02"}));
    EXPECT_EQ(e.titresCourts, (std::vector<std::string>{"1", "2"}));
}

// The example of the date format is the first line of the variable's file, however the file
// ends and however long that line is.
TEST(LectureRapide, ExempleDeDate) {
    test::DossierTemporaire d;
    const auto liste = CorpusIndexe(d.Chemin());
    const auto l = ChargerListeTextes(liste);
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

// The text of a partition, from the texts' first partitions: a text of no partition holds
// none, nothing is placed past a missing count file or past the corpus's partitions.
TEST(LectureRapide, TexteDUnePartition) {
    test::DossierTemporaire d;
    const auto liste = d.Chemin() / "REPERTOIRE.txt";
    test::Ecrire(liste, "a\r\nvide\r\n\r\nc\r\nabsent\r\ne\r\n");
    const auto comptes = d.Chemin() / "OLBRIN_TT" / "NB_PARTITIONS";
    fs::create_directories(comptes);
    test::Ecrire(comptes / "a.txt", "3\r\n4\r\n");
    test::Ecrire(comptes / "vide.txt", "");
    test::Ecrire(comptes / "c.txt", "5\n6\r7");
    test::Ecrire(comptes / "e.txt", "8\r\n");
    const TextesPartitions t = TextesDesPartitions(liste, 10);
    const std::vector<std::string> attendus = {"", "a", "a", "c", "c", "c", "", "", "", "", "", ""};
    for (long long p = -1; p <= 10; ++p)
        EXPECT_EQ(t.De(p), p < 0 ? "" : attendus[static_cast<std::size_t>(p)]) << p;
    // Fewer partitions in the index than in the count files: the extra ones have no text.
    const TextesPartitions court = TextesDesPartitions(liste, 4);
    EXPECT_EQ(court.De(4), "c");
    EXPECT_EQ(court.De(5), "");
}

}  // namespace
}  // namespace telvoris
