#include "cli/verifier_ressources.hpp"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <optional>

#include "core/fichiers.hpp"
#include "core/nombres.hpp"
#include "core/texte.hpp"
#include "lexicon/verification.hpp"
#include "shell/ressources.hpp"

namespace telvoris {

namespace {

void Sortie(std::string_view cp1252) { std::cout << Cp1252VersUtf8(cp1252) << '\n'; }

}  // namespace

int CommandeVerifierRessources(int argc, char** argv) {
    if (argc > 3) {
        std::cerr << "Usage : telvoris verifier-ressources [DOSSIER]\n";
        return 2;
    }
    std::optional<fs::path> racine;
    if (argc == 3) {
        fs::path dossier = argv[2];
        // The folder may be the tree itself or a folder that holds MORVENTA/morv_res.
        if (DossierExiste(dossier / "MORVENTA" / "morv_res")) dossier = dossier / "MORVENTA" / "morv_res";
        if (!DossierExiste(dossier)) {
            std::cout << "Dossier de ressources introuvable : " << dossier.string() << '\n';
            return 1;
        }
        racine = dossier;
    } else {
        std::error_code ec;
        const fs::path exe = fs::read_symlink("/proc/self/exe", ec);
        std::optional<fs::path> maison;
        if (const char* home = std::getenv("HOME"); home && *home) maison = fs::path(home);
        racine = LocaliserRessources(std::nullopt, ec ? fs::current_path() : exe.parent_path(), maison);
        if (!racine) {
            Sortie(MessageRessourcesAbsentes());
            return 1;
        }
    }
    Sortie(Joindre("Ressources : "_cp, TexteChemin(*racine)));
    const RapportRessources rapport = VerifierRessources(*racine);
    for (const auto& ligne : rapport.comptes) Sortie(Joindre("  "_cp, ligne));
    if (rapport.formesChargees > 0)
        Sortie(Joindre("Dictionnaire chargé avec ses interprétations : "_cp, std::to_string(rapport.formesChargees),
                       " formes en "_cp, FormaterDouble(Round(rapport.secondesChargement, 3)), " s"_cp));
    if (rapport.Valide()) {
        Sortie("Ressources complètes : aucun fichier manquant ni mal formé."_cp);
        return 0;
    }
    Sortie(Joindre(std::to_string(rapport.problemes.size()),
                   rapport.problemes.size() == 1 ? " problème :"_cp : " problèmes :"_cp));
    for (const auto& p : rapport.problemes) Sortie(Joindre("  "_cp, p));
    return 1;
}

}  // namespace telvoris
