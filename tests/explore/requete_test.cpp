#include "explore/requete.hpp"

#include <gtest/gtest.h>

#include "core/erreurs.hpp"
#include "core/liste_textes.hpp"
#include "core/texte.hpp"
#include "corpus_test.hpp"
#include "explore/concordance.hpp"
#include "explore/indexation.hpp"
#include "support/support.hpp"

namespace telvoris {
namespace {

using test::DossierTemporaire;
using test::PartitionTest;
namespace fs = std::filesystem;

const std::string kLe = "<M f=Le l=le_DA >";
const std::string kChat = "<M f=chat l=chat_SM x=ms >";
const std::string kDort = "<M f=dort l=dormir_V x=3a >";
const std::string kPoint = "<PC f=. l=PT >";

// Three partitions; "chat dort" stands across the boundary of slices 1 and 2 (positions 220, 221).
fs::path CorpusRequetes(const fs::path& racine) {
    PartitionTest p3 = test::PartitionNumerotee("<QORX_ATTR JOURNAL=A DATE=2004-01 >", 203);
    p3.lignes[0] += kChat + "chat " + kDort + "dort" + kPoint + ".";
    const auto liste = test::EcrireCorpus(
        racine,
        {{"a",
          {PartitionTest{"<QORX_ATTR JOURNAL=A DATE=2003-01 >",
                         {kLe + "Le " + kChat + "chat " + kDort + "dort" + kPoint + ". " + kLe + "Le " +
                          "<M f=Chat l=chat_SM x=ms >Chat <M f=voit l=voir_V x=3a >voit <M f=la l=le_DA x=fs >la "
                          "<M f=maison l=maison_SF x=fs >maison" + kPoint + "."}},
           PartitionTest{"<QORX_ATTR JOURNAL=B DATE=2003-02 >",
                         {"<M f=Les l=le_DA x=p >Les <M f=chats l=chat_SM x=mp >chats <M f=dorment l=dormir_V x=6a >dorment" +
                              kPoint + ".",
                          "<M f=Maison l=maison_SF x=fs >Maison <M f=rouge l=rouge_J x=fs >rouge"}}}},
         {"b", {p3}}});
    test::DialogueScripte d;
    const auto l = ChargerListeTextes(liste);
    fs::create_directories(DossierIndex(l));
    ConstruireIndex(l, DossierIndex(l), true, d);
    return liste;
}

class Requetes : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        dossier_ = new DossierTemporaire;
        liste_ = CorpusRequetes(dossier_->Chemin());
    }
    static void TearDownTestSuite() { delete dossier_; }

    void SetUp() override {
        etat = OuvrirCorpus(liste_);
        dialogue.reponses = {"1-4"};
        ValiderCorpus(etat, {{}, 1}, dialogue);
    }

    // Runs a query; returns the positions found, in the order found.
    std::vector<long long> Positions(ParametresRequete p) {
        dialogue.messages.clear();
        EXPECT_TRUE(LancerRequete(etat, p, r, dialogue)) << p.saisie;
        std::vector<long long> v;
        for (const auto& o : r.occ) v.push_back(o.pos);
        return v;
    }
    std::vector<long long> Forme(const std::string& s, bool casse = false) {
        ParametresRequete p;
        p.saisie = s;
        p.casse = casse;
        return Positions(p);
    }
    std::vector<long long> Lemme(const std::string& s, TypeSaisie type = TypeSaisie::Lemme) {
        ParametresRequete p;
        p.type = type;
        p.saisie = s;
        return Positions(p);
    }
    // The message given to a refused entry.
    std::string Refus(ParametresRequete p) {
        dialogue.messages.clear();
        EXPECT_FALSE(LancerRequete(etat, p, r, dialogue)) << p.saisie;
        return dialogue.messages.empty() ? std::string() : Cp1252VersUtf8(dialogue.messages.back());
    }

    static DossierTemporaire* dossier_;
    static fs::path liste_;
    EtatCorpus etat;
    Requete r;
    test::DialogueScripte dialogue;
};
DossierTemporaire* Requetes::dossier_ = nullptr;
fs::path Requetes::liste_;

using V = std::vector<long long>;

TEST_F(Requetes, FormesCasseEtTroncatures) {
    EXPECT_EQ(Forme("chat"), (V{2, 220, 6}));
    EXPECT_EQ(r.rapport, "chat\t2\r\nChat\t1\r\n");
    EXPECT_EQ(r.NB_ATTENDU, 3);
    EXPECT_EQ(r.OCC_PAR_PART, (V{0, 2, 0, 1}));
    EXPECT_EQ(r.OCC_PAR_CLASSE, (V{0, 2, 1}));
    EXPECT_EQ(r.ORDRE_POS, (std::vector<std::size_t>{0, 2, 1}));
    EXPECT_EQ(Forme("CHAT"), (V{2, 220, 6}));
    // Case respected: only the tags of that very form, whichever way the index was built.
    EXPECT_EQ(Forme("chat", true), (V{2, 220}));
    EXPECT_EQ(Forme("Chat", true), (V{6}));
    EXPECT_EQ(Forme("CHAT", true), V{});
    EXPECT_EQ(Cp1252VersUtf8(dialogue.messages.back()), "Votre requête n'a aucune occurrence dans le corpus");
    // Truncations at either end or both; two characters or fewer are not searched.
    EXPECT_EQ(Forme("chat*"), (V{2, 220, 6, 12}));
    EXPECT_EQ(Forme("*ts"), (V{12}));
    EXPECT_EQ(Forme("*AIS*"), (V{9, 15}));
    EXPECT_EQ(Forme("*t*").size(), 8u);
    EXPECT_EQ(Forme("t*").size(), 0u);
    EXPECT_EQ(Forme("c*").size(), 0u);
    EXPECT_EQ(Forme("*").size(), 0u);
    EXPECT_EQ(Forme("m2*").size(), 15u);  // m2, m20 to m29, m200 to m203
}

TEST_F(Requetes, SequencesListesEtLemmes) {
    // The rarer item is the pivot; the sequence across the slice boundary is found.
    EXPECT_EQ(Forme("chat dort"), (V{2, 220}));
    EXPECT_EQ(r.PIVOT, 2);
    EXPECT_EQ(r.LONG_SEQ, 2);
    EXPECT_EQ(r.occ[1].forme, "chat dort");
    EXPECT_EQ(r.occ[1].longueur, 9);
    EXPECT_EQ(r.occ[1].partition, 3);
    EXPECT_EQ(Forme("le chat"), (V{1, 5}));
    EXPECT_EQ(Forme("le chat", true), V{});
    EXPECT_EQ(Forme("Le Chat", true), (V{5}));
    EXPECT_EQ(Forme("chat voit"), (V{6}));
    EXPECT_EQ(Forme("chat voit", true), V{});
    EXPECT_EQ(Forme("Chat  voit"), (V{6}));

    EXPECT_EQ(Lemme("chat_SM"), (V{2, 220, 6, 12}));
    EXPECT_EQ(r.LIBELLE, "chat_SM");
    // Motifs: a lemma then a category with its flexion; a category item opens with a mark.
    EXPECT_EQ(Lemme("le_DA $SMp"), (V{11}));
    EXPECT_EQ(r.occ[0].forme, "Les chats");
    EXPECT_EQ(Lemme("$SM dormir_V"), (V{2, 220, 12}));
    EXPECT_EQ(Lemme("le_DA #SFs"), (V{8}));
    EXPECT_EQ(Lemme("le_DA chat"), (V{1, 5}));

    EXPECT_EQ(Lemme("chat_SM\r\nmaison_SF\r\nsans", TypeSaisie::ListeLemmes), (V{2, 220, 6, 12, 9, 15}));
    EXPECT_EQ(r.LIBELLE, "chat_SM_LISTE");
    EXPECT_EQ(Lemme("maison\nrouge", TypeSaisie::ListeFormes), (V{9, 15, 16}));
    EXPECT_EQ(r.LIBELLE, "maison_LISTE");
}

TEST_F(Requetes, SaisiesRefusees) {
    ParametresRequete p;
    EXPECT_EQ(Refus(p), "Vous n'avez rien saisi dans le champ coché.");
    p.saisie = "  ";
    EXPECT_EQ(Refus(p), "Vous n'avez rien saisi dans le champ coché.");
    p.saisie = "ch*at";
    EXPECT_EQ(Refus(p), "Il ne doit pas figurer d'astérisque ailleurs qu'en début ou en fin de saisie");
    p.saisie = "chat";
    p.empan = true;
    EXPECT_EQ(Refus(p), "Vous devez saisir un nombre dans le champ de longueur d'empan");
    p.longueurEmpan = "123";
    EXPECT_EQ(Refus(p), "0Ce champ ne peut contenir qu'un nombre de 1 à 50");
    p.longueurEmpan = "4a";
    EXPECT_EQ(Refus(p), "1Ce champ ne peut contenir qu'un nombre de 1 à 50");
    p.longueurEmpan = "51";
    EXPECT_EQ(Refus(p), "2Ce champ ne peut contenir qu'un nombre de 1 à 50");
    p = {};
    p.type = TypeSaisie::ListeFormes;
    p.saisie = "chat\r\nchat_SM";
    EXPECT_EQ(Refus(p), "Cette liste ne doit pas contenir de lemmes");
    p.saisie = "chat\r\nchi*";
    try {
        LancerRequete(etat, p, r, dialogue);
        ADD_FAILURE();
    } catch (const FinProgramme& e) {
        EXPECT_EQ(std::string(e.what()), "Aucune troncature n'est admise dans le cas d'une saisie multiple"_cp);
    }
    p.type = TypeSaisie::ListeLemmes;
    EXPECT_EQ(Refus(p), "Aucune troncature n'est admise dans le cas d'une saisie multiple");
    p.type = TypeSaisie::Lemme;
    p.saisie = "chat";
    EXPECT_EQ(Refus(p), "Vous devez saisir un lemme avec son suffixe catégoriel précédé de l'underscore");
    p.saisie = "chat_*";
    EXPECT_EQ(Refus(p), "Aucune troncature n'est admise pour la saisie d'un lemme");
    p.saisie = "zzz_X $QQ";
    EXPECT_EQ(Refus(p), "Saisie incorrecte ou items absents du corpus");
}

TEST_F(Requetes, ContextesEtConcordance) {
    EXPECT_EQ(Forme("maison"), (V{9, 15}));
    ASSERT_TRUE(r.contextes);
    const std::string g1 = "Le chat dort . Le Chat voit la ";
    EXPECT_EQ(r.occ[0].gauche, std::string(60 - g1.size(), ' ') + g1);
    EXPECT_EQ(r.occ[0].droite, "maison . " + std::string(77 - 9, ' '));
    // At the start of a partition the left context is all blanks; the right stops at its end.
    EXPECT_EQ(r.occ[1].gauche, std::string(40, ' ') + "Les chats dorment . ");
    EXPECT_EQ(r.occ[1].droite, "Maison rouge " + std::string(77 - 13, ' '));
    EXPECT_EQ(r.occ[1].k, 21);
    EXPECT_EQ(r.ORDRE_DROIT, (std::vector<std::size_t>{0, 1}));
    EXPECT_EQ(r.ORDRE_GAUCHE, (std::vector<std::size_t>{1, 0}));
    const auto lignes = LignesConcordance(r, false);
    ASSERT_EQ(lignes.size(), 2u);
    for (const auto& l : lignes) EXPECT_EQ(l.size() + 2, 139u);  // with its line end
    EXPECT_EQ(lignes[0].substr(60, 6), "maison");
    EXPECT_EQ(PageConcordance(r, true), lignes[1] + "\r\n" + lignes[0]);
    EXPECT_EQ(TexteInfoRequete(r), "La requête en cours présente \r\n2 occurrence(s), ainsi réparties :\r\nmaison\t1\r\nMaison\t1\r\n"_cp);
    // At the start of a partition the left context is all blanks, the form still at column 61.
    EXPECT_EQ(Forme("les"), (V{11}));
    EXPECT_EQ(r.occ[0].gauche, std::string(60, ' '));
    EXPECT_EQ(r.occ[0].droite.substr(0, 20), "Les chats dorment . ");

    // Long contexts keep the 60 characters nearest the form; the sequence's joined forms stand at column 61.
    EXPECT_EQ(Forme("chat dort"), (V{2, 220}));
    const auto& o = r.occ[1];
    EXPECT_EQ(o.gauche.size(), 60u);
    EXPECT_TRUE(o.gauche.ends_with("m201 m202 m203 "));
    EXPECT_FALSE(o.gauche.starts_with(" "));
    EXPECT_EQ(o.droite, "chat dort . " + std::string(77 - 12, ' '));

    HorlogeFixe horloge({2026, 11, 21, 10, 5, 0});
    const auto f = SauverConcordance(etat, r, true, horloge);
    EXPECT_EQ(f, etat.PATH_INDEX / "SAUVEGARDES/CONCORDANCES/chat dort_261121_1005.txt");
    const auto l2 = LignesConcordance(r, true);
    EXPECT_EQ(test::Lire(f), test::Lignes(l2));
}

TEST_F(Requetes, CooccurrentsEmpanEtPhrase) {
    ParametresRequete p;
    p.saisie = "dort";
    p.concordance = false;
    p.micro = true;
    p.empan = true;
    p.longueurEmpan = "1";
    EXPECT_EQ(Positions(p), (V{3, 221}));
    EXPECT_FALSE(r.contextes);
    EXPECT_EQ(r.NB_COOC, 2);
    const auto& casier = r.COOC_FORMES[static_cast<std::size_t>(IndiceCasier(CalculerCasier("chat")))];
    ASSERT_EQ(casier.size(), 1u);
    EXPECT_EQ(casier[0].compte, 2);
    EXPECT_TRUE(casier[0].parties.starts_with("/1-4/3-")) << casier[0].parties;
    EXPECT_EQ(casier[0].occurrences, "/1/2");
    const auto& lemmes = r.COOC_LEMMES[static_cast<std::size_t>(IndiceCasier(CalculerCasier("chat_SM")))];
    ASSERT_EQ(lemmes.size(), 1u);
    EXPECT_EQ(lemmes[0].longueurs, "/4/4");
    // The left side alone limited: the right side runs to the sentence end only with the option.
    p.cote = Cote::Gauche;
    Positions(p);
    EXPECT_EQ(r.NB_COOC, 1 + 5 + 1);  // chat, then Le Chat voit la maison to the partition end; chat
    p.empan = false;
    p.phrase = true;
    Positions(p);
    EXPECT_EQ(r.NB_COOC, 2 + 204);  // the sentence ends at the full stop after each
}

TEST(RequeteSeuil, DeuxMilleCinqCents) {
    DossierTemporaire d;
    PartitionTest x{"<QORX_ATTR N=1 >", {""}}, y{"<QORX_ATTR N=2 >", {""}};
    for (int i = 0; i < 2500; ++i) x.lignes[0] += "<M f=x >x ";
    for (int i = 0; i < 2501; ++i) y.lignes[0] += "<M f=y >y ";
    const auto liste = test::EcrireCorpus(d.Chemin(), {{"t", {x, y}}});
    test::DialogueScripte dialogue;
    const auto l = ChargerListeTextes(liste);
    fs::create_directories(DossierIndex(l));
    ConstruireIndex(l, DossierIndex(l), true, dialogue);
    EtatCorpus etat = OuvrirCorpus(liste);
    ValiderCorpus(etat, {}, dialogue);
    Requete r;
    ParametresRequete p;
    p.saisie = "x";
    p.macro = true;
    ASSERT_TRUE(LancerRequete(etat, p, r, dialogue));
    EXPECT_TRUE(dialogue.messages.empty());
    EXPECT_TRUE(r.contextes);
    EXPECT_EQ(LignesConcordance(r, false).size(), 2500u);
    EXPECT_EQ(r.occ[2499].pos, 2500);
    // Equal right contexts keep the order of their positions; a page holds 39 lines.
    std::size_t egales = 0;
    for (std::size_t n = 1; n < r.ORDRE_DROIT.size(); ++n) {
        const auto a = r.ORDRE_DROIT[n - 1], b = r.ORDRE_DROIT[n];
        if (r.occ[a].droite != r.occ[b].droite) continue;
        ++egales;
        EXPECT_LT(r.occ[a].pos, r.occ[b].pos);
    }
    EXPECT_GT(egales, 2400u);
    const std::string page = PageConcordance(r, false, 100);
    EXPECT_EQ(std::count(page.begin(), page.end(), '\n'), 38);
    EXPECT_EQ(page.size(), 39u * 137 + 38 * 2);
    p.saisie = "y";
    ASSERT_TRUE(LancerRequete(etat, p, r, dialogue));
    ASSERT_EQ(dialogue.messages.size(), 1u);
    EXPECT_EQ(dialogue.messages[0], "Votre requête recense 2501 occurrences. C'est trop pour afficher une concordance."_cp);
    EXPECT_FALSE(r.contextes);
    EXPECT_TRUE(LignesConcordance(r, false).empty());
    EXPECT_EQ(r.occ.size(), 2501u);
    EXPECT_EQ(r.occ.back().pos, 5001);
    EXPECT_EQ(r.OCC_PAR_PART, (V{0, 0, 2501}));
    EXPECT_DOUBLE_EQ(EcartReduit(100, 0.5, 60), 2.0);
    EXPECT_DOUBLE_EQ(EcartReduit(100, 0.5, 40), -2.0);
    EXPECT_EQ(EcartReduit(10, 0.0, 0), 0.0);
}

}  // namespace
}  // namespace telvoris
