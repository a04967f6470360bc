#include "correction/reperage.hpp"

#include <algorithm>
#include <map>
#include <unordered_set>

#include "core/erreurs.hpp"
#include "core/fichiers.hpp"
#include "core/horloge.hpp"
#include "core/reprise.hpp"
#include "core/texte.hpp"
#include "correction/commun_correction.hpp"

namespace telvoris {

namespace {

constexpr std::string_view kSeparateurPartitions = "<---------->";

const fs::path Manquants(const ListeTextes& liste) { return Chemin(liste.doss_racine, DOSSIER_MANQUANTS); }

}  // namespace

namespace {

// The line of one occurrence: the left context from the token back, the right context after it.
std::string LigneConcordance(const std::vector<std::string_view>& formes, int i, int nb) {
    std::string gauche;
    for (int j = i; j >= 1; --j) {
        gauche.insert(0, formes[static_cast<std::size_t>(j)]);
        gauche.insert(0, 1, ' ');
        if (gauche.size() > LARGEUR_CONTEXTE_REPERAGE) {
            gauche.erase(0, gauche.size() - LARGEUR_CONTEXTE_REPERAGE);
            break;
        }
    }
    std::string droite;
    for (int j = i + 1; j <= nb; ++j) {
        droite += ' ';
        droite.append(formes[static_cast<std::size_t>(j)]);
        if (droite.size() > LARGEUR_CONTEXTE_REPERAGE) {
            droite.resize(LARGEUR_CONTEXTE_REPERAGE);
            break;
        }
    }
    if (gauche.size() < LARGEUR_CONTEXTE_REPERAGE) gauche.insert(0, LARGEUR_CONTEXTE_REPERAGE - gauche.size(), ' ');
    return gauche + droite;
}

}  // namespace

std::vector<std::vector<std::string>> ConcordancesReperage(const ListeTextes& liste,
                                                           const std::vector<std::string>& formes) {
    std::vector<std::vector<std::string>> lignes(formes.size());
    std::unordered_map<std::string_view, std::size_t> cherchees;
    for (std::size_t j = 0; j < formes.size(); ++j) cherchees.try_emplace(formes[j], j);
    std::size_t restantes = formes.size();
    const auto complete = [&](std::size_t j) { return lignes[j].size() >= MAX_LIGNES_CONCORDANCE; };
    std::string index, etiq;
    LigneJetons lj;
    std::vector<std::string_view> vues;
    // Partitions noted in the text in hand, each with the forms that noted it.
    std::map<int, std::vector<std::size_t>> notees;
    std::vector<int> derniere(formes.size(), -1);
    std::vector<char> marque(formes.size(), 0);
    for (const std::string& nom : liste.noms) {
        if (restantes == 0) break;
        if (nom.empty()) continue;
        LireFichier(Chemin(liste.doss_racine, Joindre("OLBRIN_TT/LEXINDEX/", nom, ".txt")), index);
        notees.clear();
        std::fill(derniere.begin(), derniere.end(), -1);
        const auto morceaux = Decouper(index, kSeparateurPartitions);
        for (std::size_t k = 0; k < morceaux.size(); ++k) {
            const std::string_view m = morceaux[k];
            // Every "f=" form followed by a blank notes the piece, once.
            std::size_t p = 0;
            while ((p = m.find("f=", p)) != std::string_view::npos) {
                const std::size_t fin = m.find(' ', p + 2);
                if (fin == std::string_view::npos) break;
                const auto it = cherchees.find(m.substr(p + 2, fin - p - 2));
                p = fin;
                if (it == cherchees.end() || complete(it->second) || derniere[it->second] == static_cast<int>(k)) continue;
                derniere[it->second] = static_cast<int>(k);
                notees[static_cast<int>(k)].push_back(it->second);
            }
        }
        if (notees.empty()) continue;
        const fs::path fichierEtiq = Chemin(liste.doss_racine, Joindre("OLBRIN_TT/TEXTE_ETIQ/", nom, ".txt"));
        if (!FichierExiste(fichierEtiq)) continue;
        LireFichier(fichierEtiq, etiq);
        const auto partitions = Decouper(etiq, kSeparateurPartitions);
        for (const auto& [k, qui] : notees) {
            if (static_cast<std::size_t>(k) >= partitions.size()) continue;
            bool utile = false;
            for (std::size_t j : qui) {
                if (complete(j)) continue;
                marque[j] = 1;
                utile = true;
            }
            if (utile) {
                for (std::string_view ligne : Decouper(partitions[static_cast<std::size_t>(k)], "\r\n")) {
                    DecouperLigne(ligne, lj);
                    vues.assign(1, std::string_view{});
                    for (int i = 1; i <= lj.NbJetons; ++i) vues.push_back(LireAttributsVue(lj.jeton[i]).f);
                    for (int i = 1; i <= lj.NbJetons; ++i) {
                        const auto it = cherchees.find(vues[static_cast<std::size_t>(i)]);
                        if (it == cherchees.end() || !marque[it->second] || complete(it->second)) continue;
                        lignes[it->second].push_back(LigneConcordance(vues, i, lj.NbJetons));
                        if (complete(it->second)) --restantes;
                    }
                }
            }
            for (std::size_t j : qui) marque[j] = 0;
        }
    }
    return lignes;
}

BilanReperage ReperageInconnus(const ListeTextes& liste, const fs::path& lexique, const TableFormes& connus,
                               const ParametresReperage& p, Dialogue& dialogue) {
    const fs::path manquants = Manquants(liste);
    EcrivainFichier listeFC(manquants / "LISTE_FC.txt");
    EcrivainFichier listeNP(manquants / "LISTE_NP.txt");
    // The items with the form as it stands in the lexicon, for their concordances: one pass over
    // the texts serves both families, whose forms differ.
    std::vector<std::string> formes;
    std::vector<std::pair<bool, long long>> items;
    std::unordered_set<std::string> casVus;
    BilanReperage bilan;

    const std::string contenu = LireFichier(lexique);
    LecteurLignes lecteur(contenu);
    std::string_view ligne;
    std::string mot;
    long long lues = 0;
    while (lecteur.Suivante(ligne)) {
        if (ligne.empty()) continue;
        if (++lues % 1000 == 0) dialogue.Progression("Repérage des inconnus"_cp, lecteur.Numero(), 0);
        const std::size_t tab = ligne.find('\t');
        if (tab == std::string_view::npos) LigneSansTabulation(ligne, lexique, lecteur.Numero());
        const std::string_view forme = ligne.substr(0, tab);
        if (static_cast<long long>(forme.size()) < p.longueurMinimale) continue;
        Minusculiser(forme, mot);
        const long long effectif = LireEntier(ligne.substr(tab + 1), lexique, lecteur.Numero());
        if (effectif < p.seuil) continue;
        if (connus.Contient(mot)) continue;
        if (!casVus.insert(mot).second) continue;
        const bool np = TypeCasse(forme) == 1;
        long long& n = np ? bilan.itemsNP : bilan.itemsFC;
        ++n;
        (np ? listeNP : listeFC).Ligne(Joindre(mot, "\t", std::to_string(effectif)));
        formes.emplace_back(forme);
        items.emplace_back(np, n);
    }
    if (p.concordances) {
        dialogue.Progression("Concordances"_cp, 0, 0);
        const auto lignes = ConcordancesReperage(liste, formes);
        for (std::size_t j = 0; j < lignes.size(); ++j) {
            EcrivainFichier f(manquants / (items[j].first ? "CONC_NP" : "CONC_FC") /
                              (std::to_string(items[j].second) + ".txt"));
            for (const std::string& l : lignes[j]) f.Ligne(l);
        }
    }
    return bilan;
}

void OperationReperageInconnus(Contexte& ctx) {
    Dialogue& d = ctx.dialogue;
    const std::string debut = TexteHeure(ctx.horloge.Maintenant());
    d.Afficher("Vous devez avoir établi un lexique de votre corpus distinguant majuscules/minuscules et classé par "
               "effectifs décroissants"_cp);
    ParametresReperage p;
    const auto conc = d.Demander("Faire des concordances (O/N)?"_cp, "", "O");
    p.concordances = conc && *conc == "O";
    const auto tous = d.Demander(
        "Chercher seulement dans le dictionnaire standard (1) ou dans tous les répertoires (0) ?"_cp, "", "1");
    const bool tousRepertoires = tous && *tous == "0";
    const auto liste = ChoisirListeTextes(d);
    if (!liste) return;
    // The concordances read the derived files of the segment indexer.
    if (p.concordances && DossierExiste(liste->doss_racine / "OLBRIN_TT"))
        ExigerIndexationComplete(liste->doss_racine / "OLBRIN_TT");
    const fs::path manquants = Manquants(*liste);
    if (DossierExiste(manquants)) {
        const auto r = d.Demander("CONFIRMEZ PAR 'O' L'ECRASEMENT DU DOSSIER EXISTANT"_cp, "ATTENTION", "O");
        if (!r || *r != "O") {
            d.Afficher("Terminé"_cp);
            return;
        }
    }
    CreerDossier(manquants);
    // An older folder may lack the concordance folders: they are made whenever concordances are on.
    if (p.concordances) {
        CreerDossier(manquants / "CONC_FC");
        CreerDossier(manquants / "CONC_NP");
    }
    for (std::string_view f : {"FC", "NP"}) {
        EcrireFichier(manquants / Joindre("LISTE_", f, ".txt"), "");
        EcrireFichier(manquants / Joindre("ETAT_", f, ".txt"), "0");
        EcrireFichier(manquants / Joindre("MNQVUS_TRX_", f, ".txt"), "");
    }
    const auto seuil = DemanderEntier(d, "Seuil ?"_cp, "", "1");
    if (!seuil) return;
    const auto longueur = DemanderEntier(d, "Longueur minimale"_cp, "", "1");
    if (!longueur) return;
    p.seuil = *seuil;
    p.longueurMinimale = *longueur;
    const auto lexique = d.ChoisirFichier("Localiser le lexique"_cp, "Text files (*.TXT)|*.TXT");
    if (!lexique) return;

    d.Progression("Repérage des inconnus. Chargement des dictionnaires"_cp, 0, 0);
    TableFormes connus;
    ChoixConnus choix;
    choix.romains = true;
    if (tousRepertoires) {
        choix.etrangers = choix.composants = choix.abreviations = true;
        choix.rescor = choix.accents = choix.prefixes = true;
    }
    ChargerConnus(connus, ctx.ressources, choix);
    const BilanReperage b = ReperageInconnus(*liste, *lexique, connus, p, d);
    d.MasquerProgression();
    d.Afficher(Joindre("Terminé"_cp, " (", std::to_string(b.itemsFC), " FC, ", std::to_string(b.itemsNP), " NP, "_cp,
                       TexteDuree(debut, ctx.horloge), ")"));
}

}  // namespace telvoris
