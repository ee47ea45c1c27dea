#ifndef SIMPLESCALEDDRAWER_H
#define SIMPLESCALEDDRAWER_H

#include "DrawerPanel.h"

#include <memory>
#include <vector>

class TraceCommand;

namespace Ui
{
class SimpleScaledDrawer;
}

/// Charts in a DrawerArea, a scroll bar beneath, and the panel for their scaling beside. On a right
/// click it lets the user choose charts from the traceable values, if the host allows it.
class AXRGUI_EXPORT SimpleScaledDrawer : public DrawerPanel
{
    Q_OBJECT
public:
    explicit SimpleScaledDrawer(QWidget* parent = nullptr);
    /// Deletes the charts that the user chose.
    ~SimpleScaledDrawer() override;

    /// As in DrawerPanel. The panel beside shows it, without its signals.
    void doManualScaling();
    void doDynamicScaling();
    void setMinValue(int min);
    void setMaxValue(int max);

    /// How many samples each chart keeps, 1000 by default. The scroll bar goes to its new end,
    /// which is not below 0.
    void setChartSize(int size);

    /// Charts that the user chose belong to the drawer, and die when they are taken out here or by
    /// another choice; those that the host added remain its own.
    void removeChart(char address, char motorBank, char command, char type);
    void removeAllCharts();

    /// Whether a right click opens the selection, false by default.
    void setChartSelectorEnabled(bool enabled) { m_chartSelectorEnabled = enabled; }
    /// What the selection offers. The commands remain the caller's, and must live as long as they
    /// are offered; null is ignored.
    void addTraceableParameter(TraceCommand* command);
    void addTraceableParameters(QList<TraceCommand*>* commands);
    void removeAllTraceableParameter();

Q_SIGNALS:
    /// After the selection was closed, with Cancel, too. The charts are new and empty after Ok.
    void chartSelectionChanged();

protected:
    void mousePressEvent(QMouseEvent* event) override;

private:
    void showBounds();
    void deleteOwnChartsThatLeft();

    std::unique_ptr<Ui::SimpleScaledDrawer> m_ui;
    QList<TraceCommand*> m_traceableParameters;
    bool m_chartSelectorEnabled = false;
    std::vector<std::unique_ptr<Chart>> m_ownCharts;
};

#endif
