#include "Prefix.h"

#include <algorithm>

namespace
{
constexpr int Digits = 10;
}

QString Prefix::add(const QString& name, int index)
{
    // Concatenated, not through arg(): a name may hold "%1".
    return QStringLiteral("%1").arg(qMax(0, index), Digits, 10, QLatin1Char('0')) +
           QLatin1Char(':') + name;
}

QString Prefix::x(const QString& key)
{
    const auto isDigit = [](QChar c) { return c >= QLatin1Char('0') && c <= QLatin1Char('9'); };
    if (key.size() > Digits && key.at(Digits) == QLatin1Char(':') &&
        std::all_of(key.begin(), key.begin() + Digits, isDigit))
        return key.mid(Digits + 1);
    return key;
}
