// Exports of the legacy files for spreadsheets and statistics tools, read back by a strict CSV
// parser (Python's csv module with strict=True, on a strict UTF-8 decoding).
#include <gtest/gtest.h>

#include "core/texte.hpp"
#include "lancer.hpp"
#include "support/support.hpp"

namespace telvoris {
namespace {

using test::DossierTemporaire;
using test::Ecrire;
using test::Lancer;
using test::Lignes;
using test::Lire;
namespace fs = std::filesystem;

// Reads stdin: a first line "csv N" or "tsv N", then the export. Prints each record as a JSON
// list, and checks that every record has the header's width and that every cell from column N on
// (when not empty) is a number Python reads as it stands.
const std::string kLecteur = R"(import csv, io, json, sys
donnees = sys.stdin.buffer.read().decode('utf-8')
tete, _, texte = donnees.partition('\n')
genre, colonnes = tete.split()
lecteur = csv.reader(io.StringIO(texte, newline=''), delimiter=',' if genre == 'csv' else '\t', strict=True)
lignes = list(lecteur)
for i, l in enumerate(lignes):
    if len(l) != len(lignes[0]):
        print('LARGEUR', i, len(l))
    if i > 0:
        for c in l[int(colonnes):]:
            if c != '':
                float(c)
    print(json.dumps(l, ensure_ascii=False))
)";

std::string Relire(const fs::path& fichier, const std::string& genre = "csv", int colonnes = 1) {
    return test::LancerPython(kLecteur, genre + " " + std::to_string(colonnes) + "\n" + Lire(fichier));
}

// A CP1252 text from UTF-8, for the fixtures.
std::string C(std::string_view utf8) { return Utf8VersCp1252(utf8); }

TEST(Exporter, LexiqueEtDistributions) {
    DossierTemporaire d;
    // A lexicon with accents, an elided form, and items that a CSV must quote.
    const fs::path lexique = d.Chemin() / "LEXIQUES" / "FORMES_MIN_261121_1000.txt";
    const std::string source = Lignes({C("été\t12"), "l'\t7", "a,b\t2", "\"\t2", C("œuvre\t1")});
    Ecrire(lexique, source);
    auto e = Lancer({"exporter", lexique.string()});
    EXPECT_EQ(e.statut, 0) << e.erreurs;
    EXPECT_EQ(e.sortie, "Exporté (lexique, 5 lignes et l'en-tête) : " + (d.Chemin() / "LEXIQUES/FORMES_MIN_261121_1000.csv").string() + "\n");
    const fs::path csv = d.Chemin() / "LEXIQUES/FORMES_MIN_261121_1000.csv";
    EXPECT_EQ(Lire(csv), "item,effectif\nété,12\nl',7\n\"a,b\",2\n\"\"\"\",2\nœuvre,1\n");
    EXPECT_EQ(Relire(csv), "[\"item\", \"effectif\"]\n[\"été\", \"12\"]\n[\"l'\", \"7\"]\n[\"a,b\", \"2\"]\n"
                           "[\"\\\"\", \"2\"]\n[\"œuvre\", \"1\"]\n");
    // The legacy file is left as it was.
    EXPECT_EQ(Lire(lexique), source);

    // The same as TSV: a tab-separated copy with the same quoting of quotes.
    e = Lancer({"exporter", "--format", "tsv", lexique.string()});
    EXPECT_EQ(e.statut, 0) << e.erreurs;
    EXPECT_EQ(Relire(d.Chemin() / "LEXIQUES/FORMES_MIN_261121_1000.tsv", "tsv"),
              "[\"item\", \"effectif\"]\n[\"été\", \"12\"]\n[\"l'\", \"7\"]\n[\"a,b\", \"2\"]\n"
              "[\"\\\"\", \"2\"]\n[\"œuvre\", \"1\"]\n");

    // Strong deviations: row and column names, then a deviation with a decimal comma.
    const fs::path forts = d.Chemin() / "AFC_MICRO" / "O_2-261121_1000" / "FORTS_ECARTS.txt";
    Ecrire(forts, Lignes({C("marché\tprix\t12,5"), "prix\tfort\t-0,07", "a\tb\t3"}));
    // Lengths of partitions and variances, of the macro-distribution.
    const fs::path lonparts = d.Chemin() / "AFC_MACRO/261121_1000/LONPARTS.txt";
    Ecrire(lonparts, Lignes({"2024-03-01\t410", "2024-03-02\t388"}));
    const fs::path variances = d.Chemin() / "AFC_MACRO/261121_1000/VARIANCES_LI.txt";
    Ecrire(variances, Lignes({C("été\t4,1234567"), "la\t0", "de\t1E-05"}));
    e = Lancer({"exporter", forts.string(), lonparts.string(), variances.string()});
    EXPECT_EQ(e.statut, 0) << e.erreurs;
    EXPECT_EQ(Relire(forts.parent_path() / "FORTS_ECARTS.csv", "csv", 2),
              "[\"ligne\", \"colonne\", \"ecart_reduit\"]\n[\"marché\", \"prix\", \"12.5\"]\n[\"prix\", \"fort\", \"-0.07\"]\n"
              "[\"a\", \"b\", \"3\"]\n");
    EXPECT_EQ(Relire(lonparts.parent_path() / "LONPARTS.csv"),
              "[\"partie\", \"occurrences\"]\n[\"2024-03-01\", \"410\"]\n[\"2024-03-02\", \"388\"]\n");
    EXPECT_EQ(Relire(variances.parent_path() / "VARIANCES_LI.csv"),
              "[\"item\", \"somme_ecarts_carres\"]\n[\"été\", \"4.1234567\"]\n[\"la\", \"0\"]\n[\"de\", \"1E-05\"]\n");
}

TEST(Exporter, MatriceEtResultatsDuSolveur) {
    DossierTemporaire d;
    // A matrix: empty first header cell, accented names, decimal commas.
    const fs::path matrice = d.Chemin() / "AFC_MACRO/261121_1000/ECART_REDUIT.txt";
    Ecrire(matrice, Lignes({C("\tpériode 1\tpériode 2"), C("é\t-0,44\t0,63"), "de\t0\t-2,02"}));
    auto e = Lancer({"exporter", matrice.string()});
    EXPECT_EQ(e.statut, 0) << e.erreurs;
    EXPECT_EQ(Relire(matrice.parent_path() / "ECART_REDUIT.csv"),
              "[\"item\", \"période 1\", \"période 2\"]\n[\"é\", \"-0.44\", \"0.63\"]\n[\"de\", \"0\", \"-2.02\"]\n");

    // A saved distribution of the exploration has the same shape: partitions as columns.
    const fs::path distribution = d.Chemin() / "SAUVEGARDES/DISTRIBUTIONS/port_A_261121_1000.txt";
    Ecrire(distribution, Lignes({"\t1\t2\t3", "brut\t2\t0\t5", "er\t0,5\t-1,25\t2"}));
    e = Lancer({"exporter", distribution.string()});
    EXPECT_EQ(e.statut, 0) << e.erreurs;
    EXPECT_EQ(Relire(distribution.parent_path() / "port_A_261121_1000.csv"),
              "[\"item\", \"1\", \"2\", \"3\"]\n[\"brut\", \"2\", \"0\", \"5\"]\n[\"er\", \"0.5\", \"-1.25\", \"2\"]\n");

    // Finalised solver files: header kept, commas turned into points, no line end after the last.
    const fs::path afc = d.Chemin() / "AFC_MACRO/261121_1000/ECRETEE";
    Ecrire(afc / "eigen.txt", "facteur\tvaleur_propre\tpourcentage\tpourcentage_cumule\r\n2\t0,25\t62,5\t62,5\r\n"
                              "1\t0,15\t37,5\t100");
    Ecrire(afc / "corli.txt", C("lignes_coordonnees\tF1\tF2\r\nété\t-0,5\t1,25\r\nla\t0,125\t-3E-07"));
    e = Lancer({"exporter", (afc / "eigen.txt").string(), (afc / "corli.txt").string(), "--format", "csv"});
    EXPECT_EQ(e.statut, 0) << e.erreurs;
    EXPECT_EQ(Relire(afc / "eigen.csv", "csv", 0),
              "[\"facteur\", \"valeur_propre\", \"pourcentage\", \"pourcentage_cumule\"]\n[\"2\", \"0.25\", \"62.5\", \"62.5\"]\n"
              "[\"1\", \"0.15\", \"37.5\", \"100\"]\n");
    EXPECT_EQ(Relire(afc / "corli.csv"),
              "[\"lignes_coordonnees\", \"F1\", \"F2\"]\n[\"été\", \"-0.5\", \"1.25\"]\n[\"la\", \"0.125\", \"-3E-07\"]\n");

    // A ragged row is refused with its file and line; nothing is written.
    Ecrire(matrice, Lignes({"\ta\tb", "x\t1\t2", "y\t3"}));
    fs::remove(matrice.parent_path() / "ECART_REDUIT.csv");
    e = Lancer({"exporter", matrice.string()});
    EXPECT_EQ(e.statut, 1);
    EXPECT_EQ(e.erreurs, matrice.generic_string() + ", ligne 3 : 2 champs alors que l'en-tête en compte 3\n");
    EXPECT_FALSE(fs::exists(matrice.parent_path() / "ECART_REDUIT.csv"));
}

TEST(Exporter, Projections) {
    DossierTemporaire d;
    // A flat map: 2 columns then 1 row, then the viewer's records, which are no items.
    const fs::path plan = d.Chemin() / "ECRETEE" / "coli_PROJ12.txt";
    Ecrire(plan, Lignes({"2/1", C("période 1\t200\t5000\t2\t0"), "p2\t9800\t4900\t0\t1", C("été\t5000\t5000\t0\t0"),
                         C("**1¤62,5"), C("**2¤37,5"), "***62,5", "***37,5", "###1207", "###", "###0"}));
    auto e = Lancer({"exporter", plan.string()});
    EXPECT_EQ(e.statut, 0) << e.erreurs;
    EXPECT_NE(e.sortie.find("7 ligne(s) « ** », « *** » ou « ### »"), std::string::npos) << e.sortie;
    EXPECT_EQ(Relire(plan.parent_path() / "coli_PROJ12.csv", "csv", 2),
              "[\"item\", \"type\", \"x\", \"y\", \"code_axe1\", \"code_axe2\"]\n[\"période 1\", \"colonne\", \"200\", "
              "\"5000\", \"2\", \"0\"]\n[\"p2\", \"colonne\", \"9800\", \"4900\", \"0\", \"1\"]\n"
              "[\"été\", \"ligne\", \"5000\", \"5000\", \"0\", \"0\"]\n");

    // A globe: "&" before the counts, six numbers an item.
    const fs::path globe = d.Chemin() / "ECRETEE_PLANISPH_123.txt";
    Ecrire(globe, Lignes({"&1/1", C("période 1\t45\t-12,5\t1,414\t0,5\t0,25\t0,125"), "p\t270\t90\t2\t0\t0\t0", "***62,5"}));
    e = Lancer({"exporter", globe.string(), "--format", "tsv"});
    EXPECT_EQ(e.statut, 0) << e.erreurs;
    EXPECT_EQ(Relire(d.Chemin() / "ECRETEE_PLANISPH_123.tsv", "tsv", 2),
              "[\"item\", \"type\", \"longitude\", \"latitude\", \"distance\", \"contribution1\", \"contribution2\", "
              "\"contribution3\"]\n[\"période 1\", \"colonne\", \"45\", \"-12.5\", \"1.414\", \"0.5\", \"0.25\", \"0.125\"]\n"
              "[\"p\", \"ligne\", \"270\", \"90\", \"2\", \"0\", \"0\", \"0\"]\n");
}

TEST(Exporter, ErreursEtUsage) {
    DossierTemporaire d;
    EXPECT_EQ(Lancer({"exporter"}).statut, 2);
    EXPECT_EQ(Lancer({"exporter", "x.txt", "--format", "xls"}).statut, 2);
    auto e = Lancer({"exporter", (d.Chemin() / "absent.txt").string()});
    EXPECT_EQ(e.statut, 1);
    EXPECT_NE(e.erreurs.find("absent.txt"), std::string::npos) << e.erreurs;
    // A text that is no table: named with its line.
    Ecrire(d.Chemin() / "MEMO_261121_1000.txt", Lignes({"N = 1207", "V = 599"}));
    e = Lancer({"exporter", (d.Chemin() / "MEMO_261121_1000.txt").string()});
    EXPECT_EQ(e.statut, 1);
    EXPECT_NE(e.erreurs.find("MEMO_261121_1000.txt, ligne 1 : aucune tabulation"), std::string::npos) << e.erreurs;
    // A count that is not a number, on the line where it stands.
    Ecrire(d.Chemin() / "lex.txt", Lignes({"a\t1", "b\tdeux"}));
    e = Lancer({"exporter", (d.Chemin() / "lex.txt").string()});
    EXPECT_EQ(e.statut, 1);
    EXPECT_NE(e.erreurs.find("lex.txt, ligne 2 : « deux » n'est pas un nombre"), std::string::npos) << e.erreurs;
    // A .csv source would be overwritten by its own copy: refused.
    Ecrire(d.Chemin() / "deja.csv", Lignes({"a\t1"}));
    e = Lancer({"exporter", (d.Chemin() / "deja.csv").string()});
    EXPECT_EQ(e.statut, 1);
    EXPECT_EQ(Lire(d.Chemin() / "deja.csv"), Lignes({"a\t1"}));
}

}  // namespace
}  // namespace telvoris
