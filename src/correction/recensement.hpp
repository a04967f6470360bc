// The census of correctable faults: candidates for an unknown word built by a fixed catalogue of
// typing and scanning faults and scored by frequency; accent variants; old spellings.
#pragma once

#include <array>
#include <filesystem>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/contexte.hpp"
#include "correction/commun_correction.hpp"
#include "lexicon/dictionnaire.hpp"

namespace telvoris {

inline constexpr std::size_t MAX_CANDIDATS = 100;
inline constexpr std::size_t MAX_SUBSTITUTIONS = 500;
inline constexpr std::size_t MAX_DIACRITIQUES = 100;
inline constexpr std::size_t MAX_VARIANTES = 10000;
inline constexpr int TOURS_VARIANTES = 5;
inline constexpr std::size_t MAX_GRAPHIES = 100;
// Only words longer than this are surveyed by the census.
inline constexpr std::size_t LONGUEUR_MIN_RECENSEMENT = 4;

// Weights of character pairs, symmetric; a to i against a to i are at least 1.
class MatriceCaracteres {
public:
    MatriceCaracteres() { poids_.fill(0); }
    void Charger(const std::filesystem::path& fichier);
    long long Poids(unsigned char a, unsigned char b) const { return poids_[a * 256u + b]; }
    void Definir(unsigned char a, unsigned char b, long long p) { poids_[a * 256u + b] = poids_[b * 256u + a] = p; }
    void CompleterPremieresLettres();

private:
    std::array<long long, 256 * 256> poids_;
};

struct TablesRecensement {
    FormesFrequences frequences;
    std::vector<std::pair<std::string, std::string>> substitutions;
    MatriceCaracteres matrice;
};
void ChargerTablesRecensement(TablesRecensement& t, const std::filesystem::path& racine);

struct Candidat {
    std::string mot;
    long long score = 0;
};
// Every known candidate of the catalogue, in rule order (at most MAX_CANDIDATS).
std::vector<Candidat> Candidats(std::string_view w, const TablesRecensement& t);
// The best one-letter replacement (score -1 and no word when none is known).
Candidat PlusProche(std::string_view w, const TablesRecensement& t);
// The highest score, the first on a tie; nullopt without candidates.
std::optional<Candidat> Meilleur(const std::vector<Candidat>& c);

struct BilanRecensement {
    long long problemes = 0, suggestions = 0;
};
// Reads INCONNUS.txt in the corpus root, writes CORR_SUGGESTIONS.txt and CORR_REJETS.txt there.
BilanRecensement Recenser(const std::filesystem::path& racineCorpus, long long seuil, const TablesRecensement& t,
                          Dialogue& dialogue);

// Accent variants: classes of characters that stand for one another.
class ClassesDiacritiques {
public:
    ClassesDiacritiques() { classe_.fill(0); }
    void Charger(const std::filesystem::path& fichier);
    // The variants of a word that change up to six characters within their classes, in the order
    // found (at most MAX_VARIANTES; `tronque` tells when the bound cut the search short).
    std::vector<std::string> Variantes(std::string_view mot, bool& tronque) const;

private:
    std::array<int, 256> classe_;  // 0: no class
    std::vector<std::vector<unsigned char>> membres_;
};
struct BilanVariantes {
    long long simples = 0, multiples = 0, tronques = 0;
};
BilanVariantes VariantesAccents(const std::filesystem::path& liste, const std::filesystem::path& dossierSortie,
                                const ClassesDiacritiques& classes, const TableFormes& dico);

// Old spellings: the pairs of graphies-17.txt and the fixed rewriting of endings.
std::vector<std::pair<std::string, std::string>> ChargerGraphies(const std::filesystem::path& racine);
// The ending rewritten by the first rule that fits; the word itself when none does.
std::string ModerniserFinale(std::string_view mot);
// Writes <list name>_SOLUTIONS.txt beside the list; returns the number of lines written.
long long GraphiesAnciennes(const std::filesystem::path& liste,
                            const std::vector<std::pair<std::string, std::string>>& graphies, const TableFormes& dico);

void OperationRecensementFautes(Contexte& ctx);  // smn_ctc
void OperationVariantesAccents(Contexte& ctx);   // smn_vac
void OperationGraphies17(Contexte& ctx);         // smn_F1L

}  // namespace telvoris
