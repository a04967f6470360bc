// The exploration index builder over derived files of any bytes (the number of partitions, the
// tagged text with offsets and metadata lines, the token index, the bare text), then the opening
// of the index and the reading of its tables.
#include "commun.hpp"
#include "core/liste_textes.hpp"
#include "explore/corpus.hpp"
#include "explore/index_commun.hpp"
#include "explore/indexation.hpp"

using namespace telvoris;
namespace fs = std::filesystem;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t taille) {
    fuzz::ViderDossierTravail();
    const fs::path racine = fuzz::DossierTravail();
    const auto morceaux = fuzz::Morceaux(fuzz::Octets(data, taille), 4);
    const char* dossiers[] = {"NB_PARTITIONS", "TEXTE_ETIQ", "LEXINDEX", "TEXTE_NU"};
    for (std::size_t i = 0; i < 4; ++i) fuzz::EcrireOctets(racine / "OLBRIN_TT" / dossiers[i] / "t.txt", morceaux[i]);
    fuzz::EcrireOctets(racine / "REPERTOIRE.txt", "t\r\n");
    fuzz::DialogueMuet dialogue;
    fuzz::Accepter([&] {
        const ListeTextes liste = ChargerListeTextes(racine / "REPERTOIRE.txt");
        const fs::path index = DossierIndex(liste);
        fs::create_directories(index);
        ConstruireIndex(liste, index, true, dialogue);
        EtatCorpus etat = OuvrirCorpus(racine / "REPERTOIRE.txt");
        for (const auto& e : fs::directory_iterator(index / "LEXINDEX"))
            if (e.file_size() > 0) LireTableIndex(e.path());
        LireTableIndex(index / "LEXINDEX_C" / "CATEG.txt");
        ValiderCorpus(etat, ChoixVariables{}, dialogue);
    });
    return 0;
}
