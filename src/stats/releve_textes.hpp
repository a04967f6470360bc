// The reading of one text's index by the lexicon commands, apart from the table it is counted
// into: a thread reads and counts a text on its own, and the calling thread pours the result
// into the shared bucket table in list order, so the table sees its new items in the same order
// as when the lines are counted one by one.
#pragma once

#include <cstdint>
#include <exception>
#include <filesystem>
#include <string>
#include <vector>

#include "core/hachage.hpp"
#include "core/jetons.hpp"
#include "stats/casier_lexique.hpp"

namespace telvoris {

// How the lines of an index become items.
struct ReglesReleve {
    int niveau = 0;
    bool composer = true;
    // The per-partition files: a tab behind the count is required.
    bool champ3 = false;
    // A hyphenated form whose rest is in this list loses its hyphen; nullptr: none do.
    const std::vector<std::string>* postclitiques = nullptr;
};

// What one text's index gives.
struct ReleveTexte {
    struct Entree {
        std::string item;
        CleMot cle;
        long long compte = 0;
    };
    // Every item of the text once, in order of first appearance, with its total.
    std::vector<Entree> entrees;
    long long N = 0;
    // The bucket of the last counted line, when a line was counted.
    bool touche = false;
    CleMot dernier{};
    // "Grand lexique"'s control lines (level, item, count of each line), when asked.
    std::string controle;
    // The error that stopped the reading; `entrees` then holds what came before it.
    std::exception_ptr erreur;
};

// One per thread: it keeps the items of the tags it has already read, across texts.
class ReleveurTextes {
public:
    explicit ReleveurTextes(const ReglesReleve& regles) : regles_(regles) {}

    // Reads the index file; never throws, the error travels in the result.
    // `niveauControle` >= 0 asks for the control lines with that level in front.
    ReleveTexte Relever(const std::filesystem::path& chemin, int niveauControle = -1);

private:
    std::uint32_t ItemDe(std::string_view etiquette);
    void Lire(const std::filesystem::path& chemin, int niveauControle, ReleveTexte& r);

    ReglesReleve regles_;
    std::string contenu_, item_;
    AttributsJeton attributs_;
    // tag -> item number (kAbsent: the tag gives no item)
    IndexTextes etiquettes_;
    std::vector<std::uint32_t> itemDe_;
    // item number -> its text (in items_), bucket, and where it stands in the current text
    IndexTextes items_;
    std::vector<CleMot> cles_;
    std::vector<std::uint32_t> rang_;
    std::vector<std::uint32_t> texteDe_;
    std::uint32_t texte_ = 0;
};

// Adds a text's items to the table in their order; returns how many were new. The table's own
// bound errors come out here, at the same item as line by line.
std::size_t Verser(const ReleveTexte& r, CasierLexique& casier);

// For the commands that empty the table before each text: the text's entries of the buckets that
// emptying clears, in the table's walk order (bucket, then first appearance). The class-0 entries,
// which the table keeps from text to text, are poured into it in their order, and a bucket's bound
// error comes out at the same item as when the whole text goes into the table.
std::vector<const ReleveTexte::Entree*> VerserTexteSeul(const ReleveTexte& r, CasierLexique& casier);

}  // namespace telvoris
