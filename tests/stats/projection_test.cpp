// Projections of a finalised analysis: the panel's checks, placing on the square, contribution
// codes with the fields that are read, the globe geometry, and whole files byte for byte.
#include <gtest/gtest.h>

#include "core/erreurs.hpp"
#include "core/nombres.hpp"
#include "core/texte.hpp"
#include "stats/projection.hpp"
#include "support/support.hpp"

namespace telvoris::test {
namespace {

// A finalised result folder: three factors, two columns, three rows; no final line ends.
fs::path EcrireResultats(const fs::path& racine) {
    const fs::path r = racine / "R";
    Ecrire(r / "corco.txt", "h\tF1\tF2\tF3\r\nA\t0,5\t-0,25\t0,1\r\nB\t-0,3\t0,2\t0");
    Ecrire(r / "conco.txt", "h\tF1\tF2\tF3\r\nA\t0,7\t0,2\t0,9\r\nB\t0,3\t0,8\t0,1");
    Ecrire(r / "corli.txt", "h\tF1\tF2\tF3\r\nx\t0,25\t0,4\t0,01\r\ny\t-0,1\t-0,6\t0,02\r\nz\t0\t0\t0");
    Ecrire(r / "conli.txt", "h\tF1\tF2\tF3\r\nx\t0,5\t0,25\t0,3\r\ny\t0,45\t0,7\t0,6\r\nz\t0,05\t0,05\t0,1");
    Ecrire(r / "eigen.txt", "facteur\tvaleur_propre\tpourcentage\tpourcentage_cumule\r\n2\t0,3\t50,5\t50,5\r\n"
                            "1\t0,2\t33,25\t83,75\r\n3\t0,1\t16,25\t100");
    Ecrire(r / "STATS.txt", "10\r\n\r\n0\r\n");
    return r;
}

struct BancProjection {
    DossierTemporaire dossier;
    DialogueScripte dialogue;
    HorlogeFixe horloge{Instant{2026, 11, 21, 10, 5, 0}};
    Contexte ctx{dialogue, horloge, dossier.Chemin() / "res"};
    fs::path r = EcrireResultats(dossier.Chemin());
    void Repondre(const std::vector<std::string>& reponses) {
        for (const auto& x : reponses) dialogue.reponses.push_back(x);
    }
};

std::string EnUtf8(const std::vector<std::string>& v) {
    std::string r;
    for (const auto& s : v) r += Cp1252VersUtf8(s) + "|";
    return r;
}

TEST(Projection, PanneauEtSesMessages) {
    DialogueScripte d;
    d.reponses = {"2", "1", "N", "O", "O", "N", "N", "O"};
    auto p = DemanderParametresProjection(d, 2);
    ASSERT_TRUE(p);
    EXPECT_EQ(p->axes, (std::vector<long long>{2, 1}));
    EXPECT_FALSE(p->coordColonnes);
    EXPECT_TRUE(p->coordLignes);
    EXPECT_TRUE(p->valeursPropres);
    EXPECT_TRUE(p->trace);
    EXPECT_TRUE(d.messages.empty());
    // Above 10: a warning, and the factor is kept. An empty field is kept as 0.
    d.reponses = {"12", "", "", "o", "n", "O", "O", "O", "n"};
    p = DemanderParametresProjection(d, 3);
    ASSERT_TRUE(p);
    EXPECT_EQ(p->axes, (std::vector<long long>{12, 0, 0}));
    EXPECT_EQ(EnUtf8(d.messages), "Attention ! Etes-vous certain que votre matrice comporte 12 dimensions ou plus ?|");
    d.messages.clear();
    d.reponses = {"1", "1"};
    EXPECT_FALSE(DemanderParametresProjection(d, 2));
    EXPECT_EQ(EnUtf8(d.messages), "Vous ne devez pas saisir 2 références identiques|");
    d.messages.clear();
    d.reponses = {"1", "deux"};
    EXPECT_FALSE(DemanderParametresProjection(d, 2));
    EXPECT_EQ(EnUtf8(d.messages), "Vous ne devez saisir ici qu'un nombre|");
    d.messages.clear();
    d.reponses = {"1", "-2"};
    EXPECT_FALSE(DemanderParametresProjection(d, 2));
    EXPECT_EQ(EnUtf8(d.messages), "Vous ne devez saisir ici qu'un nombre|");
    d.messages.clear();
    d.reponses = {"1", "2", "peut-être"};
    EXPECT_FALSE(DemanderParametresProjection(d, 2));
    EXPECT_EQ(EnUtf8(d.messages), "Répondez par O ou N : « coord. colonnes »|");
}

TEST(Projection, PlacementEtCodes) {
    // The largest |x| scales both axes; then the longest axis is brought to 4,800 from the centre.
    EXPECT_EQ(PlacerPlan({{500, 100}, {-300, 0}, {250, 10}, {-100, 20}, {0, 0}}),
              (std::vector<std::pair<long long, long long>>{{9800, 5960}, {2120, 5000}, {7400, 5096}, {4040, 5192}, {5000, 5000}}));
    // A taller cloud: y beyond x leaves the square at the first stage, and the second brings it back.
    EXPECT_EQ(PlacerPlan({{100, 400}, {-50, -100}}),
              (std::vector<std::pair<long long, long long>>{{6200, 9800}, {4400, 3800}}));
    // 3 x 5000 / 8 = 1875, then 0.96 x 1875 = 1800 and 0.96 x 625 = 600.
    EXPECT_EQ(PlacerPlan({{8, 0}, {3, 1}}),
              (std::vector<std::pair<long long, long long>>{{9800, 5000}, {6800, 5600}}));
    try {
        PlacerPlan({{0, 3}, {0, -2}});
        ADD_FAILURE() << "pas de division par zéro";
    } catch (const ErreurExecution& e) {
        EXPECT_EQ(Cp1252VersUtf8(e.what()), "Division par zéro : toutes les abscisses de la carte sont nulles");
    }
    // A = 1 / 10: exactly 6 x A is code 1, exactly 3 x A code 0.
    EXPECT_EQ(CodeContribution(0.6, 10), 1);
    EXPECT_EQ(CodeContribution(0.61, 10), 2);
    EXPECT_EQ(CodeContribution(0.3, 10), 0);
    EXPECT_EQ(CodeContribution(0.31, 10), 1);
    EXPECT_EQ(CodeContribution(0, 10), 0);

    auto globe = [](double x, double y, double z) {
        const PointGlobe p = PlacerGlobe(x, y, z);
        return FormaterDouble(p.longitude) + " " + FormaterDouble(p.latitude) + " " + FormaterDouble(p.distance);
    };
    EXPECT_EQ(globe(0, 0, 0.5), "90 90 0,5");  // the pole
    EXPECT_EQ(globe(0, 0, -0.5), "90 -90 0,5");
    EXPECT_EQ(globe(-1, 0, -2), "270 -63,434948822922 2,23606797749979");
    EXPECT_EQ(globe(0, 1, 0), "0,0572957604145006 0 1");  // x at 0 is taken as 1/1000 for the longitude
    EXPECT_EQ(globe(0, -1, 0), "179,942704239586 0 1");
    EXPECT_EQ(globe(1, 1, 0), "45 0 1,4142135623731");
    EXPECT_EQ(globe(-1, 1, 0), "315 0 1,4142135623731");
    EXPECT_EQ(globe(-1, -1, 0), "225 0 1,4142135623731");
    EXPECT_EQ(globe(1, -1, 0), "135 0 1,4142135623731");
}

TEST(Projection, PlanOctetPourOctet) {
    BancProjection b;
    // Axes 1 and 3: the columns' contributions are read from fields 2 and 3 (axis 1 and the factor
    // after it), the rows' from fields 2 and 3 as always.
    b.Repondre({"1", "3", "O", "O", "O", "O", "O", "O"});
    b.dialogue.fichiers = {b.r / "corco.txt", b.r / "corli.txt"};
    OperationProjection2(b.ctx);
    EXPECT_EQ(Lire(b.r / "coli_PROJ13.txt"),
              Lignes({"2/3", "A\t9800\t5960\t1\t0", "B\t2120\t5000\t0\t1", "x\t7400\t5096\t0\t0", "y\t4040\t5192\t0\t1",
                      "z\t5000\t5000\t0\t0", "**1\xA4" "50,5", "**3\xA4" "16,25", "***50,5", "***33,25", "***16,25",
                      "###10", "###", "###0"}));
    EXPECT_EQ(EnUtf8(b.dialogue.messages), (b.r / "coli_PROJ13.txt").generic_string() + "|Terminé en 1 secondes|");

    // Rows alone: 0 columns, the name starts with "li", no eigenvalues, no statistics.
    b.dialogue.messages.clear();
    b.Repondre({"1", "3", "N", "O", "N", "O", "O", "N"});
    b.dialogue.fichiers = {b.r / "corli.txt"};
    OperationProjection2(b.ctx);
    EXPECT_EQ(Lire(b.r / "li_PROJ13.txt"),
              Lignes({"0/3", "x\t9800\t5192\t0\t0", "y\t3080\t5384\t0\t0", "z\t5000\t5000\t0\t0"}));
}

TEST(Projection, PlanErreurs) {
    BancProjection b;
    auto lancer = [&](const std::vector<std::string>& reponses, std::vector<fs::path> fichiers) -> std::string {
        b.dialogue.messages.clear();
        b.Repondre(reponses);
        b.dialogue.fichiers.assign(fichiers.begin(), fichiers.end());
        try {
            OperationProjection2(b.ctx);
        } catch (const FinProgramme& e) {
            return "fin : " + Cp1252VersUtf8(e.what());
        } catch (const ErreurExecution& e) {
            return "erreur : " + Cp1252VersUtf8(e.what());
        }
        return EnUtf8(b.dialogue.messages);
    };
    EXPECT_EQ(lancer({"", "2", "O", "O", "O", "O", "O", "N"}, {}), "L'un des champs de saisie des facteurs est vide.|");
    EXPECT_EQ(lancer({"1", "4", "O", "O", "O", "O", "O", "N"}, {b.r / "corco.txt"}),
              "fin : Vous avez choisi un facteur qui n'existe pas dans les limites de la matrice analysée");
    // Axis 1 on factor 3: the columns' second contribution would be field 5, which is not there.
    EXPECT_EQ(lancer({"3", "1", "O", "N", "N", "O", "O", "N"}, {b.r / "corco.txt"}),
              "erreur : Champ 5 absent à la ligne 2 de " + (b.r / "conco.txt").generic_string() + " (4 champs)");
    // The rows never have that problem.
    EXPECT_EQ(lancer({"3", "1", "N", "O", "N", "O", "O", "N"}, {b.r / "corli.txt"}),
              (b.r / "li_PROJ31.txt").generic_string() + "|Terminé en 1 secondes|");
    Ecrire(b.r / "corli.txt", "h\tF1\tF2\r\nx\t0,25\tabc");
    EXPECT_EQ(lancer({"1", "2", "N", "O", "N", "O", "O", "N"}, {b.r / "corli.txt"}),
              "erreur : Conversion impossible en nombre : « abc » (fichier " + (b.r / "corli.txt").generic_string() +
                  ", ligne 2)");
    EXPECT_EQ(lancer({"1", "2", "N", "N", "O", "O", "O", "N"}, {}),
              "Cochez « coord. colonnes » ou « coord. lignes » : il n'y a rien à projeter.|");
    // Cancel at the file dialog: nothing is written.
    EXPECT_EQ(lancer({"1", "2", "O", "N", "O", "O", "O", "N"}, {}), "");
    std::string grand = "h\tF1\tF2";
    for (int i = 0; i < 1201; ++i) grand += "\r\ni" + std::to_string(i) + "\t1\t1";
    Ecrire(b.r / "corli.txt", grand);
    EXPECT_EQ(lancer({"1", "2", "N", "O", "N", "O", "O", "N"}, {b.r / "corli.txt"}),
              "erreur : Limite dépassée : plus de 1200 éléments à projeter (lignes et colonnes) (MAX_ITEMS_PROJECTION = 1200)");
}

TEST(Projection, GlobeOctetPourOctet) {
    BancProjection b;
    b.Repondre({"1", "2", "3", "O", "O", "O", "O", "O", "O"});
    b.dialogue.fichiers = {b.r / "corco.txt", b.r / "corli.txt"};
    OperationProjection3(b.ctx);
    EXPECT_EQ(Lire(b.r / "_PLANISPH_123.txt"),
              Lignes({"&2/3", "A\t116,565\t10,142\t0,568\t0,7\t0,2\t0,9", "B\t303,69\t0\t0,361\t0,3\t0,8\t0,1",
                      "x\t32,005\t1,214\t0,472\t0,5\t0,25\t0,3", "y\t189,462\t1,883\t0,609\t0,45\t0,7\t0,6",
                      "z\t90\t90\t0\t0,05\t0,05\t0,1", "***50,5", "***33,25", "***16,25", "###10", "###", "###0"}));

    // Contributions with the real factor numbers; in 3D an empty axis is not checked by the panel.
    b.dialogue.messages.clear();
    b.Repondre({"3", "1", "2", "N", "O", "N", "O", "O", "N"});
    b.dialogue.fichiers = {b.r / "corli.txt"};
    OperationProjection3(b.ctx);
    EXPECT_EQ(Lire(b.r / "_PLANISPH_312.txt"),
              Lignes({"&0/3", "x\t2,291\t57,974\t0,472\t0,3\t0,5\t0,25", "y\t168,69\t-80,354\t0,609\t0,6\t0,45\t0,7",
                      "z\t90\t90\t0\t0,1\t0,05\t0,05"}));

    auto lancer = [&](const std::vector<std::string>& reponses, std::vector<fs::path> fichiers) -> std::string {
        b.Repondre(reponses);
        b.dialogue.fichiers.assign(fichiers.begin(), fichiers.end());
        try {
            OperationProjection3(b.ctx);
        } catch (const FinProgramme& e) {
            return "fin : " + Cp1252VersUtf8(e.what());
        } catch (const ErreurExecution& e) {
            return "erreur : " + Cp1252VersUtf8(e.what());
        }
        return "fait";
    };
    EXPECT_EQ(lancer({"1", "", "3", "N", "O", "N", "O", "O", "N"}, {b.r / "corli.txt"}),
              "erreur : Facteur 0 hors limites : le champ de l'axe 2 est vide ou nul");
    EXPECT_EQ(lancer({"1", "2", "4", "N", "O", "N", "O", "O", "N"}, {b.r / "corli.txt"}),
              "erreur : Champ 5 absent à la ligne 2 de " + (b.r / "corli.txt").generic_string() + " (4 champs)");
    Ecrire(b.r / "conli.txt", "h\tF1\tF2\tF3\r\nx\t0,5\t0,25\t0,3\r\ny\t0,45\t0,7\t0,6");
    EXPECT_EQ(lancer({"1", "2", "3", "N", "O", "N", "O", "O", "N"}, {b.r / "corli.txt"}), "fin : Diff corli/conli 3 2");
    Ecrire(b.r / "conco.txt", "h\tF1\tF2\tF3\r\nA\t0,7\t0,2\t0,9");
    EXPECT_EQ(lancer({"1", "2", "3", "O", "N", "N", "O", "O", "N"}, {b.r / "corco.txt"}), "fin : Diff corco/conco");
}

}  // namespace
}  // namespace telvoris::test
