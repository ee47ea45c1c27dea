// What comes from the user's hands: keys, mouse, focus, and the validator between them and the
// text.

#include "SpinBox.h"

#include "DoubleValidator.h"
#include "EntryKeys_p.h"
#include "EntryLook_p.h"
#include "EntryRules_p.h"
#include "FieldText_p.h"
#include "RealUnits_p.h"
#include "SliderStrip_p.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QSignalBlocker>

#include <cmath>

namespace
{

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

void SpinBox::installValidator()
{
    // The base class' own validator stays; only an earlier one of ours is replaced.
    const auto* old = qobject_cast<const DoubleValidator*>(lineEdit()->validator());
    lineEdit()->setValidator(new DoubleValidator(lineEdit(), m_options));
    delete old;
}

void SpinBox::showVerdict(const EntryVerdict& verdict, bool waits)
{
    if (verdict.look == EntryVerdict::Invalid) {
        if (!std::isnan(verdict.number))
            m_look->showRange(m_lastCursorPos, boundText(minimum()), boundText(maximum()));
        m_look->show(Entry::Invalid);
        return;
    }
    m_look->hideRange();
    growWith(verdict.text);
    m_look->show(waits && verdict.number != m_lastValue ? Entry::Pending : Entry::Clean);
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

void SpinBox::stepBy(int steps)
{
    const QPointer<SpinBox> self(this);
    m_touched = true;
    QDoubleSpinBox::stepBy(steps);
    if (self)
        followNumber();
}

QSize SpinBox::sizeHint() const
{
    lineEdit()->setMaximumHeight(lineEdit()->sizeHint().height());
    QSize hint = QDoubleSpinBox::sizeHint();
    if (has(Slider))
        hint.rheight() += SliderStrip::Height;
    return hint;
}

SliderStrip SpinBox::strip() const
{
    QStyleOptionSpinBox box;
    initStyleOption(&box);
    return {box, lineEdit()->geometry().bottom(), sizeHint().height(), maximum() - minimum()};
}

QPoint SpinBox::placeForBase(QPoint place) const
{
    return has(Slider) ? strip().placeForBase(place, this) : place;
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
    if (!has(Slider) || isReadOnly() || m_heldAboveStrip || !strip().takesDrags()) {
        QMouseEvent mapped = forBase(*event);
        QDoubleSpinBox::mouseMoveEvent(&mapped);
        event->setAccepted(mapped.isAccepted());
        return;
    }
    const double dragged = strip().valueAt(event->x());
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
    m_keys->confine();
    const auto handOn = [this, event] { QDoubleSpinBox::keyPressEvent(event); };
    if (deletes)
        m_keys->remove(forward, event->modifiers() & Qt::ControlModifier);
    else if (has(NoDots))
        handOn();
    else
        m_keys->type(event->text().at(0), handOn);
}

void SpinBox::focusOutEvent(QFocusEvent* event)
{
    const QPointer<SpinBox> self(this);
    m_keys->leave();
    QDoubleSpinBox::focusOutEvent(event); // shows the value again
    if (!self)
        return;
    followNumber();
    m_touched = hasEntry();
    if (m_look->shown() != Entry::Clean)
        validateShown();
}

void SpinBox::keyReleaseEvent(QKeyEvent* event)
{
    const QPointer<SpinBox> self(this);
    if (event->modifiers() == Qt::ControlModifier && !isReadOnly()) {
        {
            const QSignalBlocker silent(lineEdit());
            const auto text = [this](double bound) { return boundText(m_units->divided(bound)); };
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
    strip().paint(&painter, value(), this);
}
