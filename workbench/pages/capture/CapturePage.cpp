#include "CapturePage.h"

#include "Fitting.h"
#include "Instruction.h"
#include "ModuleLink.h"
#include "PanelParts.h"
#include "ParameterCatalogue.h"
#include "Recorder.h"
#include "WRamDebug.h"

#include <QGridLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace Number = AxisParameterNumber;

CapturePage::CapturePage(const PageContext& context)
    : m_link(context.link), m_panel(new WRamDebug), m_start(PanelParts::startButton(*m_panel))
{
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(Fitting::scrolled(m_panel), 1);
    constexpr int Trigger = 4; // column of the row of fields, which is wide
    Fitting::foldRow(m_panel, PanelParts::fields(*m_panel), Trigger);
    m_panel->setTargetTorqueType(toByte(Number::TargetCurrent));
    m_panel->setTargetVelocityType(toByte(Number::TargetVelocity));
    m_panel->setRampTargetVelocityType(toByte(Number::RampVelocity));
    m_panel->setTargetPositionType(toByte(Number::TargetPosition));
    m_panel->setActualTorqueType(toByte(Number::ActualCurrent));
    m_panel->setActualVelocityType(toByte(Number::ActualVelocity));
    m_panel->setActualPositionType(toByte(Number::ActualPosition));
    m_panel->setAllowDefinedMode(true);
    m_panel->setMaxTargetTorque(axisParameter(Number::TargetCurrent).maximum);
    m_panel->setMaxTargetVelocity(axisParameter(Number::TargetVelocity).maximum);
    m_panel->updateTargetBounds();
    connect(m_panel, &WRamDebug::measurementStarted, this, &CapturePage::begin);
    connect(m_panel, &WRamDebug::doDirectRequest, this, &CapturePage::answer);
    connect(PanelParts::stopButton(*m_panel), &QPushButton::clicked, this, &CapturePage::halt);
    connect(m_panel, &QObject::destroyed, this, [this] {
        if (m_isRunning)
            stopAxis();
    });
    m_start->installEventFilter(this);
}

CapturePage::~CapturePage()
{
    // The stop is passed on by this page, so the panel goes before it does, and the page before the
    // link.
    if (m_panel)
        m_panel->abort();
    delete m_panel;
}

void CapturePage::giveUp()
{
    if (m_isRunning)
        halt();
}

void CapturePage::halt()
{
    if (m_panel)
        m_panel->abort();
    stopAxis();
}

void CapturePage::stopAxis()
{
    emit command(Command(m_address, toByte(Instruction::MST), 0, 0, 0));
}

void CapturePage::setAddress(char address)
{
    m_address = address;
    if (m_panel)
        m_panel->setAddressAndMotorBank(address, 0);
}

void CapturePage::refresh()
{
    if (m_panel)
        m_panel->updateValues();
}

void CapturePage::begin()
{
    m_isRunning = true;
    m_elements = m_items = m_fetched = m_missing = 0;
    emit message(tr("Capture: waiting for the module's recorder"));
    emit progressed(0, 0);
}

bool CapturePage::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_start && event->type() == QEvent::EnabledChange && m_start->isEnabled() &&
        m_isRunning)
        end();
    return Page::eventFilter(watched, event);
}

void CapturePage::end()
{
    m_isRunning = false;
    const int total = m_elements * m_items;
    const bool isComplete = total > 0 && m_fetched + m_missing == total;
    QString text = isComplete ? tr("Capture complete: %1 samples fetched").arg(m_fetched)
                              : tr("Capture stopped: %1 samples fetched").arg(m_fetched);
    if (m_missing)
        text += tr(", %1 missing (see the console): from there on the curves are shifted")
                    .arg(m_missing);
    emit progressed(1, 1);
    emit message(text);
}

void CapturePage::answer(Command* request, Command* reply)
{
    const Command asked = *request;
    m_link.doDirectRequest(request, reply);
    if (u8(reply->getStatus()) != StatusOk)
        reply->setValid(false); // refused is no sample
    if (m_isRunning && carries(asked.getCommand(), Instruction::RD))
        count(asked, *reply);
}

void CapturePage::count(const Command& request, const Command& reply)
{
    const char type = request.getType();
    if (carries(type, Recorder::Type::Elements) && reply.isValid())
        m_elements = reply.getValue();
    if (carries(type, Recorder::Type::Items) && reply.isValid())
        m_items = reply.getValue();
    if (!carries(type, Recorder::Type::Sample))
        return;
    ++(reply.isValid() ? m_fetched : m_missing);
    emit progressed(m_fetched + m_missing, m_elements * m_items);
}
