#include "core/liste_textes.hpp"

#include "core/erreurs.hpp"
#include "core/fichiers.hpp"
#include "core/texte.hpp"

namespace telvoris {

ListeTextes ChargerListeTextes(const std::filesystem::path& fichier) {
    ListeTextes l;
    const fs::path absolu = fs::absolute(fichier).lexically_normal();
    l.doss_racine = absolu.parent_path();
    const std::string nom = Utf8VersCp1252(absolu.filename().string());
    l.nom = nom.size() > 4 ? nom.substr(0, nom.size() - 4) : std::string();
    const std::string contenu = LireFichier(absolu);
    LecteurLignes lecteur(contenu);
    std::string_view ligne;
    while (lecteur.Suivante(ligne)) {
        if (l.noms.size() >= MAX_TEXTES)
            LimiteDepassee("MAX_TEXTES", MAX_TEXTES, Joindre("textes dans la liste "_cp, TexteChemin(absolu)));
        l.noms.emplace_back(ligne);
    }
    return l;
}

std::optional<ListeTextes> ChoisirListeTextes(Dialogue& dialogue) {
    const auto choix = dialogue.ChoisirFichier("Localiser le répertoire"_cp, "Text files (*.TXT)|*.TXT"_cp);
    if (!choix || choix->empty()) return std::nullopt;
    return ChargerListeTextes(*choix);
}

}  // namespace telvoris
