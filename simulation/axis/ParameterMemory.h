#ifndef PARAMETERMEMORY_H
#define PARAMETERMEMORY_H

#include "ParameterCatalogue.h"

#include "AXRSimulationExport.h"

#include <array>

namespace Simulated
{

/// The values of some parameters of the catalogue: present ones, and those kept for the next
/// power-on.
class AXRSIMULATION_EXPORT ParameterMemory
{
public:
    static ParameterMemory ofAxis();
    static ParameterMemory ofModule();
    static ParameterMemory ofUserVariables();

    /// Null for a number that is none of these parameters.
    const ParameterInfo* info(quint8 number) const { return m_rows[number]; }

    /// 0 for a number that is none of these parameters.
    int value(quint8 number) const { return m_values[number]; }
    /// Not checked against the parameter's range.
    void setValue(quint8 number, int value) { m_values[number] = value; }

    /// What value() is after the next reset().
    int stored(quint8 number) const { return m_stored[number]; }
    void store(quint8 number) { m_stored[number] = m_values[number]; }
    void reset() { m_values = m_stored; }

private:
    struct PowerOnValue;
    template <class Rows>
    ParameterMemory(const Rows& rows, std::initializer_list<PowerOnValue> powerOnValues);

    std::array<const ParameterInfo*, 256> m_rows{};
    std::array<int, 256> m_values{};
    std::array<int, 256> m_stored{};
};

} // namespace Simulated

#endif
