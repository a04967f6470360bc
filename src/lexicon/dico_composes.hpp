// Upkeep of the compound dictionary dico/comp: the validation session that turns candidate
// sequences into proposals, the integration of proposals into the amb and namb files, the
// corpus-side dictionary, the passage out of amb, the removal of lines and the component list.
#pragma once

#include <array>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/contexte.hpp"

namespace telvoris {

namespace fs = std::filesystem;

inline constexpr std::size_t MAX_CANDIDATS_COMPOSES = 5000;
inline constexpr std::size_t MAX_LIGNES_CELLULE_COMPOSES = 1000;
inline constexpr std::size_t MAX_COMPOSANTS_CASIER = 20000;
inline constexpr int MAX_MOTS_CLE = 8;
inline constexpr int CLASSE_AMB = 1;
inline constexpr int CLASSE_NAMB = 2;
// Cases between two confirmations of the validation session.
inline constexpr int CAS_PAR_CONFIRMATION = 10;

// The nine entries of the option list of the pane, in index order.
inline constexpr std::array<std::string_view, 9> kOptionsComposes = {
    "SFS", "SFP", "SMS", "SMP", "N PROPRE", "ADVERBE", "EXPRESS", "DIVERS", "PASSER"};
inline constexpr int OPTION_DIVERS = 7;
inline constexpr int OPTION_PASSER = 8;

// The category options of the pane's text box for compounds that vary.
enum class OptionFlexion { Aucune, SM, SF, R, J };

// The validation session of candidate compounds. State: the candidates, the rank of the case
// shown, the buffer of proposals since the last confirmation, and the three work files.
class SessionComposes {
public:
    // Reads at most 5,000 candidates (first tab field of each line) and the work folder.
    SessionComposes(const fs::path& racine, const fs::path& liste);
    bool AjoutsExistent() const;
    // Starts: resumed from AJOUTS_ETAT.txt, or anew (the three work files created empty).
    void Demarrer(bool reprendre);

    int Rang() const { return rang_; }
    int Total() const { return static_cast<int>(candidats_.size()); }
    bool Termine() const { return rang_ > Total(); }
    const std::string& Candidat() const;
    // Every candidate read, in list order (rank 1 first).
    const std::vector<std::string>& Candidats() const { return candidats_; }
    // "cas n°<rank> sur <total>".
    std::string Etat() const;
    const std::string& Tampon() const { return tampon_; }

    // Settles the case from the option list; `divers` is the answer to "Catégorie ?".
    void Choisir(int option, std::string_view divers = {});
    // Settles the case from the typed forms; false (nothing done) without an option.
    bool Valider(OptionFlexion option, const std::vector<std::string>& formes);
    // True when the last settlement calls for confirmation.
    bool ConfirmationDue() const { return confirmationDue_; }
    // "OUI" with the buffer as corrected: appended to AJOUTS.txt, rank saved. Any other answer:
    // the rank goes back by ten and the buffer stays.
    void Confirmer(std::string_view reponse, std::string_view tamponCorrige);

private:
    void Avancer();
    fs::path dossier_;
    std::vector<std::string> candidats_;
    int rang_ = 1;
    std::string tampon_;
    bool dernierRefus_ = false;
    std::string refus_;
    bool confirmationDue_ = false;
};

// Normalises the lemma of a compound line: the text between its last comma and its last dot,
// cut on blanks and joined by "_".
std::string NormaliserLemmeCompose(std::string_view ligne);

// The compound lines of both classes by word count (1 to 8) and initial class (0 to 20).
class TableCellulesComposes {
public:
    TableCellulesComposes();
    std::vector<std::string>& Cellule(int classe, int mots, int initiale);
    const std::vector<std::string>& Cellule(int classe, int mots, int initiale) const;
    void Ajouter(int classe, int mots, int initiale, std::string ligne, std::string_view source);
    // Sorts one proposal line "key,reading<TAB>class" into its cell; false when it stands already.
    // A malformed line names the file and the line.
    bool Inserer(std::string_view proposition, const fs::path& fichier, long long numero, int& classe);
    long long apports[3] = {};

private:
    std::vector<std::vector<std::string>> cellules_;
};

void OperationIdentificationComposes(Contexte& contexte);  // smn_mcid
void OperationIntegrationComposes(Contexte& contexte);     // smn_icp
void OperationDictionnaireCorpusComposes(Contexte& contexte);  // smn_cdc
void OperationPasserAmbNamb(Contexte& contexte);           // smn_pcan
void OperationSuppressionComposes(Contexte& contexte);     // smn_supcomp
void OperationComposants(Contexte& contexte);              // smn_cps

}  // namespace telvoris
