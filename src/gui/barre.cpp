#include "gui/barre.hpp"

#include <QPainter>
#include <cmath>

#include "core/dialogue.hpp"

namespace telvoris::gui {

namespace {
constexpr int kHauteurUnites = 250;
}

BarreProgression::BarreProgression(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

QSize BarreProgression::sizeHint() const {
    return {static_cast<int>(std::lround(LARGEUR_BARRE / TWIPS_PAR_PIXEL)) + 2,
            static_cast<int>(std::lround(kHauteurUnites / TWIPS_PAR_PIXEL)) + 2};
}

void BarreProgression::Regler(long long i, long long n) {
    const int l = n > 0 ? LargeurBarre(i, n) : 0;
    if (l == largeur_) return;
    largeur_ = l;
    update();
}

void BarreProgression::paintEvent(QPaintEvent*) {
    QPainter p(this);
    // The box is scaled to the widget, so the bar keeps its proportions whatever the size.
    p.fillRect(rect(), Qt::white);
    p.setPen(Qt::gray);
    p.drawRect(rect().adjusted(0, 0, -1, -1));
    if (largeur_ <= 0) return;
    const double echelle = (width() - 2) / static_cast<double>(LARGEUR_BARRE);
    const int w = std::min(width() - 2, static_cast<int>(std::lround(largeur_ * echelle)));
    p.fillRect(QRect(1, 1, w, height() - 2), QColor(0, 0, 200));
}

}  // namespace telvoris::gui
