// The review sessions run through the telvoris command with scripted answers.
#include <gtest/gtest.h>

#include "lancer.hpp"
#include "support/support.hpp"

namespace telvoris {
namespace {

using test::DossierTemporaire;
using test::Ecrire;
using test::Lignes;
using test::Lire;
namespace fs = std::filesystem;

using test::Execution;
using test::Lancer;

const std::string kRessources = test::RessourcesTest().string();
const std::string kHorloge = "2026-11-21 10:00:00";

const std::string kFerme = "<M f=ferme l=.SF:s/.J:xs/0r.V:1a/0r.V:3a/0r.V:1s/0r.V:3s >";
const std::string kMange = "<M f=mange l=0r.V:1a/0r.V:3a/0r.V:2i >";
const std::string kPorte = "<M f=porte l=.SF:s/0r.V:1a >";

std::string B(const std::string& mange1, const std::string& mange2) {
    return "<M f=Il l=il_P >Il " + mange1 + "mange <M f=la l=la_P >la " + kPorte +
           "porte<BR>\r\n<M f=chat l=chat_SM x=s >chat " + mange2 + "mange";
}

// A corpus as the automatic pass leaves it: three open cases over two texts.
fs::path Corpus(const fs::path& racine) {
    const fs::path tt = racine / "OLBRIN_TT";
    fs::create_directories(tt / "AVANT_AUTOMATE_SIMPLES");
    Ecrire(tt / "a.txt", "<QORX_ATTR DATE=2024 >\r\n<M f=Elle l=elle_P >Elle <M f=chat l=chat_SM x=s >chat\r\n" + kFerme +
                             "ferme <M f=x l=x_SM x=s >x");
    Ecrire(tt / "b.txt", B(kMange, kMange));
    Ecrire(tt / "#INDEX_ms.txt", Lignes({kFerme + "\t1\t3", kMange + "\t2\t6-10", kPorte + "\t3\t8"}));
    Ecrire(tt / "#INDEX_LEMMES.txt", Lignes({"manger_V\t2\t" + kMange, "porte_SF\t1\t" + kPorte}));
    Ecrire(tt / "#F_ETAT.txt", Lignes({"0", "0", "0"}));
    Ecrire(tt / "#BILAN.txt", "");
    Ecrire(racine / "REPERTOIRE.txt", Lignes({"a", "b"}));
    return racine / "REPERTOIRE.txt";
}

TEST(LeveeLigneDeCommande, SessionSimplesAvecReponses) {
    DossierTemporaire d;
    const std::string liste = Corpus(d.Chemin()).string();
    const fs::path tt = d.Chemin() / "OLBRIN_TT";
    // Way of working in order; case 1: reading 3; case 2: sorted on the right, then 2 and 1.
    // The answers run out on case 3: the session stops at the question's default and saves.
    auto e = Lancer({"smn_lev", "--ressources", kRessources, "--horloge", kHorloge, "-r", liste, "-r", "O", "-r", "3",
                     "-r", "T", "-r", "21"});
    EXPECT_EQ(e.statut, 0) << e.erreurs;
    EXPECT_EQ(Lire(tt / "AVANT_LEVCON" / "261121_1000" / "b.txt"), B(kMange, kMange));
    EXPECT_EQ(Lire(tt / "a.txt"), "<QORX_ATTR DATE=2024 >\r\n<M f=Elle l=elle_P >Elle <M f=chat l=chat_SM x=s >chat\r\n"
                                  "<M f=ferme l=fermer_V x=1a >ferme <M f=x l=x_SM x=s >x");
    EXPECT_EQ(Lire(tt / "b.txt"), B("<M  f=mange l=manger_V x=1a >", "<M f=mange l=manger_V x=3a >"));
    EXPECT_EQ(Lire(tt / "#BILAN.txt"), Lignes({kFerme + "\t3", kMange + "\t12"}));
    EXPECT_EQ(Lire(tt / "#F_ETAT.txt"), Lignes({"1", "1", "0"}));
    // The case as the terminal shows it.
    EXPECT_NE(e.sortie.find("CAS n°1 sur 3 : ferme : 1 occurrence(s).\r\n  [1] l=ferme_SF x=s\r\n"), std::string::npos)
        << e.sortie;
    EXPECT_NE(e.sortie.find("1 (.) " + std::string(54, ' ') + "Elle chat [ferme] x\r\n"), std::string::npos) << e.sortie;
    EXPECT_NE(e.sortie.find("CAS n°3 sur 3 : porte : 1 occurrence(s)."), std::string::npos);
    EXPECT_EQ(e.sortie.find("Opération terminée"), std::string::npos);

    // Resumed: the open case comes first; an empty answer validates it and the session ends.
    e = Lancer({"smn_lev", "--ressources", kRessources, "--horloge", kHorloge, "-r", liste, "-r", "O", "-r", "1"});
    EXPECT_EQ(e.statut, 0) << e.erreurs;
    EXPECT_NE(e.sortie.find("CAS n°3 sur 3 : porte"), std::string::npos) << e.sortie;
    EXPECT_TRUE(e.sortie.ends_with("\nOpération terminée\n")) << e.sortie;
    EXPECT_EQ(Lire(tt / "#BILAN.txt"), Lignes({kFerme + "\t3", kMange + "\t12", kPorte + "\t1"}));
    EXPECT_EQ(Lire(tt / "b.txt"), "<M f=Il l=il_P >Il <M  f=mange l=manger_V x=1a >mange <M f=la l=la_P >la "
                                  "<M  f=porte l=porte_SF x=s >porte<BR>\r\n<M f=chat l=chat_SM x=s >chat "
                                  "<M f=mange l=manger_V x=3a >mange");
    EXPECT_EQ(Lire(tt / "#F_ETAT.txt"), Lignes({"1", "1", "1"}));

    // Nothing open: the session ends at once.
    e = Lancer({"smn_lev", "--ressources", kRessources, "--horloge", kHorloge, "-r", liste});
    EXPECT_EQ(e.statut, 0) << e.erreurs;
    EXPECT_EQ(e.sortie, "Opération terminée\n");

    // Before the automatic pass: the program ends with its message.
    fs::remove_all(tt / "AVANT_AUTOMATE_SIMPLES");
    e = Lancer({"smn_lev", "--ressources", kRessources, "-r", liste});
    EXPECT_EQ(e.statut, 3);
    EXPECT_EQ(e.sortie, "Vous devez d'abord avoir passé la fonction 'automates'.\n");
}

TEST(LeveeLigneDeCommande, InviteDuChoixAuTerminal) {
    if (!fs::exists("/usr/bin/script")) GTEST_SKIP() << "script (util-linux) absent";
    DossierTemporaire d;
    const std::string liste = Corpus(d.Chemin()).string();
    // The prompt's default is the stop its text announces for an empty answer: Enter asks
    // whether to stop, Enter again saves and leaves with nothing settled.
    auto e = test::LancerTerminal({"smn_lev", "--ressources", kRessources, "--horloge", kHorloge, "-r", liste, "-r", "O"},
                                  "\n\n");
    EXPECT_EQ(e.statut, 0) << e.sortie;
    EXPECT_NE(e.sortie.find("V valide les coches et passe au cas suivant ; I (ou une réponse vide) pour INTERROMPRE. [I] "),
              std::string::npos)
        << e.sortie;
    EXPECT_NE(e.sortie.find("INTERROMPRE ? - Voulez-vous vraiment (O/N) interrompre cette session après avoir sauvegardé "
                            "vos données ? [O] "),
              std::string::npos)
        << e.sortie;
    EXPECT_EQ(Lire(d.Chemin() / "OLBRIN_TT" / "#F_ETAT.txt"), Lignes({"0", "0", "0"}));
    EXPECT_EQ(Lire(d.Chemin() / "OLBRIN_TT" / "b.txt"), B(kMange, kMange));
}

TEST(LeveeLigneDeCommande, SessionComposesAvecReponses) {
    DossierTemporaire d;
    const fs::path tt = d.Chemin() / "OLBRIN_TT";
    const std::string liste = (d.Chemin() / "REPERTOIRE.txt").string();
    Ecrire(d.Chemin() / "REPERTOIRE.txt", Lignes({"t"}));
    const std::string mk = "<MK f=pomme_de_terre z=3 >";
    Ecrire(tt / "t.txt", "<M f=la >la " + mk + "<M f=pomme >pomme <M f=de >de <M f=terre >terre <MK z=2 f=au >" +
                             "<M f=a >a <M f=le >le");
    // Without the work folder of the review, the program ends with its path in the message.
    auto e = Lancer({"smn_lca", "--ressources", kRessources, "-r", liste});
    EXPECT_EQ(e.statut, 3);
    EXPECT_EQ(e.sortie, (tt / "CONTROLE_COMPOSES").generic_string() +
                            "----Il n'existe pas de dossier de composés ambigus. Veuillez vérifier vos données.\n");
    fs::create_directories(tt / "CONTROLE_COMPOSES");
    e = Lancer({"smn_lca", "--ressources", kRessources, "--horloge", kHorloge, "-r", liste, "-r", "1", "-r", "0"});
    EXPECT_EQ(e.statut, 0) << e.erreurs;
    EXPECT_NE(e.sortie.find("CAS n°1 sur 2 : pomme_de_terre : 1 occurrence(s).\r\n  [1] l=composé pomme_de_terre\r\n"),
              std::string::npos)
        << e.sortie;
    EXPECT_TRUE(e.sortie.ends_with("Opération terminée\n"));
    // The text files are CP1252: the contracted article is written with the byte of "Â".
    EXPECT_EQ(Lire(tt / "t.txt"), "<M f=la >la <MC f=pomme_de_terre z=3 >pomme de terre <M ><M ><M >"
                                  "<M f= l=le_D\xC2 x=ms ><M f=a >a <M f=le >le");
    EXPECT_EQ(Lire(tt / "CONTROLE_COMPOSES" / "#ETAT.txt"), "2\r\n");
    EXPECT_EQ(Lire(tt / "CONTROLE_COMPOSES" / "#BILAN.txt"), Lignes({mk + "\t1", "<MK z=2 f=au >\t0"}));
}

}  // namespace
}  // namespace telvoris
