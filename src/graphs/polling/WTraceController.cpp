#include "WTraceController.h"

#include "FocusPair_p.h"
#include "TraceCommand.h"
#include "TraceList_p.h"
#include "WheelFocus.h"
#include "ui_WTraceController.h"

#include <QPointer>

namespace
{
constexpr int DefaultDelay = 5; // ms
}

WTraceController::WTraceController(QWidget* parent)
    : QWidget(parent)
    , m_ui(std::make_unique<Ui::WTraceController>())
    , m_traceCommands(std::make_unique<TraceList>())
{
    m_ui->setupUi(this);
    WheelFocus::guard(this);
    connect(&m_timer, &QTimer::timeout, this, &WTraceController::requestTraceValue);
    setValue(DefaultDelay);
    setSingleStep(1);
}

WTraceController::~WTraceController() = default;

void WTraceController::setMinimum(int minimum) { m_ui->sbDelay->setMinimum(minimum); }

void WTraceController::setMaximum(int maximum) { m_ui->sbDelay->setMaximum(maximum); }

void WTraceController::setSingleStep(int step) { m_ui->sbDelay->setSingleStep(step); }

void WTraceController::setValue(int value)
{
    const QPointer<WTraceController> self(this);
    m_ui->sbDelay->setValue(value);
    if (self) // also where nobody hears of the change
        m_timer.setInterval(qMax(0, m_ui->sbDelay->value()));
}

void WTraceController::setActive(bool active)
{
    if (active)
        on_btnStart_clicked();
    else
        on_btnStop_clicked();
}

void WTraceController::activateTracing() { on_btnStart_clicked(); }

void WTraceController::deactivateTracing() { on_btnStop_clicked(); }

void WTraceController::appendTraceCommand(TraceCommand* command)
{
    if (command && !m_traceCommands->find(*command))
        m_traceCommands->commands()->append(command);
}

void WTraceController::clearTraceCommands() { m_traceCommands->commands()->clear(); }

QList<TraceCommand*>* WTraceController::getTraceCommands() { return m_traceCommands->commands(); }

void WTraceController::on_btnStart_clicked()
{
    showPolling(true);
    m_timer.start();
    emit start();
}

void WTraceController::on_btnStop_clicked()
{
    showPolling(false);
    m_timer.stop();
    emit stop();
}

void WTraceController::on_sbDelay_valueChanged(int value)
{
    m_timer.setInterval(qMax(0, value));
    emit delayChanged(value);
}

void WTraceController::requestTraceValue()
{
    const QPointer<WTraceController> self(this);
    if (TraceCommand* command = m_traceCommands->next())
        emit requestTraceCommand(command);
    if (self)
        emit requestPDOValues();
}

void WTraceController::showPolling(bool polling)
{
    const FocusPair focus(m_ui->btnStart, m_ui->btnStop);
    m_ui->btnStart->setEnabled(!polling);
    m_ui->btnStop->setEnabled(polling);
}
