#include "GraphSelector.h"

#include "Bytes.h"
#include "ColorPicker.h"
#include "Graph.h"
#include "Instruction.h"
#include "SelectionTable_p.h"
#include "TraceCommand.h"
#include "ValueOverTimeGraph.h"
#include "WheelFocus.h"
#include "ui_GraphSelector.h"

#include <QPointer>
#include <QSignalBlocker>

namespace
{

struct Group {
    const char* name;
    int command; // -1: any
};
constexpr Group groups[] = {
    {QT_TRANSLATE_NOOP("GraphSelector", "axis parameter"), static_cast<int>(Instruction::GAP)},
    {QT_TRANSLATE_NOOP("GraphSelector", "user variables"), static_cast<int>(Instruction::GGP)},
    {QT_TRANSLATE_NOOP("GraphSelector", "IOs"), static_cast<int>(Instruction::GIO)},
    {QT_TRANSLATE_NOOP("GraphSelector", "all"), -1}};

} // namespace

GraphSelector::GraphSelector(QWidget* parent, ValueOverTimeGraph* graph,
                             QList<TraceCommand*>* traceCommands)
    : m_ui(std::make_unique<Ui::GraphSelector>()), m_graph(graph), m_traceCommands(traceCommands)
{
    m_ui->setupUi(this);
    WheelFocus::guard(this);
    setWindowTitle(
        tr("Select values for \"%1\" graph").arg(parent ? parent->windowTitle() : QString()));
    SelectionTable::setUp(m_ui->twAvailable, true, m_ui->lblRow);
    SelectionTable::setUp(m_ui->twSelected, false, m_ui->lblRow);
    const QList<Graph*> graphs = m_graph ? m_graph->getGraphs() : QList<Graph*>();
    for (const Graph* curve : graphs)
        SelectionTable::append(m_ui->twSelected,
                               {curve->getCommand(), curve->getType(), curve->getLabel(),
                                curve->getColor().isValid() ? curve->getColor() : m_defaultColor,
                                curve->getAddress(), curve->getMotorBank()});
    {
        const QSignalBlocker blocker(m_ui->cbGroupSelector);
        for (const Group& group : groups)
            m_ui->cbGroupSelector->addItem(tr(group.name));
    }
    updateTableWithAvailableParameters();
    connect(m_ui->twSelected, &QTableWidget::cellClicked, this,
            &GraphSelector::onLWSelectedClicked);
    connect(m_ui->twAvailable, &QTableWidget::cellClicked, this,
            &GraphSelector::onLWAvailableClicked);
}

GraphSelector::~GraphSelector() = default;

QTableWidget* GraphSelector::getSelectionTable() const { return m_ui->twSelected; }

bool GraphSelector::isParameterSelected(QString text) const
{
    return SelectionTable::containsCommand(*m_ui->twSelected, text);
}

bool GraphSelector::isParameterSelected(const TraceCommand& command) const
{
    return SelectionTable::contains(*m_ui->twSelected, SelectionTable::rowOf(command, QColor()));
}

void GraphSelector::updateTableWithAvailableParameters()
{
    const QSignalBlocker blocker(m_ui->twAvailable);
    m_ui->twAvailable->setRowCount(0);
    const QString current = m_ui->cbGroupSelector->currentText();
    for (const Group& group : groups) {
        if (tr(group.name) != current || !m_traceCommands)
            continue;
        for (const TraceCommand* command : qAsConst(*m_traceCommands)) {
            if (command && (group.command < 0 || u8(command->getCommand()) == group.command) &&
                !isParameterSelected(*command))
                SelectionTable::append(m_ui->twAvailable,
                                       SelectionTable::rowOf(*command, m_defaultColor));
        }
    }
}

void GraphSelector::onLWAvailableClicked(int x, int y)
{
    QTableWidget* offered = m_ui->twAvailable;
    QTableWidget* chosen = m_ui->twSelected;
    if (x < 0 || x >= offered->rowCount())
        return;
    if (y > SelectionRow::Name) {
        chooseColor(offered, x);
        return;
    }
    const QString name = offered->item(x, SelectionRow::Name)->text();
    for (int row = 0; row < chosen->rowCount(); ++row) {
        if (chosen->item(row, SelectionRow::Name)->text() == name)
            return;
    }
    if (SelectionTable::color(*offered, x) == m_defaultColor)
        SelectionTable::setColor(offered, x, freeColor());
    SelectionTable::move(offered, x, chosen);
}

void GraphSelector::onLWSelectedClicked(int x, int y)
{
    if (x < 0 || x >= m_ui->twSelected->rowCount())
        return;
    if (y > SelectionRow::Name) {
        chooseColor(m_ui->twSelected, x);
        return;
    }
    m_ui->twSelected->removeRow(x);
    updateTableWithAvailableParameters();
}

void GraphSelector::on_cbGroupSelector_currentIndexChanged(int)
{
    updateTableWithAvailableParameters();
}

void GraphSelector::chooseColor(QTableWidget* table, int row)
{
    const QPointer<GraphSelector> self(this);
    const QPointer<ColorPicker> picker(new ColorPicker(this, -1, true));
    picker->setStandardColors();
    picker->setCurrentColor(SelectionTable::color(*table, row));
    table->setCellWidget(row, SelectionRow::Color, picker);
    // rows may come and go while the grid of colours is open
    const QPersistentModelIndex cell(table->model()->index(row, SelectionRow::Color));
    const QColor color = picker->exec();
    if (!self)
        return;
    table->setFocus(); // or the next Return would be the dialog's
    if (cell.isValid()) {
        if (color.isValid())
            SelectionTable::setColor(table, cell.row(), color);
        table->removeCellWidget(cell.row(), SelectionRow::Color);
    }
    table->clearSelection();
}

/// The first standard colour that can be told from the ground and from the curves; the default one
/// when there is none.
QColor GraphSelector::freeColor() const
{
    ColorPicker picker(nullptr, -1, true);
    picker.setStandardColors();
    const QTableWidget& table = *m_ui->twSelected;
    const QList<QColor> colors = picker.colorList();
    for (const QColor& color : colors) {
        bool isUsed = color.rgb() == palette().color(QPalette::Base).rgb();
        for (int row = 0; row < table.rowCount(); ++row)
            isUsed = isUsed || SelectionTable::color(table, row).rgb() == color.rgb();
        if (!isUsed)
            return color;
    }
    return m_defaultColor;
}
