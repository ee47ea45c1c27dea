#include "FieldText_p.h"

#include <algorithm>
#include <limits>

bool FieldText::isDigit(QChar c) { return c >= QLatin1Char('0') && c <= QLatin1Char('9'); }

int FieldText::digitsIn(const QString& text)
{
    return static_cast<int>(std::count_if(text.begin(), text.end(), isDigit));
}

int FieldText::start() const { return text.startsWith(prefix) ? prefix.size() : 0; }

int FieldText::end() const
{
    return qMax(start(), text.endsWith(suffix) ? text.size() - suffix.size() : text.size());
}

QString FieldText::between(int from, int to) const { return text.mid(from, qMax(0, to - from)); }

bool FieldText::hasPoint() const { return between(start(), end()).contains(Point); }

int FieldText::caretBefore(int digitsRight) const
{
    int caret = end();
    for (int digits = 0; caret > start(); --caret) {
        const bool digit = isDigit(text.at(caret - 1));
        if (digit && digits == digitsRight)
            break;
        digits += digit;
        if (!digit && text.at(caret - 1) == QLatin1Char('-'))
            break;
    }
    return caret;
}

double FieldText::number() const
{
    bool isNumber = false;
    const double number = between(start(), end()).remove(QLatin1Char(',')).toDouble(&isNumber);
    return isNumber ? number : std::numeric_limits<double>::quiet_NaN();
}
