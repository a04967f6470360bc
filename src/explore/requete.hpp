// The query engine: from what the person entered, the tags of the index, then their
// occurrences in the corpus, with contexts and co-occurrents.
#pragma once

#include <array>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "core/dialogue.hpp"
#include "explore/corpus.hpp"

namespace telvoris {

// Tags, positions, occurrences and co-occurrents have no fixed bound: their tables grow with the
// corpus. These thresholds change what a query shows.
inline constexpr long long SEUIL_CONCORDANCE = 2500;
// From this many expected occurrences on, the offset and form of each occurrence are not read,
// unless the micro-distribution asks for them: a frequent word is counted from the index alone.
inline constexpr long long SEUIL_DETAIL_OCCURRENCES = 10001;
inline constexpr std::size_t LARGEUR_GAUCHE = 60;
inline constexpr std::size_t LARGEUR_DROITE = 77;
inline constexpr long long MAX_JETONS_DROITE = 500;
inline constexpr int MAX_EMPAN = 50;

enum class TypeSaisie { Forme, ListeFormes, Lemme, ListeLemmes };
enum class Cote { Deux, Gauche, Droite };

// The entry panel.
struct ParametresRequete {
    TypeSaisie type = TypeSaisie::Forme;
    std::string saisie;  // lists: one item a line
    bool casse = false;  // "Tenir compte de la casse ?"
    bool concordance = true, macro = false, micro = false;
    bool empan = false;
    std::string longueurEmpan;
    Cote cote = Cote::Deux;
    bool phrase = false;  // co-occurrents stop at the sentence
};

struct Occurrence {
    long long pos = 0;  // of the first token of a sequence
    long long longueur = 0;
    long long partition = 0;
    long long k = 0;
    std::string forme;
    std::string gauche, droite;
};

struct EntreeCooc {
    std::string cle;
    long long compte = 0;
    std::string parties;      // "/partition-k" for each
    std::string occurrences;  // "/n" for each
    std::string longueurs;    // lemmas: "/length of the form"
};

// REQUETE: the result of the last query.
struct Requete {
    std::string LIBELLE;
    long long NB_ATTENDU = 0;
    std::vector<std::string> TAGS;
    int PIVOT = 1, LONG_SEQ = 1;
    std::vector<Occurrence> occ;
    bool contextes = false;  // the concordance contexts were built
    std::vector<long long> OCC_PAR_PART, OCC_PAR_CLASSE;
    std::string rapport;  // each tag's form and occurrences, a line each
    std::array<std::vector<EntreeCooc>, NB_CASIERS> COOC_FORMES, COOC_LEMMES;
    long long NB_COOC = 0;
    std::vector<std::size_t> ORDRE_POS, ORDRE_DROIT, ORDRE_GAUCHE;
    std::vector<std::string> nonIndexees;  // forms of the query whose positions the index does not keep
    // Occurrences of short frequent words, counted from the index without positions: they are in
    // the distributions but not in `occ`.
    long long NB_OCC_SANS_POSITION = 0;
    long long NB_OCC() const { return static_cast<long long>(occ.size()) + NB_OCC_SANS_POSITION; }
};

// LANCER_REQUETE. Messages go to the dialogue; returns false when the entry was refused and
// nothing was searched. A form list with an asterisk ends the program.
bool LancerRequete(EtatCorpus& etat, const ParametresRequete& parametres, Requete& requete, Dialogue& dialogue);

// The message for forms of the short frequent list, whose occurrences the index does not locate.
std::string MessageNonIndexees(const std::vector<std::string>& formes);

// The reduced deviation of `occurrences` in a part holding `part` of the corpus, for a query of
// `total` occurrences.
double EcartReduit(long long total, double part, long long occurrences);

}  // namespace telvoris
