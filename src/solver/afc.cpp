#include "solver/afc.hpp"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <limits>

namespace axisolve {

namespace {

// Next line of `texte` from `pos`: ends at CR LF, CR or LF.
bool LigneSuivante(std::string_view texte, std::size_t& pos, std::string_view& ligne) {
    if (pos >= texte.size()) return false;
    const std::size_t fin = texte.find_first_of("\r\n", pos);
    if (fin == std::string_view::npos) {
        ligne = texte.substr(pos);
        pos = texte.size();
        return true;
    }
    ligne = texte.substr(pos, fin - pos);
    pos = fin + 1;
    if (texte[fin] == '\r' && pos < texte.size() && texte[pos] == '\n') ++pos;
    return true;
}

std::string Nombre(long long n) { return std::to_string(n); }

// A cell: digits, with at most one decimal point or comma. Returns false on anything else.
bool LireCellule(std::string_view t, double& v, bool& negatif) {
    negatif = false;
    if (t.empty()) return false;
    // Integers are the usual case: read them without the general parser.
    unsigned long long entier = 0;
    std::size_t i = 0;
    for (; i < t.size() && i < 18; ++i) {
        const char c = t[i];
        if (c < '0' || c > '9') break;
        entier = entier * 10 + static_cast<unsigned>(c - '0');
    }
    if (i == t.size()) {
        v = static_cast<double>(entier);
        return true;
    }
    std::string s(t);
    if (s[0] == '-') negatif = true;
    bool separateur = false, chiffre = false;
    for (std::size_t k = (s[0] == '-' || s[0] == '+') ? 1 : 0; k < s.size(); ++k) {
        char& c = s[k];
        if (c >= '0' && c <= '9') chiffre = true;
        else if ((c == '.' || c == ',') && !separateur) { separateur = true; c = '.'; }
        else return false;
    }
    if (!chiffre) return false;
    const char* debut = s.data() + (s[0] == '+' ? 1 : 0);
    const auto r = std::from_chars(debut, s.data() + s.size(), v);
    if (r.ec != std::errc() || r.ptr != s.data() + s.size() || !std::isfinite(v)) return false;
    if (v < 0) negatif = true;
    return true;
}

}  // namespace

namespace {

// Where a cell stands: rows are numbered as in the messages of the AFC run (the first row under
// the header is row 1), with the file's own line number beside it.
std::string OuDansMatrice(long long ligneFichier, std::size_t colonne, const std::string& src) {
    std::string r = "Ligne " + Nombre(ligneFichier - 1);
    if (colonne > 0) r += ", colonne " + Nombre(static_cast<long long>(colonne));
    return r + " de la matrice (ligne " + Nombre(ligneFichier) + " du fichier " + src + ")";
}

}  // namespace

Matrice LireMatrice(std::string_view texte, std::string_view source) {
    const std::string src(source);
    Matrice m;
    std::size_t pos = 0;
    std::string_view ligne;
    if (!LigneSuivante(texte, pos, ligne) || ligne.empty())
        throw ErreurSolveur("Matrice vide ou sans ligne d'en-tête : " + src);
    {
        const std::size_t tab = ligne.find('\t');
        if (tab == std::string_view::npos)
            throw ErreurSolveur("La ligne d'en-tête de " + src + " ne porte aucun nom de colonne (aucune tabulation).");
        std::string_view reste = ligne.substr(tab + 1);
        while (true) {
            const std::size_t t = reste.find('\t');
            m.colonnes.emplace_back(reste.substr(0, t));
            if (t == std::string_view::npos) break;
            reste.remove_prefix(t + 1);
        }
    }
    const std::size_t p = m.colonnes.size();

    // The rows are read into a list of cells first: their number is known only at the end.
    std::vector<double> cellules;
    std::size_t finDonnees = texte.size();
    while (finDonnees > pos && (texte[finDonnees - 1] == '\r' || texte[finDonnees - 1] == '\n')) --finDonnees;
    const std::string_view donnees = texte.substr(0, finDonnees);
    long long numero = 1;
    while (LigneSuivante(donnees, pos, ligne)) {
        ++numero;
        const std::size_t tab = ligne.find('\t');
        m.lignes.emplace_back(ligne.substr(0, tab));
        std::size_t lues = 0;
        if (tab != std::string_view::npos) {
            std::string_view reste = ligne.substr(tab + 1);
            while (true) {
                const std::size_t t = reste.find('\t');
                const std::string_view cellule = reste.substr(0, t);
                ++lues;
                if (lues <= p) {
                    double v;
                    bool negatif;
                    if (!LireCellule(cellule, v, negatif))
                        throw ErreurSolveur(OuDansMatrice(numero, lues, src) + " : « " + std::string(cellule) +
                                            " » n'est pas un nombre.");
                    if (negatif)
                        throw ErreurSolveur(OuDansMatrice(numero, lues, src) + " : valeur négative « " +
                                            std::string(cellule) + " ».");
                    cellules.push_back(v);
                }
                if (t == std::string_view::npos) break;
                reste.remove_prefix(t + 1);
            }
        }
        if (lues != p)
            throw ErreurSolveur(OuDansMatrice(numero, 0, src) + " : " + Nombre(static_cast<long long>(lues)) +
                                " cellules pour " + Nombre(static_cast<long long>(p)) + " colonnes.");
    }
    const std::size_t n = m.lignes.size();
    m.n.resize(static_cast<Eigen::Index>(n), static_cast<Eigen::Index>(p));
    for (std::size_t i = 0; i < n; ++i)
        for (std::size_t j = 0; j < p; ++j)
            m.n(static_cast<Eigen::Index>(i), static_cast<Eigen::Index>(j)) = cellules[i * p + j];
    return m;
}

Matrice LireFichierMatrice(const std::string& chemin) {
    std::ifstream f(chemin, std::ios::binary);
    if (!f) throw ErreurSolveur("Fichier introuvable ou illisible : " + chemin);
    std::string texte;
    f.seekg(0, std::ios::end);
    const auto taille = f.tellg();
    if (taille > 0) {
        texte.resize(static_cast<std::size_t>(taille));
        f.seekg(0);
        f.read(texte.data(), taille);
    }
    if (!f) throw ErreurSolveur("Lecture impossible : " + chemin);
    return LireMatrice(texte, chemin);
}

Resultat Analyser(const Matrice& m, int maxFacteurs) {
    using Eigen::Index;
    const Index n = m.n.rows(), p = m.n.cols();
    if (n < 2 || p < 2)
        throw ErreurSolveur("Matrice dégénérée : il faut au moins deux lignes et deux colonnes (" + Nombre(n) +
                            " x " + Nombre(p) + ").");
    const Eigen::VectorXd sommesLignes = m.n.rowwise().sum();
    const Eigen::RowVectorXd sommesColonnes = m.n.colwise().sum();
    for (Index i = 0; i < n; ++i)
        if (!(sommesLignes(i) > 0))
            throw ErreurSolveur("Matrice dégénérée : la ligne " + Nombre(i + 1) + " (« " + m.lignes[i] +
                                " ») totalise zéro.");
    for (Index j = 0; j < p; ++j)
        if (!(sommesColonnes(j) > 0))
            throw ErreurSolveur("Matrice dégénérée : la colonne " + Nombre(j + 1) + " (« " + m.colonnes[j] +
                                " ») totalise zéro.");
    const double total = sommesLignes.sum();
    // Cells that each fit can still sum past the largest number: said as such, not as a
    // degenerate matrix.
    if (!std::isfinite(total) || !sommesColonnes.allFinite())
        throw ErreurSolveur("Débordement : la somme des cellules de la matrice dépasse le plus grand nombre "
                            "représentable (environ 1,8e308) ; réduisez les valeurs de la matrice.");
    const Eigen::VectorXd r = sommesLignes / total;
    const Eigen::VectorXd c = sommesColonnes.transpose() / total;
    const Eigen::VectorXd rRac = r.cwiseSqrt(), cRac = c.cwiseSqrt();

    // Standardised residuals: (p_ij - r_i c_j) / sqrt(r_i c_j).
    Eigen::MatrixXd s(n, p);
    for (Index j = 0; j < p; ++j)
        s.col(j) = ((m.n.col(j) / total - r * c(j)).cwiseQuotient(rRac)) / cRac(j);

    Resultat res;
    res.inertie = s.squaredNorm();
    res.dist2Lignes = s.rowwise().squaredNorm().cwiseQuotient(r);
    res.dist2Colonnes = s.colwise().squaredNorm().transpose().cwiseQuotient(c);
    if (!(res.inertie > 1e-20))
        throw ErreurSolveur("Matrice dégénérée : inertie nulle, toutes les lignes ont le même profil ; aucun facteur.");

    // The eigenproblem of the smaller side's cross-product: at most 1,000 x 1,000 for the largest
    // matrices, where a full decomposition costs little next to forming the product.
    const bool colonnesPetites = p <= n;
    const Index q = colonnesPetites ? p : n;
    Eigen::MatrixXd croise = Eigen::MatrixXd::Zero(q, q);
    if (colonnesPetites) croise.selfadjointView<Eigen::Lower>().rankUpdate(s.transpose());
    else croise.selfadjointView<Eigen::Lower>().rankUpdate(s);
    Eigen::SelfAdjointEigenSolver<Eigen::MatrixXd> es(croise);
    if (es.info() != Eigen::Success) throw ErreurSolveur("Échec du calcul des valeurs propres.");
    croise.resize(0, 0);
    const Eigen::VectorXd& lambdas = es.eigenvalues();  // increasing
    const double lmax = lambdas(q - 1);
    const double seuil = std::max(lmax * 1e-11, 1e-20);
    Index nonTriviaux = 0;
    for (Index k = q - 1; k >= 0 && lambdas(k) > seuil; --k) ++nonTriviaux;
    if (nonTriviaux == 0)
        throw ErreurSolveur("Matrice dégénérée : inertie nulle, toutes les lignes ont le même profil ; aucun facteur.");
    res.facteursNonTriviaux = static_cast<int>(nonTriviaux);
    const Index k = maxFacteurs > 0 ? std::min<Index>(nonTriviaux, maxFacteurs) : nonTriviaux;

    res.valeurs.resize(k);
    Eigen::MatrixXd vecteurs(q, k);
    for (Index f = 0; f < k; ++f) {
        res.valeurs(f) = lambdas(q - 1 - f);
        vecteurs.col(f) = es.eigenvectors().col(q - 1 - f);
    }
    const Eigen::VectorXd racines = res.valeurs.cwiseSqrt();
    if (colonnesPetites) {
        res.coordColonnes = cRac.cwiseInverse().asDiagonal() * vecteurs * racines.asDiagonal();
        res.coordLignes = rRac.cwiseInverse().asDiagonal() * (s * vecteurs);
    } else {
        res.coordLignes = rRac.cwiseInverse().asDiagonal() * vecteurs * racines.asDiagonal();
        res.coordColonnes = cRac.cwiseInverse().asDiagonal() * (s.transpose() * vecteurs);
    }

    for (Index f = 0; f < k; ++f) {
        // The first column coordinate of largest magnitude, allowing for rounding between equals.
        const double grand = res.coordColonnes.col(f).cwiseAbs().maxCoeff();
        Index j = 0;
        while (std::abs(res.coordColonnes(j, f)) < grand * (1 - 1e-9)) ++j;
        if (res.coordColonnes(j, f) < 0) {
            res.coordColonnes.col(f) *= -1;
            res.coordLignes.col(f) *= -1;
        }
    }

    // Rounding leaves values of about 1e-17 where the exact result is 0 (an item at the centroid,
    // on an axis of symmetry); they are written as 0 rather than as long strings of noise.
    auto nettoyer = [](auto&& v) {
        const double seuil = v.cwiseAbs().maxCoeff() * 1e-13;
        for (Index i = 0; i < v.size(); ++i)
            if (std::abs(v(i)) <= seuil) v(i) = 0;
    };
    for (Index f = 0; f < k; ++f) {
        nettoyer(res.coordLignes.col(f));
        nettoyer(res.coordColonnes.col(f));
    }
    nettoyer(res.dist2Lignes);
    nettoyer(res.dist2Colonnes);

    res.contribLignes = r.asDiagonal() * res.coordLignes.cwiseAbs2() * res.valeurs.cwiseInverse().asDiagonal();
    res.contribColonnes = c.asDiagonal() * res.coordColonnes.cwiseAbs2() * res.valeurs.cwiseInverse().asDiagonal();
    // An item whose profile is the centroid has no direction: its squared cosines are 0.
    auto inverseOuZero = [](const Eigen::VectorXd& d) {
        Eigen::VectorXd v(d.size());
        for (Index i = 0; i < d.size(); ++i) v(i) = d(i) > 0 ? 1 / d(i) : 0;
        return v;
    };
    res.cos2Lignes = inverseOuZero(res.dist2Lignes).asDiagonal() * res.coordLignes.cwiseAbs2();
    res.cos2Colonnes = inverseOuZero(res.dist2Colonnes).asDiagonal() * res.coordColonnes.cwiseAbs2();
    return res;
}

std::string FormaterPoint(double x) {
    if (!std::isfinite(x)) return x != x ? "nan" : (x > 0 ? "inf" : "-inf");
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

namespace {

void EcrireEntier(const std::string& chemin, const std::string& contenu) {
    const std::string provisoire = chemin + ".partiel";
    std::FILE* f = std::fopen(provisoire.c_str(), "wb");
    if (!f) throw ErreurSolveur("Écriture impossible : " + chemin);
    const bool ok = std::fwrite(contenu.data(), 1, contenu.size(), f) == contenu.size();
    if (std::fclose(f) != 0 || !ok) throw ErreurSolveur("Écriture impossible : " + chemin);
    std::error_code ec;
    std::filesystem::rename(provisoire, chemin, ec);
    if (ec) throw ErreurSolveur("Écriture impossible : " + chemin + " (" + ec.message() + ")");
}

std::string EnTete(std::string_view quoi, Eigen::Index k) {
    std::string t(quoi);
    for (Eigen::Index f = 1; f <= k; ++f) t += "\tF" + std::to_string(f);
    t += "\r\n";
    return t;
}

void EcrireItems(const std::string& chemin, std::string_view quoi, const std::vector<std::string>& noms,
                 const Eigen::MatrixXd& valeurs) {
    std::string t = EnTete(quoi, valeurs.cols());
    t.reserve(t.size() + static_cast<std::size_t>(valeurs.size()) * 20 + noms.size() * 16);
    for (Eigen::Index i = 0; i < valeurs.rows(); ++i) {
        t += noms[static_cast<std::size_t>(i)];
        for (Eigen::Index f = 0; f < valeurs.cols(); ++f) {
            t += '\t';
            t += FormaterPoint(valeurs(i, f));
        }
        t += "\r\n";
    }
    EcrireEntier(chemin, t);
}

// The distance does not depend on the factor; it is repeated in each factor's field, so that the
// file has the shape of the others and is reordered with them.
Eigen::MatrixXd Repeter(const Eigen::VectorXd& d, Eigen::Index k) { return d.replicate(1, k); }

}  // namespace

void EcrireResultats(const Matrice& m, const Resultat& r, const Sorties& s) {
    const Eigen::Index k = r.valeurs.size();
    std::string t = "facteur\tvaleur_propre\tpourcentage\tpourcentage_cumule\r\n";
    double cumul = 0;
    for (Eigen::Index f = 0; f < k; ++f) {
        const double pct = 100 * r.valeurs(f) / r.inertie;
        cumul += pct;
        t += std::to_string(f + 1) + '\t' + FormaterPoint(r.valeurs(f)) + '\t' + FormaterPoint(pct) + '\t' +
             FormaterPoint(cumul) + "\r\n";
    }
    EcrireEntier(s.eigen, t);
    EcrireItems(s.rcoor, "lignes_coordonnees", m.lignes, r.coordLignes);
    EcrireItems(s.rcontrib, "lignes_contributions", m.lignes, r.contribLignes);
    EcrireItems(s.rcos2, "lignes_cos2", m.lignes, r.cos2Lignes);
    EcrireItems(s.rdisto, "lignes_distances_carrees", m.lignes, Repeter(r.dist2Lignes, k));
    EcrireItems(s.ccoor, "colonnes_coordonnees", m.colonnes, r.coordColonnes);
    EcrireItems(s.ccontrib, "colonnes_contributions", m.colonnes, r.contribColonnes);
    EcrireItems(s.ccos2, "colonnes_cos2", m.colonnes, r.cos2Colonnes);
    EcrireItems(s.cdisto, "colonnes_distances_carrees", m.colonnes, Repeter(r.dist2Colonnes, k));
}

}  // namespace axisolve
