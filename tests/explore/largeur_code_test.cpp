// Position codes of four characters, and words too frequent for fixed tables: an index forced to
// four-character codes must answer every query as the three-character one does.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "core/erreurs.hpp"
#include "core/liste_textes.hpp"
#include "core/texte.hpp"
#include "corpus_test.hpp"
#include "explore/distribution.hpp"
#include "explore/ecriture_fond.hpp"
#include "explore/index_commun.hpp"
#include "explore/indexation.hpp"
#include "explore/navigation.hpp"
#include "explore/requete.hpp"
#include "support/support.hpp"

namespace telvoris {
namespace {

using test::DossierTemporaire;
using test::PartitionTest;
namespace fs = std::filesystem;

std::string Octets(std::initializer_list<int> v) {
    std::string s;
    for (int c : v) s.push_back(static_cast<char>(c));
    return s;
}

TEST(LargeurCode, QuatreCaracteresAuxBornes) {
    // Hand-worked: 220^3 = 10,648,000 is the weight of the added digit, whose zero is 34 too.
    EXPECT_EQ(CodePositionLarge(0, 4), Octets({34, 34, 34, 33}));
    EXPECT_EQ(CodePositionLarge(10647999, 4), Octets({34, 253, 253, 252}));
    EXPECT_EQ(CodePositionLarge(10648000, 4), Octets({35, 34, 34, 33}));
    // The first position that three characters cannot hold: 1 x 220^3 + 2 x 48,400.
    EXPECT_EQ(MAX_POSITION, 10744799);
    EXPECT_EQ(CodePositionLarge(MAX_POSITION + 1, 4), Octets({35, 36, 34, 33}));
    EXPECT_EQ(CodePositionLarge(MAX_POSITION_LONGUE, 4), Octets({255, 253, 253, 252}));
    EXPECT_THROW(CodePositionLarge(MAX_POSITION_LONGUE + 1, 4), ErreurExecution);
    EXPECT_THROW(CodePositionLarge(-1, 4), ErreurExecution);
    // Below 220^3 a four-character code is the three-character one behind a zero digit.
    for (long long v : {1LL, 219LL, 220LL, 221LL, 48399LL, 48400LL, 10000000LL}) {
        EXPECT_EQ(CodePositionLarge(v, 4), "\"" + CodePosition(v)) << v;
        EXPECT_EQ(LireCodePosition(CodePositionLarge(v, 4).data(), 4), v);
    }
    for (long long v : {MAX_POSITION, MAX_POSITION + 1, 10648000LL * 7 + 12345, 2000000000LL, MAX_POSITION_LONGUE})
        EXPECT_EQ(LireCodePosition(CodePositionLarge(v, 4).data(), 4), v) << v;
    EXPECT_EQ(LargeurCodePour(MAX_POSITION), 3);
    EXPECT_EQ(LargeurCodePour(MAX_POSITION + 1), 4);

    // The declaration: none is three characters; anything but 3 or 4 names the file.
    DossierTemporaire d;
    EXPECT_EQ(LireLargeurCode(d.Chemin()), 3);
    test::Ecrire(d.Chemin() / "LARGEUR_CODE.txt", "4\r\n");
    EXPECT_EQ(LireLargeurCode(d.Chemin()), 4);
    test::Ecrire(d.Chemin() / "LARGEUR_CODE.txt", "5\r\n");
    try {
        LireLargeurCode(d.Chemin());
        ADD_FAILURE() << "a width of 5 was accepted";
    } catch (const ErreurExecution& e) {
        EXPECT_NE(std::string(e.what()).find("LARGEUR_CODE.txt"), std::string::npos) << e.what();
    }
}

const std::string kLe = "<M f=Le l=le_DA >";
const std::string kChat = "<M f=chat l=chat_SM x=ms >";
const std::string kDort = "<M f=dort l=dormir_V x=3a >";
const std::string kPoint = "<PC f=. l=PT >";

// Three partitions over two texts; "chat dort" stands across the boundary of slices 1 and 2.
fs::path CorpusComparaison(const fs::path& racine, int largeur) {
    PartitionTest p3 = test::PartitionNumerotee("<QORX_ATTR JOURNAL=A DATE=2004-01 >", 202);
    p3.lignes[0] += kChat + "chat " + kDort + "dort" + kPoint + ". " + kLe + "Le " + kChat + "chat";
    const auto liste = test::EcrireCorpus(
        racine,
        {{"a",
          {PartitionTest{"<QORX_ATTR JOURNAL=A DATE=2003-01 >",
                         {kLe + "Le " + kChat + "chat " + kDort + "dort" + kPoint + ". " + kLe + "Le " +
                          "<M f=Chat l=chat_SM x=ms >Chat <M f=voit l=voir_V x=3a >voit <M f=la l=le_DA x=fs >la "
                          "<M f=maison l=maison_SF x=fs >maison" + kPoint + "."}},
           PartitionTest{"<QORX_ATTR JOURNAL=B DATE=2003-02 >",
                         {"<M f=Les l=le_DA x=p >Les <M f=chats l=chat_SM x=mp >chats <M f=dorment l=dormir_V x=6a >dorment" +
                              kPoint + ".",
                          "<M f=Maison l=maison_SF x=fs >Maison <M f=rouge l=rouge_J x=fs >rouge " + kChat + "chat"}}}},
         {"b", {p3}}});
    test::DialogueScripte d;
    const auto l = ChargerListeTextes(liste);
    fs::create_directories(DossierIndex(l));
    ConstruireIndex(l, DossierIndex(l), true, d, largeur);
    return liste;
}

EtatCorpus Ouvrir(const fs::path& liste, int contraste = 1) {
    EtatCorpus etat = OuvrirCorpus(liste);
    test::DialogueScripte d;
    d.reponses = {"1-4"};
    ValiderCorpus(etat, {{}, contraste}, d);
    return etat;
}

// Everything a query leaves for the views, as text, with what the navigator shows.
std::string Resultats(EtatCorpus& etat, const ParametresRequete& p) {
    Requete r;
    test::DialogueScripte d;
    const bool lancee = LancerRequete(etat, p, r, d);
    std::string s = Joindre(lancee ? "lancee" : "refusee", " attendu=", Nombre(r.NB_ATTENDU), "\n");
    for (const auto& m : d.messages) s += Joindre("message ", m, "\n");
    for (const auto& o : r.occ)
        s += Joindre(Nombre(o.pos), " p", Nombre(o.partition), " k", Nombre(o.k), " ", o.forme, " [", o.gauche, "|",
                     o.droite, "]\n");
    for (std::size_t i = 1; i < r.OCC_PAR_PART.size(); ++i) s += Joindre("part ", Nombre(r.OCC_PAR_PART[i]), "\n");
    for (std::size_t i = 1; i < r.OCC_PAR_CLASSE.size(); ++i) s += Joindre("classe ", Nombre(r.OCC_PAR_CLASSE[i]), "\n");
    for (const std::size_t i : r.ORDRE_POS) s += Joindre("ordre ", Nombre(static_cast<long long>(i)), "\n");
    s += r.rapport;
    if (r.occ.empty()) return s;
    if (p.micro) {
        s += Joindre("cooc ", Nombre(r.NB_COOC), "\n");
        s += CalculerMicro(etat, r, false).numerique;
        s += CalculerMicro(etat, r, true).numerique;
    }
    if (p.macro) {
        const Histogramme h = HistogrammePartitions(etat, r);
        for (std::size_t i = 1; i < h.comptes.size(); ++i)
            s += Joindre("barre ", Nombre(h.comptes[i]), " ", Nombre(h.barres[i - 1].hauteur), "\n");
    }
    Navigateur n(etat);
    n.NouvelleRequete(&r);
    n.Ouvrir();
    for (int pas = 0; pas < 4; ++pas) {
        s += Joindre("nav ", Nombre(n.PART_COURANTE), " occ ", Nombre(n.OCC_COURANTE), " ", n.legendeOcc, " marques");
        for (const auto& m : n.marques) s += Joindre(" ", Nombre(m.debut), "+", Nombre(m.longueur));
        s += "\n";
        n.Avance(Navigateur::OccSuivante);
    }
    return s;
}

TEST(LargeurCode, IndexDeQuatreCaracteresLuCommeTroisCaracteres) {
    DossierTemporaire d3, d4;
    const auto liste3 = CorpusComparaison(d3.Chemin(), 0);
    const auto liste4 = CorpusComparaison(d4.Chemin(), 4);
    const fs::path i3 = CheminIndex(liste3), i4 = CheminIndex(liste4);

    // A small corpus declares nothing; the forced index declares its width. Every list of the
    // wide index is the narrow one re-coded; every other file is the same.
    EXPECT_FALSE(fs::exists(i3 / "LARGEUR_CODE.txt"));
    EXPECT_EQ(test::Lire(i4 / "LARGEUR_CODE.txt"), "4\r\n");
    int listes = 0;
    for (const auto& f : fs::recursive_directory_iterator(i3)) {
        if (!f.is_regular_file()) continue;
        const fs::path relatif = fs::relative(f.path(), i3);
        const std::string a = test::Lire(f.path()), b = test::Lire(i4 / relatif);
        if (relatif.parent_path() != "LEXINDEX") {
            EXPECT_EQ(a, b) << relatif;
            continue;
        }
        std::string attendu;
        for (std::size_t debut = 0, fin; (fin = a.find("\r\n", debut)) != std::string::npos; debut = fin + 2) {
            const std::string ligne = a.substr(debut, fin - debut);
            const auto t2 = ligne.find('\t', ligne.find('\t') + 1);
            attendu += ligne.substr(0, t2 + 1);
            for (std::size_t p = t2 + 1; p + 3 <= ligne.size(); p += 3) {
                attendu += CodePositionLarge(LireCodePosition(ligne.data() + p), 4);
                ++listes;
            }
            attendu += "\r\n";
        }
        EXPECT_EQ(b, attendu) << relatif;
    }
    EXPECT_EQ(listes, 220);  // every word token has its position in one list (punctuation has none)

    EtatCorpus e3 = Ouvrir(liste3), e4 = Ouvrir(liste4);
    EXPECT_EQ(e3.LARGEUR_CODE, 3);
    EXPECT_EQ(e4.LARGEUR_CODE, 4);
    auto requete = [](TypeSaisie type, const std::string& saisie, bool concordance, bool macro, bool micro) {
        ParametresRequete p;
        p.type = type;
        p.saisie = saisie;
        p.concordance = concordance;
        p.macro = macro;
        p.micro = micro;
        return p;
    };
    const std::vector<ParametresRequete> requetes = {
        requete(TypeSaisie::Forme, "chat", true, true, true),
        requete(TypeSaisie::Forme, "chat dort", true, true, false),
        requete(TypeSaisie::Forme, "ch*", false, true, true),
        requete(TypeSaisie::Forme, "*ai*", true, false, false),
        requete(TypeSaisie::Lemme, "le_DA", true, true, true),
        requete(TypeSaisie::Lemme, "le_DA :SM", true, false, true),
        requete(TypeSaisie::ListeFormes, "maison\nrouge", true, true, false),
        requete(TypeSaisie::Forme, "absent", true, true, false),
    };
    for (const auto& p : requetes) {
        const std::string r3 = Resultats(e3, p);
        EXPECT_EQ(Resultats(e4, p), r3) << p.saisie;
        if (p.saisie != "absent") {
            EXPECT_NE(r3.find("nav "), std::string::npos) << p.saisie << "\n" << r3;
        }
    }
    // The sequence across the slice boundary is found at its hand-counted position in both.
    const std::string sequence = Resultats(e4, requetes[1]);
    EXPECT_NE(sequence.find("\n220 p3 k"), std::string::npos) << sequence;
    EXPECT_NE(sequence.find("\n2 p1 k"), std::string::npos) << sequence;
}

// A word of more than 50,000 occurrences in one tag, and a second tag of the same form that
// interleaves with it; a bucket of more than 500 co-occurrents.
fs::path CorpusFrequent(const fs::path& racine, int largeur) {
    const std::string les = "<M f=les l=le_DA x=p >les ", Les = "<M f=Les l=le_DA x=p >Les ";
    PartitionTest p1{"<QORX_ATTR N=1 >", {""}}, p2{"<QORX_ATTR N=2 >", {""}}, p3{"<QORX_ATTR N=3 >", {""}},
        p4{"<QORX_ATTR N=4 >", {""}};
    for (int i = 0; i < 20000; ++i) p1.lignes[0] += i % 4 == 3 ? Les : les;
    for (int i = 0; i < 36001; ++i) p2.lignes[0] += les;
    p3 = test::PartitionNumerotee("<QORX_ATTR N=3 >", 10);
    p3.lignes[0] += les;
    for (int i = 1; i <= 600; ++i) {
        const std::string f = "b" + std::string(4 - std::to_string(i).size(), '0') + std::to_string(i);
        p4.lignes[0] += "<M f=" + f + " l=" + f + "_SM >" + f + " ";
    }
    p4.lignes[0] += "<M f=pivot l=pivot_SM >pivot";
    const auto liste = test::EcrireCorpus(racine, {{"t", {p1, p2, p3, p4}}});
    test::DialogueScripte d;
    const auto l = ChargerListeTextes(liste);
    fs::create_directories(DossierIndex(l));
    ConstruireIndex(l, DossierIndex(l), true, d, largeur);
    return liste;
}

TEST(LargeurCode, MotDePlusDeCinquanteMilleOccurrences) {
    for (const int largeur : {3, 4}) {
        SCOPED_TRACE(largeur);
        DossierTemporaire dossier;
        EtatCorpus etat = Ouvrir(CorpusFrequent(dossier.Chemin(), largeur), 0);
        ASSERT_EQ(etat.NB_MOTS, 20000 + 36001 + 11 + 601);
        test::DialogueScripte d;
        Requete r;
        ParametresRequete p;
        p.saisie = "les";
        p.macro = true;
        ASSERT_TRUE(LancerRequete(etat, p, r, d));
        // Too many for a concordance, counted and distributed all the same.
        ASSERT_EQ(d.messages.size(), 1u);
        EXPECT_EQ(d.messages[0], "Votre requête recense 56002 occurrences. C'est trop pour afficher une concordance."_cp);
        EXPECT_EQ(r.NB_ATTENDU, 56002);
        ASSERT_EQ(r.occ.size(), 56002u);
        EXPECT_EQ(r.rapport, "les\t51002\r\nLes\t5000\r\n");
        EXPECT_EQ(r.OCC_PAR_PART, (std::vector<long long>{0, 20000, 36001, 1, 0}));
        // Navigation order: every position once, ascending, across both tags.
        ASSERT_EQ(r.ORDRE_POS.size(), r.occ.size());
        for (std::size_t i = 0; i < r.ORDRE_POS.size(); ++i)
            ASSERT_EQ(r.occ[r.ORDRE_POS[i]].pos, i < 56001 ? static_cast<long long>(i) + 1 : 56012) << i;
        const Histogramme h = HistogrammePartitions(etat, r);
        ASSERT_FALSE(h.vide);
        EXPECT_EQ(h.comptes, (std::vector<long long>{0, 20000, 36001, 1, 0}));
        const double part2 = 36001.0 / static_cast<double>(etat.NB_MOTS);
        EXPECT_DOUBLE_EQ(h.ecarts[2], EcartReduit(56002, part2, 36001));
        EXPECT_GT(h.ecarts[2], 0.0);
        EXPECT_LT(h.ecarts[4], 0.0);

        // The same word with its contexts read (micro-distribution): the same count, and now
        // offsets; the 600 co-occurrents of "pivot" fill one bucket.
        p.micro = true;
        p.concordance = false;
        p.empan = true;
        p.longueurEmpan = "1";
        ASSERT_TRUE(LancerRequete(etat, p, r, d));
        ASSERT_EQ(r.occ.size(), 56002u);
        EXPECT_EQ(r.occ[1].k, 5);
        // A neighbour on each side within the span, but none across a partition's ends: the two
        // full partitions lose two each, the lone "les" closing partition 3 one.
        EXPECT_EQ(r.NB_COOC, 2 * 56002 - 2 - 2 - 1);
        p.saisie = "pivot";
        p.macro = false;
        p.empan = false;
        ASSERT_TRUE(LancerRequete(etat, p, r, d));
        EXPECT_EQ(r.NB_COOC, 600);
        const auto& casier = r.COOC_FORMES[static_cast<std::size_t>(IndiceCasier({2, 5}))];
        ASSERT_EQ(casier.size(), 600u);
        EXPECT_EQ(casier.front().cle, "b0600");
        EXPECT_EQ(casier.back().cle, "b0001");
        EXPECT_EQ(casier.back().parties, "/4-1");
    }
}

}  // namespace
}  // namespace telvoris

namespace telvoris {
namespace {

// Every file of a tree, by relative path, with its content.
std::map<std::string, std::string> Arbre(const std::filesystem::path& racine) {
    std::map<std::string, std::string> fichiers;
    for (const auto& f : std::filesystem::recursive_directory_iterator(racine))
        fichiers[std::filesystem::relative(f.path(), racine).string() + (f.is_directory() ? "/" : "")] =
            f.is_directory() ? "" : test::Lire(f.path());
    return fichiers;
}

TEST(LargeurCode, IndexReecritSurPlace) {
    // A wide index of a longer corpus, with a saved result and a stray file, is written over by
    // the index of a shorter one: the tree is then exactly the one a fresh build gives.
    test::DossierTemporaire long_, court, neuf;
    const auto listeLongue = CorpusComparaison(long_.Chemin(), 4);
    const auto index = CheminIndex(listeLongue);
    test::Ecrire(index / "SAUVEGARDES" / "CONCORDANCES" / "chat_1.txt", "x");
    test::Ecrire(index / "LEXINDEX" / "vieux.txt", "x");
    const auto listeCourte = test::EcrireCorpus(court.Chemin(), {{"c", {test::PartitionNumerotee("<QORX_ATTR T=1 >", 5)}}});
    const auto listeNeuve = test::EcrireCorpus(neuf.Chemin(), {{"c", {test::PartitionNumerotee("<QORX_ATTR T=1 >", 5)}}});
    test::DialogueScripte d;
    ConstruireIndex(ChargerListeTextes(listeCourte), index, true, d);
    const auto l = ChargerListeTextes(listeNeuve);
    std::filesystem::create_directories(DossierIndex(l));
    ConstruireIndex(l, DossierIndex(l), true, d);
    const auto ecrase = Arbre(index), attendu = Arbre(DossierIndex(l));
    EXPECT_EQ(ecrase.size(), attendu.size());
    EXPECT_TRUE(ecrase == attendu);
    EXPECT_FALSE(ecrase.contains("LARGEUR_CODE.txt"));
    EXPECT_FALSE(ecrase.contains("TEXTE_ETIQUETE/2.txt"));
    EXPECT_FALSE(ecrase.contains("TEXTE_AFFICHE/2.txt"));
    EXPECT_TRUE(ecrase.contains("TEXTE_AFFICHE/1.txt"));
}

TEST(LargeurCode, EcritureDeFondEchec) {
    test::DossierTemporaire d;
    EcritureDeFond fond(16);
    fond.Ecrire(d.Chemin() / "a.txt", "premier");
    fond.Ecrire(d.Chemin() / "absent" / "b.txt", "second");
    try {
        fond.Terminer();
        ADD_FAILURE() << "a file in a missing folder was written";
    } catch (const ErreurExecution& e) {
        EXPECT_NE(std::string(e.what()).find("absent/b.txt"), std::string::npos) << e.what();
    }
    EXPECT_EQ(test::Lire(d.Chemin() / "a.txt"), "premier");
}

}  // namespace
}  // namespace telvoris
