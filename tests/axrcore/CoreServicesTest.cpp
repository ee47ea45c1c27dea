#include "AppSettings.h"
#include "BasicTools.h"
#include "Global.h"
#include "Prefix.h"
#include "SharedConstants.h"
#include "SysInfo.h"
#include "SysInfoObject.h"
#include "TestCase.h"

#include <QComboBox>
#include <QPushButton>
#include <QThread>

#include <cmath>

namespace
{

QPixmap filled(const QColor& colour, int side = 2)
{
    QPixmap pixmap(side, side);
    pixmap.fill(colour);
    return pixmap;
}

QString argb(const QPixmap& pixmap, int x = 0)
{
    return pixmap.toImage().pixelColor(x, 0).name(QColor::HexArgb);
}

} // namespace

class CoreServicesTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    /// Stands first: here both singletons are made, and by another thread.
    void registries()
    {
        std::vector<std::unique_ptr<QThread>> workers;
        for (unsigned int id = 1; id <= 4; ++id) {
            workers.emplace_back(QThread::create([id] {
                SysInfoObject::instance();
                Global::instance()->registerThread(id, "early");
                Global::instance()->registerThread(id, QString::number(id));
                if (id > 1)
                    Global::instance()->unregisterThread(id);
            }));
            workers.back()->start();
        }
        for (const auto& worker : workers)
            worker->wait();
        for (const QObject* one :
             {(QObject*)Global::instance(), (QObject*)SysInfoObject::instance()})
            QCOMPARE(one->thread(), qApp->thread());
        const auto threads = Global::instance()->registeredThreads();
        QCOMPARE(threads.keys(), QList<unsigned int>{1});
        QCOMPARE(threads.value(1).name, QString("1"));
        QVERIFY(qAbs(threads.value(1).started.secsTo(QDateTime::currentDateTime())) < 60);
        Global::instance()->unregisterThread(1);
        QVERIFY(Global::instance()->registeredThreads().isEmpty());

        QObject first;
        first.setObjectName("one");
        Global::instance()->addSelf(&first);
        {
            QObject second;
            second.setObjectName("one");
            Global::instance()->addSelf(&second);
            QCOMPARE(Global::instance()->getSelf("one"), &second);
        }
        Global::instance()->addSelf(nullptr);
        QVERIFY(!Global::instance()->getSelf("one"));

        QFile processor("/proc/cpuinfo");
        QVERIFY(processor.open(QIODevice::ReadOnly));
        const QString vendor = SysInfo::keyCentralProcessorVendorIdentifier();
        QVERIFY(vendor == QSysInfo::currentCpuArchitecture() ||
                processor.readAll().contains(": " + vendor.toUtf8() + "\n"));
    }

    void numbers()
    {
        QCOMPARE(BasicTools::intInsertDot(1234567.0, 0), QString("1,234,567"));
        QCOMPARE(BasicTools::intInsertDot(-123.0, 0), QString("-123"));
        QCOMPARE(BasicTools::intInsertDot(-1234.5, 2), QString("-1,234.50"));
        QCOMPARE(BasicTools::intInsertDot(-2147483647.0, 0), QString("-2,147,483,647"));
        QCOMPARE(BasicTools::intInsertDot(-0.0001, 2), QString("0.00"));
        QCOMPARE(BasicTools::intInsertDot(12.6, -3), QString("13"));
        QCOMPARE(BasicTools::intInsertDot(HUGE_VAL, 1), QString("inf"));
        QCOMPARE(BasicTools::iToInt(12345, 4, "", '0'), QString("12345"));
        QCOMPARE(BasicTools::iToInt(7, 3, "n%1 ", ' '), QString("n%1   7"));
        for (const QString& name : {QString("red"), QString("12:34"), QString(), QString("%1")})
            QCOMPARE(Prefix::x(Prefix::add(name, 7)), name);
        QVERIFY(Prefix::add("z", 99) < Prefix::add("a", 100));
        QCOMPARE(Prefix::add("a", -1), Prefix::add("a", 0));
        for (const char* plain : {"plain", "0000000007;x", "00000000x7:x", "0000000007"})
            QCOMPARE(Prefix::x(plain), QString(plain));
    }

    void axisLimits()
    {
        const int low = std::numeric_limits<int>::min();
        const int high = std::numeric_limits<int>::max();
        const int rows[][4] = {{-100, 100, -100, 100},
                               {0, 57, 0, 60},
                               {50, 50, 49, 51},
                               {57, 0, 0, 60},
                               {3, 23, 0, 25},
                               {0, 101, 0, 120},
                               {0, 1000001, 0, 1200000},
                               {0, 10, 0, 10},
                               {low, high, low, high},
                               {high, high, high - 1, high},
                               {-1234, -1001, -1250, -1000}};
        for (const auto& [from, to, niceFrom, niceTo] : rows) {
            int min = from;
            int max = to;
            for (int pass = 0; pass < 2; ++pass) {
                BasicTools::adjustLinearAxis(min, max);
                QCOMPARE(QPoint(min, max), QPoint(niceFrom, niceTo));
            }
        }
    }

    void symbolColour()
    {
        const QColor none;
        QPixmap symbol = filled(QColor(255, 0, 0, 128));
        symbol.setDevicePixelRatio(2);
        BasicTools::setSymbolColor(&symbol, Qt::blue, true, none);
        QCOMPARE(argb(symbol), QString("#800000ff"));
        QCOMPARE(symbol.devicePixelRatio(), 2.0);
        BasicTools::setSymbolColor(&symbol, none, true, none); // changes nothing
        BasicTools::setSymbolColor(nullptr, Qt::red, true, none);
        QCOMPARE(argb(symbol), QString("#800000ff"));
        BasicTools::setSymbolColor(&symbol, Qt::blue, false, Qt::black);
        QCOMPARE(argb(symbol), QString("#ff000080"));
        const QPair<QColor, QString> shapes[] = {
            {Qt::black, "#ff00ff00"}, {QColor(85, 85, 85), "#aa00ff00"}, {Qt::white, "#00000000"}};
        for (const auto& shape : shapes) {
            QPixmap opaque = filled(shape.first);
            BasicTools::setSymbolColor(&opaque, Qt::green, false, none);
            QCOMPARE(argb(opaque, 1), shape.second);
        }

        QIcon icon(filled(Qt::black, 16));
        icon.addPixmap(filled(Qt::black, 24), QIcon::Normal, QIcon::On);
        QPushButton button(icon, "");
        BasicTools::setButtonIconsColor(&button, Qt::red, Qt::gray, Qt::green);
        const auto colour = [&](QIcon::Mode mode, QIcon::State state) {
            return argb(button.icon().pixmap(16, mode, state), 8);
        };
        for (const auto mode : {QIcon::Normal, QIcon::Active, QIcon::Selected}) {
            QCOMPARE(colour(mode, QIcon::Off), QString("#ffff0000"));
            QCOMPARE(colour(mode, QIcon::On), QString("#ff00ff00"));
        }
        for (const auto state : {QIcon::Off, QIcon::On})
            QCOMPARE(colour(QIcon::Disabled, state), QColor(Qt::gray).name(QColor::HexArgb));
        QVERIFY(button.icon().availableSizes(QIcon::Normal, QIcon::On).contains({24, 24}));

        // A symbol that scales stays sharp when the button's icons grow.
        button.setIcon(QIcon(":/MainButtons1/Up"));
        BasicTools::setButtonIconsColor(&button, Qt::red, Qt::gray, Qt::green);
        QCOMPARE(button.icon().availableSizes(), QList<QSize>({{128, 128}}));
        button.setIcon(QIcon());
        BasicTools::setButtonIconsColor(&button, Qt::red, Qt::gray, Qt::green);
        BasicTools::setButtonIconsColor(nullptr, Qt::red, Qt::gray, Qt::green);
        QVERIFY(button.icon().isNull());
    }

    void mapsLeaveNeighboursAlone()
    {
        using Map = QMap<QString, QMap<QString, QVariant>>;
        const Map map{{"1-6-3-0", {{"ba", QByteArray("\0x", 2)}, {"col", QColor(Qt::red)}}}};
        AppSettings().setValue("graph/checkedId", 3);
        AppSettings().saveParaMapVariant(map, "graph");
        QCOMPARE(AppSettings().getParaMapVariant("graph"), map);
        AppSettings().saveParaMapVariant(Map(), "graph");
        AppSettings().saveParaMapVariant(map, "");
        QCOMPARE(AppSettings().allKeys(), QStringList("graph/checkedId"));
        QCOMPARE(AppSettings().value("graph/checkedId", 0).toInt(), 3);

        QVERIFY(AppSettings().getColorCustomMap("Default").isEmpty());
        AppSettings().saveColorCustomMap({{"a", QColor(Qt::red)}}, "Default");
        AppSettings().saveColorCustomMap({{"b", QColor(Qt::blue)}}, "Default");
        QCOMPARE(AppSettings().getColorCustomMap("Default"),
                 (QVariantMap{{"b", QColor(Qt::blue)}}));
    }

    /// Made once and again; the second time each finds its text.
    void comboBoxKeys()
    {
        for (const bool isAgain : {false, true}) {
            QWidget window, other, twin;
            window.setObjectName("window");
            other.setObjectName("other");
            twin.setObjectName("window");
            QWidget page(&window), firstPage(&window), secondPage(&window), panel(&window);
            for (QWidget* named : {&firstPage, &secondPage})
                named->setObjectName("page");
            panel.setObjectName("a/b");
            // made in another order than what they are in
            QComboBox inTwin(&twin), inWindow(&window), second(&secondPage), first(&firstPage),
                inPage(&page), unnamed(&window), unnamedToo(&window), slash(&panel), free, freeToo,
                alone(&other);
            for (QComboBox* box : {&inTwin, &inWindow, &inPage})
                box->setObjectName("box");
            secondPage.raise();
            firstPage.raise(); // the order of siblings is not that of their making
            const QList<QPair<QComboBox*, QString>> keys = {
                {&inTwin, "#3/window/box"},
                {&inPage, "window/box"},
                {&inWindow, "#2/window/box"},
                {&second, "window/page#2/QComboBox"},
                {&first, "window/page/QComboBox"},
                {&unnamedToo, "window/QComboBox#2"},
                {&unnamed, "window/QComboBox"},
                {&slash, QString("window/a%1b/QComboBox").arg(SlashReplacement)},
                {&freeToo, "#2/QComboBox"},
                {&free, "QComboBox"},
                {&alone, "other/QComboBox"}};
            for (const auto& each : keys) {
                QCOMPARE(AppSettings().restoreComboBoxCurrentText(each.first),
                         isAgain ? each.second : QString());
                each.first->addItem(each.second);
                AppSettings().saveComboxCurrentText(each.first);
            }
            inTwin.setParent(&window); // beside its namesake
            twin.setObjectName("renamed");
            for (const auto& each : keys) {
                QCOMPARE(AppSettings().restoreComboBoxCurrentText(each.first), each.second);
                QCOMPARE(AppSettings().value("ComboBoxes/" + each.second, QString()).toString(),
                         each.second);
            }
        }
    }

    void positionsStayOnScreen()
    {
        QWidget widget;
        widget.move(10, 10);
        AppSettings().restorePos(&widget, "pos");
        QCOMPARE(widget.pos(), QPoint(10, 10));
        AppSettings().setValue("pos", QPoint(40, 50));
        AppSettings().restorePos(&widget, "pos");
        QCOMPARE(widget.pos(), QPoint(40, 50));
        widget.move(60, 70);
        AppSettings().savePos(&widget, "pos");
        QCOMPARE(AppSettings().value("pos", 0), QVariant(QPoint(60, 70)));
        for (const QVariant& bad : {QVariant(QPoint(-9000, 50)), QVariant("nonsense")}) {
            AppSettings().setValue("pos", bad);
            AppSettings().restorePos(&widget, "pos");
            QCOMPARE(widget.pos(), QPoint(60, 70));
        }
    }
};

AXR_TEST_MAIN(CoreServicesTest)
#include "CoreServicesTest.moc"
