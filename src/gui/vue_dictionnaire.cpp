// The dictionary tab: the form dictionaries (RTBDIC_F) and the lemma dictionaries (RTBDIC_L)
// side by side, each with its letter labels and its search box; a click adds the word to a
// list, a double click sends it to the query panel. Also the list items of the menu.
#include <QDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextBlock>
#include <QVBoxLayout>

#include "core/texte.hpp"
#include "gui/dialogue_qt.hpp"
#include "gui/exploration.hpp"
#include "gui/fenetres.hpp"

namespace telvoris::gui {

namespace {

class TexteDico : public QPlainTextEdit {
public:
    std::function<void(std::size_t place, bool double_)> clic;

protected:
    // The place in the library's text (lines end in CR LF) of a point.
    std::size_t Place(const QPoint& p) const {
        const QTextCursor c = cursorForPosition(p);
        return static_cast<std::size_t>(c.position() + c.blockNumber());
    }
    void mousePressEvent(QMouseEvent* ev) override {
        QPlainTextEdit::mousePressEvent(ev);
        if (clic && ev->button() == Qt::LeftButton) clic(Place(ev->position().toPoint()), false);
    }
    void mouseDoubleClickEvent(QMouseEvent* ev) override {
        QPlainTextEdit::mouseDoubleClickEvent(ev);
        if (clic && ev->button() == Qt::LeftButton) clic(Place(ev->position().toPoint()), true);
    }
};

class VueDicos : public QWidget {
public:
    explicit VueDicos(Exploration& e) : e_(e) {
        auto* l = new QHBoxLayout(this);
        for (int cote = 0; cote < 2; ++cote) {
            const bool lemmes = cote == 1;
            auto* colonne = new QVBoxLayout;
            colonne->addWidget(new QLabel(lemmes ? QStringLiteral("Lemmes") : QStringLiteral("Formes"), this));
            auto* rangee = new QHBoxLayout;
            rangee->setSpacing(1);
            for (int i = 0; i < NB_LABELS_DICO; ++i) {
                const QString texte = i == 0 ? QStringLiteral("FRQ") : i == 23 ? QStringLiteral("W") : QString(QChar('A' + i - 1));
                auto* b = new QPushButton(texte, this);
                b->setObjectName(QStringLiteral("DICLAB_%1_%2").arg(lemmes ? 'L' : 'F').arg(i));
                b->setCheckable(true);
                b->setMaximumWidth(i == 0 ? 40 : 24);
                b->setEnabled(e_.Dictionnaires()->Vue(lemmes).disponible[static_cast<std::size_t>(i)]);
                rangee->addWidget(b);
                labels_[cote][i] = b;
                connect(b, &QPushButton::clicked, this, [this, lemmes, i] {
                    e_.Commande([&] { e_.Dictionnaires()->Choisir(lemmes, i); });
                    Afficher(lemmes);
                });
            }
            colonne->addLayout(rangee);
            recherche_[cote] = new QLineEdit(this);
            recherche_[cote]->setObjectName(lemmes ? QStringLiteral("DICTX_L") : QStringLiteral("DICTX_F"));
            colonne->addWidget(recherche_[cote]);
            vues_[cote] = new TexteDico;
            vues_[cote]->setObjectName(lemmes ? QStringLiteral("RTBDIC_L") : QStringLiteral("RTBDIC_F"));
            vues_[cote]->setReadOnly(true);
            vues_[cote]->setTabStopDistance(60);
            colonne->addWidget(vues_[cote], 1);
            l->addLayout(colonne);
            connect(recherche_[cote], &QLineEdit::textChanged, this, [this, lemmes](const QString& t) { Chercher(lemmes, t); });
            vues_[cote]->clic = [this, lemmes](std::size_t place, bool double_) { Cliquer(lemmes, place, double_); };
            Afficher(lemmes);
        }
    }

private:
    void Afficher(bool lemmes) {
        const telvoris::VueDictionnaire& v = e_.Dictionnaires()->Vue(lemmes);
        const int cote = lemmes ? 1 : 0;
        for (int i = 0; i < NB_LABELS_DICO; ++i) labels_[cote][i]->setChecked(i == v.marque);
        vues_[cote]->setPlainText(VersQt(v.texte).replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
    }

    void Chercher(bool lemmes, const QString& t) {
        if (!e_.Dictionnaires()->Chercher(lemmes, DepuisQt(t))) return;
        const telvoris::VueDictionnaire& v = e_.Dictionnaires()->Vue(lemmes);
        QPlainTextEdit* vue = vues_[lemmes ? 1 : 0];
        // The hit at the top of the view: the line of the hit becomes the first one shown.
        const auto ligne = static_cast<int>(std::count(v.texte.begin(), v.texte.begin() + v.curseur, '\n'));
        QTextCursor c(vue->document()->findBlockByNumber(ligne));
        vue->moveCursor(QTextCursor::End);
        vue->setTextCursor(c);
        vue->ensureCursorVisible();
    }

    void Cliquer(bool lemmes, std::size_t place, bool double_) {
        e_.Commande([&] {
            if (!double_) {
                e_.Dictionnaires()->Cliquer(lemmes, place, e_.listes);
                emit e_.listesChangees();
                return;
            }
            const auto envoi = e_.Dictionnaires()->DoubleCliquer(lemmes, place, e_.listes);
            if (!envoi) return;
            emit e_.listesChangees();
            // The query runs on the next " ---VALIDER---".
            if (envoi->lemme) e_.panneau.lemme = envoi->mot, e_.panneau.option = 2;
            else e_.panneau.simple = envoi->mot, e_.panneau.option = 0;
            e_.Montrer(VUE_REQUETE);
            emit e_.panneauChange();
        });
    }

    Exploration& e_;
    QPushButton* labels_[2][NB_LABELS_DICO];
    QLineEdit* recherche_[2];
    TexteDico* vues_[2];
};

// Frame21: a list shown for editing, stored back by " VALIDER " (Label12).
void EditerListe(ContexteVue& c, int index) {
    Exploration& e = Exploration::De(c.zone);
    auto* d = new QDialog(&c.zone);
    d->setAttribute(Qt::WA_DeleteOnClose);
    d->setObjectName(QStringLiteral("Frame21"));
    d->setWindowTitle(index == 0 ? QStringLiteral("Liste de formes") : QStringLiteral("Liste de lemmes"));
    auto* l = new QVBoxLayout(d);
    auto* texte = new QPlainTextEdit(d);
    texte->setObjectName(QStringLiteral("Text8"));
    texte->setPlainText(VersQt(ListeEditee(e.listes, index)).replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
    l->addWidget(texte);
    auto* valider = new QPushButton(VersQt(LEGENDE_VALIDER_LISTE), d);
    valider->setObjectName(QStringLiteral("Label12_%1").arg(index));
    l->addWidget(valider);
    QObject::connect(valider, &QPushButton::clicked, d, [&e, d, texte, index] {
        std::string s;
        for (const char ch : DepuisQt(texte->toPlainText())) s += ch == '\n' ? std::string("\r\n") : std::string(1, ch);
        if (!s.empty() && !s.ends_with("\r\n")) s += "\r\n";
        ListeEditee(e.listes, index) = s;
        emit e.listesChangees();
        d->accept();
    });
    d->open();
}

const bool inscrits[] = {
    EnregistrerVue("Form1.smn_dc", [](ContexteVue& c) { Exploration::De(c.zone).Montrer(VUE_DICO); }),
    EnregistrerVue("Form1.smn_lfed", [](ContexteVue& c) { EditerListe(c, 0); }),
    EnregistrerVue("Form1.smn_lled", [](ContexteVue& c) { EditerListe(c, 1); }),
    EnregistrerVue("Form1.smn_lfx",
                   [](ContexteVue& c) {
                       Exploration& e = Exploration::De(c.zone);
                       ViderListeFormes(e.listes);
                       emit e.listesChangees();
                   }),
    EnregistrerVue("Form1.smn_llx",
                   [](ContexteVue& c) {
                       Exploration& e = Exploration::De(c.zone);
                       ViderListeLemmes(e.listes);
                       emit e.listesChangees();
                   }),
};

}  // namespace

QWidget* CreerVueDictionnaire(Exploration& e) { return new VueDicos(e); }

}  // namespace telvoris::gui
