#include "explore/mots_courts.hpp"

#include <gtest/gtest.h>

#include <sstream>

#include "core/liste_textes.hpp"
#include "core/texte.hpp"
#include "corpus_test.hpp"
#include "explore/commande_requete.hpp"
#include "explore/concordance.hpp"
#include "explore/distribution.hpp"
#include "explore/indexation.hpp"
#include "explore/navigation.hpp"
#include "support/support.hpp"

namespace telvoris {
namespace {

using test::DossierTemporaire;
using test::Lignes;
using test::Lire;
using test::PartitionTest;
namespace fs = std::filesystem;

const std::string kLes = "<M f=les l=le_DA x=p >";
const std::string kLesMaj = "<M f=Les l=le_DA x=p >";
const std::string kChat = "<M f=chat l=chat_SM x=s >";
const std::string kChats = "<M f=chats l=chat_SM x=p >";
const std::string kVoit = "<M f=voit l=voir_V x=3a >";

// Five partitions in three texts, two journals; "les" is in four of them, once as "Les", and
// not at all in the fourth.
fs::path Corpus(const fs::path& racine, const std::set<std::string>& courts) {
    const auto liste = test::EcrireCorpus(
        racine,
        {{"t1",
          {PartitionTest{"<QORX_ATTR JOURNAL=A >",
                         {kLesMaj + "Les " + kChats + "chats " + kVoit + "voit " + kLes + "les " + kChats + "chats"}},
           PartitionTest{"<QORX_ATTR JOURNAL=B >", {kChat + "chat " + kVoit + "voit", kLes + "les " + kChats + "chats"}}}},
         {"t2",
          {PartitionTest{"<QORX_ATTR JOURNAL=A >",
                         {kLes + "les " + kLes + "les " + kLes + "les " + kChats + "chats<PC f=. l=PT >."}},
           PartitionTest{"<QORX_ATTR JOURNAL=B >", {kChat + "chat " + kVoit + "voit " + kChat + "chat"}}}},
         {"t3", {PartitionTest{"<QORX_ATTR JOURNAL=B >", {kVoit + "voit " + kLes + "les " + kChats + "chats"}}}}},
        courts);
    test::DialogueScripte d;
    const auto l = ChargerListeTextes(liste);
    fs::create_directories(DossierIndex(l));
    ConstruireIndex(l, DossierIndex(l), true, d);
    return liste;
}

EtatCorpus Ouvrir(const fs::path& liste) {
    EtatCorpus etat = OuvrirCorpus(liste);
    test::DialogueScripte d;
    ValiderCorpus(etat, {{0}, 0}, d);
    return etat;
}

// What a query gives, everything that does not depend on positions.
struct Resultat {
    long long attendu = 0, total = 0;
    std::vector<long long> parties, classes;
    std::vector<double> ecartsParties, ecartsClasses;
    std::string info;
    std::vector<std::string> messages;
};

Resultat Requeter(EtatCorpus& etat, const std::string& saisie, bool casse = false,
                  TypeSaisie type = TypeSaisie::Forme) {
    ParametresRequete p;
    p.type = type;
    p.saisie = saisie;
    p.casse = casse;
    p.concordance = true;
    p.macro = true;
    Requete r;
    test::DialogueScripte d;
    EXPECT_TRUE(LancerRequete(etat, p, r, d));
    Resultat s;
    s.attendu = r.NB_ATTENDU;
    s.total = r.NB_OCC();
    // The views' models: the histograms the distribution view draws.
    const Histogramme hp = HistogrammePartitions(etat, r), hc = HistogrammeClasses(etat, r);
    s.parties = hp.comptes;
    s.classes = hc.comptes;
    s.ecartsParties = hp.ecarts;
    s.ecartsClasses = hc.ecarts;
    s.info = TexteInfoRequete(r);
    for (const auto& m : d.messages) s.messages.push_back(Cp1252VersUtf8(m));
    return s;
}

std::string CommandeMacro(const fs::path& liste, const std::string& forme, std::vector<std::string>& messages) {
    test::DialogueScripte d;
    HorlogeFixe h({2026, 11, 24, 11, 0, 0});
    std::ostringstream err;
    EXPECT_EQ(CommandeRequete({liste.string(), "--forme", forme, "--macro", "--contraste", "JOURNAL"}, d, h, err), 0)
        << err.str();
    std::string resultat;
    for (const auto& m : d.messages) {
        const std::string u = Cp1252VersUtf8(m);
        if (u.starts_with("La requête en cours")) resultat = u;
        else messages.push_back(u);
    }
    return resultat;
}

TEST(MotsCourts, ComptesEcritsParLeConstructeur) {
    DossierTemporaire avec, sans;
    const auto x = DossierIndex(ChargerListeTextes(Corpus(avec.Chemin(), {"les", "Les"})));
    const auto y = DossierIndex(ChargerListeTextes(Corpus(sans.Chemin(), {})));
    // Each tag whose segment list was "!", with its count in each partition, in LEXINDEX order.
    EXPECT_EQ(Lire(x / "LEXINDEX_COURTS/3l.txt"), Lignes({kLesMaj + "\t1\t1:1", kLes + "\t6\t1:1 2:1 3:3 5:1"}));
    std::vector<std::string> fichiers;
    for (const auto& f : fs::directory_iterator(x / "LEXINDEX_COURTS")) fichiers.push_back(f.path().filename().string());
    EXPECT_EQ(fichiers, std::vector<std::string>{"3l.txt"});
    // With no short word the folder is there and empty; the counts of a tag are read back.
    EXPECT_TRUE(fs::is_directory(y / "LEXINDEX_COURTS"));
    EXPECT_TRUE(fs::is_empty(y / "LEXINDEX_COURTS"));
    ComptesSansPositions c;
    ASSERT_TRUE(LireComptesSansPositions(x, CalculerCasier("les"), kLes, c));
    EXPECT_EQ(c.total, 6);
    EXPECT_EQ(c.parties, (std::vector<std::pair<long long, long long>>{{1, 1}, {2, 1}, {3, 3}, {5, 1}}));
    EXPECT_FALSE(LireComptesSansPositions(x, CalculerCasier("les"), kChat, c));
    EXPECT_FALSE(LireComptesSansPositions(y, CalculerCasier("les"), kLes, c));

    // Rebuilt in place without the short words: the counts of the old build are removed.
    {
        const auto l = ChargerListeTextes(Corpus(avec.Chemin(), {}));
        EXPECT_TRUE(fs::is_empty(DossierIndex(l) / "LEXINDEX_COURTS"));
    }

    // A line that does not add up is refused with its file named.
    test::Ecrire(x / "LEXINDEX_COURTS/3l.txt", Lignes({kLes + "\t7\t1:1 2:1 3:3 5:1"}));
    EXPECT_EQ(test::MessageErreur([&] { LireComptesSansPositions(x, CalculerCasier("les"), kLes, c); }),
              "Comptes illisibles dans " + (x / "LEXINDEX_COURTS/3l.txt").string() + " pour " + kLes +
                  " : on attend des paires partition:nombre, séparées par un blanc, dont les nombres font le total.");
    test::Ecrire(x / "LEXINDEX_COURTS/3l.txt", Lignes({kLes + "\t4\t3:3 1:1"}));
    EXPECT_NE(test::MessageErreur([&] { LireComptesSansPositions(x, CalculerCasier("les"), kLes, c); }),
              "(aucune erreur)");
}

TEST(MotsCourts, RelevesGrandsNombres) {
    // Large partition numbers and counts pass through the compact record unchanged; a partition
    // given twice in a row adds up.
    RelevesCourts r;
    r.Ajouter(7, 1, 200);
    r.Ajouter(7, 1, 5);
    r.Ajouter(7, 2, 0);
    r.Ajouter(7, 129, 1);
    r.Ajouter(7, 680001, 16385);
    r.Ajouter(9, 3000000000LL, 1);
    long long total = 0;
    std::string colonne;
    ASSERT_TRUE(r.Colonne(7, total, colonne));
    EXPECT_EQ(total, 205 + 1 + 16385);
    EXPECT_EQ(colonne, "1:205 129:1 680001:16385");
    ASSERT_TRUE(r.Colonne(9, total, colonne));
    EXPECT_EQ(colonne, "3000000000:1");
    EXPECT_FALSE(r.Colonne(8, total, colonne));
}

TEST(MotsCourts, MemeCompteEtMemeDistributionQueSiLesPositionsEtaientGardees) {
    DossierTemporaire avec, sans;
    const auto listeAvec = Corpus(avec.Chemin(), {"les", "Les"});
    const auto listeSans = Corpus(sans.Chemin(), {});
    EtatCorpus a = Ouvrir(listeAvec), s = Ouvrir(listeSans);
    ASSERT_EQ(a.NB_CLASSES, 2);

    for (const bool casse : {false, true}) {
        const std::string saisie = casse ? "les" : "LES";
        const Resultat ra = Requeter(a, saisie, casse), rs = Requeter(s, saisie, casse);
        EXPECT_EQ(ra.total, casse ? 6 : 7);
        EXPECT_EQ(ra.total, rs.total);
        EXPECT_EQ(ra.attendu, rs.attendu);
        EXPECT_EQ(ra.parties, rs.parties);
        EXPECT_EQ(ra.classes, rs.classes);
        EXPECT_EQ(ra.ecartsParties, rs.ecartsParties);
        EXPECT_EQ(ra.ecartsClasses, rs.ecartsClasses);
        EXPECT_EQ(ra.info, rs.info);
        // Kept positions give the concordance; counts alone say why there is none.
        EXPECT_TRUE(rs.messages.empty());
        ASSERT_EQ(ra.messages.size(), 1u);
        EXPECT_EQ(ra.messages[0],
                  std::string(casse ? "Les occurrences de la forme « les »" : "Les occurrences des formes « Les », « les »") +
                      " sont comptées et distribuées, mais la concordance et la micro-distribution ne peuvent être "
                      "montrées : l'index ne garde pas les positions des mots courts et fréquents.");
    }
    EXPECT_EQ(Requeter(a, "les", false).parties, (std::vector<long long>{0, 2, 1, 3, 0, 1}));
    EXPECT_EQ(Requeter(a, "le_DA", false, TypeSaisie::Lemme).total, 7);

    // The command line prints the same table from either index.
    std::vector<std::string> ma, ms;
    const std::string ta = CommandeMacro(listeAvec, "les", ma), ts = CommandeMacro(listeSans, "les", ms);
    EXPECT_EQ(ta, ts);
    EXPECT_NE(ta.find("JOURNAL\toccurrences\técart réduit\nA\t5\t1,13\nB\t2\t-1,13"), std::string::npos) << ta;
    EXPECT_EQ(ma.size(), 1u);
    EXPECT_TRUE(ms.empty());
}

TEST(MotsCourts, RequeteMeleeEtIndexAncien) {
    DossierTemporaire avec;
    const auto liste = Corpus(avec.Chemin(), {"les", "Les"});
    EtatCorpus a = Ouvrir(liste);
    // A list that mixes a counted word with located ones shows the located ones only, and says so.
    const Resultat m = Requeter(a, "chat\r\nles\r\n", false, TypeSaisie::ListeFormes);
    EXPECT_EQ(m.total, 3);
    EXPECT_EQ(m.parties, (std::vector<long long>{0, 0, 1, 0, 2, 0}));
    ASSERT_EQ(m.messages.size(), 1u);
    EXPECT_EQ(m.messages[0],
              "Les occurrences des formes « Les », « les » ne sont ni comptées ni montrées ici : l'index ne garde pas "
              "les positions des mots courts et fréquents, qui ne sont comptés et distribués que par une requête qui ne "
              "porte que sur eux.");
    // A sequence is never counted without positions.
    const Resultat q = Requeter(a, "les les", false);
    EXPECT_EQ(q.total, 0);
    EXPECT_NE(q.messages.at(0).find("ne sont ni comptées ni montrées ici"), std::string::npos);

    // An index made before the counts were kept: nothing is counted, as it always was.
    fs::remove_all(a.PATH_INDEX / "LEXINDEX_COURTS");
    EtatCorpus ancien = Ouvrir(liste);
    const Resultat r = Requeter(ancien, "les");
    EXPECT_EQ(r.total, 0);
    ASSERT_EQ(r.messages.size(), 1u);
    EXPECT_EQ(r.messages[0], Cp1252VersUtf8(MessageNonIndexees({"Les", "les"})));
}

// Occurrences counted without positions have nothing to list or mark: the command prints no
// co-occurrents after its message, and the full text gives each partition's count as its legend.
TEST(MotsCourts, NiCooccurrentsNiMarquesSansPositions) {
    DossierTemporaire avec;
    const auto liste = Corpus(avec.Chemin(), {"les", "Les"});
    test::DialogueScripte d;
    HorlogeFixe h({2026, 11, 24, 11, 0, 0});
    std::ostringstream err;
    ASSERT_EQ(CommandeRequete({liste.string(), "--forme", "les", "--macro", "--micro", "--sauver"}, d, h, err), 0)
        << err.str();
    std::string tout;
    for (const auto& m : d.messages) tout += Cp1252VersUtf8(m) + "\n";
    EXPECT_NE(tout.find("partition\toccurrences\técart réduit"), std::string::npos) << tout;
    EXPECT_EQ(tout.find("co-occurrents"), std::string::npos) << tout;
    EXPECT_NE(tout.find("Distribution sauvegardée"), std::string::npos) << tout;

    EtatCorpus etat = Ouvrir(liste);
    ParametresRequete p;
    p.saisie = "les";
    p.concordance = true;
    p.macro = true;
    Requete r;
    ASSERT_TRUE(LancerRequete(etat, p, r, d));
    Navigateur n(etat);
    n.NouvelleRequete(&r);
    const std::vector<std::string> attendues = {"2 occurrences, positions non indexées",
                                                "1 occurrence, position non indexée",
                                                "3 occurrences, positions non indexées", "Pas d'occurrence dans ce texte",
                                                "1 occurrence, position non indexée"};
    for (long long partie = 1; partie <= 5; ++partie) {
        n.AllerPartition(partie);
        EXPECT_EQ(n.PART_COURANTE, partie);
        EXPECT_EQ(Cp1252VersUtf8(n.legendeOcc), attendues[static_cast<std::size_t>(partie - 1)]);
        EXPECT_TRUE(n.marques.empty());
        EXPECT_FALSE(n.occPrecedente || n.occSuivante);
        EXPECT_FALSE(n.texte.empty());
    }
    n.Avance(Navigateur::OccSuivante);
    EXPECT_EQ(n.PART_COURANTE, 5);
}

}  // namespace
}  // namespace telvoris
