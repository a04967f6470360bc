#include "explore/indexation.hpp"

#include <gtest/gtest.h>

#include "core/erreurs.hpp"
#include "core/horloge.hpp"
#include "core/texte.hpp"
#include "corpus_test.hpp"
#include "explore/index_commun.hpp"
#include "support/support.hpp"

namespace telvoris {
namespace {

using test::DossierTemporaire;
using test::Lignes;
using test::Lire;
namespace fs = std::filesystem;

const std::string kChat = "<M f=chat l=chat_SM x=s >";
const std::string kMaj = "<M f=Maison l=maison_SF x=s >";
const std::string kMin = "<M f=maison l=maison_SF x=s >";
const std::string kUni = "<M f=uni l=unir_V x=p >";
const std::string kLe = "<M f=Le l=le_DA >";
const std::string kAnti = "<M f=anticonstitutionnellement l=anticonstitutionnellement_A >";
const std::string kWagon = "<M f=wagon l=wagon_SM x=s >";
const std::string kDe = "<M f=de l=de_BX >";
const std::string kEte = "<M f=" + std::string("été"_cp) + " l=" + std::string("été"_cp) + "_SM x=s >";

// Two texts, three partitions, thirteen tokens; "de" is a short frequent word.
fs::path CorpusExemple(const fs::path& racine) {
    using test::PartitionTest;
    return test::EcrireCorpus(
        racine,
        {{"t1",
          {PartitionTest{"<QORX_ATTR JOURNAL=A DATE=\"2003-01\" TITRE=Un >",
                         {kLe + "Le " + kChat + "chat " + kUni + "uni<PC f=. l=PT >."}},
           PartitionTest{"<QORX_ATTR JOURNAL=B DATE=2003-02 >", {kChat + "chat " + kMaj + "Maison " + kAnti + "anticonstitutionnellement"}}}},
         {"t2",
          {PartitionTest{"<QORX_ATTR JOURNAL=A DATE=2004-05 >",
                         {kMin + "maison " + kWagon + "wagon " + kDe + "de " + kEte + std::string("été "_cp) + kChat +
                          "chat<PC f=! l=E >!"}}}}},
        {"de"});
}

fs::path Construire(const fs::path& liste, bool plier) {
    test::DialogueScripte d;
    const auto l = ChargerListeTextes(liste);
    const auto dossier = DossierIndex(l);
    fs::create_directories(dossier);
    ConstruireIndex(l, dossier, plier, d);
    return dossier;
}

std::string P(long long v) { return CodePosition(v); }

TEST(IndexExploration, CodePositionEtCasier) {
    // Three characters in base 220, read back whatever the writer (q3 = 0 is slot 220).
    for (long long v : {0LL, 1LL, 219LL, 220LL, 221LL, 48399LL, 48400LL, 10000000LL, MAX_POSITION}) {
        const std::string c = CodePosition(v);
        ASSERT_EQ(c.size(), 3u);
        EXPECT_EQ(LireCodePosition(c.data()), v);
    }
    EXPECT_EQ(CodePosition(220), "\"#!");
    EXPECT_EQ(CodePosition(1), "\"\"\"");
    EXPECT_THROW(CodePosition(MAX_POSITION + 1), ErreurExecution);
    // u, v and k share a rank; w to z and every non-letter go to t; length capped at 15.
    EXPECT_EQ(NomFichierCasier(CalculerCasier("uni")), "3k.txt");
    EXPECT_EQ(NomFichierCasier(CalculerCasier("Kilo")), "4k.txt");
    EXPECT_EQ(NomFichierCasier(CalculerCasier("anticonstitutionnellement")), "15a.txt");
    EXPECT_EQ(NomFichierCasier(CalculerCasier("été"_cp)), "3t.txt");
    EXPECT_EQ(NomFichierCasier(CalculerCasier("Zoo")), "3t.txt");
    EXPECT_EQ(NomFichierCasier(CalculerCasier("12")), "2t.txt");
    EXPECT_EQ(CalculerCasier(""), (Casier{0, 0}));
    EXPECT_EQ(SansAccent("ÉtéŒuvreÇàñü"_cp), "eteouvrecanu");
    EXPECT_EQ(RangLettre("été"_cp), 0);
    EXPECT_EQ(RangLettre("wagon"), 23);
    EXPECT_EQ(CheminIndex("/a/b/REPERTOIRE.txt"), fs::path("/a/b/REPERTOIRE_QORX_INDEX"));
}

TEST(IndexExploration, ArbreOctetPourOctet) {
    DossierTemporaire d;
    const auto liste = CorpusExemple(d.Chemin());
    // A count above the frequency limit, to see where it stands in the dictionaries.
    const auto lexT1 = d.Chemin() / "OLBRIN_TT/LEXINDEX/t1.txt";
    std::string lex = Lire(lexT1);
    lex.replace(lex.find(kLe + "\t1\t"), kLe.size() + 3, kLe + "\t150000\t");
    test::Ecrire(lexT1, lex);
    const auto x = Construire(liste, true);

    EXPECT_EQ(Lire(x / "controle.txt"), Lignes({"1\tJOURNAL", "2\tDATE", "3\tTITRE"}));
    EXPECT_EQ(Lire(x / "LONPARTS_M.txt"), Lignes({"4", "7", "13"}));
    EXPECT_EQ(Lire(x / "METADONNEES_QORX/index.txt"), Lignes({"JOURNAL", "DATE", "TITRE"}));
    EXPECT_EQ(Lire(x / "METADONNEES_QORX/DATE.txt"), Lignes({"2003-01", "2003-02", "2004-05"}));
    EXPECT_EQ(Lire(x / "METADONNEES_QORX/TITRE.txt"), Lignes({"Un", "", ""}));
    EXPECT_EQ(Lire(x / "TEXTE_AFFICHE/1.txt"), Lignes({"Le chat uni."}));
    EXPECT_EQ(Lire(x / "TEXTE_AFFICHE/3.txt"), Lignes({std::string("maison wagon de été chat!"_cp)}));
    const std::string etiq = Lire(x / "TEXTE_ETIQUETE/1.txt");
    EXPECT_EQ(etiq.substr(0, 50), "<M k=1 f=Le l=le_DA ><M k=4 f=chat l=chat_SM x=s >");
    EXPECT_TRUE(etiq.ends_with("<M k=21 f=chat l=chat_SM x=s ><PC k=25 f=! l=E >"));
    EXPECT_FALSE(fs::exists(x / "TEXTE_ETIQUETE/2.txt"));

    // Positions in corpus order over both texts; the short frequent word takes the list of the
    // line before it; folded forms share a bucket.
    EXPECT_EQ(Lire(x / "LEXINDEX/4c.txt"), Lignes({kChat + "\t3\t" + P(2) + P(5) + P(12)}));
    EXPECT_EQ(Lire(x / "LEXINDEX/3k.txt"), Lignes({kUni + "\t1\t" + P(3)}));
    EXPECT_EQ(Lire(x / "LEXINDEX/6m.txt"), Lignes({kMaj + "\t1\t" + P(6), kMin + "\t1\t" + P(8)}));
    EXPECT_EQ(Lire(x / "LEXINDEX/2d.txt"), Lignes({kDe + "\t1\t" + P(9)}));
    EXPECT_EQ(Lire(x / "LEXINDEX/15a.txt"), Lignes({kAnti + "\t1\t" + P(7)}));
    EXPECT_EQ(Lire(x / "LEXINDEX/3t.txt"), Lignes({kEte + "\t1\t" + P(11)}));
    EXPECT_EQ(Lire(x / "LEXINDEX/1t.txt"), "");
    EXPECT_EQ(Lire(x / "LEXINDEX_F/6m.txt"), Lignes({"maison\t2\t" + kMaj + kMin}));
    EXPECT_EQ(Lire(x / "LEXINDEX_F/2l.txt"), Lignes({"le\t150000\t" + kLe}));
    EXPECT_EQ(Lire(x / "LEXINDEX_L/4k.txt"), Lignes({"unir_V\t1\t" + kUni}));
    EXPECT_EQ(Lire(x / "LEXINDEX_L/6m.txt"), Lignes({"maison_SF\t2\t" + kMaj + kMin}));
    int fichiers = 0;
    for (const char* dossier : {"LEXINDEX", "LEXINDEX_F", "LEXINDEX_L"})
        for ([[maybe_unused]] const auto& e : fs::directory_iterator(x / dossier)) ++fichiers;
    EXPECT_EQ(fichiers, 900);

    // Category keys: each pass of the steps adds the count; "p" alone is no key of a verb.
    EXPECT_EQ(Lire(x / "LEXINDEX_C/CATEG.txt"),
              Lignes({"DA\t300000\t" + kLe, "D\t300000\t" + kLe, "SM\t10\t" + kChat + kWagon + kEte,
                      "SMs\t10\t" + kChat + kWagon + kEte, "S\t14\t" + kChat + kMaj + kMin + kWagon + kEte,
                      "Ss\t14\t" + kChat + kMaj + kMin + kWagon + kEte, "s\t14\t" + kChat + kMaj + kMin + kWagon + kEte,
                      "ms\t5\t" + kChat + kWagon + kEte, "V\t2\t" + kUni, "Vp\t2\t" + kUni, "SF\t4\t" + kMaj + kMin,
                      "SFs\t4\t" + kMaj + kMin, "fs\t2\t" + kMaj + kMin, "A\t2\t" + kAnti, "BX\t2\t" + kDe,
                      "B\t2\t" + kDe}));

    // Dictionaries: the over-limit count first, W lemmas twice in the frequency list, lemma
    // letter files capped at 100000.
    const auto dico = x / "DICTIONNAIRES";
    EXPECT_EQ(Lire(dico / "FREQUENTIEL_FORMES.txt"),
              Lignes({"150000\tle", "3\tchat", "2\tmaison", "1\tanticonstitutionnellement", "1\tde",
                      "1\t" + std::string("été"_cp), "1\tuni", "1\twagon"}));
    EXPECT_EQ(Lire(dico / "L_FORMES.txt"), Lignes({"150000\tle"}));
    EXPECT_EQ(Lire(dico / "E_FORMES.txt"), Lignes({"1\t" + std::string("été"_cp)}));
    EXPECT_EQ(Lire(dico / "W_FORMES.txt"), Lignes({"1\twagon"}));
    EXPECT_EQ(Lire(dico / "B_FORMES.txt"), "");
    EXPECT_EQ(Lire(dico / "FREQUENTIEL_LEMMES.txt"),
              Lignes({"150000\tle", "150000\tle_DA", "3\tchat_SM", "2\tmaison_SF", "1\tanticonstitutionnellement_A",
                      "1\tde_BX", "1\t" + std::string("été_SM"_cp), "1\tunir_V", "1\twagon_SM", "1\twagon_SM"}));
    EXPECT_EQ(Lire(dico / "L_LEMMES.txt"), Lignes({"100000\tle_DA"}));
    EXPECT_EQ(Lire(dico / "W_LEMMES.txt"), Lignes({"1\twagon_SM"}));
    EXPECT_TRUE(fs::is_directory(x / "SAUVEGARDES/CONCORDANCES"));
    EXPECT_TRUE(fs::is_directory(x / "SAUVEGARDES/DISTRIBUTIONS"));
}

TEST(IndexExploration, CasseRespecteeEtLemmeSansSouligne) {
    DossierTemporaire d;
    const auto liste = test::EcrireCorpus(
        d.Chemin(), {{"t", {test::PartitionTest{"<QORX_ATTR A=1 >", {kMaj + "Maison " + kMin + "maison <M f=rien >rien"}}}}});
    const auto x = Construire(liste, false);
    EXPECT_EQ(Lire(x / "LEXINDEX_F/6m.txt"), Lignes({"Maison\t1\t" + kMaj, "maison\t1\t" + kMin}));
    // A form without lemma has a form entry only.
    EXPECT_EQ(Lire(x / "LEXINDEX_F/4r.txt"), Lignes({"rien\t1\t<M f=rien >"}));
    EXPECT_EQ(Lire(x / "LEXINDEX_L/4r.txt"), "");
    EXPECT_EQ(Lire(x / "LEXINDEX_C/CATEG.txt").find("rien"), std::string::npos);
}

TEST(IndexExploration, TranchesDe220AuTraversDesTextes) {
    DossierTemporaire d;
    // 100 tokens, then a text of 340 in two partitions: the slice runs on across the texts, the
    // 221st tag opens slice 2, and 440 tags in all make no slice 3.
    const auto liste = test::EcrireCorpus(
        d.Chemin(), {{"a", {test::PartitionNumerotee("<QORX_ATTR N=1 >", 100, 1)}},
                     {"b", {test::PartitionNumerotee("<QORX_ATTR N=2 >", 120, 101),
                            test::PartitionNumerotee("<QORX_ATTR N=3 >", 220, 221)}}});
    const auto x = Construire(liste, true);
    const std::string t1 = Lire(x / "TEXTE_ETIQUETE/1.txt");
    const std::string t2 = Lire(x / "TEXTE_ETIQUETE/2.txt");
    auto compter = [](const std::string& s) { return std::count(s.begin(), s.end(), '<'); };
    EXPECT_EQ(compter(t1), 220);
    EXPECT_EQ(compter(t2), 220);
    EXPECT_FALSE(fs::exists(x / "TEXTE_ETIQUETE/3.txt"));
    EXPECT_TRUE(t1.starts_with("<M k=1 f=m1 >"));
    EXPECT_TRUE(t1.ends_with("f=m220 >"));
    EXPECT_TRUE(t2.starts_with("<M k=") && t2.find("f=m221 >") < 20);
    EXPECT_TRUE(t2.ends_with("f=m440 >"));
    EXPECT_EQ(Lire(x / "LONPARTS_M.txt"), Lignes({"100", "220", "440"}));
    EXPECT_NE(Lire(x / "LEXINDEX/4m.txt").find("<M f=m221 >\t1\t" + P(221) + "\r\n"), std::string::npos);
    EXPECT_NE(Lire(x / "LEXINDEX/4m.txt").find("<M f=m220 >\t1\t" + P(220) + "\r\n"), std::string::npos);
    EXPECT_NE(Lire(x / "LEXINDEX/4m.txt").find("<M f=m440 >\t1\t" + P(440) + "\r\n"), std::string::npos);
}

TEST(IndexExploration, VariablesDeMetadonnees) {
    DossierTemporaire d;
    // Eleven names: the eleventh overwrites the variable resolved just before it. Quotes go,
    // a value that begins with a blank is empty.
    const auto liste = test::EcrireCorpus(
        d.Chemin(), {{"t",
                      {test::PartitionTest{"<QORX_ATTR V1=a V2=b V3=c V4=d V5=e V6=f V7=g V8=h V9=i V10=j V11=k >", {}},
                       test::PartitionTest{"<QORX_ATTR V2=\"x y\" V1= >", {}}}}});
    const auto x = Construire(liste, true);
    EXPECT_EQ(Lire(x / "METADONNEES_QORX/V10.txt"), Lignes({"k", ""}));
    EXPECT_EQ(Lire(x / "METADONNEES_QORX/V2.txt"), Lignes({"b", "\"x"}));
    EXPECT_EQ(Lire(x / "METADONNEES_QORX/V1.txt"), Lignes({"a", ""}));
    EXPECT_FALSE(fs::exists(x / "METADONNEES_QORX/V11.txt"));
    EXPECT_TRUE(Lire(x / "controle.txt").ends_with("\r\n10\tV10\r\n"));
    EXPECT_EQ(Lire(x / "TEXTE_ETIQUETE/1.txt"), "");
    EXPECT_EQ(Lire(x / "LONPARTS_M.txt"), Lignes({"0", "0"}));

    // A metadata line whose last value has no blank after it stops the build, naming it.
    DossierTemporaire d2;
    const auto mauvaise = test::EcrireCorpus(d2.Chemin(), {{"t", {test::PartitionTest{"<QORX_ATTR A=1>", {}}}}});
    try {
        Construire(mauvaise, true);
        FAIL();
    } catch (const ErreurExecution& e) {
        EXPECT_NE(std::string(e.what()).find("<QORX_ATTR A=1>"), std::string::npos);
    }
}

TEST(IndexExploration, OperationEtIndexExistant) {
    DossierTemporaire d;
    const auto liste = CorpusExemple(d.Chemin());
    HorlogeFixe horloge({2026, 11, 21, 10, 0, 0});
    test::DialogueScripte dialogue;
    Contexte ctx{dialogue, horloge, test::RessourcesTest()};
    dialogue.reponses = {"N"};
    dialogue.fichiers = {liste};
    OperationIndexExploration(ctx);
    ASSERT_EQ(dialogue.messages.size(), 1u);
    EXPECT_EQ(dialogue.messages[0], "Indexation terminée en 1 secondes"_cp);
    const auto x = d.Chemin() / "REPERTOIRE_QORX_INDEX";
    EXPECT_EQ(Lire(x / "LEXINDEX_F/6m.txt"), Lignes({"maison\t2\t" + kMaj + kMin}));

    // An existing index and any answer but "O": the program ends, the tree untouched.
    test::Ecrire(x / "temoin.txt", "x");
    dialogue.reponses = {"O", "o"};
    dialogue.fichiers = {liste};
    EXPECT_THROW(OperationIndexExploration(ctx), FinProgramme);
    EXPECT_TRUE(fs::exists(x / "temoin.txt"));
    // "O": destroyed and built again; any answer but "N" to the first prompt keeps the case.
    dialogue.reponses = {"n", "O"};
    dialogue.fichiers = {liste};
    OperationIndexExploration(ctx);
    EXPECT_FALSE(fs::exists(x / "temoin.txt"));
    EXPECT_EQ(Lire(x / "LEXINDEX_F/6m.txt"), Lignes({"Maison\t1\t" + kMaj, "maison\t1\t" + kMin}));

    // A text missing from OLBRIN_TT is an execution error that names the file.
    fs::remove(d.Chemin() / "OLBRIN_TT/LEXINDEX/t2.txt");
    dialogue.reponses = {"N", "O"};
    dialogue.fichiers = {liste};
    try {
        OperationIndexExploration(ctx);
        FAIL();
    } catch (const ErreurExecution& e) {
        EXPECT_NE(std::string(e.what()).find("LEXINDEX/t2.txt"), std::string::npos);
    }
}

}  // namespace
}  // namespace telvoris

namespace telvoris {
namespace {

TEST(IndexExploration, LignesAvantLaPremiereMetadonnee) {
    // Lines in front of the first metadata line were never counted by the segment indexer: they
    // give no token to the slices. A text without any metadata line is one empty partition.
    DossierTemporaire d;
    const auto o = d.Chemin() / "OLBRIN_TT";
    const std::string sep = "<---------->";
    test::Ecrire(o / "NB_PARTITIONS/sans.txt", "0");
    test::Ecrire(o / "TEXTE_ETIQ/sans.txt", Lignes({sep, "<M k=1 f=Rien >Rien"}));
    test::Ecrire(o / "LEXINDEX/sans.txt", Lignes({sep}));
    test::Ecrire(o / "TEXTE_NU/sans.txt", Lignes({sep}));
    test::Ecrire(o / "NB_PARTITIONS/avec.txt", "1");
    test::Ecrire(o / "TEXTE_ETIQ/avec.txt",
                 Lignes({sep, "<M k=1 f=Avant >Avant", "<QORX_ATTR A=x >", "<M k=1 f=oui >oui"}));
    test::Ecrire(o / "LEXINDEX/avec.txt", Lignes({sep, "<M f=oui >\t1\t\"\"\""}));
    test::Ecrire(o / "TEXTE_NU/avec.txt", Lignes({sep, "oui"}));
    test::Ecrire(d.Chemin() / "L.txt", Lignes({"sans", "avec"}));
    const auto x = Construire(d.Chemin() / "L.txt", true);
    EXPECT_EQ(Lire(x / "TEXTE_ETIQUETE/1.txt"), "<M k=1 f=oui >");
    EXPECT_EQ(Lire(x / "LONPARTS_M.txt"), Lignes({"0", "1"}));
    EXPECT_EQ(Lire(x / "LEXINDEX/3k.txt"), "");
    EXPECT_EQ(Lire(x / "LEXINDEX/3o.txt"), Lignes({"<M f=oui >\t1\t" + P(1)}));
    EXPECT_EQ(Lire(x / "TEXTE_AFFICHE/1.txt"), "");
    EXPECT_EQ(Lire(x / "TEXTE_AFFICHE/2.txt"), Lignes({"oui"}));
    EXPECT_EQ(Lire(x / "METADONNEES_QORX/A.txt"), Lignes({"", "x"}));
}

}  // namespace
}  // namespace telvoris

namespace telvoris {
namespace {

TEST(IndexExploration, ReecritSurPlaceCommeNeuf) {
    // A tree built over a larger one (longer slices, more display texts, short words counted)
    // ends byte for byte as the same corpus built in an empty folder.
    using test::PartitionNumerotee;
    DossierTemporaire surPlace, neuf;
    const std::string meta = "<QORX_ATTR JOURNAL=A >";
    const auto grand = test::EcrireCorpus(surPlace.Chemin(), {{"t", {PartitionNumerotee(meta, 500), PartitionNumerotee(meta, 40)}}},
                                          {"m3", "m7"});
    Construire(grand, true);
    ASSERT_FALSE(fs::is_empty(DossierIndex(ChargerListeTextes(grand)) / "LEXINDEX_COURTS"));
    const std::vector<test::TexteTest> petit = {{"t", {PartitionNumerotee(meta, 230, 2)}}};
    const auto x = Construire(test::EcrireCorpus(surPlace.Chemin(), petit), true);
    const auto y = Construire(test::EcrireCorpus(neuf.Chemin(), petit), true);
    const auto a = test::Arbo(x), b = test::Arbo(y);
    EXPECT_EQ(a, b);
    EXPECT_EQ(a.count("TEXTE_ETIQUETE/2.txt"), 1u);
    EXPECT_EQ(a.count("TEXTE_ETIQUETE/3.txt"), 0u);
    EXPECT_EQ(a.count("TEXTE_AFFICHE/2.txt"), 0u);
    EXPECT_TRUE(fs::is_empty(x / "LEXINDEX_COURTS"));
}

}  // namespace
}  // namespace telvoris
