// The lexical resources tried as a new user would, from the command line, on a copy of the
// example corpus and of the shipped resource tree: a verb and a noun that the dictionary lacks are
// inflected, integrated and recognised by a new automatic pass; a compound is validated at the
// prompts, integrated and marked by "Composés"; the backup of a withdrawal restores the dictionary.
#include <gtest/gtest.h>

#include "lancer.hpp"
#include "support/support.hpp"

namespace telvoris {
namespace {

namespace fs = std::filesystem;
using test::Lancer;
using test::Lignes;
using test::Lire;

std::string TextesEtiquetes(const fs::path& corpus) {
    std::string r;
    for (const auto& e : fs::directory_iterator(corpus / "OLBRIN_TT"))
        if (e.is_regular_file() && e.path().filename().string().starts_with("L")) r += Lire(e.path());
    return r;
}

TEST(ParcoursLexique, FlexionIntegrationComposesEtRetraitRestaure) {
    test::DossierTemporaire d;
    const fs::path livre = fs::path(TELVORIS_EXE).parent_path() / "MORVENTA" / "morv_res";
    ASSERT_TRUE(fs::is_directory(livre / "dico" / "olbrin")) << livre;
    const fs::path res = d.Chemin() / "MORVENTA" / "morv_res";
    // The whole shipped tree but the dictionaries of other runs (dated backups, fusions).
    for (const auto& e : fs::recursive_directory_iterator(livre)) {
        const std::string rel = fs::relative(e.path(), livre).generic_string();
        if (rel.starts_with("dico/olbrin_") && !rel.starts_with("dico/olbrin_accents")) continue;
        if (e.is_directory()) fs::create_directories(res / rel);
        else fs::copy_file(e.path(), res / rel);
    }
    fs::copy(test::DossierSource() / "exemples/presse", d.Chemin() / "presse", fs::copy_options::recursive);
    const fs::path corpus = d.Chemin() / "presse";
    const std::string liste = (corpus / "REPERTOIRE.txt").string(), r = res.string();
    auto Op = [&](std::vector<std::string> args, const std::string& horloge) {
        args.insert(args.end(), {"--ressources", r, "--horloge", "2026-11-24 " + horloge});
        auto e = Lancer(args);
        EXPECT_EQ(e.statut, 0) << args[0] << " : " << e.erreurs << e.sortie;
        return e.sortie;
    };
    auto Etiqueter = [&](bool composes) {
        Op({"smn_seg", "-r", liste}, "11:00:00");
        if (composes) Op({"smn_cmp", "-r", liste}, "11:00:00");
        Op({"smn_aup", "-r", liste}, "11:00:00");
        return TextesEtiquetes(corpus);
    };
    // The example corpus as the shipped dictionary tags it.
    std::string textes = Etiqueter(false);
    ASSERT_NE(textes.find("<M f=miaulait l=miauler_V x=3b >"), std::string::npos);
    ASSERT_NE(textes.find("<M f=portique l=portique_SM x=s >"), std::string::npos);

    // Withdrawn, the two lemmas leave the dictionary; the backup holds it as shipped.
    test::Ecrire(d.Chemin() / "retraits.txt", Lignes({"miauler_V", "portique_SM"}));
    std::string sortie = Op({"smn_spl", "-r", (d.Chemin() / "retraits.txt").string()}, "10:00:00");
    EXPECT_NE(sortie.find(" suppressions, 0 simplifications."), std::string::npos) << sortie;
    const std::string suppressions = Lire(res / "dico/SUPPRESSIONS_FAITES.txt");
    EXPECT_NE(suppressions.find("\r\nmiaulait\r\n"), std::string::npos) << suppressions;
    EXPECT_NE(suppressions.find("\r\nportique\r\n"), std::string::npos) << suppressions;
    const fs::path sauvegarde = res / "dico/olbrin_261124_1000";
    for (const auto& e : fs::directory_iterator(livre / "dico/olbrin"))
        ASSERT_EQ(Lire(sauvegarde / e.path().filename()), Lire(e.path())) << e.path();
    textes = Etiqueter(false);
    EXPECT_NE(textes.find("<M f=miaulait >"), std::string::npos);
    EXPECT_NE(textes.find("<M f=portique >"), std::string::npos);

    // Inflected and integrated, they are recognised again by a new automatic pass.
    test::Ecrire(d.Chemin() / "lemmes.txt", Lignes({"miauler,V\t1", "portique,SM\t1"}));
    sortie = Op({"smn_flx", "-r", (d.Chemin() / "lemmes.txt").string()}, "10:05:00");
    EXPECT_EQ(sortie, "Terminé en 1 secondes : 2 lemmes fléchis.\n");
    const std::string flexions = Lire(d.Chemin() / "lemmes_FLEX.txt");
    EXPECT_NE(flexions.find("\r\nmiaulait,miauler,V32\r\n"), std::string::npos) << flexions;
    EXPECT_NE(flexions.find("portique,portique,SMS\r\nportiques,portique,SMP\r\n"), std::string::npos) << flexions;
    EXPECT_EQ(Lire(d.Chemin() / "lemmes_FLEXMA.txt"), "");
    sortie = Op({"smn_ifs", "-r", (d.Chemin() / "lemmes_FLEX.txt").string()}, "10:05:00");
    EXPECT_NE(sortie.find("à partir de 53 propositions"), std::string::npos) << sortie;
    const std::string rapport = Lire(res / "dico/apports_remarques_261124_1005.txt");
    EXPECT_NE(rapport.find("miaulait,miauler,V32\tENTREE TOTALEMENT ABSENTE\r\nmiaulait,3er.V:3b\t8\t13\r\n"),
              std::string::npos)
        << rapport;
    textes = Etiqueter(false);
    EXPECT_NE(textes.find("<M f=miaulait l=miauler_V x=3b >"), std::string::npos);
    EXPECT_NE(textes.find("<M f=portique l=portique_SM x=s >"), std::string::npos);

    // A compound validated at the prompts (SFS, then the confirmation), integrated, then marked.
    test::Ecrire(d.Chemin() / "candidats.txt", Lignes({"chambre de commerce\t3"}));
    sortie = Op({"smn_mcid", "-r", (d.Chemin() / "candidats.txt").string(), "-r", "1", "-r", "OUI"}, "10:10:00");
    EXPECT_EQ(sortie, "cas n°1 sur 1 : chambre de commerce\nchambre de commerce,SF:s\t2\r\n\nSession terminée\n");
    EXPECT_EQ(Lire(res / "dico/comp/AJOUTS.txt"), "chambre de commerce,SF:s\t2\r\n");
    EXPECT_EQ(Lire(res / "dico/comp/AJOUTS_ETAT.txt"), "2\r\n");
    sortie = Op({"smn_icp", "-r", (res / "dico/comp/AJOUTS.txt").string()}, "10:10:00");
    EXPECT_NE(sortie.find(" non-ambigus dont 1 apports\n"), std::string::npos) << sortie;
    EXPECT_NE(Lire(res / "dico/comp/namb/3c.txt").find("chambre de commerce,SF:s\r\n"), std::string::npos);
    textes = Etiqueter(true);
    EXPECT_NE(textes.find("<MC f=chambre_de_commerce l=chambre_de_commerce_SF flex=s >chambre  de  commerce"),
              std::string::npos);

    // The person puts the withdrawal's backup back: the dictionary is as shipped, byte for byte,
    // and the pass finds the original readings.
    for (const auto& e : fs::directory_iterator(sauvegarde))
        fs::copy_file(e.path(), res / "dico/olbrin" / e.path().filename(), fs::copy_options::overwrite_existing);
    for (const auto& e : fs::directory_iterator(livre / "dico/olbrin"))
        ASSERT_EQ(Lire(res / "dico/olbrin" / e.path().filename()), Lire(e.path())) << e.path();
    textes = Etiqueter(false);
    EXPECT_NE(textes.find("<M f=miaulait l=miauler_V x=3b >"), std::string::npos);
    EXPECT_NE(textes.find("<M f=portique l=portique_SM x=s >"), std::string::npos);
}

}  // namespace
}  // namespace telvoris
