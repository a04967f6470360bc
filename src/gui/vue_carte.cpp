// The home map tab: the labels of a map file on a field 10000 units wide (a graphics scene, one
// item a label), the group labels, RAFRAICHIR, the zoom of the right button, and the clicks that
// send words to the lists.
#include <QGraphicsSceneMouseEvent>
#include <QGraphicsSimpleTextItem>
#include <QGraphicsView>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QScrollBar>
#include <QVBoxLayout>

#include "core/texte.hpp"
#include "gui/dialogue_qt.hpp"
#include "gui/exploration.hpp"
#include "gui/fenetres.hpp"

namespace telvoris::gui {

namespace {

// Map units (twips) to scene pixels.
inline constexpr double PIXELS_PAR_UNITE = 1.0 / 15.0;
inline constexpr long long COULEUR_LIGNES = 0x0000C0, COULEUR_COLONNES = 0xC00000;

class Etiquette : public QGraphicsSimpleTextItem {
public:
    Etiquette(const QString& t, long long i, std::function<void(long long)> clic) : QGraphicsSimpleTextItem(t), i_(i), clic_(std::move(clic)) {}

protected:
    void mousePressEvent(QGraphicsSceneMouseEvent* ev) override {
        if (ev->button() == Qt::LeftButton) clic_(i_);
        else ev->ignore();
    }

private:
    long long i_;
    std::function<void(long long)> clic_;
};

class Champ : public QGraphicsView {
public:
    std::function<void(QPointF)> droit;
    using QGraphicsView::QGraphicsView;

protected:
    void mousePressEvent(QMouseEvent* ev) override {
        if (ev->button() == Qt::RightButton && droit) {
            droit(mapToScene(ev->position().toPoint()) / PIXELS_PAR_UNITE);
            return;
        }
        QGraphicsView::mousePressEvent(ev);
    }
};

class VueCarte : public QWidget {
public:
    explicit VueCarte(Exploration& e) : e_(e) {
        auto* l = new QVBoxLayout(this);
        info_ = new QLabel(this);
        info_->setObjectName(QStringLiteral("AFC_LB_INFO"));
        l->addWidget(info_);
        auto* haut = new QHBoxLayout;
        lignes_ = new QPushButton(this);
        lignes_->setObjectName(QStringLiteral("AFC_LB_LI"));
        colonnes_ = new QPushButton(this);
        colonnes_->setObjectName(QStringLiteral("AFC_LB_COL"));
        auto* raf = new QPushButton(QStringLiteral("RAFRAICHIR"), this);
        raf->setObjectName(QStringLiteral("AFC_RAF"));
        zoom_ = new QScrollBar(Qt::Horizontal, this);
        zoom_->setObjectName(QStringLiteral("zoom"));
        zoom_->setRange(1, 10);
        zoom_->setValue(2);
        zoom_->setMaximumWidth(120);
        haut->addWidget(lignes_);
        haut->addWidget(colonnes_);
        haut->addWidget(raf);
        haut->addWidget(new QLabel(QStringLiteral("zoom"), this));
        haut->addWidget(zoom_);
        haut->addStretch();
        l->addLayout(haut);
        scene_ = new QGraphicsScene(this);
        champ_ = new Champ(scene_, this);
        champ_->setObjectName(QStringLiteral("AF_F1"));
        l->addWidget(champ_, 1);
        connect(lignes_, &QPushButton::clicked, this, [this] {
            e_.carte.BasculerGroupe(false);
            Placer();
        });
        connect(colonnes_, &QPushButton::clicked, this, [this] {
            e_.carte.BasculerGroupe(true);
            Placer();
        });
        connect(raf, &QPushButton::clicked, this, [this] {
            e_.carte.Rafraichir();
            Placer();
        });
        champ_->droit = [this](QPointF p) {
            e_.carte.Zoomer(p.x(), p.y(), zoom_->value());
            Placer();
        };
        connect(&e_, &Exploration::carteChangee, this, [this] { Construire(); });
        Construire();
    }

private:
    void Construire() {
        scene_->clear();
        etiquettes_.clear();
        const CarteAccueil& c = e_.carte;
        info_->setText(VersQt(c.info));
        for (long long i = 1; i <= c.NB_ITEMS(); ++i) {
            auto* it = new Etiquette(VersQt(c.items[static_cast<std::size_t>(i - 1)].texte), i, [this](long long n) {
                if (e_.carte.Cliquer(n, e_.listes)) emit e_.listesChangees();
            });
            it->setBrush(QColor::fromRgb(CouleurRgb(i <= c.NB_LIGNES ? COULEUR_LIGNES : COULEUR_COLONNES)));
            scene_->addItem(it);
            etiquettes_.push_back(it);
        }
        scene_->setSceneRect(0, -2000 * PIXELS_PAR_UNITE, LARGEUR_CARTE * PIXELS_PAR_UNITE, 12000 * PIXELS_PAR_UNITE);
        Placer();
    }

    void Placer() {
        const CarteAccueil& c = e_.carte;
        for (std::size_t i = 0; i < etiquettes_.size(); ++i) {
            const ItemCarte& it = c.items[i];
            etiquettes_[i]->setPos(it.Gauche() * PIXELS_PAR_UNITE, it.Haut() * PIXELS_PAR_UNITE);
            etiquettes_[i]->setVisible(it.visible);
        }
        lignes_->setText(VersQt(c.titreLignes.empty() ? std::string("lignes") : c.titreLignes));
        colonnes_->setText(VersQt(c.titreColonnes.empty() ? std::string("colonnes") : c.titreColonnes));
        lignes_->setStyleSheet(QStringLiteral("background-color: #%1").arg(CouleurRgb(c.CouleurFond(false, 0xFFC0C0)), 6, 16, QLatin1Char('0')));
        colonnes_->setStyleSheet(QStringLiteral("background-color: #%1").arg(CouleurRgb(c.CouleurFond(true, 0xC0C0FF)), 6, 16, QLatin1Char('0')));
    }

    Exploration& e_;
    QLabel* info_;
    QPushButton *lignes_, *colonnes_;
    QScrollBar* zoom_;
    QGraphicsScene* scene_;
    Champ* champ_;
    std::vector<Etiquette*> etiquettes_;
};

void Charger(ContexteVue& c) {
    Exploration& e = Exploration::De(c.zone);
    const auto f = c.zone.Dialogue().ChoisirFichier(TITRE_CHARGER_CARTE, FILTRE_CHARGER_CARTE);
    if (!f) return;  // the tab stays as it stands
    e.Commande([&] {
        // Label widths measured as the view draws them, in map units.
        const QFont police;
        const QFontMetrics m(police);
        e.carte.Charger(*f, [&](std::string_view t) {
            return static_cast<long long>(m.horizontalAdvance(VersQt(t)) / PIXELS_PAR_UNITE);
        });
        e.Montrer(VUE_AFC);
        emit e.carteChangee();
    });
}

const bool inscrits[] = {
    EnregistrerVue("Form1.smn_cg", [](ContexteVue& c) { Charger(c); }),
    EnregistrerVue("Form1.smn_chg", [](ContexteVue& c) { Charger(c); }),
    EnregistrerVue("Form1.smn_rfc",
                   [](ContexteVue& c) {
                       Exploration& e = Exploration::De(c.zone);
                       e.carte.Rafraichir();
                       e.Montrer(VUE_AFC);
                       emit e.carteChangee();
                   }),
};

}  // namespace

QWidget* CreerVueCarte(Exploration& e) { return new VueCarte(e); }

}  // namespace telvoris::gui
