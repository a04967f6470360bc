// A missing or cut resource file is named, with its line, by the stages that load it.
#include <gtest/gtest.h>

#include "core/erreurs.hpp"
#include "core/horloge.hpp"
#include "lexicon/composes.hpp"
#include "pipeline/arbre_etiquetage.hpp"
#include "pipeline/automate.hpp"
#include "pipeline/marquage_composes.hpp"

namespace telvoris {
namespace {

using test::DossierTemporaire;
using test::Lignes;
using test::Lire;

test::ContenuArbre Arbre() {
    test::ContenuArbre a;
    a.dico = {"chat,.SM:s", "porte,.SF:s/0r.V:1a"};
    a.composes = {"pomme de,.SF:s"};
    return a;
}

std::string Lancer(void (*op)(Contexte&), const fs::path& arbre, const fs::path& liste) {
    test::DialogueScripte d;
    d.fichiers.push_back(liste);
    HorlogeFixe h({2026, 11, 21, 10, 0, 0});
    Contexte ctx{d, h, arbre};
    return test::MessageErreur([&] { op(ctx); });
}

TEST(MessagesRessources, FichierManquantOuCoupeNommeAvecSaLigne) {
    DossierTemporaire arbre, corpus;
    test::ConstruireArbre(arbre.Chemin(), Arbre());
    const std::string texte = Lignes({"<M f=chat >chat"});
    const fs::path liste = test::ConstruireCorpus(corpus.Chemin(), {{"a", texte}});
    const fs::path tt = corpus.Chemin() / "OLBRIN_TT";

    // A missing bucket: the automatic pass names it, and no text is touched.
    const CleMot cle = classe_mot("chat");
    const fs::path casier = FichierCasier(arbre.Chemin(), DOSSIER_DICO, cle.ClasseLongueur, cle.ClasseInitiale);
    const std::string contenuCasier = Lire(casier);
    fs::remove(casier);
    EXPECT_EQ(Lancer(&OperationPasseAutomatique, arbre.Chemin(), liste),
              "Fichier introuvable : " + casier.generic_string());
    EXPECT_EQ(Lire(tt / "a.txt"), texte);

    // A bucket cut in the middle of its last line.
    test::Ecrire(casier, contenuCasier + "chat2,0r");
    EXPECT_EQ(Lancer(&OperationPasseAutomatique, arbre.Chemin(), liste),
              "Fichier de ressources coupé : la dernière ligne est incomplète (« chat2,0r ») : " +
                  casier.generic_string() + ", ligne 2. Vérifiez les ressources (verifier-ressources) ou réinstallez-les.");
    for (const std::string coupee : {"chat2", "chat2,", "chat2,.SM:s/", "chat2,.SM:s/0r"}) {
        test::Ecrire(casier, contenuCasier + coupee);
        EXPECT_NE(Lancer(&OperationPasseAutomatique, arbre.Chemin(), liste).find("Fichier de ressources coupé"),
                  std::string::npos)
            << coupee;
    }
    // A last line without its line end but whole is taken.
    test::Ecrire(casier, contenuCasier + "chat2,.SM:s");
    EXPECT_EQ(Lancer(&OperationPasseAutomatique, arbre.Chemin(), liste), "(aucune erreur)");
    EXPECT_EQ(Lire(tt / "a.txt"), "<M f=chat l=chat_SM x=s >chat");

    // A compound file cut the same way, for the compound marker.
    const fs::path composes =
        FichierCasier(arbre.Chemin(), DOSSIER_COMPOSES_NAMB, 2, classe_mot("pomme").ClasseInitiale);
    test::Ecrire(composes, Lignes({"pomme de,.SF:s"}) + "pomme cuite,");
    EXPECT_EQ(Lancer(&OperationComposes, arbre.Chemin(), liste),
              "Fichier de ressources coupé : la dernière ligne est incomplète (« pomme cuite, ») : " +
                  composes.generic_string() + ", ligne 2. Vérifiez les ressources (verifier-ressources) ou réinstallez-les.");
}

}  // namespace
}  // namespace telvoris
