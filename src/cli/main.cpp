// telvoris: runs any operation of the workbench from the command line.
#include <unistd.h>

#include <cstdlib>
#include <deque>
#include <filesystem>
#include <iostream>
#include <optional>
#include <string>

#include "cli/afc.hpp"
#include "cli/carte.hpp"
#include "cli/dialogue_terminal.hpp"
#include "cli/verifier_ressources.hpp"
#include "cli/requete.hpp"
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
          "      toutes les opérations : identifiant, zone de travail, libellé\n"
          "  telvoris verifier-ressources [DOSSIER]\n"
          "      vérifie l'arborescence de ressources MORVENTA/morv_res (fichiers présents et bien formés)\n"
          "  telvoris OPERATION [--ressources DOSSIER] [--reponse TEXTE]... [--horloge \"AAAA-MM-JJ HH:MM:SS\"]\n"
          "      exécute une opération (smn_seg, smn_idx, ...) ; chaque --reponse (-r) répond à la\n"
          "      question suivante, boîte de saisie ou choix de fichier, dans l'ordre où l'opération les pose\n"
          "      --attendre : smn_afc attend la fin du solveur et finalise ses fichiers dans la foulée\n"
          "  telvoris finaliser-afc DOSSIER\n"
          "      finalise les résultats d'une AFC dont le solveur a terminé (bouton « FINALISATION DES FICHIERS »)\n"
          "  telvoris carte FICHIER --svg SORTIE [options]\n"
          "      dessine une carte plane (_PROJ) ou un planisphère (_PLANISPH_) en SVG (voir « telvoris carte »)\n"
          "  telvoris requete LISTE.txt [options]\n"
          "      une requête sur un corpus indexé (Form1.smn_idx) : concordance, distribution, co-occurrents\n";
}

int Liste() {
    for (const auto& op : Operations()) {
        std::string legende;
        for (char c : op.legende)
            if (c != '&') legende += c;
        std::cout << op.zone << '.' << op.id << '\t' << Cp1252VersUtf8(legende) << '\n';
    }
    return kFait;
}

fs::path DossierExecutable(const char* argv0) {
    std::error_code ec;
    fs::path exe = fs::read_symlink("/proc/self/exe", ec);
    if (ec) exe = fs::absolute(argv0, ec);
    return exe.parent_path();
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        Usage(std::cerr);
        return kUsage;
    }
    const std::string commande = argv[1];
    if (commande == "--aide" || commande == "-h" || commande == "--help") {
        Usage(std::cout);
        return kFait;
    }
    if (commande == "liste") return Liste();
    if (commande == "finaliser-afc") return CommandeFinaliserAfc(argc, argv);
    if (commande == "verifier-ressources") return CommandeVerifierRessources(argc, argv);
    if (commande == "requete") return LancerCommandeRequete(argc, argv);
    if (commande == "carte") return CommandeCarte(argc, argv);

    const Operation* op = TrouverOperation(commande);
    if (!op) {
        std::cerr << "Opération inconnue : " << commande << " (voir « telvoris liste »)\n";
        return kUsage;
    }
    std::optional<fs::path> ressources;
    std::deque<std::string> reponses;
    std::optional<Instant> horlogeFixe;
    for (int i = 2; i < argc; ++i) {
        const std::string a = argv[i];
        auto valeur = [&]() -> std::optional<std::string> {
            if (i + 1 >= argc) return std::nullopt;
            return std::string(argv[++i]);
        };
        if (a == "--ressources") {
            auto v = valeur();
            if (!v) { std::cerr << "--ressources attend un dossier\n"; return kUsage; }
            ressources = fs::path(*v);
        } else if (a == "--reponse" || a == "-r") {
            auto v = valeur();
            if (!v) { std::cerr << a << " attend un texte\n"; return kUsage; }
            reponses.push_back(*v);
        } else if (a == "--attendre") {
            OptionsLancementAfc().attendre = true;
        } else if (a == "--horloge") {
            auto v = valeur();
            if (!v || !(horlogeFixe = LireInstant(*v))) {
                std::cerr << "--horloge attend une date « AAAA-MM-JJ HH:MM:SS »\n";
                return kUsage;
            }
        } else {
            std::cerr << "Option inconnue : " << a << "\n";
            Usage(std::cerr);
            return kUsage;
        }
    }

    std::optional<fs::path> maison;
    if (const char* home = std::getenv("HOME"); home && *home) maison = fs::path(home);
    const auto racine = LocaliserRessources(ressources, DossierExecutable(argv[0]), maison);
    if (!racine) {
        std::cout << Cp1252VersUtf8(MessageRessourcesAbsentes()) << '\n';
        if (ressources) std::cerr << "Dossier de ressources introuvable : " << ressources->string() << "\n";
        return kFinProgramme;
    }

    DialogueTerminal dialogue(std::move(reponses), isatty(STDIN_FILENO) != 0, isatty(STDERR_FILENO) != 0);
    HorlogeSysteme systeme;
    std::optional<HorlogeFixe> fixe;
    if (horlogeFixe) fixe.emplace(*horlogeFixe);
    const Horloge& horloge = fixe ? static_cast<const Horloge&>(*fixe) : systeme;
    Contexte contexte{dialogue, horloge, *racine};
    try {
        op->executer(contexte);
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
    return kFait;
}
