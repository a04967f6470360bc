// Whole simple-word review sessions on a small corpus that the automatic pass has prepared.
#include <gtest/gtest.h>

#include "core/erreurs.hpp"
#include "core/horloge.hpp"
#include "pipeline/arbre_etiquetage.hpp"
#include "pipeline/automate.hpp"
#include "pipeline/levee.hpp"

namespace telvoris {
namespace {

using test::DossierTemporaire;
using test::Lignes;
using test::Lire;

using test::C;

test::ContenuArbre Arbre() {
    test::ContenuArbre a;
    a.dico = {"il,.P", "elle,.P", "chat,.SM:s", "porte,.SF:s/0r.V:1a", "mange,0r.V:1a/0r.V:3a/0r.V:2i",
              "ferme,.SF:s/.J:xs/0r.V:1a/0r.V:3a/0r.V:1s/0r.V:3s", "la,.P", "x,.SM:s"};
    return a;
}

// A corpus of three texts run through the automatic pass.
struct Corpus {
    DossierTemporaire arbre, racine;
    fs::path liste;
    test::DialogueScripte d;
    HorlogeFixe h{{2026, 11, 21, 10, 0, 0}};
    Contexte ctx{d, h, {}};
    Corpus() {
        test::ConstruireArbre(arbre.Chemin(), Arbre());
        ctx.ressources = arbre.Chemin();
        liste = test::ConstruireCorpus(
            racine.Chemin(),
            {{"a", Lignes({"<QORX_ATTR DATE=2024 >", "<M f=Elle >Elle <M f=porte >porte <M f=chat >chat<PC f=. l=PT >.",
                           "", "<M f=ferme >ferme <M f=la >la <M f=porte >porte <M f=x >x"})},
             {"b", "<M f=Il >Il <M f=mange >mange <M f=la >la <M f=porte >porte<BR>\r\n\r\n<M f=chat >chat <M f=mange >mange"},
             {"c", "<M f=Il >Il <M f=porte >porte<PC f=, l=V >, <M f=elle >elle <M f=porte >porte"}});
        d.fichiers.push_back(liste);
        OperationPasseAutomatique(ctx);
        d.messages.clear();
    }
    fs::path TT() const { return racine.Chemin() / "OLBRIN_TT"; }
    ListeTextes Liste() const { return ChargerListeTextes(liste); }
};

const std::string kFerme = "<M f=ferme l=.SF:s/.J:xs/0r.V:1a/0r.V:3a/0r.V:1s/0r.V:3s >";
const std::string kMange = "<M f=mange l=0r.V:1a/0r.V:3a/0r.V:2i >";
const std::string kPorte = "<M f=porte l=.SF:s/0r.V:1a >";

const std::string kA =
    "<QORX_ATTR DATE=2024 >\r\n"
    "<M f=Elle l=elle_P >Elle <M f=porte l=porter_V x=1a > \"porte <M f=chat l=chat_SM x=s >chat<PC f=. l=PT >.\r\n"
    "FERME<M f=la l=la_P >la <M f=porte l=porter_V x=1a > \"porte <M f=x l=x_SM x=s >x";
std::string A(std::string_view ferme) {
    std::string a = kA;
    return a.replace(a.find("FERME"), 5, Joindre(ferme, "ferme "));
}
std::string B(std::string_view mange1, std::string_view porte, std::string_view mange2) {
    return Joindre("<M f=Il l=il_P >Il ", mange1, "mange <M f=la l=la_P >la ", porte,
                   "porte<BR>\r\n<M f=chat l=chat_SM x=s >chat ", mange2, "mange");
}
std::string Cc(std::string_view porte1, std::string_view porte2) {
    return Joindre("<M f=Il l=il_P >Il ", porte1, "porte<PC f=, l=V >, <M f=elle l=elle_P >elle ", porte2, "porte");
}

TEST(LeveeSimples, SessionEntiereDansLOrdre) {
    Corpus c;
    // The pass left three cases: ferme (position 5), mange (10, 14), porte (12, 16, 19).
    ASSERT_EQ(Lire(c.TT() / "#INDEX_ms.txt"),
              Lignes({kFerme + "\t1\t5", kMange + "\t2\t10-14", kPorte + "\t3\t12-16-19"}));
    ASSERT_EQ(Lire(c.TT() / "a.txt"), A(kFerme));
    ASSERT_EQ(Lire(c.TT() / "b.txt"), B(kMange, kPorte, kMange));
    const std::string avant = Lire(c.TT() / "c.txt");
    ASSERT_EQ(avant, Cc(kPorte, kPorte));

    SessionLevee s = SessionLevee::OuvrirSimples(c.Liste(), c.h, c.d);
    // Every text is kept as it stood, in a folder named by the date stamp.
    EXPECT_EQ(Lire(c.TT() / "AVANT_LEVCON" / "261121_1000" / "b.txt"), B(kMange, kPorte, kMange));
    EXPECT_EQ(s.NbPositions(), 19);
    EXPECT_EQ(s.Etiquette(), EtiquetteSession::levcon_simp);
    EXPECT_EQ(s.LibelleBouton(), "PROCHAIN CAS");
    s.TravaillerDansLOrdre();
    EXPECT_EQ(s.Etiquette(), EtiquetteSession::levcon_s2);

    // Case 1: six readings, five columns; the contexts stop at the file's edges.
    EXPECT_EQ(s.LigneCas(), C("CAS n°1 sur 3 : ferme : 1 occurrence(s)."_cp));
    ASSERT_EQ(s.NbLectures(), 5);
    EXPECT_EQ(s.Libelles()[0].lemme, "l=ferme_SF");
    EXPECT_EQ(s.Libelles()[0].flexion, " x=s");
    EXPECT_EQ(s.Libelles()[2].lemme, "l=fermer_V");
    EXPECT_EQ(s.Libelles()[4].flexion, " x=1s");
    ASSERT_EQ(s.NbOccurrences(), 1u);
    EXPECT_EQ(s.Occurrence(0).gauche, std::string(46, ' ') + "Elle porte chat . ");
    EXPECT_EQ(s.Occurrence(0).droite, " la porte x");
    s.Cocher(0, 6);  // no sixth box
    EXPECT_EQ(s.Occurrence(0).coche, 0);
    s.Cocher(0, 3);
    ASSERT_TRUE(s.CasSuivant());
    EXPECT_EQ(s.LibelleBouton(), "CAS SUIVANT");

    // Case 2: first by the reversed left context, then by the right one.
    EXPECT_EQ(s.LigneCas(), C("CAS n°2 sur 3 : mange : 2 occurrence(s)."_cp));
    EXPECT_EQ(s.Occurrence(0).position, 10);
    EXPECT_EQ(s.Occurrence(0).droite, " la porte chat mange");
    EXPECT_EQ(s.Occurrence(1).gauche, std::string(41, ' ') + "Il mange la porte chat ");
    EXPECT_EQ(s.LibelleTri(), "TRI DROIT");
    s.ChangerTri();
    EXPECT_EQ(s.LibelleTri(), "TRI GAUCHE");
    EXPECT_EQ(s.Occurrence(0).position, 14);
    EXPECT_EQ(s.Occurrence(0).droite, "");
    s.Cocher(0, 2);
    s.Cocher(1, 1);
    ASSERT_TRUE(s.CasSuivant());
    // The texts on disk wait for the saving point; the table already holds the decisions.
    EXPECT_EQ(Lire(c.TT() / "b.txt"), B(kMange, kPorte, kMange));
    EXPECT_EQ(s.Jeton(10), "<M  f=mange l=manger_V x=1a >");

    // Case 3 without any tick is still treated; it was the last, so the session saves and ends.
    EXPECT_EQ(s.LigneCas(), C("CAS n°3 sur 3 : porte : 3 occurrence(s)."_cp));
    EXPECT_FALSE(s.CasSuivant());
    EXPECT_TRUE(s.Terminee());
    EXPECT_EQ(Lire(c.TT() / "a.txt"), A("<M f=ferme l=fermer_V x=1a >"));
    EXPECT_EQ(Lire(c.TT() / "b.txt"),
              B("<M  f=mange l=manger_V x=1a >", kPorte, "<M f=mange l=manger_V x=3a >"));
    EXPECT_EQ(Lire(c.TT() / "c.txt"), avant);
    EXPECT_EQ(Lire(c.TT() / "#BILAN.txt"), Lignes({kFerme + "\t3", kMange + "\t12", kPorte + "\t000"}));
    EXPECT_EQ(Lire(c.TT() / "#F_ETAT.txt"), Lignes({"1", "1", "1"}));
    EXPECT_FALSE(s.Reviser());

    // Everything treated: a new session ends at once.
    SessionLevee t = SessionLevee::OuvrirSimples(c.Liste(), c.h, c.d);
    EXPECT_TRUE(t.Terminee());
}

TEST(LeveeSimples, RevisionInterruptionEtReprise) {
    Corpus c;
    SessionLevee s = SessionLevee::OuvrirSimples(c.Liste(), c.h, c.d);
    s.TravaillerDansLOrdre();
    s.CocherColonne(2);
    ASSERT_TRUE(s.CasSuivant());
    EXPECT_EQ(s.Jeton(5), "<M f=ferme l=ferme_J x=xs >");
    EXPECT_EQ(s.Bilan(), Lignes({kFerme + "\t2"}));
    // REVISER: the token comes back, the case is open again and shown at the next click.
    ASSERT_TRUE(s.Reviser());
    EXPECT_FALSE(s.Reviser());
    EXPECT_EQ(s.Jeton(5), kFerme);
    EXPECT_EQ(s.Bilan(), "");
    EXPECT_EQ(s.LibelleBouton(), "CAS PRECEDENT");
    ASSERT_TRUE(s.CasSuivant());
    EXPECT_EQ(s.NoCas(), 1u);
    EXPECT_EQ(s.Occurrence(0).coche, 0);
    s.Cocher(0, 1);
    ASSERT_TRUE(s.CasSuivant());
    EXPECT_EQ(s.NoCas(), 2u);
    // Stop: the state is saved and the case shown stays open.
    s.Sauver();
    EXPECT_EQ(Lire(c.TT() / "a.txt"), A("<M  f=ferme l=ferme_SF x=s >"));
    EXPECT_EQ(Lire(c.TT() / "#F_ETAT.txt"), Lignes({"1", "0", "0"}));
    EXPECT_EQ(Lire(c.TT() / "#BILAN.txt"), Lignes({kFerme + "\t1"}));

    // Resumption, a minute later: the first untreated case, the earlier lines kept in front.
    c.h.Regler({2026, 11, 21, 10, 1, 0});
    SessionLevee t = SessionLevee::OuvrirSimples(c.Liste(), c.h, c.d);
    EXPECT_EQ(Lire(c.TT() / "AVANT_LEVCON" / "261121_1001" / "a.txt"), A("<M  f=ferme l=ferme_SF x=s >"));
    t.TravaillerDansLOrdre();
    EXPECT_EQ(t.NoCas(), 2u);
    // The context shows the token rewritten by the earlier session through its form.
    t.CocherColonne(1);
    t.CocherColonne(1);  // a second click clears the column
    EXPECT_EQ(t.Occurrence(1).coche, 0);
    t.CocherColonne(3);
    ASSERT_TRUE(t.CasSuivant());
    // The range tick, in the order shown, whatever the order of the ends.
    EXPECT_EQ(t.NbOccurrences(), 3u);
    // Shown by reversed left context: 12 ("la "), 19 ("elle "), 16 ("Il ").
    EXPECT_EQ(t.Occurrence(0).position, 12);
    EXPECT_EQ(t.Occurrence(1).position, 19);
    t.CocherPlage(2, 1, 2);
    t.Cocher(0, 1);
    EXPECT_FALSE(t.CasSuivant());
    EXPECT_EQ(Lire(c.TT() / "#BILAN.txt"), Lignes({kFerme + "\t1", kMange + "\t33", kPorte + "\t122"}));
    EXPECT_EQ(Lire(c.TT() / "b.txt"),
              B("<M f=mange l=manger_V x=2i >", "<M  f=porte l=porte_SF x=s >", "<M f=mange l=manger_V x=2i >"));
    EXPECT_EQ(Lire(c.TT() / "c.txt"), Cc("<M f=porte l=porter_V x=1a >", "<M f=porte l=porter_V x=1a >"));
    EXPECT_EQ(Lire(c.TT() / "#F_ETAT.txt"), Lignes({"1", "1", "1"}));
}

TEST(LeveeSimples, ChoixParLemmes) {
    Corpus c;
    SessionLevee s = SessionLevee::OuvrirSimples(c.Liste(), c.h, c.d);
    s.ChoisirParLemmes();
    EXPECT_EQ(s.Etiquette(), EtiquetteSession::levcon_s1x);
    const auto lemmes = s.LemmesAffiches();
    ASSERT_EQ(lemmes.size(), 6u);
    EXPECT_EQ(lemmes[0], "manger_V                 ");
    EXPECT_EQ(lemmes[3], "porter_V                 ");
    // porter_V and manger_V: their cases, once each, in the order of the list.
    s.ValiderLemmes({3, 0, 3});
    EXPECT_EQ(s.Etiquette(), EtiquetteSession::levcon_s1);
    EXPECT_EQ(Lire(c.TT() / "LEMSEL.txt"), Lignes({kMange + "\t2\t10-14", kPorte + "\t3\t12-16-19"}));
    EXPECT_EQ(s.NoCas(), 2u);
    s.CocherColonne(1);
    ASSERT_TRUE(s.CasSuivant());
    EXPECT_EQ(s.NoCas(), 3u);
    // A review in this way of working goes back in the queue.
    ASSERT_TRUE(s.Reviser());
    ASSERT_TRUE(s.CasSuivant());
    EXPECT_EQ(s.NoCas(), 2u);
    ASSERT_TRUE(s.CasSuivant());
    EXPECT_EQ(s.NoCas(), 3u);
    EXPECT_FALSE(s.CasSuivant());
    // The queue is exhausted: ferme stays open.
    EXPECT_EQ(Lire(c.TT() / "#F_ETAT.txt"), Lignes({"0", "1", "1"}));
    EXPECT_EQ(Lire(c.TT() / "#BILAN.txt"), Lignes({kMange + "\t00", kPorte + "\t000"}));
}

TEST(LeveeSimples, SessionMeneeParLeDialogue) {
    Corpus c;
    // The same decisions as the whole session in order, given as answers, with a few detours:
    // a misunderstood answer, a review, a column ticked then cleared, a refused stop.
    c.d.fichiers.push_back(c.liste);
    c.d.reponses = {"o", "C2", "zz", "V", "R", "***", "3", "t", "21", "I", "N", "C1", "C1", "V"};
    OperationLeveeSimples(c.ctx);
    EXPECT_EQ(Lire(c.TT() / "a.txt"), A("<M f=ferme l=fermer_V x=1a >"));
    EXPECT_EQ(Lire(c.TT() / "b.txt"),
              B("<M  f=mange l=manger_V x=1a >", kPorte, "<M f=mange l=manger_V x=3a >"));
    EXPECT_EQ(Lire(c.TT() / "#BILAN.txt"), Lignes({kFerme + "\t3", kMange + "\t12", kPorte + "\t000"}));
    EXPECT_EQ(Lire(c.TT() / "#F_ETAT.txt"), Lignes({"1", "1", "1"}));
    ASSERT_GE(c.d.messages.size(), 2u);
    EXPECT_EQ(c.d.messages.back(), C("Opération terminée"_cp));
    // The first case as shown: the case line, the five columns, the numbered rows.
    EXPECT_EQ(c.d.messages[0], C("CAS n°1 sur 3 : ferme : 1 occurrence(s).\r\n"
                                 "  [1] l=ferme_SF x=s\r\n  [2] l=ferme_J x=xs\r\n  [3] l=fermer_V x=1a\r\n"
                                 "  [4] l=fermer_V x=3a\r\n  [5] l=fermer_V x=1s\r\n  (T) TRI DROIT\r\n"_cp) +
                                 "1 (.) " + std::string(46, ' ') + "Elle porte chat . [ferme] la porte x\r\n");
    EXPECT_EQ(c.d.messages[2], C("Réponse non comprise : ZZ"_cp));
    EXPECT_NE(c.d.messages[7].find("  (T) TRI GAUCHE\r\n1 (.) "), std::string::npos) << c.d.messages[7];
    bool vuCocheColonne = false;
    for (const auto& m : c.d.messages) vuCocheColonne |= m.find("1 (2) ") != std::string::npos;
    EXPECT_TRUE(vuCocheColonne);

    // Answers that run out stop the session at the question's default, and save.
    Corpus e;
    e.d.fichiers.push_back(e.liste);
    e.d.reponses = {"O", "2"};
    OperationLeveeSimples(e.ctx);
    EXPECT_EQ(Lire(e.TT() / "#F_ETAT.txt"), Lignes({"1", "0", "0"}));
    EXPECT_EQ(Lire(e.TT() / "a.txt"), A("<M f=ferme l=ferme_J x=xs >"));
    EXPECT_NE(e.d.messages.back(), C("Opération terminée"_cp));

    // By lemmas: the list shown, the numbers chosen.
    e.d.fichiers.push_back(e.liste);
    e.d.messages.clear();
    e.d.reponses = {"L", "1", "11", ""};
    OperationLeveeSimples(e.ctx);
    EXPECT_EQ(e.d.messages[0].substr(0, 30), "1 manger_V                 \r\n2");
    EXPECT_EQ(e.d.messages.back(), C("Opération terminée"_cp));
    EXPECT_EQ(Lire(e.TT() / "#F_ETAT.txt"), Lignes({"1", "1", "0"}));
    EXPECT_EQ(Lire(e.TT() / "#BILAN.txt"), Lignes({kFerme + "\t2", kMange + "\t11"}));
}

TEST(LeveeSimples, PointDeSauvegardeTousLesDixCas) {
    DossierTemporaire d;
    const fs::path tt = d.Chemin() / "OLBRIN_TT";
    fs::create_directories(tt / "AVANT_AUTOMATE_SIMPLES");
    std::string texte;
    std::vector<std::string> index, etat;
    for (int i = 1; i <= 12; ++i) {
        const std::string f = "w" + std::to_string(i);
        texte += "<M f=" + f + " l=.SM:s/.J:ms >" + f + " ";
        index.push_back("<M f=" + f + " l=.SM:s/.J:ms >\t1\t" + std::to_string(i));
        etat.push_back("0");
    }
    test::Ecrire(tt / "t.txt", texte);
    test::Ecrire(tt / "#INDEX_ms.txt", Lignes(index));
    test::Ecrire(tt / "#F_ETAT.txt", Lignes(etat));
    test::Ecrire(tt / "#BILAN.txt", "");
    test::Ecrire(tt / "#INDEX_LEMMES.txt", "");
    test::Ecrire(d.Chemin() / "l.txt", "t\r\n");
    test::DialogueScripte dlg;
    HorlogeFixe h({2026, 1, 2, 3, 4, 5});
    SessionLevee s = SessionLevee::OuvrirSimples(ChargerListeTextes(d.Chemin() / "l.txt"), h, dlg);
    s.TravaillerDansLOrdre();
    for (int i = 1; i <= 9; ++i) {
        s.Cocher(0, 2);
        ASSERT_TRUE(s.CasSuivant());
    }
    EXPECT_EQ(Lire(tt / "t.txt"), texte);
    s.Cocher(0, 1);
    ASSERT_TRUE(s.CasSuivant());
    // The tenth case saved everything.
    const std::string apres = Lire(tt / "t.txt");
    EXPECT_NE(apres.find("<M f=w9 l=w9_J x=ms >w9 <M  f=w10 l=w10_SM x=s >w10 <M f=w11 l=.SM:s/.J:ms >"), std::string::npos)
        << apres;
    EXPECT_EQ(Lire(tt / "#F_ETAT.txt"), Lignes({"1", "1", "1", "1", "1", "1", "1", "1", "1", "1", "0", "0"}));
    ASSERT_TRUE(s.CasSuivant());
    EXPECT_EQ(Lire(tt / "t.txt"), apres);
}

TEST(LeveeSimples, FichiersManquantsEtCasParticuliers) {
    Corpus c;
    auto Ouvrir = [&] { return SessionLevee::OuvrirSimples(c.Liste(), c.h, c.d); };
    auto Message = [&] {
        try {
            Ouvrir();
        } catch (const FinProgramme& e) {
            return std::string(e.what());
        }
        return std::string("aucun");
    };
    // The index written with its other spelling is the same file.
    fs::rename(c.TT() / "#INDEX_ms.txt", c.TT() / "#INDEX_MS.txt");
    EXPECT_EQ(Ouvrir().NbCas(), 3u);
    fs::remove(c.TT() / "#INDEX_MS.txt");
    EXPECT_EQ(Message(), C("Un fichier créé lors de la passe automatique manque (INDEX_ms.txt). "
                           "Vérifiez et recommencez éventuellement la fonction."_cp));
    test::Ecrire(c.TT() / "#INDEX_ms.txt", Lignes({kFerme + "\t1\t5", kMange + "\t2\t10-20"}));
    fs::rename(c.TT() / "#INDEX_LEMMES.txt", c.TT() / "x.txt");
    EXPECT_EQ(Message(), C("Un fichier créé lors de la passe automatique manque (ETK2/INDEX_LEMMES.txt). "
                           "Vérifiez et recommencez éventuellement la fonction."_cp));
    fs::rename(c.TT() / "x.txt", c.TT() / "#INDEX_LEMMES.txt");
    // A position past the corpus is an execution error naming the case.
    {
        SessionLevee s = Ouvrir();
        s.TravaillerDansLOrdre();
        try {
            s.CasSuivant();
            ADD_FAILURE();
        } catch (const ErreurExecution& e) {
            EXPECT_EQ(e.what(), C("Position 20 hors du corpus (19 positions) pour le cas n°2 : "_cp) + kMange);
        }
    }
    // An empty case index: the operation ends at once, the texts untouched.
    const std::string a = Lire(c.TT() / "a.txt");
    test::Ecrire(c.TT() / "#INDEX_ms.txt", "");
    c.d.fichiers.push_back(c.liste);
    OperationLeveeSimples(c.ctx);
    ASSERT_FALSE(c.d.messages.empty());
    EXPECT_EQ(c.d.messages.back(), C("Opération terminée"_cp));
    EXPECT_EQ(c.d.messages.size(), 1u);
    EXPECT_EQ(Lire(c.TT() / "a.txt"), a);
    fs::remove_all(c.TT() / "AVANT_AUTOMATE_SIMPLES");
    EXPECT_EQ(Message(), C("Vous devez d'abord avoir passé la fonction 'automates'."_cp));
}

TEST(LeveeSimples, TexteRebatiALIdentique) {
    // Header lines, lines without a token, markup, lone CR and LF, no line end at the end: the
    // tables give the file back byte for byte.
    DossierTemporaire d;
    const fs::path tt = d.Chemin() / "OLBRIN_TT";
    fs::create_directories(tt / "AVANT_AUTOMATE_SIMPLES");
    const std::string t1 = "<QORX_ATTR A=1 >\r\n\r\n  <M f=a l=x_SM >a<BR> <M f=b >b\r\n<p>\r<M f=c >c <x\n>\n";
    const std::string t2 = "rien ici\r\n";
    const std::string t3 = "<PC f=. l=PT >.";
    test::Ecrire(tt / "t1.txt", t1);
    test::Ecrire(tt / "t2.txt", t2);
    test::Ecrire(tt / "t3.txt", t3);
    test::Ecrire(tt / "#INDEX_ms.txt", "<M f=b l=.SM:s/.A >\t1\t2\r\n");
    test::Ecrire(tt / "#F_ETAT.txt", "0\r\n");
    test::Ecrire(tt / "#BILAN.txt", "ancien\r\n");
    test::Ecrire(tt / "#INDEX_LEMMES.txt", "");
    test::Ecrire(d.Chemin() / "l.txt", "t1\r\nt2\r\nt3\r\n");
    test::DialogueScripte dlg;
    HorlogeFixe h({2026, 1, 2, 3, 4, 5});
    SessionLevee s = SessionLevee::OuvrirSimples(ChargerListeTextes(d.Chemin() / "l.txt"), h, dlg);
    EXPECT_EQ(s.NbPositions(), 4);
    EXPECT_EQ(s.TexteFichier(0), t1);
    EXPECT_EQ(s.TexteFichier(1), t2);
    EXPECT_EQ(s.TexteFichier(2), t3);
    EXPECT_EQ(s.Jeton(4), "<PC f=. l=PT >");
    s.TravaillerDansLOrdre();
    // The contexts skip markup and stop at the file's edges; an unclosed "<" is text.
    EXPECT_EQ(s.Occurrence(0).gauche, std::string(62, ' ') + "a ");
    EXPECT_EQ(s.Occurrence(0).droite, " c");
    s.Cocher(0, 2);
    EXPECT_FALSE(s.CasSuivant());
    EXPECT_EQ(Lire(tt / "t1.txt"), "<QORX_ATTR A=1 >\r\n\r\n  <M f=a l=x_SM >a<BR> <M f=b l=b_A >b\r\n<p>\r<M f=c >c <x\n>\n");
    EXPECT_EQ(Lire(tt / "t2.txt"), t2);
    EXPECT_EQ(Lire(tt / "#BILAN.txt"), "ancien\r\n<M f=b l=.SM:s/.A >\t2\r\n");
}

}  // namespace
}  // namespace telvoris
