// Map files as the map viewers read them: a flat map, a globe and the home-window map, each with
// the coding file of the colour modes, of any bytes; then the views that walk the labels read.
#include <algorithm>

#include "commun.hpp"
#include "explore/carte_accueil.hpp"
#include "stats/carte_globe.hpp"
#include "stats/carte_plan.hpp"

using namespace telvoris;
using namespace telvoris::carte;
namespace fs = std::filesystem;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t taille) {
    fuzz::ViderDossierTravail();
    const auto morceaux = fuzz::Morceaux(fuzz::Octets(data, taille), 2);
    const fs::path carte = fuzz::DossierTravail() / "_PLANISPH_123.txt";
    const fs::path codage = fuzz::DossierTravail() / "codage.txt";
    fuzz::EcrireOctets(carte, morceaux[0]);
    fuzz::EcrireOctets(codage, morceaux[1]);
    for (int mode = 1; mode <= 3; ++mode) {
        fuzz::Accepter([&] {
            ParametresPlan p;
            p.modeCouleur = mode;
            p.gras = mode == 3;
            const auto c = CartePlan::Lire(carte, p, mode == 1 ? std::nullopt : std::optional<fs::path>(codage));
            (void)c.TexteColonnes();
            (void)c.TexteLignes();
            (void)c.Legende();
            (void)c.LignesInertie();
            (void)c.BarresInertie();
            if (!c.Etiquettes().empty()) (void)c.ZoomEtiquette(c.Etiquettes().size() - 1);
            (void)c.ZoomFond(5000, 5000);
        });
    }
    for (int mode = 1; mode <= 4; ++mode) {
        fuzz::Accepter([&] {
            ParametresGlobe p;
            p.modeCouleur = mode;
            p.colonnes = mode % 2 + 1;
            auto g = CarteGlobe::Lire(carte, p, mode == 1 ? std::nullopt : std::optional<fs::path>(codage));
            (void)g.LignesInertie();
            (void)g.BarresInertie();
            g.Tourner();
            for (int f = 1; f <= 3; ++f) g.MarquerContributions(f);
            if (!g.Etiquettes().empty()) {
                const auto d = g.DetailAutour(0);
                (void)g.Survol(0, &d);
                (void)g.Survol(g.Etiquettes().size() - 1);
            }
            const std::size_t n = std::min<std::size_t>(g.Etiquettes().size(), 4);
            for (std::size_t i = 0; i < n; ++i)
                for (std::size_t j = 0; j < n; ++j) (void)g.Marque(i, j);
        });
    }
    fuzz::Accepter([&] {
        CarteAccueil a;
        a.Charger(carte);
        a.BasculerGroupe(true);
        a.Rafraichir();
        a.Zoomer(5000, 5000, 2);
        a.Zoomer(5000, 5000, 2);
    });
    return 0;
}
