// Dictionary lines and word lists: a line's readings, the lemma decoder, a bucket file loaded
// with the others of the test tree, and a bounded list file.
#include "commun.hpp"
#include "core/fichiers.hpp"
#include "core/jetons.hpp"
#include "lexicon/arbre.hpp"
#include "lexicon/dictionnaire.hpp"

using namespace telvoris;
namespace fs = std::filesystem;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t taille) {
    const std::string_view entree = fuzz::Octets(data, taille);
    // A copy of the test tree, made once; the fuzzed bucket replaces one of its files.
    static const fs::path arbre = [] {
        const fs::path a = fuzz::DossierTravail() / "arbre";
        fs::copy(fuzz::RessourcesFixture(), a, fs::copy_options::recursive);
        return a;
    }();
    LecteurLignes lecteur(entree);
    std::string_view ligne;
    while (lecteur.Suivante(ligne)) {
        fuzz::Accepter([&] {
            const std::size_t virgule = ligne.find(',');
            const std::string_view forme = ligne.substr(0, virgule);
            const std::string_view droite = virgule == std::string_view::npos ? std::string_view{} : ligne.substr(virgule + 1);
            InterpreterLigne(forme, droite);
            for (std::string_view lecture : Decouper(droite, "/")) {
                CouperInterpretation(lecture);
                decoder_lemme(forme, lecture.substr(0, lecture.find('.')));
            }
            classe_mot(forme);
        });
    }
    const fs::path casier = FichierCasier(arbre, DOSSIER_DICO, 4, 3);
    const std::string ancien = LireFichier(casier);
    fuzz::EcrireOctets(casier, entree);
    fuzz::Accepter([&] {
        TableFormes table;
        ChargerDico(table, arbre, true);
    });
    fuzz::EcrireOctets(casier, ancien);
    const fs::path liste = fuzz::DossierTravail() / "liste.txt";
    fuzz::EcrireOctets(liste, entree);
    fuzz::Accepter([&] { LireListeBornee(liste, "MAX_LISTE", 50); });
    return 0;
}
