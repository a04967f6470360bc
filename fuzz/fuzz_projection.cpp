// Projection files: the coordinate, contribution, eigenvalue and statistics files of a solver
// result, of any bytes, projected on a flat map of factors 1 and 2 and on a globe of 1, 2, 3.
#include "commun.hpp"
#include "stats/projection.hpp"

using namespace telvoris;
namespace fs = std::filesystem;

namespace {

// Answers each file dialog with the next path given.
class DialogueFichiers : public fuzz::DialogueMuet {
public:
    std::vector<fs::path> fichiers;
    std::optional<fs::path> ChoisirFichier(std::string_view, std::string_view) override {
        if (fichiers.empty()) return std::nullopt;
        fs::path f = fichiers.front();
        fichiers.erase(fichiers.begin());
        return f;
    }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t taille) {
    fuzz::ViderDossierTravail();
    const fs::path dossier = fuzz::DossierTravail() / "AFC_MICRO";
    const auto morceaux = fuzz::Morceaux(fuzz::Octets(data, taille), 6);
    const char* noms[] = {"corco.txt", "conco.txt", "corli.txt", "conli.txt", "eigen.txt", "STATS.txt"};
    for (std::size_t i = 0; i < 6; ++i) fuzz::EcrireOctets(dossier / ("M_" + std::string(noms[i])), morceaux[i]);
    for (int dimensions : {2, 3}) {
        DialogueFichiers d;
        d.fichiers = {dossier / "M_corco.txt", dossier / "M_corli.txt"};
        ParametresProjection p;
        p.axes = dimensions == 2 ? std::vector<long long>{1, 2} : std::vector<long long>{1, 2, 3};
        p.trace = true;
        fuzz::Accepter([&] {
            if (dimensions == 2) ProjeterPlan(d, p);
            else ProjeterGlobe(d, p);
        });
    }
    return 0;
}
