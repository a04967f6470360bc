// The identification session of unknown words in its window: the same decisions as at the
// terminal's prompts write the same files.
#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>

#include "core/texte.hpp"
#include "correction/arbre_correction.hpp"
#include "gui/identification_vue.hpp"
#include "outils.hpp"

namespace telvoris {
namespace {

using namespace test;
using gui::FenetreIdentification;

// A corpus whose survey listed twelve unknown words.
fs::path Corpus(const fs::path& corpus) {
    const fs::path m = corpus / "MANQUANTS";
    Ecrire(corpus / "liste.txt", Lignes({"t1"}));
    std::vector<std::string> items = {"chatt\t3", "zorglub-x\t2", "tamour\t2", "hello\t1"};
    for (int i = 5; i <= 12; ++i) items.push_back("mot" + std::to_string(i) + "\t1");
    Ecrire(m / "LISTE_FC.txt", Lignes(items));
    Ecrire(m / "ETAT_FC.txt", "0");
    Ecrire(m / "CONC_FC" / "1.txt", Lignes({"    le chatt dort", "    un chatt \xE9veill\xE9"}));
    Ecrire(m / "CORR_SUGGESTIONS.txt", Lignes({"tamour\tl'amour", "zorglub-x\tzorglub"}));
    return corpus / "liste.txt";
}

void Clic(QWidget* f, const char* nom) {
    auto* b = f->findChild<QPushButton*>(QLatin1String(nom));
    ASSERT_NE(b, nullptr) << nom;
    ASSERT_TRUE(b->isVisible() && b->isEnabled()) << nom;
    QTest::mouseClick(b, Qt::LeftButton);
}

void Taper(QWidget* f, const char* nom, const QString& texte) {
    auto* l = f->findChild<QLineEdit*>(QLatin1String(nom));
    ASSERT_NE(l, nullptr) << nom;
    ASSERT_TRUE(l->isVisible()) << nom;
    l->selectAll();
    QTest::keyClicks(l, texte);
}

void Categorie(QWidget* f, const QString& code) {
    auto* c = f->findChild<QComboBox*>("categorie");
    ASSERT_NE(c, nullptr);
    const int i = c->findData(code);
    ASSERT_GE(i, 0) << code.toStdString();
    c->setCurrentIndex(i);
}

void Flexion(QWidget* f, int rang) {
    auto* l = f->findChild<QListWidget*>("flexions");
    ASSERT_NE(l, nullptr);
    ASSERT_LT(rang, l->count());
    QTest::mouseClick(l->viewport(), Qt::LeftButton, {}, l->visualItemRect(l->item(rang)).center());
}

// Saves a picture of Form2 when TELVORIS_CAPTURES names a folder (scripts/captures_composes.sh).
void Capturer(Banc& b, const char* nom) {
    const QByteArray dossier = qgetenv("TELVORIS_CAPTURES");
    if (dossier.isEmpty()) return;
    gui::ZoneTravail& zone = b.Zone("Form2");
    zone.resize(1280, 800);
    QApplication::processEvents();
    ASSERT_TRUE(zone.grab().save(QString::fromLocal8Bit(dossier) + QLatin1Char('/') + QLatin1String(nom) +
                                 QStringLiteral(".png")));
}

TEST(IdentificationFenetre, MemesDecisionsMemesFichiersQuAuTerminal) {
    DossierTemporaire d;
    const fs::path cli = d.Chemin() / "cli", gui = d.Chemin() / "gui";
    Corpus(cli);
    const fs::path liste = Corpus(gui);

    DialogueScripte dlg;
    dlg.fichiers = {cli / "liste.txt"};
    dlg.reponses = {"FC",
                    "1", "2", "chat",                  // 1: word for word
                    "1", "3", "zorglub", "4", "x",      // 2: two pairs, then next
                    "C pomme de terre",                 // a candidate compound
                    "0", "amour", "sm", "1", "O",       // 3: general dictionary, noun class 1
                    "3", "0",                           // 4: English
                    "4", "5", "6",                      // 5, 6, 7
                    "R2", "4",                          // back to 6, decided again
                    "2", "parler", "V", "0", "O", "O",  // 8: particular, verb, inf+part
                    "4",                                // 9
                    "1", "A",                           // 10: correction cancelled
                    "Q", "O"};
    const fs::path res = d.Chemin() / "MORVENTA" / "morv_res";
    ConstruireArbreCorrection(res, {});
    HorlogeFixe h(kInstant);
    Contexte ctx{dlg, h, res};
    OperationIdentificationInconnus(ctx);

    Banc b(res);
    b.app.Montrer("Form2");
    b.pilote.Ajouter(Texte("FC"));
    b.pilote.Ajouter(Fichier(liste));
    b.Choisir("Form2", "smn_iic");
    auto* f = b.Zone("Form2").Vue<FenetreIdentification>("identification");
    ASSERT_NE(f, nullptr);
    EXPECT_EQ(f->findChild<QLabel*>("progression")->text(), QString::fromUtf8("1ème cas sur 12 à examiner"));
    EXPECT_EQ(f->findChild<QLabel*>("mot")->text(), "chatt");
    EXPECT_EQ(f->findChild<QLabel*>("C_LAB2")->text(), "3 occurrences.");
    EXPECT_EQ(f->findChild<QPlainTextEdit*>("concordance")->toPlainText(),
              QString::fromUtf8("    le chatt dort\n    un chatt éveillé\n"));
    EXPECT_EQ(f->findChild<QPushButton*>("choix4")->text(), "Rien : chatt");

    Clic(f, "choix1");
    Taper(f, "texte_correction", "chat");
    Clic(f, "corriger2");
    EXPECT_EQ(f->findChild<QLabel*>("mot")->text(), "zorglub-x");
    Clic(f, "choix1");
    // The suggestion of the store opens the field.
    EXPECT_EQ(f->findChild<QLineEdit*>("texte_correction")->text(), "zorglub");
    Clic(f, "corriger3");
    Taper(f, "texte_correction", "x");
    Clic(f, "corriger4");
    Taper(f, "candidat", "pomme de terre");
    Clic(f, "noter_compose");
    EXPECT_TRUE(f->findChild<QLineEdit*>("candidat")->text().isEmpty());
    Clic(f, "choix0");
    EXPECT_EQ(f->findChild<QLineEdit*>("forme")->text(), "tamour");
    Taper(f, "forme", "amour");
    Categorie(f, "SM");
    Flexion(f, 1);
    Capturer(b, "identification_entree");
    Clic(f, "ENREGISTRER");
    Clic(f, "choix3");
    auto* langues = f->findChild<QListWidget*>("langues");
    QTest::mouseClick(langues->viewport(), Qt::LeftButton, {}, langues->visualItemRect(langues->item(0)).center());
    Clic(f, "choix4");
    Clic(f, "choix5");
    Clic(f, "choix6");
    f->findChild<QSpinBox*>("retour")->setValue(2);
    Clic(f, "REVISER");
    EXPECT_EQ(f->findChild<QLabel*>("mot")->text(), "mot6");
    Clic(f, "choix4");
    Clic(f, "choix2");
    Taper(f, "forme", "parler");
    Categorie(f, "V");
    Flexion(f, 0);
    auto* inf = f->findChild<QCheckBox*>("infinitif_participe");
    ASSERT_TRUE(inf->isVisible());
    QTest::keyClick(inf, Qt::Key_Space);
    ASSERT_TRUE(inf->isChecked());
    Clic(f, "ENREGISTRER");
    Clic(f, "choix4");
    Clic(f, "choix1");
    Clic(f, "ANNULER_CORRECTION");
    // The stop: "N" keeps the session, "O" saves and closes it.
    b.pilote.Ajouter(Texte("N"));
    Clic(f, "C_LAB3");
    ASSERT_EQ(b.Zone("Form2").Vue<FenetreIdentification>("identification"), f);
    b.pilote.Ajouter(Texte("O"));
    Clic(f, "C_LAB3");
    EXPECT_EQ(b.pilote.messages.last(), QString::fromUtf8("Session terminée : décisions sauvegardées."));
    QApplication::processEvents();
    EXPECT_EQ(b.Zone("Form2").Vue<FenetreIdentification>("identification"), nullptr);
    EXPECT_TRUE(b.pilote.imprevus.isEmpty()) << b.pilote.imprevus.join("/").toStdString();

    EXPECT_EQ(Lire(gui / "MANQUANTS" / "ETAT_FC.txt"), "9");
    EXPECT_EQ(Lire(gui / "MANQUANTS_TRX.txt"),
              Lignes({"2\tchatt\tchat", "3\tzorglub-x\tzorglub", "3\tzorglub-x\tx", "0\tamour,SM\t1", "5\t02_hello",
                      "3\tmot5", "3\tmot6", "1\tmot7,N", "1\tparler,V_D\t0", "3\tmot9"}));
    EXPECT_EQ(Arbre(gui), Arbre(cli));
}

TEST(IdentificationFenetre, RienAExaminer) {
    DossierTemporaire d;
    const fs::path liste = Corpus(d.Chemin());
    Ecrire(d.Chemin() / "MANQUANTS" / "ETAT_FC.txt", "12");
    const fs::path res = d.Chemin() / "MORVENTA" / "morv_res";
    ConstruireArbreCorrection(res, {});
    Banc b(res);
    b.app.Montrer("Form2");
    b.pilote.Ajouter(Texte("FC"));
    b.pilote.Ajouter(Fichier(liste));
    b.Choisir("Form2", "smn_iic");
    EXPECT_EQ(b.Zone("Form2").Vue<FenetreIdentification>("identification"), nullptr);
    EXPECT_EQ(b.pilote.messages.last(), QString::fromUtf8("Aucun cas à examiner."));
    // A family without its list: the message names the file, the application goes on.
    b.pilote.Ajouter(Texte("NP"));
    b.pilote.Ajouter(Fichier(liste));
    b.Choisir("Form2", "smn_iic");
    EXPECT_TRUE(b.pilote.messages.last().contains("LISTE_NP.txt")) << b.pilote.messages.last().toStdString();
    EXPECT_EQ(b.fin, -1);
}

}  // namespace
}  // namespace telvoris
