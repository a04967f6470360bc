#include "lexicon/integration.hpp"

#include <array>

#include "core/erreurs.hpp"
#include "core/horloge.hpp"
#include "core/texte.hpp"
#include "lexicon/arbre.hpp"
#include "lexicon/dictionnaire.hpp"
#include "lexicon/reprise_dico.hpp"

namespace telvoris {

namespace {

[[noreturn]] void Malforme(const fs::path& fichier, long long ligne, std::string_view attendu, std::string_view texte) {
    throw ErreurExecution(Joindre("Ligne mal formée dans "_cp, TexteChemin(fichier), ", ligne ", std::to_string(ligne),
                                  " : ", attendu, " attendu : "_cp, texte));
}

char Minuscule(char c) {
    const int x = Code(c);
    if ((x >= 65 && x <= 90) || (x >= 192 && x <= 223)) return static_cast<char>(x + 32);
    if (x == 140) return static_cast<char>(156);
    return c;
}

std::string Minuscules(std::string_view s) {
    std::string r(s);
    for (auto& c : r) c = Minuscule(c);
    return r;
}

// Tense pairs, the new letter first, and the letter of the merged tenses.
struct FusionTemps {
    char nouveau, existant, fusion;
};
constexpr std::array<FusionTemps, 22> kFusionsTemps = {{
    {'a', 'c', 'j'}, {'a', 'e', 'k'}, {'a', 'z', 'n'}, {'a', 'g', 't'}, {'a', 'r', 't'}, {'b', 'e', 'o'},
    {'c', 'a', 'j'}, {'c', 'z', 'q'}, {'c', 'n', 'q'}, {'e', 'a', 'k'}, {'e', 'z', 'l'}, {'e', 'k', 'l'},
    {'e', 'b', 'o'}, {'e', 'g', 'r'}, {'g', 'e', 'r'}, {'g', 'a', 't'}, {'g', 'k', 't'}, {'i', 'a', 'n'},
    {'i', 'e', 'l'}, {'i', 'k', 'l'}, {'i', 'c', 'q'}, {'i', 'j', 'q'},
}};

// What a reading of the same form but another category becomes.
enum class Effet { Aucun, RNouvelle, RSienne };
struct Rapprochement {
    std::string_view nouvelle, existante, remarque;
    Effet effet;
};
// Same lemma, categories differ.
constexpr std::array<Rapprochement, 14> kMemeLemme = {{
    {"J", "R", "2JR", Effet::Aucun},        {"J", "SM", "1JSM", Effet::RNouvelle},
    {"J", "SF", "0JSF", Effet::RNouvelle},  {"SM", "R", "2SMR", Effet::Aucun},
    {"SM", "J", "1SMJ", Effet::RSienne},    {"SM", "SF", "2SMSF", Effet::Aucun},
    {"SF", "R", "0SFR", Effet::Aucun},      {"SW", "R", "0SFR", Effet::Aucun},
    {"SF", "J", "0SFJ", Effet::RSienne},    {"SW", "J", "0SFJ", Effet::RSienne},
    {"SF", "SM", "2SFSM", Effet::Aucun},    {"SW", "SM", "2SFSM", Effet::Aucun},
    {"R", "SF", "0RSF", Effet::Aucun},      {"R", "J", "1RJ", Effet::RNouvelle},
}};
constexpr Rapprochement kRSM = {"R", "SM", "1RSM", Effet::RNouvelle};
// Lemmas differ: a remark only.
constexpr std::array<Rapprochement, 4> kAutreLemme = {{
    {"J", "SF", "0JSF", Effet::Aucun}, {"R", "SF", "0RSF", Effet::Aucun},
    {"SF", "J", "0SFJ", Effet::Aucun}, {"SF", "R", "0SFR", Effet::Aucun},
}};

const Rapprochement* Chercher(std::string_view n, std::string_view e, bool memeLemme) {
    if (memeLemme) {
        for (const auto& r : kMemeLemme)
            if (r.nouvelle == n && r.existante == e) return &r;
        if (kRSM.nouvelle == n && kRSM.existante == e) return &kRSM;
    } else {
        for (const auto& r : kAutreLemme)
            if (r.nouvelle == n && r.existante == e) return &r;
    }
    return nullptr;
}

bool EstChiffre(char c) { return c >= '0' && c <= '9'; }

std::string Lecture(std::string_view code, std::string_view categorie, std::string_view flexion) {
    std::string r = Joindre(code, ".", categorie);
    if (!flexion.empty()) r.append(":").append(flexion);
    return r;
}

std::string_view FormeDeLigne(std::string_view ligne) { return ligne.substr(0, ligne.find(',')); }


}  // namespace

std::string PlierForme(std::string_view forme) { return Minuscules(forme); }

std::string CodeLemme(std::string_view forme, std::string_view lemme) {
    if (forme == lemme) return {};
    for (std::size_t n = 0; n <= forme.size(); ++n) {
        const std::string_view debut = forme.substr(0, forme.size() - n);
        if (lemme.starts_with(debut)) return Joindre(std::to_string(n), lemme.substr(debut.size()));
    }
    return Joindre(std::to_string(forme.size()), lemme);
}

CodeTraduit TraduireCode(std::string_view code) {
    CodeTraduit t;
    if (code.starts_with('S')) {
        t.categorie.assign(code.substr(0, 2));
        if (code.size() > 2) t.flexion.assign(1, Minuscule(code.back()));
    } else if (code.starts_with("PS")) {
        t.categorie = "PS";
        t.flexion = Minuscules(code.size() >= 4 ? code.substr(code.size() - 2) : code.substr(2));
    } else if (code.starts_with('V') || code.starts_with('J') || code.starts_with('R')) {
        t.categorie.assign(code.substr(0, 1));
        std::string f(code.substr(1));
        if (code[0] == 'V' && !f.empty() && f.back() >= '1' && f.back() <= '8') {
            static constexpr char kLettres[] = "ABCDEGHI";
            f.back() = kLettres[f.back() - '1'];
        }
        // Either gender is "x" in a dictionary reading; the inflector writes it "W".
        if (code[0] != 'V' && !f.empty() && f[0] == 'W') f[0] = 'X';
        t.flexion = Minuscules(f);
    } else {
        t.categorie.assign(code);
    }
    return t;
}

std::string FusionnerFlexions(std::string_view cat, std::string_view n, std::string_view e) {
    if (cat == "SF" || cat == "SM" || cat == "SW") {
        if ((n == "s" && e == "p") || (n == "p" && e == "s")) return "x";
        return {};
    }
    if (cat == "J" || cat == "R") {
        if (n.size() != 2 || e.size() != 2) return {};
        if ((n[0] == 'm' && e[0] == 'f') || (n[0] == 'f' && e[0] == 'm')) return Joindre("x", e.substr(1, 1));
        if ((n[1] == 's' && e[1] == 'p') || (n[1] == 'p' && e[1] == 's')) return Joindre(e.substr(0, 1), "x");
        return {};
    }
    if (cat == "V") {
        if (n.size() >= 2 && e.size() >= 2 && EstChiffre(n[0]) && EstChiffre(e[0])) {
            char personne = e[0];
            if (n[0] != e[0]) {
                const char a = std::min(n[0], e[0]), b = std::max(n[0], e[0]);
                if (a == '1' && b == '2') personne = '7';
                else if (a == '1' && b == '3') personne = '8';
                else if (a == '2' && b == '3') personne = '9';
                else return {};
            }
            char temps = e.back();
            if (n.back() != e.back()) {
                temps = 0;
                for (const auto& f : kFusionsTemps)
                    if (f.nouveau == n.back() && f.existant == e.back()) temps = f.fusion;
                if (!temps) return {};
            }
            std::string r(e);
            r.front() = personne;
            r.back() = temps;
            return r;
        }
        const bool chiffreExistant = e.find_first_of("0123456789") != std::string_view::npos;
        if (n.find('y') != std::string_view::npos && !chiffreExistant) return Joindre(n, "+", e);
    }
    return {};
}

DictionnaireLignes::DictionnaireLignes() : casiers_(16 * 21) {}

std::size_t DictionnaireLignes::NombreLignes() const {
    std::size_t n = 0;
    for (const auto& c : casiers_) n += c.lignes.size();
    return n;
}

void DictionnaireLignes::AjouterLigne(Casier& c, std::string ligne, std::string_view source) {
    if (c.lignes.size() >= MAX_LIGNES_CASIER_INTEGRATION)
        LimiteDepassee("MAX_LIGNES_CASIER_INTEGRATION", MAX_LIGNES_CASIER_INTEGRATION, Joindre("lignes pour "_cp, source));
    c.parForme[std::string(FormeDeLigne(ligne))].push_back(static_cast<std::uint32_t>(c.lignes.size()));
    c.lignes.push_back(std::move(ligne));
}

void DictionnaireLignes::Charger(const fs::path& dossier) {
    std::string contenu;
    for (int l = 1; l <= MAX_CLASSE_LONGUEUR; ++l)
        for (int c = 1; c <= MAX_CLASSE_INITIALE; ++c) {
            const fs::path f = dossier / NomFichierCasier(l, c);
            Casier& casier = At(l, c);
            const std::string source = TexteChemin(f);
            PourChaqueLigneNonVide(f, contenu, [&](std::string_view ligne) { AjouterLigne(casier, std::string(ligne), source); });
        }
}

void DictionnaireLignes::Ecrire(const fs::path& dossier, bool tous, Dialogue* dialogue) const {
    CreerDossier(dossier);
    for (int l = 1; l <= MAX_CLASSE_LONGUEUR; ++l)
        for (int c = 1; c <= MAX_CLASSE_INITIALE; ++c) {
            if (dialogue)
                dialogue->Progression(LIBELLE_ECRITURE_DICO, (l - 1) * MAX_CLASSE_INITIALE + c,
                                      MAX_CLASSE_LONGUEUR * MAX_CLASSE_INITIALE);
            const Casier& casier = At(l, c);
            if (casier.lignes.empty() && !tous) continue;
            EcrivainFichier f(dossier / NomFichierCasier(l, c));
            for (const auto& ligne : casier.lignes) f.Ligne(ligne);
            f.Fermer();
        }
}

void DictionnaireLignes::Integrer(std::string_view proposition, std::string_view formeBrute, std::string_view lemme,
                                  std::string_view categorie, std::string_view flexion, EcrivainFichier* rapport) {
    ++compteurs_.propositions;
    const std::string forme = PlierForme(formeBrute);
    auto Rapport = [&](std::string_view a, std::string_view b) {
        if (rapport) rapport->Ligne(Joindre(a, "\t", b));
    };
    const CleMot cle = classe_mot(forme);
    if (cle.ClasseInitiale == 0 || forme.empty()) {
        Rapport(proposition, "FORME SANS FICHIER DANS LE DICTIONNAIRE");
        return;
    }
    const std::string code = CodeLemme(forme, lemme);
    const std::string entree = Joindre(forme, ",", Lecture(code, categorie, flexion));
    Casier& casier = At(cle.ClasseLongueur, cle.ClasseInitiale);
    const auto it = casier.parForme.find(forme);
    if (it != casier.parForme.end()) {
        for (const auto i : it->second)
            if (casier.lignes[i] == entree) {
                Rapport(proposition, "DEJA REPERTORIEE : IDENTIQUE");
                return;
            }
    }
    if (it == casier.parForme.end() || it->second.empty()) {
        AjouterLigne(casier, entree, "le dictionnaire"_cp);
        ++compteurs_.ajouts;
        ++compteurs_.interpretations;
        Rapport(proposition, "ENTREE TOTALEMENT ABSENTE");
        if (rapport)
            rapport->Ligne(Joindre(entree, "\t", std::to_string(cle.ClasseLongueur), "\t", std::to_string(cle.ClasseInitiale)));
        return;
    }
    std::string& ligne = casier.lignes[it->second.front()];
    const std::string droite = ligne.substr(std::min(ligne.size(), forme.size() + 1));
    std::vector<std::string> lectures;
    for (std::size_t debut = 0;;) {
        const auto barre = droite.find('/', debut);
        lectures.push_back(droite.substr(debut, barre == std::string::npos ? std::string::npos : barre - debut));
        if (barre == std::string::npos) break;
        debut = barre + 1;
    }
    if (lectures.size() > MAX_LECTURES)
        LimiteDepassee("MAX_LECTURES", MAX_LECTURES, Joindre("lectures pour la forme "_cp, forme));
    bool fusion = false, identique = false;
    for (auto& l : lectures) {
        const Interpretation e = CouperInterpretation(l);
        const std::string lemmeE = decoder_lemme(forme, e.lemme_code);
        if (lemmeE != lemme) {
            if (const auto* r = Chercher(categorie, e.categorie, false)) Rapport(proposition, Joindre(r->remarque, "\t", entree));
            continue;
        }
        if (e.categorie != categorie) {
            const auto* r = Chercher(categorie, e.categorie, true);
            if (!r) continue;
            Rapport(proposition, Joindre(r->remarque, "\t", entree));
            if (r->effet == Effet::Aucun || fusion) continue;
            l = Lecture(e.lemme_code, "R", r->effet == Effet::RNouvelle ? flexion : e.flexion);
            fusion = true;
            continue;
        }
        if (e.flexion == flexion) {
            identique = true;
            continue;
        }
        if (fusion) continue;
        const std::string m = FusionnerFlexions(categorie, flexion, e.flexion);
        if (m.empty()) continue;
        l = Lecture(e.lemme_code, e.categorie, m);
        fusion = true;
    }
    if (fusion) {
        std::string nouvelle = Joindre(forme, ",");
        for (std::size_t i = 0; i < lectures.size(); ++i) {
            if (i) nouvelle += '/';
            nouvelle += lectures[i];
        }
        ligne = std::move(nouvelle);
        return;
    }
    if (identique) {
        Rapport(proposition, "DEJA REPERTORIEE : INTERPRETATION EXISTANTE");
        return;
    }
    if (lectures.size() + 1 > MAX_LECTURES)
        LimiteDepassee("MAX_LECTURES", MAX_LECTURES, Joindre("lectures pour la forme "_cp, forme));
    ligne.append("/").append(Lecture(code, categorie, flexion));
    ++compteurs_.interpretations;
    Rapport(proposition, "DEJA REPERTORIEE : INTERPRETATION NOUVELLE");
}

void IntegrerPropositions(DictionnaireLignes& dico, const fs::path& fichier, EcrivainFichier* rapport) {
    const std::string contenu = LireFichier(fichier);
    LecteurLignes lecteur(contenu);
    std::string_view ligne;
    while (lecteur.Suivante(ligne)) {
        if (ligne.empty()) continue;
        const auto v1 = ligne.find(',');
        const auto v2 = v1 == std::string_view::npos ? v1 : ligne.find(',', v1 + 1);
        if (v2 == std::string_view::npos || v1 == 0 || v2 + 1 >= ligne.size())
            Malforme(fichier, lecteur.Numero(), "« forme,lemme,CODE »"_cp, ligne);
        const CodeTraduit t = TraduireCode(ligne.substr(v2 + 1));
        dico.Integrer(ligne, ligne.substr(0, v1), ligne.substr(v1 + 1, v2 - v1 - 1), t.categorie, t.flexion, rapport);
    }
}

void IntegrerLignesDictionnaire(DictionnaireLignes& dico, const fs::path& fichier, EcrivainFichier* rapport) {
    const std::string contenu = LireFichier(fichier);
    LecteurLignes lecteur(contenu);
    std::string_view ligne;
    while (lecteur.Suivante(ligne)) {
        if (ligne.empty()) continue;
        const auto v = ligne.find(',');
        if (v == std::string_view::npos || v == 0 || v + 1 >= ligne.size())
            Malforme(fichier, lecteur.Numero(), "« forme,lecture/lecture »"_cp, ligne);
        const std::string forme = PlierForme(ligne.substr(0, v));
        std::string_view droite = ligne.substr(v + 1);
        for (;;) {
            const auto barre = droite.find('/');
            const std::string_view l = droite.substr(0, barre);
            const Interpretation e = CouperInterpretation(l);
            if (!l.empty()) dico.Integrer(ligne, forme, decoder_lemme(forme, e.lemme_code), e.categorie, e.flexion, rapport);
            if (barre == std::string_view::npos) break;
            droite.remove_prefix(barre + 1);
        }
    }
}

fs::path SauvegarderDictionnaire(const fs::path& racine, std::string_view horodate) {
    const fs::path source = Chemin(racine, DOSSIER_DICO);
    const fs::path copie = Chemin(racine, Joindre(DOSSIER_DICO, "_", horodate));
    CreerDossier(copie);
    for (int l = 1; l <= MAX_CLASSE_LONGUEUR; ++l)
        for (int c = 1; c <= MAX_CLASSE_INITIALE; ++c) {
            const std::string nom = NomFichierCasier(l, c);
            if (!FichierExiste(source / nom))
                throw ErreurExecution(Joindre("Fichier introuvable : "_cp, TexteChemin(source / nom)));
            CopierFichier(source / nom, copie / nom);
        }
    return copie;
}

namespace {

std::string MessageFin(const std::string& debut, const Horloge& h, const CompteursIntegration& c) {
    return Joindre("Terminé en "_cp, TexteDuree(debut, h), " ", std::to_string(c.ajouts), " ajouts, avec ",
                   std::to_string(c.interpretations), " interprétations, à partir de "_cp,
                   std::to_string(c.propositions), " propositions");
}

fs::path Choisir(Dialogue& d, std::string_view titre) {
    const auto f = d.ChoisirFichier(titre, "Text files (*.TXT)|*.TXT");
    // Cancel opens an empty path: the run stops on the file error, the backup made and the
    // dictionary untouched.
    if (!f || f->empty()) throw ErreurExecution("Fichier introuvable : (aucun fichier choisi)");
    return *f;
}

// The integrations into dico/olbrin itself: backup first, then load, report, merge and write.
void IntegrerDansOlbrin(Contexte& ctx, std::string_view etape, std::string_view titre, bool lignesPretes) {
    const std::string debut = TexteHeure(ctx.horloge.Maintenant());
    const std::string horodate = Horodater(ctx.horloge);
    // A run cut short while writing left a dictionary half merged: it is put back first, so that
    // the proposals are not merged twice into some buckets.
    RepriseDictionnaire reprise(RepriseOlbrin(ctx.ressources), std::string(etape));
    if (const auto n = reprise.Retablir()) ctx.dialogue.Afficher(reprise.MessageReprise(*n));
    ctx.dialogue.Progression("Sauvegarde du dictionnaire"_cp, 0, 0);
    CreerDossier(Chemin(ctx.ressources, DOSSIER_ACCENTS));
    const fs::path sauvegarde = SauvegarderDictionnaire(ctx.ressources, horodate);
    ctx.dialogue.Progression("Chargement du dictionnaire"_cp, 0, 0);
    DictionnaireLignes dico;
    dico.Charger(Chemin(ctx.ressources, DOSSIER_DICO));
    EcrivainFichier rapport(Chemin(ctx.ressources, Joindre("dico/apports_remarques_", horodate, ".txt")));
    const fs::path fichier = Choisir(ctx.dialogue, titre);
    ctx.dialogue.Progression("Intégration des apports"_cp, 0, 0);
    if (lignesPretes) IntegrerLignesDictionnaire(dico, fichier, &rapport);
    else IntegrerPropositions(dico, fichier, &rapport);
    rapport.Fermer();
    reprise.Commencer({{Chemin(ctx.ressources, DOSSIER_DICO), sauvegarde}});
    dico.Ecrire(Chemin(ctx.ressources, DOSSIER_DICO), false, &ctx.dialogue);
    reprise.Terminer();
    ctx.dialogue.MasquerProgression();
    ctx.dialogue.Afficher(MessageFin(debut, ctx.horloge, dico.Compteurs()));
}

}  // namespace

void OperationIntegrationFormes(Contexte& ctx) {
    IntegrerDansOlbrin(ctx, "Intégration"_cp, "Localiser le fichier d'apports", false);
}

void OperationIntegrationLignes(Contexte& ctx) {
    IntegrerDansOlbrin(ctx, "Intégration de lignes"_cp, "Localiser le fichier de lignes de dictionnaire", true);
}

void OperationDictionnaireCorpus(Contexte& ctx) {
    const fs::path fichier = Choisir(ctx.dialogue, "Localiser le fichier d'apports");
    const std::string debut = TexteHeure(ctx.horloge.Maintenant());
    const fs::path dossier = fichier.parent_path() / "DICO_CORPUS";
    CreerDossier(dossier);
    DictionnaireLignes dico;
    EcrivainFichier rapport(Chemin(dossier, Joindre("apports_remarques_", Horodater(ctx.horloge), ".txt")));
    ctx.dialogue.Progression("Dictionnaire du corpus"_cp, 0, 0);
    IntegrerPropositions(dico, fichier, &rapport);
    rapport.Fermer();
    // Built anew from the proposals alone, and each file replaced whole: a rerun after an
    // interruption gives the same folder, with nothing to put back first.
    dico.Ecrire(dossier, true, &ctx.dialogue);
    ctx.dialogue.MasquerProgression();
    ctx.dialogue.Afficher(MessageFin(debut, ctx.horloge, dico.Compteurs()));
}

void OperationFusionDictionnaires(Contexte& ctx) {
    const std::string debut = TexteHeure(ctx.horloge.Maintenant());
    const std::string horodate = Horodater(ctx.horloge);
    ctx.dialogue.Progression("Chargement du dictionnaire"_cp, 0, 0);
    DictionnaireLignes dico;
    dico.Charger(Chemin(ctx.ressources, DOSSIER_DICO));
    EcrivainFichier rapport(Chemin(ctx.ressources, Joindre("dico/apports_remarques_", horodate, ".txt")));
    const fs::path second = Chemin(ctx.ressources, "dico/olbrin_2");
    ctx.dialogue.Progression("Fusion des dictionnaires"_cp, 0, 0);
    for (int l = 1; l <= MAX_CLASSE_LONGUEUR; ++l)
        for (int c = 1; c <= MAX_CLASSE_INITIALE; ++c) {
            ctx.dialogue.Progression("Fusion des dictionnaires"_cp, (l - 1) * 20 + c, 300);
            IntegrerLignesDictionnaire(dico, second / NomFichierCasier(l, c), &rapport);
        }
    rapport.Fermer();
    // dico/olbrin and dico/olbrin_2 are only read: a rerun after an interruption gives the same
    // olbrin_fus.
    dico.Ecrire(Chemin(ctx.ressources, "dico/olbrin_fus"), true, &ctx.dialogue);
    ctx.dialogue.MasquerProgression();
    ctx.dialogue.Afficher(MessageFin(debut, ctx.horloge, dico.Compteurs()));
}

}  // namespace telvoris
