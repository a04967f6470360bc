#include "correction/recensement.hpp"

#include <gtest/gtest.h>

#include "core/erreurs.hpp"
#include "core/horloge.hpp"
#include "correction/arbre_correction.hpp"

namespace telvoris {
namespace {

using test::C;
using test::Lignes;
using test::Lire;

struct Banc {
    test::DossierTemporaire tmp;
    fs::path res = tmp.Chemin() / "MORVENTA" / "morv_res";
    fs::path corpus = tmp.Chemin() / "corpus";
    test::DialogueScripte d;
    HorlogeFixe horloge{Instant{2026, 3, 4, 10, 0, 0}};
    Contexte ctx{d, horloge, res};
    TablesRecensement t;

    Banc() {
        test::ContenuCorrection a;
        a.dico = {C("élève"_cp), C("élevé"_cp), C("déjà"_cp), C("école"_cp), C("être"_cp), "savoir", "savait"};
        a.filtrage = {"l'amour\t5", "peut-etre\t4", "maison\t3", "ami\t2", "les\t7", "ville\t0"};
        test::ConstruireArbreCorrection(res, a);
        ChargerTablesRecensement(t, res);
        test::Ecrire(corpus / "liste.txt", Lignes({"t1"}));
    }
    std::string Candidats(std::string_view w) const {
        std::string r;
        for (const Candidat& c : telvoris::Candidats(w, t)) r += c.mot + "=" + std::to_string(c.score) + " ";
        return r;
    }
};

TEST(Recensement, MatriceSymetriqueEtPremieresLettres) {
    Banc b;
    const MatriceCaracteres& m = b.t.matrice;
    EXPECT_EQ(m.Poids('a', 'e'), 3);
    EXPECT_EQ(m.Poids('e', 'a'), 3);
    EXPECT_EQ(m.Poids('o', 'a'), 2);
    EXPECT_EQ(m.Poids('o', 'e'), 1);
    EXPECT_EQ(m.Poids('b', 'c'), 1);  // a to i are at least 1 ...
    EXPECT_EQ(m.Poids('a', 'a'), 1);
    EXPECT_EQ(m.Poids('o', 'o'), 0);  // ... and only they
    EXPECT_EQ(m.Poids('j', 'a'), 0);
}

TEST(Recensement, ChaqueRegleSurUnMotFaitPourElle) {
    Banc b;
    EXPECT_EQ(b.Candidats("tamour"), "l'amour=10 ");              // 1. misread elision
    EXPECT_EQ(b.Candidats("peutetre"), "peut-etre=12 ");          // 2. missing hyphen
    EXPECT_EQ(b.Candidats("rnaison"), "maison=9 ");               // 3. character confusion
    EXPECT_EQ(b.Candidats("maisan"), "maison=6 ");                // 4. nearest word, weight o/a = 2
    EXPECT_EQ(b.Candidats("mai-son"), "maison=0 maison=4 ");      // 5. spurious sign, then 10.
    EXPECT_EQ(b.Candidats("ami-les"), "ami les=0 ");              // 6. spurious sign, two words
    EXPECT_EQ(b.Candidats("maiso"), "maison=6 ");                 // 7. lost last letter
    EXPECT_EQ(b.Candidats("aison"), "maison=6 ");                 // 8. lost first letter
    EXPECT_EQ(b.Candidats("maion"), "maison=3 ");                 // 9. lost inner letter
    EXPECT_EQ(b.Candidats("maisson"), "maison=4 maison=4 ");      // 10. extra letter, x 1.5 cut
    EXPECT_EQ(b.Candidats("maisoin"), "maison=9 ");               // 10. a thin letter, x 3
    // A weight of 0 still beats no word at all.
    const Candidat p = PlusProche("maisin", b.t);
    EXPECT_EQ(p.mot, "maison");
    EXPECT_EQ(p.score, 0);
    EXPECT_EQ(PlusProche("xyzzy", b.t).score, -1);
    // On a tie the first wins.
    const auto m = Meilleur({{"a", 4}, {"b", 4}, {"c", 3}});
    ASSERT_TRUE(m);
    EXPECT_EQ(m->mot, "a");
}

TEST(Recensement, SuggestionsEtRejetsOctetPourOctet) {
    Banc b;
    test::Ecrire(b.corpus / "INCONNUS.txt",
                 Lignes({"tamour\t3", "maso\t9", "mai-son\t2", "zzzzzz\t5", "villle\t1", "rnaison\t0", "maisoin\t1"}));
    b.d.reponses = {"1"};
    b.d.fichiers = {b.corpus / "liste.txt"};
    OperationRecensementFautes(b.ctx);
    // "maso" is too short and "rnaison" below the threshold: neither is counted. A known form of
    // frequency 0 is still a suggestion.
    EXPECT_EQ(Lire(b.corpus / "CORR_SUGGESTIONS.txt"),
              Lignes({"tamour\tl'amour", "mai-son\tmaison", "villle\tville", "maisoin\tmaison"}));
    EXPECT_EQ(Lire(b.corpus / "CORR_REJETS.txt"), Lignes({"zzzzzz"}));
    EXPECT_EQ(b.d.messages.back(), C("Terminé en 1 secondes (4 suggestions sur 5 problèmes."_cp));

    test::Ecrire(b.corpus / "INCONNUS.txt", Lignes({"tamour\t3", "sans tabulation"}));
    b.d.reponses = {"1"};
    b.d.fichiers = {b.corpus / "liste.txt"};
    EXPECT_EQ(test::MessageErreur([&] { OperationRecensementFautes(b.ctx); }),
              "Ligne sans tabulation : « sans tabulation » (" + (b.corpus / "INCONNUS.txt").string() + ", ligne 2)");
}

TEST(Recensement, TablesMalFormeesNommeesParLigne) {
    Banc b;
    test::Ecrire(FichierUtilitaire(b.res, "MATRICE_CAR.txt"), Lignes({"\ta\te", "a\t1\tx"}));
    TablesRecensement t;
    EXPECT_EQ(test::MessageErreur([&] { ChargerTablesRecensement(t, b.res); }),
              "Conversion impossible en nombre entier : « x » (" +
                  FichierUtilitaire(b.res, "MATRICE_CAR.txt").string() + ", ligne 2)");
    test::Ecrire(FichierCasier(b.res, "dico/FILTRAGE", 6, 13), Lignes({"maison"}));
    EXPECT_EQ(test::MessageErreur([&] { ChargerTablesRecensement(t, b.res); }),
              "Ligne sans tabulation : « maison » (" + FichierCasier(b.res, "dico/FILTRAGE", 6, 13).string() +
                  ", ligne 1)");
}

TEST(VariantesAccents, SimplesEtMultiples) {
    Banc b;
    test::Ecrire(b.corpus / "inconnus.txt", Lignes({"eleve\t3", "ecole\t1", "deja\t1", "abc\t1", "xyzt\t1", "ecolo"}));
    b.d.reponses = {"lou"};
    b.d.fichiers = {b.corpus / "liste.txt", b.corpus / "inconnus.txt"};
    OperationVariantesAccents(b.ctx);
    EXPECT_EQ(Lire(b.corpus / "VOY_SIMPLES.txt"), Lignes({C("ecole\técole"_cp), C("deja\tdéjà"_cp)}));
    EXPECT_EQ(Lire(b.corpus / "VOY_MULTIPLES.txt"), Lignes({C("eleve\télève\télevé"_cp)}));
    // The light classes know no "à".
    b.d.reponses = {"leg"};
    b.d.fichiers = {b.corpus / "liste.txt", b.corpus / "inconnus.txt"};
    OperationVariantesAccents(b.ctx);
    EXPECT_EQ(Lire(b.corpus / "VOY_SIMPLES.txt"), Lignes({C("eleve\télevé"_cp), C("ecole\técole"_cp)}));

    ClassesDiacritiques k;
    test::Ecrire(b.corpus / "d.txt", Lignes({"101\t1", "300\t1"}));
    EXPECT_EQ(test::MessageErreur([&] { k.Charger(b.corpus / "d.txt"); }),
              "Code ou classe hors limites (" + (b.corpus / "d.txt").string() + ", ligne 2)");
}

TEST(Graphies17, PairesEtFinales) {
    EXPECT_EQ(ModerniserFinale("croyoient"), "croyaient");
    EXPECT_EQ(ModerniserFinale("avoit"), "avait");
    EXPECT_EQ(ModerniserFinale("roy"), "roi");
    EXPECT_EQ(ModerniserFinale("enfans"), "enfants");
    EXPECT_EQ(ModerniserFinale("parois"), "parais");
    EXPECT_EQ(ModerniserFinale("paroist"), C("paroît"_cp));
    EXPECT_EQ(ModerniserFinale("mot"), "mot");
    Banc b;
    test::Ecrire(b.corpus / "vieux.txt", Lignes({C("sçavoir\t1"_cp), "estre\t2", C("sçavoit\t1"_cp), "rien\t1"}));
    b.d.fichiers = {b.corpus / "vieux.txt"};
    OperationGraphies17(b.ctx);
    EXPECT_EQ(Lire(b.corpus / "vieux_SOLUTIONS.txt"),
              Lignes({C("estre\têtre"_cp), C("sçavoir\tsavoir"_cp), C("sçavoit\tsavait"_cp)}));
    EXPECT_EQ(b.d.messages.back(), C("Terminé"_cp));
}

}  // namespace
}  // namespace telvoris
