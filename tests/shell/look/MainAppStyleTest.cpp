#include "MainAppStyle.h"
#include "AppSettings.h"
#include "RoomForText_p.h"
#include "SignalLog.h"
#include "TestCase.h"
#include "User.h"

#include <QtWidgets>

namespace
{

QString baseStyle()
{
    const QStyle* style = QApplication::style();
    const auto* wrapped = style->findChild<QStyle*>();
    return (wrapped ? wrapped : style)->objectName();
}

/// What the application looks like.
auto look()
{
    return std::make_tuple(baseStyle(), QApplication::palette(), qApp->styleSheet(),
                           QApplication::font());
}

QIcon icon(int size = 16)
{
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::black);
    return QIcon(pixmap);
}

QString colourOf(const QIcon& icon, QIcon::Mode mode = QIcon::Normal,
                 QIcon::State state = QIcon::Off)
{
    const QImage image = icon.pixmap(16, 16, mode, state).toImage();
    return image.isNull() ? "none" : image.pixelColor(8, 8).name();
}

/// A window with a style and its size buttons.
struct Window {
    QMainWindow window;
    MainAppStyle style{&window};
    QWidget* row = style.setFontSize(&window);
    QList<QToolButton*> sizes = row->findChildren<QToolButton*>("sizeBtn");
};

/// The families of rules in their order, each with its numbers and colours.
QStringList digest(QString sheet)
{
    static const QRegularExpression rule("(\\w+)[^{}]*\\{([^}]*)\\}");
    static const QRegularExpression value("#\\w{6}|veil|\\bwhite\\b(?=\\))|-?\\b\\d+(\\.\\d+)?");
    QStringList families;
    sheet.replace("255,255,255, 115", "veil").replace("255, 255, 255, 255", "white");
    for (auto each = rule.globalMatch(sheet); each.hasNext();) {
        const QRegularExpressionMatch match = each.next();
        if (families.isEmpty() || families.last().section(' ', 0, 0) != match.captured(1))
            families << match.captured(1);
        for (auto found = value.globalMatch(match.captured(2)); found.hasNext();)
            families.last() += ' ' + found.next().captured();
    }
    return families;
}

} // namespace

class MainAppStyleTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    /// Whatever it went through, the application gets its look back.
    void cleanup()
    {
        QVERIFY(look() == m_before);
        TestCase::cleanup();
    }

    void sheet()
    {
        const QString wanted = R"(
QAbstractSpinBox 4 2 4 2 70 70 70 115 9 20 2 2 1 2 veil veil #000F24 8 8 70 70 70 115 9 20 1 2 2 2
veil veil #000F24 8 8 QLineEdit 8226 2 1 18 1 3 QComboBox 2 1 3 1 3 70 70 70 115 veil 3 4 20 2 9 9
8 8 veil veil 1 1 2 0 #001C42 QScrollBar #002e6e 9 18 0 15 0 15 #ffffff 9 25 15 15 10 10 10 10
#002e6e 9 18 15 0 15 0 #ffffff 9 25 15 15 10 10 10 10 2 #002e6e QFrame #003D91 QToolButton 2 veil
0 2 9 2 #001C42 veil #c7d441 QPushButton 4 6 4 6 2 9 1 veil #c7d441 #c7d441 #001C42 veil QCheckBox
#003D91 55 55 55 115 7 1 2 14 14 #003D91 #001C42 veil veil QRadioButton QDialogButtonBox 1
QGroupBox 2 11 6 0 7 2 13 13 QTabWidget 2 #9AA9B6 5 QTabBar #003D91 2 #AFB2B5 #9AA9B6 4 4 8 2 12 4
#001C42 2 -4 -4 4 0 0 QToolBox 5 QProgressBar 4 16 1 2 5 1 5 5 0 0.1 0.5 1 0.8 0.02 0.8 #9AA9B6
QSlider #001C42 5 -4 -2 #001C42 5 #003D91 5 16 QAbstractScrollArea 4 QTreeView QHeaderView 0
QTableView #3A5B78 #3A5B78 2 #15252F QLabel #9AA9B6 QFrame QLabel 9 18 18 18 18 0.5 0.5 0.5 0.229
0.204136 0 white 0.152542 white 0.20904 white 1 255 0 0 255 0.5 0.5 0.5 0.229 0.204136 0 white
0.152542 white 0.20904 white 1 25 20 30 255 QListView #001C42 #9AA9B6 #9AA9B6 QDockWidget 2 1 5 0
QMainWindow 4 4 #9AA9B6 QSplitter 9 9 veil 1 #9AA9B6 QSizeGrip 16 16 QToolTip 1 5 QMenuBar 7 5
#888888 QMenu #9AA9B6 QToolBar 0 14 4 1 1 QAbstractScrollArea 0 QLabel 8
)";
        MainAppStyle style;
        style.setMainStyle(true, "QLabel {margin: 8px}");
        QCOMPARE(digest(qApp->styleSheet()),
                 wanted.simplified().split(QRegularExpression(" (?=Q)")));
        // Every image that it names is there.
        auto image = QRegularExpression("url\\(\"?(:/[^\")]+)").globalMatch(qApp->styleSheet());
        QVERIFY(image.hasNext());
        while (image.hasNext()) {
            const QString name = image.next().captured(1);
            QVERIFY2(!QPixmap(name).isNull(), qPrintable(name));
        }

        QPalette palette;
        palette.setColor(QPalette::Base, QColor("#AbCdEf"));
        palette.setColor(QPalette::WindowText, QColor("#123456"));
        const QString bars = MainAppStyle::scrollBarStyleSheet(palette, false);
        const QString bare = MainAppStyle::scrollBarStyleSheet(palette, true);
        QVERIFY(bars.contains(":/MainButtons1/Up") && !bare.contains(":/MainButtons1/Up"));
        QCOMPARE(digest(bare).join(' '),
                 QString("QScrollBar #abcdef 9 18 0 15 0 15 #123456 9 25 15 15 10 10 10 10 #abcdef "
                         "9 18 15 0 15 0 #123456 9 25 15 15 0 0 0 0 2 #abcdef"));
    }

    void paletteOfTheLook()
    {
        MainAppStyle style;
        style.setMainStyle(true);
        const QPalette base = QApplication::style()->standardPalette();
        const auto roles = QMetaEnum::fromType<QPalette::ColorRole>();
        for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
            QString seen; // but the base style's own
            for (int i = 0; i < QPalette::NColorRoles; ++i) {
                const QColor colour = QApplication::palette().color(group, QPalette::ColorRole(i));
                if (colour != base.color(group, QPalette::ColorRole(i)))
                    seen += roles.valueToKey(i) + colour.name(QColor::HexArgb) + ' ';
            }
            QCOMPARE(seen, QString("WindowText#ffffffff Light#ff3a5b78 Dark#ff9aa9b6 Mid#ff004db9 "
                                   "Text#ffffffff ButtonText#ffffffff Base#ff002e6e "
                                   "Window#ff004db9 Shadow#ff15252f Highlight#ff002e6e "
                                   "HighlightedText#ff9aa9b6 Link#ff00ffff LinkVisited#ff9aa9b6 "
                                   "ToolTipBase#ff002e6e ToolTipText#ffffffff "
                                   "PlaceholderText#80ffffff "));
        }
        style.setMainStyle(true, QString(), QColor());
        QCOMPARE(QApplication::palette().color(QPalette::Window), base.color(QPalette::Window));
    }

    void thereAndBack()
    {
        const QPalette before = QApplication::palette();
        const QString toWhite = "textColorChanged #ffffff " + before.color(QPalette::Text).name();
        const QString toDark =
            "textColorChanged " + before.color(QPalette::Text).name() + " #ffffff";
        const int font = QFontDatabase::addApplicationFont(":/Fonts/OpenFont");
        QWidget target;
        auto* style = new MainAppStyle(&target);
        QVERIFY(style->isHidden() && !QFontDatabase::applicationFontFamilies(font).isEmpty());
        SignalLog log(style);
        for (int i = 0; i < 2; ++i) {
            QCOMPARE(style->setMainStyle(true), QString("qml/"));
            QCOMPARE(baseStyle(), QString("cleanlooks"));
            QCOMPARE(digest(target.styleSheet()).join(' '),
                     QString("QWidget 2 9 QToolBar 1 0 QWidget 12"));
            style->setMainStyle(true); // the text is white already
            QCOMPARE(style->setMainStyle(false, "QLabel { color: red }"), QString("qml/"));
            QCOMPARE(qApp->styleSheet(), QString("QLabel { color: red }"));
            QVERIFY(QApplication::palette() == before && baseStyle() != "cleanlooks");
            QCOMPARE(target.styleSheet(),
                     QString("QWidget{font: normal normal 12px 'ManualOrifice'}"));
            QCOMPARE(log.takeLines(), QStringList({toWhite, toDark}));
        }
        style->setMainStyle(true);
        delete style;
        QCOMPARE(log.takeLines(), QStringList({toWhite, toDark, "fontSizeChanged Style end"}));
        QVERIFY(QFontDatabase::applicationFontFamilies(font).isEmpty());

        MainAppStyle alone;
        alone.setMainStyle(true);
        QVERIFY(alone.styleSheet().startsWith(" QWidget{border-width"));
    }

    void whatWasNotShownFollows()
    {
        QWidget window, polished;
        auto* edit = new QLineEdit(&window);
        QPushButton button("button", &polished);
        button.ensurePolished();
        MainAppStyle style(&window), other(&polished);
        const QColor dark = edit->palette().color(QPalette::Text);
        for (const bool on : {true, false, true}) {
            style.setMainStyle(on);
            QCOMPARE(edit->palette().color(QPalette::Text), on ? QColor(Qt::white) : dark);
        }
        edit->ensurePolished();
        QCOMPARE(edit->palette().color(QPalette::Active, QPalette::Text), QColor(Qt::white));
        other.setMainStyle(false);
        const QSize size = button.sizeHint();
        polished.show();
        other.setMainStyle(false);
        QCOMPARE(button.sizeHint(), size);
    }

    /// Widgets that come to a window which is shown already, before the look is switched or after.
    void whatCameLaterFollows()
    {
        for (const bool isOnBefore : {false, true}) {
            QWidget window;
            window.show();
            MainAppStyle style(&window);
            const QPalette plain = QApplication::palette("QLineEdit");
            style.setMainStyle(isOnBefore);
            auto* edit = new QLineEdit(&window);
            style.setMainStyle(true);
            style.setMainStyle(false);
            edit->show();
            for (const auto role : {QPalette::Base, QPalette::Text})
                QCOMPARE(edit->palette().color(QPalette::Active, role),
                         plain.color(QPalette::Active, role));
        }
    }

    /// A host may change rules of the application's sheet.
    void theLookIsKnownByItsBeginning()
    {
        QWidget window;
        MainAppStyle style(&window);
        QVERIFY(RoomForText::formSizesHold(&window));
        style.setMainStyle(true);
        const QString sheet = qApp->styleSheet();
        qApp->setStyleSheet(QString(sheet).replace("tomato", "white"));
        QVERIFY(qApp->styleSheet() != sheet);
        QVERIFY(!RoomForText::formSizesHold(&window));
        style.setMainStyle(false);
        QVERIFY(RoomForText::formSizesHold(&window));
    }

    /// The owner, the window or the buttons end while the theme is at work.
    void endsAtAnyMoment_data()
    {
        QTest::addColumn<bool>("endsStyle");
        for (const char* moment : {"colour", "size", "icon", "click", "name", "row", "window"})
            QTest::newRow(moment) << (*moment != 'n' && *moment != 'r' && *moment != 'w');
    }

    void endsAtAnyMoment()
    {
        const QString moment = QTest::currentDataTag();
        auto* window = new QMainWindow;
        window->setCentralWidget(new QLineEdit);
        QToolBar* bar = window->addToolBar("bar");
        QAction* action = bar->addAction(icon(), "go");
        QPointer<MainAppStyle> style = new MainAppStyle(window);
        QWidget* row = style->setFontSize(window);
        window->show();
        const auto passTimer = [] { // one of 1 ms that was started before
            QEventLoop loop;
            QTimer::singleShot(3, &loop, &QEventLoop::quit);
            loop.exec();
        };
        const auto end = [doomed = style.data()]() mutable { delete std::exchange(doomed, {}); };
        if (moment == "colour")
            connect(style, &MainAppStyle::textColorChanged, this, end);
        else if (moment == "size")
            connect(style, &MainAppStyle::fontSizeChanged, this, end);
        else if (moment == "icon")
            connect(action, &QAction::changed, this, end);
        else if (moment == "name")
            connect(bar->widgetForAction(bar->addAction("new")), &QObject::objectNameChanged, bar,
                    [bar] { delete bar; });
        style->setMainStyle(true);
        if (moment == "click") // which is to come
            delete style;
        else if (moment == "row")
            delete row;
        else if (moment == "window")
            delete std::exchange(window, nullptr);
        passTimer();
        QTEST(window && !style, "endsStyle");
        delete window;
        passTimer();
    }

    void formWidgets()
    {
        QSpinBox number, result;
        result.setObjectName("resultSpinBox");
        QLabel table, other;
        table.setToolTip("<table>x");
        other.setToolTip("<table align=center>x");
        QComboBox plain, right, left;
        for (QComboBox* box : {&plain, &right, &left})
            box->addItems({"a", "b"});
        right.setProperty("dpCbRight", true);
        left.setProperty("dpCbRight", false);
        for (const char* tip : {"first", "later"}) {
            number.setToolTip(tip);
            MainAppStyle::additionalWidgetSetting({&number, nullptr, &result, &table, &other});
        }
        MainAppStyle::additionalWidgetSetting({&plain, &right, &left, &left});
        QCOMPARE(number.statusTip() + table.statusTip(), QString("first"));
        QCOMPARE(other.statusTip(), other.toolTip());
        QVERIFY(!number.keyboardTracking() && result.keyboardTracking() && !plain.isEditable());
        QVERIFY(number.alignment() == (Qt::AlignRight | Qt::AlignVCenter) &&
                result.alignment() != number.alignment());
        QCOMPARE(plain.itemText(0) + right.itemText(1) + left.itemText(0), QString("a  b    a"));
        for (const QComboBox* box : {&right, &left}) {
            QVERIFY(box->lineEdit()->isReadOnly() &&
                    box->lineEdit()->alignment() == Qt::AlignRight);
            QCOMPARE(box->itemData(1, Qt::TextAlignmentRole).toInt(),
                     box == &right ? int(Qt::AlignRight) : 0);
        }
    }

    void fonts()
    {
        const QFont host = QApplication::font();
        const MainAppStyle style; // whose end brings the host's font back
        const QString families[] = {host.family(), "Open Sans", "Roboto Condensed",
                                    "Roboto Condensed"};
        for (int i = 0; i < 4; ++i) {
            MainAppStyle::installSorvanelFont(i & 2, i & 1);
            const QFont font = QApplication::font();
            QVERIFY2(font.family().startsWith(families[i]), qPrintable(font.family()));
            QCOMPARE(font.style(), i == 3 ? QFont::StyleItalic : QFont::StyleNormal);
            QCOMPARE(font.pointSizeF(), 8.0);
            QVERIFY(font.styleStrategy() & QFont::PreferAntialias);
        }
        Q_CLEANUP_RESOURCE(workbench); // a font that is not there is the host's
        MainAppStyle::installSorvanelFont(true, false);
        Q_INIT_RESOURCE(workbench);
        QCOMPARE(QApplication::font().family(), host.family());
    }

    void storedSize()
    {
        const QMap<QString, int> stored = {{"", 1},   {"0", 0},    {"3", 3},
                                           {"-7", 0}, {"2000", 3}, {"x", 0}};
        for (auto each = stored.begin(); each != stored.end(); ++each) {
            AppSettings().clear();
            if (!each.key().isEmpty())
                AppSettings().setValue("Mainwindow/SizeButtonNr", each.key());
            const Window all;
            QVERIFY(all.sizes.at(each.value())->isChecked());
            QCOMPARE(AppSettings().value("Mainwindow/SizeButtonNr", -1).toInt(), each.value());
            QCOMPARE(all.window.styleSheet(), all.sizes.at(each.value())->styleSheet());
            QCOMPARE(all.style.objectName(), QString("setFontSize"));
        }
    }

    void sizesDoNotPileUp()
    {
        Window all;
        QCOMPARE(digest(all.row->styleSheet()).join(' '),
                 QString("QFrame 0 1 25 #003D91 QToolButton 15 15 15 15"));
        QVERIFY(all.row->layout()->contentsMargins().isNull());
        QCOMPARE(all.row->layout()->spacing(), 0);
        SignalLog log(&all.style);
        all.window.setStyleSheet("QLabel{margin: 1px}" + all.window.styleSheet());
        for (const int id : {2, 2, 3, 1, 0}) {
            all.sizes.at(id)->click();
            const QString sheet = QString("QWidget {font-size: %1px}").arg(8 + 4 * id);
            QCOMPARE(all.window.styleSheet(), "QLabel{margin: 1px}" + sheet);
            QCOMPARE(log.takeLines(), QStringList{"fontSizeChanged " + sheet});
            QCOMPARE(AppSettings().value("Mainwindow/SizeButtonNr", -1).toInt(), id);
        }
        all.style.setFontSizeStyle(); // nobody's
        QCOMPARE(log.takeLines(), QStringList());
        all.style.setMainStyle(true); // lays the size on again over the new sheet
        QTRY_VERIFY(all.window.styleSheet().contains("8px}"));
        QCOMPARE(log.takeLines().last(), QString("fontSizeChanged QWidget {font-size: 8px}"));
        QVERIFY(all.window.styleSheet().endsWith("'ManualOrifice'}QWidget {font-size: 8px}"));
    }

    void iconPass()
    {
        QMainWindow window;
        QPushButton button(icon(), "", &window), keeps(icon(), "", &window);
        keeps.setProperty("dpIgnIcon", true);
        keeps.setIconSize(QSize(7, 9));
        QToolBar tools(&window);
        QAction* go = tools.addAction(icon(), "go");
        QAction* none = tools.addAction("none");
        QLabel label(&window);
        label.setPixmap(icon(24).pixmap(24));
        QTreeWidget tree(&window);
        QTreeWidgetItem top(&tree, {"a/b"}), last(&tree), below(&top);
        for (QTreeWidgetItem* item : {&top, &last, &below})
            item->setIcon(0, icon(32));
        QTabWidget tabs(&window);
        tabs.addTab(new QWidget, icon(32), "one");
        tabs.addTab(new QWidget, "two");
        SignalLog cells(&tree, {"itemChanged"});
        SignalLog changes(none);

        const QPalette before = QApplication::palette();
        QPalette palette = before;
        palette.setColor(QPalette::Text, "#ffff00");
        palette.setColor(QPalette::Button, QColor(100, 100, 100));
        QApplication::setPalette(palette);
        AppSettings().setValue("ColorMap/CheckedButton", "#010203");
        for (QWidget* each : {(QWidget*)nullptr, (QWidget*)&window})
            MainAppStyle::setIconsToTextColor(each);
        QApplication::setPalette(before);

        QCOMPARE(colourOf(button.icon(), QIcon::Disabled), QString("#323232"));
        QCOMPARE(colourOf(button.icon(), QIcon::Normal, QIcon::On), QString("#010203"));
        // The action comes behind its button, and so its one colour stays.
        const QIcon tool = qobject_cast<QToolButton*>(tools.widgetForAction(go))->icon();
        QCOMPARE(colourOf(tool, QIcon::Normal, QIcon::On), QString("#ffff00"));
        const QPixmap pixmap = label.pixmap(Qt::ReturnByValue);
        for (const QIcon& each : {button.icon(), keeps.icon(), tool, QIcon(pixmap), top.icon(0),
                                  last.icon(0), tabs.tabIcon(0)})
            QCOMPARE(colourOf(each), QString("#ffff00"));
        QCOMPARE(colourOf(below.icon(0)) + colourOf(tabs.tabIcon(1)), QString("#000000none"));
        const int side = window.fontMetrics().height() + 1;
        QVERIFY(button.iconSize() == QSize(side, side) && keeps.iconSize() == QSize(7, 9));
        QCOMPARE(pixmap.size(), QSize(24, 24));
        for (const QIcon& each : {top.icon(0), tabs.tabIcon(0)})
            QCOMPARE(each.availableSizes(), QList<QSize>{QSize(20, 20)});
        QCOMPARE(cells.takeLines() + changes.takeLines(), QStringList());
        QVERIFY(!tree.signalsBlocked());
    }

    void toolBars()
    {
        for (int kind = 0; kind < 8; ++kind) {
            const bool isFixed = !(kind & 3);
            const bool isUpright = kind & 4;
            Window all;
            auto* bar = new QToolBar;
            all.window.addToolBar(isUpright ? Qt::LeftToolBarArea : Qt::TopToolBarArea, bar);
            bar->setMovable(kind & 1);
            bar->setFloatable(kind & 2);
            QWidget* withIcon = bar->widgetForAction(bar->addAction(icon(), "go"));
            const QString wide = kind & 1 ? "x" : "a much longer line than any icon";
            QWidget* withText = bar->widgetForAction(bar->addAction(wide + "\nb"));
            QToolButton named;
            named.setObjectName("mine");
            bar->addWidget(&named);
            all.window.show();
            all.sizes.at(0)->click();
            const QSize small = bar->iconSize();
            all.sizes.at(3)->click();
            QCOMPARE(bar->iconSize(), small + QSize(12, 12));
            QCOMPARE(withIcon->objectName() + withText->objectName() + named.objectName(),
                     QString("iconBtnnoIconBtnmine"));

            const QFontMetrics font = all.window.fontMetrics();
            const int text = font.horizontalAdvance(wide);
            const int side = bar->iconSize().height() + 5;
            const QSize fixed(text + 9, 3 * font.height());
            const QSize upright(qMax(side, text) + 10, side);
            const QSize border(2, 2), noWidth(-2, side);
            for (QWidget* each : {withIcon, withText})
                each->ensurePolished();
            const QSize sizes[][2] = {{fixed, fixed},
                                      {upright, {upright.width(), font.height() + 8}},
                                      {{side, side}, noWidth}};
            const auto& wanted = sizes[isFixed ? 0 : isUpright ? 1 : 2];
            QCOMPARE(withIcon->minimumSize(), wanted[0] + border);
            QCOMPARE(withText->minimumSize(), wanted[1] + border);
            auto* more = User::find<QToolButton>(bar, "qt_toolbar_ext_button");
            more->ensurePolished();
            QCOMPARE(more->maximumSize(), QSize(17 + 4, 17 + 4)); // with its border
            QVERIFY(digest(bar->styleSheet())
                        .first()
                        .startsWith("QToolButton #c7d441 2 #001C42 veil #003D91 2 17 17 17 17"));
        }
    }

private:
    const decltype(look()) m_before = look();
};

AXR_TEST_MAIN(MainAppStyleTest)
#include "MainAppStyleTest.moc"
