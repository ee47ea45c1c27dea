#ifndef SLIDERSTRIP_P_H
#define SLIDERSTRIP_P_H

#include <QStyleOptionSpinBox>

class QPainter;
class QWidget;

/// The strip below a number field that shows its value as a marker and takes drags. Its left end
/// stands for 0 and its right one for the span of the range.
struct SliderStrip {
    static constexpr int Height = 20;

    QStyleOptionSpinBox box; ///< of the whole field, strip and all
    int fieldBottom;         ///< the lowest row of the line edit
    int hintHeight;          ///< of the whole field
    double span;             ///< maximum - minimum

    bool takesDrags() const { return span > 0.0; }
    double valueAt(int x) const { return span * x / qMax(1, box.rect.width()); }
    QRect frame() const;
    QRect marker(double value) const;
    /// The field as it is drawn, above the strip.
    QStyleOptionSpinBox drawn() const;
    /// Where the base class looks for what is drawn in a place: it takes the arrows to be as high
    /// as the whole box, and so it is told the middle of what it takes for the part there.
    QPoint placeForBase(QPoint place, const QWidget* field) const;
    void paint(QPainter* painter, double value, const QWidget* field) const;
};

#endif
