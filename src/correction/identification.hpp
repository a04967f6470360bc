// The identification session of the unknown words listed under MANQUANTS: one item at a time with
// its concordance, a decision line per item kept in memory, saved every ten items and at the stop,
// taken up later at the next item. This is the model; front ends render it and call its commands.
#pragma once

#include <array>
#include <filesystem>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "core/contexte.hpp"
#include "core/dialogue.hpp"

namespace telvoris {

// The list is read until its count reaches this bound: at most 4,999 items.
inline constexpr std::size_t MAX_CAS_IDENTIFICATION = 5000;
inline constexpr int ITEMS_PAR_SAUVEGARDE = 10;
inline constexpr int MAX_RETOUR = 10;
inline constexpr int NB_MNQVUS = 6;

struct CasInconnu {
    std::string mot;
    std::string effectif;
    std::string concordance;
    // Decision lines "code<TAB>body"; several for a word with more than one pair noted.
    std::vector<std::string> decision;
};

class SessionIdentification {
public:
    enum class Ecran { Principal, Entree, Correction, Langue, Retour, Terminee };

    // The captions of the main choice, by index 0 to 6.
    static const std::array<std::string_view, 7>& ChoixPrincipaux();
    // The captions and codes of the language list.
    static const std::array<std::pair<std::string_view, std::string_view>, 10>& Langues();
    // The 19 category codes with their captions.
    static const std::array<std::pair<std::string_view, std::string_view>, 19>& Categories();

    // Opens the session of a family ("FC" or "NP") of MANQUANTS in `doss_racine`. A missing list
    // or state file is the file error. `dialogue` is told when the list is cut at its bound.
    static SessionIdentification Ouvrir(const std::filesystem::path& doss_racine, std::string_view famille,
                                        const std::filesystem::path& ressources, Dialogue& dialogue);

    Ecran EcranCourant() const { return ecran_; }
    bool Terminee() const { return ecran_ == Ecran::Terminee; }
    std::size_t Courant() const { return courant_; }
    std::size_t NbCas() const { return cas_.size(); }
    const CasInconnu& Cas(std::size_t n) const { return cas_[n - 1]; }
    const CasInconnu& CasCourant() const { return cas_[courant_ - 1]; }
    // C_LAB2: n " occurrences."; the progress text: Courant "ème cas sur " total " à examiner".
    std::string LigneEffectif() const;
    std::string LigneProgression() const;

    // The main choice (0 to 6): opens a form, or decides and moves on.
    void Choisir(int index);
    // Back to the main choice of the same item (a form cancelled).
    void Annuler();

    // The entry form: its title, the word in lower case, the flexion choices of a category
    // (empty when it has no panel; the last one is the manual choice).
    std::string_view TitreEntree() const;
    std::string FormeEntree() const;
    std::vector<std::string> ChoixFlexion(std::string_view categorie) const;
    // Confirms the entry: `flexion` is the place of the choice from 1, 0 for the manual one.
    void ValiderEntree(std::string_view forme, std::string_view categorie, int flexion, bool infinitifParticipe);

    // The correction form: the text it opens with; index 2 decides and moves on, 3 notes a pair and
    // stays, 4 notes a pair and moves on; 0 and 1 are captions and do nothing.
    std::string TexteCorrection() const;
    void Corriger(int index, std::string_view texte);

    // The language list: index into Langues().
    void ChoisirLangue(int index);

    // Going back: the panel, then 1 to 10 cases back.
    void OuvrirRetour();
    void Revenir(int n);

    // Candidates noted from the concordance, appended to CANDIDATS_COMP.txt or CANDIDATS_NOMP.txt
    // at the next save.
    void NoterCandidat(bool compose, std::string_view texte);

    // C_LAB3 confirmed: the item on screen stays undone, the session is saved and ends.
    void Quitter();
    void Sauver();

private:
    SessionIdentification() = default;
    void Decider(std::string ligne, bool avancer);
    void Avancer();

    // The journal of a save under way (see EcritureGroupee).
    std::filesystem::path JournalSauvegarde() const;
    std::filesystem::path racine_, manquants_;
    std::string famille_;
    std::vector<CasInconnu> cas_;
    std::size_t courant_ = 1;
    int recul_ = 0;
    bool nouvelleVisite_ = true;
    bool particulier_ = false;
    Ecran ecran_ = Ecran::Principal;
    std::unordered_map<std::string, std::string> suggestions_;
    std::vector<std::string> flexionsSubst_, flexionsAdj_, flexionsVrb_;
    std::vector<std::string> candidatsComp_, candidatsNomp_;
};

// smn_iic "Identification inconnus", driven by prompts.
void OperationIdentificationInconnus(Contexte& ctx);

}  // namespace telvoris
