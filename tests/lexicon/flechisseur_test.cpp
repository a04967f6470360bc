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

// The shipped tables: every class of trad_vrb.txt inflects its own model verb, and the classes
// whose forms do not follow the common endings give the forms of the language.
TEST(Flechisseur, TablesLivrees) {
    const fs::path r = fs::path(TELVORIS_EXE).parent_path() / "MORVENTA" / "morv_res";
    const TablesFlexion t = ChargerTablesFlexion(r);
    const std::string trad = Lire(Chemin(r, Joindre(DOSSIER_CODES_FLEXIONNELS, "/trad_vrb.txt")));
    LecteurLignes lecteur(trad);
    std::string_view ligne;
    int classes = 0;
    while (lecteur.Suivante(ligne)) {
        if (lecteur.Numero() == 1 || ligne.empty()) continue;
        const auto tab = ligne.find('\t');
        const int classe = std::stoi(std::string(ligne.substr(0, tab)));
        const std::string modele(ligne.substr(tab + 1));
        Flexions f;
        Flechir(t, modele, "V", classe, false, f);
        EXPECT_TRUE(f.manques.empty()) << classe << " " << Cp1252VersUtf8(modele);
        EXPECT_TRUE(Contient(f.formes, Joindre(modele, ",", modele, ",VF"))) << classe;
        EXPECT_GE(f.formes.size(), 10u) << classe << " " << Cp1252VersUtf8(modele);
        ++classes;
    }
    EXPECT_EQ(classes, 73);

    auto Verifier = [&](const char* lemme, int classe, std::vector<const char*> voulues, std::vector<const char*> exclues) {
        const auto v = Formes(t, Utf8VersCp1252(lemme), "V", classe);
        for (const char* l : voulues) EXPECT_TRUE(Contient(v, Utf8VersCp1252(l))) << l;
        for (const char* l : exclues)
            EXPECT_TRUE(std::none_of(v.begin(), v.end(), [&](const std::string& x) { return x.starts_with(Utf8VersCp1252(l)); }))
                << l;
    };
    Verifier("être", 25,
             {"suis,être,V11", "es,être,V21", "est,être,V31", "étions,être,V42", "fûmes,être,V43", "soient,être,V65",
              "fussions,être,V46", "serons,être,V44", "été,être,VYMS", "étant,être,VX"},
             {"suiss,", "soie,", "soiions,"});
    Verifier("avoir", 26,
             {"as,avoir,V21", "a,avoir,V31", "avons,avoir,V41", "aie,avoir,V15", "aient,avoir,V65",
              "eûmes,avoir,V43", "aurai,avoir,V14", "eue,avoir,VYFS", "ayant,avoir,VX"},
             {"at,", "aons,", "avent,", "aiions,"});
    Verifier("acquérir", 51, {"acquiers,acquérir,V11", "acquit,acquérir,V33", "acquis,acquérir,VYMX", "acquerrai,acquérir,V14"},
             {"acquierss,", "acquisis,"});
    Verifier("haïr", 54, {"hais,haïr,V11", "haïssons,haïr,V41", "haïrai,haïr,V14", "haï,haïr,VYMS"}, {"haïssr"});
    Verifier("clore", 58, {"clos,clore,V11", "clôt,clore,V31", "closent,clore,V61", "clorai,clore,V14", "close,clore,V35"},
             {"cloais,", "clot,", "cloons,"});
    Verifier("gésir", 61, {"gis,gésir,V11", "gît,gésir,V31", "gisons,gésir,V41", "gisaient,gésir,V62", "gisant,gésir,VX"},
             {"giss,", "gise,"});
    Verifier("absoudre", 62, {"absous,absoudre,V11", "absolvons,absoudre,V41", "absolus,absoudre,V13",
                              "absoudrai,absoudre,V14", "absolvant,absoudre,VX"},
             {"absolvrai,"});
    Verifier("traire", 60, {"trayons,traire,V41", "trairai,traire,V14", "trait,traire,VYMS"}, {"trays,"});
    Verifier("protéger", 64,
             {"protège,protéger,V11", "protégeons,protéger,V41", "protégez,protéger,V51", "protégeait,protéger,V32",
              "protégions,protéger,V42", "protégeai,protéger,V13", "protégèrent,protéger,V63", "protégions,protéger,V45",
              "protégeasse,protéger,V16", "protégerai,protéger,V14", "protégé,protéger,VYMS", "protégeant,protéger,VX"},
             {});
    Verifier("dépecer", 65, {"dépèce,dépecer,V11", "dépeçons,dépecer,V41", "dépecez,dépecer,V51", "dépeçais,dépecer,V12",
                             "dépècerai,dépecer,V14", "dépecé,dépecer,VYMS"},
             {});
    Verifier("pourvoir", 66, {"pourvoit,pourvoir,V31", "pourvoyons,pourvoir,V41", "pourvus,pourvoir,V13",
                              "pourvoirai,pourvoir,V14", "pourvu,pourvoir,VYMS", "pourvoyant,pourvoir,VX"},
             {});
    Verifier("prévoir", 67, {"prévois,prévoir,V11", "prévis,prévoir,V13", "prévoirai,prévoir,V14", "prévu,prévoir,VYMS"}, {});
    Verifier("maudire", 68, {"maudit,maudire,V31", "maudissons,maudire,V41", "maudîmes,maudire,V43", "maudit,maudire,VYMS"},
             {});
    Verifier("vêtir", 69, {"vêts,vêtir,V11", "vêt,vêtir,V31", "vêtons,vêtir,V41", "vêtis,vêtir,V13", "vêtirai,vêtir,V14",
                           "vêtu,vêtir,VYMS", "vêtant,vêtir,VX"},
             {"vêtt,"});
    Verifier("nuire", 70, {"nuit,nuire,V31", "nuisons,nuire,V41", "nuisit,nuire,V33", "nui,nuire,VYMS"}, {"nuit,nuire,VYMS"});
    Verifier("interdire", 71, {"interdisez,interdire,V51", "interdit,interdire,VYMS"}, {"interdites,interdire,V5"});
    // Impersonal verbs: the third person alone in the tenses built from the pattern rows.
    Verifier("falloir", 72, {"faut,falloir,V31", "fallait,falloir,V32", "fallut,falloir,V33", "faille,falloir,V35",
                             "fallût,falloir,V36", "faudra,falloir,V34", "fallu,falloir,VYMS"},
             {"faus,", "fallais,", "fallant,"});
    Verifier("pleuvoir", 73, {"pleut,pleuvoir,V31", "pleuvent,pleuvoir,V61", "plut,pleuvoir,V33", "pleuvra,pleuvoir,V34",
                              "plu,pleuvoir,VYMS", "pleuvant,pleuvoir,VX"},
             {"pleus,"});
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
