#include "correction/reperage.hpp"

#include <unordered_set>

#include "core/erreurs.hpp"
#include "core/fichiers.hpp"
#include "core/horloge.hpp"
#include "core/texte.hpp"
#include "correction/commun_correction.hpp"

namespace telvoris {

namespace {

constexpr std::string_view kSeparateurPartitions = "<---------->";

const fs::path Manquants(const ListeTextes& liste) { return Chemin(liste.doss_racine, DOSSIER_MANQUANTS); }

}  // namespace

ConcordancierReperage::ConcordancierReperage(const ListeTextes& liste) : liste_(liste) {
    for (const std::string& nom : liste.noms) textes_.push_back(Texte{nom, false, {}});
}

void ConcordancierReperage::Indexer(Texte& t) {
    t.indexe = true;
    if (t.nom.empty()) return;
    const fs::path fichier = Chemin(liste_.doss_racine, Joindre("OLBRIN_TT/LEXINDEX/", t.nom, ".txt"));
    const std::string contenu = LireFichier(fichier);
    const auto morceaux = Decouper(contenu, kSeparateurPartitions);
    for (std::size_t k = 0; k < morceaux.size(); ++k) {
        LecteurLignes lecteur(morceaux[k]);
        std::string_view ligne;
        while (lecteur.Suivante(ligne)) {
            // Every "f=" form followed by a blank notes the piece.
            std::size_t p = 0;
            while ((p = ligne.find("f=", p)) != std::string_view::npos) {
                const std::size_t fin = ligne.find(' ', p + 2);
                if (fin == std::string_view::npos) break;
                auto& v = t.partitions[std::string(ligne.substr(p + 2, fin - p - 2))];
                if (v.empty() || v.back() != static_cast<int>(k)) v.push_back(static_cast<int>(k));
                p = fin;
            }
        }
    }
}

const std::vector<std::string_view>& ConcordancierReperage::Morceaux(std::size_t texte) {
    if (texteLu_ != texte) {
        texteLu_ = texte;
        morceauxLus_.clear();
        contenuLu_.clear();
        const fs::path fichier = Chemin(liste_.doss_racine, Joindre("OLBRIN_TT/TEXTE_ETIQ/", textes_[texte].nom, ".txt"));
        if (FichierExiste(fichier)) {
            LireFichier(fichier, contenuLu_);
            morceauxLus_ = Decouper(contenuLu_, kSeparateurPartitions);
        }
    }
    return morceauxLus_;
}

std::vector<std::string> ConcordancierReperage::Lignes(std::string_view forme) {
    std::vector<std::string> lignes;
    const std::string cle(forme);
    LigneJetons lj;
    std::vector<std::string_view> formes;
    for (std::size_t n = 0; n < textes_.size() && lignes.size() < MAX_LIGNES_CONCORDANCE; ++n) {
        Texte& t = textes_[n];
        if (!t.indexe) Indexer(t);
        const auto it = t.partitions.find(cle);
        if (it == t.partitions.end()) continue;
        const auto& morceaux = Morceaux(n);
        for (int k : it->second) {
            if (lignes.size() >= MAX_LIGNES_CONCORDANCE) break;
            if (static_cast<std::size_t>(k) >= morceaux.size()) continue;
            for (std::string_view ligne : Decouper(morceaux[static_cast<std::size_t>(k)], "\r\n")) {
                if (lignes.size() >= MAX_LIGNES_CONCORDANCE) break;
                DecouperLigne(ligne, lj);
                formes.assign(1, std::string_view{});
                for (int i = 1; i <= lj.NbJetons; ++i) formes.push_back(LireAttributsVue(lj.jeton[i]).f);
                for (int i = 1; i <= lj.NbJetons && lignes.size() < MAX_LIGNES_CONCORDANCE; ++i) {
                    if (formes[i] != forme) continue;
                    std::string gauche;
                    for (int j = i; j >= 1; --j) {
                        gauche.insert(0, formes[j]);
                        gauche.insert(0, 1, ' ');
                        if (gauche.size() > LARGEUR_CONTEXTE_REPERAGE) {
                            gauche.erase(0, gauche.size() - LARGEUR_CONTEXTE_REPERAGE);
                            break;
                        }
                    }
                    std::string droite;
                    for (int j = i + 1; j <= lj.NbJetons; ++j) {
                        droite += ' ';
                        droite.append(formes[j]);
                        if (droite.size() > LARGEUR_CONTEXTE_REPERAGE) {
                            droite.resize(LARGEUR_CONTEXTE_REPERAGE);
                            break;
                        }
                    }
                    if (gauche.size() < LARGEUR_CONTEXTE_REPERAGE)
                        gauche.insert(0, LARGEUR_CONTEXTE_REPERAGE - gauche.size(), ' ');
                    lignes.push_back(gauche + droite);
                }
            }
        }
    }
    return lignes;
}

BilanReperage ReperageInconnus(const ListeTextes& liste, const fs::path& lexique, const TableFormes& connus,
                               const ParametresReperage& p, Dialogue& dialogue) {
    const fs::path manquants = Manquants(liste);
    EcrivainFichier listeFC(manquants / "LISTE_FC.txt");
    EcrivainFichier listeNP(manquants / "LISTE_NP.txt");
    ConcordancierReperage conc(liste);
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
        if (p.concordances) {
            EcrivainFichier f(manquants / (np ? "CONC_NP" : "CONC_FC") / (std::to_string(n) + ".txt"));
            for (const std::string& l : conc.Lignes(forme)) f.Ligne(l);
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
