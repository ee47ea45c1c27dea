#ifndef PARAMETERTABLE_H
#define PARAMETERTABLE_H

#include "AXRSimulationExport.h"

#include <QtGlobal>

#include <array>
#include <vector>

/// What a parameter reads and what writing it does. Everything that is no Setting is computed by
/// the axis or the module.
enum class Quantity : quint8 {
    Setting, ///< A plain value; the drive looks at it when it needs it.

    // Writing one of these starts motion or changes what is measured.
    TargetPosition,
    ActualPosition,
    TargetVelocity,
    TargetCurrent,
    EncoderSteps,

    // Readings.
    ActualVelocity,
    RampVelocity,
    RampPosition,
    PositionDeviation,
    PositionReached,
    OperatingMode,
    ActualCurrent,
    PhaseCurrentA,
    PhaseCurrentB,
    PhaseCurrentC,
    SupplyCurrent,
    SupplyVoltage,
    Temperature,
    StatusFlags,
    ThermalLoad,
    BrakeActive,
    RawEncoder,
    EncoderTurns,
    HallState,
    HallAngle,
    ElectricalAngle,
    LeftLimitSwitch,
    RightLimitSwitch,
    HomeSwitch,
    LeftHallSwitch,
    RightHallSwitch,

    // Readings of the whole module.
    UpTime
};

enum class Access : quint8 {
    ReadOnly,
    ReadWrite,
    Storable ///< Read and write, and the value can be kept over a reset.
};

/// One row of a parameter table.
struct ParameterInfo {
    quint8 number;
    const char* name; ///< UTF-8
    const char* unit; ///< UTF-8, of the real value; empty without unit.
    double factor;    ///< Real units per device unit.
    int minimum;      ///< In device units, as is maximum.
    int maximum;
    Access access;
    int reset; ///< Value at power-on as long as no other was stored.
    Quantity quantity;
};

using ParameterTable = std::vector<ParameterInfo>;

/// The parameters of each axis, by number.
AXRSIMULATION_EXPORT const ParameterTable& axisParameters();
/// The axis parameter of a number that the table has.
AXRSIMULATION_EXPORT const ParameterInfo& axisParameter(quint8 number);

/// The parameters of the whole module: bank 0 of the global parameters.
AXRSIMULATION_EXPORT const ParameterTable& moduleParameters();

/// 56 variables of the full range of int without meaning: bank 2 of the global parameters.
AXRSIMULATION_EXPORT const ParameterTable& userVariables();

/// The numbers of those axis parameters that a host or the drive itself knows by name.
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

/// Bits of the status flag word.
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

/// The values of one table: present ones, and those kept for the next power-on.
class AXRSIMULATION_EXPORT ParameterMemory
{
public:
    /// The table must outlive this object; its numbers are unique.
    explicit ParameterMemory(const ParameterTable& table);

    /// Null when the table has no such number.
    const ParameterInfo* info(quint8 number) const { return m_rows[number]; }

    /// 0 for a number that the table does not have.
    int value(quint8 number) const { return m_values[number]; }
    /// Not checked against the row.
    void setValue(quint8 number, int value) { m_values[number] = value; }

    /// What value() is after the next reset().
    int stored(quint8 number) const { return m_stored[number]; }
    void store(quint8 number) { m_stored[number] = m_values[number]; }
    void reset() { m_values = m_stored; }

private:
    std::array<const ParameterInfo*, 256> m_rows{};
    std::array<int, 256> m_values{};
    std::array<int, 256> m_stored{};
};

#endif
