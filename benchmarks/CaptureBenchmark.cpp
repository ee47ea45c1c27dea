// Samples that the capture panel fetches a second beside an empty blocking round trip between two
// threads: the panel's aim is 0.8 of it. Both take turns, and the best of each counts.

#include "Chart.h"
#include "Command.h"
#include "Instruction.h"
#include "Recorder.h"
#include "WRamDebug.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QLoggingCategory>
#include <QPushButton>
#include <QSpinBox>
#include <QThread>

#include <algorithm>
#include <cstdio>

namespace
{

constexpr int Items = 4;
constexpr int Elements = 15000;
constexpr int RoundTrips = Items * Elements;
constexpr int Rounds = 7;

/// Asks for nothing, as often as the panel asks for a sample.
class Caller : public QThread
{
    Q_OBJECT
public:
    explicit Caller(int calls) : m_calls(calls) {}

Q_SIGNALS:
    void call(Command* request, Command* reply);

protected:
    void run() override
    {
        Command request;
        Command reply;
        for (int i = 0; i < m_calls; ++i)
            emit call(&request, &reply);
    }

private:
    int m_calls;
};

double emptyRoundTrips()
{
    Caller caller(RoundTrips);
    QObject receiver;
    int calls = 0;
    QObject::connect(
        &caller, &Caller::call, &receiver, [&calls](Command*, Command*) { ++calls; },
        Qt::BlockingQueuedConnection);
    QEventLoop loop;
    QObject::connect(&caller, &QThread::finished, &loop, &QEventLoop::quit);
    QElapsedTimer timer;
    timer.start();
    caller.start();
    loop.exec();
    return calls * 1e9 / double(timer.nsecsElapsed());
}

/// A module that answers at once.
void answer(Command* request, Command* reply, QElapsedTimer* sinceFirst, int* samples)
{
    int value = 0;
    if (carries(request->getCommand(), Instruction::RD)) {
        if (carries(request->getType(), Recorder::Type::Elements))
            value = Elements;
        else if (carries(request->getType(), Recorder::Type::Items))
            value = Items;
        else if (carries(request->getType(), Recorder::Type::Sample)) {
            value = request->getValue();
            if ((*samples)++ == 0)
                sinceFirst->start();
        }
    }
    *reply = Command(request->getAddress(), request->getCommand(), request->getType(),
                     request->getMotorBank(), value);
    reply->setStatus(toByte(StatusOk));
    reply->setValid(true);
    delete request;
}

double fetchedSamples(WRamDebug& panel)
{
    QElapsedTimer sinceFirst;
    int samples = 0;
    QEventLoop loop;
    const auto connection = QObject::connect(&panel, &WRamDebug::doDirectRequest, &loop,
                                             [&](Command* request, Command* reply) {
                                                 answer(request, reply, &sinceFirst, &samples);
                                                 if (samples == RoundTrips)
                                                     loop.quit();
                                             });
    auto* start = panel.findChild<QPushButton*>(QStringLiteral("btnStart"));
    start->click();
    loop.exec();
    const double rate = samples * 1e9 / double(sinceFirst.nsecsElapsed());
    while (!start->isEnabled())
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    QObject::disconnect(connection);
    return rate;
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QLoggingCategory::setFilterRules(QStringLiteral("*.debug=false"));
    WRamDebug panel;
    panel.resize(1100, 600);
    panel.show();
    double empty = 0;
    double fetched = 0;
    for (int round = 0; round < Rounds; ++round) {
        empty = std::max(empty, emptyRoundTrips());
        fetched = std::max(fetched, fetchedSamples(panel));
    }
    std::printf("empty round trips a second   %10.0f\n"
                "samples fetched a second     %10.0f\n"
                "ratio                        %10.2f (aim 0.8)\n",
                empty, fetched, fetched / empty);
    return 0;
}

#include "CaptureBenchmark.moc"
