#ifndef POLLINGPAGE_H
#define POLLINGPAGE_H

#include "Page.h"
#include "TraceCommand.h"

#include <vector>

class ModuleLink;
class QTableWidget;
class QTableWidgetItem;
class TraceController;
class WTraceController;

/// Four values of each axis, those of one axis polled by each kind of trace controller: what the
/// module answered last, and how often each value really comes. A tick is heard while the page is
/// shown, so that the reads of the others never wait for it.
class PollingPage : public Page
{
    Q_OBJECT
public:
    /// \param link tells how often it can answer
    explicit PollingPage(const ModuleLink& link);

    void setAddress(char address) override;
    void take(const Command& reply) override;

    /// Shows the answers of the last `milliseconds` of virtual time, which passed since the last
    /// call, as a rate, and keeps the delays at what the link can answer.
    void showRates(int milliseconds);

private:
    struct Value {
        TraceCommand command;
        QTableWidgetItem* reading;
        QTableWidgetItem* rate;
        int answers;
    };

    void request(const TraceCommand* wanted);
    void limitDelays();

    const ModuleLink& m_link;
    WTraceController* m_firstAxis;
    TraceController* m_secondAxis;
    QTableWidget* m_table;
    std::vector<Value> m_values; // stands still while the controllers point into it
};

#endif
