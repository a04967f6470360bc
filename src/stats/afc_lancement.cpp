#include "stats/afc_lancement.hpp"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>

#include "core/erreurs.hpp"
#include "core/fichiers.hpp"
#include "core/horloge.hpp"
#include "core/jetons.hpp"
#include "core/texte.hpp"

extern char** environ;

namespace telvoris {

namespace {

constexpr std::string_view kFiltre = "Text files (*.TXT)¢*.TXT"_cp;

std::string N(long long v) { return std::to_string(v); }

// A cell: optional sign, then digits. nullopt when it is not an integer.
std::optional<long long> Entier(std::string_view t) {
    std::size_t i = 0;
    bool negatif = false;
    if (i < t.size() && (t[i] == '-' || t[i] == '+')) negatif = t[i++] == '-';
    if (i == t.size() || t.size() - i > 18) return std::nullopt;
    long long v = 0;
    for (; i < t.size(); ++i) {
        if (t[i] < '0' || t[i] > '9') return std::nullopt;
        v = v * 10 + (t[i] - '0');
    }
    return negatif ? -v : v;
}

std::optional<int> StatutFinal(long long processus) {
    int statut = 0;
    const pid_t r = waitpid(static_cast<pid_t>(processus), &statut, WNOHANG);
    if (r == 0) return std::nullopt;
    if (r < 0) return 0;  // already collected, or not our child: nothing more to learn
    return WIFEXITED(statut) ? WEXITSTATUS(statut) : -1;
}

std::string MessageEchecSolveur(int statut, const fs::path& dossier) {
    return Joindre("Le solveur axisolve a échoué (statut "_cp, N(statut), ") : voyez son message. Les résultats de "_cp,
                   TexteChemin(dossier), " ne sont pas finalisés."_cp);
}

}  // namespace

EtatAfc& EtatAfcForm3() {
    static EtatAfc etat;
    return etat;
}

OptionsAfc& OptionsLancementAfc() {
    static OptionsAfc options;
    return options;
}

std::optional<fs::path> LocaliserSolveur(const fs::path& dossierExecutable, std::string_view path) {
    auto executable = [](const fs::path& p) {
        std::error_code ec;
        return fs::is_regular_file(p, ec) && access(p.c_str(), X_OK) == 0;
    };
    if (!dossierExecutable.empty() && executable(dossierExecutable / "axisolve")) return dossierExecutable / "axisolve";
    while (!path.empty()) {
        const std::size_t deux = path.find(':');
        const std::string_view dossier = path.substr(0, deux);
        if (!dossier.empty() && executable(fs::path(dossier) / "axisolve")) return fs::path(dossier) / "axisolve";
        if (deux == std::string_view::npos) break;
        path.remove_prefix(deux + 1);
    }
    return std::nullopt;
}

fs::path DossierExecutableCourant() {
    std::error_code ec;
    const fs::path exe = fs::read_symlink("/proc/self/exe", ec);
    return ec ? fs::path() : exe.parent_path();
}

PreparationAfc PreparerAfc(Dialogue& dialogue, const fs::path& matrice) {
    PreparationAfc p;
    p.matrice = matrice;
    const std::string cheminMatrice = matrice.string();
    p.dossier = fs::path(cheminMatrice.substr(0, cheminMatrice.size() >= 4 ? cheminMatrice.size() - 4 : 0));
    CreerDossier(p.dossier);
    EcrivainFichier itemLignes(p.dossier / "ITEMLIGNES.txt");
    EcrivainFichier itemColonnes(p.dossier / "ITEMCOLONNES.txt");
    EcrivainFichier stats(p.dossier / "STATS.txt");

    const std::string texte = LireFichier(matrice);
    std::string_view utile(texte);
    // Empty lines at the end of the file are no rows.
    while (!utile.empty() && (utile.back() == '\r' || utile.back() == '\n')) utile.remove_suffix(1);
    LecteurLignes lecteur(utile);
    std::string_view ligne;
    std::vector<std::string_view> colonnes;
    if (lecteur.Suivante(ligne)) {
        const std::size_t tab = ligne.find('\t');
        if (tab != std::string_view::npos) colonnes = Decouper(ligne.substr(tab + 1), "\t");
    }
    if (colonnes.size() > MAX_COLONNES_AFC)
        LimiteDepassee("MAX_COLONNES_AFC", MAX_COLONNES_AFC, "colonnes dans la matrice"_cp);
    for (auto c : colonnes) itemColonnes.Ligne(c);
    const std::size_t nc = colonnes.size();

    std::vector<std::string_view> lignes;
    std::vector<long long> cellules;
    while (lecteur.Suivante(ligne)) {
        if (lignes.size() >= MAX_LIGNES_AFC)
            LimiteDepassee("MAX_LIGNES_AFC", MAX_LIGNES_AFC, "lignes dans la matrice"_cp);
        const std::size_t tab = ligne.find('\t');
        lignes.push_back(ligne.substr(0, tab));
        itemLignes.Ligne(lignes.back());
        const long long r = static_cast<long long>(lignes.size());
        std::vector<std::string_view> morceaux;
        if (tab != std::string_view::npos) morceaux = Decouper(ligne.substr(tab + 1), "\t");
        if (morceaux.size() != nc)
            throw ErreurExecution(Joindre("Ligne "_cp, N(r), " de la matrice (ligne "_cp, N(r + 1), " du fichier "_cp,
                                          TexteChemin(matrice), ") : "_cp,
                                          N(static_cast<long long>(morceaux.size())), " cellules pour "_cp,
                                          N(static_cast<long long>(nc)), " colonnes"_cp));
        for (std::size_t c = 0; c < nc; ++c) {
            const auto v = Entier(morceaux[c]);
            if (!v)
                throw ErreurExecution(Joindre("Conversion impossible en nombre entier : « "_cp, morceaux[c],
                                              " » (ligne "_cp, N(r), ", colonne "_cp, N(static_cast<long long>(c) + 1),
                                              " de la matrice (ligne "_cp, N(r + 1), " du fichier "_cp,
                                              TexteChemin(matrice), "))"_cp));
            cellules.push_back(*v);
        }
    }
    itemLignes.Fermer();
    itemColonnes.Fermer();
    const std::size_t nl = lignes.size();

    for (std::size_t r = 0; r < nl; ++r)
        for (std::size_t c = 0; c < nc; ++c)
            if (cellules[r * nc + c] < 0)
                throw FinProgramme(Joindre("Votre matrice comporte des données non numériques, notamment à la ligne "_cp,
                                           N(static_cast<long long>(r) + 1), " dans la colonne "_cp,
                                           N(static_cast<long long>(c) + 1), ". Vérifiez-la."_cp));
    for (std::size_t r = 0; r < nl; ++r) {
        long long somme = 0;
        for (std::size_t c = 0; c < nc; ++c) somme += cellules[r * nc + c];
        if (somme == 0)
            throw FinProgramme(Joindre("Votre matrice comporte (au moins) une ligne totalisant zéro : ligne "_cp,
                                       N(static_cast<long long>(r) + 1), ". Vérifiez-la."_cp));
        p.total += somme;
    }
    for (std::size_t c = 0; c < nc; ++c) {
        long long somme = 0;
        for (std::size_t r = 0; r < nl; ++r) somme += cellules[r * nc + c];
        if (somme == 0)
            throw FinProgramme(Joindre("Votre matrice comporte (au moins) une colonne totalisant zéro : colonne "_cp,
                                       N(static_cast<long long>(c) + 1), ". Vérifiez-la."_cp));
    }
    // The chi-square and its degrees of freedom are not computed: lines 2 and 3 are fixed.
    stats.Ligne(N(p.total));
    stats.Ligne("");
    stats.Ligne("0");
    stats.Fermer();

    p.matriceSolveur = matrice;
    if (nc > nl) {
        dialogue.Afficher("Votre matrice doit être transposée"_cp);
        p.transposee = true;
        p.matriceSolveur = fs::path(p.dossier.string() + "_TRANSPOSEE.txt");
        EcrivainFichier t(p.matriceSolveur);
        std::string& l = t.Tampon();
        for (auto nom : lignes) {
            l += '\t';
            l += nom;
        }
        t.FinLigne();
        for (std::size_t c = 0; c < nc; ++c) {
            t.Tampon().append(colonnes[c]);
            for (std::size_t r = 0; r < nl; ++r) {
                t.Tampon() += '\t';
                t.Tampon() += N(cellules[r * nc + c]);
            }
            t.FinLigne();
        }
        t.Fermer();
    }
    return p;
}

std::vector<std::string> ArgumentsSolveur(const PreparationAfc& p) {
    const std::string F = p.dossier.string() + "/";
    return {"--eigenvalues=" + F + "eigen.txt", "--rcoor=" + F + "corli.txt",   "--rcontrib=" + F + "conli.txt",
            "--rcos2=" + F + "cosli.txt",       "--rdisto=" + F + "disli.txt",  "--ccoor=" + F + "corco.txt",
            "--ccontrib=" + F + "conco.txt",    "--ccos2=" + F + "cosco.txt",   "--cdisto=" + F + "disco.txt",
            p.matriceSolveur.string()};
}

long long DemarrerSolveur(const fs::path& solveur, const std::vector<std::string>& arguments) {
    std::vector<std::string> tous{solveur.string()};
    tous.insert(tous.end(), arguments.begin(), arguments.end());
    std::vector<char*> argv;
    for (auto& a : tous) argv.push_back(a.data());
    argv.push_back(nullptr);
    pid_t pid = 0;
    const int e = posix_spawn(&pid, tous[0].c_str(), nullptr, nullptr, argv.data(), environ);
    if (e != 0)
        throw ErreurExecution(Joindre("Impossible de lancer le solveur "_cp, TexteChemin(solveur), " : "_cp,
                                      Utf8VersCp1252(std::strerror(e))));
    return pid;
}

int AttendreSolveur(long long processus) {
    int statut = 0;
    pid_t r;
    do r = waitpid(static_cast<pid_t>(processus), &statut, 0);
    while (r < 0 && errno == EINTR);
    if (r < 0) return -1;
    return WIFEXITED(statut) ? WEXITSTATUS(statut) : -1;
}

void OperationAfc(Contexte& ctx) {
    Dialogue& d = ctx.dialogue;
    EtatAfc& e = EtatAfcForm3();
    const OptionsAfc& options = OptionsLancementAfc();
    d.Afficher("ATTENTION, IL NE DOIT PAS Y AVOIR D'ESPACE DANS LES NOMS DE DOSSIERS !!!!!"_cp);
    e.panneauVisible = false;
    e.AFC_A_FINALISER = true;
    e.legendeBouton = LEGENDE_FINALISATION;
    e.legendePanneau = "Finalisez";
    e.graphe = {};
    const auto matrice = d.ChoisirFichier("matrice à analyser"_cp, kFiltre);
    if (!matrice) {
        e.AFC_A_FINALISER = false;
        return;
    }
    const std::string debut = TexteHeure(ctx.horloge.Maintenant());
    const PreparationAfc p = PreparerAfc(d, *matrice);

    std::optional<fs::path> solveur = options.solveur;
    if (!solveur) {
        const char* path = std::getenv("PATH");
        solveur = LocaliserSolveur(DossierExecutableCourant(), path ? path : "");
    }
    if (!solveur) {
        e.AFC_A_FINALISER = false;
        d.Afficher(Joindre("Le solveur axisolve est introuvable, ni à côté du programme ("_cp,
                           TexteChemin(DossierExecutableCourant()), ") ni dans le PATH : l'analyse n'est pas lancée."_cp));
        return;
    }
    e.dossier = p.dossier;
    e.processus = DemarrerSolveur(*solveur, ArgumentsSolveur(p));
    e.panneauVisible = true;
    d.Resultat(TexteDuree(debut, ctx.horloge, Copie::Statistiques));

    if (options.attendre) {
        const int statut = AttendreSolveur(e.processus);
        e.processus = 0;
        if (statut != 0) {
            e.AFC_A_FINALISER = false;
            throw ErreurExecution(MessageEchecSolveur(statut, p.dossier));
        }
        BoutonFinalisation(ctx);
        for (const auto& t : TextesDuGraphe(e.graphe)) d.Resultat(t);
        d.Afficher(Joindre("Analyse finalisée dans "_cp, TexteChemin(p.dossier), " en"_cp,
                           TexteDuree(debut, ctx.horloge, Copie::Statistiques)));
    }
}

void BoutonFinalisation(Contexte& ctx) {
    EtatAfc& e = EtatAfcForm3();
    if (e.legendeBouton != LEGENDE_FINALISATION) {
        e.legendeBouton = LEGENDE_FINALISATION;
        e.panneauVisible = false;
        return;
    }
    if (e.dossier.empty()) throw ErreurExecution(std::string("Aucune analyse à finaliser : lancez d'abord l'AFC."_cp));
    if (e.processus > 0) {
        const auto fin = StatutFinal(e.processus);
        if (!fin) {
            ctx.dialogue.Afficher(
                "Le solveur n'a pas fini son calcul : attendez qu'il se termine, puis finalisez les fichiers."_cp);
            return;
        }
        e.processus = 0;
        if (*fin != 0) {
            e.AFC_A_FINALISER = false;
            e.panneauVisible = false;
            ctx.dialogue.Afficher(MessageEchecSolveur(*fin, e.dossier));
            return;
        }
    }
    FinaliserFichiersAfc(e.dossier);
    e.legendeBouton = LEGENDE_FINALISES;
    e.graphe = DessinerGrapheInertie(e.dossier);
    e.legendeBouton = LEGENDE_MASQUER;
    e.legendePanneau = "Graphe de décroissance des % d'inertie"_cp;
    e.AFC_A_FINALISER = false;
}

void GarderFermetureForm3(Contexte& ctx) {
    EtatAfc& e = EtatAfcForm3();
    if (!e.AFC_A_FINALISER) return;
    const auto r = ctx.dialogue.Demander(
        "ATTENTION, VOUS N'AVEZ PAS SAUVEGARDE VOS FICHIERS D'AFC. VOULEZ-VOUS LE FAIRE AVANT DE QUITTER ?"_cp, "",
        "OUI");
    if (r && *r == "OUI") {
        e.legendeBouton = LEGENDE_FINALISATION;
        BoutonFinalisation(ctx);
    }
}

}  // namespace telvoris
