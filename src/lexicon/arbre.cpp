#include "lexicon/arbre.hpp"

#include <cstdio>

#include "core/fichiers.hpp"
#include "core/texte.hpp"

namespace telvoris {

char LettreClasse(int classeInitiale) { return static_cast<char>('a' + classeInitiale - 1); }

std::string NomFichierCasier(int classeLongueur, int classeInitiale) {
    std::string nom = std::to_string(classeLongueur);
    nom += LettreClasse(classeInitiale);
    nom += ".txt";
    return nom;
}

std::string NomFichierEtrangers(int classeLongueur, int classeInitiale) {
    char nn[8];
    std::snprintf(nn, sizeof nn, "%02d", classeInitiale);
    return std::to_string(classeLongueur) + "_" + nn + ".txt";
}

fs::path FichierCasier(const fs::path& racine, std::string_view dossier, int classeLongueur, int classeInitiale) {
    return Chemin(racine, Joindre(dossier, "/", NomFichierCasier(classeLongueur, classeInitiale)));
}

fs::path FichierUtilitaire(const fs::path& racine, std::string_view nom) {
    return Chemin(racine, Joindre(DOSSIER_UTILITAIRES, "/", nom));
}

}  // namespace telvoris
