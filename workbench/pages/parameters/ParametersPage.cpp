#include "ParametersPage.h"

#include "Command.h"
#include "Entries.h"
#include "Fitting.h"
#include "HTMLDelegate.h"
#include "Instruction.h"
#include "ParameterCatalogue.h"
#include "SpinBox.h"
#include "SpinBoxDelegate.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QScopedValueRollback>
#include <QStandardItemModel>
#include <QTableView>

namespace
{

constexpr int ReadsAtOnce = 8;

const ParameterInfo& parameterAt(int row) { return AxisParameters[static_cast<size_t>(row)]; }

int rowCount() { return static_cast<int>(AxisParameters.size()); }

bool isWritable(int row) { return parameterAt(row).access != ParameterAccess::ReadOnly; }

Parameter describe(const ParameterInfo& info)
{
    Parameter parameter;
    parameter.name = QString::fromUtf8(info.name);
    parameter.unit = QString::fromUtf8(info.unit);
    if (!parameter.unit.isEmpty())
        parameter.unitFormat = QStringLiteral("%1 ") + parameter.unit;
    parameter.factor = info.factor;
    parameter.number = info.number;
    parameter.minimum = info.minimum;
    parameter.maximum = info.maximum;
    parameter.valid = true;
    return parameter;
}

QStandardItem* cell(const QString& text, Qt::Alignment alignment)
{
    auto* item = new QStandardItem(text);
    item->setEditable(false);
    item->setTextAlignment(alignment);
    return item;
}

} // namespace

ParametersPage::ParametersPage()
    : m_axis(new QComboBox)
    , m_model(new QStandardItemModel(this))
    , m_table(new QTableView)
    , m_caption(new QLabel)
    , m_value(new SpinBox)
{
    m_axis->setAccessibleName(tr("Axis"));
    m_table->setAccessibleName(tr("Axis parameters"));
    m_caption->setBuddy(m_value);
    m_axis->addItems({tr("Axis 0"), tr("Axis 1")});
    m_table->setModel(m_model);
    m_table->setItemDelegateForColumn(NameColumn, new HTMLDelegate(this));
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setSelectionMode(QAbstractItemView::SingleSelection);
    m_table->verticalHeader()->hide();
    m_table->horizontalHeader()->setStretchLastSection(true);
    QPalette colours; // the red of the delegate's selected texts cannot be read on each desktop's
    colours.setColor(QPalette::Highlight, QStringLiteral("#000f24"));
    colours.setColor(QPalette::HighlightedText, Qt::white);
    m_table->setPalette(colours);
    m_value->setFlags(SpinBox::ChangedOnEnter | SpinBox::ResetOnEscape);
    m_value->setObjectName(QStringLiteral("sbParameter"));
    fill();
    Fitting::fitColumns(m_table, {100, 320, 100, 190});

    auto* top = new QHBoxLayout;
    top->addWidget(m_axis);
    top->addWidget(new QLabel(tr("Values are in device units; a double click edits.")));
    top->addStretch();
    auto* bottom = new QHBoxLayout;
    bottom->addWidget(m_caption);
    bottom->addWidget(m_value);
    bottom->addStretch();
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(m_table, 1);
    layout->addLayout(bottom);

    connect(m_axis, QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this] {
        fill();
        refresh();
    });
    connect(m_table->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex& index) { select(index.row()); });
    connect(m_model, &QStandardItemModel::itemChanged, this, [this](const QStandardItem* item) {
        if (!m_filling && item->column() == ValueColumn)
            write(item->row(), item->data(Qt::EditRole).toInt());
    });
    connect(m_value, QOverload<int>::of(&SpinBox::valueChanged), this, [this](int value) {
        if (m_selected >= 0)
            write(m_selected, value);
    });
    m_table->selectRow(0);
}

void ParametersPage::fill()
{
    const QScopedValueRollback<bool> filling(m_filling, true);
    m_model->setColumnCount(ColumnCount);
    m_model->setRowCount(rowCount());
    m_model->setHorizontalHeaderLabels(
        {tr("Number"), tr("Parameter"), tr("Value"), tr("Range"), tr("Unit")});
    for (int row = 0; row < rowCount(); ++row) {
        const ParameterInfo& parameter = parameterAt(row);
        const QString name = QString::fromUtf8(parameter.name);
        m_model->setItem(row, NumberColumn,
                         cell(QString::number(parameter.number), Qt::AlignCenter));
        m_model->setItem(
            row, NameColumn,
            cell(isWritable(row) ? QStringLiteral("<b>%1</b>").arg(name) : name, Qt::AlignCenter));
        m_model->setItem(row, ValueColumn, cell(QString(), Qt::AlignRight | Qt::AlignVCenter));
        m_model->setItem(
            row, RangeColumn,
            cell(isWritable(row)
                     ? QStringLiteral("%1..%2").arg(parameter.minimum).arg(parameter.maximum)
                     : tr("read only"),
                 Qt::AlignCenter));
        const QString unit = parameter.factor == 1.0 || !*parameter.unit
                                 ? QString::fromUtf8(parameter.unit)
                                 : QStringLiteral("%1 %2")
                                       .arg(parameter.factor)
                                       .arg(QString::fromUtf8(parameter.unit));
        m_model->setItem(row, UnitColumn, cell(unit, Qt::AlignCenter));
    }
    m_nextRead = 0;
    select(m_selected);
}

void ParametersPage::select(int row)
{
    m_selected = row;
    if (row < 0)
        return;
    const ParameterInfo& parameter = parameterAt(row);
    // The range of an editor is that of its row, so the column's delegate goes with the selection.
    auto* delegate = new SpinBoxDelegate(parameter.minimum, parameter.maximum, this);
    m_table->setItemDelegateForColumn(ValueColumn, delegate);
    delete m_delegate;
    m_delegate = delegate;

    const QStandardItem* item = m_model->item(row, ValueColumn);
    const bool isRead = !item->text().isEmpty();
    const int value =
        isRead ? item->data(Qt::EditRole).toInt() : qBound(parameter.minimum, 0, parameter.maximum);
    m_caption->setText(
        m_value->setUnitParameter(describe(parameter), *parameter.unit == 0, value, 0));
    m_value->setValue(value);
    if (!isRead)
        m_value->clear();
    m_value->setEnabled(item->isEditable());
    readRow(row);
}

void ParametersPage::readRow(int row)
{
    emit read(
        Command(m_address, toByte(Instruction::GAP), toByte(parameterAt(row).number), axis(), 0));
}

void ParametersPage::write(int row, int value)
{
    emit command(Command(m_address, toByte(Instruction::SAP), toByte(parameterAt(row).number),
                         axis(), value));
}

char ParametersPage::axis() const { return toByte(qMax(0, m_axis->currentIndex())); }

void ParametersPage::refresh()
{
    for (int row = 0; row < rowCount(); ++row)
        readRow(row);
}

void ParametersPage::poll()
{
    for (int i = 0; i < ReadsAtOnce; ++i) {
        m_nextRead = (m_nextRead + 1) % rowCount();
        readRow(m_nextRead);
    }
}

/// An entry waits for Return; a box that is not enabled has none.
bool ParametersPage::isEntering() const
{
    return m_value->isEnabled() && Entries::isPending(*m_value);
}

bool ParametersPage::isEditing(const Command& request) const
{
    if (!isVisible() || !carries(request.getCommand(), Instruction::GAP) ||
        request.getMotorBank() != axis())
        return false;
    const auto isEdited = [this, &request](int row) {
        return row >= 0 && parameterAt(row).number == u8(request.getType());
    };
    const QModelIndex cell = m_model->index(m_table->currentIndex().row(), ValueColumn);
    return (isEdited(m_selected) && isEntering()) ||
           (isEdited(cell.row()) && m_table->isPersistentEditorOpen(cell));
}

void ParametersPage::take(const Command& reply)
{
    if (!carries(reply.getCommand(), Instruction::GAP) || u8(reply.getStatus()) != StatusOk ||
        reply.getMotorBank() != axis())
        return;
    const QScopedValueRollback<bool> filling(m_filling, true);
    for (int row = 0; row < rowCount(); ++row) {
        if (parameterAt(row).number != u8(reply.getType()))
            continue;
        QStandardItem* item = m_model->item(row, ValueColumn);
        // A cell in which the user edits stays, so that leaving it unchanged writes nothing.
        if (!m_table->isPersistentEditorOpen(item->index()))
            item->setData(reply.getValue(), Qt::EditRole);
        item->setEditable(isWritable(row));
        if (row == m_selected && !isEntering()) {
            m_value->setValue(reply.getValue());
            m_value->setEnabled(item->isEditable());
        }
    }
}
