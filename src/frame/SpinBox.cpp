#include "SpinBox.h"

#include "BasicTools.h"
#include "DoubleValidator.h"
#include "Numbers.h"
#include "ToolTip.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QSignalBlocker>
#include <QStyleOptionSpinBox>
#include <QToolTip>

#include <cmath>

namespace
{

constexpr double LargestValue = 2147483647.0;
constexpr double ResultMaximum = 9.99e99;
constexpr int StripHeight = 20;
constexpr int MarkerWidth = 10;
constexpr double ClockFrequency = 16000000.0;

int digitsIn(const QString& text)
{
    return static_cast<int>(
        std::count_if(text.begin(), text.end(), [](QChar c) { return c.isDigit(); }));
}

/// Whether the key changes the text left of the caret and leaves the digits right of it.
bool editsLeftOfCaret(const QKeyEvent* event)
{
    if (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))
        return false;
    return event->key() == Qt::Key_Backspace ||
           (!event->text().isEmpty() && event->text().at(0).isPrint());
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
    setMinimum(-LargestValue);
    setMaximum(LargestValue);
    setAttribute(Qt::WA_Hover);
    installEventFilter(this);
    connect(this, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this, &SpinBox::valueToInt);
    setKeyboardTracking(false);
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
        setValue(0.0); // only the minimum shows the special text
        setEnabled(false);
        return QString();
    }
    m_factor = parameter.factor;
    if (parameter.minimum != parameter.maximum && parameter.maximum != 0) {
        setMinimum(parameter.minimum);
        setMaximum(parameter.maximum);
    }
    setDecimals(decimals);
    if (decimals > 0)
        setSingleStep(decimals / 10.0);

    if (!rawDisplay && !parameter.unit.isEmpty()) {
        if (!parameter.unitFormat.isEmpty()) {
            m_unitText = parameter.unitFormat;
            if (m_factor == 1.0) { // value and real value are the same
                m_unitText.remove(QStringLiteral("%1 "));
                m_unitText.prepend(QLatin1Char(' '));
            }
            connect(this, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this,
                    &SpinBox::valueHasChanged, Qt::UniqueConnection);
        }
    } else {
        m_unitText =
            maximum() < 1000
                ? QStringLiteral(" [%1..%2]").arg(boundText(minimum()), boundText(maximum()))
                : QString();
        setSuffix(m_unitText);
    }

    m_apNumber = parameter.number;
    setToolTip(QStringLiteral("AP %1 (%2..%3)")
                   .arg(QString::number(m_apNumber), boundText(minimum()), boundText(maximum())));
    if (!rawDisplay) {
        setValue(value);
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
    setValueSilently(value);
    doValidation();
}

void SpinBox::setValue(int value)
{
    setValueSilently(value);
    doValidation();
    setLastValue(value);
    doValidation();
    clearWhenConfirmed();
}

/// The base value. A box that lets changes out on Return only stays mute meanwhile, also when a
/// host answers inside sendValue(), which opens the signals.
void SpinBox::setValueSilently(double value)
{
    const bool wasBlocked = signalsBlocked();
    if (has(ChangedOnEnter))
        blockSignals(true);
    keepSelected([this, value] { QDoubleSpinBox::setValue(value); });
    blockSignals(wasBlocked);
}

/// Runs a change of the text. What was selected before is selected as a whole afterwards, so that
/// the next digit still replaces it: the base class would select what lies behind it.
template <class Change>
void SpinBox::keepSelected(Change change)
{
    const QString before = lineEdit()->text();
    const bool selected = lineEdit()->hasSelectedText();
    change();
    if (selected && lineEdit()->text() != before)
        selectAll();
}

void SpinBox::doValidation()
{
    QString text = lineEdit()->text();
    int pos = 0;
    if (const QValidator* validator = lineEdit()->validator())
        validator->validate(text, pos);
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
    if (!m_unitText.contains(QLatin1Char('%')) || m_unitText == QLatin1String(" [%]")) {
        keepSelected([this] { setSuffix(m_unitText); });
        return;
    }
    const double real = value * m_factor * m_pulseFactor;
    QString text = m_unitText;
    text.replace(QLatin1String("%1"), QStringLiteral("%1").arg(real, 2, 'f', 2));
    keepSelected([this, &text] { setSuffix(QStringLiteral(" [") + text + QLatin1Char(']')); });
}

void SpinBox::valueToInt(double value)
{
    const QPointer<SpinBox> self(this);
    const int confirmations = m_confirmations;
    emit valueChanged(roundToInt(value));
    if (!self)
        return;
    emit valueChanged(value, m_lastValue);
    if (self && m_confirmations == confirmations)
        setLastValue(value);
}

void SpinBox::sendValue()
{
    {
        const QSignalBlocker silent(this);
        interpretText();
    }
    const double sent = value();
    if (sent == m_lastValue)
        return;

    const QPointer<SpinBox> self(this);
    const int confirmations = m_confirmations;
    const bool wasBlocked = blockSignals(false);
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
    if (m_confirmations == confirmations) // else a reply came meanwhile, and it counts
        setLastValue(sent);
    blockSignals(wasBlocked);
    doValidation();
    clearWhenConfirmed();
}

void SpinBox::setLastValue(double value)
{
    m_lastValue = value;
    ++m_confirmations;
}

bool SpinBox::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::HoverMove:
        m_lastCursorPos = QCursor::pos();
        Q_FALLTHROUGH();
    case QEvent::HoverEnter:
    case QEvent::HoverLeave:
    case QEvent::FocusIn:
    case QEvent::FocusOut:
        if (watched == this)
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

void SpinBox::mousePressEvent(QMouseEvent* event)
{
    if (has(Slider) && event->y() > lineEdit()->geometry().bottom())
        return;
    QDoubleSpinBox::mousePressEvent(event);
}

void SpinBox::mouseMoveEvent(QMouseEvent* event)
{
    if (!has(Slider) || !(maximum() > minimum())) {
        QDoubleSpinBox::mouseMoveEvent(event);
        return;
    }
    const double dragged = (maximum() - minimum()) * event->x() / qMax(1, width());
    if (dragged == value())
        return;
    {
        const QSignalBlocker silent(this);
        QDoubleSpinBox::setValue(dragged);
        doValidation();
    }
    repaint();
}

void SpinBox::keyPressEvent(QKeyEvent* event)
{
    QLineEdit* edit = lineEdit();
    const auto bodyEnd = [this, edit] {
        const QString text = edit->text();
        return text.size() - (text.endsWith(suffix()) ? suffix().size() : 0);
    };
    const QString before = edit->text();
    const int caret = edit->cursorPosition();
    const int keepFrom = edit->hasSelectedText() ? edit->selectionEnd() : caret;
    const int digitsRight = digitsIn(before.mid(keepFrom, qMax(0, bodyEnd() - keepFrom)));

    QDoubleSpinBox::keyPressEvent(event);

    if (!editsLeftOfCaret(event) || isReadOnly())
        return;
    if (edit->text() == before) {
        edit->setCursorPosition(caret);
        return;
    }
    const QString text = edit->text();
    int position = bodyEnd();
    for (int digits = 0; position > prefix().size() && digits < digitsRight;) {
        if (text.at(--position).isDigit())
            ++digits;
    }
    edit->setCursorPosition(position);
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
        }
        doValidation();
    } else if (has(ChangedOnEnter) &&
               (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)) {
        sendValue();
    } else if (has(ResetOnEscape) && event->key() == Qt::Key_Escape) {
        QDoubleSpinBox::setValue(m_lastValue);
        doValidation();
        clearWhenConfirmed();
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
    QStyleOptionSpinBox frame;
    initStyleOption(&frame);
    frame.rect.adjust(0, 0, 0, -StripHeight);
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

/// A box with decimals is not coloured anew while its text holds a point, so a confirmed value
/// clears the colours itself.
void SpinBox::clearWhenConfirmed()
{
    if (value() == m_lastValue)
        showEntry(Entry::Clean);
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
