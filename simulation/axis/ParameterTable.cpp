#include "ParameterTable.h"

#include <algorithm>
#include <limits>

namespace N = AxisParameterNumber;

namespace
{

using Q = Quantity;

constexpr auto RO = Access::ReadOnly;
constexpr auto RW = Access::ReadWrite;
constexpr auto ST = Access::Storable;

constexpr int Lowest = std::numeric_limits<int>::min();
constexpr int Any = std::numeric_limits<int>::max(); // as -Any..Any what every spin box can hold
constexpr int Current = 20000;                       // mA, the bridge's end
constexpr int Velocity = 100000;                     // rpm
constexpr int Phase = 32768;                         // half an electrical turn

} // namespace

const ParameterTable& axisParameters()
{
    // clang-format off
    static const ParameterTable table = {
        // number                 name                               unit   factor  min..max       access reset   quantity
        {N::TargetPosition,       "Target position",                 "inc",     1, -Any, Any,           RW, 0,    Q::TargetPosition},
        {N::ActualPosition,       "Actual position",                 "inc",     1, -Any, Any,           RW, 0,    Q::ActualPosition},
        {N::TargetVelocity,       "Target velocity",                 "rpm",     1, -Velocity, Velocity, RW, 0,    Q::TargetVelocity},
        {N::ActualVelocity,       "Actual velocity",                 "rpm",     1, -Any, Any,           RO, 0,    Q::ActualVelocity},
        {N::MaxVelocity,          "Maximum velocity",                "rpm",     1, 0, Velocity,         ST, 4000, Q::Setting},
        {N::EnableRamp,           "Velocity ramp enabled",           "",        1, 0, 1,                ST, 1,    Q::Setting},
        {N::MaxCurrent,           "Maximum current",                 "mA",      1, 0, Current,          ST, 5000, Q::Setting},
        {N::PositionReached,      "Position reached",                "",        1, 0, 1,                RO, 0,    Q::PositionReached},
        {N::PositionWindow,       "Position reached window",         "inc",     1, 0, Any,              ST, 5,    Q::Setting},
        {N::Acceleration,         "Acceleration",                    "rpm/s",   1, 1, 1000000,          ST, 5000, Q::Setting},
        {N::RampVelocity,         "Ramp velocity",                   "rpm",     1, -Any, Any,           RO, 0,    Q::RampVelocity},
        {N::RampPosition,         "Ramp position",                   "inc",     1, -Any, Any,           RO, 0,    Q::RampPosition},
        {N::PositionDeviation,    "Position deviation",              "inc",     1, -Any, Any,           RO, 0,    Q::PositionDeviation},
        {N::OperatingMode,        "Operating mode",                  "",        1, 0, 2,                RO, 0,    Q::OperatingMode},
        {N::StartStopVelocity,    "Start-stop velocity",             "rpm",     1, 0, Velocity,         ST, 1,    Q::Setting},

        {N::LeftLimitSwitch,      "Left limit switch",               "",        1, 0, 1,                RO, 0,    Q::LeftLimitSwitch},
        {N::RightLimitSwitch,     "Right limit switch",              "",        1, 0, 1,                RO, 0,    Q::RightLimitSwitch},
        {N::HomeSwitch,           "Home switch",                     "",        1, 0, 1,                RO, 0,    Q::HomeSwitch},
        {N::LeftHallSwitch,       "Left Hall switch",                "",        1, 0, 1,                RO, 0,    Q::LeftHallSwitch},
        {N::RightHallSwitch,      "Right Hall switch",               "",        1, 0, 1,                RO, 0,    Q::RightHallSwitch},
        {N::LeftLimitDisabled,    "Left limit switch disabled",      "",        1, 0, 1,                ST, 0,    Q::Setting},
        {N::RightLimitDisabled,   "Right limit switch disabled",     "",        1, 0, 1,                ST, 0,    Q::Setting},

        {N::EncoderSteps,         "Encoder steps per rotation",      "inc",     1, 4, 65536,            ST, 4096, Q::EncoderSteps},
        {N::EncoderDirection,     "Encoder direction",               "",        1, 0, 1,                ST, 0,    Q::Setting},
        {N::CommutationOffset,    "Commutation offset",              "inc",     1, 0, 65535,            ST, 0,    Q::Setting},
        {N::SineInitMode,         "Sine initialization mode",        "",        1, 0, 2,                ST, 0,    Q::Setting},
        {N::RawEncoder,           "Raw encoder value",               "inc",     1, 0, 65535,            RO, 0,    Q::RawEncoder},
        {N::EncoderTurns,         "Encoder turns",                   "",        1, -Any, Any,           RO, 0,    Q::EncoderTurns},
        {N::ClearOnNull,          "Clear on null",                   "",        1, 0, 1,                ST, 0,    Q::Setting},
        {N::ClearOnce,            "Clear once",                      "",        1, 0, 1,                RW, 0,    Q::Setting},

        {N::MotorPoles,           "Motor poles",                     "",        1, 2, 254,              ST, 8,    Q::Setting},
        {N::HallDirection,        "Hall sensor direction",           "",        1, 0, 1,                ST, 0,    Q::Setting},
        {N::HallInvert,           "Hall sensor invert",              "",        1, 0, 1,                ST, 0,    Q::Setting},
        {N::HallInterpolation,    "Hall interpolation",              "",        1, 0, 1,                ST, 0,    Q::Setting},
        {N::HallState,            "Hall sensor state",               "",        1, 1, 6,                RO, 1,    Q::HallState},
        {N::HallAngle,            "Hall angle",                      "°", 360. / 65536, -Phase, Phase - 1, RO, 0, Q::HallAngle},
        {N::ElectricalAngle,      "Electrical angle",                "°", 360. / 65536, -Phase, Phase - 1, RO, 0, Q::ElectricalAngle},
        {N::CommutationMode,      "Commutation mode",                "",        1, 0, 4,                ST, 2,    Q::Setting},

        {N::CurrentP,             "Current loop P",                  "",        1, 0, 32767,            ST, 600,  Q::Setting},
        {N::CurrentI,             "Current loop I",                  "",        1, 0, 32767,            ST, 900,  Q::Setting},
        {N::VelocityP,            "Velocity loop P",                 "",        1, 0, 32767,            ST, 800,  Q::Setting},
        {N::VelocityI,            "Velocity loop I",                 "",        1, 0, 32767,            ST, 400,  Q::Setting},
        {N::PositionP,            "Position loop P",                 "",        1, 0, 32767,            ST, 300,  Q::Setting},

        {N::BrakeEnabled,         "Brake chopper enabled",           "",        1, 0, 1,                ST, 0,    Q::Setting},
        {N::BrakeVoltageLimit,    "Brake chopper voltage limit",     "V",     0.1, 50, 600,             ST, 260,  Q::Setting},
        {N::BrakeHysteresis,      "Brake chopper hysteresis",        "V",     0.1, 0, 50,               ST, 5,    Q::Setting},
        {N::BrakeActive,          "Brake chopper active",            "",        1, 0, 1,                RO, 0,    Q::BrakeActive},

        {N::UndervoltageLimit,    "Undervoltage limit",              "V",     0.1, 0, 600,              ST, 100,  Q::Setting},
        {N::OvervoltageLimit,     "Overvoltage limit",               "V",     0.1, 0, 600,              ST, 300,  Q::Setting},
        {N::OvertemperatureLimit, "Overtemperature limit",           "°C",      1, 0, 150,              ST, 100,  Q::Setting},
        {N::OvercurrentLimit,     "Overcurrent limit",               "mA",      1, 0, Current,          ST, 15000, Q::Setting},
        {N::ContinuousCurrent,    "Continuous current",              "mA",      1, 0, Current,          ST, 4000, Q::Setting},
        {N::ThermalLoadLimit,     "I²t limit",                       "A²s",   0.1, 0, 100000,           ST, 500,  Q::Setting},
        {N::ThermalLoad,          "I²t sum",                         "A²s",   0.1, 0, Any,              RO, 0,    Q::ThermalLoad},

        {N::PhaseCurrentA,        "Current phase A",                 "mA",      1, -Current, Current,   RO, 0,    Q::PhaseCurrentA},
        {N::PhaseCurrentB,        "Current phase B",                 "mA",      1, -Current, Current,   RO, 0,    Q::PhaseCurrentB},
        {N::PhaseCurrentC,        "Current phase C",                 "mA",      1, -Current, Current,   RO, 0,    Q::PhaseCurrentC},
        {N::SupplyCurrent,        "Supply current",                  "mA",      1, -Any, Any,           RO, 0,    Q::SupplyCurrent},
        {N::SupplyVoltage,        "Supply voltage",                  "V",     0.1, 0, 1000,             RO, 0,    Q::SupplyVoltage},
        {N::Temperature,          "Temperature",                     "°C",      1, -273, 1000,          RO, 0,    Q::Temperature},
        {N::StatusFlags,          "Status flags",                    "",        1, 0, Any,              RO, 0,    Q::StatusFlags},

        {N::BlankTime,            "Chopper blank time",              "",        1, 0, 3,                ST, 2,    Q::Setting},
        {N::ChopperMode,          "Chopper mode",                    "",        1, 0, 1,                ST, 0,    Q::Setting},
        {N::HysteresisDecrement,  "Chopper hysteresis decrement",    "",        1, 0, 3,                ST, 0,    Q::Setting},
        {N::HysteresisEnd,        "Chopper hysteresis end",          "",        1, -3, 12,              ST, 0,    Q::Setting},
        {N::HysteresisStart,      "Chopper hysteresis start",        "",        1, 0, 8,                ST, 5,    Q::Setting},
        {N::OffTime,              "Chopper off time",                "",        1, 0, 15,               ST, 5,    Q::Setting},
        {N::SlopeHighSide,        "Slope high side",                 "",        1, 0, 3,                ST, 1,    Q::Setting},
        {N::SlopeLowSide,         "Slope low side",                  "",        1, 0, 3,                ST, 1,    Q::Setting},
        {N::MicrostepResolution,  "Microstep resolution",            "",        1, 0, 8,                ST, 8,    Q::Setting},
        {N::FullstepResolution,   "Motor fullstep resolution",       "",        1, 0, 400,              ST, 200,  Q::Setting},
        {N::StandbyCurrent,       "Standby current",                 "",        1, 0, 255,              ST, 16,   Q::Setting},
        {N::LoopMode,             "Loop mode",                       "",        1, 0, 1,                ST, 1,    Q::Setting},
        {N::EncoderOffset,        "Encoder offset",                  "inc",     1, -1023, 1023,         ST, 0,    Q::Setting},

        {N::GammaVMin,            "Field weakening start",           "rpm",     1, 0, 268435454,        ST, 3000, Q::Setting},
        {N::GammaVMax,            "Field weakening end",             "rpm",     1, 0, 268435454,        ST, 6000, Q::Setting},
        {N::PositionWindowTime,   "Position reached time",           "ms",    0.1, 0, Any,              ST, 0,    Q::Setting},
        {N::StandstillP,          "Standstill error gain",           "",        1, 10, 50,              ST, 10,   Q::Setting},
        {N::StandstillErrorLimit, "Standstill error limit",          "inc",     1, 0, Any,              ST, 1000, Q::Setting},
        {N::VelocityWindow,       "Velocity reached window",         "rpm",     1, 0, Any,              ST, 10,   Q::Setting},

        {N::ScalerEnabled,        "Current scaler enabled",          "",        1, 0, 1,                ST, 0,    Q::Setting},
        {N::ActualScaler,         "Current scaler value",            "",        1, 0, 255,              RO, 0,    Q::Setting},
        {N::ScalerMinimum,        "Current scaler minimum",          "",        1, 0, 255,              ST, 32,   Q::Setting},
        {N::ScalerMaximum,        "Current scaler maximum",          "",        1, 0, 255,              ST, 255,  Q::Setting},
        {N::ScalerLowerLimit,     "Current scaler lower limit",      "",        1, 0, 4095,             ST, 100,  Q::Setting},
        {N::ScalerUpperLimit,     "Current scaler upper limit",      "",        1, 0, 4095,             ST, 1000, Q::Setting},
        {N::ScalerIncrement,      "Current scaler increment",        "",        1, 0, 15,               ST, 4,    Q::Setting},
        {N::ScalerDecrement,      "Current scaler decrement",        "",        1, 0, 15,               ST, 1,    Q::Setting},
        {N::ScalerIncrementTime,  "Current scaler increment time",   "",        1, 0, 15,               ST, 2,    Q::Setting},
        {N::ScalerDecrementTime,  "Current scaler decrement time",   "",        1, 0, 15,               ST, 8,    Q::Setting},
        {N::ScalerInput,          "Current scaler input",            "",        1, 0, 1,                ST, 0,    Q::Setting},

        {N::ActualCurrent,        "Actual current",                  "mA",      1, -Current, Current,   RO, 0,    Q::ActualCurrent},
        {N::MaxPhaseCurrent,      "Maximum phase current",           "mA",      1, 0, Current,          RO, Current, Q::Setting},
        {N::CurrentChange,        "Current change",                  "mA/s",    1, -99999, 99999,       ST, 1000, Q::Setting},
        {N::StartStopCurrent,     "Start/stop current",              "mA",      1, 0, Current,          ST, 100,  Q::Setting},
        {N::TargetCurrent,        "Target current",                  "mA",      1, -Current, Current,   RW, 0,    Q::TargetCurrent},
        {N::PowerOnVelocity,      "Power-on velocity",               "rpm",     1, -Velocity, Velocity, ST, 0,    Q::Setting},
        {N::StartCurrent,         "Start current",                   "mA",      1, 0, Current,          ST, 1500, Q::Setting},
    };
    // clang-format on
    return table;
}

const ParameterTable& moduleParameters()
{
    // clang-format off
    static const ParameterTable table = {
        {0,  "Module type",           "",     1, 0, Any,       RO, 4711,   Q::Setting},
        {1,  "Firmware version",      "",     1, 0, Any,       RO, 108,    Q::Setting},
        {2,  "Serial number",         "",     1, 0, Any,       RO, 100042, Q::Setting},
        {3,  "Axes",                  "",     1, 0, 255,       RO, 2,      Q::Setting},
        {4,  "Up time",               "ms",   1, 0, Any,       RO, 0,      Q::UpTime},
        {10, "Serial bit rate",       "bit/s", 1, 9600, 1000000, ST, 9600, Q::Setting},
        {11, "Reply pause",           "ms",   1, 0, 255,       ST, 0,      Q::Setting},
        {12, "Host address",          "",     1, 0, 255,       ST, 2,      Q::Setting},
        {13, "Bus bit rate",          "kbit/s", 1, 10, 1000,   ST, 1000,   Q::Setting},
        {14, "Heartbeat time",        "ms",   1, 0, 65535,     ST, 0,      Q::Setting},
        {15, "Input polarity",        "",     1, 0, 255,       ST, 0,      Q::Setting},
        {16, "Autostart",             "",     1, 0, 1,         ST, 0,      Q::Setting},
    };
    // clang-format on
    return table;
}

const ParameterTable& userVariables()
{
    static const ParameterTable table = [] {
        ParameterTable rows;
        for (quint8 number = 0; number < 56; ++number)
            rows.push_back({number, "User variable", "", 1, Lowest, Any, ST, 0, Q::Setting});
        return rows;
    }();
    return table;
}

const ParameterInfo& axisParameter(quint8 number)
{
    const ParameterTable& table = axisParameters();
    return *std::find_if(table.begin(), table.end(),
                         [number](const ParameterInfo& row) { return row.number == number; });
}

ParameterMemory::ParameterMemory(const ParameterTable& table)
{
    for (const ParameterInfo& row : table) {
        m_rows[row.number] = &row;
        m_stored[row.number] = row.reset;
    }
    reset();
}
