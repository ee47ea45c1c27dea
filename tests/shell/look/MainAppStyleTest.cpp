#include "MainAppStyle.h"
#include "AppSettings.h"
#include "TestCase.h"
#include "User.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFontDatabase>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QPushButton>
#include <QSpinBox>
#include <QStyle>
#include <QTabWidget>
#include <QToolBar>
#include <QToolButton>
#include <QTreeWidget>

namespace
{

const QColor usual("#004DB9");
const QString hostSheet = "QLabel { margin: 1px }";

QString baseStyle()
{
    const QStyle* style = QApplication::style();
    const auto* wrapped = style->findChild<QStyle*>();
    return (wrapped ? wrapped : style)->objectName();
}

/// What the application looks like, with the host's own sheet on it.
struct Look {
    QString style = baseStyle();
    QPalette palette = QApplication::palette();
    QString sheet = qApp->styleSheet();
    QFont font = QApplication::font();

    bool operator==(const Look& other) const
    {
        return style == other.style && palette == other.palette && sheet == other.sheet &&
               font == other.font;
    }
};

/// Lets a timer of 1 ms that was started before come.
void passTimer()
{
    QEventLoop loop;
    QTimer::singleShot(3, &loop, &QEventLoop::quit);
    loop.exec();
}

QIcon icon(const QColor& colour, int size = 16)
{
    QPixmap pixmap(size, size);
    pixmap.fill(colour);
    return QIcon(pixmap);
}

QColor colourOf(const QIcon& icon, QIcon::Mode mode = QIcon::Normal,
                QIcon::State state = QIcon::Off)
{
    const QImage image = icon.pixmap(16, 16, mode, state).toImage();
    return image.isNull() ? QColor() : image.pixelColor(8, 8);
}

/// A window with a style and its size buttons.
struct Window {
    QMainWindow window;
    MainAppStyle style{&window};
    QList<QToolButton*> sizes;

    Window() { sizes = style.setFontSize(&window)->findChildren<QToolButton*>("sizeBtn"); }
};

} // namespace

class MainAppStyleTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void cleanup()
    {
        qApp->setStyleSheet(QString());
        TestCase::cleanup();
    }

    /// Each stands behind the one before it.
    void familiesInOrder()
    {
        const char* const rules[] = {
            "QAbstractSpinBox:enabled {padding-left: 4px; border: 2px solid palette(window-text); "
            "background: palette(window)}",
            "QAbstractSpinBox:disabled {",
            "QAbstractSpinBox::up-button:disabled, QAbstractSpinBox::down-button:disabled {",
            "QAbstractSpinBox::up-button   {background: rgba( 70, 70, 70, 115); "
            "border-top-right-radius:9px;            subcontrol-origin: border; "
            "subcontrol-position: top right; width: 20px;            border-style: solid; "
            "border-color: white; border-width: 2px 2px 1px 2px;}",
            "QAbstractSpinBox::up-arrow:disabled, QAbstractSpinBox::up-arrow:off {image: url(:)}",
            "border-bottom-right-radius:9px;",
            "bottom right",
            "border-width: 1px 2px 2px 2px;",
            "QAbstractSpinBox::down-arrow:disabled, QAbstractSpinBox::down-arrow:off {image: "
            "url(:)}",
            "QLineEdit {lineedit-password-character: 8226; border: 2px solid white; background:  "
            "palette(base); padding: 1px 18px 1px 3px}",
            "QComboBox {",
            "QComboBox:editable {",
            "QComboBox:!editable, QComboBox::drop-down:editable {",
            "QComboBox:!editable:on, QComboBox::drop-down:editable:on {",
            "QComboBox:on {",
            "QComboBox::drop-down {subcontrol-origin: border; subcontrol-position: bottom right; "
            "width: 20px;border-width: 2px;",
            "QComboBox::down-arrow {",
            "QComboBox::down-button:hover {",
            "QComboBox::down-button:pressed {",
            "QComboBox::down-arrow:on {",
            "QComboBox::disabled {background: palette(highlighted-text); border-color: "
            "palette(shadow); color: palette(window)}",
            "QComboBox::down-arrow:disabled {image: url(:)}",
            "QComboBox QAbstractItemView {",
            "QScrollBar:horizontal { background: #002e6e;",
            "QScrollBar::handle, QScrollBar::handle:pressed {border: 2px solid#002e6e;}",
            "QFrame { border: palette(window-text) }",
            "QFrame:disabled { border-color: #003D91 }",
            "QToolButton:hover, QMenuBar::item:selected {border: 2px solid palette(window-text); "
            "background-color: rgba(255,255,255, 115)}",
            "QToolButton {margin: 0px; border: 2px solid transparent;   border-radius: 9px;}",
            "QToolButton:disabled {background: palette(highlighted-text);",
            "QToolButton:pressed {",
            "QToolButton:checked  {color: #c7d441 }",
            "QPushButton {border: solid; padding: 4px 6px 4px 6px",
            "QPushButton:hover {",
            "QPushButton:enabled {",
            "QPushButton:disabled {background: palette(highlighted-text);",
            "QPushButton:checked {",
            "QPushButton:pressed {",
            "QCheckBox::disabled  { color: #003D91} ",
            "QCheckBox:indicator {background:rgba(55,55,55,115); border-radius: 7px; padding: 1px; "
            "border: 2px solid palette(text); width: 14px; height: 14px;}",
            "QCheckBox::indicator:disabled {",
            "QCheckBox::indicator:checked {",
            "QCheckBox::indicator:checked:disabled {",
            "QCheckBox::indicator:pressed {",
            "QCheckBox::indicator:hover {",
            "QCheckBox::indicator:indeterminate {",
            "QCheckBox::indicator:indeterminate:disabled {",
            "QDialogButtonBox { dialogbuttonbox-buttons-have-icons: 1; }",
            "QGroupBox {",
            "border: 2px solid palette(window-text); border-radius: 11px;margin-top: 6ex;",
            "QTabWidget::pane {",
            "QTabWidget::tab-bar {left: 5px}",
            "QTabBar::tab {",
            "min-width: 8ex; padding: 2px 12px;",
            "QTabBar::tab:selected, QTabBar::tab:hover {",
            "QTabBar::tab:!selected {margin-top: 2px}",
            "QTabBar::tab:selected {",
            "QTabBar::tab:first:selected {margin-left: 4px}",
            "QTabBar::tab:last:selected {margin-right: 0}",
            "QTabBar::tab:only-one {margin: 0}",
            "QToolBox::tab {background: red; border-radius: 5px; color: darkgray;}",
            "QToolBox::tab:selected {font: italic; }",
            "QToolBox::handle {image: url(qml/AXR-Logo);}",
            "QProgressBar {border-radius: 4px; border: none; color: tomato; text-decoration: "
            "overline; font-size: 16px; text-align: right;  padding-top: 1px; margin: 2px; "
            "padding-right: 5px; padding-bottom: 1px; padding-left: 5px}",
            "QProgressBar::chunk {border-radius: 5px; margin:0px; background: qlineargradient(x1: "
            "0.1, y1: 0.5, x2: 1, y2: 0.8, stop: 0.02 transparent, stop: 0.8 #9AA9B6)}",
            "QSlider::handle:horizontal { background: #001C42;  border-radius: 5px; image: "
            "url(:/Misc/SorvanelCur)}",
            "padding: -4px",
            "padding: -2px",
            "QSlider::add-page:horizontal {",
            "QSlider::sub-page:horizontal {",
            "QAbstractScrollArea {border-style: solid; padding: 4px; background-color: transparent "
            "}",
            "QTreeView {alternate-background-color: cornflowerblue}",
            "{border-image: url(:)}",
            "{border-image: url(:)}",
            "{border-image: url(:)}",
            ":/Misc/BranchClose",
            ":/Misc/BranchOpen",
            "QHeaderView {border-style: none; padding: 0px; background: palette(base)}",
            "QTableView {",
            "QTableView QTableCornerButton::section {background: #3A5B78; border: "
            "2px outset #15252F}",
            "QTableView {selection-background-color: transparent}",
            "QLabel:enabled {",
            "QLabel#WindowsTitle:active {color: palette(window-text)}",
            "QLabel#WindowsTitle:!active {color: #9AA9B6}",
            "QFrame:disabled, QLabel:disabled {background: palette(highlighted-text);",
            "QLabel#Led{border-style: none; border-radius: 9px; min-width: 18px; min-height: 18px; "
            "max-width: 18px; max-height: 18px;}",
            "QLabel#Led:enabled{",
            "stop:0.20904 rgba(255, 255, 255, 255), stop:1 rgba(255, 0, 0, 255))",
            "QLabel#Led:disabled{",
            "stop:1 rgba(25, 20, 30, 255))",
            "QListView::item:alternate {",
            "QListView::item:selected:!active {",
            "QListView::item:selected:active  {background-color: #9AA9B6; color: gold}",
            "QListView::item:hover {",
            "QDockWidget {border: 2px solid lime;}",
            "QDockWidget::title {",
            "QMainWindow::separator {",
            "QMainWindow::separator:hover {",
            "QSplitter::handle {height: 9px; width: 9px; image: url(:/Misc/SorvanelCur);}",
            "QSplitter::handle:hover {",
            "QSplitter::handle:pressed {height: 1px; image: "
            "url(:/Misc/SorvanelCur);background: #9AA9B6}",
            "QSizeGrip {image: url(:/Misc/SizeGrip); width: 16px; height: 16px;}",
            "QToolTip {border: 1px solid palette(window-text); padding: 5px; background: "
            "palette(base); color: palette(window-text)}",
            "QMenuBar::item {border-radius: 7px; "
            "padding: 5px}",
            "QMenuBar::item:pressed {",
            "QToolBar, QStatusBar, QMenuBar {border-radius:0px; background: palette(base); "
            "spacing: 14px; padding: 4px}",
            "QToolBar:bottom {",
            "QToolBar:top {",
            "QToolBar::handle {image: url(:/Misc/SorvanelCur)}",
            "QAbstractScrollArea {border-style: none; padding: 0px}",
            "QLabel {extra: 1}"};
        MainAppStyle style;
        style.setMainStyle(true, "QLabel {extra: 1}", usual);
        const QString sheet = qApp->styleSheet();
        int at = 0;
        for (const char* rule : rules) {
            const int found = sheet.indexOf(rule, at);
            QVERIFY2(found >= 0, rule);
            at = found + int(qstrlen(rule));
        }
        QCOMPARE(at, sheet.size());
        // Every image that it names is there.
        auto image = QRegularExpression("url\\(\"?(:/[^\")]+)").globalMatch(sheet);
        QVERIFY(image.hasNext());
        while (image.hasNext()) {
            const QString name = image.next().captured(1);
            QVERIFY2(!QPixmap(name).isNull(), qPrintable(name));
        }
    }

    void scrollBars()
    {
        QPalette palette;
        palette.setColor(QPalette::Base, QColor("#AbCdEf"));
        palette.setColor(QPalette::WindowText, QColor("#123456"));
        const QString shown = MainAppStyle::scrollBarStyleSheet(palette, false);
        const QString hidden = MainAppStyle::scrollBarStyleSheet(palette, true);
        for (const char* rule :
             {"QScrollBar:horizontal { background: #abcdef; border-radius: 9px; height: 18px; "
              "margin: 0px 15px 0 15px;}",
              "QScrollBar::handle:horizontal {background: #123456; border-radius: 9px; min-width: "
              "25px;}",
              "QScrollBar:left-arrow:horizontal", ":/MainButtons1/Right",
              "QScrollBar:vertical { background: #abcdef; border-radius: 9px; width: 18px; margin: "
              "15px 0 15px 0px ;}",
              "QScrollBar::handle, QScrollBar::handle:pressed {border: 2px solid#abcdef;}"})
            QVERIFY2(shown.contains(rule) && hidden.contains(rule), rule);
        QVERIFY(shown.contains(":/MainButtons1/Up") && !hidden.contains(":/MainButtons1/Up"));
        QVERIFY(hidden.contains("QScrollBar:up-arrow:vertical  {width: 0px; height: 0px;}"));
    }

    void paletteOfTheLook()
    {
        MainAppStyle style;
        style.setMainStyle(true, QString(), QColor("#102030"));
        const QPalette base = QApplication::style()->standardPalette();
        const struct {
            QPalette::ColorRole role;
            QColor colour;
        } rows[] = {{QPalette::Window, "#102030"},      {QPalette::Mid, "#102030"},
                    {QPalette::WindowText, "white"},    {QPalette::Text, "white"},
                    {QPalette::ButtonText, "white"},    {QPalette::ToolTipText, "white"},
                    {QPalette::Base, "#002E6E"},        {QPalette::Highlight, "#002E6E"},
                    {QPalette::ToolTipBase, "#002E6E"}, {QPalette::Light, "#3A5B78"},
                    {QPalette::Dark, "#9AA9B6"},        {QPalette::HighlightedText, "#9AA9B6"},
                    {QPalette::LinkVisited, "#9AA9B6"}, {QPalette::Shadow, "#15252F"},
                    {QPalette::Link, Qt::cyan}};
        for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
            for (const auto& row : rows)
                QCOMPARE(QApplication::palette().color(group, row.role), row.colour);
            for (const auto role : {QPalette::Button, QPalette::Midlight, QPalette::BrightText,
                                    QPalette::AlternateBase})
                QCOMPARE(QApplication::palette().color(group, role), base.color(group, role));
        }
        style.setMainStyle(true, QString(), QColor());
        QCOMPARE(QApplication::palette().color(QPalette::Window), base.color(QPalette::Window));
    }

    void thereAndBack()
    {
        qApp->setStyleSheet(hostSheet);
        const Look before;
        const QString window =
            " QWidget{border-width: 2px; border-radius: 9px} \n QToolBar, QMenuBar, QStatusBar "
            "{border-width: 1px; border-radius:0px} \n QWidget{font: normal normal 12px "
            "'ManualOrifice'}";
        QWidget target;
        {
            MainAppStyle style(&target);
            QSignalSpy colours(&style, &MainAppStyle::textColorChanged);
            QSignalSpy sizes(&style, &MainAppStyle::fontSizeChanged);
            for (int i = 0; i < 2; ++i) {
                QCOMPARE(style.setMainStyle(true, QString(), usual), QString("qml/"));
                QCOMPARE(baseStyle(), QString("cleanlooks"));
                QCOMPARE(target.styleSheet(), window);
                QCOMPARE(style.setMainStyle(false, "QLabel { color: red }", usual),
                         QString("qml/"));
                QCOMPARE(qApp->styleSheet(), QString("QLabel { color: red }"));
                QCOMPARE(baseStyle(), before.style);
                QCOMPARE(QApplication::palette(), before.palette);
                QCOMPARE(target.styleSheet(),
                         QString("QWidget{font: normal normal 12px 'ManualOrifice'}"));
            }
            QCOMPARE(colours.size(), 4);
            const QColor dark = before.palette.color(QPalette::Text);
            QCOMPARE(colours.at(0), QVariantList({QColor(Qt::white), dark}));
            QCOMPARE(colours.at(1), QVariantList({dark, QColor(Qt::white)}));
            style.setMainStyle(true, QString(), usual);
            colours.clear();
            style.setMainStyle(true, QString(), usual); // the text was white already
            QCOMPARE(colours.size(), 0);
            QCOMPARE(sizes.size(), 0); // no button, no size
            connect(&style, &MainAppStyle::fontSizeChanged, this,
                    [](const QString& text) { QCOMPARE(text, QString("Style end")); });
        }
        QVERIFY(Look() == before);
    }

    void withoutParent()
    {
        MainAppStyle style;
        style.setMainStyle(true, QString(), usual);
        QVERIFY(style.styleSheet().startsWith(" QWidget{border-width"));
    }

    void neverShownWidgetsFollow()
    {
        QWidget window;
        auto* edit = new QLineEdit(&window);
        MainAppStyle style(&window);
        const QColor dark = edit->palette().color(QPalette::Text);
        for (const bool on : {true, false, true}) {
            style.setMainStyle(on, QString(), usual);
            QCOMPARE(edit->palette().color(QPalette::Text), on ? QColor(Qt::white) : dark);
        }
        edit->ensurePolished();
        QCOMPARE(edit->palette().color(QPalette::Active, QPalette::Text), QColor(Qt::white));
    }

    void windowThatWasNotShownHearsOfEachSheet()
    {
        QWidget window;
        auto* button = new QPushButton(QStringLiteral("button"), &window);
        button->ensurePolished();
        MainAppStyle style(&window);
        style.setMainStyle(false);
        const QSize size = button->sizeHint();
        window.show();
        style.setMainStyle(false);
        QCOMPARE(size, button->sizeHint());
    }

    void thousandSwitches()
    {
        const Look before;
        {
            Window all;
            all.window.setCentralWidget(new QSpinBox);
            all.window.show();
            for (int i = 0; i < 1000; ++i) {
                all.style.setMainStyle(i % 2 == 0, QString(), usual);
                if (i % 100 == 0)
                    passTimer();
            }
            QCOMPARE(QApplication::palette(), before.palette);
            QVERIFY(QApplication::allWidgets().size() < 50);
        }
        QVERIFY(Look() == before);
    }

    /// The owner, the window or the buttons end while the theme is at work.
    void endsAtAnyMoment_data()
    {
        QTest::addColumn<QString>("moment");
        for (const char* moment :
             {"colour signal", "size signal", "before the click", "row before the click",
              "window first", "window before the click", "action's icon", "button's name"})
            QTest::newRow(moment) << moment;
    }
    void endsAtAnyMoment()
    {
        QFETCH(QString, moment);
        qApp->setStyleSheet(hostSheet);
        const Look before;
        auto* window = new QMainWindow;
        const QPointer<QMainWindow> alive = window;
        window->setCentralWidget(new QLineEdit);
        QToolBar* bar = window->addToolBar("bar");
        QAction* action = bar->addAction(icon(Qt::black), "go");
        auto* style = new MainAppStyle(window);
        QWidget* row = style->setFontSize(window);
        window->show();
        const auto end = [&style] { delete std::exchange(style, nullptr); };
        if (moment == "colour signal")
            connect(style, &MainAppStyle::textColorChanged, this, end);
        else if (moment == "size signal")
            connect(style, &MainAppStyle::fontSizeChanged, this, [&end](const QString& text) {
                if (text != "Style end")
                    end();
            });
        else if (moment == "action's icon")
            connect(action, &QAction::changed, this, end);
        else if (moment == "button's name")
            connect(bar->widgetForAction(bar->addAction("new")), &QObject::objectNameChanged, bar,
                    [bar] { delete bar; });
        style->setMainStyle(true, QString(), usual);
        if (moment == "before the click")
            end();
        else if (moment == "row before the click")
            delete row;
        else if (moment == "window before the click")
            delete window;
        passTimer();
        if (moment == "window first")
            delete window;
        if (alive) {
            end();
            delete window;
        }
        passTimer();
        QVERIFY(Look() == before);
    }

    void formWidgets()
    {
        QSpinBox number;
        number.setToolTip("a number");
        QSpinBox result;
        result.setObjectName("resultSpinBox");
        QLabel table;
        table.setToolTip("<table>x");
        QLabel tableToo;
        tableToo.setToolTip("<table align=center>x");
        QLabel own;
        own.setToolTip("tip");
        own.setStatusTip("mine");
        QComboBox plain;
        plain.addItem("a");
        QComboBox right;
        right.addItems({"a", "b"});
        right.setProperty("dpCbRight", true);
        QComboBox left;
        left.addItem("a");
        left.setProperty("dpCbRight", false);
        MainAppStyle::additionalWidgetSetting(
            {&number, nullptr, &result, &table, &tableToo, &own, &plain, &right, &left});

        QCOMPARE(number.statusTip(), QString("a number"));
        QCOMPARE(table.statusTip(), QString());
        QCOMPARE(tableToo.statusTip(), tableToo.toolTip());
        QCOMPARE(own.statusTip(), QString("mine"));
        QVERIFY(!number.keyboardTracking() && result.keyboardTracking());
        QCOMPARE(number.alignment(), Qt::AlignRight | Qt::AlignVCenter);
        QVERIFY(result.alignment() != number.alignment());
        QVERIFY(!plain.isEditable());
        QCOMPARE(plain.itemText(0), QString("a"));
        for (const QComboBox* box : {&right, &left}) {
            QVERIFY(box->isEditable() && box->lineEdit()->isReadOnly());
            QCOMPARE(box->lineEdit()->alignment(), Qt::AlignRight);
            QCOMPARE(box->itemText(0), QString("  a"));
        }
        QCOMPARE(right.itemData(1, Qt::TextAlignmentRole).toInt(), int(Qt::AlignRight));
        QVERIFY(!left.itemData(0, Qt::TextAlignmentRole).isValid());
        MainAppStyle::additionalWidgetSetting({&left});
        QCOMPARE(left.itemText(0), QString("    a"));
    }

    void fonts()
    {
        const QFont host = QApplication::font();
        const struct {
            bool sorvanel;
            bool variant;
            QString family;
            QFont::Style style;
        } rows[] = {{true, false, "Roboto Condensed", QFont::StyleNormal},
                    {true, true, "Roboto Condensed", QFont::StyleItalic},
                    {false, true, "Open Sans", QFont::StyleNormal},
                    {false, false, host.family(), host.style()}};
        for (const bool there : {true, false}) {
            if (!there)
                Q_CLEANUP_RESOURCE(workbench);
            for (const auto& row : rows) {
                MainAppStyle::installSorvanelFont(row.sorvanel, row.variant);
                const QFont font = QApplication::font();
                QVERIFY2(font.family().startsWith(there ? row.family : host.family()),
                         qPrintable(font.family()));
                QCOMPARE(font.style(), row.style);
                QCOMPARE(font.pointSizeF(), 8.0);
                QVERIFY(font.styleStrategy() & QFont::PreferAntialias);
            }
        }
        Q_INIT_RESOURCE(workbench);
        QApplication::setFont(host);
        QFontDatabase::removeAllApplicationFonts();
    }

    void storedSize_data()
    {
        QTest::addColumn<QVariant>("stored");
        QTest::addColumn<int>("checked");
        const struct {
            const char* name;
            QVariant stored;
            int checked;
        } rows[] = {{"fresh", QVariant(), 1}, {"first", 0, 0},    {"last", 3, 3},
                    {"below", -7, 0},         {"above", 2000, 3}, {"text", "x", 0}};
        for (const auto& row : rows)
            QTest::newRow(row.name) << row.stored << row.checked;
    }
    void storedSize()
    {
        QFETCH(QVariant, stored);
        QFETCH(int, checked);
        if (stored.isValid())
            AppSettings().setValue("Mainwindow/SizeButtonNr", stored);
        Window all;
        QCOMPARE(all.sizes.size(), 4);
        for (int i = 0; i < 4; ++i)
            QCOMPARE(all.sizes.at(i)->isChecked(), i == checked);
        QCOMPARE(AppSettings().value("Mainwindow/SizeButtonNr", -1).toInt(), checked);
        QCOMPARE(all.window.styleSheet(), all.sizes.at(checked)->styleSheet());
        QCOMPARE(all.style.objectName(), QString("setFontSize"));
    }

    void sizesDoNotPileUp()
    {
        Window all;
        all.window.show();
        QSignalSpy changed(&all.style, &MainAppStyle::fontSizeChanged);
        all.window.setStyleSheet("QLabel{margin: 1px}" + all.window.styleSheet());
        for (const int id : {2, 2, 3, 0}) {
            all.sizes.at(id)->click();
            const QString sheet = QString("QWidget {font-size: %1px}").arg(8 + 4 * id);
            QCOMPARE(all.window.styleSheet(), "QLabel{margin: 1px}" + sheet);
            QCOMPARE(changed.takeFirst().at(0).toString(), sheet);
            QCOMPARE(all.window.font().pixelSize(), 8 + 4 * id);
        }
        all.style.setFontSizeStyle(); // nobody's
        QCOMPARE(changed.size(), 0);
        // A switch lays the size on again over the new sheet.
        all.style.setMainStyle(true, QString(), usual);
        QVERIFY(!all.window.styleSheet().contains("8px}"));
        QTRY_COMPARE(changed.size(), 1);
        QVERIFY(all.window.styleSheet().endsWith("'ManualOrifice'}QWidget {font-size: 8px}"));
    }

    void iconPass()
    {
        QMainWindow window;
        const auto add = [&](const QIcon& symbol) {
            auto* button = new QPushButton(&window);
            button->setIcon(symbol);
            return button;
        };
        auto* button = add(icon(Qt::black));
        auto* keeps = add(icon(Qt::black));
        keeps->setProperty("dpIgnIcon", true);
        keeps->setIconSize(QSize(7, 9));
        auto* bare = add(QIcon());
        auto* tools = new QToolBar(&window);
        auto* action = tools->addAction(icon(Qt::black), "go");
        auto* empty = tools->addAction("none");
        auto* label = new QLabel(&window);
        label->setPixmap(icon(Qt::black, 24).pixmap(24));
        auto* text = new QLabel("text", &window);
        auto* tree = new QTreeWidget(&window);
        auto* top = new QTreeWidgetItem(tree, {"a/b"});
        auto* below = new QTreeWidgetItem(top, {"c"});
        top->setIcon(0, icon(Qt::black, 32));
        below->setIcon(0, icon(Qt::black));
        auto* tabs = new QTabWidget(&window);
        tabs->addTab(new QWidget, icon(Qt::black), "one");
        tabs->addTab(new QWidget, "two");
        int cells = 0;
        connect(tree, &QTreeWidget::itemChanged, this, [&cells] { ++cells; });
        QSignalSpy emptyChanged(empty, &QAction::changed);

        QPalette palette = QApplication::palette();
        const QPalette before = palette;
        palette.setColor(QPalette::Text, Qt::yellow);
        palette.setColor(QPalette::Button, QColor(100, 100, 100));
        QApplication::setPalette(palette);
        AppSettings().setValue("ColorMap/CheckedButton", "#010203");
        MainAppStyle::setIconsToTextColor(&window);
        MainAppStyle::setIconsToTextColor(nullptr);
        QApplication::setPalette(before);

        QCOMPARE(colourOf(button->icon()), QColor(Qt::yellow));
        QCOMPARE(colourOf(button->icon(), QIcon::Disabled), QColor(50, 50, 50));
        QCOMPARE(colourOf(button->icon(), QIcon::Normal, QIcon::On), QColor("#010203"));
        const int side = window.fontMetrics().height() + 1;
        QCOMPARE(button->iconSize(), QSize(side, side));
        QCOMPARE(bare->iconSize(), QSize(side, side));
        QVERIFY(bare->icon().isNull());
        QCOMPARE(keeps->iconSize(), QSize(7, 9));
        QCOMPARE(colourOf(keeps->icon()), QColor(Qt::yellow));
        // The action comes behind its button, and so its one colour stays.
        const QWidget* tool = tools->widgetForAction(action);
        QCOMPARE(colourOf(qobject_cast<const QToolButton*>(tool)->icon(), QIcon::Normal, QIcon::On),
                 QColor(Qt::yellow));
        QCOMPARE(emptyChanged.size(), 0);
        QCOMPARE(label->pixmap(Qt::ReturnByValue).toImage().pixelColor(3, 3), QColor(Qt::yellow));
        QCOMPARE(label->pixmap(Qt::ReturnByValue).size(), QSize(24, 24));
        QCOMPARE(text->text(), QString("text"));
        QCOMPARE(colourOf(top->icon(0)), QColor(Qt::yellow));
        QCOMPARE(top->icon(0).availableSizes().constFirst(), QSize(20, 20));
        QCOMPARE(colourOf(below->icon(0)), QColor(Qt::black));
        QCOMPARE(cells, 0);
        QVERIFY(!tree->signalsBlocked());
        QCOMPARE(colourOf(tabs->tabIcon(0)), QColor(Qt::yellow));
        QVERIFY(tabs->tabIcon(1).isNull());
    }

    void toolBars_data()
    {
        QTest::addColumn<bool>("movable");
        QTest::addColumn<bool>("floatable");
        QTest::addColumn<bool>("vertical");
        QTest::newRow("fixed") << false << false << false;
        QTest::newRow("fixed upright") << false << false << true;
        QTest::newRow("movable") << true << false << false;
        QTest::newRow("movable upright") << true << false << true;
        QTest::newRow("floatable") << false << true << false;
        QTest::newRow("floatable upright") << false << true << true;
    }
    void toolBars()
    {
        QFETCH(bool, movable);
        QFETCH(bool, floatable);
        QFETCH(bool, vertical);
        Window all;
        auto* bar = new QToolBar;
        all.window.addToolBar(vertical ? Qt::LeftToolBarArea : Qt::TopToolBarArea, bar);
        bar->setMovable(movable);
        bar->setFloatable(floatable);
        QAction* withIcon = bar->addAction(icon(Qt::black), "go");
        QAction* withText = bar->addAction("x");
        withText->setIconText("a much longer line than any icon\nb");
        auto* named = new QToolButton;
        named->setObjectName("mine");
        bar->addWidget(named);
        all.window.show();
        all.sizes.at(0)->click();
        const QSize small = bar->iconSize();
        all.sizes.at(3)->click();
        QCOMPARE(bar->iconSize(), small + QSize(12, 12));
        QCOMPARE(bar->widgetForAction(withIcon)->objectName(), QString("iconBtn"));
        QCOMPARE(bar->widgetForAction(withText)->objectName(), QString("noIconBtn"));
        QCOMPARE(named->objectName(), QString("mine"));
        auto* more = User::find<QToolButton>(bar, "qt_toolbar_ext_button");

        const QFontMetrics font = all.style.fontMetrics();
        QCOMPARE(font.height(), all.window.fontMetrics().height());
        const int text = font.horizontalAdvance("a much longer line than any icon");
        const int side = bar->iconSize().height() + 5;
        QString sizes;
        if (!movable && !floatable)
            sizes = QString("QToolButton{min-height: %1px;min-width: %2px}")
                        .arg(3 * font.height())
                        .arg(text + 9);
        else if (vertical)
            sizes = QString("QToolButton#noIconBtn{min-height: %1px;}QToolButton{min-height: "
                            "%2px; min-width: %3px}")
                        .arg(font.height() + 8)
                        .arg(side)
                        .arg(text + 10);
        else
            sizes = QString("QToolButton{min-height: %1px}QToolButton#iconBtn{min-height: %1px; "
                            "min-width: %1px}")
                        .arg(side);
        QVERIFY2(bar->styleSheet().endsWith("min-width: 17px}" + sizes),
                 qPrintable(bar->styleSheet()));
        QVERIFY(bar->styleSheet().startsWith("QToolButton:checked  {border-color: #c7d441 }"));
        more->ensurePolished();
        QCOMPARE(more->maximumSize(), QSize(17 + 4, 17 + 4)); // with its border
    }
};

AXR_TEST_MAIN(MainAppStyleTest)
#include "MainAppStyleTest.moc"
