#include "StopGuard.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMainWindow>
#include <QPointer>
#include <QTimer>
#include <QToolButton>

namespace
{

const QString buttonName = QStringLiteral("btnStopAll");
const QString twinName = QStringLiteral("btnStopAllTwin");

bool isModalDialog(const QWidget* widget)
{
    return widget->isWindow() && widget->isModal() && widget->windowType() != Qt::Popup;
}

QToolButton* twinOf(const QWidget* dialog)
{
    return dialog->findChild<QToolButton*>(twinName, Qt::FindDirectChildrenOnly);
}

} // namespace

StopGuard::StopGuard(QMainWindow* window) : QObject(window), m_window(window)
{
    // No tool bar: it could be hidden, or put the button into a menu of what has no room.
    auto* bar = new QWidget;
    bar->setObjectName(QStringLiteral("safetyBar"));
    m_button = makeButton(buttonName, bar);
    auto* layout = new QHBoxLayout(bar);
    layout->setContentsMargins(4, 4, 4, 0);
    layout->addWidget(m_button);
    layout->addStretch();
    window->setMenuWidget(bar);
    window->setContextMenuPolicy(Qt::NoContextMenu);
    qApp->installEventFilter(this);
}

QToolButton* StopGuard::makeButton(const QString& name, QWidget* parent)
{
    auto* button = new QToolButton(parent);
    button->setObjectName(name);
    button->setText(tr("STOP all axes (F12)"));
    button->setToolTip(tr("Stops every axis before anything else that waits is sent"));
    button->setStyleSheet(QStringLiteral(
        "QToolButton { background: #c62828; color: white; font-weight: bold; padding: 6px 18px; "
        "border: 1px solid #7f1010; border-radius: 4px } QToolButton:pressed { background: "
        "#8e1c1c }"));
    connect(button, &QToolButton::pressed, this, &StopGuard::stopNow);
    return button;
}

bool StopGuard::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::ShortcutOverride: // nobody's shortcut
    case QEvent::KeyPress: {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (key->key() != Qt::Key_F12)
            break;
        event->accept();
        if (event->type() == QEvent::KeyPress && !key->isAutoRepeat())
            stopNow();
        return true;
    }
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        // Where the pointer is grabbed, the button hears nothing of it.
        if (watched->isWindowType() &&
            (QApplication::activePopupWidget() || QWidget::mouseGrabber()) &&
            isStop(QApplication::widgetAt(static_cast<QMouseEvent*>(event)->globalPos())))
            stopNow();
        break;
    case QEvent::DragEnter:
        // A drag has put its own filter, which takes every key, before this one.
        qApp->installEventFilter(this);
        break;
    case QEvent::Show:
        if (watched->isWidgetType() && isModalDialog(static_cast<QWidget*>(watched)))
            attachTwin(static_cast<QWidget*>(watched));
        Q_FALLTHROUGH();
    case QEvent::Hide:
    case QEvent::Move:
    case QEvent::Resize:
        if (watched == m_window || watched == m_button ||
            (watched->isWidgetType() && isModalDialog(static_cast<QWidget*>(watched))))
            QTimer::singleShot(0, this, &StopGuard::placeTwin); // once all of it is done
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

/// What is held is let go of first: a jog's own end, sent behind the stop, would take the axis out
/// of its braking (a target current of 0 lets it coast). In this order the stop overtakes it.
void StopGuard::stopNow()
{
    letGo();
    emit stop();
}

/// A release beside the button ends a press without a click. A jog hears of it, too. A button from
/// which the pointer has strayed does not count as down but still waits for it, so every button is
/// told while the pointer's is held; one that is not pressed takes no notice.
void StopGuard::letGo() const
{
    const bool isPointerHeld = QGuiApplication::mouseButtons() != Qt::NoButton;
    QVector<QPointer<QAbstractButton>> held;
    const QWidgetList all = QApplication::allWidgets();
    for (QWidget* widget : all) {
        auto* button = qobject_cast<QAbstractButton*>(widget);
        if (button && (button->isDown() || (isPointerHeld && button->isVisible())) &&
            !isStop(button))
            held << button;
    }
    for (const QPointer<QAbstractButton>& button : qAsConst(held)) {
        if (!button)
            continue;
        const QPoint beside(-1, -1);
        QMouseEvent release(QEvent::MouseButtonRelease, beside, button->mapToGlobal(beside),
                            Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(button, &release);
    }
}

bool StopGuard::isStop(const QObject* widget) const
{
    return widget && (widget == m_button || widget->objectName() == twinName);
}

void StopGuard::attachTwin(QWidget* dialog)
{
    if (twinOf(dialog))
        return;
    QToolButton* twin = makeButton(twinName, dialog);
    twin->setWindowFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus);
    twin->setAttribute(Qt::WA_ShowWithoutActivating);
}

/// Shows the twin of the dialog that blocks all others.
void StopGuard::placeTwin() const
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget* twin : windows) {
        if (twin->objectName() != twinName)
            continue;
        const QWidget* dialog = twin->parentWidget();
        const bool isNeeded = dialog == QApplication::activeModalWidget() && dialog->isVisible() &&
                              m_button->isVisible() && !m_window->isMinimized();
        if (isNeeded) {
            twin->setFont(m_button->font());
            twin->setFixedSize(m_button->size());
            twin->move(m_button->mapToGlobal(QPoint(0, 0)));
        }
        twin->setVisible(isNeeded);
        if (isNeeded)
            twin->raise();
    }
}
