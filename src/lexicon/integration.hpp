// Dictionary integration: proposals "form,lemma,CODE" (or ready-made dictionary lines) merged
// into a dictionary of simple forms. This is the one place that writes readings, so it decides
// how the readings of one form combine: persons, tenses, gender and number merge into single
// codes, and the noun and adjective readings of one lemma are reconciled.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "core/contexte.hpp"
#include "core/dialogue.hpp"
#include "core/fichiers.hpp"

namespace telvoris {

namespace fs = std::filesystem;

inline constexpr std::size_t MAX_LIGNES_CASIER_INTEGRATION = 20000;

// Folds a form as the dictionary stores it: codes 65-90 and 192-223 take +32, 140 becomes 156.
std::string PlierForme(std::string_view forme);

// The lemma code of a form: empty when lemma and form are equal, else the number of characters
// cut from the end of the form until what remains begins the lemma, then the rest of the lemma.
std::string CodeLemme(std::string_view forme, std::string_view lemme);

// A proposal code translated into the category and flexion of a dictionary reading.
struct CodeTraduit {
    std::string categorie;
    std::string flexion;
};
CodeTraduit TraduireCode(std::string_view code);

// The merge of a new flexion into an existing one of the same lemma and category; "" when the
// two do not merge.
std::string FusionnerFlexions(std::string_view categorie, std::string_view nouvelle, std::string_view existante);

struct CompteursIntegration {
    long long propositions = 0;
    long long ajouts = 0;
    long long interpretations = 0;
};

// A dictionary of simple forms in memory: every non-blank line in the bucket of its file, with
// an index of the lines by form.
class DictionnaireLignes {
public:
    DictionnaireLignes();
    // Reads the 300 files of a folder (each must exist).
    void Charger(const fs::path& dossier);
    // Writes every non-empty bucket to its file in `dossier`; with `tous`, empty ones too. The
    // bar of `dialogue`, when given, moves bucket by bucket.
    void Ecrire(const fs::path& dossier, bool tous, Dialogue* dialogue = nullptr) const;

    // Integrates one reading of a form; the report (which may be null) receives its lines.
    // `proposition` is the text that the report quotes.
    void Integrer(std::string_view proposition, std::string_view forme, std::string_view lemme,
                  std::string_view categorie, std::string_view flexion, EcrivainFichier* rapport);
    const CompteursIntegration& Compteurs() const { return compteurs_; }
    CompteursIntegration& Compteurs() { return compteurs_; }
    std::size_t NombreLignes() const;

private:
    struct Casier {
        std::vector<std::string> lignes;
        std::unordered_map<std::string, std::vector<std::uint32_t>> parForme;
    };
    Casier& At(int longueur, int initiale) { return casiers_[static_cast<std::size_t>(initiale * 16 + longueur)]; }
    const Casier& At(int longueur, int initiale) const {
        return casiers_[static_cast<std::size_t>(initiale * 16 + longueur)];
    }
    void AjouterLigne(Casier& c, std::string ligne, std::string_view source);
    std::vector<Casier> casiers_;
    CompteursIntegration compteurs_;
};

// One proposal line "form,lemma,CODE" of a file; a line without its two commas is an error
// naming the file and the line.
void IntegrerPropositions(DictionnaireLignes& dico, const fs::path& fichier, EcrivainFichier* rapport);
// Ready-made dictionary lines "form,reading/reading": each reading is integrated.
void IntegrerLignesDictionnaire(DictionnaireLignes& dico, const fs::path& fichier, EcrivainFichier* rapport);

// The dated copy of dico/olbrin made before any change: dico/olbrin_<stamp>. Returns its folder.
fs::path SauvegarderDictionnaire(const fs::path& racine, std::string_view horodate);

// Menu operations.
void OperationIntegrationFormes(Contexte& contexte);     // smn_ifs
void OperationIntegrationLignes(Contexte& contexte);     // smn_ilc
void OperationDictionnaireCorpus(Contexte& contexte);    // smn_dcf
void OperationFusionDictionnaires(Contexte& contexte);   // smn_fusdic

}  // namespace telvoris
