// Rewriting stages stopped between two texts, then run again: the result is that of a run that
// was never stopped, and the backups of the first run stay good. Half-made builds are refused.
#include <gtest/gtest.h>

#include <map>

#include "core/erreurs.hpp"
#include "core/horloge.hpp"
#include "core/reprise.hpp"
#include "pipeline/arbre_etiquetage.hpp"
#include "pipeline/automate.hpp"
#include "pipeline/indexeur.hpp"
#include "pipeline/levee.hpp"
#include "pipeline/marquage_composes.hpp"
#include "pipeline/segmenteur.hpp"

namespace telvoris {
namespace {

using test::C;
using test::DossierTemporaire;
using test::Lignes;
using test::Arbo;
using test::Lire;

test::ContenuArbre Arbre() {
    test::ContenuArbre a;
    a.dico = {"il,.P", "le,.DMS:ms/.P", "chat,.SM:s", "porte,.SF:s/0r.V:1a", "mange,0r.V:1a/0r.V:3a/0r.V:2i",
              "de,.BX/.DS:x", "terre,.SF:s", "pomme,.SF:s"};
    a.composes = {"pomme de,.SF:s", "pomme de terre,.SF:s"};
    a.preverb = {"il\t3\t1"};
    return a;
}

const std::map<std::string, std::string> kTextes = {
    {"a", Lignes({"<QORX_ATTR DATE=2024 >", "<M f=Il >Il <M f=mange >mange <M f=le >le <M f=chat >chat"})},
    {"b", Lignes({"<M f=pomme >pomme <M f=de >de <M f=terre >terre <M f=porte >porte"})},
    {"c", Lignes({"<M f=le >le <M f=chat >chat <M f=porte >porte <M f=pomme >pomme <M f=de >de"})},
    {"d", Lignes({"<M f=il >il <M f=mange >mange"})},
};

using Operation = void (*)(Contexte&);

// Runs `op` on the corpus of `racine` once, and returns the messages.
std::vector<std::string> Lancer(Operation op, const fs::path& arbre, const fs::path& liste) {
    test::DialogueScripte d;
    d.fichiers.push_back(liste);
    HorlogeFixe h({2026, 11, 21, 10, 0, 0});
    Contexte ctx{d, h, arbre};
    op(ctx);
    return d.messages;
}

// The stage stopped after k texts (the next one cannot be read), then run again once the text
// is back, gives byte for byte the tree of a run that was never stopped.
void VerifierReprise(Operation op, const std::string& sauvegarde, const std::string& etape) {
    DossierTemporaire arbre, temoin, corpus;
    test::ConstruireArbre(arbre.Chemin(), Arbre());
    const fs::path listeTemoin = test::ConstruireCorpus(temoin.Chemin(), kTextes);
    Lancer(op, arbre.Chemin(), listeTemoin);
    const auto attendu = Arbo(temoin.Chemin() / "OLBRIN_TT");
    ASSERT_EQ(attendu.count("#EN_COURS_" + sauvegarde + ".txt"), 0u);

    for (const std::string arret : {"b", "c", "d"}) {
        SCOPED_TRACE(etape + ", arrêt avant " + arret);
        fs::remove_all(corpus.Chemin() / "OLBRIN_TT");
        const fs::path liste = test::ConstruireCorpus(corpus.Chemin(), kTextes);
        const fs::path tt = corpus.Chemin() / "OLBRIN_TT";
        const fs::path texte = tt / (arret + ".txt");
        fs::rename(texte, corpus.Chemin() / "cache.txt");
        const std::string m = test::MessageErreur([&] { Lancer(op, arbre.Chemin(), liste); });
        EXPECT_NE(m.find("Fichier introuvable"), std::string::npos) << m;
        // The texts before the stop are rewritten, their backups hold the originals, and the
        // record lists them.
        EXPECT_EQ(Lire(tt / sauvegarde / "a.txt"), kTextes.at("a"));
        EXPECT_EQ(Lire(tt / "a.txt"), attendu.at("a.txt"));
        const std::string record = Lire(tt / ("#EN_COURS_" + sauvegarde + ".txt"));
        EXPECT_TRUE(record.starts_with(Utf8VersCp1252("#EN_COURS\t" + etape + "\r\na\r\n"))) << record;

        // Another rewriting stage refuses the half-made texts and says what to run again.
        if (op == &OperationComposes) {
            const std::string refus = test::MessageErreur([&] {
                try {
                    Lancer(&OperationPasseAutomatique, arbre.Chemin(), liste);
                } catch (const FinProgramme& e) {
                    throw ErreurExecution(e.what());
                }
            });
            EXPECT_NE(refus.find("La fonction « Composés » n'est pas allée à son terme"), std::string::npos) << refus;
            EXPECT_NE(refus.find("Relancez « Composés » avant cette fonction."), std::string::npos) << refus;
        }

        fs::rename(corpus.Chemin() / "cache.txt", texte);
        const auto messages = Lancer(op, arbre.Chemin(), liste);
        ASSERT_FALSE(messages.empty());
        EXPECT_NE(Cp1252VersUtf8(messages[0]).find("n'était pas allée à son terme"), std::string::npos) << messages[0];
        EXPECT_EQ(Arbo(tt), attendu);
    }
}

TEST(Reprise, ComposesEtPasseAutomatiqueArreteesPuisRelanceesCommeSansArret) {
    VerifierReprise(&OperationComposes, "AVANT_COMP", "Composés");
    VerifierReprise(&OperationPasseAutomatique, "AVANT_AUTOMATE_SIMPLES", "Passe automatique");
}

// A text that the stage cannot rewrite (a fault of its own, not a kill) is left whole and is not
// taken back at the next run: the correction the person makes to it stays.
TEST(Reprise, TexteFautifCorrigeALaMainNEstPasEcrase) {
    DossierTemporaire arbre, temoin, corpus;
    test::ConstruireArbre(arbre.Chemin(), Arbre());
    std::string trop = "<M f=x l=.SM:s";
    for (int i = 1; i <= 10; ++i) trop += "/0r.V:" + std::to_string(i % 6 + 1) + "a";
    auto textes = kTextes;
    const std::string fautif = Lignes({"<M f=chat >chat", trop + " >x"});
    textes["c"] = fautif;
    const fs::path liste = test::ConstruireCorpus(corpus.Chemin(), textes);
    const fs::path tt = corpus.Chemin() / "OLBRIN_TT";
    const std::string m = test::MessageErreur([&] { Lancer(&OperationPasseAutomatique, arbre.Chemin(), liste); });
    EXPECT_NE(m.find("MAX_LECTURES = 10"), std::string::npos) << m;
    EXPECT_EQ(Lire(tt / "c.txt"), fautif);
    EXPECT_EQ(Lire(tt / "#EN_COURS_AVANT_AUTOMATE_SIMPLES.txt"), Lignes({"#EN_COURS\tPasse automatique", "a", "b"}));

    // The person mends c; the rerun takes a and b back and gives the uninterrupted result.
    test::Ecrire(tt / "c.txt", kTextes.at("c"));
    const auto messages = Lancer(&OperationPasseAutomatique, arbre.Chemin(), liste);
    EXPECT_EQ(Cp1252VersUtf8(messages[0]),
              "La fonction « Passe automatique » n'était pas allée à son terme lors de son dernier lancement : 2 "
              "texte(s) rétabli(s) depuis AVANT_AUTOMATE_SIMPLES avant de la relancer.");
    const fs::path listeTemoin = test::ConstruireCorpus(temoin.Chemin(), kTextes);
    Lancer(&OperationPasseAutomatique, arbre.Chemin(), listeTemoin);
    EXPECT_EQ(Arbo(tt), Arbo(temoin.Chemin() / "OLBRIN_TT"));
}

// Segmentation and segment indexing mark their work until it ends; the stages that read it
// refuse it meanwhile with what to run again.
TEST(Reprise, SegmentationEtIndexationInacheveesRefusees) {
    DossierTemporaire arbre, corpus;
    test::ConstruireArbre(arbre.Chemin(), Arbre());
    test::Ecrire(FichierUtilitaire(arbre.Chemin(), "courts_frequents.txt"), Lignes({"le"}));
    const fs::path liste = test::ConstruireCorpus(corpus.Chemin(), kTextes);
    const fs::path tt = corpus.Chemin() / "OLBRIN_TT";
    const auto refus = [&](Operation op) {
        try {
            Lancer(op, arbre.Chemin(), liste);
        } catch (const FinProgramme& e) {
            return Cp1252VersUtf8(e.what());
        }
        return std::string("(accepté)");
    };
    test::Ecrire(tt / "#SEGMENTATION_EN_COURS.txt", Lignes({C("&Segmentation"_cp)}));
    const std::string attendu = "La segmentation de ce corpus n'est pas allée à son terme (trace : " +
                                (tt / "#SEGMENTATION_EN_COURS.txt").generic_string() +
                                "). Relancez « &Segmentation » avant cette fonction.";
    EXPECT_EQ(refus(&OperationComposes), attendu);
    EXPECT_EQ(refus(&OperationPasseAutomatique), attendu);
    EXPECT_EQ(refus(&OperationReindexation), attendu);
    EXPECT_EQ(Lire(tt / "a.txt"), kTextes.at("a"));  // nothing was touched
    EXPECT_FALSE(fs::exists(tt / "AVANT_COMP" / "a.txt"));

    // The half-made derived files are marked by the segment indexer itself and cleared when a
    // run ends.
    fs::remove(tt / "#SEGMENTATION_EN_COURS.txt");
    fs::rename(tt / "c.txt", corpus.Chemin() / "cache.txt");
    EXPECT_NE(test::MessageErreur([&] { Lancer(&OperationReindexation, arbre.Chemin(), liste); }).find("c.txt"),
              std::string::npos);
    EXPECT_EQ(Lire(tt / "#REINDEXATION_EN_COURS.txt"), Lignes({C("Réindexer"_cp)}));
    EXPECT_TRUE(fs::exists(tt / "TEXTE_NU/b.txt"));
    fs::rename(corpus.Chemin() / "cache.txt", tt / "c.txt");
    Lancer(&OperationReindexation, arbre.Chemin(), liste);
    EXPECT_FALSE(fs::exists(tt / "#REINDEXATION_EN_COURS.txt"));
    EXPECT_TRUE(fs::exists(tt / "TEXTE_NU/d.txt"));
}

// A review session killed in the middle of a saving point: the next session finishes that save
// before it reads the case states, so that texts and states agree.
TEST(Reprise, SauvegardeDeSessionInterrompueAchevee) {
    DossierTemporaire arbre, corpus;
    test::ContenuArbre contenu = Arbre();
    contenu.dico.push_back("ferme,.SF:s/.J:xs/0r.V:1a/0r.V:3a/0r.V:1s/0r.V:3s");
    contenu.dico.push_back("la,.P");
    test::ConstruireArbre(arbre.Chemin(), contenu);
    const fs::path liste = test::ConstruireCorpus(
        corpus.Chemin(), {{"a", Lignes({"<M f=ferme >ferme <M f=la >la <M f=porte >porte"})}, {"b", kTextes.at("b")}});
    Lancer(&OperationPasseAutomatique, arbre.Chemin(), liste);
    const fs::path tt = corpus.Chemin() / "OLBRIN_TT";
    const std::string etat = Lire(tt / "#F_ETAT.txt");
    ASSERT_TRUE(etat.starts_with("0\r\n"));
    const std::string traite = "1" + etat.substr(1);
    const std::string texteA = Lire(tt / "a.txt") + "\r\n<M f=ajout >ajout";
    // The save had written its files and its journal, and renamed only the first.
    test::Ecrire(tt / "a.txt", texteA);
    test::Ecrire(EcritureGroupee::Provisoire(tt / "#BILAN.txt"), "cas\t1\r\n");
    test::Ecrire(EcritureGroupee::Provisoire(tt / "#F_ETAT.txt"), traite);
    test::Ecrire(tt / "#SAUVEGARDE_EN_COURS.txt", Lignes({"a.txt", "#BILAN.txt", "#F_ETAT.txt"}));

    test::DialogueScripte d;
    HorlogeFixe h({2026, 11, 21, 10, 0, 0});
    SessionLevee::OuvrirSimples(ChargerListeTextes(liste), h, d);
    EXPECT_FALSE(fs::exists(tt / "#SAUVEGARDE_EN_COURS.txt"));
    EXPECT_EQ(Lire(tt / "#F_ETAT.txt"), traite);
    EXPECT_EQ(Lire(tt / "#BILAN.txt"), "cas\t1\r\n");
    EXPECT_EQ(Lire(tt / "a.txt"), texteA);
    // The session's backup holds the texts as the finished save left them.
    EXPECT_EQ(Lire(tt / "AVANT_LEVCON" / "261121_1000" / "a.txt"), texteA);
}

}  // namespace
}  // namespace telvoris
