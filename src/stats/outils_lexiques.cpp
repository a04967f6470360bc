#include "stats/outils_lexiques.hpp"

#include <map>

#include "core/erreurs.hpp"
#include "core/fichiers.hpp"
#include "core/liste_textes.hpp"
#include "core/texte.hpp"
#include "stats/casier_lexique.hpp"
#include "stats/commun.hpp"
#include "stats/fichiers_stats.hpp"

namespace telvoris {

using namespace stats;
namespace fs = std::filesystem;

void OperationZipf(Contexte& ctx) {
    Dialogue& d = ctx.dialogue;
    const long long seuil = DemanderEntier(d, "Seuil supérieur ? - limite 10000"_cp, "", "");
    const auto fichier = DemanderFichier(d, "lexique à traiter"_cp);
    if (!fichier) return;
    const auto limite = [](long long f) {
        if (f < 0 || f > MAX_SEUIL_ZIPF)
            LimiteDepassee("MAX_SEUIL_ZIPF", MAX_SEUIL_ZIPF, Joindre("fréquences dans la table de Zipf (fréquence "_cp,
                                                                      std::to_string(f), ")"));
    };
    std::vector<long long> effectifs(MAX_SEUIL_ZIPF + 1, 0);
    for (const auto& [item, f] : LireLexique(*fichier)) {
        if (f >= seuil) continue;
        limite(f);
        ++effectifs[static_cast<std::size_t>(f)];
    }
    EcrivainFichier sortie(ACote(*fichier, "_ZIPF.txt"));
    for (long long f = seuil; f >= 1; --f) {
        limite(f);
        sortie.Ligne(Joindre(std::to_string(f), "\t", std::to_string(effectifs[static_cast<std::size_t>(f)])));
    }
    sortie.Fermer();
    d.Afficher("Terminé"_cp);
}

void OperationFiltrageLexique(Contexte& ctx) {
    Dialogue& d = ctx.dialogue;
    const std::string chaine = Reponse(d, "Partie de chaîne à retrouver"_cp, "", "");
    const std::string position =
        Reponse(d, "Position : indifférente (I); début de mot (D); fin de mot (F) ?"_cp, "", "I");
    if (position != "I" && position != "D" && position != "F") {
        d.Afficher("Votre choix de position n'est pas correct. Recommencez"_cp);
        return;
    }
    const auto fichier = DemanderFichier(d, "lexique à traiter"_cp);
    if (!fichier) return;
    const std::string contenu = LireFichier(*fichier);
    EcrivainFichier sortie(ACote(*fichier, Joindre("_FILTRE_", chaine, "_", position, ".txt")));
    LecteurLignes lecteur(contenu);
    std::string_view ligne;
    while (lecteur.Suivante(ligne)) {
        if (ligne.empty()) continue;
        const std::string_view item = ligne.substr(0, ligne.find('\t'));
        const bool garde = position == "I" ? item.find(chaine) != std::string_view::npos
                           : position == "D" ? item.starts_with(chaine)
                                             : item.ends_with(chaine);
        if (garde) sortie.Ligne(ligne);
    }
    sortie.Fermer();
    d.Afficher("Terminé"_cp);
}

void OperationEffectifsSurListe(Contexte& ctx) {
    Dialogue& d = ctx.dialogue;
    const auto lexique = DemanderFichier(d, "LEXIQUE");
    if (!lexique) return;
    const auto liste = DemanderFichier(d, "LISTE");
    if (!liste) return;
    // A fresh table: an item twice in the lexicon keeps its first count.
    auto casier = std::make_unique<CasierLexique>();
    for (const auto& [item, compte] : LireLexique(*lexique)) {
        const CleMot cle = CasierLexique::Cle(item);
        if (!casier->Trouver(item, cle)) casier->Nouvelle(item, cle, compte);
    }
    const std::string contenu = LireFichier(*liste);
    EcrivainFichier sortie(ACote(*liste, "_QUANT.txt"));
    LecteurLignes lecteur(contenu);
    std::string_view ligne;
    while (lecteur.Suivante(ligne)) {
        if (ligne.empty()) continue;
        const std::string_view item = ligne.substr(0, ligne.find('\t'));
        const auto* e = casier->Trouver(item, CasierLexique::Cle(item));
        sortie.Ligne(Joindre(item, "\t", e ? std::to_string(e->compte) : std::string("INCONNU")));
    }
    sortie.Fermer();
    d.Afficher("Terminé"_cp);
}

void OperationAdditionnerLexiques(Contexte& ctx) {
    Dialogue& d = ctx.dialogue;
    const auto liste = ChoisirListeTextes(d);
    if (!liste) return;
    auto casier = std::make_unique<CasierLexique>();
    long long total = 0;
    const std::size_t n = liste->noms.size();
    for (std::size_t i = 0; i < n; ++i) {
        if (liste->noms[i].empty()) continue;
        d.Progression(liste->noms[i], static_cast<long long>(i + 1), static_cast<long long>(n));
        for (const auto& [item, compte] : LireLexique(Chemin(liste->doss_racine / "PARTIELS", Joindre(liste->noms[i], ".txt")))) {
            casier->Ajouter(item, compte);
            total += compte;
        }
    }
    d.MasquerProgression();
    EcrivainFichier sortie(liste->doss_racine / "LEXIQUE_TOTAL.txt");
    EcrireParFrequence(*casier, sortie);
    sortie.Fermer();
    d.Afficher(Joindre("Terminé : N="_cp, std::to_string(total)));
}

namespace {

bool EstCategorieRetenue(std::string_view item, const std::vector<std::string_view>& categories) {
    const std::size_t tiret = item.rfind('_');
    if (tiret == std::string_view::npos) return false;
    const std::string_view cat = item.substr(tiret + 1);
    for (const auto c : categories)
        if (c == cat) return true;
    return false;
}

}  // namespace

void SelectionItems(Contexte& ctx, const ParametresSelection& p) {
    Dialogue& d = ctx.dialogue;
    if (p.nombre.empty()) {
        d.Afficher("Vous devez renseigner le champ 'nombre d'items à retenir'"_cp);
        return;
    }
    if (p.nombre.find_first_not_of("1234567890") != std::string::npos) {
        d.Afficher("Le champ 'nombre d'items à retenir' ne doit contenir qu'un nombre"_cp);
        return;
    }
    const long long voulu = LireEntier(p.nombre, "nombre d'items à retenir"_cp);
    std::string reponseCategories;
    std::vector<std::string_view> categories;
    const bool parCategories = p.filtre == "par catégories"_cp;
    if (parCategories) {
        reponseCategories = Reponse(d, "Indiquez les catégories à retenir (modèle : SF ou SF/SM/J/R/V...)."_cp,
                                    "CATEGORIES", "SF/SM/V/J/R");
        categories = Decouper(reponseCategories, "/");
    }
    std::string exclus;
    if (p.exclus == "standard") {
        exclus = LireFichier(ctx.ressources / "utilitaires" / "outils_1.txt");
    } else if (p.exclus == "personnalisée"_cp) {
        const auto f = DemanderFichier(d, "fichier de 'mots-outils' (à éliminer)"_cp);
        if (!f) return;
        exclus = LireFichier(*f);
    }
    // The list is searched as one text, a word being one of its lines.
    std::string texteExclus = "\n";
    for (char c : exclus) texteExclus += c == '\r' ? '\n' : c;
    texteExclus += '\n';
    const auto fichier = DemanderFichier(d, "lexique à traiter"_cp);
    if (!fichier) return;
    const std::string contenu = LireFichier(*fichier);
    EcrivainFichier sortie(ACote(*fichier, Joindre("_SL_", p.nombre, ".txt")));
    LecteurLignes lecteur(contenu);
    std::string_view ligne;
    long long retenus = 0;
    std::string cle;
    while (retenus < voulu && lecteur.Suivante(ligne)) {
        if (ligne.empty()) continue;
        const std::string_view item = ligne.substr(0, ligne.find('\t'));
        const std::size_t tiret = item.rfind('_');
        const std::string_view mot = tiret == std::string_view::npos ? item : item.substr(0, tiret);
        cle = Joindre("\n", mot, "\n");
        if (!exclus.empty() && texteExclus.find(cle) != std::string::npos) continue;
        if (!p.nombres && !mot.empty() && mot[0] >= '0' && mot[0] <= '9') continue;
        if (parCategories && !EstCategorieRetenue(item, categories)) continue;
        sortie.Ligne(ligne);
        ++retenus;
    }
    sortie.Fermer();
    d.Afficher("Terminé"_cp);
}

void OperationSelectionItems(Contexte& ctx) {
    Dialogue& d = ctx.dialogue;
    ParametresSelection p;
    p.nombre = Reponse(d, "Nombre d'items à retenir"_cp, "Paramètres"_cp, "");
    p.exclus = Reponse(d, "Choix de la liste d'exclus (graph.)"_cp, "Paramètres"_cp, "standard");
    p.filtre = Reponse(d, "Filtrage"_cp, "Paramètres"_cp, "sans filtrage");
    const std::string nombres = Reponse(d, "Retenir les nombres ?"_cp, "Paramètres"_cp, "oui");
    const auto connu = [](const std::string& r, std::initializer_list<std::string_view> choix) {
        for (auto c : choix)
            if (r == c) return true;
        return false;
    };
    if (!connu(p.exclus, {"standard", "personnalisée"_cp, "aucune"}) ||
        !connu(p.filtre, {"par catégories"_cp, "sans filtrage", "Liste de lemmes"}) || !connu(nombres, {"oui", "non"})) {
        d.Afficher("Réponse hors des choix du panneau : recommencez."_cp);
        return;
    }
    p.nombres = nombres == "oui";
    SelectionItems(ctx, p);
}

}  // namespace telvoris
