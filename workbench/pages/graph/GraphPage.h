#ifndef GRAPHPAGE_H
#define GRAPHPAGE_H

#include "Page.h"
#include "TraceCommand.h"

#include <vector>

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
    /// \param link tells whether there is a module to ask, how often it can answer, and the time
    explicit GraphPage(const ModuleLink& link);

    void setAddress(char address) override;
    void refresh() override;
    void take(const Command& reply) override;

    /// Shows the answers of the last `milliseconds`, which passed since the last call, as a rate,
    /// and keeps the delay at what the link can answer.
    void showRate(int milliseconds);

private:
    void offerParameters(char address);
    void restoreSelection();
    void showDefaultCurves();
    void pollCurves();
    void request(const TraceCommand* wanted);
    int curves() const { return static_cast<int>(m_polled.size()); }

    const ModuleLink& m_link;
    char m_address = 1;
    ValueOverTimeGraph* m_graph;
    WTraceController* m_controller;
    QLabel* m_rate;
    std::vector<TraceCommand> m_offered; // stand still while the graph points to them
    std::vector<TraceCommand> m_polled;  // and these while the controller does
    int m_answers = 0;
};

#endif
