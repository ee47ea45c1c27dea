#include "GraphSelection_p.h"

#include "AppSettings.h"
#include "BasicTools.h"
#include "Graph.h"

GraphSelection::GraphSelection(const QTableWidget& table)
{
    for (int row = 0; row < table.rowCount(); ++row)
        m_rows << SelectionTable::read(table, row);
}

QList<Graph*> GraphSelection::makeGraphs() const
{
    QList<Graph*> graphs;
    for (const SelectionRow& row : m_rows)
        graphs << new Graph(row.address, row.motor, row.command, row.type, row.name, row.color);
    return graphs;
}

void GraphSelection::store(const QString& key) const
{
    if (key.isEmpty())
        return;
    QMap<QString, QMap<QString, QVariant>> entries;
    for (int i = 0; i < m_rows.size(); ++i) {
        const SelectionRow& row = m_rows.at(i);
        const char value[] = {row.address, row.motor, row.command, row.type};
        entries.insert(BasicTools::iToInt(i, 4, QString(), '0') + row.name,
                       {{QStringLiteral("ba"), QByteArray(value, sizeof value)},
                        {QStringLiteral("col"), row.color}});
    }
    AppSettings().saveParaMapVariant(entries, key);
}
