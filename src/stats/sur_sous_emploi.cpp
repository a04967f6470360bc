#include "stats/sur_sous_emploi.hpp"

#include <cmath>
#include <memory>

#include "core/erreurs.hpp"
#include "core/fichiers.hpp"
#include "core/horloge.hpp"
#include "core/nombres.hpp"
#include "core/texte.hpp"
#include "stats/casier_lexique.hpp"
#include "stats/commun.hpp"
#include "stats/fichiers_stats.hpp"

namespace telvoris {

using namespace stats;
namespace fs = std::filesystem;

Specificite CalculerSpecificite(long long f, long long r, double N, double n) {
    Specificite s;
    s.attendu = static_cast<double>(r) / N * n;
    if (s.attendu > 0) s.ecart = (static_cast<double>(f) - s.attendu) / std::sqrt(s.attendu);
    return s;
}

namespace {

// The total of a lexicon that is only part of its corpus comes from the memo's first line "N = ...".
// Returns false on Cancel.
bool TotalDuMemo(Dialogue& d, double& total) {
    const auto memo = DemanderFichier(d, "FICHIER MEMO N/V");
    if (!memo) return false;
    const std::string contenu = LireFichier(*memo);
    LecteurLignes lecteur(contenu);
    std::string_view premiere;
    if (!lecteur.Suivante(premiere)) premiere = {};
    const std::string_view nombre = premiere.size() > 4 ? premiere.substr(4) : std::string_view();
    total = LireNombre(nombre, Joindre(TexteChemin(*memo), ", ligne 1"_cp));
    return true;
}

}  // namespace

void OperationSpecificites(Contexte& ctx) {
    Dialogue& d = ctx.dialogue;
    const std::string debut = TexteHeure(ctx.horloge.Maintenant());
    const auto reference = DemanderFichier(d, "LEXIQUE DE REFERENCE");
    if (!reference) return;
    // The reference is stored as it is read: an item twice keeps its first entry for the search.
    auto casier = std::make_unique<CasierLexique>();
    double N = 0;
    for (const auto& [item, compte] : LireLexique(*reference)) {
        casier->Nouvelle(item, CasierLexique::Cle(item), compte);
        N += static_cast<double>(compte);
    }
    if (Reponse(d, "Le lexique de référence est-il total (T) ou partiel (P) ?"_cp, "ATTENTION !", "P") == "P" && !TotalDuMemo(d, N)) return;
    const auto specifique = DemanderFichier(d, "LEXIQUE SPECIFIQUE");
    if (!specifique) return;
    const auto lignes = LireLexique(*specifique);
    double n = 0;
    for (const auto& l : lignes) n += static_cast<double>(l.second);
    if (Reponse(d, "Le lexique spécifique est-il total (T) ou partiel (P) ?"_cp, "ATTENTION !", "P") == "P" &&
        !TotalDuMemo(d, n))
        return;
    EcrivainFichier sortie(specifique->parent_path() / "SPECIFICITES.txt");
    for (const auto& [item, f] : lignes) {
        if (f <= SEUIL_SPECIFICITES) continue;
        const auto* e = casier->Trouver(item, CasierLexique::Cle(item));
        if (!e) continue;
        const Specificite s = CalculerSpecificite(f, e->compte, N, n);
        if (!(s.attendu > 0)) continue;
        sortie.Ligne(Joindre(item, "\t", std::to_string(f), "\t", FormaterDouble(s.attendu), "\t", FormaterDouble(s.ecart)));
    }
    sortie.Fermer();
    d.Afficher(Joindre("Terminé en "_cp, TexteDuree(debut, ctx.horloge, Copie::Statistiques)));
}

void OperationSpecifColoration(Contexte& ctx) {
    Dialogue& d = ctx.dialogue;
    const long long couleurs = DemanderEntier(d, "Nombre de couleurs, de 1 à 4"_cp, "", "");
    if (couleurs < 1 || couleurs > MAX_COULEURS)
        LimiteDepassee("MAX_COULEURS", MAX_COULEURS, Joindre("couleurs ("_cp, std::to_string(couleurs), ")"));
    std::vector<std::string> noms;
    for (long long i = 1; i <= couleurs; ++i)
        noms.push_back(Reponse(d, Joindre("Colonne sélectionnée n°"_cp, std::to_string(i), " ?"), "", ""));
    const auto seuil = static_cast<float>(DemanderNombre(d, "Seuil d'écart-réduit?"_cp, "", ""));
    const std::string horodate = Horodater(ctx.horloge);
    const auto fichier = DemanderFichier(d, "Fichier d'écarts-réduits ?"_cp);
    if (!fichier) return;
    const std::string contenu = LireFichier(*fichier);
    EcrivainFichier sortie(Chemin(fichier->parent_path(), Joindre("COLOR_", horodate, ".txt")));
    LecteurLignes lecteur(contenu);
    std::string_view ligne;
    // colonne[i]: the field (from 0, the row name being field 0) of colour i + 1.
    std::vector<std::size_t> colonne;
    while (lecteur.Suivante(ligne)) {
        const auto champs = Decouper(ligne, "\t");
        if (lecteur.Numero() == 1) {
            for (const auto& nom : noms) {
                std::size_t trouve = 0;
                for (std::size_t c = 1; c < champs.size() && !trouve; ++c)
                    if (champs[c] == nom) trouve = c;
                if (!trouve)
                    throw ErreurExecution(Joindre("Colonne « "_cp, nom, " » absente de l'en-tête de "_cp, TexteChemin(*fichier)));
                colonne.push_back(trouve);
            }
            continue;
        }
        if (ligne.empty()) continue;
        long long meilleure = 0;
        float maximum = 0;
        for (std::size_t i = 0; i < colonne.size(); ++i) {
            if (colonne[i] >= champs.size())
                throw ErreurExecution(Joindre("Ligne trop courte ("_cp, TexteChemin(*fichier), ", ligne "_cp,
                                              std::to_string(lecteur.Numero()), ")"));
            const auto v = static_cast<float>(LireNombre(
                champs[colonne[i]], Joindre(TexteChemin(*fichier), ", ligne "_cp, std::to_string(lecteur.Numero()))));
            // A value equal to the threshold does not count.
            if (v > seuil && (meilleure == 0 || v > maximum)) {
                meilleure = static_cast<long long>(i) + 1;
                maximum = v;
            }
        }
        if (meilleure) sortie.Ligne(Joindre(champs[0], "\t", std::to_string(meilleure)));
    }
    sortie.Fermer();
    d.Afficher("Terminé"_cp);
}

}  // namespace telvoris
