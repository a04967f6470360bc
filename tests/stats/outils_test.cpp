#include "stats/outils_lexiques.hpp"
#include "stats/outils_matrices.hpp"

#include <gtest/gtest.h>

#include "core/texte.hpp"
#include "stats/outils.hpp"

namespace telvoris {
namespace {

using test::Banc;
using test::Lignes;

TEST(OutilsLexiques, ZipfSeuilEtLimite) {
    Banc b;
    const auto lex = b.racine / "LEX.txt";
    test::Ecrire(lex, Lignes({"de\t12", "le\t3", "la\t3", "un\t5", "chat\t1"}));
    b.dialogue.reponses = {"5"};
    b.dialogue.fichiers = {lex};
    OperationZipf(b.ctx);
    // The count at the threshold is skipped, as is the one above it.
    EXPECT_EQ(b.Sortie("LEX_ZIPF.txt"), Lignes({"5\t0", "4\t0", "3\t2", "2\t0", "1\t1"}));
    EXPECT_EQ(b.dialogue.messages, (std::vector<std::string>{std::string("Terminé"_cp)}));
    // Above 10,000, the first item of a higher count fails.
    test::Ecrire(lex, Lignes({"de\t10001", "le\t3"}));
    b.dialogue.reponses = {"20000"};
    b.dialogue.fichiers = {lex};
    EXPECT_NE(test::MessageErreur([&] { OperationZipf(b.ctx); }).find("MAX_SEUIL_ZIPF = 10000"), std::string::npos);
}

TEST(OutilsLexiques, FiltrageParChaineTroisPositionsEtMauvaiseReponse) {
    Banc b;
    const auto lex = b.racine / "L.txt";
    test::Ecrire(lex, Lignes({"maison\t4", "saison\t3", "sais\t2", "oison\t1"}));
    for (const std::string pos : {"I", "D", "F"}) {
        b.dialogue.reponses = {"ais", pos};
        b.dialogue.fichiers = {lex};
        OperationFiltrageLexique(b.ctx);
    }
    EXPECT_EQ(b.Sortie("L_FILTRE_ais_I.txt"), Lignes({"maison\t4", "saison\t3", "sais\t2"}));
    EXPECT_EQ(b.Sortie("L_FILTRE_ais_F.txt"), Lignes({"sais\t2"}));
    b.dialogue.reponses = {"sai", "D"};
    b.dialogue.fichiers = {lex};
    OperationFiltrageLexique(b.ctx);
    EXPECT_EQ(b.Sortie("L_FILTRE_sai_D.txt"), Lignes({"saison\t3", "sais\t2"}));
    b.dialogue.messages.clear();
    b.dialogue.reponses = {"ais", "X"};
    OperationFiltrageLexique(b.ctx);
    EXPECT_EQ(b.dialogue.messages,
              (std::vector<std::string>{std::string("Votre choix de position n'est pas correct. Recommencez"_cp)}));
    EXPECT_EQ(b.dialogue.titresFichiers.size(), 4u);  // no file dialog after the wrong answer
}

TEST(OutilsLexiques, EffectifsSurListeEtSommeDesPartiels) {
    Banc b;
    const auto lex = b.racine / "LEX.txt", liste = b.racine / "CHOIX.txt";
    test::Ecrire(lex, Lignes({"chat\t7", "chien\t4", "chat\t2", "12\t3"}));
    test::Ecrire(liste, Lignes({"chien\t0", "zèbre"_cp.data(), "chat", "12"}));
    b.dialogue.fichiers = {lex, liste};
    OperationEffectifsSurListe(b.ctx);
    EXPECT_EQ(b.Sortie("CHOIX_QUANT.txt"), Lignes({"chien\t4", std::string("zèbre\tINCONNU"_cp), "chat\t7", "12\t3"}));

    test::Ecrire(b.racine / "PARTIELS" / "p1.txt", Lignes({"chat\t3", "le\t10", "vent\t1"}));
    test::Ecrire(b.racine / "PARTIELS" / "p2.txt", Lignes({"le\t2", "chien\t3", "vent\t2", "2024\t9"}));
    b.dialogue.fichiers = {b.Liste({"p1", "p2"}, "partiels.txt")};
    OperationAdditionnerLexiques(b.ctx);
    // The number counts in N and is written nowhere, as in every lexicon.
    EXPECT_EQ(b.Sortie("LEXIQUE_TOTAL.txt"), Lignes({"le\t12", "chat\t3", "vent\t3", "chien\t3"}));
    EXPECT_EQ(b.dialogue.messages.back(), std::string("Terminé : N=30"_cp));
}

TEST(OutilsLexiques, SelectionDItemsExclusNombresCategoriesEtMessages) {
    Banc b;
    test::Ecrire(b.ctx.ressources / "utilitaires" / "outils_1.txt", Lignes({"de", "le"}));
    const auto lex = b.racine / "LEMMES.txt";
    test::Ecrire(lex, Lignes({"de_P\t90", "chat_SM\t40", "2024_U\t30", "ledit_J\t20", "porte_SF\t10", "manger_V\t9",
                               "le_D\t8", "lune_SF\t7"}));
    ParametresSelection p;
    p.nombre = "3";
    p.exclus = "standard";
    p.filtre = std::string("par catégories"_cp);
    p.nombres = false;
    b.dialogue.reponses = {"SF/SM"};
    b.dialogue.fichiers = {lex};
    SelectionItems(b.ctx, p);
    // "de" is excluded as a whole line of the list, "ledit" is not; numbers and other categories go.
    EXPECT_EQ(b.Sortie("LEMMES_SL_3.txt"), Lignes({"chat_SM\t40", "porte_SF\t10", "lune_SF\t7"}));
    EXPECT_EQ(b.dialogue.questions[0], std::string("Indiquez les catégories à retenir (modèle : SF ou SF/SM/J/R/V...)."_cp));

    p.nombre = "4";
    p.exclus = "aucune";
    p.filtre = "sans filtrage";
    p.nombres = true;
    b.dialogue.fichiers = {lex};
    SelectionItems(b.ctx, p);
    EXPECT_EQ(b.Sortie("LEMMES_SL_4.txt"), Lignes({"de_P\t90", "chat_SM\t40", "2024_U\t30", "ledit_J\t20"}));

    b.dialogue.messages.clear();
    p.nombre = "";
    SelectionItems(b.ctx, p);
    p.nombre = "3a";
    SelectionItems(b.ctx, p);
    EXPECT_EQ(b.dialogue.messages,
              (std::vector<std::string>{std::string("Vous devez renseigner le champ 'nombre d'items à retenir'"_cp),
                                        std::string("Le champ 'nombre d'items à retenir' ne doit contenir qu'un nombre"_cp)}));
    // The operation asks the panel's fields first, then runs the selection.
    b.dialogue.reponses = {"1", "aucune", "sans filtrage", "oui"};
    b.dialogue.fichiers = {lex};
    OperationSelectionItems(b.ctx);
    EXPECT_EQ(b.Sortie("LEMMES_SL_1.txt"), Lignes({"de_P\t90"}));
}

TEST(OutilsMatrices, AdditionExtractionEtComparaison) {
    Banc b;
    const auto m1 = b.racine / "A" / "M1.txt", m2 = b.racine / "M2.txt";
    test::Ecrire(m1, Lignes({"\tc1\tc2", "r1\t1\t2", "r2\t3\t4,5"}));
    test::Ecrire(m2, Lignes({"\tx\ty", "s1\t10\t20", "s2\t30\t40"}));
    b.dialogue.reponses = {"2"};
    b.dialogue.fichiers = {m1, m2};
    OperationAdditionnerMatrices(b.ctx);
    // The header and row names of the first are kept.
    EXPECT_EQ(b.Sortie("A/MATRICE_TOTALE.txt"), Lignes({"\tc1\tc2", "r1\t11\t22", "r2\t33\t44,5"}));
    EXPECT_EQ(b.dialogue.titresFichiers, (std::vector<std::string>{std::string("Matrice n°1 ?"_cp), std::string("Matrice n°2 ?"_cp)}));

    const auto brut = b.racine / "AFC_MICRO" / "m" / "MICRO_BRUT.txt";
    test::Ecrire(brut, Lignes({"\tchat\tchien", "lait\t4\t0", "os\t1\t6"}));
    test::Ecrire(b.racine / "AFC_MICRO" / "m" / "MICRO_ECARTS.txt", Lignes({"\tchat\tchien", "lait\t2,5\t-1", "os\t2\t3,25"}));
    b.dialogue.reponses = {"2"};
    b.dialogue.fichiers = {brut};
    OperationExtractionTableau(b.ctx);
    EXPECT_EQ(b.Sortie("AFC_MICRO/m/MICRO_BRUT/EXTRACTION.txt"), Lignes({"lait\tchat\t4\t2,5", "os\tchien\t6\t3,25"}));
    b.dialogue.reponses = {"2"};
    b.dialogue.fichiers = {m2};
    EXPECT_NE(test::MessageErreur([&] { OperationExtractionTableau(b.ctx); }).find("MICRO_BRUT"), std::string::npos);

    // Row r1: x = 1, 2; y = 10, 20; m = 33 / 4 = 8,25 (r2: 77,5 / 4 = 19,375): (1 - 8,25)(10 - 8,25)/8,25 + (2 - 8,25)(20 - 8,25)/8,25.
    b.dialogue.fichiers = {m1, m2};
    OperationComparerMatrices(b.ctx);
    const std::string comp = b.Sortie("A/M1_COMP_M2.txt");
    const double r1 = ((1 - 8.25) * (10 - 8.25) + (2 - 8.25) * (20 - 8.25)) / 8.25;
    const double r2 = ((3 - 19.375) * (30 - 19.375) + (4.5 - 19.375) * (40 - 19.375)) / 19.375;
    auto nombre = [](std::string t) {
        for (char& c : t)
            if (c == ',') c = '.';
        return std::stod(t);
    };
    const auto fin1 = comp.find("\r\n");
    ASSERT_EQ(comp.substr(0, 3), "r1\t");
    EXPECT_NEAR(nombre(comp.substr(3, fin1 - 3)), r1, 1e-12);
    const auto debut2 = fin1 + 2;
    ASSERT_EQ(comp.substr(debut2, 3), "r2\t");
    EXPECT_NEAR(nombre(comp.substr(debut2 + 3, comp.size() - debut2 - 5)), r2, 1e-12);
    // A row of zeros has a mean of 0: the division fails and is named.
    test::Ecrire(m2, Lignes({"\tx\ty", "s1\t0\t0"}));
    test::Ecrire(m1, Lignes({"\tx\ty", "vide\t0\t0"}));
    b.dialogue.fichiers = {m1, m2};
    EXPECT_NE(test::MessageErreur([&] { OperationComparerMatrices(b.ctx); }).find("« vide »"), std::string::npos);
}

}  // namespace
}  // namespace telvoris
