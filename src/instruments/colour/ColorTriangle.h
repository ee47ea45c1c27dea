#ifndef COLORTRIANGLE_H
#define COLORTRIANGLE_H

#include "AXRGuiExport.h"

#include <QColor>
#include <QImage>
#include <QPointF>
#include <QWidget>

#include <memory>

struct ColorTriangleGeometry;

/// Chooses a colour: a ring for the hue around a triangle for saturation and value. The triangle
/// turns with the hue.
///
/// Keys: Left and Right change the hue by 1, Up and Down the value by 5, with Shift the saturation
/// by 5. Hues go from 0 to 359, and the step over the seam skips one of them: Left leads from 0 to
/// 358, Right from 359 to 1. What is chosen is opaque. The default colour is hue 76, saturation
/// 184, value 206. Too small a widget shows nothing.
class AXRGUI_EXPORT ColorTriangle : public QWidget
{
    Q_OBJECT
public:
    explicit ColorTriangle(QWidget* parent = nullptr);
    ~ColorTriangle() override;

    /// As set, in the colour model in which it was set; in RGB after a choice in the triangle.
    QColor color() const { return m_curColor; }

public Q_SLOTS:
    /// Emits colorChanged(). An invalid colour and one that looks the same are ignored; a black,
    /// white or grey that is given with a hue of its own still turns the triangle. A grey without
    /// one keeps the hue.
    void setColor(const QColor& color);

Q_SIGNALS:
    /// Each change, by the user or by setColor().
    void colorChanged(const QColor&);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void takeSize();
    enum class Selecting { Nothing, Hue, Triangle };

    void placeMarker();
    void followMouse(const QMouseEvent* event);
    void selectHue(QPointF point);
    void selectInTriangle(QPointF point);
    QColor hueColor() const;
    void drawBackground();
    void drawRing(QPainter& painter) const;
    void drawRingEdges(QPainter& painter) const;
    void drawTriangle();
    void drawMarkers(QPainter& painter) const;

    QImage m_background; // the ring
    QImage m_picture;    // the ring with the triangle as it stands at m_pictureAngle
    double m_pictureAngle = 0.0;
    std::unique_ptr<ColorTriangleGeometry> m_geometry;
    QColor m_curColor;
    int m_curHue; // apart from the colour, so that a grey keeps it
    bool m_mustRedraw = true;
    QPointF m_selectorPos;
    Selecting m_selMode = Selecting::Nothing;
};

#endif
