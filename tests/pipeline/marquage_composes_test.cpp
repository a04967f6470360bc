#include "pipeline/marquage_composes.hpp"

#include <gtest/gtest.h>

#include "core/erreurs.hpp"
#include "core/horloge.hpp"
#include "lexicon/composes.hpp"
#include "pipeline/arbre_etiquetage.hpp"

namespace telvoris {
namespace {

using test::DossierTemporaire;
using test::Lignes;
using test::Lire;

using test::C;

test::ContenuArbre Composes() {
    test::ContenuArbre a;
    a.composes = {"pomme de,.SF:s",    "pomme de terre,.SF:s", C("à peu près,.A"_cp), "new york,.N",
                  "chemin de fer,.SM:s", "de fer,.J:xx",       C("fer à repasser,.SM:s"_cp)};
    return a;
}

const TableComposes& Table() {
    static DossierTemporaire d;
    static TableComposes t = [] {
        test::ConstruireArbre(d.Chemin(), Composes());
        TableComposes table;
        ChargerComposes(table, d.Chemin());
        return table;
    }();
    return t;
}

std::string Marquer(std::string_view ligne, CompteursComposes& c) {
    std::string s;
    MarquerComposesLigne(ligne, Table(), c, s);
    return s;
}

TEST(MarquageComposes, LePlusCourtGagneEtLesSeparateursSontReplies) {
    CompteursComposes c;
    // "pomme de" is found before "pomme de terre" is ever tried; the raw forms keep their case,
    // and each absorbed separator comes behind a blank of its own.
    EXPECT_EQ(Marquer("<M f=Pomme >Pomme <M f=de >de <M f=terre >terre", c),
              "<MC f=Pomme_de l=pomme_de_SF flex=s >Pomme  de <M f=terre >terre");
    EXPECT_EQ(c.nb_mots, 1);
    EXPECT_EQ(c.nb_composes, 1);
    // An empty lemma before the dot is the key's words joined by "_"; no flexion, no flex=.
    c = {};
    EXPECT_EQ(Marquer(C("<M f=à >à <M f=peu >peu <M f=près >près<PC f=, l=V >,"_cp), c),
              C("<MC f=à_peu_près l=à_peu_près_A >à  peu  près<PC f=, l=V >,"_cp));
    EXPECT_EQ(c.nb_mots, 1);
    // After a merge the next word is tried again: "chemin de fer" then nothing for "à" alone,
    // since the merged slots hold no word; a compound at the last two words is marked.
    c = {};
    EXPECT_EQ(Marquer(C("<M f=chemin >chemin <M f=de >de <M f=fer >fer <M f=fer >fer <M f=à >à <M f=repasser >repasser"_cp), c),
              C("<MC f=chemin_de_fer l=chemin_de_fer_SM flex=s >chemin  de  fer <MC f=fer_à_repasser l=fer_à_repasser_SM flex=s >fer  à  repasser"_cp));
    EXPECT_EQ(c.nb_composes, 2);
    EXPECT_EQ(c.nb_mots, 2);
}

TEST(MarquageComposes, NomPropreMajusculeEtFrontieres) {
    CompteursComposes c;
    // Refused after a small letter, and counted all the same.
    EXPECT_EQ(Marquer("<M f=new >new <M f=york >york", c), "<M f=new >new <M f=york >york");
    EXPECT_EQ(c.nb_composes, 1);
    EXPECT_EQ(Marquer("<M f=New >New <M f=York >York", c), "<MC f=New_York l=new_york_N >New  York");
    EXPECT_EQ(c.nb_composes, 2);
    // No compound across punctuation, an existing compound or other tags; a last word starts nothing.
    c = {};
    const std::string ligne =
        "  <M f=pomme >pomme<PC f=, l=V >, <M f=de >de <MC f=x_y l=x_y_A >x y <MN f=de >de <M f=pomme >pomme";
    EXPECT_EQ(Marquer(ligne, c), ligne);
    EXPECT_EQ(c.nb_mots, 0);
    EXPECT_EQ(c.nb_composes, 0);
    // Markup and metadata pass through; an unclosed "<" stays in the text.
    EXPECT_EQ(Marquer("<QORX_ATTR DATE=2024 >", c), "<QORX_ATTR DATE=2024 >");
    EXPECT_EQ(Marquer("<M f=pomme >pomme<BR> <M f=de >de <x", c), "<MC f=pomme_de l=pomme_de_SF flex=s >pomme<BR>  de <x");
}

TEST(MarquageComposes, OperationSauvegardeEtMessage) {
    DossierTemporaire arbre, corpus;
    test::ConstruireArbre(arbre.Chemin(), Composes());
    const std::string avant = Lignes({"<QORX_ATTR DATE=2024 >", "", "<M f=Pomme >Pomme <M f=de >de <M f=terre >terre"});
    const fs::path liste = test::ConstruireCorpus(corpus.Chemin(), {{"a", avant}, {"b", "<M f=new >new <M f=york >york"}});
    test::DialogueScripte d;
    d.fichiers.push_back(liste);
    HorlogeFixe h({2026, 11, 21, 10, 0, 0});
    Contexte ctx{d, h, arbre.Chemin()};
    OperationComposes(ctx);
    const fs::path tt = corpus.Chemin() / "OLBRIN_TT";
    EXPECT_EQ(Lire(tt / "AVANT_COMP" / "a.txt"), avant);
    EXPECT_EQ(Lire(tt / "a.txt"),
              Lignes({"<QORX_ATTR DATE=2024 >", "<MC f=Pomme_de l=pomme_de_SF flex=s >Pomme  de <M f=terre >terre"}));
    EXPECT_EQ(Lire(tt / "b.txt"), Lignes({"<M f=new >new <M f=york >york"}));
    ASSERT_EQ(d.messages.size(), 1u);
    EXPECT_EQ(d.messages[0], C("Terminé en 1 secondes. 2 mots, 2 composés N"_cp));
    // A second run sees the compounds as ends and backs up the first run's output.
    d.fichiers.push_back(liste);
    OperationComposes(ctx);
    EXPECT_EQ(Lire(tt / "AVANT_COMP" / "a.txt"),
              Lignes({"<QORX_ATTR DATE=2024 >", "<MC f=Pomme_de l=pomme_de_SF flex=s >Pomme  de <M f=terre >terre"}));
    EXPECT_EQ(d.messages[1], C("Terminé en 1 secondes. 1 mots, 1 composés N"_cp));

    // No OLBRIN_TT: the program ends before anything is written.
    DossierTemporaire vide;
    test::Ecrire(vide.Chemin() / "liste.txt", Lignes({"a"}));
    d.fichiers.push_back(vide.Chemin() / "liste.txt");
    try {
        OperationComposes(ctx);
        ADD_FAILURE();
    } catch (const FinProgramme& e) {
        EXPECT_EQ(e.what(), C("Ressources non constituées. Vérifiez"_cp));
    }
    // A missing compound file stops the run with its name, before any text is touched.
    fs::remove(FichierCasier(arbre.Chemin(), DOSSIER_COMPOSES_NAMB, 5, 2));
    d.fichiers.push_back(liste);
    try {
        OperationComposes(ctx);
        ADD_FAILURE();
    } catch (const ErreurExecution& e) {
        EXPECT_NE(std::string(e.what()).find("5b.txt"), std::string::npos);
    }
    EXPECT_EQ(Lire(tt / "b.txt"), Lignes({"<M f=new >new <M f=york >york"}));
}

}  // namespace
}  // namespace telvoris
