#ifndef SIMULATOR_H
#define SIMULATOR_H

class SimulatedLink;
class SimulatedModule;

/// What stands in place of a real module and its cable.
struct Simulator {
    SimulatedModule& module;
    SimulatedLink& link;
};

#endif
