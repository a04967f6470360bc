// The segmenter's line: raw text of any bytes, with the lists of the test resource tree.
#include "commun.hpp"
#include "core/fichiers.hpp"
#include "core/jetons.hpp"
#include "pipeline/segmenteur.hpp"

using namespace telvoris;
namespace fs = std::filesystem;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t taille) {
    static const ListesSegmentation listes = ChargerListesSegmentation(fuzz::RessourcesFixture());
    static TableJetons table;
    static LigneJetons jetons;
    std::string sortie;
    LecteurLignes lecteur(fuzz::Octets(data, taille));
    std::string_view ligne;
    while (lecteur.Suivante(ligne)) {
        if (EstLigneMetadonnees(ligne)) continue;
        fuzz::Accepter([&] {
            sortie.clear();
            SegmenterLigne(ligne, listes, table, sortie);
            // What the segmenter writes, the tag cutter reads.
            DecouperLigne(sortie, jetons);
        });
    }
    return 0;
}
