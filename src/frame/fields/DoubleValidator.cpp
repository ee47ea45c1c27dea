#include "DoubleValidator.h"

#include "BasicTools.h"

#include <QLineEdit>
#include <QRegularExpression>

namespace
{

/// The digits with the decimal point put in its place. They are filled with zeros up to the point
/// (and one in front of it, unless a minus stands there), surplus leading zeros go.
QString withPoint(QString digits, int decimals, bool negative)
{
    if (decimals <= 0 || digits.isEmpty())
        return digits;
    const int least = negative ? decimals : decimals + 1;
    digits = digits.rightJustified(least, QLatin1Char('0'));
    while (digits.size() > least && digits.startsWith(QLatin1Char('0')))
        digits.remove(0, 1);
    return digits.insert(digits.size() - decimals, QLatin1Char('.'));
}

} // namespace

DoubleValidator::DoubleValidator(QLineEdit* parent, QFlags<SpinBox::Option> options)
    : QDoubleValidator(parent), m_options(options)
{
}

QValidator::State DoubleValidator::validate(QString& input, int& pos) const
{
    auto* spin = qobject_cast<SpinBox*>(parent() ? parent()->parent() : nullptr);
    if (!spin)
        return QDoubleValidator::validate(input, pos);
    if (spin->m_isRewriting) // no entry, but the box at work on its own text
        return Acceptable;
    if (!spin->specialValueText().isEmpty() && input == spin->specialValueText())
        return Acceptable;

    QString typed = input;
    typed.remove(spin->prefix()).remove(spin->suffix());
    QString s = typed;
    s.remove(QLatin1Char(','));
    if (s.isEmpty() || s == QLatin1String("-"))
        return Intermediate;
    if (s.startsWith(QLatin1String("-0"))) { // a leading zero after a minus is dropped
        const int number = input.startsWith(spin->prefix()) ? spin->prefix().size() : 0;
        const int minus = input.indexOf(QLatin1String("-0"), number);
        input.remove(minus + 1, minus >= 0 ? 1 : 0);
        return Intermediate;
    }

    const bool negative = s.startsWith(QLatin1Char('-'));
    const QString sign = negative ? QStringLiteral("-") : QString();
    s.remove(0, sign.size());
    static const QRegularExpression nonDigits(QStringLiteral("[^0-9]"));
    if (s.contains(nonDigits)) {
        s.remove(nonDigits);
        pos = qMax(0, pos - 1);
        input = spin->prefix() + sign + withPoint(s, spin->decimals(), negative) + spin->suffix();
        return Intermediate;
    }

    bool converted = false;
    double number = s.toDouble(&converted);
    if (negative)
        number = -number;
    const bool outOfRange = number > spin->maximum() || number < spin->minimum();
    if (converted && outOfRange)
        spin->showOutOfRangeTip();
    if (!converted || outOfRange) {
        spin->showEntry(SpinBox::Entry::Invalid);
        return Intermediate;
    }

    spin->hideOutOfRangeTip();
    const bool asTyped = m_options.testFlag(SpinBox::NoDots);
    input = spin->prefix() +
            (asTyped ? typed : BasicTools::intInsertDot(number, spin->decimals())) + spin->suffix();
    spin->growWith(input);
    const bool pending = m_options.testFlag(SpinBox::ChangedOnEnter) && number != spin->lastValue();
    spin->showEntry(pending ? SpinBox::Entry::Pending : SpinBox::Entry::Clean);
    return Acceptable;
}
