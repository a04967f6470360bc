#include "lexicon/flechisseur.hpp"

#include <gtest/gtest.h>

#include <algorithm>

#include "core/fichiers.hpp"
#include "core/texte.hpp"
#include "lexicon/arbre.hpp"
#include "lexicon/tables_flexion_test.hpp"
#include "support/support.hpp"

namespace telvoris {
namespace {

using test::DossierTemporaire;
using test::Ecrire;
using test::Lignes;
using test::Lire;
using test::MessageErreur;

std::vector<std::string> Formes(const TablesFlexion& t, std::string_view lemme, std::string_view cat, int classe) {
    Flexions f;
    Flechir(t, std::string(lemme), cat, classe, false, f);
    return f.formes;
}

bool Contient(const std::vector<std::string>& v, std::string_view l) { return std::find(v.begin(), v.end(), l) != v.end(); }

TEST(Flechisseur, ListeEcriteOctetPourOctet) {
    DossierTemporaire d;
    test::EcrireTablesFlexion(d.Chemin());
    const TablesFlexion t = ChargerTablesFlexion(d.Chemin());
    const fs::path liste = d.Chemin() / "corpus" / "lemmes.txt";
    Ecrire(liste, Lignes({"cheval,SM\t3", "souris,SF\t2", "bon,J\t3", "", "rapide,J\t2", "heureux,J\t5", "vite,A",
                          "frire,V\t3_D", "tortue,SF", "doux,J\t0", "zut,V\t0"}));
    EXPECT_EQ(FlechirListe(t, liste), 10);
    EXPECT_EQ(Lire(d.Chemin() / "corpus" / "lemmes_FLEX.txt"),
              Lignes({"cheval,cheval,SMS", "chevaux,cheval,SMP", "souris,souris,SFX",
                      // The doubling flag doubles the last letter before the feminine ending.
                      "bon,bon,JMS", "bonne,bon,JFS", "bons,bon,JMP", "bonnes,bon,JFP",
                      // Feminine equal to masculine: either gender; plural equal to singular: MX.
                      "rapide,rapide,JWS", "rapides,rapide,JWP", "heureux,heureux,JMX", "heureuse,heureux,JFS",
                      "heureuses,heureux,JFP", "vite,vite,A",
                      // A defective verb has only its participles and infinitive.
                      "frit,frire,VYMS", "frits,frire,VYMP", "frite,frire,VYFS", "frites,frire,VYFP",
                      "frisant,frire,VX", "frire,frire,VF"}));
    // Class 0 (or no tab at all) goes to the second file only.
    EXPECT_EQ(Lire(d.Chemin() / "corpus" / "lemmes_FLEXMA.txt"),
              Lignes({"tortue,tortue,SFS", "tortue,tortue,SFP", "doux,doux,JMS", "doux,doux,JMP", "doux,doux,JFS",
                      "doux,doux,JFP", "zut,zut,VF"}));
}

TEST(Flechisseur, ConjugaisonsDesClasses) {
    DossierTemporaire d;
    test::EcrireTablesFlexion(d.Chemin());
    const TablesFlexion t = ChargerTablesFlexion(d.Chemin());
    const auto aimer = Formes(t, "aimer", "V", 1);
    // 6 persons x 7 tenses, 3 imperatives, 4 participles, the present participle, the infinitive.
    EXPECT_EQ(aimer.size(), 42u + 3 + 4 + 1 + 1);
    EXPECT_EQ(aimer.front(), "aime,aimer,V11");
    EXPECT_EQ(aimer.back(), "aimer,aimer,VF");
    for (const char* l : {"aimons,aimer,V48", "aimaient,aimer,V62", "aima,aimer,V33", "aimâmes,aimer,V43",
                          "aimèrent,aimer,V63", "aimerai,aimer,V14", "aimions,aimer,V45", "aimât,aimer,V36",
                          "aimassions,aimer,V46", "aimeraient,aimer,V67", "aimé,aimer,VYMS", "aimées,aimer,VYFP",
                          "aimant,aimer,VX"})
        EXPECT_TRUE(Contient(aimer, Utf8VersCp1252(l))) << l;
    const auto finir = Formes(t, "finir", "V", 2);
    for (const char* l : {"finis,finir,V11", "finit,finir,V31", "finissons,finir,V41", "finissaient,finir,V62",
                          "finîmes,finir,V43", "finirent,finir,V63", "finît,finir,V36", "fini,finir,VYMS",
                          "finissant,finir,VX"})
        EXPECT_TRUE(Contient(finir, Utf8VersCp1252(l))) << l;
    // The two patches of the present: "dites", and the third person that loses its "t".
    const auto dire = Formes(t, "dire", "V", 3);
    EXPECT_TRUE(Contient(dire, "dites,dire,V51"));
    EXPECT_TRUE(Contient(dire, "dites,dire,V58"));
    EXPECT_FALSE(Contient(dire, "disez,dire,V51"));
    EXPECT_TRUE(Contient(dire, Utf8VersCp1252("dîmes,dire,V43")));
    const auto rendre = Formes(t, "rendre", "V", 4);
    EXPECT_TRUE(Contient(rendre, "rend,rendre,V31"));
    EXPECT_TRUE(Contient(rendre, "rendis,rendre,V13"));
    EXPECT_TRUE(Contient(rendre, "rendrons,rendre,V44"));
    EXPECT_TRUE(Contient(rendre, "rendu,rendre,VYMS"));
    // Class 11: persons 1, 2, 3 and 6 of the present have a second form on the next stem.
    const auto asseoir = Formes(t, "asseoir", "V", 11);
    const std::vector<std::string> present(asseoir.begin(), asseoir.begin() + 9);
    EXPECT_EQ(present, (std::vector<std::string>{"assieds,asseoir,V11", "assieds,asseoir,V21", "assied,asseoir,V31",
                                                 "asseyons,asseoir,V41", "asseyez,asseoir,V51",
                                                 "asseyent,asseoir,V61", "assieds,asseoir,V28",
                                                 "asseyons,asseoir,V48", "asseyez,asseoir,V58"}));
    const std::vector<std::string> secondes(asseoir.begin() + 9, asseoir.begin() + 14);
    EXPECT_EQ(secondes, (std::vector<std::string>{"assois,asseoir,V11", "assois,asseoir,V28", "assois,asseoir,V21",
                                                  "assoit,asseoir,V31", "assoient,asseoir,V61"}));
    // A class whose row is empty cannot be treated: the infinitive goes to the second list.
    Flexions f;
    Flechir(t, "bidule", "V", 7, false, f);
    EXPECT_TRUE(f.formes.empty());
    EXPECT_EQ(f.manques, std::vector<std::string>{"bidule,bidule,VF"});
}

TEST(Flechisseur, ErreursNommentFichierEtLigne) {
    DossierTemporaire d;
    test::EcrireTablesFlexion(d.Chemin());
    const TablesFlexion t = ChargerTablesFlexion(d.Chemin());
    const fs::path liste = d.Chemin() / "l.txt";
    Ecrire(liste, Lignes({"bon,J\t3", "cheval SM 3"}));
    EXPECT_NE(MessageErreur([&] { FlechirListe(t, liste); }).find("l.txt, ligne 2"), std::string::npos);
    Ecrire(liste, Lignes({"bon,J\tx3"}));
    EXPECT_NE(MessageErreur([&] { FlechirListe(t, liste); }).find("classe illisible : x3"), std::string::npos);
    Ecrire(liste, Lignes({"bon,J\t51"}));
    EXPECT_NE(MessageErreur([&] { FlechirListe(t, liste); }).find("MAX_CLASSES_ADJ = 50"), std::string::npos);
    Ecrire(liste, Lignes({"bon,V\t101"}));
    EXPECT_NE(MessageErreur([&] { FlechirListe(t, liste); }).find("MAX_CLASSES_VERBE = 100"), std::string::npos);
    // A malformed row of a table names the table and its line.
    const fs::path adj = Chemin(d.Chemin(), Joindre(DOSSIER_CODES_FLEXIONNELS, "/flexion_adj.txt"));
    Ecrire(adj, Lignes({"0e\t0s", "xe\t0s"}));
    const std::string m = MessageErreur([&] { ChargerTablesFlexion(d.Chemin()); });
    EXPECT_NE(m.find("flexion_adj.txt, ligne 2"), std::string::npos) << m;
    const fs::path code = Chemin(d.Chemin(), Joindre(DOSSIER_CODES_FLEXIONNELS, "/flexions_code.txt"));
    test::EcrireTablesFlexion(d.Chemin());
    Ecrire(code, Lignes({"classe", "1\t2\t\t\t\t\t\t\t1er\t111111\t111111\t111111\t111111\t111111\t9\t1\t1"}));
    EXPECT_NE(MessageErreur([&] { ChargerTablesFlexion(d.Chemin()); }).find("flexions_code.txt, ligne 2"),
              std::string::npos);
}

}  // namespace
}  // namespace telvoris
