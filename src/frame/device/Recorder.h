#ifndef RECORDER_H
#define RECORDER_H

#include "Bytes.h"

/// The recorder in a module's RAM as RD reaches it: the numbers in the bytes of its requests.
namespace Recorder
{

/// Types of RD. The motor bank's byte carries the axis unless told otherwise.
enum class Type : quint8 {
    BufferSize = 0, ///< Reads how many samples the buffer holds.
    Elements = 1,   ///< Reads how many elements these are.
    Items = 2,      ///< Reads how many samples one element holds.
    Sample = 3,     ///< Reads one sample of element `value`; the bank's byte is the item.
    Arm = 4,        ///< Arms the trigger at the threshold `value`; the bank's byte is its kind.
    State = 6,      ///< Reads the State.
    Mode = 7,       ///< Sets the Mode.
    Interval = 9    ///< Sets the ticks between two elements.
};

/// 0 ends the wait for a recording; what else a module tells only means that it is not complete.
enum class State { Complete, Recording, Armed, Idle };

/// What an element holds. The first two items are target and actual value, unless the module
/// defines all of them. Ticks are tenths of a millisecond in Mode::Torque, else milliseconds.
enum class Mode { Torque, Velocity, Position, Defined };

/// When a recording begins: at once, or when a value is lower or higher than the threshold.
enum class Trigger {
    Always,
    PositionLower,
    PositionHigher,
    VelocityLower,
    VelocityHigher,
    TorqueLower,
    TorqueHigher
};

/// What a measurement drives the axis by. Of the host alone: no request carries it.
enum class Target { Torque, Velocity, Position, None };

} // namespace Recorder

constexpr char toByte(Recorder::Type type) { return static_cast<char>(type); }

/// True when the type of an RD that travelled as `char` is this one.
constexpr bool carries(char byte, Recorder::Type type)
{
    return u8(byte) == static_cast<quint8>(type);
}

#endif
