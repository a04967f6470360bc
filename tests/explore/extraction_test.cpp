#include <gtest/gtest.h>

#include "core/erreurs.hpp"
#include "core/horloge.hpp"
#include "core/texte.hpp"
#include "explore/extraction.hpp"
#include "support/support.hpp"

namespace telvoris {
namespace {

using test::DialogueScripte;
using test::DossierTemporaire;
using test::Lignes;
using test::Lire;
namespace fs = std::filesystem;

// Three documents: two sentences about ports, one with nothing, one cut by a line break.
const std::string kTexteA = Lignes({
    "<QORX_ATTR J=\"A\">",
    "<M f=Le >Le <M f=Port >Port <M f=ferme >ferme<PC f=. l=PT >. <M f=Les >Les <M f=ports >ports "
    "<M f=rouvrent >rouvrent <M f=aux >aux <M f=portes >portes<PC f=. l=PT >.",
    "",
    "<QORX_ATTR J=\"B\">",
    "<M f=Rien >Rien<PC f=... l=PT >...",
    "<QORX_ATTR J=\"C\">",
    "<M f=Le >Le <M f=port >port <BR><M f=suivant >suivant <M f=ici >ici <PC f=? l=I > ? <M f=Un >Un "
    "<M f=port >port<PC f=! l=E >!",
});

TEST(Extraction, PhrasesParChaineEtParListe) {
    // A string search keeps forms that hold "port" but not "portes"; a sentence ends on a form
    // that begins with "." and on "?" or "!", and at a line break; the partition without a hit is
    // left out with its metadata line.
    EXPECT_EQ(ExtrairePhrases(kTexteA, LireCleExtraction("port%portes", false)),
              Lignes({"<QORX_ATTR J=\"A\">", "Le Port ferme.", " Les ports rouvrent aux portes.",
                      "<QORX_ATTR J=\"C\">", "Le port", "  Un port!"}));
    // Each form takes the blanks of the text before its tag, two after " ? ".
    // Two hits in one sentence: the string search writes it twice, the list search once.
    EXPECT_EQ(ExtrairePhrases(kTexteA, LireCleExtraction("les/ports", false)),
              Lignes({"<QORX_ATTR J=\"A\">", " Les ports rouvrent aux portes.", " Les ports rouvrent aux portes."}));
    EXPECT_EQ(ExtrairePhrases(kTexteA, LireCleExtraction("les/ports", true)),
              Lignes({"<QORX_ATTR J=\"A\">", " Les ports rouvrent aux portes."}));
    // The list search asks for the whole form, and takes "%" as part of an item.
    EXPECT_EQ(ExtrairePhrases(kTexteA, LireCleExtraction("por", true)), "");
    const auto cle = LireCleExtraction("a//b%", false);
    EXPECT_EQ(cle.items, (std::vector<std::string>{"a", "b"}));
    EXPECT_TRUE(cle.exclus.empty());
    EXPECT_EQ(LireCleExtraction("a%b", true).items, (std::vector<std::string>{"a%b"}));
    EXPECT_EQ(LibelleExtrait({"port"}), "port");
    EXPECT_EQ(LibelleExtrait({"port", "quai"}), "port_ETC");
}

TEST(Extraction, ParagraphesExpressionsEtDocuments) {
    EXPECT_EQ(ExtraireParagraphes(kTexteA, LireCleExtraction("Port/Rien%portes", false)), "");
    EXPECT_EQ(ExtraireParagraphes(kTexteA, LireCleExtraction("f=port%f=portes", false)), Lignes({
                  "<M f=Le >Le <M f=port >port <BR><M f=suivant >suivant <M f=ici >ici <PC f=? l=I > ? <M f=Un >Un "
                  "<M f=port >port<PC f=! l=E >!"}));

    // The expressions stop at any of ; : ! ? . and are matched whatever their case; "un de plus" is not one.
    const std::string texte = Lignes({
        "<QORX_ATTR J=\"A\">",
        "<M f=Il >Il <M f=vit >vit <M f=un >un <M f=de >de <M f=ces >ces <M f=jours >jours <PC f=; l=PV > ; "
        "<M f=Une >Une <M f=de >de <M f=ces >ces <M f=fois >fois <PC f=, l=V >, <M f=un >un <M f=de >de "
        "<M f=plus >plus<PC f=. l=PT >.",
        "<M f=un >un <M f=de >de",
    });
    long long n = 0;
    EXPECT_EQ(ExtraireExpressions(texte, n), Lignes({"Il vit un de ces jours ;", "  Une de ces fois , un de plus."}));
    EXPECT_EQ(n, 2);

    // A key in the block before the first partition does not count; a marked document is
    // written back whole with its metadata line.
    const std::string blocs = "port avant\r\n<---------->\r\nle port\r\n<---------->\r\nrien\r\n<---------->\r\nun port\r\n";
    const std::string etiquete = "<QORX_ATTR J=A>\r\nA1\r\n<QORX_ATTR J=B>\r\nB1\r\n<QORX_ATTR J=C>\r\nC1\r\n";
    EXPECT_EQ(ExtraireDocuments(blocs, etiquete, "port"), "<QORX_ATTR J=A>\r\nA1\r\n<QORX_ATTR J=C>\r\nC1\r\n");
    EXPECT_EQ(ExtraireDocuments(blocs, etiquete, "avant"), "");

    EXPECT_EQ(CompterCle("aaaa", "aa"), 2);
    EXPECT_EQ(AnneeDuTexte("1999_LE_JOURNAL"), 1999);
    EXPECT_EQ(AnneeDuTexte("LE_JOURNAL_1999"), 0);
    EXPECT_EQ(AnneeDuTexte("2004-03-01"), 2004);
}

// A corpus of three texts: 2019_A (the text above), X_B and 1999_C.
fs::path Corpus(const fs::path& racine) {
    test::Ecrire(racine / "REPERTOIRE.txt", Lignes({"2019_A", "X_B", "1999_C"}));
    test::Ecrire(racine / "OLBRIN_TT" / "2019_A.txt", kTexteA);
    test::Ecrire(racine / "OLBRIN_TT" / "X_B.txt", Lignes({"<QORX_ATTR J=\"B\">", "<M f=Port >Port"}));
    test::Ecrire(racine / "OLBRIN_TT" / "1999_C.txt", Lignes({"<QORX_ATTR J=\"C\">", "<M f=Quai >Quai"}));
    const std::vector<std::pair<std::string, std::string>> nus = {
        {"2019_A", "<---------->\r\nLe Port ferme. Les ports rouvrent aux portes.\r\n<---------->\r\nRien...\r\n"
                   "<---------->\r\nLe port suivant ici ? Un port!\r\n"},
        {"X_B", "<---------->\r\nPort\r\n"},
        {"1999_C", "<---------->\r\nQuai\r\n"}};
    for (const auto& [nom, nu] : nus) {
        test::Ecrire(racine / "OLBRIN_TT" / "TEXTE_NU" / (nom + ".txt"), nu);
        test::Ecrire(racine / "OLBRIN_TT" / "TEXTE_MIN" / (nom + ".txt"), MinusculesSimples(nu));
    }
    return racine / "REPERTOIRE.txt";
}

struct Lancement {
    DialogueScripte dialogue;
    HorlogeFixe horloge{Instant{2026, 11, 24, 10, 30, 0}};
    Contexte ctx{dialogue, horloge, {}};
};

TEST(Extraction, DossiersDePhrasesEtReprise) {
    DossierTemporaire d;
    const auto liste = Corpus(d.Chemin());
    {
        Lancement l;
        l.dialogue.reponses = {"CH", "port%portes"};
        l.dialogue.fichiers = {liste};
        OperationExtrairePhrases(l.ctx);
        EXPECT_EQ(l.dialogue.messages, std::vector<std::string>{std::string("Terminé"_cp)});
    }
    const fs::path dossier = d.Chemin() / "EXTRAITS" / "port";
    EXPECT_EQ(Lire(dossier / "REPERTOIRE.Txt"), Lignes({"2019_A", "X_B"}));
    EXPECT_EQ(Lire(dossier / "ARCHIVE_BRUT" / "X_B.txt"), Lignes({"<QORX_ATTR J=\"B\">", "Port"}));
    // A text without a hit gets an empty file and stays out of the list.
    EXPECT_EQ(Lire(dossier / "ARCHIVE_BRUT" / "1999_C.txt"), "");
    {
        // A new folder asks nothing; when it exists, "N" writes over it.
        Lancement l;
        l.dialogue.reponses = {"LI", "quai"};
        l.dialogue.fichiers = {liste};
        OperationExtrairePhrases(l.ctx);
        l.dialogue.reponses = {"LI", "quai", "N"};
        l.dialogue.fichiers = {liste};
        OperationExtrairePhrases(l.ctx);
    }
    EXPECT_EQ(Lire(d.Chemin() / "EXTRAITS" / "quai" / "REPERTOIRE.Txt"), Lignes({"1999_C"}));
    EXPECT_FALSE(fs::exists(d.Chemin() / "EXTRAITS" / "quai_261124_1030"));
    // "O" makes a dated folder beside it.
    Lancement l;
    l.dialogue.reponses = {"CH", "port", "O"};
    l.dialogue.fichiers = {liste};
    OperationExtrairePhrases(l.ctx);
    EXPECT_EQ(Lire(d.Chemin() / "EXTRAITS" / "port_261124_1030" / "REPERTOIRE.Txt"), Lignes({"2019_A", "X_B"}));

    // A wrong mode ends the program with its message; an empty key says so and writes nothing.
    Lancement m;
    m.dialogue.reponses = {"ch"};
    EXPECT_THROW(OperationExtrairePhrases(m.ctx), FinProgramme);
    m.dialogue.reponses = {"CH", "%port"};
    m.dialogue.fichiers = {liste};
    OperationExtraireParagraphes(m.ctx);
    EXPECT_EQ(m.dialogue.messages, std::vector<std::string>{std::string("Aucune forme à extraire : la clé est vide."_cp)});
    EXPECT_FALSE(fs::exists(d.Chemin() / "EXTRAITS_2"));
}

TEST(Extraction, DocumentsEtQuantification) {
    DossierTemporaire d;
    const auto liste = Corpus(d.Chemin());
    Lancement l;
    // Case ignored: the key is folded and sought in TEXTE_MIN; the filter keeps names holding "20".
    l.dialogue.reponses = {"Port", "NON", "DATE", "20"};
    l.dialogue.fichiers = {liste};
    OperationExtraireDocuments(l.ctx);
    const fs::path docs = d.Chemin() / "EXTRAITS_DOCS" / "Port";
    EXPECT_EQ(Lire(docs / "REPERTOIRE.txt"), Lignes({"2019_A"}));
    EXPECT_EQ(Lire(docs / "OLBRIN_TT" / "2019_A.txt"),
              Lignes({"<QORX_ATTR J=\"A\">",
                      "<M f=Le >Le <M f=Port >Port <M f=ferme >ferme<PC f=. l=PT >. <M f=Les >Les <M f=ports >ports "
                      "<M f=rouvrent >rouvrent <M f=aux >aux <M f=portes >portes<PC f=. l=PT >.",
                      "", "<QORX_ATTR J=\"C\">",
                      "<M f=Le >Le <M f=port >port <BR><M f=suivant >suivant <M f=ici >ici <PC f=? l=I > ? "
                      "<M f=Un >Un <M f=port >port<PC f=! l=E >!"}));
    // Case kept: "Port" is in TEXTE_NU of 2019_A and X_B; the folder exists, so a dated one is made.
    l.dialogue.reponses = {"Port", "OUI", "NON", ""};
    l.dialogue.fichiers = {liste};
    OperationExtraireDocuments(l.ctx);
    EXPECT_EQ(Lire(d.Chemin() / "EXTRAITS_DOCS" / "Port_261124_1030" / "REPERTOIRE.txt"), Lignes({"2019_A", "X_B"}));

    // Counts by year: X_B counts under year 0, which is not written.
    Lancement q;
    q.dialogue.fichiers = {liste, liste};
    q.dialogue.reponses = {"port", "NON", "Port", "OUI"};
    OperationQuantifierOccurrences(q.ctx);
    EXPECT_EQ(Lire(d.Chemin() / "REPERAGES" / "port.txt"), Lignes({"2019\t5"}));
    OperationQuantifierOccurrences(q.ctx);
    EXPECT_EQ(Lire(d.Chemin() / "REPERAGES" / "Port.txt"), Lignes({"2019\t1"}));
    EXPECT_EQ(q.dialogue.messages.back(), "Terminé  en 1 secondes"_cp);

    // A missing text is named; a year past the counters is a bound error.
    fs::remove(d.Chemin() / "OLBRIN_TT" / "TEXTE_MIN" / "X_B.txt");
    q.dialogue.fichiers = {liste};
    q.dialogue.reponses = {"port", "NON"};
    EXPECT_NE(test::MessageErreur([&] { OperationQuantifierOccurrences(q.ctx); }).find("X_B.txt"), std::string::npos);
    test::Ecrire(d.Chemin() / "LISTE2.txt", Lignes({"9999_A"}));
    q.dialogue.fichiers = {d.Chemin() / "LISTE2.txt"};
    q.dialogue.reponses = {"port", "NON"};
    EXPECT_NE(test::MessageErreur([&] { OperationQuantifierOccurrences(q.ctx); }).find("MAX_ANNEE_QUANTIFICATION"),
              std::string::npos);
}

}  // namespace
}  // namespace telvoris
