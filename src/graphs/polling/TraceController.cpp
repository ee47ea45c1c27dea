#include "TraceController.h"

#include "FocusPair_p.h"
#include "TraceCommand.h"
#include "TraceList_p.h"
#include "WheelFocus.h"
#include "ui_TraceController.h"

#include <QTimer>

namespace
{
constexpr int DefaultDelay = 5; // ms
}

TraceController::TraceController(QWidget* parent)
    : QWidget(parent)
    , m_ui(std::make_unique<Ui::TraceController>())
    , m_timer(std::make_unique<QTimer>())
    , m_traceCommands(std::make_unique<TraceList>())
{
    m_ui->setupUi(this);
    WheelFocus::guard(this);
    connect(m_timer.get(), &QTimer::timeout, this, &TraceController::requestTraceValue);
}

TraceController::~TraceController() = default;

void TraceController::setMinimum(int minimum) { m_ui->sbDelay->setMinimum(minimum); }

void TraceController::setMaximum(int maximum) { m_ui->sbDelay->setMaximum(maximum); }

void TraceController::setSingleStep(int step) { m_ui->sbDelay->setSingleStep(step); }

void TraceController::setValue(int value) { m_ui->sbDelay->setValue(value); }

void TraceController::setActive(bool active)
{
    if (active == m_timer->isActive())
        return;
    if (active)
        on_btnStart_clicked();
    else
        on_btnStop_clicked();
}

void TraceController::appendTraceCommand(TraceCommand* command)
{
    if (!command)
        return;
    if (TraceCommand* entry = m_traceCommands->find(*command))
        entry->incUsedCounter();
    else
        m_traceCommands->commands()->append(command);
}

void TraceController::removeTraceCommand(TraceCommand* command)
{
    TraceCommand* entry = command ? m_traceCommands->find(*command) : nullptr;
    if (!entry)
        return;
    entry->decUsedCounter();
    if (entry->getUsedCounter() <= 0)
        m_traceCommands->commands()->removeOne(entry);
}

void TraceController::clearTraceCommands() { m_traceCommands->commands()->clear(); }

QList<TraceCommand*>* TraceController::getTraceCommands() { return m_traceCommands->commands(); }

void TraceController::on_btnStart_clicked()
{
    showPolling(true);
    m_timer->start();
}

void TraceController::on_btnStop_clicked()
{
    showPolling(false);
    m_timer->stop();
}

void TraceController::on_sbDelay_valueChanged(int value)
{
    m_timer->setInterval(qMax(0, value));
    emit delayChanged(value);
}

void TraceController::requestTraceValue()
{
    if (m_timer->interval() == 0)
        m_timer->setInterval(DefaultDelay);
    if (TraceCommand* command = m_traceCommands->next())
        emit requestTraceCommand(command);
}

void TraceController::showPolling(bool polling)
{
    const FocusPair focus(m_ui->btnStart, m_ui->btnStop);
    m_ui->btnStart->setEnabled(!polling);
    m_ui->btnStop->setEnabled(polling);
}
