// Press downloads: one download file of any bytes cut into articles, then regrouped by paper
// and day. Nothing may be written outside the corpus root.
#include <cstdlib>

#include "commun.hpp"
#include "intake/presse.hpp"

using namespace telvoris;
namespace fs = std::filesystem;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t taille) {
    static const TableMois mois = ChargerNomsDeMois(fuzz::DossierSource() / "tests/fixtures/europresse/morv_res");
    fuzz::ViderDossierTravail();
    const fs::path racine = fuzz::DossierTravail() / "corpus";
    fs::create_directories(racine / "ARTICLES");
    fs::create_directories(racine / "ARCHIVE_BRUT");
    fuzz::EcrireOctets(racine / "ARCHIVE" / "1" / "1.txt", fuzz::Octets(data, taille));
    fuzz::DialogueMuet dialogue;
    fuzz::Accepter([&] {
        const long long n = DecouperTelechargements(racine, dialogue);
        RegrouperArticles(racine, mois, n, dialogue);
    });
    // The day files stay in ARCHIVE_BRUT, whatever the paper's name.
    for (const auto& e : fs::directory_iterator(fuzz::DossierTravail()))
        if (e.path().filename() != "corpus") std::abort();
    for (const auto& e : fs::directory_iterator(racine / "ARCHIVE_BRUT"))
        if (!e.is_regular_file()) std::abort();
    return 0;
}
