// The solver against a correspondence analysis computed here another way: a plain SVD of the
// standardised residuals, with coordinates, contributions, cosines and distances taken from their
// textbook definitions (profiles, masses) rather than from the solver's formulas.
#include <gtest/gtest.h>

#include <Eigen/SVD>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <sys/wait.h>
#include <random>
#include <string>

#ifdef _OPENMP
#include <omp.h>
#endif

#include "solver/afc.hpp"
#include "solver/propres.hpp"
#include "support/support.hpp"

namespace {

using namespace axisolve;
using telvoris::test::DossierTemporaire;
using telvoris::test::Ecrire;
using telvoris::test::Lire;
using telvoris::test::Lignes;
namespace fs = std::filesystem;

Matrice Construire(const TableauLignes& n) {
    Matrice m;
    m.n = n;
    for (Eigen::Index i = 0; i < n.rows(); ++i) m.lignes.push_back(std::string("L").append(std::to_string(i + 1)));
    for (Eigen::Index j = 0; j < n.cols(); ++j) m.colonnes.push_back(std::string("C").append(std::to_string(j + 1)));
    return m;
}

struct Reference {
    Eigen::VectorXd valeurs;
    Eigen::MatrixXd F, G, ctrF, ctrG, cosF, cosG;
    Eigen::VectorXd d2F, d2G;
};

// The independent computation.
Reference CalculerReference(const Eigen::MatrixXd& n) {
    const Eigen::Index I = n.rows(), J = n.cols();
    const double total = n.sum();
    Eigen::VectorXd r(I), c(J);
    for (Eigen::Index i = 0; i < I; ++i) r(i) = n.row(i).sum() / total;
    for (Eigen::Index j = 0; j < J; ++j) c(j) = n.col(j).sum() / total;
    Eigen::MatrixXd s(I, J);
    for (Eigen::Index i = 0; i < I; ++i)
        for (Eigen::Index j = 0; j < J; ++j) s(i, j) = (n(i, j) / total - r(i) * c(j)) / std::sqrt(r(i) * c(j));
    Eigen::BDCSVD<Eigen::MatrixXd> svd(s, Eigen::ComputeThinU | Eigen::ComputeThinV);
    const Eigen::VectorXd sigma = svd.singularValues();
    Eigen::Index k = 0;
    while (k < sigma.size() && sigma(k) > 1e-7 * sigma(0)) ++k;
    Reference ref;
    ref.valeurs = sigma.head(k).cwiseAbs2();
    ref.F.resize(I, k);
    ref.G.resize(J, k);
    ref.ctrF.resize(I, k);
    ref.ctrG.resize(J, k);
    for (Eigen::Index f = 0; f < k; ++f) {
        for (Eigen::Index i = 0; i < I; ++i) {
            ref.F(i, f) = svd.matrixU()(i, f) * sigma(f) / std::sqrt(r(i));
            ref.ctrF(i, f) = svd.matrixU()(i, f) * svd.matrixU()(i, f);
        }
        for (Eigen::Index j = 0; j < J; ++j) {
            ref.G(j, f) = svd.matrixV()(j, f) * sigma(f) / std::sqrt(c(j));
            ref.ctrG(j, f) = svd.matrixV()(j, f) * svd.matrixV()(j, f);
        }
    }
    // Chi-square distances of the profiles to the centroid.
    ref.d2F = Eigen::VectorXd::Zero(I);
    ref.d2G = Eigen::VectorXd::Zero(J);
    for (Eigen::Index i = 0; i < I; ++i)
        for (Eigen::Index j = 0; j < J; ++j) {
            const double profilLigne = n(i, j) / total / r(i), profilColonne = n(i, j) / total / c(j);
            ref.d2F(i) += (profilLigne - c(j)) * (profilLigne - c(j)) / c(j);
            ref.d2G(j) += (profilColonne - r(i)) * (profilColonne - r(i)) / r(i);
        }
    ref.cosF = ref.F.cwiseAbs2().array().colwise() / ref.d2F.array();
    ref.cosG = ref.G.cwiseAbs2().array().colwise() / ref.d2G.array();
    return ref;
}

// Compares column by column, relative to each factor's largest value; returns the worst error.
double EcartColonnes(const Eigen::MatrixXd& a, const Eigen::MatrixXd& b) {
    EXPECT_EQ(a.rows(), b.rows());
    EXPECT_EQ(a.cols(), b.cols());
    double pire = 0;
    for (Eigen::Index f = 0; f < a.cols(); ++f) {
        const double echelle = b.col(f).cwiseAbs().maxCoeff();
        pire = std::max(pire, (a.col(f) - b.col(f)).cwiseAbs().maxCoeff() / echelle);
    }
    return pire;
}

void Verifier(const Eigen::MatrixXd& n, int facteurs, const char* quoi) {
    SCOPED_TRACE(quoi);
    const Resultat r = Analyser(Construire(n), facteurs);
    Reference ref = CalculerReference(n);
    const Eigen::Index k = r.valeurs.size();
    ASSERT_EQ(r.facteursNonTriviaux, ref.valeurs.size());
    ASSERT_EQ(k, facteurs > 0 ? std::min<Eigen::Index>(facteurs, ref.valeurs.size()) : ref.valeurs.size());
    EXPECT_NEAR(r.inertie, ref.valeurs.sum(), 1e-9 * r.inertie);
    for (Eigen::Index f = 0; f < k; ++f) {
        EXPECT_NEAR(r.valeurs(f), ref.valeurs(f), 1e-9 * ref.valeurs(f)) << "facteur " << f + 1;
        // The SVD's signs are its own: align them, then check the solver's rule on its own output.
        if (r.coordColonnes.col(f).dot(ref.G.col(f)) < 0) {
            ref.F.col(f) *= -1;
            ref.G.col(f) *= -1;
        }
        const double grand = r.coordColonnes.col(f).cwiseAbs().maxCoeff();
        Eigen::Index j = 0;
        while (std::abs(r.coordColonnes(j, f)) < grand * (1 - 1e-6)) ++j;
        EXPECT_GT(r.coordColonnes(j, f), 0) << "facteur " << f + 1;
    }
    auto tete = [k](const Eigen::MatrixXd& m) -> Eigen::MatrixXd { return m.leftCols(k); };
    EXPECT_LT(EcartColonnes(r.coordLignes, tete(ref.F)), 1e-9);
    EXPECT_LT(EcartColonnes(r.coordColonnes, tete(ref.G)), 1e-9);
    EXPECT_LT(EcartColonnes(r.contribLignes, tete(ref.ctrF)), 1e-9);
    EXPECT_LT(EcartColonnes(r.contribColonnes, tete(ref.ctrG)), 1e-9);
    EXPECT_LT(EcartColonnes(r.cos2Lignes, tete(ref.cosF)), 1e-9);
    EXPECT_LT(EcartColonnes(r.cos2Colonnes, tete(ref.cosG)), 1e-9);
    EXPECT_LT(((r.dist2Lignes - ref.d2F).array() / ref.d2F.array()).abs().maxCoeff(), 1e-9);
    EXPECT_LT(((r.dist2Colonnes - ref.d2G).array() / ref.d2G.array()).abs().maxCoeff(), 1e-9);
    // Contributions of all items to a factor make the whole factor.
    for (Eigen::Index f = 0; f < k; ++f) {
        EXPECT_NEAR(r.contribLignes.col(f).sum(), 1.0, 1e-12);
        EXPECT_NEAR(r.contribColonnes.col(f).sum(), 1.0, 1e-12);
    }
}

// Poisson counts around a table with three structured factors, so the eigenvalues have a head and a
// noisy tail.
Eigen::MatrixXd TablePoisson(int I, int J, unsigned graine) {
    std::mt19937 gen(graine);
    std::uniform_real_distribution<double> u(0, 1);
    Eigen::MatrixXd a(I, 3), b(J, 3);
    for (int i = 0; i < I; ++i)
        for (int t = 0; t < 3; ++t) a(i, t) = u(gen);
    for (int j = 0; j < J; ++j)
        for (int t = 0; t < 3; ++t) b(j, t) = u(gen) * (t + 1);
    Eigen::MatrixXd n(I, J);
    for (int i = 0; i < I; ++i)
        for (int j = 0; j < J; ++j) {
            std::poisson_distribution<int> loi(1.0 + 6.0 * a.row(i).dot(b.row(j)));
            n(i, j) = loi(gen);
        }
    for (int i = 0; i < I; ++i) n(i, i % J) += 1;  // no empty row
    for (int j = 0; j < J; ++j) n(j % I, j) += 1;  // no empty column
    return n;
}

TEST(Solveur, MatricesVerifieesALaMain) {
    // 2 x 2: one factor, the phi-squared 0.25; profiles (3/4, 1/4) and (1/4, 3/4).
    Eigen::MatrixXd a(2, 2);
    a << 3, 1, 1, 3;
    Resultat r = Analyser(Construire(a));
    ASSERT_EQ(r.valeurs.size(), 1);
    EXPECT_NEAR(r.valeurs(0), 0.25, 1e-15);
    EXPECT_NEAR(r.inertie, 0.25, 1e-15);
    EXPECT_NEAR(r.coordLignes(0, 0), 0.5, 1e-15);
    EXPECT_NEAR(r.coordLignes(1, 0), -0.5, 1e-15);
    EXPECT_NEAR(r.coordColonnes(0, 0), 0.5, 1e-15);
    EXPECT_NEAR(r.coordColonnes(1, 0), -0.5, 1e-15);
    EXPECT_NEAR(r.contribLignes(1, 0), 0.5, 1e-15);
    EXPECT_NEAR(r.cos2Colonnes(1, 0), 1.0, 1e-15);
    EXPECT_NEAR(r.dist2Lignes(0), 0.25, 1e-15);

    // Two identical rows: a single factor of eigenvalue 1; row 1 alone in column 1.
    Eigen::MatrixXd b(3, 3);
    b << 2, 0, 0, 0, 1, 1, 0, 1, 1;
    r = Analyser(Construire(b));
    ASSERT_EQ(r.valeurs.size(), 1);
    EXPECT_EQ(r.facteursNonTriviaux, 1);
    EXPECT_NEAR(r.valeurs(0), 1.0, 1e-14);
    EXPECT_NEAR(r.coordLignes(0, 0), std::sqrt(2.0), 1e-14);
    EXPECT_NEAR(r.coordLignes(2, 0), -std::sqrt(0.5), 1e-14);
    EXPECT_NEAR(r.coordColonnes(0, 0), std::sqrt(2.0), 1e-14);
    EXPECT_NEAR(r.contribLignes(0, 0), 2.0 / 3, 1e-14);
    EXPECT_NEAR(r.contribLignes(1, 0), 1.0 / 6, 1e-14);
    EXPECT_NEAR(r.cos2Lignes(1, 0), 1.0, 1e-14);
    EXPECT_NEAR(r.dist2Lignes(0), 2.0, 1e-14);
    EXPECT_NEAR(r.dist2Colonnes(1), 0.5, 1e-14);

    // A row at the centroid has distance 0 and squared cosines 0, not a division by zero.
    Eigen::MatrixXd c(3, 2);
    c << 2, 0, 0, 2, 1, 1;
    r = Analyser(Construire(c));
    EXPECT_EQ(r.dist2Lignes(2), 0);
    EXPECT_EQ(r.cos2Lignes(2, 0), 0);
    EXPECT_NEAR(r.valeurs(0), 2.0 / 3, 1e-14);

    Verifier(a, 0, "2 x 2");
    Verifier(b.topRows(2).transpose() * 2 + Eigen::MatrixXd::Ones(3, 2), 0, "3 x 2");
}

TEST(Solveur, TablesPoissonContreUneSvd) {
    Verifier(TablePoisson(200, 30, 7), FACTEURS_PAR_DEFAUT, "200 x 30");
    // More columns than rows: the cross-product is taken on the rows' side.
    Verifier(TablePoisson(30, 200, 11), FACTEURS_PAR_DEFAUT, "30 x 200");
    Verifier(TablePoisson(2000, 200, 13), 0, "2000 x 200, tous les facteurs");
    // The default keeps the first 100 of the 199 factors.
    const Resultat r = Analyser(Construire(TablePoisson(300, 150, 5)));
    EXPECT_EQ(r.facteursNonTriviaux, 149);
    EXPECT_EQ(r.valeurs.size(), FACTEURS_PAR_DEFAUT);
    EXPECT_EQ(r.coordLignes.cols(), FACTEURS_PAR_DEFAUT);
}

TEST(Solveur, MatricesDegenerees) {
    auto message = [](const Eigen::MatrixXd& n) -> std::string {
        try {
            Analyser(Construire(n));
        } catch (const ErreurSolveur& e) {
            return e.what();
        }
        return "aucune erreur";
    };
    Eigen::MatrixXd zeroLigne(3, 2);
    zeroLigne << 1, 2, 0, 0, 3, 1;
    EXPECT_EQ(message(zeroLigne), "Matrice dégénérée : la ligne 2 (« L2 ») totalise zéro.");
    Eigen::MatrixXd zeroColonne(2, 3);
    zeroColonne << 1, 0, 2, 3, 0, 1;
    EXPECT_EQ(message(zeroColonne), "Matrice dégénérée : la colonne 2 (« C2 ») totalise zéro.");
    EXPECT_EQ(message(Eigen::MatrixXd::Ones(4, 1)),
              "Matrice dégénérée : il faut au moins deux lignes et deux colonnes (4 x 1).");
    Eigen::MatrixXd proportionnelles(3, 2);
    proportionnelles << 1, 2, 2, 4, 3, 6;
    EXPECT_EQ(message(proportionnelles),
              "Matrice dégénérée : inertie nulle, toutes les lignes ont le même profil ; aucun facteur.");
    // Cells that each fit but whose sums do not: named as an overflow, not as a null inertia.
    Eigen::MatrixXd enormes(2, 2);
    enormes << 1e308, 1e308, 1e308, 1;
    EXPECT_EQ(message(enormes),
              "Débordement : la somme des cellules de la matrice dépasse le plus grand nombre représentable "
              "(environ 1,8e308) ; réduisez les valeurs de la matrice.");
}

TEST(Solveur, LectureDeLaMatrice) {
    auto message = [](std::string_view t) -> std::string {
        try {
            LireMatrice(t, "M.txt");
        } catch (const ErreurSolveur& e) {
            return e.what();
        }
        return "aucune erreur";
    };
    // A lone CR ends a line: "\r\r" leaves an empty row in the middle, which has no cells.
    EXPECT_EQ(message("coin\tA\tB\nx\t1\t2\r\ny\t0,5\t3.25\r\rz\t7\t0\r\n"),
              "Ligne 3 de la matrice (ligne 4 du fichier M.txt) : 0 cellules pour 2 colonnes.");
    Matrice m = LireMatrice("\tA\tB\nx\t1\t2\r\ny\t0,5\t3.25\rz\t7\t0\r\n\r\n\n", "M.txt");
    ASSERT_EQ(m.lignes, (std::vector<std::string>{"x", "y", "z"}));
    EXPECT_EQ(m.n(1, 0), 0.5);
    EXPECT_EQ(m.n(1, 1), 3.25);
    EXPECT_EQ(m.n(2, 0), 7);
    EXPECT_EQ(message(""), "Matrice vide ou sans ligne d'en-tête : M.txt");
    EXPECT_EQ(message("A B\r\nx\t1\r\n"),
              "La ligne d'en-tête de M.txt ne porte aucun nom de colonne (aucune tabulation).");
    EXPECT_EQ(message("\tA\tB\r\nx\t1\t2\t3\r\n"), "Ligne 1 de la matrice (ligne 2 du fichier M.txt) : 3 cellules pour 2 colonnes.");
    EXPECT_EQ(message("\tA\tB\r\nx\t1\t2\r\ny\t1\r\n"), "Ligne 2 de la matrice (ligne 3 du fichier M.txt) : 1 cellules pour 2 colonnes.");
    EXPECT_EQ(message("\tA\tB\r\nx\t1\tdeux\r\n"), "Ligne 1, colonne 2 de la matrice (ligne 2 du fichier M.txt) : « deux » n'est pas un nombre.");
    EXPECT_EQ(message("\tA\tB\r\nx\t1\t\r\n"), "Ligne 1, colonne 2 de la matrice (ligne 2 du fichier M.txt) : «  » n'est pas un nombre.");
    EXPECT_EQ(message("\tA\tB\r\nx\t1,2,3\t1\r\n"), "Ligne 1, colonne 1 de la matrice (ligne 2 du fichier M.txt) : « 1,2,3 » n'est pas un nombre.");
    EXPECT_EQ(message("\tA\tB\r\nx\t4\t-3\r\n"), "Ligne 1, colonne 2 de la matrice (ligne 2 du fichier M.txt) : valeur négative « -3 ».");
    // A 19-digit count is beyond the fast integer reading and still read.
    m = LireMatrice("\tA\r\nx\t1234567890123456789\r\n", "M.txt");
    EXPECT_EQ(m.n(0, 0), 1234567890123456789.0);
}

TEST(Solveur, NombresAvecPointDecimal) {
    EXPECT_EQ(FormaterPoint(0), "0");
    EXPECT_EQ(FormaterPoint(-0.0), "0");
    EXPECT_EQ(FormaterPoint(0.25), "0.25");
    EXPECT_EQ(FormaterPoint(-1.5), "-1.5");
    EXPECT_EQ(FormaterPoint(3), "3");
    EXPECT_EQ(FormaterPoint(1.0 / 3), "0.333333333333");
    EXPECT_EQ(FormaterPoint(-2.0 / 3 * 1e-7), "-0.0000000666666666667");
    EXPECT_EQ(FormaterPoint(1e-20), "0.00000000000000000001");
    EXPECT_EQ(FormaterPoint(123456789.125), "123456789.125");
    EXPECT_EQ(FormaterPoint(98765.43210987654), "98765.4321099");
    EXPECT_EQ(FormaterPoint(0.99999999999999956), "1");
    EXPECT_EQ(FormaterPoint(12345678901234567.0), "12345678901234568");
    EXPECT_EQ(FormaterPoint(1e-45), "0");
    EXPECT_EQ(FormaterPoint(0.1 + 0.2), "0.3");
}


#ifdef _OPENMP
TEST(Solveur, MemesResultatsSurUnOuDeuxCoeurs) {
    // Tables on both sides of the tile size and of the full-decomposition bound, both shapes.
    for (const auto& [I, J] : {std::pair{900, 300}, std::pair{70, 600}, std::pair{400, 513}}) {
        SCOPED_TRACE(std::to_string(I) + " x " + std::to_string(J));
        const TableauLignes n = TablePoisson(I, J, static_cast<unsigned>(I + J));
        const int avant = omp_get_max_threads();
        omp_set_num_threads(1);
        const Resultat seul = Analyser(Construire(n), 0);
        omp_set_num_threads(2);
        const Resultat deux = Analyser(Construire(n), 0);
        omp_set_num_threads(avant);
        ASSERT_EQ(seul.valeurs.size(), deux.valeurs.size());
        EXPECT_EQ(seul.inertie, deux.inertie);
        EXPECT_LT(((seul.valeurs - deux.valeurs).array() / seul.valeurs.array()).abs().maxCoeff(), 1e-12);
        EXPECT_LT(EcartColonnes(deux.coordLignes, seul.coordLignes), 1e-12);
        EXPECT_LT(EcartColonnes(deux.coordColonnes, seul.coordColonnes), 1e-12);
        EXPECT_LT(EcartColonnes(deux.cos2Lignes, seul.cos2Lignes), 1e-12);
        EXPECT_EQ(seul.dist2Lignes, deux.dist2Lignes);
        EXPECT_EQ(seul.dist2Colonnes, deux.dist2Colonnes);
    }
}
#endif

TEST(Solveur, VecteursParIterationInverse) {
    // A symmetric matrix with known eigenvalues: a double eigenvalue at the top, a triple one, a
    // cluster closer than the orthogonalisation threshold, a run of zeros, in a random basis.
    const int q = 150;
    Eigen::VectorXd imposees(q);
    for (int i = 0; i < q; ++i) imposees(i) = i < 100 ? 1.0 / (i + 3) : 0;
    imposees(0) = imposees(1) = 5;
    imposees(10) = imposees(11) = imposees(12) = 0.25;
    for (int i = 20; i < 26; ++i) imposees(i) = 0.05 + 1e-9 * i;
    std::mt19937 gen(5);
    std::normal_distribution<double> loi;
    Eigen::MatrixXd a(q, q);
    for (int i = 0; i < q; ++i)
        for (int j = 0; j < q; ++j) a(i, j) = loi(gen);
    const Eigen::MatrixXd base = Eigen::HouseholderQR<Eigen::MatrixXd>(a).householderQ();
    const Eigen::MatrixXd m = base * imposees.asDiagonal() * base.transpose();
    Eigen::MatrixXd g = m;
    const ElementsPropres propres(g);
    const Eigen::Index k = 60;
    const Eigen::MatrixXd v = propres.Vecteurs(k);
    const Eigen::VectorXd& valeurs = propres.Valeurs();
    Eigen::VectorXd attendues = imposees;
    std::sort(attendues.data(), attendues.data() + q);
    EXPECT_LT((valeurs - attendues).cwiseAbs().maxCoeff(), 1e-13);
    // Orthonormal, and each an eigenvector of its own eigenvalue.
    EXPECT_LT((v.transpose() * v - Eigen::MatrixXd::Identity(k, k)).cwiseAbs().maxCoeff(), 1e-12);
    for (Eigen::Index f = 0; f < k; ++f)
        EXPECT_LT((m * v.col(f) - valeurs(q - 1 - f) * v.col(f)).norm(), 1e-12) << "facteur " << f + 1;
    // The repeated eigenvalues' vectors span their whole eigenspace.
    auto projection = [&](int colonneBase, int facteur, int nombre) {
        const Eigen::MatrixXd espace = base.middleCols(colonneBase, nombre);
        return (espace.transpose() * v.middleCols(facteur, nombre)).squaredNorm();
    };
    EXPECT_NEAR(projection(0, 0, 2), 2, 1e-12);
    EXPECT_NEAR(projection(10, 2, 3), 3, 1e-12);  // 0.25 comes after 5, 5, before 1/5
}

#ifdef TELVORIS_AXISOLVE
// Runs the program; returns its exit status, with its error output in `erreurs`.
int Lancer(const std::string& arguments, const fs::path& dossier, std::string& erreurs) {
    const fs::path err = dossier / "stderr.txt";
    const std::string commande =
        std::string("'") + TELVORIS_AXISOLVE + "' " + arguments + " >/dev/null 2>'" + err.string() + "'";
    const int statut = std::system(commande.c_str());
    erreurs = Lire(err);
    return WIFEXITED(statut) ? WEXITSTATUS(statut) : -1;
}

std::string Options(const fs::path& d) {
    const std::string F = d.string() + "/";
    return "--eigenvalues=" + F + "eigen.txt --rcoor=" + F + "corli.txt --rcontrib=" + F + "conli.txt --rcos2=" + F +
           "cosli.txt --rdisto=" + F + "disli.txt --ccoor=" + F + "corco.txt --ccontrib=" + F +
           "conco.txt --ccos2=" + F + "cosco.txt --cdisto=" + F + "disco.txt ";
}

TEST(Solveur, ProgrammeEtSesNeufFichiers) {
    DossierTemporaire t;
    const fs::path d = t.Chemin();
    Ecrire(d / "M.txt", Lignes({"\tnoir\tblanc\tgris", "chat\t4\t0\t2", "chien\t0\t4\t2", "\xE9t\xE9\t2\t2\t2"}));
    std::string erreurs;
    ASSERT_EQ(Lancer(Options(d) + "'" + (d / "M.txt").string() + "'", d, erreurs), 0) << erreurs;
    // Profiles (2/3, 0, 1/3), (0, 2/3, 1/3) and the centroid (1/3, 1/3, 1/3), masses 1/3: squared
    // distances 2/3, 2/3, 0; a single factor of eigenvalue 4/9; coordinates +-sqrt(2/3).
    EXPECT_EQ(Lire(d / "eigen.txt"),
              Lignes({"facteur\tvaleur_propre\tpourcentage\tpourcentage_cumule", "1\t0.444444444444\t100\t100"}));
    EXPECT_EQ(Lire(d / "corli.txt"),
              Lignes({"lignes_coordonnees\tF1", "chat\t0.816496580928", "chien\t-0.816496580928",
                      "\xE9t\xE9\t0"}));
    EXPECT_EQ(Lire(d / "conli.txt"), Lignes({"lignes_contributions\tF1", "chat\t0.5", "chien\t0.5", "\xE9t\xE9\t0"}));
    EXPECT_EQ(Lire(d / "cosli.txt"), Lignes({"lignes_cos2\tF1", "chat\t1", "chien\t1", "\xE9t\xE9\t0"}));
    EXPECT_EQ(Lire(d / "disli.txt"),
              Lignes({"lignes_distances_carrees\tF1", "chat\t0.666666666667", "chien\t0.666666666667",
                      "\xE9t\xE9\t0"}));
    EXPECT_EQ(Lire(d / "corco.txt"),
              Lignes({"colonnes_coordonnees\tF1", "noir\t0.816496580928", "blanc\t-0.816496580928", "gris\t0"}));
    EXPECT_EQ(Lire(d / "conco.txt"), Lignes({"colonnes_contributions\tF1", "noir\t0.5", "blanc\t0.5", "gris\t0"}));
    EXPECT_EQ(Lire(d / "cosco.txt"), Lignes({"colonnes_cos2\tF1", "noir\t1", "blanc\t1", "gris\t0"}));
    EXPECT_EQ(Lire(d / "disco.txt"),
              Lignes({"colonnes_distances_carrees\tF1", "noir\t0.666666666667", "blanc\t0.666666666667", "gris\t0"}));
    EXPECT_FALSE(fs::exists(d / "eigen.txt.partiel"));

    // A malformed matrix: status 1, the message names the place, no result file is written.
    DossierTemporaire t2;
    const fs::path d2 = t2.Chemin();
    Ecrire(d2 / "M.txt", Lignes({"\ta\tb", "x\t1\t-2"}));
    EXPECT_EQ(Lancer(Options(d2) + "'" + (d2 / "M.txt").string() + "'", d2, erreurs), 1);
    EXPECT_EQ(erreurs, "axisolve : Ligne 1, colonne 2 de la matrice (ligne 2 du fichier " + (d2 / "M.txt").string() + ") : valeur négative « -2 ».\n");
    EXPECT_FALSE(fs::exists(d2 / "eigen.txt"));
    Ecrire(d2 / "M.txt", Lignes({"\ta\tb", "x\t1\t2", "y\t2\t4"}));
    EXPECT_EQ(Lancer(Options(d2) + "'" + (d2 / "M.txt").string() + "'", d2, erreurs), 1);
    EXPECT_EQ(erreurs, "axisolve : Matrice dégénérée : inertie nulle, toutes les lignes ont le même profil ; aucun facteur.\n");
    EXPECT_EQ(Lancer(Options(d2) + "'" + (d2 / "absente.txt").string() + "'", d2, erreurs), 1);
    EXPECT_EQ(erreurs, "axisolve : Fichier introuvable ou illisible : " + (d2 / "absente.txt").string() + "\n");
    // Usage errors: status 2.
    EXPECT_EQ(Lancer("--eigenvalues=x.txt M.txt", d2, erreurs), 2);
    EXPECT_NE(erreurs.find("option manquante : --rcoor=FICHIER"), std::string::npos) << erreurs;
    EXPECT_EQ(Lancer(Options(d2) + "--facteurs=trois M.txt", d2, erreurs), 2);
    EXPECT_EQ(Lancer(Options(d2), d2, erreurs), 2);
    EXPECT_NE(erreurs.find("aucune matrice"), std::string::npos) << erreurs;
    // An output folder that does not exist: status 1, the file is named.
    Ecrire(d2 / "M.txt", Lignes({"\ta\tb", "x\t1\t2", "y\t2\t1"}));
    EXPECT_EQ(Lancer(Options(d2 / "absent") + "'" + (d2 / "M.txt").string() + "'", d2, erreurs), 1);
    EXPECT_EQ(erreurs, "axisolve : Écriture impossible : " + (d2 / "absent" / "eigen.txt").string() + "\n");
}

// The numbers of a result file after its header: one row per line, the fields after the name.
Eigen::MatrixXd LireNombres(const fs::path& fichier) {
    std::vector<std::vector<double>> lignes;
    const std::string texte = Lire(fichier);
    std::size_t pos = texte.find("\r\n") + 2;
    while (pos < texte.size()) {
        const std::size_t fin = texte.find("\r\n", pos);
        const std::string ligne = texte.substr(pos, fin - pos);
        pos = fin + 2;
        std::vector<double> v;
        std::size_t t = ligne.find('\t');
        while (t != std::string::npos) {
            v.push_back(std::strtod(ligne.c_str() + t + 1, nullptr));
            t = ligne.find('\t', t + 1);
        }
        lignes.push_back(v);
    }
    Eigen::MatrixXd m(lignes.size(), lignes.empty() ? 0 : lignes[0].size());
    for (std::size_t i = 0; i < lignes.size(); ++i)
        for (std::size_t j = 0; j < lignes[i].size(); ++j) m(i, j) = lignes[i][j];
    return m;
}

TEST(Solveur, FichiersDuProgrammeContreUneSvd) {
    DossierTemporaire t;
    const fs::path d = t.Chemin();
    const Eigen::MatrixXd n = TablePoisson(200, 30, 7);
    std::string texte;
    for (Eigen::Index j = 0; j < n.cols(); ++j) texte.append("\tC").append(std::to_string(j + 1));
    texte += "\r\n";
    for (Eigen::Index i = 0; i < n.rows(); ++i) {
        texte.append("L").append(std::to_string(i + 1));
        for (Eigen::Index j = 0; j < n.cols(); ++j) texte.append("\t").append(std::to_string(static_cast<long long>(n(i, j))));
        texte += "\r\n";
    }
    Ecrire(d / "P.txt", texte);
    std::string erreurs;
    ASSERT_EQ(Lancer(Options(d) + "'" + (d / "P.txt").string() + "'", d, erreurs), 0) << erreurs;
    Reference ref = CalculerReference(n);
    const Eigen::MatrixXd eigen = LireNombres(d / "eigen.txt");
    ASSERT_EQ(eigen.rows(), 29);
    const Eigen::MatrixXd G = LireNombres(d / "corco.txt");
    for (Eigen::Index f = 0; f < 29; ++f) {
        EXPECT_NEAR(eigen(f, 0), ref.valeurs(f), 1e-9 * ref.valeurs(f));
        EXPECT_NEAR(eigen(f, 1), 100 * ref.valeurs(f) / ref.valeurs.sum(), 1e-9 * eigen(f, 1));
        if (G.col(f).dot(ref.G.col(f)) < 0) {
            ref.F.col(f) *= -1;
            ref.G.col(f) *= -1;
        }
    }
    EXPECT_NEAR(eigen(28, 2), 100, 1e-9);
    EXPECT_LT(EcartColonnes(G, ref.G), 1e-9);
    EXPECT_LT(EcartColonnes(LireNombres(d / "corli.txt"), ref.F), 1e-9);
    EXPECT_LT(EcartColonnes(LireNombres(d / "conli.txt"), ref.ctrF), 1e-9);
    EXPECT_LT(EcartColonnes(LireNombres(d / "conco.txt"), ref.ctrG), 1e-9);
    EXPECT_LT(EcartColonnes(LireNombres(d / "cosli.txt"), ref.cosF), 1e-9);
    EXPECT_LT(EcartColonnes(LireNombres(d / "cosco.txt"), ref.cosG), 1e-9);
    // The distance is repeated in each factor's field.
    const Eigen::MatrixXd dl = LireNombres(d / "disli.txt");
    ASSERT_EQ(dl.cols(), 29);
    EXPECT_LT(((dl.col(0) - ref.d2F).array() / ref.d2F.array()).abs().maxCoeff(), 1e-9);
    EXPECT_EQ(dl.col(0), dl.col(28));
    const Eigen::MatrixXd dc = LireNombres(d / "disco.txt");
    EXPECT_LT(((dc.col(0) - ref.d2G).array() / ref.d2G.array()).abs().maxCoeff(), 1e-9);
}
// Pieces of `texte` between separators.
std::vector<std::string> Decouper(const std::string& texte, const std::string& separateur) {
    std::vector<std::string> morceaux;
    std::size_t debut = 0;
    while (true) {
        const std::size_t fin = texte.find(separateur, debut);
        morceaux.push_back(texte.substr(debut, fin - debut));
        if (fin == std::string::npos) return morceaux;
        debut = fin + separateur.size();
    }
}

TEST(Solveur, FichiersDeReference) {
    // The result files written before the computation moved to every core, kept as they were.
    // Headers, names, line ends and the form of every number are the same; a number may differ at
    // its twelfth digit only, where the build's arithmetic (fused multiply-add, the sanitizers'
    // optimisation level) moves the last bits: within 1e-11 of its factor's largest, and in a few
    // fields at most, or the writing itself has changed.
    const fs::path fixtures = telvoris::test::DossierSource() / "tests/fixtures/solveur";
    const char* fichiers[] = {"eigen", "corli", "conli", "cosli", "disli", "corco", "conco", "cosco", "disco"};
    for (const char* nom : {"presse", "large", "fins_de_ligne", "bruit"}) {
        SCOPED_TRACE(nom);
        DossierTemporaire t;
        std::string erreurs;
        ASSERT_EQ(Lancer(Options(t.Chemin()) + "'" + (fixtures / (std::string(nom) + ".txt")).string() + "'", t.Chemin(), erreurs), 0)
            << erreurs;
        for (const char* f : fichiers) {
            SCOPED_TRACE(f);
            const fs::path attendu = fixtures / nom / (std::string(f) + ".txt"), obtenu = t.Chemin() / (std::string(f) + ".txt");
            const std::string a = Lire(attendu), b = Lire(obtenu);
            if (a == b) continue;
            const std::vector<std::string> la = Decouper(a, "\r\n"), lb = Decouper(b, "\r\n");
            ASSERT_EQ(la.size(), lb.size());
            EXPECT_EQ(la[0], lb[0]);
            std::size_t champs = 0, differents = 0;
            for (std::size_t i = 1; i < la.size(); ++i) {
                const std::vector<std::string> ca = Decouper(la[i], "\t"), cb = Decouper(lb[i], "\t");
                ASSERT_EQ(ca.size(), cb.size()) << la[i];
                EXPECT_EQ(ca[0], cb[0]);
                for (std::size_t c = 1; c < ca.size(); ++c, ++champs) differents += ca[c] != cb[c];
            }
            EXPECT_LE(differents, 1 + champs / 20) << differents << " champs sur " << champs;
            EXPECT_LT(EcartColonnes(LireNombres(obtenu), LireNombres(attendu)), 1e-11);
        }
    }
}
#endif

}  // namespace
