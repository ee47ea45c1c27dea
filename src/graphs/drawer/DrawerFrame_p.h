#ifndef DRAWERFRAME_P_H
#define DRAWERFRAME_P_H

#include "DrawerGeometry_p.h"

#include <QString>

#include <vector>

class Chart;
class QFont;
class QPainter;

/// The steps of painting a DrawerArea; what they need is kept from frame to frame.
class DrawerFrame
{
public:
    /// The font that a frame is painted with: a bit nearer to 8.8 points or 8 pixels.
    static QFont smallFont(QFont font);

    static void drawGround(QPainter* painter, const DrawerGeometry& geometry);
    static void drawAxes(QPainter* painter, const DrawerGeometry& geometry, const QString& caption);
    static void drawZeroLine(QPainter* painter, const DrawerGeometry& geometry);

    /// Draws the visible samples as dots.
    /// \param skipped newest samples that are scrolled out of sight
    void drawCurve(QPainter* painter, const DrawerGeometry& geometry, const Chart& chart,
                   qint64 skipped, int resolution, DrawerRange* range);

private:
    std::vector<double> m_values;
    DrawerColumns m_columns;
};

#endif
