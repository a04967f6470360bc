// The validation session of candidate compounds in its window: the same decisions as at the
// terminal's prompts write the same three work files, through a stop and a resumption.
#include <gtest/gtest.h>

#include <QApplication>
#include <QButtonGroup>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QTest>

#include "core/fichiers.hpp"
#include "core/texte.hpp"
#include "gui/composes_vue.hpp"
#include "outils.hpp"

namespace telvoris {
namespace {

using namespace test;
using gui::FenetreComposes;

// Twelve candidates, the frequency behind a tab as a count list gives it; accented ones in CP1252.
fs::path Liste(const fs::path& dossier) {
    std::vector<std::string> l = {"pomme de terre\t40", "coup de foudre\t31", "pomme cuite\t30",
                                  "hors d'\x9Cuvre\t22",  "bel et bien\t20",     "chemin de fer\t18",
                                  "tout \xE0 fait\t17",   "au fur et \xE0 mesure\t15", "il y a\t14",
                                  "t\xEAte \xE0 t\xEAte\t12", "vite fait\t11",   "faire part\t10"};
    Ecrire(dossier / "candidats.txt", Lignes(l));
    return dossier / "candidats.txt";
}

fs::path CopieArbre(const fs::path& cible) {
    fs::create_directories(cible);
    fs::copy(RessourcesTest(), cible, fs::copy_options::recursive);
    return cible;
}

FenetreComposes* Ouvrir(Banc& b, const fs::path& liste, std::optional<QString> reprendre = {}) {
    b.app.Montrer("Form2");
    b.pilote.Ajouter(Fichier(liste));
    if (reprendre) b.pilote.Ajouter(Texte(*reprendre));
    b.Choisir("Form2", "smn_mcid");
    return b.Zone("Form2").Vue<FenetreComposes>("ONGLET_COMP");
}

void ClicOption(FenetreComposes* f, int option) {
    auto* l = f->findChild<QListWidget*>("ONGLET_COMP_LB");
    ASSERT_NE(l, nullptr);
    ASSERT_TRUE(l->isEnabled());
    QTest::mouseClick(l->viewport(), Qt::LeftButton, {}, l->visualItemRect(l->item(option)).center());
}

void Bouton(FenetreComposes* f, const char* nom) {
    auto* b = f->findChild<QPushButton*>(nom);
    ASSERT_NE(b, nullptr);
    ASSERT_TRUE(b->isVisible() && b->isEnabled()) << nom;
    QTest::mouseClick(b, Qt::LeftButton);
}

// Types the forms, one a line, picks the category whose label starts with `categorie`, VALIDER.
void Flexion(FenetreComposes* f, const QString& formes, const QString& categorie) {
    auto* t = f->findChild<QPlainTextEdit*>("ONGLET_COMP_RTB");
    ASSERT_NE(t, nullptr);
    t->setFocus();
    t->clear();
    const QStringList lignes = formes.split(QLatin1Char('\n'));
    for (int i = 0; i < lignes.size(); ++i) {
        if (i > 0) QTest::keyClick(t, Qt::Key_Return);
        QTest::keyClicks(t, lignes[i]);
    }
    if (!categorie.isEmpty())
        for (QRadioButton* r : f->findChildren<QRadioButton*>())
            if (r->text().startsWith(categorie + QLatin1Char(' '))) QTest::mouseClick(r, Qt::LeftButton);
    Bouton(f, "ONGLET_COMP_VAL");
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

QString Etat(FenetreComposes* f) { return f->findChild<QLabel*>("etat")->text(); }
QString Candidat(FenetreComposes* f) { return f->findChild<QLabel*>("candidat")->text(); }

TEST(ComposesFenetre, MemesDecisionsMemesFichiersQuAuTerminalAvecArretEtReprise) {
    DossierTemporaire d;
    const fs::path liste = Liste(d.Chemin());
    const fs::path cli = CopieArbre(d.Chemin() / "cli"), gui = CopieArbre(d.Chemin() / "gui");

    // The terminal: nine cases, a category typed, a wrong VALIDER, a refusal just before the
    // confirmation at rank 10, one more case, then the stop.
    HorlogeFixe h(kInstant);
    DialogueScripte dlg;
    dlg.fichiers = {liste};
    dlg.reponses = {"1", "2", "V", "SM", "pomme cuite ; pommes cuites", "8", "LOC:x", "V", "J",
                    "a ; b ; c ; d", "V", "X", "5", "6", "7", "9", "OUI", "3", "Q"};
    Contexte ctx{dlg, h, cli};
    OperationIdentificationComposes(ctx);

    Banc b(gui);
    FenetreComposes* f = Ouvrir(b, liste);
    ASSERT_NE(f, nullptr);
    EXPECT_TRUE(b.pilote.fichiers.last().startsWith("Localiser la liste|")) << b.pilote.fichiers.last().toStdString();
    EXPECT_EQ(Etat(f), QString::fromUtf8("cas n°1 sur 12"));
    EXPECT_EQ(Candidat(f), "pomme de terre");
    EXPECT_EQ(f->Table()->model()->rowCount(), 12);
    EXPECT_EQ(f->Table()->model()->index(3, 1).data().toString(), QString::fromUtf8("hors d'œuvre"));
    ClicOption(f, 0);
    ClicOption(f, 1);
    Flexion(f, "pomme cuite\n  pommes cuites \n\n", "SM");
    EXPECT_TRUE(f->findChild<QPlainTextEdit*>("ONGLET_COMP_RTB")->toPlainText().isEmpty());
    b.pilote.Ajouter(Texte("LOC:x"));
    ClicOption(f, OPTION_DIVERS);
    EXPECT_EQ(b.pilote.questions.last(), QString::fromUtf8("DIVERS|Catégorie ?|"));
    EXPECT_EQ(Candidat(f), "bel et bien");
    Flexion(f, "a\nb\nc\nd", "J");
    // No category: the message, and the case stays.
    Flexion(f, "x", "");
    EXPECT_EQ(b.pilote.messages.last(), "Vous devez valider une option");
    EXPECT_EQ(Candidat(f), "chemin de fer");
    // What a person sees while typing the forms (the list then settles the case all the same).
    f->findChild<QPlainTextEdit*>("ONGLET_COMP_RTB")->setPlainText("chemin de fer\nchemins de fer");
    Capturer(b, "composes_cas");
    ClicOption(f, 4);
    ClicOption(f, 5);
    ClicOption(f, 6);
    ClicOption(f, OPTION_PASSER);
    // Rank 10: the buffer waits in the text box; the list is closed until it is confirmed.
    EXPECT_FALSE(f->findChild<QListWidget*>("ONGLET_COMP_LB")->isEnabled());
    EXPECT_EQ(f->findChild<QPlainTextEdit*>("ONGLET_COMP_RTB")->toPlainText(),
              QString::fromUtf8("pomme de terre,SF:s\t2\ncoup de foudre,SF:p\t2\npomme cuite,.SM:s\t2\n"
                                "pommes cuites,pomme cuite.SM:p\t2\nhors d'œuvre,LOC:x\t2\na,.J:ms\t2\nb,a.J:mp\t2\n"
                                "c,a.J:fs\t2\nd,a.J:fp\t2\nchemin de fer,N\t2\ntout à fait,A\t2\n"
                                "au fur et à mesure,M\t2\n"));
    Capturer(b, "composes_confirmation");
    b.pilote.Ajouter(Texte("OUI"));
    Bouton(f, "CONFIRMER");
    EXPECT_EQ(b.pilote.questions.last(),
              QString::fromUtf8("CONFIRMER|Corrigez éventuellement la saisie de 10 cas et confirmez par 'OUI'.|OUI"));
    EXPECT_EQ(Etat(f), QString::fromUtf8("cas n°10 sur 12"));
    ClicOption(f, 2);
    Bouton(f, "ARRETER");
    EXPECT_EQ(b.pilote.messages.last(),
              QString::fromUtf8("Session arrêtée au cas n°11 sur 12. Les cas non confirmés seront repris."));
    EXPECT_EQ(b.Zone("Form2").Vue<FenetreComposes>("ONGLET_COMP"), nullptr);
    EXPECT_TRUE(b.pilote.imprevus.isEmpty()) << b.pilote.imprevus.join("/").toStdString();
    EXPECT_EQ(Arbre(gui / "dico" / "comp"), Arbre(cli / "dico" / "comp"));
    EXPECT_EQ(Lire(gui / "dico" / "comp" / "ANTIDICO.txt"), "\r\nil y a");

    // Resumed at rank 11; a refused confirmation at the end brings back the cases from rank 3,
    // and the buffer keeps what it held.
    std::vector<std::string> suite = {"O", "V", "R", "vite fait", "4", "NON"};
    for (int r = 3; r <= 9; ++r) suite.push_back("3");
    suite.push_back("OUI");
    for (int r = 10; r <= 12; ++r) suite.push_back("2");
    suite.push_back("OUI");
    DialogueScripte dlg2;
    dlg2.fichiers = {liste};
    dlg2.reponses = {suite.begin(), suite.end()};
    Contexte ctx2{dlg2, h, cli};
    OperationIdentificationComposes(ctx2);
    ASSERT_EQ(dlg2.messages.back(), "Session terminée"_cp);

    f = Ouvrir(b, liste, QStringLiteral("O"));
    ASSERT_NE(f, nullptr);
    EXPECT_EQ(b.pilote.questions.last(),
              QString::fromUtf8("idcomp|Vous avez déjà un fichier d'ajouts. Voulez-vous reprendre ce fichier (O/N) ?|O"));
    EXPECT_EQ(Etat(f), QString::fromUtf8("cas n°11 sur 12"));
    Flexion(f, "vite fait", "R");
    ClicOption(f, 3);
    b.pilote.Ajouter(Texte("NON"));
    Bouton(f, "CONFIRMER");
    EXPECT_EQ(Etat(f), QString::fromUtf8("cas n°3 sur 12"));
    EXPECT_EQ(Candidat(f), "pomme cuite");
    for (int r = 3; r <= 9; ++r) ClicOption(f, 2);
    b.pilote.Ajouter(Texte("OUI"));
    Bouton(f, "CONFIRMER");
    for (int r = 10; r <= 12; ++r) ClicOption(f, 1);
    b.pilote.Ajouter(Texte("OUI"));
    Bouton(f, "CONFIRMER");
    EXPECT_EQ(b.pilote.messages.last(), QString::fromUtf8("Session terminée"));
    EXPECT_EQ(b.fin, 0);
    EXPECT_TRUE(b.pilote.imprevus.isEmpty()) << b.pilote.imprevus.join("/").toStdString();
    EXPECT_EQ(Arbre(gui / "dico" / "comp"), Arbre(cli / "dico" / "comp"));
    EXPECT_EQ(Lire(gui / "dico" / "comp" / "AJOUTS_ETAT.txt"), "13\r\n");
}

TEST(ComposesFenetre, TamponCorrigeAvantConfirmation) {
    DossierTemporaire d;
    Ecrire(d.Chemin() / "courte.txt", Lignes({"pomme de terre", "", "coup de foudre"}));
    const fs::path gui = CopieArbre(d.Chemin() / "gui");
    Banc b(gui);
    FenetreComposes* f = Ouvrir(b, d.Chemin() / "courte.txt");
    ASSERT_NE(f, nullptr);
    EXPECT_EQ(Etat(f), QString::fromUtf8("cas n°1 sur 2"));
    ClicOption(f, 0);
    ClicOption(f, 2);
    // Past the last case: the person corrects a line of the buffer, adds a category, confirms.
    auto* t = f->findChild<QPlainTextEdit*>("ONGLET_COMP_RTB");
    ASSERT_EQ(t->toPlainText(), "pomme de terre,SF:s\t2\ncoup de foudre,SM:s\t2\n");
    t->setPlainText(QString::fromUtf8("pomme de terre,SF:s\t2\ncoup de foudre,SM:s\t1\nbœuf mode,SM:s\t2\n"));
    b.pilote.Ajouter(Texte("OUI"));
    Bouton(f, "CONFIRMER");
    EXPECT_EQ(b.fin, 0);
    EXPECT_EQ(Lire(gui / "dico" / "comp" / "AJOUTS.txt"),
              Lignes({"pomme de terre,SF:s\t2", "coup de foudre,SM:s\t1", "b\x9C" "uf mode,SM:s\t2"}));
    EXPECT_EQ(Lire(gui / "dico" / "comp" / "AJOUTS_ETAT.txt"), "3\r\n");
    EXPECT_EQ(Lire(gui / "dico" / "comp" / "ANTIDICO.txt"), "");
}

TEST(ComposesFenetre, ListeAbsenteOuAnnulee) {
    DossierTemporaire d;
    const fs::path gui = CopieArbre(d.Chemin() / "gui");
    Banc b(gui);
    // Cancel in the file dialog: no window, no work file.
    b.app.Montrer("Form2");
    b.pilote.Ajouter(Fichier({}));
    b.Choisir("Form2", "smn_mcid");
    EXPECT_EQ(b.Zone("Form2").Vue<FenetreComposes>("ONGLET_COMP"), nullptr);
    EXPECT_FALSE(fs::exists(gui / "dico" / "comp" / "AJOUTS.txt"));
    // A resumption whose state file is damaged: the message names the file and the window stays
    // closed while the application goes on.
    Ecrire(d.Chemin() / "l.txt", Lignes({"a b", "c d"}));
    fs::create_directories(gui / "dico" / "comp");
    Ecrire(gui / "dico" / "comp" / "AJOUTS.txt", "");
    Ecrire(gui / "dico" / "comp" / "AJOUTS_ETAT.txt", "rien\r\n");
    EXPECT_EQ(Ouvrir(b, d.Chemin() / "l.txt", QStringLiteral("O")), nullptr);
    ASSERT_FALSE(b.pilote.messages.isEmpty());
    EXPECT_TRUE(b.pilote.messages.last().contains("AJOUTS_ETAT.txt")) << b.pilote.messages.last().toStdString();
    EXPECT_EQ(b.fin, -1);
}

}  // namespace
}  // namespace telvoris
