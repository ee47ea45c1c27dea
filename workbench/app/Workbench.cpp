#include "Workbench.h"

#include "AppSettings.h"
#include "CommandText.h"
#include "Instruction.h"
#include "MainAppStyle.h"
#include "Page.h"
#include "PageList.h"
#include "Pages.h"
#include "SharedConstants.h"
#include "ValueKey.h"
#include "WheelFocus.h"

#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QFile>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QRegularExpression>
#include <QScreen>
#include <QStackedWidget>
#include <QStatusBar>
#include <QToolButton>

#include <algorithm>
#include <utility>

namespace
{

constexpr int ClockInterval = 5;  // ms
constexpr int LongestStep = 100;  // ms; after a pause the module does not race to catch up
constexpr int FrameInterval = 50; // ms
constexpr int MessageTime = 8000; // ms
const QString geometryKey = QStringLiteral("Workbench/Geometry");
const QString themeKey = QStringLiteral("Workbench/Theme");
const QString pageKey = QStringLiteral("Workbench/Page");

/// What the workbench adds to a look. Its lengths in em become pixels here, for of the parts of a
/// widget, such as an arrow, Qt takes them by the application's font, not the widget's.
QString extraSheet(bool isDark, int em)
{
    QFile file(isDark ? QStringLiteral(":/Workbench/DarkBlue")
                      : QStringLiteral(":/Workbench/Plain"));
    if (!file.open(QIODevice::ReadOnly))
        return QString();
    QString sheet = QString::fromUtf8(file.readAll());
    static const QRegularExpression length(QStringLiteral("([0-9.]+)em"));
    for (auto match = length.match(sheet); match.hasMatch(); match = length.match(sheet))
        sheet.replace(match.capturedStart(), match.capturedLength(),
                      QStringLiteral("%1px").arg(qRound(match.captured(1).toDouble() * em)));
    return sheet;
}

} // namespace

Workbench::Workbench(const WorkbenchOptions& options)
    : m_unattended(options.unattended())
    , m_wire(m_clock, options.weather)
    , m_simulator{m_wire.module(), m_wire.link()}
    , m_link(m_clock, m_wire, SimulatedWire::profile())
    , m_list(new PageList)
    , m_stack(new QStackedWidget)
    , m_strip(new QLabel)
    , m_connect(new QPushButton)
    , m_notice(new QLabel)
    , m_progress(new QProgressBar)
    , m_rate(new QLabel)
    , m_theme(new QCheckBox(tr("Dark blue")))
    , m_style(std::make_unique<MainAppStyle>(this))
    , m_guard(this)
{
    m_wire.link().setSilent(options.silent);
    setWindowTitle(tr("AXR workbench"));
    setWindowIcon(QIcon(QStringLiteral(":/Workbench/Icon")));

    makePages();
    m_notice->setObjectName(QStringLiteral("lblNeedsLink"));
    m_notice->setStyleSheet(QStringLiteral(
        "QLabel { background: #fff8d8; color: black; border: 1px solid #806000; padding: 16px }"));

    auto* row = new QGridLayout;
    row->addWidget(m_list, 0, 0);
    row->addWidget(m_stack, 0, 1);
    row->addWidget(m_notice, 0, 1, Qt::AlignCenter); // over the page
    row->setColumnStretch(1, 1);
    auto* centre = new QWidget;
    auto* column = new QVBoxLayout(centre);
    column->setContentsMargins(4, 4, 4, 4);
    column->addWidget(makeStrip());
    column->addLayout(row, 1);
    setCentralWidget(centre);
    m_progress->setObjectName(QStringLiteral("prgFetch"));
    m_progress->setFixedWidth(180);
    m_progress->hide();
    statusBar()->addPermanentWidget(m_progress);
    statusBar()->addPermanentWidget(m_rate);

    connect(m_list, &PageList::turned, this, [this](int page) {
        m_stack->setCurrentIndex(page);
        showLinkState();
    });
    connect(&m_link, &ModuleLink::stateChanged, this, &Workbench::showLinkState);
    connect(&m_link, &ModuleLink::answered, this, &Workbench::takeAnswer);
    connect(&m_link, &ModuleLink::gaveUp, this, &Workbench::takeFailure);
    connect(&m_wire, &Wire::lost, this, &Workbench::takeLost); // the link has closed by then
    connect(&m_timer, &QTimer::timeout, this,
            [this] { advance(static_cast<int>(qMin<qint64>(m_realTime.restart(), LongestStep))); });
    connect(&m_guard, &StopGuard::stop, this, &Workbench::stopAxes);
    WheelFocus::guard(this);
    makeLook(options);
    restoreWindow(options.page);
    showLinkState();
    if (options.connect)
        connectLast();
}

Workbench::~Workbench()
{
    m_style.reset(); // gives the application its look back while the window is whole
    // The pages go while the link still carries their last words, such as the stop of a jog; what
    // those bring forth no longer concerns the window.
    disconnect(&m_link, nullptr, this, nullptr);
    disconnect(&m_wire, nullptr, this, nullptr);
    for (const Page* page : qAsConst(m_pages))
        page->disconnect(this);
    delete takeCentralWidget();
    m_link.finishCommands();
}

QStringList Workbench::pageNames()
{
    QStringList names;
    for (const PageEntry& entry : pages())
        names << QString::fromLatin1(entry.name);
    return names;
}

void Workbench::makePages()
{
    for (const PageEntry& entry : pages()) {
        Page* page = makePage(entry, context());
        m_pages << page;
        m_list->add(page->windowTitle());
        m_stack->addWidget(page);
        connect(page, &Page::command, &m_link, &ModuleLink::command);
        connect(page, &Page::read, this, &Workbench::ask);
        connect(page, &Page::opened, this, &Workbench::takeOpened);
        connect(page, &Page::closed, this, &Workbench::takeClosed);
        connect(page, &Page::message, this, &Workbench::tell);
        connect(page, &Page::progressed, this, &Workbench::showProgress);
    }
    m_list->turnTo(0);
}

PageContext Workbench::context()
{
    return {m_link, m_journal, &m_simulator, [this] { return m_clock.now(); }};
}

/// The page that opens links; the connection page, for there is one.
Page* Workbench::connectionPage() const
{
    const auto opens = [](const Page* page) { return !page->lastLink().isEmpty(); };
    return *std::find_if(m_pages.begin(), m_pages.end(), opens);
}

void Workbench::connectLast() { connectionPage()->connectLast(); }

QWidget* Workbench::makeStrip()
{
    m_strip->setObjectName(QStringLiteral("lblLinkState"));
    m_strip->setAlignment(Qt::AlignCenter);
    m_strip->setMargin(4);
    m_connect->setObjectName(QStringLiteral("btnConnectLast"));
    m_connect->setToolTip(tr("Connects the link that was used last"));
    connect(m_connect, &QPushButton::clicked, this, &Workbench::connectLast);
    auto* strip = new QWidget;
    auto* row = new QHBoxLayout(strip);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(m_strip, 1);
    row->addWidget(m_connect);
    return strip;
}

void Workbench::makeLook(const WorkbenchOptions& options)
{
    m_theme->setObjectName(QStringLiteral("cbTheme"));
    m_theme->setToolTip(tr("Switches between the dark blue look and the desktop's own"));
    connect(m_style.get(), &MainAppStyle::fontSizeChanged, this, &Workbench::fitToFont);
    const bool on = options.theme.value_or(AppSettings().value(themeKey, false).toBool());
    m_theme->setChecked(on);
    applyTheme(on);
    connect(m_theme, &QCheckBox::toggled, this, &Workbench::setTheme);
    QWidget* sizes = m_style->setFontSize(this);
    sizes->setToolTip(tr("Font size"));
    statusBar()->addPermanentWidget(m_theme);
    statusBar()->addPermanentWidget(sizes);
    for (QToolButton* button : sizes->findChildren<QToolButton*>()) {
        if (button->styleSheet().contains(QStringLiteral(" %1px").arg(options.fontSize)))
            button->click();
    }
}

void Workbench::setTheme(bool on)
{
    m_theme->setChecked(on);
    applyTheme(on);
    AppSettings().setValue(themeKey, on);
}

void Workbench::applyTheme(bool on)
{
    // The symbol of a checked button has to stand out from the windows of its look.
    AppSettings().setValue(QLatin1String(ColorMapCheckedButtonKey),
                           QString::fromLatin1(on ? "#c7d441" : "#008080"));
    m_extraSheet = extraSheet(on, m_em);
    m_style->setMainStyle(on, m_extraSheet);
}

/// The size is in the sheet that the window has got.
void Workbench::fitToFont(const QString& sizeSheet)
{
    static const QRegularExpression size(QStringLiteral("font-size: ([0-9]+)px"));
    const QRegularExpressionMatch match = size.match(sizeSheet);
    if (!match.hasMatch())
        return;
    m_em = match.captured(1).toInt();
    const QString extra = extraSheet(m_theme->isChecked(), m_em);
    if (extra != m_extraSheet) {
        QString sheet = qApp->styleSheet(); // of which it is the end
        sheet.chop(m_extraSheet.size());
        m_extraSheet = extra;
        qApp->setStyleSheet(sheet + extra);
    }
    m_list->fit();
}

void Workbench::restoreWindow(const QString& page)
{
    constexpr QSize frame(16, 48); // of a window manager
    resize(QSize(1290, 760).boundedTo(QGuiApplication::primaryScreen()->availableSize() - frame));
    QString wanted = page;
    if (!m_unattended) {
        AppSettings settings;
        restoreGeometry(settings.value(geometryKey, QByteArray()).toByteArray());
        if (wanted.isEmpty())
            wanted = settings.value(pageKey, QString()).toString();
    }
    showPage(wanted);
}

void Workbench::closeEvent(QCloseEvent* event)
{
    if (!m_unattended) {
        AppSettings settings;
        settings.setValue(geometryKey, saveGeometry()); // of the window as it is still shown
        settings.setValue(pageKey, currentPage()->objectName());
    }
    hide(); // a jog button that is held stops its axis now
    giveUp();
    m_link.finishCommands();
    QMainWindow::closeEvent(event);
}

bool Workbench::showPage(const QString& name)
{
    for (int i = 0; i < m_pages.size(); ++i) {
        if (m_pages.at(i)->objectName() == name) {
            m_list->turnTo(i);
            return true;
        }
    }
    return false;
}

Page* Workbench::currentPage() const { return m_pages.at(qMax(0, m_stack->currentIndex())); }

void Workbench::stopAxes()
{
    m_link.stopAll();
    giveUp();
    showLinkState();
}

void Workbench::giveUp()
{
    for (Page* page : qAsConst(m_pages))
        page->giveUp();
}

/// An answer would overwrite an entry: what is being edited is asked for afterwards.
void Workbench::ask(const Command& request)
{
    const bool isEdited = std::any_of(m_pages.begin(), m_pages.end(), [&request](const Page* page) {
        return page->isEditing(request);
    });
    const auto isWaiting = [this, &request] {
        return std::any_of(m_withheld.begin(), m_withheld.end(),
                           [&request](const Command& each) { return isSameValue(each, request); });
    };
    if (!isEdited)
        m_link.read(request);
    else if (!isWaiting())
        m_withheld << request;
}

void Workbench::startClock()
{
    m_realTime.start();
    m_timer.start(ClockInterval);
}

void Workbench::advance(int milliseconds)
{
    // In slices, so that the polling is the same however much time is handed in at once.
    for (; milliseconds > ClockInterval; milliseconds -= ClockInterval)
        advanceSlice(ClockInterval);
    advanceSlice(milliseconds);
}

void Workbench::advanceSlice(int milliseconds)
{
    m_clock.advance(milliseconds);
    m_untilFrame -= milliseconds;
    if (m_untilFrame > 0)
        return;
    m_untilFrame = FrameInterval;
    for (const Command& request : std::exchange(m_withheld, {}))
        ask(request);
    if (m_link.hasRoom(m_lastPoll)) {
        m_lastPoll = m_clock.now();
        currentPage()->poll();
    }
    for (Page* page : qAsConst(m_pages))
        page->frame(m_clock.now());
    showLinkState();
    if (const int second = m_second.passed(m_clock.now())) {
        m_rate->setText(
            tr("%1 answers/s").arg(qRound((m_link.answers() - m_answersBefore) * 1000.0 / second)));
        m_answersBefore = m_link.answers();
    }
}

void Workbench::takeOpened(const QString& link, char address)
{
    m_linkName = link;
    for (Page* page : qAsConst(m_pages))
        page->setAddress(address);
    m_link.open(address);
    if (!m_link.isOpen())
        return; // takeLost() has told why
    for (Page* page : qAsConst(m_pages))
        page->refresh();
    tell(tr("Connected to %1").arg(link));
}

void Workbench::takeClosed()
{
    giveUp();
    m_withheld.clear();
    m_link.finishCommands();
    const bool isStopLost = m_link.isStopping();
    m_link.close();
    tell(isStopLost ? tr("Disconnected. The module has NOT acknowledged the stop.")
                    : tr("Disconnected"));
}

void Workbench::takeLost(const QString& reason)
{
    giveUp();
    m_withheld.clear();
    for (Page* page : qAsConst(m_pages))
        page->linkLost();
    tell(tr("The link was lost: %1. An axis that turns was NOT stopped.").arg(reason));
}

void Workbench::takeAnswer(const Command& request, const Command& reply)
{
    for (Page* page : qAsConst(m_pages))
        page->take(reply);
    if (u8(reply.getStatus()) != StatusOk)
        tell(tr("The module refused %1: %2").arg(requestText(request), replyText(reply)));
    // A written parameter is read back, so that what is shown is what the module took.
    if (carries(request.getCommand(), Instruction::SAP))
        ask(Command(request.getAddress(), toByte(Instruction::GAP), request.getType(),
                    request.getMotorBank(), 0));
}

void Workbench::takeFailure(const Command& request, const QString& reason)
{
    tell(tr("%1: %2").arg(requestText(request), reason));
}

QString Workbench::linkText() const { return m_strip->text(); }

void Workbench::showLinkState()
{
    QString text = tr("Not connected");
    const char* colours = "lightgray; color: black";
    if (m_link.state() == ModuleLink::State::Silent) {
        text = tr("%1: the module has not answered for %2 s. What is shown is old.")
                   .arg(m_linkName)
                   .arg(m_link.silentFor() / 1000.0, 0, 'f', 1);
        colours = "crimson; color: white";
    } else if (m_link.isOpen()) {
        text = tr("Connected: %1").arg(m_linkName);
        colours = "#cfe8cf; color: black";
    }
    if (m_link.isStopping())
        text += tr("  -  STOP is not acknowledged yet");
    if (m_strip->text() != text)
        m_strip->setText(text);
    // By sheet, for under the dark blue look a palette has no say.
    const QString sheet =
        QStringLiteral("QLabel { background: %1 }").arg(QString::fromLatin1(colours));
    if (m_strip->styleSheet() != sheet)
        m_strip->setStyleSheet(sheet);
    for (Page* page : qAsConst(m_pages))
        page->setEnabled(m_link.isOpen() || page->worksAlone());
    if (!m_link.isOpen())
        m_connect->setText(tr("&Connect (%1)").arg(connectionPage()->lastLink()));
    else if (m_connect->hasFocus())
        m_list->setFocus(); // where the next Space does nothing
    m_connect->setVisible(!m_link.isOpen());
    m_notice->setText(tr("\"%1\" needs a link to a module.\n\nConnect above (Alt+C), or choose a "
                         "link on the first page (Ctrl+1).")
                          .arg(currentPage()->windowTitle()));
    m_notice->setVisible(!currentPage()->isEnabled());
}

void Workbench::tell(const QString& text) { statusBar()->showMessage(text, MessageTime); }

void Workbench::showProgress(int done, int total)
{
    m_progress->setVisible(total == 0 || done < total);
    m_progress->setRange(0, total); // 0 to 0 shows that something goes on
    m_progress->setValue(done);
}
