// A small resource tree for the tagging tests, built in a temporary folder: the 300 dictionary
// files, the 140 compound files and the lists of the context rules, filled with given lines.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "core/fichiers.hpp"
#include "core/texte.hpp"
#include "lexicon/arbre.hpp"
#include "lexicon/dictionnaire.hpp"
#include "support/support.hpp"

namespace telvoris::test {

// A CP1252 text as a string, for the lists of dictionary lines below.
inline std::string C(std::string_view cp) { return std::string(cp); }

struct ContenuArbre {
    std::vector<std::string> dico;      // "form,interpretation/..." (CP1252)
    std::vector<std::string> composes;  // "word word,lemma.CATEGORY:flexion"
    std::vector<std::string> preverb, prenom, prevernom, postclit, verbes;
};

inline void ConstruireArbre(const fs::path& r, const ContenuArbre& a) {
    std::map<std::pair<int, int>, std::vector<std::string>> dico, comp;
    for (const auto& l : a.dico) {
        const CleMot cle = classe_mot(l.substr(0, l.find(',')));
        dico[{cle.ClasseLongueur, cle.ClasseInitiale}].push_back(l);
    }
    for (const auto& l : a.composes) {
        const std::string cle = l.substr(0, l.find(','));
        int mots = 1;
        for (char ch : cle) mots += ch == ' ';
        comp[{mots, classe_mot(cle.substr(0, cle.find(' '))).ClasseInitiale}].push_back(l);
    }
    for (int l = 1; l <= 15; ++l)
        for (int c = 1; c <= 20; ++c) Ecrire(FichierCasier(r, DOSSIER_DICO, l, c), Lignes(dico[{l, c}]));
    for (int w = 2; w <= 8; ++w)
        for (int c = 1; c <= 20; ++c) Ecrire(FichierCasier(r, DOSSIER_COMPOSES_NAMB, w, c), Lignes(comp[{w, c}]));
    Ecrire(FichierUtilitaire(r, "nombres.txt"), Lignes({"deux", "trois"}));
    Ecrire(FichierUtilitaire(r, "preverb.txt"), Lignes(a.preverb));
    Ecrire(FichierUtilitaire(r, "prenom.txt"), Lignes(a.prenom));
    Ecrire(FichierUtilitaire(r, "prevernom.txt"), Lignes(a.prevernom));
    Ecrire(FichierUtilitaire(r, "POSTCLIT_DESAMB.txt"), Lignes(a.postclit));
    std::vector<std::string> verbes = {"verbe\ttransitif\tintransitif\tpronominal"};
    verbes.insert(verbes.end(), a.verbes.begin(), a.verbes.end());
    Ecrire(FichierUtilitaire(r, "CATEGORIES_DE_VERBES_.txt"), Lignes(verbes));
}

// A corpus root with one list "liste.txt" and its tagged texts in OLBRIN_TT.
inline fs::path ConstruireCorpus(const fs::path& racine, const std::map<std::string, std::string>& textes) {
    std::vector<std::string> noms;
    for (const auto& [nom, contenu] : textes) {
        Ecrire(racine / "OLBRIN_TT" / (nom + ".txt"), contenu);
        noms.push_back(nom);
    }
    Ecrire(racine / "liste.txt", Lignes(noms));
    return racine / "liste.txt";
}

}  // namespace telvoris::test
