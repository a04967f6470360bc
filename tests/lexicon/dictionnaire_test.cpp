#include "lexicon/dictionnaire.hpp"

#include <gtest/gtest.h>

#include "core/erreurs.hpp"
#include "core/fichiers.hpp"
#include <functional>
#include "core/texte.hpp"
#include "lexicon/arbre.hpp"
#include "support/support.hpp"

namespace telvoris {
namespace {

using test::DossierTemporaire;
using test::Ecrire;
using test::Lignes;

// A tree with every file of a bucket series present and empty.
void SerieVide(const fs::path& racine, std::string_view dossier) {
    for (int l = 1; l <= 15; ++l)
        for (int c = 1; c <= 20; ++c) Ecrire(FichierCasier(racine, dossier, l, c), "");
}

std::string MessageErreur(const std::function<void()>& f) {
    try {
        f();
    } catch (const ErreurExecution& e) {
        return e.what();
    }
    return "(aucune erreur)";
}

TEST(Dictionnaire, ClasseMotEtNomsDeFichiers) {
    // Length capped at 15: a word of 20 letters lives with all the longer words.
    EXPECT_EQ(classe_mot("anticonstitutionnels"), (CleMot{15, 1}));
    EXPECT_EQ(NomFichierCasier(15, 1), "15a.txt");
    // u to z share the files of k; accented initials go to their base letter.
    EXPECT_EQ(classe_mot("zèbre"_cp), (CleMot{5, 11}));
    EXPECT_EQ(classe_mot("yeux"), (CleMot{4, 11}));
    EXPECT_EQ(classe_mot("kilo"), (CleMot{4, 11}));
    EXPECT_EQ(NomFichierCasier(4, 11), "4k.txt");
    EXPECT_EQ(classe_mot("état"_cp), (CleMot{4, 5}));
    EXPECT_EQ(classe_mot("Écosse"_cp), (CleMot{6, 5}));
    EXPECT_EQ(classe_mot("çà"_cp), (CleMot{2, 3}));
    EXPECT_EQ(classe_mot("île"_cp), (CleMot{3, 9}));
    EXPECT_EQ(classe_mot("œuvre"_cp), (CleMot{5, 15}));
    EXPECT_EQ(classe_mot("Œuvre"_cp), (CleMot{5, 15}));
    EXPECT_EQ(classe_mot("ôter"_cp), (CleMot{4, 15}));
    EXPECT_EQ(classe_mot("âme"_cp), (CleMot{3, 1}));
    // Digits and other accented initials have class 0, which has no file.
    EXPECT_EQ(classe_mot("12e"), (CleMot{3, 0}));
    EXPECT_EQ(classe_mot("ûber"_cp), (CleMot{4, 0}));
    EXPECT_EQ(classe_mot(""), (CleMot{0, 0}));
    EXPECT_EQ(NomFichierEtrangers(3, 7), "3_07.txt");
    EXPECT_EQ(NomFichierEtrangers(15, 20), "15_20.txt");
}

TEST(Dictionnaire, DecoderLemmeEtInterpretation) {
    EXPECT_EQ(decoder_lemme("chevaux", "2l"), "cheval");
    EXPECT_EQ(decoder_lemme("aimait", "3er"), "aimer");
    EXPECT_EQ(decoder_lemme("table", ""), "table");
    EXPECT_EQ(decoder_lemme("est", "3être"_cp), "être"_cp);
    EXPECT_EQ(decoder_lemme("yeux", "4oeil"), "oeil");
    // No digits: nothing cut, the ending appended.
    EXPECT_EQ(decoder_lemme("porte", "s"), "portes");
    // A count past the form's length cuts it all; several digits make one number.
    EXPECT_EQ(decoder_lemme("ab", "12xy"), "xy");
    EXPECT_EQ(decoder_lemme("abcdefghijklm", "10z"), "abcz");
    EXPECT_EQ(decoder_lemme("ab", "99999999999999999999999x"), "x");

    auto i = CouperInterpretation("3er.V:3b");
    EXPECT_EQ(i.lemme_code, "3er");
    EXPECT_EQ(i.categorie, "V");
    EXPECT_EQ(i.flexion, "3b");
    // The first dot ends the code, the first colon behind it the category.
    i = CouperInterpretation("a:b.SM:s:p");
    EXPECT_EQ(i.lemme_code, "a:b");
    EXPECT_EQ(i.categorie, "SM");
    EXPECT_EQ(i.flexion, "s:p");
    i = CouperInterpretation(".N");
    EXPECT_EQ(i.lemme_code, "");
    EXPECT_EQ(i.categorie, "N");
    EXPECT_EQ(i.flexion, "");
    i = CouperInterpretation("sans");
    EXPECT_EQ(i.lemme_code, "sans");
    EXPECT_EQ(i.categorie, "");
}

TEST(Dictionnaire, InterpretationsAuChargement) {
    auto l = InterpreterLigne("chevaux", "2l.SM:p");
    EXPECT_EQ(l.lemme, "cheval");
    EXPECT_EQ(l.categorie, "SM");
    EXPECT_EQ(l.flexion, "p");
    // One reading with an empty code: the form folded to lower case.
    l = InterpreterLigne("Table", ".SF:s");
    EXPECT_EQ(l.lemme, "table");
    EXPECT_EQ(l.categorie, "SF");
    // Open classes keep the raw list, with no category.
    l = InterpreterLigne("porte", ".SF:s/1er.V:8k/1er.V:2i");
    EXPECT_EQ(l.lemme, ".SF:s/1er.V:8k/1er.V:2i");
    EXPECT_EQ(l.categorie, "");
    EXPECT_EQ(l.flexion, "");
    // The four words settled apart, and closed classes settled as function words.
    EXPECT_EQ(InterpreterLigne("plus", ".R:x/.O").lemme, "plus_O*");
    EXPECT_EQ(InterpreterLigne("tu", "2taire.V:yms/.P").lemme, "tu_O*");
    EXPECT_EQ(InterpreterLigne("la", ".SM:x/.DFS:fs/.P").lemme, "la_O*");
    EXPECT_EQ(InterpreterLigne("lui", "2luire.V:yms/.P").lemme, "lui_O*");
    EXPECT_EQ(InterpreterLigne("de", ".BX/.DXX:xx").lemme, "de_O");
    // .A and .N are not open marks.
    EXPECT_EQ(InterpreterLigne("ensuite", ".A/.N").lemme, "ensuite_O");
    EXPECT_EQ(InterpreterLigne("pas", ".SM:x/.A").lemme, ".SM:x/.A");
    // "M" counts as an open mark.
    EXPECT_EQ(InterpreterLigne("bravo", ".M/.SM:s").lemme, ".M/.SM:s");
    // A line without a comma: empty right-hand part, the form as lemma.
    l = InterpreterLigne("seul", "");
    EXPECT_EQ(l.lemme, "seul");
    EXPECT_EQ(l.categorie, "");
}

TEST(Dictionnaire, ChargementPremiereOccurrenceEtLignesBlanches) {
    DossierTemporaire d;
    const fs::path r = d.Chemin();
    SerieVide(r, "dico/olbrin");
    Ecrire(FichierCasier(r, "dico/olbrin", 5, 16),
           Lignes({"porte,.SF:s/1er.V:8k", "", "porte,.SM:s", "portes,1.SF:p", ",.N", "poste"}));
    Ecrire(FichierCasier(r, "dico/olbrin", 6, 16), Lignes({"portes,1.SF:p"}));
    Ecrire(FichierCasier(r, "dico/olbrin", 3, 5), std::string("est,3être.V:3a/.SM:x\r\n"_cp));
    Ecrire(FichierCasier(r, "dico/olbrin", 7, 3), "chevaux,2l.SM:p\rchevaux,.SM:p\n");
    TableFormes t;
    ChargerDico(t, r, true);
    // The blank line takes a slot, and the order of the others is kept.
    EXPECT_EQ(t.TailleCasier({5, 16}), 6u);
    EXPECT_EQ(t.Entree({5, 16}, 1).forme, "");
    EXPECT_EQ(t.Entree({5, 16}, 2).forme, "porte");
    EXPECT_EQ(t.Entree({5, 16}, 4).forme, "");
    EXPECT_EQ(t.Taille(), 10u);
    // First match: the second "porte" line is never seen.
    auto e = t.Chercher("porte");
    ASSERT_TRUE(e);
    EXPECT_EQ(e->lemme, ".SF:s/1er.V:8k");
    EXPECT_EQ(e->categorie, "");
    EXPECT_EQ(e->origine, Origine::DICO);
    e = t.Chercher("portes");
    ASSERT_TRUE(e);
    EXPECT_EQ(e->lemme, "porte");
    EXPECT_EQ(e->categorie, "SF");
    EXPECT_EQ(e->flexion, "p");
    e = t.Chercher("chevaux");
    ASSERT_TRUE(e);
    EXPECT_EQ(e->lemme, "cheval");
    EXPECT_EQ(t.Chercher("est")->lemme, "3être.V:3a/.SM:x"_cp);
    e = t.Chercher("poste");
    ASSERT_TRUE(e);
    EXPECT_EQ(e->lemme, "poste");
    // A blank slot never matches a word; a capitalised form is never found; neither is class 0.
    EXPECT_FALSE(t.Chercher("Porte"));
    EXPECT_FALSE(t.Chercher("12"));
    EXPECT_FALSE(t.Chercher("pot"));
    // A form filed in a file of another length is out of reach.
    EXPECT_EQ(t.Entree({5, 16}, 3).forme, "portes");
    // Loading again appends: whoever fills the table clears it.
    ChargerDico(t, r, false);
    EXPECT_EQ(t.Taille(), 20u);
    EXPECT_EQ(t.Chercher("portes")->lemme, "porte");
    t.Vider();
    EXPECT_EQ(t.Taille(), 0u);
    EXPECT_FALSE(t.Chercher("porte"));
    ChargerDico(t, r, false);
    EXPECT_EQ(t.Chercher("portes")->lemme, "");
}

TEST(Dictionnaire, FichierAbsentEtCasierPlein) {
    DossierTemporaire d;
    const fs::path r = d.Chemin();
    SerieVide(r, "dico/olbrin");
    fs::remove(FichierCasier(r, "dico/olbrin", 9, 20));
    TableFormes t;
    EXPECT_NE(MessageErreur([&] { ChargerDico(t, r, true); }).find("9t.txt"), std::string::npos);

    std::string plein;
    for (int i = 0; i <= 10000; ++i) plein.append("a").append(std::to_string(100000 + i).substr(1)).append(",.SM:s\r\n");
    Ecrire(FichierCasier(r, "dico/olbrin", 9, 20), "");
    Ecrire(FichierCasier(r, "dico/olbrin", 6, 1), plein);
    t.Vider();
    const std::string m = MessageErreur([&] { ChargerDico(t, r, true); });
    EXPECT_EQ(m.substr(0, m.find(" en lisant")),
              "Limite dépassée : plus de 10000 formes dans le casier (6, 1) de la table des formes,"_cp);
    EXPECT_NE(m.find("6a.txt (MAX_FORMES_CASIER = 10000)"), std::string::npos) << m;
    // Exactly 10,000 fits.
    plein.resize(plein.size() - std::string("a10000,.SM:s\r\n").size());
    Ecrire(FichierCasier(r, "dico/olbrin", 6, 1), plein);
    t.Vider();
    ChargerDico(t, r, true);
    EXPECT_EQ(t.TailleCasier({6, 1}), 10000u);
    EXPECT_EQ(t.Chercher("a09999")->categorie, "SM");
}

TEST(Dictionnaire, ChargeursDesAutresSources) {
    DossierTemporaire d;
    const fs::path r = d.Chemin();
    SerieVide(r, "rescor/rescor");
    SerieVide(r, "dico/olbrin_accents");
    for (int l = 1; l <= 15; ++l)
        for (int c = 1; c <= 20; ++c) Ecrire(Chemin(r, "utilitaires/ETRANGERS/" + NomFichierEtrangers(l, c)), "");
    Ecrire(FichierCasier(r, "rescor/rescor", 4, 16), Lignes({"", "pomr\tpour", "pomr\tpourri", "sl"}));
    Ecrire(FichierCasier(r, "dico/olbrin_accents", 4, 5), Lignes({"etat\t\xE9tat\tSM", ""}));
    // The bucket of a foreign word comes from the word, not from the file it sits in.
    Ecrire(Chemin(r, "utilitaires/ETRANGERS/1_01.txt"), Lignes({"weekend", "", "zeitgeist"}));
    Ecrire(Chemin(r, "utilitaires/COMPOSANTS.txt"), Lignes({"a", "porte", "porte", "bis", ""}));
    Ecrire(Chemin(r, "utilitaires/ABREVIATIONS.txt"), Lignes({"etc", "cf", "p", "etc", "bis"}));
    Ecrire(Chemin(r, "utilitaires/romains.txt"), Lignes({"XIV", "I", "xiv", "MCM"}));

    TableFormes t;
    ChargerCorrectionsFormes(t, r);
    ChargerAccents(t, r);
    ChargerEtrangers(t, r);
    ChargerComposants(t, r);
    ChargerAbreviationsFormes(t, r);
    ChargerRomains(t, r);
    EXPECT_EQ(t.Chercher("pomr")->origine, Origine::COR);
    // Both "pomr" lines are kept, blank ones are not; "sl" fills the bucket of its file.
    EXPECT_EQ(t.TailleCasier({4, 16}), 3u);
    EXPECT_EQ(t.Entree({4, 16}, 2).forme, "sl");
    EXPECT_FALSE(t.Chercher("sl"));
    EXPECT_EQ(t.Chercher("etat")->origine, Origine::CORACC);
    EXPECT_EQ(t.Chercher("weekend")->origine, Origine::ETR);
    EXPECT_EQ(t.TailleCasier({7, 11}), 1u);
    EXPECT_EQ(t.Chercher("zeitgeist")->origine, Origine::ETR);
    EXPECT_EQ(t.Chercher("porte")->origine, Origine::COMP);
    EXPECT_EQ(t.TailleCasier({5, 16}), 1u);
    EXPECT_FALSE(t.Chercher("a"));
    EXPECT_FALSE(t.Chercher("p"));
    // A word already present keeps its first origin.
    EXPECT_EQ(t.Chercher("bis")->origine, Origine::COMP);
    EXPECT_EQ(t.Chercher("etc")->origine, Origine::ABR);
    EXPECT_EQ(t.TailleCasier({3, 5}), 1u);
    EXPECT_EQ(t.Chercher("xiv")->origine, Origine::ROM);
    EXPECT_EQ(t.TailleCasier({3, 11}), 1u);
    EXPECT_EQ(t.Chercher("mcm")->origine, Origine::ROM);
    EXPECT_FALSE(t.Chercher("XIV"));
    EXPECT_FALSE(t.Chercher("i"));
    EXPECT_EQ(TexteOrigine(Origine::CORACC), "CORACC");

    TableCorrections corrections;
    ChargerTableCorrections(corrections, r);
    EXPECT_EQ(corrections.Taille(), 3u);
    EXPECT_EQ(corrections.Chercher("pomr"), std::optional<std::string_view>("pour"));
    EXPECT_EQ(corrections.Chercher("sl"), std::optional<std::string_view>(""));
    EXPECT_FALSE(corrections.Chercher("pour"));

    TableMots abreviations = NouvelleTableAbreviations();
    ChargerTableAbreviations(abreviations, r);
    EXPECT_TRUE(abreviations.Contient("p"));
    EXPECT_TRUE(abreviations.Contient("etc"));
    EXPECT_FALSE(abreviations.Contient("ETC"));
    EXPECT_EQ(abreviations.Taille(), 5u);

    fs::remove(Chemin(r, "utilitaires/ETRANGERS/15_20.txt"));
    EXPECT_NE(MessageErreur([&] { ChargerEtrangers(t, r); }).find("15_20.txt"), std::string::npos);
}

TEST(Dictionnaire, ListesPlatesBornees) {
    DossierTemporaire d;
    const fs::path r = d.Chemin();
    std::vector<std::string> prefixes;
    for (int i = 0; i < 100; ++i) prefixes.push_back(std::string("p").append(std::to_string(i)));
    Ecrire(Chemin(r, "utilitaires/PREFIXES.txt"), Lignes(prefixes) + "\r\n");
    EXPECT_EQ(ChargerPrefixes(r).size(), 100u);
    prefixes.push_back("trop");
    Ecrire(Chemin(r, "utilitaires/PREFIXES.txt"), Lignes(prefixes));
    const std::string m = MessageErreur([&] { ChargerPrefixes(r); });
    EXPECT_EQ(m.substr(0, 42), "Limite dépassée : plus de 100 lignes dans "_cp);
    EXPECT_NE(m.find("(MAX_PREFIXES = 100)"), std::string::npos);
    Ecrire(Chemin(r, "utilitaires/nombres.txt"), Lignes({"un", "", "deux"}));
    EXPECT_EQ(ChargerNombres(r), (std::vector<std::string>{"un", "deux"}));
    EXPECT_NE(MessageErreur([&] { ChargerNombres(d.Chemin() / "rien"); }).find("nombres.txt"), std::string::npos);
}

}  // namespace
}  // namespace telvoris
