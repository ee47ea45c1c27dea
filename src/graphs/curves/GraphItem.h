#ifndef GRAPHITEM_H
#define GRAPHITEM_H

#include "AXRGuiExport.h"
#include "Graph.h"
#include "MotorController.h"

#include <QGraphicsItem>
#include <QPen>

#include <memory>

class CurveDrawing;
struct CurveGeometry;

/// Draws one curve: 10 ms of the clock for a pixel, the time of setActualTime() at the right edge,
/// the value range over the item's height. What lies outside the range is drawn outside the item.
///
/// Samples that follow each other in one pixel column are drawn as one stroke from the least to the
/// greatest. A sample stands in the column of its 10 ms of the clock, which is the one of its exact
/// age or the next one; so the curve moves to the left as a whole. Lines go from sample to sample
/// in the order of arrival, also where times do not ascend.
///
/// The setters repaint nothing, but for setValues(): the next painting shows what they set.
class AXRGUI_EXPORT GraphItem : public QGraphicsItem, public MotorController
{
public:
    GraphItem();
    ~GraphItem() override;

    QRectF boundingRect() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option,
               QWidget* widget = nullptr) override;

    /// In pixels, default 10 x 10.
    void setSize(double width, double height);
    /// Time at the right edge, ms since the epoch; 0 at first. Not shown are younger samples, and
    /// those older by more than 10 ms for each pixel of the width.
    void setActualTime(qint64 actualTime) { m_actualTime = actualTime; }
    /// Value at the bottom edge, default -50, and at the top edge, default 150. Painting moves
    /// equal ones apart, by 1 to each side.
    void setMinValue(int minValue) { m_minValue = minValue; }
    void setMaxValue(int maxValue) { m_maxValue = maxValue; }
    /// When a sample arrives, those older than this (ms since the epoch, default the time of
    /// construction) are dropped from the front, in the order of arrival, up to the first one that
    /// is not; whole pixel columns at a time. Samples that ascend in time have no other limit; of
    /// others the last 50000 columns are kept.
    void setTimeOutTime(const qint64& timeOutTime);

    char getCommand() const { return m_command; }
    void setCommand(char command) { m_command = command; }
    char getType() const { return m_type; }
    void setType(char type) { m_type = type; }

    /// Big dots (the default), each more than 20 pixels of the scene away from the one before, and
    /// the first one from the item's upper left corner; else a small dot for each sample. Of a
    /// pixel column only its first, highest, lowest and last sample count.
    void setUseBoldDataPoints(bool use) { m_useBoldDataPoints = use; }
    /// Whether there are dots at all; on by default.
    void setDataPointsEnabled(bool enabled) { m_dataPointsEnabled = enabled; }
    /// Lines between the samples; off by default.
    void setUseConnectedDataPoints(bool use) { m_useConnectedDataPoints = use; }

    /// Replaces colour and samples, which may be in any order of time, and repaints. Whatever their
    /// age, all stay until the next one arrives.
    void setValues(QColor color, QList<TValue> values);
    /// A sample of now.
    void addValue(double value);
    /// A sample of `time`, in ms since the epoch.
    void addValue(double value, qint64 time);

private:
    Q_DISABLE_COPY(GraphItem)
    friend class CurveLayer;
    friend class GraphScene;

    CurveGeometry geometry() const;
    void separateRange();

    /// While the picture stands still it keeps what it shows, also when the clock is set back.
    void setFrozen(bool frozen);
    /// Whether a sample was not taken because of that.
    bool isIncomplete() const;

    /// Takes over what the graph has stored with its time-out, and what it gets from now on.
    /// \param kept what an item before this one showed and is to be shown still; may be null
    void follow(Graph* graph, const std::shared_ptr<CurveColumns>& kept);

    char m_command = 0;
    char m_type = 0;
    double m_width = 10.0;
    double m_height = 10.0;
    qint64 m_actualTime = 0;
    int m_minValue = -50;
    int m_maxValue = 150;
    QPen m_pen; // its colour is the curve's
    std::shared_ptr<CurveColumns> m_columns;
    bool m_useConnectedDataPoints = false;
    bool m_useBoldDataPoints = true;
    bool m_dataPointsEnabled = true;
    bool m_hasLines = false; // its layer drew them for the next painting
    std::unique_ptr<CurveDrawing> m_drawing;
};

#endif
