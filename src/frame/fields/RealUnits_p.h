#ifndef REALUNITS_P_H
#define REALUNITS_P_H

#include <QString>

/// How a number field shows device units in real ones: two factors, and the text behind the number.
struct RealUnits {
    double factor = 1.0;
    double pulseFactor = 1.0;
    QString text; ///< A suffix, or "%1 rpm", which becomes " [5.00 rpm]".

    /// 2^-divisor x 16 MHz / 65536
    void setPulseDivisor(int divisor);
    /// The format of a parameter; where a value and its real value are the same, it shows once.
    void setFormat(const QString& format);
    /// The value divided by both factors, itself when one of them is 0.
    double divided(double value) const;
    /// Whether the suffix holds a real value.
    bool isShown() const;
    QString suffix(double value) const;
};

#endif
