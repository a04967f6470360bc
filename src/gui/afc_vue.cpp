#include "gui/afc_vue.hpp"

#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>
#include <cmath>

#include "core/erreurs.hpp"
#include "gui/barre.hpp"
#include "gui/dialogue_qt.hpp"
#include "gui/fenetres.hpp"
#include "gui/texte_qt.hpp"
#include "stats/afc_lancement.hpp"

namespace telvoris::gui {

namespace {

// The picture's extent in twips: the bars end at 5,200, the texts run to the right of 3,000 and
// down to about 3,000.
constexpr int kLargeurTwips = 6600;
constexpr int kHauteurTwips = 3300;

int Px(long long twips) { return static_cast<int>(std::lround(static_cast<double>(twips) / TWIPS_PAR_PIXEL)); }

constexpr const char* kNomVue = "afc";

}  // namespace

GrapheAfc::GrapheAfc(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("CO1_O3_P1"));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

QSize GrapheAfc::sizeHint() const { return {Px(kLargeurTwips), Px(kHauteurTwips)}; }

void GrapheAfc::Regler(const GrapheInertie& graphe) {
    graphe_ = graphe;
    update();
}

void GrapheAfc::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.fillRect(rect(), Qt::white);
    for (const BoiteGraphe& b : graphe_.boites) {
        const QColor c((b.couleur >> 16) & 0xFF, (b.couleur >> 8) & 0xFF, b.couleur & 0xFF);
        p.fillRect(QRect(Px(b.gauche), Px(b.haut), std::max(1, Px(b.largeur)), std::max(1, Px(b.hauteur))), c);
    }
    p.setPen(Qt::black);
    QFont f = font();
    // A line of the picture is 195 twips high: the font fits in it.
    f.setPixelSize(std::max(8, Px(HAUTEUR_LIGNE_TWIPS) - 2));
    p.setFont(f);
    for (const TexteGraphe& t : graphe_.textes)
        p.drawText(QRect(Px(t.x), Px(t.y), width() - Px(t.x), Px(HAUTEUR_LIGNE_TWIPS) + 2),
                   Qt::AlignLeft | Qt::AlignTop | Qt::TextDontClip, VersQt(t.texte));
}

// ---------------------------------------------------------------------------------------------

VueAfc::VueAfc(ZoneTravail& zone) : QWidget(&zone), zone_(zone) {
    setObjectName(kNomVue);
    auto* pile = new QVBoxLayout(this);
    attente_ = new QLabel(QStringLiteral("Aucune analyse en attente de finalisation."), this);
    pile->addWidget(attente_);
    panneau_ = new QGroupBox(this);
    panneau_->setObjectName(QStringLiteral("B13_Finalisez"));
    auto* interieur = new QVBoxLayout(panneau_);
    bouton_ = new QPushButton(panneau_);
    bouton_->setObjectName(QStringLiteral("CO1_O3_L1"));
    graphe_ = new GrapheAfc(panneau_);
    interieur->addWidget(bouton_, 0, Qt::AlignLeft);
    interieur->addWidget(graphe_, 0, Qt::AlignLeft);
    interieur->addStretch(1);
    pile->addWidget(panneau_, 1);
    connect(bouton_, &QPushButton::clicked, this, [this] {
        zone_.Lancer([](Contexte& ctx) { BoutonFinalisation(ctx); });
    });
    // After any run of the area (the button's included, errors too) the panel shows the state.
    connect(&zone_.App(), &Application::OccupationChangee, this, [this](bool occupee) {
        if (!occupee) Actualiser();
    });
    Actualiser();
}

void VueAfc::Actualiser() {
    const EtatAfc& e = EtatAfcForm3();
    panneau_->setVisible(e.panneauVisible);
    attente_->setVisible(!e.panneauVisible);
    panneau_->setTitle(VersQt(e.legendePanneau));
    bouton_->setText(VersQt(e.legendeBouton));
    graphe_->Regler(e.graphe);
    graphe_->setVisible(!e.graphe.boites.empty() || !e.graphe.textes.empty());
}

namespace {

void OuvrirAfc(ContexteVue& c) {
    ZoneTravail& zone = c.zone;
    auto* vue = zone.Vue<VueAfc>(QLatin1String(kNomVue));
    if (!vue) {
        vue = new VueAfc(zone);
        zone.AjouterVue(vue, QStringLiteral("AFC"));
        // Leaving the statistics area with an analysis not finalised offers to finalise it first.
        zone.gardeFermeture = [&zone] {
            Contexte ctx{zone.Dialogue(), zone.App().HorlogeCourante(), zone.Ressources()};
            try {
                GarderFermetureForm3(ctx);
            } catch (const std::exception& e) {
                zone.Dialogue().AfficherErreur(e.what());
            }
            return true;
        };
    }
    zone.MontrerVue(vue);
    zone.Lancer(c.operation.executer);
}

const bool kInscrit = EnregistrerVue("Form3.smn_afc", &OuvrirAfc);

}  // namespace

}  // namespace telvoris::gui
