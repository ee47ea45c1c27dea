// The steps of the tour on the page of RAM captures.

#include "CapturePage.h"
#include "Chart.h"
#include "DrawerArea.h"
#include "Global.h"
#include "ParameterCatalogue.h"
#include "Recorder.h"
#include "ScreenPicture.h"
#include "SimpleScaledDrawer.h"
#include "SimulatedLink.h"
#include "SimulatedModule.h"
#include "Simulator.h"
#include "TourGuide.h"
#include "TourInput.h"

#include <QApplication>
#include <QComboBox>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRegularExpression>
#include <QSet>
#include <QSpinBox>

using namespace TourInput;

namespace
{

using Recorder::Mode;
using Recorder::Target;
using Recorder::Trigger;

constexpr int RunWithin = 60000;  // ms of real time
constexpr int ShownSeries = 2;    // target and actual value; the module also takes two others
constexpr int SamplesToStop = 80; // fetched before the stop

/// What to capture, as the panel's lists and boxes are set.
struct Capture {
    const char* name;
    Target target;
    Mode measure;
    int to;
    Trigger trigger;
    int threshold;
};

/// The item that stands for this number of the recorder.
template <class Number>
void choose(const CapturePage* page, const char* list, Number number)
{
    auto* box = page->findChild<QComboBox*>(QString::fromLatin1(list));
    for (int i = 0; i < box->count(); ++i) {
        if (box->itemData(i).toStringList().value(1).toInt() == static_cast<int>(number))
            box->setCurrentIndex(i);
    }
}

void enter(const CapturePage* page, const char* box, int value)
{
    type(page->findChild<QSpinBox*>(QString::fromLatin1(box)), QString::number(value));
}

void setUp(const CapturePage* page, const Capture& capture)
{
    choose(page, "cmbTargetMode", capture.target);
    choose(page, "cmbMeasureMode", capture.measure);
    choose(page, "cmbTriggerType", capture.trigger);
    if (capture.trigger != Trigger::Always)
        enter(page, "sbTriggerValue", capture.threshold);
    if (capture.target != Target::None)
        enter(page, "sbToTarget", capture.to);
}

QPushButton* button(const CapturePage* page, const char* name)
{
    return page->findChild<QPushButton*>(QString::fromLatin1(name));
}

bool runs() { return !Global::instance()->registeredThreads().isEmpty(); }

/// The quantity that a trigger watches, and the side on which it fires.
bool holds(const Capture& capture, const SimulatedRecorder::Element& first, Mode mode)
{
    namespace N = AxisParameterNumber;
    const quint8 watched[] = {0,
                              N::ActualPosition,
                              N::ActualPosition,
                              N::ActualVelocity,
                              N::ActualVelocity,
                              N::ActualCurrent,
                              N::ActualCurrent};
    if (capture.trigger == Trigger::Always)
        return true;
    const auto& items = SimulatedRecorder::items(mode);
    for (std::size_t item = 0; item < items.size(); ++item) {
        if (items[item] == watched[int(capture.trigger)])
            return int(capture.trigger) % 2 ? first[item] < capture.threshold
                                            : first[item] > capture.threshold;
    }
    return false;
}

void awaitCapture(const CapturePage* page)
{
    const QPushButton* start = button(page, "btnStart");
    processUntil([start] { return start->isEnabled() && !runs(); }, RunWithin);
}

/// Whether the curves are what the recorder took, all of it.
bool captureIsTrue(const TourGuide& guide, const CapturePage* page, QString* seen)
{
    const auto& recorded = guide.simulator().module.recorder().recorded();
    const QList<Chart*> charts = *page->findChild<SimpleScaledDrawer*>()->getCharts();
    int samples = 0;
    bool same = recorded.size() == SimulatedRecorder::Elements && charts.size() >= ShownSeries;
    for (int chart = 0; chart < charts.size(); ++chart) {
        QList<double> truth;
        for (const auto& element : recorded)
            truth << element[static_cast<std::size_t>(chart)];
        const QList<double> values = charts.at(chart)->getValues();
        samples += values.size();
        same = same && values == truth;
    }
    *seen = QStringLiteral("%1 samples %2").arg(samples).arg(same ? "alike" : "not alike");
    return same;
}

/// The curves fill the plot: the last one, which covers the others, has its colour in the columns
/// of its samples and over half of the height, which the range follows; the others look out
/// somewhere.
void expectCaptureOnScreen(TourGuide& guide, CapturePage* page)
{
    auto* drawer = page->findChild<SimpleScaledDrawer*>();
    const QImage picture = ScreenPicture::of(drawer->findChild<DrawerArea*>());
    QStringList seen;
    bool isFine = !picture.isNull();
    for (Chart* chart : *drawer->getCharts()) {
        const bool isLast = chart == drawer->getCharts()->last();
        const int columns = ScreenPicture::columnsWith(picture, chart->getColor());
        const int height = ScreenPicture::extent(picture, chart->getColor()).height();
        seen << QStringLiteral("%1 columns over %2 px").arg(columns).arg(height);
        isFine = isFine && columns > 0 &&
                 (!isLast || (10 * columns >= 9 * chart->getValues().size() &&
                              2 * height >= picture.height()));
    }
    guide.check(QStringLiteral("the curves of the capture on the screen, by their colours"),
                QStringLiteral("all of the plot"), seen.join(QStringLiteral("; ")), isFine);
}

void captureByEachTrigger(TourGuide& guide, CapturePage* page)
{
    const Capture captures[] = {
        {"no target, always", Target::None, Mode::Defined, 0, Trigger::Always, 0},
        {"torque, always", Target::Torque, Mode::Torque, 300, Trigger::Always, 0},
        {"torque, torque lower", Target::Torque, Mode::Torque, -300, Trigger::TorqueLower, -100},
        {"torque, torque higher", Target::Torque, Mode::Torque, 300, Trigger::TorqueHigher, 100},
        {"position, position lower", Target::Position, Mode::Position, -9000,
         Trigger::PositionLower, -500},
        {"position, position higher", Target::Position, Mode::Position, 9000,
         Trigger::PositionHigher, 500},
        {"velocity, velocity lower", Target::Velocity, Mode::Velocity, -500, Trigger::VelocityLower,
         -100},
        {"velocity, velocity higher", Target::Velocity, Mode::Velocity, 500,
         Trigger::VelocityHigher, 100}};
    const auto* progress = guide.find<QProgressBar>(guide.window(), "prgFetch");
    for (const Capture& capture : captures) {
        setUp(page, capture);
        click(button(page, "btnStart"));
        processUntil([page] { return page->fetched() > 0; }, RunWithin);
        const bool showsProgress = progress->isVisible();
        awaitCapture(page);
        const auto& recorder = guide.simulator().module.recorder();
        QString seen;
        const bool same = captureIsTrue(guide, page, &seen);
        const bool fired = same && holds(capture, recorder.recorded().front(), recorder.mode());
        guide.check(QStringLiteral("capture %1").arg(QString::fromLatin1(capture.name)),
                    QStringLiteral("the curves are what the recorder took once the trigger fired"),
                    seen + (fired ? QStringLiteral(", fired") : QStringLiteral(", fired wrongly")),
                    same && fired && showsProgress && !progress->isVisible());
    }
    guide.photograph(QStringLiteral("capture"));
    expectCaptureOnScreen(guide, page);
}

void saveCapture(TourGuide& guide, CapturePage* page)
{
    const QString name = guide.file(QStringLiteral("capture.csv"));
    QFile::remove(name);
    answerFileDialog(guide.window(), name);
    click(button(page, "btnSave"));

    const QList<QByteArrayList> rows = readCsv(name);
    const QList<Chart*> charts = *page->findChild<SimpleScaledDrawer*>()->getCharts();
    bool same = rows.size() == SimulatedRecorder::Elements + 1;
    for (int row = 1; same && row < rows.size(); ++row) {
        same = rows.at(row).size() == charts.size() + 1 &&
               rows.at(row).first() == QByteArray::number(row - 1);
        for (int chart = 0; same && chart < charts.size(); ++chart)
            same =
                rows.at(row).at(chart + 1).toDouble() == charts.at(chart)->getValues().at(row - 1);
    }
    guide.check(QStringLiteral("save the capture"), QStringLiteral("the file holds the curves"),
                QStringLiteral("%1 rows %2").arg(rows.size()).arg(same ? "alike" : "not alike"),
                same);
}

void stopCapture(TourGuide& guide, CapturePage* page)
{
    const QList<Chart*>& charts = *page->findChild<SimpleScaledDrawer*>()->getCharts();
    click(button(page, "btnStart"));
    processUntil([page] { return page->fetched() >= SamplesToStop; }, RunWithin);
    click(button(page, "btnStop"));
    const bool idle = button(page, "btnStart")->isEnabled();
    awaitCapture(page);
    const int shown = charts.first()->getValues().size();
    const bool isEven = shown - charts.last()->getValues().size() <= 1; // given up in an element
    guide.pass(2 * TourGuide::Settle);
    const bool stands = guide.simulator().module.axis(0).velocity() == 0;
    guide.check(QStringLiteral("stop a capture"),
                QStringLiteral("idle at once; some elements were fetched; the axis stands"),
                QStringLiteral("%1, %2 of %3 elements")
                    .arg(idle ? "idle" : "busy")
                    .arg(shown)
                    .arg(SimulatedRecorder::Elements),
                idle && isEven && stands && shown >= SamplesToStop / SimulatedRecorder::Items &&
                    shown < SimulatedRecorder::Elements);
    click(button(page, "btnStart"));
    awaitCapture(page);
    QString seen;
    const bool same = captureIsTrue(guide, page, &seen);
    guide.check(QStringLiteral("start it again"), QStringLiteral("all of it"), seen, same);
}

/// A sample whose reply does not come at the third try either is named in the console's log, and
/// everything else is there.
void captureInBadWeather(TourGuide& guide, CapturePage* page)
{
    const QList<Chart*>& charts = *page->findChild<SimpleScaledDrawer*>()->getCharts();
    auto* log = guide.find<QPlainTextEdit>(guide.page(QStringLiteral("console")), "teTraffic");
    SimulatedLink& wire = guide.simulator().link;
    const Simulated::Weather before = wire.weather();
    for (double loss : {0.05, 0.4}) {
        Simulated::Weather weather = before;
        weather.replyLoss = loss;
        wire.setWeather(weather);
        log->clear();
        click(button(page, "btnStart"));
        awaitCapture(page);
        wire.setWeather(before);

        QSet<QString> named;
        const QRegularExpression line(QStringLiteral("RD 3 = (\\d+), item (\\d+).*no answer"));
        for (auto it = line.globalMatch(log->toPlainText()); it.hasNext();) {
            const QRegularExpressionMatch match = it.next();
            named << match.captured(1) + QLatin1Char('/') + match.captured(2);
        }
        const auto& recorded = guide.simulator().module.recorder().recorded();
        bool same = recorded.size() == SimulatedRecorder::Elements &&
                    page->missing() == named.size() &&
                    page->fetched() + page->missing() == SimulatedRecorder::BufferSize;
        for (int item = 0; item < ShownSeries; ++item) {
            QList<double> rest;
            for (std::size_t i = 0; i < recorded.size(); ++i) {
                if (!named.contains(QStringLiteral("%1/%2").arg(i).arg(item)))
                    rest << recorded[i][static_cast<std::size_t>(item)];
            }
            same = same && charts.at(item)->getValues() == rest;
        }
        guide.check(
            QStringLiteral("capture with %1 % of the replies lost").arg(100 * loss),
            QStringLiteral("it ends, and the log names what is missing"),
            QStringLiteral("%1 fetched, %2 missing").arg(page->fetched()).arg(page->missing()),
            same && (page->missing() > 0 || loss < 0.1));
    }
}

} // namespace

void CapturePage::tour(TourGuide& guide)
{
    guide.showPage(objectName());
    captureByEachTrigger(guide, this);
    saveCapture(guide, this);
    stopCapture(guide, this);
    captureInBadWeather(guide, this);
    guide.turn(0, 0);
}
