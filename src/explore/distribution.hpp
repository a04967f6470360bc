// The distribution view: the deviates of the query over the partitions and over the contrast
// classes, the two histograms in logical units, the click on a bar, the saved tables, and the
// micro-distribution lists in numeric and alphabetic order.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "core/horloge.hpp"
#include "explore/corpus.hpp"
#include "explore/requete.hpp"

namespace telvoris {

// From this many partitions on, the partition histogram stays empty.
inline constexpr long long MAX_BARRES = 499;
inline constexpr long long MARGE_GAUCHE = 200;
inline constexpr int NB_CRENEAUX = 2001;
inline constexpr std::size_t LONGUEUR_ALPHA = 25;

struct Barre {
    long long x = 0;        // left edge
    long long largeur = 0;  // LARGEUR - 40
    long long hauteur = 0;  // -Round(z x 100): negative upward, from the axis at 0
    bool sansOccurrence = false;
};

struct Repere {
    std::string texte;
    long long x = 0, y = 0;
};

// One histogram, in logical units; the view scales it.
struct Histogramme {
    bool vide = true;           // the picture stays empty
    long long largeurBarre = 0;  // LARGEUR_PART or LARGEUR_CLASSE
    long long largeurImage = 0;
    long long nombre = 0;        // partitions or classes
    std::vector<double> ecarts;  // from 1
    std::vector<long long> comptes;  // from 1
    std::vector<std::string> noms;   // from 1: titles or class values
    std::vector<Barre> barres;
    std::vector<Repere> guides;      // "+2", "-2", "+5", "-5", "+10" at their heights
    std::vector<Repere> graduations; // a number every 5 bars along the axis
    Repere total;                    // "N occ." at the right

    // The bar under abscissa x (p from 1), or 0 when there is none.
    long long BarreEn(double x) const;
    // Label3 for bar p: name, " : ", count, " occurrences. ", "Ecart-réduit : ", z.
    std::string Libelle(long long p) const;
};

Histogramme HistogrammePartitions(const EtatCorpus& etat, const Requete& requete);
Histogramme HistogrammeClasses(const EtatCorpus& etat, const Requete& requete);

// Label11(2) and Label11(3): SAUVEGARDES/DISTRIBUTIONS/<LIBELLE>_A_<stamp>.txt (partitions) or
// _B_ (classes); three lines: the numbers or class values, "brut" and the counts, "er" and z.
std::filesystem::path SauverDistribution(const EtatCorpus& etat, const Requete& requete, bool classes,
                                         const Horloge& horloge);

// The micro-distribution of one table (forms, or lemmas when `lemmes`): both orders of the
// retained co-occurrents, and their keys for the map's marks.
struct ListeMicro {
    std::string numerique;    // "z TAB n TAB key" lines, highest z first
    std::string alphabetique; // SANS_ACCENT of the key cut to 25, blanks, n, z; sorted
    std::vector<std::string> retenus;  // keys retained, in the numeric order
    std::vector<std::string> clesAlpha;  // the same keys in the alphabetic order
    // The key of line n (0 up) of the order shown, "" past the end.
    std::string CleDeLigne(std::size_t n) const;
    bool triAlpha = false;    // the order shown
    const std::string& Affichee() const { return triAlpha ? alphabetique : numerique; }
    // Label7: the caption names the other order; a press swaps them.
    std::string Legende() const { return triAlpha ? "> TRI NUMERIQUE" : "> TRI ALPHABETIQUE"; }
    void Basculer() { triAlpha = !triAlpha; }
};

ListeMicro CalculerMicro(EtatCorpus& etat, const Requete& requete, bool lemmes);

// The entry of a co-occurrent in the query's tables, or nullptr.
const EntreeCooc* TrouverCooccurrent(const Requete& requete, const std::string& cle, bool lemmes);

// The files of a micro-distribution: a mark per retained entry in
// SAUVEGARDES/marque_afc_datata.txt under the index, and both numeric lists in
// `dossierResultat`/resultat.txt. Returns the two paths.
std::vector<std::filesystem::path> EcrireFichiersMicro(const EtatCorpus& etat, const ListeMicro& formes,
                                                       const ListeMicro& lemmes,
                                                       const std::filesystem::path& dossierResultat);

}  // namespace telvoris
