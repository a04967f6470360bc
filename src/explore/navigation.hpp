// The full-text navigator: one partition at a time, with the occurrences of the query and the
// selected co-occurrences marked, and the twelve moves through partitions, occurrences and
// co-occurrences.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "explore/corpus.hpp"
#include "explore/listes_mots.hpp"
#include "explore/requete.hpp"
#include "explore/tranches.hpp"

namespace telvoris {

// From this many expected occurrences on, the text is shown unmarked.
inline constexpr long long SEUIL_MARQUAGE = 10001;
inline constexpr int COULEUR_MARQUE = 255;

// A marked stretch of the partition's text: from `debut` (0 up, k - 1) for `longueur` characters.
struct Marque {
    long long debut = 0;
    long long longueur = 0;
    bool souligne = false;  // co-occurrences are underlined too
};

// One co-occurrence selected for the navigator: its partition, the k of its token and its length.
struct Cooccurrence {
    long long partition = 0;
    long long k = 0;
    long long longueur = 0;
};

// The co-occurrences of an entry of COOC_FORMES (lengths from the key) or COOC_LEMMES (lengths
// from its list), in position order.
std::vector<Cooccurrence> CooccurrencesDe(const EntreeCooc& entree, bool lemme);

class Navigateur {
public:
    // The AVANCE buttons by index (4 is not used).
    enum Mouvement {
        PartieSuivante = 0, DernierePartie = 1, PartiePrecedente = 2, PremierePartie = 3,
        OccSuivante = 5, DerniereOcc = 6, OccPrecedente = 7, PremiereOcc = 8,
        CoocSuivante = 9, DerniereCooc = 10, CoocPrecedente = 11, PremiereCooc = 12,
    };

    explicit Navigateur(const EtatCorpus& etat);

    // A new query (or none): ranks start again.
    void NouvelleRequete(const Requete* requete);
    void ChoisirCooccurrences(std::vector<Cooccurrence> cooccurrences);

    // sm_nav: with nothing shown yet, the partition of the first occurrence in position order,
    // or partition 1; then the partition is shown.
    void Ouvrir();
    // MONTRER_PARTIE.
    void MontrerPartie();
    void Avance(int index);
    // OPT_Combo1: the first partition whose short title is `titre`; false when there is none.
    bool ChoisirTitreCourt(std::string_view titre);
    // From the concordance: occurrence i (index into the query's occurrences) becomes the
    // current one, its partition is shown, and the rank stays (direct choice).
    void AllerOccurrence(std::size_t i);
    // From a right click on a bar: the first occurrence of partition p in position order
    // becomes the current one, and p is shown.
    void AllerPartition(long long p);

    // Mouse up in the text: the tokens of the shown partition whose k lies in the selection
    // (from `debut`, 0 up, for `longueur` characters), from the last to the first, give their
    // forms and lemmas to the lists, without repeat.
    void Recueillir(long long debut, long long longueur, ListesMots& listes);

    // What the view shows after MontrerPartie.
    long long PART_COURANTE = 0;
    long long OCC_COURANTE = 0;   // rank in position order, 1 up; 0 none
    long long COOC_COURANTE = 0;  // the same for the co-occurrences
    bool choixDirect = false;
    std::string texte;
    std::vector<Marque> marques;
    std::string legendeOcc, legendeCooc;  // "occurrence n° 3", "Pas d'occurrence dans ce texte"
    std::string titre;                    // TITRE_PART of the partition
    long long curseur = -1;               // where the view goes, -1 for the top
    bool partPrecedente = false, partSuivante = false;
    bool occPrecedente = false, occSuivante = false;
    bool coocPrecedente = false, coocSuivante = false;

    long long NbOccurrences() const;
    long long NB_COOC_SEL() const { return static_cast<long long>(coocs_.size()); }
    // The occurrence at rank n (1 up) in position order.
    const Occurrence& OccurrenceDeRang(long long n) const;

private:
    const std::string& TexteCache(long long p);
    void Boutons();

    const EtatCorpus& etat_;
    const Requete* requete_ = nullptr;
    std::vector<Cooccurrence> coocs_;
    std::unordered_map<long long, std::string> cache_;  // TEXTE_CACHE
    std::unique_ptr<Tranches> tranches_;
};

}  // namespace telvoris
