// The flat map viewer of Form3 ("Visualisation 2 Facteurs"): the panel B21_Paramètres, the map in
// a graphics scene, the lists COLONNES and LIGNES, the inertia picture, the caption of the axes,
// the zoom panel with "MASQUER", the contribution marks and the exports.
#pragma once

#include <QWidget>
#include <optional>
#include <vector>

#include "gui/vue_carte_commun.hpp"
#include "stats/carte_plan.hpp"

class QButtonGroup;
class QCheckBox;
class QLabel;
class QPushButton;
class QSpinBox;
class QTextEdit;
class QHBoxLayout;

namespace telvoris::gui {

class VuePlan : public QWidget {
    Q_OBJECT
public:
    explicit VuePlan(ZoneTravail& zone);

    // The panel's choices; "VALIDATION" asks the files and loads the map.
    carte::ParametresPlan Parametres() const;
    void Valider();
    // Loads a map file as "VALIDATION" does after its dialogs.
    void Charger(const std::filesystem::path& fichier, const carte::ParametresPlan& p,
                 const std::optional<std::filesystem::path>& codage);

    const std::optional<carte::CartePlan>& Carte() const { return carte_; }
    const std::vector<EtiquetteItem*>& Etiquettes() const { return etiquettes_; }
    VueScene* Vue() const { return vue_; }
    VueScene* VueZoom() const { return vueZoom_; }
    QWidget* PanneauZoom() const { return panneauZoom_; }
    QLabel* Legende() const { return legende_; }
    QTextEdit* ListeColonnes() const { return colonnes_; }
    QTextEdit* ListeLignes() const { return lignes_; }
    QGraphicsScene* SceneInertie() const { return inertie_->scene(); }

    void Contributions(int axe);
    void Rafraichir();
    void Zoomer(const carte::ZoomPlan& z);
    void Masquer();
    // What the exports write: the zoom when it is shown, else the map.
    carte::Scene SceneMontree() const;

private:
    void Redessiner();

    ZoneTravail& zone_;
    QButtonGroup* colorations_;
    QButtonGroup* surimpression_;
    QSpinBox* taille_;
    QCheckBox* gras_;
    QLabel* legende_;
    QTextEdit* colonnes_;
    QTextEdit* lignes_;
    QLabel* titreColonnes_;
    QGraphicsView* inertie_;
    VueScene* vue_;
    QWidget* panneauZoom_;
    VueScene* vueZoom_;
    QHBoxLayout* rangee_;
    std::optional<carte::CartePlan> carte_;
    std::optional<carte::ZoomPlan> zoom_;
    std::vector<EtiquetteItem*> etiquettes_;
};

}  // namespace telvoris::gui
