// A small resource tree for the correction tests, built in a temporary folder: every bucket
// folder the commands read (general dictionary, stores, foreign forms, filtering dictionary) with
// the given lines, and the lists of utilitaires.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "core/fichiers.hpp"
#include "core/liste_textes.hpp"
#include "core/texte.hpp"
#include "lexicon/arbre.hpp"
#include "lexicon/dictionnaire.hpp"
#include "pipeline/indexeur.hpp"
#include "pipeline/segmenteur.hpp"
#include "support/support.hpp"

namespace telvoris::test {

inline std::string C(std::string_view cp) { return std::string(cp); }

struct ContenuCorrection {
    std::vector<std::string> dico;       // "form,interpretation" or bare forms
    std::vector<std::string> rescor;     // "fault<TAB>right"
    std::vector<std::string> accents;    // "fault<TAB>right"
    std::vector<std::string> incor;
    std::vector<std::string> etrangers;  // one form a line
    std::vector<std::string> filtrage;   // "form<TAB>frequency"
    std::vector<std::string> composants, abreviations, romains = {"ii", "iii"};
    std::vector<std::string> elides = {"l", "d", "qu", "j", "n"};
    std::vector<std::string> postclit1 = {"il", "elle", "on", "t-il"};
    std::vector<std::string> prefixes = {"anti"};
    std::vector<std::string> substitutions = {"rn\tm", "cl\td"};
    std::vector<std::string> matrice = {"\ta\te\to\tm", "a\t\t3\t2", "e\t\t\t1", "o", "m"};
    std::vector<std::string> diacritiques = {"101\t1", "233\t1", "232\t1", "97\t2", "224\t2"};
    std::vector<std::string> graphies = {C("estre\têtre"_cp), C("sç\ts"_cp)};
};

inline void RemplirCasiers(const fs::path& r, std::string_view dossier, const std::vector<std::string>& lignes,
                           char separateur) {
    std::map<std::pair<int, int>, std::vector<std::string>> parCasier;
    for (const auto& l : lignes) {
        const CleMot cle = classe_mot(l.substr(0, l.find(separateur)));
        parCasier[{cle.ClasseLongueur, cle.ClasseInitiale}].push_back(l);
    }
    for (int l = 1; l <= 15; ++l)
        for (int c = 1; c <= 20; ++c) Ecrire(FichierCasier(r, dossier, l, c), Lignes(parCasier[{l, c}]));
}

inline void ConstruireArbreCorrection(const fs::path& r, const ContenuCorrection& a) {
    std::vector<std::string> dico;
    for (const auto& l : a.dico) dico.push_back(l.find(',') == std::string::npos ? l + ",.SM:s" : l);
    RemplirCasiers(r, DOSSIER_DICO, dico, ',');
    RemplirCasiers(r, DOSSIER_RESCOR, a.rescor, '\t');
    RemplirCasiers(r, DOSSIER_ACCENTS, a.accents, '\t');
    RemplirCasiers(r, DOSSIER_INCOR, a.incor, '\t');
    RemplirCasiers(r, "dico/FILTRAGE", a.filtrage, '\t');
    std::map<std::pair<int, int>, std::vector<std::string>> etr;
    for (const auto& l : a.etrangers) {
        const CleMot cle = classe_mot(l);
        etr[{cle.ClasseLongueur, cle.ClasseInitiale}].push_back(l);
    }
    for (int l = 1; l <= 15; ++l)
        for (int c = 1; c <= 20; ++c)
            Ecrire(Chemin(r, Joindre(DOSSIER_ETRANGERS, "/", NomFichierEtrangers(l, c))), Lignes(etr[{l, c}]));
    Ecrire(FichierUtilitaire(r, "COMPOSANTS.txt"), Lignes(a.composants));
    Ecrire(FichierUtilitaire(r, "ABREVIATIONS.txt"), Lignes(a.abreviations));
    Ecrire(FichierUtilitaire(r, "romains.txt"), Lignes(a.romains));
    Ecrire(FichierUtilitaire(r, "elide.txt"), Lignes(a.elides));
    Ecrire(FichierUtilitaire(r, "postclit1.txt"), Lignes(a.postclit1));
    Ecrire(FichierUtilitaire(r, "PREFIXES.txt"), Lignes(a.prefixes));
    Ecrire(FichierUtilitaire(r, "substi_car.txt"), Lignes(a.substitutions));
    Ecrire(FichierUtilitaire(r, "MATRICE_CAR.txt"), Lignes(a.matrice));
    Ecrire(FichierUtilitaire(r, "DIACRITIQUES.txt"), Lignes(a.diacritiques));
    Ecrire(FichierUtilitaire(r, "DIACRITIQUES_LIGHT.txt"), Lignes({"101\t1", "233\t1"}));
    Ecrire(FichierUtilitaire(r, "graphies-17.txt"), Lignes(a.graphies));
    Ecrire(FichierUtilitaire(r, "courts_frequents.txt"), Lignes({"le", "la", "de"}));
    const fs::path codes = Chemin(r, DOSSIER_CODES_FLEXIONNELS);
    Ecrire(codes / "flexion_subst.txt", Lignes({"0s", "0", "1ux", "0x", "3aux", "0x", "3yeux"}));
    Ecrire(codes / "trad_adj.txt", Lignes({C("classe\tmodèle"_cp), "1\tgrand", "2\trapide"}));
    Ecrire(codes / "trad_vrb.txt", Lignes({C("classe\tmodèle"_cp), "1\taimer", "2\tfinir", "3\tvenir"}));
}

// A corpus root with one list "liste.txt" and its tagged texts in OLBRIN_TT, indexed when asked.
inline fs::path ConstruireCorpus(const fs::path& racine, const std::map<std::string, std::string>& textes,
                                 const fs::path* ressourcesIndex = nullptr) {
    std::vector<std::string> noms;
    for (const auto& [nom, contenu] : textes) {
        Ecrire(racine / "OLBRIN_TT" / (nom + ".txt"), contenu);
        noms.push_back(nom);
    }
    Ecrire(racine / "liste.txt", Lignes(noms));
    if (ressourcesIndex) {
        DialogueScripte d;
        Indexer(ChargerListeTextes(racine / "liste.txt"), ChargerCourtsFrequents(*ressourcesIndex), d);
    }
    return racine / "liste.txt";
}

}  // namespace telvoris::test
