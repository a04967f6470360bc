#include "stats/lexiques.hpp"

#include <algorithm>
#include <charconv>

#include "core/erreurs.hpp"
#include "core/horloge.hpp"
#include "core/liste_textes.hpp"
#include "core/parallele.hpp"
#include "core/texte.hpp"
#include "stats/commun.hpp"
#include "stats/releve_textes.hpp"

namespace telvoris {

using namespace stats;

namespace {

constexpr std::string_view kNonIndexe = "Le dossier n'a pas été indexé. Vérifiez et recommencez."_cp;

void AjouterNombre(std::string& s, long long v) {
    char tampon[24];
    const auto r = std::to_chars(tampon, tampon + sizeof tampon, v);
    s.append(tampon, static_cast<std::size_t>(r.ptr - tampon));
}

std::string Nombre(long long v) {
    std::string s;
    AjouterNombre(s, v);
    return s;
}

std::string LibelleFichier(std::size_t i, std::size_t n) {
    return Joindre("Relevé. Fichier "_cp, std::to_string(i), " de "_cp, std::to_string(n));
}

fs::path IndexTexte(const fs::path& racine, const std::string& nom) {
    return Chemin(racine / "OLBRIN_TT" / "LEXINDEX", Joindre(nom, ".txt"));
}

void Terminer(Contexte& ctx, const std::string& debut) {
    ctx.dialogue.MasquerProgression();
    ctx.dialogue.Afficher(Joindre("Lexique établi en"_cp, "\r\n", TexteDuree(debut, ctx.horloge, Copie::Statistiques)));
}

}  // namespace

EtatReleves& EtatStatistiques() {
    static EtatReleves etat;
    return etat;
}

std::vector<std::string> ChargerPostclitiques(const fs::path& ressources) {
    const fs::path chemin = ressources / "utilitaires" / "postclit2.txt";
    const std::string contenu = LireFichier(chemin);
    std::vector<std::string> liste;
    LecteurLignes lecteur(contenu);
    std::string_view ligne;
    while (lecteur.Suivante(ligne)) {
        if (liste.size() >= MAX_POSTCLITIQUES_RELEVE)
            LimiteDepassee("MAX_POSTCLITIQUES_RELEVE", MAX_POSTCLITIQUES_RELEVE, Joindre("lignes dans "_cp, TexteChemin(chemin)));
        liste.emplace_back(ligne);
    }
    return liste;
}

// ---------------------------------------------------------------------------------- Lexique

void Lexique(Contexte& ctx, const ParametresReleve& p, EtatReleves& etat) {
    Dialogue& d = ctx.dialogue;
    // The answer is asked and the list read, but "Lexique" counts hyphenated clitics apart
    // whatever is answered: only "Grand lexique" groups them.
    const auto regrouper =
        d.Demander("Regrouper les post-clitiques avec les autres occurrences (O/N) ?"_cp, "POST-CLITIQUES"_cp, "O");
    if (regrouper && *regrouper == "O") ChargerPostclitiques(ctx.ressources);

    const auto liste = ChoisirListeTextes(d);
    if (!liste) return;
    const std::string horodate = Horodater(ctx.horloge);
    etat.casier.Vider();
    const fs::path lexiques = liste->doss_racine / "LEXIQUES";
    CreerDossier(lexiques);
    // Without an index the run goes on, and stops at the first index file it cannot open.
    if (!DossierExiste(liste->doss_racine / "OLBRIN_TT" / "LEXINDEX")) d.Afficher(kNonIndexe);
    const std::string debut = TexteHeure(ctx.horloge.Maintenant());

    // Each thread reads and counts its texts; the table takes them in list order.
    const unsigned fils = FilsEffectifs(ctx.fils);
    std::vector<ReleveurTextes> releveurs(fils, ReleveurTextes(ReglesReleve{p.NiveauLexical, true, false, nullptr}));
    long long N = 0, V = 0;
    CleMot dernier{};
    const std::size_t n = liste->noms.size();
    struct Arret {};
    try {
        TraiterDansLOrdre<ReleveTexte>(
            n, fils,
            [&](std::size_t i) {
                d.Progression(LibelleFichier(i + 1, n), static_cast<long long>(i + 1), static_cast<long long>(n));
            },
            [&](std::size_t i, unsigned o) { return releveurs[o].Relever(IndexTexte(liste->doss_racine, liste->noms[i])); },
            [&](std::size_t i, ReleveTexte& r) {
                V += static_cast<long long>(Verser(r, etat.casier));
                if (r.erreur) std::rethrow_exception(r.erreur);
                N += r.N;
                if (r.touche) dernier = r.dernier;
                if (etat.casier.Taille(dernier) > ARRET_LEXIQUE) {
                    d.Afficher(Joindre("Lexique arrêté au niveau de "_cp, liste->noms[i]));
                    throw Arret{};
                }
            });
    } catch (const Arret&) {
        // The texts after this one are not counted.
    }

    static constexpr std::string_view kPrefixes[] = {"FORMES_MIN_", "FORMES_TYP_", "LEMMES_", "NP"};
    EcrivainFichier sortie(Chemin(lexiques, Joindre(kPrefixes[p.NiveauLexical], horodate, ".txt")));
    EcrireParFrequence(etat.casier, sortie);
    sortie.Fermer();
    long long V2 = 0;
    if (p.NiveauLexical == 2) {
        // What EcrireParFrequence left unblanked holds "|": the ambiguous items, in bucket order.
        EcrivainFichier ambigus(Chemin(lexiques, Joindre("LEMMES_AMB", horodate, ".txt")));
        etat.casier.Parcourir([&](CleMot, std::size_t, CasierLexique::Entree& e) {
            if (e.item.empty()) return;
            ++V2;
            ambigus.Ligne(Joindre(e.item, "\t", Nombre(e.compte)));
        });
        ambigus.Fermer();
    }

    d.MasquerProgression();
    d.Resultat(Joindre("N = ", Nombre(N), " occurrences."));
    if (p.NiveauLexical == 0) d.Resultat(Joindre("V = ", Nombre(V), " formes."));
    if (p.NiveauLexical == 2) {
        // V counts every distinct item, the ambiguous ones among them, whatever the label says.
        d.Resultat(Joindre("V = ", Nombre(V), " lemmes non ambigus."));
        d.Resultat(Joindre("V2 = ", Nombre(V2), " lemmes ambigus."));
    }
    const std::string duree = TexteDuree(debut, ctx.horloge, Copie::Statistiques);
    d.Resultat(duree);
    EcrivainFichier memo(Chemin(lexiques, Joindre("MEMO_", horodate, ".txt")));
    if (p.NiveauLexical == 0 || p.NiveauLexical == 2) {
        memo.Ligne(Joindre("N = ", Nombre(N)));
        memo.Ligne(Joindre("V = ", Nombre(V)));
        if (p.NiveauLexical == 2) memo.Ligne(Joindre("V2 = ", Nombre(V2)));
    }
    memo.Fermer();
    d.Afficher(Joindre("Lexique établi en"_cp, "\r\n", duree));
}

// ---------------------------------------------------------------------------- Grand lexique

void GrandLexique(Contexte& ctx, const ParametresReleve& p, EtatReleves& etat) {
    Dialogue& d = ctx.dialogue;
    const auto postclitiques = ChargerPostclitiques(ctx.ressources);
    const auto liste = ChoisirListeTextes(d);
    if (!liste) return;
    const std::string horodate = Horodater(ctx.horloge);
    const fs::path lexiques = liste->doss_racine / "LEXIQUES";
    CreerDossier(lexiques);
    const fs::path travail = Chemin(lexiques, Joindre("TG_LEXIQUE_", horodate));
    CreerDossier(travail);
    if (!DossierExiste(liste->doss_racine / "OLBRIN_TT" / "LEXINDEX")) throw ErreurExecution(std::string(kNonIndexe));
    const std::string debut = TexteHeure(ctx.horloge.Maintenant());
    auto partiel = [&](std::size_t i) { return travail / (std::to_string(i) + ".txt"); };

    // Phase 1: the partial lexicon of each text, in bucket order. Levels 1 and 3 alike take the
    // form as written: there is no proper-noun filter here.
    const int niveau = p.NiveauLexical == 3 ? 1 : p.NiveauLexical;
    const std::size_t n = liste->noms.size();
    {
        EcrivainFichier controle(travail / "CONTROLE.txt");
        std::string ligne;
        const unsigned fils = FilsEffectifs(ctx.fils);
        std::vector<ReleveurTextes> releveurs(fils, ReleveurTextes(ReglesReleve{niveau, true, false, &postclitiques}));
        // Each text's partial lexicon is made apart from the table, which keeps only its class 0.
        etat.casier.Vider();
        TraiterDansLOrdre<ReleveTexte>(
            n, fils,
            [&](std::size_t i) {
                d.Progression(LibelleFichier(i + 1, n), static_cast<long long>(i + 1), static_cast<long long>(n));
            },
            [&](std::size_t i, unsigned o) {
                return releveurs[o].Relever(IndexTexte(liste->doss_racine, liste->noms[i]), i == 0 ? p.NiveauLexical : -1);
            },
            [&](std::size_t i, ReleveTexte& r) {
                if (i == 0) controle.Ecrire(r.controle);
                const auto entrees = VerserTexteSeul(r, etat.casier);
                if (r.erreur) std::rethrow_exception(r.erreur);
                EcrivainFichier sortie(partiel(i + 1));
                for (const auto* e : entrees) {
                    ligne.assign(e->item);
                    ligne += '\t';
                    AjouterNombre(ligne, e->compte);
                    sortie.Ligne(ligne);
                }
            });
    }

    // Phase 2: merge passes. A pass takes every line of a known item, and new items until one
    // bucket is full; the rest waits in the partial files for the next pass. An item thus lies
    // wholly in one pass.
    int passes = 0;
    std::string contenu, reste;
    for (int passe = 1;; ++passe) {
        etat.casier.Vider();
        bool sature = false;
        long long lignes = 0;
        for (std::size_t i = 1; i <= n; ++i) {
            const fs::path fichier = partiel(i);
            if (!FichierExiste(fichier)) continue;
            d.Progression(Joindre("Fusion. Passe "_cp, std::to_string(passe)), static_cast<long long>(i),
                          static_cast<long long>(n));
            LireFichier(fichier, contenu);
            reste.clear();
            LecteurLignes lecteur(contenu);
            std::string_view ligne;
            while (lecteur.Suivante(ligne)) {
                if (ligne.empty()) continue;
                ++lignes;
                const std::size_t tab = ligne.find('\t');
                const std::string_view item = ligne.substr(0, tab);
                const std::string_view champ2 = tab == std::string_view::npos ? std::string_view() : *Champ(ligne, 2);
                const long long compte = LireEntierOu(champ2, [&] {
                    return Joindre(TexteChemin(fichier), ", ligne "_cp, std::to_string(lecteur.Numero()));
                });
                const CleMot cle = CasierLexique::Cle(item);
                if (auto* e = etat.casier.Trouver(item, cle)) {
                    e->compte += compte;
                } else if (!sature) {
                    etat.casier.Nouvelle(item, cle, compte);
                } else {
                    reste.append(ligne);
                    reste += "\r\n";
                }
                if (etat.casier.Taille(cle) == SATURATION_GRAND_LEXIQUE) sature = true;
            }
            if (reste.empty()) fs::remove(fichier);
            else EcrireFichier(fichier, reste);
        }
        if (lignes == 0) break;
        EcrivainFichier total(travail / ("TOTAL_" + std::to_string(passe) + ".txt"));
        EcrireParFrequence(etat.casier, total);
        passes = passe;
    }

    // Phase 3: frequency bands of about 100,000 items, the most frequent first.
    long long N = 0, V = 0;
    std::vector<long long> frequences(static_cast<std::size_t>(MAX_RANG_FREQUENCE) + 1, 0);
    auto total = [&](int passe) { return travail / ("TOTAL_" + std::to_string(passe) + ".txt"); };
    for (int passe = 1; passe <= passes; ++passe) {
        LireFichier(total(passe), contenu);
        LecteurLignes lecteur(contenu);
        std::string_view ligne;
        while (lecteur.Suivante(ligne)) {
            const long long c =
                LireEntierOu(Champ(ligne, 2).value_or(std::string_view()), [&] { return TexteChemin(total(passe)); });
            ++V;
            N += c;
            if (c >= 1) ++frequences[static_cast<std::size_t>(std::min(c, MAX_RANG_FREQUENCE))];
        }
    }
    std::vector<long long> limites{1000000000LL};
    {
        EcrivainFichier synthese(travail / "SYNTHESE.txt");
        long long somme = 0;
        for (long long f = MAX_RANG_FREQUENCE; f >= 1; --f) {
            somme += frequences[static_cast<std::size_t>(f)];
            if (somme > TAILLE_BANDE) {
                if (static_cast<int>(limites.size()) > MAX_BANDES)
                    LimiteDepassee("MAX_BANDES", MAX_BANDES, "bandes de fréquence"_cp);
                limites.push_back(f);
                synthese.Ligne(Joindre(std::to_string(limites.size() - 1), "\t", std::to_string(f)));
                somme = 0;
            }
        }
    }
    const std::size_t bandes = limites.size() - 1;
    std::vector<std::string> texteBande(bandes + 1);
    if (passes >= 2) {
        for (int passe = 1; passe <= passes; ++passe) {
            LireFichier(total(passe), contenu);
            fs::remove(total(passe));
            LecteurLignes lecteur(contenu);
            std::string_view ligne;
            while (lecteur.Suivante(ligne)) {
                const long long c =
                    LireEntierOu(Champ(ligne, 2).value_or(std::string_view()), [&] { return TexteChemin(total(passe)); });
                // Band k holds limit(k) < c <= limit(k-1); what lies at or under the last limit,
                // the hapaxes among it, goes to no band.
                for (std::size_t k = 1; k <= bandes; ++k)
                    if (limites[k] < c && c <= limites[k - 1]) {
                        texteBande[k].append(ligne);
                        texteBande[k] += "\r\n";
                        break;
                    }
            }
        }
    } else if (passes == 1) {
        CopierFichier(total(1), travail / "DEFI_1.txt");
        fs::remove(total(1));
    }
    // With a single total that also made a band, DEFI_1 is overwritten by band 1, empty.
    for (std::size_t k = 1; k <= bandes; ++k) EcrireFichier(travail / ("DEFI_" + std::to_string(k) + ".txt"), texteBande[k]);
    {
        EcrivainFichier memo(travail / "MEMO.txt");
        memo.Ligne(Joindre("N = ", Nombre(N)));
        memo.Ligne(Joindre("V = ", Nombre(V)));
    }
    Terminer(ctx, debut);
}

// ----------------------------------------------------------------------- Lexiques_multiples

namespace {

constexpr std::size_t kMaxMilliers = 10;       // items of one count from 1,001 to 100,000
constexpr std::size_t kMaxCentaines = 1000;    // items of one count from 101 to 1,000
constexpr std::size_t kAlerteUnites = 200000;  // items of one count from 1 to 100

// Puts an item in slot n (from 1) of a row, reusing the slots that a restarted counter left.
void Placer(std::vector<std::string>& items, std::size_t n, const std::string& item) {
    if (items.size() < n) items.resize(n);
    items[n - 1] = item;
}

}  // namespace

void LexiquesMultiples(Contexte& ctx, const ParametresReleve& p, EtatReleves& etat) {
    Dialogue& d = ctx.dialogue;
    const auto liste = ChoisirListeTextes(d);
    if (!liste) return;
    const fs::path dossier = liste->doss_racine / "LEXIQUES_MULTIPLES";
    CreerDossier(dossier);
    if (!DossierExiste(liste->doss_racine / "OLBRIN_TT" / "LEXINDEX")) d.Afficher(kNonIndexe);
    const std::string debut = TexteHeure(ctx.horloge.Maintenant());
    static constexpr std::string_view kSuffixes[] = {"_FORMIN", "_FORMES_TYP", "_LEMMES", "_NP"};

    std::vector<EtatReleves::Rangee> centaines(kMaxCentaines + 1), unites(101);
    const std::size_t n = liste->noms.size();
    std::string ligne;
    const unsigned fils = FilsEffectifs(ctx.fils);
    // The blocks of the text's index are its partitions; their lines are counted alike.
    std::vector<ReleveurTextes> releveurs(fils, ReleveurTextes(ReglesReleve{p.NiveauLexical, false, true, nullptr}));
    etat.casier.Vider();
    auto annoncer = [&](std::size_t i) {
        d.Progression(LibelleFichier(i + 1, n), static_cast<long long>(i + 1), static_cast<long long>(n));
    };
    auto relever = [&](std::size_t i, unsigned o) {
        return releveurs[o].Relever(IndexTexte(liste->doss_racine, liste->noms[i]));
    };
    // Each text's file is written here, on the calling thread, in list order.
    TraiterDansLOrdre<ReleveTexte>(n, fils, annoncer, relever, [&](std::size_t i, ReleveTexte& releve) {
        const std::string& nom = liste->noms[i];
        for (auto& r : centaines) r.n = 0;
        for (auto& r : unites) r.n = 0;
        // Only the counters of counts up to 10,000 are cleared: an item of a higher count comes
        // again in the lexicons of the texts that follow.
        for (auto& [compte, rangee] : etat.milliers)
            if (compte <= 10000) rangee.n = 0;
        const auto entrees = VerserTexteSeul(releve, etat.casier);
        if (releve.erreur) std::rethrow_exception(releve.erreur);

        for (const auto* x : entrees) {
            const auto& e = *x;
            const long long c = e.compte;
            if (c > 100000) {
                // Never cleared, not even between texts.
                etat.chaineMultiples += e.item;
                etat.chaineMultiples += '\t';
                AjouterNombre(etat.chaineMultiples, c);
                etat.chaineMultiples += "\r\n";
            } else if (c > 1000) {
                auto& r = etat.milliers[c];
                if (++r.n > kMaxMilliers)
                    LimiteDepassee("MAX_ITEMS_PAR_COMPTE", kMaxMilliers,
                                   Joindre("items de fréquence "_cp, std::to_string(c), " dans un lexique de texte"_cp));
                Placer(r.items, r.n, e.item);
            } else if (c > 100) {
                auto& r = centaines[static_cast<std::size_t>(c)];
                if (++r.n > kMaxCentaines)
                    LimiteDepassee("MAX_ITEMS_PAR_COMPTE", kMaxCentaines,
                                   Joindre("items de fréquence "_cp, std::to_string(c), " dans un lexique de texte"_cp));
                Placer(r.items, r.n, e.item);
            } else if (c >= 1) {
                auto& r = unites[static_cast<std::size_t>(c)];
                if (++r.n == kAlerteUnites) {
                    // The counter restarts and this item is lost.
                    d.Afficher("+ de 200 000 hapax !");
                    r.n = 1;
                } else {
                    Placer(r.items, r.n, e.item);
                }
            }
        }

        EcrivainFichier sortie(Chemin(dossier, Joindre(nom, kSuffixes[p.NiveauLexical], ".txt")));
        sortie.Ecrire(etat.chaineMultiples);
        auto ecrire = [&](const EtatReleves::Rangee& r, long long c) {
            for (std::size_t k = 0; k < r.n; ++k) {
                ligne.assign(r.items[k]);
                ligne += '\t';
                AjouterNombre(ligne, c);
                sortie.Ligne(ligne);
            }
        };
        for (auto it = etat.milliers.rbegin(); it != etat.milliers.rend(); ++it) ecrire(it->second, it->first);
        for (long long c = 1000; c >= 101; --c) ecrire(centaines[static_cast<std::size_t>(c)], c);
        for (long long c = 100; c >= 1; --c) ecrire(unites[static_cast<std::size_t>(c)], c);
        sortie.Fermer();
    });
    Terminer(ctx, debut);
}

// ------------------------------------------------------------------------- Tri noms propres

int ClasseMajuscules(std::string_view item) {
    int lettres = 0, majuscules = 0;
    for (char ch : item) {
        const int c = Code(ch);
        if ((c >= 65 && c <= 90) || c == 140 || (c >= 192 && c <= 223)) {
            ++majuscules;
            ++lettres;
        } else if ((c >= 97 && c <= 122) || c == 156 || c >= 224) {
            ++lettres;
        }
    }
    if (lettres == majuscules) return 2;
    const int c0 = Code(item[0]);
    if ((c0 >= 65 && c0 <= 90) || c0 == 140 || (c0 >= 192 && c0 <= 223)) return 1;
    if (majuscules >= 2) return 3;
    return 0;
}

void TriNomsPropres(Contexte& ctx) {
    Dialogue& d = ctx.dialogue;
    const auto liste = ChoisirListeTextes(d);
    if (!liste) return;
    const fs::path lexiques = liste->doss_racine / "LEXIQUES";
    CreerDossier(lexiques);
    EcrivainFichier sortie(lexiques / "NOMS_PROPRES.txt");
    const auto fichier = d.ChoisirFichier("Lexique ?", FILTRE_TXT_STATS);
    if (!fichier || fichier->empty()) return;
    const std::string lexique = LireFichier(*fichier);
    LecteurLignes lecteur(lexique);
    std::string_view ligne;
    std::string variante;
    while (lecteur.Suivante(ligne)) {
        const std::string_view item = *Champ(ligne, 1);
        if (ClasseMajuscules(item) != 1) continue;
        variante.assign(item);
        variante[0] = static_cast<char>(Code(variante[0]) + 32);
        // The lexicon runs by descending frequency: the capitalised form is kept when it stands
        // before its lower-case variant, or when there is none.
        const std::size_t posVariante = lexique.find(variante);
        if (posVariante != std::string::npos && posVariante <= lexique.find(item)) continue;
        const auto compte = Champ(ligne, 2);
        if (!compte)
            throw ErreurExecution(Joindre("Ligne de lexique sans compte : « "_cp, ligne, " » ("_cp, TexteChemin(*fichier),
                                          ", ligne "_cp, std::to_string(lecteur.Numero()), ")"));
        sortie.Ligne(Joindre(item, "\t", *compte, "\t", std::to_string(item.size())));
    }
    sortie.Fermer();
    d.Afficher("Terminé "_cp);
}

// ------------------------------------------------------------------------------- Operations

void OperationLexique(Contexte& ctx) {
    if (const auto p = DemanderParametresReleve(ctx.dialogue, ModeReleve::Lex)) Lexique(ctx, *p, EtatStatistiques());
}

void OperationGrandLexique(Contexte& ctx) {
    if (const auto p = DemanderParametresReleve(ctx.dialogue, ModeReleve::TgLex))
        GrandLexique(ctx, *p, EtatStatistiques());
}

void OperationLexiquesMultiples(Contexte& ctx) {
    if (const auto p = DemanderParametresReleve(ctx.dialogue, ModeReleve::LexMu))
        LexiquesMultiples(ctx, *p, EtatStatistiques());
}

void OperationTriNomsPropres(Contexte& ctx) { TriNomsPropres(ctx); }

}  // namespace telvoris
