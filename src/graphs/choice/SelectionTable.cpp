#include "SelectionTable_p.h"

#include "Bytes.h"
#include "TraceCommand.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>

namespace
{

constexpr int NumberWidth = 50;
constexpr int OtherWidth = 269; // all columns but the name, and the scroll bar

char byteOf(const QTableWidget& table, int row, SelectionRow::Column column)
{
    return toByte(table.item(row, column)->text().toInt());
}

/// What the tables do under the hands besides taking clicks.
class Hands : public QObject
{
public:
    Hands(QTableWidget* table, QLabel* line) : QObject(table), m_table(table), m_line(line)
    {
        table->installEventFilter(this);
        table->setMouseTracking(true);
        connect(table, &QTableWidget::cellEntered, this, &Hands::showRow);
        connect(table, &QTableWidget::currentCellChanged, this, &Hands::showRow);
        connect(table->model(), &QAbstractItemModel::rowsRemoved, this, [this] {
            m_line->clear();
            showRow(m_table->currentRow());
        });
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::KeyPress && m_table->currentRow() >= 0) {
            const int key = static_cast<QKeyEvent*>(event)->key();
            if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space) {
                if (!static_cast<QKeyEvent*>(event)->isAutoRepeat())
                    emit m_table->cellClicked(m_table->currentRow(), m_table->currentColumn());
                return true;
            }
        }
        return QObject::eventFilter(watched, event);
    }

private:
    void showRow(int row)
    {
        const QTableWidgetItem* cell = m_table->item(row, SelectionRow::Name);
        if (cell)
            m_line->setText(cell->toolTip());
    }

    QTableWidget* m_table;
    QLabel* m_line;
};

} // namespace

void SelectionTable::setUp(QTableWidget* table, bool withGrid, QLabel* line)
{
    table->setColumnCount(SelectionRow::ColumnCount);
    table->setHorizontalHeaderLabels({QTableWidget::tr("Cmd"), QTableWidget::tr("Type"),
                                      QTableWidget::tr("Name"), QTableWidget::tr("Color"),
                                      QTableWidget::tr("Address"), QTableWidget::tr("Motor")});
    QHeaderView* header = table->horizontalHeader();
    header->setMinimumSectionSize(NumberWidth);
    header->setSectionResizeMode(QHeaderView::Interactive);
    for (int column = 0; column < SelectionRow::ColumnCount; ++column)
        table->setColumnWidth(column, column == SelectionRow::Name
                                          ? table->maximumWidth() - OtherWidth
                                          : NumberWidth);
    table->verticalHeader()->hide();
    table->verticalHeader()->setMinimumSectionSize(RowHeight);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    table->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    table->setTabKeyNavigation(false); // Tab leaves the table
    table->setShowGrid(withGrid);
    new Hands(table, line);
}

SelectionRow SelectionTable::rowOf(const TraceCommand& command, const QColor& color)
{
    return {command.getCommand(), command.getType(),     command.getCaption(), color,
            command.getAddress(), command.getMotorBank()};
}

void SelectionTable::append(QTableWidget* table, const SelectionRow& row)
{
    const int index = table->rowCount();
    const QString texts[] = {
        QString::number(u8(row.command)), QString::number(u8(row.type)), row.name, QString(),
        QString::number(u8(row.address)), QString::number(u8(row.motor))};
    table->insertRow(index);
    table->setRowHeight(index, RowHeight);
    // the last columns may be out of sight
    const QString whole =
        QTableWidget::tr("%1, address %2, motor %3").arg(row.name, texts[4], texts[5]);
    for (int column = 0; column < SelectionRow::ColumnCount; ++column) {
        auto* cell = new QTableWidgetItem(texts[column]);
        cell->setTextAlignment(Qt::AlignCenter);
        cell->setToolTip(whole);
        table->setItem(index, column, cell);
    }
    setColor(table, index, row.color);
}

SelectionRow SelectionTable::read(const QTableWidget& table, int row)
{
    return {byteOf(table, row, SelectionRow::Command),   byteOf(table, row, SelectionRow::Type),
            table.item(row, SelectionRow::Name)->text(), color(table, row),
            byteOf(table, row, SelectionRow::Address),   byteOf(table, row, SelectionRow::Motor)};
}

bool SelectionTable::contains(const QTableWidget& table, const SelectionRow& row)
{
    for (int i = 0; i < table.rowCount(); ++i) {
        if (read(table, i).isSameValue(row))
            return true;
    }
    return false;
}

bool SelectionTable::containsCommand(const QTableWidget& table, const QString& text)
{
    for (int i = 0; i < table.rowCount(); ++i) {
        if (table.item(i, SelectionRow::Command)->text() == text)
            return true;
    }
    return false;
}

QColor SelectionTable::color(const QTableWidget& table, int row)
{
    return table.item(row, SelectionRow::Color)->background().color();
}

void SelectionTable::setColor(QTableWidget* table, int row, const QColor& color)
{
    table->item(row, SelectionRow::Color)->setBackground(color);
}

void SelectionTable::move(QTableWidget* from, int row, QTableWidget* to)
{
    const int index = to->rowCount();
    to->insertRow(index);
    to->setRowHeight(index, RowHeight);
    for (int column = 0; column < SelectionRow::ColumnCount; ++column)
        to->setItem(index, column, from->takeItem(row, column));
    from->removeRow(row);
}
