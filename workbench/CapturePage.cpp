#include "CapturePage.h"

#include "Instruction.h"
#include "ModuleLink.h"
#include "ParameterTable.h"
#include "WRamDebug.h"

#include <QLabel>
#include <QScrollArea>
#include <QVBoxLayout>

namespace Number = AxisParameterNumber;

namespace
{

constexpr quint8 SampleType = 3; // of RD

} // namespace

CapturePage::CapturePage(ModuleLink& link)
    : Page(QStringLiteral("capture"), tr("Capture"))
    , m_link(link)
    , m_panel(new WRamDebug)
    , m_progress(new QLabel)
{
    m_progress->setObjectName(QStringLiteral("lblFetched"));
    auto* scroll = new QScrollArea; // the row of fields is wide
    scroll->setWidget(m_panel);
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(scroll, 1);
    layout->addWidget(m_progress);
    m_panel->setTargetTorqueType(toByte(Number::TargetCurrent));
    m_panel->setTargetVelocityType(toByte(Number::TargetVelocity));
    m_panel->setRampTargetVelocityType(toByte(Number::RampVelocity));
    m_panel->setTargetPositionType(toByte(Number::TargetPosition));
    m_panel->setActualTorqueType(toByte(Number::ActualCurrent));
    m_panel->setActualVelocityType(toByte(Number::ActualVelocity));
    m_panel->setActualPositionType(toByte(Number::ActualPosition));
    m_panel->setAllowDefinedMode(true);
    connect(m_panel, &WRamDebug::measurementStarted, this, [this] {
        m_fetched = 0;
        m_progress->setText(tr("Measuring"));
    });
    connect(m_panel, &WRamDebug::doDirectRequest, this, &CapturePage::answer);
}

void CapturePage::setAddress(char address) { m_panel->setAddressAndMotorBank(address, 0); }

void CapturePage::refresh() { m_panel->updateValues(); }

void CapturePage::answer(Command* request, Command* reply)
{
    const bool isSample =
        carries(request->getCommand(), Instruction::RD) && u8(request->getType()) == SampleType;
    m_link.doDirectRequest(request, reply);
    if (u8(reply->getStatus()) != StatusOk)
        reply->setValid(false); // refused is no sample
    if (isSample)
        m_progress->setText(
            tr("%1 samples of %2 fetched").arg(++m_fetched).arg(SimulatedRecorder::BufferSize));
}
