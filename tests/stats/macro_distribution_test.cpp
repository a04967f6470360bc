#include "stats/macro_distribution.hpp"

#include <gtest/gtest.h>

#include "core/erreurs.hpp"
#include "core/texte.hpp"
#include "stats/outils.hpp"

namespace telvoris {
namespace {

using test::Banc;
using test::kSep;
using test::Lignes;
namespace fs = std::filesystem;

// Two texts: A has two partitions of 2024 (one date quoted), B one of 2025 and one without DATE,
// which stays in the current column.
void CorpusMacro(Banc& b) {
    b.Tague("A", {"<QORX_ATTR JOURNAL=A DATE=2024-03-01 >", "<M f=Le >Le", "<QORX_ATTR JOURNAL=B DATE=\"2024-04-02\" >",
                  "<M f=chat >chat"});
    b.Index("A", {kSep, "<M f=Le >\t3\t!", "<M f=chat >\t2\t\"\"\"", "<M f=dort >\t1\t\"\"#", kSep, "<M f=chat >\t1\t\"\"\"",
                  "<M f=Chien >\t4\t\"\"#"});
    b.Tague("B", {"<QORX_ATTR JOURNAL=A DATE=2025-01-01 >", "<M f=chien >chien", "<QORX_ATTR JOURNAL=C >", "<M f=chat >chat"});
    b.Index("B", {kSep, "<M f=chien >\t2\t\"\"\"", "<M f=le >\t1\t!", kSep, "<M f=chat >\t5\t\"\"\""});
    test::Ecrire(b.racine / "lignes.txt", Lignes({"le\t1", "chat\tx", "chien\t1", "absent\t1"}));
}

// Prompts: clipping, specificity threshold, key, date cut; files: rows, list.
void Lancer(Banc& b, std::deque<std::string> reponses, const std::vector<std::string>& textes = {"A", "B"}) {
    b.dialogue.reponses = std::move(reponses);
    b.dialogue.fichiers = {b.racine / "lignes.txt", b.Liste(textes)};
    MacroDistribution(b.ctx, ParametresReleve{});
}

TEST(MacroDistribution, SeptFichiersOctetPourOctet) {
    Banc b;
    CorpusMacro(b);
    Lancer(b, {"1", "0,78", "DATE", "1-4"});
    const std::string d = "AFC_MACRO/261121_1005/";
    const std::string entete = "\t2024\t2025";
    // Two partitions of 2024 add up; the partition without DATE goes to 2025, current then.
    EXPECT_EQ(b.Sortie(d + "MACRO_BRUT.txt"), Lignes({entete, "le\t3\t1", "chat\t3\t5", "chien\t4\t2", "absent\t0\t0"}));
    // All the tokens of the partitions, not only the row items.
    EXPECT_EQ(b.Sortie(d + "LONPARTS.txt"), Lignes({"2024\t11", "2025\t8"}));
    // Binomial deviations; a row that never occurs has E = 0 and 0 throughout.
    EXPECT_EQ(b.Sortie(d + "ECART_REDUIT.txt"),
              Lignes({entete, "le\t0,78\t-0,78", "chat\t-1,03\t1,03", "chien\t0,55\t-0,55", "absent\t0\t0"}));
    // A deviation equal to the threshold is written 0, and only the upper side counts.
    EXPECT_EQ(b.Sortie(d + "SPECIF_RED.txt"), Lignes({entete, "le\t0\t0", "chat\t0\t1,03", "chien\t0\t0", "absent\t0\t0"}));
    // Below -t the limit is Round(E - t sqrt(E)) = Round(2,336) = 2; above, Round(t s + E).
    EXPECT_EQ(b.Sortie(d + "ECRETEE.txt"), Lignes({entete, "le\t3\t1", "chat\t2\t5", "chien\t4\t2", "absent\t0\t0"}));
    EXPECT_EQ(b.Sortie(d + "VARIANCES_LI.txt"), Lignes({"le\t1,2168", "chat\t2,1218", "chien\t0,605", "absent\t0"}));
    EXPECT_EQ(b.Sortie(d + "VARIANCES_CO.txt"), Lignes({"2024\t1,9718", "2025\t1,9718"}));
    EXPECT_EQ(b.dialogue.questions,
              (std::vector<std::string>{
                  std::string("Valeur d'écart-réduit pour écretage ?"_cp),
                  std::string("Valeur seuil pour prise en compte spécificité"_cp), std::string("Clé de variable colonnes ?"_cp),
                  std::string("Quelle partie de la date est-elle à prendre en compte ? Le format de date est : . Inscrivez le "
                              "n° du 1er caractère  pertinent, un tiret puis le nombre de caractères à retenir."_cp)}));
    EXPECT_EQ(b.dialogue.defauts, (std::vector<std::string>{"2", "3", "", "1-4"}));
    EXPECT_EQ(b.dialogue.titresFichiers,
              (std::vector<std::string>{"items en lignes", std::string("Localiser le répertoire"_cp)}));
    EXPECT_EQ(b.dialogue.messages.back(), std::string("Terminé en  1 secondes"_cp));
}

TEST(MacroDistribution, ClesValeursEtColonneUnique) {
    Banc b;
    CorpusMacro(b);
    // Cut from the 6th character, 2 long: the month. A quoted value keeps its closing quote,
    // so "04" comes from `2024-04-02"` as well.
    Lancer(b, {"2", "3", "DATE", "6-2"});
    EXPECT_EQ(b.Sortie("AFC_MACRO/261121_1005/MACRO_BRUT.txt"),
              Lignes({"\t03\t04\t01", "le\t3\t0\t1", "chat\t2\t1\t5", "chien\t0\t4\t2", "absent\t0\t0\t0"}));
    // The key is matched by the end of the text before "=": "JOURNAL" gives A, B, A, C.
    Lancer(b, {"2", "3", "JOURNAL"});
    EXPECT_EQ(b.Sortie("AFC_MACRO/261121_1005/LONPARTS.txt"), Lignes({"A\t9", "B\t5", "C\t5"}));
    // A key found nowhere leaves everything in column 0, which is not written.
    Lancer(b, {"2", "3", "Date", "1-4"});
    EXPECT_EQ(b.Sortie("AFC_MACRO/261121_1005/MACRO_BRUT.txt"), Lignes({"", "le", "chat", "chien", "absent"}));

    // "date" asks for the cut and does not apply it; one column holds the whole total: p = 1.
    b.Tague("C", {"<QORX_ATTR date=2024-05-06 >", "<M f=chat >chat"});
    b.Index("C", {kSep, "<M f=chat >\t1\t\"\"\""});
    try {
        Lancer(b, {"2", "3", "date", "1-4"}, {"C"});
        FAIL();
    } catch (const ErreurExecution& e) {
        const std::string m = e.what();
        EXPECT_NE(m.find("2024-05-06"), std::string::npos) << m;
        EXPECT_NE(m.find("p = 1"), std::string::npos) << m;
    }
    // A row list that never occurs: the grand total is 0.
    test::Ecrire(b.racine / "lignes.txt", Lignes({"absent\t1"}));
    EXPECT_THROW(Lancer(b, {"2", "3", "DATE", "1-4"}), ErreurExecution);
}

TEST(MacroDistribution, ReponseDeDateEtEchecs) {
    const auto fin = [](const std::string& reponse) {
        try {
            LireCoupeDate(reponse);
        } catch (const FinProgramme& e) {
            return std::string(e.what());
        }
        return std::string("accepté");
    };
    EXPECT_EQ(fin("1a-4"), "Vous ne devez saisir que des chiffres. Recommencez");
    EXPECT_EQ(fin("1 -4"), "Vous ne devez saisir que des chiffres. Recommencez");
    EXPECT_EQ(fin("14"), std::string("Vous devez séparer les deux rubriques de votre réponse par un tiret. Recommencez"_cp));
    EXPECT_EQ(fin(""), std::string("Vous devez séparer les deux rubriques de votre réponse par un tiret. Recommencez"_cp));
    EXPECT_EQ(fin("1-0"), std::string("Le nombre de caractères pertinents ne peut être égal à zéro. Recommencez"_cp));
    EXPECT_EQ(fin("3-"), std::string("Le nombre de caractères pertinents ne peut être égal à zéro. Recommencez"_cp));
    EXPECT_EQ(LireCoupeDate("12-345").debut, 12);
    EXPECT_EQ(LireCoupeDate("12-345").longueur, 345);

    Banc b;
    CorpusMacro(b);
    // A wrong date answer ends the program.
    EXPECT_THROW(Lancer(b, {"2", "3", "DATE", "x"}), FinProgramme);
    // An empty line of the index has no field 2.
    b.Index("B", {kSep, "<M f=chien >\t2\t\"\"\"", ""});
    EXPECT_THROW(Lancer(b, {"2", "3", "DATE", "1-4"}), ErreurExecution);
    // Without OLBRIN_TT the program ends with its message.
    Banc vide;
    test::Ecrire(vide.racine / "lignes.txt", Lignes({"le\t1"}));
    vide.dialogue.fichiers = {vide.racine / "lignes.txt", vide.Liste({"A"})};
    try {
        MacroDistribution(vide.ctx, ParametresReleve{});
        FAIL();
    } catch (const FinProgramme& e) {
        EXPECT_TRUE(std::string(e.what()).ends_with("OLBRIN_TT n'existe pas. Recommencez.")) << e.what();
    }
}

TEST(LongueurPartitions, SommeParAnnee) {
    Banc b;
    b.Index("J_1999_a", {kSep, "<M f=le >\t3\t!", kSep, "<M f=chat >\t2\t\"\"\""});
    b.Index("K_1999_b", {kSep, "<M f=chien >\t4\t\"\"\""});
    b.Index("J_2015_c", {kSep, "<M f=vent >\t7\t\"\"\""});
    b.Index("J_2040_d", {kSep, "<M f=vent >\t9\t\"\"\""});
    b.dialogue.fichiers = {b.Liste({"J_1999_a", "K_1999_b", "J_2015_c", "J_2040_d"})};
    OperationLongueurPartitions(b.ctx);
    std::vector<std::string> attendu;
    for (int annee = 1981; annee <= 2015; ++annee)
        attendu.push_back(std::to_string(annee) + "\t" + (annee == 1999 ? "9" : annee == 2015 ? "7" : "0"));
    EXPECT_EQ(b.Sortie("LONPARTS.txt"), Lignes(attendu));
    EXPECT_EQ(b.dialogue.messages.back(), std::string("Terminé"_cp));

    for (const char* nom : {"J_1979_x", "sans", "LE_MATIN_2024-03-01"}) {
        b.Index(nom, {kSep, "<M f=le >\t1\t!"});
        b.dialogue.fichiers = {b.Liste({nom})};
        EXPECT_THROW(OperationLongueurPartitions(b.ctx), ErreurExecution) << nom;
    }
}

}  // namespace
}  // namespace telvoris
