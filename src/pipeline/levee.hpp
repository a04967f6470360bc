// The interactive disambiguation sessions: what the automatic pass left open (simple words) or
// what a compound review marked with <MK ...> is settled by a person, case by case. This is the
// session model only: the corpus in memory, the case tables, the current case with its ticks,
// validation, review, saving and resumption. Front ends render it and call its commands.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/contexte.hpp"
#include "core/dialogue.hpp"
#include "core/horloge.hpp"
#include "core/liste_textes.hpp"

namespace telvoris {

// The corpus table holds at least ten million positions; the bound is lifted to what fits in
// memory with room to spare.
inline constexpr long long MAX_POSITIONS_LEVEE = 60000000;
inline constexpr std::size_t MAX_CAS_LEVEE = 50000;
// Occurrences of one case: the context tables held 50,000; a large corpus has forms far above it,
// so the bound is lifted.
inline constexpr std::size_t MAX_OCCURRENCES_CAS = 2000000;
inline constexpr std::size_t MAX_FILE_CAS = 10000;
inline constexpr std::size_t MAX_LIGNES_PLAGE = 15000;
// Five tick boxes stand on a row: readings past the fifth cannot be chosen.
inline constexpr int NB_COLONNES_LEVEE = 5;
inline constexpr std::size_t LARGEUR_CONTEXTE_LEVEE = 64;
inline constexpr std::size_t LARGEUR_LEMME_AFFICHE = 25;
// A saving point every this many validated cases.
inline constexpr int CAS_PAR_SAUVEGARDE = 10;

enum class EtiquetteSession { levcon_simp, levcon_s2, levcon_s1x, levcon_s1, levcon_comp };
std::string_view TexteEtiquette(EtiquetteSession e);

// One occurrence of the current case: its running position, its contexts and its tick
// (0 = none, 1..5 = the reading ticked). The contexts and the token are filled when the row is
// first asked for: a case of 200,000 occurrences shows a screenful of them.
struct OccurrenceLevee {
    long long position = 0;
    std::string gauche;  // exactly 64 characters, padded on the left
    std::string droite;
    std::string jeton;   // the token as it stands now
    int coche = 0;
    bool contextes = false;  // gauche and droite are filled
};

// One reading of the current case as its column shows it.
struct LibelleLecture {
    std::string lemme;    // "l=" lemma "_" category
    std::string flexion;  // " x=" flexion, or "" for none
};

class SessionLevee {
public:
    // Opens a simple-word session on a corpus (label levcon_simp). Checked preconditions end the
    // program with their messages; `dialogue` only shows the progress of loading.
    static SessionLevee OuvrirSimples(const ListeTextes& liste, const Horloge& horloge, Dialogue& dialogue);
    // Opens a compound session (label levcon_comp) and shows its first case.
    static SessionLevee OuvrirComposes(const ListeTextes& liste, const Horloge& horloge, Dialogue& dialogue);

    EtiquetteSession Etiquette() const { return etiquette_; }

    // The way of working, from levcon_simp: cases in file order (the default), shown at once...
    void TravaillerDansLOrdre();
    // ... or by lemmas: levcon_s1x, with the lemma list to choose from.
    void ChoisirParLemmes();
    // The lemmas of #INDEX_LEMMES.txt, each padded to 25 characters.
    std::vector<std::string> LemmesAffiches() const;
    // Takes the lemmas chosen (indices in the list from 0): their open cases are queued, their keys
    // written to LEMSEL.txt, the label becomes levcon_s1 and the first queued case is shown.
    void ValiderLemmes(const std::vector<std::size_t>& choisis);

    // Whether the session has no case left (it has then been saved).
    bool Terminee() const { return terminee_; }

    // The current case.
    std::size_t NoCas() const { return no_cas_; }  // from 1, in the case index
    std::size_t NbCas() const { return cles_.size(); }
    const std::string& FormeCas() const { return forme_cas_; }
    const std::string& CleCas() const { return cles_[no_cas_ - 1]; }
    // "CAS n°3 sur 12 : porte : 2 occurrence(s)."
    std::string LigneCas() const;
    const std::vector<LibelleLecture>& Libelles() const { return libelles_; }
    // The readings of the case (its column count is at most five).
    int NbLectures() const { return static_cast<int>(libelles_.size()); }
    // The occurrences in the order shown.
    std::size_t NbOccurrences() const { return ordre_.size(); }
    const OccurrenceLevee& Occurrence(std::size_t rang) const;

    // Ticks reading j (1..5) for the row at `rang` in the order shown, clearing the other boxes of
    // the row; j = 0 clears the row. A reading the case does not have is refused.
    void Cocher(std::size_t rang, int lecture);
    // A click on a reading label: ticks that reading on every row, or clears them all when every
    // row has it already.
    void CocherColonne(int lecture);
    // The range tick: reading j on all rows from `de` to `a` (in the order shown, both included).
    void CocherPlage(std::size_t de, std::size_t a, int lecture);
    // The other order: by right contexts, then back by left contexts.
    void ChangerTri();
    // The caption of the sort button: "TRI DROIT" while sorted on the left.
    std::string_view LibelleTri() const;
    // The caption of the next-case button.
    std::string_view LibelleBouton() const;

    // The next-case button: applies the ticks of the case shown, then shows the next case; when
    // none is left, saves and returns false ("Opération terminée"). While revising, shows the
    // case undone again without applying anything.
    bool CasSuivant();
    // REVISER: writes back what the last validation changed and marks that case untreated; the
    // next click shows it again. False when there is nothing to undo.
    bool Reviser();
    bool EnRevision() const { return revision_; }

    // sauver_session: the texts changed since the last save, #BILAN.txt, and the state file.
    void Sauver();

    // The whole text of a file as it would be written (for checks and the front ends).
    std::string TexteFichier(std::size_t fichier) const;
    // The token at a running position, from 1.
    std::string_view Jeton(long long position) const;
    const std::string& Bilan() const { return bilan_; }
    long long NbPositions() const { return static_cast<long long>(jetons_.size()); }
    const std::filesystem::path& DossierSauvegarde() const { return dossierAvant_; }

private:
    // A piece of text in the arena: the loaded files followed by every text written since.
    struct Morceau {
        std::uint64_t debut : 40;
        std::uint64_t longueur : 24;
    };
    // Bounds are checked by the caller: a length past 24 bits reads back shorter.
    static Morceau FaireMorceau(std::uint64_t debut, std::uint64_t longueur) {
        Morceau m;
        m.debut = debut;
        m.longueur = longueur;
        return m;
    }
    struct Modification {
        long long position;
        Morceau jeton, separateur;
    };

    SessionLevee() = default;
    void Charger(const ListeTextes& liste, const std::filesystem::path& dossierAvant, Dialogue& dialogue,
                 bool avecMK);
    void LireCas(const std::filesystem::path& fichier);
    void MontrerCas(std::size_t no);
    bool ProchainNonTraite();
    void AppliquerCoches();
    void AppliquerSimple(OccurrenceLevee& o, std::string& chiffres);
    void AppliquerCompose(OccurrenceLevee& o, std::string& chiffres);
    void Trier();
    void Terminer();
    void RemplirContextes(OccurrenceLevee& o) const;
    // The sort key of an occurrence, written into `cle`: the left context read backwards, or the
    // right context, as the contexts shown would give it.
    void CleTri(long long position, bool droite, std::string& cle) const;

    std::string_view Texte(Morceau m) const { return std::string_view(arene_).substr(m.debut, m.longueur); }
    Morceau Ajouter(std::string_view texte);
    void Remplacer(long long position, std::string_view jeton);
    std::size_t FichierDe(long long position) const;
    std::string_view Forme(long long position) const;

    EtiquetteSession etiquette_ = EtiquetteSession::levcon_simp;
    std::filesystem::path dossierTT_, dossierEtat_, dossierAvant_;
    std::vector<std::string> noms_;

    // The corpus: tokens and separators by running position (index position - 1).
    std::string arene_;
    std::vector<Morceau> jetons_, separateurs_;
    std::vector<long long> debut_fichier_, fin_fichier_;  // first and last position of each file
    std::vector<Morceau> entete_fichier_;
    std::vector<bool> modifie_;

    // The cases.
    std::vector<std::string> cles_, ids_, positions_cas_;
    std::vector<char> etat_cas_;
    std::vector<std::string> lemmes_, cles_lemme_;
    std::string bilan_;
    std::vector<std::size_t> file_cas_;
    std::size_t rang_file_ = 0;
    std::size_t curseur_compose_ = 0;  // cases treated before this session (#ETAT.txt)

    // The current case.
    std::size_t no_cas_ = 0;
    bool casAffiche_ = false;
    std::string forme_cas_;
    std::vector<LibelleLecture> libelles_;
    mutable std::vector<OccurrenceLevee> occurrences_;
    std::vector<std::size_t> ordre_;
    bool triDroit_ = false;
    bool terminee_ = false;
    bool revision_ = false;
    bool dejaValide_ = false;  // a case has been validated in this session

    // The undo record of the last validation.
    std::vector<Modification> historique_;
    std::size_t cas_historique_ = 0;
    std::size_t rang_historique_ = 0;
    std::size_t bilan_avant_ = 0;
    int valides_ = 0;
};

// The menu operations "Levée simples ambigus" and "Levée composés ambigus": the session driven
// through the dialogue, one prompt per case.
void OperationLeveeSimples(Contexte& contexte);
void OperationLeveeComposes(Contexte& contexte);

}  // namespace telvoris
