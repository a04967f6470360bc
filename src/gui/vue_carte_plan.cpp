#include "gui/vue_carte_plan.hpp"

#include <QButtonGroup>
#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTextEdit>
#include <QVBoxLayout>

#include "core/erreurs.hpp"
#include "core/texte.hpp"
#include "gui/dialogue_qt.hpp"
#include "gui/fenetres.hpp"
#include "gui/texte_qt.hpp"
#include "stats/carte_operations.hpp"

namespace telvoris::gui {

namespace {

QString U(const char* utf8) { return QString::fromUtf8(utf8); }

QPushButton* Bouton(const char* texte, const char* nom, QWidget* parent) {
    auto* b = new QPushButton(U(texte), parent);
    b->setObjectName(U(nom));
    return b;
}

}  // namespace

VuePlan::VuePlan(ZoneTravail& zone) : zone_(zone) {
    setObjectName(QStringLiteral("VuePlan"));
    auto* gauche = new QVBoxLayout;

    auto* panneau = new QGroupBox(U("Paramètres"), this);
    panneau->setObjectName(U("B21_Paramètres"));
    auto* lp = new QVBoxLayout(panneau);
    auto* gc = new QGroupBox(U("Colorations"), panneau);
    auto* lc = new QVBoxLayout(gc);
    colorations_ = new QButtonGroup(this);
    int id = 1;
    for (const char* t : {"Aucune", "4 Couleurs", "Mise en gras"}) {
        auto* r = new QRadioButton(U(t), gc);
        colorations_->addButton(r, id++);
        lc->addWidget(r);
    }
    colorations_->button(1)->setChecked(true);
    lp->addWidget(gc);
    auto* gs = new QGroupBox(U("Couleur de surimpression"), panneau);
    auto* ls = new QHBoxLayout(gs);
    surimpression_ = new QButtonGroup(this);
    id = 0;
    for (const char* t : {"noir", "rouge", "vert", "bleu", "magenta"}) {
        auto* r = new QRadioButton(U(t), gs);
        surimpression_->addButton(r, id++);
        ls->addWidget(r);
    }
    surimpression_->button(0)->setChecked(true);
    lp->addWidget(gs);
    auto* gp = new QGroupBox(U("Police d'affichage"), panneau);
    auto* lpol = new QHBoxLayout(gp);
    taille_ = new QSpinBox(gp);
    taille_->setRange(4, 72);
    taille_->setValue(8);
    gras_ = new QCheckBox(U("mise en gras"), gp);
    lpol->addWidget(taille_);
    lpol->addWidget(gras_);
    lp->addWidget(gp);
    auto* valider = Bouton("VALIDATION", "PARAP_VAL_2", panneau);
    lp->addWidget(valider);
    connect(valider, &QPushButton::clicked, this, [this] { Valider(); });
    gauche->addWidget(panneau);

    titreColonnes_ = new QLabel(U("COLONNES"), this);
    colonnes_ = new QTextEdit(this);
    colonnes_->setObjectName(QStringLiteral("COLONNES"));
    colonnes_->setReadOnly(true);
    auto* titreLignes = new QLabel(U("LIGNES"), this);
    lignes_ = new QTextEdit(this);
    lignes_->setObjectName(QStringLiteral("LIGNES"));
    lignes_->setReadOnly(true);
    gauche->addWidget(titreColonnes_);
    gauche->addWidget(colonnes_);
    gauche->addWidget(titreLignes);
    gauche->addWidget(lignes_);
    titreColonnes_->hide();
    colonnes_->hide();
    inertie_ = new QGraphicsView(new QGraphicsScene(this), this);
    inertie_->setObjectName(QStringLiteral("inertie"));
    inertie_->setTransform(QTransform::fromScale(1.0 / 15, 1.0 / 15));
    inertie_->setFixedHeight(200);
    inertie_->hide();
    gauche->addWidget(inertie_);

    auto* droite = new QVBoxLayout;
    legende_ = new QLabel(this);
    legende_->setObjectName(QStringLiteral("legende"));
    legende_->setWordWrap(true);
    droite->addWidget(legende_);
    rangee_ = new QHBoxLayout;
    vue_ = new VueScene(this);
    vue_->setObjectName(QStringLiteral("carte"));
    panneauZoom_ = new QWidget(this);
    panneauZoom_->setObjectName(QStringLiteral("zoom"));
    auto* lz = new QVBoxLayout(panneauZoom_);
    vueZoom_ = new VueScene(panneauZoom_);
    vueZoom_->setObjectName(QStringLiteral("carte_zoom"));
    auto* masquer = Bouton("MASQUER", "MASQUER", panneauZoom_);
    lz->addWidget(vueZoom_);
    lz->addWidget(masquer);
    panneauZoom_->hide();
    connect(masquer, &QPushButton::clicked, this, [this] { Masquer(); });
    rangee_->addWidget(vue_, 1);
    rangee_->addWidget(panneauZoom_, 1);
    droite->addLayout(rangee_, 1);

    auto* boutons = new QHBoxLayout;
    auto* contrib = new QGroupBox(U("Contributions"), this);
    contrib->setObjectName(U("C223_CONTRIBUTIONS"));
    auto* lct = new QHBoxLayout(contrib);
    auto* axe1 = Bouton("Axe 1", "C223_AXE1", contrib);
    auto* axe2 = Bouton("Axe 2", "C223_AXE2", contrib);
    lct->addWidget(axe1);
    lct->addWidget(axe2);
    connect(axe1, &QPushButton::clicked, this, [this] { Contributions(1); });
    connect(axe2, &QPushButton::clicked, this, [this] { Contributions(2); });
    boutons->addWidget(contrib);
    auto* rafraichir = Bouton("RAFRAICHIR GRAPHE", "RAFRAICHIR", this);
    connect(rafraichir, &QPushButton::clicked, this, [this] { Rafraichir(); });
    boutons->addWidget(rafraichir);
    auto* svg = Bouton("EXPORTER SVG", "EXPORTER_SVG", this);
    auto* png = Bouton("EXPORTER PNG", "EXPORTER_PNG", this);
    connect(svg, &QPushButton::clicked, this, [this] {
        if (carte_) ExporterSvg(zone_, SceneMontree(), carte_->Fichier());
    });
    connect(png, &QPushButton::clicked, this, [this] {
        if (carte_) ExporterPng(zone_, zoom_ ? *vueZoom_->Scene() : *vue_->Scene(), carte_->Fichier());
    });
    boutons->addWidget(svg);
    boutons->addWidget(png);
    droite->addLayout(boutons);

    auto* tout = new QHBoxLayout(this);
    tout->addLayout(gauche, 1);
    tout->addLayout(droite, 4);

    vue_->surPressionEtiquette = [this](std::size_t i) {
        if (carte_) Zoomer(carte_->ZoomEtiquette(i));
    };
    vue_->surPressionFond = [this](QPointF p) {
        if (carte_) Zoomer(carte_->ZoomFond(p.x(), p.y()));
    };
}

carte::ParametresPlan VuePlan::Parametres() const {
    carte::ParametresPlan p;
    p.modeCouleur = colorations_->checkedId();
    p.surimpression = surimpression_->checkedId();
    p.corps = taille_->value();
    p.gras = gras_->isChecked();
    return p;
}

void VuePlan::Valider() {
    const auto p = Parametres();
    try {
        const auto choix = carte::ChoisirFichiersCarte(zone_.Dialogue(), p.modeCouleur == 2 || p.modeCouleur == 3);
        if (!choix) return;
        Charger(choix->fichier, p, choix->codage);
    } catch (const ErreurExecution& e) {
        zone_.Dialogue().AfficherErreur(e.what());
    }
}

void VuePlan::Charger(const std::filesystem::path& fichier, const carte::ParametresPlan& p,
                      const std::optional<std::filesystem::path>& codage) {
    // The earlier map's labels go first.
    carte_.reset();
    zoom_.reset();
    vue_->Scene()->clear();
    etiquettes_.clear();
    carte_ = carte::CartePlan::Lire(fichier, p, codage, MesureQt);
    const bool avecColonnes = carte_->NombreColonnes() > 0;
    titreColonnes_->setVisible(avecColonnes);
    colonnes_->setVisible(avecColonnes);
    RemplirListe(colonnes_, carte_->TexteColonnes());
    RemplirListe(lignes_, carte_->TexteLignes());
    legende_->setText(VersQt(carte_->Legende()));
    const auto lignes = carte_->LignesInertie();
    inertie_->setVisible(!lignes.empty());
    DessinerInertie(*inertie_->scene(), carte_->BarresInertie(), lignes, 1500, 200);
    panneauZoom_->hide();
    Redessiner();
}

void VuePlan::Redessiner() {
    if (!carte_) return;
    const auto s = carte::ScenePlan(*carte_);
    if (!MettreAJourScene(s, etiquettes_)) RemplirScene(*vue_->Scene(), s, &etiquettes_);
    if (zoom_) RemplirScene(*vueZoom_->Scene(), carte::ScenePlan(*carte_, &*zoom_));
}

void VuePlan::Contributions(int axe) {
    if (!carte_) return;
    carte_->MarquerContributions(axe);
    Redessiner();
}

void VuePlan::Rafraichir() {
    if (!carte_) return;
    carte_->Rafraichir();
    Redessiner();
}

void VuePlan::Zoomer(const carte::ZoomPlan& z) {
    zoom_ = z;
    // The detail opens on the side of the map that does not hold the label.
    rangee_->removeWidget(panneauZoom_);
    rangee_->insertWidget(z.panneauADroite ? 1 : 0, panneauZoom_, 1);
    RemplirScene(*vueZoom_->Scene(), carte::ScenePlan(*carte_, &*zoom_));
    panneauZoom_->show();
}

void VuePlan::Masquer() {
    zoom_.reset();
    panneauZoom_->hide();
}

carte::Scene VuePlan::SceneMontree() const {
    if (!carte_) return {};
    return zoom_ ? carte::ScenePlan(*carte_, &*zoom_) : carte::ScenePlan(*carte_);
}

namespace {

const bool kInscrit = EnregistrerVue("smn_v2", [](ContexteVue& c) {
    auto* v = c.zone.Vue<VuePlan>(QStringLiteral("VuePlan"));
    if (!v) {
        v = new VuePlan(c.zone);
        c.zone.AjouterVue(v, VersQt(c.operation.legende));
    }
    c.zone.MontrerVue(v);
});

}  // namespace

}  // namespace telvoris::gui
