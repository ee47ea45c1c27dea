#include "HeldButton.h"
#include "TestCase.h"
#include "User.h"

#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

#include <functional>

namespace
{

/// A panel with one button that turns something, and what it does.
class Jog : public QWidget
{
public:
    Jog(QWidget* parent, QStringList* sent) : QWidget(parent)
    {
        auto* row = new QVBoxLayout(this);
        row->addWidget(box);
        (new QVBoxLayout(box))->addWidget(button);
        row->addWidget(field);
        held.setButton(button);
        connect(button, &QPushButton::pressed, this, [this, sent] {
            held.press([sent] { *sent << "stop"; });
            *sent << "start";
        });
        connect(button, &QPushButton::released, this,
                [this, sent] { held.release([sent] { *sent << "stop of no press"; }); });
    }

    QWidget* box = new QWidget;
    QPushButton* button = new QPushButton("Jog");
    QSpinBox* field = new QSpinBox;
    HeldButton held;
};

void moveTo(QWidget* widget, QPoint place)
{
    QMouseEvent move(QEvent::MouseMove, place, Qt::NoButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(widget, &move);
}

void tell(QWidget* widget, QEvent::Type type)
{
    QEvent event(type);
    QCoreApplication::sendEvent(widget, &event);
}

/// What ends a press.
const struct {
    const char* name;
    std::function<void(Jog&)> happens;
} ends[] = {
    {"panel hidden", [](Jog& jog) { jog.hide(); }},
    {"box hidden", [](Jog& jog) { jog.box->hide(); }},
    {"hidden", [](Jog& jog) { jog.button->hide(); }},
    {"panel disabled", [](Jog& jog) { jog.setEnabled(false); }},
    {"popup", [](Jog& jog) { QMenu("Menu", &jog).popup(jog.mapToGlobal(QPoint(0, 0))); }},
    {"grab",
     [](Jog& jog) {
         jog.grabMouse();
         tell(jog.button, QEvent::User);
         jog.releaseMouse();
     }},
    {"let go over another", [](Jog& jog) { User::release(&jog); }},
    {"let go beside",
     [](Jog& jog) { QTest::mouseRelease(jog.button, Qt::LeftButton, {}, QPoint(-3, 5)); }},
    {"second button", [](Jog& jog) { QTest::mousePress(jog.button, Qt::RightButton); }},
    {"press elsewhere", [](Jog& jog) { User::press(jog.field); }},
    {"pressed twice", [](Jog& jog) { User::press(jog.button); }},
    {"Space", [](Jog& jog) { QTest::keyPress(jog.button, Qt::Key_Space); }},
    {"Escape", [](Jog& jog) { QTest::keyClick(jog.button, Qt::Key_Escape); }},
    {"window not active", [](Jog& jog) { tell(&jog, QEvent::WindowDeactivate); }},
    {"window blocked", [](Jog& jog) { tell(&jog, QEvent::WindowBlocked); }},
    {"touch cancelled", [](Jog& jog) { tell(&jog, QEvent::TouchCancel); }},
    {"grab lost", [](Jog& jog) { tell(jog.button, QEvent::UngrabMouse); }},
    {"focus lost", [](Jog& jog) { tell(jog.button, QEvent::FocusOut); }},
};

} // namespace

class HeldButtonTest : public TestCase
{
    Q_OBJECT

    QStringList m_sent;

    QStringList takeSent() { return std::exchange(m_sent, {}); }

private Q_SLOTS:
    void endsWhenNobodyHoldsIt_data()
    {
        QTest::addColumn<int>("index");
        for (int i = 0; i < int(std::size(ends)); ++i)
            QTest::newRow(ends[i].name) << i;
    }
    void endsWhenNobodyHoldsIt()
    {
        QFETCH(int, index);
        for (const bool byKey : {false, true}) {
            Jog jog(nullptr, &m_sent);
            jog.button->setFocusPolicy(Qt::NoFocus); // so that no end of it ends the press, too
            jog.show();
            jog.activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(&jog));
            byKey ? QTest::keyPress(jog.button, Qt::Key_Space) : User::press(jog.button);
            QKeyEvent repeat(QEvent::KeyPress, Qt::Key_Space, {}, " ", true);
            QCoreApplication::sendEvent(jog.button, &repeat);
            tell(jog.field, QEvent::FocusOut);
            moveTo(jog.button, QPoint(5, 5));
            QCOMPARE(takeSent(), QStringList("start"));
            ends[index].happens(jog);
            QCOMPARE(takeSent(), QStringList("stop"));
            QVERIFY(!jog.button->isDown());
            jog.setEnabled(true);
            for (QWidget* widget : QWidgetList{&jog, jog.box, jog.button})
                widget->show();
            // Still held: one pixel over the button must not start the axis again.
            moveTo(jog.button, QPoint(6, 5));
            byKey ? QTest::keyRelease(jog.button, Qt::Key_Space) : User::release(jog.button);
            QCOMPARE(takeSent(), QStringList());
            User::click(jog.button);
            QCOMPARE(takeSent(), (QStringList{"start", "stop"}));
        }
    }

    void followsThePointerThatStrays()
    {
        Jog jog(nullptr, &m_sent);
        jog.show();
        User::press(jog.button);
        moveTo(jog.button, {-5, 5});
        QCOMPARE(takeSent(), (QStringList{"start", "stop"}));
        moveTo(jog.button, {5, 5});
        QCOMPARE(takeSent(), QStringList("start"));
        moveTo(jog.button, {-5, 5});
        QCOMPARE(takeSent(), QStringList("stop"));
        tell(&jog, QEvent::WindowDeactivate);
        moveTo(jog.button, {5, 5});
        User::release(jog.button);
        QCOMPARE(takeSent(), QStringList());
    }

    /// The stop goes out while the host's window is still whole, where Qt lets it.
    void endsWithPanelAndWindow()
    {
        for (const bool isLater : {false, true}) {
            for (const bool isWindow : {false, true}) {
                struct Window : QWidget {
                    explicit Window(QStringList& lines) : sent(lines) {}
                    QStringList& sent;
                    ~Window() override { sent << "gone"; }
                };
                QPointer<QWidget> window = new Window(m_sent);
                auto* jog = new Jog(window, &m_sent);
                window->show();
                User::press(jog->button);
                QPointer<QWidget> victim = isWindow ? window.data() : jog;
                victim->deleteLater();
                if (isLater)
                    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
                delete victim;
                delete window;
                QCOMPARE(takeSent().join(' '),
                         QString(isWindow && !isLater ? "start gone stop" : "start stop gone"));
            }
        }
    }

    void aStopWithoutAPressBefore()
    {
        auto* jog = new Jog(nullptr, &m_sent);
        emit jog->button->released();
        QCOMPARE(takeSent(), QStringList("stop of no press"));
        emit jog->button->pressed(); // by the host, which never releases it
        delete jog;
        QCOMPARE(takeSent(), (QStringList{"start", "stop"}));
    }

    void aKeyThatIsLetGoCountsAtOnce()
    {
        Jog jog(nullptr, &m_sent);
        jog.button->setFocus();
        jog.show();
        for (int i = 0; i < 3; ++i) { // within one and the same millisecond
            QTest::keyPress(jog.windowHandle(), Qt::Key_Space);
            QTest::keyRelease(jog.windowHandle(), Qt::Key_Space);
            QCOMPARE(takeSent(), (QStringList{"start", "stop"}));
        }
    }

    /// Halves of a repeat come from an X server with one and the same time.
    void aRepeatedKeyIsNoPress()
    {
        Jog jog(nullptr, &m_sent);
        jog.show();
        const auto send = [&jog](QEvent::Type type, ulong time) {
            QKeyEvent key(type, Qt::Key_Space, {}, 65, 32, 0, " ");
            key.setTimestamp(time);
            QCoreApplication::sendEvent(jog.button, &key);
        };
        send(QEvent::KeyPress, 100);
        for (ulong time : {500, 530, 560}) {
            send(QEvent::KeyRelease, time);
            send(QEvent::KeyPress, time);
        }
        QTest::qWait(20);
        QCOMPARE(takeSent(), QStringList("start"));
        send(QEvent::KeyRelease, 600);
        QCOMPARE(takeSent(), QStringList());
        QTRY_COMPARE(m_sent, QStringList("stop"));
        m_sent.clear();
        send(QEvent::KeyPress, 601);
        send(QEvent::KeyRelease, 700);
        jog.hide(); // before it is known that the key is up
        QCOMPARE(takeSent(), (QStringList{"start", "stop"}));
        jog.show();
        send(QEvent::KeyPress, 701);
        QTest::qWait(20);
        QCOMPARE(takeSent(), QStringList("start"));
    }
};

AXR_TEST_MAIN(HeldButtonTest)
#include "HeldButtonTest.moc"
