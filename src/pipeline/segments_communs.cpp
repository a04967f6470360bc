#include "pipeline/segments_communs.hpp"

#include <string>

#include "core/fichiers.hpp"
#include "core/texte.hpp"

namespace telvoris {

bool EstLigneMetadonnees(std::string_view ligne) {
    return ligne.size() >= 12 && ligne.starts_with("<QORX_ATTR ");
}

ListeCasiers ChargerCourtsFrequents(const std::filesystem::path& racine) {
    ListeCasiers l{"MAX_COURTS_FREQUENTS_CASE", MAX_COURTS_FREQUENTS_CASE};
    const std::filesystem::path fichier = Chemin(racine, "utilitaires/courts_frequents.txt");
    const std::string source = TexteChemin(fichier);
    std::string contenu;
    PourChaqueLigneNonVide(fichier, contenu, [&](std::string_view mot) { l.Ajouter(mot, source); });
    return l;
}

}  // namespace telvoris
