#include "ChartSelector.h"

#include "Chart.h"
#include "DrawerArea.h"
#include "SelectionTable_p.h"
#include "TraceCommand.h"
#include "WheelFocus.h"
#include "ui_ChartSelector.h"

#include <QColorDialog>
#include <QPointer>

ChartSelector::ChartSelector(QWidget* parent, DrawerArea* area, QList<TraceCommand*>* traceCommands)
    : m_ui(std::make_unique<Ui::ChartSelector>())
{
    m_ui->setupUi(this);
    WheelFocus::guard(this);
    setWindowTitle(
        tr("Select charts for \"%1\" graph").arg(parent ? parent->windowTitle() : QString()));
    SelectionTable::setUp(m_ui->twAvailable, false, m_ui->lblRow);
    SelectionTable::setUp(m_ui->twSelected, false, m_ui->lblRow);
    const QList<Chart*> charts = area ? *area->getCharts() : QList<Chart*>();
    for (const Chart* chart : charts)
        SelectionTable::append(m_ui->twSelected,
                               {chart->getCommand(), chart->getType(), chart->getLabel(),
                                chart->getColor(), chart->getAddress(), chart->getMotorBank()});
    const QList<TraceCommand*> commands = traceCommands ? *traceCommands : QList<TraceCommand*>();
    for (const TraceCommand* command : commands) {
        if (!command)
            continue;
        const SelectionRow row = SelectionTable::rowOf(*command, m_defaultColor);
        if (!SelectionTable::contains(*m_ui->twSelected, row))
            SelectionTable::append(m_ui->twAvailable, row);
    }
    connect(m_ui->twSelected, &QTableWidget::cellClicked, this,
            &ChartSelector::onLWSelectedClicked);
    connect(m_ui->twAvailable, &QTableWidget::cellClicked, this,
            &ChartSelector::onLWAvailableClicked);
}

ChartSelector::~ChartSelector() = default;

QTableWidget* ChartSelector::getSelectionTable() const { return m_ui->twSelected; }

bool ChartSelector::isParameterSelected(QString text) const
{
    return SelectionTable::containsCommand(*m_ui->twSelected, text);
}

void ChartSelector::onLWSelectedClicked(int x, int y)
{
    click(m_ui->twSelected, x, y, m_ui->twAvailable);
}

void ChartSelector::onLWAvailableClicked(int x, int y)
{
    click(m_ui->twAvailable, x, y, m_ui->twSelected);
}

void ChartSelector::click(QTableWidget* table, int row, int column, QTableWidget* other)
{
    if (row < 0 || row >= table->rowCount())
        return;
    if (column <= SelectionRow::Name) {
        SelectionTable::move(table, row, other);
        return;
    }
    // getColor() keeps its dialog on the stack, where a parent that is deleted meanwhile would
    // delete it, too
    const QPointer<QColorDialog> dialog(new QColorDialog(SelectionTable::color(*table, row), this));
    const QPersistentModelIndex cell(table->model()->index(row, SelectionRow::Color));
    dialog->exec();
    if (!dialog)
        return;
    const QColor color = dialog->selectedColor();
    delete dialog;
    if (color.isValid() && cell.isValid())
        SelectionTable::setColor(table, cell.row(), color);
    table->clearSelection();
}
