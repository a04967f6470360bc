// Joined words: the search over all the cuts of an unknown word into known words (a list for a
// person to check), and the fixed character repairs of the tagged tree into OLBRIN_TT_NEW.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "core/contexte.hpp"
#include "core/liste_textes.hpp"
#include "correction/commun_correction.hpp"
#include "lexicon/dictionnaire.hpp"

namespace telvoris {

struct ListesMotsColles {
    TableFormes connus;  // with the source of each form
    FormesFrequences frequences;
    std::vector<std::string> elides;
};
void ChargerListesMotsColles(ListesMotsColles& l, const std::filesystem::path& racine);

// Known, and from none of the correction, numeral, foreign or accent lists.
bool EstSimple(const TableFormes& connus, std::string_view forme);

// The verdict for one unknown word (the text after the form's tab), or "" when none is written.
// `score` is left at the best two-word product (1000 for an elision, 1000000 for a doubled word).
std::string CouperMot(std::string_view mot, const ListesMotsColles& l, long long& score);

struct BilanMotsColles {
    long long inconnus = 0, corrections = 0;
};
// Walks the index of each text of the list into MOTS_COUPES.txt.
BilanMotsColles RechercherMotsColles(const ListeTextes& liste, const ListesMotsColles& l, Dialogue& dialogue);

// One tagged line with its ligatures, doubled and stray apostrophes and slashes repaired.
std::string ReparerLigne(std::string_view ligne);
// Rewrites the texts of the list into OLBRIN_TT_NEW, with the progress in CONTROLE.txt.
void ReparerTextes(const ListeTextes& liste, Dialogue& dialogue);

void OperationMotsColles(Contexte& ctx);         // smn_mocol
void OperationReparationsSignes(Contexte& ctx);  // smn_respn

}  // namespace telvoris
