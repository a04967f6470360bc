// Query entries: any text as a form, a list of forms, a lemma or a list of lemmas, with the
// options taken from the first byte, over the index of the exploration fixture.
#include "commun.hpp"
#include "core/liste_textes.hpp"
#include "explore/corpus.hpp"
#include "explore/indexation.hpp"
#include "explore/requete.hpp"

using namespace telvoris;
namespace fs = std::filesystem;

namespace {

EtatCorpus& Etat() {
    static EtatCorpus etat = [] {
        const fs::path racine = fuzz::DossierTravail() / "presse";
        fs::copy(fuzz::DossierSource() / "tests/fixtures/exploration/presse", racine, fs::copy_options::recursive);
        const ListeTextes liste = ChargerListeTextes(racine / "REPERTOIRE.txt");
        fs::create_directories(DossierIndex(liste));
        fuzz::DialogueMuet d;
        ConstruireIndex(liste, DossierIndex(liste), true, d);
        EtatCorpus e = OuvrirCorpus(racine / "REPERTOIRE.txt");
        ValiderCorpus(e, ChoixVariables{}, d);
        return e;
    }();
    return etat;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t taille) {
    if (taille < 2) return 0;
    EtatCorpus& etat = Etat();
    const unsigned options = data[0];
    ParametresRequete p;
    p.type = static_cast<TypeSaisie>(options & 3);
    p.casse = options & 4;
    p.concordance = options & 8;
    p.macro = options & 16;
    p.micro = options & 32;
    p.empan = options & 64;
    p.phrase = options & 128;
    p.cote = static_cast<Cote>(data[1] % 3);
    p.longueurEmpan = std::to_string(data[1] / 3 % 60);
    p.saisie.assign(reinterpret_cast<const char*>(data) + 2, taille - 2);
    fuzz::DialogueMuet dialogue;
    fuzz::Accepter([&] {
        Requete r;
        LancerRequete(etat, p, r, dialogue);
    });
    return 0;
}
