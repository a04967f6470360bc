// The full-text tab: one partition in RTB_TX with the occurrences and the co-occurrences marked,
// the twelve AVANCE buttons in their three frames, the short-title combo, and the gathering of
// the words of a selection into the word lists.
#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QTextCursor>
#include <QTextEdit>
#include <QVBoxLayout>

#include "core/texte.hpp"
#include "gui/dialogue_qt.hpp"
#include "gui/exploration.hpp"
#include "gui/fenetres.hpp"

namespace telvoris::gui {

namespace {

class TextePartie : public QTextEdit {
public:
    std::function<void()> relache;

protected:
    void mouseReleaseEvent(QMouseEvent* ev) override {
        QTextEdit::mouseReleaseEvent(ev);
        if (relache && ev->button() == Qt::LeftButton) relache();
    }
};

class VuePleinTexte : public QWidget {
public:
    explicit VuePleinTexte(Exploration& e) : e_(e) {
        auto* l = new QVBoxLayout(this);
        auto* haut = new QHBoxLayout;
        titre_ = new QLabel(this);
        titre_->setObjectName(QStringLiteral("titre_partie"));
        titre_->setWordWrap(true);
        combo_ = new QComboBox(this);
        combo_->setObjectName(QStringLiteral("OPT_Combo1"));
        haut->addWidget(titre_, 1);
        haut->addWidget(combo_);
        l->addLayout(haut);
        texte_ = new TextePartie;
        texte_->setObjectName(QStringLiteral("RTB_TX"));
        texte_->setReadOnly(true);
        l->addWidget(texte_, 1);

        auto* bas = new QHBoxLayout;
        const char* cadres[] = {"sous-corpus", "occurrences", "co-occurrences"};
        const char* noms[] = {"OPT_F2", "OPT_F3", "OPT_F4"};
        // Each frame: first, previous, next, last; the AVANCE index of each.
        const int index[3][4] = {{3, 2, 0, 1}, {8, 7, 5, 6}, {12, 11, 9, 10}};
        const char* fleches[] = {"|<", "<", ">", ">|"};
        for (int f = 0; f < 3; ++f) {
            auto* cadre = new QGroupBox(QString::fromUtf8(cadres[f]), this);
            cadre->setObjectName(QLatin1String(noms[f]));
            auto* h = new QHBoxLayout(cadre);
            for (int b = 0; b < 4; ++b) {
                auto* bouton = new QPushButton(QLatin1String(fleches[b]), cadre);
                const int i = index[f][b];
                bouton->setObjectName(QStringLiteral("AVANCE_%1").arg(i));
                bouton->setMaximumWidth(40);
                h->addWidget(bouton);
                boutons_[i] = bouton;
                connect(bouton, &QPushButton::clicked, this, [this, i] {
                    e_.Commande([&] { e_.Navigation()->Avance(i); });
                    Afficher();
                });
            }
            legendes_[f] = new QLabel(cadre);
            legendes_[f]->setObjectName(QStringLiteral("OPT_T%1").arg(f + 1));
            h->addWidget(legendes_[f]);
            bas->addWidget(cadre);
        }
        l->addLayout(bas);

        for (const auto& t : e_.Etat().titresCourts) combo_->addItem(VersQt(t));
        connect(combo_, &QComboBox::activated, this, [this](int i) {
            const std::string t = DepuisQt(combo_->itemText(i));
            e_.Commande([&] { e_.Navigation()->ChoisirTitreCourt(t); });
            Afficher();
        });
        texte_->relache = [this] { Recueillir(); };
        connect(&e_, &Exploration::navigationChangee, this, [this] { Afficher(); });
        connect(&e_, &Exploration::requeteFaite, this, [this] {
            e_.Commande([&] { e_.Navigation()->Ouvrir(); });
            Afficher();
        });
        e_.Commande([&] { e_.Navigation()->Ouvrir(); });
        Afficher();
    }

    void Afficher() {
        const Navigateur& n = *e_.Navigation();
        texte_->setPlainText(VersQt(n.texte).replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
        // The document counts a CR LF as one paragraph break; the offsets count two characters.
        const std::vector<int> places = Places(n.texte);
        auto place = [&](long long k) {
            if (k < 0) return 0;
            const auto i = static_cast<std::size_t>(std::min<long long>(k, static_cast<long long>(places.size()) - 1));
            return places.empty() ? 0 : places[i];
        };
        QTextCharFormat occ;
        occ.setFontWeight(QFont::Bold);
        occ.setForeground(QColor::fromRgb(CouleurRgb(COULEUR_MARQUE)));
        QTextCharFormat cooc = occ;
        cooc.setFontUnderline(true);
        for (const Marque& m : n.marques) {
            QTextCursor c(texte_->document());
            c.setPosition(place(m.debut));
            c.setPosition(place(m.debut + m.longueur), QTextCursor::KeepAnchor);
            c.mergeCharFormat(m.souligne ? cooc : occ);
        }
        if (n.curseur >= 0) {
            QTextCursor c(texte_->document());
            c.setPosition(place(n.curseur));
            texte_->setTextCursor(c);
            texte_->ensureCursorVisible();
        }
        titre_->setText(VersQt(n.titre));
        if (n.PART_COURANTE >= 1 && n.PART_COURANTE <= e_.Etat().NB_PARTS)
            combo_->setCurrentText(VersQt(e_.Etat().TITRE_COURT[static_cast<std::size_t>(n.PART_COURANTE)]));
        window()->setWindowTitle(VersQt(n.titre.empty() ? std::string(TITRE_FORM1) : n.titre));
        legendes_[0]->setText(QString::number(n.PART_COURANTE));
        legendes_[1]->setText(VersQt(n.legendeOcc));
        legendes_[2]->setText(VersQt(n.legendeCooc));
        boutons_[2]->setEnabled(n.partPrecedente);
        boutons_[3]->setEnabled(n.partPrecedente);
        boutons_[0]->setEnabled(n.partSuivante);
        boutons_[1]->setEnabled(n.partSuivante);
        boutons_[7]->setEnabled(n.occPrecedente);
        boutons_[8]->setEnabled(n.occPrecedente);
        boutons_[5]->setEnabled(n.occSuivante);
        boutons_[6]->setEnabled(n.occSuivante);
        boutons_[11]->setEnabled(n.coocPrecedente);
        boutons_[12]->setEnabled(n.coocPrecedente);
        boutons_[9]->setEnabled(n.coocSuivante);
        boutons_[10]->setEnabled(n.coocSuivante);
    }

private:
    // For each byte offset of the partition's text, the document position.
    static std::vector<int> Places(const std::string& t) {
        std::vector<int> v(t.size() + 1);
        int pos = 0;
        for (std::size_t i = 0; i < t.size(); ++i) {
            v[i] = pos;
            if (t[i] == '\r' && i + 1 < t.size() && t[i + 1] == '\n') continue;
            ++pos;
        }
        v[t.size()] = pos;
        return v;
    }

    void Recueillir() {
        const QTextCursor c = texte_->textCursor();
        if (!c.hasSelection()) return;
        const Navigateur& n = *e_.Navigation();
        // Back from document positions to the offsets of the text.
        const std::vector<int> places = Places(n.texte);
        auto octet = [&](int p) {
            const auto it = std::lower_bound(places.begin(), places.end(), p);
            return static_cast<long long>(it - places.begin());
        };
        const long long debut = octet(c.selectionStart());
        const long long fin = octet(c.selectionEnd());
        e_.Commande([&] { e_.Navigation()->Recueillir(debut, fin - debut, e_.listes); });
        emit e_.listesChangees();
    }

    Exploration& e_;
    QLabel* titre_;
    QComboBox* combo_;
    TextePartie* texte_;
    QPushButton* boutons_[13] = {};
    QLabel* legendes_[3];
};

const bool inscrit = EnregistrerVue("Form1.sm_nav", [](ContexteVue& c) {
    Exploration& e = Exploration::De(c.zone);
    if (!e.Ouvert()) {
        e.Montrer(VUE_PLEIN_TEXTE);
        return;
    }
    if (auto* v = dynamic_cast<VuePleinTexte*>(e.Montrer(VUE_PLEIN_TEXTE))) {
        e.Navigation()->Ouvrir();
        v->Afficher();
    }
});

}  // namespace

QWidget* CreerVuePleinTexte(Exploration& e) { return new VuePleinTexte(e); }

}  // namespace telvoris::gui
