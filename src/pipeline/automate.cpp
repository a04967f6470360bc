#include "pipeline/automate.hpp"

#include <deque>
#include <vector>

#include "core/erreurs.hpp"
#include "core/fichiers.hpp"
#include "core/horloge.hpp"
#include "core/jetons.hpp"
#include "core/parallele.hpp"
#include "core/reprise.hpp"
#include "core/texte.hpp"
#include "lexicon/dictionnaire.hpp"
#include "pipeline/contexte_regles.hpp"

namespace telvoris {

namespace {

inline bool EstCapitale(char ch) {
    const int c = Code(ch);
    return (c >= 65 && c <= 90) || (c >= 192 && c <= 223);
}

inline bool EstNombreEcrit(std::string_view forme) {
    for (char ch : forme)
        if (std::string_view("0123456789:/,+-%").find(ch) == std::string_view::npos) return false;
    return true;
}

struct Travail {
    LigneJetons ligne;
    std::vector<std::string_view> jeton, suite;
    std::deque<std::string> textes;
    std::string pliee;
};

Travail& TravailLocal() {
    thread_local Travail t;
    return t;
}

// The token of a found form whose entry has no category: a raw list of readings, or a function
// word settled at load time.
void EcrireListe(std::string& t, std::string_view brute, std::string_view pliee, std::string_view e,
                 std::string_view precedent) {
    const bool finPhrase = precedent.find("f=.") != std::string_view::npos ||
                           precedent.find("f=?") != std::string_view::npos ||
                           precedent.find("f=!") != std::string_view::npos;
    if (e.find(".N") == std::string_view::npos || e.find('/') == std::string_view::npos || finPhrase) {
        t.append(" l=");
        t.append(e);
        t.append(" >");
        return;
    }
    // A proper-noun reading among others, not after a sentence end.
    if (EstCapitale(brute[0])) {
        t.append(" l=");
        t.append(pliee);
        t.append("_N >");
        return;
    }
    const auto lectures = Decouper(e, "/");
    if (lectures.size() == 2) {
        const std::string_view l = lectures[0].find(".N") == std::string_view::npos ? lectures[0] : lectures[1];
        // Only a reading with a flexion part is finished; any other leaves the tag open, and
        // that broken text goes to the file as it always did.
        if (l.find(':') == std::string_view::npos) return;
        const Interpretation i = CouperInterpretation(l);
        t.append(" l=");
        if (i.lemme_code.empty()) t.append(pliee);
        else t.append(decoder_lemme(brute, i.lemme_code));
        t += '_';
        t.append(i.categorie);
        if (!i.flexion.empty()) {
            t.append(" x=");
            t.append(i.flexion);
        }
        t.append(" >");
        return;
    }
    t.append(" l=");
    bool premier = true;
    for (std::string_view l : lectures) {
        if (l == ".N") continue;
        if (!premier) t += '/';
        t.append(l);
        premier = false;
    }
    t.append(" >");
}

}  // namespace

void AppliquerDictionnaireLigne(std::string_view texte, const TableFormes& formes, CompteursDictionnaire& compteurs,
                                std::string& sortie) {
    Travail& w = TravailLocal();
    DecouperLigne(texte, w.ligne);
    w.jeton.assign(w.ligne.jeton.begin(), w.ligne.jeton.end());
    w.suite.assign(w.ligne.suite.begin(), w.ligne.suite.end());
    w.textes.clear();
    int n = w.ligne.NbJetons;
    for (int k = 1; k <= n; ++k) {
        const auto ku = static_cast<std::size_t>(k);
        const std::string_view jeton = w.jeton[ku];
        if (jeton == "<M >") {
            // An empty token goes, with the text behind it.
            w.jeton.erase(w.jeton.begin() + k);
            w.suite.erase(w.suite.begin() + k);
            --n;
            --k;
            continue;
        }
        if (!jeton.starts_with("<M ")) continue;
        const AttributsVue a = LireAttributsVue(jeton);
        if (!a.l.empty() || a.f.empty()) continue;
        const std::string_view brute = a.f;
        Minusculiser(brute, w.pliee);
        const auto entree = formes.Chercher(w.pliee, ClasserItem(w.pliee));
        if (!entree) {
            if (EstNombreEcrit(w.pliee))
                w.jeton[ku] = w.textes.emplace_back(Joindre("<M f=", w.pliee, " l=", w.pliee, "_U >"));
            continue;  // otherwise unknown: the tag stays as it is
        }
        const std::string_view e = entree->lemme;
        if (e.find('/') == std::string_view::npos) ++compteurs.nb_univoques;
        else ++compteurs.nb_pluriels;
        std::string& t = w.textes.emplace_back("<M f=");
        t.append(brute);
        if (!entree->categorie.empty()) {
            t.append(" l=");
            t.append(e);
            t += '_';
            t.append(entree->categorie);
            if (!entree->flexion.empty()) {
                t.append(" x=");
                t.append(entree->flexion);
            }
            t.append(" >");
        } else {
            EcrireListe(t, brute, w.pliee, e, k > 1 ? w.jeton[ku - 1] : std::string_view{});
        }
        w.jeton[ku] = t;
    }
    sortie.append(w.suite[0]);
    for (int k = 1; k <= n; ++k) {
        sortie.append(w.jeton[static_cast<std::size_t>(k)]);
        sortie.append(w.suite[static_cast<std::size_t>(k)]);
    }
}

}  // namespace telvoris

namespace telvoris {

void OperationPasseAutomatique(Contexte& ctx) {
    const auto liste = ChoisirListeTextes(ctx.dialogue);
    if (!liste) return;
    const std::string debut = TexteHeure(ctx.horloge.Maintenant());
    const fs::path dossierTT = liste->doss_racine / "OLBRIN_TT";
    if (!DossierExiste(dossierTT)) throw FinProgramme(std::string("Ressources non constituées. Vérifiez"_cp));
    Reprise reprise(dossierTT, "AVANT_AUTOMATE_SIMPLES", std::string("Passe automatique"_cp));
    ExigerTextesComplets(dossierTT, reprise.Fichier());
    const fs::path& dossierAvant = reprise.DossierSauvegarde();

    // Everything is loaded before the first text is touched, so that a missing list leaves the
    // corpus as it was.
    ctx.dialogue.Progression("Application du dictionnaire. Chargement des dictionnaires"_cp, 0, 0);
    TableFormes formes;
    ChargerDico(formes, ctx.ressources, true);
    ctx.dialogue.Progression("Levée d'ambiguïtés par le contexte."_cp, 0, 0);
    ListesContexte listes;
    ChargerListesContexte(listes, ctx.ressources);

    // Both passes go line by line in one read of each text: the context pass reads each line as
    // dictionary application has just written it, blank lines dropped by both.
    CompteursDictionnaire dico;
    PasseContexte contexte(listes);
    // Texts that an unfinished run left half-rewritten are put back first, and only then is the
    // new run recorded.
    if (const auto retablis = reprise.Retablir()) ctx.dialogue.Afficher(reprise.MessageReprise(*retablis));
    reprise.Commencer();
    // Dictionary application needs nothing from the other texts and runs on the threads; the
    // context pass numbers tokens across texts and gathers the case index, so it takes the
    // applied lines on the calling thread, in list order.
    struct Texte {
        std::string contenu, appliquees;
        std::vector<std::pair<std::size_t, long long>> lignes;  // end in `appliquees`, line number
        CompteursDictionnaire dico;
        std::string erreur;
        long long ligneErreur = 0;
    };
    auto erreurTexte = [&](std::string_view message, std::string_view nom, long long numero) {
        return ErreurExecution(Joindre(message, " ("_cp, TexteChemin(Chemin(dossierAvant, Joindre(nom, ".txt"))),
                                       ", ligne "_cp, std::to_string(numero), ")"));
    };
    std::string sortie;
    const auto total = static_cast<long long>(liste->noms.size());
    // A name listed twice is read again after its first rewrite: batches of one text then.
    ReecrituresGroupees reecritures(reprise, NomsEnDouble(liste->noms) ? 1 : 64);
    const auto echec = [&](const std::string& nom, const std::string& contenu, const ErreurExecution& e) {
        reecritures.Echec(nom, contenu);
        throw e;
    };
    try {
        TraiterDansLOrdre<Texte>(
            liste->noms.size(), FilsSansDoublon(ctx.fils, liste->noms),
            [&](std::size_t n) { ctx.dialogue.Progression("Reconnaissance"_cp, static_cast<long long>(n) + 1, total); },
            [&](std::size_t n, unsigned) {
                Texte t;
                LireFichier(Chemin(dossierTT, Joindre(liste->noms[n], ".txt")), t.contenu);
                t.appliquees.reserve(t.contenu.size() + t.contenu.size() / 2);
                LecteurLignes lecteur(t.contenu);
                std::string_view ligne;
                try {
                    while (lecteur.Suivante(ligne)) {
                        if (ligne.empty()) continue;
                        const std::size_t debut = t.appliquees.size();
                        AppliquerDictionnaireLigne(ligne, formes, t.dico, t.appliquees);
                        if (t.appliquees.size() != debut) t.lignes.emplace_back(t.appliquees.size(), lecteur.Numero());
                    }
                } catch (const ErreurExecution& e) {
                    t.erreur = e.what();
                    t.ligneErreur = lecteur.Numero();
                }
                return t;
            },
            [&](std::size_t n, Texte& t) {
                const std::string& nom = liste->noms[n];
                sortie.clear();
                std::size_t debut = 0;
                for (const auto& [fin, numero] : t.lignes) {
                    if (debut != 0) sortie.append("\r\n");
                    try {
                        contexte.TraiterLigne(std::string_view(t.appliquees).substr(debut, fin - debut), sortie);
                    } catch (const ErreurExecution& e) {
                        echec(nom, t.contenu, erreurTexte(e.what(), nom, numero));
                    }
                    debut = fin;
                }
                if (!t.erreur.empty()) echec(nom, t.contenu, erreurTexte(t.erreur, nom, t.ligneErreur));
                dico.nb_univoques += t.dico.nb_univoques;
                dico.nb_pluriels += t.dico.nb_pluriels;
                // The text is written whole, without a line end after its last line.
                reecritures.Ajouter(nom, t.contenu, Chemin(dossierTT, Joindre(nom, ".txt")), sortie);
            });
    } catch (...) {
        reecritures.ViderSansErreur();
        throw;
    }
    reecritures.Vider();
    contexte.EcrireIndex(dossierTT);
    reecritures.Terminer();
    ctx.dialogue.MasquerProgression();
    const CompteursContexte& c = contexte.Compteurs();
    ctx.dialogue.Afficher(Joindre(
        "Phase d'étiquetage automatique terminée en "_cp, TexteDuree(debut, ctx.horloge), "\r\n", "      ",
        std::to_string(dico.nb_univoques + dico.nb_pluriels), " cas reconnus.\r\n", "      dont ",
        std::to_string(dico.nb_univoques), " étiquetages univoques\r\n"_cp, "      et ", std::to_string(dico.nb_pluriels),
        " étiquetages pluriels. \r\n"_cp, "      ", " formes non identifiées.\r\n"_cp, "        ",
        std::to_string(c.nb_identifications), " identifications, ", std::to_string(c.nb_simplifications),
        " simplifications\r\nsur ", std::to_string(c.nb_soumis), " cas soumis. "));
    ctx.dialogue.Afficher("Terminé !"_cp);
}

}  // namespace telvoris
