#include "GraphLog_p.h"

#include "Csv_p.h"
#include "GraphClock_p.h"
#include "GraphExport_p.h"

GraphLog::GraphLog() = default;

GraphLog::~GraphLog() = default;

void GraphLog::start(const QString& fileName, const QList<Graph*>& graphs, const GraphClock& clock)
{
    auto file = std::make_unique<CsvLog>(fileName);
    if (!file->start(GraphExport::header(graphs)))
        return;
    m_file = std::move(file);
    m_startTime = clock.now();
}

void GraphLog::end() { m_file.reset(); }

qint64 GraphLog::add(int column, int columns, int value, qint64 now)
{
    const qint64 elapsed = now - m_startTime;
    m_file->append(GraphExport::line(elapsed, column, columns, value));
    return elapsed;
}
