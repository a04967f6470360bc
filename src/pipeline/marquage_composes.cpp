#include "pipeline/marquage_composes.hpp"

#include <deque>
#include <vector>

#include "core/erreurs.hpp"
#include "core/fichiers.hpp"
#include "core/horloge.hpp"
#include "core/jetons.hpp"
#include "core/parallele.hpp"
#include "core/reprise.hpp"
#include "core/texte.hpp"
#include "lexicon/composes.hpp"
#include "lexicon/dictionnaire.hpp"

namespace telvoris {

namespace {

inline bool EstCapitale(char ch) {
    const int c = Code(ch);
    return (c >= 65 && c <= 90) || (c >= 192 && c <= 223);
}

// The columns of the line being marked, reused from line to line. Index 0 is the text in front
// of the first token; tokens are 1..n.
struct Colonnes {
    LigneJetons ligne;
    std::vector<std::string_view> jeton;
    std::vector<std::string_view> suite;
    std::vector<std::string> pliee;  // "#" for anything but a plain word token
    std::vector<std::string_view> brute;
    std::deque<std::string> textes;  // tokens and separators built for this line
    std::string phrase, motif;
};

Colonnes& ColonnesLocales() {
    thread_local Colonnes c;
    return c;
}

}  // namespace

void MarquerComposesLigne(std::string_view texte, const TableComposes& table, CompteursComposes& compteurs,
                          std::string& sortie) {
    Colonnes& c = ColonnesLocales();
    DecouperLigne(texte, c.ligne);
    const int n = c.ligne.NbJetons;
    if (n == 0) {
        if (!c.ligne.suite.empty()) sortie.append(c.ligne.suite[0]);
        return;
    }
    const auto taille = static_cast<std::size_t>(n) + 2;
    c.jeton.assign(c.ligne.jeton.begin(), c.ligne.jeton.begin() + n + 1);
    c.suite.assign(c.ligne.suite.begin(), c.ligne.suite.begin() + n + 1);
    if (c.pliee.size() < taille) c.pliee.resize(taille);
    c.brute.assign(taille, {});
    c.textes.clear();
    for (int i = 1; i <= n; ++i) {
        const std::string_view t = c.jeton[static_cast<std::size_t>(i)];
        auto& p = c.pliee[static_cast<std::size_t>(i)];
        if (t.starts_with("<M ")) {
            const AttributsVue a = LireAttributsVue(t);
            c.brute[static_cast<std::size_t>(i)] = a.f;
            Minusculiser(a.f, p);
        } else {
            p.assign("#");
        }
    }
    // Positions past the live tokens (the end of the line, and the slots a merge empties) hold
    // no word: a word there neither starts nor continues a compound.
    int vivants = n;
    auto Pliee = [&](int i) -> std::string_view {
        return i > vivants ? std::string_view("#") : std::string_view(c.pliee[static_cast<std::size_t>(i)]);
    };
    for (int k = 1; k <= vivants; ++k) {
        if (Pliee(k) == "#" || Pliee(k + 1) == "#") continue;
        ++compteurs.nb_mots;
        const std::string_view premier = Pliee(k);
        const std::string_view chaine = table.Chercher(premier);
        if (chaine.empty()) continue;
        c.phrase.assign(premier);
        std::size_t trouve = std::string_view::npos;
        int m = k + 1;
        for (; m <= vivants && Pliee(m) != "#"; ++m) {
            c.phrase += ' ';
            c.phrase.append(Pliee(m));
            c.motif.assign("|");
            c.motif += c.phrase;
            c.motif += '/';
            trouve = chaine.find(c.motif);
            if (trouve != std::string_view::npos) break;  // the shortest compound wins
        }
        if (trouve == std::string_view::npos) continue;
        ++compteurs.nb_composes;
        const std::size_t debut = trouve + 1;
        const std::size_t fin = chaine.find('|', debut);
        const std::string_view segment = chaine.substr(debut, fin == std::string_view::npos ? fin : fin - debut);
        const std::size_t b1 = segment.find('/');
        const std::size_t b2 = b1 == std::string_view::npos ? b1 : segment.find('/', b1 + 1);
        const std::string_view lemme =
            b1 == std::string_view::npos ? std::string_view{} : segment.substr(b1 + 1, b2 == std::string_view::npos ? b2 : b2 - b1 - 1);
        const std::string_view flexion = b2 == std::string_view::npos ? std::string_view{} : segment.substr(b2 + 1);
        // A proper noun is taken only where the text writes it with a capital.
        if (lemme.ends_with("_N")) {
            const std::string_view b = c.brute[static_cast<std::size_t>(k)];
            if (b.empty() || !EstCapitale(b[0])) continue;
        }
        std::string& nouveau = c.textes.emplace_back("<MC f=");
        for (int i = k; i <= m; ++i) {
            if (i > k) nouveau += '_';
            nouveau.append(c.brute[static_cast<std::size_t>(i)]);
        }
        nouveau.append(" l=");
        nouveau.append(lemme);
        if (!flexion.empty()) {
            nouveau.append(" flex=");
            nouveau.append(flexion);
        }
        nouveau.append(" >");
        std::string& sep = c.textes.emplace_back(c.suite[static_cast<std::size_t>(k)]);
        for (int i = k + 1; i <= m; ++i) {
            sep += ' ';
            sep.append(c.suite[static_cast<std::size_t>(i)]);
        }
        const auto ku = static_cast<std::size_t>(k);
        c.jeton[ku] = nouveau;
        c.suite[ku] = sep;
        c.pliee[ku].assign("#");  // the new <MC ...> starts nothing further on
        c.brute[ku] = {};
        const int d = m - k;
        for (int i = k + 1; i + d <= vivants; ++i) {
            const auto iu = static_cast<std::size_t>(i), su = static_cast<std::size_t>(i + d);
            c.jeton[iu] = c.jeton[su];
            c.suite[iu] = c.suite[su];
            std::swap(c.pliee[iu], c.pliee[su]);
            c.brute[iu] = c.brute[su];
        }
        vivants -= d;
    }
    sortie.append(c.suite[0]);
    for (int i = 1; i <= vivants; ++i) {
        sortie.append(c.jeton[static_cast<std::size_t>(i)]);
        sortie.append(c.suite[static_cast<std::size_t>(i)]);
    }
}

CompteursComposes MarquerComposes(const ListeTextes& liste, const TableComposes& table, Dialogue& dialogue,
                                 unsigned fils) {
    const fs::path dossierTT = liste.doss_racine / "OLBRIN_TT";
    if (!DossierExiste(dossierTT)) throw FinProgramme(std::string("Ressources non constituées. Vérifiez"_cp));
    Reprise reprise(dossierTT, "AVANT_COMP", std::string("Composés"_cp));
    ExigerTextesComplets(dossierTT, reprise.Fichier());
    if (const auto retablis = reprise.Retablir()) dialogue.Afficher(reprise.MessageReprise(*retablis));
    reprise.Commencer();
    const fs::path& copie = reprise.DossierSauvegarde();
    CompteursComposes compteurs;
    // A text marked on a thread; the backup, the record and the rewriting are left to the
    // calling thread, in list order.
    struct Texte {
        std::string contenu, sortie, erreur;
        CompteursComposes compteurs;
    };
    const auto total = static_cast<long long>(liste.noms.size());
    // A name listed twice is read again after its first rewrite: batches of one text then.
    ReecrituresGroupees reecritures(reprise, NomsEnDouble(liste.noms) ? 1 : 64);
    try {
        TraiterDansLOrdre<Texte>(
            liste.noms.size(), FilsSansDoublon(fils, liste.noms),
            [&](std::size_t n) {
                dialogue.Progression(Joindre("Marquage des composés. Fichier "_cp, std::to_string(n + 1), " de "_cp,
                                             std::to_string(total)),
                                     static_cast<long long>(n) + 1, total);
            },
            [&](std::size_t n, unsigned) {
                const std::string& nom = liste.noms[n];
                Texte t;
                LireFichier(Chemin(dossierTT, Joindre(nom, ".txt")), t.contenu);
                t.sortie.reserve(t.contenu.size() + t.contenu.size() / 8);
                LecteurLignes lecteur(t.contenu);
                std::string_view ligne;
                try {
                    while (lecteur.Suivante(ligne)) {
                        if (ligne.empty()) continue;
                        MarquerComposesLigne(ligne, table, t.compteurs, t.sortie);
                        t.sortie.append("\r\n");
                    }
                } catch (const ErreurExecution& e) {
                    t.erreur = Joindre(e.what(), " ("_cp, TexteChemin(Chemin(copie, Joindre(nom, ".txt"))), ", ligne "_cp,
                                       std::to_string(lecteur.Numero()), ")");
                }
                return t;
            },
            [&](std::size_t n, Texte& t) {
                const std::string& nom = liste.noms[n];
                if (!t.erreur.empty()) {
                    reecritures.Echec(nom, t.contenu);
                    throw ErreurExecution(t.erreur);
                }
                reecritures.Ajouter(nom, t.contenu, Chemin(dossierTT, Joindre(nom, ".txt")), std::move(t.sortie));
                compteurs.nb_mots += t.compteurs.nb_mots;
                compteurs.nb_composes += t.compteurs.nb_composes;
            });
    } catch (...) {
        reecritures.ViderSansErreur();
        throw;
    }
    reecritures.Terminer();
    return compteurs;
}

void OperationComposes(Contexte& ctx) {
    const auto liste = ChoisirListeTextes(ctx.dialogue);
    if (!liste) return;
    const std::string debut = TexteHeure(ctx.horloge.Maintenant());
    // Checked before anything is loaded or changed.
    if (!DossierExiste(liste->doss_racine / "OLBRIN_TT"))
        throw FinProgramme(std::string("Ressources non constituées. Vérifiez"_cp));
    ctx.dialogue.Progression("Marquage des composés. Chargement des dictionnaires"_cp, 0, 0);
    TableComposes table;
    ChargerComposes(table, ctx.ressources);
    ChargerNombres(ctx.ressources);  // read as the stage always did, though no rule here uses it
    const CompteursComposes c = MarquerComposes(*liste, table, ctx.dialogue, ctx.fils);
    ctx.dialogue.MasquerProgression();
    ctx.dialogue.Afficher(Joindre("Terminé en "_cp, TexteDuree(debut, ctx.horloge), ". ", std::to_string(c.nb_mots),
                                  " mots, ", std::to_string(c.nb_composes), " composés N"_cp));
}

}  // namespace telvoris
