#include "correction/identification.hpp"

#include <charconv>
#include <memory>

#include "core/erreurs.hpp"
#include "core/fichiers.hpp"
#include "core/jetons.hpp"
#include "core/reprise.hpp"
#include "core/texte.hpp"
#include "correction/commun_correction.hpp"
#include "correction/reperage.hpp"
#include "lexicon/arbre.hpp"

namespace telvoris {

namespace {

constexpr std::string_view kFlexionManuelle = "0  >  FLEXION MANUELLE";
// Noun panels offer the first six classes of the plural rules.
constexpr std::size_t NB_CHOIX_SUBSTANTIFS = 6;

// "<line>  > <n>" for each line of a list, then the manual choice.
std::vector<std::string> ChoixDeListe(const std::vector<std::string>& lignes) {
    std::vector<std::string> r;
    for (std::size_t i = 0; i < lignes.size(); ++i) r.push_back(Joindre(lignes[i], "  > ", std::to_string(i + 1)));
    r.emplace_back(kFlexionManuelle);
    return r;
}

std::vector<std::string> LignesSansEntete(const fs::path& fichier) {
    std::vector<std::string> r;
    const std::string contenu = LireFichier(fichier);
    LecteurLignes lecteur(contenu);
    std::string_view ligne;
    bool entete = true;
    while (lecteur.Suivante(ligne)) {
        if (entete) {
            entete = false;
            continue;
        }
        if (!ligne.empty()) r.emplace_back(ligne);
    }
    return r;
}

}  // namespace

const std::array<std::string_view, 7>& SessionIdentification::ChoixPrincipaux() {
    static const std::array<std::string_view, 7> k = {
        "Enregistrer (dict.général)"_cp, "Corriger"_cp, "Enregistrer (dict.particulier)"_cp,
        "Noter un mot étranger"_cp,      "Rien : "_cp,  "NP gén."_cp,
        "NP partic."_cp};
    return k;
}

const std::array<std::pair<std::string_view, std::string_view>, 10>& SessionIdentification::Langues() {
    static const std::array<std::pair<std::string_view, std::string_view>, 10> k = {{
        {"ANGLAIS", "02_"}, {"ESPAGNOL", "06_"}, {"LATIN", "09_"}, {"ALLEMAND", "01_"}, {"ARABE", "03_"},
        {"GREC", "07_"}, {"ITALIEN", "08_"}, {"ORIENTALES", "05_"}, {"RUSSE", "10_"}, {"AUTRES", "04_"}}};
    return k;
}

const std::array<std::pair<std::string_view, std::string_view>, 19>& SessionIdentification::Categories() {
    static const std::array<std::pair<std::string_view, std::string_view>, 19> k = {{
        {"SM", "substantif masculin"_cp},
        {"SF", "substantif féminin"_cp},
        {"J", "adjectif"_cp},
        {"R", "substantif/adjectif"_cp},
        {"V", "verbe"_cp},
        {"A", "adverbe"_cp},
        {"M", "mot-phrase, interjection"_cp},
        {"Z", "présentatif"_cp},
        {"CS", "conj. de subordination"_cp},
        {"BX", "préposition standard"_cp},
        {"BI", "préposition verbale (exclusiv.)"_cp},
        {"B", "préposition nominale (exclusiv.)"_cp},
        {"T", "date, temps"_cp},
        {"I", "identité"_cp},
        {"P", "pronom"_cp},
        {"U", "nombre"_cp},
        {"N", "nom propre"_cp},
        {"ABR", "abréviation"_cp},
        {"DIVERS", "divers"_cp},
    }};
    return k;
}

SessionIdentification SessionIdentification::Ouvrir(const fs::path& doss_racine, std::string_view famille,
                                                    const fs::path& ressources, Dialogue& dialogue) {
    SessionIdentification s;
    s.racine_ = doss_racine;
    s.manquants_ = Chemin(doss_racine, DOSSIER_MANQUANTS);
    s.famille_ = std::string(famille);
    // A save that a kill cut short is finished first: its files are all whole.
    if (DossierExiste(s.manquants_)) EcritureGroupee::Achever(s.JournalSauvegarde());

    const fs::path suggestions = s.manquants_ / "CORR_SUGGESTIONS.txt";
    if (FichierExiste(suggestions)) {
        const std::string contenu = LireFichier(suggestions);
        LecteurLignes lecteur(contenu);
        std::string_view ligne;
        while (lecteur.Suivante(ligne)) {
            if (ligne.empty()) continue;
            const std::size_t tab = ligne.find('\t');
            if (tab == std::string_view::npos) LigneSansTabulation(ligne, suggestions, lecteur.Numero());
            const std::string_view proposition = ligne.substr(tab + 1);
            s.suggestions_.try_emplace(std::string(ligne.substr(0, tab)), proposition.substr(0, proposition.find('\t')));
        }
    }

    const fs::path liste = Chemin(s.manquants_, Joindre("LISTE_", famille, ".txt"));
    const std::string contenu = LireFichier(liste);
    LecteurLignes lecteur(contenu);
    std::string_view ligne;
    while (lecteur.Suivante(ligne)) {
        if (s.cas_.size() + 1 >= MAX_CAS_IDENTIFICATION) {
            dialogue.Afficher("5000 items atteints");
            break;
        }
        const std::size_t tab = ligne.find('\t');
        CasInconnu c;
        c.mot = std::string(ligne.substr(0, tab));
        if (tab != std::string_view::npos) c.effectif = std::string(ligne.substr(tab + 1));
        const fs::path conc =
            Chemin(s.manquants_, Joindre("CONC_", famille, "/", std::to_string(s.cas_.size() + 1), ".txt"));
        if (FichierExiste(conc)) c.concordance = LireFichier(conc);
        s.cas_.push_back(std::move(c));
    }
    for (int k = 0; k < NB_MNQVUS; ++k) {
        const fs::path f = s.manquants_ / Joindre("MNQVUS", std::to_string(k), ".txt");
        if (!FichierExiste(f)) EcrireFichier(f, "");
    }
    const fs::path etat = Chemin(s.manquants_, Joindre("ETAT_", famille, ".txt"));
    const long long fait = ValeurEntiere(LireFichier(etat));
    s.courant_ = static_cast<std::size_t>(std::max(0LL, fait)) + 1;

    const fs::path codes = Chemin(ressources, DOSSIER_CODES_FLEXIONNELS);
    std::vector<std::string> subst = LireListeBornee(codes / "flexion_subst.txt", "", 0);
    if (subst.size() > NB_CHOIX_SUBSTANTIFS) subst.resize(NB_CHOIX_SUBSTANTIFS);
    s.flexionsSubst_ = ChoixDeListe(subst);
    s.flexionsAdj_ = ChoixDeListe(LignesSansEntete(codes / "trad_adj.txt"));
    s.flexionsVrb_ = ChoixDeListe(LignesSansEntete(codes / "trad_vrb.txt"));
    if (s.courant_ > s.cas_.size()) s.ecran_ = Ecran::Terminee;
    return s;
}

std::string SessionIdentification::LigneEffectif() const { return Joindre(CasCourant().effectif, " occurrences."); }

std::string SessionIdentification::LigneProgression() const {
    return Joindre(std::to_string(courant_), "ème cas sur "_cp, std::to_string(cas_.size()), " à examiner"_cp);
}

void SessionIdentification::Choisir(int index) {
    if (ecran_ != Ecran::Principal) return;
    const std::string& mot = CasCourant().mot;
    switch (index) {
        case 0:
        case 2:
            particulier_ = index == 2;
            ecran_ = Ecran::Entree;
            break;
        case 1: ecran_ = Ecran::Correction; break;
        case 3: ecran_ = Ecran::Langue; break;
        case 4: Decider(Joindre("3\t", mot), true); break;
        case 5: Decider(Joindre("0\t", mot, ",N"), true); break;
        case 6: Decider(Joindre("1\t", mot, ",N"), true); break;
        default: break;
    }
}

void SessionIdentification::Annuler() {
    if (ecran_ != Ecran::Terminee) ecran_ = Ecran::Principal;
}

std::string_view SessionIdentification::TitreEntree() const {
    return particulier_ ? "NOUVELLE ENTREE DICTIONNAIRE PARTICULIER" : "NOUVELLE ENTREE DICTIONNAIRE GENERAL";
}

std::string SessionIdentification::FormeEntree() const { return Minusculiser(CasCourant().mot); }

std::vector<std::string> SessionIdentification::ChoixFlexion(std::string_view categorie) const {
    if (categorie == "SM" || categorie == "SF") return flexionsSubst_;
    if (categorie == "J" || categorie == "R") return flexionsAdj_;
    if (categorie == "V") return flexionsVrb_;
    return {};
}

void SessionIdentification::ValiderEntree(std::string_view forme, std::string_view categorie, int flexion,
                                          bool infinitifParticipe) {
    if (ecran_ != Ecran::Entree) return;
    const std::string cat = categorie == "V" && infinitifParticipe ? "V_D" : std::string(categorie);
    Decider(Joindre(particulier_ ? "1\t" : "0\t", forme, ",", cat, "\t", std::to_string(flexion)), true);
}

std::string SessionIdentification::TexteCorrection() const {
    const std::string& mot = CasCourant().mot;
    if (const auto it = suggestions_.find(mot); it != suggestions_.end()) return it->second;
    if (const std::size_t t = mot.find('-'); t != std::string::npos) return mot.substr(0, t) + mot.substr(t + 1);
    return mot;
}

void SessionIdentification::Corriger(int index, std::string_view texte) {
    if (ecran_ != Ecran::Correction) return;
    const std::string& mot = CasCourant().mot;
    if (index == 2) Decider(Joindre("2\t", mot, "\t", texte), true);
    else if (index == 3) Decider(Joindre("3\t", mot, "\t", texte), false);
    else if (index == 4) Decider(Joindre("3\t", mot, "\t", texte), true);
}

void SessionIdentification::ChoisirLangue(int index) {
    if (ecran_ != Ecran::Langue || index < 0 || index >= static_cast<int>(Langues().size())) return;
    Decider(Joindre("5\t", Langues()[static_cast<std::size_t>(index)].second, CasCourant().mot), true);
}

void SessionIdentification::OuvrirRetour() {
    if (ecran_ == Ecran::Principal) ecran_ = Ecran::Retour;
}

void SessionIdentification::Revenir(int n) {
    if (ecran_ != Ecran::Retour) return;
    ecran_ = Ecran::Principal;
    if (n < 1 || n > MAX_RETOUR) return;
    // Never before the first item.
    const int possible = static_cast<int>(courant_) - 1;
    if (n > possible) n = possible;
    if (n <= 0) return;
    courant_ -= static_cast<std::size_t>(n);
    recul_ += n;
    nouvelleVisite_ = true;
}

void SessionIdentification::NoterCandidat(bool compose, std::string_view texte) {
    (compose ? candidatsComp_ : candidatsNomp_).emplace_back(texte);
}

void SessionIdentification::Decider(std::string ligne, bool avancer) {
    CasInconnu& c = cas_[courant_ - 1];
    // A new decision on an item replaces what an earlier visit decided.
    if (nouvelleVisite_) c.decision.clear();
    nouvelleVisite_ = false;
    c.decision.push_back(std::move(ligne));
    if (avancer) {
        ecran_ = Ecran::Principal;
        Avancer();
    }
}

void SessionIdentification::Avancer() {
    nouvelleVisite_ = true;
    if (courant_ >= cas_.size()) {
        Sauver();
        ecran_ = Ecran::Terminee;
        return;
    }
    courant_ += recul_ > 0 ? static_cast<std::size_t>(recul_) : 1;
    recul_ = 0;
    if (courant_ > cas_.size()) courant_ = cas_.size();
    if (courant_ % ITEMS_PAR_SAUVEGARDE == 0) Sauver();
}

void SessionIdentification::Quitter() {
    if (ecran_ == Ecran::Terminee) return;
    --courant_;
    Sauver();
    ecran_ = Ecran::Terminee;
}

void SessionIdentification::Sauver() {
    const std::size_t jusqua = std::min(courant_, cas_.size());
    // The decision lists, the progress and the candidates of one saving point change together:
    // a kill in the middle of the save leaves the journal, and the next opening finishes it.
    EcritureGroupee groupe(JournalSauvegarde());
    std::string trx;
    for (std::size_t i = 0; i < jusqua; ++i)
        for (const std::string& l : cas_[i].decision) trx += Joindre(l, "\r\n");
    groupe.Ajouter(racine_ / "MANQUANTS_TRX.txt", trx);
    const std::array<std::pair<char, std::string_view>, 5> fichiers = {{{'0', "DICO_GEN.txt"},
                                                                         {'1', "DICO_PARTIC.txt"},
                                                                         {'2', "CORRECTIONS.txt"},
                                                                         {'3', "INCORRECTIONS.txt"},
                                                                         {'5', "ETRANGERS.txt"}}};
    std::array<std::string, 5> listes;
    for (std::size_t i = 0; i < jusqua; ++i)
        for (const std::string& l : cas_[i].decision) {
            const std::size_t tab = l.find('\t');
            if (tab != 1 || l[0] < '0' || l[0] > '9') continue;
            for (std::size_t k = 0; k < fichiers.size(); ++k)
                if (fichiers[k].first == l[0]) listes[k] += Joindre(std::string_view(l).substr(2), "\r\n");
        }
    for (std::size_t k = 0; k < fichiers.size(); ++k) groupe.Ajouter(manquants_ / std::string(fichiers[k].second), listes[k]);
    groupe.Ajouter(Chemin(manquants_, Joindre("ETAT_", famille_, ".txt")), std::to_string(courant_));
    for (const auto& [nom, candidats] : {std::pair{"CANDIDATS_COMP.txt", &candidatsComp_},
                                          std::pair{"CANDIDATS_NOMP.txt", &candidatsNomp_}}) {
        const fs::path f = manquants_ / nom;
        std::string contenu = FichierExiste(f) ? LireFichier(f) : std::string();
        for (const std::string& c : *candidats) contenu += Joindre(c, "\r\n");
        groupe.Ajouter(f, contenu);
    }
    groupe.Valider();
    candidatsComp_.clear();
    candidatsNomp_.clear();
}

fs::path SessionIdentification::JournalSauvegarde() const { return manquants_ / "#SAUVEGARDE_EN_COURS.txt"; }

}  // namespace telvoris
