#include "SimulatedWire.h"

#include "HostClock.h"
#include "ParameterCatalogue.h"

#include <QPointer>

SimulatedWire::SimulatedWire(HostClock& clock, const Simulated::Weather& weather, QObject* parent)
    : Wire(parent), m_link(m_module)
{
    m_link.setWeather(weather);
    connect(&clock, &HostClock::ticked, this, &SimulatedWire::tick);
}

ModuleProfile SimulatedWire::profile()
{
    ModuleProfile profile;
    profile.address = SimulatedModule().address();
    profile.axes = SimulatedModule::Axes;
    profile.digitalInputs = SimulatedModule::DigitalInputs;
    profile.analogInputs = SimulatedModule::AnalogInputs;
    profile.keepAlive = AxisParameterNumber::ActualVelocity;
    profile.targets = {AxisParameterNumber::TargetPosition, AxisParameterNumber::TargetVelocity,
                       AxisParameterNumber::TargetCurrent};
    return profile;
}

bool SimulatedWire::open()
{
    m_isOpen = true;
    return true;
}

void SimulatedWire::close() { m_isOpen = false; }

void SimulatedWire::send(const Command& request)
{
    if (m_isOpen)
        m_link.send(request);
}

void SimulatedWire::tick()
{
    m_link.advance(1);
    const QVector<Command> replies = m_link.takeReplies();
    const QPointer<SimulatedWire> self(this);
    for (const Command& reply : replies) {
        if (self && m_isOpen)
            emit received(reply);
    }
}
