#include "lexicon/dico_composes.hpp"

#include <unordered_set>

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

constexpr std::string_view DOSSIER_COMP = "dico/comp";
constexpr std::string_view FILTRE_TXT = "Text files (*.TXT)|*.TXT";

[[noreturn]] void Malforme(const fs::path& fichier, long long ligne, std::string_view quoi, std::string_view texte) {
    throw ErreurExecution(Joindre("Ligne mal formée dans "_cp, TexteChemin(fichier), ", ligne ", std::to_string(ligne),
                                  " : ", quoi, " : ", texte));
}

std::vector<std::string_view> Mots(std::string_view cle) {
    std::vector<std::string_view> r;
    for (;;) {
        const auto b = cle.find(' ');
        r.push_back(cle.substr(0, b));
        if (b == std::string_view::npos) break;
        cle.remove_prefix(b + 1);
    }
    return r;
}

int NombreMots(std::string_view ligne) {
    return static_cast<int>(Mots(ligne.substr(0, ligne.find(','))).size());
}

std::string_view AvantTab(std::string_view ligne) { return ligne.substr(0, ligne.find('\t')); }

std::string Lire(const fs::path& f) { return FichierExiste(f) ? LireFichier(f) : std::string(); }

// The words that are not forms of the general dictionary, by bucket, in order of arrival.
class TableComposants {
public:
    TableComposants() : casiers_(16 * 21) {}
    void Ajouter(const std::string& mot) {
        const CleMot k = classe_mot(mot);
        auto& c = casiers_[static_cast<std::size_t>(k.ClasseInitiale * 16 + k.ClasseLongueur)];
        if (c.vus.count(mot)) return;
        if (c.mots.size() >= MAX_COMPOSANTS_CASIER)
            LimiteDepassee("MAX_COMPOSANTS_CASIER", MAX_COMPOSANTS_CASIER, "composants"_cp);
        c.vus.insert(mot);
        c.mots.push_back(mot);
    }
    void Ecrire(const fs::path& fichier) const {
        EcrivainFichier f(fichier);
        for (int l = 1; l <= MAX_CLASSE_LONGUEUR; ++l)
            for (int c = 1; c <= MAX_CLASSE_INITIALE; ++c)
                for (const auto& m : casiers_[static_cast<std::size_t>(c * 16 + l)].mots) f.Ligne(m);
        f.Fermer();
    }

private:
    struct Casier {
        std::vector<std::string> mots;
        std::unordered_set<std::string> vus;
    };
    std::vector<Casier> casiers_;
};

std::string_view DossierClasse(int classe) { return classe == CLASSE_AMB ? DOSSIER_COMPOSES_AMB : DOSSIER_COMPOSES_NAMB; }

}  // namespace

// ---------------------------------------------------------------- validation session

SessionComposes::SessionComposes(const fs::path& racine, const fs::path& liste) : dossier_(Chemin(racine, DOSSIER_COMP)) {
    const std::string contenu = LireFichier(liste);
    LecteurLignes lecteur(contenu);
    std::string_view ligne;
    while (candidats_.size() < MAX_CANDIDATS_COMPOSES && lecteur.Suivante(ligne))
        if (!ligne.empty()) candidats_.emplace_back(AvantTab(ligne));
}

bool SessionComposes::AjoutsExistent() const { return FichierExiste(dossier_ / "AJOUTS.txt"); }

void SessionComposes::Demarrer(bool reprendre) {
    tampon_.clear();
    confirmationDue_ = false;
    dernierRefus_ = false;
    if (reprendre) {
        const fs::path etat = dossier_ / "AJOUTS_ETAT.txt";
        const std::string texte = LireFichier(etat);
        int rang = 0;
        std::size_t i = 0;
        while (i < texte.size() && texte[i] == ' ') ++i;
        const std::size_t debut = i;
        while (i < texte.size() && texte[i] >= '0' && texte[i] <= '9' && i - debut < 9) rang = rang * 10 + (texte[i++] - '0');
        if (i == debut) Malforme(etat, 1, "rang attendu", texte.substr(0, 40));
        rang_ = rang + 1;
        return;
    }
    CreerDossier(dossier_);
    for (const char* nom : {"AJOUTS.txt", "AJOUTS_ETAT.txt", "ANTIDICO.txt"}) EcrireFichier(dossier_ / nom, "");
    rang_ = 1;
}

const std::string& SessionComposes::Candidat() const {
    static const std::string vide;
    return rang_ >= 1 && rang_ <= Total() ? candidats_[static_cast<std::size_t>(rang_ - 1)] : vide;
}

std::string SessionComposes::Etat() const {
    return Joindre("cas n°"_cp, std::to_string(rang_), " sur ", std::to_string(Total()));
}

void SessionComposes::Choisir(int option, std::string_view divers) {
    static constexpr std::array<std::string_view, 7> kSuffixes = {",SF:s", ",SF:p", ",SM:s", ",SM:p", ",N", ",A", ",M"};
    dernierRefus_ = false;
    if (option >= 0 && option < 7) {
        tampon_.append(Candidat()).append(kSuffixes[static_cast<std::size_t>(option)]).append("\t2\r\n");
    } else if (option == OPTION_DIVERS) {
        tampon_.append(Candidat()).append(",").append(divers).append("\t2\r\n");
    } else {
        dernierRefus_ = true;
        refus_ = Candidat();
    }
    Avancer();
}

bool SessionComposes::Valider(OptionFlexion option, const std::vector<std::string>& f) {
    if (option == OptionFlexion::Aucune) return false;
    dernierRefus_ = false;
    auto L = [&](std::string_view forme, std::string_view lemme, std::string_view cat, std::string_view flex) {
        tampon_.append(forme).append(",").append(lemme).append(".").append(cat).append(":").append(flex).append("\t2\r\n");
    };
    const std::size_t n = f.size();
    if (n > 0) {
        if (option == OptionFlexion::SM || option == OptionFlexion::SF) {
            const std::string_view cat = option == OptionFlexion::SM ? "SM" : "SF";
            if (n == 1) {
                L(f[0], "", cat, "x");
            } else {
                L(f[0], "", cat, "s");
                L(f[1], f[0], cat, "p");
            }
        } else {
            const std::string_view cat = option == OptionFlexion::J ? "J" : "R";
            if (n == 1) {
                L(f[0], "", cat, "x");
            } else if (n == 2) {
                L(f[0], "", cat, "xs");
                L(f[1], f[0], cat, "xp");
            } else {
                L(f[0], "", cat, "ms");
                L(f[1], f[0], cat, "mp");
                L(f[2], f[0], cat, "fs");
                if (n > 3) L(f[3], f[0], cat, "fp");
            }
        }
    }
    Avancer();
    return true;
}

void SessionComposes::Avancer() {
    ++rang_;
    confirmationDue_ = rang_ % CAS_PAR_CONFIRMATION == 0 || rang_ > Total();
}

void SessionComposes::Confirmer(std::string_view reponse, std::string_view tamponCorrige) {
    confirmationDue_ = false;
    if (reponse != "OUI") {
        rang_ = std::max(1, rang_ - CAS_PAR_CONFIRMATION);
        return;
    }
    EcrireFichier(dossier_ / "AJOUTS.txt", Joindre(Lire(dossier_ / "AJOUTS.txt"), tamponCorrige));
    EcrireFichier(dossier_ / "AJOUTS_ETAT.txt", Joindre(std::to_string(rang_), "\r\n"));
    if (dernierRefus_)
        EcrireFichier(dossier_ / "ANTIDICO.txt", Joindre(Lire(dossier_ / "ANTIDICO.txt"), "\r\n", refus_));
    tampon_.clear();
}

// ---------------------------------------------------------------- the table of compound lines

std::string NormaliserLemmeCompose(std::string_view ligne) {
    const auto v = ligne.rfind(',');
    const auto p = ligne.rfind('.');
    if (v == std::string_view::npos || p == std::string_view::npos || p < v) return std::string(ligne);
    std::string r(ligne.substr(0, v + 1));
    bool premier = true;
    for (const auto m : Mots(ligne.substr(v + 1, p - v - 1))) {
        if (!premier) r += '_';
        r.append(m);
        premier = false;
    }
    r.append(ligne.substr(p));
    return r;
}

TableCellulesComposes::TableCellulesComposes() : cellules_(3 * 9 * 21) {}

std::vector<std::string>& TableCellulesComposes::Cellule(int classe, int mots, int initiale) {
    return cellules_[static_cast<std::size_t>((classe * 9 + mots) * 21 + initiale)];
}
const std::vector<std::string>& TableCellulesComposes::Cellule(int classe, int mots, int initiale) const {
    return cellules_[static_cast<std::size_t>((classe * 9 + mots) * 21 + initiale)];
}

void TableCellulesComposes::Ajouter(int classe, int mots, int initiale, std::string ligne, std::string_view source) {
    auto& c = Cellule(classe, mots, initiale);
    if (c.size() >= MAX_LIGNES_CELLULE_COMPOSES)
        LimiteDepassee("MAX_LIGNES_CELLULE_COMPOSES", MAX_LIGNES_CELLULE_COMPOSES, Joindre("lignes dans "_cp, source));
    c.push_back(std::move(ligne));
}

bool TableCellulesComposes::Inserer(std::string_view proposition, const fs::path& fichier, long long numero, int& classe) {
    const std::string norm = NormaliserLemmeCompose(proposition);
    const auto tab = norm.find('\t');
    if (tab == std::string::npos) Malforme(fichier, numero, "« clé,lecture<TAB>classe » attendu"_cp, proposition);
    const std::string ligne = norm.substr(0, tab);
    const std::string_view num = std::string_view(norm).substr(tab + 1);
    if (num != "1" && num != "2") Malforme(fichier, numero, "classe 1 (amb) ou 2 (namb) attendue"_cp, proposition);
    classe = num[0] - '0';
    if (ligne.find(',') == std::string::npos) Malforme(fichier, numero, "virgule attendue après la clé"_cp, proposition);
    const int w = NombreMots(ligne);
    if (w > MAX_MOTS_CLE)
        LimiteDepassee("MAX_MOTS_CLE", MAX_MOTS_CLE, Joindre("mots dans la clé ("_cp, TexteChemin(fichier), ", ligne ",
                                                           std::to_string(numero), ")"));
    if (w < MIN_MOTS_COMPOSE) Malforme(fichier, numero, "deux mots au moins attendus dans la clé"_cp, proposition);
    const int c = classe_mot(ligne).ClasseInitiale;
    if (c == 0) Malforme(fichier, numero, "initiale sans fichier de composés"_cp, proposition);
    for (int k : {CLASSE_AMB, CLASSE_NAMB})
        for (const auto& e : Cellule(k, w, c))
            if (e == ligne) return false;
    auto& cellule = Cellule(classe, w, c);
    if (cellule.size() >= MAX_LIGNES_CELLULE_COMPOSES)
        LimiteDepassee("MAX_LIGNES_CELLULE_COMPOSES", MAX_LIGNES_CELLULE_COMPOSES, Joindre("lignes pour "_cp, TexteChemin(fichier)));
    // The new line goes in front of the first entry that compares as less than it.
    auto it = cellule.begin();
    while (it != cellule.end() && !(*it < ligne)) ++it;
    cellule.insert(it, ligne);
    ++apports[classe];
    return true;
}

namespace {

void AvancerEcriture(Dialogue& d, int w, int c) {
    d.Progression(LIBELLE_ECRITURE_DICO, (w - MIN_MOTS_COMPOSE) * MAX_CLASSE_INITIALE + c,
                  (MAX_MOTS_COMPOSE - MIN_MOTS_COMPOSE + 1) * MAX_CLASSE_INITIALE);
}

// Reads the amb and namb files (W 2 to 8, a to t) into the table; `svg` receives a copy of
// each line read when given.
void ChargerCellules(TableCellulesComposes& t, const fs::path& racine, bool copieSvg) {
    std::string contenu;
    for (int w = MIN_MOTS_COMPOSE; w <= MAX_MOTS_COMPOSE; ++w)
        for (int c = 1; c <= MAX_CLASSE_INITIALE; ++c)
            for (int classe : {CLASSE_NAMB, CLASSE_AMB}) {
                const fs::path f = FichierCasier(racine, DossierClasse(classe), w, c);
                LireFichier(f, contenu);
                std::optional<EcrivainFichier> svg;
                if (copieSvg)
                    svg.emplace(Chemin(racine, Joindre("dico/comp/svg/", classe == CLASSE_AMB ? "amb/" : "namb/",
                                                       NomFichierCasier(w, c))));
                const std::string source = TexteChemin(f);
                LecteurLignes lecteur(contenu);
                std::string_view ligne;
                while (lecteur.Suivante(ligne)) {
                    if (ligne.empty()) continue;
                    if (svg) svg->Ligne(ligne);
                    t.Ajouter(classe, w, c, NormaliserLemmeCompose(AvantTab(ligne)), source);
                }
            }
}

void InsererPropositions(TableCellulesComposes& t, const fs::path& fichier) {
    const std::string contenu = LireFichier(fichier);
    LecteurLignes lecteur(contenu);
    std::string_view ligne;
    int classe = 0;
    while (lecteur.Suivante(ligne))
        if (!ligne.empty()) t.Inserer(ligne, fichier, lecteur.Numero(), classe);
}

void ComposantsDesCles(const TableCellulesComposes& t, const TableFormes& formes, TableComposants& composants, bool plier) {
    for (int w = MIN_MOTS_COMPOSE; w <= MAX_MOTS_COMPOSE; ++w)
        for (int c = 1; c <= MAX_CLASSE_INITIALE; ++c)
            for (int classe : {CLASSE_AMB, CLASSE_NAMB})
                for (const auto& ligne : t.Cellule(classe, w, c))
                    for (const auto mot : Mots(std::string_view(ligne).substr(0, ligne.find(',')))) {
                        const std::string m = plier ? PlierForme(mot) : std::string(mot);
                        if (!m.empty() && !formes.Contient(m)) composants.Ajouter(m);
                    }
}

long long TotalClasse(const TableCellulesComposes& t, int classe) {
    long long n = 0;
    for (int w = 1; w <= MAX_MOTS_CLE; ++w)
        for (int c = 0; c <= MAX_CLASSE_INITIALE; ++c) n += static_cast<long long>(t.Cellule(classe, w, c).size());
    return n;
}

}  // namespace

// ---------------------------------------------------------------- operations

void OperationIdentificationComposes(Contexte& ctx) {
    Dialogue& d = ctx.dialogue;
    const auto liste = d.ChoisirFichier("Localiser la liste", FILTRE_TXT);
    if (!liste) return;
    SessionComposes s(ctx.ressources, *liste);
    bool reprendre = false;
    if (s.AjoutsExistent()) {
        const auto r = d.Demander("Vous avez déjà un fichier d'ajouts. Voulez-vous reprendre ce fichier (O/N) ?"_cp,
                                  "idcomp", "O");
        reprendre = r && *r == "O";
    }
    s.Demarrer(reprendre);
    for (;;) {
        if (s.Termine()) {
            d.Afficher("Session terminée"_cp);
            return;
        }
        d.Resultat(Joindre(s.Etat(), " : ", s.Candidat()));
        const auto choix = d.Demander(
            "Choix : 1 SFS, 2 SFP, 3 SMS, 4 SMP, 5 N PROPRE, 6 ADVERBE, 7 EXPRESS, 8 DIVERS, 9 PASSER ; "
            "V pour saisir les formes fléchies (VALIDER) ; Q pour arrêter"_cp,
            "FLEXION COMPOSES", "Q");
        if (!choix || *choix == "Q" || *choix == "q") {
            d.Afficher(Joindre("Session arrêtée au "_cp, s.Etat(), ". Les cas non confirmés seront repris."_cp));
            return;
        }
        if (choix->size() == 1 && (*choix)[0] >= '1' && (*choix)[0] <= '9') {
            const int option = (*choix)[0] - '1';
            std::string divers;
            if (option == OPTION_DIVERS) {
                const auto cat = d.Demander("Catégorie ?"_cp, "DIVERS", "");
                if (!cat) continue;
                divers = *cat;
            }
            s.Choisir(option, divers);
        } else if (*choix == "V" || *choix == "v") {
            const auto opt = d.Demander("Option (SM, SF, R ou J) ?", "VALIDER", "");
            OptionFlexion o = OptionFlexion::Aucune;
            if (opt == "SM") o = OptionFlexion::SM;
            else if (opt == "SF") o = OptionFlexion::SF;
            else if (opt == "R") o = OptionFlexion::R;
            else if (opt == "J") o = OptionFlexion::J;
            if (o == OptionFlexion::Aucune) {
                d.Afficher("Vous devez valider une option");
                continue;
            }
            const auto texte = d.Demander("Formes fléchies, dans l'ordre, séparées par « ; » ?"_cp, "VALIDER", "");
            std::vector<std::string> formes;
            if (texte) {
                std::string_view t = *texte;
                for (;;) {
                    const auto p = t.find(';');
                    std::string_view f = t.substr(0, p);
                    while (!f.empty() && f.front() == ' ') f.remove_prefix(1);
                    while (!f.empty() && f.back() == ' ') f.remove_suffix(1);
                    if (!f.empty()) formes.emplace_back(f);
                    if (p == std::string_view::npos) break;
                    t.remove_prefix(p + 1);
                }
            }
            s.Valider(o, formes);
        } else {
            d.Afficher("Réponse non reconnue : un chiffre de 1 à 9, V ou Q."_cp);
            continue;
        }
        if (s.ConfirmationDue()) {
            d.Resultat(s.Tampon());
            const auto r = d.Demander("Corrigez éventuellement la saisie de 10 cas et confirmez par 'OUI'."_cp,
                                      "CONFIRMER", "OUI");
            s.Confirmer(r.value_or(""), s.Tampon());
        }
    }
}

void OperationIntegrationComposes(Contexte& ctx) {
    Dialogue& d = ctx.dialogue;
    // An unfinished run left some cells rewritten: they come back from svg before svg is made
    // anew from them.
    RepriseDictionnaire reprise(RepriseComposes(ctx.ressources), std::string("Intégration des composés"_cp));
    if (const auto n = reprise.Retablir()) d.Afficher(reprise.MessageReprise(*n));
    d.Progression("Chargement du dictionnaire"_cp, 0, 0);
    TableFormes formes;
    ChargerDico(formes, ctx.ressources, false);
    EcrireFichier(Chemin(ctx.ressources, "dico/comp/apports_rejetés.txt"_cp), "");
    if (!DossierExiste(Chemin(ctx.ressources, "dico/comp/svg"))) {
        CreerDossier(Chemin(ctx.ressources, "dico/comp/svg/namb"));
        CreerDossier(Chemin(ctx.ressources, "dico/comp/svg/amb"));
    }
    TableCellulesComposes table;
    ChargerCellules(table, ctx.ressources, true);
    const auto fichier = d.ChoisirFichier("Fichier de séquences nouvelles"_cp, "Text files (*.TXT)¢*.TXT"_cp);
    if (!fichier || fichier->empty()) throw ErreurExecution("Fichier introuvable : (aucun fichier choisi)");
    d.Progression("Intégration des composés"_cp, 0, 0);
    InsererPropositions(table, *fichier);
    reprise.Commencer({{Chemin(ctx.ressources, DOSSIER_COMPOSES_AMB), Chemin(ctx.ressources, "dico/comp/svg/amb")},
                       {Chemin(ctx.ressources, DOSSIER_COMPOSES_NAMB), Chemin(ctx.ressources, "dico/comp/svg/namb")}});
    for (int w = MIN_MOTS_COMPOSE; w <= MAX_MOTS_COMPOSE; ++w)
        for (int c = 1; c <= MAX_CLASSE_INITIALE; ++c)
            for (int classe : {CLASSE_AMB, CLASSE_NAMB}) {
                AvancerEcriture(d, w, c);
                EcrivainFichier f(FichierCasier(ctx.ressources, DossierClasse(classe), w, c));
                for (const auto& l : table.Cellule(classe, w, c)) f.Ligne(l);
                f.Fermer();
            }
    reprise.Terminer();
    TableComposants composants;
    ComposantsDesCles(table, formes, composants, false);
    composants.Ecrire(FichierUtilitaire(ctx.ressources, "COMPOSANTS.txt"));
    d.MasquerProgression();
    d.Resultat(Joindre(std::to_string(TotalClasse(table, CLASSE_AMB)), " ambigus dont ", std::to_string(table.apports[CLASSE_AMB]),
                       " apports"));
    d.Resultat(Joindre(std::to_string(TotalClasse(table, CLASSE_NAMB)), " non-ambigus dont ",
                       std::to_string(table.apports[CLASSE_NAMB]), " apports"));
}

void OperationDictionnaireCorpusComposes(Contexte& ctx) {
    Dialogue& d = ctx.dialogue;
    const auto fichier = d.ChoisirFichier("Fichier de séquences nouvelles"_cp, "Text files (*.TXT)¢*.TXT"_cp);
    if (!fichier || fichier->empty()) throw ErreurExecution("Fichier introuvable : (aucun fichier choisi)");
    TableCellulesComposes table;
    InsererPropositions(table, *fichier);
    const fs::path dossier = fichier->parent_path() / "DICOMP_CORPUS";
    if (!DossierExiste(dossier)) {
        CreerDossier(dossier / "amb");
        CreerDossier(dossier / "namb");
    }
    for (int w = MIN_MOTS_COMPOSE; w <= MAX_MOTS_COMPOSE; ++w)
        for (int c = 0; c <= MAX_CLASSE_INITIALE; ++c)
            for (int classe : {CLASSE_AMB, CLASSE_NAMB}) {
                std::string nom = std::to_string(w);
                nom += static_cast<char>(96 + c);
                nom += ".txt";
                EcrivainFichier f(dossier / (classe == CLASSE_AMB ? "amb" : "namb") / nom);
                for (const auto& l : table.Cellule(classe, w, c)) f.Ligne(l);
                f.Fermer();
            }
    d.Afficher("Terminé"_cp);
}

void OperationPasserAmbNamb(Contexte& ctx) {
    const fs::path racine = ctx.ressources;
    std::vector<std::unordered_set<std::string>> ambigus(MAX_MOTS_CLE + 1);
    std::string contenu;
    const fs::path liste = Chemin(racine, "dico/comp/AMBIGUS.txt");
    PourChaqueLigneNonVide(liste, contenu, [&](std::string_view l) {
        const int w = NombreMots(l);
        if (w <= MAX_MOTS_CLE) ambigus[static_cast<std::size_t>(w)].emplace(l);
    });
    RepriseDictionnaire reprise(RepriseComposes(racine), std::string("Passer de comp amb à nomb"_cp));
    if (const auto n = reprise.Retablir()) ctx.dialogue.Afficher(reprise.MessageReprise(*n));
    // The amb class is rewritten in place: a whole copy goes to svg/amb first, so that a run cut
    // short can be taken back (CONTROLE.txt is made anew by the next run).
    const fs::path svg = Chemin(racine, "dico/comp/svg/amb");
    CreerDossier(svg);
    for (int w = MIN_MOTS_COMPOSE; w <= MAX_MOTS_COMPOSE; ++w)
        for (int c = 1; c <= MAX_CLASSE_INITIALE; ++c)
            CopierFichier(FichierCasier(racine, DOSSIER_COMPOSES_AMB, w, c), svg / NomFichierCasier(w, c));
    reprise.Commencer({{Chemin(racine, DOSSIER_COMPOSES_AMB), svg}});
    EcrivainFichier controle(Chemin(racine, "dico/comp/CONTROLE.txt"));
    std::vector<std::string> gardees;
    for (int w = MIN_MOTS_COMPOSE; w <= MAX_MOTS_COMPOSE; ++w)
        for (int c = 1; c <= MAX_CLASSE_INITIALE; ++c) {
            AvancerEcriture(ctx.dialogue, w, c);
            const fs::path f = FichierCasier(racine, DOSSIER_COMPOSES_AMB, w, c);
            gardees.clear();
            PourChaqueLigneNonVide(f, contenu, [&](std::string_view l) {
                if (ambigus[static_cast<std::size_t>(w)].count(std::string(l))) controle.Ligne(l);
                else gardees.emplace_back(l);
            });
            EcrivainFichier e(f);
            for (const auto& l : gardees) e.Ligne(l);
            e.Fermer();
        }
    controle.Fermer();
    reprise.Terminer();
    ctx.dialogue.MasquerProgression();
    ctx.dialogue.Afficher("Terminé"_cp);
}

void OperationSuppressionComposes(Contexte& ctx) {
    Dialogue& d = ctx.dialogue;
    const auto classeTexte = d.Demander("Ambigus ('amb') ou non-ambigus ('namb') ?", "", "amb");
    if (!classeTexte || (*classeTexte != "amb" && *classeTexte != "namb"))
        throw FinProgramme("Choixi mpossible : 'amb' ou 'namb'");
    const int classe = *classeTexte == "amb" ? CLASSE_AMB : CLASSE_NAMB;
    RepriseDictionnaire reprise(RepriseComposes(ctx.ressources), std::string("Suppression de lignes"_cp));
    if (const auto n = reprise.Retablir()) d.Afficher(reprise.MessageReprise(*n));
    const fs::path svg = Chemin(ctx.ressources, Joindre("dico/comp/svg/", *classeTexte));
    CreerDossier(svg);
    TableCellulesComposes table;
    std::string contenu;
    for (int w = MIN_MOTS_COMPOSE; w <= MAX_MOTS_COMPOSE; ++w)
        for (int c = 1; c <= MAX_CLASSE_INITIALE; ++c) {
            const fs::path f = FichierCasier(ctx.ressources, DossierClasse(classe), w, c);
            CopierFichier(f, svg / NomFichierCasier(w, c));
            const std::string source = TexteChemin(f);
            PourChaqueLigneNonVide(f, contenu, [&](std::string_view l) { table.Ajouter(classe, w, c, std::string(l), source); });
        }
    const auto fichier = d.ChoisirFichier("Fichier", FILTRE_TXT);
    if (!fichier || fichier->empty()) throw ErreurExecution("Fichier introuvable : (aucun fichier choisi)");
    long long demandes = 0, faites = 0;
    PourChaqueLigneNonVide(*fichier, contenu, [&](std::string_view l) {
        ++demandes;
        const auto v = l.find(',');
        const std::string_view cle = l.substr(0, v == std::string_view::npos ? l.size() : v + 1);
        const int w = NombreMots(cle);
        const int c = classe_mot(cle).ClasseInitiale;
        if (w > MAX_MOTS_CLE) return;
        for (auto& e : table.Cellule(classe, w, c))
            if (!e.empty() && e == l) {
                e.clear();
                ++faites;
            }
    });
    reprise.Commencer({{Chemin(ctx.ressources, DossierClasse(classe)), svg}});
    for (int w = MIN_MOTS_COMPOSE; w <= MAX_MOTS_COMPOSE; ++w)
        for (int c = 1; c <= MAX_CLASSE_INITIALE; ++c) {
            AvancerEcriture(d, w, c);
            EcrivainFichier f(FichierCasier(ctx.ressources, DossierClasse(classe), w, c));
            for (const auto& l : table.Cellule(classe, w, c))
                if (!l.empty()) f.Ligne(l);
            f.Fermer();
        }
    reprise.Terminer();
    d.MasquerProgression();
    d.Afficher(Joindre("Terminé. "_cp, std::to_string(faites), " suppressions pour ", std::to_string(demandes),
                       " demandées."_cp));
}

void OperationComposants(Contexte& ctx) {
    const fs::path sortie = FichierUtilitaire(ctx.ressources, "COMPOSANTS.txt");
    EcrireFichier(sortie, "");
    ctx.dialogue.Progression("Chargement du dictionnaire"_cp, 0, 0);
    TableFormes formes;
    ChargerDico(formes, ctx.ressources, false);
    TableCellulesComposes table;
    ChargerCellules(table, ctx.ressources, false);
    TableComposants composants;
    ComposantsDesCles(table, formes, composants, true);
    composants.Ecrire(sortie);
    ctx.dialogue.MasquerProgression();
    ctx.dialogue.Afficher("Terminé"_cp);
}

}  // namespace telvoris
