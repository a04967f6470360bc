// The operations that rewrite a dictionary, cut short while writing it, then started again: the
// rerun says so, puts the dictionary back from the backup and gives the files of a run that was
// never cut short; the backups of the first run stay as they were.
#include "lexicon/reprise_dico.hpp"

#include <gtest/gtest.h>

#include <map>

#include "core/erreurs.hpp"
#include "core/fichiers.hpp"
#include "core/horloge.hpp"
#include "core/texte.hpp"
#include "lexicon/arbre.hpp"
#include "lexicon/composes.hpp"
#include "lexicon/dictionnaire.hpp"
#include "lexicon/dico_composes.hpp"
#include "lexicon/integration.hpp"
#include "lexicon/maintenance.hpp"
#include "pipeline/arbre_etiquetage.hpp"
#include "support/support.hpp"

namespace telvoris {
namespace {

using test::DialogueScripte;
using test::DossierTemporaire;
using test::Ecrire;
using test::Lignes;
using test::Arbo;
using test::Lire;
using test::MessageErreur;

const Instant kPremier{2026, 11, 24, 12, 0, 0};
const Instant kSecond{2026, 11, 24, 12, 30, 0};

// Stops the run when the k-th dictionary file is about to be written, as a kill would.
class DialogueCoupe : public DialogueScripte {
public:
    explicit DialogueCoupe(int k) : k_(k) {}
    void Progression(std::string_view libelle, long long i, long long n) override {
        DialogueScripte::Progression(libelle, i, n);
        if (libelle == LIBELLE_ECRITURE_DICO && ++vus_ == k_) throw ErreurExecution(std::string("coupure simulée"_cp));
    }

private:
    int k_, vus_ = 0;
};

const std::vector<std::string> kDico = {"aime,0r.V:1a", "grand,.J:ms", "table,.SF:s", "porte,.SF:s", "chat,.SM:s"};
const std::vector<std::string> kApports = {"aime,aimer,V31", "aime,aimer,V15", "grand,grand,SMS",
                                           "tables,table,SFP", "porte,porter,V31", "Grande,grand,JFS",
                                           "chats,chat,SMP", "zébu,zébu,SMS"};

// Runs `op` with the proposals file on the tree `r`; `k` > 0 cuts it at the k-th file written.
std::vector<std::string> Lancer(void (*op)(Contexte&), const fs::path& r, const fs::path& fichier, const Instant& t,
                                int k = 0) {
    DialogueCoupe d(k);
    d.fichiers = {fichier};
    d.reponses = {"amb"};
    HorlogeFixe h(t);
    Contexte ctx{d, h, r};
    op(ctx);
    return d.messages;
}

TEST(RepriseDictionnaire, IntegrationCoupeeRelanceeCommeSansCoupure) {
    DossierTemporaire temoin, d;
    test::ContenuArbre a;
    a.dico = kDico;
    for (auto& l : a.dico) l = Utf8VersCp1252(l);
    std::vector<std::string> apports;
    for (const auto& l : kApports) apports.push_back(Utf8VersCp1252(l));
    test::ConstruireArbre(temoin.Chemin(), a);
    Ecrire(temoin.Chemin() / "apports.txt", Lignes(apports));
    Lancer(&OperationIntegrationFormes, temoin.Chemin(), temoin.Chemin() / "apports.txt", kPremier);
    const auto dicoAttendu = Arbo(Chemin(temoin.Chemin(), DOSSIER_DICO));
    const auto sauvegardeAttendue = Arbo(Chemin(temoin.Chemin(), "dico/olbrin_261124_1200"));
    const std::string rapportAttendu = Lire(Chemin(temoin.Chemin(), "dico/apports_remarques_261124_1200.txt"));
    ASSERT_FALSE(FichierExiste(RepriseOlbrin(temoin.Chemin())));

    // Cut after "aime" (4a, file 61) and "grand" (5g, file 87) are rewritten, and before the
    // last file.
    for (const int k : {90, 300}) {
        SCOPED_TRACE("coupure au fichier " + std::to_string(k));
        const fs::path r = d.Chemin() / std::to_string(k);
        test::ConstruireArbre(r, a);
        Ecrire(r / "apports.txt", Lignes(apports));
        const std::string m =
            MessageErreur([&] { Lancer(&OperationIntegrationFormes, r, r / "apports.txt", kPremier, k); });
        EXPECT_EQ(m, "coupure simulée");
        ASSERT_TRUE(FichierExiste(RepriseOlbrin(r)));
        EXPECT_EQ(Lire(RepriseOlbrin(r)),
                  Utf8VersCp1252(Lignes({"#EN_COURS\tIntégration", "olbrin_261124_1200\tolbrin"})));
        // "aime" (file 61) was rewritten before the cut.
        EXPECT_EQ(Lire(FichierCasier(r, DOSSIER_DICO, 4, 1)), Lignes({"aime,0r.V:8a/0r.V:1e"}));

        const auto messages = Lancer(&OperationIntegrationFormes, r, r / "apports.txt", kSecond);
        ASSERT_EQ(messages.size(), 2u);
        EXPECT_EQ(Cp1252VersUtf8(messages[0]),
                  "La fonction « Intégration » n'était pas allée à son terme lors de son dernier lancement : 300 "
                  "fichier(s) du dictionnaire rétabli(s) depuis olbrin_261124_1200 avant de lancer « Intégration ».");
        EXPECT_EQ(Arbo(Chemin(r, DOSSIER_DICO)), dicoAttendu);
        EXPECT_EQ(Lire(Chemin(r, "dico/apports_remarques_261124_1230.txt")), rapportAttendu);
        // Both backups hold the dictionary as it stood before any run.
        EXPECT_EQ(Arbo(Chemin(r, "dico/olbrin_261124_1200")), sauvegardeAttendue);
        EXPECT_EQ(Arbo(Chemin(r, "dico/olbrin_261124_1230")), sauvegardeAttendue);
        EXPECT_FALSE(FichierExiste(RepriseOlbrin(r)));
    }

    // Another operation on the same dictionary takes the unfinished run back too.
    const fs::path r = d.Chemin() / "spl";
    test::ConstruireArbre(r, a);
    Ecrire(r / "apports.txt", Lignes(apports));
    MessageErreur([&] { Lancer(&OperationIntegrationFormes, r, r / "apports.txt", kPremier, 120); });
    Ecrire(r / "retraits.txt", Lignes({"chat_SM"}));
    const auto messages = Lancer(&OperationSuppressionLemmes, r, r / "retraits.txt", kSecond);
    ASSERT_EQ(messages.size(), 2u);
    EXPECT_NE(Cp1252VersUtf8(messages[0]).find("« Intégration » n'était pas allée à son terme"), std::string::npos);
    EXPECT_EQ(Lire(FichierCasier(r, DOSSIER_DICO, 4, 1)), Lignes({"aime,0r.V:1a"}));
    EXPECT_EQ(Lire(FichierCasier(r, DOSSIER_DICO, 4, 3)), "");
    EXPECT_EQ(Lire(Chemin(r, "dico/SUPPRESSIONS_FAITES.txt")), Lignes({"chat"}));
}

TEST(RepriseDictionnaire, SuppressionDeLemmesCoupeeRelancee) {
    DossierTemporaire temoin, d;
    test::ContenuArbre a;
    a.dico = {"chat,.SM:s", "chats,1.SM:p", "porte,.SF:s/0r.V:1a", "portes,1.SF:p/1r.V:2a", "table,.SF:s"};
    const std::vector<std::string> retraits = {"chat_SM", "porte_SF"};
    test::ConstruireArbre(temoin.Chemin(), a);
    Ecrire(temoin.Chemin() / "retraits.txt", Lignes(retraits));
    Lancer(&OperationSuppressionLemmes, temoin.Chemin(), temoin.Chemin() / "retraits.txt", kPremier);
    const auto attendu = Arbo(Chemin(temoin.Chemin(), "dico"));
    ASSERT_EQ(Lire(Chemin(temoin.Chemin(), "dico/SUPPRESSIONS_FAITES.txt")), Lignes({"chat", "chats"}));

    // Cut after chat (4c, file 63), chats (5c) and porte (5p) are rewritten, before portes (6p).
    const fs::path r = d.Chemin();
    test::ConstruireArbre(r, a);
    Ecrire(r / "retraits.txt", Lignes(retraits));
    MessageErreur([&] { Lancer(&OperationSuppressionLemmes, r, r / "retraits.txt", kPremier, 110); });
    EXPECT_EQ(Lire(FichierCasier(r, DOSSIER_DICO, 5, 16)), Lignes({"porte,0r.V:1a"}));
    EXPECT_EQ(Lire(FichierCasier(r, DOSSIER_DICO, 6, 16)), Lignes({"portes,1.SF:p/1r.V:2a"}));
    const auto messages = Lancer(&OperationSuppressionLemmes, r, r / "retraits.txt", kPremier);
    ASSERT_EQ(messages.size(), 2u);
    EXPECT_EQ(Cp1252VersUtf8(messages[1]), "Terminé. 2 suppressions, 2 simplifications.");
    EXPECT_EQ(Arbo(Chemin(r, "dico")), attendu);
}

TEST(RepriseDictionnaire, IntegrationDesComposesCoupeeRelancee) {
    DossierTemporaire temoin, d;
    test::ContenuArbre a;
    a.dico = {"pomme,.SF:s", "de,.O", "terre,.SF:s", "coup,.SM:s"};
    a.composes = {"pomme de pin,.SF:s", "coup de vent,.SM:s"};
    const std::vector<std::string> apports = {"pomme de terre,pomme de terre.SF:s\t2", "coup de foudre,.SM:s\t2",
                                              "bout de bois,.SM:s\t1"};
    auto Construire = [&](const fs::path& r) {
        test::ConstruireArbre(r, a);
        for (int w = 2; w <= 8; ++w)
            for (int c = 1; c <= 20; ++c) Ecrire(FichierCasier(r, DOSSIER_COMPOSES_AMB, w, c), "");
        Ecrire(r / "apports.txt", Lignes(apports));
    };
    Construire(temoin.Chemin());
    const auto messagesAttendus = Lancer(&OperationIntegrationComposes, temoin.Chemin(), temoin.Chemin() / "apports.txt",
                                         kPremier);
    const auto attendu = Arbo(Chemin(temoin.Chemin(), "dico/comp"));
    ASSERT_EQ(messagesAttendus.back(), "4 non-ambigus dont 2 apports");

    // Two files a cell (amb, namb): 3c are files 45 and 46, 3p files 71 and 72; the cut comes
    // between them, then before the last file.
    for (const int k : {60, 280}) {
        SCOPED_TRACE("coupure au fichier " + std::to_string(k));
        const fs::path r = d.Chemin() / std::to_string(k);
        Construire(r);
        MessageErreur([&] { Lancer(&OperationIntegrationComposes, r, r / "apports.txt", kPremier, k); });
        ASSERT_TRUE(FichierExiste(RepriseComposes(r)));
        const auto messages = Lancer(&OperationIntegrationComposes, r, r / "apports.txt", kPremier);
        ASSERT_EQ(messages.size(), 3u);
        EXPECT_NE(Cp1252VersUtf8(messages[0]).find("280 fichier(s) du dictionnaire rétabli(s) depuis svg/amb, svg/namb"),
                  std::string::npos)
            << Cp1252VersUtf8(messages[0]);
        EXPECT_EQ(std::vector<std::string>(messages.begin() + 1, messages.end()), messagesAttendus);
        // The svg copies hold the cells as they were before any run, not the half-written ones.
        EXPECT_EQ(Arbo(Chemin(r, "dico/comp")), attendu);
    }
}

// The fusion and the corpus dictionary only read the dictionaries they start from: cut short,
// their rerun gives the same folder, and they leave no record.
TEST(RepriseDictionnaire, FusionEtDictionnaireDuCorpusRelances) {
    DossierTemporaire d;
    const fs::path r = d.Chemin();
    test::ContenuArbre a;
    a.dico = {"aime,0r.V:1a", "grand,.J:ms", "table,.SF:s"};
    test::ConstruireArbre(r, a);
    for (int l = 1; l <= 15; ++l)
        for (int c = 1; c <= 20; ++c) Ecrire(FichierCasier(r, "dico/olbrin_2", l, c), "");
    Ecrire(FichierCasier(r, "dico/olbrin_2", 4, 1), Lignes({"aime,0r.V:3a"}));
    Ecrire(FichierCasier(r, "dico/olbrin_2", 5, 7), Lignes({"grand,.SM:s"}));
    Ecrire(FichierCasier(r, "dico/olbrin_2", 6, 20), Lignes({"tables,1.SF:p"}));
    Ecrire(r / "corpus/apports.txt", Lignes({"chats,chat,SMP", "chat,chat,SMS", "tables,table,SFP"}));

    Lancer(&OperationFusionDictionnaires, r, {}, kPremier);
    Lancer(&OperationDictionnaireCorpus, r, r / "corpus/apports.txt", kPremier);
    const auto fusion = Arbo(Chemin(r, "dico/olbrin_fus"));
    const auto corpus = Arbo(r / "corpus/DICO_CORPUS");
    ASSERT_EQ(fusion.at("4a.txt"), Lignes({"aime,0r.V:8a"}));
    ASSERT_EQ(fusion.size(), 300u);
    fs::remove_all(Chemin(r, "dico/olbrin_fus"));
    fs::remove_all(r / "corpus/DICO_CORPUS");

    for (const int k : {70, 200}) {
        MessageErreur([&] { Lancer(&OperationFusionDictionnaires, r, {}, kPremier, k); });
        MessageErreur([&] { Lancer(&OperationDictionnaireCorpus, r, r / "corpus/apports.txt", kPremier, k); });
        EXPECT_EQ(Arbo(Chemin(r, "dico/olbrin_fus")).size(), static_cast<std::size_t>(k - 1));
        EXPECT_FALSE(FichierExiste(RepriseOlbrin(r)));
    }
    Lancer(&OperationFusionDictionnaires, r, {}, kPremier);
    Lancer(&OperationDictionnaireCorpus, r, r / "corpus/apports.txt", kPremier);
    EXPECT_EQ(Arbo(Chemin(r, "dico/olbrin_fus")), fusion);
    EXPECT_EQ(Arbo(r / "corpus/DICO_CORPUS"), corpus);
}

TEST(RepriseDictionnaire, EnregistrementMalFormeOuSauvegardeAbsente) {
    DossierTemporaire d;
    const fs::path r = d.Chemin();
    test::ContenuArbre a;
    a.dico = {"chat,.SM:s"};
    test::ConstruireArbre(r, a);
    Ecrire(RepriseOlbrin(r), Utf8VersCp1252(Lignes({"#EN_COURS\tIntégration", "olbrin_261124_0900\tolbrin"})));
    Ecrire(r / "apports.txt", Lignes({"chats,chat,SMP"}));
    std::string m = MessageErreur([&] { Lancer(&OperationIntegrationFormes, r, r / "apports.txt", kPremier); });
    EXPECT_NE(m.find("La sauvegarde manque pour rétablir le dictionnaire"), std::string::npos) << m;
    EXPECT_NE(m.find("olbrin_261124_0900"), std::string::npos) << m;
    EXPECT_NE(m.find("#EN_COURS_olbrin.txt, ligne 2"), std::string::npos) << m;
    Ecrire(RepriseOlbrin(r), Utf8VersCp1252(Lignes({"#EN_COURS\tIntégration", "olbrin"})));
    m = MessageErreur([&] { Lancer(&OperationIntegrationFormes, r, r / "apports.txt", kPremier); });
    EXPECT_NE(m.find("#EN_COURS_olbrin.txt, ligne 2 : « sauvegarde<TAB>dossier » attendu : olbrin"), std::string::npos)
        << m;
    // Nothing was changed, and the record stays for the person to look at.
    EXPECT_EQ(Lire(FichierCasier(r, DOSSIER_DICO, 4, 3)), Lignes({"chat,.SM:s"}));
    EXPECT_TRUE(FichierExiste(RepriseOlbrin(r)));
    // The stages that read the dictionary refuse it meanwhile, naming what to run again.
    TableFormes formes;
    try {
        ChargerDico(formes, r, true);
        ADD_FAILURE() << "dictionnaire incomplet accepté";
    } catch (const FinProgramme& e) {
        EXPECT_EQ(Cp1252VersUtf8(e.what()),
                  "Le dictionnaire est incomplet : la fonction « Intégration » n'est pas allée à son terme (trace : " +
                      Cp1252VersUtf8(TexteChemin(RepriseOlbrin(r))) +
                      "). Relancez-la : elle le rétablit depuis sa sauvegarde avant de reprendre.");
    }
    Ecrire(RepriseComposes(r), Lignes({"#EN_COURS\tSuppression de lignes", "svg/amb\tamb"}));
    TableComposes composes;
    EXPECT_THROW(ChargerComposes(composes, r), FinProgramme);
}

}  // namespace
}  // namespace telvoris
