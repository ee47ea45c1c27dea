#ifndef FUNCTIONDATA_H
#define FUNCTIONDATA_H

#include "AXRGuiExport.h"

#include <QFont>
#include <QGraphicsScene>
#include <QList>
#include <QObject>
#include <QPen>
#include <QPointer>
#include <QSizeF>

class MarkerItem;

/// Collects a series of numbers and draws it once, with a value axis and a grid, into a scene. For
/// hosts; nothing in this library uses it.
///
/// The plot's upper left corner is the scene's origin, and one unit of the scene is a pixel. The
/// values are spread evenly over the width. The scale of the value axis is the power of ten above
/// the values' span. The axis ends at the greatest value rounded up to a quarter, 0.25 whatever the
/// scale, of which a negative value that is no quarter itself passes one more; and at the least
/// value rounded down to a tenth of the scale.
class AXRGUI_EXPORT FunctionData : public QObject
{
    Q_OBJECT
public:
    /// Clears the scene and gives it the grid's rectangle.
    /// \param scene not owned. Without one nothing is drawn
    /// \param font of all texts
    /// \param width of the plot in units of 350 pixels, cut off at a million pixels; its height is
    ///        always 175 pixels
    FunctionData(QGraphicsScene* scene, QFont font, double width, QObject* parent = nullptr);

    /// Appends a value. What is not finite is ignored.
    void add(double value);

    /// Only kept for the log line of getMax().
    void setRange(double start, double end);

    /// Empty at first. Left and right are turned and read upwards.
    void setCaption(const QString& top, const QString& left, const QString& bottom,
                    const QString& right);

    /// Size of the plot in pixels.
    QSizeF getGrid() const { return m_grid; }

    /// The span of the markers' positions over the whole width, and that of their values over the
    /// whole height, in any unit. -1 by -1 at first. A part that is 0 or not finite is ignored.
    void setNorm(const QSizeF& norm);
    /// x of a position, in pixels.
    double normToWidth(int v) const;
    /// y of a value, in pixels.
    double normToHeight(double v) const;

    /// A marker line of the plot's size at a position, which is cut to a whole number first. The
    /// scene owns it; without a scene the caller does. It is held within the scene's rectangle when
    /// it is dragged; a parent with the plot's rectangle holds it within the plot.
    /// \param unused has no effect
    MarkerItem* addVerticalMarker(double position, QString text, QPen pen, bool unused,
                                  bool movable);
    /// The same at a value, which keeps its fraction.
    MarkerItem* addHorizontalMarker(double position, QString text, QPen pen, bool unused,
                                    bool movable);

    /// Draws everything into the scene and enlarges its rectangle by the room for the texts. Each
    /// sample's line is an item of its own. Without values it draws squared paper.
    ///
    /// To be called once: limits and scene are then those of the drawing, and a second call starts
    /// from them.
    /// \param unused has no effect
    /// \param pen of the curve; its brush is that of the captions
    /// \return the size in pixels of a view that shows everything; (-1, -1), with nothing drawn or
    ///         changed, when all values are equal (so also for a single one), when their span is
    ///         too large or too small for a double, and without a scene
    QSize fillGraph(int unused, QPen pen);

    /// Greatest less least value: of the values, and after fillGraph() of the drawn axis, in units
    /// of its scale. Far below 0 without values. Also logs range, limits and values.
    double getMax() const;

private:
    MarkerItem* addMarker(bool vertical, QPointF position, const QString& text, const QPen& pen,
                          bool movable);

    QList<double> m_values;
    double m_max;
    double m_min;
    double m_rangeEnd = 0.0;
    double m_rangeStart = 0.0;
    QPen m_pen;
    QFont m_font;
    QString m_topCaption;
    QString m_leftCaption;
    QString m_bottomCaption;
    QString m_rightCaption;
    QSizeF m_grid;
    QSizeF m_norm;
    QPointer<QGraphicsScene> m_scene;
};

#endif
