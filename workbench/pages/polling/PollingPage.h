#ifndef POLLINGPAGE_H
#define POLLINGPAGE_H

#include "Every.h"
#include "Page.h"
#include "TraceCommand.h"

#include <array>
#include <vector>

class DelayFloor;
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
    explicit PollingPage(const PageContext& context);

    void setAddress(char address) override;
    /// Keeps the delays at what the link can answer, and once in a second shows the answers as
    /// rates.
    void frame(qint64 now) override;
    void take(const Command& reply) override;
    void tour(TourGuide& guide) override;

private:
    struct Value {
        TraceCommand command;
        QTableWidgetItem* reading;
        QTableWidgetItem* rate;
        int answers;
    };

    void request(const TraceCommand* wanted);

    const ModuleLink& m_link;
    WTraceController* m_firstAxis;
    TraceController* m_secondAxis;
    std::array<DelayFloor*, 2> m_delays;
    QTableWidget* m_table;
    Every m_second{1000};
    std::vector<Value> m_values; // stands still while the controllers point into it
};

#endif
