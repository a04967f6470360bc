#include "lexicon/maintenance.hpp"

#include <gtest/gtest.h>

#include "core/fichiers.hpp"
#include "core/horloge.hpp"
#include "core/texte.hpp"
#include "lexicon/arbre.hpp"
#include "pipeline/arbre_etiquetage.hpp"
#include "support/support.hpp"

namespace telvoris {
namespace {

using test::DialogueScripte;
using test::DossierTemporaire;
using test::Ecrire;
using test::Lignes;
using test::Lire;
using test::MessageErreur;

fs::path Dico(const fs::path& r, std::string_view nom) { return Chemin(r, Joindre(DOSSIER_DICO, "/", nom)); }

void Arbre(const fs::path& r, std::vector<std::string> dico, std::vector<std::string> composes = {}) {
    test::ContenuArbre a;
    a.dico = std::move(dico);
    a.composes = std::move(composes);
    test::ConstruireArbre(r, a);
    for (int w = 2; w <= 8; ++w)
        for (int c = 1; c <= 20; ++c) Ecrire(FichierCasier(r, DOSSIER_COMPOSES_AMB, w, c), "");
}

TEST(Maintenance, SuppressionDeLemmesAvecSauvegarde) {
    DossierTemporaire d;
    const fs::path r = d.Chemin();
    Arbre(r, {"porte,.SF:s/0r.V:3a", "portes,1.SF:p/1r.V:2a", "mur,.SM:s", "murs,1.SM:p", "muret,.SM:s"});
    const fs::path retraits = r / "retraits.txt";
    Ecrire(retraits, Lignes({"porte_SF", "mur_SM"}));
    DialogueScripte dlg;
    dlg.fichiers = {retraits};
    HorlogeFixe h({2026, 11, 24, 9, 30, 0});
    Contexte ctx{dlg, h, r};
    OperationSuppressionLemmes(ctx);
    // The noun reading goes, the verb reading stays: a simplification.
    EXPECT_EQ(Lire(Dico(r, "5p.txt")), Lignes({"porte,0r.V:3a"}));
    EXPECT_EQ(Lire(Dico(r, "6p.txt")), Lignes({"portes,1r.V:2a"}));
    // A line whose readings are all listed disappears; its file stays, empty.
    EXPECT_EQ(Lire(Dico(r, "3m.txt")), "");
    EXPECT_TRUE(fs::exists(Dico(r, "3m.txt")));
    EXPECT_EQ(Lire(Dico(r, "4m.txt")), "");
    EXPECT_EQ(Lire(Dico(r, "5m.txt")), Lignes({"muret,.SM:s"}));
    EXPECT_EQ(Lire(Chemin(r, "dico/SUPPRESSIONS_FAITES.txt")), Lignes({"mur", "murs"}));
    EXPECT_EQ(Lire(Chemin(r, "dico/SIMPLIFICATIONS_FAITES.txt")), Lignes({"porte", "portes"}));
    EXPECT_EQ(dlg.messages, std::vector<std::string>{"Terminé. 2 suppressions, 2 simplifications."_cp.data()});
    // The backup restores the dictionary as it stood.
    EXPECT_EQ(Lire(Chemin(r, "dico/olbrin_261124_0930/5p.txt")), Lignes({"porte,.SF:s/0r.V:3a"}));
    EXPECT_EQ(Lire(Chemin(r, "dico/olbrin_261124_0930/3m.txt")), Lignes({"mur,.SM:s"}));

    // Whole lines: only an identical line is found.
    Ecrire(retraits, Lignes({"muret,.SM:s", "porte,.SF:s/0r.V:3a"}));
    DialogueScripte dlg2;
    dlg2.fichiers = {retraits};
    h.Regler({2026, 11, 24, 9, 31, 0});
    Contexte ctx2{dlg2, h, r};
    OperationSuppressionLignes(ctx2);
    EXPECT_EQ(Lire(Dico(r, "5m.txt")), "");
    EXPECT_EQ(Lire(Dico(r, "5p.txt")), Lignes({"porte,0r.V:3a"}));
    EXPECT_EQ(Lire(Chemin(r, "dico/SUPPRESSIONS_2.txt")), Lignes({"muret,.SM:s"}));
    EXPECT_EQ(dlg2.messages, (std::vector<std::string>{"09:31:00", "1 suppressions."}));
    EXPECT_EQ(Lire(Chemin(r, "dico/olbrin_261124_0931/5m.txt")), Lignes({"muret,.SM:s"}));

    // A missing dictionary file stops the removal, the backup made of what was there.
    fs::remove(Dico(r, "15t.txt"));
    DialogueScripte dlg3;
    dlg3.fichiers = {retraits};
    h.Regler({2026, 11, 24, 9, 32, 0});
    Contexte ctx3{dlg3, h, r};
    EXPECT_NE(MessageErreur([&] { OperationSuppressionLignes(ctx3); }).find("15t.txt"), std::string::npos);
}

TEST(Maintenance, StatistiquesEtExtractions) {
    DossierTemporaire d;
    const fs::path r = d.Chemin();
    Arbre(r,
          {"porte,.SF:s/0r.V:3a/.N", "portes,1.SF:p/1r.V:2a", "vite,.A", "grand,.J:ms", "grande,1.J:fs", "achats,1.SM:p",
           "acheta,1er.V:3c", "abaque,.SM:s", "de,.O"},
          {"pomme de terre,.SF:s"});
    HorlogeFixe h({2026, 11, 24, 9, 30, 0});
    DialogueScripte dlg;
    Contexte ctx{dlg, h, r};
    OperationStatistiquesDico(ctx);
    EXPECT_EQ(Lire(Chemin(r, "dico/STATISTIQUES_DICO_261124_0930.txt")),
              Lignes({"9 formes", "2 ambiguës"_cp.data(), "9 lemmes", "1 A", "1 J", "1 N", "0 R", "1 SF", "2 SM",
                      "2 V"}));
    EXPECT_EQ(dlg.messages, (std::vector<std::string>{"9 formes.", "9 lemmes."}));

    // "S" takes in SF and SM; compounds come after the simple forms on "O".
    DialogueScripte dlg2;
    dlg2.reponses = {"O", "SF"};
    Contexte ctx2{dlg2, h, r};
    OperationExtraireCategorie(ctx2);
    EXPECT_EQ(Lire(Chemin(r, "dico/EXTRAIT_S.txt")),
              Lignes({"porte,.SF:s/0r.V:3a/.N", "portes,1.SF:p/1r.V:2a", "pomme de terre,.SF:s"}));
    EXPECT_EQ(dlg2.messages, std::vector<std::string>{"Terminé en 1 secondes"_cp.data()});

    // Only dico/olbrin/6a.txt is read.
    DialogueScripte dlg3;
    Contexte ctx3{dlg3, h, r};
    Ecrire(Dico(r, "6a.txt"), Lignes({"achats,1.SM:p", "acheta,1er.V:3c", "achat,.SM:s", "abaque,.SM:s"}));
    OperationExtractionLemmesFormes(ctx3);
    EXPECT_EQ(Lire(Chemin(r, "dico/EXTRAIT_261124_0930.txt")),
              Lignes({"achat_SM\tachats/achat", "acheter_V\tacheta", "abaque_SM\tabaque"}));
}

}  // namespace
}  // namespace telvoris
