#include "correction/reperage.hpp"

#include <gtest/gtest.h>

#include "core/horloge.hpp"
#include "core/liste_textes.hpp"
#include "correction/commun_correction.hpp"
#include "correction/arbre_correction.hpp"

namespace telvoris {
namespace {

using test::C;
using test::Lignes;
using test::Lire;

const std::string A = "anticonstitutionnellement";

struct Banc {
    test::DossierTemporaire tmp;
    fs::path res = tmp.Chemin() / "MORVENTA" / "morv_res";
    fs::path corpus = tmp.Chemin() / "corpus";
    fs::path liste;
    test::DialogueScripte d;
    HorlogeFixe horloge{Instant{2026, 3, 4, 10, 0, 0}};
    Contexte ctx{d, horloge, res};

    Banc() {
        test::ContenuCorrection a;
        a.dico = {"le", "dort", "mange"};
        test::ConstruireArbreCorrection(res, a);
        liste = test::ConstruireCorpus(
            corpus,
            {{"t1", Lignes({"<QORX_ATTR JOURNAL=A DATE=2024-01-01 >",
                            "<M f=Le >Le <M f=chatt >chatt <M f=dort >dort <PC f=. >.",
                            "<M f=Zorglub >Zorglub <M f=mange >mange <M f=le >le <M f=chatt >chatt",
                            "<M f=" + A + " >" + A + " <M f=" + A + " >" + A + " <M f=chatt >chatt <M f=" + A +
                                " >" + A + " <M f=" + A + " >" + A})}},
            &res);
        test::Ecrire(corpus / "lexique.txt",
                     Lignes({"chatt\t2", "Zorglub\t1", "ONU\t1", "dort\t1", "zorglub\t1", "ab\t5", "rare\t0"}));
    }
    void Lancer(std::vector<std::string> reponses) {
        d.reponses.assign(reponses.begin(), reponses.end());
        d.fichiers = {liste, corpus / "lexique.txt"};
        OperationReperageInconnus(ctx);
    }
};

TEST(Reperage, TypeCasseClasseLesFormes) {
    EXPECT_EQ(TypeCasse("ONU"), 2);
    EXPECT_EQ(TypeCasse("Paris"), 1);
    EXPECT_EQ(TypeCasse("iPhOne"), 3);
    EXPECT_EQ(TypeCasse("iPhone"), 0);
    EXPECT_EQ(TypeCasse("1914"), 2);  // no letters at all
    EXPECT_EQ(TypeCasse(C("Œuvre"_cp)), 1);
    EXPECT_EQ(TypeCasse(C("ÉTÉ"_cp)), 2);
}

TEST(Reperage, ListesEtConcordancesOctetPourOctet) {
    Banc b;
    b.Lancer({"O", "1", "1", "3"});
    const fs::path m = b.corpus / "MANQUANTS";
    // "zorglub" comes once, under the first and more frequent spelling; "ab" is too short; "rare"
    // is below the threshold; "ONU", all capitals, goes to the family without a capital initial.
    EXPECT_EQ(Lire(m / "LISTE_FC.txt"), Lignes({"chatt\t2", "onu\t1"}));
    EXPECT_EQ(Lire(m / "LISTE_NP.txt"), Lignes({"zorglub\t1"}));
    EXPECT_EQ(Lire(m / "ETAT_FC.txt"), "0");
    EXPECT_EQ(Lire(m / "ETAT_NP.txt"), "0");
    EXPECT_EQ(Lire(m / "MNQVUS_TRX_FC.txt"), "");
    EXPECT_EQ(Lire(m / "MNQVUS_TRX_NP.txt"), "");
    EXPECT_EQ(Lire(m / "CONC_FC" / "1.txt"),
              Lignes({std::string(41, ' ') + " Le chatt dort .",
                      std::string(27, ' ') + " Zorglub mange le chatt",
                      "stitutionnellement anticonstitutionnellement chatt anticonstitutionnellement "
                      "anticonstitutionnelleme"}));
    // A form found in no index gives an empty concordance.
    EXPECT_EQ(Lire(m / "CONC_FC" / "2.txt"), "");
    EXPECT_EQ(Lire(m / "CONC_NP" / "1.txt"), Lignes({std::string(42, ' ') + " Zorglub mange le chatt"}));
    ASSERT_FALSE(b.d.messages.empty());
    EXPECT_EQ(b.d.messages.front().substr(0, 20), "Vous devez avoir éta"_cp);
    EXPECT_EQ(b.d.messages.back().substr(0, 7), "Terminé"_cp);
}

TEST(Reperage, DixLignesAuPlusEnSuivantTextesEtPartitions) {
    test::DossierTemporaire tmp;
    const fs::path res = tmp.Chemin() / "res", corpus = tmp.Chemin() / "c";
    test::ContenuCorrection a;
    a.dico = {"un", "deux"};
    test::ConstruireArbreCorrection(res, a);
    const std::vector<std::string> mots = {"a", "b", "c", "d", "e", "f"};
    std::vector<std::string> t1 = {"<QORX_ATTR JOURNAL=A DATE=2024-01-01 >"}, t2 = t1, attendu;
    for (const auto& m : mots) {
        t1.push_back("<M f=chatt >chatt <M f=un >un <M f=" + m + " >" + m);
        t2.push_back("<M f=deux >deux <M f=chatt >chatt <M f=" + m + " >" + m);
    }
    t2.push_back("<QORX_ATTR JOURNAL=B DATE=2024-01-02 >");
    t2.push_back("<M f=Zorglub >Zorglub <M f=chatt >chatt");
    for (const auto& m : mots) attendu.push_back(std::string(44, ' ') + " chatt un " + m);
    for (std::size_t i = 0; i < 4; ++i) attendu.push_back(std::string(39, ' ') + " deux chatt " + mots[i]);
    const fs::path liste = test::ConstruireCorpus(corpus, {{"t1", Lignes(t1)}, {"t2", Lignes(t2)}}, &res);
    test::Ecrire(corpus / "lexique.txt", Lignes({"chatt\t13", "Zorglub\t1"}));
    TableFormes connus;
    ChargerConnus(connus, res, ChoixConnus{});
    test::Ecrire(corpus / "MANQUANTS" / "CONC_FC" / "9.txt", "vieux");
    fs::create_directories(corpus / "MANQUANTS" / "CONC_NP");
    test::DialogueScripte d;
    ReperageInconnus(ChargerListeTextes(liste), corpus / "lexique.txt", connus, ParametresReperage{}, d);
    // The first text gives six lines, the second the four that reach ten; a form of a later
    // partition is found there; an older concordance file stays.
    EXPECT_EQ(Lire(corpus / "MANQUANTS" / "CONC_FC" / "1.txt"), Lignes(attendu));
    EXPECT_EQ(Lire(corpus / "MANQUANTS" / "CONC_NP" / "1.txt"), Lignes({std::string(42, ' ') + " Zorglub chatt"}));
    EXPECT_EQ(Lire(corpus / "MANQUANTS" / "CONC_FC" / "9.txt"), "vieux");
}

TEST(Reperage, DossierExistantGardeSaufConfirmation) {
    Banc b;
    b.Lancer({"N", "1", "1", "3"});
    const fs::path m = b.corpus / "MANQUANTS";
    // Without concordances no folder of them is made.
    EXPECT_FALSE(fs::exists(m / "CONC_FC"));
    test::Ecrire(m / "ETAT_FC.txt", "7");
    // Anything but "O" leaves the folder as it was and still ends with "Terminé".
    b.d.messages.clear();
    b.d.reponses = {"N", "1", "non"};
    b.d.fichiers = {b.liste};
    OperationReperageInconnus(b.ctx);
    EXPECT_EQ(Lire(m / "ETAT_FC.txt"), "7");
    EXPECT_EQ(b.d.messages.back(), "Terminé"_cp);
    // "O" overwrites it.
    b.Lancer({"N", "1", "O", "1", "3"});
    EXPECT_EQ(Lire(m / "ETAT_FC.txt"), "0");
    EXPECT_EQ(Lire(m / "LISTE_FC.txt"), Lignes({"chatt\t2", "onu\t1"}));
}

TEST(Reperage, TousLesRepertoiresEtErreurs) {
    Banc b;
    // With every folder, the correction store knows "chatt" and the foreign list "zorglub".
    test::ContenuCorrection a;
    a.dico = {"le", "dort", "mange"};
    a.rescor = {"chatt\tchat"};
    a.etrangers = {"zorglub"};
    test::ConstruireArbreCorrection(b.res, a);
    b.Lancer({"N", "0", "1", "3"});
    EXPECT_EQ(Lire(b.corpus / "MANQUANTS" / "LISTE_FC.txt"), Lignes({"onu\t1"}));
    EXPECT_EQ(Lire(b.corpus / "MANQUANTS" / "LISTE_NP.txt"), "");

    // A lexicon line without a tab, or with a count that is no number, is named by file and line.
    test::Ecrire(b.corpus / "lexique.txt", Lignes({"chatt\t2", "mot sans tabulation"}));
    EXPECT_EQ(test::MessageErreur([&] { b.Lancer({"N", "1", "O", "1", "3"}); }),
              "Ligne sans tabulation : « mot sans tabulation » (" + (b.corpus / "lexique.txt").string() + ", ligne 2)");
    test::Ecrire(b.corpus / "lexique.txt", Lignes({"chatt\tdeux"}));
    EXPECT_EQ(test::MessageErreur([&] { b.Lancer({"N", "1", "O", "1", "3"}); }),
              "Conversion impossible en nombre entier : « deux » (" + (b.corpus / "lexique.txt").string() + ", ligne 1)");
}

}  // namespace
}  // namespace telvoris
