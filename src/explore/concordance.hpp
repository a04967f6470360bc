// The concordance of the current query: its two sorts, its 139-column lines with the form at
// column 61, its page of 39 lines, and its saving under SAUVEGARDES/CONCORDANCES.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "core/horloge.hpp"

namespace telvoris {

struct Requete;
struct EtatCorpus;

inline constexpr std::size_t PAGE_CONC = 39;
inline constexpr std::size_t MAX_LIGNES_TRIEES = 10000;

// ORDRE_DROIT and ORDRE_GAUCHE: occurrences sorted on the right context, and on the form then
// the letters going left from it; equal keys keep the order of the occurrences.
void TrierConcordance(Requete& requete);

// The sort key of a right context, and of a left context with the first word of the right one.
std::string CleTriDroite(const std::string& droite);
std::string CleTriGauche(const std::string& gauche, const std::string& droite);

// The concordance lines in the order shown (left sort when `triGauche`), each OCC_GAUCHE
// followed by OCC_DROITE.
std::vector<std::string> LignesConcordance(const Requete& requete, bool triGauche);

// The page that begins at `rang` (from 1): at most 39 lines joined by line ends, none after the last.
std::string PageConcordance(const Requete& requete, bool triGauche, std::size_t rang = 1);

// The text of CF_info: the number of occurrences and the report of forms and counts.
std::string TexteInfoRequete(const Requete& requete);

// Writes SAUVEGARDES/CONCORDANCES/<first form>_<stamp>.txt; returns its path.
std::filesystem::path SauverConcordance(const EtatCorpus& etat, const Requete& requete, bool triGauche,
                                        const Horloge& horloge);

}  // namespace telvoris
