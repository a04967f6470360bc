// The bucket table of every count of the statistics area, and the writing of a table as a
// frequency-ordered lexicon file.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "core/fichiers.hpp"
#include "core/hachage.hpp"
#include "core/jetons.hpp"

namespace telvoris {

inline constexpr std::size_t MAX_ENTREES_CASIER = 50000;
// The frequency slots of EcrireParFrequence: a count above is written in the last slot.
inline constexpr long long MAX_RANG_FREQUENCE = 100000;
inline constexpr std::size_t MAX_LISTE_FREQUENCE = 200000;  // items of one count from 2 to 5
inline constexpr std::size_t MAX_HAPAX = 1000000;

// Items bucketed by (length class 0..15, initial class 0..20) of the statistics copy. Within a
// bucket the entries keep their order of first appearance; a hash index beside them finds the
// first entry of an item as the linear scan would. Only lengths 1..15 and classes 1..20 are
// cleared and walked: entries of class 0 stay from one run to the next, as they always have.
class CasierLexique {
public:
    struct Entree {
        std::string item;
        long long compte = 0;
    };

    static CleMot Cle(std::string_view item) { return ClasserItem(item, Copie::Statistiques); }

    // The entry of the item in its bucket, or nullptr.
    Entree* Trouver(std::string_view item, CleMot cle);
    // Appends a new entry at the end of the bucket; more than 50,000 in a bucket is a bound error.
    Entree& Nouvelle(std::string_view item, CleMot cle, long long compte);
    // Adds the count to the item's entry, or appends it. True when the item was new.
    bool Ajouter(std::string_view item, long long compte) {
        const CleMot cle = Cle(item);
        if (Entree* e = Trouver(item, cle)) {
            e->compte += compte;
            return false;
        }
        Nouvelle(item, cle, compte);
        return true;
    }

    // The bound error of a bucket that already holds `taille` entries when `item` comes new.
    static void VerifierPlace(std::size_t taille, std::string_view item);
    // The bucket's rank in the walk order (lengths outside, classes inside).
    static std::size_t Indice(CleMot c) {
        return static_cast<std::size_t>(c.ClasseLongueur * (MAX_CLASSE_INITIALE + 1) + c.ClasseInitiale);
    }
    static constexpr std::size_t kCasiers = (MAX_CLASSE_LONGUEUR + 1) * (MAX_CLASSE_INITIALE + 1);

    std::size_t Taille(CleMot cle) const { return casiers_[Indice(cle)].entrees.size(); }
    std::vector<Entree>& Entrees(CleMot cle) { return casiers_[Indice(cle)].entrees; }
    // Blanks an entry's item: it is no longer found, and it is not written again.
    void Blanchir(CleMot cle, std::size_t i);

    // Clears the buckets of lengths 1..15 and classes 1..20.
    void Vider();

    // Calls f(cle, i, entree) in bucket order: length 1..15 outside, class 1..20 inside, entries
    // in order of first appearance.
    template <class F>
    void Parcourir(F&& f) {
        for (int l = 1; l <= MAX_CLASSE_LONGUEUR; ++l)
            for (int c = 1; c <= MAX_CLASSE_INITIALE; ++c) {
                const CleMot cle{l, c};
                auto& entrees = casiers_[Indice(cle)].entrees;
                for (std::size_t i = 0; i < entrees.size(); ++i) f(cle, i, entrees[i]);
            }
    }

private:
    struct Casier {
        std::vector<Entree> entrees;
        std::unordered_map<std::string, std::uint32_t, HachageTexte, std::equal_to<>> index;
    };
    std::array<Casier, kCasiers> casiers_;
};

// Writes the walked buckets as a lexicon file: descending count, equal counts in bucket order.
// Entries whose item holds "|" are left in the table and not written; the others are blanked.
// A count above 100,000 is ranked with 100,000 and written as it is.
void EcrireParFrequence(CasierLexique& casier, EcrivainFichier& sortie);

}  // namespace telvoris
