// End-to-end runs of the telvoris command on fixture corpora.
#include <gtest/gtest.h>

#include "lancer.hpp"
#include "support/support.hpp"

namespace telvoris {
namespace {

using test::DossierTemporaire;
using test::Lignes;
using test::Lire;
namespace fs = std::filesystem;

using test::Execution;
using test::Lancer;

const std::string kRessources = test::RessourcesTest().string();
const std::string kHorloge = "2026-11-21 10:00:00";

TEST(LigneDeCommande, SegmentationDuCorpusExemple) {
    DossierTemporaire d;
    fs::copy(test::DossierSource() / "exemples/presse", d.Chemin() / "presse", fs::copy_options::recursive);
    const auto liste = (d.Chemin() / "presse/REPERTOIRE.txt").string();
    auto e = Lancer({"smn_seg", "--ressources", kRessources, "-r", liste, "--horloge", kHorloge});
    EXPECT_EQ(e.statut, 0) << e.erreurs;
    EXPECT_EQ(e.sortie, "Segmenté et indexé en 1 secondes\n");
    const auto tt = d.Chemin() / "presse/OLBRIN_TT";
    const std::string nom = "LA_GAZETTE_DE_L_EST_2024-03-02.txt";
    // The empty article gives an empty partition; every derived file exists for every text.
    EXPECT_NE(Lire(tt / "NB_PARTITIONS" / nom).find("\r\n0\r\n"), std::string::npos);
    for (const auto& texte : fs::directory_iterator(d.Chemin() / "presse/ARCHIVE_BRUT"))
        for (const char* dossier : {"TEXTE_NU", "TEXTE_MIN", "LEXINDEX", "REPERE_LIGNES", "TEXTE_ETIQ",
                                    "NB_PARTITIONS", "METADONNEES"})
            EXPECT_TRUE(fs::exists(tt / dossier / texte.path().filename())) << dossier << texte.path();

    // Re-indexing alone gives the same files again.
    const std::string lexindex = Lire(tt / "LEXINDEX" / nom), etiq = Lire(tt / "TEXTE_ETIQ" / nom);
    e = Lancer({"smn_idx", "--ressources", kRessources, "--reponse", liste, "--horloge", kHorloge});
    EXPECT_EQ(e.statut, 0) << e.erreurs;
    EXPECT_EQ(e.sortie, "Réindexé en 1 secondes\n");
    EXPECT_EQ(Lire(tt / "LEXINDEX" / nom), lexindex);
    EXPECT_EQ(Lire(tt / "TEXTE_ETIQ" / nom), etiq);
}

TEST(LigneDeCommande, StatutsDeSortie) {
    auto e = Lancer({"liste"});
    EXPECT_EQ(e.statut, 0);
    EXPECT_NE(e.sortie.find("    Form2.smn_seg\tSegmentation\n"), std::string::npos) << e.sortie;
    EXPECT_NE(e.sortie.find("    Form2.smn_idx\tRéindexer\n"), std::string::npos) << e.sortie;

    EXPECT_EQ(Lancer({}).statut, 2);
    EXPECT_EQ(Lancer({"smn_inconnu"}).statut, 2);
    EXPECT_EQ(Lancer({"smn_seg", "--horloge", "hier"}).statut, 2);
    EXPECT_EQ(Lancer({"smn_seg", "--option"}).statut, 2);

    DossierTemporaire d;
    e = Lancer({"smn_seg", "--ressources", (d.Chemin() / "absent").string()});
    EXPECT_EQ(e.statut, 3);
    EXPECT_EQ(e.sortie,
              "Le dossier 'morv_res' est absent. Copiez-le sur un lecteur interne, svp. Puis relancez l'application.\n");

    // A text of the list without its source file: an execution error naming the file.
    test::Ecrire(d.Chemin() / "REPERTOIRE.txt", Lignes({"manque"}));
    e = Lancer({"smn_seg", "--ressources", kRessources, "-r", (d.Chemin() / "REPERTOIRE.txt").string()});
    EXPECT_EQ(e.statut, 1);
    EXPECT_NE(e.erreurs.find("Fichier introuvable"), std::string::npos) << e.erreurs;
    EXPECT_NE(e.erreurs.find("ARCHIVE_BRUT/manque.txt"), std::string::npos) << e.erreurs;

    // Re-indexing a corpus that was never segmented ends the program.
    DossierTemporaire vierge;
    test::Ecrire(vierge.Chemin() / "REPERTOIRE.txt", Lignes({"t"}));
    e = Lancer({"smn_idx", "--ressources", kRessources, "-r", (vierge.Chemin() / "REPERTOIRE.txt").string()});
    EXPECT_EQ(e.statut, 3);
    EXPECT_EQ(e.sortie, "Ressources non constituées. Vérifiez\n");

    // Without an answer and without a terminal the file dialog cannot be answered: a usage
    // error that names it, never a silent success.
    e = Lancer({"smn_seg", "--ressources", kRessources});
    EXPECT_EQ(e.statut, 2);
    EXPECT_EQ(e.sortie, "");
    EXPECT_EQ(e.erreurs, "Réponse manquante : Localiser le répertoire\n"
                         "(question n° 1 ; à donner avec --reponse, voir « telvoris Form2.smn_seg --help »)\n");
}

}  // namespace
}  // namespace telvoris
