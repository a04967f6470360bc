// The review sessions in their window: the same decisions as at the terminal give the same files.
#include <gtest/gtest.h>

#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QRadioButton>
#include <QPushButton>
#include <QTableView>
#include <QTest>

#include "../cli/lancer.hpp"
#include "gui/levee_vue.hpp"
#include "outils.hpp"

namespace telvoris {
namespace {

using namespace test;
using gui::FenetreLevee;

const std::string kFerme = "<M f=ferme l=.SF:s/.J:xs/0r.V:1a/0r.V:3a/0r.V:1s/0r.V:3s >";
const std::string kMange = "<M f=mange l=0r.V:1a/0r.V:3a/0r.V:2i >";
const std::string kPorte = "<M f=porte l=.SF:s/0r.V:1a >";

std::string B() {
    return "<M f=Il l=il_P >Il " + kMange + "mange <M f=la l=la_P >la " + kPorte + "porte<BR>\r\n<M f=chat l=chat_SM x=s >chat " +
           kMange + "mange";
}

// As the automatic pass leaves it: three open cases over two texts.
fs::path CorpusTrois(const fs::path& racine) {
    const fs::path tt = racine / "OLBRIN_TT";
    fs::create_directories(tt / "AVANT_AUTOMATE_SIMPLES");
    Ecrire(tt / "a.txt", "<QORX_ATTR DATE=2024 >\r\n<M f=Elle l=elle_P >Elle <M f=chat l=chat_SM x=s >chat\r\n" + kFerme +
                             "ferme <M f=x l=x_SM x=s >x");
    Ecrire(tt / "b.txt", B());
    Ecrire(tt / "#INDEX_ms.txt", Lignes({kFerme + "\t1\t3", kMange + "\t2\t6-10", kPorte + "\t3\t8"}));
    Ecrire(tt / "#INDEX_LEMMES.txt", Lignes({"manger_V\t2\t" + kMange, "porte_SF\t1\t" + kPorte}));
    Ecrire(tt / "#F_ETAT.txt", Lignes({"0", "0", "0"}));
    Ecrire(tt / "#BILAN.txt", "");
    Ecrire(racine / "REPERTOIRE.txt", Lignes({"a", "b"}));
    return racine / "REPERTOIRE.txt";
}

// One case of six occurrences and one of one.
fs::path CorpusLong(const fs::path& racine) {
    const fs::path tt = racine / "OLBRIN_TT";
    fs::create_directories(tt / "AVANT_AUTOMATE_SIMPLES");
    std::string t = "<M f=Ils l=il_P >Ils ";
    for (int i = 0; i < 3; ++i) t += kMange + "mange ";
    t += "<BR>\r\n";
    for (int i = 0; i < 3; ++i) t += kMange + "mange ";
    t += kPorte + "porte";
    Ecrire(tt / "c.txt", t);
    Ecrire(tt / "#INDEX_ms.txt", Lignes({kMange + "\t1\t2-3-4-5-6-7", kPorte + "\t2\t8"}));
    Ecrire(tt / "#INDEX_LEMMES.txt", Lignes({"manger_V\t1\t" + kMange, "porte_SF\t1\t" + kPorte}));
    Ecrire(tt / "#F_ETAT.txt", Lignes({"0", "0"}));
    Ecrire(tt / "#BILAN.txt", "");
    Ecrire(racine / "REPERTOIRE.txt", Lignes({"c"}));
    return racine / "REPERTOIRE.txt";
}

// Two copies of a corpus, one for the terminal, one for the window.
struct Paire {
    DossierTemporaire d;
    fs::path cli = d.Chemin() / "cli", gui = d.Chemin() / "gui";
    Paire(fs::path (*corpus)(const fs::path&)) {
        corpus(cli);
        corpus(gui);
    }
    void Terminal(std::vector<std::string> reponses, const char* operation = "smn_lev") {
        std::vector<std::string> args = {operation, "--ressources", RessourcesTest().string(), "--horloge", kHorlogeCli,
                                         "-r", (cli / "REPERTOIRE.txt").string()};
        for (auto& r : reponses) {
            args.push_back("-r");
            args.push_back(r);
        }
        const auto e = Lancer(args);
        ASSERT_EQ(e.statut, 0) << e.erreurs;
    }
};

// Opens the review from its menu and returns its window.
FenetreLevee* Ouvrir(Banc& b, const fs::path& liste, const char* id = "smn_lev") {
    b.app.Montrer("Form2");
    b.pilote.Ajouter(Fichier(liste));
    b.Choisir("Form2", id);
    return b.Zone("Form2").Vue<FenetreLevee>("levee");
}

QPushButton* Bouton(FenetreLevee* f, const char* nom) { return f->findChild<QPushButton*>(nom); }

void Clic(QPushButton* b) {
    ASSERT_NE(b, nullptr);
    ASSERT_TRUE(b->isVisible());
    QTest::mouseClick(b, Qt::LeftButton);
}

// A click with the mouse on a cell of the occurrence table.
void ClicCase(FenetreLevee* f, int rang, int colonne, Qt::MouseButton bouton = Qt::LeftButton,
              Qt::KeyboardModifiers mod = Qt::NoModifier) {
    QTableView* t = f->Table();
    t->scrollTo(f->Modele()->index(rang, colonne));
    const QRect r = t->visualRect(f->Modele()->index(rang, colonne));
    ASSERT_TRUE(r.isValid());
    QTest::mouseClick(t->viewport(), bouton, mod, r.center());
}

std::vector<int> Coches(FenetreLevee* f) {
    std::vector<int> r;
    for (std::size_t i = 0; i < f->Session().NbOccurrences(); ++i) r.push_back(f->Session().Occurrence(i).coche);
    return r;
}

TEST(LeveeFenetre, MemesDecisionsMemesFichiersQuAuTerminal) {
    Paire p(&CorpusTrois);
    // Way of working in order; case 1: reading 3; case 2: sorted on the right, then 2 and 1; on
    // case 3 the session is stopped and saved.
    p.Terminal({"O", "3", "T", "21", "I", "O"});

    Banc b;
    b.app.Montrer("Form2");
    FenetreLevee* f = Ouvrir(b, p.gui / "REPERTOIRE.txt");
    ASSERT_NE(f, nullptr);
    EXPECT_EQ(f->Session().Etiquette(), EtiquetteSession::levcon_simp);
    Clic(f->findChild<QPushButton*>("AF3VAL"));
    ASSERT_TRUE(f->Table()->isVisible());
    EXPECT_EQ(f->findChild<QLabel*>("ligne_cas")->text(), QString::fromUtf8("CAS n°1 sur 3 : ferme : 1 occurrence(s)."));
    EXPECT_EQ(Bouton(f, "B_CX")->text(), "PROCHAIN CAS");
    // The reading labels head the tick columns.
    EXPECT_EQ(f->Modele()->headerData(2, Qt::Horizontal, Qt::DisplayRole).toString(), "l=fermer_V\n x=1a");
    EXPECT_EQ(f->Modele()->data(f->Modele()->index(0, f->Modele()->ColonneGauche()), Qt::DisplayRole).toString().size(), 64);
    ClicCase(f, 0, 2);
    EXPECT_EQ(Coches(f), std::vector<int>{3});
    Clic(Bouton(f, "B_CX"));
    EXPECT_EQ(Bouton(f, "B_CX")->text(), "CAS SUIVANT");
    EXPECT_EQ(f->Session().NbOccurrences(), 2u);
    Clic(Bouton(f, "B_TRB"));
    EXPECT_EQ(Bouton(f, "B_TRB")->text(), "TRI GAUCHE");
    // The keyboard: 2 on the first row, then 1 on the next.
    f->Table()->setFocus();
    f->Table()->setCurrentIndex(f->Modele()->index(0, 0));
    QTest::keyClick(f->Table(), Qt::Key_2);
    QTest::keyClick(f->Table(), Qt::Key_1);
    EXPECT_EQ(Coches(f), (std::vector<int>{2, 1}));
    Clic(Bouton(f, "B_CX"));
    // Stop: "o" is not "O".
    b.pilote.Ajouter(Texte("o"));
    Clic(Bouton(f, "B_CONC"));
    EXPECT_EQ(b.fin, -1);
    b.pilote.Ajouter(Texte("O"));
    Clic(Bouton(f, "B_CONC"));
    EXPECT_EQ(b.fin, 0);
    EXPECT_TRUE(b.pilote.imprevus.isEmpty()) << b.pilote.imprevus.join("/").toStdString();
    EXPECT_EQ(b.pilote.questions.last(),
              QString::fromUtf8("INTERROMPRE ?|Voulez-vous vraiment (O/N) interrompre cette session après avoir "
                                "sauvegardé vos données ?|O"));
    EXPECT_EQ(Arbre(p.gui), Arbre(p.cli));
    EXPECT_EQ(Lire(p.gui / "OLBRIN_TT" / "#F_ETAT.txt"), Lignes({"1", "1", "0"}));
}

TEST(LeveeFenetre, ColonnePlageMarqueeRevisionEtFin) {
    Paire p(&CorpusLong);
    p.Terminal({"O", "C2", "2-4:3", "1-1:1", "4-6:3", "V", "R", "*", "T", "12", "1"});

    Banc b;
    FenetreLevee* f = Ouvrir(b, p.gui / "REPERTOIRE.txt");
    ASSERT_NE(f, nullptr);
    Clic(f->findChild<QPushButton*>("AF3VAL"));
    ASSERT_EQ(f->Session().NbOccurrences(), 6u);
    // The label of reading 2: the whole column.
    QHeaderView* h = f->Table()->horizontalHeader();
    QTest::mouseClick(h->viewport(), Qt::LeftButton, {}, QPoint(h->sectionViewportPosition(1) + 5, h->height() / 2));
    EXPECT_EQ(Coches(f), (std::vector<int>{2, 2, 2, 2, 2, 2}));
    // A right click marks row 2, a second one on reading 3 of row 4 ticks rows 2 to 4.
    ClicCase(f, 1, 4, Qt::RightButton);
    EXPECT_EQ(f->Modele()->Marque(), 1);
    ClicCase(f, 3, 2, Qt::RightButton);
    EXPECT_EQ(f->Modele()->Marque(), -1);
    EXPECT_EQ(Coches(f), (std::vector<int>{2, 3, 3, 3, 2, 2}));
    ClicCase(f, 0, 0);
    // Shift-click: from the row clicked last.
    ClicCase(f, 3, 0);
    EXPECT_EQ(Coches(f), (std::vector<int>{1, 3, 3, 1, 2, 2}));
    ClicCase(f, 5, 2, Qt::LeftButton, Qt::ShiftModifier);
    EXPECT_EQ(Coches(f), (std::vector<int>{1, 3, 3, 3, 3, 3}));
    // A click on the ticked box clears it, a second one ticks it again.
    ClicCase(f, 5, 2);
    EXPECT_EQ(Coches(f)[5], 0);
    ClicCase(f, 5, 2);
    Clic(Bouton(f, "B_CX"));
    EXPECT_EQ(f->Session().FormeCas(), "porte");
    // REVISER: the box, then the button shows the case undone again.
    b.pilote.Ajouter(Texte("*"));
    Clic(Bouton(f, "B_CORR"));
    EXPECT_EQ(b.pilote.questions.last(), "POUR REVISER LE CAS PRECEDENT|Cliquez sur 'CAS PRECEDENT' ci-dessus|" +
                                             QString(70, QLatin1Char('*')));
    EXPECT_EQ(Bouton(f, "B_CX")->text(), "CAS PRECEDENT");
    Clic(Bouton(f, "B_CX"));
    EXPECT_EQ(f->Session().FormeCas(), "mange");
    EXPECT_EQ(Coches(f), (std::vector<int>{0, 0, 0, 0, 0, 0}));
    Clic(Bouton(f, "B_TRB"));
    f->Table()->setCurrentIndex(f->Modele()->index(0, 0));
    QTest::keyClick(f->Table(), Qt::Key_1);
    QTest::keyClick(f->Table(), Qt::Key_2);
    Clic(Bouton(f, "B_CX"));
    ClicCase(f, 0, 0);
    // The last case: the session saves, says so, and the program ends.
    Clic(Bouton(f, "B_CX"));
    EXPECT_EQ(b.pilote.messages.last(), QString::fromUtf8("Opération terminée"));
    EXPECT_EQ(b.fin, 0);
    EXPECT_TRUE(b.pilote.imprevus.isEmpty());
    EXPECT_EQ(Arbre(p.gui), Arbre(p.cli));
    EXPECT_EQ(Lire(p.gui / "OLBRIN_TT" / "#F_ETAT.txt"), Lignes({"1", "1"}));
}

// A drag with the right button: pressed on one row, released on another.
void GlisserDroit(FenetreLevee* f, int de, int colonneDe, int a, int colonneA) {
    QTableView* t = f->Table();
    const QRect r1 = t->visualRect(f->Modele()->index(de, colonneDe));
    const QRect r2 = t->visualRect(f->Modele()->index(a, colonneA));
    ASSERT_TRUE(r1.isValid() && r2.isValid());
    QTest::mousePress(t->viewport(), Qt::RightButton, {}, r1.center());
    QTest::mouseMove(t->viewport(), r2.center());
    QTest::mouseRelease(t->viewport(), Qt::RightButton, {}, r2.center());
}

TEST(LeveeFenetre, PlageParGlisserDuBoutonDroit) {
    Paire p(&CorpusLong);
    p.Terminal({"O", "2-5:3", "4-6:1", "V", "I", "O"});

    Banc b;
    FenetreLevee* f = Ouvrir(b, p.gui / "REPERTOIRE.txt");
    ASSERT_NE(f, nullptr);
    Clic(f->findChild<QPushButton*>("AF3VAL"));
    ASSERT_EQ(f->Session().NbOccurrences(), 6u);
    const int contexte = f->Modele()->ColonneGauche();
    // Downwards, released on reading 3: rows 2 to 5, whatever column the press was on.
    GlisserDroit(f, 1, contexte, 4, 2);
    EXPECT_EQ(Coches(f), (std::vector<int>{0, 3, 3, 3, 3, 0}));
    EXPECT_EQ(f->Modele()->Marque(), -1);
    // Upwards, released on reading 1.
    GlisserDroit(f, 5, 0, 3, 0);
    EXPECT_EQ(Coches(f), (std::vector<int>{0, 3, 3, 1, 1, 1}));
    // Released on a context column: no reading, nothing ticked, nothing left marked.
    GlisserDroit(f, 0, 0, 2, contexte);
    EXPECT_EQ(Coches(f), (std::vector<int>{0, 3, 3, 1, 1, 1}));
    EXPECT_EQ(f->Modele()->Marque(), -1);
    // Pressed and released on one row: the click that marks, as before.
    GlisserDroit(f, 2, 1, 2, 1);
    EXPECT_EQ(f->Modele()->Marque(), 2);
    GlisserDroit(f, 2, 1, 2, 1);
    EXPECT_EQ(f->Modele()->Marque(), -1);
    EXPECT_EQ(Coches(f), (std::vector<int>{0, 3, 2, 1, 1, 1}));
    ClicCase(f, 2, 2);
    EXPECT_EQ(Coches(f), (std::vector<int>{0, 3, 3, 1, 1, 1}));
    Clic(Bouton(f, "B_CX"));
    EXPECT_EQ(f->Session().FormeCas(), "porte");
    b.pilote.Ajouter(Texte("O"));
    Clic(Bouton(f, "B_CONC"));
    EXPECT_EQ(b.fin, 0);
    EXPECT_TRUE(b.pilote.imprevus.isEmpty()) << b.pilote.imprevus.join("/").toStdString();
    EXPECT_EQ(Arbre(p.gui), Arbre(p.cli));
}

TEST(LeveeFenetre, ParLemmesEtRetourALaFenetre) {
    Paire p(&CorpusTrois);
    // porte_SF only; its one case ticked on reading 2, and the queue is done.
    p.Terminal({"L", "2", "2"});
    Banc b;
    FenetreLevee* f = Ouvrir(b, p.gui / "REPERTOIRE.txt");
    ASSERT_NE(f, nullptr);
    for (QRadioButton* r : f->findChildren<QRadioButton*>())
        if (r->text().contains("lemmes")) r->click();
    Clic(f->findChild<QPushButton*>("AF3VAL"));
    auto* liste = f->findChild<QListWidget*>("lemmes");
    ASSERT_NE(liste, nullptr);
    ASSERT_EQ(liste->count(), 2);
    EXPECT_EQ(liste->item(0)->text(), "manger_V                 ");
    liste->item(1)->setCheckState(Qt::Checked);
    Clic(f->findChild<QPushButton*>("B_VAL1"));
    EXPECT_EQ(f->Session().FormeCas(), "porte");
    // Leaving Form2 for Form1 and coming back finds the review as it was.
    b.Zone("Form2").Action("smn_xpl")->trigger();
    b.Zone("Form1").Action("smn_dtg")->trigger();
    EXPECT_EQ(b.Zone("Form2").Vue<FenetreLevee>("levee"), f);
    EXPECT_EQ(f->Session().FormeCas(), "porte");
    // A second opening while one runs only brings it to the front.
    b.Zone("Form2").Action("smn_lev")->trigger();
    EXPECT_TRUE(b.pilote.messages.last().startsWith(QString::fromUtf8("Une session de levée est déjà ouverte")));
    EXPECT_TRUE(b.pilote.fichiers.size() == 1);
    ClicCase(f, 0, 1);
    Clic(Bouton(f, "B_CX"));
    EXPECT_EQ(b.fin, 0);
    EXPECT_EQ(Arbre(p.gui), Arbre(p.cli));
}

TEST(LeveeFenetre, FermerForm2PendantLesComposes) {
    Paire p([](const fs::path& racine) {
        const fs::path tt = racine / "OLBRIN_TT";
        Ecrire(racine / "REPERTOIRE.txt", Lignes({"t"}));
        Ecrire(tt / "t.txt", "<M f=la >la <MK f=pomme_de_terre z=3 ><M f=pomme >pomme <M f=de >de <M f=terre >terre "
                             "<MK z=2 f=au ><M f=a >a <M f=le >le");
        fs::create_directories(tt / "CONTROLE_COMPOSES");
        return racine / "REPERTOIRE.txt";
    });
    // Case 1 ticked as a compound, then the window closed and the save accepted.
    p.Terminal({"1", "I", "O"}, "smn_lca");
    Banc b;
    FenetreLevee* f = Ouvrir(b, p.gui / "REPERTOIRE.txt", "smn_lca");
    ASSERT_NE(f, nullptr);
    EXPECT_EQ(f->Session().Etiquette(), EtiquetteSession::levcon_comp);
    ClicCase(f, 0, 0);
    Clic(Bouton(f, "B_CX"));
    b.pilote.Ajouter(Texte("N"));
    EXPECT_FALSE(b.Zone("Form2").close());
    EXPECT_EQ(b.fin, -1);
    EXPECT_TRUE(b.Zone("Form2").isVisible());
    b.pilote.Ajouter(Texte("O"));
    EXPECT_TRUE(b.Zone("Form2").close());
    EXPECT_EQ(b.fin, 0);
    EXPECT_EQ(b.pilote.questions.size(), 2);
    EXPECT_EQ(b.pilote.questions[0],
              QString::fromUtf8("INTERROMPRE ?|Voulez-vous vraiment (O/N) interrompre cette session après avoir "
                                "sauvegardé vos données ?|O"));
    EXPECT_EQ(Arbre(p.gui), Arbre(p.cli));
}

}  // namespace
}  // namespace telvoris
