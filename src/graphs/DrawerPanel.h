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
/// requestedTraceValue() may be called from any thread at any time, all else from the GUI's thread
/// only.
class AXRGUI_EXPORT DrawerPanel : public QWidget
{
    Q_OBJECT
public:
    /// Also the window's title.
    void setYAxisCaption(QString caption);
    QString getYAxisCaption() const;

    void doManualScaling();
    void doDynamicScaling();
    void setMinValue(int min);
    void setMaxValue(int max);

    /// The chart remains the caller's, and must leave the drawer before it dies.
    void addChart(Chart* chart);
    void removeAllCharts();
    /// The list itself. It must not be changed while samples are fed in.
    QList<Chart*>* getCharts();
    void clearChartValues();

public Q_SLOTS:
    /// Paints 10 times a second; samples are taken without, too.
    void startDrawing();
    void stopDrawing();
    /// The motor bank comes after the type here. A value without a chart is dropped.
    void requestedTraceValue(char address, char command, char type, char motorBank, int value);
    /// The samples that fit into the width are in view anyway, so the scroll bar starts behind
    /// them. Its range never gets empty to the other side, and a bar at its end stays there.
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
