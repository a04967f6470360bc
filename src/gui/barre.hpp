// The progress bar of every area: a box 6,732 units wide in which a bar of colour RGB(0, 0, 200)
// grows from the left edge, 250 units high, with the stage's label above it.
#pragma once

#include <QWidget>

namespace telvoris::gui {

// Twips per pixel at the usual 96 dots per inch: the units of the legacy drawing.
inline constexpr double TWIPS_PAR_PIXEL = 15.0;

class BarreProgression : public QWidget {
    Q_OBJECT
public:
    explicit BarreProgression(QWidget* parent = nullptr);
    // File i of n; n = 0 leaves the bar empty (the label alone).
    void Regler(long long i, long long n);
    // The filled width in units of the 6,732-unit box (0 when empty).
    int LargeurUnites() const { return largeur_; }
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent*) override;

private:
    int largeur_ = 0;
};

}  // namespace telvoris::gui
