#ifndef DRAWERPANEL_H
#define DRAWERPANEL_H

#include "AXRGuiExport.h"

#include <QList>
#include <QWidget>

class Chart;
class DrawerArea;
class QScrollBar;

/// What SimpleDrawer and SimpleScaledDrawer have in common: a DrawerArea and a scroll bar that
/// moves it through the samples, at its end the newest.
///
/// Everything is the area's, which paints 10 times a second between startDrawing() and
/// stopDrawing(); before and after, what is set or fed in is seen only when something else causes a
/// paint, a scroll for example.
///
/// requestedTraceValue() may be called from any thread while the drawer lives, all else from the
/// GUI's thread only.
class AXRGUI_EXPORT DrawerPanel : public QWidget
{
    Q_OBJECT
public:
    /// Also the window's title.
    void setYAxisCaption(QString caption);
    QString getYAxisCaption() const;

    /// Manual scaling keeps the range that is drawn now. Dynamic is the default.
    void doManualScaling();
    void doDynamicScaling();
    /// The bounds of the Y axis, 0..100 at the start. Dynamic scaling overwrites them.
    void setMinValue(int min);
    void setMaxValue(int max);

    /// The chart remains the caller's, and must leave the drawer before it dies.
    void addChart(Chart* chart);
    void removeAllCharts();
    /// The list itself. It must not be changed while samples are fed in.
    QList<Chart*>* getCharts();
    /// Takes the samples of all charts, also of hidden ones; the charts stay.
    void clearChartValues();

public Q_SLOTS:
    void startDrawing();
    /// Samples are still taken.
    void stopDrawing();
    /// One sample for each chart of this value, which is dropped if there is none. The motor bank
    /// comes after the type here.
    void requestedTraceValue(char address, char command, char type, char motorBank, int value);
    /// For the area, which tells its columns in each paint. The samples that fit into the width are
    /// in view anyway, so the scroll bar starts behind them; where all fit, it has nowhere to go.
    /// A bar that was at its end stays there.
    void handleChangedChartWidth(int width);

protected:
    explicit DrawerPanel(QWidget* parent);
    /// To be called once, in the constructor.
    void setUp(DrawerArea* area, QScrollBar* bar);
    /// \param end of the scroll bar, to which it goes
    void setSizes(int chartSize, int end);

    DrawerArea* area() const { return m_area; }

private Q_SLOTS:
    void scrollBarValueChanged(int value);

private:
    DrawerArea* m_area = nullptr;
    QScrollBar* m_bar = nullptr;
    int m_end = 0;
};

#endif
