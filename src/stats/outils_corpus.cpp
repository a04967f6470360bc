#include "stats/outils_corpus.hpp"

#include <algorithm>
#include <unordered_map>

#include "core/erreurs.hpp"
#include "core/fichiers.hpp"
#include "core/hachage.hpp"
#include "core/horloge.hpp"
#include "core/jetons.hpp"
#include "core/liste_textes.hpp"
#include "core/texte.hpp"
#include "stats/commun.hpp"
#include "stats/fichiers_stats.hpp"

namespace telvoris {

using namespace stats;
namespace fs = std::filesystem;

bool EstLigneMetadonnee(std::string_view ligne) { return ligne.size() >= 12 && ligne.starts_with("<QORX_ATTR "); }

std::optional<std::string_view> ValeurMetadonnee(std::string_view ligne, std::string_view cle) {
    const auto morceaux = Decouper(ligne.substr(11), "=");
    for (std::size_t i = 0; i + 1 < morceaux.size(); ++i) {
        std::string_view gauche = morceaux[i];
        while (!gauche.empty() && gauche.back() == ' ') gauche.remove_suffix(1);
        const std::size_t blanc = gauche.rfind(' ');
        if (gauche.substr(blanc == std::string_view::npos ? 0 : blanc + 1) != cle) continue;
        std::string_view valeur = morceaux[i + 1];
        valeur = valeur.substr(0, valeur.find(' '));
        if (valeur.size() > 1 && valeur.front() == '"' && valeur.back() == '"') valeur = valeur.substr(1, valeur.size() - 2);
        return valeur;
    }
    return std::nullopt;
}

std::string_view CategorieJeton(std::string_view l) {
    if (l.find('/') != std::string_view::npos) return "AMBIGU";
    const std::size_t tiret = l.rfind('_');
    if (tiret == std::string_view::npos) return "INCONNU";
    return l.substr(tiret + 1);
}

namespace {

// Rows and columns numbered in order of first appearance.
class Numerotation {
public:
    std::size_t Numero(std::string_view nom) {
        if (const auto it = index_.find(nom); it != index_.end()) return it->second;
        index_.emplace(std::string(nom), noms_.size());
        noms_.emplace_back(nom);
        return noms_.size() - 1;
    }
    const std::vector<std::string>& Noms() const { return noms_; }

private:
    std::unordered_map<std::string, std::size_t, HachageTexte, std::equal_to<>> index_;
    std::vector<std::string> noms_;
};

}  // namespace

void OperationStatistiquesPos(Contexte& ctx) {
    Dialogue& d = ctx.dialogue;
    const auto liste = ChoisirListeTextes(d);
    if (!liste) return;
    const std::string critere = Reponse(d, "Critère de partition ?"_cp, "", "AUCUN");
    long long gauche = -1;
    if (critere == "DATE")
        gauche = DemanderEntier(d, "Nombre de caractères à gauche de la date ?"_cp, "", "4");
    const bool aucun = critere == "AUCUN";
    Numerotation categories, valeurs;
    std::vector<std::vector<long long>> comptes;  // [category][value]
    constexpr std::size_t kAucune = std::size_t(-1);
    const std::size_t total = aucun ? valeurs.Numero("TOTAL") : kAucune;
    std::string texte;
    const std::size_t n = liste->noms.size();
    for (std::size_t t = 0; t < n; ++t) {
        if (liste->noms[t].empty()) continue;
        d.Progression(liste->noms[t], static_cast<long long>(t + 1), static_cast<long long>(n));
        LireFichier(Chemin(liste->doss_racine / "OLBRIN_TT", Joindre(liste->noms[t], ".txt")), texte);
        // Tokens before the first metadata line of a text go to a column without a name.
        std::size_t colonne = total;
        LecteurLignes lecteur(texte);
        std::string_view ligne;
        while (lecteur.Suivante(ligne)) {
            if (EstLigneMetadonnee(ligne)) {
                if (aucun) continue;
                std::string_view v = ValeurMetadonnee(ligne, critere).value_or(std::string_view());
                if (gauche >= 0) v = v.substr(0, static_cast<std::size_t>(gauche));
                colonne = valeurs.Numero(v);
                continue;
            }
            for (std::size_t p = ligne.find("<M "); p != std::string_view::npos; p = ligne.find("<M ", p + 3)) {
                const std::size_t fin = ligne.find('>', p);
                const std::string_view balise = ligne.substr(p, fin == std::string_view::npos ? std::string_view::npos : fin - p + 1);
                const std::size_t r = categories.Numero(CategorieJeton(ValeurAttribut(balise, "l")));
                if (colonne == kAucune) colonne = valeurs.Numero("");
                if (r >= comptes.size()) comptes.resize(r + 1);
                auto& rangee = comptes[r];
                if (colonne >= rangee.size()) rangee.resize(colonne + 1, 0);
                ++rangee[colonne];
            }
        }
    }
    d.MasquerProgression();
    EcrivainMatrice sortie(liste->doss_racine / "FLEXTRA.txt", valeurs.Noms());
    for (std::size_t r = 0; r < comptes.size(); ++r) {
        sortie.DebutLigne(categories.Noms()[r]);
        for (std::size_t c = 0; c < valeurs.Noms().size(); ++c) sortie.Cellule(c < comptes[r].size() ? comptes[r][c] : 0);
        sortie.FinLigne();
    }
    sortie.Fermer();
    d.Afficher("Terminé"_cp);
}

void OperationListeDescripteurs(Contexte& ctx) {
    Dialogue& d = ctx.dialogue;
    const std::string nom = Reponse(d, "Nom du descripteur ?", "", "");
    const auto repertoire = d.ChoisirFichier("REPERTOIRE", "Text files (*.TXT)|*.TXT");
    if (!repertoire || repertoire->empty()) return;
    const fs::path racine = repertoire->parent_path();
    const fs::path dcp = racine / "DCP";
    if (!DossierExiste(dcp)) throw ErreurExecution(Joindre("Dossier introuvable : "_cp, TexteChemin(dcp)));
    std::vector<fs::path> fichiers;
    for (const auto& e : fs::recursive_directory_iterator(dcp))
        if (e.is_regular_file()) fichiers.push_back(e.path());
    std::sort(fichiers.begin(), fichiers.end());
    Numerotation valeurs;
    std::vector<long long> comptes;
    long long remplis = 0, articles = 0;
    std::string texte;
    for (std::size_t i = 0; i < fichiers.size(); ++i) {
        d.Progression(TexteChemin(fichiers[i].filename()), static_cast<long long>(i + 1), static_cast<long long>(fichiers.size()));
        LireFichier(fichiers[i], texte);
        LecteurLignes lecteur(texte);
        std::string_view ligne;
        while (lecteur.Suivante(ligne)) {
            if (!EstLigneMetadonnee(ligne)) continue;
            ++articles;
            const auto v = ValeurMetadonnee(ligne, nom);
            if (!v || v->empty()) continue;
            ++remplis;
            const std::size_t k = valeurs.Numero(*v);
            if (k >= comptes.size()) comptes.resize(k + 1, 0);
            ++comptes[k];
        }
    }
    d.MasquerProgression();
    // The values by decreasing count, equal counts in order of first appearance.
    std::vector<std::size_t> ordre(comptes.size());
    for (std::size_t k = 0; k < ordre.size(); ++k) ordre[k] = k;
    std::stable_sort(ordre.begin(), ordre.end(), [&](std::size_t a, std::size_t b) { return comptes[a] > comptes[b]; });
    const fs::path dossier = racine / "LISTES_DESCRIPTEURS";
    CreerDossier(dossier);
    EcrivainFichier sortie(Chemin(dossier, Joindre(nom, ".txt")));
    for (const std::size_t k : ordre) sortie.Ligne(Joindre(valeurs.Noms()[k], "\t", std::to_string(comptes[k])));
    sortie.Fermer();
    d.Afficher(Joindre(std::to_string(remplis), " cas remplis.\r\n", std::to_string(valeurs.Noms().size()),
                       " types de ce descripteur.\r\n", std::to_string(articles), " articles au total."));
}

void OperationEclairage(Contexte& ctx) {
    Dialogue& d = ctx.dialogue;
    const auto fichier = DemanderFichier(d, "Texte ?");
    if (!fichier) return;
    const std::string mode = Reponse(d, "Mode de subdivision ?", "", "MOTS");
    const long long parPartie = DemanderEntier(d, "nombre de mots par subdivision ?", "", "1000");
    const bool parMots = mode != "META";
    if (parMots && parPartie < 1)
        throw ErreurExecution(Joindre("Nombre de mots par subdivision incorrect : "_cp, std::to_string(parPartie)));
    const std::string texte = LireFichier(*fichier);
    EcrivainFichier sortie(ACote(*fichier, "_ECLAIRAGE.txt"));
    LecteurLignes lecteur(texte);
    std::string_view ligne;
    LigneJetons lj;
    long long mots = 0, parties = 0;
    bool metaVue = false;
    std::string rendu;
    const auto marquer = [&](std::string& dans) {
        if (!dans.empty() && dans.back() != ' ') dans += ' ';
        dans += JETON_FIN_PARTIE;
        ++parties;
    };
    while (lecteur.Suivante(ligne)) {
        if (EstLigneMetadonnee(ligne)) {
            // By metadata: each metadata line after the first closes the part before it.
            if (!parMots && metaVue) {
                std::string fin;
                marquer(fin);
                sortie.Ligne(fin);
            }
            metaVue = true;
            sortie.Ligne(ligne);
            continue;
        }
        if (!parMots || ligne.empty()) {
            sortie.Ligne(ligne);
            continue;
        }
        DecouperLigne(ligne, lj, Copie::Statistiques);
        rendu.assign(lj.suite[0]);
        for (int i = 1; i <= lj.NbJetons; ++i) {
            const auto k = static_cast<std::size_t>(i);
            rendu += lj.jeton[k];
            rendu += lj.suite[k];
            if (lj.jeton[k].starts_with("<M") && ++mots % parPartie == 0) {
                marquer(rendu);
                if (i < lj.NbJetons) rendu += ' ';
            }
        }
        sortie.Ligne(rendu);
    }
    if (!parMots && metaVue) {
        std::string fin;
        marquer(fin);
        sortie.Ligne(fin);
    }
    sortie.Fermer();
    d.Afficher(Joindre("Terminé : "_cp, std::to_string(parties), " parties."));
}

}  // namespace telvoris
