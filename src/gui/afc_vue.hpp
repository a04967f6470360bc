// The correspondence analysis of Form3 on screen: the panel whose button finalises the solver's
// files once it has ended, and the graph of decreasing inertia drawn from its model (twips, scaled
// to pixels).
#pragma once

#include <QGroupBox>
#include <QWidget>

#include "stats/afc_finalisation.hpp"

class QLabel;
class QPushButton;

namespace telvoris::gui {

class ZoneTravail;

// The picture CO1_O3_P1.
class GrapheAfc : public QWidget {
    Q_OBJECT
public:
    explicit GrapheAfc(QWidget* parent = nullptr);
    void Regler(const GrapheInertie& graphe);
    const GrapheInertie& Graphe() const { return graphe_; }
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent*) override;

private:
    GrapheInertie graphe_;
};

// The view of Form3 that holds the panel B13_Finalisez.
class VueAfc : public QWidget {
    Q_OBJECT
public:
    explicit VueAfc(ZoneTravail& zone);
    // Shows the state of the run: panel, captions, graph.
    void Actualiser();
    QPushButton* Bouton() const { return bouton_; }
    QGroupBox* Panneau() const { return panneau_; }
    GrapheAfc* Graphe() const { return graphe_; }

private:
    ZoneTravail& zone_;
    QGroupBox* panneau_;
    QPushButton* bouton_;
    GrapheAfc* graphe_;
    QLabel* attente_;
};

}  // namespace telvoris::gui
