#include "TourGuide.h"

#include "Command.h"
#include "Instruction.h"
#include "ModuleLink.h"
#include "ScreenPicture.h"
#include "SimulatedModule.h"
#include "Simulator.h"
#include "TraceCommand.h"
#include "TraceController.h"
#include "WTraceController.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QElapsedTimer>
#include <QLabel>

#include <algorithm>
#include <cmath>

namespace
{

constexpr int TickWithin = 1000;   // ms of real time
constexpr int PictureTime = 300;   // ms of real time that a page is seen before its picture
constexpr int MotionTime = 200;    // ms of real time between two pictures of what lives
constexpr int StandsWithin = 5000; // ms

} // namespace

TourGuide::TourGuide(Stage stage, const QString& folder)
    : m_stage(std::move(stage)), m_folder(folder)
{
}

QWidget* TourGuide::showPage(const QString& name) const
{
    if (!m_stage.showPage(name))
        qFatal("the workbench has no page %s", qPrintable(name));
    return page(name);
}

QString TourGuide::linkText() const { return find<QLabel>(window(), "lblLinkState")->text(); }

void TourGuide::advance(int milliseconds)
{
    m_stage.advance(milliseconds);
    QApplication::processEvents();
}

bool TourGuide::wait(int milliseconds, const std::function<bool()>& condition)
{
    for (int passed = 0;; passed += Step) {
        if (condition())
            return true;
        if (passed >= milliseconds)
            return false;
        advance(Step);
    }
}

void TourGuide::pass(int milliseconds)
{
    wait(milliseconds, [] { return false; });
}

void TourGuide::runLive(int milliseconds)
{
    QElapsedTimer clock;
    clock.start();
    for (qint64 passed = 0; passed < milliseconds;) {
        QApplication::processEvents(QEventLoop::AllEvents, Step);
        const qint64 now = clock.elapsed();
        m_stage.advance(static_cast<int>(now - passed));
        passed = now;
    }
}

bool TourGuide::passTicks(int count, const QList<QWidget*>& controllers)
{
    QVector<int> ticks(controllers.size(), 0);
    const QObject context;
    for (int i = 0; i < controllers.size(); ++i) {
        const auto countTick = [&ticks, i] { ++ticks[i]; };
        if (const auto* grouped = qobject_cast<const WTraceController*>(controllers.at(i)))
            QObject::connect(grouped, &WTraceController::requestTraceCommand, &context, countTick);
        else if (const auto* plain = qobject_cast<const TraceController*>(controllers.at(i)))
            QObject::connect(plain, &TraceController::requestTraceCommand, &context, countTick);
    }
    for (int tick = 1; tick <= count; ++tick) {
        const QDeadlineTimer deadline(TickWithin);
        while (*std::min_element(ticks.begin(), ticks.end()) < tick) {
            if (deadline.hasExpired())
                return false;
            QApplication::processEvents();
        }
        m_stage.advance(Step);
    }
    return true;
}

void TourGuide::turn(int axis, int velocity)
{
    const Instruction instruction = velocity ? Instruction::ROR : Instruction::MST;
    link().command(Command(1, toByte(instruction), 0, toByte(axis), velocity));
    if (velocity == 0)
        wait(StandsWithin,
             [&] { return std::abs(simulator().module.axis(axis).velocity()) < 0.01; });
}

void TourGuide::check(const QString& done, const QString& expected, const QString& seen, bool ok)
{
    m_failures += ok ? 0 : 1;
    m_lines << QStringLiteral("%1 %2 | %3 | expected %4 | seen %5")
                   .arg(m_lines.size() + 1, 2)
                   .arg(ok ? QStringLiteral("ok    ") : QStringLiteral("NOT OK"), done, expected,
                        seen);
}

void TourGuide::expectNumber(const QString& done, const std::function<double()>& value,
                             double expected, double tolerance, int within)
{
    const bool ok = wait(within, [&] { return std::abs(value() - expected) <= tolerance; });
    QString wanted = QString::number(expected);
    if (tolerance > 0)
        wanted += QStringLiteral(" +-%1").arg(tolerance);
    check(done, wanted, QString::number(value()), ok);
}

void TourGuide::expectText(const QString& done, const std::function<QString()>& text,
                           const QString& expected, int within)
{
    const bool ok = wait(within, [&] { return text() == expected; });
    check(done, expected, text(), ok);
}

void TourGuide::expectMotion(const QWidget* widget, const QString& what)
{
    const QImage before = ScreenPicture::of(widget);
    runLive(MotionTime);
    const QImage after = ScreenPicture::of(widget);
    check(what + QStringLiteral(" on the screen"), QStringLiteral("two pictures differ"),
          before == after ? QStringLiteral("alike") : QStringLiteral("they do"),
          !before.isNull() && before != after);
}

void TourGuide::photograph(const QString& page, const QString& name)
{
    showPage(page);
    runLive(PictureTime);
    photographWidget(window(), QStringLiteral("page \"%1\"").arg(page),
                     name.isEmpty() ? page : name);
}

void TourGuide::photographWidget(QWidget* widget, const QString& what, const QString& name)
{
    const QString target = file(name + QStringLiteral(".png"));
    const QImage picture = ScreenPicture::of(widget);
    const bool isEmpty = ScreenPicture::isEmpty(picture);
    const bool isSaved = picture.save(target, "PNG");
    check(QStringLiteral("picture of the %1").arg(what), QStringLiteral("written, not empty"),
          QFileInfo(target).fileName() + (isEmpty ? QStringLiteral(", empty") : QString()),
          isSaved && !isEmpty);
}
