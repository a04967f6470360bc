// The AFC run: checks and their messages, the item and STATS files, the transposition, the
// solver's command line, waiting and finalising, the panel's states; with a stand-in solver that
// records its arguments and copies prepared result files, and with the real one when it is built.
#include <gtest/gtest.h>

#include "core/erreurs.hpp"
#include "core/texte.hpp"
#include "stats/afc_lancement.hpp"
#include "support/support.hpp"

#include <sys/wait.h>

namespace telvoris::test {
namespace {

// A stand-in solver: writes its arguments one a line to `arguments.txt`, then copies each
// result file it is asked for from `modele/`, and exits with `statut`.
fs::path SolveurFactice(const fs::path& dossier, int statut = 0) {
    const fs::path script = dossier / "solveur.sh";
    Ecrire(script, "#!/bin/sh\n"
                   "printf '%s\\n' \"$@\" > '" + (dossier / "arguments.txt").string() + "'\n"
                   "for a in \"$@\"; do case \"$a\" in --*=*) f=\"${a#*=}\"; cp '" + (dossier / "modele").string() +
                   "'/\"$(basename \"$f\")\" \"$f\";; esac; done\n"
                   "exit " + std::to_string(statut) + "\n");
    fs::permissions(script, fs::perms::owner_all);
    return script;
}

// Solver files: eigenvalues out of order, factors 2 and 3 with one key (round(x * 10000) = 3000).
void EcrireModele(const fs::path& modele) {
    Ecrire(modele / "eigen.txt", Lignes({"facteur\tvaleur_propre\tpourcentage\tpourcentage_cumule",
                                         "1\t0.1\t10.5\t10.5", "2\t0.30004\t30.004\t40.504", "3\t0.30001\t30.001\t70.505",
                                         "4\t0.2\t20\t90.505"}));
    for (const char* nom : {"conco", "conli", "corco", "corli", "cosco", "cosli", "disco", "disli"})
        Ecrire(modele / (std::string(nom) + ".txt"),
               Lignes({std::string(nom) + "\tF1\tF2\tF3\tF4", "a\t1.5\t-2.25\t3\t0.4", "b\t1.1.1\t2\t3\t4"}));
}

struct BancAfc {
    DossierTemporaire dossier;
    DialogueScripte dialogue;
    HorlogeFixe horloge{Instant{2026, 11, 21, 10, 5, 0}};
    Contexte ctx{dialogue, horloge, dossier.Chemin() / "res"};
    BancAfc() {
        EtatAfcForm3() = EtatAfc{};
        OptionsLancementAfc() = OptionsAfc{};
    }
    ~BancAfc() {
        if (EtatAfcForm3().processus > 0) AttendreSolveur(EtatAfcForm3().processus);
        EtatAfcForm3() = EtatAfc{};
        OptionsLancementAfc() = OptionsAfc{};
    }
    const fs::path& D() const { return dossier.Chemin(); }
};

const std::string kAttention = std::string("ATTENTION, IL NE DOIT PAS Y AVOIR D'ESPACE DANS LES NOMS DE DOSSIERS !!!!!"_cp);

TEST(Afc, LancementAttenteEtFinalisation) {
    BancAfc b;
    EcrireModele(b.D() / "modele");
    OptionsLancementAfc().solveur = SolveurFactice(b.D());
    OptionsLancementAfc().attendre = true;
    Ecrire(b.D() / "M.txt", Lignes({"\tA\tB", "x\t4\t0", "y\t1\t3", "z\t0\t2"}));
    b.dialogue.fichiers.push_back(b.D() / "M.txt");
    OperationAfc(b.ctx);

    const fs::path F = b.D() / "M";
    EXPECT_EQ(Lire(F / "ITEMLIGNES.txt"), "x\r\ny\r\nz\r\n");
    EXPECT_EQ(Lire(F / "ITEMCOLONNES.txt"), "A\r\nB\r\n");
    EXPECT_EQ(Lire(F / "STATS.txt"), "10\r\n\r\n0\r\n");
    const std::string f = F.string() + "/";
    EXPECT_EQ(Lire(b.D() / "arguments.txt"),
              "--eigenvalues=" + f + "eigen.txt\n--rcoor=" + f + "corli.txt\n--rcontrib=" + f + "conli.txt\n--rcos2=" + f +
                  "cosli.txt\n--rdisto=" + f + "disli.txt\n--ccoor=" + f + "corco.txt\n--ccontrib=" + f +
                  "conco.txt\n--ccos2=" + f + "cosco.txt\n--cdisto=" + f + "disco.txt\n" + (b.D() / "M.txt").string() + "\n");
    EXPECT_FALSE(fs::exists(b.D() / "M_TRANSPOSEE.txt"));

    // Factors by decreasing key, the later of two equal keys first: 3, 2, 4, 1. Only the first "."
    // of a field becomes a comma in the item files, every "." in eigen.txt. No final line end.
    EXPECT_EQ(Lire(F / "eigen.txt"),
              "facteur\tvaleur_propre\tpourcentage\tpourcentage_cumule\r\n3\t0,30001\t30,001\t70,505\r\n"
              "2\t0,30004\t30,004\t40,504\r\n4\t0,2\t20\t90,505\r\n1\t0,1\t10,5\t10,5");
    for (const char* nom : {"conco", "conli", "corco", "corli", "cosco", "cosli", "disco", "disli"})
        EXPECT_EQ(Lire(F / (std::string(nom) + ".txt")),
                  std::string(nom) + "\tF1\tF2\tF3\tF4\r\na\t3\t-2,25\t0,4\t1,5\r\nb\t3\t2\t4\t1,1.1")
            << nom;

    // The graph: scale Round(2000 / 30.004) = 67, pitch 1250; 10.5 x 67 = 703.5 rounds to 704.
    const GrapheInertie& g = EtatAfcForm3().graphe;
    ASSERT_EQ(g.boites.size(), 4u);
    const long long attendu[4][4] = {{200, 490, 1210, 2010}, {1450, 490, 1210, 2010}, {2700, 1160, 1210, 1340},
                                     {3950, 1796, 1210, 704}};
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(g.boites[i].gauche, attendu[i][0]);
        EXPECT_EQ(g.boites[i].haut, attendu[i][1]);
        EXPECT_EQ(g.boites[i].largeur, attendu[i][2]);
        EXPECT_EQ(g.boites[i].hauteur, attendu[i][3]);
        EXPECT_EQ(g.boites[i].couleur, 0xFA6464u);
    }
    std::vector<std::string> textes;
    for (const auto& t : g.textes)
        textes.push_back(std::to_string(t.x) + "," + std::to_string(t.y) + " " + Cp1252VersUtf8(t.texte));
    EXPECT_EQ(textes, (std::vector<std::string>{"1000,150 4 facteurs.", "3000,150 Facteur 1 : 30 %",
                                                "3000,345 Facteur 2 : 30 %", "3000,540 Facteur 3 : 20 %",
                                                "3000,735 Facteur 4 : 10,5 %",
                                                "200,2700 trace : 0,90005. Chi-deux :  pour 0 degrés de liberté.",
                                                "200,2895 Ecart réduit à la loi normale : "}));
    EXPECT_EQ(EtatAfcForm3().legendeBouton, "Masquer le graphique");
    EXPECT_EQ(Cp1252VersUtf8(EtatAfcForm3().legendePanneau), "Graphe de décroissance des % d'inertie");
    EXPECT_FALSE(EtatAfcForm3().AFC_A_FINALISER);
    ASSERT_GE(b.dialogue.messages.size(), 3u);
    EXPECT_EQ(b.dialogue.messages[0], kAttention);
    EXPECT_EQ(b.dialogue.messages[1], " 1 secondes");
    EXPECT_EQ(b.dialogue.messages[2], g.textes[0].texte);
    EXPECT_EQ(Cp1252VersUtf8(b.dialogue.messages.back()),
              "Analyse finalisée dans " + F.generic_string() + " en 1 secondes");

    // The second press hides the panel; the third finalises again (the files are already
    // finalised: the numbers stay, the factors are sorted once more by the new eigen.txt).
    BoutonFinalisation(b.ctx);
    EXPECT_EQ(EtatAfcForm3().legendeBouton, "FINALISATION DES FICHIERS");
    EXPECT_FALSE(EtatAfcForm3().panneauVisible);
}

TEST(Afc, TranspositionPanneauEtBouton) {
    BancAfc b;
    EcrireModele(b.D() / "modele");
    OptionsLancementAfc().solveur = SolveurFactice(b.D());
    // As many columns as rows: no transposition.
    Ecrire(b.D() / "C.txt", Lignes({"\tA\tB", "x\t1\t0", "y\t0\t1"}));
    b.dialogue.fichiers.push_back(b.D() / "C.txt");
    OperationAfc(b.ctx);
    EXPECT_EQ(b.dialogue.messages, (std::vector<std::string>{kAttention, " 1 secondes"}));
    EXPECT_EQ(AttendreSolveur(EtatAfcForm3().processus), 0);
    EtatAfcForm3().processus = 0;

    // One column more: transposed, the solver gets X_TRANSPOSEE.txt, the folder stays X.
    b.dialogue.messages.clear();
    Ecrire(b.D() / "X.txt", Lignes({"coin\tA\tB\tC", "x\t1\t0\t2", "y\t0\t1\t3"}));
    b.dialogue.fichiers.push_back(b.D() / "X.txt");
    OperationAfc(b.ctx);
    EXPECT_EQ(b.dialogue.messages,
              (std::vector<std::string>{kAttention, std::string("Votre matrice doit être transposée"_cp), " 1 secondes"}));
    EtatAfc& e = EtatAfcForm3();
    EXPECT_TRUE(e.AFC_A_FINALISER);
    EXPECT_TRUE(e.panneauVisible);
    EXPECT_EQ(e.legendeBouton, "FINALISATION DES FICHIERS");
    EXPECT_EQ(e.legendePanneau, "Finalisez");
    EXPECT_EQ(e.dossier, b.D() / "X");
    // The panel waits for the button; the solver has been started and not waited for.
    EXPECT_EQ(AttendreSolveur(e.processus), 0);
    e.processus = 0;
    EXPECT_EQ(Lire(b.D() / "X_TRANSPOSEE.txt"), Lignes({"\tx\ty", "A\t1\t0", "B\t0\t1", "C\t2\t3"}));
    EXPECT_EQ(Lire(b.D() / "X" / "ITEMLIGNES.txt"), "x\r\ny\r\n");
    EXPECT_EQ(Lire(b.D() / "X" / "ITEMCOLONNES.txt"), "A\r\nB\r\nC\r\n");
    EXPECT_EQ(Lire(b.D() / "X" / "STATS.txt"), "7\r\n\r\n0\r\n");
    const std::string args = Lire(b.D() / "arguments.txt");
    EXPECT_NE(args.find("--eigenvalues=" + (b.D() / "X").string() + "/eigen.txt\n"), std::string::npos) << args;
    EXPECT_TRUE(args.ends_with("\n" + (b.D() / "X_TRANSPOSEE.txt").string() + "\n")) << args;

    BoutonFinalisation(b.ctx);
    EXPECT_EQ(e.legendeBouton, "Masquer le graphique");
    EXPECT_FALSE(e.AFC_A_FINALISER);
    EXPECT_EQ(e.graphe.boites.size(), 4u);
    EXPECT_TRUE(Lire(b.D() / "X" / "eigen.txt").ends_with("1\t0,1\t10,5\t10,5"));
    BoutonFinalisation(b.ctx);
    EXPECT_EQ(e.legendeBouton, "FINALISATION DES FICHIERS");
    EXPECT_FALSE(e.panneauVisible);

    // Leaving the area with an analysis not finalised offers to finalise it; "OUI" does.
    e.AFC_A_FINALISER = true;
    EcrireModele(b.D() / "X");
    b.dialogue.reponses.push_back("OUI");
    GarderFermetureForm3(b.ctx);
    EXPECT_FALSE(e.AFC_A_FINALISER);
    EXPECT_TRUE(Lire(b.D() / "X" / "eigen.txt").ends_with("1\t0,1\t10,5\t10,5"));
}

TEST(Afc, ControlesDeLaMatrice) {
    BancAfc b;
    OptionsLancementAfc().solveur = b.D() / "jamais_lance";
    auto lancer = [&](const std::vector<std::string>& lignes) -> std::string {
        Ecrire(b.D() / "M.txt", Lignes(lignes));
        b.dialogue.fichiers.push_back(b.D() / "M.txt");
        try {
            OperationAfc(b.ctx);
        } catch (const FinProgramme& e) {
            return "fin : " + Cp1252VersUtf8(e.what());
        } catch (const ErreurExecution& e) {
            return "erreur : " + Cp1252VersUtf8(e.what());
        }
        return "lancé";
    };
    const std::string m = (b.D() / "M.txt").generic_string();
    EXPECT_EQ(lancer({"\ta\tb", "x\t1\t2", "y\t3\t-1", "z\t1\t1"}),
              "fin : Votre matrice comporte des données non numériques, notamment à la ligne 2 dans la colonne 2. Vérifiez-la.");
    // The names were written before the checks, and stay; STATS.txt stays empty.
    EXPECT_EQ(Lire(b.D() / "M" / "ITEMLIGNES.txt"), "x\r\ny\r\nz\r\n");
    EXPECT_EQ(Lire(b.D() / "M" / "STATS.txt"), "");
    EXPECT_EQ(lancer({"\ta\tb", "x\t1\t2", "y\t0\t0", "z\t0\t0"}),
              "fin : Votre matrice comporte (au moins) une ligne totalisant zéro : ligne 2. Vérifiez-la.");
    EXPECT_EQ(lancer({"\ta\tb\tc", "x\t1\t0\t2", "y\t3\t0\t1", "z\t1\t0\t1"}),
              "fin : Votre matrice comporte (au moins) une colonne totalisant zéro : colonne 2. Vérifiez-la.");
    // A conversion failure comes before the check of the negative cell of an earlier row.
    EXPECT_EQ(lancer({"\ta\tb", "x\t-1\t2", "y\t3\tdeux"}),
              "erreur : Conversion impossible en nombre entier : « deux » (ligne 2, colonne 2 de la matrice (ligne 3 du fichier " + m + "))");
    EXPECT_EQ(lancer({"\ta\tb", "x\t1,5\t2"}),
              "erreur : Conversion impossible en nombre entier : « 1,5 » (ligne 1, colonne 1 de la matrice (ligne 2 du fichier " + m + "))");
    EXPECT_EQ(lancer({"\ta\tb", "x\t1\t2\t3"}), "erreur : Ligne 1 de la matrice (ligne 2 du fichier " + m + ") : 3 cellules pour 2 colonnes");
    EXPECT_EQ(lancer({"\ta\tb", "x\t1\t2", "", "y\t1\t1"}),
              "erreur : Ligne 2 de la matrice (ligne 3 du fichier " + m + ") : 0 cellules pour 2 colonnes");
    // Empty lines at the end are no rows; a solver that cannot start is an execution error.
    EXPECT_EQ(lancer({"\ta\tb", "x\t1\t2", "y\t2\t1", "", ""}),
              "erreur : Impossible de lancer le solveur " + (b.D() / "jamais_lance").generic_string() +
                  " : No such file or directory");
    EXPECT_EQ(Lire(b.D() / "M" / "STATS.txt"), "6\r\n\r\n0\r\n");

    std::vector<std::string> grande{"\ta"};
    for (int i = 1; i <= 20001; ++i) grande.push_back(std::string("l").append(std::to_string(i)).append("\t1"));
    EXPECT_EQ(lancer(grande), "erreur : Limite dépassée : plus de 20000 lignes dans la matrice (MAX_LIGNES_AFC = 20000)");
    std::string large;
    for (int j = 1; j <= 1001; ++j) large += "\tc" + std::to_string(j);
    EXPECT_EQ(lancer({large}), "erreur : Limite dépassée : plus de 1000 colonnes dans la matrice (MAX_COLONNES_AFC = 1000)");

    // Cancel at the file dialog: nothing to finalise.
    b.dialogue.messages.clear();
    OperationAfc(b.ctx);
    EXPECT_FALSE(EtatAfcForm3().AFC_A_FINALISER);
    EXPECT_EQ(b.dialogue.messages, std::vector<std::string>{kAttention});
}

TEST(Afc, SolveurEnEchecEtLocalisation) {
    BancAfc b;
    EcrireModele(b.D() / "modele");
    OptionsLancementAfc().solveur = SolveurFactice(b.D(), 1);
    OptionsLancementAfc().attendre = true;
    Ecrire(b.D() / "M.txt", Lignes({"\ta\tb", "x\t1\t2", "y\t2\t1"}));
    b.dialogue.fichiers.push_back(b.D() / "M.txt");
    try {
        OperationAfc(b.ctx);
        ADD_FAILURE() << "le solveur a échoué sans erreur";
    } catch (const ErreurExecution& e) {
        EXPECT_EQ(Cp1252VersUtf8(e.what()), "Le solveur axisolve a échoué (statut 1) : voyez son message. Les résultats de " +
                                                (b.D() / "M").generic_string() + " ne sont pas finalisés.");
    }
    // Without waiting, the failure is told at the button.
    OptionsLancementAfc().attendre = false;
    b.dialogue.fichiers.push_back(b.D() / "M.txt");
    OperationAfc(b.ctx);
    const long long pid = EtatAfcForm3().processus;
    ASSERT_GT(pid, 0);
    siginfo_t info{};
    waitid(P_PID, static_cast<id_t>(pid), &info, WEXITED | WNOWAIT);  // ended, not yet collected
    b.dialogue.messages.clear();
    BoutonFinalisation(b.ctx);
    ASSERT_EQ(b.dialogue.messages.size(), 1u);
    EXPECT_TRUE(Cp1252VersUtf8(b.dialogue.messages[0]).starts_with("Le solveur axisolve a échoué (statut 1)"));
    EXPECT_FALSE(EtatAfcForm3().AFC_A_FINALISER);
    EXPECT_EQ(EtatAfcForm3().processus, 0);

    // Beside the executable first, then the PATH folders in order; files that cannot run are passed over.
    const fs::path exe = b.D() / "exe", p1 = b.D() / "p1", p2 = b.D() / "p2";
    Ecrire(p1 / "axisolve", "non exécutable");
    Ecrire(p2 / "axisolve", "#!/bin/sh\n");
    fs::permissions(p2 / "axisolve", fs::perms::owner_all);
    fs::create_directories(exe);
    const std::string path = "::" + (b.D() / "absent").string() + ":" + p1.string() + ":" + p2.string();
    EXPECT_EQ(LocaliserSolveur(exe, path), p2 / "axisolve");
    EXPECT_EQ(LocaliserSolveur(exe, ""), std::nullopt);
    Ecrire(exe / "axisolve", "#!/bin/sh\n");
    fs::permissions(exe / "axisolve", fs::perms::owner_all);
    EXPECT_EQ(LocaliserSolveur(exe, path), exe / "axisolve");
}

TEST(Afc, FinalisationEtGrapheCasLimites) {
    DossierTemporaire t;
    const fs::path F = t.Chemin();
    // Keys 0 (0.00005 rounds to even), 2 (1.5), 2 (2.5 rounds to even), 1: order 3, 2, 4, 1.
    EXPECT_EQ(OrdreFacteurs({0, 2, 2, 1}), (std::vector<int>{3, 2, 4, 1}));
    EXPECT_EQ(OrdreFacteurs({5, 5, 5}), (std::vector<int>{3, 2, 1}));
    std::vector<std::string> eigen{"en-tete"};
    for (int i = 1; i <= 30; ++i)
        eigen.push_back(std::to_string(i) + "\t" + (i == 1 ? "0.00005" : i == 2 ? "0.00015" : i == 3 ? "0.00025" : "0.00001") +
                        "\t" + std::to_string(40 - i) + ".125\t0");
    Ecrire(F / "eigen.txt", Lignes(eigen));
    std::string ligne = "a", entete = "h";
    for (int i = 1; i <= 30; ++i) ligne.append("\t").append(std::to_string(i)).append(".5");
    for (const char* nom : {"conco", "conli", "corco", "corli", "cosco", "cosli", "disco", "disli"})
        Ecrire(F / (std::string(nom) + ".txt"), Lignes({entete, ligne}));
    Ecrire(F / "STATS.txt", Lignes({"12", "", "0"}));
    const auto ordre = FinaliserFichiersAfc(F);
    // Keys 0, 2, 2, then 0 for the 27 others: factors 3, 2, then 30 down to 4, then 1.
    ASSERT_EQ(ordre.size(), 30u);
    EXPECT_EQ(std::vector<int>(ordre.begin(), ordre.begin() + 5), (std::vector<int>{3, 2, 30, 29, 28}));
    EXPECT_TRUE(Lire(F / "corli.txt").starts_with("h\r\na\t3,5\t2,5\t30,5\t29,5\t28,5\t27,5"));
    const GrapheInertie g = DessinerGrapheInertie(F);
    EXPECT_EQ(g.boites.size(), 25u);
    EXPECT_EQ(g.boites[24].gauche, 200 * 24 + 200);
    ASSERT_EQ(g.textes.size(), 13u);
    EXPECT_EQ(g.textes[0].texte, "30 facteurs.");
    EXPECT_EQ(g.textes[1].texte, "Facteur 1 : 37,12 %");  // factor 3: 37.125 rounds to even
    EXPECT_EQ(g.textes[10].texte, "Facteur 10 : 17,12 %");
    EXPECT_EQ(g.textes[11].texte, Joindre("trace : 0,00072. Chi-deux :  pour 0 degr"_cp, "\xE9s de libert\xE9."));

    // Errors: a short eigen line, a line that lacks a factor's field, a missing file.
    auto erreur = [&](auto&& f) -> std::string {
        try {
            f();
        } catch (const ErreurExecution& e) {
            return Cp1252VersUtf8(e.what());
        }
        return "aucune erreur";
    };
    Ecrire(F / "eigen.txt", Lignes({"h", "1\t0.5\t50\t50", "2\t0.5\t50"}));
    EXPECT_EQ(erreur([&] { FinaliserFichiersAfc(F); }),
              "Ligne 3 de " + (F / "eigen.txt").generic_string() + " : moins de quatre champs");
    Ecrire(F / "eigen.txt", Lignes({"h", "1\t0.1\t10\t10", "2\t0.5\t50\t60"}));
    Ecrire(F / "conco.txt", Lignes({"h", "a\t1.5"}));
    EXPECT_EQ(erreur([&] { FinaliserFichiersAfc(F); }),
              "Ligne 2 de " + (F / "conco.txt").generic_string() +
                  " : pas de champ pour le facteur 2 (1 facteurs sur la ligne, 2 dans eigen.txt)");
    fs::remove(F / "conco.txt");
    EXPECT_EQ(erreur([&] { FinaliserFichiersAfc(F); }), "Fichier introuvable : " + (F / "conco.txt").generic_string());
    Ecrire(F / "eigen.txt", "h");
    EXPECT_EQ(erreur([&] { DessinerGrapheInertie(F); }),
              "Division par zéro : aucun facteur dans " + (F / "eigen.txt").generic_string());
}

TEST(Afc, AvecLeVraiSolveur) {
    const fs::path solveur = fs::path(TELVORIS_EXE).parent_path() / "axisolve";
    if (!fs::exists(solveur)) GTEST_SKIP() << "axisolve n'est pas construit";
    BancAfc b;
    OptionsLancementAfc().solveur = solveur;
    OptionsLancementAfc().attendre = true;
    // Two blocks: rows x, y with columns A, B; row z with column C. The first factor (eigenvalue 1)
    // separates the blocks; the second (1/9, the phi-squared of the block [[2, 1], [1, 2]]) x from y.
    // Squared distances: C 2, A and B 2/3, of which 1/2 on the first factor.
    Ecrire(b.D() / "M.txt", Lignes({"\tA\tB\tC", "x\t2\t1\t0", "y\t1\t2\t0", "z\t0\t0\t3"}));
    b.dialogue.fichiers.push_back(b.D() / "M.txt");
    OperationAfc(b.ctx);
    const fs::path F = b.D() / "M";
    EXPECT_EQ(Lire(F / "eigen.txt"), "facteur\tvaleur_propre\tpourcentage\tpourcentage_cumule\r\n"
                                     "1\t1\t90\t90\r\n2\t0,111111111111\t10\t100");
    EXPECT_EQ(Lire(F / "corco.txt"), "colonnes_coordonnees\tF1\tF2\r\nA\t-0,707106781187\t0,408248290464\r\n"
                                     "B\t-0,707106781187\t-0,408248290464\r\nC\t1,41421356237\t0");
    EXPECT_EQ(EtatAfcForm3().graphe.textes[1].texte, "Facteur 1 : 90 %");
}

}  // namespace
}  // namespace telvoris::test
