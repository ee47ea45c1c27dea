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
/// bar wants it, not when a sample comes.
///
/// addTraceValue() may be called from any thread at any time, all else from the GUI's thread only.
/// The signals come from within a paint: a host must neither delete the area nor run an event loop
/// in there.
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
    /// list before it dies.
    void addChart(Chart* chart);
    /// Takes all charts of this value out of the list.
    void removeChart(char address, char motorBank, char command, char type);
    void removeAllCharts();
    /// The list itself. It must not be changed while samples are fed in.
    QList<Chart*>* getCharts() { return &m_charts; }

    /// To all charts of this value; without one the sample is dropped.
    void addTraceValue(char address, char motorBank, char command, char type, int value);

    /// How many samples each chart keeps, 1000 by default.
    void setChartSize(int size);
    /// In ms; also of the running timer.
    void setRepaintInterval(int interval);
    /// The state of a scroll bar: at its maximum the newest samples are in view.
    void setDrawingInterval(int min, int max, int value);
    /// Each n-th sample is a column. 1 by default; less is ignored.
    void setResolution(int resolution);

    void setYAxisCaption(QString caption) { m_yAxisCaption = std::move(caption); }
    QString getYAxisCaption() const { return m_yAxisCaption; }

public Q_SLOTS:
    /// Starts to repaint at the interval; nothing else depends on it.
    void startDrawer();
    void stopDrawer();
    /// Empties all charts, without a repaint.
    void clearValues();
    void doManualScaling() { m_dynamicScaling = false; }
    /// The range follows the samples in view, and is -100..100 without any.
    void doDynamicScaling() { m_dynamicScaling = true; }
    /// The bounds of the Y axis, 0..100 at the start, from the next paint on. With equal bounds no
    /// curve is drawn. Dynamic scaling overwrites them.
    void setMaxValue(int max) { m_maxValue = max; }
    void setMinValue(int min) { m_minValue = min; }

Q_SIGNALS:
    /// At the end of a paint that found another range; the next one draws it.
    void scaleChanged(int minValue, int maxValue);
    /// At the start of each paint: how many columns there are, not less than 0.
    void changedChartWidth(int width);

protected:
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
