#ifndef SELECTIONTABLE_P_H
#define SELECTIONTABLE_P_H

#include <QColor>
#include <QString>
#include <QTableWidget>

class Graph;
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

    /// Whether both are the same value of a device, whatever they are called.
    bool isSameValue(const SelectionRow& other) const;
};

/// What the tables of the selection dialogs have in common: numbers as decimal text, the colour as
/// the background of an empty cell.
namespace SelectionTable
{

constexpr int RowHeight = 20;

void setUp(QTableWidget* table, bool withGrid);
void append(QTableWidget* table, const SelectionRow& row);
SelectionRow read(const QTableWidget& table, int row);
QColor color(const QTableWidget& table, int row);
void setColor(QTableWidget* table, int row, const QColor& color);
/// Moves the cells themselves to the end of another table.
void move(QTableWidget* from, int row, QTableWidget* to);

} // namespace SelectionTable

#endif
