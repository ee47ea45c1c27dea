#include "DoubleValidator.h"

#include "EntryRules_p.h"

#include <QLineEdit>

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
    const EntryRules rules{
        spin->prefix(),  spin->suffix(),  spin->specialValueText(),           spin->decimals(),
        spin->minimum(), spin->maximum(), m_options.testFlag(SpinBox::NoDots)};
    const EntryVerdict verdict = rules.judge(input, pos);
    input = verdict.text;
    pos = verdict.pos;
    if (verdict.look != EntryVerdict::Unchanged)
        spin->showVerdict(verdict, m_options.testFlag(SpinBox::ChangedOnEnter));
    return verdict.state;
}
