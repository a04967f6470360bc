#include "pipeline/segmenteur.hpp"

#include <gtest/gtest.h>

#include "core/erreurs.hpp"
#include "core/horloge.hpp"
#include "core/texte.hpp"
#include "support/support.hpp"

namespace telvoris {
namespace {

using test::DossierTemporaire;
using test::Lignes;
using test::Lire;
namespace fs = std::filesystem;

const ListesSegmentation& Listes() {
    static const ListesSegmentation listes = ChargerListesSegmentation(test::RessourcesTest());
    return listes;
}

std::string Seg(std::string_view ligne) {
    TableJetons table;
    std::string sortie;
    SegmenterLigne(ligne, Listes(), table, sortie);
    return sortie;
}

TEST(Segmenteur, ScannerClassesEtBalisesDePonctuation) {
    EXPECT_EQ(Seg("Le chat dort."), "<M f=Le >Le <M f=chat >chat <M f=dort >dort<PC f=. l=PT >.");
    EXPECT_EQ(Seg(""), "");
    // White space at the end is lost; tabs and no-break spaces are kept as gaps.
    EXPECT_EQ(Seg("a\tb\xA0" "c  "), "<M f=a >a\t<M f=b >b <M f=c >c");
    EXPECT_EQ(Seg("50% et %"), "<M f=50% >50% <M f=et >et <M f=% >%");
    // The masculine ordinal sign is read as the degree sign, in each word that holds it.
    EXPECT_EQ(Seg("n\xBA" "12 et n\xBA" "3"),
              "<M f=n\xB0" "12 >n\xB0" "12 <M f=et >et <M f=n\xB0" "3 >n\xB0" "3");
    EXPECT_EQ(Seg("n\xB0" "12 m\xB2"), "<M f=n\xB0" "12 >n\xB0" "12 <M f=m >m<M f=\xB2 >\xB2");
    EXPECT_EQ(Seg("(a) [b] {c}"),
              "<PC f=( l=PO >(<M f=a >a<PC f=) l=PF >) <PC f=[ l=CO >[<M f=b >b<PC f=] l=CF >] "
              "<PC f={ l=AO >{<M f=c >c<PC f=} l=AF >}");
    EXPECT_EQ(Seg("a, b; c: d! e? f"),
              "<M f=a >a<PC f=, l=V > , <M f=b >b<PC f=; l=PV >; <M f=c >c<PC f=: l=DP >: <M f=d >d"
              "<PC f=! l=E > ! <M f=e >e<PC f=? l=I > ? <M f=f >f");
    EXPECT_EQ(Seg("\xAB oui \xBB \x85 \xBFqu\xA1"),
              "<PC f=\xAB l=Q > \xAB <M f=oui >oui <PC f=\xBB l=Q > \xBB <PC f=\x85 l=S > \x85 "
              "<PC f=\xBF l=Is >\xBF<M f=qu >qu<PC f=\xA1 l=Es >\xA1");
    // The curly double quotes are no punctuation class: they come out as words.
    EXPECT_EQ(Seg("\x93" "a\x94"), "<M f=\x93 >\x93<M f=a >a<M f=\x94 >\x94");
    // Codes 130 and 184 are read as commas.
    EXPECT_EQ(Seg("a\x82 b"), "<M f=a >a<PC f=, l=V > , <M f=b >b");
}

TEST(Segmenteur, BalisesDeLaSourceEtChevronSeul) {
    // Markup takes no gap, and the token behind it loses its own.
    EXPECT_EQ(Seg("fin <BR> suite"), "<M f=fin >fin<BR><M f=suite >suite");
    EXPECT_EQ(Seg("a < b"), "<M f=a >a< b");
    EXPECT_EQ(Seg("x<p>y"), "<M f=x >x<p><M f=y >y");
}

TEST(Segmenteur, NombresOrdinauxEtSeparateurs) {
    EXPECT_EQ(Seg("19e"), "<M f=19e >19e");
    EXPECT_EQ(Seg("le XIXe"), "<M f=le >le <M f=XIXe >XIXe");
    EXPECT_EQ(Seg("1er 19 e"), "<M f=1er >1er <M f=19 >19 <M f=e >e");
    EXPECT_EQ(Seg("3,14 12:30 3.5"), "<M f=3,14 >3,14 <M f=12:30 >12:30 <M f=3.5 >3.5");
    EXPECT_EQ(Seg("12 : 30"), "<M f=12 >12 <PC f=: l=DP >: <M f=30 >30");
    // Around an operator the white space disappears.
    EXPECT_EQ(Seg("3 + 4 = 7"), "<M f=3+4 >3+4 <M f== >= <M f=7 >7");
}

TEST(Segmenteur, TraitsDUnionEtPostclitiques) {
    EXPECT_EQ(Seg("rendez-vous"), "<M f=rendez-vous >rendez-vous");
    EXPECT_EQ(Seg("dit-il"), "<M f=dit >dit<M f=-il >-il");
    EXPECT_EQ(Seg("va-t'en"), "<M f=va >va<M f=-t >-t<M f='en >'en");
    EXPECT_EQ(Seg("Dupont a-t-il"), "<M f=Dupont >Dupont <M f=a-t >a-t<M f=-il >-il");
    EXPECT_EQ(Seg("sous-marin"), "<M f=sous-marin >sous-marin");
    // A listed prefix before a known word stands apart, and loses the gap before it.
    EXPECT_EQ(Seg("les anti-am\xE9ricain"), "<M f=les >les<M f=anti- >anti-<M f=am\xE9ricain >am\xE9ricain");
    // A dash of another kind is normalised in f only.
    EXPECT_EQ(Seg("peut\x96\xEAtre"), "<M f=peut-\xEAtre >peut\x96\xEAtre");
    // At the end of a line the hyphen is glued on: one token.
    EXPECT_EQ(Seg("porte-"), "<M f=porte- >porte-");
    // Nothing stands left of the first token: a leading dash stays a sign.
    EXPECT_EQ(Seg("-Bonjour"), "<PC f=- l=T > -<M f=Bonjour >Bonjour");
    EXPECT_EQ(Seg("a - b"), "<M f=a >a <PC f=- l=T > - <M f=b >b");
}

TEST(Segmenteur, Apostrophes) {
    EXPECT_EQ(Seg("l'ami"), "<M f=l' >l'<M f=ami >ami");
    EXPECT_EQ(Seg("L\x92" "ami"), "<M f=L' >L\x92<M f=ami >ami");
    EXPECT_EQ(Seg("aujourd'hui"), "<M f=aujourd'hui >aujourd'hui");
    EXPECT_EQ(Seg("Aujourd'hui"), "<M f=Aujourd'hui >Aujourd'hui");
    EXPECT_EQ(Seg("rock'n"), "<M f=rock >rock<PC f=' l=Q > '<M f=n >n");
    // The dictionary merge makes the whole tail MOT: a number behind it stops counting as one.
    EXPECT_EQ(Seg("aujourd'hui 3,14"), "<M f=aujourd'hui >aujourd'hui <M f=3 >3<PC f=, l=V > ,<M f=14 >14");
}

TEST(Segmenteur, PointsSiglesEtAbreviations) {
    EXPECT_EQ(Seg("les U.S.A. et"), "<M f=les >les <M f=U.S.A. >U.S.A. <M f=et >et");
    EXPECT_EQ(Seg("les U.S.A."), "<M f=les >les <M f=U.S.A >U.S.A<PC f=. l=PT >.");
    EXPECT_EQ(Seg("M.Dupont"), "<M f=M. >M.<M f=Dupont >Dupont");
    EXPECT_EQ(Seg("etc. et"), "<M f=etc. >etc. <M f=et >et");
    EXPECT_EQ(Seg("etc. Et"), "<M f=etc >etc<PC f=. l=PT >. <M f=Et >Et");
    EXPECT_EQ(Seg("Attendez..."), "<M f=Attendez >Attendez<PC f=... l=S > ...");
    EXPECT_EQ(Seg("Non.. oui"), "<M f=Non >Non<PC f=.. l=S > .. <M f=oui >oui");
    // After a single capital takes its dot, the classes of the tail stay where they were, so
    // "a" inherits the class of the sign before it and no longer glues to its hyphen.
    EXPECT_EQ(Seg("M. Dupont a-t-il"),
              "<M f=M. >M. <M f=Dupont >Dupont <M f=a >a<PC f=- l=T > -<M f=t >t<M f=-il >-il");
}

TEST(Segmenteur, AdressesWeb) {
    EXPECT_EQ(Seg("voir www.x.fr demain"), "<M f=voir >voir <M f=www.x.fr >www.x.fr <M f=demain >demain");
    // The last token of a line is never taken in; the final dot comes back out, and the
    // web-suffix rule then makes ".fr" a token of its own.
    EXPECT_EQ(Seg("voir www.x.fr"), "<M f=voir >voir <M f=www.x >www.x<M f=.fr >.fr");
    // An address that opens the line lands in slot 0 and is lost.
    EXPECT_EQ(Seg("www.x.fr demain"), " <M f=demain >demain");
    // Glued backward to what stands against it; a final sign goes back out with the gap of the
    // slot it lands in.
    EXPECT_EQ(Seg("\xE9" "crire \xE0 contact@exemple.fr, merci"),
              "<M f=\xE9" "crire >\xE9" "crire <M f=\xE0 >\xE0 <M f=contact@exemple.fr >contact@exemple.fr "
              "<PC f=, l=V > , <M f=merci >merci");
    // The web suffix shifts texts only: the token behind takes the gap of the suffix's old slot.
    EXPECT_EQ(Seg("site exemple.fr est"), "<M f=site >site <M f=exemple >exemple<M f=.fr >.fr<M f=est >est");
}

TEST(Segmenteur, FichierMetadonneesUtf8EtLigatures) {
    DossierTemporaire d;
    const auto racine = d.Chemin();
    test::Ecrire(racine / "ARCHIVE_BRUT/t1.txt",
                 Lignes({"<QORX_ATTR JOURNAL=X DATE=2024-01-01 >", "", "\xC3\xA9t\xC3\xA9 \xE2\x80\x93 fin",
                         "c\x9Cur \x8C" "uvre 3\xF7" "4", "<QORX_ATTR >"}) +
                     "sans fin de ligne");
    test::Ecrire(racine / "liste.txt", Lignes({"t1"}));
    Segmenter(ChargerListeTextes(racine / "liste.txt"), Listes(), *std::make_unique<test::DialogueScripte>());
    EXPECT_EQ(Lire(racine / "OLBRIN_TT/t1.txt"),
              Lignes({"<QORX_ATTR JOURNAL=X DATE=2024-01-01 >", "",
                      "<M f=\xE9t\xE9 >\xE9t\xE9 <PC f=\x96 l=T > \x96 <M f=fin >fin",
                      "<M f=coeur >coeur <M f=OEuvre >OEuvre <M f=3 >3<M f=oe >oe<M f=4 >4",
                      // Too short for a metadata line: 11 characters.
                      "<QORX_ATTR >", "<M f=sans >sans <M f=fin >fin <M f=de >de <M f=ligne >ligne"}));
}

TEST(Segmenteur, ErreursNommentLeFichierEtGardentCeQuiEstEcrit) {
    DossierTemporaire d;
    const auto racine = d.Chemin();
    test::Ecrire(racine / "liste.txt", Lignes({"absent"}));
    test::DialogueScripte dialogue;
    try {
        Segmenter(ChargerListeTextes(racine / "liste.txt"), Listes(), dialogue);
        FAIL() << "fichier absent accepté";
    } catch (const ErreurExecution& e) {
        EXPECT_NE(std::string(e.what()).find("Fichier introuvable"), std::string::npos);
        EXPECT_NE(std::string(e.what()).find("ARCHIVE_BRUT/absent.txt"), std::string::npos);
    }
    // A line of more than 50,000 tokens stops the run; the tagged text is not left cut (there was
    // none before), and the tagged tree stays marked as half-made.
    std::string longue;
    for (int i = 0; i <= MAX_JETONS_LIGNE; ++i) longue += "a ";
    test::Ecrire(racine / "ARCHIVE_BRUT/long.txt", Lignes({"premier", longue}));
    test::Ecrire(racine / "liste.txt", Lignes({"long"}));
    try {
        Segmenter(ChargerListeTextes(racine / "liste.txt"), Listes(), dialogue);
        FAIL() << "limite non vérifiée";
    } catch (const ErreurExecution& e) {
        const std::string m = e.what();
        EXPECT_NE(m.find("MAX_JETONS_LIGNE = 50000"), std::string::npos) << m;
        EXPECT_NE(m.find("long.txt, ligne 2"), std::string::npos) << m;
    }
    EXPECT_FALSE(fs::exists(racine / "OLBRIN_TT/long.txt"));
    EXPECT_EQ(Lire(racine / "OLBRIN_TT/#SEGMENTATION_EN_COURS.txt"), Lignes({"&Segmentation"}));
}

TEST(Segmenteur, ListesManquantesOuTropLongues) {
    DossierTemporaire d;
    fs::copy(test::RessourcesTest(), d.Chemin() / "morv_res", fs::copy_options::recursive);
    const auto racine = d.Chemin() / "morv_res";
    fs::remove(racine / "dico/olbrin/7m.txt");
    try {
        ChargerListesSegmentation(racine);
        FAIL();
    } catch (const ErreurExecution& e) {
        EXPECT_NE(std::string(e.what()).find("dico/olbrin/7m.txt"), std::string::npos) << e.what();
    }
    std::string elides;
    for (int i = 0; i <= 100; ++i) elides += "e" + std::to_string(i) + "\r\n";
    test::Ecrire(racine / "utilitaires/elide.txt", elides);
    try {
        ChargerListesSegmentation(racine);
        FAIL();
    } catch (const ErreurExecution& e) {
        EXPECT_NE(std::string(e.what()).find("MAX_ELIDES = 100"), std::string::npos) << e.what();
        EXPECT_NE(std::string(e.what()).find("elide.txt"), std::string::npos) << e.what();
    }
}

}  // namespace
}  // namespace telvoris
