#include "EntryRules_p.h"

#include "BasicTools.h"

#include <QRegularExpression>

/// The digits with the decimal point put in its place. They are filled with zeros up to the point
/// (and one in front of it, unless a minus stands there), surplus leading zeros go.
QString EntryRules::withPoint(QString digits, bool negative) const
{
    if (decimals <= 0 || digits.isEmpty())
        return digits;
    const int least = negative ? decimals : decimals + 1;
    digits = digits.rightJustified(least, QLatin1Char('0'));
    while (digits.size() > least && digits.startsWith(QLatin1Char('0')))
        digits.remove(0, 1);
    return digits.insert(digits.size() - decimals, QLatin1Char('.'));
}

EntryVerdict EntryRules::judge(QString input, int pos) const
{
    if (!special.isEmpty() && input == special)
        return {QValidator::Acceptable, input, pos};

    QString typed = input;
    typed.remove(prefix).remove(suffix);
    QString s = typed;
    s.remove(QLatin1Char(','));
    if (s.isEmpty() || s == QLatin1String("-"))
        return {QValidator::Intermediate, input, pos};
    if (s.startsWith(QLatin1String("-0"))) { // a leading zero after a minus is dropped
        const int start = input.startsWith(prefix) ? prefix.size() : 0;
        const int minus = input.indexOf(QLatin1String("-0"), start);
        input.remove(minus + 1, minus >= 0 ? 1 : 0);
        return {QValidator::Intermediate, input, pos};
    }

    const bool negative = s.startsWith(QLatin1Char('-'));
    const QString sign = negative ? QStringLiteral("-") : QString();
    s.remove(0, sign.size());
    static const QRegularExpression nonDigits(QStringLiteral("[^0-9]"));
    if (s.contains(nonDigits)) {
        s.remove(nonDigits);
        return {QValidator::Intermediate, prefix + sign + withPoint(s, negative) + suffix,
                qMax(0, pos - 1)};
    }

    bool converted = false;
    double number = s.toDouble(&converted);
    if (!converted)
        return {QValidator::Intermediate, input, pos, EntryVerdict::Invalid};
    if (negative)
        number = -number;
    if (number > maximum || number < minimum)
        return {QValidator::Intermediate, input, pos, EntryVerdict::Invalid, number};
    const QString text = asTyped ? typed : BasicTools::intInsertDot(number, decimals);
    return {QValidator::Acceptable, prefix + text + suffix, pos, EntryVerdict::Valid, number};
}
