#include "intake/fichier_unique.hpp"

#include "core/erreurs.hpp"
#include "core/fichiers.hpp"
#include "core/horloge.hpp"
#include "core/jetons.hpp"
#include "core/texte.hpp"

namespace telvoris {

std::string_view TableauMetadonnees::Valeur(int ligne, int variable) const {
    if (ligne > MAX_LIGNES_TABLEAU)
        LimiteDepassee("MAX_LIGNES_TABLEAU", MAX_LIGNES_TABLEAU, "sous-corpus décrits par TABLEAU.txt"_cp);
    if (ligne < 0 || static_cast<std::size_t>(ligne) >= grille.size()) return {};
    const auto& cellules = grille[static_cast<std::size_t>(ligne)];
    if (variable < 1 || static_cast<std::size_t>(variable) > cellules.size()) return {};
    return cellules[static_cast<std::size_t>(variable) - 1];
}

TableauMetadonnees ChargerTableau(const fs::path& fichier) {
    TableauMetadonnees t;
    const std::string contenu = LireFichier(fichier);
    LecteurLignes lecteur(contenu);
    std::string_view ligne;
    while (lecteur.Suivante(ligne)) {
        if (t.grille.size() > static_cast<std::size_t>(MAX_LIGNES_TABLEAU))
            LimiteDepassee("MAX_LIGNES_TABLEAU", MAX_LIGNES_TABLEAU,
                           Joindre("lignes de sous-corpus dans "_cp, TexteChemin(fichier)));
        const auto champs = Decouper(ligne, "\t");
        if (champs.size() > static_cast<std::size_t>(MAX_COLONNES_TABLEAU))
            LimiteDepassee("MAX_COLONNES_TABLEAU", MAX_COLONNES_TABLEAU,
                           Joindre("colonnes à la ligne "_cp, std::to_string(lecteur.Numero()), " de "_cp,
                                   TexteChemin(fichier)));
        t.grille.emplace_back(champs.begin(), champs.end());
        t.variables = static_cast<int>(champs.size());
    }
    return t;
}

long long ConvertirFichierUnique(const fs::path& source, const fs::path& racine, std::string_view separateur,
                                 const TableauMetadonnees* tableau) {
    const std::string contenu = LireFichier(source);
    EcrivainFichier sortie(racine / "ARCHIVE_BRUT" / "1.txt");
    LecteurLignes lecteur(contenu);
    std::string_view ligne;
    std::string meta;
    int n = 0;
    // A bound met in the middle stops the import, and what was converted up to it stays.
    try {
        while (lecteur.Suivante(ligne)) {
            // Only the separator's own length is compared: a line that merely begins with it counts.
            if (!ligne.starts_with(separateur)) {
                sortie.Ligne(ligne);
                continue;
            }
            ++n;
            meta = Joindre("<QORX_ATTR N°="_cp, std::to_string(n), " ");
            if (tableau) {
                for (int j = 1; j <= tableau->variables; ++j) {
                    const std::string_view valeur = tableau->Valeur(n, j);
                    meta += tableau->Valeur(0, j);
                    meta += '=';
                    meta += valeur;
                    meta += ' ';
                }
            }
            meta += '>';
            sortie.Ligne(meta);
        }
    } catch (const ErreurExecution&) {
        sortie.Fermer();
        throw;
    }
    sortie.Fermer();
    return n;
}

void ImporterFichierUnique(Contexte& ctx) {
    const auto reponse = ctx.dialogue.Demander(
        Joindre("Si vous souhaitez partitionner votre corpus, vous devez avoir placé des codes-séparateurs "_cp,
                "univoques entre les sous-corpus. Ces codes doivent constituer à eux seuls une ligne du fichier, "
                "à l'exclusion "_cp,
                "de tout autre caractère ou espace. Si c'est le cas, saisissez ce séparateur. Sinon, saisissez "
                "'STOP', qui "_cp,
                "mettra fin à l'application."_cp),
        "SEPARATEURS ?", "STOP");
    // Cancel is the empty answer of the box: every line is then a separator line.
    const std::string separateur = reponse.value_or(std::string());
    if (separateur == "STOP") throw FinProgramme(std::string());

    const auto fichier = ctx.dialogue.ChoisirFichier("Appeler le fichier texte total", "Text files (*.TXT)|*.TXT");
    if (!fichier || fichier->empty()) return;
    const fs::path source = fs::absolute(*fichier).lexically_normal();
    const fs::path racine = source.parent_path();
    EcrireFichier(racine / "REPERTOIRE.txt", "1");
    CreerDossier(racine / "ARCHIVE_BRUT");
    std::optional<TableauMetadonnees> tableau;
    if (FichierExiste(racine / "TABLEAU.txt")) tableau = ChargerTableau(racine / "TABLEAU.txt");

    const std::string debut = TexteHeure(ctx.horloge.Maintenant());
    ctx.dialogue.Progression("Conversion du fichier unique."_cp, 0, 0);
    ConvertirFichierUnique(source, racine, separateur, tableau ? &*tableau : nullptr);
    ctx.dialogue.MasquerProgression();
    ctx.dialogue.Afficher(Joindre("Terminé en "_cp, TexteDuree(debut, ctx.horloge)));
}

}  // namespace telvoris
