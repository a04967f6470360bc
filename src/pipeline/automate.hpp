// The automatic pass: dictionary application puts the dictionary's knowledge on every word
// token, then the context rules settle what they can and leave the case index of what remains.
#pragma once

#include <string>
#include <string_view>

#include "core/contexte.hpp"
#include "core/liste_textes.hpp"

namespace telvoris {

// Kept out of this header: the dictionary store and the segmenter both name their own bounds.
class TableFormes;

struct CompteursDictionnaire {
    long long nb_univoques = 0;  // forms found with one entry
    long long nb_pluriels = 0;   // forms found with several readings
};

// Applies the dictionary (loaded with interpretations) to one tagged line; the result is
// appended to `sortie`.
void AppliquerDictionnaireLigne(std::string_view ligne, const TableFormes& formes, CompteursDictionnaire& compteurs,
                                std::string& sortie);

// The menu operation "Passe automatique": dictionary application, then the context pass, over
// the chosen list; the state before the run is kept in OLBRIN_TT/AVANT_AUTOMATE_SIMPLES.
void OperationPasseAutomatique(Contexte& contexte);

}  // namespace telvoris
