#ifndef GRAPHPAGE_H
#define GRAPHPAGE_H

#include "Every.h"
#include "Page.h"
#include "TraceCommand.h"

#include <vector>

class DelayFloor;
class ModuleLink;
class QLabel;
class ValueOverTimeGraph;
class WTraceController;

/// Live curves of any values of the module. Polling goes on while other pages are shown, so that
/// what is done there can be seen here. The chosen curves and the scaling are kept.
class GraphPage : public Page
{
    Q_OBJECT
public:
    explicit GraphPage(const PageContext& context);

    void setAddress(char address) override;
    void refresh() override;
    /// Keeps the delay at what the link can answer, and once in a second shows how often the values
    /// came.
    void frame(qint64 now) override;
    void take(const Command& reply) override;
    void tour(TourGuide& guide) override;

private:
    void offerParameters(char address);
    void restoreSelection();
    void showDefaultCurves();
    void pollCurves();
    void request(const TraceCommand* wanted);

    const ModuleLink& m_link;
    char m_address = 1;
    ValueOverTimeGraph* m_graph;
    WTraceController* m_controller;
    DelayFloor* m_delay;
    QLabel* m_rate;
    std::vector<TraceCommand> m_offered; // stand still while the graph points to them
    std::vector<TraceCommand> m_polled;  // and these while the controller does
    int m_answers = 0;
    Every m_second{1000};
};

#endif
