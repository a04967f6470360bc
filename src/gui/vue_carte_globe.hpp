// The globe viewer of Form3 ("Visualisation 3 Facteurs", the PLANISPHERE): the panel Paramètres,
// the band in a graphics scene, the lists LIGNES and COLONNES with the factors, the 90° rotation,
// the detail view with its list O3_ZOOM_RTB and "MASQUER", the hover lists, the contribution
// marks, "COLORATION", "RAFRAICHIR GRAPHE" and the exports.
#pragma once

#include <QWidget>
#include <optional>
#include <vector>

#include "gui/vue_carte_commun.hpp"
#include "stats/carte_globe.hpp"

class QButtonGroup;
class QSpinBox;
class QTextEdit;

namespace telvoris::gui {

class VueGlobe : public QWidget {
    Q_OBJECT
public:
    explicit VueGlobe(ZoneTravail& zone);

    carte::ParametresGlobe Parametres() const;
    void Valider();
    void Charger(const std::filesystem::path& fichier, const carte::ParametresGlobe& p,
                 const std::optional<std::filesystem::path>& codage);

    const std::optional<carte::CarteGlobe>& Carte() const { return carte_; }
    const std::vector<EtiquetteItem*>& Etiquettes() const { return etiquettes_; }
    VueScene* Vue() const { return vue_; }
    VueScene* VueDetail() const { return vueDetail_; }
    QWidget* PanneauDetail() const { return panneauDetail_; }
    QTextEdit* ListeDetail() const { return listeDetail_; }
    QTextEdit* ListeColonnes() const { return colonnes_; }
    QTextEdit* ListeLignes() const { return lignes_; }
    QTextEdit* BoiteSurvol() const { return survol_; }

    void Tourner();
    void Contributions(int facteur);
    void Colorer();
    void Rafraichir();
    void Detailler(std::size_t item);
    void Masquer();
    // Shows the hover list of an item of the globe (or of the detail); hides it on nullopt.
    void Survoler(std::optional<std::size_t> item, bool dansDetail);
    carte::Scene SceneMontree() const;

private:
    void Redessiner();

    ZoneTravail& zone_;
    QButtonGroup* colorations_;
    QButtonGroup* colonnesMode_;
    QSpinBox* corps_;
    QTextEdit* colonnes_;
    QTextEdit* lignes_;
    QTextEdit* facteurs_;
    QGraphicsView* inertie_;
    VueScene* vue_;
    QWidget* panneauDetail_;
    VueScene* vueDetail_;
    QTextEdit* listeDetail_;
    QTextEdit* survol_;
    std::optional<carte::CarteGlobe> carte_;
    std::optional<carte::Detail> detail_;
    std::vector<EtiquetteItem*> etiquettes_;
};

}  // namespace telvoris::gui
