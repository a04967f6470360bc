#include "intake/echantillons.hpp"

#include <gtest/gtest.h>

#include <functional>

#include "core/erreurs.hpp"
#include "core/horloge.hpp"
#include "core/texte.hpp"
#include "support/support.hpp"

namespace telvoris {
namespace {

using test::DossierTemporaire;
using test::Lignes;
using test::Lire;
namespace fs = std::filesystem;

std::string Cp(const std::string& utf8) { return Utf8VersCp1252(utf8); }

std::vector<std::string> Lancer(void (*operation)(Contexte&), const fs::path& liste,
                                std::deque<std::string> reponses = {}) {
    test::DialogueScripte dialogue;
    dialogue.fichiers.push_back(liste);
    dialogue.reponses = std::move(reponses);
    HorlogeFixe horloge({2026, 11, 21, 10, 7, 0});
    Contexte ctx{dialogue, horloge, test::RessourcesTest()};
    operation(ctx);
    return dialogue.messages;
}

using test::MessageErreur;

TEST(Echantillons, ListeEchantillonEtSousCorpus) {
    DossierTemporaire d;
    const fs::path r = d.Chemin();
    std::vector<std::string> noms;
    for (int i = 1; i <= 25; ++i) noms.push_back(Joindre("t", std::to_string(i)));
    test::Ecrire(r / "REPERTOIRE.txt", Lignes(noms));
    EXPECT_EQ(Lancer(&OperationRepertoireEchantillon, r / "REPERTOIRE.txt", {"10"}),
              std::vector<std::string>{Cp("Terminé")});
    EXPECT_EQ(Lire(r / "REPETOIRE_ECHANTILLON_10.txt"), Lignes({"t10", "t20"}));
    Lancer(&OperationRepertoireEchantillon, r / "REPERTOIRE.txt", {"26"});
    EXPECT_EQ(Lire(r / "REPETOIRE_ECHANTILLON_26.txt"), "");
    EXPECT_EQ(MessageErreur([&] { Lancer(&OperationRepertoireEchantillon, r / "REPERTOIRE.txt", {Cp("zéro")}); }),
              "Réponse non valable à « Tous les combien ? » : « zéro » (un nombre entier positif est attendu)");

    // The sub-corpus: every name holding the key, from the folder named in the first answer.
    test::Ecrire(r / "liste.txt", Lignes({"LM_2005_01_03", "LM_2005_02_03", "LF_2005_01_04"}));
    for (const char* nom : {"LM_2005_01_03", "LM_2005_02_03", "LF_2005_01_04"}) {
        test::Ecrire(r / "ARCHIVE_BRUT" / (std::string(nom) + ".txt"), std::string("brut ") + nom);
        test::Ecrire(r / "OLBRIN_TT" / (std::string(nom) + ".txt"), std::string("tague ") + nom);
    }
    EXPECT_TRUE(Lancer(&OperationExtraireSousCorpus, r / "liste.txt", {"ARCHIVE_BRUT", "2005_01"}).empty());
    const fs::path extrait = r / "EXTRAIT_261121_1007";
    EXPECT_EQ(Lire(extrait / "LM_2005_01_03.txt"), "brut LM_2005_01_03");
    EXPECT_EQ(Lire(extrait / "LF_2005_01_04.txt"), "brut LF_2005_01_04");
    EXPECT_FALSE(fs::exists(extrait / "LM_2005_02_03.txt"));
    // Same minute, same folder: the tagged copy replaces the raw one.
    Lancer(&OperationExtraireSousCorpus, r / "liste.txt", {"OLBRIN_TT", "LF"});
    EXPECT_EQ(Lire(extrait / "LF_2005_01_04.txt"), "tague LF_2005_01_04");
    EXPECT_EQ(std::distance(fs::directory_iterator(extrait), fs::directory_iterator()), 2);
    fs::remove(r / "OLBRIN_TT/LM_2005_02_03.txt");
    EXPECT_EQ(MessageErreur([&] { Lancer(&OperationExtraireSousCorpus, r / "liste.txt", {"OLBRIN_TT", "LM"}); }),
              "Fichier introuvable : " + (r / "OLBRIN_TT/LM_2005_02_03.txt").generic_string());
}

// An article of the raw text: its metadata line and one line of body.
std::string Article(int n, const std::string& corps) {
    return "<QORX_ATTR N\xB0=" + std::to_string(n) + " >\r\n" + corps + "\r\n";
}
// A body of 100 characters from `debut` padded with dots, then `fin`.
std::string Corps(const std::string& debut, const std::string& fin = "") {
    return debut + std::string(100 - debut.size(), '.') + fin;
}

TEST(Echantillons, ControleDesDoublons) {
    DossierTemporaire d;
    const fs::path r = d.Chemin();
    // The body runs from behind ">" to the next "<QORX": with its two line ends, 96 characters
    // of text make a body of 100 (a notice, not counted) and 97 a body of 101 (an article).
    const std::string a1 = Article(1, Corps("Le port de Brévannes")), a2 = Article(2, std::string(96, 'c')),
                      a3 = Article(3, Corps("Le port de Brévannes", " autre fin")),
                      a4 = "<QORX sans chevron\r\n", a5 = Article(5, std::string(97, 'x')),
                      a6 = Article(6, Corps("Xe port de Brévannes"));
    test::Ecrire(r / "ARCHIVE_BRUT/a.txt", "avant\r\n" + a1 + a2 + a3 + a4 + a5 + a6);
    test::Ecrire(r / "ARCHIVE_BRUT/b.txt", a6);
    test::Ecrire(r / "ARCHIVE_BRUT/c.txt", Article(1, Corps("seul")));
    test::Ecrire(r / "liste.txt", Lignes({"a", "b", "c"}));
    EXPECT_EQ(Lancer(&OperationControleDoublons, r / "liste.txt"), std::vector<std::string>{Cp("Terminé")});
    // a2 is a notice of 100 characters: rejected, not counted. a3 begins as a1: a duplicate.
    EXPECT_EQ(Lire(r / "ARCHIVE_BRUT_NEW/a.txt"), a1 + "\r\n" + a5 + "\r\n" + a6 + "\r\n");
    EXPECT_EQ(Lire(r / "ARCHIVE_BRUT_REJETS/a.txt"), a2 + "\r\n" + a3 + "\r\n" + a4 + "\r\n");
    // The ring runs over the texts: b's only article repeats a's last one.
    EXPECT_FALSE(fs::exists(r / "ARCHIVE_BRUT_NEW/b.txt"));
    EXPECT_EQ(Lire(r / "ARCHIVE_BRUT_REJETS/b.txt"), a6 + "\r\n");
    EXPECT_EQ(Lire(r / "ARCHIVE_BRUT_NEW/c.txt"), Article(1, Corps("seul")) + "\r\n");
    EXPECT_FALSE(fs::exists(r / "ARCHIVE_BRUT_REJETS/c.txt"));
}

TEST(Echantillons, AnneauDesTroisCentsDerniersArticles) {
    // The same body 300 articles on is a duplicate; 301 articles on, it has left the ring.
    for (const int ecart : {300, 301}) {
        DossierTemporaire d;
        const fs::path r = d.Chemin();
        const std::string repete = Article(0, Corps("repris"));
        std::string premier = repete, second;
        for (int i = 1; i < ecart; ++i) (i < 150 ? premier : second) += Article(i, Corps("article " + std::to_string(i)));
        second += repete;
        test::Ecrire(r / "ARCHIVE_BRUT/un.txt", premier);
        test::Ecrire(r / "ARCHIVE_BRUT/deux.txt", second);
        test::Ecrire(r / "liste.txt", Lignes({"un", "deux"}));
        test::DialogueScripte dialogue;
        const auto bilan = ControlerDoublons(ChargerListeTextes(r / "liste.txt"), dialogue);
        EXPECT_EQ(bilan.gardes + bilan.rejetes, ecart + 1);
        EXPECT_EQ(bilan.rejetes, ecart == 300 ? 1 : 0) << ecart;
        EXPECT_EQ(fs::exists(r / "ARCHIVE_BRUT_REJETS/deux.txt"), ecart == 300);
        EXPECT_TRUE(Lire(r / "ARCHIVE_BRUT_NEW/un.txt").starts_with(repete + "\r\n"));
    }
    // Keys keep moving through the ring far past its size.
    AnneauDoublons anneau;
    for (int i = 0; i < 1000; ++i) EXPECT_FALSE(anneau.EstDoublon("\r\n" + Corps(std::to_string(i)))) << i;
    EXPECT_TRUE(anneau.EstDoublon("\r\n" + Corps("700")));
    EXPECT_FALSE(anneau.EstDoublon("\r\n" + Corps("699")));
    EXPECT_EQ(anneau.Articles(), 1002);
}

TEST(Echantillons, FiltrageDesRedites) {
    DossierTemporaire d;
    const fs::path r = d.Chemin();
    test::Ecrire(r / "ARCHIVE_BRUT/t1.txt",
                 Cp(Lignes({"", "préambule", "<QORX_ATTR N°=1 >", "corps A", "", "<QORX_ATTR N°=2 >", "corps B",
                            "<QORX_ATTR N°=3 >", "corps A", "<QORX_ATTR N°=4 >", "corps C dernier"})));
    test::Ecrire(r / "ARCHIVE_BRUT/t2.txt", Cp(Lignes({"<QORX_ATTR N°=1 >", "seul article"})));
    test::Ecrire(r / "ARCHIVE_BRUT/t3.txt",
                 Cp(Lignes({"<QORX_ATTR N°=1 >", "corps B", "<QORX_ATTR N°=2 >", "corps D", "<QORX_ATTR N°=3 >", "x"})));
    test::Ecrire(r / "liste.txt", Lignes({"t1", "t2", "t3"}));
    EXPECT_EQ(Lancer(&OperationFiltrageRedites, r / "liste.txt"), std::vector<std::string>{Cp("Terminé")});
    // The text before the first metadata line comes out behind an empty head; the last article
    // of each text is left out.
    EXPECT_EQ(Lire(r / "ARCHIVE_BRUT_FILTRE/t1.txt"),
              Cp(Lignes({"", "préambule", "<QORX_ATTR N°=1 >", "corps A", "<QORX_ATTR N°=2 >", "corps B"})));
    // A text with a single article gives nothing; bodies are remembered across texts.
    EXPECT_FALSE(fs::exists(r / "ARCHIVE_BRUT_FILTRE/t2.txt"));
    EXPECT_EQ(Lire(r / "ARCHIVE_BRUT_FILTRE/t3.txt"), Cp(Lignes({"<QORX_ATTR N°=2 >", "corps D"})));
    EXPECT_EQ(Lire(r / "REPERTOIRE_NEW.txt"), Lignes({"t1", "t3"}));

    // A cell of the body table holds at most 20,000 bodies.
    TableCorps table;
    for (std::size_t i = 0; i < MAX_CORPS_CASE; ++i) ASSERT_TRUE(table.Ajouter(Joindre("m", std::to_string(i))));
    EXPECT_FALSE(table.Ajouter("m7"));
    EXPECT_TRUE(table.Ajouter("n0"));
    EXPECT_EQ(MessageErreur([&] { table.Ajouter("m-nouveau"); }),
              "Limite dépassée : plus de 20000 textes d'articles de même initiale déjà rencontrés (MAX_CORPS_CASE = "
              "20000)");
}

}  // namespace
}  // namespace telvoris
