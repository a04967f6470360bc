// The concordance tab: CF_info, a page of 39 lines of 139 columns with the form at column 61 in
// bold colour, the scroll bar VSC3, the sort toggle TRB, the saving label, and the clicks that go
// to the text.
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextEdit>
#include <QVBoxLayout>

#include "core/fichiers.hpp"
#include "core/texte.hpp"
#include "explore/concordance.hpp"
#include "gui/dialogue_qt.hpp"
#include "gui/exploration.hpp"
#include "gui/fenetres.hpp"

namespace telvoris::gui {

namespace {

inline constexpr long long COULEUR_FORME = 255;
inline constexpr int LARGEUR_LIGNE = 139;

class TexteConcordance : public QTextEdit {
public:
    std::function<void(int ligne, Qt::MouseButton)> clic;

protected:
    void mousePressEvent(QMouseEvent* ev) override {
        QTextEdit::mousePressEvent(ev);
        const int ligne = cursorForPosition(ev->position().toPoint()).blockNumber();
        if (clic) clic(ligne, ev->button());
    }
};

class VueConcordance : public QWidget {
public:
    explicit VueConcordance(Exploration& e) : e_(e) {
        auto* l = new QVBoxLayout(this);
        info_ = new QLabel(this);
        info_->setObjectName(QStringLiteral("CF_info"));
        info_->setTextInteractionFlags(Qt::TextSelectableByMouse);
        l->addWidget(info_);
        auto* h = new QHBoxLayout;
        texte_ = new TexteConcordance;
        texte_->setObjectName(QStringLiteral("CFA_conc"));
        texte_->setReadOnly(true);
        texte_->setLineWrapMode(QTextEdit::NoWrap);
        QFont police(QStringLiteral("Courier New"));
        police.setStyleHint(QFont::Monospace);
        police.setFixedPitch(true);
        texte_->setFont(police);
        texte_->setMinimumWidth(QFontMetrics(police).horizontalAdvance(QString(LARGEUR_LIGNE + 2, QLatin1Char('m'))) / 2);
        defilement_ = new QScrollBar(Qt::Vertical, this);
        defilement_->setObjectName(QStringLiteral("VSC3"));
        h->addWidget(texte_);
        h->addWidget(defilement_);
        l->addLayout(h, 1);
        l->addWidget(new QLabel(VersQt("Cliquer sur une ligne, bouton gauche pour voir le contexte étendu, bouton droit pour "
                                       "aller au plein texte."_cp),
                                this));
        contexte_ = new QLabel(this);
        contexte_->setObjectName(QStringLiteral("contexte_etendu"));
        contexte_->setWordWrap(true);
        contexte_->setTextInteractionFlags(Qt::TextSelectableByMouse);
        l->addWidget(contexte_);
        auto* boutons = new QHBoxLayout;
        tri_ = new QPushButton(this);
        tri_->setObjectName(QStringLiteral("TRB"));
        sauver_ = new QPushButton(QStringLiteral("  SAUVEGARDER LA CONCORDANCE"), this);
        sauver_->setObjectName(QStringLiteral("CFA_LB1"));
        sauver_->setFlat(true);
        boutons->addWidget(tri_);
        boutons->addWidget(sauver_);
        boutons->addStretch();
        l->addLayout(boutons);

        connect(defilement_, &QScrollBar::valueChanged, this, [this](int v) { Page(v); });
        connect(tri_, &QPushButton::clicked, this, [this] {
            triGauche_ = !triGauche_;
            Rafraichir(false);
        });
        connect(sauver_, &QPushButton::clicked, this, [this] {
            e_.Commande([this] {
                const Requete* r = e_.DerniereRequete();
                if (!r || !r->contextes || r->occ.empty()) return;
                const auto f = SauverConcordance(e_.Etat(), *r, triGauche_, e_.Zone().App().HorlogeCourante());
                e_.Zone().Dialogue().Afficher(Joindre("Concordance sauvegardée : "_cp, TexteChemin(f)));
            });
        });
        texte_->clic = [this](int ligne, Qt::MouseButton b) { Cliquer(ligne, b); };
        connect(&e_, &Exploration::requeteFaite, this, [this] {
            triGauche_ = false;
            Rafraichir(true);
        });
        Rafraichir(true);
    }

private:
    void Rafraichir(bool nouvelle) {
        const Requete* r = e_.DerniereRequete();
        // TRB names the other order.
        tri_->setText(triGauche_ ? QStringLiteral("TRI A DROITE") : QStringLiteral("TRI A GAUCHE"));
        if (nouvelle) contexte_->clear();
        lignes_.clear();
        if (!r || !r->contextes) {
            info_->setText(r ? VersQt(TexteInfoRequete(*r)) : QString());
            texte_->clear();
            defilement_->setRange(1, 1);
            return;
        }
        info_->setText(VersQt(Joindre(TexteInfoRequete(*r), "STATISTIQUES pour la requête : "_cp, r->LIBELLE)));
        lignes_ = LignesConcordance(*r, triGauche_);
        const int n = static_cast<int>(lignes_.size());
        defilement_->blockSignals(true);
        defilement_->setRange(1, std::max(1, n - static_cast<int>(PAGE_CONC) + 1));
        defilement_->setPageStep(static_cast<int>(PAGE_CONC));
        defilement_->setValue(1);
        defilement_->blockSignals(false);
        Page(1);
    }

    // The page that begins at rank `rang`, each form marked from column 61 for its length.
    void Page(int rang) {
        const Requete* r = e_.DerniereRequete();
        if (!r || !r->contextes) return;
        rang_ = rang;
        texte_->setPlainText(VersQt(PageConcordance(*r, triGauche_, static_cast<std::size_t>(rang))));
        const auto& ordre = triGauche_ ? r->ORDRE_GAUCHE : r->ORDRE_DROIT;
        QTextCharFormat marque;
        marque.setFontWeight(QFont::Bold);
        marque.setForeground(QColor::fromRgb(CouleurRgb(COULEUR_FORME)));
        QTextDocument* doc = texte_->document();
        for (int n = 0; n < doc->blockCount(); ++n) {
            const std::size_t rangLigne = static_cast<std::size_t>(rang + n);
            if (rangLigne > ordre.size()) break;
            const Occurrence& o = r->occ[ordre[rangLigne - 1]];
            QTextCursor c(doc->findBlockByNumber(n));
            c.movePosition(QTextCursor::Right, QTextCursor::MoveAnchor, static_cast<int>(LARGEUR_GAUCHE));
            c.movePosition(QTextCursor::Right, QTextCursor::KeepAnchor,
                           static_cast<int>(std::min<long long>(o.longueur, LARGEUR_DROITE)));
            c.mergeCharFormat(marque);
        }
    }

    void Cliquer(int ligne, Qt::MouseButton bouton) {
        const Requete* r = e_.DerniereRequete();
        if (!r || !r->contextes || e_.Zone().App().Occupee()) return;
        const auto& ordre = triGauche_ ? r->ORDRE_GAUCHE : r->ORDRE_DROIT;
        const std::size_t rang = static_cast<std::size_t>(rang_ + ligne);
        if (rang < 1 || rang > ordre.size()) return;
        const std::size_t i = ordre[rang - 1];
        e_.Commande([&] {
            Navigateur* nav = e_.Navigation();
            nav->AllerOccurrence(i);
            emit e_.navigationChangee();
            if (bouton == Qt::RightButton) {
                e_.Montrer(VUE_PLEIN_TEXTE);
                return;
            }
            // The extended context: the stretch of the partition around the occurrence.
            const Occurrence& o = r->occ[i];
            const std::string& t = nav->texte;
            const long long debut = std::max(0LL, o.k - 1 - 300);
            const std::string extrait = o.k >= 1 && static_cast<std::size_t>(debut) < t.size() ? t.substr(static_cast<std::size_t>(debut), 600 + static_cast<std::size_t>(o.longueur)) : std::string();
            contexte_->setText(VersQt(Joindre(nav->titre, "\n", extrait)).replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
        });
    }

    Exploration& e_;
    QLabel *info_, *contexte_;
    TexteConcordance* texte_;
    QScrollBar* defilement_;
    QPushButton *tri_, *sauver_;
    bool triGauche_ = false;
    int rang_ = 1;
    std::vector<std::string> lignes_;
};

}  // namespace

QWidget* CreerVueConcordance(Exploration& e) { return new VueConcordance(e); }

}  // namespace telvoris::gui
