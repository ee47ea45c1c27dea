#ifndef TOUR_H
#define TOUR_H

#include "Workbench.h"

#include <QString>
#include <QStringList>

#include <functional>

class QWidget;
class ValueOverTimeGraph;

/// One scripted commissioning session: drives the workbench's widgets as a user would, on the
/// module's virtual clock, and compares what they show with what the simulated axes did. Writes one
/// picture per page and report.txt with one line per step.
class Tour
{
public:
    /// \param folder made when it is missing; files in it are overwritten
    Tour(Workbench& bench, const QString& folder);

    /// True only if every step held and every file could be written.
    bool run();

    /// Connects by the first panel and lets the shown values come in.
    static void settle(Workbench& bench);

private:
    static constexpr int Step = 5;     // ms of virtual time between looks
    static constexpr int Settle = 400; // ms in which polled values follow

    void connectByEachPanel();
    void setRamp();
    void turnAndStop();
    void jog();
    void move();
    void turnByCurrent();
    void sendRawInstructions();
    void stopByKey();
    void editParameter();
    void pollValues();
    void watchCurves();
    void exportCurves(ValueOverTimeGraph* graph);
    void logCurves(ValueOverTimeGraph* graph);
    void selectCurves(ValueOverTimeGraph* graph);
    void capture();
    void captureByEachTrigger();
    void expectCaptureOnScreen();
    void saveCapture();
    void stopCapture();
    void captureInBadWeather();
    void awaitCapture();
    bool captureIsTrue(QString* seen) const;
    void editRegisters();
    void pickColours();
    void moveMarkers();
    void turnRamp();
    void changeLook();
    void surviveSilence();
    void disconnect();

    /// Lets the workbench run until the condition holds. False when it does not within the time.
    bool wait(int milliseconds, const std::function<bool()>& condition);
    void pass(int milliseconds);
    /// Lets `count` ticks of each of these trace controllers, which run in real time, come one Step
    /// of virtual time apart. False when one of them does not come.
    bool passTicks(int count, const QList<const QWidget*>& controllers);
    void check(const QString& done, const QString& expected, const QString& seen, bool ok);
    /// Waits until the value is within the tolerance, and reports it.
    void expectNumber(const QString& done, const std::function<double()>& value, double expected,
                      double tolerance, int within);
    void expectText(const QString& done, const std::function<QString()>& text,
                    const QString& expected, int within);
    /// Lets the workbench run at the speed of the real clock, as a user sees it.
    void runLive(int milliseconds);
    void photograph(const QString& page, const QString& name = QString());
    void photographWidget(QWidget* widget, const QString& what, const QString& name);
    /// Two pictures of the widget, some frames apart, have to differ.
    void expectMotion(const QWidget* widget, const QString& what);
    void expectCurvesAt(ValueOverTimeGraph* graph);
    bool writeReport() const;

    /// Ends the program when there is no such widget.
    template <class T>
    T* find(const QString& name, const QWidget* below = nullptr) const
    {
        T* found = (below ? below : &m_bench)->findChild<T*>(name);
        if (!found)
            qFatal("the workbench has no %s", qPrintable(name));
        return found;
    }

    Workbench& m_bench;
    QString m_folder;
    QStringList m_lines;
    int m_failures = 0;
};

#endif
