// LISTE_FORMES and LISTE_LEMMES: the words gathered for a query from the text, the corpus
// dictionaries or a map, one a line, and the query panel's fields that they prefill.
#pragma once

#include <string>
#include <string_view>

#include "explore/requete.hpp"

namespace telvoris {

struct ListesMots {
    std::string LISTE_FORMES;
    std::string LISTE_LEMMES;
};

// Adds the word and a line end unless the list already holds it as a whole line: the check
// looks for line end, word, line end, and for word and line end at the very start.
// Returns whether it was added.
bool AjouterSansRepeter(std::string& liste, std::string_view mot);

// The fields of the query panel CF_parametres, as the person left them.
struct PanneauRequete {
    int option = 0;  // CFP_OPTX: 0 simple, 1 multiple, 2 lemme, 3 lemlist
    std::string simple, multiple, lemme, lemlist;
    ParametresRequete autres;  // case, results, span, sentence; type and entry come from above
};

// smn_rq: a non-empty LISTE_FORMES goes to CFP_multiple and ticks CFP_OPTX(1), unless that field
// is already in use; the same for LISTE_LEMMES, CFP_lemlist and CFP_OPTX(3).
void RemplirDepuisListes(PanneauRequete& panneau, const ListesMots& listes);

// The query the panel asks for: the ticked field and the other settings.
ParametresRequete ParametresDuPanneau(const PanneauRequete& panneau);

}  // namespace telvoris
