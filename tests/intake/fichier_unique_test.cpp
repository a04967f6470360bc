#include "intake/fichier_unique.hpp"

#include <gtest/gtest.h>

#include <functional>

#include "core/erreurs.hpp"
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

std::string Cp(const std::string& utf8) { return Utf8VersCp1252(utf8); }

// Runs the operation with the given answer to the separator prompt (nullopt: the default) and
// the given file to the dialog (empty: Cancel).
std::vector<std::string> Lancer(std::optional<std::string> separateur, const fs::path& fichier,
                                std::deque<std::string>* titres = nullptr) {
    struct Dialogue : test::DialogueScripte {
        std::deque<std::string>* titres = nullptr;
        bool annuler = false;
        std::optional<std::string> Demander(std::string_view texte, std::string_view titre,
                                            std::string_view defaut) override {
            if (titres) titres->push_back(Joindre(titre, "|", defaut, "|", texte));
            if (annuler) return std::nullopt;
            return test::DialogueScripte::Demander(texte, titre, defaut);
        }
        std::optional<fs::path> ChoisirFichier(std::string_view titre, std::string_view filtre) override {
            if (titres) titres->push_back(Joindre(titre, "|", filtre));
            return test::DialogueScripte::ChoisirFichier(titre, filtre);
        }
    } dialogue;
    dialogue.titres = titres;
    if (separateur && *separateur == "<annuler>") dialogue.annuler = true;
    else if (separateur) dialogue.reponses.push_back(*separateur);
    if (!fichier.empty()) dialogue.fichiers.push_back(fichier);
    HorlogeFixe horloge({2026, 11, 21, 10, 0, 0});
    Contexte ctx{dialogue, horloge, test::RessourcesTest()};
    ImporterFichierUnique(ctx);
    return dialogue.messages;
}

TEST(FichierUnique, CorpusDeLaFixtureAvecTableau) {
    DossierTemporaire d;
    const fs::path r = d.Chemin();
    const fs::path fixture = test::DossierSource() / "tests/fixtures/fichier_unique";
    fs::copy_file(fixture / "CORPUS.txt", r / "CORPUS.txt");
    fs::copy_file(fixture / "TABLEAU.txt", r / "TABLEAU.txt");
    std::deque<std::string> titres;
    EXPECT_EQ(Lancer("####", r / "CORPUS.txt", &titres), std::vector<std::string>{Cp("Terminé en 1 secondes")});
    ASSERT_EQ(titres.size(), 2u);
    EXPECT_EQ(titres[0],
              Cp("SEPARATEURS ?|STOP|Si vous souhaitez partitionner votre corpus, vous devez avoir placé des "
                 "codes-séparateurs univoques entre les sous-corpus. Ces codes doivent constituer à eux seuls une "
                 "ligne du fichier, à l'exclusion de tout autre caractère ou espace. Si c'est le cas, saisissez ce "
                 "séparateur. Sinon, saisissez 'STOP', qui mettra fin à l'application."));
    EXPECT_EQ(titres[1], "Appeler le fichier texte total|Text files (*.TXT)|*.TXT");

    // tests/fixtures/fichier_unique/attendu: REPERTOIRE.txt ("1", no line end) and ARCHIVE_BRUT/1.txt.
    EXPECT_TRUE(test::ArbresIdentiques(fixture / "attendu", r));
    // The text before the first separator stays in front; "####bis" opens a partition too.
    const std::string corpus = Lire(r / "ARCHIVE_BRUT/1.txt");
    EXPECT_TRUE(corpus.starts_with(Cp("Vœux municipaux de Brévannes, 2019-2021 : transcriptions de l'atelier, "
                                      "version du 3 mars 2022.\r\n<QORX_ATTR N°=1 LOCUTEUR=Maire_Dupré ANNEE=2019 "
                                      "LIEU=Hôtel_de_ville >\r\nMesdames")));
    EXPECT_NE(corpus.find(Cp("la solidarité.\r\n<QORX_ATTR N°=3 LOCUTEUR=Adjointe_Morel ANNEE=2021 "
                             "LIEU=Médiathèque >\r\nMes chers concitoyens,\r\n")),
              std::string::npos);

    // Without the table the only variable is N°; a new run replaces the corpus file.
    fs::remove(r / "TABLEAU.txt");
    Lancer("####bis", r / "CORPUS.txt");
    const std::string sans = Lire(r / "ARCHIVE_BRUT/1.txt");
    EXPECT_NE(sans.find(Cp("s'achève a été difficile ; elle nous a aussi appris la solidarité.\r\n"
                           "<QORX_ATTR N°=1 >\r\nMes chers")),
              std::string::npos);
    EXPECT_EQ(sans.find("QORX_ATTR N\xB0=2"), std::string::npos);
    EXPECT_NE(sans.find("\r\n####\r\nMesdames"), std::string::npos);
}

TEST(FichierUnique, ReponsesEtTableauxIncomplets) {
    DossierTemporaire d;
    const fs::path r = d.Chemin();
    test::Ecrire(r / "c.txt", "avant\r\n==A\r\nun\r\n=\r\n==B\r==C\rdeux\n");
    // STOP ends the program before anything is asked or written.
    EXPECT_THROW(Lancer("STOP", r / "c.txt"), FinProgramme);
    EXPECT_THROW(Lancer(std::nullopt, r / "c.txt"), FinProgramme);  // the default is STOP
    EXPECT_FALSE(fs::exists(r / "REPERTOIRE.txt"));
    // Cancel on the file dialog: nothing happens.
    EXPECT_TRUE(Lancer("==", fs::path()).empty());
    EXPECT_FALSE(fs::exists(r / "ARCHIVE_BRUT"));

    // The last line of the table has two fields: two variables. Row 3 has no line: empty values.
    // A line shorter than the separator ("=") is an ordinary line; CR, LF and CR LF all end lines.
    test::Ecrire(r / "TABLEAU.txt", "NOM\tAN\tX\r\na=b\t1999\t?\r\nc\t2000\r\n");
    Lancer("==", r / "c.txt");
    EXPECT_EQ(Lire(r / "ARCHIVE_BRUT/1.txt"),
              Cp(Lignes({"avant", "<QORX_ATTR N°=1 NOM=a=b AN=1999 >", "un", "=", "<QORX_ATTR N°=2 NOM=c AN=2000 >",
                         "<QORX_ATTR N°=3 NOM= AN= >", "deux"})));

    // An empty answer, or Cancel, makes every line a separator line.
    fs::remove(r / "TABLEAU.txt");
    Lancer("", r / "c.txt");
    const std::string tout = Cp(Lignes({"<QORX_ATTR N°=1 >", "<QORX_ATTR N°=2 >", "<QORX_ATTR N°=3 >",
                                        "<QORX_ATTR N°=4 >", "<QORX_ATTR N°=5 >", "<QORX_ATTR N°=6 >",
                                        "<QORX_ATTR N°=7 >"}));
    EXPECT_EQ(Lire(r / "ARCHIVE_BRUT/1.txt"), tout);
    test::Ecrire(r / "ARCHIVE_BRUT/1.txt", "ancien");
    Lancer("<annuler>", r / "c.txt");
    EXPECT_EQ(Lire(r / "ARCHIVE_BRUT/1.txt"), tout);

    // A table with an empty last line has a single variable.
    test::Ecrire(r / "TABLEAU.txt", "NOM\tAN\r\nx\t1\r\n\r\n");
    Lancer("==", r / "c.txt");
    EXPECT_EQ(Lire(r / "ARCHIVE_BRUT/1.txt"),
              Cp(Lignes({"avant", "<QORX_ATTR N°=1 NOM=x >", "un", "=", "<QORX_ATTR N°=2 NOM= >",
                         "<QORX_ATTR N°=3 NOM= >", "deux"})));
}

using test::MessageErreur;

TEST(FichierUnique, BornesDuTableau) {
    DossierTemporaire d;
    const fs::path r = d.Chemin();
    std::string corpus;
    for (int i = 1; i <= 221; ++i) corpus += "@@\r\ntexte " + std::to_string(i) + "\r\n";
    test::Ecrire(r / "c.txt", corpus);
    // 220 sub-corpora and 220 columns fit.
    std::string entete, valeurs;
    for (int j = 1; j <= 220; ++j) {
        if (j > 1) {
            entete += '\t';
            valeurs += '\t';
        }
        entete += 'V';
        entete += std::to_string(j);
        valeurs += std::to_string(j);
    }
    std::string tableau = entete + "\r\n";
    for (int i = 1; i <= 220; ++i) tableau += valeurs + "\r\n";
    test::Ecrire(r / "TABLEAU.txt", tableau);
    // The 221st separator needs row 221: the run stops there and the first 220 partitions stay.
    EXPECT_EQ(MessageErreur([&] { Lancer("@@", r / "c.txt"); }),
              "Limite dépassée : plus de 220 sous-corpus décrits par TABLEAU.txt (MAX_LIGNES_TABLEAU = 220)");
    const std::string sortie = Lire(r / "ARCHIVE_BRUT/1.txt");
    EXPECT_NE(sortie.find("<QORX_ATTR N\xB0=220 V1=1 V2=2 "), std::string::npos);
    EXPECT_TRUE(sortie.ends_with(" V219=219 V220=220 >\r\ntexte 220\r\n"));

    // A table of more than 221 lines, or wider than 220 columns, is refused when it is loaded.
    test::Ecrire(r / "TABLEAU.txt", tableau + "x\r\n");
    EXPECT_EQ(MessageErreur([&] { Lancer("@@", r / "c.txt"); }),
              "Limite dépassée : plus de 220 lignes de sous-corpus dans " + (r / "TABLEAU.txt").generic_string() +
                  " (MAX_LIGNES_TABLEAU = 220)");
    test::Ecrire(r / "TABLEAU.txt", "a\r\n" + valeurs + "\t221\r\n");
    EXPECT_EQ(MessageErreur([&] { Lancer("@@", r / "c.txt"); }),
              "Limite dépassée : plus de 220 colonnes à la ligne 2 de " + (r / "TABLEAU.txt").generic_string() +
                  " (MAX_COLONNES_TABLEAU = 220)");
}

}  // namespace
}  // namespace telvoris
