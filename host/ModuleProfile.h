#ifndef MODULEPROFILE_H
#define MODULEPROFILE_H

#include "Command.h"

#include <QtGlobal>

#include <vector>

/// What a host knows of a kind of module before it speaks with one.
struct ModuleProfile {
    char address = 1; ///< As it is delivered, an unsigned byte.
    int axes = 1;
    int digitalInputs = 0;
    int analogInputs = 0;
    /// The axis parameter that is read to hear whether the module answers.
    quint8 keepAlive = 0;
    /// The axis parameters that set the axis in motion when they are written.
    std::vector<quint8> targets;

    /// Whether carrying out the request can set an axis in motion.
    bool isMotion(const Command& request) const;
};

#endif
