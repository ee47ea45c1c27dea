#ifndef GRAPHEXPORT_P_H
#define GRAPHEXPORT_P_H

#include "Csv_p.h"

#include <QList>

class Graph;

/// The file of all samples of a live graph, one line each, in ascending time from the first one. It
/// holds what the curves have when it is made.
class GraphExport
{
public:
    explicit GraphExport(const QList<Graph*>& graphs);

    /// Whole or not at all; without a name not at all.
    bool save(const QString& fileName) const { return Csv::save(fileName, m_lines); }

    /// The first line: the time's name and the curves'.
    static CsvLine header(const QList<Graph*>& graphs);
    /// A value in its curve's column; the others stay empty.
    /// \param time ms
    static CsvLine line(qint64 time, int column, int columns, int value);

private:
    QByteArray m_lines;
};

#endif
