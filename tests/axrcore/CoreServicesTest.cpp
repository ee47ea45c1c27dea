#include "AppSettings.h"
#include "BasicTools.h"
#include "Global.h"
#include "Prefix.h"
#include "SharedConstants.h"
#include "SysInfo.h"
#include "SysInfoObject.h"
#include "TestCase.h"

#include <QtWidgets>

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
                for (const QString name : {"early", "late"})
                    Global::instance()->registerThread(id, name);
                if (id > 1)
                    Global::instance()->unregisterThread(id);
            }));
            workers.back()->start();
        }
        for (const auto& worker : workers)
            worker->wait();
        QCOMPARE(Global::instance()->thread(), qApp->thread());
        QCOMPARE(SysInfoObject::instance()->thread(), qApp->thread());
        const auto threads = Global::instance()->registeredThreads();
        QCOMPARE(threads.keys(), QList<unsigned int>{1});
        QCOMPARE(threads.value(1).name, QString("late"));
        Global::instance()->unregisterThread(1);
        QVERIFY(Global::instance()->registeredThreads().isEmpty());

        QObject first;
        auto second = std::make_unique<QObject>();
        for (QObject* each : {&first, second.get()}) {
            each->setObjectName("one");
            Global::instance()->addSelf(each);
        }
        Global::instance()->addSelf(nullptr);
        QCOMPARE(Global::instance()->getSelf("one"), second.get());
        second.reset();
        QVERIFY(!Global::instance()->getSelf("one"));

        QFile processor("/proc/cpuinfo");
        QVERIFY(processor.open(QIODevice::ReadOnly));
        const QString vendor = SysInfo::keyCentralProcessorVendorIdentifier();
        QVERIFY(vendor == QSysInfo::currentCpuArchitecture() ||
                processor.readAll().contains(": " + vendor.toUtf8() + "\n"));
    }

    void numbers()
    {
        const QPair<QString, QString> rows[] = {
            {BasicTools::intInsertDot(1234567.0, 0), "1,234,567"},
            {BasicTools::intInsertDot(-123.0, 0), "-123"},
            {BasicTools::intInsertDot(-1234.5, 2), "-1,234.50"},
            {BasicTools::intInsertDot(-0.0001, 2), "0.00"},
            {BasicTools::intInsertDot(12.6, -3), "13"},
            {BasicTools::intInsertDot(HUGE_VAL, 1), "inf"},
            {BasicTools::iToInt(12345, 4, "", '0'), "12345"},
            {BasicTools::iToInt(7, 3, "n%1 ", ' '), "n%1   7"},
            {Prefix::add("a%1", -1), "0000000000:a%1"},
            {Prefix::x(Prefix::add("12:34", 119)), "12:34"},
            {Prefix::x("0000000009:"), ""},
            {Prefix::x("00000000x7:x"), "00000000x7:x"},
            {Prefix::x("0000000007;x"), "0000000007;x"},
            {Prefix::x("0000000007"), "0000000007"}};
        for (const auto& [seen, wanted] : rows)
            QCOMPARE(seen, wanted);
        QVERIFY(Prefix::add("z", 99) < Prefix::add("a", 100));
    }

    void axisLimits()
    {
        const int low = std::numeric_limits<int>::min();
        const int high = std::numeric_limits<int>::max();
        int rows[][4] = {{-100, 100, -100, 100},
                         {57, 0, 0, 60},
                         {50, 50, 49, 51},
                         {3, 23, 0, 25},
                         {0, 101, 0, 120},
                         {0, 10, 0, 10},
                         {low, high, low, high},
                         {high, high, high - 1, high},
                         {-1234, -1001, -1250, -1000}};
        for (auto& [min, max, niceMin, niceMax] : rows) {
            for (int pass = 0; pass < 2; ++pass) {
                BasicTools::adjustLinearAxis(min, max);
                QCOMPARE(QPoint(min, max), QPoint(niceMin, niceMax));
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
        BasicTools::setSymbolColor(nullptr, Qt::red, true, none);
        BasicTools::setSymbolColor(&symbol, none, true, Qt::red); // changes nothing
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
        QString seen;
        for (const auto mode : {QIcon::Normal, QIcon::Active, QIcon::Selected, QIcon::Disabled})
            for (const auto state : {QIcon::Off, QIcon::On})
                seen += argb(button.icon().pixmap(16, mode, state), 8).mid(3) + ' ';
        QCOMPARE(seen, QString("ff0000 00ff00 ff0000 00ff00 ff0000 00ff00 a0a0a4 a0a0a4 "));
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
            QWidget page(&window), firstPage(&window), secondPage(&window), panel(&window);
            // made in another order than what they are in
            QComboBox inTwin(&twin), inWindow(&window), second(&secondPage), first(&firstPage),
                inPage(&page), unnamed(&window), unnamedToo(&window), slash(&panel), free, freeToo,
                alone(&other);
            for (QWidget* widget : {&window, &twin})
                widget->setObjectName("window");
            for (QWidget* widget : {&firstPage, &secondPage})
                widget->setObjectName("page");
            for (QWidget* widget : QWidgetList{&inTwin, &inWindow, &inPage})
                widget->setObjectName("box");
            other.setObjectName("other");
            panel.setObjectName("a/b");
            secondPage.raise();
            firstPage.raise(); // the order of siblings is not that of their making
            const QList<QComboBox*> boxes{&inTwin,  &inPage,     &inWindow, &second,
                                          &first,   &unnamedToo, &unnamed,  &slash,
                                          &freeToo, &free,       &alone};
            const QString keys = "#3/window/box window/box #2/window/box window/page#2/QComboBox "
                                 "window/page/QComboBox window/QComboBox#2 window/QComboBox "
                                 "window/a/b/QComboBox #2/QComboBox QComboBox other/QComboBox";
            for (int i = 0; i < boxes.size(); ++i) {
                const QString key =
                    keys.section(' ', i, i).replace("a/b", QString("a%1b").arg(SlashReplacement));
                QCOMPARE(AppSettings().restoreComboBoxCurrentText(boxes.at(i)), isAgain ? key : "");
                boxes.at(i)->addItem(key);
                AppSettings().saveComboxCurrentText(boxes.at(i));
            }
            inTwin.setParent(&window); // beside its namesake
            twin.setObjectName("renamed");
            for (QComboBox* box : boxes) {
                QCOMPARE(AppSettings().restoreComboBoxCurrentText(box), box->currentText());
                QCOMPARE(AppSettings().value("ComboBoxes/" + box->currentText(), 0),
                         box->currentText());
            }
        }
    }

    void positionsStayOnScreen()
    {
        QWidget widget;
        widget.move(60, 70);
        const QVector<QPair<QVariant, QPoint>> stored = {{{}, {60, 70}},
                                                         {QPoint(40, 50), {40, 50}},
                                                         {QPoint(-9000, 50), {40, 50}},
                                                         {"nonsense", {40, 50}}};
        for (const auto& [value, place] : stored) {
            AppSettings().setValue("pos", value);
            AppSettings().restorePos(&widget, "pos");
            QCOMPARE(widget.pos(), place);
        }
        AppSettings().savePos(&widget, "pos");
        QCOMPARE(AppSettings().value("pos", 0), QVariant(QPoint(40, 50)));
    }
};

AXR_TEST_MAIN(CoreServicesTest)
#include "CoreServicesTest.moc"
