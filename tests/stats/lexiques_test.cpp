#include "stats/lexiques.hpp"

#include <gtest/gtest.h>

#include <map>

#include "core/erreurs.hpp"
#include "core/fichiers.hpp"
#include "core/texte.hpp"
#include "stats/outils.hpp"

namespace telvoris {
namespace {

using test::Banc;
using test::kSep;
using test::Lignes;
namespace fs = std::filesystem;

const std::string kElan = std::string("<M f=Élan l=élan_SM x=ms >\t1\t\"\"\""_cp);

// Two texts whose index lines cover the cases of the lexicon rules: a count above the last
// frequency slot, forms that fold together, a number, a hyphenated clitic, an ambiguous lemma,
// capitalised words and words of the folded initial classes.
void CorpusLexique(Banc& b) {
    b.Index("t1", {kSep, "<M f=de l=de_BX >\t150000\t!", "<M f=Le l=le_D >\t3\t!", "<M f=le l=le_D >\t2\t!",
                   "<M f=chat l=chat_SM x=ms >\t2\t\"\"\"", "<M f=12 l=12_U >\t4\t\"\"#",
                   "<M f=-il l=il_P >\t1\t\"\"$", "<M f=il l=il_P >\t2\t\"\"%", "<M f=Paris l=Paris_N >\t1\t\"\"&",
                   "<M f=porte l=porte_SF/porter_V >\t1\t\"\"'", kSep, "<M f=Chat l=chat_SM x=ms >\t1\t\"\"\"",
                   "<M f=et l=et_CS >\t7\t!", "<M f=un l=un_P >\t7\t!"});
    b.Index("t2", {kSep, "<M f=vent l=vent_SM x=ms >\t1\t\"\"\"", kElan, "<M f=porte l=porte_SF/porter_V >\t2\t\"\"#",
                   "<M f=zoo l=zoo_SM >\t6\t\"\"$", "<M f=kilo l=kilo_SM >\t6\t\"\"%"});
}

void LancerLexique(Banc& b, int niveau, EtatReleves& etat, const std::string& regrouper = "O") {
    b.dialogue.reponses = {regrouper};
    b.dialogue.fichiers = {b.Liste({"t1", "t2"})};
    ParametresReleve p;
    p.NiveauLexical = niveau;
    Lexique(b.ctx, p, etat);
}

TEST(Lexique, QuatreNiveauxOctetPourOctet) {
    Banc b;
    CorpusLexique(b);
    {
        EtatReleves etat;
        LancerLexique(b, 0, etat);
        // By count; equal counts by length class, then initial class (u, v, k share one; z and é
        // fall in the last), then first appearance. The number and the hyphenated clitic count
        // in N and V but are written nowhere, and the clitic is not grouped with "il".
        EXPECT_EQ(b.Sortie("LEXIQUES/FORMES_MIN_261121_1005.txt"),
                  Lignes({"de\t150000", "et\t7", "un\t7", "zoo\t6", "kilo\t6", "le\t5", "chat\t3", "porte\t3", "il\t2",
                          "vent\t1", std::string("élan\t1"_cp), "paris\t1"}));
        EXPECT_EQ(b.Sortie("LEXIQUES/MEMO_261121_1005.txt"), Lignes({"N = 150047", "V = 14"}));
        EXPECT_EQ(b.dialogue.questions,
                  std::vector<std::string>{std::string("Regrouper les post-clitiques avec les autres occurrences (O/N) ?"_cp)});
        EXPECT_EQ(b.dialogue.messages,
                  (std::vector<std::string>{"N = 150047 occurrences.", "V = 14 formes.", " 1 secondes",
                                            std::string("Lexique établi en\r\n 1 secondes"_cp)}));
    }
    {
        EtatReleves etat;
        b.dialogue.messages.clear();
        LancerLexique(b, 1, etat, "N");
        EXPECT_EQ(b.Sortie("LEXIQUES/FORMES_TYP_261121_1005.txt"),
                  Lignes({"de\t150000", "et\t7", "un\t7", "zoo\t6", "kilo\t6", "Le\t3", "porte\t3", "il\t2", "le\t2",
                          "chat\t2", "Chat\t1", "vent\t1", std::string("Élan\t1"_cp), "Paris\t1"}));
        EXPECT_EQ(b.Sortie("LEXIQUES/MEMO_261121_1005.txt"), "");
        EXPECT_EQ(b.dialogue.messages[0], "N = 150047 occurrences.");
        EXPECT_EQ(b.dialogue.messages[1], " 1 secondes");
    }
    {
        EtatReleves etat;
        b.dialogue.messages.clear();
        LancerLexique(b, 2, etat);
        // The ambiguous lemma goes to LEMMES_AMB only, under its folded form; V counts it.
        EXPECT_EQ(b.Sortie("LEXIQUES/LEMMES_261121_1005.txt"),
                  Lignes({"de_BX\t150000", "un_P\t7", "et_CS\t7", "zoo_SM\t6", "kilo_SM\t6", "le_D\t5", "il_P\t3",
                          "chat_SM\t3", "vent_SM\t1", "Paris_N\t1", std::string("élan_SM\t1"_cp)}));
        EXPECT_EQ(b.Sortie("LEXIQUES/LEMMES_AMB261121_1005.txt"), Lignes({"porte|porte_SF/porter_V\t3"}));
        EXPECT_EQ(b.Sortie("LEXIQUES/MEMO_261121_1005.txt"), Lignes({"N = 150047", "V = 13", "V2 = 1"}));
        EXPECT_EQ(b.dialogue.messages[1], "V = 13 lemmes non ambigus.");
        EXPECT_EQ(b.dialogue.messages[2], "V2 = 1 lemmes ambigus.");
    }
    {
        EtatReleves etat;
        LancerLexique(b, 3, etat);
        EXPECT_EQ(b.Sortie("LEXIQUES/NP261121_1005.txt"),
                  Lignes({"Le\t3", "Chat\t1", std::string("Élan\t1"_cp), "Paris\t1"}));
        EXPECT_EQ(b.Sortie("LEXIQUES/MEMO_261121_1005.txt"), "");
    }
}

TEST(Lexique, LesCasesDeClasseZeroRestentDUnReleveALAutre) {
    Banc b;
    CorpusLexique(b);
    EtatReleves etat;
    LancerLexique(b, 0, etat);
    EXPECT_EQ(b.Sortie("LEXIQUES/MEMO_261121_1005.txt"), Lignes({"N = 150047", "V = 14"}));
    // "12" and "-il" are still in the table: a second run finds them and does not count them new.
    LancerLexique(b, 0, etat);
    EXPECT_EQ(b.Sortie("LEXIQUES/MEMO_261121_1005.txt"), Lignes({"N = 150047", "V = 12"}));
}

TEST(Lexique, IndexAbsentListeVideEtCompteIllisible) {
    {
        // No index: the message, then the run goes on; an empty list gives empty files and N = 0.
        Banc b;
        EtatReleves etat;
        b.dialogue.reponses = {"N"};
        b.dialogue.fichiers = {b.Liste({})};
        ParametresReleve p;
        Lexique(b.ctx, p, etat);
        EXPECT_EQ(b.dialogue.messages[0], std::string("Le dossier n'a pas été indexé. Vérifiez et recommencez."_cp));
        EXPECT_EQ(b.Sortie("LEXIQUES/FORMES_MIN_261121_1005.txt"), "");
        EXPECT_EQ(b.Sortie("LEXIQUES/MEMO_261121_1005.txt"), Lignes({"N = 0", "V = 0"}));
    }
    {
        // ... and stops at the first index file it cannot open, naming it.
        Banc b;
        EtatReleves etat;
        b.dialogue.reponses = {"N"};
        b.dialogue.fichiers = {b.Liste({"absent"})};
        try {
            Lexique(b.ctx, ParametresReleve{}, etat);
            FAIL() << "un index absent doit arrêter le relevé";
        } catch (const ErreurExecution& e) {
            EXPECT_NE(std::string(e.what()).find("absent.txt"), std::string::npos) << e.what();
        }
    }
    {
        Banc b;
        EtatReleves etat;
        b.Index("t", {kSep, "<M f=chat >\tdeux\t!"});
        b.dialogue.reponses = {"N"};
        b.dialogue.fichiers = {b.Liste({"t"})};
        try {
            Lexique(b.ctx, ParametresReleve{}, etat);
            FAIL() << "un compte illisible doit arrêter le relevé";
        } catch (const ErreurExecution& e) {
            EXPECT_NE(std::string(e.what()).find("deux"), std::string::npos) << e.what();
            EXPECT_NE(std::string(e.what()).find("ligne 2"), std::string::npos) << e.what();
        }
    }
    {
        // The answer "O" reads the post-clitic list: a missing list stops the run.
        Banc b;
        fs::remove(b.ctx.ressources / "utilitaires" / "postclit2.txt");
        EtatReleves etat;
        b.dialogue.reponses = {"O"};
        EXPECT_THROW(Lexique(b.ctx, ParametresReleve{}, etat), ErreurExecution);
    }
}

TEST(GrandLexique, UnePasseCopieLeTotalEtRegroupeLesPostclitiques) {
    Banc b;
    CorpusLexique(b);
    EtatReleves etat;
    b.dialogue.fichiers = {b.Liste({"t1", "t2"})};
    GrandLexique(b.ctx, ParametresReleve{}, etat);
    const std::string dossier = "LEXIQUES/TG_LEXIQUE_261121_1005/";
    // "-il" joins "il"; the number is in no file, nor in N and V, which come from the totals.
    EXPECT_EQ(b.Sortie(dossier + "DEFI_1.txt"),
              Lignes({"de\t150000", "et\t7", "un\t7", "zoo\t6", "kilo\t6", "le\t5", "il\t3", "chat\t3", "porte\t3",
                      "vent\t1", std::string("élan\t1"_cp), "paris\t1"}));
    EXPECT_EQ(b.Sortie(dossier + "SYNTHESE.txt"), "");
    EXPECT_EQ(b.Sortie(dossier + "MEMO.txt"), Lignes({"N = 150043", "V = 12"}));
    EXPECT_EQ(b.Sortie(dossier + "CONTROLE.txt"),
              Lignes({"0\tde\t150000", "0\tle\t3", "0\tle\t2", "0\tchat\t2", "0\t12\t4", "0\til\t1", "0\til\t2",
                      "0\tparis\t1", "0\tporte\t1", "0\tchat\t1", "0\tet\t7", "0\tun\t7"}));
    for (const char* parti : {"1.txt", "2.txt", "TOTAL_1.txt", "DEFI_2.txt"})
        EXPECT_FALSE(fs::exists(b.racine / dossier / parti)) << parti;
    EXPECT_EQ(b.dialogue.messages.back(), std::string("Lexique établi en\r\n 1 secondes"_cp));

    // Lemmas: the ambiguous item is merged pass by pass but written to no result file.
    b.horloge.Regler(Instant{2026, 11, 21, 10, 6, 0});
    ParametresReleve lemmes;
    lemmes.NiveauLexical = 2;
    b.dialogue.fichiers = {b.Liste({"t1", "t2"})};
    GrandLexique(b.ctx, lemmes, etat);
    const std::string dossier2 = "LEXIQUES/TG_LEXIQUE_261121_1006/";
    EXPECT_EQ(b.Sortie(dossier2 + "DEFI_1.txt"),
              Lignes({"de_BX\t150000", "un_P\t7", "et_CS\t7", "zoo_SM\t6", "kilo_SM\t6", "le_D\t5", "il_P\t3",
                      "chat_SM\t3", "vent_SM\t1", "Paris_N\t1", std::string("élan_SM\t1"_cp)}));
    EXPECT_EQ(b.Sortie(dossier2 + "MEMO.txt"), Lignes({"N = 150040", "V = 11"}));
    EXPECT_TRUE(b.Sortie(dossier2 + "CONTROLE.txt").starts_with("2\tde_BX\t150000\r\n2\tle_D\t3\r\n"));
}

// A word of `longueur` letters beginning with `initiale`, distinct for each j.
std::string Mot(char initiale, int longueur, int j) {
    std::string m(1, initiale);
    for (int k = 1; k < longueur; ++k) {
        m += static_cast<char>('a' + j % 26);
        j /= 26;
    }
    return m;
}

std::vector<std::string> LignesDe(const std::string& texte) {
    std::vector<std::string> r;
    LecteurLignes lecteur(texte);
    std::string_view l;
    while (lecteur.Suivante(l)) r.emplace_back(l);
    return r;
}

TEST(GrandLexique, PlusieursPassesDonnentLesComptesDuLexique) {
    Banc b;
    // 136,000 distinct words over three texts, 6,000 of them in one bucket, so that the first
    // pass saturates and the merge takes two.
    std::vector<std::string> mots;
    for (int j = 0; j < 130000; ++j) mots.push_back(Mot(static_cast<char>('a' + j % 20), 6 + (j / 20) % 8, j / 160));
    for (int j = 0; j < 6000; ++j) mots.push_back(Mot('b', 8, 100000 + j));
    for (int t = 1; t <= 3; ++t) {
        std::vector<std::string> lignes{kSep};
        for (std::size_t j = 0; j < mots.size(); ++j) {
            const int c = static_cast<int>((j * 7 + static_cast<std::size_t>(t) * 3) % 5);
            if (c > 0) lignes.push_back("<M f=" + mots[j] + " >\t" + std::to_string(c) + "\t!");
        }
        b.Index("t" + std::to_string(t), lignes);
    }
    const auto liste = b.Liste({"t1", "t2", "t3"});
    EtatReleves etat;
    b.dialogue.reponses = {"N"};
    b.dialogue.fichiers = {liste};
    Lexique(b.ctx, ParametresReleve{}, etat);
    std::map<std::string, long long> reference;
    {
        const std::string texte = b.Sortie("LEXIQUES/FORMES_MIN_261121_1005.txt");
        for (const auto& l : LignesDe(texte)) {
            const auto tab = l.find('\t');
            reference[std::string(l.substr(0, tab))] = std::stoll(std::string(l.substr(tab + 1)));
        }
    }
    ASSERT_EQ(reference.size(), mots.size());

    b.dialogue.fichiers = {liste};
    GrandLexique(b.ctx, ParametresReleve{}, etat);
    const fs::path dossier = b.racine / "LEXIQUES/TG_LEXIQUE_261121_1005";
    EXPECT_EQ(test::Lire(dossier / "MEMO.txt"), b.Sortie("LEXIQUES/MEMO_261121_1005.txt"));
    std::vector<long long> limites{1000000000};
    for (const auto& l : LignesDe(test::Lire(dossier / "SYNTHESE.txt"))) {
        EXPECT_EQ(l.substr(0, l.find('\t')), std::to_string(limites.size()));
        limites.push_back(std::stoll(std::string(l.substr(l.find('\t') + 1))));
    }
    ASSERT_GE(limites.size(), 2u);
    // Every item stands in the band its count calls for, with the count of "Lexique"; what lies
    // at or under the last limit is in no band (only a merge of several passes keeps band 1).
    std::size_t attendus = 0, ecrits = 0;
    for (const auto& [item, c] : reference)
        if (c > limites.back()) ++attendus;
    for (std::size_t k = 1; k < limites.size(); ++k) {
        const std::string texte = test::Lire(dossier / ("DEFI_" + std::to_string(k) + ".txt"));
        for (const auto& l : LignesDe(texte)) {
            const std::string item(l.substr(0, l.find('\t')));
            const long long c = std::stoll(std::string(l.substr(l.find('\t') + 1)));
            ASSERT_EQ(reference.at(item), c) << item;
            EXPECT_TRUE(limites[k] < c && c <= limites[k - 1]) << item << " bande " << k;
            ++ecrits;
        }
    }
    EXPECT_GT(ecrits, 0u);
    EXPECT_EQ(ecrits, attendus);
    EXPECT_FALSE(fs::exists(dossier / "TOTAL_1.txt"));
    EXPECT_FALSE(fs::exists(dossier / "1.txt"));
}

TEST(GrandLexique, SansIndexLeReleveSArrete) {
    Banc b;
    EtatReleves etat;
    b.dialogue.fichiers = {b.Liste({"t"})};
    try {
        GrandLexique(b.ctx, ParametresReleve{}, etat);
        FAIL();
    } catch (const ErreurExecution& e) {
        EXPECT_EQ(std::string(e.what()), std::string("Le dossier n'a pas été indexé. Vérifiez et recommencez."_cp));
    }
}

TEST(LexiquesMultiples, TroisTranchesEtChaineJamaisVidee) {
    Banc b;
    b.Index("t1", {kSep, "<M f=de >\t150000\t!", "<M f=la >\t20000\t!", "<M f=le >\t5000\t!", "<M f=chat >\t500\t\"\"\"",
                   kSep, "<M f=chien >\t50\t\"\"\"", "<M f=chat >\t1\t\"\"#"});
    b.Index("t2", {kSep, "<M f=vent >\t3\t\"\"\"", "<M f=Vent >\t4\t\"\"#", "<M f=-il >\t1\t\"\"$"});
    EtatReleves etat;
    b.dialogue.fichiers = {b.Liste({"t1", "t2"})};
    LexiquesMultiples(b.ctx, ParametresReleve{}, etat);
    EXPECT_EQ(b.Sortie("LEXIQUES_MULTIPLES/t1_FORMIN.txt"),
              Lignes({"de\t150000", "la\t20000", "le\t5000", "chat\t501", "chien\t50"}));
    // The string of counts above 100,000 and the counters above 10,000 carry over to the next
    // text; the counter of 5,000 is cleared. No post-clitic grouping here.
    EXPECT_EQ(b.Sortie("LEXIQUES_MULTIPLES/t2_FORMIN.txt"), Lignes({"de\t150000", "la\t20000", "vent\t7"}));
    EXPECT_EQ(b.dialogue.messages.back(), std::string("Lexique établi en\r\n 1 secondes"_cp));

    ParametresReleve lemmes;
    lemmes.NiveauLexical = 2;
    b.Index("t3", {kSep, "<M f=porte l=porte_SF/porter_V >\t2\t\"\"\"", "<M f=x >\t1\t\"\"#"});
    EtatReleves frais;
    b.dialogue.fichiers = {b.Liste({"t3"})};
    LexiquesMultiples(b.ctx, lemmes, frais);
    // The plain lemma, with no "|" composition; a tag without lemma gives no item.
    EXPECT_EQ(b.Sortie("LEXIQUES_MULTIPLES/t3_LEMMES.txt"), Lignes({"porte_SF/porter_V\t2"}));

    // The partition lines must hold the tab behind the count.
    b.Index("t4", {kSep, "<M f=vent >\t3"});
    b.dialogue.fichiers = {b.Liste({"t4"})};
    EXPECT_THROW(LexiquesMultiples(b.ctx, ParametresReleve{}, frais), ErreurExecution);
}

TEST(LexiquesMultiples, LeDeuxCentMillemeHapaxRelanceLeCompteur) {
    Banc b;
    std::vector<std::string> lignes{kSep};
    for (int j = 0; j < 200001; ++j)
        lignes.push_back("<M f=" + Mot(static_cast<char>('a' + j % 20), 6 + (j / 20) % 8, j / 160) + " >\t1\t\"\"\"");
    b.Index("t", lignes);
    EtatReleves etat;
    b.dialogue.fichiers = {b.Liste({"t"})};
    LexiquesMultiples(b.ctx, ParametresReleve{}, etat);
    // The 200,000th hapax is lost and the counter starts again at 1, so the 200,001st (the last
    // of the walk) takes slot 2 and only two hapaxes are written.
    EXPECT_EQ(b.Sortie("LEXIQUES_MULTIPLES/t_FORMIN.txt"), Lignes({"aaaaaa\t1", Mot('t', 13, 1249) + "\t1"}));
    EXPECT_EQ(b.dialogue.messages.front(), "+ de 200 000 hapax !");
}

TEST(TriNomsPropres, MajusculeSansRivalPlusFrequent) {
    EXPECT_EQ(ClasseMajuscules("ONU"), 2);
    EXPECT_EQ(ClasseMajuscules("1914"), 2);
    EXPECT_EQ(ClasseMajuscules("McDo"), 1);
    EXPECT_EQ(ClasseMajuscules("eBaY"), 3);
    EXPECT_EQ(ClasseMajuscules("eBay"), 0);
    EXPECT_EQ(ClasseMajuscules(std::string("Œuvre"_cp)), 1);

    Banc b;
    const fs::path lexique = b.racine / "lexique.txt";
    test::Ecrire(lexique, Lignes({"Paris\t10", "le\t9", "mange\t8", "paris\t2", "Le\t5", "Marie\t3", "ONU\t4", "McDo\t2",
                                  "Ange\t2", "eBay\t1"}));
    b.dialogue.fichiers = {b.Liste({}), lexique};
    TriNomsPropres(b.ctx);
    // "Le" follows "le"; "Ange" loses to the "ange" inside "mange": the searches are plain
    // substring searches over the whole lexicon.
    EXPECT_EQ(b.Sortie("LEXIQUES/NOMS_PROPRES.txt"), Lignes({"Paris\t10\t5", "Marie\t3\t5", "McDo\t2\t4"}));
    EXPECT_EQ(b.dialogue.titresFichiers, (std::vector<std::string>{std::string("Localiser le répertoire"_cp), "Lexique ?"}));
    EXPECT_EQ(b.dialogue.messages.back(), std::string("Terminé "_cp));
}

}  // namespace
}  // namespace telvoris
