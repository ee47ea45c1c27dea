#include "HeldButton.h"

#include <QAbstractButton>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QTimerEvent>

#include <utility>

namespace
{

constexpr int KeyPairTime = 5; // ms in which the press that belongs to a release comes

/// The event as one of the keys that press a button, or null.
const QKeyEvent* pressingKey(const QEvent* event)
{
    if (event->type() != QEvent::KeyPress && event->type() != QEvent::KeyRelease)
        return nullptr;
    const auto* key = static_cast<const QKeyEvent*>(event);
    const bool isPressing = key->key() == Qt::Key_Space || key->key() == Qt::Key_Select;
    return isPressing && !key->isAutoRepeat() ? key : nullptr;
}

/// Whether a button that gets this event goes down.
bool startsPress(const QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        return static_cast<const QMouseEvent*>(event)->button() == Qt::LeftButton;
    case QEvent::KeyPress:
        return pressingKey(event);
    default:
        return false;
    }
}

} // namespace

HeldButton::~HeldButton() { letGo(); }

void HeldButton::setButton(QAbstractButton* button)
{
    m_button = button;
    button->installEventFilter(this);
}

void HeldButton::press(Stop stop)
{
    m_stop = std::move(stop);
    m_strayed = false;
    watch(m_button && m_button->isDown());
}

void HeldButton::release(const Stop& otherwise)
{
    watch(m_strayed);
    if (m_stop)
        stop();
    else
        otherwise();
}

bool HeldButton::eventFilter(QObject* watched, QEvent* event)
{
    if (!m_button)
        return false;
    const bool isButton = watched == m_button;
    const bool isDown = m_button->isDown();
    if (isButton && event->type() == QEvent::MouseMove) {
        const auto* move = static_cast<QMouseEvent*>(event);
        const bool isInside = m_button->rect().contains(move->pos());
        if (isDown && !isInside && move->buttons() & Qt::LeftButton)
            m_strayed = true;
        // The button remembers a press until the real release. A move must not press again what
        // something else has let go.
        return !isDown && isInside && !m_strayed;
    }
    if (const QKeyEvent* key = isButton ? pressingKey(event) : nullptr; key && isRepeat(*key))
        return true;
    if ((!isDown && !m_strayed) || !endsPress(watched, event))
        return false;
    const bool isSecondPress = isButton && startsPress(event);
    const QPointer<QObject> receiver(watched);
    letGo(); // after which this may be gone
    return isSecondPress || !receiver;
}

/// Whether a key is, or may turn out to be, half of a repeat that the plugin for X11 did not
/// recognise because it looked for the press before the server's second event was read. Nobody else
/// sends such halves, and nothing public of Qt's widgets lets one look again: so a key from an X
/// server waits, and any other counts at once.
bool HeldButton::isRepeat(const QKeyEvent& key)
{
    static const bool isX11 = QGuiApplication::platformName() == QLatin1String("xcb");
    if (!isX11 || key.nativeScanCode() == 0) // made by the program
        return false;
    if (key.type() == QEvent::KeyPress) {
        if (key.timestamp() != m_keyUpAt)
            return false;
        m_keyUp.stop();
        return true;
    }
    m_keyUpAt = key.timestamp();
    if (m_button->isDown())
        m_keyUp.start(KeyPairTime, Qt::PreciseTimer, this);
    return m_keyUp.isActive();
}

void HeldButton::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != m_keyUp.timerId())
        return;
    m_keyUp.stop();
    if (!m_button)
        return;
    QKeyEvent up(QEvent::KeyRelease, Qt::Key_Space, Qt::NoModifier);
    QCoreApplication::sendEvent(m_button, &up);
}

/// Whether an event, told to any object while the button is held, ends the press.
bool HeldButton::endsPress(QObject* watched, QEvent* event) const
{
    const bool isButton = watched == m_button;
    const auto* widget = watched->isWidgetType() ? static_cast<QWidget*>(watched) : nullptr;
    if (QWidget* grabber = QWidget::mouseGrabber(); grabber && grabber != m_button)
        return true; // nobody is told of that
    switch (event->type()) {
    case QEvent::FocusOut:
    case QEvent::Hide:
        return isButton;
    case QEvent::EnabledChange:
        return isButton && !m_button->isEnabled();
    case QEvent::WindowDeactivate:
    case QEvent::WindowBlocked:
        return watched == m_button->window();
    case QEvent::Show:
        return widget && widget->windowType() == Qt::Popup;
    case QEvent::TouchCancel:
    case QEvent::UngrabMouse:
        return true;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        return widget;
    case QEvent::MouseButtonRelease: {
        const auto* release = static_cast<QMouseEvent*>(event);
        const bool isRealEnd = isButton && release->button() == Qt::LeftButton &&
                               m_button->isDown() && m_button->rect().contains(release->pos());
        return widget && !isRealEnd; // beside the button it would tell nobody
    }
    case QEvent::KeyPress:
        return isButton && startsPress(event);
    case QEvent::DeferredDelete: // while the host's part of a window is still there
        return isButton || (widget && widget->isAncestorOf(m_button));
    default:
        return false;
    }
}

/// While the button is held, the whole application is listened to.
void HeldButton::watch(bool on)
{
    qApp->removeEventFilter(this);
    if (on)
        qApp->installEventFilter(this);
}

void HeldButton::letGo()
{
    const QPointer<HeldButton> self(this);
    const QPointer<QAbstractButton> button(m_button);
    watch(false);
    m_keyUp.stop();
    m_strayed = false;
    if (button && button->isDown()) {
        button->setDown(false);
        emit button->released();
    }
    if (self && m_stop) // nobody listens to the button
        stop();
}

void HeldButton::stop() { std::exchange(m_stop, nullptr)(); }
