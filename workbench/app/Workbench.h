#ifndef WORKBENCH_H
#define WORKBENCH_H

#include "Every.h"
#include "HostClock.h"
#include "Journal.h"
#include "ModuleLink.h"
#include "PageContext.h"
#include "SimulatedWire.h"
#include "Simulator.h"
#include "StopGuard.h"
#include "WorkbenchOptions.h"

#include <QElapsedTimer>
#include <QMainWindow>
#include <QTimer>

#include <memory>

class MainAppStyle;
class Page;
class PageList;
class QCheckBox;
class QLabel;
class QProgressBar;
class QPushButton;
class QStackedWidget;

/// The reference host: owns the link, routes every answer to the pages, shows whether the module
/// answers, and stops the axes whatever page, popup or dialog is open.
class Workbench : public QMainWindow
{
    Q_OBJECT
public:
    explicit Workbench(const WorkbenchOptions& options);
    ~Workbench() override;

    static QStringList pageNames();
    /// False when there is no such page.
    bool showPage(const QString& name);

    /// Lets the module run along with real time.
    void startClock();
    /// Moves module and workbench on by virtual time.
    void advance(int milliseconds);

    /// Opens the link that was used last.
    void connectLast();

    ModuleLink& link() { return m_link; }
    const Simulator& simulator() const { return m_simulator; }
    /// What the pages are made with.
    PageContext context();
    /// Virtual time, which began when the workbench did.
    HostClock& clock() { return m_clock; }
    /// Switches between the dark blue look and the desktop's own, and remembers it.
    void setTheme(bool on);
    /// The text of the strip that tells whether the module answers.
    QString linkText() const;

public Q_SLOTS:
    /// Stops every axis at once, before everything that waits, and gives up what the pages have
    /// under way: nothing of it moves an axis afterwards.
    void stopAxes();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void advanceSlice(int milliseconds);
    void makePages();
    QWidget* makeStrip();
    void makeLook(const WorkbenchOptions& options);
    void applyTheme(bool on);
    void fitToFont(const QString& sizeSheet);
    void restoreWindow(const QString& page);
    Page* currentPage() const;
    Page* connectionPage() const;
    void ask(const Command& request);
    void giveUp();
    void takeOpened(const QString& link, char address);
    void takeClosed();
    void takeLost(const QString& reason);
    void takeAnswer(const Command& request, const Command& reply);
    void takeFailure(const Command& request, const QString& reason);
    void showLinkState();
    void tell(const QString& text);
    void showProgress(int done, int total);

    const bool m_unattended;
    HostClock m_clock;
    SimulatedWire m_wire;
    const Simulator m_simulator;
    ModuleLink m_link;
    const Journal m_journal{m_link};
    QString m_linkName;
    QList<Page*> m_pages;

    PageList* m_list;
    QStackedWidget* m_stack;
    QLabel* m_strip;
    QPushButton* m_connect;
    QLabel* m_notice;
    QProgressBar* m_progress;
    QLabel* m_rate;
    QTimer m_timer;
    QElapsedTimer m_realTime;
    int m_untilFrame = 0;
    qint64 m_lastPoll = 0; // ms, of the clock
    Every m_second{1000};
    int m_answersBefore = 0;
    QCheckBox* m_theme;
    QString m_extraSheet; // of the look, for the font size
    int m_em = 12;        // px
    std::unique_ptr<MainAppStyle> m_style;
    QVector<Command> m_withheld; // reads of values that are being edited
    StopGuard m_guard;
};

#endif
