#ifndef GRAPHLOG_P_H
#define GRAPHLOG_P_H

#include <QList>
#include <QString>

#include <memory>

class CsvLog;
class Graph;
class GraphClock;

/// The running log of a live graph: the columns of its export, and a line for each reply.
class GraphLog
{
public:
    GraphLog();
    ~GraphLog();

    bool isRunning() const { return m_file != nullptr; }
    /// Begins a new file, whose time counts from when it is there. When it cannot be written, the
    /// log that runs goes on.
    void start(const QString& fileName, const QList<Graph*>& graphs, const GraphClock& clock);
    void end();
    /// A sample of a curve, of which there may be more or fewer than in the header by now. Lost
    /// when the file cannot be written.
    /// \return its time in the file
    qint64 add(int column, int columns, int value, qint64 now);

private:
    std::unique_ptr<CsvLog> m_file; // none while nothing is logged
    qint64 m_startTime = 0;
};

#endif
