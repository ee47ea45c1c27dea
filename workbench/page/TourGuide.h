#ifndef TOURGUIDE_H
#define TOURGUIDE_H

#include "PageContext.h"

#include <QStringList>
#include <QWidget>

/// What the steps of a tour are made of: lets the workbench run on the module's virtual clock,
/// compares what is shown with what is expected, photographs, and writes down what became of each
/// step.
class TourGuide
{
public:
    static constexpr int Step = 5;     // ms of virtual time between looks
    static constexpr int Settle = 400; // ms in which polled values follow

    /// What the guide leads through.
    struct Stage {
        QWidget* window;
        PageContext context;
        std::function<void(int milliseconds)> advance;
        std::function<bool(const QString& name)> showPage;
    };

    /// \param folder of the pictures and files; exists
    TourGuide(Stage stage, const QString& folder);

    ModuleLink& link() const { return m_stage.context.link; }
    const Simulator& simulator() const { return *m_stage.context.simulator; }
    QWidget* window() const { return m_stage.window; }
    /// The text of the strip that tells of the link.
    QString linkText() const;
    qint64 time() const { return m_stage.context.clock(); }
    QString file(const QString& name) const { return m_folder + QLatin1Char('/') + name; }
    /// Ends the program when there is no page of that name.
    QWidget* showPage(const QString& name) const;
    QWidget* page(const QString& name) const { return find<QWidget>(window(), name.toLatin1()); }
    /// The widget of this class and object name below another one, such as a page. Ends the program
    /// when there is none.
    template <class T>
    static T* find(const QWidget* below, const char* name)
    {
        T* found = below->findChild<T*>(QLatin1String(name));
        if (!found)
            qFatal("%s has no %s", qPrintable(below->objectName()), name);
        return found;
    }

    /// Lets the workbench and the events of its window run on.
    void advance(int milliseconds);
    /// Lets the workbench run until the condition holds. False when it does not within the time.
    bool wait(int milliseconds, const std::function<bool()>& condition);
    void pass(int milliseconds);
    /// Lets the workbench run at the speed of the real clock, as a user sees it.
    void runLive(int milliseconds);
    /// Lets `count` ticks of each of these trace controllers, which run in real time, come one Step
    /// of virtual time apart. False when one of them does not come.
    bool passTicks(int count, const QList<QWidget*>& controllers);
    /// Turns an axis, at once and by no page's doing; 0 stops it and waits until it stands.
    void turn(int axis, int velocity);

    void check(const QString& done, const QString& expected, const QString& seen, bool ok);
    /// Waits until the value is within the tolerance, and reports it.
    void expectNumber(const QString& done, const std::function<double()>& value, double expected,
                      double tolerance, int within);
    void expectText(const QString& done, const std::function<QString()>& text,
                    const QString& expected, int within);
    /// \param name of the picture; empty: the page's
    void photograph(const QString& page, const QString& name = QString());
    void photographWidget(QWidget* widget, const QString& what, const QString& name);
    /// Two pictures of the widget, some frames apart, have to differ.
    void expectMotion(const QWidget* widget, const QString& what);

    /// One line a step.
    const QStringList& lines() const { return m_lines; }
    int failures() const { return m_failures; }

private:
    Stage m_stage;
    QString m_folder;
    QStringList m_lines;
    int m_failures = 0;
};

#endif
