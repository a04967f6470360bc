// The correction stages that rewrite files in place (the tagged texts, the stores), stopped in
// the middle and run again: the result is that of a run that was never stopped, and the copies
// made before the first run stay those of the original state.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <stdexcept>

#include "core/erreurs.hpp"
#include "core/horloge.hpp"
#include "core/reprise.hpp"
#include "correction/arbre_correction.hpp"
#include "correction/correction_auto.hpp"

namespace telvoris {
namespace {

using test::C;
using test::DossierTemporaire;
using test::Lignes;
using test::Arbo;
using test::Lire;

// A failure injected when the progress reaches text `arret` (1-based): the run stops between two
// texts, as a kill does.
struct DialogueInterrompu : test::DialogueScripte {
    long long arret = 0;
    void Progression(std::string_view libelle, long long i, long long n) override {
        if (i == arret) throw std::runtime_error("arrêt simulé");
        DialogueScripte::Progression(libelle, i, n);
    }
};

const std::map<std::string, std::string> kTextes = {
    {"a", Lignes({"<QORX_ATTR DATE=2024 >", "<M f=Chatt >Chatt <M f=mange >mange"})},
    {"b", Lignes({"<M f=pomdeter >pomdeter <M f=CHATT >CHATT <PC f=. >."})},
    {"c", Lignes({"<M f=le >le <M f=chatt l=x >chatt"})},
    {"d", Lignes({"<M f=rien >rien"})},
};

void LancerMotAMot(test::DialogueScripte& d, const fs::path& res, const fs::path& corpus) {
    HorlogeFixe h({2026, 11, 21, 10, 0, 0});
    Contexte ctx{d, h, res};
    d.fichiers = {corpus / "corr.txt", corpus / "liste.txt"};
    OperationCorrectionMotAMot(ctx);
}

fs::path Corpus(const fs::path& racine) {
    const fs::path liste = test::ConstruireCorpus(racine, kTextes);
    test::Ecrire(racine / "corr.txt", Lignes({"chatt\tchat", "pomdeter\tpomme de terre"}));
    return liste.parent_path();
}

TEST(RepriseCorrection, MotAMotArreteApresKTextesPuisRelanceDonneLaPasseSansArret) {
    DossierTemporaire res, temoin, essai;
    test::ConstruireArbreCorrection(res.Chemin(), {});
    Corpus(temoin.Chemin());
    {
        test::DialogueScripte d;
        LancerMotAMot(d, res.Chemin(), temoin.Chemin());
        EXPECT_EQ(d.messages.back(), C("Terminé. 4 corrections."_cp));
    }
    const auto attendu = Arbo(temoin.Chemin() / "OLBRIN_TT");
    ASSERT_EQ(attendu.count("#EN_COURS_AVANT_CORMAM.txt"), 0u);
    EXPECT_EQ(attendu.at("AVANT_CORMAM/b.txt"), kTextes.at("b"));
    EXPECT_EQ(attendu.at("b.txt"), "<cw fx=pomdeter ><w f=pomme ><w f=de ><w f=terre ></cw>pomdeter "
                                   "<M f=CHAT fx=CHATT >CHATT <PC f=. >.\r\n");

    for (long long k = 1; k <= 3; ++k) {
        SCOPED_TRACE("arrêt après " + std::to_string(k) + " texte(s)");
        fs::remove_all(essai.Chemin());
        const fs::path corpus = Corpus(essai.Chemin());
        const fs::path tt = corpus / "OLBRIN_TT";
        // The backups of an earlier, finished run, which the stopped run must replace text by text.
        test::Ecrire(tt / "AVANT_CORMAM" / "a.txt", "vieux\r\n");
        DialogueInterrompu d;
        d.arret = k + 1;
        EXPECT_THROW(LancerMotAMot(d, res.Chemin(), corpus), std::runtime_error);
        // The texts before the stop are rewritten and listed, their backups hold the originals.
        const std::string record = Lire(tt / "#EN_COURS_AVANT_CORMAM.txt");
        const std::vector<std::string> noms = {"a", "b", "c", "d"};
        for (long long i = 0; i < k; ++i) {
            const std::string& nom = noms[static_cast<std::size_t>(i)];
            EXPECT_NE(record.find(nom + "\r\n"), std::string::npos) << nom;
            EXPECT_EQ(Lire(tt / "AVANT_CORMAM" / (nom + ".txt")), kTextes.at(nom));
            EXPECT_EQ(Lire(tt / (nom + ".txt")), attendu.at(nom + ".txt"));
        }
        // Another stage refuses the half-corrected texts, naming what to run again.
        {
            test::DialogueScripte autre;
            HorlogeFixe h({2026, 11, 21, 10, 0, 0});
            Contexte ctx{autre, h, res.Chemin()};
            autre.fichiers = {corpus / "liste.txt"};
            try {
                OperationCorrectionAutomatique(ctx);
                ADD_FAILURE() << "FinProgramme attendu";
            } catch (const FinProgramme& e) {
                EXPECT_NE(std::string(e.what()).find(C("Relancez « Correction mot à mot sur liste »"_cp)),
                          std::string::npos);
            }
        }

        // The same command again: texts put back (the whole batch was listed), then the whole run.
        test::DialogueScripte relance;
        LancerMotAMot(relance, res.Chemin(), corpus);
        ASSERT_GE(relance.messages.size(), 2u);
        EXPECT_EQ(relance.messages[0],
                  C("La fonction « Correction mot à mot sur liste » n'était pas allée à son terme lors de son "
                    "dernier lancement : "_cp) +
                      C("4 texte(s) rétabli(s) depuis AVANT_CORMAM avant de la relancer."_cp));
        EXPECT_EQ(relance.messages.back(), C("Terminé. 4 corrections."_cp));
        EXPECT_EQ(Arbo(tt), attendu);
    }
}

TEST(RepriseCorrection, MotAMotEchecDEcritureApresLaSauvegardeLaisseLeTexteEntier) {
    DossierTemporaire res, essai;
    test::ConstruireArbreCorrection(res.Chemin(), {});
    const fs::path corpus = Corpus(essai.Chemin());
    const fs::path tt = corpus / "OLBRIN_TT";
    // The temporary of c's new bytes cannot be made: the run fails after c is backed up and
    // listed, before c changes.
    fs::create_directories(tt / ".c.txt.tmp");
    test::DialogueScripte d;
    const std::string m = test::MessageErreur([&] { LancerMotAMot(d, res.Chemin(), corpus); });
    EXPECT_EQ(m, "Impossible de créer le fichier : " + (tt / "c.txt").string());
    EXPECT_EQ(Lire(tt / "c.txt"), kTextes.at("c"));
    EXPECT_EQ(Lire(tt / "AVANT_CORMAM" / "c.txt"), kTextes.at("c"));
    EXPECT_EQ(Lire(tt / "#EN_COURS_AVANT_CORMAM.txt"),
              Lignes({C("#EN_COURS\tCorrection mot à mot sur liste"_cp), "a", "b", "c", "d"}));
    fs::remove(tt / ".c.txt.tmp");
    test::DialogueScripte relance;
    LancerMotAMot(relance, res.Chemin(), corpus);
    EXPECT_NE(relance.messages[0].find(C("4 texte(s) rétabli(s)"_cp)), std::string::npos);
    EXPECT_FALSE(fs::exists(tt / "#EN_COURS_AVANT_CORMAM.txt"));
    EXPECT_EQ(Lire(tt / "AVANT_CORMAM" / "a.txt"), kTextes.at("a"));
    EXPECT_EQ(Lire(tt / "c.txt"), "<M f=le >le <M f=chat fx=chatt l=x >chatt\r\n");
}

// Many texts go by batches of 64: a stop in the second batch finds the first listed whole and
// the second not yet listed (its backups are written, not trusted); the rerun puts back the 64.
TEST(RepriseCorrection, MotAMotParLotsArretDansLeDeuxiemeLot) {
    DossierTemporaire res, temoin, essai;
    test::ConstruireArbreCorrection(res.Chemin(), {});
    std::map<std::string, std::string> textes;
    for (int i = 0; i < 70; ++i) {
        const std::string nom = (i < 10 ? "t0" : "t") + std::to_string(i);
        textes[nom] = Lignes({"<M f=chatt >chatt <M f=n" + std::to_string(i) + " >n"});
    }
    for (const fs::path& r : {temoin.Chemin(), essai.Chemin()}) {
        test::ConstruireCorpus(r, textes);
        test::Ecrire(r / "corr.txt", Lignes({"chatt\tchat"}));
    }
    test::DialogueScripte d;
    LancerMotAMot(d, res.Chemin(), temoin.Chemin());
    EXPECT_EQ(d.messages.back(), C("Terminé. 70 corrections."_cp));
    const fs::path tt = essai.Chemin() / "OLBRIN_TT";
    DialogueInterrompu arrete;
    arrete.arret = 66;
    EXPECT_THROW(LancerMotAMot(arrete, res.Chemin(), essai.Chemin()), std::runtime_error);
    std::string record = Lire(tt / "#EN_COURS_AVANT_CORMAM.txt");
    EXPECT_EQ(std::count(record.begin(), record.end(), '\n'), 71);
    EXPECT_EQ(Lire(tt / "t64.txt"), Lignes({"<M f=chat fx=chatt >chatt <M f=n64 >n"}));
    EXPECT_EQ(Lire(tt / "t65.txt"), textes.at("t65"));
    DialogueInterrompu tot;
    tot.arret = 10;
    fs::remove_all(tt / "AVANT_CORMAM");
    fs::remove(tt / "#EN_COURS_AVANT_CORMAM.txt");
    for (const auto& [nom, contenu] : textes) test::Ecrire(tt / (nom + ".txt"), contenu);
    EXPECT_THROW(LancerMotAMot(tot, res.Chemin(), essai.Chemin()), std::runtime_error);
    record = Lire(tt / "#EN_COURS_AVANT_CORMAM.txt");
    EXPECT_EQ(std::count(record.begin(), record.end(), '\n'), 65);
    EXPECT_EQ(record.find("t64"), std::string::npos);
    test::DialogueScripte relance;
    LancerMotAMot(relance, res.Chemin(), essai.Chemin());
    EXPECT_NE(relance.messages[0].find(C(" : 64 texte(s) rétabli(s)"_cp)), std::string::npos);
    EXPECT_EQ(Arbo(tt), Arbo(temoin.Chemin() / "OLBRIN_TT"));
}

// The store rewrite stopped in the middle (one bucket file cannot be written): the store stands
// half old, half new. The same command again puts it back from the dated copy and gives the
// store of a run that was never stopped, each new right form appended once.
TEST(RepriseCorrection, IntegrationStockInterrompueReprendDepuisLaCopieDatee) {
    const std::vector<std::string> origine = {"chatt\tchat", "maisonn\tmaison", "zozo\tzoo"};
    const auto preparer = [&](const fs::path& res) {
        test::ContenuCorrection a;
        a.rescor = origine;
        test::ConstruireArbreCorrection(res, a);
        test::Ecrire(res / "nouvelles.txt", Lignes({"chatt\tX", "zozo\tY", "nouveau\tneuf"}));
    };
    const auto lancer = [](const fs::path& res, test::DialogueScripte& d, int minute) {
        HorlogeFixe h({2026, 11, 21, 10, minute, 0});
        Contexte ctx{d, h, res};
        d.fichiers = {res / "nouvelles.txt"};
        OperationIntegrationRescor(ctx);
    };
    DossierTemporaire temoin, essai;
    preparer(temoin.Chemin());
    {
        test::DialogueScripte d;
        lancer(temoin.Chemin(), d, 0);
    }
    const auto attendu = Arbo(temoin.Chemin() / "rescor" / "rescor");
    EXPECT_EQ(attendu.at("5c.txt"), Lignes({"chatt\tchatX"}));
    const CleMot z = classe_mot("zozo");
    EXPECT_EQ(attendu.at(NomFichierCasier(z.ClasseLongueur, z.ClasseInitiale)), Lignes({"zozo\tzooY"}));

    preparer(essai.Chemin());
    const fs::path stock = essai.Chemin() / "rescor" / "rescor";
    const auto original = Arbo(stock);
    // 5c.txt is rewritten (class 5 comes after 4), 7n.txt cannot be.
    fs::create_directories(stock / ".7n.txt.tmp");
    {
        test::DialogueScripte d;
        const std::string m = test::MessageErreur([&] { lancer(essai.Chemin(), d, 0); });
        EXPECT_EQ(m, "Impossible de créer le fichier : " + (stock / "7n.txt").string());
    }
    EXPECT_EQ(Lire(stock / "5c.txt"), Lignes({"chatt\tchatX"}));
    EXPECT_TRUE(fs::exists(essai.Chemin() / "rescor" / "#EN_COURS_rescor.txt"));
    fs::remove(stock / ".7n.txt.tmp");
    // Run again a minute later: a new dated copy, of the store as put back.
    test::DialogueScripte d;
    lancer(essai.Chemin(), d, 1);
    ASSERT_EQ(d.messages.size(), 2u);
    EXPECT_EQ(d.messages[0], C("La fonction « Intégration d'éléments à \"rescor\" » n'était pas allée à son terme lors "
                               "de son dernier lancement : rescor a été rétabli depuis sa copie rescor_261121_1000 "
                               "avant de la relancer."_cp));
    EXPECT_EQ(Arbo(stock), attendu);
    EXPECT_EQ(Arbo(essai.Chemin() / "rescor" / "rescor_261121_1000"), original);
    EXPECT_EQ(Arbo(essai.Chemin() / "rescor" / "rescor_261121_1001"), original);
    EXPECT_FALSE(fs::exists(essai.Chemin() / "rescor" / "#EN_COURS_rescor.txt"));

    // A store that a killed run was creating (its record names no copy) is removed, then made whole.
    fs::remove_all(essai.Chemin() / "incor");
    test::Ecrire(essai.Chemin() / "incor" / "incor" / "1a.txt", "");
    test::Ecrire(essai.Chemin() / "incor" / "incor" / "5c.txt", Lignes({"chatt\tX"}));
    test::Ecrire(essai.Chemin() / "incor" / "#EN_COURS_incor.txt", Lignes({C("#EN_COURS\tIntégration à \"incor\""_cp), ""}));
    test::DialogueScripte di;
    HorlogeFixe h({2026, 11, 21, 11, 0, 0});
    Contexte ctx{di, h, essai.Chemin()};
    di.fichiers = {essai.Chemin() / "nouvelles.txt"};
    OperationIntegrationIncor(ctx);
    EXPECT_EQ(di.messages[0], C("La fonction « Intégration à \"incor\" » n'était pas allée à son terme lors de son dernier "
                                "lancement : les fichiers qu'elle avait commencé à écrire dans incor ont été retirés "
                                "avant de la relancer."_cp));
    EXPECT_FALSE(fs::exists(essai.Chemin() / "incor" / "incor_261121_1100"));
    const auto incor = Arbo(essai.Chemin() / "incor" / "incor");
    EXPECT_EQ(incor.size(), 300u);
    EXPECT_EQ(incor.at("5c.txt"), Lignes({"chatt\tX"}));
    EXPECT_EQ(incor.at("7n.txt"), Lignes({"nouveau\tneuf"}));
}

}  // namespace
}  // namespace telvoris
