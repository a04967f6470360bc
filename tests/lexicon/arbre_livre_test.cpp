// The tree built beside the executables: the generated general dictionary read with its
// interpretations gives the readings that the loading rules predict for common words.
#include <gtest/gtest.h>

#include <cstdio>

#include "core/fichiers.hpp"
#include "core/jetons.hpp"
#include "core/texte.hpp"
#include "lexicon/arbre.hpp"
#include "lexicon/composes.hpp"
#include "lexicon/dictionnaire.hpp"
#include "lexicon/groupes.hpp"
#include "support/support.hpp"

namespace telvoris {
namespace {

fs::path ArbreLivre() { return fs::path(TELVORIS_EXE).parent_path() / "MORVENTA" / "morv_res"; }

const TableFormes& Dico() {
    static const TableFormes table = [] {
        TableFormes t;
        ChargerDico(t, ArbreLivre(), true);
        return t;
    }();
    return table;
}

// "lemme|categorie|flexion" of a form, or "absent".
std::string Lecture(std::string_view forme) {
    const auto e = Dico().Chercher(forme);
    if (!e) return "absent";
    return Joindre(e->lemme, "|", e->categorie, "|", e->flexion);
}

TEST(ArbreLivre, LecturesDesMotsCourants) {
    ASSERT_TRUE(FichierExiste(FichierCasier(ArbreLivre(), DOSSIER_DICO, 15, 20))) << TexteChemin(ArbreLivre());
    EXPECT_GT(Dico().Taille(), 400000u);
    // One reading: lemma decoded, category and flexion apart.
    EXPECT_EQ(Lecture("chevaux"), "cheval|SM|p");
    EXPECT_EQ(Lecture("aimait"), "aimer|V|3b");
    EXPECT_EQ(Lecture("sont"), "être|V|6a"_cp);
    EXPECT_EQ(Lecture("à"_cp), "à|BX|"_cp);
    EXPECT_EQ(Lecture("il"), "il|P|");
    EXPECT_EQ(Lecture("ne"), "ne|A|");
    // Open classes travel as the raw list; merged persons and tenses (8k = 1st and 3rd person,
    // present indicative and subjunctive; 7j = 1st and 2nd, present and simple past).
    EXPECT_EQ(Lecture("est"), ".SM:s/3être.V:3a||"_cp);
    EXPECT_EQ(Lecture("porte"), ".R:xs/0r.V:8k/0r.V:2i||");
    EXPECT_EQ(Lecture("finis"), "1r.V:7j/1r.V:2i/1r.V:ymp||");
    EXPECT_EQ(Lecture("pas"), ".SM:x/.A||");
    EXPECT_EQ(Lecture("pierre"), ".SF:s/0r.V:8k/0r.V:2i/.N||");
    // The four words apart, and closed classes settled as function words.
    EXPECT_EQ(Lecture("la"), "la_O*||");
    EXPECT_EQ(Lecture("plus"), "plus_O*||");
    EXPECT_EQ(Lecture("tu"), "tu_O*||");
    EXPECT_EQ(Lecture("lui"), "lui_O*||");
    EXPECT_EQ(Lecture("le"), "le_O||");
    EXPECT_EQ(Lecture("du"), "du_O||");
    EXPECT_EQ(Lecture("des"), "des_O||");
    EXPECT_EQ(Lecture("l'"), "l'_O||");
    EXPECT_EQ(Lecture("aujourd'hui"), "aujourd'hui|A|");
    // Everyday words without their rare homographs: the letter name of "et" and "a", "dan",
    // "mai", "celer"; "c'" read as the pronoun, so that the context rule settles "c'est".
    EXPECT_EQ(Lecture("et"), "et|O|");
    EXPECT_EQ(Lecture("a"), "avoir|V|3a");
    EXPECT_EQ(Lecture("dans"), "dans|B|");
    EXPECT_EQ(Lecture("mais"), "mais|O|");
    EXPECT_EQ(Lecture("cela"), "cela|P|");
    EXPECT_EQ(Lecture("c'"), "ce|P|");
    EXPECT_EQ(Lecture("en"), "en_O||");
    // The prepositional "sur" and the possessive "son", which the context rules never settle
    // against the rare adjective and noun; nouns whose verb is rare; indefinite determiners
    // settled as function words; a noun and a current verb keep all three readings, so that
    // the left context decides before the rule NOM can.
    EXPECT_EQ(Lecture("sur"), "sur|B|");
    EXPECT_EQ(Lecture("son"), "son|DXS|xs");
    EXPECT_EQ(Lecture("source"), "source|SF|s");
    EXPECT_EQ(Lecture("commandes"), "commande|SF|p");
    EXPECT_EQ(Lecture("certains"), "certains_O||");
    EXPECT_EQ(Lecture("su"), "savoir|V|yms");
    EXPECT_EQ(Lecture("liste"), ".SF:s/0r.V:8k/0r.V:2i||");
    EXPECT_EQ(Lecture("point"), ".SM:s/.A||");
    // A capital "E" folds to "é" before some letters: "Elles" is looked up as "élles".
    EXPECT_EQ(Lecture(Minusculiser("Elles")), "elles|P|");
    EXPECT_EQ(Lecture(Minusculiser("Erreur")), "erreur|SF|s");
    // Forms are stored folded: a capital is never found.
    EXPECT_EQ(Lecture("Pierre"), "absent");
    EXPECT_EQ(Lecture("Est"), "absent");
    // Each reading of a raw list decodes to its lemma.
    EXPECT_EQ(decoder_lemme("est", CouperInterpretation("3être.V:3a"_cp).lemme_code), "être"_cp);
    EXPECT_EQ(decoder_lemme("porte", CouperInterpretation("0r.V:8k").lemme_code), "porter");
}

TEST(ArbreLivre, ListesEtComposesSeChargent) {
    const fs::path r = ArbreLivre();
    TableFormes t;
    ChargerEtrangers(t, r);
    ChargerComposants(t, r);
    ChargerAbreviationsFormes(t, r);
    ChargerRomains(t, r);
    ChargerCorrectionsFormes(t, r);
    ChargerAccents(t, r);
    EXPECT_EQ(t.Chercher("weekend")->origine, Origine::ETR);
    EXPECT_EQ(t.Chercher("xiv")->origine, Origine::ROM);
    EXPECT_EQ(t.Chercher("etc")->origine, Origine::ABR);
    TableComposes c;
    ChargerComposes(c, r);
    EXPECT_GT(c.NombreComposes(), 400u);
    EXPECT_NE(c.Chercher("pomme").find("|pomme de terre/pomme_de_terre_SF/s|"), std::string_view::npos);
    EXPECT_NE(c.Chercher("parce").find("|parce que/parce_que_CS/|"), std::string_view::npos);
    GroupesContexte g;
    ChargerGroupesContexte(g, r);
    ASSERT_TRUE(g.Chercher("l'"));
    EXPECT_EQ(g.Chercher("l'")->valeur_nom, "5");
    ASSERT_TRUE(g.Chercher("c'"));
    EXPECT_EQ(g.Chercher("c'")->valeur_verbe, "3");
    EXPECT_EQ(g.Chercher("j'")->valeur_verbe, "1");
    const auto verbes = ChargerCategoriesVerbes(r);
    EXPECT_GT(verbes.size(), 8000u);
    const auto postclitiques = ChargerPostclitiquesDesamb(r);
    EXPECT_EQ(postclitiques.front().forme, "-je");
    EXPECT_EQ(ChargerPrefixes(r).size(), 48u);
    EXPECT_EQ(ChargerNombres(r).front(), "zéro"_cp);
}

// The segmenter run with the shipped tree found beside the executable, with no option: elisions,
// post-clitics, prefixes, abbreviations and dictionary forms glued as a French reader expects.
TEST(ArbreLivre, SegmentationAvecLArbreLivre) {
    test::DossierTemporaire d;
    test::Ecrire(d.Chemin() / "REPERTOIRE.txt", test::Lignes({"T1"}));
    test::Ecrire(d.Chemin() / "ARCHIVE_BRUT" / "T1.txt",
                 test::Lignes({std::string("L'ex-président a-t-il dit aujourd'hui qu'un chef-d'œuvre, etc. est là ?"_cp),
                               std::string("Les porte-parole du sous-préfet s'y rendent-ils le week-end ?"_cp)}));
    const std::string commande = std::string(TELVORIS_EXE) + " smn_seg -r " + (d.Chemin() / "REPERTOIRE.txt").string();
    FILE* p = popen(commande.c_str(), "r");
    ASSERT_TRUE(p);
    char tampon[256];
    while (fgets(tampon, sizeof tampon, p)) {
    }
    ASSERT_EQ(WEXITSTATUS(pclose(p)), 0);
    EXPECT_EQ(test::Lire(d.Chemin() / "OLBRIN_TT" / "T1.txt"),
              test::Lignes({std::string(
                  "<M f=L' >L'<M f=ex- >ex-<M f=président >président <M f=a >a<M f=-t >-t<M f=-il >-il "
                  "<M f=dit >dit <M f=aujourd'hui >aujourd'hui <M f=qu' >qu'<M f=un >un "
                  "<M f=chef-d'oeuvre >chef-d'oeuvre<PC f=, l=V > , <M f=etc. >etc. <M f=est >est <M f=là >là "
                  "<PC f=? l=I > ?"_cp),
                            std::string(
                  "<M f=Les >Les <M f=porte-parole >porte-parole <M f=du >du <M f=sous-préfet >sous-préfet "
                  "<M f=s' >s'<M f=y >y <M f=rendent >rendent<M f=-ils >-ils <M f=le >le "
                  "<M f=week-end >week-end <PC f=? l=I > ?"_cp)}));
}

}  // namespace
}  // namespace telvoris
