#include "explore/commande_requete.hpp"

#include <gtest/gtest.h>

#include <sstream>

#include "core/erreurs.hpp"
#include "core/liste_textes.hpp"
#include "core/texte.hpp"
#include "corpus_test.hpp"
#include "explore/indexation.hpp"
#include "support/support.hpp"

namespace telvoris {
namespace {

using test::DossierTemporaire;
using test::PartitionTest;
namespace fs = std::filesystem;

fs::path Corpus(const fs::path& racine) {
    const auto liste = test::EcrireCorpus(
        racine, {{"t",
                  {PartitionTest{"<QORX_ATTR DATE=2003-01 TITRE=Un >",
                                 {"<M f=Le l=le_DA >Le <M f=chat l=chat_SM x=ms >chat <M f=dort l=dormir_V x=3a >dort<PC f=. l=PT >."}},
                   PartitionTest{"<QORX_ATTR DATE=2003-02 TITRE=Deux >",
                                 {"<M f=Un l=un_DI >Un <M f=chat l=chat_SM x=ms >chat <M f=noir l=noir_J x=ms >noir"}},
                   PartitionTest{"<QORX_ATTR DATE=2004-01 TITRE=" + std::string("Été"_cp) + " >",
                                 {"<M f=Rien l=rien_P >Rien"}}}}});
    test::DialogueScripte d;
    const auto l = ChargerListeTextes(liste);
    fs::create_directories(DossierIndex(l));
    ConstruireIndex(l, DossierIndex(l), true, d);
    return liste;
}

struct Sortie {
    int statut;
    std::string texte;  // UTF-8: what the dialogue was given, joined by line ends
    std::string erreurs;
};

Sortie Lancer(std::vector<std::string> args) {
    test::DialogueScripte d;
    HorlogeFixe h({2026, 11, 21, 9, 30, 0});
    std::ostringstream err;
    Sortie s;
    s.statut = CommandeRequete(args, d, h, err);
    for (const auto& m : d.messages) s.texte += Cp1252VersUtf8(m) + "\n";
    s.erreurs = err.str();
    return s;
}

TEST(CommandeRequete, ConcordanceEtDistribution) {
    DossierTemporaire d;
    const std::string liste = Corpus(d.Chemin()).string();
    auto s = Lancer({liste, "--forme", "chat", "--concordance", "--macro", "--titre", "TITRE", "--contraste", "DATE",
                     "--date", "1-4", "--tri", "gauche"});
    EXPECT_EQ(s.statut, 0) << s.erreurs;
    const std::string ligne1 = std::string(57, ' ') + "Le chat dort . " + std::string(65, ' ');
    const std::string ligne2 = std::string(57, ' ') + "Un chat noir " + std::string(67, ' ');
    // Shares 4/8, 3/8, 1/8 of the tokens; classes 2003 (7/8) and 2004.
    EXPECT_EQ(s.texte,
              "La requête en cours présente \n2 occurrence(s), ainsi réparties :\nchat\t2\n"
              "STATISTIQUES pour la requête : chat\n\n" +
                  ligne1 + "\n" + ligne2 + "\n\n"
                  "partition\toccurrences\técart réduit\n"
                  "1. TITRE=Un\t1\t0\n2. TITRE=Deux\t1\t0,37\n3. TITRE=Été\t0\t-0,53\n\n"
                  "DATE\toccurrences\técart réduit\n2003\t2\t0,53\n2004\t0\t-0,53\n");
    // Sorted on the right: "chat dort" before "chat noir".
    s = Lancer({liste, "--forme", "chat"});
    EXPECT_NE(s.texte.find("\n\n" + ligne1 + "\n" + ligne2 + "\n"), std::string::npos);
    s = Lancer({liste, "--lemme", "le_DA $SM", "--sauver"});
    EXPECT_NE(s.texte.find("Concordance sauvegardée : "), std::string::npos);
    EXPECT_TRUE(fs::exists(d.Chemin() / "REPERTOIRE_QORX_INDEX/SAUVEGARDES/CONCORDANCES/Le chat_261121_0930.txt"));
}

TEST(CommandeRequete, ErreursEtMessages) {
    DossierTemporaire d;
    const std::string liste = Corpus(d.Chemin()).string();
    auto s = Lancer({});
    EXPECT_EQ(s.statut, 2);
    EXPECT_NE(s.erreurs.find("Usage : telvoris requete"), std::string::npos);
    EXPECT_EQ(Lancer({liste}).statut, 2);
    EXPECT_EQ(Lancer({liste, "--forme", "a", "--lemme", "b_X"}).statut, 2);
    EXPECT_EQ(Lancer({liste, "--forme", "a", "--cote", "haut"}).statut, 2);
    EXPECT_EQ(Lancer({liste, "--forme", "a", "--inconnue"}).statut, 2);
    s = Lancer({liste, "--forme", "chien"});
    EXPECT_EQ(s.statut, 0);
    EXPECT_EQ(s.texte, "Votre requête n'a aucune occurrence dans le corpus\n");
    s = Lancer({liste, "--lemme", "chat"});
    EXPECT_EQ(s.texte, "Vous devez saisir un lemme avec son suffixe catégoriel précédé de l'underscore\n");
    s = Lancer({liste, "--forme", "chat", "--empan", "99", "--micro"});
    EXPECT_EQ(s.texte, "2Ce champ ne peut contenir qu'un nombre de 1 à 50\n");
    EXPECT_THROW(Lancer({liste, "--forme", "chat", "--contraste", "DATE", "--date", "4"}), FinProgramme);
    EXPECT_THROW(Lancer({liste, "--forme", "chat", "--contraste", "AUTEUR"}), ErreurExecution);
    try {
        Lancer({(d.Chemin() / "AUTRE.txt").string(), "--forme", "chat"});
        ADD_FAILURE();
    } catch (const FinProgramme& e) {
        EXPECT_EQ(Cp1252VersUtf8(e.what()), "Un dossier d'indexation manque dans 'OLBRIN_TT'. Rédindexez et recommencez.");
    }
    // A list file of forms, read as it stands (CP1252).
    test::Ecrire(d.Chemin() / "formes.txt", test::Lignes({"noir", "dort"}));
    s = Lancer({liste, "--formes", (d.Chemin() / "formes.txt").string(), "--micro"});
    EXPECT_EQ(s.statut, 0);
    EXPECT_NE(s.texte.find("STATISTIQUES pour la requête : noir_LISTE"), std::string::npos);
    EXPECT_NE(s.texte.find("co-occurrents (formes)"), std::string::npos);
}

}  // namespace
}  // namespace telvoris

namespace telvoris {
namespace {

TEST(CommandeRequete, SauvegardesDesDistributionsEtDesCooccurrents) {
    test::DossierTemporaire d;
    const std::string liste = Corpus(d.Chemin()).string();
    auto s = Lancer({liste, "--forme", "chat", "--macro", "--micro", "--contraste", "DATE", "--date", "1-4", "--sauver"});
    EXPECT_EQ(s.statut, 0) << s.erreurs;
    const auto index = d.Chemin() / "REPERTOIRE_QORX_INDEX" / "SAUVEGARDES";
    EXPECT_NE(s.texte.find("Distribution sauvegardée : " + (index / "DISTRIBUTIONS" / "chat_A_261121_0930.txt").string()),
              std::string::npos);
    // Shares 4/8, 3/8, 1/8; classes 2003 (7/8) and 2004 (1/8), as the table printed above shows.
    EXPECT_EQ(test::Lire(index / "DISTRIBUTIONS" / "chat_A_261121_0930.txt"),
              "\t1\t2\t3\r\nbrut\t1\t1\t0\r\ner\t0\t0,365148371670111\t-0,534522483824849\r\n");
    EXPECT_EQ(test::Lire(index / "DISTRIBUTIONS" / "chat_B_261121_0930.txt"),
              "\t2003\t2004\r\nbrut\t2\t0\r\ner\t0,534522483824849\t-0,534522483824849\r\n");
    // Too few co-occurrents to be retained: the lists and files are empty, and the labels say so.
    EXPECT_NE(s.texte.find("co-occurrents (lemmes) par ordre alphabétique"), std::string::npos);
    EXPECT_EQ(test::Lire(index / "marque_afc_datata.txt"), "");
    EXPECT_EQ(test::Lire(index / "resultat.txt"), "");
    // Without --sauver nothing more is written.
    fs::remove_all(index / "DISTRIBUTIONS");
    fs::create_directories(index / "DISTRIBUTIONS");
    s = Lancer({liste, "--forme", "chat", "--macro"});
    EXPECT_TRUE(fs::is_empty(index / "DISTRIBUTIONS"));
}

}  // namespace
}  // namespace telvoris
