// telvoris: runs any operation of the workbench from the command line.
#include <charconv>
#include <unistd.h>

#include <cstdlib>
#include <deque>
#include <filesystem>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include "cli/afc.hpp"
#include "cli/aide.hpp"
#include "cli/carte.hpp"
#include "cli/dialogue_terminal.hpp"
#include "cli/exporter.hpp"
#include "cli/requete.hpp"
#include "cli/verifier_ressources.hpp"
#include "core/erreurs.hpp"
#include "core/horloge.hpp"
#include "core/texte.hpp"
#include "shell/operations.hpp"
#include "shell/ressources.hpp"
#include "stats/afc_lancement.hpp"

namespace fs = std::filesystem;
using namespace telvoris;

namespace {

constexpr int kFait = 0, kErreurExecution = 1, kUsage = 2, kFinProgramme = 3;

void Usage(std::ostream& os) {
    os << "Usage :\n"
          "  telvoris liste\n"
          "      toutes les opérations, par zone de travail et par menu\n"
          "  telvoris aide OPERATION        (ou : telvoris OPERATION --help)\n"
          "      ce que fait l'opération, ce qu'elle écrit, et ses questions dans l'ordre avec leurs défauts\n"
          "  telvoris OPERATION [--ressources DOSSIER] [--reponse TEXTE]... [--horloge \"AAAA-MM-JJ HH:MM:SS\"]\n"
          "      exécute une opération (smn_seg, smn_idx, ...) ; chaque --reponse (-r) répond à la\n"
          "      question suivante, boîte de saisie ou choix de fichier, dans l'ordre où l'opération les pose ;\n"
          "      sans terminal, une question sans réponse prend son défaut, et une question sans défaut ou un\n"
          "      choix de fichier sans réponse arrête l'exécution (statut 2, « Réponse manquante : ... »)\n"
          "      --attendre : smn_afc attend la fin du solveur et finalise ses fichiers dans la foulée\n"
          "      --fils N : nombre de fils de calcul des étapes qui traitent les textes un à un (segmentation,\n"
          "      réindexation, composés, passe automatique, relevés de lexique) ; par défaut, tous les cœurs\n"
          "  telvoris exporter FICHIER [--format csv|tsv]\n"
          "      copie UTF-8 (point décimal, ligne d'en-tête) d'un lexique, d'une matrice, d'une distribution,\n"
          "      d'un résultat du solveur ou d'une projection, écrite à côté du fichier, qui reste intact\n"
          "  telvoris finaliser-afc DOSSIER\n"
          "      finalise les résultats d'une AFC dont le solveur a terminé (bouton « FINALISATION DES FICHIERS »)\n"
          "  telvoris verifier-ressources [DOSSIER]\n"
          "      vérifie l'arborescence de ressources MORVENTA/morv_res (fichiers présents et bien formés)\n"
          "  telvoris carte FICHIER --svg SORTIE [options]\n"
          "      dessine une carte plane (_PROJ) ou un planisphère (_PLANISPH_) en SVG (voir « telvoris carte »)\n"
          "  telvoris requete LISTE.txt [options] [--format tsv]\n"
          "      une requête sur un corpus indexé (Form1.smn_idx) : concordance, distribution, co-occurrents\n"
          "Les options peuvent se placer avant ou après la commande.\n"
          "Statut de sortie : 0 terminé, 1 erreur d'exécution, 2 usage ou réponse manquante,\n"
          "3 fin du programme sur une condition vérifiée.\n";
}

fs::path DossierExecutable(const char* argv0) {
    std::error_code ec;
    fs::path exe = fs::read_symlink("/proc/self/exe", ec);
    if (ec) exe = fs::absolute(argv0, ec);
    return exe.parent_path();
}

bool EstAide(const std::string& a) { return a == "--help" || a == "-h" || a == "--aide"; }

// The options that every command understands, wherever they stand on the line.
struct Ligne {
    std::vector<std::string> mots;  // the command and its own arguments, in order
    std::optional<fs::path> ressources;
    std::deque<std::string> reponses;
    std::optional<std::string> horloge;
    bool attendre = false;
    bool aide = false;
    unsigned fils = 0;  // 0: every core
};

// The most threads a run may ask for: beyond it, a typing error rather than a wish.
constexpr unsigned kMaxFils = 256;

// Takes the common options out of the line; what is left keeps its order. Returns false, after
// saying why, when an option lacks its value.
bool LireLigne(int argc, char** argv, Ligne& l) {
    for (int i = 1; i < argc; ++i) {
        const std::string a = argv[i];
        auto valeur = [&](const char* attendu) -> const char* {
            if (i + 1 >= argc) {
                std::cerr << a << " attend " << attendu << "\n";
                return nullptr;
            }
            return argv[++i];
        };
        if (a == "--ressources") {
            const char* v = valeur("un dossier");
            if (!v) return false;
            l.ressources = fs::path(v);
        } else if (a == "--reponse" || a == "-r") {
            const char* v = valeur("un texte");
            if (!v) return false;
            l.reponses.emplace_back(v);
        } else if (a == "--horloge") {
            const char* v = valeur("une date « AAAA-MM-JJ HH:MM:SS »");
            if (!v) return false;
            l.horloge = v;
        } else if (a == "--attendre") {
            l.attendre = true;
        } else if (a == "--fils") {
            const char* v = valeur("un nombre de fils");
            if (!v) return false;
            const std::string t(v);
            unsigned n = 0;
            const auto [fin, ec] = std::from_chars(t.data(), t.data() + t.size(), n);
            if (ec != std::errc() || fin != t.data() + t.size() || n < 1 || n > kMaxFils) {
                std::cerr << "--fils attend un nombre de fils de 1 à " << kMaxFils << " (reçu : « " << t << " »)\n";
                return false;
            }
            l.fils = n;
        } else if (EstAide(a) && (l.mots.empty() || l.mots[0] != "requete")) {
            l.aide = true;
        } else {
            l.mots.push_back(a);
        }
    }
    return true;
}

// Runs a command written with argc/argv, with the common options it knows put back behind it.
int Relayer(int (*commande)(int, char**), const Ligne& l, bool avecHorloge) {
    std::vector<std::string> mots = {"telvoris"};
    mots.insert(mots.end(), l.mots.begin(), l.mots.end());
    if (avecHorloge && l.horloge) {
        mots.push_back("--horloge");
        mots.push_back(*l.horloge);
    }
    std::vector<char*> args;
    for (auto& m : mots) args.push_back(m.data());
    args.push_back(nullptr);
    return commande(static_cast<int>(mots.size()), args.data());
}

int ExecuterOperation(const Operation& op, Ligne& l, const char* argv0) {
    std::optional<Instant> horlogeFixe;
    if (l.horloge && !(horlogeFixe = LireInstant(*l.horloge))) {
        std::cerr << "--horloge attend une date « AAAA-MM-JJ HH:MM:SS »\n";
        return kUsage;
    }
    if (l.mots.size() > 1) {
        const std::string& a = l.mots[1];
        std::cerr << (a.starts_with("-") ? "Option inconnue : " : "Argument inattendu : ") << a << "\n";
        Usage(std::cerr);
        return kUsage;
    }
    if (l.attendre) OptionsLancementAfc().attendre = true;

    std::optional<fs::path> maison;
    if (const char* home = std::getenv("HOME"); home && *home) maison = fs::path(home);
    const auto racine = LocaliserRessources(l.ressources, DossierExecutable(argv0), maison);
    if (!racine) {
        std::cout << Cp1252VersUtf8(MessageRessourcesAbsentes()) << '\n';
        if (l.ressources) std::cerr << "Dossier de ressources introuvable : " << l.ressources->string() << "\n";
        return kFinProgramme;
    }

    DialogueTerminal dialogue(std::move(l.reponses), isatty(STDIN_FILENO) != 0, isatty(STDERR_FILENO) != 0);
    HorlogeSysteme systeme;
    std::optional<HorlogeFixe> fixe;
    if (horlogeFixe) fixe.emplace(*horlogeFixe);
    const Horloge& horloge = fixe ? static_cast<const Horloge&>(*fixe) : systeme;
    Contexte contexte{dialogue, horloge, *racine, l.fils};
    try {
        op.executer(contexte);
    } catch (const ReponseManquante& e) {
        dialogue.MasquerProgression();
        std::cerr << "Réponse manquante : " << e.what() << "\n"
                  << "(question n° " << e.numero << " ; à donner avec --reponse, voir « telvoris " << op.zone << '.'
                  << op.id << " --help »)\n";
        return kUsage;
    } catch (const FinProgramme& e) {
        dialogue.MasquerProgression();
        std::cout << Cp1252VersUtf8(e.what()) << '\n';
        return kFinProgramme;
    } catch (const ErreurExecution& e) {
        dialogue.MasquerProgression();
        std::cerr << Cp1252VersUtf8(e.what()) << '\n';
        return kErreurExecution;
    } catch (const std::exception& e) {
        dialogue.MasquerProgression();
        std::cerr << "Erreur : " << e.what() << '\n';
        return kErreurExecution;
    }
    // A file dialog cancelled as the last act of the operation: it stopped there.
    if (dialogue.Abandonnee()) std::cout << "Opération abandonnée\n";
    if (dialogue.ReponsesRestantes() > 0)
        std::cerr << "Attention : " << dialogue.ReponsesRestantes() << " réponse(s) donnée(s) avec --reponse n'ont servi à aucune question.\n";
    return kFait;
}

}  // namespace

int main(int argc, char** argv) {
    Ligne l;
    if (!LireLigne(argc, argv, l)) return kUsage;
    if (l.mots.empty()) {
        Usage(l.aide ? std::cout : std::cerr);
        return l.aide ? kFait : kUsage;
    }
    const std::string commande = l.mots[0];
    if (commande.starts_with("-")) {
        std::cerr << "Option inconnue : " << commande << "\n";
        Usage(std::cerr);
        return kUsage;
    }
    if (commande == "liste") {
        std::cout << ListeOperations();
        return kFait;
    }
    if (commande == "aide") {
        if (l.mots.size() != 2) {
            Usage(l.mots.size() == 1 ? std::cout : std::cerr);
            return l.mots.size() == 1 ? kFait : kUsage;
        }
        return AfficherAideOperation(l.mots[1], std::cout, std::cerr);
    }
    if (commande == "exporter") {
        if (l.aide) {
            std::cout << UsageExporter();
            return kFait;
        }
        return CommandeExporter(std::vector<std::string>(l.mots.begin() + 1, l.mots.end()), std::cout, std::cerr);
    }
    if (commande == "finaliser-afc") {
        if (l.aide) {
            Usage(std::cout);
            return kFait;
        }
        return Relayer(&CommandeFinaliserAfc, l, false);
    }
    if (commande == "verifier-ressources") {
        if (l.ressources && l.mots.size() == 1) l.mots.push_back(l.ressources->string());
        return Relayer(&CommandeVerifierRessources, l, false);
    }
    if (commande == "carte") {
        if (l.aide) l.mots.push_back("--help");
        return Relayer(&CommandeCarte, l, false);
    }
    if (commande == "requete") {
        if (l.aide) l.mots.push_back("--help");
        return Relayer(&LancerCommandeRequete, l, true);
    }

    const Operation* op = TrouverOperation(commande);
    if (!op) {
        std::cerr << "Opération inconnue : " << commande << " (voir « telvoris liste »)\n";
        return kUsage;
    }
    if (l.aide) return AfficherAideOperation(commande, std::cout, std::cerr);
    return ExecuterOperation(*op, l, argv[0]);
}
