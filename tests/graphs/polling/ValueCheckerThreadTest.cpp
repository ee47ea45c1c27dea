#include "ValueCheckerThread.h"
#include "TestCase.h"

#include <atomic>
#include <limits>

namespace
{
constexpr int Hour = 3600 * 1000;
constexpr int Longest = 10000; // ms that a test waits for what takes no time
} // namespace

class ValueCheckerThreadTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void checksUntilItIsStoppedAndAgain()
    {
        int checks = 0;
        const QObject receiver; // on this thread
        ValueCheckerThread thread(1);
        connect(&thread, &ValueCheckerThread::checkRequested, &receiver, [&checks] { ++checks; });
        for (int i = 0; i < 2; ++i) {
            QCoreApplication::sendPostedEvents();
            checks = 0;
            thread.start();
            QTRY_VERIFY(checks >= 3);
            thread.stop();
            QVERIFY(thread.wait(Longest));
        }
    }

    void stopWaitsForThePause()
    {
        constexpr int Delay = 200;
        std::atomic<int> checks{0};
        QElapsedTimer clock;
        ValueCheckerThread thread(Delay);
        connect(
            &thread, &ValueCheckerThread::checkRequested, &thread,
            [&] {
                ++checks;
                clock.start();
                thread.stop();
            },
            Qt::DirectConnection);
        thread.start();
        QVERIFY(thread.wait(Longest));
        QVERIFY2(clock.elapsed() >= Delay, qPrintable(QString::number(clock.elapsed())));
        QCOMPARE(checks.load(), 1);
    }

    void readsTheDelayForEachPause_data()
    {
        QTest::addColumn<int>("delay");
        QTest::newRow("short") << 1;
        QTest::newRow("none") << 0;
        QTest::newRow("negative") << std::numeric_limits<int>::min();
    }
    void readsTheDelayForEachPause()
    {
        QFETCH(int, delay);
        std::atomic<int> checks{0};
        std::atomic<QThread*> emitter{nullptr};
        ValueCheckerThread thread(Hour);
        connect(
            &thread, &ValueCheckerThread::checkRequested, &thread,
            [&] {
                emitter = QThread::currentThread();
                thread.changeDelay(delay);
                ++checks;
            },
            Qt::DirectConnection);
        thread.start();
        QTRY_VERIFY(checks >= 3);
        QCOMPARE(emitter.load(), static_cast<QThread*>(&thread));
        thread.stop();
        QVERIFY(thread.wait(Longest));
    }

    void endsWithItsObject_data()
    {
        QTest::addColumn<bool>("started");
        QTest::addColumn<bool>("paused");
        QTest::newRow("never started") << false << false;
        QTest::newRow("just started") << true << false;
        QTest::newRow("in a long pause") << true << true;
    }
    void endsWithItsObject()
    {
        QFETCH(bool, started);
        QFETCH(bool, paused);
        bool checked = false;
        QElapsedTimer clock;
        {
            const QObject receiver;
            ValueCheckerThread thread(std::numeric_limits<int>::max());
            connect(&thread, &ValueCheckerThread::checkRequested, &receiver,
                    [&checked] { checked = true; });
            if (started)
                thread.start();
            if (paused)
                QTRY_VERIFY(checked);
            clock.start();
        }
        QVERIFY(clock.elapsed() < Longest);
    }
};

AXR_TEST_MAIN(ValueCheckerThreadTest)
#include "ValueCheckerThreadTest.moc"
