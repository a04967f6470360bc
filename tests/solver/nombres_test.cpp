// Numbers read from a matrix and written in the result files, and the matrix read by blocks.
#include <gtest/gtest.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <random>
#include <string>

#include "solver/matrice.hpp"
#include "solver/nombres.hpp"
#include "support/support.hpp"

namespace {

using namespace axisolve;
using telvoris::test::DossierTemporaire;
using telvoris::test::Ecrire;

// How the result files have always written a number: the exponent from the logarithm, the fixed
// notation at the twelfth significant digit, trailing zeros dropped.
std::string Historique(double x) {
    if (x == 0) return "0";
    const int e = static_cast<int>(std::floor(std::log10(std::abs(x))));
    const int decimales = std::clamp(11 - e, 0, 40);
    char b[400];
    const auto r = std::to_chars(b, b + sizeof b, x, std::chars_format::fixed, decimales);
    std::string s(b, r.ptr);
    if (s.find('.') != std::string::npos) {
        while (s.back() == '0') s.pop_back();
        if (s.back() == '.') s.pop_back();
    }
    if (s == "-0") s = "0";
    return s;
}

double Lire(std::string_view t) {
    double v = -1;
    bool negatif;
    EXPECT_TRUE(LireCellule(t, v, negatif)) << t;
    return v;
}

TEST(SolveurNombres, EcritureIdentiqueAuxFichiersExistants) {
    // Awkward values: ties at the thirteenth digit, powers of ten and their neighbours, the ends of
    // the short path, nines that carry, denormals, huge and tiny values, -0.
    std::vector<double> valeurs = {12345678901.25,   -12345678901.25,  0.1234567890125,  1e11,
                                   99999999999.99999, 1e-28,           9.99999999999999e-29, 1e-29,
                                   0.999999999999951, 0.9999999999995, 0.99999999999949, 1e-300,
                                   5e-324,           -5e-324,         1.7976931348623157e308, 123456789012345678.0,
                                   -0.0,             0.001,           1000,             0.30000000000000004,
                                   2.5e-5,           7.0 / 3,         -1.0 / 7};
    for (int p = -30; p <= 14; ++p) {
        const double d = std::pow(10.0, p);
        valeurs.insert(valeurs.end(), {d, std::nextafter(d, 0.0), std::nextafter(d, 1e300), -d});
    }
    std::mt19937_64 gen(42);
    std::uniform_real_distribution<double> mantisse(1, 10);
    std::uniform_int_distribution<int> exposant(-32, 13);
    for (int i = 0; i < 300000; ++i) {
        double x = mantisse(gen) * std::pow(10.0, exposant(gen));
        if (i % 3 == 0) x = -x;
        // Values a few units from a 13-digit tie, where the shortest digits alone cannot decide.
        if (i % 5 == 0) {
            const double grille = std::pow(10.0, std::floor(std::log10(std::abs(x))) - 12);
            x = std::nextafter((std::round(x / grille) + 0.5) * grille, (i % 2) ? 1e300 : -1e300);
        }
        valeurs.push_back(x);
    }
    int ecarts = 0;
    for (const double x : valeurs) {
        if (FormaterPoint(x) != Historique(x) && ++ecarts < 10)
            ADD_FAILURE() << "x = " << std::hexfloat << x << " : " << FormaterPoint(x) << " au lieu de " << Historique(x);
    }
    EXPECT_EQ(ecarts, 0);
    EXPECT_EQ(FormaterPoint(-0.0), "0");
    EXPECT_EQ(FormaterPoint(12345678901.25), "12345678901.2");  // a tie goes to the even digit
    EXPECT_EQ(FormaterPoint(99999999999.99999), "100000000000");
    EXPECT_EQ(FormaterPoint(0.99999999999951), "1");
    EXPECT_EQ(FormaterPoint(5e-324), "0");
    EXPECT_EQ(FormaterPoint(std::numeric_limits<double>::quiet_NaN()), "nan");
    EXPECT_EQ(FormaterPoint(-std::numeric_limits<double>::infinity()), "-inf");
    EXPECT_EQ(FormaterPoint(1.7976931348623157e308).size(), 309u);
}

TEST(SolveurNombres, AllerRetour) {
    // What is written reads back within the twelfth digit, decimal comma or point.
    std::mt19937_64 gen(3);
    std::uniform_real_distribution<double> u(-1, 1);
    for (int i = 0; i < 20000; ++i) {
        const double x = std::abs(u(gen)) * std::pow(10.0, i % 20 - 12);
        std::string t = FormaterPoint(x);
        EXPECT_NEAR(Lire(t), x, 5e-12 * x) << t;
        std::replace(t.begin(), t.end(), '.', ',');
        EXPECT_NEAR(Lire(t), x, 5e-12 * x) << t;
    }
    // Cells: plain counts, signs, separators, very long mantissas and integers beyond 64 bits.
    EXPECT_EQ(Lire("0"), 0);
    EXPECT_EQ(Lire("00012"), 12);
    EXPECT_EQ(Lire("+3"), 3);
    EXPECT_EQ(Lire("2,"), 2);
    EXPECT_EQ(Lire(",5"), 0.5);
    EXPECT_EQ(Lire("18446744073709551615"), 18446744073709551615.0);
    EXPECT_EQ(Lire("123456789012345678901234567890"), 1.2345678901234568e29);
    EXPECT_EQ(Lire("0.1000000000000000055511151231257827021181583404541015625"), 0.1);
    // Either side of the exact middle between 0.3 and the next double, 56 digits in.
    EXPECT_EQ(Lire("0,30000000000000001665334536937734810635447502136230468749"), 0.3);
    EXPECT_EQ(Lire("0,30000000000000001665334536937734810635447502136230468751"), 0.1 + 0.2);
    const std::string longue = "1." + std::string(200, '0') + "1";
    EXPECT_EQ(Lire(longue), 1.0);
    // The smallest denormal reads as itself; beyond it the cell is refused, not silently zero.
    EXPECT_EQ(Lire("0." + std::string(323, '0') + "5"), 5e-324);
    double v;
    bool negatif;
    EXPECT_FALSE(LireCellule("0." + std::string(400, '0') + "1", v, negatif));
    EXPECT_FALSE(LireCellule("1" + std::string(400, '0'), v, negatif));  // beyond the largest double
    // Refused forms, and the negative flag even for zero.
    for (const char* t : {"", "1e5", "1E5", " 1", "1 ", "1.2.3", "1,2,3", "-", "+", ".", "0x10", "inf", "nan", "1-"})
        EXPECT_FALSE(LireCellule(t, v, negatif)) << t;
    ASSERT_TRUE(LireCellule("-0", v, negatif));
    EXPECT_TRUE(negatif);
    ASSERT_TRUE(LireCellule("-2,5", v, negatif));
    EXPECT_TRUE(negatif);
    EXPECT_EQ(v, -2.5);
    ASSERT_TRUE(LireCellule("7", v, negatif));
    EXPECT_FALSE(negatif);
}

TEST(SolveurNombres, MatriceLueParBlocs) {
    DossierTemporaire t;
    // A row longer than the 4 MiB read buffer, and a CR LF split across the buffer's end: the
    // file and the same text in memory give the same table.
    const std::size_t colonnes = 900'000;
    std::string texte;
    texte.reserve(colonnes * 4 + 100);
    for (std::size_t j = 0; j < colonnes; ++j) texte += "\tc";
    texte += "\r\nlongue";
    for (std::size_t j = 0; j < colonnes; ++j) texte += j % 7 ? "\t12345" : "\t23";
    texte += "\r\ncourte";
    for (std::size_t j = 0; j < colonnes; ++j) texte += "\t0";
    texte += "\r\n\r\n";
    Ecrire(t.Chemin() / "L.txt", texte);
    const Matrice f = LireFichierMatrice((t.Chemin() / "L.txt").string());
    ASSERT_EQ(f.lignes, (std::vector<std::string>{"longue", "courte"}));
    ASSERT_EQ(f.n.cols(), static_cast<Eigen::Index>(colonnes));
    EXPECT_EQ(f.n(0, 0), 23);
    EXPECT_EQ(f.n(0, 1), 12345);
    EXPECT_EQ(f.n(0, colonnes - 1), (colonnes - 1) % 7 ? 12345 : 23);
    EXPECT_EQ(f.n.row(1).sum(), 0);
    EXPECT_EQ(f.n, LireMatrice(texte, "L.txt").n);

    // A row's CR LF at the buffer's end: CR first in the next block, CR last with its LF in the
    // next block, both in the block.
    for (std::size_t decalage = 0; decalage < 3; ++decalage) {
        std::string s = "\tA\tB\r";
        s += std::string((1 << 22) - s.size() - 4 - decalage, 'x') + "\t1\t2\r\n";
        s += "y\t3\t4\r\rz\t5\t6\n";
        Ecrire(t.Chemin() / "B.txt", s);
        std::string message;
        try {
            LireFichierMatrice((t.Chemin() / "B.txt").string());
        } catch (const ErreurSolveur& e) {
            message = e.what();
        }
        // The lone CR after y ends its row, and leaves an empty row: named with its place.
        EXPECT_EQ(message, "Ligne 3 de la matrice (ligne 4 du fichier " + (t.Chemin() / "B.txt").string() +
                               ") : 0 cellules pour 2 colonnes.")
            << decalage;
        s.replace(s.find("\r\r"), 2, "\r");
        Ecrire(t.Chemin() / "B.txt", s);
        const Matrice m = LireFichierMatrice((t.Chemin() / "B.txt").string());
        ASSERT_EQ(m.lignes.size(), 3u) << decalage;
        EXPECT_EQ(m.lignes[0].size(), (1u << 22) - 9 - decalage);
        EXPECT_EQ(m.lignes[2], "z");
        EXPECT_EQ(m.n(1, 1), 4);
        EXPECT_EQ(m.n(2, 0), 5);
    }
}

}  // namespace
