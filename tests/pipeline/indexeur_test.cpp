#include "pipeline/indexeur.hpp"

#include <gtest/gtest.h>

#include "core/erreurs.hpp"
#include "core/horloge.hpp"
#include "core/texte.hpp"
#include "pipeline/segmenteur.hpp"
#include "support/support.hpp"

namespace telvoris {
namespace {

using test::DossierTemporaire;
using test::Lignes;
using test::Lire;
namespace fs = std::filesystem;

const ListeCasiers& Courts() {
    static const ListeCasiers courts = ChargerCourtsFrequents(test::RessourcesTest());
    return courts;
}

const std::string kSep = "<---------->";

// Indexes OLBRIN_TT/<nom>.txt of a fresh corpus holding `tague`.
void IndexerTexte(const fs::path& racine, const std::string& nom, const std::string& tague) {
    test::Ecrire(racine / "OLBRIN_TT" / (nom + ".txt"), tague);
    test::Ecrire(racine / "liste.txt", Lignes({nom}));
    test::DialogueScripte dialogue;
    Indexer(ChargerListeTextes(racine / "liste.txt"), Courts(), dialogue);
}

std::string Derive(const fs::path& racine, const std::string& dossier, const std::string& nom) {
    return Lire(racine / "OLBRIN_TT" / dossier / (nom + ".txt"));
}

const std::vector<std::string> kTexte = {
    "<M f=Avant >Avant",
    "<QORX_ATTR JOURNAL=A DATE=2024-01-01 >",
    "<M f=Le >Le <M f=chat >chat <M f=dort >dort<PC f=. l=PT >.",
    "",
    "<M f=Le >Le <M f=chat >chat<BR>",
    "<QORX_ATTR JOURNAL=B >",
    "<QORX_ATTR JOURNAL=C >",
    "<M k=99 f=chien l=chien_SM x=ms fz=1 >chien <M f=12 >12",
    "<M f=seul >",
};

TEST(Indexeur, SeptFichiersOctetPourOctet) {
    DossierTemporaire d;
    IndexerTexte(d.Chemin(), "t", Lignes(kTexte));
    const auto& r = d.Chemin();
    EXPECT_EQ(Derive(r, "TEXTE_ETIQ", "t"),
              Lignes({kSep, "<M f=Avant >Avant", "<QORX_ATTR JOURNAL=A DATE=2024-01-01 >",
                      "<M k=1 f=Le >Le <M k=4 f=chat >chat <M k=9 f=dort >dort<PC k=13 f=. l=PT >.",
                      "<M k=16 f=Le >Le <M k=19 f=chat >chat<BR>", kSep, "<QORX_ATTR JOURNAL=B >", kSep,
                      "<QORX_ATTR JOURNAL=C >", "<M k=1 f=chien l=chien_SM x=ms >chien <M k=7 f=12 >12"}));
    EXPECT_EQ(Derive(r, "TEXTE_NU", "t"), Lignes({kSep, "Le chat dort.", "Le chat ", kSep, kSep, "chien 12"}));
    EXPECT_EQ(Derive(r, "TEXTE_MIN", "t"), Lignes({kSep, "le chat dort.", "le chat ", kSep, kSep, "chien 12"}));
    EXPECT_EQ(Derive(r, "REPERE_LIGNES", "t"), Lignes({kSep, "4", "6", kSep, kSep, "2"}));
    EXPECT_EQ(Derive(r, "NB_PARTITIONS", "t"), "6\r\n0\r\n3");
    EXPECT_EQ(Derive(r, "METADONNEES", "t"),
              Lignes({"<QORX_ATTR JOURNAL=A DATE=2024-01-01 >", "<QORX_ATTR JOURNAL=B >", "<QORX_ATTR JOURNAL=C >"}));
    // By length class, then initial class, then first occurrence; a short frequent word keeps
    // its count and "!"; numbers are counted but never indexed.
    EXPECT_EQ(Derive(r, "LEXINDEX", "t"),
              Lignes({kSep, "<M f=Le >\t2\t!", "<M f=chat >\t2\t\"\"#\"\"'", "<M f=dort >\t1\t\"\"$", kSep, kSep,
                      "<M f=seul >\t1\t\"\"$", "<M f=chien l=chien_SM x=ms >\t1\t\"\"\""}));
}

TEST(Indexeur, ReindexerRedonneLesMemesFichiers) {
    DossierTemporaire sans, avec;
    IndexerTexte(sans.Chemin(), "t", Lignes(kTexte));
    // The same text with offsets from an earlier indexing: they are rebuilt away.
    std::vector<std::string> decale = kTexte;
    decale[2] = "<M k=5 f=Le >Le <M k=1 f=chat >chat <M k=3 f=dort >dort<PC k=7 f=. l=PT >.";
    IndexerTexte(avec.Chemin(), "t", Lignes(decale));
    for (const char* dossier :
         {"TEXTE_NU", "TEXTE_MIN", "LEXINDEX", "REPERE_LIGNES", "TEXTE_ETIQ", "NB_PARTITIONS", "METADONNEES"}) {
        EXPECT_EQ(Derive(sans.Chemin(), dossier, "t"), Derive(avec.Chemin(), dossier, "t")) << dossier;
    }
    // A second run over the same tagged text replaces the files rather than adding to them.
    const std::string premier = Derive(sans.Chemin(), "LEXINDEX", "t");
    test::DialogueScripte dialogue;
    Indexer(ChargerListeTextes(sans.Chemin() / "liste.txt"), Courts(), dialogue);
    EXPECT_EQ(Derive(sans.Chemin(), "LEXINDEX", "t"), premier);
}

TEST(Indexeur, CodesDePositionParBlocsDe220) {
    EXPECT_EQ(CodePosition(1, 1), "\"\"\"");
    EXPECT_EQ(CodePosition(2, 1), "\"#\"");
    // Block 220 gives a low code of 33: the arithmetic stands as it is.
    EXPECT_EQ(CodePosition(220, 5), "#!&");
    EXPECT_EQ(CodePosition(221, 220), std::string("#\"\xFD"));
    EXPECT_EQ(static_cast<unsigned char>(CodePosition(MAX_BLOCS, 1)[0]), 255);

    DossierTemporaire d;
    std::string ligne;
    for (int i = 0; i < 221; ++i) ligne += "<M f=mot >mot ";
    IndexerTexte(d.Chemin(), "t", Lignes({"<QORX_ATTR A=1 >", ligne}));
    std::string attendu = "<M f=mot >\t221\t";
    for (int n = 1; n <= 220; ++n) attendu += std::string("\"\"") + static_cast<char>(n + 33);
    attendu += "\"#\"";  // the 221st token opens block 2
    EXPECT_EQ(Derive(d.Chemin(), "LEXINDEX", "t"), Lignes({kSep, attendu}));
}

TEST(Indexeur, CasLimitesDesPartitions) {
    DossierTemporaire d;
    // Only a metadata line.
    IndexerTexte(d.Chemin(), "seul", Lignes({"<QORX_ATTR A=1 >"}));
    EXPECT_EQ(Derive(d.Chemin(), "NB_PARTITIONS", "seul"), "0");
    EXPECT_EQ(Derive(d.Chemin(), "LEXINDEX", "seul"), Lignes({kSep}));
    EXPECT_EQ(Derive(d.Chemin(), "METADONNEES", "seul"), Lignes({"<QORX_ATTR A=1 >"}));
    // No metadata at all: the lines go to TEXTE_ETIQ only.
    IndexerTexte(d.Chemin(), "nu", Lignes({"<M f=a >a"}));
    EXPECT_EQ(Derive(d.Chemin(), "TEXTE_ETIQ", "nu"), Lignes({kSep, "<M f=a >a"}));
    EXPECT_EQ(Derive(d.Chemin(), "TEXTE_NU", "nu"), Lignes({kSep}));
    EXPECT_EQ(Derive(d.Chemin(), "NB_PARTITIONS", "nu"), "0");
    EXPECT_EQ(Derive(d.Chemin(), "METADONNEES", "nu"), "");
    // A word cut by a hyphen at a line break is joined on: no blank behind it.
    IndexerTexte(d.Chemin(), "br", Lignes({"<QORX_ATTR A=1 >", "<M f=gouver- >gouver-<BR>", "<M f=nement >nement"}));
    EXPECT_EQ(Derive(d.Chemin(), "TEXTE_NU", "br"), Lignes({kSep, "gouver-", "nement"}));
    EXPECT_EQ(Derive(d.Chemin(), "TEXTE_ETIQ", "br"),
              Lignes({kSep, "<QORX_ATTR A=1 >", "<M k=1 f=gouver- >gouver-<BR>", "<M k=10 f=nement >nement"}));
    // Uncounted words (<MN ...>) go into the reading text only; punctuation is counted, not indexed.
    IndexerTexte(d.Chemin(), "mn", Lignes({"<QORX_ATTR A=1 >", "<MN f=hors >hors <M f=Etat >Etat<PC l=PT >."}));
    EXPECT_EQ(Derive(d.Chemin(), "TEXTE_NU", "mn"), Lignes({kSep, "hors Etat."}));
    EXPECT_EQ(Derive(d.Chemin(), "TEXTE_MIN", "mn"), Lignes({kSep, "hors etat."}));
    EXPECT_EQ(Derive(d.Chemin(), "TEXTE_ETIQ", "mn"),
              Lignes({kSep, "<QORX_ATTR A=1 >", "<MN k=1 f=hors >hors <M k=6 f=Etat >Etat<PC k=10 f=. l=. >."}));
    EXPECT_EQ(Derive(d.Chemin(), "NB_PARTITIONS", "mn"), "2");
    EXPECT_EQ(Derive(d.Chemin(), "LEXINDEX", "mn"), Lignes({kSep, "<M f=Etat >\t1\t\"\"\""}));
}

TEST(Indexeur, BalisesRecopieesOuRefaites) {
    // A tag is written as its values give it: an extra attribute, another order or a double
    // blank make it rebuilt, while the index keeps the tag as read. A number met twice stays
    // out of the index and shifts nothing around it.
    DossierTemporaire d;
    IndexerTexte(d.Chemin(), "t",
                 Lignes({"<QORX_ATTR A=1 >", "<M f=gnou fz=1 >gnou <M l=bison_X f=bison >bison <M f=12 >12 "
                                              "<M f=cerf  >cerf <M f=12 >12 <M f=gnou fz=1 >gnou"}));
    EXPECT_EQ(Derive(d.Chemin(), "TEXTE_ETIQ", "t"),
              Lignes({kSep, "<QORX_ATTR A=1 >",
                      "<M k=1 f=gnou >gnou <M k=6 f=bison l=bison_X >bison <M k=12 f=12 >12 "
                      "<M k=15 f=cerf >cerf <M k=20 f=12 >12 <M k=23 f=gnou >gnou"}));
    EXPECT_EQ(Derive(d.Chemin(), "LEXINDEX", "t"),
              Lignes({kSep, "<M f=cerf  >\t1\t\"\"%", "<M f=gnou fz=1 >\t2\t\"\"\"\"\"'",
                      "<M l=bison_X f=bison >\t1\t\"\"#"}));
}

TEST(Indexeur, ErreursEtOperation) {
    DossierTemporaire d;
    test::Ecrire(d.Chemin() / "liste.txt", Lignes({"t"}));
    test::DialogueScripte dialogue;
    dialogue.fichiers.push_back(d.Chemin() / "liste.txt");
    HorlogeFixe horloge({2026, 11, 21, 10, 0, 0});
    Contexte ctx{dialogue, horloge, test::RessourcesTest()};
    try {
        OperationReindexation(ctx);
        FAIL();
    } catch (const FinProgramme& e) {
        EXPECT_EQ(std::string(e.what()), std::string("Ressources non constituées. Vérifiez"_cp));
    }
    // A text missing from OLBRIN_TT: the file error names it; no derived file is left begun, and
    // the derived files stay marked as half-made until a run ends.
    fs::create_directories(d.Chemin() / "OLBRIN_TT");
    dialogue.fichiers.push_back(d.Chemin() / "liste.txt");
    try {
        OperationReindexation(ctx);
        FAIL();
    } catch (const ErreurExecution& e) {
        EXPECT_NE(std::string(e.what()).find("OLBRIN_TT/t.txt"), std::string::npos) << e.what();
    }
    EXPECT_FALSE(fs::exists(d.Chemin() / "OLBRIN_TT/LEXINDEX/t.txt"));
    EXPECT_TRUE(fs::exists(d.Chemin() / "OLBRIN_TT/#REINDEXATION_EN_COURS.txt"));

    test::Ecrire(d.Chemin() / "OLBRIN_TT/t.txt", Lignes({"<QORX_ATTR A=1 >", "<M f=a >a"}));
    dialogue.fichiers.push_back(d.Chemin() / "liste.txt");
    dialogue.libelles.clear();
    OperationReindexation(ctx);
    EXPECT_EQ(dialogue.messages.back(), std::string("Réindexé en 1 secondes"_cp));
    EXPECT_FALSE(fs::exists(d.Chemin() / "OLBRIN_TT/#REINDEXATION_EN_COURS.txt"));
    EXPECT_EQ(dialogue.libelles, (std::vector<std::string>{"Indexation.", "Segmentation. Fichier1 de 1"}));
}

TEST(Segmentation, OperationComplete) {
    DossierTemporaire d;
    test::Ecrire(d.Chemin() / "ARCHIVE_BRUT/a.txt", Lignes({"<QORX_ATTR J=X >", "Le chat dort."}));
    test::Ecrire(d.Chemin() / "ARCHIVE_BRUT/b.txt", Lignes({"<QORX_ATTR J=Y >", "Il pleut."}));
    test::Ecrire(d.Chemin() / "liste.txt", Lignes({"a", "b"}));
    test::DialogueScripte dialogue;
    dialogue.fichiers.push_back(d.Chemin() / "liste.txt");
    HorlogeFixe horloge({2026, 11, 21, 10, 0, 0});
    Contexte ctx{dialogue, horloge, test::RessourcesTest()};
    OperationSegmentation(ctx);
    EXPECT_EQ(dialogue.messages, std::vector<std::string>{std::string("Segmenté et indexé en 1 secondes"_cp)});
    EXPECT_EQ(dialogue.libelles,
              (std::vector<std::string>{"Segmentation.", "Segmentation. Fichier1 de 2", "Segmentation. Fichier2 de 2",
                                        "Indexation.", "Segmentation. Fichier1 de 2", "Segmentation. Fichier2 de 2"}));
    EXPECT_EQ(Derive(d.Chemin(), "TEXTE_NU", "b"), Lignes({kSep, "Il pleut."}));
    // Cancelling the list chooser does nothing.
    OperationSegmentation(ctx);
    EXPECT_EQ(dialogue.messages.size(), 1u);
}

}  // namespace
}  // namespace telvoris

namespace telvoris {
namespace {

// Random lines of the characters that matter to the parsers (markup brackets, blanks, signs,
// letters, accented and special codes): segmenting and indexing them never fails, and the
// derived files stay in step with each other.
TEST(Robustesse, LignesAleatoires) {
    const std::string alphabet =
        std::string("<<>> \t\xA0...--''@www.fr,:;!?()%\xB0\xB2\x85\x96\x92\x8C\x9C\xF7\xC3\xA9\xE9\xC9") +
        "aAeEzZ09M f=l=k=x=";
    std::uint32_t graine = 12345;
    auto hasard = [&] {
        graine = graine * 1103515245u + 12345u;
        return (graine >> 16) & 0x7FFF;
    };
    const ListesSegmentation listes = ChargerListesSegmentation(test::RessourcesTest());
    std::vector<std::string> lignes = {"<QORX_ATTR A=1 >"};
    TableJetons table;
    for (int n = 0; n < 3000; ++n) {
        std::string ligne;
        const int longueur = static_cast<int>(hasard() % 40);
        for (int i = 0; i < longueur; ++i) ligne += alphabet[hasard() % alphabet.size()];
        if (n % 500 == 0) lignes.push_back("<QORX_ATTR N=" + std::to_string(n) + " >");
        std::string tague;
        SegmenterLigne(ligne, listes, table, tague);
        lignes.push_back(tague);
    }
    DossierTemporaire d;
    IndexerTexte(d.Chemin(), "hasard", Lignes(lignes));
    auto compter = [&](const char* dossier) {
        const std::string contenu = Derive(d.Chemin(), dossier, "hasard");
        std::size_t n = 0;
        for (std::size_t p = contenu.find("\r\n"); p != std::string::npos; p = contenu.find("\r\n", p + 2)) ++n;
        return n;
    };
    EXPECT_EQ(compter("TEXTE_NU"), compter("REPERE_LIGNES"));
    EXPECT_EQ(compter("TEXTE_NU"), compter("TEXTE_MIN"));
    EXPECT_EQ(Derive(d.Chemin(), "METADONNEES", "hasard").size() > 0, true);
}

}  // namespace
}  // namespace telvoris
