// Automatic correction of a tagged corpus: the pass over the unknown words from the two stores of
// known repairs (into a dated folder), the word-for-word correction from a list (in place, after a
// backup), and the integration of new pairs into the stores.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "core/contexte.hpp"
#include "core/liste_textes.hpp"
#include "lexicon/dictionnaire.hpp"
#include "pipeline/segmenteur.hpp"  // MAX_ELIDES, MAX_POSTCLITIQUES

namespace telvoris {

// The backup of the texts before the word-for-word correction rewrites them.
inline constexpr std::string_view DOSSIER_AVANT_CORMAM = "AVANT_CORMAM";

struct ListesCorrection {
    TableFormes connus;            // dictionary, foreign lists, components, abbreviations, numerals
    TableCorrections reparations;  // the correction store, then the accent store
    std::vector<std::string> elides;
    std::vector<std::string> postclit1;
};
void ChargerListesCorrection(ListesCorrection& l, const std::filesystem::path& racine);

struct CompteursCorrection {
    long long mots = 0, inconnus = 0, resolus = 0, nonResolus = 0;
};

// The pass over the texts of a list into OLBRIN_TT/CORR_<stamp>, with controle_corrections.txt.
CompteursCorrection CorrectionAutomatique(const ListeTextes& liste, const ListesCorrection& l,
                                          std::string_view horodate, Dialogue& dialogue);

// Word-for-word correction: fault (folded) to correction, by bucket, first entry wins.
class ListeMotAMot {
public:
    void Charger(const std::filesystem::path& fichier);
    const TableCorrections& Table() const { return table_; }

private:
    TableCorrections table_;
};
// A correction given the case pattern of the form it replaces.
std::string AppliquerCasse(std::string_view correction, std::string_view source);
// Rewrites each text of the list in place after copying it to OLBRIN_TT/AVANT_CORMAM; returns the
// number of corrections.
long long CorrectionMotAMot(const ListeTextes& liste, const TableCorrections& table, Dialogue& dialogue);

// Adds the pairs of a file to a store folder ("rescor/rescor" or "incor/incor") after a dated
// copy of it; returns the number of pairs read. A run killed while it rewrote the store is taken
// back first (the store put back from its copy, and `etape` named in a message).
struct BilanIntegration {
    long long paires = 0;
    long long nonRangees = 0;  // faults whose first character files them in no bucket file
};
BilanIntegration IntegrerDansStock(const std::filesystem::path& racine, std::string_view dossierStock,
                                   std::string_view horodate, const std::filesystem::path* nouvelles,
                                   std::string_view etape, Dialogue& dialogue);

void OperationCorrectionAutomatique(Contexte& ctx);  // smn_crator
void OperationCorrectionMotAMot(Contexte& ctx);      // smn_cormam
void OperationIntegrationRescor(Contexte& ctx);      // smn_intres
void OperationIntegrationIncor(Contexte& ctx);       // smn_intinc

}  // namespace telvoris
