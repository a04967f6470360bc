// An exploration index whose build did not end is refused at opening, with what to run again;
// half-made derived files are refused by the builder before it destroys the old index.
#include <gtest/gtest.h>

#include "core/erreurs.hpp"
#include "core/horloge.hpp"
#include "core/liste_textes.hpp"
#include "core/texte.hpp"
#include "corpus_test.hpp"
#include "explore/corpus.hpp"
#include "explore/indexation.hpp"
#include "support/support.hpp"

namespace telvoris {
namespace {

using test::DossierTemporaire;
namespace fs = std::filesystem;

std::string MessageFin(const std::function<void()>& f) {
    try {
        f();
    } catch (const FinProgramme& e) {
        return Cp1252VersUtf8(e.what());
    }
    return "(aucune fin)";
}

TEST(IndexInacheve, RefuseALOuvertureEtAvantDeDetruireLAncien) {
    DossierTemporaire d;
    const auto liste = test::EcrireCorpus(
        d.Chemin(), {{"t", {test::PartitionNumerotee("<QORX_ATTR DATE=2005-01 >", 3, 1)}},
                     {"u", {test::PartitionNumerotee("<QORX_ATTR DATE=2005-02 >", 2, 4)}}});
    const auto l = ChargerListeTextes(liste);
    const fs::path index = DossierIndex(l);
    test::DialogueScripte dialogue;

    // The build stops on the second text: the index is left with its mark.
    fs::create_directories(index);
    fs::rename(d.Chemin() / "OLBRIN_TT/TEXTE_ETIQ/u.txt", d.Chemin() / "cache.txt");
    EXPECT_NE(test::MessageErreur([&] { ConstruireIndex(l, index, true, dialogue); }).find("TEXTE_ETIQ/u.txt"),
              std::string::npos);
    EXPECT_EQ(MessageFin([&] { OuvrirCorpus(liste); }),
              "L'index de ce corpus est incomplet : sa construction n'est pas allée à son terme (trace : " +
                  (index / "#INDEXATION_EN_COURS.txt").generic_string() +
                  "). Relancez « Indexer » (menu Fichier) et répondez O pour le reconstruire.");

    // Rebuilt whole, it opens.
    fs::rename(d.Chemin() / "cache.txt", d.Chemin() / "OLBRIN_TT/TEXTE_ETIQ/u.txt");
    HorlogeFixe horloge({2026, 11, 21, 10, 0, 0});
    Contexte ctx{dialogue, horloge, d.Chemin()};
    dialogue.reponses = {"N", "O"};
    dialogue.fichiers.push_back(liste);
    OperationIndexExploration(ctx);
    EXPECT_FALSE(fs::exists(index / "#INDEXATION_EN_COURS.txt"));
    EXPECT_EQ(OuvrirCorpus(liste).variables, std::vector<std::string>{"DATE"});

    // Derived files that the segment indexer left half-made: refused before the old index goes.
    test::Ecrire(d.Chemin() / "OLBRIN_TT/#REINDEXATION_EN_COURS.txt", test::Lignes({"R\xE9indexer"}));
    dialogue.reponses = {"N", "O"};
    dialogue.fichiers.push_back(liste);
    EXPECT_EQ(MessageFin([&] { OperationIndexExploration(ctx); }),
              "L'indexation des segments de ce corpus n'est pas allée à son terme (trace : " +
                  (d.Chemin() / "OLBRIN_TT/#REINDEXATION_EN_COURS.txt").generic_string() +
                  "). Relancez « Réindexer » avant cette fonction.");
    EXPECT_TRUE(fs::exists(index / "LONPARTS_M.txt"));
    EXPECT_EQ(OuvrirCorpus(liste).variables, std::vector<std::string>{"DATE"});
}

}  // namespace
}  // namespace telvoris
