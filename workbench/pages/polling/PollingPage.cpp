#include "PollingPage.h"

#include "Command.h"
#include "DelayFloor.h"
#include "Fitting.h"
#include "Instruction.h"
#include "ModuleLink.h"
#include "ParameterCatalogue.h"
#include "TraceController.h"
#include "ValueKey.h"
#include "WTraceController.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QTableWidget>

namespace Number = AxisParameterNumber;

namespace
{

enum Column { AxisColumn, NameColumn, ReadingColumn, UnitColumn, RateColumn, ColumnCount };

bool isPolled(quint8 number)
{
    return number == Number::ActualVelocity || number == Number::ActualPosition ||
           number == Number::ActualCurrent || number == Number::Temperature;
}

QTableWidgetItem* addCell(QTableWidget* table, int row, Column column, const QString& text)
{
    auto* cell = new QTableWidgetItem(text);
    const bool isNumber = column == ReadingColumn || column == RateColumn;
    cell->setTextAlignment(isNumber ? Qt::AlignRight | Qt::AlignVCenter : Qt::AlignCenter);
    table->setItem(row, column, cell);
    return cell;
}

QWidget* framed(QWidget* controller, const QString& title)
{
    auto* frame = new QGroupBox(title);
    auto* layout = new QHBoxLayout(frame);
    layout->addWidget(controller);
    return frame;
}

} // namespace

PollingPage::PollingPage(const PageContext& context)
    : m_link(context.link)
    , m_firstAxis(new WTraceController)
    , m_secondAxis(new TraceController)
    , m_delays{new DelayFloor(m_firstAxis), new DelayFloor(m_secondAxis)}
    , m_table(new QTableWidget(0, ColumnCount))
{
    m_table->setObjectName(QStringLiteral("twPolled"));
    m_table->setHorizontalHeaderLabels(
        {tr("Axis"), tr("Value"), tr("Reading"), tr("Unit"), tr("Answers per second")});
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table->setSelectionMode(QAbstractItemView::NoSelection);
    m_table->setFocusPolicy(Qt::NoFocus);
    m_table->verticalHeader()->hide();
    Fitting::fitColumns(m_table, {100, 200, 140, 100, 160});

    auto* controllers = new QHBoxLayout;
    controllers->addWidget(framed(m_firstAxis, tr("Axis 0")));
    controllers->addWidget(framed(m_secondAxis, tr("Axis 1")));
    controllers->addStretch();
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(controllers);
    layout->addWidget(new QLabel(tr("Each tick asks for the next of an axis' four values.")));
    layout->addWidget(m_table, 1);

    connect(m_firstAxis, &WTraceController::requestTraceCommand, this, &PollingPage::request);
    connect(m_secondAxis, &TraceController::requestTraceCommand, this, &PollingPage::request);
    setAddress(1);
}

void PollingPage::setAddress(char address)
{
    m_firstAxis->clearTraceCommands();
    m_secondAxis->clearTraceCommands();
    m_values.clear();
    m_table->setRowCount(0);
    for (int axis = 0; axis < m_link.profile().axes; ++axis) {
        for (const ParameterInfo& parameter : m_link.profile().axisParameters) {
            if (!isPolled(parameter.number))
                continue;
            const QString name = QString::fromUtf8(parameter.name);
            const int row = m_table->rowCount();
            m_table->insertRow(row);
            addCell(m_table, row, AxisColumn, QString::number(axis));
            addCell(m_table, row, NameColumn, name);
            addCell(m_table, row, UnitColumn, QString::fromUtf8(parameter.unit));
            m_values.push_back({TraceCommand(address, toByte(Instruction::GAP),
                                             toByte(parameter.number), toByte(axis), name),
                                addCell(m_table, row, ReadingColumn, QString()),
                                addCell(m_table, row, RateColumn, QString()), 0});
        }
    }
    for (Value& value : m_values) {
        if (value.command.getMotorBank() == 0)
            m_firstAxis->appendTraceCommand(&value.command);
        else
            m_secondAxis->appendTraceCommand(&value.command);
    }
}

void PollingPage::request(const TraceCommand* wanted)
{
    // Equal reads wait once only: a slow module is asked for all in turn.
    if (isVisible())
        emit read(Command(wanted->getAddress(), wanted->getCommand(), wanted->getType(),
                          wanted->getMotorBank(), 0));
}

void PollingPage::take(const Command& reply)
{
    if (u8(reply.getStatus()) != StatusOk)
        return;
    for (Value& value : m_values) {
        if (!isSameValue(reply, value.command))
            continue;
        value.reading->setText(QString::number(reply.getValue()));
        ++value.answers;
    }
}

void PollingPage::frame(qint64 now)
{
    for (DelayFloor* delay : m_delays)
        delay->follow(m_link.answerTime());
    const int milliseconds = m_second.passed(now);
    if (milliseconds == 0)
        return;
    for (Value& value : m_values) {
        value.rate->setText(QString::number(value.answers * 1000.0 / milliseconds, 'f', 1));
        value.answers = 0;
    }
}
