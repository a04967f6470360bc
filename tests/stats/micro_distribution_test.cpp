#include "stats/micro_distribution.hpp"

#include <gtest/gtest.h>

#include "core/erreurs.hpp"
#include "core/texte.hpp"
#include "stats/outils.hpp"

namespace telvoris {
namespace {

using test::Banc;
using test::Lignes;
namespace fs = std::filesystem;

// Pivots "chat" and "chien"; "chat" stands twice in the first line, on either side of a full
// stop, and "chien" twice around a "chat" in the second.
void CorpusMicro(Banc& b) {
    b.Tague("t1", {"<QORX_ATTR DATE=2024 >",
                   "<M f=Le >Le <M f=chat >chat <M f=mange >mange <M f=le >le <M f=chat >chat<PC f=. l=PT >. "
                   "<M f=Il >Il <M f=dort >dort",
                   "", "<M f=chien >chien <M f=chat >chat <M f=chien >chien"});
    test::Ecrire(b.racine / "lignes.txt", Lignes({"chat\t12", "chien\t3,5"}));
    test::Ecrire(b.racine / "colonnes.txt", Lignes({"le\t1", "chat\tx", "dort\t1", "chien\t1", "zut\t1"}));
}

// Runs the command with its prompts answered: strong threshold, selection, exclusion, clipping,
// name; and the list, row and column files.
void Lancer(Banc& b, const ParametresReleve& p, std::deque<std::string> reponses) {
    b.dialogue.reponses = std::move(reponses);
    b.dialogue.fichiers = {b.Liste({"t1"}), b.racine / "lignes.txt", b.racine / "colonnes.txt"};
    MicroDistribution(b.ctx, p);
}

std::string Brut(Banc& b, const std::string& nom) { return b.Sortie("AFC_MICRO/" + nom + "/MICRO_BRUT.txt"); }

const std::string kEntete = "\tle\tchat\tdort\tchien\tzut";

TEST(MicroDistribution, QuatreTablesOctetPourOctet) {
    Banc b;
    CorpusMicro(b);
    Lancer(b, ParametresReleve{}, {"1", "N", "0", "0", ""});
    const std::string dossier = "AFC_MICRO/O_2-261121_1005/";
    // To the left a repeated pivot counts (chat, chat); to the right it does not. The column
    // that never co-occurs has E = 0 throughout.
    EXPECT_EQ(b.Sortie(dossier + "MICRO_BRUT.txt"),
              Lignes({kEntete, "chat\t4\t1\t2\t2\t0", "chien\t0\t2\t0\t1\t0"}));
    EXPECT_EQ(b.Sortie(dossier + "MICRO_ECARTS.txt"),
              Lignes({kEntete, "chat\t0,58\t-0,83\t0,41\t-0,17\t0", "chien\t-1\t1,44\t-0,71\t0,29\t0"}));
    // Clipping at 0: above, Round(E) with ties to even (1,5 gives 2, 0,75 gives 1); below, a
    // value of 0 (Round(0,5)) becomes 1.
    EXPECT_EQ(b.Sortie(dossier + "MICRO_ECRETEE.txt"), Lignes({kEntete, "chat\t3\t2\t2\t2\t0", "chien\t1\t1\t1\t1\t0"}));
    // Round(5E + 5b): 17,5 gives 18 and 2,5 gives 2.
    EXPECT_EQ(b.Sortie(dossier + "MICRO_AMORTIE.txt"),
              Lignes({kEntete, "chat\t35\t16\t18\t21\t0", "chien\t5\t14\t2\t9\t0"}));
    EXPECT_EQ(b.Sortie(dossier + "FORTS_ECARTS.txt"), Lignes({"chien\tchat\t1,44"}));
    EXPECT_EQ(b.dialogue.questions,
              (std::vector<std::string>{
                  std::string("Seuil pour les forts écarts-réduits (de 15 à 50) ?"_cp),
                  std::string("Souhaitez-vous sélectionner selon une métadonnée à l'intérieur de votre corpus -O/N- ?"_cp),
                  "Exclure les cooccurrents les plus proches ? Si oui, entrez le nombre. Si non, entrez ZERO",
                  std::string("Fixez un seuil d'écart-réduit pour l'ecrétage (un nombre entier de 2 à 5)."_cp),
                  std::string("Nommez votre matrice - sinon elle sera nommée automatiquement"_cp)}));
    EXPECT_EQ(b.dialogue.defauts, (std::vector<std::string>{"10", "N", "0", "2", ""}));
    EXPECT_EQ(b.dialogue.titresFichiers, (std::vector<std::string>{std::string("Localiser le répertoire"_cp),
                                                                    "items en lignes", "items en colonnes"}));
    EXPECT_EQ(b.dialogue.messages, (std::vector<std::string>{std::string("Relevé terminé en\r\n 1 secondes"_cp),
                                                              std::string("Terminé en  1 secondes"_cp)}));

    // A deviation equal to the clipping threshold is not clipped: (chien, le) has z = -1.
    Lancer(b, ParametresReleve{}, {"1", "N", "0", "1", "seuil1"});
    EXPECT_EQ(b.Sortie("AFC_MICRO/seuil1/MICRO_ECRETEE.txt"),
              Lignes({kEntete, "chat\t4\t1\t2\t2\t0", "chien\t0\t2\t0\t1\t0"}));
    // The selection criterion is asked and selects nothing.
    Lancer(b, ParametresReleve{}, {"1", "O", "DATE=1999", "0", "0", "critere"});
    EXPECT_EQ(Brut(b, "critere"), Brut(b, "O_2-261121_1005"));
}

TEST(MicroDistribution, EmpanExclusionEtLimiteDePhrase) {
    Banc b;
    CorpusMicro(b);
    ParametresReleve deux;
    deux.EmpanFixe = true;
    deux.Empan = 2;
    Lancer(b, deux, {"10", "N", "0", "2", "empan2"});
    EXPECT_EQ(Brut(b, "empan2"), Lignes({kEntete, "chat\t2\t0\t0\t2\t0", "chien\t0\t2\t0\t0\t0"}));

    Lancer(b, ParametresReleve{}, {"10", "N", "1", "2", "exclusion1"});
    EXPECT_EQ(Brut(b, "exclusion1"), Lignes({kEntete, "chat\t2\t1\t2\t0\t0", "chien\t0\t0\t0\t1\t0"}));

    // The full stop ends the walk and is not counted; the default name starts with "P".
    ParametresReleve phrase;
    phrase.LimitePhrase = true;
    Lancer(b, phrase, {"10", "N", "0", "2", ""});
    EXPECT_EQ(Brut(b, "P_2-261121_1005"), Lignes({kEntete, "chat\t4\t1\t0\t2\t0", "chien\t0\t2\t0\t1\t0"}));
    phrase.EmpanFixe = true;
    phrase.Empan = 3;
    Lancer(b, phrase, {"10", "N", "0", "2", ""});
    EXPECT_TRUE(fs::exists(b.racine / "AFC_MICRO/P3_2-261121_1005/MICRO_BRUT.txt"));

    // A folder name in use fails at its creation.
    EXPECT_THROW(Lancer(b, phrase, {"10", "N", "0", "2", ""}), ErreurExecution);
}

// One line of m pivots "a" then k co-occurrents "b": m x k co-occurrences.
std::string LigneDense(int m, int k) {
    std::string l;
    for (int i = 0; i < m; ++i) l += "<M f=a >a ";
    for (int i = 0; i < k; ++i) l += "<M f=b >b ";
    return l;
}

TEST(MicroDistribution, GardeDEchelleAuDelaDUnMillion) {
    Banc b;
    test::Ecrire(b.racine / "lignes.txt", Lignes({"a\t1", "c\t1"}));
    test::Ecrire(b.racine / "colonnes.txt", Lignes({"b\t1", "d\t1"}));
    // A total of exactly 1,000,000 is not scaled: (c, d) is empty and E = 0 there.
    b.Tague("t1", {LigneDense(1000, 1000)});
    Lancer(b, ParametresReleve{}, {"10", "N", "0", "2", "million"});
    EXPECT_EQ(b.Sortie("AFC_MICRO/million/MICRO_ECARTS.txt"), Lignes({"\tb\td", "a\t0\t0", "c\t0\t0"}));
    // One more: the total is 1,000,001 and scaled to 10,000, the margins of (c, d) to 0, so
    // E = 0 there and the cell keeps its count; unscaled it would be a deviation near 1,000.
    b.Tague("t1", {LigneDense(1000, 1000), "<M f=c >c <M f=d >d"});
    Lancer(b, ParametresReleve{}, {"10", "N", "0", "2", "million1"});
    EXPECT_EQ(b.Sortie("AFC_MICRO/million1/MICRO_BRUT.txt"), Lignes({"\tb\td", "a\t1000000\t0", "c\t0\t1"}));
    EXPECT_EQ(b.Sortie("AFC_MICRO/million1/MICRO_ECARTS.txt"), Lignes({"\tb\td", "a\t0\t0", "c\t0\t0"}));
    EXPECT_EQ(b.Sortie("AFC_MICRO/million1/MICRO_AMORTIE.txt"), Lignes({"\tb\td", "a\t10000000\t0", "c\t0\t1"}));
    EXPECT_EQ(b.Sortie("AFC_MICRO/million1/FORTS_ECARTS.txt"), "");
}

TEST(MicroDistribution, FichiersRefusesEtCorpusSansOlbrin) {
    {
        Banc b;
        CorpusMicro(b);
        test::Ecrire(b.racine / "lignes.txt", Lignes({"chat\t12", "chien\tbeaucoup"}));
        try {
            Lancer(b, ParametresReleve{}, {"10", "N", "0", "2", ""});
            FAIL();
        } catch (const ErreurExecution& e) {
            EXPECT_NE(std::string(e.what()).find("beaucoup"), std::string::npos) << e.what();
            EXPECT_NE(std::string(e.what()).find("ligne 2"), std::string::npos) << e.what();
        }
        test::Ecrire(b.racine / "lignes.txt", Lignes({"chat"}));
        EXPECT_THROW(Lancer(b, ParametresReleve{}, {"10", "N", "0", "2", ""}), ErreurExecution);
        std::vector<std::string> mille;
        for (int i = 0; i <= 1000; ++i) mille.push_back("m" + std::to_string(i) + "\t1");
        test::Ecrire(b.racine / "lignes.txt", Lignes(mille));
        EXPECT_THROW(Lancer(b, ParametresReleve{}, {"10", "N", "0", "2", ""}), ErreurExecution);
        mille.pop_back();
        test::Ecrire(b.racine / "lignes.txt", Lignes(mille));
        Lancer(b, ParametresReleve{}, {"10", "N", "0", "2", "mille"});
        EXPECT_TRUE(fs::exists(b.racine / "AFC_MICRO/mille/MICRO_BRUT.txt"));
        // A threshold that is not a number is the conversion failure.
        EXPECT_THROW(Lancer(b, ParametresReleve{}, {"beaucoup"}), ErreurExecution);
    }
    {
        Banc b;
        b.dialogue.reponses = {"10", "N"};
        b.dialogue.fichiers = {b.Liste({"t1"})};
        try {
            MicroDistribution(b.ctx, ParametresReleve{});
            FAIL();
        } catch (const FinProgramme& e) {
            const std::string m = e.what();
            EXPECT_TRUE(m.starts_with("Le sous-dossier ")) << m;
            EXPECT_TRUE(m.ends_with("OLBRIN_TT n'existe pas. Recommencez.")) << m;
        }
    }
}

}  // namespace
}  // namespace telvoris
