// A whole exploration on Form1, driven as a person would: open and validate with a contrast
// variable, query a lemma with concordance and distributions, click a concordance line to the
// full text, click a bar, build a form list from the dictionary tab and query it, load a map and
// pick words from it.
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QDialog>
#include <QGraphicsSimpleTextItem>
#include <QGraphicsView>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTextBlock>
#include <QTextEdit>

#include "core/liste_textes.hpp"
#include "core/texte.hpp"
#include "explore/indexation.hpp"
#include "gui/exploration.hpp"
#include "outils.hpp"
#include "pipeline/indexeur.hpp"
#include "pipeline/listes.hpp"
#include "pipeline/segmenteur.hpp"

namespace telvoris {
namespace {

using gui::VersQt;
using namespace test;

// Two texts of tagged lines, indexed by the segment indexer with the short frequent words of the
// test tree, then by the exploration index builder. Returns the list file.
fs::path CorpusEtiquete(const fs::path& racine) {
    Ecrire(racine / "OLBRIN_TT" / "a.txt",
           Lignes({"<QORX_ATTR JOURNAL=A DATE=2024-01-01 >",
                   "<M f=Le l=le_DA >Le <M f=chat l=chat_SM x=ms >chat <M f=dort l=dormir_V x=3a >dort<PC f=. l=PT >.",
                   "<QORX_ATTR JOURNAL=B DATE=2024-01-02 >",
                   "<M f=Un l=un_DI >Un <M f=chien l=chien_SM x=ms >chien <M f=voit l=voir_V x=3a >voit "
                   "<M f=le l=le_DA >le <M f=chat l=chat_SM x=ms >chat<PC f=. l=PT >."}));
    Ecrire(racine / "OLBRIN_TT" / "b.txt",
           Lignes({"<QORX_ATTR JOURNAL=A DATE=2024-02-01 >",
                   "<M f=Les l=le_DA x=p >Les <M f=chats l=chat_SM x=mp >chats <M f=dorment l=dormir_V x=6a >dorment"
                   "<PC f=. l=PT >."}));
    Ecrire(racine / "REPERTOIRE.txt", Lignes({"a", "b"}));
    DialogueScripte d;
    const auto liste = ChargerListeTextes(racine / "REPERTOIRE.txt");
    Indexer(liste, ChargerCourtsFrequents(RessourcesTest()), d);
    fs::create_directories(DossierIndex(liste));
    ConstruireIndex(liste, DossierIndex(liste), true, d);
    return racine / "REPERTOIRE.txt";
}

template <class T>
T* Trouver(QWidget* parent, const char* nom) {
    return parent->findChild<T*>(QLatin1String(nom));
}

// Saves a picture of the area when TELVORIS_CAPTURES names a folder.
void Capturer(QWidget& zone, const char* nom) {
    const QByteArray dossier = qgetenv("TELVORIS_CAPTURES");
    if (dossier.isEmpty()) return;
    if (zone.isWindow() && qobject_cast<gui::ZoneTravail*>(&zone)) zone.resize(1400, 900);
    QApplication::processEvents();
    zone.grab().save(QString::fromLocal8Bit(dossier) + QLatin1Char('/') + QLatin1String(nom) + QStringLiteral(".png"));
}

// &Ouvrir on the list, the date cut answered "1-7": the variables frame once shown, or null.
QDialog* CadreVariables(Banc& b, gui::ZoneTravail& zone, const fs::path& liste) {
    b.pilote.Ajouter(Fichier(liste));
    b.pilote.Ajouter(Texte(QStringLiteral("1-7")));
    b.Choisir("Form1", "smn_op");
    QDialog* dia = nullptr;
    return AttendreQue([&] { return (dia = Trouver<QDialog>(&zone, "NIVEAU_DIA")) && dia->isVisible(); }) ? dia
                                                                                                            : nullptr;
}

TEST(Exploration, ParcoursComplet) {
    DossierTemporaire d;
    const fs::path liste = CorpusEtiquete(d.Chemin());
    Banc b;
    gui::ZoneTravail& zone = b.Zone("Form1");
    zone.show();

    // &Ouvrir: the list, then the variables frame; titles from JOURNAL, contrast on DATE cut 1-7.
    QDialog* dia = CadreVariables(b, zone, liste);
    ASSERT_NE(dia, nullptr);
    EXPECT_EQ(b.pilote.fichiers.value(0).section(QLatin1Char('|'), 0, 0), QString::fromUtf8("Ouvrir le répertoire"));
    EXPECT_EQ(Trouver<QCheckBox>(dia, "PART_CRIT_CK2_1")->text(), QStringLiteral("DATE"));
    EXPECT_FALSE(Trouver<QCheckBox>(dia, "PART_CRIT_CK2_2")->isVisibleTo(dia));
    Capturer(*dia, "ouverture");
    Trouver<QCheckBox>(dia, "PART_CRIT_CK2_0")->setChecked(true);
    Trouver<QRadioButton>(dia, "PART_CRIT_OPT_1")->setChecked(true);
    QTest::mouseClick(Trouver<QPushButton>(dia, "NIVEAU_VAL_NEW"), Qt::LeftButton);
    gui::Exploration& e = gui::Exploration::De(zone);
    ASSERT_TRUE(AttendreQue([&] { return e.Ouvert(); }));
    EXPECT_TRUE(b.pilote.questions.value(0).contains(QStringLiteral("2024-01-01")));
    EXPECT_EQ(e.Etat().NB_PARTS, 3);
    EXPECT_EQ(e.Etat().NB_CLASSES, 2);  // 2024-01 and 2024-02
    EXPECT_EQ(e.Etat().TITRE_PART[2], "2. JOURNAL=B");

    // A lemma with the three results.
    QWidget* panneau = zone.Vue<QWidget>(QLatin1String(gui::VUE_REQUETE));
    ASSERT_NE(panneau, nullptr);
    Trouver<QRadioButton>(panneau, "CFP_OPTX_2")->setChecked(true);
    Trouver<QLineEdit>(panneau, "CFP_lemme")->setText(QStringLiteral("chat_SM"));
    for (const char* cb : {"CFP_CB_0", "CFP_CB_1", "CFP_CB_2"}) Trouver<QCheckBox>(panneau, cb)->setChecked(true);
    Capturer(zone, "requete");
    QTest::mouseClick(Trouver<QPushButton>(panneau, "CFP_valide"), Qt::LeftButton);
    ASSERT_TRUE(AttendreQue([&] { return !b.app.Occupee() && e.DerniereRequete(); }));
    ASSERT_EQ(e.DerniereRequete()->occ.size(), 3u);

    QWidget* conc = zone.Vue<QWidget>(QLatin1String(gui::VUE_CONCORDANCE));
    ASSERT_NE(conc, nullptr);
    EXPECT_EQ(zone.Onglets()->currentWidget(), conc);
    auto* texte = Trouver<QTextEdit>(conc, "CFA_conc");
    const QStringList lignes = texte->toPlainText().split(QLatin1Char('\n'));
    ASSERT_EQ(lignes.size(), 3);
    // 60 columns of left context and 77 from the form on (139 with the line end).
    for (const auto& l : lignes) EXPECT_EQ(l.size(), 137);
    // Sorted on the right: "chat .", "chat dort", "chats dorment"; the form bold from column 61.
    EXPECT_TRUE(lignes[0].mid(60).startsWith(QStringLiteral("chat . ")));
    EXPECT_TRUE(lignes[2].mid(60).startsWith(QStringLiteral("chats dorment")));
    QTextCursor c(texte->document()->findBlockByNumber(2));
    c.setPosition(c.position() + 62);
    EXPECT_EQ(c.charFormat().fontWeight(), QFont::Bold);
    c.setPosition(c.position() + 10);
    EXPECT_NE(c.charFormat().fontWeight(), QFont::Bold);
    EXPECT_TRUE(Trouver<QLabel>(conc, "CF_info")->text().contains(QStringLiteral("STATISTIQUES pour la requête : chat_SM")));
    Capturer(zone, "concordance");

    // Left button: the extended context below, and the tab stays.
    const QRect r0 = texte->cursorRect(QTextCursor(texte->document()->findBlockByNumber(1)));
    QTest::mouseClick(texte->viewport(), Qt::LeftButton, {}, r0.center() + QPoint(40, 0));
    EXPECT_EQ(zone.Onglets()->currentWidget(), conc);
    EXPECT_EQ(Trouver<QLabel>(conc, "contexte_etendu")->text(), QStringLiteral("1. JOURNAL=A\nLe chat dort.\n"));
    EXPECT_EQ(e.Navigation()->PART_COURANTE, 1);
    // Right button on the line of "chats dorment": the full text of partition 3.
    const QRect r = texte->cursorRect(QTextCursor(texte->document()->findBlockByNumber(2)));
    QTest::mouseClick(texte->viewport(), Qt::RightButton, {}, r.center() + QPoint(40, 0));
    QWidget* plein = zone.Vue<QWidget>(QLatin1String(gui::VUE_PLEIN_TEXTE));
    ASSERT_NE(plein, nullptr);
    EXPECT_EQ(zone.Onglets()->currentWidget(), plein);
    EXPECT_EQ(e.Navigation()->PART_COURANTE, 3);
    EXPECT_EQ(Trouver<QTextEdit>(plein, "RTB_TX")->toPlainText(), QStringLiteral("Les chats dorment.\n"));
    EXPECT_EQ(Trouver<QLabel>(plein, "OPT_T2")->text(), QString::fromUtf8("occurrence n° 3"));
    Capturer(zone, "plein_texte");
    QTest::mouseClick(Trouver<QPushButton>(plein, "AVANCE_3"), Qt::LeftButton);  // first partition
    EXPECT_EQ(e.Navigation()->PART_COURANTE, 1);
    QTest::mouseClick(Trouver<QPushButton>(plein, "AVANCE_5"), Qt::LeftButton);  // next occurrence
    EXPECT_EQ(e.Navigation()->PART_COURANTE, 2);
    EXPECT_FALSE(Trouver<QPushButton>(plein, "AVANCE_2")->isEnabled() && e.Navigation()->PART_COURANTE == 1);

    // The distributions: a left click on bar 2 of the partitions gives its numbers, a right
    // click goes to its text.
    b.Choisir("Form1", "smn_st");
    QWidget* stat = zone.Vue<QWidget>(QLatin1String(gui::VUE_STAT));
    ASSERT_NE(stat, nullptr);
    EXPECT_EQ(zone.Onglets()->currentWidget(), stat);
    QWidget* image = Trouver<QWidget>(stat, "Picture1");
    // Three partitions of 2000 units, a picture 6500 wide: bar 2 spans 2200 to 4160.
    const QPoint barre2(static_cast<int>(3000.0 / 6500 * image->width()), image->height() / 2);
    QTest::mouseClick(image, Qt::LeftButton, {}, barre2);
    EXPECT_TRUE(Trouver<QLabel>(stat, "Label3")->text().startsWith(QStringLiteral("2. JOURNAL=B : 1 occurrences. Ecart")));
    Capturer(zone, "distribution");
    QTest::mouseClick(image, Qt::RightButton, {}, barre2);
    EXPECT_EQ(zone.Onglets()->currentWidget(), plein);
    EXPECT_EQ(e.Navigation()->PART_COURANTE, 2);
    // The saving labels write the tables.
    b.Choisir("Form1", "smn_st");
    QTest::mouseClick(Trouver<QPushButton>(stat, "Label11_2"), Qt::LeftButton);
    EXPECT_TRUE(fs::exists(d.Chemin() / "REPERTOIRE_QORX_INDEX/SAUVEGARDES/DISTRIBUTIONS/chat_SM_A_261121_1000.txt"));
    EXPECT_TRUE(b.pilote.messages.last().startsWith(QString::fromUtf8("Distribution sauvegardée")));

    // The dictionary tab: letter C of the forms, a click on "chats", then smn_rq and VALIDER.
    b.Choisir("Form1", "smn_dc");
    QWidget* dico = zone.Vue<QWidget>(QLatin1String(gui::VUE_DICO));
    ASSERT_NE(dico, nullptr);
    EXPECT_FALSE(Trouver<QPushButton>(dico, "DICLAB_F_1")->isEnabled());
    QTest::mouseClick(Trouver<QPushButton>(dico, "DICLAB_F_3"), Qt::LeftButton);
    auto* formes = Trouver<QPlainTextEdit>(dico, "RTBDIC_F");
    EXPECT_EQ(formes->toPlainText(), QStringLiteral("2\tchat\n1\tchats\n1\tchien\n"));
    Capturer(zone, "dictionnaire");
    const QRect ligne2 = formes->cursorRect(QTextCursor(formes->document()->findBlockByNumber(1)));
    QTest::mouseClick(formes->viewport(), Qt::LeftButton, {}, ligne2.center());
    QTest::mouseClick(formes->viewport(), Qt::LeftButton, {}, ligne2.center() + QPoint(0, 0));
    EXPECT_EQ(e.listes.LISTE_FORMES, "chats\r\n");
    b.Choisir("Form1", "smn_rq");
    EXPECT_EQ(zone.Onglets()->currentWidget(), panneau);
    EXPECT_TRUE(Trouver<QRadioButton>(panneau, "CFP_OPTX_1")->isChecked());
    EXPECT_EQ(Trouver<QPlainTextEdit>(panneau, "CFP_multiple")->toPlainText(), QStringLiteral("chats\n"));
    QTest::mouseClick(Trouver<QPushButton>(panneau, "CFP_valide"), Qt::LeftButton);
    ASSERT_TRUE(AttendreQue([&] { return !b.app.Occupee(); }));
    EXPECT_EQ(e.DerniereRequete()->LIBELLE, "chats_LISTE");
    EXPECT_EQ(e.DerniereRequete()->occ.size(), 1u);

    // A map: two partitions and two words; a click on each word fills its list.
    const fs::path carte = d.Chemin() / "carte.txt";
    Ecrire(carte, Lignes({"**1\xA4" "61,2", "**2\xA4" "20", "1\t1000\t1000", "2\t8000\t1500", "chien\t3000\t2500",
                          "voir_V\t6000\t4000"}));
    b.pilote.Ajouter(Fichier(carte));
    b.Choisir("Form1", "smn_cg");
    QWidget* afc = zone.Vue<QWidget>(QLatin1String(gui::VUE_AFC));
    ASSERT_NE(afc, nullptr);
    EXPECT_EQ(Trouver<QLabel>(afc, "AFC_LB_INFO")->text(),
              QStringLiteral("Axe horizontal. Facteur 1. Inertie = 61,2%. --- Axe vertical. Facteur 2. Inertie = 20%."));
    EXPECT_EQ(Trouver<QPushButton>(afc, "AFC_LB_LI")->text(), QStringLiteral("2 lignes"));
    auto* vue = Trouver<QGraphicsView>(afc, "AF_F1");
    QApplication::processEvents();
    for (QGraphicsItem* it : vue->scene()->items()) {
        vue->ensureVisible(it);
        QTest::mouseClick(vue->viewport(), Qt::LeftButton, {}, vue->mapFromScene(it->sceneBoundingRect().center()));
    }
    EXPECT_EQ(e.listes.LISTE_FORMES, "chats\r\nchien\r\n");
    EXPECT_EQ(e.listes.LISTE_LEMMES, "voir_V\r\n");
    Capturer(zone, "carte");
    b.Choisir("Form1", "smn_llx");
    EXPECT_TRUE(e.listes.LISTE_LEMMES.empty());
    EXPECT_TRUE(b.pilote.imprevus.isEmpty()) << b.pilote.imprevus.join(QLatin1Char(',')).toStdString();
    EXPECT_EQ(b.fin, -1);
}

// A word counted without positions: its bars are drawn, and a right click on one shows the
// partition's count in the full text, where nothing can be marked.
TEST(Exploration, MotCompteSansPositions) {
    DossierTemporaire d;
    const fs::path liste = CorpusEtiquete(d.Chemin());
    Banc b;
    gui::ZoneTravail& zone = b.Zone("Form1");
    zone.show();
    QDialog* dia = CadreVariables(b, zone, liste);
    ASSERT_NE(dia, nullptr);
    Trouver<QCheckBox>(dia, "PART_CRIT_CK2_0")->setChecked(true);
    QTest::mouseClick(Trouver<QPushButton>(dia, "NIVEAU_VAL_NEW"), Qt::LeftButton);
    gui::Exploration& e = gui::Exploration::De(zone);
    ASSERT_TRUE(AttendreQue([&] { return e.Ouvert(); }));

    QWidget* panneau = zone.Vue<QWidget>(QLatin1String(gui::VUE_REQUETE));
    Trouver<QRadioButton>(panneau, "CFP_OPTX_2")->setChecked(true);
    Trouver<QLineEdit>(panneau, "CFP_lemme")->setText(QStringLiteral("le_DA"));
    for (const char* cb : {"CFP_CB_0", "CFP_CB_1", "CFP_CB_2"}) Trouver<QCheckBox>(panneau, cb)->setChecked(true);
    QTest::mouseClick(Trouver<QPushButton>(panneau, "CFP_valide"), Qt::LeftButton);
    ASSERT_TRUE(AttendreQue([&] { return !b.app.Occupee() && e.DerniereRequete(); }));
    EXPECT_EQ(e.DerniereRequete()->NB_OCC(), 3);
    EXPECT_TRUE(e.DerniereRequete()->occ.empty());
    EXPECT_TRUE(b.pilote.messages.last().contains(QStringLiteral("sont comptées et distribuées")));

    b.Choisir("Form1", "smn_st");
    QWidget* stat = zone.Vue<QWidget>(QLatin1String(gui::VUE_STAT));
    ASSERT_NE(stat, nullptr);
    QWidget* image = Trouver<QWidget>(stat, "Picture1");
    const QPoint barre3(static_cast<int>(5500.0 / 6500 * image->width()), image->height() / 2);
    QTest::mouseClick(image, Qt::LeftButton, {}, barre3);
    EXPECT_TRUE(Trouver<QLabel>(stat, "Label3")->text().startsWith(QStringLiteral("3. JOURNAL=A : 1 occurrences")));
    Capturer(zone, "distribution_sans_positions");
    QTest::mouseClick(image, Qt::RightButton, {}, barre3);
    QWidget* plein = zone.Vue<QWidget>(QLatin1String(gui::VUE_PLEIN_TEXTE));
    ASSERT_NE(plein, nullptr);
    EXPECT_EQ(zone.Onglets()->currentWidget(), plein);
    EXPECT_EQ(e.Navigation()->PART_COURANTE, 3);
    EXPECT_EQ(Trouver<QTextEdit>(plein, "RTB_TX")->toPlainText(), QStringLiteral("Les chats dorment.\n"));
    EXPECT_EQ(Trouver<QLabel>(plein, "OPT_T2")->text(), QString::fromUtf8("1 occurrence, position non indexée"));
    Capturer(zone, "plein_texte_sans_positions");
    EXPECT_TRUE(b.pilote.imprevus.isEmpty()) << b.pilote.imprevus.join(QLatin1Char(',')).toStdString();
}

}  // namespace
}  // namespace telvoris
