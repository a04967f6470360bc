// Word lists of the resource tree as the tagging stages hold them: flat lists, and lists kept
// by word bucket (length class and initial class) or by initial class only. Membership is an
// exact, case-sensitive comparison within the word's bucket; a hash set per bucket keeps it fast.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "core/hachage.hpp"
#include "core/jetons.hpp"

namespace telvoris {

using EnsembleTextes = std::unordered_set<std::string, HachageTexte, std::equal_to<>>;

// A flat list with a bound on its number of lines.
class ListePlate {
public:
    ListePlate(std::string nomLimite, std::size_t max) : nomLimite_(std::move(nomLimite)), max_(max) {}
    void Ajouter(std::string_view mot, std::string_view source);
    bool Contient(std::string_view mot) const { return mots_.find(mot) != mots_.end(); }
    std::size_t Taille() const { return taille_; }

private:
    std::string nomLimite_;
    std::size_t max_;
    std::size_t taille_ = 0;
    EnsembleTextes mots_;
};

// A list by word bucket: (length class, initial class) of the tagging copy, or initial class only.
class ListeCasiers {
public:
    enum class Cle { MotEntier, InitialeSeule };
    ListeCasiers(std::string nomLimite, std::size_t maxParCasier, Cle cle = Cle::MotEntier);

    // Adds a word to its own bucket.
    void Ajouter(std::string_view mot, std::string_view source);
    // Adds a word to a given bucket (a dictionary file fills the bucket it is named after).
    void AjouterDansCasier(CleMot casier, std::string_view mot, std::string_view source);
    bool Contient(std::string_view mot) const { return Contient(mot, ClasserItem(mot)); }
    // The same when the word's bucket is known already.
    bool Contient(std::string_view mot, CleMot cle) const;
    std::size_t Taille() const;

private:
    std::size_t Indice(CleMot cle) const;
    std::string nomLimite_;
    std::size_t max_;
    Cle cle_;
    std::vector<IndexTextes> casiers_;
    std::vector<std::size_t> comptes_;
};


}  // namespace telvoris
