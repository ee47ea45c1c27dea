#include "GraphExport_p.h"

#include "Graph.h"
#include "Numbers.h"

#include <algorithm>
#include <vector>

GraphExport::GraphExport(const QList<Graph*>& graphs) : m_lines(header(graphs).bytes())
{
    struct Entry {
        qint64 time;
        int column;
        int value;
    };
    std::vector<Entry> entries;
    for (int i = 0; i < graphs.size(); ++i) {
        const QList<TValue> values = graphs.at(i)->getValues();
        for (const TValue& sample : values)
            entries.push_back({sample.time, i, toInt(sample.value)});
    }
    std::stable_sort(entries.begin(), entries.end(),
                     [](const Entry& a, const Entry& b) { return a.time < b.time; });
    for (const Entry& entry : entries)
        m_lines += line(entry.time - entries.front().time, entry.column, graphs.size(), entry.value)
                       .bytes();
}

CsvLine GraphExport::header(const QList<Graph*>& graphs)
{
    CsvLine line;
    line.add(QStringLiteral("timestamp[ms]"));
    for (const Graph* graph : graphs)
        line.add(graph->getLabel());
    return line;
}

CsvLine GraphExport::line(qint64 time, int column, int columns, int value)
{
    CsvLine line;
    return line.add(time).skip(column).add(value).skip(columns - column - 1);
}
