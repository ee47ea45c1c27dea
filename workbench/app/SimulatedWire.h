#ifndef SIMULATEDWIRE_H
#define SIMULATEDWIRE_H

#include "ModuleProfile.h"
#include "SimulatedLink.h"
#include "SimulatedModule.h"
#include "Wire.h"

class HostClock;

/// The wire to a simulated module inside this process, both on the host's clock. The module lives
/// on while the wire is closed.
class SimulatedWire : public Wire
{
    Q_OBJECT
public:
    /// The clock must outlive the wire.
    SimulatedWire(HostClock& clock, const Weather& weather, QObject* parent = nullptr);

    /// What the simulated module is.
    static ModuleProfile profile();
    /// The weather on the wire, and the module at its end, for those that steer them.
    SimulatedLink& simulator() { return m_link; }

    bool open() override;
    void close() override;
    bool isOpen() const override { return m_isOpen; }
    void send(const Command& request) override;

private:
    void tick();

    SimulatedModule m_module;
    SimulatedLink m_link;
    bool m_isOpen = false;
};

#endif
