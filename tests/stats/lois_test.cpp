#include "stats/lois.hpp"

#include <gtest/gtest.h>

#include "core/erreurs.hpp"
#include "core/texte.hpp"
#include "stats/outils.hpp"

namespace telvoris {
namespace {

using test::Banc;
using test::Lignes;

double Nombre(std::string t) {
    for (char& c : t)
        if (c == ',') c = '.';
    return std::stod(t);
}

std::vector<std::string> Champs(const std::string& ligne) {
    std::vector<std::string> r;
    std::size_t debut = 0;
    for (;;) {
        const auto tab = ligne.find('\t', debut);
        r.push_back(ligne.substr(debut, tab == std::string::npos ? std::string::npos : tab - debut));
        if (tab == std::string::npos) return r;
        debut = tab + 1;
    }
}

std::vector<std::string> LignesDe(const std::string& texte) {
    std::vector<std::string> r;
    std::size_t debut = 0;
    while (debut < texte.size()) {
        const auto fin = texte.find("\r\n", debut);
        r.push_back(texte.substr(debut, fin - debut));
        debut = fin + 2;
    }
    return r;
}

// Reference values computed once with Python's exact fractions (python3, math.comb, Fraction):
//   P = comb(n,k) * p**k * (1-p)**(n-k); tail = sum of P(j) for j >= k; printed with float().
TEST(Binomiale, ValeursContreUnCalculExactEtBornes) {
    const auto t10 = TableBinomiale(10, 0.3);
    ASSERT_EQ(t10.size(), 11u);
    EXPECT_NEAR(t10[0].probabilite, 0.0282475249, 1e-15);
    EXPECT_NEAR(t10[0].queue, 1.0, 1e-14);
    EXPECT_NEAR(t10[3].probabilite, 0.266827932, 1e-14);
    EXPECT_NEAR(t10[3].queue, 0.6172172136, 1e-14);
    EXPECT_NEAR(t10[10].probabilite, 5.9049e-06, 1e-19);
    EXPECT_NEAR(t10[10].queue, 5.9049e-06, 1e-19);
    // n = 1000: C(1000, 500) is near 1e299 and 0.5^1000 near 1e-301; neither may overflow.
    const auto t1000 = TableBinomiale(1000, 0.5);
    EXPECT_NEAR(t1000[500].probabilite / 0.0252250181783608, 1.0, 1e-11);
    EXPECT_NEAR(t1000[600].queue / 1.3642320780330092e-10, 1.0, 1e-9);
    const auto rare = TableBinomiale(1000, 0.01);
    EXPECT_NEAR(rare[0].probabilite / 4.317124741065825e-05, 1.0, 1e-11);
    EXPECT_NEAR(rare[30].queue / 2.0599888509719576e-07, 1.0, 1e-9);
    EXPECT_EQ(rare[1000].probabilite, 0.0);
    // The certain cases.
    const auto zero = TableBinomiale(4, 0.0), un = TableBinomiale(4, 1.0);
    EXPECT_EQ(zero[0].probabilite, 1.0);
    EXPECT_EQ(zero[1].queue, 0.0);
    EXPECT_EQ(un[4].probabilite, 1.0);
    EXPECT_EQ(un[0].queue, 1.0);
    EXPECT_NE(test::MessageErreur([] { TableBinomiale(1001, 0.5); }).find("MAX_EMPAN_BINOMIALE"), std::string::npos);
    EXPECT_NE(test::MessageErreur([] { TableBinomiale(5, 1.5); }).find("Probabilité hors"), std::string::npos);

    // The command puts its table on the result pane.
    Banc b;
    b.dialogue.reponses = {"2", "0,5"};
    OperationBinomialeEssai(b.ctx);
    ASSERT_EQ(b.dialogue.messages.size(), 1u);
    EXPECT_EQ(b.dialogue.messages[0], "k\tP(k)\tP(>= k)\r\n0\t0,25\t1\r\n1\t0,5\t0,75\r\n2\t0,25\t0,25\r\n");
    EXPECT_EQ(b.dialogue.questions, (std::vector<std::string>{"Empan ?", std::string("Probabilité ?"_cp)}));
}

// Reference: ranks with ties at the mean of their span, rho = 1 - 6 Σd² / (N(N² - 1)), in Python.
// l1 = a 10, b 8, c 8, d 3; l2 = b 9, a 7, d 7, c 1: N(N²-1)/3 = 20, Q = 0.45, 2Q = 0.9, rho = 0.1.
TEST(Spearman, RangsPartagesFichierEtListesIdentiques) {
    EXPECT_EQ(RangsSpearman({5, 9, 5, 5, 1}), (std::vector<float>{3, 1, 3, 3, 5}));
    EXPECT_EQ(RangsSpearman({2, 2}), (std::vector<float>{1.5f, 1.5f}));

    Banc b;
    const auto liste = b.racine / "sp.txt";
    test::Ecrire(liste, Lignes({"a\t10\tb\t9", "b\t8\ta\t7", "c\t8\td\t7", "d\t3\tc\t1"}));
    b.dialogue.fichiers = {liste};
    OperationSpearman(b.ctx);
    const auto l = LignesDe(b.Sortie("_SPEARMAN.txt"));
    ASSERT_EQ(l.size(), 4u);
    EXPECT_EQ(l[0], "20");
    EXPECT_EQ(l[1], "0,45");
    EXPECT_EQ(l[2], "0,9");
    EXPECT_NEAR(Nombre(l[3]), 0.1, 1e-14);

    // The same list twice gives 1; a single item divides by zero; a missing item is named.
    const std::vector<std::pair<std::string, long long>> same = {{"x", 4}, {"y", 3}, {"z", 3}};
    EXPECT_EQ(Spearman(same, same).rho, 1.0);
    EXPECT_NE(test::MessageErreur([] { Spearman({{"x", 1}}, {{"x", 1}}); }).find("Division par zéro"), std::string::npos);
    EXPECT_NE(test::MessageErreur([] { Spearman({{"x", 1}, {"y", 2}}, {{"x", 1}, {"w", 2}}); }).find("« y »"),
              std::string::npos);
    test::Ecrire(liste, Lignes({"a\t10\tb"}));
    b.dialogue.fichiers = {liste};
    EXPECT_NE(test::MessageErreur([&] { OperationSpearman(b.ctx); }).find("ligne 1"), std::string::npos);
}

// Reference values from Python on the matrix below (E = c r / T, (O - E) / sqrt(E), and the
// 2-row chi-square of each pair, cells of expected value 0 left out).
TEST(ChiDeux, EcartsPairesEtCarreSurUnePetiteMatrice) {
    Banc b;
    const auto m = b.racine / "M.txt";
    test::Ecrire(m, Lignes({"\tA\tB\tC", "x\t10\t0\t5", "y\t2\t8\t0", "z\t0\t0\t0"}));
    b.dialogue.fichiers = {m};
    OperationChiDeux(b.ctx);
    const auto ecarts = LignesDe(b.Sortie("CHI-DEUX.txt"));
    ASSERT_EQ(ecarts.size(), 5u);
    EXPECT_EQ(ecarts[0], "\tA\tB\tC");
    const double attendus[] = {1.0434983894999017, -2.1908902300206647, 1.1547005383792517,
                               -1.2780193008453875, 2.6832815729997477, -1.414213562373095};
    for (int i = 0; i < 2; ++i) {
        const auto c = Champs(ecarts[static_cast<std::size_t>(i + 1)]);
        for (int j = 0; j < 3; ++j) EXPECT_NEAR(Nombre(c[static_cast<std::size_t>(j + 1)]), attendus[i * 3 + j], 1e-13);
    }
    EXPECT_EQ(ecarts[3], "z\t0\t0\t0");  // a row of expected value 0 counts for nothing
    EXPECT_EQ(Champs(ecarts[4])[0], "CHI-DEUX");
    EXPECT_NEAR(Nombre(Champs(ecarts[4])[1]), 18.055555555555557, 1e-12);

    const auto paires = LignesDe(b.Sortie("CHI-DEUX-PAIRES.txt"));
    ASSERT_EQ(paires.size(), 5u);
    EXPECT_EQ(Champs(paires[0])[0] + Champs(paires[0])[1], "xy");
    EXPECT_NEAR(Nombre(Champs(paires[0])[2]), 18.055555555555557, 1e-12);
    EXPECT_EQ(Champs(paires[0])[3], "2");
    EXPECT_EQ(paires[1], "x\tz\t0\t2");
    EXPECT_EQ(paires[2], "--------------------------");
    EXPECT_EQ(paires[3], "y\tz\t0\t2");
    EXPECT_EQ(paires[4], "--------------------------");
    const auto carre = LignesDe(b.Sortie("CHI-DEUX-PAIRES_TAB.txt"));
    ASSERT_EQ(carre.size(), 4u);
    EXPECT_EQ(carre[0], "\tx\ty\tz");
    EXPECT_EQ(Champs(carre[1])[1], "0");
    EXPECT_EQ(Champs(carre[1])[2], Champs(carre[2])[1]);
    EXPECT_EQ(carre[3], "z\t0\t0\t0");

    // A ragged row is named with its file and line.
    test::Ecrire(m, Lignes({"\tA\tB", "x\t1\t2", "y\t3"}));
    b.dialogue.fichiers = {m};
    const auto message = test::MessageErreur([&] { OperationChiDeux(b.ctx); });
    EXPECT_NE(message.find("1 cellules pour 2 colonnes"), std::string::npos) << message;
    EXPECT_NE(message.find("ligne 3"), std::string::npos) << message;
}

}  // namespace
}  // namespace telvoris
