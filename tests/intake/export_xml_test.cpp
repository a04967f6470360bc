#include "intake/export_xml.hpp"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>

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

std::string Cp(const std::string& utf8) { return Utf8VersCp1252(utf8); }
std::string LignesCp(const std::vector<std::string>& lignes) { return Cp(Lignes(lignes)); }

std::vector<std::string> Lancer(const fs::path& liste) {
    test::DialogueScripte dialogue;
    dialogue.fichiers.push_back(liste);
    HorlogeFixe horloge({2026, 11, 21, 10, 0, 0});
    Contexte ctx{dialogue, horloge, test::RessourcesTest()};
    ExporterXml(ctx);
    return dialogue.messages;
}

const std::string kDecl = "<?xml version=\"1.0\" encoding=\"iso-8859-1\" ?>";
const std::string kRacine =
    "<journalIssue journal=\"Le_Courrier\" source=\"Atelier_Corpus\" respEd=\"Responsable_Corpus\" "
    "dateCreated=\"21/11/2026\">";

TEST(ExportXml, DeuxFormesOctetPourOctet) {
    DossierTemporaire d;
    const fs::path r = d.Chemin();
    test::Ecrire(r / "OLBRIN_TT/t.txt",
                 LignesCp({"<M f=Avant >Avant",
                           "<QORX_ATTR SOURCE=Le_Courrier DATE=2005_01_03 TITRE=Le_port_durable AUTEUR=Anne_Mercier "
                           "RUBRIQUE=Économie >",
                           "<M f=Le l=le_D x=ms >Le <M f=port l=port_SM x=ms >port <M f=vote l=voter_V x=3a >vote"
                           "<PC f=. l=PT >.<BR>",
                           "<BR>", "",
                           "<M f=Les l=le_D/les_P >Les <MC f=à_demain l=à_demain_A >à demain<M >x <PC l=V >,",
                           "<QORX_ATTR SOURCE=Le_Courrier TITRE=a=b=c AUTEUR= RUBR=Sports >",
                           "<M f=Fin >Fin <M f=R&D l=R&D_N >R&D", "<QORX_ATTR DATE=2005 >", "sans balise"}));
    test::Ecrire(r / "OLBRIN_TT/u.txt", Lignes({"<QORX_ATTR SOURCE=X >", "<M f=a >a"}));
    test::Ecrire(r / "liste.txt", Lignes({"t", "u"}));
    EXPECT_EQ(Lancer(r / "liste.txt"), std::vector<std::string>{Cp("Terminé")});

    const fs::path txm = r / "ARCHIVE_XMLTXM", tei = r / "ARCHIVE_XMLTEI";
    EXPECT_EQ(Lire(txm / "t_1.txt"),
              LignesCp({kDecl, kRacine,
                        "<article journal=\"Le_Courrier\" date=\"2005_01_03\" titre=\"Le port durable\" auteur=\"Anne "
                        "Mercier\" rubrique=\"Économie\">",
                        "\t<p id=\"l_1\">",
                        "\t\t<w id=\"w_1\" n=\"1\">", "\t\t\t<form>Le</form>", "\t\t\t<interp type=\"#lemma\">le</interp>",
                        "\t\t\t<interp type=\"#pos\">D</interp>", "\t\t\t<interp type=\"#flex\">ms</interp>", "\t\t</w>",
                        "\t\t<w id=\"w_2\" n=\"2\">", "\t\t\t<form>port</form>",
                        "\t\t\t<interp type=\"#lemma\">port</interp>", "\t\t\t<interp type=\"#pos\">SM</interp>",
                        "\t\t\t<interp type=\"#flex\">ms</interp>", "\t\t</w>",
                        "\t\t<w id=\"w_3\" n=\"3\">", "\t\t\t<form>vote</form>",
                        "\t\t\t<interp type=\"#lemma\">voter</interp>", "\t\t\t<interp type=\"#pos\">V</interp>",
                        "\t\t\t<interp type=\"#flex\">3a</interp>", "\t\t</w>",
                        "\t\t<w id=\"w_4\" n=\"4\">", "\t\t\t<form>.</form>", "\t\t</w>",
                        "\t</p>",
                        // "<BR>" alone and the empty line make no paragraph; the word counter goes on.
                        "\t<p id=\"l_2\">",
                        "\t\t<w id=\"w_5\" n=\"1\">", "\t\t\t<form>Les</form>", "\t\t</w>",
                        "\t\t<w id=\"w_6\" n=\"2\">", "\t\t\t<form>à_demain</form>",
                        "\t\t\t<interp type=\"#lemma\">à_demain</interp>", "\t\t\t<interp type=\"#pos\">A</interp>",
                        "\t\t</w>",
                        "\t\t<w id=\"w_7\" n=\"3\">", "\t\t\t<form>,</form>", "\t\t</w>",
                        "\t</p>", "</article>", "</journalIssue>"}));
    EXPECT_EQ(Lire(tei / "t_1.txt"),
              LignesCp({kDecl, kRacine,
                        "<article journal=\"Le_Courrier\" date=\"2005_01_03\" titre=\"Le port durable\" auteur=\"Anne "
                        "Mercier\" rubrique=\"Économie\">",
                        "\t<p id=\"l_1\">>",
                        "\t\t<w id=\"w_1\" w_n=\"1\" form=\"Le\" lemme=\"le_D\" pos=\"D\" flex=\"ms\" >Le </w>",
                        "\t\t<w id=\"w_2\" w_n=\"2\" form=\"port\" lemme=\"port_SM\" pos=\"SM\" flex=\"ms\" >port </w>",
                        "\t\t<w id=\"w_3\" w_n=\"3\" form=\"vote\" lemme=\"voter_V\" pos=\"V\" flex=\"3a\" >vote</w>",
                        "\t\t<w id=\"w_4\" w_n=\"4\" form=\".\" >.</w>",
                        "\t</p>",
                        "\t<p id=\"l_2\">>",
                        "\t\t<w id=\"w_5\" w_n=\"1\" form=\"Les\" >Les </w>",
                        "\t\t<w id=\"w_6\" w_n=\"2\" form=\"à_demain\" lemme=\"à_demain_A\" pos=\"A\" >à demain</w>",
                        "\t\t<w id=\"w_7\" w_n=\"3\" form=\",\" >,</w>",
                        "\t</p>", "</article>", "</journalIssue>"}));

    // A value holding "=" stays whole; an empty AUTEUR adds nothing; nothing is escaped.
    EXPECT_EQ(Lire(txm / "t_2.txt"),
              Lignes({kDecl, kRacine, "<article journal=\"Le_Courrier\" titre=\"a=b=c\" rubrique=\"Sports\">",
                      "\t<p id=\"l_1\">", "\t\t<w id=\"w_1\" n=\"1\">", "\t\t\t<form>Fin</form>", "\t\t</w>",
                      "\t\t<w id=\"w_2\" n=\"2\">", "\t\t\t<form>R&D</form>",
                      "\t\t\t<interp type=\"#lemma\">R&D</interp>", "\t\t\t<interp type=\"#pos\">N</interp>", "\t\t</w>",
                      "\t</p>", "</article>", "</journalIssue>"}));
    EXPECT_EQ(Lire(tei / "t_2.txt"),
              Lignes({kDecl, kRacine, "<article journal=\"Le_Courrier\" titre=\"a=b=c\" rubrique=\"Sports\">",
                      "\t<p id=\"l_1\">>", "\t\t<w id=\"w_1\" w_n=\"1\" form=\"Fin\" >Fin </w>",
                      "\t\t<w id=\"w_2\" w_n=\"2\" form=\"R&D\" lemme=\"R&D_N\" pos=\"N\" >R&D</w>", "\t</p>",
                      "</article>", "</journalIssue>"}));
    // Without SOURCE there is no declaration and no opening root, but the closing tag stays.
    const std::string sansSource =
        Lignes({"<article date=\"2005\">", "\t<p id=\"l_1\">", "\t</p>", "</article>", "</journalIssue>"});
    EXPECT_EQ(Lire(txm / "t_3.txt"), sansSource);
    EXPECT_EQ(Lire(tei / "t_3.txt"),
              Lignes({"<article date=\"2005\">", "\t<p id=\"l_1\">>", "\t</p>", "</article>", "</journalIssue>"}));
    EXPECT_FALSE(fs::exists(txm / "t_4.txt"));
    // The second text counts its articles and words from 1 again.
    EXPECT_EQ(Lire(tei / "u_1.txt"),
              Lignes({kDecl,
                      "<journalIssue journal=\"X\" source=\"Atelier_Corpus\" respEd=\"Responsable_Corpus\" "
                      "dateCreated=\"21/11/2026\">",
                      "<article journal=\"X\">", "\t<p id=\"l_1\">>", "\t\t<w id=\"w_1\" w_n=\"1\" form=\"a\" >a</w>",
                      "\t</p>", "</article>", "</journalIssue>"}));

    // A missing text stops the run with the file error; what was written stays.
    fs::remove_all(txm);
    test::Ecrire(r / "liste.txt", Lignes({"u", "absent"}));
    try {
        Lancer(r / "liste.txt");
        ADD_FAILURE() << "aucune erreur";
    } catch (const ErreurExecution& e) {
        EXPECT_EQ(std::string(e.what()), Cp("Fichier introuvable : ") + (r / "OLBRIN_TT/absent.txt").generic_string());
    }
    EXPECT_TRUE(fs::exists(txm / "u_1.txt"));
}

// Runs xmllint on a file; returns its exit status and fills `sortie` with what it printed.
int Xmllint(const std::string& arguments, const fs::path& fichier, std::string& sortie) {
    const fs::path trace = fichier.parent_path() / "xmllint.txt";
    const std::string commande = "xmllint " + arguments + " '" + fichier.string() + "' >'" + trace.string() + "' 2>&1";
    const int statut = std::system(commande.c_str());
    sortie = Lire(trace);
    while (!sortie.empty() && sortie.back() == '\n') sortie.pop_back();
    fs::remove(trace);
    return statut;
}

TEST(ExportXml, FormeEmboiteeBienFormeeSelonXmllint) {
    if (std::system("xmllint --version >/dev/null 2>&1") != 0)
        FAIL() << "xmllint est introuvable : installez le paquet Debian libxml2-utils (scripts/preparer.sh)";
    DossierTemporaire d;
    const fs::path r = d.Chemin();
    // An ordinary tagged press article, as the pipeline leaves it.
    test::Ecrire(r / "OLBRIN_TT/LCL_2005_01_03.txt",
                 LignesCp({"<QORX_ATTR SOURCE=Le_Courrier_du_Littoral DATE=2005_01_03 RUBRIQUE=Économie "
                           "TITRE=Le_port_mise_sur_la_pêche_durable AUTEUR=Anne_Mercier >",
                           "<M f=Économie l=économie_SF x=fs >Économie<BR>",
                           "<M f=Le l=le_D x=ms >Le <M f=conseil l=conseil_SM x=ms >conseil <M f=portuaire "
                           "l=portuaire_J x=xs >portuaire <M f=a l=avoir_V x=3a >a <M f=voté l=voter_V x=f >voté "
                           "<M f=un l=un_D x=ms >un <M f=plan l=plan_SM x=ms >plan <M f=de l=de_BX >de "
                           "<M f=2,5 l=2,5_U >2,5 <M f=millions l=million_SM x=mp >millions <M f=d' l=de_BX >d’"
                           "<M f=euros l=euro_SM x=mp >euros<PC f=. l=PT >.<BR>",
                           "<PC f=« l=Q >« <M f=Un l=un_D/un_P >Un <M f=premier l=premier_J x=ms >premier "
                           "<M f=pas l=pas_SM/pas_A >pas <PC f=» l=Q >»<PC l=S3 >...",
                           "<QORX_ATTR SOURCE=Le_Courrier_du_Littoral DATE=2005_01_03 RUBRIQUE=Société >",
                           "<MC f=Cœur_de_ville l=cœur_de_ville_SM x=ms >Cœur de ville <PC f=: l=DP >: "
                           "<M f=la l=le_D x=fs >la <M f=médiathèque l=médiathèque_SF x=fs >médiathèque "
                           "<M f=rouvre l=rouvrir_V x=3a >rouvre"}));
    test::Ecrire(r / "liste.txt", Lignes({"LCL_2005_01_03"}));
    Lancer(r / "liste.txt");
    std::string sortie;
    for (const char* nom : {"LCL_2005_01_03_1.txt", "LCL_2005_01_03_2.txt"}) {
        const fs::path fichier = r / "ARCHIVE_XMLTXM" / nom;
        EXPECT_EQ(Xmllint("--noout", fichier, sortie), 0) << nom << " : " << sortie;
        EXPECT_EQ(sortie, "") << nom;
    }
    // Read back by the parser: 20 words in the first article, readings where the word has one.
    const fs::path premier = r / "ARCHIVE_XMLTXM/LCL_2005_01_03_1.txt";
    ASSERT_EQ(Xmllint("--xpath 'count(//w)'", premier, sortie), 0) << sortie;
    EXPECT_EQ(sortie, "20");
    ASSERT_EQ(Xmllint("--xpath 'string(//w[@id=\"w_12\"]/interp[@type=\"#lemma\"])'", premier, sortie), 0);
    EXPECT_EQ(sortie, "de");
    ASSERT_EQ(Xmllint("--xpath 'count(//w[@id=\"w_16\"]/interp)'", premier, sortie), 0);  // "Un", ambiguous
    EXPECT_EQ(sortie, "0");
    ASSERT_EQ(Xmllint("--xpath 'string(/journalIssue/article/@titre)'", premier, sortie), 0);
    EXPECT_EQ(sortie, "Le port mise sur la pêche durable");  // xmllint prints UTF-8
    // The flat shape keeps its stray angle bracket behind each paragraph head.
    const std::string plat = Lire(r / "ARCHIVE_XMLTEI/LCL_2005_01_03_1.txt");
    EXPECT_NE(plat.find("\r\n\t<p id=\"l_1\">>\r\n\t\t<w id=\"w_1\" w_n=\"1\" form=\"\xC9"
                        "conomie\" lemme=\"\xE9"
                        "conomie_SF\" pos=\"SF\" flex=\"fs\" >\xC9"
                        "conomie</w>\r\n"),
              std::string::npos);
    EXPECT_NE(plat.find("\r\n\t<p id=\"l_3\">>\r\n"), std::string::npos);
}

}  // namespace
}  // namespace telvoris
