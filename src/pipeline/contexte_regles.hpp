// The context pass: every ambiguous token (an l= list of readings) goes through a fixed chain of
// rules on its neighbours, that settle it, narrow it or leave it; what stays ambiguous is
// entered in the case index that the interactive sessions work through.
#pragma once

#include <cstdint>
#include <deque>
#include <filesystem>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "core/hachage.hpp"
#include "core/jetons.hpp"
#include "lexicon/groupes.hpp"

namespace telvoris {

inline constexpr std::size_t MAX_CAS_CASIER = 20000;
inline constexpr std::size_t MAX_LISTES_CAS = 10000;
inline constexpr std::size_t MAX_LEMMES_CAS_CASIER = 20000;
// #INDEX_LEMMES.txt orders lemmas by their number of occurrences, capped at this.
inline constexpr long long MAX_OCCURRENCES_TRI = 100000;

// The lists of the resource tree that the rules read.
struct ListesContexte {
    GroupesContexte groupes;
    std::vector<Postclitique> postclitiques;
    // "lemma_V" to its class 1 to 7; the first line of a verb wins.
    std::unordered_map<std::string, int, HachageTexte, std::equal_to<>> classes;
};
// Loads preverb.txt, prenom.txt, prevernom.txt, POSTCLIT_DESAMB.txt, CATEGORIES_DE_VERBES_.txt.
void ChargerListesContexte(ListesContexte& listes, const std::filesystem::path& racine);

struct CompteursContexte {
    long long nb_soumis = 0;
    long long nb_identifications = 0;
    long long nb_simplifications = 0;
    long long no_token = 0;  // running position, across lines and files
};

class PasseContexte {
public:
    explicit PasseContexte(const ListesContexte& listes);

    // Runs the rules over one tagged line (not blank); the new line is appended to `sortie`.
    void TraiterLigne(std::string_view ligne, std::string& sortie);

    const CompteursContexte& Compteurs() const { return compteurs_; }

    // Writes #INDEX_ms.txt, #INDEX_LEMMES.txt, #F_ETAT.txt and #BILAN.txt into `dossierTT`.
    void EcrireIndex(const std::filesystem::path& dossierTT) const;

private:
    struct Cas {
        std::string cle;  // "<M f=folded l=list >"
        std::uint32_t liste = 0;
        long long occurrences = 0;
        std::string positions;  // no_token values joined by "-"
    };
    struct Lecture {
        std::string lecture, signature, lemme_cat, balise;
    };
    void TraiterMot(int k, int n);
    // The group filter on a left context string: fills retenues_.
    void Filtrer(const std::string& contexte);
    void RetenirNoms(std::string_view valeur);
    void RetenirVerbes(std::string_view valeurVerbe, std::string_view valeurClasse);
    void EntrerCas(std::string_view forme, std::string_view liste);

    const ListesContexte& listes_;
    CompteursContexte compteurs_;

    // The line: positions 1..n+10, five padding slots on either side.
    LigneJetons ligne_;
    std::vector<std::string_view> tag_, forme_, lemmes_, flexion_, suite_;
    std::deque<std::string> textes_;  // texts the rules wrote for this line

    // The readings of the current token.
    std::vector<Lecture> lectures_;
    std::vector<int> retenues_;
    int nbRetenues_ = 0;

    // The case index.
    std::vector<std::vector<Cas>> cas_;  // by bucket of the folded form
    std::unordered_map<std::string, std::pair<std::uint32_t, std::uint32_t>, HachageTexte, std::equal_to<>> indexCas_;
    std::vector<std::string> listesCas_;  // by id - 1
    std::unordered_map<std::string, std::uint32_t, HachageTexte, std::equal_to<>> idListes_;
    std::string cle_, pliee_;
};

// The signature of a reading: "V3", "Vyms", "SMs", "Jxp", "A", ...
std::string SignatureLecture(std::string_view lecture);

}  // namespace telvoris
