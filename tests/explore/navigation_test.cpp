#include "explore/navigation.hpp"

#include <gtest/gtest.h>

#include "core/texte.hpp"
#include "vues_corpus.hpp"

namespace telvoris {
namespace {

using test::DossierTemporaire;

struct Fixture {
    DossierTemporaire dossier;
    EtatCorpus etat;
    Requete r;
    test::DialogueScripte d;
    Fixture() : etat(test::OuvrirCorpusVues(test::CorpusVues(dossier.Chemin()))) {}
    void Lancer(const std::string& saisie, bool micro = false) {
        ParametresRequete p;
        p.saisie = saisie;
        p.micro = micro;
        ASSERT_TRUE(LancerRequete(etat, p, r, d));
    }
};

std::string U(const std::string& s) { return Cp1252VersUtf8(s); }

using M = std::vector<std::pair<long long, long long>>;
M Places(const Navigateur& n, bool souligne = false) {
    M v;
    for (const auto& m : n.marques)
        if (m.souligne == souligne) v.emplace_back(m.debut, m.longueur);
    return v;
}

TEST(Navigation, MouvementsEtMarques) {
    Fixture f;
    f.Lancer("chat");
    ASSERT_EQ(f.r.occ.size(), 3u);
    Navigateur n(f.etat);
    n.NouvelleRequete(&f.r);
    n.Ouvrir();
    EXPECT_EQ(n.PART_COURANTE, 1);
    EXPECT_EQ(n.texte, "Le chat dort.\r\n");
    EXPECT_EQ(Places(n), (M{{3, 4}}));
    EXPECT_EQ(U(n.legendeOcc), "occurrence n° 1");
    EXPECT_EQ(n.titre, "1. JOURNAL=A");
    EXPECT_EQ(n.curseur, 3);
    EXPECT_FALSE(n.occPrecedente);
    EXPECT_TRUE(n.occSuivante);
    EXPECT_FALSE(n.partPrecedente);
    EXPECT_TRUE(n.partSuivante);

    // A partition without occurrences: the rank falls back to the nearest earlier one, and the
    // next occurrence arrow goes on from there.
    n.Avance(Navigateur::PartieSuivante);
    EXPECT_EQ(n.PART_COURANTE, 2);
    EXPECT_EQ(n.texte, "la maison rouge\r\n");
    EXPECT_TRUE(n.marques.empty());
    EXPECT_EQ(n.legendeOcc, "Pas d'occurrence dans ce texte");
    EXPECT_EQ(n.OCC_COURANTE, 1);
    n.Avance(Navigateur::OccSuivante);
    EXPECT_EQ(n.PART_COURANTE, 3);
    EXPECT_EQ(n.OCC_COURANTE, 2);
    EXPECT_EQ(Places(n), (M{{3, 4}, {16, 4}}));
    EXPECT_EQ(n.curseur, 3);
    // Within one partition the rank reached stays.
    n.Avance(Navigateur::OccSuivante);
    EXPECT_EQ(n.OCC_COURANTE, 3);
    EXPECT_EQ(U(n.legendeOcc), "occurrence n° 3");
    EXPECT_EQ(n.curseur, 16);
    EXPECT_TRUE(n.occPrecedente);
    EXPECT_FALSE(n.occSuivante);
    EXPECT_FALSE(n.partSuivante);
    n.Avance(Navigateur::OccSuivante);  // the last stays the last
    EXPECT_EQ(n.OCC_COURANTE, 3);
    n.Avance(Navigateur::OccPrecedente);
    EXPECT_EQ(n.OCC_COURANTE, 2);
    n.Avance(Navigateur::PremiereOcc);
    EXPECT_EQ(n.PART_COURANTE, 1);
    EXPECT_EQ(n.OCC_COURANTE, 1);
    n.Avance(Navigateur::DerniereOcc);
    EXPECT_EQ(n.PART_COURANTE, 3);
    EXPECT_EQ(n.OCC_COURANTE, 3);

    // Partition buttons: the rank becomes the first of the partition shown.
    n.Avance(Navigateur::PremierePartie);
    EXPECT_EQ(n.PART_COURANTE, 1);
    EXPECT_EQ(n.OCC_COURANTE, 1);
    n.Avance(Navigateur::DernierePartie);
    EXPECT_EQ(n.PART_COURANTE, 3);
    EXPECT_EQ(n.OCC_COURANTE, 2);
    n.Avance(Navigateur::PartiePrecedente);
    EXPECT_EQ(n.PART_COURANTE, 2);
    n.Avance(Navigateur::OccPrecedente);
    EXPECT_EQ(n.PART_COURANTE, 1);
    EXPECT_EQ(n.OCC_COURANTE, 1);
    n.Avance(Navigateur::PartiePrecedente);  // the first stays the first
    EXPECT_EQ(n.PART_COURANTE, 1);
    n.Avance(4);  // no button 4
    EXPECT_EQ(n.PART_COURANTE, 1);

    // From the concordance: the chosen occurrence stays current.
    std::size_t derniere = 0;
    for (std::size_t i = 0; i < f.r.occ.size(); ++i)
        if (f.r.occ[i].pos == 12) derniere = i;
    n.AllerOccurrence(derniere);
    EXPECT_EQ(n.PART_COURANTE, 3);
    EXPECT_EQ(n.OCC_COURANTE, 3);
    EXPECT_EQ(n.curseur, 16);
    // From a bar: the first occurrence of the partition, or none.
    n.AllerPartition(3);
    EXPECT_EQ(n.OCC_COURANTE, 2);
    n.AllerPartition(2);
    EXPECT_EQ(n.legendeOcc, "Pas d'occurrence dans ce texte");
    n.AllerPartition(9);
    EXPECT_EQ(n.PART_COURANTE, 2);

    // Short titles: equal neighbours make one entry; a choice shows its first partition.
    EXPECT_EQ(f.etat.titresCourts, (std::vector<std::string>{"X", "Y"}));
    EXPECT_TRUE(n.ChoisirTitreCourt("Y"));
    EXPECT_EQ(n.PART_COURANTE, 3);
    EXPECT_TRUE(n.ChoisirTitreCourt("X"));
    EXPECT_EQ(n.PART_COURANTE, 1);
    EXPECT_FALSE(n.ChoisirTitreCourt("Z"));
    EXPECT_EQ(n.PART_COURANTE, 1);
}

TEST(Navigation, SansRequeteEtLimiteDeMarquage) {
    Fixture f;
    Navigateur n(f.etat);
    n.Ouvrir();
    EXPECT_EQ(n.PART_COURANTE, 1);
    n.Avance(Navigateur::DernierePartie);
    EXPECT_EQ(n.legendeOcc, "Pas d'occurrence dans ce texte");
    EXPECT_EQ(n.OCC_COURANTE, 0);
    n.Avance(Navigateur::OccSuivante);  // nothing to go to
    EXPECT_EQ(n.PART_COURANTE, 3);

    // 10001 expected occurrences or more: the text alone, unmarked.
    f.Lancer("chat");
    Requete grosse = f.r;
    grosse.NB_ATTENDU = SEUIL_MARQUAGE;
    n.NouvelleRequete(&grosse);
    n.MontrerPartie();
    EXPECT_EQ(n.texte, "un chat voit le chat\r\n");
    EXPECT_TRUE(n.marques.empty());
    EXPECT_TRUE(n.legendeOcc.empty());
    grosse.NB_ATTENDU = SEUIL_MARQUAGE - 1;
    n.MontrerPartie();
    EXPECT_EQ(n.marques.size(), 2u);
}

TEST(Navigation, CooccurrencesEtMotsRecueillis) {
    Fixture f;
    f.Lancer("chat", true);
    const auto& voit = f.r.COOC_FORMES[static_cast<std::size_t>(IndiceCasier(CalculerCasier("voit")))];
    ASSERT_EQ(voit.size(), 1u);
    EXPECT_EQ(voit[0].parties, "/3-9/3-9");  // a co-occurrent of both occurrences of partition 3
    const auto& voir = f.r.COOC_LEMMES[static_cast<std::size_t>(IndiceCasier(CalculerCasier("voir_V")))];
    ASSERT_EQ(voir.size(), 1u);
    const auto coocs = CooccurrencesDe(voir[0], true);
    ASSERT_EQ(coocs.size(), 2u);
    EXPECT_EQ(coocs[0].partition, 3);
    EXPECT_EQ(coocs[0].k, 9);
    EXPECT_EQ(coocs[0].longueur, 4);

    Navigateur n(f.etat);
    n.NouvelleRequete(&f.r);
    n.ChoisirCooccurrences(CooccurrencesDe(voit[0], false));
    EXPECT_EQ(n.PART_COURANTE, 3);
    EXPECT_EQ(Places(n, true), (M{{8, 4}, {8, 4}}));
    EXPECT_EQ(Places(n), (M{{3, 4}, {16, 4}}));
    EXPECT_EQ(U(n.legendeCooc), "co-occurrence n° 1");
    EXPECT_EQ(n.curseur, 8);
    EXPECT_TRUE(n.coocSuivante);
    n.Avance(Navigateur::DerniereCooc);
    EXPECT_EQ(n.COOC_COURANTE, 2);
    EXPECT_FALSE(n.coocSuivante);
    n.Avance(Navigateur::PremiereCooc);
    EXPECT_EQ(n.COOC_COURANTE, 1);

    // A selection from "chat" to the end of "voit", in partition 3: tokens whose k is inside,
    // gathered from the last to the first, without repeat.
    ListesMots l;
    l.LISTE_FORMES = "chat\r\n";
    n.Recueillir(3, 10, l);
    EXPECT_EQ(l.LISTE_FORMES, "chat\r\nvoit\r\n");
    EXPECT_EQ(l.LISTE_LEMMES, "voir_V\r\nchat_SM\r\n");
    n.Recueillir(13, 30, l);  // "le chat": both already there but le_DA
    EXPECT_EQ(l.LISTE_FORMES, "chat\r\nvoit\r\nle\r\n");
    EXPECT_EQ(l.LISTE_LEMMES, "voir_V\r\nchat_SM\r\nle_DA\r\n");
    n.Recueillir(0, 0, l);  // an empty selection
    EXPECT_EQ(l.LISTE_FORMES, "chat\r\nvoit\r\nle\r\n");
}

}  // namespace
}  // namespace telvoris
