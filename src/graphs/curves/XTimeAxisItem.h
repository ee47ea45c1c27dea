#ifndef XTIMEAXISITEM_H
#define XTIMEAXISITEM_H

#include "AXRGuiExport.h"

#include <QGraphicsObject>
#include <QPen>

#include <memory>

class AxisLabels;
class TimeAxisGeometry;

/// The axes of a graph: values to the left, time along the zero line, with the seconds of the wall
/// clock as ticks that move to the left, 10 ms for a pixel. Its painting chooses the value ticks
/// and tells where they lie, so that the curves of the next frame can be scaled to them.
class AXRGUI_EXPORT XTimeAxisItem : public QGraphicsObject
{
    Q_OBJECT
public:
    XTimeAxisItem();
    ~XTimeAxisItem() override;

    /// The scene's rectangle; empty outside a scene.
    QRectF boundingRect() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option,
               QWidget* widget = nullptr) override;

    /// Of the whole item with its labels, in pixels; default 10 x 10.
    void setSize(qreal width, qreal height);
    /// Time at the right edge, ms since the epoch.
    void setActualTime(qint64 actualTime) { m_actualTime = actualTime; }
    /// Range that is asked for, default -50..150. Painting moves equal ones apart, by 1 to each
    /// side.
    void setMinValue(int minValue) { m_minValue = minValue; }
    void setMaxValue(int maxValue) { m_maxValue = maxValue; }
    /// Drawn at the top of the value axis.
    void setYCaption(const QString& yCaption) { m_yCaption = yCaption; }
    /// Room for the value labels in pixels, default 40; 40 and below is ignored. Holds from the
    /// next painting on.
    void setMaxTextWidth(int maxTextWidth);

    /// Left edge of the curves' area in pixels, as of the last painting; 61 before the first one.
    qreal plotLeft() const { return m_leftMargin + 1.0; }
    /// From there to the right edge as it is set now.
    qreal plotWidth() const { return m_width - plotLeft(); }

Q_SIGNALS:
    // All three leave within each painting, in this order: updateMaxTextWidth(), updateYMinMax(),
    // updateMinMaxValue().
    /// Pixel rows of the topmost and of the bottommost tick.
    void updateYMinMax(qreal min, qreal max);
    /// Values of the bottommost and of the topmost tick.
    void updateMinMaxValue(qreal min, qreal max);
    /// Of the widest value label, in pixels, and 20 more.
    void updateMaxTextWidth(qreal width);

private:
    Q_DISABLE_COPY(XTimeAxisItem)
    friend class CurveLayer;

    /// Moves equal ends of the range apart.
    TimeAxisGeometry geometry(int fontHeight);

    int drawValueAxis(QPainter* painter, const TimeAxisGeometry& geometry);
    void drawTimeAxis(QPainter* painter, const TimeAxisGeometry& geometry);

    double m_width = 10.0;
    double m_height = 10.0;
    qint64 m_actualTime = 0;
    int m_minValue = -50;
    int m_maxValue = 150;
    QString m_yCaption;
    double m_leftMargin = 60.0;
    double m_areaTop = 10.0;
    double m_areaBottom = 20.0;
    int m_maxTextWidth = 40;
    QPen m_pen;
    std::unique_ptr<AxisLabels> m_labels;
};

#endif
