#include "SpinBox.h"

#include "BasicTools.h"
#include "EntryKeys_p.h"
#include "EntryLook_p.h"
#include "FieldFace_p.h"
#include "FieldText_p.h"
#include "Numbers.h"
#include "RealUnits_p.h"
#include "WheelFocus.h"

#include <QLineEdit>
#include <QPointer>
#include <QSignalBlocker>

#include <cmath>

namespace
{

constexpr double LargestValue = 2147483647.0;
constexpr double ResultMaximum = 9.99e99;

} // namespace

SpinBox::SpinBox(QWidget* parent, QFlags<SpinBox::Option> options)
    : QDoubleSpinBox(parent)
    , m_units(std::make_unique<RealUnits>())
    , m_options(options)
    , m_look(std::make_unique<EntryLook>(this))
    , m_keys(std::make_unique<EntryKeys>(this))
{
    setLocale(QLocale::c());
    setDecimals(0);
    if (has(ReadOnly) || has(Result)) {
        setReadOnly(true);
        setButtonSymbols(QAbstractSpinBox::NoButtons);
    }
    if (has(Result)) {
        setPrefix(QStringLiteral("result: "));
        setStyleSheet(QStringLiteral("border: 1px solid grey"));
        setContextMenuPolicy(Qt::NoContextMenu);
    }
    if (m_options != Options(NoDots))
        installValidator();
    setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    setBounds(-LargestValue, LargestValue);
    setAttribute(Qt::WA_Hover);
    installEventFilter(this);
    connect(this, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this, &SpinBox::valueToInt);
    setKeyboardTracking(false);
    m_face = new FieldFace(
        this, [this] { return shown().number(); }, [this] { return entrySign(); });
    connect(lineEdit(), &QLineEdit::textEdited, this, [this] { m_touched = true; });
    // Behind the base class, which reads the text that it is told, suffix and all.
    connect(lineEdit(), &QLineEdit::textChanged, this, &SpinBox::followNumber);
    WheelFocus::guard(this);
    if (has(ChangedOnEnter))
        blockSignals(true);
}

SpinBox::~SpinBox() = default;

void SpinBox::setFlags(QFlags<SpinBox::Option> options)
{
    m_options |= options;
    if (has(ChangedOnEnter))
        blockSignals(true);
    installValidator();
}

void SpinBox::setMaximum(double maximum)
{
    QDoubleSpinBox::setMaximum(has(Result) ? ResultMaximum : maximum);
}

void SpinBox::setBounds(double minimum, double maximum)
{
    setRange(minimum, has(Result) ? ResultMaximum : maximum);
}

double SpinBox::valueReal() const { return m_units->divided(value()); }

QString SpinBox::setUnitParameter(Parameter parameter, bool rawDisplay, double value, int decimals)
{
    m_apNumber = -1;
    if (!parameter.valid) {
        setToolTip(QStringLiteral("no AP"));
        setSuffix(QString());
        setRange(0, 1);
        setSpecialValueText(QStringLiteral("---"));
        const QPointer<SpinBox> self(this);
        setValue(0.0); // only the minimum shows the special text
        if (!self)
            return QString();
        m_look->show(Entry::Clean);
        setEnabled(false);
        return QString();
    }
    m_units->factor = parameter.factor;
    if (parameter.minimum != parameter.maximum && parameter.maximum != 0)
        setBounds(parameter.minimum, parameter.maximum);
    setDecimals(decimals);
    if (decimals > 0)
        setSingleStep(decimals / 10.0);

    const bool realUnits = !rawDisplay && !parameter.unit.isEmpty();
    const bool keepSuffix = realUnits && parameter.unitFormat.isEmpty();
    if (!realUnits) {
        const QString range = QStringLiteral(" [%1..%2]");
        m_units->text =
            maximum() < 1000 ? range.arg(boundText(minimum()), boundText(maximum())) : QString();
        setSuffix(m_units->text);
    } else if (!keepSuffix) {
        m_units->setFormat(parameter.unitFormat);
        connect(this, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this,
                &SpinBox::valueHasChanged, Qt::UniqueConnection);
    }

    m_apNumber = parameter.number;
    setToolTip(QStringLiteral("AP %1 (%2..%3)")
                   .arg(QString::number(m_apNumber), boundText(minimum()), boundText(maximum())));
    const QPointer<SpinBox> self(this);
    if (!rawDisplay) {
        setValue(value);
        if (self && !keepSuffix)
            valueHasChanged(value);
    }

    QString caption = parameter.name;
    if (caption.size() > 1)
        caption[0] = caption.at(0).toUpper();
    return caption;
}

void SpinBox::updateStyleSheet()
{
    static const QString sheet = QStringLiteral(
        "SpinBox { padding-right: -30px; border: 1px inset palette(dark)}            "
        "SpinBox:hover {border-style: outset}             "
        "SpinBox:focus {border: 1px inset palette(highlight)}");
    setStyleSheet(sheet);
}

void SpinBox::setValue(double value)
{
    if (!setValueSilently(value))
        return;
    validateShown();
    m_face->tell(value);
}

void SpinBox::setValue(int value)
{
    const double entered = shown().number();
    const bool isTyping = entered != this->value();
    const bool isReplaced =
        m_touched && !m_sending && entered != value && (hasEntry() || hasFocus());
    if (has(ChangedOnEnter))
        setLastValue(value); // nobody hears of it, and no gold flashes up in between
    if (!setValueSilently(value))
        return;
    setLastValue(value);
    validateShown();
    m_face->tell(value);
    if (!isReplaced)
        return;
    m_face->showOverwritten();
    if (isTyping || hasFocus()) // or the next digit would join the ones that came
        selectAll();
}

bool SpinBox::hasEntry() const
{
    return m_touched && shown().number() != (has(ChangedOnEnter) ? m_lastValue : value());
}

bool SpinBox::isOutside() const
{
    const double number = shown().number();
    return number < minimum() || number > maximum();
}

/// What the colours of the entry do not say: the validator leaves a text with a decimal point in
/// the colours that it had.
FieldSign SpinBox::entrySign() const
{
    const double number = shown().number();
    if (std::isnan(number))
        return FieldSign::None;
    if (isOutside())
        return m_look->shown() == Entry::Invalid ? FieldSign::None : FieldSign::Outside;
    const bool isPending = has(ChangedOnEnter) && number != m_lastValue;
    return isPending && m_look->shown() != Entry::Pending ? FieldSign::Pending : FieldSign::None;
}

/// Sets the base value; false when a receiver of its signals destroyed the box. A box that lets
/// changes out on Return only stays mute meanwhile, also when a host answers inside sendValue(),
/// which opens the signals.
bool SpinBox::setValueSilently(double value)
{
    const QPointer<SpinBox> self(this);
    const bool wasBlocked = signalsBlocked();
    m_touched = false;
    if (has(ChangedOnEnter))
        blockSignals(true);
    keepSelected([this, value] { QDoubleSpinBox::setValue(value); });
    if (self)
        blockSignals(wasBlocked);
    return self;
}

/// Runs a change of the text. The base class writes the text anew even for the same value, and
/// loses caret and selection to the digit groups: here both stay when the text does, and else what
/// was selected is selected as a whole, so that the next digit still replaces the number.
template <class Change>
void SpinBox::keepSelected(Change change)
{
    const QPointer<SpinBox> self(this);
    QLineEdit* edit = lineEdit();
    const QString before = edit->text();
    const int caret = edit->cursorPosition();
    const int selection = edit->selectionStart();
    const int length = edit->selectionLength();
    change();
    if (!self)
        return;
    if (length > 0 && edit->text() != before)
        selectAll();
    else if (length > 0)
        edit->setSelection(selection, length);
    else if (edit->text() == before)
        edit->setCursorPosition(caret);
}

/// Validates a text that the box itself wrote. A text with a decimal point is not coloured by the
/// validator, so what an earlier entry left behind is put right here.
void SpinBox::validateShown()
{
    doValidation();
    if (m_look->shown() == Entry::Clean)
        return;
    m_look->hideRange();
    m_look->show(has(ChangedOnEnter) && value() != m_lastValue ? Entry::Pending : Entry::Clean);
}

void SpinBox::doValidation()
{
    QString text = lineEdit()->text();
    int pos = 0;
    if (const QValidator* validator = lineEdit()->validator())
        validator->validate(text, pos);
    followNumber();
}

void SpinBox::setPulseDivisorFactor(int pulseDivisor)
{
    m_units->setPulseDivisor(pulseDivisor);
    setValue(value());
}

void SpinBox::setFactor(double factor) { m_units->factor = factor; }

void SpinBox::externItemMouseReleased() { emit valueChanged(roundToInt(value())); }

void SpinBox::valueHasChanged(double value)
{
    const QString suffix = m_units->suffix(value);
    m_realSuffix = m_units->isShown() ? suffix : QString();
    keepSelected([this, suffix] { setSuffix(suffix); });
    m_followed = shown().number();
}

/// Keeps the real value that of the number in the text, also of one that is still being typed.
/// Nothing happens while the number stays, or behind a suffix that a host set.
void SpinBox::followNumber()
{
    const FieldText before = shown();
    const double number = before.number();
    if (m_realSuffix.isEmpty() || suffix() != m_realSuffix || std::isnan(number) ||
        number == m_followed)
        return;
    m_followed = number;
    m_realSuffix = m_units->suffix(number);

    // The base class shows its value anew; what stands there, and was judged, comes back.
    QLineEdit* edit = lineEdit();
    const Replaced caret(edit);
    const bool isSelected = edit->hasSelectedText();
    const QSignalBlocker silent(edit);
    m_isRewriting = true;
    setSuffix(m_realSuffix);
    edit->setText(before.text.left(before.end()) + m_realSuffix);
    m_isRewriting = false;
    if (isSelected)
        edit->setSelection(caret.from, qMin(caret.to, before.end()) - caret.from);
    else
        edit->setCursorPosition(caret.from);
    if (decimals() == 0) // else it did not grow with the number
        growWith(edit->text());
}

void SpinBox::valueToInt(double value)
{
    // A receiver may set another value, which then went out and counts.
    const QPointer<SpinBox> self(this);
    const double shown = this->value();
    const double last = m_lastValue;
    emit valueChanged(roundToInt(value));
    if (!self || this->value() != shown)
        return;
    emit valueChanged(value, last);
    if (!self || this->value() != shown)
        return;
    setLastValue(value);
    m_face->tell(shown);
}

void SpinBox::sendValue()
{
    if (m_sending || isOutside())
        return;
    {
        const QSignalBlocker silent(this);
        keepSelected([this] { interpretText(); });
    }
    const double sent = value();
    if (sent == m_lastValue) {
        m_touched = false;
        validateShown();
        return;
    }

    const QPointer<SpinBox> self(this);
    const unsigned confirmations = m_confirmations;
    const bool wasBlocked = blockSignals(false);
    m_sending = true;
    emit valueChanged(sent, m_lastValue);
    if (!self)
        return;
    emit valueChanged(toInt(sent));
    if (!self)
        return;
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_DEPRECATED
    emit QDoubleSpinBox::valueChanged(lineEdit()->text());
    QT_WARNING_POP
    if (!self)
        return;
    m_sending = false;
    if (m_confirmations == confirmations) { // else a reply came meanwhile, and it counts
        m_touched = false;
        setLastValue(sent);
        m_face->tell(sent);
    }
    blockSignals(wasBlocked);
    validateShown();
}

void SpinBox::setLastValue(double value)
{
    m_lastValue = value;
    ++m_confirmations;
}

FieldText SpinBox::shown() const { return {lineEdit()->text(), prefix(), suffix()}; }

QString SpinBox::boundText(double bound) const
{
    return BasicTools::intInsertDot(bound, decimals());
}

void SpinBox::growWith(const QString& text)
{
    setMinimumWidth(minimumSizeHint().width() / 2 + fontMetrics().horizontalAdvance(text));
}
