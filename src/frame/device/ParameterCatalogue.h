#ifndef PARAMETERCATALOGUE_H
#define PARAMETERCATALOGUE_H

#include <QtGlobal>

#include <array>
#include <limits>

enum class ParameterAccess : quint8 {
    ReadOnly,
    ReadWrite,
    Storable ///< Read and write, and the value can be kept over a reset.
};

/// What a parameter of a module is.
struct ParameterInfo {
    quint8 number = 0;
    const char* name = ""; ///< UTF-8
    const char* unit = ""; ///< UTF-8, of the real value; empty without unit.
    double factor = 1;     ///< Real units per device unit.
    int minimum = 0;       ///< In device units, as is maximum.
    int maximum = 0;
    ParameterAccess access = ParameterAccess::ReadOnly;
};

/// The numbers of the axis parameters.
namespace AxisParameterNumber
{
constexpr quint8 TargetPosition = 0;
constexpr quint8 ActualPosition = 1;
constexpr quint8 TargetVelocity = 2;
constexpr quint8 ActualVelocity = 3;
constexpr quint8 MaxVelocity = 4;
constexpr quint8 EnableRamp = 5;
constexpr quint8 MaxCurrent = 6;
constexpr quint8 PositionReached = 7;
constexpr quint8 PositionWindow = 8;
constexpr quint8 Acceleration = 11;
constexpr quint8 RampVelocity = 13;
constexpr quint8 RampPosition = 14;
constexpr quint8 PositionDeviation = 15;
constexpr quint8 OperatingMode = 16;
constexpr quint8 StartStopVelocity = 17;

constexpr quint8 LeftLimitSwitch = 20;
constexpr quint8 RightLimitSwitch = 21;
constexpr quint8 HomeSwitch = 22;
constexpr quint8 LeftHallSwitch = 23;
constexpr quint8 RightHallSwitch = 24;
constexpr quint8 LeftLimitDisabled = 25;
constexpr quint8 RightLimitDisabled = 26;

constexpr quint8 EncoderSteps = 30;
constexpr quint8 EncoderDirection = 31;
constexpr quint8 CommutationOffset = 32;
constexpr quint8 SineInitMode = 33;
constexpr quint8 RawEncoder = 34;
constexpr quint8 EncoderTurns = 35;
constexpr quint8 ClearOnNull = 36;
constexpr quint8 ClearOnce = 37;

constexpr quint8 MotorPoles = 40;
constexpr quint8 HallDirection = 41;
constexpr quint8 HallInvert = 42;
constexpr quint8 HallInterpolation = 43;
constexpr quint8 HallState = 44;
constexpr quint8 HallAngle = 45;
constexpr quint8 ElectricalAngle = 46;
constexpr quint8 CommutationMode = 47;

constexpr quint8 CurrentP = 50;
constexpr quint8 CurrentI = 51;
constexpr quint8 VelocityP = 52;
constexpr quint8 VelocityI = 53;
constexpr quint8 PositionP = 54;

constexpr quint8 BrakeEnabled = 60;
constexpr quint8 BrakeVoltageLimit = 61;
constexpr quint8 BrakeHysteresis = 62;
constexpr quint8 BrakeActive = 63;

constexpr quint8 UndervoltageLimit = 70;
constexpr quint8 OvervoltageLimit = 71;
constexpr quint8 OvertemperatureLimit = 72;
constexpr quint8 OvercurrentLimit = 73;
constexpr quint8 ContinuousCurrent = 74;
constexpr quint8 ThermalLoadLimit = 75;
constexpr quint8 ThermalLoad = 76;

constexpr quint8 PhaseCurrentA = 80;
constexpr quint8 PhaseCurrentB = 81;
constexpr quint8 PhaseCurrentC = 82;
constexpr quint8 SupplyCurrent = 83;

constexpr quint8 SupplyVoltage = 90;
constexpr quint8 Temperature = 91;
constexpr quint8 StatusFlags = 92;

constexpr quint8 BlankTime = 100;
constexpr quint8 ChopperMode = 101;
constexpr quint8 HysteresisDecrement = 102;
constexpr quint8 HysteresisEnd = 103;
constexpr quint8 HysteresisStart = 104;
constexpr quint8 OffTime = 105;
constexpr quint8 SlopeHighSide = 106;
constexpr quint8 SlopeLowSide = 107;
constexpr quint8 MicrostepResolution = 108;
constexpr quint8 FullstepResolution = 109;
constexpr quint8 StandbyCurrent = 110;
constexpr quint8 LoopMode = 111;
constexpr quint8 EncoderOffset = 112;

constexpr quint8 GammaVMin = 118;
constexpr quint8 GammaVMax = 119;
constexpr quint8 PositionWindowTime = 120;
constexpr quint8 StandstillP = 121;
constexpr quint8 StandstillErrorLimit = 122;
constexpr quint8 VelocityWindow = 123;

constexpr quint8 ScalerEnabled = 130;
constexpr quint8 ActualScaler = 131;
constexpr quint8 ScalerMinimum = 132;
constexpr quint8 ScalerMaximum = 133;
constexpr quint8 ScalerLowerLimit = 134;
constexpr quint8 ScalerUpperLimit = 135;
constexpr quint8 ScalerIncrement = 136;
constexpr quint8 ScalerDecrement = 137;
constexpr quint8 ScalerIncrementTime = 138;
constexpr quint8 ScalerDecrementTime = 139;
constexpr quint8 ScalerInput = 140;

constexpr quint8 ActualCurrent = 150;
constexpr quint8 MaxPhaseCurrent = 151;
constexpr quint8 CurrentChange = 152;
constexpr quint8 StartStopCurrent = 153;
constexpr quint8 TargetCurrent = 155;
constexpr quint8 PowerOnVelocity = 157;
constexpr quint8 StartCurrent = 177;
} // namespace AxisParameterNumber

/// Those of the module's parameters that the module itself changes.
namespace ModuleParameterNumber
{
constexpr quint8 UpTime = 4;
} // namespace ModuleParameterNumber

/// Bits of the axis parameter StatusFlags.
namespace StatusFlag
{
constexpr int Overcurrent = 1 << 0;
constexpr int Undervoltage = 1 << 1;
constexpr int Overvoltage = 1 << 2;
constexpr int Overtemperature = 1 << 3;
constexpr int MotorHalted = 1 << 4;
constexpr int VelocityMode = 1 << 9;
constexpr int PositionMode = 1 << 10;
constexpr int TorqueMode = 1 << 11;
constexpr int PositionEnd = 1 << 14;
constexpr int ModuleInitialized = 1 << 15;
constexpr int ThermalLoadExceeded = 1 << 17;
constexpr int BrakeActive = 1 << 18;
} // namespace StatusFlag

/// The parameters of each axis, by number.
inline constexpr auto AxisParameters = [] {
    using namespace AxisParameterNumber;
    using P = ParameterInfo;
    constexpr auto RO = ParameterAccess::ReadOnly;
    constexpr auto RW = ParameterAccess::ReadWrite;
    constexpr auto ST = ParameterAccess::Storable;
    constexpr int Any = std::numeric_limits<int>::max(); // as -Any..Any what every box can hold
    constexpr int Current = 20000;                       // mA, the bridge's end
    constexpr int Velocity = 100000;                     // rpm
    constexpr int Phase = 32768;                         // half an electrical turn
    // clang-format off
    return std::array{
        // number, name, unit, factor, minimum, maximum, access
        P{TargetPosition,       "Target position",               "inc",              1, -Any, Any,           RW},
        P{ActualPosition,       "Actual position",               "inc",              1, -Any, Any,           RW},
        P{TargetVelocity,       "Target velocity",               "rpm",              1, -Velocity, Velocity, RW},
        P{ActualVelocity,       "Actual velocity",               "rpm",              1, -Any, Any,           RO},
        P{MaxVelocity,          "Maximum velocity",              "rpm",              1, 0, Velocity,         ST},
        P{EnableRamp,           "Velocity ramp enabled",         "",                 1, 0, 1,                ST},
        P{MaxCurrent,           "Maximum current",               "mA",               1, 0, Current,          ST},
        P{PositionReached,      "Position reached",              "",                 1, 0, 1,                RO},
        P{PositionWindow,       "Position reached window",       "inc",              1, 0, Any,              ST},
        P{Acceleration,         "Acceleration",                  "rpm/s",            1, 1, 1000000,          ST},
        P{RampVelocity,         "Ramp velocity",                 "rpm",              1, -Any, Any,           RO},
        P{RampPosition,         "Ramp position",                 "inc",              1, -Any, Any,           RO},
        P{PositionDeviation,    "Position deviation",            "inc",              1, -Any, Any,           RO},
        P{OperatingMode,        "Operating mode",                "",                 1, 0, 2,                RO},
        P{StartStopVelocity,    "Start-stop velocity",           "rpm",              1, 0, Velocity,         ST},

        P{LeftLimitSwitch,      "Left limit switch",             "",                 1, 0, 1,                RO},
        P{RightLimitSwitch,     "Right limit switch",            "",                 1, 0, 1,                RO},
        P{HomeSwitch,           "Home switch",                   "",                 1, 0, 1,                RO},
        P{LeftHallSwitch,       "Left Hall switch",              "",                 1, 0, 1,                RO},
        P{RightHallSwitch,      "Right Hall switch",             "",                 1, 0, 1,                RO},
        P{LeftLimitDisabled,    "Left limit switch disabled",    "",                 1, 0, 1,                ST},
        P{RightLimitDisabled,   "Right limit switch disabled",   "",                 1, 0, 1,                ST},

        P{EncoderSteps,         "Encoder steps per rotation",    "inc",              1, 4, 65536,            ST},
        P{EncoderDirection,     "Encoder direction",             "",                 1, 0, 1,                ST},
        P{CommutationOffset,    "Commutation offset",            "inc",              1, 0, 65535,            ST},
        P{SineInitMode,         "Sine initialization mode",      "",                 1, 0, 2,                ST},
        P{RawEncoder,           "Raw encoder value",             "inc",              1, 0, 65535,            RO},
        P{EncoderTurns,         "Encoder turns",                 "",                 1, -Any, Any,           RO},
        P{ClearOnNull,          "Clear on null",                 "",                 1, 0, 1,                ST},
        P{ClearOnce,            "Clear once",                    "",                 1, 0, 1,                RW},

        P{MotorPoles,           "Motor poles",                   "",                 1, 2, 254,              ST},
        P{HallDirection,        "Hall sensor direction",         "",                 1, 0, 1,                ST},
        P{HallInvert,           "Hall sensor invert",            "",                 1, 0, 1,                ST},
        P{HallInterpolation,    "Hall interpolation",            "",                 1, 0, 1,                ST},
        P{HallState,            "Hall sensor state",             "",                 1, 1, 6,                RO},
        P{HallAngle,            "Hall angle",                    "°",     360. / 65536, -Phase, Phase - 1,   RO},
        P{ElectricalAngle,      "Electrical angle",              "°",     360. / 65536, -Phase, Phase - 1,   RO},
        P{CommutationMode,      "Commutation mode",              "",                 1, 0, 4,                ST},

        P{CurrentP,             "Current loop P",                "",                 1, 0, 32767,            ST},
        P{CurrentI,             "Current loop I",                "",                 1, 0, 32767,            ST},
        P{VelocityP,            "Velocity loop P",               "",                 1, 0, 32767,            ST},
        P{VelocityI,            "Velocity loop I",               "",                 1, 0, 32767,            ST},
        P{PositionP,            "Position loop P",               "",                 1, 0, 32767,            ST},

        P{BrakeEnabled,         "Brake chopper enabled",         "",                 1, 0, 1,                ST},
        P{BrakeVoltageLimit,    "Brake chopper voltage limit",   "V",              0.1, 50, 600,             ST},
        P{BrakeHysteresis,      "Brake chopper hysteresis",      "V",              0.1, 0, 50,               ST},
        P{BrakeActive,          "Brake chopper active",          "",                 1, 0, 1,                RO},

        P{UndervoltageLimit,    "Undervoltage limit",            "V",              0.1, 0, 600,              ST},
        P{OvervoltageLimit,     "Overvoltage limit",             "V",              0.1, 0, 600,              ST},
        P{OvertemperatureLimit, "Overtemperature limit",         "°C",               1, 0, 150,              ST},
        P{OvercurrentLimit,     "Overcurrent limit",             "mA",               1, 0, Current,          ST},
        P{ContinuousCurrent,    "Continuous current",            "mA",               1, 0, Current,          ST},
        P{ThermalLoadLimit,     "I²t limit",                     "A²s",            0.1, 0, 100000,           ST},
        P{ThermalLoad,          "I²t sum",                       "A²s",            0.1, 0, Any,              RO},

        P{PhaseCurrentA,        "Current phase A",               "mA",               1, -Current, Current,   RO},
        P{PhaseCurrentB,        "Current phase B",               "mA",               1, -Current, Current,   RO},
        P{PhaseCurrentC,        "Current phase C",               "mA",               1, -Current, Current,   RO},
        P{SupplyCurrent,        "Supply current",                "mA",               1, -Any, Any,           RO},
        P{SupplyVoltage,        "Supply voltage",                "V",              0.1, 0, 1000,             RO},
        P{Temperature,          "Temperature",                   "°C",               1, -273, 1000,          RO},
        P{StatusFlags,          "Status flags",                  "",                 1, 0, Any,              RO},

        P{BlankTime,            "Chopper blank time",            "",                 1, 0, 3,                ST},
        P{ChopperMode,          "Chopper mode",                  "",                 1, 0, 1,                ST},
        P{HysteresisDecrement,  "Chopper hysteresis decrement",  "",                 1, 0, 3,                ST},
        P{HysteresisEnd,        "Chopper hysteresis end",        "",                 1, -3, 12,              ST},
        P{HysteresisStart,      "Chopper hysteresis start",      "",                 1, 0, 8,                ST},
        P{OffTime,              "Chopper off time",              "",                 1, 0, 15,               ST},
        P{SlopeHighSide,        "Slope high side",               "",                 1, 0, 3,                ST},
        P{SlopeLowSide,         "Slope low side",                "",                 1, 0, 3,                ST},
        P{MicrostepResolution,  "Microstep resolution",          "",                 1, 0, 8,                ST},
        P{FullstepResolution,   "Motor fullstep resolution",     "",                 1, 0, 400,              ST},
        P{StandbyCurrent,       "Standby current",               "",                 1, 0, 255,              ST},
        P{LoopMode,             "Loop mode",                     "",                 1, 0, 1,                ST},
        P{EncoderOffset,        "Encoder offset",                "inc",              1, -1023, 1023,         ST},

        P{GammaVMin,            "Field weakening start",         "rpm",              1, 0, 268435454,        ST},
        P{GammaVMax,            "Field weakening end",           "rpm",              1, 0, 268435454,        ST},
        P{PositionWindowTime,   "Position reached time",         "ms",             0.1, 0, Any,              ST},
        P{StandstillP,          "Standstill error gain",         "",                 1, 10, 50,              ST},
        P{StandstillErrorLimit, "Standstill error limit",        "inc",              1, 0, Any,              ST},
        P{VelocityWindow,       "Velocity reached window",       "rpm",              1, 0, Any,              ST},

        P{ScalerEnabled,        "Current scaler enabled",        "",                 1, 0, 1,                ST},
        P{ActualScaler,         "Current scaler value",          "",                 1, 0, 255,              RO},
        P{ScalerMinimum,        "Current scaler minimum",        "",                 1, 0, 255,              ST},
        P{ScalerMaximum,        "Current scaler maximum",        "",                 1, 0, 255,              ST},
        P{ScalerLowerLimit,     "Current scaler lower limit",    "",                 1, 0, 4095,             ST},
        P{ScalerUpperLimit,     "Current scaler upper limit",    "",                 1, 0, 4095,             ST},
        P{ScalerIncrement,      "Current scaler increment",      "",                 1, 0, 15,               ST},
        P{ScalerDecrement,      "Current scaler decrement",      "",                 1, 0, 15,               ST},
        P{ScalerIncrementTime,  "Current scaler increment time", "",                 1, 0, 15,               ST},
        P{ScalerDecrementTime,  "Current scaler decrement time", "",                 1, 0, 15,               ST},
        P{ScalerInput,          "Current scaler input",          "",                 1, 0, 1,                ST},

        P{ActualCurrent,        "Actual current",                "mA",               1, -Current, Current,   RO},
        P{MaxPhaseCurrent,      "Maximum phase current",         "mA",               1, 0, Current,          RO},
        P{CurrentChange,        "Current change",                "mA/s",             1, -99999, 99999,       ST},
        P{StartStopCurrent,     "Start/stop current",            "mA",               1, 0, Current,          ST},
        P{TargetCurrent,        "Target current",                "mA",               1, -Current, Current,   RW},
        P{PowerOnVelocity,      "Power-on velocity",             "rpm",              1, -Velocity, Velocity, ST},
        P{StartCurrent,         "Start current",                 "mA",               1, 0, Current,          ST}
    };
    // clang-format on
}();

/// The axis parameter of a number that the table has.
constexpr const ParameterInfo& axisParameter(quint8 number)
{
    const ParameterInfo* row = AxisParameters.data();
    while (row->number != number)
        ++row;
    return *row;
}

/// The parameters of the whole module: bank 0 of the global parameters.
inline constexpr auto ModuleParameters = [] {
    using ModuleParameterNumber::UpTime;
    using P = ParameterInfo;
    constexpr auto RO = ParameterAccess::ReadOnly;
    constexpr auto ST = ParameterAccess::Storable;
    constexpr int Any = std::numeric_limits<int>::max();
    // clang-format off
    return std::array{
        P{0,  "Module type",      "",       1, 0, Any,        RO},
        P{1,  "Firmware version", "",       1, 0, Any,        RO},
        P{2,  "Serial number",    "",       1, 0, Any,        RO},
        P{3,  "Axes",             "",       1, 0, 255,        RO},
        P{UpTime, "Up time",      "ms",     1, 0, Any,        RO},
        P{10, "Serial bit rate",  "bit/s",  1, 9600, 1000000, ST},
        P{11, "Reply pause",      "ms",     1, 0, 255,        ST},
        P{12, "Host address",     "",       1, 0, 255,        ST},
        P{13, "Bus bit rate",     "kbit/s", 1, 10, 1000,      ST},
        P{14, "Heartbeat time",   "ms",     1, 0, 65535,      ST},
        P{15, "Input polarity",   "",       1, 0, 255,        ST},
        P{16, "Autostart",        "",       1, 0, 1,          ST}
    };
    // clang-format on
}();

/// Variables of the full range of int without meaning: bank 2 of the global parameters.
inline constexpr auto UserVariables = [] {
    std::array<ParameterInfo, 56> rows;
    for (std::size_t i = 0; i < rows.size(); ++i)
        rows[i] = {quint8(i),
                   "User variable",
                   "",
                   1,
                   std::numeric_limits<int>::min(),
                   std::numeric_limits<int>::max(),
                   ParameterAccess::Storable};
    return rows;
}();

#endif
