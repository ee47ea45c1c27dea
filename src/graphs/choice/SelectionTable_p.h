#ifndef SELECTIONTABLE_P_H
#define SELECTIONTABLE_P_H

#include "ValueKey.h"

#include <QColor>
#include <QString>
#include <QTableWidget>

class Graph;
class QLabel;
class TraceCommand;

/// One value that can be drawn, as a row of a selection dialog's tables shows it.
struct SelectionRow {
    enum Column { Command, Type, Name, Color, Address, Motor, ColumnCount };

    char command;
    char type;
    QString name;
    QColor color;
    char address;
    char motor;

    ValueKey key() const { return {address, command, type, motor}; }
    /// Whether both are the same value of a device, whatever they are called.
    bool isSameValue(const SelectionRow& other) const { return key() == other.key(); }
};

/// What the tables of the selection dialogs have in common: numbers as decimal text, the colour as
/// the background of an empty cell.
namespace SelectionTable
{

constexpr int RowHeight = 20;

/// Also makes Return and Space do as a click does on the current cell.
/// \param line tells address and motor of the row under the pointer or of the current one; the
///        columns of these may be out of sight
void setUp(QTableWidget* table, bool withGrid, QLabel* line);
SelectionRow rowOf(const TraceCommand& command, const QColor& color);
void append(QTableWidget* table, const SelectionRow& row);
SelectionRow read(const QTableWidget& table, int row);
/// Whether the same value is in the table, whatever it is called.
bool contains(const QTableWidget& table, const SelectionRow& row);
/// Whether a value has this text as its command number.
bool containsCommand(const QTableWidget& table, const QString& text);
QColor color(const QTableWidget& table, int row);
void setColor(QTableWidget* table, int row, const QColor& color);
/// Moves the cells themselves to the end of another table.
void move(QTableWidget* from, int row, QTableWidget* to);

} // namespace SelectionTable

#endif
