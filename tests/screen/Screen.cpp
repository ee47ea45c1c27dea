#include "Screen.h"

#include "XHands.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QPointer>
#include <QScreen>
#include <QTimer>
#include <QWidget>
#include <QWindow>

#include <set>

namespace
{

constexpr int Delivery = 15; // ms in which an event of the window system has reached the program

std::set<unsigned> heldKeys;
std::set<unsigned> heldButtons;

void deliver()
{
    XHands::sync();
    QGuiApplication::sync();
    Screen::pass(Delivery);
}

unsigned number(Qt::MouseButton button)
{
    return button == Qt::LeftButton ? 1 : button == Qt::MiddleButton ? 2 : 3;
}

void fakeButton(unsigned button, bool isDown)
{
    XHands::button(button, isDown);
    if (isDown)
        heldButtons.insert(button);
    else
        heldButtons.erase(button);
    deliver();
}

void fakeKey(unsigned code, bool isDown)
{
    XHands::key(code, isDown);
    if (isDown)
        heldKeys.insert(code);
    else
        heldKeys.erase(code);
}

/// The keys of a combination, the modifiers first.
QList<unsigned> codes(const QString& keys)
{
    QList<unsigned> all;
    for (const QString& name : keys.split(QLatin1Char('+'))) {
        const QByteArray latin = name == QLatin1String("ctrl")    ? "Control_L"
                                 : name == QLatin1String("shift") ? "Shift_L"
                                 : name == QLatin1String("alt")   ? "Alt_L"
                                                                  : name.toLatin1();
        const unsigned code = XHands::codeOf(latin.constData());
        if (code == 0)
            qFatal("there is no key \"%s\"", latin.constData());
        all << code;
    }
    return all;
}

} // namespace

void Screen::pass(int milliseconds)
{
    QEventLoop loop;
    QTimer::singleShot(milliseconds, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec();
}

bool Screen::waitFor(const std::function<bool()>& condition, int milliseconds)
{
    QElapsedTimer timer;
    timer.start();
    while (!condition()) {
        if (timer.hasExpired(milliseconds))
            return false;
        pass(Delivery);
    }
    return true;
}

void Screen::meanwhile(const std::function<void()>& gesture, int milliseconds)
{
    QTimer::singleShot(milliseconds, qApp, gesture);
}

void Screen::onceOpen(const std::function<void(QWidget*)>& gesture, const QString& objectName)
{
    QWidget* open = QApplication::activePopupWidget() ? QApplication::activePopupWidget()
                                                      : QApplication::activeModalWidget();
    if (open && open->isVisible() && open->windowHandle() && open->windowHandle()->isExposed() &&
        (objectName.isEmpty() || open->objectName() == objectName))
        gesture(open);
    else
        meanwhile([=] { onceOpen(gesture, objectName); }, Delivery);
}

void Screen::show(QWidget* window, QPoint place)
{
    if (!XHands::areThere())
        qFatal("these tests need an X display with XTEST, such as that of xvfb-run");
    window->move(place);
    window->show();
    if (!waitFor([&] { return window->windowHandle() && window->windowHandle()->isExposed(); },
                 20000))
        qFatal("the window does not come to the screen");
    activate(window);
}

void Screen::activate(QWidget* window)
{
    // Asked for again and again, for a request may be lost when the window was not mapped yet.
    for (int tries = 0; tries < 10; ++tries) {
        window->raise();
        window->activateWindow();
        if (waitFor([&] { return window->isActiveWindow(); }, 2000))
            return;
    }
    qFatal("the window does not become active");
}

QPoint Screen::middle(const QWidget* widget)
{
    return widget->mapToGlobal(widget->rect().center());
}

void Screen::moveTo(QPoint place)
{
    XHands::move(place.x(), place.y());
    deliver();
}

void Screen::moveTo(const QWidget* widget, QPoint place) { moveTo(widget->mapToGlobal(place)); }

void Screen::moveTo(const QWidget* widget) { moveTo(middle(widget)); }

void Screen::press(Qt::MouseButton button) { fakeButton(number(button), true); }

void Screen::release(Qt::MouseButton button) { fakeButton(number(button), false); }

void Screen::click(QPoint place, Qt::MouseButton button)
{
    moveTo(place);
    press(button);
    release(button);
}

void Screen::click(const QWidget* widget, Qt::MouseButton button) { click(middle(widget), button); }

void Screen::click(const QWidget* widget, QPoint place, Qt::MouseButton button)
{
    click(widget->mapToGlobal(place), button);
}

void Screen::wheel(int notches)
{
    for (int i = 0; i < qAbs(notches); ++i) {
        fakeButton(notches > 0 ? 4 : 5, true);
        fakeButton(notches > 0 ? 4 : 5, false);
    }
}

void Screen::keyDown(const QString& key)
{
    for (unsigned code : codes(key))
        fakeKey(code, true);
    deliver();
}

void Screen::keyUp(const QString& key)
{
    QList<unsigned> all = codes(key);
    while (!all.isEmpty())
        fakeKey(all.takeLast(), false);
    deliver();
}

void Screen::key(const QString& key)
{
    keyDown(key);
    keyUp(key);
}

void Screen::type(const QString& text)
{
    const unsigned shift = XHands::codeOf("Shift_L");
    for (QChar character : text) {
        if (character == QLatin1Char('\n')) {
            key(QStringLiteral("Return"));
            continue;
        }
        bool isShifted = false;
        const unsigned code = XHands::codeOf(character.toLatin1(), &isShifted);
        if (code == 0)
            qFatal("there is no key for \"%c\"", character.toLatin1());
        if (isShifted)
            fakeKey(shift, true);
        fakeKey(code, true);
        fakeKey(code, false);
        if (isShifted)
            fakeKey(shift, false);
        deliver();
    }
}

void Screen::letGo()
{
    for (unsigned button : std::set<unsigned>(heldButtons))
        fakeButton(button, false);
    for (unsigned code : std::set<unsigned>(heldKeys))
        fakeKey(code, false);
    deliver();
}

QImage Screen::picture(const QRect& place)
{
    return QGuiApplication::primaryScreen()
        ->grabWindow(0, place.x(), place.y(), place.width(), place.height())
        .toImage()
        .convertToFormat(QImage::Format_RGB32);
}

QImage Screen::picture(const QWidget* widget)
{
    return picture(QRect(widget->mapToGlobal(QPoint()), widget->size()));
}

QImage Screen::picture() { return picture(QGuiApplication::primaryScreen()->geometry()); }

int Screen::changes(const QWidget* widget, int pictures, int apart)
{
    int differing = 0;
    QImage last = picture(widget);
    for (int i = 1; i < pictures; ++i) {
        pass(apart);
        const QImage next = picture(widget);
        differing += next != last;
        last = next;
    }
    return differing;
}

bool Screen::stands(const QWidget* widget, int pictures)
{
    return waitFor([&] { return changes(widget, pictures) == 0; });
}

bool Screen::has(const QImage& picture, const QColor& colour, int tolerance)
{
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QRgb pixel = picture.pixel(x, y);
            if (qAbs(qRed(pixel) - colour.red()) <= tolerance &&
                qAbs(qGreen(pixel) - colour.green()) <= tolerance &&
                qAbs(qBlue(pixel) - colour.blue()) <= tolerance)
                return true;
        }
    }
    return false;
}

Screen::WindowManager::WindowManager(bool isWanted)
{
    if (!isWanted)
        return;
    m_process.start(QStringLiteral("openbox"), {QStringLiteral("--sm-disable")});
    const auto takesWindows = [] { // which it does only some time after it tells that it is there
        QWindow window;
        window.resize(20, 20);
        window.show();
        return waitFor([&window] { return window.isExposed(); }, 300);
    };
    if (!m_process.waitForStarted() || !waitFor([this] { return isThere(); }, 10000) ||
        !waitFor(takesWindows, 10000))
        qFatal("no window manager: these tests need openbox");
    // It says so before it looks after windows; one that comes in between is never shown.
    QWidget first;
    for (int tries = 0; tries < 20; ++tries) {
        first.show();
        if (waitFor([&] { return first.windowHandle()->isExposed(); }, 500))
            return;
        first.hide();
    }
    qFatal("the window manager shows no window");
}

Screen::WindowManager::~WindowManager()
{
    if (m_process.state() == QProcess::NotRunning)
        return;
    m_process.terminate();
    if (!m_process.waitForFinished(5000))
        m_process.kill();
    m_process.waitForFinished(5000);
    waitFor([this] { return !isThere(); });
}

bool Screen::WindowManager::isThere() const { return XHands::hasWindowManager(); }
