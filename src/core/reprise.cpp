#include "core/reprise.hpp"

#include <algorithm>
#include <system_error>

#include "core/erreurs.hpp"
#include "core/fichiers.hpp"
#include "core/texte.hpp"

namespace telvoris {

namespace {

constexpr std::string_view kEnTeteReprise = "#EN_COURS";

void SupprimerDurable(const fs::path& fichier) {
    std::error_code ec;
    fs::remove(fichier, ec);
    if (ec) throw ErreurExecution(Joindre("Impossible de supprimer le fichier : "_cp, TexteChemin(fichier)));
}

}  // namespace

Reprise::Reprise(fs::path dossierTextes, std::string nomSauvegarde, std::string etape)
    : textes_(std::move(dossierTextes)), nomSauvegarde_(std::move(nomSauvegarde)), etape_(std::move(etape)) {
    sauvegarde_ = Chemin(textes_, nomSauvegarde_);
    fichier_ = Chemin(textes_, Joindre("#EN_COURS_", nomSauvegarde_, ".txt"));
}

bool Reprise::EnCours() const { return FichierExiste(fichier_); }

std::optional<long long> Reprise::Retablir() {
    if (!EnCours()) return std::nullopt;
    const std::string contenu = LireFichier(fichier_);
    LecteurLignes lecteur(contenu);
    std::string_view nom;
    long long n = 0;
    while (lecteur.Suivante(nom)) {
        if (nom.empty() || (lecteur.Numero() == 1 && nom.starts_with(kEnTeteReprise))) continue;
        const fs::path copie = Chemin(sauvegarde_, Joindre(nom, ".txt"));
        if (!FichierExiste(copie))
            throw ErreurExecution(Joindre("La copie de sauvegarde manque pour rétablir le texte « "_cp, nom,
                                          " » : "_cp, TexteChemin(copie), " (listé dans "_cp, TexteChemin(fichier_),
                                          ", ligne "_cp, std::to_string(lecteur.Numero()), ")"));
        EcrireFichier(Chemin(textes_, Joindre(nom, ".txt")), LireFichier(copie), true);
        ++n;
    }
    return n;
}

void Reprise::Commencer() {
    CreerDossier(sauvegarde_);
    EcrireFichier(fichier_, Joindre(kEnTeteReprise, "\t", etape_, "\r\n"), true);
}

void Reprise::Sauvegarder(std::string_view nom, std::string_view contenu) {
    EcrireFichier(Chemin(sauvegarde_, Joindre(nom, ".txt")), contenu, true);
    AjouterLigneDurable(fichier_, nom);
}

void Reprise::Retirer(std::string_view nom) {
    const std::string contenu = LireFichier(fichier_);
    std::vector<std::string_view> lignes;
    LecteurLignes lecteur(contenu);
    std::string_view ligne;
    while (lecteur.Suivante(ligne))
        if (!ligne.empty()) lignes.push_back(ligne);
    for (std::size_t i = lignes.size(); i-- > 1;)
        if (lignes[i] == nom) {
            lignes.erase(lignes.begin() + static_cast<std::ptrdiff_t>(i));
            break;
        }
    std::string r;
    for (auto l : lignes) {
        r.append(l);
        r.append("\r\n");
    }
    EcrireFichier(fichier_, r, true);
}

void Reprise::Terminer() { SupprimerDurable(fichier_); }

void Reprise::Preparer(std::string_view nom, std::string_view contenu) {
    EcrireFichier(Chemin(sauvegarde_, Joindre(nom, ".txt")), contenu);
    if (!preparees_.empty()) preparees_.append("\r\n");
    preparees_.append(nom);
}

void Reprise::ListerPreparees() {
    if (preparees_.empty()) return;
    SynchroniserSysteme(sauvegarde_);
    AjouterLigneDurable(fichier_, preparees_);
    preparees_.clear();
}

void Reprise::TerminerGroupe() {
    SynchroniserSysteme(textes_);
    Terminer();
}

std::string Reprise::MessageReprise(long long retablis) const {
    return Joindre("La fonction « "_cp, etape_, " » n'était pas allée à son terme lors de son dernier lancement : "_cp,
                   std::to_string(retablis), " texte(s) rétabli(s) depuis "_cp, nomSauvegarde_,
                   " avant de la relancer."_cp);
}

ReecrituresGroupees::ReecrituresGroupees(Reprise& reprise, std::size_t textes, std::size_t octets)
    : reprise_(reprise), maxTextes_(std::max<std::size_t>(textes, 1)), maxOctets_(octets) {}

void ReecrituresGroupees::Ajouter(std::string_view nom, std::string_view avant, fs::path chemin, std::string apres) {
    reprise_.Preparer(nom, avant);
    octets_ += apres.size();
    lot_.emplace_back(std::move(chemin), std::move(apres));
    if (lot_.size() >= maxTextes_ || octets_ >= maxOctets_) Vider();
}

void ReecrituresGroupees::Vider() {
    reprise_.ListerPreparees();
    // The batch is emptied before its writes, so that one that fails is not tried again later.
    std::vector<std::pair<fs::path, std::string>> lot;
    lot.swap(lot_);
    octets_ = 0;
    for (const auto& [chemin, contenu] : lot) EcrireFichier(chemin, contenu);
}

void ReecrituresGroupees::Echec(std::string_view nom, std::string_view avant) {
    Vider();
    reprise_.Sauvegarder(nom, avant);
    reprise_.Retirer(nom);
}

void ReecrituresGroupees::ViderSansErreur() noexcept {
    try {
        Vider();
    } catch (...) {
    }
}

void ReecrituresGroupees::Terminer() {
    Vider();
    reprise_.TerminerGroupe();
}

RepriseDossier::RepriseDossier(fs::path dossier, std::string etape)
    : dossier_(std::move(dossier)), etape_(std::move(etape)) {
    fichier_ = dossier_.parent_path() / ("#EN_COURS_" + dossier_.filename().string() + ".txt");
}

bool RepriseDossier::EnCours() const { return FichierExiste(fichier_); }

std::optional<std::string> RepriseDossier::Retablir(const std::vector<std::string>& noms) {
    if (!EnCours()) return std::nullopt;
    const std::string contenu = LireFichier(fichier_);
    LecteurLignes lecteur(contenu);
    std::string_view ligne, copie;
    while (lecteur.Suivante(ligne))
        if (lecteur.Numero() == 2) copie = ligne;
    if (copie.empty()) {
        // The folder was made by the unfinished run: only its own files go, then the folder if
        // nothing else is left in it.
        for (const std::string& nom : noms) SupprimerDurable(Chemin(dossier_, nom));
        std::error_code ec;
        fs::remove(dossier_, ec);
        return std::string();
    }
    const fs::path source = Chemin(dossier_.parent_path(), copie);
    for (const std::string& nom : noms) {
        const fs::path f = Chemin(source, nom);
        if (!FichierExiste(f))
            throw ErreurExecution(Joindre("La copie de sauvegarde manque pour rétablir le fichier « "_cp, nom, " » : "_cp,
                                          TexteChemin(f), " (copie nommée dans "_cp, TexteChemin(fichier_), ")"));
        EcrireFichier(Chemin(dossier_, nom), LireFichier(f), true);
    }
    return std::string(copie);
}

void RepriseDossier::Commencer(std::string_view copie) {
    EcrireFichier(fichier_, Joindre(kEnTeteReprise, "\t", etape_, "\r\n", copie, "\r\n"), true);
}

void RepriseDossier::Terminer() { SupprimerDurable(fichier_); }

std::string RepriseDossier::MessageReprise(std::string_view copie) const {
    const std::string d = TexteChemin(dossier_.filename());
    if (copie.empty())
        return Joindre("La fonction « "_cp, etape_, " » n'était pas allée à son terme lors de son dernier lancement : "_cp,
                       "les fichiers qu'elle avait commencé à écrire dans "_cp, d, " ont été retirés avant de la relancer."_cp);
    return Joindre("La fonction « "_cp, etape_, " » n'était pas allée à son terme lors de son dernier lancement : "_cp, d,
                   " a été rétabli depuis sa copie "_cp, copie, " avant de la relancer."_cp);
}

fs::path MarqueSegmentation(const fs::path& dossierTT) { return dossierTT / "#SEGMENTATION_EN_COURS.txt"; }
fs::path MarqueReindexation(const fs::path& dossierTT) { return dossierTT / "#REINDEXATION_EN_COURS.txt"; }

namespace {

[[noreturn]] void Refuser(const fs::path& trace, std::string_view quoi, std::string_view etape) {
    throw FinProgramme(Joindre(quoi, " n'est pas allée à son terme (trace : "_cp, TexteChemin(trace),
                               "). Relancez « "_cp, etape, " » avant cette fonction."_cp));
}

}  // namespace

void ExigerTextesComplets(const fs::path& dossierTT, const fs::path& sauf) {
    if (const auto e = MarqueChantier::Inacheve(MarqueSegmentation(dossierTT)))
        Refuser(MarqueSegmentation(dossierTT), "La segmentation de ce corpus"_cp, *e);
    std::error_code ec;
    for (fs::directory_iterator it(dossierTT, ec), fin; !ec && it != fin; it.increment(ec)) {
        const std::string nom = it->path().filename().string();
        if (!nom.starts_with("#EN_COURS_") || !nom.ends_with(".txt") || it->path() == sauf) continue;
        const std::string contenu = LireFichier(it->path());
        LecteurLignes lecteur(contenu);
        std::string_view tete;
        lecteur.Suivante(tete);
        const std::size_t tab = tete.find('\t');
        const std::string etape(tab == std::string_view::npos ? tete : tete.substr(tab + 1));
        Refuser(it->path(), Joindre("La fonction « "_cp, etape, " »"_cp), etape);
    }
}

void ExigerIndexationComplete(const fs::path& dossierTT) {
    ExigerTextesComplets(dossierTT);
    if (const auto e = MarqueChantier::Inacheve(MarqueReindexation(dossierTT)))
        Refuser(MarqueReindexation(dossierTT), "L'indexation des segments de ce corpus"_cp, *e);
}

MarqueChantier::MarqueChantier(fs::path fichier, std::string_view etape) : fichier_(std::move(fichier)) {
    EcrireFichier(fichier_, Joindre(etape, "\r\n"), true);
}

void MarqueChantier::Achever() { SupprimerDurable(fichier_); }

std::optional<std::string> MarqueChantier::Inacheve(const fs::path& fichier) {
    if (!FichierExiste(fichier)) return std::nullopt;
    const std::string contenu = LireFichier(fichier);
    LecteurLignes lecteur(contenu);
    std::string_view etape;
    lecteur.Suivante(etape);
    return std::string(etape);
}

fs::path MarqueIndexExploration(const fs::path& dossierIndex) { return dossierIndex / "#INDEXATION_EN_COURS.txt"; }

void ExigerIndexExplorationComplet(const fs::path& dossierIndex) {
    if (const auto e = MarqueChantier::Inacheve(MarqueIndexExploration(dossierIndex)))
        throw FinProgramme(Joindre("L'index de ce corpus est incomplet : sa construction n'est pas allée à son terme (trace : "_cp,
                                   TexteChemin(MarqueIndexExploration(dossierIndex)), "). Relancez « "_cp, *e,
                                   " » (menu Fichier) et répondez O pour le reconstruire."_cp));
}

fs::path EcritureGroupee::Provisoire(const fs::path& cible) {
    fs::path p = cible;
    p.replace_filename("." + cible.filename().string() + ".groupe");
    return p;
}

EcritureGroupee::EcritureGroupee(fs::path journal) : journal_(std::move(journal)) {}

void EcritureGroupee::Ajouter(const fs::path& chemin, std::string_view contenu) {
    // Written under a name of its own, so that no other writer of the target takes it over.
    const fs::path provisoire = Provisoire(chemin);
    EcrireFichier(provisoire, contenu, true);
    cibles_.push_back(chemin);
}

void EcritureGroupee::Valider() {
    std::string liste;
    for (const auto& c : cibles_) {
        liste += fs::relative(c, journal_.parent_path()).generic_string();
        liste += "\r\n";
    }
    EcrireFichier(journal_, liste, true);
    Achever(journal_);
    cibles_.clear();
}

bool EcritureGroupee::Achever(const fs::path& journal) {
    if (!FichierExiste(journal)) return false;
    const std::string contenu = LireFichier(journal);
    LecteurLignes lecteur(contenu);
    std::string_view ligne;
    while (lecteur.Suivante(ligne)) {
        if (ligne.empty()) continue;
        const fs::path cible = journal.parent_path() / fs::path(std::string(ligne));
        const fs::path provisoire = Provisoire(cible);
        // Already renamed by the save that was cut short.
        if (!FichierExiste(provisoire)) continue;
        std::error_code ec;
        fs::rename(provisoire, cible, ec);
        if (ec) throw ErreurExecution(Joindre("Écriture impossible dans le fichier : "_cp, TexteChemin(cible)));
    }
    SupprimerDurable(journal);
    return true;
}

}  // namespace telvoris
