#include "pipeline/automate.hpp"

#include <gtest/gtest.h>

#include "pipeline/arbre_etiquetage.hpp"

namespace telvoris {
namespace {

using test::DossierTemporaire;

using test::C;

const TableFormes& Formes() {
    static DossierTemporaire d;
    static TableFormes t = [] {
        test::ContenuArbre a;
        a.dico = {"chat,.SM:s",     "chevaux,2l.SM:p",  "pierre,.SF:s/.N",         "le,.DMS:ms/.P",
                  "la,.SM:x/.DFS:fs/.P", "a,1avoir.V:3a", "bravo,.M/.N",            "porte,.R:xs/0r.V:3a/.N",
                  "roses,.SF:p/.N/1.N",     "",                 C("été,.SM:s/1re.V:yms"_cp), "Rome,.N"};
        test::ConstruireArbre(d.Chemin(), a);
        TableFormes table;
        ChargerDico(table, d.Chemin(), true);
        return table;
    }();
    return t;
}

std::string Appliquer(std::string_view ligne, CompteursDictionnaire& c) {
    std::string s;
    AppliquerDictionnaireLigne(ligne, Formes(), c, s);
    return s;
}

TEST(ApplicationDictionnaire, FormesTrouveesEtInconnues) {
    CompteursDictionnaire c;
    // One reading: lemma decoded, flexion behind x=; extras and k= of the old tag are dropped.
    EXPECT_EQ(Appliquer("<M f=Chat >Chat <M k=3 f=chevaux fz=1 >chevaux", c),
              "<M f=Chat l=chat_SM x=s >Chat <M f=chevaux l=cheval_SM x=p >chevaux");
    EXPECT_EQ(c.nb_univoques, 2);
    // Function words settle at load time; a raw open-class list is written as it stands.
    c = {};
    EXPECT_EQ(Appliquer(C("<M f=le >le <M f=la >la <M f=été >été"_cp), c),
              C("<M f=le l=le_O >le <M f=la l=la_O* >la <M f=été l=.SM:s/1re.V:yms >été"_cp));
    EXPECT_EQ(c.nb_univoques, 2);
    EXPECT_EQ(c.nb_pluriels, 1);
    // A lone capital A is looked up as "a", never as "à".
    EXPECT_EQ(Appliquer("<M f=A >A", c), "<M f=A l=avoir_V x=3a >A");
    // Figures and signs only: a number, written folded; anything else unknown stays untouched.
    c = {};
    EXPECT_EQ(Appliquer("<M f=12,5% >12,5% <M f=12h >12h <M f=Inconnu >Inconnu <M f=Rome >Rome", c),
              "<M f=12,5% l=12,5%_U >12,5% <M f=12h >12h <M f=Inconnu >Inconnu <M f=Rome >Rome");
    EXPECT_EQ(c.nb_univoques + c.nb_pluriels, 0);
    // Tokens with a lemma, compounds, punctuation and markup pass; an empty <M > goes with the
    // text behind it.
    const std::string passe = "<M f=chat l=chien_SM >chat <MC f=a_b l=a_b_A >a b<PC f=. l=PT >.<BR>";
    EXPECT_EQ(Appliquer(passe, c), passe);
    EXPECT_EQ(Appliquer("<M f=chat >chat <M >x <M >  <M f=le >le", c), "<M f=chat l=chat_SM x=s >chat <M f=le l=le_O >le");
}

TEST(ApplicationDictionnaire, NomsPropresEtJetonInacheve) {
    CompteursDictionnaire c;
    // A proper-noun reading among others: the capital wins in mid-sentence and at the start of a
    // line, the small letter drops it, a sentence end keeps the whole list.
    EXPECT_EQ(Appliquer("<M f=Pierre >Pierre <M f=pierre >pierre<PC f=. l=PT >. <M f=Pierre >Pierre", c),
              "<M f=Pierre l=pierre_N >Pierre <M f=pierre l=pierre_SF x=s >pierre<PC f=. l=PT >. "
              "<M f=Pierre l=.SF:s/.N >Pierre");
    EXPECT_EQ(c.nb_pluriels, 3);
    EXPECT_EQ(Appliquer("<M f=x >x<PC f=? l=I >? <M f=Pierre >Pierre", c),
              "<M f=x >x<PC f=? l=I >? <M f=Pierre l=.SF:s/.N >Pierre");
    // Three readings and more: the bare ".N" goes, the others stay as a list.
    EXPECT_EQ(Appliquer("<M f=porte >porte <M f=roses >roses", c),
              "<M f=porte l=.R:xs/0r.V:3a >porte <M f=roses l=.SF:p/1.N >roses");
    // Two readings whose common one has no flexion: the tag is left open, as the stage always did.
    EXPECT_EQ(Appliquer("<M f=bravo >bravo <M f=chat >chat", c), "<M f=bravobravo <M f=chat l=chat_SM x=s >chat");
}

}  // namespace
}  // namespace telvoris
