// Lexicon and item files of the statistics (item, tab, count), and the number readers they use.
#include "commun.hpp"
#include "core/fichiers.hpp"
#include "stats/commun.hpp"

using namespace telvoris;
namespace fs = std::filesystem;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t taille) {
    const std::string_view entree = fuzz::Octets(data, taille);
    const fs::path fichier = fuzz::DossierTravail() / "LEXIQUE.txt";
    fuzz::EcrireOctets(fichier, entree);
    for (bool nombre : {false, true})
        fuzz::Accepter([&] { stats::LireItemsFichier(fichier, 100, nombre, "lexique"); });
    LecteurLignes lecteur(entree);
    std::string_view ligne;
    while (lecteur.Suivante(ligne)) {
        for (int n = 1; n <= 3; ++n) {
            const auto champ = stats::Champ(ligne, n);
            if (!champ) break;
            fuzz::Accepter([&] { stats::LireEntier(*champ, "lexique"); });
            fuzz::Accepter([&] { stats::LireNombre(*champ, "lexique"); });
            long long v = 0;
            stats::EssayerEntier(*champ, v);
            stats::EstNombre(*champ);
        }
    }
    return 0;
}
