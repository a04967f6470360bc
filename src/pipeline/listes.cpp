#include "pipeline/listes.hpp"

#include "core/erreurs.hpp"
#include "core/fichiers.hpp"
#include "core/texte.hpp"

namespace telvoris {

std::size_t IndexTextes::Sonder(std::string_view t, std::uint64_t h) const {
    const std::size_t masque = cases_.size() - 1;
    std::size_t c = static_cast<std::size_t>(h) & masque;
    while (cases_[c] != kAbsent) {
        const std::uint32_t i = cases_[c];
        if (hachages_[i] == h && textes_[i] == t) return c;
        c = (c + 1) & masque;
    }
    return c;
}

std::uint32_t IndexTextes::Trouver(std::string_view t) const {
    if (n_ == 0) return kAbsent;
    return cases_[Sonder(t, HachageTexte{}(t))];
}

std::uint32_t IndexTextes::Inserer(std::string_view t, bool& nouveau) {
    if ((n_ + 1) * 2 > cases_.size()) Agrandir();
    const std::uint64_t h = HachageTexte{}(t);
    const std::size_t c = Sonder(t, h);
    if (cases_[c] != kAbsent) {
        nouveau = false;
        return cases_[c];
    }
    nouveau = true;
    const auto i = static_cast<std::uint32_t>(n_++);
    if (textes_.size() < n_) {
        textes_.emplace_back(t);
        hachages_.push_back(h);
    } else {
        textes_[i].assign(t);
        hachages_[i] = h;
    }
    cases_[c] = i;
    return i;
}

void IndexTextes::Agrandir() {
    const std::size_t taille = cases_.empty() ? 16 : cases_.size() * 2;
    cases_.assign(taille, kAbsent);
    for (std::uint32_t i = 0; i < n_; ++i) {
        std::size_t c = static_cast<std::size_t>(hachages_[i]) & (taille - 1);
        while (cases_[c] != kAbsent) c = (c + 1) & (taille - 1);
        cases_[c] = i;
    }
}

void IndexTextes::Vider() {
    // Each text in use empties its own slot; the table keeps its size.
    for (std::uint32_t i = 0; i < n_; ++i) {
        std::size_t c = static_cast<std::size_t>(hachages_[i]) & (cases_.size() - 1);
        while (cases_[c] != i) c = (c + 1) & (cases_.size() - 1);
        cases_[c] = kAbsent;
    }
    n_ = 0;
}

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

std::vector<std::string> LireListe(const std::filesystem::path& fichier) {
    const std::string contenu = LireFichier(fichier);
    std::vector<std::string> lignes;
    LecteurLignes lecteur(contenu);
    std::string_view ligne;
    while (lecteur.Suivante(ligne))
        if (!ligne.empty()) lignes.emplace_back(ligne);
    return lignes;
}

}  // namespace telvoris
