// Small hand-written inflection tables for the inflector tests: five adjective classes, three
// noun classes, and the verb classes of aimer (1), finir (2), dire (3), rendre (4), asseoir (11).
#pragma once

#include <string>

#include "core/fichiers.hpp"
#include "core/texte.hpp"
#include "lexicon/arbre.hpp"
#include "support/support.hpp"

namespace telvoris::test {

inline void EcrireTablesFlexion(const fs::path& racine) {
    auto F = [&](std::string_view nom) { return Chemin(racine, Joindre(DOSSIER_CODES_FLEXIONNELS, "/", nom)); };
    Ecrire(F("flexion_adj.txt"), Lignes({"0e\t0s", "0\t0s", "0#e\t0s", "1ve\t0s", "1se\t0"}));
    Ecrire(F("flexion_subst.txt"), Lignes({"0s", "0", "1ux"}));
    Ecrire(F("flexions_personnelles.txt"),
           Lignes({"e\tais\ts\tx\tai\tis", "es\tais\ts\tx\tas\tis", "e\tait\tt\tt\ta\tit",
                   std::string("ons\tions\tons\tons\t"_cp) + std::string("âmes\tîmes"_cp),
                   std::string("ez\tiez\tez\tez\t"_cp) + std::string("âtes\tîtes"_cp),
                   std::string("ent\taient\tent\tent\t") + std::string("èrent\tirent"_cp)}));
    Ecrire(F("flexions_perso_variables.txt"),
           Lignes({"ai\tas\ta\tons\tez\tont", "e\tes\te\tions\tiez\tent", "sse\tsses\t^t\tssions\tssiez\tssent",
                   "ais\tais\tait\tions\tiez\taient"}));
    std::vector<std::string> code = {
        "classe\tt1\tt2\tt3\tt4\tt5\tt6\tt7\tfutur\tpr\timp\tps\tsp\tsi\tterm\tpp\tppr",
        std::string("1\t2\t\t\t\t\t\t\t1er\t111111\t111111\t111111\t111111\t111111\t0\t1"_cp) + std::string("é\t1"_cp),
        "2\t1\t1ss\t\t\t\t\t\t1r\t111222\t222222\t111111\t222222\t111111\t4\t1\t2",
        "3\t2\t2s\t\t\t\t\t\t1ir\t111222\t222222\t111111\t222222\t111111\t5\t1t\t2",
        "4\t2\t\t\t\t\t\t\t1r\t111111\t111111\t111111\t111111\t111111\t6\t1u\t1",
        "", "", "", "", "", "",
        "11\t4ied\t4oi\t4ey\t4oi\t\t\t\t2r\t111333\t333333\t111111\t333333\t111111\t6\t1is\t3",
    };
    Ecrire(F("flexions_code.txt"), Lignes(code));
}

}  // namespace telvoris::test
