#include "ParameterMemory.h"

namespace N = AxisParameterNumber;

namespace Simulated
{

/// Of a parameter that is not 0 until another value was stored.
struct ParameterMemory::PowerOnValue {
    quint8 number;
    int value;
};

template <class Rows>
ParameterMemory::ParameterMemory(const Rows& rows,
                                 std::initializer_list<PowerOnValue> powerOnValues)
{
    for (const ParameterInfo& row : rows)
        m_rows[row.number] = &row;
    for (const PowerOnValue& each : powerOnValues)
        m_stored[each.number] = each.value;
    reset();
}

ParameterMemory ParameterMemory::ofAxis()
{
    return {AxisParameters,
            {
                {N::MaxVelocity, 4000},
                {N::EnableRamp, 1},
                {N::MaxCurrent, 5000},
                {N::PositionWindow, 5},
                {N::Acceleration, 5000},
                {N::StartStopVelocity, 1},
                {N::EncoderSteps, 4096},
                {N::MotorPoles, 8},
                {N::CommutationMode, 2},
                {N::CurrentP, 600},
                {N::CurrentI, 900},
                {N::VelocityP, 800},
                {N::VelocityI, 400},
                {N::PositionP, 300},
                {N::BrakeVoltageLimit, 260},
                {N::BrakeHysteresis, 5},
                {N::UndervoltageLimit, 100},
                {N::OvervoltageLimit, 300},
                {N::OvertemperatureLimit, 100},
                {N::OvercurrentLimit, 15000},
                {N::ContinuousCurrent, 4000},
                {N::ThermalLoadLimit, 500},
                {N::BlankTime, 2},
                {N::HysteresisStart, 5},
                {N::OffTime, 5},
                {N::SlopeHighSide, 1},
                {N::SlopeLowSide, 1},
                {N::MicrostepResolution, 8},
                {N::FullstepResolution, 200},
                {N::StandbyCurrent, 16},
                {N::LoopMode, 1},
                {N::GammaVMin, 3000},
                {N::GammaVMax, 6000},
                {N::StandstillP, 10},
                {N::StandstillErrorLimit, 1000},
                {N::VelocityWindow, 10},
                {N::ScalerMinimum, 32},
                {N::ScalerMaximum, 255},
                {N::ScalerLowerLimit, 100},
                {N::ScalerUpperLimit, 1000},
                {N::ScalerIncrement, 4},
                {N::ScalerDecrement, 1},
                {N::ScalerIncrementTime, 2},
                {N::ScalerDecrementTime, 8},
                {N::MaxPhaseCurrent, 20000},
                {N::CurrentChange, 1000},
                {N::StartStopCurrent, 100},
                {N::StartCurrent, 1500},
            }};
}

ParameterMemory ParameterMemory::ofModule()
{
    return {ModuleParameters,
            {{0, 4711}, {1, 108}, {2, 100042}, {3, 2}, {10, 9600}, {12, 2}, {13, 1000}}};
}

ParameterMemory ParameterMemory::ofUserVariables() { return {UserVariables, {}}; }

} // namespace Simulated
