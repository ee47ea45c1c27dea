#ifndef GRAPHSELECTION_P_H
#define GRAPHSELECTION_P_H

#include "SelectionTable_p.h"

#include <QVector>

/// The curves that a user chose in a GraphSelector, in their order.
class GraphSelection
{
public:
    GraphSelection() = default; ///< none: the host's own
    /// \param table as the dialog has it after accept()
    explicit GraphSelection(const QTableWidget& table);

    /// New ones without samples, the caller's to delete.
    QList<Graph*> makeGraphs() const;
    /// For the host to read at its next start: under the row's number in four digits and the name,
    /// "ba" has address, motor, command and type as four bytes, "col" the colour. Nothing is stored
    /// without a key.
    void store(const QString& key) const;

private:
    QVector<SelectionRow> m_rows;
};

#endif
