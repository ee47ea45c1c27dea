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
    SimulatedWire(HostClock& clock, const Simulated::Weather& weather, QObject* parent = nullptr);

    /// What the simulated module is.
    static ModuleProfile profile();
    /// The module at the end of the wire, and the weather on it, for those that steer them.
    SimulatedModule& module() { return m_module; }
    SimulatedLink& link() { return m_link; }

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
