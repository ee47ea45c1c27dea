#include "SpinBox.h"

#include "BasicTools.h"
#include "DoubleValidator.h"
#include "FieldFace_p.h"
#include "FieldText_p.h"
#include "Numbers.h"
#include "ToolTip.h"
#include "WheelFocus.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QSignalBlocker>
#include <QStyleOptionSpinBox>
#include <QToolTip>

#include <algorithm>
#include <cmath>
#include <utility>

namespace
{

constexpr double LargestValue = 2147483647.0;
constexpr double ResultMaximum = 9.99e99;
constexpr int StripHeight = 20;
constexpr int MarkerWidth = 10;
constexpr double ClockFrequency = 16000000.0;
constexpr QLatin1Char Point = FieldText::Point;

/// What a key replaces: the selection, or nothing at the caret.
struct Replaced {
    explicit Replaced(const QLineEdit* edit)
        : from(edit->hasSelectedText() ? edit->selectionStart() : edit->cursorPosition())
        , to(edit->hasSelectedText() ? edit->selectionEnd() : from)
    {
    }
    int from;
    int to;
};

bool isReturn(const QKeyEvent* event)
{
    return event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
}

bool isTyped(const QKeyEvent* event)
{
    return !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) &&
           !event->text().isEmpty() && event->text().at(0).isPrint();
}

} // namespace

SpinBox::SpinBox(QWidget* parent, QFlags<SpinBox::Option> options)
    : QDoubleSpinBox(parent), m_options(options)
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

void SpinBox::installValidator()
{
    // The base class' own validator stays; only an earlier one of ours is replaced.
    const auto* old = qobject_cast<const DoubleValidator*>(lineEdit()->validator());
    lineEdit()->setValidator(new DoubleValidator(lineEdit(), m_options));
    delete old;
}

void SpinBox::setMaximum(double maximum)
{
    QDoubleSpinBox::setMaximum(has(Result) ? ResultMaximum : maximum);
}

void SpinBox::setBounds(double minimum, double maximum)
{
    setRange(minimum, has(Result) ? ResultMaximum : maximum);
}

double SpinBox::valueReal() const
{
    const double product = m_factor * m_pulseFactor;
    return product == 0.0 ? value() : value() / product;
}

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
        showEntry(Entry::Clean);
        setEnabled(false);
        return QString();
    }
    m_factor = parameter.factor;
    if (parameter.minimum != parameter.maximum && parameter.maximum != 0)
        setBounds(parameter.minimum, parameter.maximum);
    setDecimals(decimals);
    if (decimals > 0)
        setSingleStep(decimals / 10.0);

    const bool realUnits = !rawDisplay && !parameter.unit.isEmpty();
    const bool keepSuffix = realUnits && parameter.unitFormat.isEmpty();
    if (!realUnits) {
        const QString range = QStringLiteral(" [%1..%2]");
        m_unitText =
            maximum() < 1000 ? range.arg(boundText(minimum()), boundText(maximum())) : QString();
        setSuffix(m_unitText);
    } else if (!keepSuffix) {
        m_unitText = parameter.unitFormat;
        if (m_factor == 1.0) { // value and real value are the same
            m_unitText.remove(QStringLiteral("%1 "));
            m_unitText.prepend(QLatin1Char(' '));
        }
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
        return m_entry == Entry::Invalid ? FieldSign::None : FieldSign::Outside;
    const bool isPending = has(ChangedOnEnter) && number != m_lastValue;
    return isPending && m_entry != Entry::Pending ? FieldSign::Pending : FieldSign::None;
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
    if (m_entry == Entry::Clean)
        return;
    hideOutOfRangeTip();
    showEntry(has(ChangedOnEnter) && value() != m_lastValue ? Entry::Pending : Entry::Clean);
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
    m_pulseFactor = std::pow(2.0, -pulseDivisor) * ClockFrequency * std::pow(2.0, -16);
    setValue(value());
}

void SpinBox::setFactor(double factor) { m_factor = factor; }

void SpinBox::externItemMouseReleased() { emit valueChanged(roundToInt(value())); }

void SpinBox::valueHasChanged(double value)
{
    const bool isReal =
        m_unitText.contains(QLatin1Char('%')) && m_unitText != QLatin1String(" [%]");
    m_realSuffix = isReal ? realSuffix(value) : QString();
    keepSelected([this, isReal] { setSuffix(isReal ? m_realSuffix : m_unitText); });
    m_followed = shown().number();
}

QString SpinBox::realSuffix(double value) const
{
    QString text = m_unitText;
    text.replace(QLatin1String("%1"),
                 QStringLiteral("%1").arg(value * m_factor * m_pulseFactor, 2, 'f', 2));
    return QStringLiteral(" [") + text + QLatin1Char(']');
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
    m_realSuffix = realSuffix(number);

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

bool SpinBox::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != this)
        return false;
    switch (event->type()) {
    case QEvent::HoverMove:
        m_lastCursorPos = QCursor::pos();
        Q_FALLTHROUGH();
    case QEvent::HoverEnter:
    case QEvent::HoverLeave:
    case QEvent::FocusIn:
    case QEvent::FocusOut:
        emit hoverFocusEvent(event);
        break;
    default:
        break;
    }
    return false;
}

QSize SpinBox::sizeHint() const
{
    lineEdit()->setMaximumHeight(lineEdit()->sizeHint().height());
    QSize hint = QDoubleSpinBox::sizeHint();
    if (has(Slider))
        hint.rheight() += StripHeight;
    return hint;
}

void SpinBox::stepBy(int steps)
{
    const QPointer<SpinBox> self(this);
    m_touched = true;
    QDoubleSpinBox::stepBy(steps);
    if (self)
        followNumber();
}

QStyleOptionSpinBox SpinBox::drawnFrame() const
{
    QStyleOptionSpinBox frame;
    initStyleOption(&frame);
    if (has(Slider))
        frame.rect.adjust(0, 0, 0, -StripHeight);
    return frame;
}

/// The base class takes the arrows to be as high as the whole box; over a strip they are drawn less
/// high. So it is told the middle of what it takes for the part that is drawn there.
QPoint SpinBox::placeForBase(QPoint place) const
{
    if (!has(Slider))
        return place;
    const QStyleOptionSpinBox drawn = drawnFrame();
    const QStyle::SubControl hit =
        style()->hitTestComplexControl(QStyle::CC_SpinBox, &drawn, place, this);
    const bool isArrow = hit == QStyle::SC_SpinBoxUp || hit == QStyle::SC_SpinBoxDown;
    QStyleOptionSpinBox whole;
    initStyleOption(&whole);
    return style()
        ->subControlRect(QStyle::CC_SpinBox, &whole, isArrow ? hit : QStyle::SC_SpinBoxEditField,
                         this)
        .center();
}

QMouseEvent SpinBox::forBase(const QMouseEvent& event) const
{
    return QMouseEvent(event.type(), placeForBase(event.pos()), event.windowPos(),
                       event.screenPos(), event.button(), event.buttons(), event.modifiers());
}

bool SpinBox::event(QEvent* event)
{
    if (has(Slider) &&
        (event->type() == QEvent::HoverEnter || event->type() == QEvent::HoverMove)) {
        const auto* hover = static_cast<QHoverEvent*>(event);
        QHoverEvent mapped(hover->type(), placeForBase(hover->pos()), hover->oldPosF(),
                           hover->modifiers());
        update();
        return QDoubleSpinBox::event(&mapped);
    }
    return QDoubleSpinBox::event(event);
}

void SpinBox::mousePressEvent(QMouseEvent* event)
{
    m_heldAboveStrip = has(Slider) && event->y() <= lineEdit()->geometry().bottom();
    if (has(Slider) && !m_heldAboveStrip)
        return;
    QMouseEvent mapped = forBase(*event);
    QDoubleSpinBox::mousePressEvent(&mapped);
    event->setAccepted(mapped.isAccepted());
}

void SpinBox::mouseReleaseEvent(QMouseEvent* event)
{
    m_heldAboveStrip = false;
    QDoubleSpinBox::mouseReleaseEvent(event);
}

void SpinBox::mouseMoveEvent(QMouseEvent* event)
{
    if (!has(Slider) || isReadOnly() || m_heldAboveStrip || !(maximum() > minimum())) {
        QMouseEvent mapped = forBase(*event);
        QDoubleSpinBox::mouseMoveEvent(&mapped);
        event->setAccepted(mapped.isAccepted());
        return;
    }
    const double dragged = (maximum() - minimum()) * event->x() / qMax(1, width());
    if (dragged == value())
        return;
    m_touched = true;
    {
        const QSignalBlocker silent(this);
        QDoubleSpinBox::setValue(dragged);
        doValidation();
    }
    repaint();
}

FieldText SpinBox::shown() const { return {lineEdit()->text(), prefix(), suffix()}; }

/// Prefix and suffix may hold digits, too: nothing of them is replaced.
void SpinBox::confineToNumber()
{
    QLineEdit* edit = lineEdit();
    const FieldText shown = this->shown();
    const auto inside = [&shown](int at) { return qBound(shown.start(), at, shown.end()); };
    const int from = inside(edit->selectionStart());
    if (edit->hasSelectedText())
        edit->setSelection(from, inside(edit->selectionEnd()) - from);
    else
        edit->setCursorPosition(inside(edit->cursorPosition()));
}

/// Selects what a deletion takes. Marks between digits come back by themselves, so the digit behind
/// the mark is meant; a word is the rest of the number.
void SpinBox::selectToDelete(bool forward, bool word)
{
    QLineEdit* edit = lineEdit();
    const int last = forward ? shown().end() : shown().start();
    const int step = forward ? 1 : -1;
    int caret = edit->cursorPosition();
    const auto next = [&] { return edit->text().at(forward ? caret : caret - 1); };
    while (caret != last && (next() == Point || next() == QLatin1Char(',')))
        caret += step;
    const int end = word || caret == last ? last : caret + step;
    edit->setSelection(qMin(caret, end), qAbs(end - caret));
}

/// Runs a change of what is selected, or at the caret, and keeps the caret left of the digits that
/// were right of it. Digits without a point are whole units: when they get one, as the first digits
/// of an entry do, the caret stays before it.
template <class Change>
void SpinBox::keepCaret(Change change)
{
    const Replaced replaced(lineEdit());
    const FieldText before = shown();
    const QString right = before.between(replaced.to, before.end());
    const bool wholeUnits =
        !(before.between(before.start(), replaced.from) + right).contains(Point);
    change();
    const FieldText after = shown();
    const int added = wholeUnits && after.hasPoint() ? decimals() : 0;
    lineEdit()->setCursorPosition(after.caretBefore(FieldText::digitsIn(right) + added));
}

/// A point typed where the number has its own steps behind it; the digits that follow then replace
/// those of the fraction. A number without one gets it at its end. Elsewhere a point is dropped.
void SpinBox::typePoint()
{
    if (decimals() == 0)
        return;
    QLineEdit* edit = lineEdit();
    const Replaced replaced(edit);
    const FieldText before = shown();
    const QString right = before.between(replaced.to, before.end());
    if (right.isEmpty() && !before.between(before.start(), replaced.from).contains(Point))
        edit->insert(Point + QString(decimals(), QLatin1Char('0')));
    else if (edit->hasSelectedText() || !right.startsWith(Point))
        return;
    edit->setCursorPosition(shown().caretBefore(decimals()) + 1);
    m_fraction = true;
}

/// Types a character that has a place in a number; any other is dropped here, for the validator
/// would take a number without a point for hundredths after it.
void SpinBox::typeIntoNumber(QKeyEvent* event)
{
    QLineEdit* edit = lineEdit();
    const QChar typed = event->text().at(0);
    if (typed == Point) {
        typePoint();
        return;
    }
    const int caret = Replaced(edit).from;
    const bool wasFraction = std::exchange(m_fraction, false);
    const FieldText before = shown();
    if (!FieldText::isDigit(typed) && (typed != QLatin1Char('-') || caret != before.start()))
        return;
    if (wasFraction && !edit->hasSelectedText() && caret < before.end() &&
        before.between(before.start(), caret).contains(Point)) {
        edit->setSelection(caret, 1);
        m_fraction = true;
    }
    keepCaret([this, event] { QDoubleSpinBox::keyPressEvent(event); });
}

void SpinBox::keyPressEvent(QKeyEvent* event)
{
    QLineEdit* edit = lineEdit();
    const bool special = !specialValueText().isEmpty() && edit->text() == specialValueText();
    const bool cuts = event->modifiers() & Qt::ShiftModifier;
    const bool forward = event->key() == Qt::Key_Delete && !cuts;
    const bool deletes = forward || event->key() == Qt::Key_Backspace;
    if (isReturn(event) && isOutside()) { // the base class would put the value back
        event->accept();
        return;
    }
    if (isReadOnly() || special || !qobject_cast<const DoubleValidator*>(edit->validator()) ||
        !(deletes || isTyped(event))) {
        const QPointer<SpinBox> self(this);
        QDoubleSpinBox::keyPressEvent(event);
        if (self)
            followNumber(); // Return on no number shows the value again
        return;
    }
    confineToNumber();
    if (deletes) {
        m_fraction = false;
        if (!edit->hasSelectedText())
            selectToDelete(forward, event->modifiers() & Qt::ControlModifier);
        if (edit->hasSelectedText())
            keepCaret([edit] { edit->del(); });
    } else if (has(NoDots)) {
        QDoubleSpinBox::keyPressEvent(event);
    } else {
        typeIntoNumber(event);
    }
}

void SpinBox::focusOutEvent(QFocusEvent* event)
{
    const QPointer<SpinBox> self(this);
    m_fraction = false;
    QDoubleSpinBox::focusOutEvent(event); // shows the value again
    if (!self)
        return;
    followNumber();
    m_touched = hasEntry();
    if (m_entry != Entry::Clean)
        validateShown();
}

void SpinBox::keyReleaseEvent(QKeyEvent* event)
{
    const QPointer<SpinBox> self(this);
    if (event->modifiers() == Qt::ControlModifier && !isReadOnly()) {
        {
            const QSignalBlocker silent(lineEdit());
            const double product = m_factor * m_pulseFactor;
            const auto text = [this, product](double bound) {
                return boundText(product == 0.0 ? bound : bound / m_factor / m_pulseFactor);
            };
            if (event->key() == Qt::Key_Home)
                lineEdit()->setText(text(maximum()));
            else if (event->key() == Qt::Key_End)
                lineEdit()->setText(text(minimum()));
            if (event->key() == Qt::Key_Home || event->key() == Qt::Key_End) {
                lineEdit()->setCursorPosition(shown().end());
                m_touched = true;
            }
        }
        doValidation();
    } else if (has(ChangedOnEnter) && isReturn(event)) {
        sendValue();
    } else if (has(ResetOnEscape) && event->key() == Qt::Key_Escape) {
        m_touched = false;
        QDoubleSpinBox::setValue(m_lastValue);
        if (self)
            validateShown();
    }
    if (self)
        QDoubleSpinBox::keyReleaseEvent(event);
}

void SpinBox::paintEvent(QPaintEvent* event)
{
    if (!has(Slider)) {
        QDoubleSpinBox::paintEvent(event);
        return;
    }
    QPainter painter(this);
    const QStyleOptionSpinBox frame = drawnFrame();
    style()->drawComplexControl(QStyle::CC_SpinBox, &frame, &painter, this);

    const QRect strip = sliderStrip();
    painter.setPen(Qt::blue);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(strip.adjusted(0, 0, -1, -1));
    const double span = maximum() - minimum();
    if (span > 0.0) {
        const int left = toInt(value() * width() / span) - MarkerWidth / 2;
        const int reach = strip.height() - 2;
        painter.drawEllipse(left, strip.height() / 2 + strip.top() - reach, MarkerWidth, 2 * reach);
    }
}

QRect SpinBox::sliderStrip() const
{
    return QRect(QPoint(0, lineEdit()->geometry().bottom()),
                 QPoint(width() - 1, sizeHint().height() - 2));
}

QString SpinBox::boundText(double bound) const
{
    return BasicTools::intInsertDot(bound, decimals());
}

void SpinBox::showEntry(Entry entry)
{
    // Setting a sheet repolishes the box and ends the auto-repeat of its step buttons: only when
    // it changes. The line edit goes first: it keeps the box's colour for good when it is polished
    // under the box's new sheet.
    const auto apply = [](QWidget* widget, const QString& sheet) {
        if (widget->styleSheet() != sheet)
            widget->setStyleSheet(sheet);
    };
    m_entry = entry;
    switch (entry) {
    case Entry::Clean:
        apply(lineEdit(), QString());
        apply(this, QString());
        break;
    case Entry::Pending:
        apply(lineEdit(), QStringLiteral("QLineEdit{color:navy; selection-color: gold}"));
        apply(this, QStringLiteral("QAbstractSpinBox{color:navy; background-color: gold}"));
        break;
    case Entry::Invalid:
        apply(lineEdit(), QStringLiteral("QLineEdit{color:white; selection-color: white}"));
        apply(this, QStringLiteral("QAbstractSpinBox{color:white; background-color: crimson}"));
        break;
    }
}

void SpinBox::showOutOfRangeTip()
{
    const QString cell = QStringLiteral("<td align=\"right\"</td>");
    ToolTip tip(100, 0.0, 3);
    tip.addHeaderRow(
        {QStringLiteral("<td colspan=\"3\"; align=\"center\">Value out of range</td>")});
    tip.addToolTip(
        {QStringLiteral("Ctrl-Home"), QStringLiteral("Maximum"), cell + boundText(maximum())});
    tip.addToolTip(
        {QStringLiteral("Ctrl-End "), QStringLiteral("Minimum"), cell + boundText(minimum())});
    QToolTip::showText(m_lastCursorPos, tip.getToolTip());
    m_tipShown = true;
}

void SpinBox::hideOutOfRangeTip()
{
    if (m_tipShown) // any other tool tip of the program stays
        QToolTip::showText(m_lastCursorPos, QString());
    m_tipShown = false;
}

void SpinBox::growWith(const QString& text)
{
    setMinimumWidth(minimumSizeHint().width() / 2 + fontMetrics().horizontalAdvance(text));
}
