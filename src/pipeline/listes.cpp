#include "pipeline/listes.hpp"

#include "core/erreurs.hpp"
#include "core/fichiers.hpp"
#include "core/texte.hpp"

namespace telvoris {

void ListePlate::Ajouter(std::string_view mot, std::string_view source) {
    if (taille_ >= max_)
        LimiteDepassee(nomLimite_, static_cast<long long>(max_), Joindre("lignes dans "_cp, source));
    ++taille_;
    mots_.emplace(mot);
}

ListeCasiers::ListeCasiers(std::string nomLimite, std::size_t maxParCasier, Cle cle)
    : nomLimite_(std::move(nomLimite)), max_(maxParCasier), cle_(cle),
      casiers_((MAX_CLASSE_LONGUEUR + 1) * (MAX_CLASSE_INITIALE + 1)),
      comptes_((MAX_CLASSE_LONGUEUR + 1) * (MAX_CLASSE_INITIALE + 1), 0) {}

std::size_t ListeCasiers::Indice(CleMot c) const {
    const int longueur = cle_ == Cle::InitialeSeule ? 0 : c.ClasseLongueur;
    return static_cast<std::size_t>(longueur * (MAX_CLASSE_INITIALE + 1) + c.ClasseInitiale);
}

void ListeCasiers::Ajouter(std::string_view mot, std::string_view source) {
    AjouterDansCasier(ClasserItem(mot), mot, source);
}

void ListeCasiers::AjouterDansCasier(CleMot casier, std::string_view mot, std::string_view source) {
    const std::size_t i = Indice(casier);
    if (comptes_[i] >= max_)
        LimiteDepassee(nomLimite_, static_cast<long long>(max_), Joindre("mots dans une case de "_cp, source));
    ++comptes_[i];
    bool nouveau;
    casiers_[i].Inserer(mot, nouveau);
}

bool ListeCasiers::Contient(std::string_view mot, CleMot cle) const {
    return casiers_[Indice(cle)].Trouver(mot) != IndexTextes::kAbsent;
}

std::size_t ListeCasiers::Taille() const {
    std::size_t n = 0;
    for (auto c : comptes_) n += c;
    return n;
}


}  // namespace telvoris
