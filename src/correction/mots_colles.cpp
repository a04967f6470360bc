#include "correction/mots_colles.hpp"

#include "core/erreurs.hpp"
#include "core/fichiers.hpp"
#include "core/horloge.hpp"
#include "core/reprise.hpp"
#include "core/jetons.hpp"
#include "core/texte.hpp"
#include "correction/correction_auto.hpp"

namespace telvoris {

namespace {

constexpr std::string_view kSeparateurPartitions = "<---------->";
// A word above this length with no cut is reported as a failure.
constexpr std::size_t LONGUEUR_ECHEC = 6;
constexpr long long SCORE_ELISION = 1000;
constexpr long long SCORE_DOUBLE = 1000000;

bool EstVoyelle(char c) {
    static constexpr std::string_view kVoyelles = "aeiouyhéêôî"_cp;
    return kVoyelles.find(c) != std::string_view::npos;
}

// The start of the longest plain proper suffix of `mot`, or 0 when there is none.
std::size_t PlusLongSuffixeSimple(std::string_view mot, const TableFormes& connus) {
    for (std::size_t s = 1; s < mot.size(); ++s)
        if (EstSimple(connus, mot.substr(s))) return s;
    return 0;
}

}  // namespace

void ChargerListesMotsColles(ListesMotsColles& l, const fs::path& racine) {
    ChoixConnus choix;
    choix.etrangers = choix.composants = choix.abreviations = choix.romains = true;
    choix.rescor = choix.accents = true;
    ChargerConnus(l.connus, racine, choix);
    l.frequences = FormesFrequences();
    l.frequences.Charger(racine, 1);
    l.elides = ListeUtilitaire(racine, "elide.txt", "MAX_ELIDES", MAX_ELIDES);
}

bool EstSimple(const TableFormes& connus, std::string_view forme) {
    const auto e = connus.Chercher(forme);
    if (!e) return false;
    switch (e->origine) {
        case Origine::COR:
        case Origine::ROM:
        case Origine::ETR:
        case Origine::CORACC:
            return false;
        default:
            return true;
    }
}

std::string CouperMot(std::string_view mot, const ListesMotsColles& l, long long& score) {
    score = 0;
    std::string resultat;
    const std::size_t apo = mot.find('\'');
    if (apo != std::string_view::npos) {
        if (mot.find("rd'h") == std::string_view::npos) {
            for (const std::string& e : l.elides) {
                if (e.size() >= apo + 1) continue;  // the elided word must be shorter than the place of "'"
                if (mot.substr(apo - e.size(), e.size()) != e) continue;
                const std::string_view reste = mot.substr(apo + 1);
                if ((reste.size() > 1 && EstVoyelle(reste[0])) || reste == "y" || reste == "a") {
                    resultat = Joindre(mot.substr(0, apo - e.size()), " ", e, "' ", reste, "\tELIDE");
                    score = SCORE_ELISION;
                    break;
                }
            }
        }
        return resultat;
    }
    if (mot.size() < 2) return resultat;
    for (std::size_t k = mot.size() - 1; k >= 1; --k) {
        const std::string_view g = mot.substr(0, k), d = mot.substr(k);
        if (EstSimple(l.connus, g) && EstSimple(l.connus, d)) {
            if (g == d) {
                resultat = Joindre(g, " ", d, "\t", std::to_string(SCORE_DOUBLE));
                score = SCORE_DOUBLE;
            } else {
                const long long produit = l.frequences.Frequence(g).value_or(1) * l.frequences.Frequence(d).value_or(1);
                if (produit > score) {
                    resultat = Joindre(g, " ", d, "\t", std::to_string(produit));
                    score = produit;
                }
            }
        }
    }
    // Several words, cut from the end by the longest plain suffix each time.
    const std::size_t c1 = PlusLongSuffixeSimple(mot, l.connus);
    if (c1 == 0) return resultat;
    const std::string_view r1 = mot.substr(0, c1);
    const std::size_t c2 = PlusLongSuffixeSimple(r1, l.connus);
    if (c2 == 0) return resultat;
    const std::string_view r2 = r1.substr(0, c2);
    if (EstSimple(l.connus, r2))
        return Joindre(r2, " ", r1.substr(c2), " ", mot.substr(c1), "\tMULTI");
    const std::size_t c3 = PlusLongSuffixeSimple(r2, l.connus);
    if (c3 == 0) return resultat;
    const std::string_view r3 = r2.substr(0, c3);
    if (EstSimple(l.connus, r3))
        return Joindre(r3, " ", r2.substr(c3), " ", r1.substr(c2), " ", mot.substr(c1), "\tMULTI");
    return resultat;
}

BilanMotsColles RechercherMotsColles(const ListeTextes& liste, const ListesMotsColles& l, Dialogue& dialogue) {
    EcrivainFichier sortie(liste.doss_racine / "MOTS_COUPES.txt");
    std::unordered_set<std::string> vus;
    BilanMotsColles b;
    std::string contenu, mot;
    const long long m = static_cast<long long>(liste.noms.size());
    for (long long n = 1; n <= m; ++n) {
        const std::string& nom = liste.noms[static_cast<std::size_t>(n - 1)];
        if (nom.empty()) continue;
        dialogue.Progression("Mots collés"_cp, n, m);
        LireFichier(Chemin(liste.doss_racine, Joindre("OLBRIN_TT/LEXINDEX/", nom, ".txt")), contenu);
        for (std::string_view morceau : Decouper(contenu, kSeparateurPartitions)) {
            LecteurLignes lecteur(morceau);
            std::string_view ligne;
            while (lecteur.Suivante(ligne)) {
                if (ligne.empty()) continue;
                const std::string_view balise = ligne.substr(0, ligne.find('>') == std::string_view::npos
                                                                    ? ligne.size()
                                                                    : ligne.find('>') + 1);
                const std::string_view f = LireAttributsVue(balise).f;
                if (f.find('@') != std::string_view::npos || f.find("http") != std::string_view::npos) continue;
                if (f.size() < 4) continue;
                const unsigned char premier = Code(f[0]);
                if (!((premier >= 97 && premier <= 122) || premier >= 224)) continue;
                Minusculiser(f, mot);
                if (l.connus.Contient(mot) || vus.count(mot)) continue;
                ++b.inconnus;
                long long score = 0;
                const std::string resultat = CouperMot(mot, l, score);
                vus.emplace(f);
                if (score == 0 && resultat.empty()) {
                    if (mot.size() > LONGUEUR_ECHEC) sortie.Ligne(Joindre(f, "\tECHEC"));
                } else {
                    sortie.Ligne(Joindre(f, "\t", resultat));
                    ++b.corrections;
                }
            }
        }
    }
    return b;
}

void OperationMotsColles(Contexte& ctx) {
    Dialogue& d = ctx.dialogue;
    const std::string debut = TexteHeure(ctx.horloge.Maintenant());
    d.Progression("Chargement des dictionnaires"_cp, 0, 0);
    const auto liste = ChoisirListeTextes(d);
    if (!liste) return;
    const fs::path tt = liste->doss_racine / "OLBRIN_TT";
    if (!DossierExiste(tt))
        throw FinProgramme(Joindre("Il n'existe pas de dossier pour cette étape : "_cp, TexteChemin(tt)));
    ExigerIndexationComplete(tt);
    ListesMotsColles l;
    ChargerListesMotsColles(l, ctx.ressources);
    const BilanMotsColles b = RechercherMotsColles(*liste, l, d);
    d.MasquerProgression();
    d.Afficher(Joindre(std::to_string(b.corrections), " corrections sur ", std::to_string(b.inconnus),
                       " inconnus. Terminé en "_cp, TexteDuree(debut, ctx.horloge)));
}

// ---------------------------------------------------------------- character repairs

std::string ReparerLigne(std::string_view ligne) {
    if (ligne.substr(0, 5) == "<QORX") return std::string(ligne);
    LigneJetons lj;
    DecouperLigne(ligne, lj);
    std::string s(lj.suite[0]);
    for (int i = 1; i <= lj.NbJetons; ++i) {
        const std::string_view jeton = lj.jeton[i];
        const std::string_view f = jeton.substr(0, 3) == "<M " ? LireAttributsVue(jeton).f : std::string_view{};
        const auto ligature = [&](char code, std::string_view par) -> bool {
            const std::size_t p = f.find(code);
            if (p == std::string_view::npos) return false;
            s.append(Joindre("<M f=", f.substr(0, p), par, f.substr(p + 1), " >"));
            return true;
        };
        const std::size_t apo = f.find('\'');
        if (f.empty()) {
            s.append(jeton);
        } else if (ligature(static_cast<char>(156), "oe") || ligature(static_cast<char>(140), "OE") ||
                   ligature(static_cast<char>(247), "oe")) {
        } else if (f.size() > 2 && f.find("''") != std::string_view::npos) {
            const std::size_t p = f.find("''");
            s.append(Joindre("<M f=", f.substr(0, p), "' ><M f=", f.substr(p + 2), " >"));
        } else if (f.size() > 2 && apo == f.size() - 2) {
            s.append(Joindre("<M f=", f.substr(0, f.size() - 2), " ><P f=' ><P f=", f.substr(f.size() - 1), " >"));
        } else if (f.size() > 2 && apo == f.size() - 3) {
            s.append(Joindre("<M f=", f.substr(0, f.size() - 3), " ><P f=' ><P f=", f.substr(f.size() - 2, 1),
                             " ><P f=", f.substr(f.size() - 1), " >"));
        } else if (const std::size_t barre = f.find('/'); barre != std::string_view::npos) {
            s.append(Joindre("<M f=", f.substr(0, barre), " ><P f=/ ><P f=", f.substr(barre + 1), " >"));
        } else {
            s.append(jeton);
        }
        s.append(lj.suite[i]);
    }
    return s;
}

void ReparerTextes(const ListeTextes& liste, Dialogue& dialogue) {
    const fs::path tt = liste.doss_racine / "OLBRIN_TT";
    const fs::path nouveau = liste.doss_racine / "OLBRIN_TT_NEW";
    CreerDossier(nouveau);
    EcrivainFichier controle(liste.doss_racine / "CONTROLE.txt");
    std::string contenu;
    const long long m = static_cast<long long>(liste.noms.size());
    for (long long n = 1; n <= m; ++n) {
        if (n % 10 == 0) controle.Ligne(Joindre(std::to_string(n), "/", std::to_string(m)));
        const std::string& nom = liste.noms[static_cast<std::size_t>(n - 1)];
        if (nom.empty()) continue;
        dialogue.Progression("Mots collés"_cp, n, m);
        const std::string fichier = Joindre(nom, ".txt");
        LireFichier(Chemin(tt, fichier), contenu);
        EcrivainFichier sortie(Chemin(nouveau, fichier));
        LecteurLignes lecteur(contenu);
        std::string_view ligne;
        while (lecteur.Suivante(ligne)) sortie.Ligne(ReparerLigne(ligne));
    }
}

void OperationReparationsSignes(Contexte& ctx) {
    Dialogue& d = ctx.dialogue;
    const std::string debut = TexteHeure(ctx.horloge.Maintenant());
    const auto liste = ChoisirListeTextes(d);
    if (!liste) return;
    if (!DossierExiste(liste->doss_racine / "OLBRIN_TT"))
        throw FinProgramme(std::string("Ressources non constituées. Vérifiez"_cp));
    ExigerTextesComplets(liste->doss_racine / "OLBRIN_TT");
    ReparerTextes(*liste, d);
    d.MasquerProgression();
    d.Afficher(Joindre("Terminé en "_cp, TexteDuree(debut, ctx.horloge)));
}

}  // namespace telvoris
