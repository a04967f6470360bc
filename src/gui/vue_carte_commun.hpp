// What the two map views share: a label drawn in a graphics scene (one light item a label, no
// widget), the drawing of a map's scene in twips, the font measure given to the models, the
// inertia picture, and the SVG and PNG exports of what is shown.
#pragma once

#include <QGraphicsItem>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QFont>
#include <QStaticText>
#include <functional>
#include <vector>

#include "stats/carte_scene.hpp"

class QTextEdit;

namespace telvoris::gui {

class ZoneTravail;

// A font in twips: the scene is in twips and the view shows 15 twips a pixel.
QFont PoliceTwips(int corps, bool gras);
// The models' measure, from the fonts the scene draws with.
carte::Taille MesureQt(std::string_view texte, int corps, bool gras);

class EtiquetteItem : public QGraphicsItem {
public:
    explicit EtiquetteItem(const carte::TexteScene& t);
    // Takes a label's new place, colours and background; repaints only what changed.
    void Appliquer(const carte::TexteScene& t);
    QRectF boundingRect() const override;
    void paint(QPainter* p, const QStyleOptionGraphicsItem*, QWidget*) override;
    std::size_t Item() const { return item_; }
    const QString& Texte() const { return texte_; }
    QColor Couleur() const { return couleur_; }
    bool AFond() const { return fond_.isValid(); }
    QColor Fond() const { return fond_; }

private:
    QString texte_;
    QRectF rect_;
    QFont police_;
    QColor couleur_;
    QColor fond_;
    std::size_t item_;
    double haut_ = 0;
    QStaticText statique_;
};

// Fills a scene with a map's primitives (clears it first). The labels are indexed by item.
void RemplirScene(QGraphicsScene& scene, const carte::Scene& s, std::vector<EtiquetteItem*>* etiquettes = nullptr);

// Brings the labels of a scene filled from the same map up to date (positions after a rotation,
// backgrounds after marks) without remaking them; false when the scene does not match.
bool MettreAJourScene(const carte::Scene& s, const std::vector<EtiquetteItem*>& etiquettes);

// A view of a scene in twips, at 15 twips a pixel, that reports presses and hovers on labels.
class VueScene : public QGraphicsView {
    Q_OBJECT
public:
    explicit VueScene(QWidget* parent = nullptr);
    QGraphicsScene* Scene() { return &scene_; }
    std::function<void(std::size_t item)> surPressionEtiquette;
    std::function<void(QPointF twips)> surPressionFond;
    std::function<void(std::optional<std::size_t> item)> surSurvol;

protected:
    void mousePressEvent(QMouseEvent* e) override;
    void mouseMoveEvent(QMouseEvent* e) override;

private:
    QGraphicsScene scene_;
    std::optional<std::size_t> survole_;
};

// The inertia picture: bars in twips and their texts.
void DessinerInertie(QGraphicsScene& scene, const std::vector<carte::Barre>& barres, const std::vector<std::string>& lignes,
                     double xTextes, double yTextes);

// Writes the scene drawn from the model to SVG, and the scene on screen to PNG, at a path asked
// in an input box whose default is beside the map file. Returns the path written.
std::optional<std::filesystem::path> ExporterSvg(ZoneTravail& zone, const carte::Scene& s, const std::filesystem::path& carte);
std::optional<std::filesystem::path> ExporterPng(ZoneTravail& zone, QGraphicsScene& scene, const std::filesystem::path& carte);
// The PNG of a scene, at 15 twips a pixel, on white.
bool EcrirePng(QGraphicsScene& scene, const std::filesystem::path& fichier);

// A rich text box filled with a list (CR LF between lines).
void RemplirListe(QTextEdit* boite, const std::string& texte);

}  // namespace telvoris::gui
