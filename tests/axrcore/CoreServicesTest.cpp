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

class CoreServicesTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void numberText_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<int>("decimals");
        QTest::addColumn<QString>("text");
        QTest::newRow("groups") << 1234567.0 << 0 << "1,234,567";
        QTest::newRow("negative group") << -123.0 << 0 << "-123";
        QTest::newRow("negative groups") << -1234.5 << 2 << "-1,234.50";
        QTest::newRow("int bound") << -2147483647.0 << 0 << "-2,147,483,647";
        QTest::newRow("negative zero") << -0.0001 << 2 << "0.00";
        QTest::newRow("negative decimals") << 12.6 << -3 << "13";
        QTest::newRow("infinite") << HUGE_VAL << 1 << "inf";
    }
    void numberText()
    {
        QFETCH(double, value);
        QFETCH(int, decimals);
        QTEST(BasicTools::intInsertDot(value, decimals), "text");
    }

    void paddedDigits()
    {
        QCOMPARE(BasicTools::iToInt(5, 2, "", '0'), QString("05"));
        QCOMPARE(BasicTools::iToInt(12345, 4, "", '0'), QString("12345"));
        QCOMPARE(BasicTools::iToInt(7, 3, "n%1 ", ' '), QString("n%1   7"));
    }

    void axisLimits_data()
    {
        QTest::addColumn<int>("min");
        QTest::addColumn<int>("max");
        QTest::addColumn<int>("niceMin");
        QTest::addColumn<int>("niceMax");
        const int low = std::numeric_limits<int>::min();
        const int high = std::numeric_limits<int>::max();
        QTest::newRow("default") << -100 << 100 << -100 << 100;
        QTest::newRow("widened") << 0 << 57 << 0 << 60;
        QTest::newRow("equal") << 50 << 50 << 49 << 51;
        QTest::newRow("inverted") << 57 << 0 << 0 << 60;
        QTest::newRow("whole range") << low << high << low << high;
        QTest::newRow("upper end") << high << high << high - 1 << high;
        QTest::newRow("negative") << -1234 << -1001 << -1250 << -1000;
    }
    void axisLimits()
    {
        QFETCH(int, min);
        QFETCH(int, max);
        for (int pass = 0; pass < 2; ++pass) {
            BasicTools::adjustLinearAxis(min, max);
            QTEST(min, "niceMin");
            QTEST(max, "niceMax");
        }
    }

    void symbolColour()
    {
        QPixmap symbol(4, 4);
        symbol.fill(Qt::transparent);
        {
            QPainter painter(&symbol);
            painter.fillRect(0, 0, 2, 4, QColor(255, 0, 0, 128));
        }
        BasicTools::setSymbolColor(&symbol, Qt::blue, true, QColor());
        QCOMPARE(qAlpha(symbol.toImage().pixel(0, 0)), 128);
        QCOMPARE(symbol.toImage().pixelColor(0, 0).blue(), 255);
        QCOMPARE(qAlpha(symbol.toImage().pixel(3, 0)), 0);

        QPixmap opaque(2, 1);
        opaque.fill(Qt::white);
        {
            QPainter painter(&opaque);
            painter.fillRect(0, 0, 1, 1, Qt::black);
        }
        BasicTools::setSymbolColor(&opaque, Qt::green, false, QColor());
        QCOMPARE(opaque.toImage().pixelColor(0, 0), QColor(Qt::green));
        QCOMPARE(qAlpha(opaque.toImage().pixel(1, 0)), 0);

        QPixmap unchanged = symbol;
        BasicTools::setSymbolColor(&unchanged, QColor(), true, QColor());
        QCOMPARE(unchanged.toImage(), symbol.toImage());
        BasicTools::setSymbolColor(nullptr, Qt::red, true, QColor());
    }

    void buttonIconColours()
    {
        QPixmap symbol(16, 16);
        symbol.fill(Qt::black);
        QPushButton button;
        button.setIcon(symbol);
        BasicTools::setButtonIconsColor(&button, Qt::red, Qt::gray, Qt::green);
        const auto colour = [&](QIcon::Mode mode, QIcon::State state) {
            return button.icon().pixmap(16, mode, state).toImage().pixelColor(8, 8);
        };
        QCOMPARE(colour(QIcon::Normal, QIcon::Off), QColor(Qt::red));
        QCOMPARE(colour(QIcon::Normal, QIcon::On), QColor(Qt::green));
        QCOMPARE(colour(QIcon::Disabled, QIcon::Off), QColor(Qt::gray));

        // A symbol that scales stays sharp when the button's icons grow.
        button.setIcon(QIcon(":/MainButtons1/Up"));
        button.setIconSize({8, 8});
        BasicTools::setButtonIconsColor(&button, Qt::red, Qt::gray, Qt::green);
        QCOMPARE(button.icon().actualSize({64, 64}), QSize(64, 64));

        QPushButton bare;
        BasicTools::setButtonIconsColor(&bare, Qt::red, Qt::gray, Qt::green);
        BasicTools::setButtonIconsColor(nullptr, Qt::red, Qt::gray, Qt::green);
        QVERIFY(bare.icon().isNull());
    }

    void prefixKeepsOrderAndName()
    {
        for (const QString& name : {QString("red"), QString("12:34"), QString(), QString("%1")})
            QCOMPARE(Prefix::x(Prefix::add(name, 7)), name);
        QVERIFY(Prefix::add("z", 2) < Prefix::add("a", 10));
        QVERIFY(Prefix::add("z", 99) < Prefix::add("a", 100));
        QCOMPARE(Prefix::x("plain"), QString("plain"));
    }

    void parameterMapsLeaveNeighboursAlone()
    {
        using Map = QMap<QString, QMap<QString, QVariant>>;
        const Map map{{"1-6-3-0", {{"ba", QByteArray("\0x", 2)}, {"col", QColor(Qt::red)}}}};
        AppSettings().setValue("graph/checkedId", 3);
        AppSettings().saveParaMapVariant(map, "graph");
        QCOMPARE(AppSettings().getParaMapVariant("graph"), map);
        AppSettings().saveParaMapVariant(Map(), "graph");
        QVERIFY(!AppSettings().contains("graph"));
        QCOMPARE(AppSettings().value("graph/checkedId", 0).toInt(), 3);
        AppSettings().saveParaMapVariant(map, "");
        QCOMPARE(AppSettings().allKeys(), QStringList("graph/checkedId"));
    }

    void colourMaps()
    {
        QVERIFY(AppSettings().getColorCustomMap("Default").isEmpty());
        AppSettings().saveColorCustomMap({{Prefix::add("a", 0), QColor(Qt::red)}}, "Default");
        AppSettings().saveColorCustomMap({{Prefix::add("b", 0), QColor(Qt::blue)}}, "Default");
        const auto map = AppSettings().getColorCustomMap("Default");
        QCOMPARE(map.keys(), QStringList(Prefix::add("b", 0)));
        QCOMPARE(map.first().value<QColor>(), QColor(Qt::blue));
    }

    void comboBoxKeys()
    {
        // What has one name alone keeps its key whatever is nameless beside it.
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
            QCOMPARE(AppSettings().restoreComboBoxCurrentText(each.first), QString());
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

    /// Closed and opened again, a window finds its texts; a second one beside it has its own.
    void comboBoxKeysOfWindowsMadeAnew()
    {
        for (const char* text : {"", "1st"}) {
            std::vector<std::unique_ptr<QTabWidget>> windows;
            for (int i = 0; i < 2; ++i) {
                windows.push_back(std::make_unique<QTabWidget>());
                for (int page = 0; page < 2; ++page) {
                    windows[i]->addTab(new QWidget, QString());
                    new QComboBox(windows[i]->widget(page));
                }
                windows[i]->setCurrentIndex(1); // raises the page
                windows[i]->setCurrentIndex(0);
            }
            for (int i : {3, 0, 2, 1}) {
                auto* box = windows[i / 2]->widget(i % 2)->findChild<QComboBox*>();
                const QString wanted = *text ? QString::number(i) : QString();
                QCOMPARE(AppSettings().restoreComboBoxCurrentText(box), wanted);
                box->addItem(QString::number(i));
                AppSettings().saveComboxCurrentText(box);
            }
        }
    }

    void positionsStayOnScreen()
    {
        QWidget widget;
        widget.move(10, 10);
        AppSettings().restorePos(&widget, "pos");
        QCOMPARE(widget.pos(), QPoint(10, 10));
        widget.move(40, 50);
        AppSettings().savePos(&widget, "pos");
        widget.move(10, 10);
        AppSettings().restorePos(&widget, "pos");
        QCOMPARE(widget.pos(), QPoint(40, 50));
        AppSettings().setValue("pos", QPoint(-9000, 50));
        AppSettings().restorePos(&widget, "pos");
        QCOMPARE(widget.pos(), QPoint(40, 50));
        AppSettings().setValue("pos", "nonsense");
        AppSettings().restorePos(&widget, "pos");
        QCOMPARE(widget.pos(), QPoint(40, 50));
    }

    void registries()
    {
        QVERIFY(Global::instance(nullptr) == Global::instance(nullptr));
        {
            QObject object;
            object.setObjectName("one");
            Global::instance()->addSelf(&object);
            QCOMPARE(Global::instance()->getSelf("one"), &object);
        }
        QVERIFY(!Global::instance()->getSelf("one"));
        Global::instance()->addSelf(nullptr);

        QScopedPointer<QThread> worker(QThread::create([] {
            Global::instance()->registerThread(42, "worker");
            Global::instance()->unregisterThread(43);
        }));
        worker->start();
        worker->wait();
        QCOMPARE(Global::instance()->registeredThreads().value(42).name, QString("worker"));
        Global::instance()->unregisterThread(42);
        QVERIFY(Global::instance()->registeredThreads().isEmpty());
        QVERIFY(SysInfoObject::instance() == SysInfoObject::instance());
        QVERIFY(!SysInfo::keyCentralProcessorVendorIdentifier().isEmpty());
    }
};

AXR_TEST_MAIN(CoreServicesTest)
#include "CoreServicesTest.moc"
