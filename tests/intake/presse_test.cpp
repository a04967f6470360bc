#include "intake/presse.hpp"

#include <gtest/gtest.h>

#include <functional>
#include <set>

#include "core/erreurs.hpp"
#include "core/fichiers.hpp"
#include "core/horloge.hpp"
#include "core/texte.hpp"
#include "arbres.hpp"
#include "support/support.hpp"

namespace telvoris {
namespace {

using test::DossierTemporaire;
using test::Lignes;
using test::Lire;
namespace fs = std::filesystem;

fs::path Fixture() { return test::DossierSource() / "tests/fixtures/europresse"; }
fs::path RessourcesPresse() { return Fixture() / "morv_res"; }

// Expected texts are written here in UTF-8 and compared in CP1252.
std::string Cp(const std::string& utf8) { return Utf8VersCp1252(utf8); }
std::string LignesCp(const std::vector<std::string>& lignes) { return Cp(Lignes(lignes)); }

// A corpus root with the two folders the import needs, and the fixture's downloads when asked.
void PreparerRacine(const fs::path& racine, bool avecTelechargements = true) {
    fs::create_directories(racine / "ARTICLES");
    fs::create_directories(racine / "ARCHIVE_BRUT");
    test::Ecrire(racine / "REPERTOIRE.txt", Lignes({"1"}));
    if (avecTelechargements) fs::copy(Fixture() / "ARCHIVE", racine / "ARCHIVE", fs::copy_options::recursive);
}

std::vector<std::string> Lancer(const fs::path& racine, const fs::path& ressources = RessourcesPresse()) {
    test::DialogueScripte dialogue;
    dialogue.fichiers.push_back(racine / "REPERTOIRE.txt");
    HorlogeFixe horloge({2026, 11, 21, 10, 0, 0});
    Contexte ctx{dialogue, horloge, ressources};
    ImporterEuropresse(ctx);
    return dialogue.messages;
}

std::set<std::string> Fichiers(const fs::path& dossier) {
    std::set<std::string> noms;
    for (const auto& e : fs::directory_iterator(dossier)) noms.insert(e.path().filename().string());
    return noms;
}

using test::MessageErreur;

TEST(Presse, TelechargementsDeLaFixtureOctetPourOctet) {
    DossierTemporaire d;
    const fs::path r = d.Chemin();
    PreparerRacine(r);
    const auto messages = Lancer(r);
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_EQ(messages[0], Joindre(TexteChemin(r), "  Terminé"_cp));
    // Seven article files (three, two, none for the download without separator, two), five day
    // files, and the report; tests/fixtures/europresse/attendu holds them as they must be.
    EXPECT_TRUE(test::ArbresIdentiques(Fixture() / "attendu", r));

    // The cases that can break, spelt out. The first article of a file keeps its head, whose
    // line 1 is skipped; the others lose the trailer up to "conventions." and the next line;
    // empty and tab-only lines go.
    EXPECT_EQ(Lire(r / "ARTICLES/2.txt"),
              LignesCp({"Le Courrier du Littoral, no. 18234", "lundi, 3 janvier 2005", "Société",
                        "Cœur de ville : la médiathèque rouvre ses portes",
                        "Le bâtiment, fermé depuis l’été, accueille de nouveau le public dès mardi."}));
    // Two articles of a paper and a day: one file, a line end between them.
    const std::string jour = Lire(r / "ARCHIVE_BRUT/Le_Courrier_du_Littoral_2005_01_03.txt");
    EXPECT_NE(jour.find(Cp("Un dossier à suivre – de près.\r\n\r\n"
                           "<QORX_ATTR JOURNAL=Le_Courrier_du_Littoral DATE=2005_01_03 >\r\nSociété\r\n")),
              std::string::npos);
    // A month name in capitals is no month: the date keeps the year and the day only.
    EXPECT_TRUE(Lire(r / "ARCHIVE_BRUT/Le_Courrier_du_Littoral_2005_05.txt")
                    .starts_with("<QORX_ATTR JOURNAL=Le_Courrier_du_Littoral DATE=2005_05 >\r\nSports\r\n"));
    // A first line without a paper's name takes the name of the article before.
    EXPECT_TRUE(Lire(r / "ARCHIVE_BRUT/Le_Courrier_du_Littoral_2005_01_13.txt")
                    .starts_with("<QORX_ATTR JOURNAL=Le_Courrier_du_Littoral DATE=2005_01_13 >\r\n"));
    EXPECT_EQ(Lire(r / "CONTROLE_PREMIERE_LIGNE.txt"), Lignes({"4\tpb_date", "5\tpb_ligne"}));

    // A second run extends each day file behind the first run's articles.
    Lancer(r);
    EXPECT_EQ(Lire(r / "ARCHIVE_BRUT/Le_Courrier_du_Littoral_2005_01_03.txt"), jour + "\r\n" + jour);
    EXPECT_EQ(Lire(r / "CONTROLE_PREMIERE_LIGNE.txt"), Lignes({"4\tpb_date", "5\tpb_ligne"}));
    EXPECT_EQ(Fichiers(r / "ARCHIVE_BRUT").size(), 5u);
}

TEST(Presse, DecoupageDesTelechargements) {
    DossierTemporaire d;
    const fs::path r = d.Chemin();
    PreparerRacine(r, false);
    // ARCHIVE/1/1.txt: no separator at all, no article. ARCHIVE/1/7.txt: a head without byte-order
    // mark, lines that are a lone LF, CR or tab (skipped) or a blank (kept); then trailers cut
    // fourteen characters in (no "conventions.") or three characters behind that word, landing
    // just before or just after a line end.
    test::Ecrire(r / "ARCHIVE/1/1.txt", "en-t\xC3\xAAte\r\nLe Monde, 3 janvier 2005\r\n");
    test::Ecrire(r / "ARCHIVE/1/7.txt",
                 "ent\xC3\xAAte\r\nA, x\r\n\n\r\n\r\r\n\t\r\n \r\ncorps\r\n"
                 "*/ 0123456789ABC\r\nB1\r\nB2\r\n"
                 "*/ 0123456789AB\r\nC1\r\nC2\r\n"
                 "*/ fin conventions.abc\r\nD1\r\nD2\r\n"
                 "*/ fin conventions.ab\r\nE1\r\nE2\r\n"
                 "*/queue");
    test::DialogueScripte dialogue;
    EXPECT_EQ(DecouperTelechargements(r, dialogue), 5);
    EXPECT_EQ(Lire(r / "ARTICLES/1.txt"), Lignes({"A, x", " ", "corps"}));
    EXPECT_EQ(Lire(r / "ARTICLES/2.txt"), Lignes({"B1", "B2"}));
    EXPECT_EQ(Lire(r / "ARTICLES/3.txt"), Lignes({"C2"}));
    EXPECT_EQ(Lire(r / "ARTICLES/4.txt"), Lignes({"D1", "D2"}));
    EXPECT_EQ(Lire(r / "ARTICLES/5.txt"), Lignes({"E2"}));
    EXPECT_FALSE(fs::exists(r / "ARTICLES/6.txt"));

    // A piece too short to lose its trailer stops the run; no article file is left half-made.
    test::Ecrire(r / "ARCHIVE/2/1.txt", "t\xC3\xAAte\r\nA, x\r\n*/court\r\n*/");
    EXPECT_EQ(MessageErreur([&] { DecouperTelechargements(r, dialogue); }),
              "Article 7 du fichier " + (r / "ARCHIVE/2/1.txt").generic_string() +
                  " : texte trop court pour en ôter le pied de page (« conventions. » et ce qui le précède)");
    EXPECT_FALSE(fs::exists(r / "ARTICLES/7.txt"));

    // Without the ARTICLES folder nothing is created.
    fs::remove_all(r / "ARTICLES");
    fs::remove(r / "ARCHIVE/2/1.txt");
    EXPECT_EQ(MessageErreur([&] { DecouperTelechargements(r, dialogue); }),
              "Dossier absent : " + (r / "ARTICLES").generic_string() +
                  " (l'import ne crée pas ce dossier : créez-le, puis relancez)");
    EXPECT_FALSE(fs::exists(r / "ARTICLES"));
}

// Writes ARTICLES/1.txt, 2.txt, ... from the given article texts (lines joined with CR LF).
void EcrireArticles(const fs::path& racine, const std::vector<std::vector<std::string>>& articles) {
    for (std::size_t i = 0; i < articles.size(); ++i)
        test::Ecrire(racine / "ARTICLES" / (std::to_string(i + 1) + ".txt"), LignesCp(articles[i]));
}

BilanRegroupement Regrouper(const fs::path& racine) {
    test::DialogueScripte dialogue;
    return RegrouperArticles(racine, ChargerNomsDeMois(RessourcesPresse()), 0, dialogue);
}

TEST(Presse, NomsDeJournauxEtDates) {
    DossierTemporaire d;
    const fs::path r = d.Chemin();
    PreparerRacine(r, false);
    EcrireArticles(r, {
                          {", sans nom", "lundi, 3 janvier 2005", "premier"},         // name still empty
                          {"Le Monde, 3 janvier 2005", "lundi, 13 février 2005", "a"},  // _13, accented month
                          {"Le Monde , soir", "mardi, 1 décembre 2005, p. 4", "b"},     // trailing blank
                          {"La Croix", "x, 7 Août 2006", "c"},                          // no comma; case counts
                          {"Le Monde, 3", "jeudi, 3 octobre 2005 12:00"},              // no body
                      });
    const auto bilan = Regrouper(r);
    EXPECT_EQ(bilan.articles, 5);
    EXPECT_EQ(bilan.fichiers, 5);
    EXPECT_EQ(bilan.anomalies, 2);
    EXPECT_EQ(Lire(r / "ARCHIVE_BRUT/_2005_01_03.txt"), Lignes({"<QORX_ATTR JOURNAL= DATE=2005_01_03 >", "premier"}));
    EXPECT_EQ(Lire(r / "ARCHIVE_BRUT/Le_Monde_2005_02_13.txt"),
              Lignes({"<QORX_ATTR JOURNAL=Le_Monde DATE=2005_02_13 >", "a"}));
    EXPECT_EQ(Lire(r / "ARCHIVE_BRUT/Le_Monde__2005_12_01.txt"),
              Lignes({"<QORX_ATTR JOURNAL=Le_Monde_ DATE=2005_12_01 >", "b"}));
    EXPECT_EQ(Lire(r / "ARCHIVE_BRUT/La_Croix_2006_07.txt"), Lignes({"<QORX_ATTR JOURNAL=La_Croix DATE=2006_07 >", "c"}));
    EXPECT_EQ(Lire(r / "ARCHIVE_BRUT/Le_Monde_2005_10_03.txt"), Lignes({"<QORX_ATTR JOURNAL=Le_Monde DATE=2005_10_03 >"}));
    EXPECT_EQ(Lire(r / "CONTROLE_PREMIERE_LIGNE.txt"), Lignes({"1\tpb_ligne", "4\tpb_date"}));
}

TEST(Presse, FinNormaleEtVraisDefauts) {
    DossierTemporaire d;
    const fs::path r = d.Chemin();
    PreparerRacine(r, false);
    // No download at all: the run ends normally, with an empty report.
    EXPECT_EQ(Lancer(r), std::vector<std::string>{Joindre(TexteChemin(r), "  Terminé"_cp)});
    EXPECT_EQ(Lire(r / "CONTROLE_PREMIERE_LIGNE.txt"), "");

    // A date line without a comma stops the run; what was regrouped before stays.
    EcrireArticles(r, {{"A, 1", "lundi, 3 mars 2005", "un"}, {"B, 2", "pas de virgule"}, {"C, 3", "x, 4 mars 2005"}});
    EXPECT_EQ(MessageErreur([&] { Lancer(r); }),
              "Article 2 : ligne de date sans virgule (« pas de virgule ») : " + (r / "ARTICLES/2.txt").generic_string());
    EXPECT_EQ(Lire(r / "ARCHIVE_BRUT/A_2005_03_03.txt"), Lignes({"<QORX_ATTR JOURNAL=A DATE=2005_03_03 >", "un"}));
    EXPECT_FALSE(fs::exists(r / "ARCHIVE_BRUT/C_2005_03_04.txt"));

    EcrireArticles(r, {{"A, 1", "lundi, 3 mars"}});
    EXPECT_EQ(MessageErreur([&] { Regrouper(r); }),
              "Article 1 : ligne de date incomplète, jour, mois et année attendus après la virgule (« lundi, 3 mars ») : " +
                  (r / "ARTICLES/1.txt").generic_string());
    EcrireArticles(r, {{"A, 1"}});
    EXPECT_EQ(MessageErreur([&] { Regrouper(r); }),
              "Article 1 : ligne de date absente : " + (r / "ARTICLES/1.txt").generic_string());

    // ARCHIVE_BRUT has to stand.
    EcrireArticles(r, {{"A, 1", "lundi, 3 mars 2005", "un"}});
    fs::remove_all(r / "ARCHIVE_BRUT");
    EXPECT_EQ(MessageErreur([&] { Regrouper(r); }),
              "Impossible de créer le fichier : " + (r / "ARCHIVE_BRUT/A_2005_03_03.txt").generic_string());

    // A month table of fewer than twelve lines is refused before anything is asked.
    DossierTemporaire res;
    test::Ecrire(res.Chemin() / "utilitaires/noms_de_mois.txt", Lignes({"janvier", "f\xE9vrier"}));
    EXPECT_EQ(MessageErreur([&] { Lancer(r, res.Chemin()); }),
              "Table des mois incomplète : " + (res.Chemin() / "utilitaires/noms_de_mois.txt").generic_string() +
                  " (2 lignes au lieu de 12)");
}

TEST(Presse, BorneDesArticlesRegroupes) {
    DossierTemporaire d;
    const fs::path r = d.Chemin();
    PreparerRacine(r, false);
    const std::string article = Lignes({"P, x", "lundi, 3 mars 2005", "corps"});
    for (long long a = 1; a <= MAX_ARTICLES_REGROUPES + 1; ++a)
        test::Ecrire(r / "ARTICLES" / (std::to_string(a) + ".txt"), article);
    const auto bilan = Regrouper(r);
    // The article past the bound stays unread.
    EXPECT_EQ(bilan.articles, MAX_ARTICLES_REGROUPES);
    const std::string jour = Lire(r / "ARCHIVE_BRUT/P_2005_03_03.txt");
    const std::string un = Lignes({"<QORX_ATTR JOURNAL=P DATE=2005_03_03 >", "corps"});
    EXPECT_EQ(jour.size(), static_cast<std::size_t>(MAX_ARTICLES_REGROUPES) * (un.size() + 2) - 2);
    EXPECT_EQ(jour.substr(0, un.size() + 2), un + "\r\n");
}

}  // namespace
}  // namespace telvoris
