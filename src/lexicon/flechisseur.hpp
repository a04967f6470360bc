// The inflector: a list of lemmas with their inflection class becomes the proposals
// "form,lemma,CODE" of all their forms. French inflection lives in the five tables of
// utilitaires/codes_flexionnels; the routines here only combine them.
#pragma once

#include <array>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "core/contexte.hpp"

namespace telvoris {

namespace fs = std::filesystem;

inline constexpr int MAX_CLASSES_ADJ = 50;
inline constexpr int MAX_CLASSES_SUBST = 50;
inline constexpr int MAX_CLASSES_VERBE = 100;
inline constexpr std::size_t MAX_LIGNES_FLEXMA = 1000;
inline constexpr int NB_THEMES = 7;

// "<cut><ending>": a one-digit count of characters to cut from the end, then the ending.
struct RegleCoupe {
    int coupe = 0;
    std::string fin;
    bool presente = false;
};

struct ClasseAdjectif {
    RegleCoupe feminin;
    RegleCoupe pluriel;
    bool doublement = false;  // the last letter is doubled before the feminine ending
};

struct ClasseVerbe {
    bool presente = false;
    std::array<RegleCoupe, NB_THEMES> themes;  // stem rules, 1 to 7
    int gardes = 0;                           // kept characters, from the mark of the first rule
    int themeFutur = 0;                       // stem of the future, and the text added to it
    std::string texteFutur;
    std::array<std::string, 5> modeles;  // present, imperfect, simple past, subjunctives
    int terminaisons = 0;                // 0 to 7
    std::string participePasse;          // "<stem number><text>", or empty
    std::string participePresent;        // "<stem number>", or empty
};

struct TablesFlexion {
    std::vector<ClasseAdjectif> adjectifs;          // index = class - 1
    std::vector<RegleCoupe> substantifs;            // index = class - 1
    std::array<std::array<std::string, 6>, 6> personnelles{};  // [person][set]
    std::array<std::array<std::string, 6>, 4> variables{};     // [row][person]
    std::vector<ClasseVerbe> verbes;                // index = class - 1
};

// Reads the five tables; a malformed row names its file and line.
TablesFlexion ChargerTablesFlexion(const fs::path& racine);

// What one lemma gives: proposal lines, and the lines that the tables could not treat.
struct Flexions {
    std::vector<std::string> formes;
    std::vector<std::string> manques;
};

// Inflects one lemma of a category with its class (`defectif`: the "_D" mark of a verb).
// A class beyond the bound of its table is a bound error.
void Flechir(const TablesFlexion& tables, std::string_view lemme, std::string_view categorie, int classe,
             bool defectif, Flexions& sortie);

// Inflects a whole list "lemma,CATEGORY<TAB>class" into <name>_FLEX.txt and <name>_FLEXMA.txt
// beside it. Returns the number of lemmas read.
long long FlechirListe(const TablesFlexion& tables, const fs::path& liste);

// The menu operation "Fléchisseur".
void OperationFlechisseur(Contexte& contexte);

}  // namespace telvoris
