#include "explore/listes_mots.hpp"

#include "core/texte.hpp"

namespace telvoris {

bool AjouterSansRepeter(std::string& liste, std::string_view mot) {
    if (mot.empty()) return false;
    if (liste.find(Joindre("\r\n", mot, "\r\n")) != std::string::npos) return false;
    if (liste.starts_with(Joindre(mot, "\r\n"))) return false;
    liste += mot;
    liste += "\r\n";
    return true;
}

void RemplirDepuisListes(PanneauRequete& panneau, const ListesMots& listes) {
    if (!listes.LISTE_FORMES.empty() && panneau.multiple.empty()) {
        panneau.multiple = listes.LISTE_FORMES;
        panneau.option = 1;
    }
    if (!listes.LISTE_LEMMES.empty() && panneau.lemlist.empty()) {
        panneau.lemlist = listes.LISTE_LEMMES;
        panneau.option = 3;
    }
}

ParametresRequete ParametresDuPanneau(const PanneauRequete& panneau) {
    ParametresRequete p = panneau.autres;
    switch (panneau.option) {
        case 1: p.type = TypeSaisie::ListeFormes, p.saisie = panneau.multiple; break;
        case 2: p.type = TypeSaisie::Lemme, p.saisie = panneau.lemme; break;
        case 3: p.type = TypeSaisie::ListeLemmes, p.saisie = panneau.lemlist; break;
        default: p.type = TypeSaisie::Forme, p.saisie = panneau.simple; break;
    }
    return p;
}

}  // namespace telvoris
