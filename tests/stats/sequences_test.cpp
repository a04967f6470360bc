#include "stats/sequences.hpp"

#include <gtest/gtest.h>

#include "core/texte.hpp"
#include "stats/outils.hpp"

namespace telvoris {
namespace {

using test::Banc;
using test::Lignes;

std::string M(const std::string& f) { return "<M f=" + f + " l=" + f + "_X >" + f + " "; }

void CorpusSequences(Banc& b) {
    test::Ecrire(b.ctx.ressources / "utilitaires" / "outils_2.txt", Lignes({"de", "la", "le"}));
    test::Ecrire(b.ctx.ressources / "utilitaires" / "outils_3.txt", Lignes({"et", "pas"}));
    b.Tague("t1", {"<QORX_ATTR JOURNAL=A >", M("pomme") + M("de") + M("terre") + "<PC f=, l=, >, " + M("pomme") + M("de") + M("terre"),
                   M("Il") + M("ne") + M("faut") + M("pas") + M("vite"), M("page") + M("12") + M("vite"),
                   M("Pomme") + M("de") + M("terre") + "<M f= l=_X > " + M("vite")});
    b.Tague("t2", {M("ne") + M("faut") + M("pas")});
    test::Ecrire(b.racine / "LEXIQUES" / "SIMPLE.txt", Lignes({"de\t100", "ne\t50", "pomme\t4", "faut\t3", "terre\t2"}));
}

TEST(Sequences, TableOctetPourOctetAvecTauxPivotEtSeuil) {
    Banc b;
    CorpusSequences(b);
    b.dialogue.reponses = {"2", "N"};
    b.dialogue.fichiers = {b.racine / "LEXIQUES" / "SIMPLE.txt", b.Liste({"t1", "t2"})};
    OperationSequencesMots(b.ctx);
    // By count, then by the bucket of the longest word ("faut" before "pomme"), then first
    // appearance. "pas" closes as "C" and, absent from the lexicon, gives "-". A capitalised
    // opening, a walk through punctuation or a number, and sequences seen once give nothing.
    EXPECT_EQ(b.Sortie("LEXIQUES/SEG_REP_261121_1005.txt"),
              Lignes({"CODICO\tSEQUENCE\tNB_OCC\tPIVOT\tTAUX_PIVOT\tTAUX_1\tTAUX_2\tTAUX_3\tTAUX_4\tTAUX_5\tTAUX_6",
                      "A\tne faut\t2\tfaut\t0,667\t0,04\t0,667", "C\tne faut pas\t2\tfaut\t0,667\t0,04\t0,667\t-",
                      "C\tfaut pas\t2\tfaut\t0,667\t0,667\t-", "A\tpomme de terre\t2\tterre\t1\t0,5\t0,02\t1"}));
    EXPECT_EQ(b.Sortie("LEXIQUES/SEG_REP_CONTROLE.txt"), Lignes({"---\t10:05:00", "---\t10:05:00"}));
    EXPECT_EQ(b.dialogue.messages.back(), std::string("Séquences récurrentes repérées en\r\n 1 secondes"_cp));
    EXPECT_EQ(b.dialogue.titresFichiers, (std::vector<std::string>{"LEXIQUE SIMPLE", "REPERTOIRE"}));

    // Threshold 1 keeps the single ones; with the compound filter a known compound is not counted.
    test::Ecrire(b.ctx.ressources / "dico" / "comp" / "namb" / "314.txt", Lignes({"pomme de terre,.SF:fs"}));
    b.dialogue.reponses = {"1", "O"};
    b.dialogue.fichiers = {b.racine / "LEXIQUES" / "SIMPLE.txt", b.Liste({"t1"})};
    OperationSequencesMots(b.ctx);
    const std::string table = b.Sortie("LEXIQUES/SEG_REP_261121_1005.txt");
    EXPECT_EQ(table.find("pomme de terre"), std::string::npos);
    EXPECT_NE(table.find("A\tne faut pas vite\t1\tfaut\t0,333\t0,02\t0,333\t-\t-\r\n"), std::string::npos) << table;
    EXPECT_EQ(table.find("page"), std::string::npos);
    EXPECT_EQ(table.find("\tde "), std::string::npos);  // "de" never opens
}

TEST(Sequences, UnAutreXAvecEtSansCasse) {
    Banc b;
    test::Ecrire(b.racine / "OLBRIN_TT" / "TEXTE_NU" / "t1.txt",
                 Lignes({"<---------->", "Un autre jour, un autre", "homme", "<---------->", "UN AUTRE temps vient"}));
    b.dialogue.reponses = {"un autre", "NON", "1"};
    b.dialogue.fichiers = {b.Liste({"t1"})};
    OperationUnAutreX(b.ctx);
    EXPECT_EQ(b.Sortie("SEQUENCES/un autre.txt"), Lignes({"t1\tUn autre jour,", "t1\tun autre homme", "t1\tUN AUTRE temps"}));
    b.dialogue.reponses = {"un autre", "OUI", "2"};
    b.dialogue.fichiers = {b.Liste({"t1"})};
    OperationUnAutreX(b.ctx);
    // The following words stop at the end of the part.
    EXPECT_EQ(b.Sortie("SEQUENCES/un autre.txt"), Lignes({"t1\tun autre homme"}));
    EXPECT_EQ(b.dialogue.messages.back(), std::string("Terminé en  1 secondes"_cp));
}

}  // namespace
}  // namespace telvoris
