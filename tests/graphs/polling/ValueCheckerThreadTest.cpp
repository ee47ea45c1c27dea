#include "ValueCheckerThread.h"
#include "TestCase.h"

#include <atomic>
#include <limits>

namespace
{

constexpr int Hour = 3600 * 1000;
constexpr int Longest = 10000; // ms that a test waits for what takes no time

/// A thread that does this in each of its checks, and counts them.
struct Checker : ValueCheckerThread {
    Checker(
        int delay, const std::function<void()>& inCheck = [] {})
        : ValueCheckerThread(delay)
    {
        QObject::connect(
            this, &ValueCheckerThread::checkRequested, this,
            [this, inCheck] {
                inCheck();
                isOnThread = QThread::currentThread() == this;
                ++checks;
            },
            Qt::DirectConnection);
    }
    std::atomic<bool> isOnThread{false};
    std::atomic<int> checks{0};
};

} // namespace

class ValueCheckerThreadTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void checksUntilItIsStoppedAndAgain()
    {
        Checker thread(1);
        for (int i = 0; i < 2; ++i) {
            const int before = thread.checks;
            thread.start();
            QTRY_VERIFY(thread.checks >= before + 3);
            thread.stop();
            QVERIFY(thread.wait(Longest));
        }
        QVERIFY(thread.isOnThread);
    }

    /// Each pause takes the delay that stands at its begin, and a stop waits for its end.
    void pauses()
    {
        QElapsedTimer clock;
        Checker thread(Hour, [&] {
            clock.start();
            thread.stop();
            thread.changeDelay(50);
        });
        thread.start();
        QVERIFY(thread.wait(Longest));
        QVERIFY2(clock.elapsed() >= 50, qPrintable(QString::number(clock.elapsed())));
        QCOMPARE(thread.checks.load(), 1);
        for (int delay : {1, 0, std::numeric_limits<int>::min()}) {
            Checker changed(Hour, [&] { changed.setDelay(delay); });
            changed.start();
            QTRY_VERIFY(changed.checks >= 3);
            changed.stop();
            QVERIFY(changed.wait(Longest));
        }
    }

    void endsWithItsObject()
    {
        enum Moment { NeverStarted, JustStarted, InALongPause };
        for (int moment : {NeverStarted, JustStarted, InALongPause}) {
            QElapsedTimer clock;
            {
                std::atomic<int> checks{0};
                ValueCheckerThread thread;
                thread.setDelay(std::numeric_limits<int>::max());
                connect(
                    &thread, &ValueCheckerThread::checkRequested, &thread, [&] { ++checks; },
                    Qt::DirectConnection);
                if (moment != NeverStarted)
                    thread.start();
                if (moment == InALongPause)
                    QTRY_VERIFY(checks);
                clock.start();
            }
            QVERIFY(clock.elapsed() < Longest);
        }
    }
};

AXR_TEST_MAIN(ValueCheckerThreadTest)
#include "ValueCheckerThreadTest.moc"
