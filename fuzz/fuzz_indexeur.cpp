// The segment indexer over a tagged text of any bytes: the seven derived files of one text.
#include "commun.hpp"
#include "core/fichiers.hpp"
#include "core/liste_textes.hpp"
#include "pipeline/indexeur.hpp"
#include "pipeline/segmenteur.hpp"

using namespace telvoris;
namespace fs = std::filesystem;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t taille) {
    static const ListeCasiers courts = ChargerCourtsFrequents(fuzz::RessourcesFixture());
    fuzz::ViderDossierTravail();
    const fs::path racine = fuzz::DossierTravail();
    fuzz::EcrireOctets(racine / "OLBRIN_TT" / "t.txt", fuzz::Octets(data, taille));
    fuzz::EcrireOctets(racine / "liste.txt", "t\r\n");
    fuzz::DialogueMuet dialogue;
    fuzz::Accepter([&] { Indexer(ChargerListeTextes(racine / "liste.txt"), courts, dialogue); });
    return 0;
}
