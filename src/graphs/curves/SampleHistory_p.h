#ifndef SAMPLEHISTORY_P_H
#define SAMPLEHISTORY_P_H

#include "Ring_p.h"
#include "TValue.h"

/// The samples of a curve in the order of their arrival. The extremes of all that are stored are
/// known at any time without a walk: for each of them a queue holds the samples that are, or will
/// be once older ones have gone, the extreme. "Not a number" is stored but is no extreme.
class SampleHistory
{
public:
    std::size_t size() const { return m_values.size(); }
    const TValue& operator[](std::size_t index) const { return m_values[index]; }
    const TValue& first() const { return m_values.front(); }

    void append(const TValue& sample);
    void removeFirst();
    void clear();

    /// \return whether there is any; else both stay as they are.
    bool extremes(double* lowest, double* highest) const;

private:
    struct Extreme {
        quint64 number; // of the sample, counted from the first ever
        double value;
    };

    Ring<TValue> m_values;
    Ring<Extreme> m_lowest;  // rising
    Ring<Extreme> m_highest; // falling
    quint64 m_firstNumber = 0;
};

#endif
