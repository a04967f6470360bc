#include "correction/mots_colles.hpp"

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
    ListesMotsColles l;

    Banc() {
        test::ContenuCorrection a;
        a.dico = {"de", "la", "ville", "les", "ami", "maison", "amis", "ii"};
        a.etrangers = {"casa"};
        a.rescor = {"aison\tmaison"};
        // "ii" is a Roman numeral before it is a word: not plain.
        a.romains = {"ii"};
        a.filtrage = {"les\t10", "ami\t5", "maison\t3", "amis\t2", "ville\t0"};
        test::ConstruireArbreCorrection(res, a);
        ChargerListesMotsColles(l, res);
    }
    std::string Couper(std::string_view mot) {
        long long score = 0;
        return CouperMot(mot, l, score);
    }
};

TEST(MotsColles, CoupuresTrouveesOuNon) {
    Banc b;
    EXPECT_TRUE(EstSimple(b.l.connus, "ville"));
    EXPECT_FALSE(EstSimple(b.l.connus, "casa"));   // foreign
    EXPECT_FALSE(EstSimple(b.l.connus, "aison"));  // only known as a fault
    // Three words when no two-word cut is plain.
    EXPECT_EQ(b.Couper("delaville"), "de la ville\tMULTI");
    // A doubled word.
    long long score = 0;
    EXPECT_EQ(CouperMot("lesles", b.l, score), "les les\t1000000");
    EXPECT_EQ(score, 1000000);
    // The best product of frequencies; an absent or zero frequency counts for 1 (zero is not kept).
    EXPECT_EQ(b.Couper("amimaison"), "ami maison\t15");
    EXPECT_EQ(b.Couper("villeville"), "ville ville\t1000000");
    EXPECT_EQ(b.Couper("amisville"), "amis ville\t2");
    // Four words.
    EXPECT_EQ(b.Couper("delalesville"), "de la les ville\tMULTI");
    // A missing cut before an elision.
    EXPECT_EQ(b.Couper("del'ami"), "de l' ami\tELIDE");
    EXPECT_EQ(b.Couper("del'y"), "de l' y\tELIDE");
    EXPECT_EQ(b.Couper("del'bi"), "");  // not before a vowel
    EXPECT_EQ(b.Couper("aujourd'hui"), "");
    // A word that is only unknown has no cut.
    EXPECT_EQ(b.Couper("casacasa"), "");
    EXPECT_EQ(b.Couper("zzzzzzz"), "");
}

TEST(MotsColles, ListeOctetPourOctetDepuisLIndex) {
    Banc b;
    const std::string sep = "<---------->";
    test::Ecrire(b.corpus / "OLBRIN_TT" / "t1.txt", "");
    test::Ecrire(b.corpus / "liste.txt", Lignes({"t1"}));
    test::Ecrire(b.corpus / "OLBRIN_TT" / "LEXINDEX" / "t1.txt",
                 Lignes({sep, "<M f=delaville >\t1\t!!!", "<M f=lesles >\t1\t!!!", "<M f=Delaville >\t1\t!!!",
                         "<M f=xyzw >\t1\t!!!", "<M f=xyzwxyzw >\t1\t!!!", "<M f=casacasa >\t1\t!!!",
                         "<M f=a@bcd.fr >\t1\t!!!", "<M f=httpville >\t1\t!!!", "<M f=del'ami >\t1\t!!!", sep,
                         "<M f=ville >\t1\t!!!", "<M f=delaville >\t1\t!!!", "<M f=amimaison >\t1\t!!!",
                         "<PC f=. >\t1\t!!!"}));
    b.d.fichiers = {b.corpus / "liste.txt"};
    OperationMotsColles(b.ctx);
    EXPECT_EQ(Lire(b.corpus / "MOTS_COUPES.txt"),
              Lignes({"delaville\tde la ville\tMULTI", "lesles\tles les\t1000000", "xyzwxyzw\tECHEC",
                      "casacasa\tECHEC", "del'ami\tde l' ami\tELIDE", "amimaison\tami maison\t15"}));
    EXPECT_EQ(b.d.messages.back(), C("4 corrections sur 7 inconnus. Terminé en 1 secondes"_cp));

    // Without a tagged folder the program ends on its message.
    fs::remove_all(b.corpus / "OLBRIN_TT");
    b.d.fichiers = {b.corpus / "liste.txt"};
    try {
        OperationMotsColles(b.ctx);
        FAIL() << "FinProgramme attendu";
    } catch (const FinProgramme& e) {
        EXPECT_EQ(std::string(e.what()).substr(0, 46), C("Il n'existe pas de dossier pour cette étape : "_cp));
    }
}

TEST(MotsColles, ReparationsDeSignes) {
    EXPECT_EQ(ReparerLigne("<QORX_ATTR A=c'' >"), "<QORX_ATTR A=c'' >");
    EXPECT_EQ(ReparerLigne(C("<M f=cœur l=x >cœur <M f=Œil >Œil <M f=c÷ur >c÷ur"_cp)),
              C("<M f=coeur >cœur <M f=OEil >Œil <M f=coeur >c÷ur"_cp));
    EXPECT_EQ(ReparerLigne("<M f=aujourd''hui >x"), "<M f=aujourd' ><M f=hui >x");
    EXPECT_EQ(ReparerLigne("<M f=mot's >mot's <M f=mot'ss >mot'ss"),
              "<M f=mot ><P f=' ><P f=s >mot's <M f=mot ><P f=' ><P f=s ><P f=s >mot'ss");
    EXPECT_EQ(ReparerLigne("<M f=et/ou >et/ou <PC f=/ >/ <M f=l'ami >l'ami <M f=a' >a'"),
              "<M f=et ><P f=/ ><P f=ou >et/ou <PC f=/ >/ <M f=l'ami >l'ami <M f=a' >a'");
    // A ligature comes before the slash: one repair per token.
    EXPECT_EQ(ReparerLigne(C("<M f=œ/a >x"_cp)), "<M f=oe/a >x");

    test::DossierTemporaire tmp;
    std::vector<std::string> noms;
    for (int i = 1; i <= 10; ++i) {
        noms.emplace_back(1, 't');
        noms.back() += std::to_string(i);
        test::Ecrire(tmp.Chemin() / "OLBRIN_TT" / (noms.back() + ".txt"), Lignes({"<M f=et/ou >et/ou", ""}));
    }
    test::Ecrire(tmp.Chemin() / "liste.txt", Lignes(noms));
    test::DialogueScripte d;
    HorlogeFixe h{Instant{}};
    Contexte ctx{d, h, tmp.Chemin()};
    d.fichiers = {tmp.Chemin() / "liste.txt"};
    OperationReparationsSignes(ctx);
    EXPECT_EQ(Lire(tmp.Chemin() / "OLBRIN_TT_NEW" / "t7.txt"), Lignes({"<M f=et ><P f=/ ><P f=ou >et/ou", ""}));
    EXPECT_EQ(Lire(tmp.Chemin() / "OLBRIN_TT" / "t7.txt"), Lignes({"<M f=et/ou >et/ou", ""}));
    EXPECT_EQ(Lire(tmp.Chemin() / "CONTROLE.txt"), Lignes({"10/10"}));
}

}  // namespace
}  // namespace telvoris
