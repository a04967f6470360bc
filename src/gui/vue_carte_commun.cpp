#include "gui/vue_carte_commun.hpp"

#include <QFontMetricsF>
#include <QGraphicsRectItem>
#include <QGraphicsSimpleTextItem>
#include <QImage>
#include <QMouseEvent>
#include <QPainter>
#include <QStaticText>
#include <QTextEdit>
#include <map>
#include <memory>
#include <mutex>

#include "core/fichiers.hpp"
#include "core/texte.hpp"
#include "gui/dialogue_qt.hpp"
#include "gui/fenetres.hpp"
#include "gui/texte_qt.hpp"

namespace telvoris::gui {

namespace {

constexpr double kTwipsParPixel = 15;

QColor Qc(carte::Couleur c) { return QColor(c.r, c.g, c.b); }

}  // namespace

namespace {

// Fonts and their metrics are made once a size and weight: a map of 5,000 labels uses a handful.
struct PoliceMesuree {
    QFont police;
    QFontMetricsF mesure;
    explicit PoliceMesuree(const QFont& f) : police(f), mesure(f) {}
};

const PoliceMesuree& Police(int corps, bool gras) {
    static std::map<std::pair<int, bool>, std::unique_ptr<PoliceMesuree>> cache;
    static std::mutex verrou;
    std::lock_guard<std::mutex> garde(verrou);
    auto& p = cache[{corps, gras}];
    if (!p) {
        QFont f(QStringLiteral("Sans Serif"));
        f.setStyleHint(QFont::SansSerif);
        f.setPixelSize(corps * 20);
        f.setBold(gras);
        p = std::make_unique<PoliceMesuree>(f);
    }
    return *p;
}

}  // namespace

QFont PoliceTwips(int corps, bool gras) { return Police(corps, gras).police; }

carte::Taille MesureQt(std::string_view texte, int corps, bool gras) {
    const QFontMetricsF& fm = Police(corps, gras).mesure;
    return {std::round(fm.horizontalAdvance(VersQt(texte))), std::round(fm.height())};
}

EtiquetteItem::EtiquetteItem(const carte::TexteScene& t) : texte_(VersQt(t.texte)), item_(t.item) {
    statique_.setText(texte_);
    statique_.setTextFormat(Qt::PlainText);
    statique_.setPerformanceHint(QStaticText::AggressiveCaching);
    Appliquer(t);
}

void EtiquetteItem::Appliquer(const carte::TexteScene& t) {
    const PoliceMesuree& p = Police(t.corps, t.gras);
    const QRectF rect(0, 0, t.largeur, t.hauteur);
    const QColor fond = t.fond ? Qc(*t.fond) : QColor();
    if (rect != rect_) prepareGeometryChange();
    if (rect != rect_ || fond != fond_ || Qc(t.couleur) != couleur_ || police_ != p.police) {
        rect_ = rect;
        police_ = p.police;
        couleur_ = Qc(t.couleur);
        fond_ = fond;
        haut_ = (t.hauteur - p.mesure.height()) / 2;
        update();
    }
    if (pos() != QPointF(t.gauche, t.haut)) setPos(t.gauche, t.haut);
}

QRectF EtiquetteItem::boundingRect() const { return rect_; }

void EtiquetteItem::paint(QPainter* p, const QStyleOptionGraphicsItem*, QWidget*) {
    if (fond_.isValid()) p->fillRect(rect_, fond_);
    p->setFont(police_);
    p->setPen(couleur_);
    // A text laid out once and kept: thousands of labels repaint at the cost of their glyphs.
    p->drawStaticText(QPointF(0, haut_), statique_);
}

void RemplirScene(QGraphicsScene& scene, const carte::Scene& s, std::vector<EtiquetteItem*>* etiquettes) {
    scene.clear();
    // No index: the whole map is on screen, and a rotation moves every label at once.
    scene.setItemIndexMethod(QGraphicsScene::NoIndex);
    scene.setSceneRect(0, 0, s.largeur, s.hauteur);
    scene.addRect(0, 0, s.largeur, s.hauteur, Qt::NoPen, QBrush(Qt::white))->setZValue(-2);
    for (const auto& r : s.rects) {
        auto* it = scene.addRect(r.gauche, r.haut, r.largeur, r.hauteur, QPen(Qc(r.couleur), 15),
                                 r.plein ? QBrush(Qc(r.couleur)) : QBrush(Qt::NoBrush));
        it->setZValue(-1);
    }
    for (const auto& t : s.traits) scene.addLine(t.x1, t.y1, t.x2, t.y2, QPen(Qc(t.couleur), 15))->setZValue(-1);
    if (etiquettes) etiquettes->clear();
    for (const auto& t : s.textes) {
        auto* e = new EtiquetteItem(t);
        scene.addItem(e);
        if (etiquettes) etiquettes->push_back(e);
    }
}

bool MettreAJourScene(const carte::Scene& s, const std::vector<EtiquetteItem*>& etiquettes) {
    if (s.textes.size() != etiquettes.size()) return false;
    for (std::size_t k = 0; k < etiquettes.size(); ++k) {
        if (etiquettes[k]->Item() != s.textes[k].item) return false;
        etiquettes[k]->Appliquer(s.textes[k]);
    }
    return true;
}

VueScene::VueScene(QWidget* parent) : QGraphicsView(parent) {
    setScene(&scene_);
    setTransform(QTransform::fromScale(1 / kTwipsParPixel, 1 / kTwipsParPixel));
    setMouseTracking(true);
    setDragMode(QGraphicsView::NoDrag);
    setViewportUpdateMode(QGraphicsView::SmartViewportUpdate);
    setBackgroundBrush(QColor(236, 236, 236));
}

void VueScene::mousePressEvent(QMouseEvent* e) {
    const QPointF p = mapToScene(e->position().toPoint());
    for (QGraphicsItem* it : items(e->position().toPoint()))
        if (auto* et = dynamic_cast<EtiquetteItem*>(it)) {
            if (surPressionEtiquette) surPressionEtiquette(et->Item());
            return;
        }
    if (surPressionFond) surPressionFond(p);
    QGraphicsView::mousePressEvent(e);
}

void VueScene::mouseMoveEvent(QMouseEvent* e) {
    std::optional<std::size_t> sous;
    for (QGraphicsItem* it : items(e->position().toPoint()))
        if (auto* et = dynamic_cast<EtiquetteItem*>(it)) {
            sous = et->Item();
            break;
        }
    if (sous != survole_) {
        survole_ = sous;
        if (surSurvol) surSurvol(sous);
    }
    QGraphicsView::mouseMoveEvent(e);
}

void DessinerInertie(QGraphicsScene& scene, const std::vector<carte::Barre>& barres, const std::vector<std::string>& lignes,
                     double xTextes, double yTextes) {
    scene.clear();
    const QColor rouge(250, 100, 100);
    for (const auto& b : barres) scene.addRect(b.gauche, b.haut, b.largeur, b.hauteur, Qt::NoPen, QBrush(rouge));
    double y = yTextes;
    for (const auto& l : lignes) {
        auto* t = scene.addSimpleText(VersQt(l), PoliceTwips(8, false));
        t->setPos(xTextes, y);
        y += 220;
    }
}

namespace {

std::optional<std::filesystem::path> DemanderSortie(ZoneTravail& zone, const std::filesystem::path& carte,
                                                    std::string_view extension) {
    std::filesystem::path defaut = carte;
    defaut.replace_extension(std::string(extension));
    const auto r = zone.Dialogue().Demander(Joindre("Fichier "_cp, extension.substr(1), " à écrire ?"_cp), "EXPORTER",
                                            TexteChemin(defaut));
    if (!r || r->empty()) return std::nullopt;
    return std::filesystem::path(Cp1252VersUtf8(*r));
}

}  // namespace

std::optional<std::filesystem::path> ExporterSvg(ZoneTravail& zone, const carte::Scene& s, const std::filesystem::path& carte) {
    const auto f = DemanderSortie(zone, carte, ".svg");
    if (!f) return std::nullopt;
    EcrireFichier(*f, carte::SceneEnSvg(s, Utf8VersCp1252(carte.filename().string())));
    zone.Dialogue().Afficher(Joindre("Carte écrite : "_cp, TexteChemin(*f)));
    return f;
}

bool EcrirePng(QGraphicsScene& scene, const std::filesystem::path& fichier) {
    const QRectF r = scene.sceneRect();
    QImage image(std::max(1, static_cast<int>(std::ceil(r.width() / kTwipsParPixel))),
                 std::max(1, static_cast<int>(std::ceil(r.height() / kTwipsParPixel))), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    p.setRenderHint(QPainter::TextAntialiasing);
    scene.render(&p, QRectF(0, 0, image.width(), image.height()), r);
    p.end();
    return image.save(QString::fromStdString(fichier.string()), "PNG");
}

std::optional<std::filesystem::path> ExporterPng(ZoneTravail& zone, QGraphicsScene& scene, const std::filesystem::path& carte) {
    const auto f = DemanderSortie(zone, carte, ".png");
    if (!f) return std::nullopt;
    if (!EcrirePng(scene, *f)) {
        zone.Dialogue().AfficherErreur(Joindre("Impossible d'écrire le fichier "_cp, TexteChemin(*f)));
        return std::nullopt;
    }
    zone.Dialogue().Afficher(Joindre("Carte écrite : "_cp, TexteChemin(*f)));
    return f;
}

void RemplirListe(QTextEdit* boite, const std::string& texte) {
    std::string t;
    for (char c : texte)
        if (c != '\r') t += c;
    boite->setPlainText(VersQt(t));
}

}  // namespace telvoris::gui
