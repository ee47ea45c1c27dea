#include "RealUnits_p.h"

#include <cmath>

void RealUnits::setPulseDivisor(int divisor)
{
    constexpr double ClockFrequency = 16000000.0;
    pulseFactor = std::pow(2.0, -divisor) * ClockFrequency * std::pow(2.0, -16);
}

void RealUnits::setFormat(const QString& format)
{
    text = format;
    if (factor == 1.0) {
        text.remove(QStringLiteral("%1 "));
        text.prepend(QLatin1Char(' '));
    }
}

double RealUnits::divided(double value) const
{
    return factor * pulseFactor == 0.0 ? value : value / (factor * pulseFactor);
}

bool RealUnits::isShown() const
{
    return text.contains(QLatin1Char('%')) && text != QLatin1String(" [%]");
}

QString RealUnits::suffix(double value) const
{
    if (!isShown())
        return text;
    QString filled = text;
    filled.replace(QLatin1String("%1"),
                   QStringLiteral("%1").arg(value * factor * pulseFactor, 2, 'f', 2));
    return QStringLiteral(" [") + filled + QLatin1Char(']');
}
