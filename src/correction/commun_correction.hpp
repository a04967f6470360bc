// What the correction commands share: the case type of a form, the table of known forms, the
// frequency table of the filtering dictionary, the backups of the tagged tree and the reading
// of tab-separated lists with their faults named by file and line.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "core/dialogue.hpp"
#include "core/jetons.hpp"
#include "core/liste_textes.hpp"
#include "lexicon/dictionnaire.hpp"

namespace telvoris {

namespace fs = std::filesystem;

// Case of a form: 2 all capitals (or no letters), 1 capital initial, 3 several capitals inside,
// 0 otherwise.
int TypeCasse(std::string_view forme);
bool EstMajuscule(unsigned char c);
bool EstMinuscule(unsigned char c);

// Which lists go into the table of known forms.
struct ChoixConnus {
    bool dico = true;
    bool etrangers = false;
    bool composants = false;
    bool abreviations = false;
    bool romains = false;
    bool rescor = false;
    bool accents = false;
    bool prefixes = false;
};
// Fills the table (cleared first) in the order: dictionary, foreign lists, components,
// abbreviations, Roman numerals, correction store, accent store, prefixes.
void ChargerConnus(TableFormes& table, const fs::path& racine, const ChoixConnus& choix);

// The filtering dictionary dico/FILTRAGE: form and frequency by bucket, first entry wins.
inline constexpr std::string_view DOSSIER_FILTRAGE = "dico/FILTRAGE";
inline constexpr std::size_t MAX_FREQUENCES_CASIER = 60000;

class FormesFrequences {
public:
    FormesFrequences();
    // Loads the 300 files; a missing file is the file error, a line without a tab or with a
    // count that is not a number is named by file and line. Entries below `minimum` are left out.
    void Charger(const fs::path& racine, long long minimum = 0);
    void Ajouter(std::string_view forme, long long frequence, std::string_view source);
    // The frequency of a known form.
    std::optional<long long> Frequence(std::string_view forme) const;
    std::size_t Taille() const { return total_; }

private:
    std::vector<std::unordered_map<std::string, long long>> casiers_;
    std::size_t total_ = 0;
};

// The value of a count field: digits only (an optional sign), else an error naming file and line.
long long LireEntier(std::string_view texte, const fs::path& fichier, long long ligne);
// "« text » (file, ligne n)": where a fault stands, for messages.
std::string Endroit(const fs::path& fichier, long long ligne);
// The line has no tab: the error names it, its file and its number.
[[noreturn]] void LigneSansTabulation(std::string_view ligne, const fs::path& fichier, long long numero);

// A small list of words, one a line, at most `max` (blank lines skipped).
std::vector<std::string> ListeUtilitaire(const fs::path& racine, std::string_view nom, std::string_view limite,
                                         std::size_t max);
// Asks for a whole number; a text that is not one gets a message and the question again.
// nullopt on Cancel.
std::optional<long long> DemanderEntier(Dialogue& dialogue, std::string_view texte, std::string_view titre,
                                        std::string_view defaut);

// Whether `mot` is one of `liste`.
bool DansListe(const std::vector<std::string>& liste, std::string_view mot);

}  // namespace telvoris
