// The three lexicon surveys on several threads give, byte for byte, what one thread gives: the
// files, the totals, the messages and the progress, the error of a middle text with what it
// leaves, and the counting state that the next run of the work area inherits.
#include <gtest/gtest.h>

#include <functional>
#include <map>

#include "core/erreurs.hpp"
#include "core/texte.hpp"
#include "stats/lexiques.hpp"
#include "stats/outils.hpp"

namespace telvoris {
namespace {

using test::Banc;
using test::kSep;
using test::Lignes;

using Commande = std::function<void(Contexte&, const ParametresReleve&, EtatReleves&)>;

// Six texts: accents and capitals that fold together, ties between texts, a number and a
// hyphenated clitic (kept from run to run in the table), counts above 1,000 and 100,000.
// t3 has an unreadable count on its third line, behind a number seen nowhere else.
void Corpus(Banc& b) {
    b.Index("t1", {kSep, std::string("<M f=Été l=été_SM >\t3\t!"_cp), std::string("<M f=été l=été_SM >\t2\t!"_cp),
                   "<M f=chat l=chat_SM >\t5\t!", "<M f=1999 l=1999_U >\t1\t!", kSep, "<M f=chien l=chien_SM >\t5\t!",
                   "<M f=-il l=il_P >\t1\t!", "<M f=chat l=chat_SM >\t2\t!"});
    b.Index("t2", {kSep, std::string("<M f=âne l=âne_SM >\t5\t!"_cp), std::string("<M f=zèbre l=zèbre_SM >\t5\t!"_cp),
                   std::string("<M f=Œuf l=œuf_SM >\t2\t!"_cp), "<M f=de l=de_BX >\t120000\t!",
                   "<M f=la l=la_D >\t1500\t!", "<M f=il l=il_P >\t4\t!", "<M f=col l=col_SM >\t1\t!", kSep, "<M f=chien l=chien_SM >\t1\t!"});
    b.Index("t3", {kSep, "<M f=2001 l=2001_U >\t1\t!", "<M f=ours l=ours_SM >\t4\t!", "<M f=loup l=loup_SM >\tquatre\t!",
                   "<M f=lynx l=lynx_SM >\t1\t!"});
    b.Index("t4", {kSep, "<M f=chat l=chat_SM >\t1\t!", "<M f=porte l=porte_SF/porter_V >\t2\t!",
                   "<M f=Ours l=ours_SM >\t1\t!", "<M f=la l=la_D >\t1500\t!", "<M f=1999 l=1999_U >\t3\t!", "<M f=cap l=cap_SM >\t1\t!"});
    b.Index("t5", {kSep, std::string("<M f=élan l=élan_SM >\t2\t!"_cp), "<M f=Chien l=chien_SM >\t2\t!",
                   "<M f=2001 l=2001_U >\t1\t!"});
    b.Index("t6", {kSep, "<M f=zoo l=zoo_SM >\t1\t!", std::string("<M f=âne l=âne_SM >\t1\t!"_cp), kSep,
                   "<M f=de l=de_BX >\t5\t!"});
}

// What a run leaves: the tree after the run that fails on t3, the tree after a second run
// without t3 on the same counting state, what was said, and the error.
struct Issue {
    std::map<std::string, std::string> apresErreur, apresReprise;
    std::vector<std::string> messages, libelles;
    std::string erreur;
};

Issue Lancer(const Commande& commande, int niveau, unsigned fils) {
    Banc b;
    Corpus(b);
    b.ctx.fils = fils;
    EtatReleves etat;
    ParametresReleve p;
    p.NiveauLexical = niveau;
    Issue r;
    b.dialogue.reponses = {"O", "O"};
    b.dialogue.fichiers = {b.Liste({"t1", "t2", "t3", "t4", "t5", "t6"}, "tous.txt")};
    r.erreur = test::MessageErreur([&] { commande(b.ctx, p, etat); });
    const std::string racine = b.racine.string();
    for (std::size_t k; (k = r.erreur.find(racine)) != std::string::npos;) r.erreur.replace(k, racine.size(), "<corpus>");
    r.apresErreur = test::Arbo(b.racine);
    b.dialogue.fichiers = {b.Liste({"t1", "t2", "t4", "t5", "t6"}, "sains.txt")};
    commande(b.ctx, p, etat);
    r.apresReprise = test::Arbo(b.racine);
    r.messages = b.dialogue.messages;
    r.libelles = b.dialogue.libelles;
    return r;
}

void ComparerArbres(const std::map<std::string, std::string>& n, const std::map<std::string, std::string>& un) {
    EXPECT_EQ(n.size(), un.size());
    for (const auto& [chemin, octets] : un) {
        const auto it = n.find(chemin);
        if (it == n.end()) {
            ADD_FAILURE() << chemin << " manque";
            continue;
        }
        EXPECT_TRUE(it->second == octets) << chemin << " diffère :\n" << it->second << "\nau lieu de :\n" << octets;
    }
}

// The run on 2, 3 and 8 threads (8: more than texts) against the run on one; returns the latter.
Issue Comparer(const Commande& commande, int niveau) {
    const Issue un = Lancer(commande, niveau, 1);
    for (unsigned fils : {2u, 3u, 8u}) {
        SCOPED_TRACE("fils : " + std::to_string(fils) + ", niveau " + std::to_string(niveau));
        const Issue n = Lancer(commande, niveau, fils);
        EXPECT_EQ(n.erreur, un.erreur);
        EXPECT_EQ(n.messages, un.messages);
        EXPECT_EQ(n.libelles, un.libelles);
        ComparerArbres(n.apresErreur, un.apresErreur);
        ComparerArbres(n.apresReprise, un.apresReprise);
    }
    return un;
}

const std::string kErreurT3 =
    "Conversion impossible : « quatre » n'est pas un nombre (<corpus>/OLBRIN_TT/LEXINDEX/t3.txt, ligne 4)";

TEST(ReleveFils, LexiqueIdentiqueSurUnOuPlusieursFils) {
    const Commande lexique = [](Contexte& c, const ParametresReleve& p, EtatReleves& e) { Lexique(c, p, e); };
    const Issue un = Comparer(lexique, 0);
    EXPECT_EQ(un.erreur, kErreurT3);
    // The numbers 1999 and 2001 stay in the table after the failed run (2001 from the lines of
    // t3 read before the error): the second run does not count them new.
    EXPECT_EQ(un.apresReprise.at("LEXIQUES/MEMO_261121_1005.txt"), Lignes({"N = 123057", "V = 15"}));
    // Ties keep the bucket order, then the order of first appearance across the texts.
    // Ties keep the bucket order (length, then initial), then the first appearance across the
    // texts: "col" of t2 before "cap" of t4.
    EXPECT_EQ(un.apresReprise.at("LEXIQUES/FORMES_MIN_261121_1005.txt"),
              Lignes({"de\t120005", "la\t3000", "chat\t8", "chien\t8", std::string("âne\t6"_cp), std::string("été\t5"_cp),
                      std::string("zèbre\t5"_cp), "il\t4", std::string("œuf\t2"_cp), std::string("élan\t2"_cp), "porte\t2",
                      "col\t1", "cap\t1", "zoo\t1", "ours\t1"}));
    Comparer(lexique, 2);
}

TEST(ReleveFils, GrandLexiqueIdentiqueSurUnOuPlusieursFils) {
    const Commande grand = [](Contexte& c, const ParametresReleve& p, EtatReleves& e) { GrandLexique(c, p, e); };
    const Issue un = Comparer(grand, 0);
    EXPECT_EQ(un.erreur, kErreurT3);
    // The failed run leaves the partial lexicons of t1 and t2, in bucket order.
    EXPECT_EQ(un.apresErreur.at("LEXIQUES/TG_LEXIQUE_261121_1005/2.txt"),
              Lignes({"de\t120000", "il\t4", "la\t1500", "col\t1", std::string("âne\t5"_cp), std::string("œuf\t2"_cp),
                      "chien\t1", std::string("zèbre\t5"_cp)}));
    EXPECT_EQ(un.apresErreur.count("LEXIQUES/TG_LEXIQUE_261121_1005/3.txt"), 0u);
    // One control line per index line of the first text, the clitic grouped.
    EXPECT_EQ(un.apresReprise.at("LEXIQUES/TG_LEXIQUE_261121_1005/CONTROLE.txt"),
              Lignes({std::string("0\tété\t3"_cp), std::string("0\tété\t2"_cp), "0\tchat\t5", "0\t1999\t1",
                      "0\tchien\t5", "0\til\t1", "0\tchat\t2"}));
    Comparer(grand, 2);
}

TEST(ReleveFils, LexiquesMultiplesIdentiquesSurUnOuPlusieursFils) {
    const Commande multiples = [](Contexte& c, const ParametresReleve& p, EtatReleves& e) {
        LexiquesMultiples(c, p, e);
    };
    const Issue un = Comparer(multiples, 0);
    EXPECT_EQ(un.erreur, kErreurT3);
    EXPECT_EQ(un.apresErreur.count("LEXIQUES_MULTIPLES/t2_FORMIN.txt"), 1u);
    EXPECT_EQ(un.apresErreur.count("LEXIQUES_MULTIPLES/t3_FORMIN.txt"), 0u);
    // The line of "de" above 100,000 is carried into every later file, of this run and the next.
    EXPECT_EQ(un.apresReprise.at("LEXIQUES_MULTIPLES/t5_FORMIN.txt"),
              Lignes({"de\t120000", "de\t120000", std::string("élan\t2"_cp), "chien\t2"}));
    Comparer(multiples, 2);
}

// A bucket holds at most 50,000 items: a text with one more in a bucket stops each survey at
// that item, on any number of threads, with the partial files of the texts before it.
TEST(ReleveFils, CasePleineAuMemeItemSurUnOuPlusieursFils) {
    auto lancer = [](int commande, unsigned fils) {
        Banc b;
        std::vector<std::string> lignes{kSep, "<M f=123 >\t1\t!"};
        // 50,001 distinct forms of 15 letters from "b": one bucket; the number is of class 0.
        for (int k = 0; k <= 50000; ++k) {
            std::string f = "bbbbbbbbbb";
            for (int v = k, c = 0; c < 5; ++c, v /= 26) f += static_cast<char>('a' + v % 26);
            lignes.push_back("<M f=" + f + " >\t1\t!");
        }
        b.Index("t1", {kSep, "<M f=chat >\t2\t!"});
        b.Index("t2", lignes);
        b.Index("t3", {kSep, "<M f=chien >\t2\t!"});
        b.ctx.fils = fils;
        b.dialogue.reponses = {"N"};
        b.dialogue.fichiers = {b.Liste({"t1", "t2", "t3"})};
        EtatReleves etat;
        ParametresReleve p;
        const std::string erreur = test::MessageErreur([&] {
            if (commande == 0) Lexique(b.ctx, p, etat);
            else if (commande == 1) GrandLexique(b.ctx, p, etat);
            else LexiquesMultiples(b.ctx, p, etat);
        });
        return std::make_pair(erreur, test::Arbo(b.racine));
    };
    for (int commande : {0, 1, 2}) {
        SCOPED_TRACE("commande " + std::to_string(commande));
        const auto un = lancer(commande, 1);
        EXPECT_EQ(un.first,
                  "Limite dépassée : plus de 50000 entrées dans la case de « bbbbbbbbbbczvca » de la table des items "
                  "(MAX_ENTREES_CASIER = 50000)");
        const auto deux = lancer(commande, 2);
        EXPECT_EQ(deux.first, un.first);
        EXPECT_TRUE(deux.second == un.second);
    }
}

}  // namespace
}  // namespace telvoris
