#ifndef DRAWERAREA_H
#define DRAWERAREA_H

#include "AXRGuiExport.h"

#include <QList>
#include <QTimer>
#include <QWidget>

#include <memory>
#include <mutex>
#include <utility>

class Chart;
class DrawerFrame;
class QPainter;
struct DrawerRange;

/// Paints charts into one frame with a Y axis and no time: each sample, or each n-th one, is a
/// pixel column, the newest at the right. It paints again when its timer, the toolkit or a scroll
/// bar wants it, not when a sample comes or something is set: what is told here of a change is seen
/// with the next paint. The labels of the Y axis have six digits, and a tool tip with all of them.
///
/// addTraceValue() may be called from any thread while the area lives, all else from the GUI's
/// thread only. The signals come from within a paint: a host must neither delete the area, nor
/// repaint it at once, nor run an event loop in there.
class AXRGUI_EXPORT DrawerArea : public QWidget
{
    Q_OBJECT
public:
    /// At least 100 x 100, expanding. Take care with a plain 0, which is an interval.
    explicit DrawerArea(QWidget* parent = nullptr);
    /// As above, but with this interval in ms instead of 1000, and the default size policy.
    explicit DrawerArea(int repaintInterval);
    ~DrawerArea() override;

    /// Sets the chart's limit to the chart size. The chart remains the caller's, and must leave the
    /// list before it dies. Null is ignored; a chart that is added twice gets each sample twice.
    void addChart(Chart* chart);
    /// Takes all charts of this value out of the list; each keeps its samples.
    void removeChart(char address, char motorBank, char command, char type);
    void removeAllCharts();
    /// The list itself. It must not be changed while samples are fed in.
    QList<Chart*>* getCharts() { return &m_charts; }

    /// To all charts of this value; without one the sample is dropped.
    void addTraceValue(char address, char motorBank, char command, char type, int value);

    /// How many samples each chart keeps, 1000 by default. Less than 0 leaves each chart its own
    /// limit; a chart that holds more gets shorter with its next sample.
    void setChartSize(int size);
    /// In ms, not below 0; also of the running timer. 0 repaints whenever the event loop is idle.
    void setRepaintInterval(int interval);
    /// The state of a scroll bar, in samples, all 0 by default: with the value at its maximum the
    /// newest samples are in view. `min` is not used.
    void setDrawingInterval(int min, int max, int value);
    /// Each n-th sample is a column. 1 by default; less is ignored.
    void setResolution(int resolution);

    void setYAxisCaption(QString caption) { m_yAxisCaption = std::move(caption); }
    QString getYAxisCaption() const { return m_yAxisCaption; }

    /// The bounds that the next paint draws with, whoever has set them.
    int getMinValue() const { return m_minValue; }
    int getMaxValue() const { return m_maxValue; }

public Q_SLOTS:
    /// Starts to repaint at the interval; nothing else depends on it.
    void startDrawer();
    void stopDrawer();
    /// Empties all charts, without a repaint.
    void clearValues();
    /// Keeps the range that is drawn now, until the bounds are set.
    void doManualScaling() { m_dynamicScaling = false; }
    /// The default. The range follows the samples of the visible charts that are in view: from the
    /// least - 1 to the greatest + 1, cut to whole numbers, and -100..100 without any.
    void doDynamicScaling() { m_dynamicScaling = true; }
    /// The bounds of the Y axis, 0..100 at the start. With equal bounds no curve is drawn, with
    /// crossed ones it stands on its head. Dynamic scaling overwrites them with the next paint.
    void setMaxValue(int max) { m_maxValue = max; }
    void setMinValue(int min) { m_minValue = min; }

Q_SIGNALS:
    /// In dynamic scaling, at the end of a paint that found another range; the next one draws it.
    void scaleChanged(int minValue, int maxValue);
    /// At the start of each paint: how many columns there are; less than 0 in an area that is too
    /// narrow for any.
    void changedChartWidth(int width);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    DrawerArea(QWidget* parent, int repaintInterval);
    void draw(QPainter* painter);
    void takeRange(const DrawerRange& range);

    int m_maxValue = 100;
    int m_minValue = 0;
    int m_chartSize = 1000;
    int m_intervalMin = 0;
    int m_intervalMax = 0;
    int m_intervalValue = 0;
    int m_resolution = 1;
    QString m_yAxisCaption;
    QList<Chart*> m_charts;
    std::mutex m_chartsMutex; // before a chart's own
    QTimer m_repaintTimer;
    int m_repaintInterval;
    bool m_dynamicScaling = true;
    std::unique_ptr<DrawerFrame> m_frame;
};

#endif
