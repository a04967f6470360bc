#include "lexicon/maintenance.hpp"

#include <unordered_map>
#include <vector>

#include "core/erreurs.hpp"
#include "core/fichiers.hpp"
#include "core/horloge.hpp"
#include "core/jetons.hpp"
#include "core/texte.hpp"
#include "lexicon/arbre.hpp"
#include "lexicon/dictionnaire.hpp"
#include "lexicon/integration.hpp"
#include "lexicon/reprise_dico.hpp"

namespace telvoris {

namespace {

// Entries by bucket, in order of arrival, with a bound per bucket and an index for lookups.
class TableCasiers {
public:
    TableCasiers(std::string_view nomLimite, std::size_t max) : nom_(nomLimite), max_(max), casiers_(16 * 21) {}
    // The entry's position, added when absent.
    std::pair<CleMot, std::size_t> Inserer(std::string_view texte, std::string_view source) {
        const CleMot cle = classe_mot(texte);
        Casier& c = At(cle);
        const auto it = c.index.find(std::string(texte));
        if (it != c.index.end()) return {cle, it->second};
        if (c.entrees.size() >= max_) LimiteDepassee(nom_, static_cast<long long>(max_), Joindre("entrées pour "_cp, source));
        c.index.emplace(std::string(texte), c.entrees.size());
        c.entrees.emplace_back(texte);
        c.suites.emplace_back();
        c.comptes.push_back(0);
        return {cle, c.entrees.size() - 1};
    }
    bool Contient(std::string_view texte) const {
        const Casier& c = At(classe_mot(texte));
        return c.index.count(std::string(texte)) != 0;
    }
    struct Casier {
        std::vector<std::string> entrees;
        std::vector<std::string> suites;
        std::vector<long long> comptes;
        std::unordered_map<std::string, std::size_t> index;
    };
    Casier& At(CleMot k) { return casiers_[static_cast<std::size_t>(k.ClasseInitiale * 16 + k.ClasseLongueur)]; }
    const Casier& At(CleMot k) const {
        return casiers_[static_cast<std::size_t>(k.ClasseInitiale * 16 + k.ClasseLongueur)];
    }

private:
    std::string nom_;
    std::size_t max_;
    std::vector<Casier> casiers_;
};

std::vector<std::string_view> Lectures(std::string_view droite) {
    std::vector<std::string_view> r;
    for (;;) {
        const auto b = droite.find('/');
        r.push_back(droite.substr(0, b));
        if (b == std::string_view::npos) break;
        droite.remove_prefix(b + 1);
    }
    return r;
}

std::string LemmeCategorie(std::string_view forme, std::string_view lecture) {
    const Interpretation i = CouperInterpretation(lecture);
    return Joindre(decoder_lemme(forme, i.lemme_code), "_", i.categorie);
}

std::optional<fs::path> ChoisirRetraits(Dialogue& d) {
    return d.ChoisirFichier("Localiser le fichier de retraits", "Text files (*.TXT)|*.TXT");
}

template <class F>
void PourChaqueFichierDico(const fs::path& dossier, F&& f) {
    for (int l = 1; l <= MAX_CLASSE_LONGUEUR; ++l)
        for (int c = 1; c <= MAX_CLASSE_INITIALE; ++c) f(dossier / NomFichierCasier(l, c), l, c);
}

void Avancer(Dialogue* dialogue, int l, int c) {
    if (dialogue)
        dialogue->Progression(LIBELLE_ECRITURE_DICO, (l - 1) * MAX_CLASSE_INITIALE + c,
                              MAX_CLASSE_LONGUEUR * MAX_CLASSE_INITIALE);
}

constexpr std::array<std::string_view, 7> kLabels = {"A", "J", "N", "R", "SF", "SM", "V"};

}  // namespace

BilanRetraits SupprimerLemmes(const fs::path& racine, const fs::path& sauvegarde, const fs::path& liste,
                              Dialogue* dialogue) {
    BilanRetraits b;
    EcrivainFichier suppressions(Chemin(racine, "dico/SUPPRESSIONS_FAITES.txt"));
    EcrivainFichier simplifications(Chemin(racine, "dico/SIMPLIFICATIONS_FAITES.txt"));
    TableCasiers retraits("MAX_RETRAITS_LEMMES_CASIER", MAX_RETRAITS_LEMMES_CASIER);
    const std::string sourceListe = TexteChemin(liste);
    std::string contenu;
    PourChaqueLigneNonVide(liste, contenu, [&](std::string_view l) { retraits.Inserer(l, sourceListe); });
    const fs::path dico = Chemin(racine, DOSSIER_DICO);
    std::string sortie;
    PourChaqueFichierDico(sauvegarde, [&](const fs::path& copie, int l, int c) {
        Avancer(dialogue, l, c);
        EcrivainFichier f(dico / NomFichierCasier(l, c));
        PourChaqueLigneNonVide(copie, contenu, [&](std::string_view ligne) {
            const auto v = ligne.find(',');
            if (v == std::string_view::npos) {
                f.Ligne(ligne);
                return;
            }
            const std::string_view forme = ligne.substr(0, v);
            sortie.assign(forme).append(",");
            bool premiere = true, retiree = false;
            for (const auto lecture : Lectures(ligne.substr(v + 1))) {
                if (retraits.Contient(LemmeCategorie(forme, lecture))) {
                    retiree = true;
                    continue;
                }
                if (!premiere) sortie += '/';
                sortie.append(lecture);
                premiere = false;
            }
            if (premiere) {
                suppressions.Ligne(forme);
                ++b.suppressions;
                return;
            }
            f.Ligne(sortie);
            if (retiree) {
                simplifications.Ligne(forme);
                ++b.simplifications;
            }
        });
        f.Fermer();
    });
    return b;
}

long long SupprimerLignes(const fs::path& racine, const fs::path& liste, Dialogue* dialogue) {
    long long n = 0;
    EcrivainFichier rapport(Chemin(racine, "dico/SUPPRESSIONS_2.txt"));
    TableCasiers retraits("MAX_RETRAITS_LIGNES_CASIER", MAX_RETRAITS_LIGNES_CASIER);
    std::string contenu;
    const std::string sourceListe = TexteChemin(liste);
    std::vector<std::string> lignesListe;
    PourChaqueLigneNonVide(liste, contenu, [&](std::string_view l) { lignesListe.emplace_back(l); });
    // The list is bucketed by the form in front of the first comma; the bound is per bucket.
    std::vector<std::unordered_map<std::string, int>> parCasier(16 * 21);
    for (const auto& l : lignesListe) {
        const CleMot k = classe_mot(std::string_view(l).substr(0, l.find(',')));
        auto& casier = parCasier[static_cast<std::size_t>(k.ClasseInitiale * 16 + k.ClasseLongueur)];
        if (casier.size() >= MAX_RETRAITS_LIGNES_CASIER && !casier.count(l))
            LimiteDepassee("MAX_RETRAITS_LIGNES_CASIER", MAX_RETRAITS_LIGNES_CASIER, Joindre("lignes pour "_cp, sourceListe));
        casier.emplace(l, 0);
    }
    const fs::path dico = Chemin(racine, DOSSIER_DICO);
    std::vector<std::string> gardees;
    PourChaqueFichierDico(dico, [&](const fs::path& fichier, int l, int c) {
        Avancer(dialogue, l, c);
        gardees.clear();
        const std::string source = TexteChemin(fichier);
        PourChaqueLigneNonVide(fichier, contenu, [&](std::string_view ligne) {
            const CleMot k = classe_mot(ligne.substr(0, ligne.find(',')));
            const auto& casier = parCasier[static_cast<std::size_t>(k.ClasseInitiale * 16 + k.ClasseLongueur)];
            if (!casier.empty() && casier.count(std::string(ligne))) {
                rapport.Ligne(ligne);
                ++n;
                return;
            }
            if (gardees.size() >= MAX_LIGNES_CASIER_MAINTENANCE)
                LimiteDepassee("MAX_LIGNES_CASIER_MAINTENANCE", MAX_LIGNES_CASIER_MAINTENANCE, Joindre("lignes dans "_cp, source));
            gardees.emplace_back(ligne);
        });
        EcrivainFichier f(fichier);
        for (const auto& l : gardees) f.Ligne(l);
        f.Fermer();
    });
    return n;
}

StatistiquesDico CompterDictionnaire(const fs::path& racine) {
    StatistiquesDico s;
    TableCasiers lemmes("MAX_LEMMES_CASIER_MAINTENANCE", MAX_LEMMES_CASIER_MAINTENANCE);
    std::string contenu;
    PourChaqueFichierDico(Chemin(racine, DOSSIER_DICO), [&](const fs::path& fichier, int, int) {
        const std::string source = TexteChemin(fichier);
        PourChaqueLigneNonVide(fichier, contenu, [&](std::string_view ligne) {
            ++s.formes;
            const auto v = ligne.find(',');
            const std::string_view forme = ligne.substr(0, v);
            const std::string_view droite = v == std::string_view::npos ? std::string_view() : ligne.substr(v + 1);
            const auto lectures = Lectures(droite);
            if (lectures.size() > 1) ++s.ambigues;
            for (const auto l : lectures) {
                const auto [k, i] = lemmes.Inserer(LemmeCategorie(forme, l), source);
                ++lemmes.At(k).comptes[i];
            }
        });
    });
    for (int c = 0; c <= MAX_CLASSE_INITIALE; ++c)
        for (int l = 0; l <= MAX_CLASSE_LONGUEUR; ++l)
            for (const auto& e : lemmes.At(CleMot{l, c}).entrees) {
                ++s.lemmes;
                const auto u = e.rfind('_');
                const std::string_view cat = u == std::string::npos ? std::string_view() : std::string_view(e).substr(u + 1);
                for (std::size_t j = 0; j < kLabels.size(); ++j)
                    if (cat == kLabels[j]) ++s.categories[j];
            }
    return s;
}

void OperationSuppressionLemmes(Contexte& ctx) {
    const auto liste = ChoisirRetraits(ctx.dialogue);
    if (!liste) return;
    const std::string horodate = Horodater(ctx.horloge);
    RepriseDictionnaire reprise(RepriseOlbrin(ctx.ressources), std::string("Suppression de lemmes"_cp));
    if (const auto n = reprise.Retablir()) ctx.dialogue.Afficher(reprise.MessageReprise(*n));
    ctx.dialogue.Progression("Sauvegarde du dictionnaire"_cp, 0, 0);
    const fs::path sauvegarde = SauvegarderDictionnaire(ctx.ressources, horodate);
    reprise.Commencer({{Chemin(ctx.ressources, DOSSIER_DICO), sauvegarde}});
    ctx.dialogue.Progression("Suppression de lemmes"_cp, 0, 0);
    const BilanRetraits b = SupprimerLemmes(ctx.ressources, sauvegarde, *liste, &ctx.dialogue);
    reprise.Terminer();
    ctx.dialogue.MasquerProgression();
    ctx.dialogue.Afficher(Joindre("Terminé. "_cp, std::to_string(b.suppressions), " suppressions, ",
                                  std::to_string(b.simplifications), " simplifications."));
}

void OperationSuppressionLignes(Contexte& ctx) {
    const auto liste = ChoisirRetraits(ctx.dialogue);
    if (!liste) return;
    const std::string debut = TexteHeure(ctx.horloge.Maintenant());
    RepriseDictionnaire reprise(RepriseOlbrin(ctx.ressources), std::string("Suppression lignes de dict."_cp));
    if (const auto r = reprise.Retablir()) ctx.dialogue.Afficher(reprise.MessageReprise(*r));
    ctx.dialogue.Progression("Sauvegarde du dictionnaire"_cp, 0, 0);
    const fs::path sauvegarde = SauvegarderDictionnaire(ctx.ressources, Horodater(ctx.horloge));
    reprise.Commencer({{Chemin(ctx.ressources, DOSSIER_DICO), sauvegarde}});
    ctx.dialogue.Progression("Suppression de lignes"_cp, 0, 0);
    const long long n = SupprimerLignes(ctx.ressources, *liste, &ctx.dialogue);
    reprise.Terminer();
    ctx.dialogue.MasquerProgression();
    ctx.dialogue.Resultat(debut);
    ctx.dialogue.Resultat(Joindre(std::to_string(n), " suppressions."));
}

void OperationStatistiquesDico(Contexte& ctx) {
    ctx.dialogue.Progression("Statistiques du dictionnaire"_cp, 0, 0);
    const StatistiquesDico s = CompterDictionnaire(ctx.ressources);
    EcrivainFichier f(Chemin(ctx.ressources, Joindre("dico/STATISTIQUES_DICO_", Horodater(ctx.horloge), ".txt")));
    f.Ligne(Joindre(std::to_string(s.formes), " formes"));
    f.Ligne(Joindre(std::to_string(s.ambigues), " ambiguës"_cp));
    f.Ligne(Joindre(std::to_string(s.lemmes), " lemmes"));
    for (std::size_t j = 0; j < kLabels.size(); ++j) f.Ligne(Joindre(std::to_string(s.categories[j]), " ", kLabels[j]));
    f.Fermer();
    ctx.dialogue.MasquerProgression();
    ctx.dialogue.Resultat(Joindre(std::to_string(s.formes), " formes."));
    ctx.dialogue.Resultat(Joindre(std::to_string(s.lemmes), " lemmes."));
}

void OperationExtraireCategorie(Contexte& ctx) {
    const auto composes = ctx.dialogue.Demander("Inclure les composés ?"_cp, "", "O");
    if (!composes) return;
    const auto categorie = ctx.dialogue.Demander("Catégorie ?"_cp, "", "");
    if (!categorie) return;
    const std::string debut = TexteHeure(ctx.horloge.Maintenant());
    EcrivainFichier f(Chemin(ctx.ressources, Joindre("dico/EXTRAIT_", categorie->substr(0, 1), ".txt")));
    const std::string motif = Joindre(".", *categorie);
    std::string contenu;
    auto Copier = [&](const fs::path& fichier) {
        PourChaqueLigneNonVide(fichier, contenu, [&](std::string_view l) {
            if (l.find(motif) != std::string_view::npos) f.Ligne(l);
        });
    };
    ctx.dialogue.Progression("Extraction d'une catégorie"_cp, 0, 0);
    PourChaqueFichierDico(Chemin(ctx.ressources, DOSSIER_DICO), [&](const fs::path& fichier, int, int) { Copier(fichier); });
    if (*composes == "O") {
        for (const std::string_view classe : {DOSSIER_COMPOSES_AMB, DOSSIER_COMPOSES_NAMB})
            for (int w = MIN_MOTS_COMPOSE; w <= MAX_MOTS_COMPOSE; ++w)
                for (int c = 1; c <= MAX_CLASSE_INITIALE; ++c) Copier(FichierCasier(ctx.ressources, classe, w, c));
    }
    f.Fermer();
    ctx.dialogue.MasquerProgression();
    ctx.dialogue.Afficher(Joindre("Terminé en "_cp, TexteDuree(debut, ctx.horloge)));
}

void OperationExtractionLemmesFormes(Contexte& ctx) {
    const std::string debut = TexteHeure(ctx.horloge.Maintenant());
    TableCasiers table("MAX_LEMMES_CASIER_MAINTENANCE", MAX_LEMMES_CASIER_MAINTENANCE);
    std::string contenu;
    // Only the file of the six-letter words in "a" is read.
    const fs::path fichier = FichierCasier(ctx.ressources, DOSSIER_DICO, 6, 1);
    const std::string source = TexteChemin(fichier);
    ctx.dialogue.Progression("Extraction lemmes + formes"_cp, 0, 0);
    PourChaqueLigneNonVide(fichier, contenu, [&](std::string_view ligne) {
        const auto v = ligne.find(',');
        const std::string_view forme = ligne.substr(0, v);
        for (const auto l : Lectures(v == std::string_view::npos ? std::string_view() : ligne.substr(v + 1))) {
            const auto [k, i] = table.Inserer(LemmeCategorie(forme, l), source);
            table.At(k).suites[i].append("/").append(forme);
        }
    });
    EcrivainFichier f(Chemin(ctx.ressources, Joindre("dico/EXTRAIT_", Horodater(ctx.horloge), ".txt")));
    for (int l = 1; l <= MAX_CLASSE_LONGUEUR; ++l)
        for (int c = 0; c <= MAX_CLASSE_INITIALE; ++c) {
            const auto& casier = table.At(CleMot{l, c});
            for (std::size_t i = 0; i < casier.entrees.size(); ++i)
                f.Ligne(Joindre(casier.entrees[i], "\t", std::string_view(casier.suites[i]).substr(1)));
        }
    f.Fermer();
    ctx.dialogue.MasquerProgression();
    ctx.dialogue.Afficher(Joindre("Terminé en "_cp, TexteDuree(debut, ctx.horloge)));
}

}  // namespace telvoris
