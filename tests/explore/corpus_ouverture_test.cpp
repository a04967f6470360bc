#include <gtest/gtest.h>

#include "core/erreurs.hpp"
#include "core/horloge.hpp"
#include "core/liste_textes.hpp"
#include "core/texte.hpp"
#include "corpus_test.hpp"
#include "explore/corpus.hpp"
#include "explore/indexation.hpp"
#include "support/support.hpp"

namespace telvoris {
namespace {

using test::DossierTemporaire;
using test::PartitionTest;
namespace fs = std::filesystem;

// Four partitions of 1, 2, 3 and 4 tokens with dates out of order, under "DATE" and "Date".
fs::path Corpus(const fs::path& racine) {
    const auto liste = test::EcrireCorpus(
        racine, {{"t",
                  {test::PartitionNumerotee("<QORX_ATTR DATE=2005-01 Date=2005-01 TITRE=Un JOURNAL=A >", 1, 1),
                   test::PartitionNumerotee("<QORX_ATTR DATE=2003-02 Date=2003-02 JOURNAL=B >", 2, 2),
                   test::PartitionNumerotee("<QORX_ATTR DATE=2005-03 Date=2005-03 TITRE=Trois JOURNAL= >", 3, 4),
                   test::PartitionNumerotee("<QORX_ATTR DATE=2003-09 Date=2003-09 JOURNAL=A >", 4, 7)}}});
    test::DialogueScripte d;
    const auto l = ChargerListeTextes(liste);
    fs::create_directories(DossierIndex(l));
    ConstruireIndex(l, DossierIndex(l), true, d);
    return liste;
}

TEST(OuvertureCorpus, IndexManquant) {
    DossierTemporaire d;
    const auto liste = Corpus(d.Chemin());
    fs::remove_all(d.Chemin() / "REPERTOIRE_QORX_INDEX" / "DICTIONNAIRES");
    try {
        OuvrirCorpus(liste);
        FAIL();
    } catch (const FinProgramme& e) {
        EXPECT_EQ(std::string(e.what()), "Un dossier d'indexation manque dans 'OLBRIN_TT'. Rédindexez et recommencez."_cp);
    }
    EXPECT_THROW(OuvrirCorpus(d.Chemin() / "AUTRE.txt"), FinProgramme);
}

TEST(OuvertureCorpus, PartitionsTitresEtTitresCourts) {
    DossierTemporaire d;
    const auto liste = Corpus(d.Chemin());
    EtatCorpus e = OuvrirCorpus(liste);
    EXPECT_EQ(e.variables, (std::vector<std::string>{"DATE", "Date", "TITRE", "JOURNAL"}));
    EXPECT_EQ(e.exempleDate, "2005-01");
    test::DialogueScripte dialogue;
    ValiderCorpus(e, {}, dialogue);
    EXPECT_EQ(e.NB_PARTS, 4);
    EXPECT_EQ(e.NB_MOTS, 10);
    EXPECT_EQ(e.LONG_PART, (std::vector<long long>{0, 1, 2, 3, 4}));
    EXPECT_DOUBLE_EQ(e.PART_CORPUS[3], 0.3);
    EXPECT_EQ(e.TITRE_PART[1], "1.");
    EXPECT_EQ(e.NB_CLASSES, 0);
    EXPECT_EQ(e.titresCourts, (std::vector<std::string>{"1", "2", "3", "4"}));
    EXPECT_EQ(e.PartitionDe(1), 1);
    EXPECT_EQ(e.PartitionDe(3), 2);
    EXPECT_EQ(e.PartitionDe(4), 3);
    EXPECT_EQ(e.PartitionDe(10), 4);

    // The title variable stands first whatever the order of the boxes; an empty value reads "?".
    ValiderCorpus(e, {{3, 2}, std::nullopt}, dialogue);
    EXPECT_EQ(e.TITRE_PART[1], "1. TITRE=Un ||| JOURNAL=A");
    EXPECT_EQ(e.TITRE_PART[2], "2. TITRE=? ||| JOURNAL=B");
    EXPECT_EQ(e.TITRE_PART[3], "3. TITRE=Trois ||| JOURNAL=?");

    // Short titles: equal neighbours make one entry of the navigator's list.
    test::Ecrire(e.PATH_INDEX / "METADONNEES_QORX/TITRE_COURT.txt", test::Lignes({"A", "A", "B", "A"}));
    ValiderCorpus(e, {}, dialogue);
    EXPECT_EQ(e.titresCourts, (std::vector<std::string>{"A", "B", "A"}));
    EXPECT_EQ(e.TITRE_COURT[2], "A");
    EXPECT_TRUE(dialogue.messages.empty());
}

TEST(OuvertureCorpus, ClassesDeContrasteEtDate) {
    DossierTemporaire d;
    const auto liste = Corpus(d.Chemin());
    EtatCorpus e = OuvrirCorpus(liste);
    test::DialogueScripte dialogue;
    // "DATE" sorts its classes; "Date" keeps the order of first appearance.
    dialogue.reponses = {"1-4", "1-4"};
    ValiderCorpus(e, {{}, 0}, dialogue);
    EXPECT_EQ(e.NB_CLASSES, 2);
    EXPECT_EQ(e.VALEUR_CLASSE, (std::vector<std::string>{"", "2003", "2005"}));
    EXPECT_EQ(e.LONG_CLASSE, (std::vector<long long>{0, 6, 4}));
    EXPECT_EQ(e.CLASSE_PART, (std::vector<int>{0, 2, 1, 2, 1}));
    EXPECT_EQ(e.PARTITIONS_CLASSE[1], (std::vector<long long>{2, 4}));
    EXPECT_DOUBLE_EQ(e.PART_CLASSE[1], 0.6);
    EXPECT_EQ(e.texteContraste, "DATE\r\n");
    ValiderCorpus(e, {{}, 1}, dialogue);
    EXPECT_EQ(e.VALEUR_CLASSE, (std::vector<std::string>{"", "2005", "2003"}));
    EXPECT_EQ(e.CLASSE_PART, (std::vector<int>{0, 1, 2, 1, 2}));
    // Without a cut the whole value counts; a cut past the end of a value gives an empty class.
    ValiderCorpus(e, {{}, 3}, dialogue);
    EXPECT_EQ(e.VALEUR_CLASSE, (std::vector<std::string>{"", "A", "B", ""}));
    dialogue.reponses = {"6-2"};
    ValiderCorpus(e, {{}, 0}, dialogue);
    EXPECT_EQ(e.VALEUR_CLASSE, (std::vector<std::string>{"", "01", "02", "03", "09"}));
    EXPECT_EQ(e.DATE_DEBUT, 6);
    EXPECT_EQ(e.DATE_LONG, 2);

    // The three wrong answers end the program with their messages.
    const std::vector<std::pair<std::string, std::string>> cas = {
        {"1/4", "Vous ne devez saisir que des chiffres. Recommencez"},
        {"14", "Vous devez séparer les deux rubriques de votre réponse par un tiret. Recommencez"},
        {"", "Vous devez séparer les deux rubriques de votre réponse par un tiret. Recommencez"},
        {"1-0", "Le nombre de caractères pertinents ne peut être égal à zéro. Recommencez"},
        {"3-", "Le nombre de caractères pertinents ne peut être égal à zéro. Recommencez"}};
    for (const auto& [reponse, message] : cas) {
        dialogue.reponses = {reponse};
        try {
            ValiderCorpus(e, {{}, 0}, dialogue);
            ADD_FAILURE() << reponse;
        } catch (const FinProgramme& f) {
            EXPECT_EQ(std::string(f.what()), Utf8VersCp1252(message)) << reponse;
        }
    }
}

TEST(OuvertureCorpus, TablesLuesAuBesoin) {
    DossierTemporaire d;
    const auto liste = Corpus(d.Chemin());
    EtatCorpus e = OuvrirCorpus(liste);
    const auto& t = e.Table(DossierIndexe::Formes, CalculerCasier("m10"));
    ASSERT_EQ(t.lignes.size(), 1u);
    const auto* l = t.Trouver("m10");
    ASSERT_NE(l, nullptr);
    EXPECT_EQ(l->compte, 1);
    EXPECT_EQ(l->colonne, "<M f=m10 >");
    EXPECT_EQ(t.Trouver("m1"), nullptr);
    EXPECT_EQ(&e.Table(DossierIndexe::Formes, CalculerCasier("m10")), &t);
    EXPECT_TRUE(e.Categories().lignes.empty());
}

}  // namespace
}  // namespace telvoris

namespace telvoris {
namespace {

TEST(OuvertureCorpus, OperationOuvrir) {
    DossierTemporaire d;
    const auto liste = Corpus(d.Chemin());
    HorlogeFixe horloge({2026, 11, 21, 10, 0, 0});
    test::DialogueScripte dialogue;
    Contexte ctx{dialogue, horloge, test::RessourcesTest()};
    // One prompt per variable for the titles, then the contrast variable, then the date cut.
    dialogue.fichiers = {liste};
    dialogue.reponses = {"N", "N", "O", "N", "DATE", "1-4"};
    OperationOuvrirCorpus(ctx);
    ASSERT_EQ(dialogue.messages.size(), 2u);
    EXPECT_EQ(dialogue.messages[0], TexteInstructionsVariables());
    EXPECT_EQ(dialogue.messages[1], "4 partitions, 10 occurrences.\r\nDATE\r\n2003\t6\r\n2005\t4\r\n");
    dialogue.fichiers = {liste};
    dialogue.reponses = {"N", "N", "N", "N", "AUTEUR"};
    EXPECT_THROW(OperationOuvrirCorpus(ctx), ErreurExecution);
}

}  // namespace
}  // namespace telvoris
