#include "explore/distribution.hpp"

#include <gtest/gtest.h>

#include <cmath>

#include "core/texte.hpp"
#include "explore/index_commun.hpp"
#include "vues_corpus.hpp"

namespace telvoris {
namespace {

using test::DossierTemporaire;
using test::Lire;

struct Fixture {
    DossierTemporaire dossier;
    EtatCorpus etat;
    Requete r;
    test::DialogueScripte d;
    Fixture() : etat(test::OuvrirCorpusVues(test::CorpusVues(dossier.Chemin()))) {
        ParametresRequete p;
        p.saisie = "chat";
        p.macro = true;
        EXPECT_TRUE(LancerRequete(etat, p, r, d));
    }
};

// "chat": 1, 0 and 2 occurrences in partitions of 4, 3 and 5 tokens (12 in all).
TEST(Distribution, EcartsEtHistogrammes) {
    Fixture f;
    const Histogramme h = HistogrammePartitions(f.etat, f.r);
    ASSERT_EQ(h.nombre, 3);
    // e = 3 x 4/12 = 1: z = 0; e = 0.75, s = 0.75: z = -1; e = 1.25, s = sqrt(1.25 x 7/12).
    EXPECT_DOUBLE_EQ(h.ecarts[1], 0.0);
    EXPECT_DOUBLE_EQ(h.ecarts[2], -1.0);
    EXPECT_NEAR(h.ecarts[3], 0.75 / std::sqrt(1.25 * 7 / 12), 1e-12);
    EXPECT_FALSE(h.vide);
    EXPECT_EQ(h.largeurBarre, 2000);  // 6000 / 3, below 40 partitions
    EXPECT_EQ(h.largeurImage, 6500);
    ASSERT_EQ(h.barres.size(), 3u);
    EXPECT_EQ(h.barres[0].x, 200);
    EXPECT_EQ(h.barres[1].x, 2200);
    EXPECT_EQ(h.barres[2].x, 4200);
    EXPECT_EQ(h.barres[2].largeur, 1960);
    EXPECT_EQ(h.barres[0].hauteur, 0);
    EXPECT_EQ(h.barres[1].hauteur, 100);  // downward for a negative z
    EXPECT_EQ(h.barres[2].hauteur, -88);
    EXPECT_TRUE(h.barres[1].sansOccurrence);
    EXPECT_FALSE(h.barres[2].sansOccurrence);
    ASSERT_EQ(h.guides.size(), 5u);
    EXPECT_EQ(h.guides[0].texte, "+2");
    EXPECT_EQ(h.guides[0].y, -200);
    EXPECT_EQ(h.guides[4].texte, "+10");
    EXPECT_EQ(h.guides[4].y, -1000);
    EXPECT_TRUE(h.graduations.empty());  // fewer than 5 bars
    EXPECT_EQ(h.total.texte, "3 occ.");

    // Click-to-partition: Int((x - 200) / width) + 1.
    EXPECT_EQ(h.BarreEn(200), 1);
    EXPECT_EQ(h.BarreEn(2199), 1);
    EXPECT_EQ(h.BarreEn(2200), 2);
    EXPECT_EQ(h.BarreEn(6199), 3);
    EXPECT_EQ(h.BarreEn(6200), 0);
    EXPECT_EQ(h.BarreEn(150), 0);
    EXPECT_EQ(Cp1252VersUtf8(h.Libelle(2)), "2. JOURNAL=B : 0 occurrences. Ecart-réduit : -1");

    // Classes of JOURNAL: A holds 9 tokens and 3 occurrences (z = 1), B 3 and none (z = -1).
    const Histogramme c = HistogrammeClasses(f.etat, f.r);
    ASSERT_EQ(c.nombre, 2);
    EXPECT_DOUBLE_EQ(c.ecarts[1], 1.0);
    EXPECT_DOUBLE_EQ(c.ecarts[2], -1.0);
    EXPECT_EQ(c.largeurBarre, 2500);
    EXPECT_EQ(c.largeurImage, 5500);
    EXPECT_EQ(c.barres[0].hauteur, -100);
    EXPECT_EQ(c.barres[1].x, 2700);
    EXPECT_EQ(Cp1252VersUtf8(c.Libelle(1)), "A : 3 occurrences. Ecart-réduit : 1");
}

TEST(Distribution, GeometrieAuxSeuils) {
    // Only the counts and shares matter to the drawing: a made-up corpus of n equal partitions.
    auto etat = [](long long n) {
        EtatCorpus e;
        e.NB_PARTS = n;
        e.NB_MOTS = n * 10;
        e.PART_CORPUS.assign(static_cast<std::size_t>(n) + 1, 1.0 / static_cast<double>(n));
        e.TITRE_PART.assign(static_cast<std::size_t>(n) + 1, "t");
        return e;
    };
    Requete r;
    r.occ.resize(1);
    for (const auto& [n, largeur] : {std::pair{39LL, 154LL}, {40LL, 300LL}, {499LL, 24LL}, {7LL, 857LL}}) {
        const EtatCorpus e = etat(n);
        r.OCC_PAR_PART.assign(static_cast<std::size_t>(n) + 1, 0);
        r.OCC_PAR_PART[1] = 1;
        const Histogramme h = HistogrammePartitions(e, r);
        EXPECT_EQ(h.largeurBarre, largeur) << n;
        EXPECT_EQ(h.barres.size(), static_cast<std::size_t>(n));
        EXPECT_EQ(h.largeurImage, largeur * n + 500);
        // One occurrence: its partition stands high, all the others below the axis.
        EXPECT_LT(h.barres[0].hauteur, 0);
        EXPECT_GT(h.barres[1].hauteur, 0);
        EXPECT_EQ(h.graduations.size(), static_cast<std::size_t>(n / 5));
        if (n >= 5) {
            EXPECT_EQ(h.graduations[0].x, 200 + 5 * largeur);
            EXPECT_EQ(h.graduations[0].texte, "5");
        }
    }
    // 500 partitions: the picture stays empty, the deviates are still there.
    EtatCorpus e = etat(500);
    r.OCC_PAR_PART.assign(501, 0);
    r.OCC_PAR_PART[1] = 1;
    Histogramme h = HistogrammePartitions(e, r);
    EXPECT_TRUE(h.vide);
    EXPECT_TRUE(h.barres.empty());
    EXPECT_EQ(h.BarreEn(300), 0);
    EXPECT_GT(h.ecarts[1], 0);
    // One partition: no bars; no class: empty.
    e = etat(1);
    r.OCC_PAR_PART.assign(2, 1);
    h = HistogrammePartitions(e, r);
    EXPECT_TRUE(h.barres.empty());
    EXPECT_TRUE(HistogrammeClasses(e, r).vide);
    // A partition of zero tokens: e = 0, z = 0.
    EXPECT_EQ(EcartReduit(10, 0.0, 0), 0.0);
}

TEST(Distribution, TablesSauvegardees) {
    Fixture f;
    const HorlogeFixe horloge(Instant{2026, 3, 5, 14, 7, 9});
    const auto a = SauverDistribution(f.etat, f.r, false, horloge);
    EXPECT_EQ(a.parent_path(), f.etat.PATH_INDEX / "SAUVEGARDES" / "DISTRIBUTIONS");
    EXPECT_EQ(a.filename().string(), "chat_A_" + Horodater(horloge) + ".txt");
    EXPECT_EQ(Lire(a), "\t1\t2\t3\r\nbrut\t1\t0\t2\r\ner\t0\t-1\t0,87831006565368\r\n");
    const auto b = SauverDistribution(f.etat, f.r, true, horloge);
    EXPECT_EQ(b.filename().string(), "chat_B_" + Horodater(horloge) + ".txt");
    EXPECT_EQ(Lire(b), "\tA\tB\r\nbrut\t3\t0\r\ner\t1\t-1\r\n");
}

TEST(Distribution, MicroDistributionDansLesDeuxOrdres) {
    Fixture f;
    // Co-occurrence tables made by hand: p0 = 6 / 12.
    Requete r;
    r.NB_COOC = 6;
    auto entrer = [&](const std::string& cle, long long n) {
        r.COOC_FORMES[static_cast<std::size_t>(IndiceCasier(CalculerCasier(cle)))].push_back({cle, n, {}, {}, {}});
    };
    entrer("chat", 9);           // F = 3: e = 1.5, z = 7.5 / sqrt(0.75) = 8.66
    entrer("voit", 8);           // F = 1: e = 0.5, z = 15, slot past the top kept at 2000
    entrer("la", 2);             // e = 0.5 and n = 2: not retained
    entrer("z\xE8" "bre", 8);    // not in the index: z = 0, retained for n = 8
    entrer("abcdefghijklmnopqrstuvwxyz", 8);  // cut to 25 in the alphabetic order
    ListeMicro m = CalculerMicro(f.etat, r, false);
    EXPECT_EQ(m.numerique, "15\t8\tvoit\r\n8,66\t9\tchat\r\n0\t8\tz\xE8" "bre\r\n0\t8\tabcdefghijklmnopqrstuvwxyz\r\n");
    EXPECT_EQ(m.alphabetique,
              "abcdefghijklmnopqrstuvwxy 8\t0\r\n"
              "chat                      9\t8,66\r\n"
              "voit                      8\t15\r\n"
              "zebre                     8\t0\r\n");
    EXPECT_EQ(m.CleDeLigne(0), "voit");
    EXPECT_EQ(m.CleDeLigne(3), "abcdefghijklmnopqrstuvwxyz");
    EXPECT_EQ(m.CleDeLigne(4), "");
    ASSERT_NE(TrouverCooccurrent(r, "voit", false), nullptr);
    EXPECT_EQ(TrouverCooccurrent(r, "voit", false)->compte, 8);
    EXPECT_EQ(TrouverCooccurrent(r, "voit", true), nullptr);
    EXPECT_EQ(m.Legende(), "> TRI ALPHABETIQUE");
    EXPECT_EQ(m.Affichee(), m.numerique);
    m.Basculer();
    EXPECT_EQ(m.Legende(), "> TRI NUMERIQUE");
    EXPECT_EQ(m.Affichee(), m.alphabetique);
    EXPECT_EQ(m.CleDeLigne(0), "abcdefghijklmnopqrstuvwxyz");
    EXPECT_EQ(m.CleDeLigne(3), "z\xE8" "bre");

    const ListeMicro lemmes = CalculerMicro(f.etat, r, true);
    EXPECT_TRUE(lemmes.numerique.empty());
    DossierTemporaire racine;
    const auto fichiers = EcrireFichiersMicro(f.etat, m, lemmes, racine.Chemin());
    ASSERT_EQ(fichiers.size(), 2u);
    EXPECT_EQ(Lire(fichiers[0]), "voit\r\nchat\r\nz\xE8" "bre\r\nabcdefghijklmnopqrstuvwxyz\r\n");
    EXPECT_EQ(fichiers[0], f.etat.PATH_INDEX / "SAUVEGARDES" / "marque_afc_datata.txt");
    EXPECT_EQ(Lire(fichiers[1]), m.numerique);
}

}  // namespace
}  // namespace telvoris
