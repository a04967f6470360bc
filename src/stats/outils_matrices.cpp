#include "stats/outils_matrices.hpp"

#include "core/erreurs.hpp"
#include "core/fichiers.hpp"
#include "core/nombres.hpp"
#include "core/texte.hpp"
#include "stats/commun.hpp"
#include "stats/fichiers_stats.hpp"

namespace telvoris {

using namespace stats;
namespace fs = std::filesystem;

namespace {

// A cell taken by position; a matrix of another shape gives no message, a missing cell counts 0.
double CelluleOuZero(const Matrice& m, std::size_t r, std::size_t c) {
    if (r >= m.cellules.size() || c >= m.cellules[r].size()) return 0;
    return m.cellules[r][c];
}

}  // namespace

void OperationAdditionnerMatrices(Contexte& ctx) {
    Dialogue& d = ctx.dialogue;
    d.Afficher("Attention, les matrices doivent avoir exactement la même forme, mêmes lignes et colonnes"_cp);
    const long long n = DemanderEntier(d, "Nombre de matrices à additionner ?"_cp, "", "2");
    if (n < 1) return;
    std::optional<fs::path> premier;
    Matrice total;
    for (long long i = 1; i <= n; ++i) {
        const auto f = DemanderFichier(d, Joindre("Matrice n°"_cp, std::to_string(i), " ?"));
        if (!f) return;
        Matrice m = LireMatrice(*f, MAX_LIGNES_OUTILS, MAX_COLONNES_OUTILS);
        if (i == 1) {
            premier = f;
            total = std::move(m);
            continue;
        }
        for (std::size_t r = 0; r < total.lignes.size(); ++r)
            for (std::size_t c = 0; c < total.colonnes.size(); ++c) total.cellules[r][c] += CelluleOuZero(m, r, c);
    }
    std::vector<std::string> colonnes = total.colonnes;
    EcrivainMatrice sortie(premier->parent_path() / "MATRICE_TOTALE.txt", colonnes);
    for (std::size_t r = 0; r < total.lignes.size(); ++r) {
        sortie.DebutLigne(total.lignes[r]);
        for (double v : total.cellules[r]) sortie.Cellule(FormaterDouble(v));
        sortie.FinLigne();
    }
    sortie.Fermer();
    d.Afficher("Terminé"_cp);
}

void OperationExtractionTableau(Contexte& ctx) {
    Dialogue& d = ctx.dialogue;
    const double seuil = DemanderNombre(d, "seuil inférieur ?"_cp, "", "");
    const auto brut = DemanderFichier(d, "matrice brute à analyser"_cp);
    if (!brut) return;
    if (Utf8VersCp1252(brut->filename().string()).find("MICRO_BRUT") == std::string::npos)
        throw ErreurExecution(Joindre("Le nom du fichier doit contenir « MICRO_BRUT » : "_cp, TexteChemin(*brut)));
    const fs::path dossier = brut->parent_path();
    const Matrice b = LireMatrice(dossier / "MICRO_BRUT.txt", MAX_LIGNES_OUTILS, MAX_COLONNES_OUTILS);
    const Matrice e = LireMatrice(dossier / "MICRO_ECARTS.txt", MAX_LIGNES_OUTILS, MAX_COLONNES_OUTILS);
    if (b.lignes.size() != e.lignes.size() || b.colonnes.size() != e.colonnes.size())
        throw ErreurExecution(Joindre("MICRO_BRUT.txt et MICRO_ECARTS.txt n'ont pas la même forme ("_cp,
                                      TexteChemin(dossier), ")"));
    const fs::path sortieDossier = SansExtension(*brut);
    CreerDossier(sortieDossier);
    EcrivainFichier sortie(sortieDossier / "EXTRACTION.txt");
    for (std::size_t r = 0; r < b.lignes.size(); ++r)
        for (std::size_t c = 0; c < b.colonnes.size(); ++c)
            if (e.cellules[r][c] > seuil)
                sortie.Ligne(Joindre(b.lignes[r], "\t", b.colonnes[c], "\t", FormaterDouble(b.cellules[r][c]), "\t",
                                     FormaterDouble(e.cellules[r][c])));
    sortie.Fermer();
    d.Afficher("Terminé"_cp);
}

void OperationComparerMatrices(Contexte& ctx) {
    Dialogue& d = ctx.dialogue;
    const auto f1 = DemanderFichier(d, "1ère matrice"_cp);
    if (!f1) return;
    const auto f2 = DemanderFichier(d, "2ème matrice"_cp);
    if (!f2) return;
    const Matrice m1 = LireMatrice(*f1, MAX_LIGNES_OUTILS, MAX_COLONNES_OUTILS);
    const Matrice m2 = LireMatrice(*f2, MAX_LIGNES_OUTILS, MAX_COLONNES_OUTILS);
    EcrivainFichier sortie(ACote(*f1, Joindre("_COMP_", NomSansExtension(*f2), ".txt")));
    const std::size_t nc = m1.colonnes.size();
    for (std::size_t r = 0; r < m1.lignes.size(); ++r) {
        // The row's mean over the cells of both matrices: the centre both distributions share.
        double somme = 0;
        for (std::size_t c = 0; c < nc; ++c) somme += m1.cellules[r][c] + CelluleOuZero(m2, r, c);
        const double m = Diviser(somme, 2.0 * static_cast<double>(nc), "moyenne d'une ligne sans colonne"_cp);
        if (m == 0) Diviser(0, 0, Joindre("moyenne nulle de la ligne « "_cp, m1.lignes[r], " »"_cp));
        double v = 0;
        for (std::size_t c = 0; c < nc; ++c) v += (m1.cellules[r][c] - m) * (CelluleOuZero(m2, r, c) - m) / m;
        sortie.Ligne(Joindre(m1.lignes[r], "\t", FormaterDouble(v)));
    }
    sortie.Fermer();
    d.Afficher("Terminé"_cp);
}

}  // namespace telvoris
