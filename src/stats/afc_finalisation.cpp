#include "stats/afc_finalisation.hpp"

#include <algorithm>
#include <cstdlib>
#include <numeric>

#include "core/erreurs.hpp"
#include "core/fichiers.hpp"
#include "core/jetons.hpp"
#include "core/nombres.hpp"
#include "core/texte.hpp"

namespace telvoris {

namespace {

// A number of a result file, decimal point or comma; the conversion failure names the place.
double NombreResultat(std::string_view t, const fs::path& fichier, long long ligne) {
    std::string s(t);
    for (char& c : s)
        if (c == ',') c = '.';
    char* fin = nullptr;
    const double v = s.empty() ? 0 : std::strtod(s.c_str(), &fin);
    if (s.empty() || fin != s.c_str() + s.size())
        throw ErreurExecution(Joindre("Conversion impossible en nombre : « "_cp, t, " » (fichier "_cp,
                                      TexteChemin(fichier), ", ligne "_cp, std::to_string(ligne), ")"_cp));
    return v;
}

void PointEnVirgule(std::string& s) {
    if (const auto p = s.find('.'); p != std::string::npos) s[p] = ',';
}

// The header and the lines of a result file.
struct FichierResultat {
    std::string entete;
    std::vector<std::string> lignes;
};

FichierResultat LireResultat(const fs::path& chemin) {
    const std::string texte = LireFichier(chemin);
    FichierResultat f;
    LecteurLignes lecteur(texte);
    std::string_view ligne;
    if (lecteur.Suivante(ligne)) f.entete.assign(ligne);
    while (lecteur.Suivante(ligne)) f.lignes.emplace_back(ligne);
    return f;
}

// The header, then each line behind a line end: no line end after the last.
void EcrireSansFinale(const fs::path& chemin, const FichierResultat& f) {
    std::string t = f.entete;
    for (const auto& l : f.lignes) {
        t += "\r\n";
        t += l;
    }
    EcrireFichier(chemin, t);
}

}  // namespace

std::vector<int> OrdreFacteurs(const std::vector<long long>& cles) {
    // Insertion in front of the first strictly greater key keeps equal keys in order of arrival;
    // the list is then read backwards.
    std::vector<int> ordre(cles.size());
    std::iota(ordre.begin(), ordre.end(), 1);
    std::stable_sort(ordre.begin(), ordre.end(), [&](int a, int b) { return cles[a - 1] < cles[b - 1]; });
    std::reverse(ordre.begin(), ordre.end());
    return ordre;
}

std::vector<int> FinaliserFichiersAfc(const fs::path& dossier) {
    const fs::path cheminEigen = dossier / "eigen.txt";
    FichierResultat eigen = LireResultat(cheminEigen);
    std::vector<long long> cles;
    for (std::size_t i = 0; i < eigen.lignes.size(); ++i) {
        const auto champs = Decouper(eigen.lignes[i], "\t");
        const long long numero = static_cast<long long>(i) + 2;
        if (champs.size() < 4)
            throw ErreurExecution(Joindre("Ligne "_cp, std::to_string(numero), " de "_cp, TexteChemin(cheminEigen),
                                          " : moins de quatre champs"_cp));
        if (cles.size() >= static_cast<std::size_t>(MAX_FACTEURS_AFC))
            LimiteDepassee("MAX_FACTEURS_AFC", MAX_FACTEURS_AFC, "facteurs dans eigen.txt"_cp);
        cles.push_back(static_cast<long long>(Round(NombreResultat(champs[1], cheminEigen, numero) * 10000, 0)));
    }
    const std::vector<int> ordre = OrdreFacteurs(cles);

    for (const char* nom : {"conco", "conli", "corco", "corli", "cosco", "cosli", "disco", "disli"}) {
        const fs::path chemin = dossier / (std::string(nom) + ".txt");
        FichierResultat f = LireResultat(chemin);
        std::string nouvelle;
        for (std::size_t i = 0; i < f.lignes.size(); ++i) {
            auto brut = Decouper(f.lignes[i], "\t");
            std::vector<std::string> champs(brut.begin(), brut.end());
            for (std::size_t k = 1; k < champs.size(); ++k) PointEnVirgule(champs[k]);
            nouvelle = champs[0];
            for (std::size_t k = 2; k <= champs.size(); ++k) {
                // Field k takes the field of the (k-1)-th factor of the order: field 1 + its number.
                const std::size_t rang = k - 1;
                const std::size_t source = rang <= ordre.size() ? static_cast<std::size_t>(ordre[rang - 1]) + 1 : 0;
                if (source == 0 || source > champs.size())
                    throw ErreurExecution(Joindre(
                        "Ligne "_cp, std::to_string(i + 2), " de "_cp, TexteChemin(chemin), " : pas de champ pour le facteur "_cp,
                        rang <= ordre.size() ? std::to_string(ordre[rang - 1]) : std::to_string(rang),
                        " ("_cp, std::to_string(champs.size() - 1), " facteurs sur la ligne, "_cp,
                        std::to_string(ordre.size()), " dans eigen.txt)"_cp));
                nouvelle += '\t';
                nouvelle += champs[source - 1];
            }
            f.lignes[i] = nouvelle;
        }
        EcrireSansFinale(chemin, f);
    }

    FichierResultat trie;
    trie.entete = eigen.entete;
    for (int facteur : ordre) {
        std::string l = eigen.lignes[static_cast<std::size_t>(facteur) - 1];
        std::replace(l.begin(), l.end(), '.', ',');
        trie.lignes.push_back(std::move(l));
    }
    EcrireSansFinale(cheminEigen, trie);
    return ordre;
}

GrapheInertie DessinerGrapheInertie(const fs::path& dossier) {
    const fs::path cheminEigen = dossier / "eigen.txt";
    const FichierResultat eigen = LireResultat(cheminEigen);
    const long long n = static_cast<long long>(eigen.lignes.size());
    float trace = 0;
    std::vector<double> pourcentages;
    double maximum = 0;
    for (long long i = 0; i < n; ++i) {
        const auto champs = Decouper(eigen.lignes[static_cast<std::size_t>(i)], "\t");
        if (champs.size() < 3)
            throw ErreurExecution(Joindre("Ligne "_cp, std::to_string(i + 2), " de "_cp, TexteChemin(cheminEigen),
                                          " : moins de trois champs"_cp));
        trace = static_cast<float>(static_cast<double>(trace) + NombreResultat(champs[1], cheminEigen, i + 2));
        if (i < 25) {
            const double p = NombreResultat(champs[2], cheminEigen, i + 2);
            pourcentages.push_back(p);
            if (i == 0 || p > maximum) maximum = p;
        }
    }
    const long long m = std::min<long long>(n, 25);
    if (m == 0 || maximum == 0)
        throw ErreurExecution(Joindre("Division par zéro : "_cp, m == 0 ? "aucun facteur"_cp : "pourcentages d'inertie nuls"_cp,
                                      " dans "_cp, TexteChemin(cheminEigen)));
    const double echelle = Round(2000 / maximum, 0);
    const double pas = Round(5000.0 / static_cast<double>(m), 0);

    GrapheInertie g;
    for (long long i = 1; i <= m; ++i) {
        BoiteGraphe b;
        b.gauche = static_cast<long long>(pas) * (i - 1) + 200;
        b.largeur = static_cast<long long>(pas) - 40;
        b.hauteur = static_cast<long long>(Round(pourcentages[static_cast<std::size_t>(i - 1)] * echelle, 0));
        b.haut = 2500 - b.hauteur;
        b.couleur = COULEUR_BARRES;
        g.boites.push_back(b);
    }
    g.textes.push_back({1000, 150, Joindre(std::to_string(n), " facteurs."_cp)});
    for (long long i = 1; i <= std::min<long long>(n, 10); ++i)
        g.textes.push_back({3000, 150 + (i - 1) * HAUTEUR_LIGNE_TWIPS,
                            Joindre("Facteur "_cp, std::to_string(i), " : "_cp,
                                    FormaterDouble(Round(pourcentages[static_cast<std::size_t>(i - 1)], 2)), " %"_cp)});
    const std::string stats = LireFichier(dossier / "STATS.txt");
    LecteurLignes lecteur(stats);
    std::string_view ligne, chiDeux, degres;
    if (lecteur.Suivante(ligne) && lecteur.Suivante(chiDeux)) lecteur.Suivante(degres);
    g.textes.push_back({200, 2700,
                        Joindre("trace : "_cp, FormaterDouble(Round(static_cast<double>(trace), 5)), ". Chi-deux : "_cp,
                                chiDeux, " pour "_cp, degres, " degrés de liberté."_cp)});
    g.textes.push_back({200, 2700 + HAUTEUR_LIGNE_TWIPS, std::string("Ecart réduit à la loi normale : "_cp)});
    return g;
}

std::vector<std::string> TextesDuGraphe(const GrapheInertie& g) {
    std::vector<std::string> r;
    for (const auto& t : g.textes) r.push_back(t.texte);
    return r;
}

}  // namespace telvoris
