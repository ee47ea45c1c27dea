#ifndef DRAWERGEOMETRY_P_H
#define DRAWERGEOMETRY_P_H

#include <QPoint>
#include <QRect>
#include <QSize>

#include <limits>
#include <vector>

/// Where a DrawerArea paints what, in pixels.
struct DrawerGeometry {
    static constexpr int Parts = 10;    ///< of the Y axis
    static constexpr int AxisX = 100;   ///< of the Y axis
    static constexpr int TickWidth = 4; ///< to both sides of it together
    static constexpr int LabelX = 20;
    static constexpr int LegendLine = 20;

    /// \param fontHeight of the shrunken font
    DrawerGeometry(const QSize& size, int fontHeight, int minimum, int maximum);

    bool hasPlot() const { return plotHeight > 0; }
    /// Of the plot; less than 0 when the widget is too narrow for one.
    int plotWidth() const { return right - 119; }
    /// How many samples fit beside each other.
    int columns() const { return qMax(0, plotWidth()); }
    double tickValue(int tick) const;
    int tickY(int tick) const;
    /// The tick whose label is there, or -1.
    int tickAt(const QPoint& position, int fontHeight) const;
    int zeroY() const;
    int y(double value) const;
    /// Whether a sample at this height is drawn, which needs a range, too.
    bool isInPlot(int y) const;
    /// The pixel of a sample; column 0 is the newest.
    int x(int column) const { return right - 21 - column; }
    QPoint captionPosition(int blankWidth) const;
    /// \param line counts the charts that are drawn
    QPoint legendPosition(int legendWidth, int line) const;

    int right;
    int bottom;
    int yBottom;
    int plotHeight;
    int yTop;
    int axisEnd; ///< of the X axis
    int minValue;
    float step;
    double scale; ///< pixels for 1; 0 without a range
};

/// The range that covers all samples taken, and 1 more to both sides. A bound that no sample
/// reaches stays where it starts.
struct DrawerRange {
    static constexpr int HighestMinimum = std::numeric_limits<int>::max();
    static constexpr int LowestMaximum = -214783648;

    void take(double value);
    int minimum() const;
    int maximum() const;

    double least = HighestMinimum;
    double greatest = LowestMaximum;
    bool isEmpty = true;
};

/// The pixels of one chart.
class DrawerColumns
{
public:
    /// How many samples a walk may need.
    static qint64 walkLength(const DrawerGeometry& geometry, int resolution);

    /// Walks from the newest sample, the last one, to the left edge, and takes all that it comes by
    /// into the range: also those between two columns and the one at which it ends.
    const std::vector<QRect>& walk(const std::vector<double>& values, int resolution,
                                   const DrawerGeometry& geometry, DrawerRange* range);

private:
    std::vector<QRect> m_rects;
};

#endif
