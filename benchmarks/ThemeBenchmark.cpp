// What the dark blue look costs on a window with every panel of the library. A switch stands beside
// the same base style, palette and sheets set bare, and beside the application's sheet alone, which
// leaves out that a change of the base style polishes every widget once more. A click on a font
// size, with its tool bars and icons, stands beside the same size sheet set bare. The aim is at
// most 1.5. Those that are compared take turns from the same state, and the best of each counts.

#include "CANConnection.h"
#include "ColorPicker.h"
#include "ColorTriangle.h"
#include "ColorViewer.h"
#include "Connection.h"
#include "CurrentControl.h"
#include "EthernetConnection.h"
#include "MainAppStyle.h"
#include "PositionControl.h"
#include "SerialConnection.h"
#include "SimpleDrawer.h"
#include "SimpleScaledDrawer.h"
#include "SpinBox.h"
#include "TraceController.h"
#include "ValueOverTimeGraph.h"
#include "VelocityControl.h"
#include "VelocityRampControl.h"
#include "WDirectMode.h"
#include "WRamDebug.h"
#include "WTraceController.h"
#include "ZigBeeNode.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QGridLayout>
#include <QLoggingCategory>
#include <QMainWindow>
#include <QSettings>
#include <QTemporaryDir>
#include <QToolBar>
#include <QToolButton>

#include <algorithm>
#include <cstdio>
#include <functional>

namespace
{

constexpr int Rounds = 15;
constexpr int Columns = 4;

/// In ms, until the window shows it.
double timed(const std::function<void()>& act)
{
    QElapsedTimer timer;
    timer.start();
    act();
    QApplication::processEvents();
    return double(timer.nsecsElapsed()) / 1e6;
}

void keepBest(double& best, double time) { best = best == 0 ? time : std::min(best, time); }

void print(const char* what, double bare, double whole)
{
    std::printf("%-16s bare %8.2f ms   whole %8.2f ms   ratio %.2f (aim 1.5)\n", what, bare, whole,
                whole / bare);
}

QIcon icon()
{
    QPixmap pixmap(24, 24);
    pixmap.fill(Qt::black);
    return QIcon(pixmap);
}

void fill(QMainWindow& window)
{
    const QWidgetList panels = {new VelocityControl,
                                new CurrentControl,
                                new PositionControl,
                                new VelocityRampControl,
                                new WDirectMode,
                                new Connection,
                                new SerialConnection,
                                new CANConnection,
                                new EthernetConnection,
                                new ZigBeeNode,
                                new TraceController,
                                new WTraceController,
                                new ValueOverTimeGraph(nullptr),
                                new SimpleDrawer,
                                new SimpleScaledDrawer,
                                new WRamDebug,
                                new ColorPicker,
                                new ColorTriangle,
                                new ColorViewer,
                                new SpinBox};
    auto* centre = new QWidget;
    auto* grid = new QGridLayout(centre);
    for (int i = 0; i < panels.size(); ++i)
        grid->addWidget(panels.at(i), i / Columns, i % Columns);
    window.setCentralWidget(centre);
    QToolBar* bar = window.addToolBar(QStringLiteral("bar"));
    for (int i = 0; i < 8; ++i)
        bar->addAction(icon(), QString::number(i));
}

} // namespace

int main(int argc, char** argv)
{
    const QTemporaryDir settings;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings.path());
    QApplication application(argc, argv);
    QLoggingCategory::setFilterRules(QStringLiteral("axr.*=false"));
    QMainWindow window;
    fill(window);
    MainAppStyle style(&window);
    window.show();

    style.setMainStyle(true);
    const QString sheet = application.styleSheet();
    const QString windowSheet = window.styleSheet();
    const QPalette palette = QApplication::palette();
    const auto off = [&] {
        style.setMainStyle(false);
        QApplication::processEvents();
    };
    double bare = 0;
    double sheetAlone = 0;
    double whole = 0;
    for (int round = 0; round < Rounds; ++round) {
        off();
        keepBest(sheetAlone, timed([&] { application.setStyleSheet(sheet); }));
        off();
        keepBest(bare, timed([&] {
                     window.setStyleSheet(windowSheet);
                     QApplication::setStyle(QStringLiteral("cleanlooks"));
                     QApplication::setPalette(palette);
                     application.setStyleSheet(sheet);
                 }));
        off();
        keepBest(whole, timed([&] { style.setMainStyle(true); }));
    }
    print("switch on", bare, whole);
    print("  sheet alone", sheetAlone, whole);

    const auto sizes =
        style.setFontSize(&window)->findChildren<QToolButton*>(QStringLiteral("sizeBtn"));
    const QString rest = window.styleSheet().remove(sizes.at(1)->styleSheet());
    bare = 0;
    whole = 0;
    for (int round = 0; round < Rounds; ++round) {
        for (const int id : {3, 1}) {
            QToolButton* size = sizes.at(id);
            keepBest(whole, timed([&] { size->click(); }));
            QApplication::processEvents();
            const QString other = rest + sizes.at(4 - id)->styleSheet();
            keepBest(bare, timed([&] { window.setStyleSheet(other); }));
            window.setStyleSheet(rest + size->styleSheet());
            QApplication::processEvents();
        }
    }
    print("font size click", bare, whole);
    return 0;
}
