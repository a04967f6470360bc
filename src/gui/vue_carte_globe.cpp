#include "gui/vue_carte_globe.hpp"

#include <QButtonGroup>
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

QPushButton* Bouton(const QString& texte, const QString& nom, QWidget* parent) {
    auto* b = new QPushButton(texte, parent);
    b->setObjectName(nom);
    return b;
}

QTextEdit* Boite(const char* nom, QWidget* parent) {
    auto* t = new QTextEdit(parent);
    t->setObjectName(U(nom));
    t->setReadOnly(true);
    return t;
}

}  // namespace

VueGlobe::VueGlobe(ZoneTravail& zone) : zone_(zone) {
    setObjectName(QStringLiteral("VueGlobe"));
    auto* gauche = new QVBoxLayout;
    auto* panneau = new QGroupBox(U("Paramètres"), this);
    panneau->setObjectName(U("Paramètres"));
    auto* lp = new QVBoxLayout(panneau);
    auto* gc = new QGroupBox(U("Colorations"), panneau);
    auto* lc = new QVBoxLayout(gc);
    colorations_ = new QButtonGroup(this);
    int id = 1;
    for (const char* t : {"Aucune", "4 Couleurs", "2 couleurs", "2 couleurs graduées"}) {
        auto* r = new QRadioButton(U(t), gc);
        colorations_->addButton(r, id++);
        lc->addWidget(r);
    }
    colorations_->button(1)->setChecked(true);
    lp->addWidget(gc);
    auto* gk = new QGroupBox(U("Colonnes"), panneau);
    auto* lk = new QHBoxLayout(gk);
    colonnesMode_ = new QButtonGroup(this);
    id = 1;
    for (const char* t : {"Comme lignes", "Saillantes"}) {
        auto* r = new QRadioButton(U(t), gk);
        colonnesMode_->addButton(r, id++);
        lk->addWidget(r);
    }
    colonnesMode_->button(1)->setChecked(true);
    lp->addWidget(gk);
    auto* gp = new QGroupBox(U("Police d'affichage"), panneau);
    auto* lpol = new QHBoxLayout(gp);
    lpol->addWidget(new QLabel(U("Corps"), gp));
    corps_ = new QSpinBox(gp);
    corps_->setRange(4, 72);
    corps_->setValue(8);
    lpol->addWidget(corps_);
    lp->addWidget(gp);
    auto* valider = Bouton(U("VALIDATION"), U("PARAP_VAL_3"), panneau);
    connect(valider, &QPushButton::clicked, this, [this] { Valider(); });
    lp->addWidget(valider);
    gauche->addWidget(panneau);
    gauche->addWidget(new QLabel(U("LIGNES"), this));
    lignes_ = Boite("LIGNES", this);
    gauche->addWidget(lignes_);
    gauche->addWidget(new QLabel(U("COLONNES"), this));
    colonnes_ = Boite("COLONNES", this);
    gauche->addWidget(colonnes_);
    facteurs_ = Boite("facteurs", this);
    facteurs_->setFixedHeight(120);
    gauche->addWidget(facteurs_);
    inertie_ = new QGraphicsView(new QGraphicsScene(this), this);
    inertie_->setObjectName(QStringLiteral("inertie"));
    inertie_->setTransform(QTransform::fromScale(1.0 / 15, 1.0 / 15));
    inertie_->setFixedHeight(110);
    gauche->addWidget(inertie_);

    auto* droite = new QVBoxLayout;
    auto* rangee = new QHBoxLayout;
    vue_ = new VueScene(this);
    vue_->setObjectName(QStringLiteral("planisphere"));
    rangee->addWidget(vue_, 3);
    panneauDetail_ = new QWidget(this);
    panneauDetail_->setObjectName(QStringLiteral("detail"));
    auto* ld = new QVBoxLayout(panneauDetail_);
    vueDetail_ = new VueScene(panneauDetail_);
    vueDetail_->setObjectName(QStringLiteral("planisphere_detail"));
    listeDetail_ = Boite("O3_ZOOM_RTB", panneauDetail_);
    listeDetail_->setFixedHeight(120);
    auto* masquer = Bouton(U("MASQUER"), U("MASQUER"), panneauDetail_);
    connect(masquer, &QPushButton::clicked, this, [this] { Masquer(); });
    ld->addWidget(vueDetail_, 1);
    ld->addWidget(listeDetail_);
    ld->addWidget(masquer);
    panneauDetail_->hide();
    rangee->addWidget(panneauDetail_, 2);
    droite->addLayout(rangee, 1);

    auto* boutons = new QHBoxLayout;
    auto* rot = Bouton(U("90°"), U("O3_ROTATION"), this);
    connect(rot, &QPushButton::clicked, this, [this] { Tourner(); });
    boutons->addWidget(rot);
    for (int k = 1; k <= 3; ++k) {
        auto* b = Bouton(U("Contributions F%1").arg(k), U("O3_CONTRIB_LB%1").arg(k), this);
        b->setText(U("Contributions"));
        b->setToolTip(U("Facteur %1").arg(k));
        connect(b, &QPushButton::clicked, this, [this, k] { Contributions(k); });
        boutons->addWidget(b);
    }
    auto* col = Bouton(U("COLORATION"), U("O3_COLOR"), this);
    connect(col, &QPushButton::clicked, this, [this] { Colorer(); });
    boutons->addWidget(col);
    auto* raf = Bouton(U("RAFRAICHIR GRAPHE"), U("RAFRAICHIR"), this);
    connect(raf, &QPushButton::clicked, this, [this] { Rafraichir(); });
    boutons->addWidget(raf);
    auto* svg = Bouton(U("EXPORTER SVG"), U("EXPORTER_SVG"), this);
    auto* png = Bouton(U("EXPORTER PNG"), U("EXPORTER_PNG"), this);
    connect(svg, &QPushButton::clicked, this, [this] {
        if (carte_) ExporterSvg(zone_, SceneMontree(), carte_->Fichier());
    });
    connect(png, &QPushButton::clicked, this, [this] {
        if (carte_) ExporterPng(zone_, detail_ ? *vueDetail_->Scene() : *vue_->Scene(), carte_->Fichier());
    });
    boutons->addWidget(svg);
    boutons->addWidget(png);
    droite->addLayout(boutons);

    auto* tout = new QHBoxLayout(this);
    tout->addLayout(gauche, 1);
    tout->addLayout(droite, 4);

    survol_ = Boite("survol", vue_->viewport());
    survol_->hide();
    survol_->setAttribute(Qt::WA_TransparentForMouseEvents);

    vue_->surPressionEtiquette = [this](std::size_t i) { Detailler(i); };
    vue_->surSurvol = [this](std::optional<std::size_t> i) { Survoler(i, false); };
    vueDetail_->surSurvol = [this](std::optional<std::size_t> i) { Survoler(i, true); };
}

carte::ParametresGlobe VueGlobe::Parametres() const {
    carte::ParametresGlobe p;
    p.modeCouleur = colorations_->checkedId();
    p.colonnes = colonnesMode_->checkedId();
    p.corps = corps_->value();
    return p;
}

void VueGlobe::Valider() {
    const auto p = Parametres();
    try {
        const auto choix = carte::ChoisirFichiersCarte(zone_.Dialogue(), p.modeCouleur != 1);
        if (!choix) return;
        Charger(choix->fichier, p, choix->codage);
    } catch (const ErreurExecution& e) {
        zone_.Dialogue().AfficherErreur(e.what());
    }
}

void VueGlobe::Charger(const std::filesystem::path& fichier, const carte::ParametresGlobe& p,
                       const std::optional<std::filesystem::path>& codage) {
    carte_.reset();
    detail_.reset();
    panneauDetail_->hide();
    survol_->hide();
    vue_->Scene()->clear();
    etiquettes_.clear();
    carte_ = carte::CarteGlobe::Lire(fichier, p, codage, MesureQt);
    RemplirListe(colonnes_, carte_->TexteColonnes());
    RemplirListe(lignes_, carte_->TexteLignes());
    std::string f;
    for (const auto& l : carte_->LignesInertie()) f += l + "\r\n";
    RemplirListe(facteurs_, f);
    DessinerInertie(*inertie_->scene(), carte_->BarresInertie(), {}, 0, 0);
    Redessiner();
}

void VueGlobe::Redessiner() {
    if (!carte_) return;
    const auto s = carte::SceneGlobe(*carte_);
    if (!MettreAJourScene(s, etiquettes_)) RemplirScene(*vue_->Scene(), s, &etiquettes_);
    if (detail_) {
        RemplirScene(*vueDetail_->Scene(), carte::SceneDetail(*carte_, *detail_));
        RemplirListe(listeDetail_, detail_->Liste(carte_->Etiquettes()));
    }
}

void VueGlobe::Tourner() {
    if (!carte_) return;
    carte_->Tourner();
    survol_->hide();
    Redessiner();
}

void VueGlobe::Contributions(int facteur) {
    if (!carte_) return;
    carte_->MarquerContributions(facteur);
    Redessiner();
}

void VueGlobe::Colorer() {
    if (!carte_) return;
    if (carte_->Colorer(zone_.Dialogue())) Redessiner();
}

void VueGlobe::Rafraichir() {
    if (!carte_) return;
    carte_->Rafraichir();
    Redessiner();
}

void VueGlobe::Detailler(std::size_t item) {
    if (!carte_) return;
    detail_ = carte_->DetailAutour(item);
    survol_->hide();
    Redessiner();
    panneauDetail_->show();
}

void VueGlobe::Masquer() {
    detail_.reset();
    panneauDetail_->hide();
}

void VueGlobe::Survoler(std::optional<std::size_t> item, bool dansDetail) {
    if (!carte_ || !item || (dansDetail && !detail_)) {
        survol_->hide();
        return;
    }
    const auto l = carte_->Survol(*item, dansDetail ? &*detail_ : nullptr);
    if (l.indices.empty()) {
        survol_->hide();
        return;
    }
    std::string t;
    for (auto i : l.indices) t += carte_->Etiquettes()[i].nom + "\r\n";
    RemplirListe(survol_, t);
    VueScene* v = dansDetail ? vueDetail_ : vue_;
    survol_->setParent(v->viewport());
    const QPoint haut = v->mapFromScene(QPointF(l.gauche, l.haut));
    const QPoint bas = v->mapFromScene(QPointF(l.gauche + l.largeur, l.haut + l.hauteur));
    survol_->setGeometry(QRect(haut, bas).normalized().adjusted(0, 0, 8, 8));
    survol_->show();
    survol_->raise();
}

carte::Scene VueGlobe::SceneMontree() const {
    if (!carte_) return {};
    return detail_ ? carte::SceneDetail(*carte_, *detail_) : carte::SceneGlobe(*carte_);
}

namespace {

const bool kInscrit = EnregistrerVue("smn_v3", [](ContexteVue& c) {
    auto* v = c.zone.Vue<VueGlobe>(QStringLiteral("VueGlobe"));
    if (!v) {
        v = new VueGlobe(c.zone);
        c.zone.AjouterVue(v, VersQt(c.operation.legende));
    }
    c.zone.MontrerVue(v);
});

}  // namespace

}  // namespace telvoris::gui
