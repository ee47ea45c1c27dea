#include "ColorPicker.h"
#include "AppSettings.h"
#include "ColorDialog.h"
#include "ColorPickerButton_p.h"
#include "ColorPickerItem_p.h"
#include "ColorPickerPopup_p.h"
#include "ColorViewer.h"
#include "Prefix.h"
#include "TestCase.h"
#include "User.h"

#include <QSignalSpy>
#include <QTimer>

namespace
{

const QColor chosenColor(1, 2, 3);

ColorPickerPopup* popupOf(ColorPicker& picker) { return picker.findChild<ColorPickerPopup*>(); }

/// A custom colour map of name and colour, in this order.
QStringList storedMap()
{
    QStringList lines;
    const QMap<QString, QVariant> map = AppSettings().getColorCustomMap("Default");
    for (auto entry = map.begin(); entry != map.end(); ++entry)
        lines << entry.key() + " " + entry.value().value<QColor>().name();
    return lines;
}

void store(const QMap<QString, QVariant>& map, const QVariant& count)
{
    AppSettings settings;
    settings.saveColorCustomMap(map, "Default");
    settings.setValue("ColorMap/Count", count);
}

/// Answers the next colour dialog, once it is open.
void answerDialog(const QColor& color, QDialog::DialogCode code, QColor* shown = nullptr)
{
    QTimer::singleShot(0, qApp, [=] {
        auto* dialog = qobject_cast<ColorDialog*>(QApplication::activeModalWidget());
        if (!dialog)
            qFatal("no colour dialog");
        if (!QTest::qWaitForWindowExposed(dialog))
            qFatal("the colour dialog does not show");
        if (shown)
            *shown = dialog->color();
        if (color.isValid())
            dialog->setColor(color);
        dialog->done(code);
    });
}

/// Opens the grid as a user does, and waits for the display: it complains of a focus in windows
/// that are gone before they were there.
ColorPickerPopup* open(ColorPicker& picker)
{
    picker.show();
    if (!QTest::qWaitForWindowExposed(&picker))
        qFatal("the picker does not show");
    picker.activateWindow(); // a closed dialog hands the focus to nobody without a window manager
    ColorPickerPopup* popup = popupOf(picker);
    if (!QTest::qWaitForWindowActive(&picker) || !QTest::qWaitFor([popup] {
            return !popup->windowHandle() || !popup->windowHandle()->isExposed();
        }))
        qFatal("the picker does not get active, or the grid does not go");
    User::click(&picker);
    if (!QTest::qWaitForWindowExposed(popup))
        qFatal("the grid does not show");
    return popup;
}

void rightClick(ColorPickerItem* item)
{
    QTest::mouseClick(item, Qt::RightButton);
    emit item->customContextMenuRequested(QPoint());
}

struct Grid {
    int columns = 0;
    int rows = 0;
    explicit Grid(const ColorPickerPopup* popup)
    {
        const auto* layout = popup->findChild<QGridLayout*>();
        columns = layout->columnCount();
        rows = layout->rowCount();
    }
};

} // namespace

class ColorPickerTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase()
    {
        // As under a theme: a white Base would swallow the white cell.
        QPalette palette = QApplication::palette();
        palette.setColor(QPalette::Base, QColor(60, 63, 65));
        palette.setColor(QPalette::Button, QColor(90, 91, 92));
        QApplication::setPalette(palette);
    }

    void standardColors()
    {
        ColorPicker picker;
        QCOMPARE(picker.currentColor(), QColor(Qt::black));
        QCOMPARE(picker.text(), QString("Black"));
        picker.setStandardColors();
        QStringList cells;
        for (const ColorPickerItem* item : popupOf(picker)->items())
            cells << item->toolTip() + item->color().name();
        QCOMPARE(cells,
                 QStringList({"Red#ff0000",       "Green#00ff00",        "Blue#0000ff",
                              "Cyan#00ffff",      "Magenta#ff00ff",      "Yellow#ffff00",
                              "Dark red#800000",  "Dark green#008000",   "Dark blue#000080",
                              "Dark cyan#008080", "Dark magenta#800080", "Dark yellow#808000",
                              "Tomato#ff6347",    "Light green#90ee90",  "Light skyblue#87cefa",
                              "Black#000000",     "White#ffffff",        "Gray#a0a0a4",
                              "Dark gray#808080", "Light gray#c0c0c0"}));
        QCOMPARE(Grid(popupOf(picker)).columns, 5);
        QCOMPARE(Grid(popupOf(picker)).rows, 5); // the last holds the dialog's button alone
        QCOMPARE(picker.currentColor(), QColor(Qt::black));
        picker.setStandardColors();
        QCOMPARE(picker.colorList().size(), 20);
    }

    void insertion()
    {
        ColorPicker picker(nullptr, 2, false);
        const QSignalSpy changed(&picker, &ColorPicker::colorChanged);
        picker.insertColor(Qt::red, "a");
        picker.insertColor(Qt::blue, "b", 0);
        picker.insertColor(Qt::green, "c", 99);
        picker.insertColor(picker.palette().color(QPalette::Base), "ground");
        QCOMPARE(picker.colorList(), QList<QColor>({Qt::blue, Qt::red, Qt::green}));
        QCOMPARE(picker.color(1), QColor(Qt::red));
        QVERIFY(!picker.color(3).isValid() && !picker.color(-1).isValid());
        QCOMPARE(Grid(popupOf(picker)).columns, 2);
        // Without the dialog what was inserted is current, silently.
        QCOMPARE(picker.currentColor(), QColor(Qt::green));
        QCOMPARE(picker.text(), QString("c"));
        picker.setColorDialogEnabled(true);
        picker.insertColor(Qt::cyan, "d");
        QCOMPARE(picker.text(), QString("c"));
        QVERIFY(changed.isEmpty());
    }

    void settingTheColor()
    {
        ColorPicker picker;
        picker.setStandardColors();
        const int before = picker.colorList().size();
        QStringList events;
        connect(&picker, &ColorPicker::colorChanged, this, [&](const QColor& color) {
            events << color.name() + picker.text() + picker.currentColor().name() +
                          (popupOf(picker)->isVisible() ? "open" : "closed");
        });
        picker.setChecked(true);
        QVERIFY(popupOf(picker)->isVisible());
        picker.setCurrentColor(QColor::fromHsv(0, 255, 255)); // red in another model
        QVERIFY(!picker.isChecked());
        picker.setCurrentColor(Qt::red);
        picker.setCurrentColor(QColor());
        picker.setCurrentColor(chosenColor);
        QCOMPARE(events, QStringList({"#ff0000Red#ff0000closed", "#010203Custom#010203closed"}));
        QCOMPARE(picker.colorList().size(), before + 1);
        QCOMPARE(picker.colorList().last(), chosenColor);
        picker.setCurrentColor(picker.palette().color(QPalette::Base));
        QCOMPARE(events.size(), 3);
        QCOMPARE(picker.colorList().size(), before + 1);
    }

    void choosingWithTheMouse()
    {
        ColorPicker picker;
        picker.setStandardColors();
        const QSignalSpy changed(&picker, &ColorPicker::colorChanged);
        ColorPickerPopup* popup = open(picker);
        ColorPickerItem* black = popup->items().at(15);
        QVERIFY(black->isSelected());
        QCOMPARE(popup->focusWidget(), black);
        rightClick(popup->items().at(12));
        QVERIFY(popup->isVisible() && changed.isEmpty());
        User::click(popup->items().at(12));
        QVERIFY(!popup->isVisible() && !picker.isChecked());
        QCOMPARE(changed.size(), 1);
        QCOMPARE(picker.text(), QString("Tomato"));
        QVERIFY(!black->isSelected());
        picker.setCurrentColor(Qt::blue);
        User::click(&picker);
        QVERIFY(popup->items().at(2)->isSelected() && !popup->items().at(12)->isSelected());
        QTest::mouseRelease(popup, Qt::LeftButton, {}, popup->rect().bottomRight() + QPoint(9, 9));
        QVERIFY(!popup->isVisible());
        QCOMPARE(changed.size(), 2);
    }

    void dialogShowsItsColor()
    {
        ColorDialog dialog(QColor(0x12, 0xAB, 0xEF));
        QCOMPARE(dialog.size(), QSize(400, 400));
        dialog.grab(); // lays it out
        auto* viewer = dialog.findChild<ColorViewer*>();
        QVERIFY(viewer->width() > viewer->fontMetrics().horizontalAdvance("#12ABEF") + 8);
        QCOMPARE(viewer->grab().toImage().pixelColor(4, 4), dialog.color());
        QVERIFY(ColorDialog(QColor()).color().isValid());
    }

    void popupStaysOnTheDesktop()
    {
        ColorPicker picker;
        picker.setWindowFlag(Qt::FramelessWindowHint);
        picker.setStandardColors();
        picker.resize(60, 20);
        picker.show();
        const QRect desktop = QGuiApplication::primaryScreen()->availableGeometry();
        for (const QPoint& corner : {desktop.topLeft() - QPoint(30, 5), desktop.center(),
                                     desktop.bottomRight() - QPoint(30, 10)}) {
            picker.move(corner);
            picker.setChecked(true);
            const QRect popup = popupOf(picker)->geometry();
            QVERIFY(desktop.contains(popup));
            if (corner == desktop.center())
                QCOMPARE(popup.topLeft(), picker.mapToGlobal(picker.rect().bottomLeft()));
            popupOf(picker)->hide();
        }
    }

    void keysMoveInTheGrid_data()
    {
        QTest::addColumn<int>("from");
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("to"); // 7 is the button
        // 0 1 2
        // 3 4 5
        // 6 7
        const struct {
            int from;
            Qt::Key key;
            int to;
        } rows[] = {{4, Qt::Key_Up, 1},    {1, Qt::Key_Up, 0},    {4, Qt::Key_Down, 7},
                    {5, Qt::Key_Down, 7},  {6, Qt::Key_Down, 6},  {5, Qt::Key_Left, 4},
                    {3, Qt::Key_Left, 2},  {0, Qt::Key_Left, 0},  {6, Qt::Key_Right, 7},
                    {2, Qt::Key_Right, 3}, {7, Qt::Key_Right, 7}, {7, Qt::Key_Up, 4}};
        for (const auto& row : rows)
            QTest::addRow("%d key %x", row.from, row.key) << row.from << int(row.key) << row.to;
    }
    void keysMoveInTheGrid()
    {
        ColorPickerPopup popup(3, true);
        for (int i = 0; i < 7; ++i)
            popup.insertColor(QColor(i, 0, 0), QString::number(i), -1);
        QList<QWidget*> cells;
        for (ColorPickerItem* item : popup.items())
            cells << item;
        cells << popup.findChild<ColorPickerButton*>();
        popup.show();
        QCOMPARE(popup.focusWidget(), cells.first());
        QFETCH(int, from);
        QFETCH(int, key);
        QFETCH(int, to);
        cells.at(from)->setFocus();
        QTest::keyClick(cells.at(from), Qt::Key(key)); // goes on to the grid
        QCOMPARE(cells.indexOf(popup.focusWidget()), to);
    }

    void keysChoose()
    {
        ColorPicker picker;
        picker.insertColor(Qt::red, "red");
        picker.insertColor(Qt::blue, "blue");
        const QSignalSpy changed(&picker, &ColorPicker::colorChanged);
        const struct {
            Qt::Key move, choose;
            QColor color;
        } rows[] = {{Qt::Key_Right, Qt::Key_Return, Qt::blue},
                    {Qt::Key_Left, Qt::Key_Enter, Qt::red},
                    {Qt::Key_Right, Qt::Key_Space, Qt::blue},
                    {Qt::Key_Left, Qt::Key_Escape, Qt::blue}};
        for (const auto& row : rows) {
            ColorPickerPopup* popup = open(picker);
            QTest::keyClick(popup->focusWidget(), row.move);
            QTest::keyClick(popup->focusWidget(), row.choose);
            QVERIFY(!popup->isVisible() && !picker.isChecked());
            QCOMPARE(picker.currentColor(), row.color);
        }
        QCOMPARE(changed.size(), 3);

        auto* button = picker.findChild<ColorPickerButton*>();
        open(picker);
        button->setFocus();
        QTest::keyPress(button, Qt::Key_Space);
        QCOMPARE(button->frameShadow(), QFrame::Sunken);
        answerDialog(chosenColor, QDialog::Accepted);
        QTest::keyRelease(button, Qt::Key_Space);
        QCOMPARE(picker.currentColor(), chosenColor);
        ColorPickerPopup* popup = open(picker);
        button->setFocus();
        answerDialog(Qt::green, QDialog::Rejected);
        QTest::keyClick(popup, Qt::Key_Return);
        QCOMPARE(changed.size(), 4);
    }

    void customColorsAreNumberedAndKept()
    {
        {
            ColorPicker picker;
            picker.setStandardColors();
            auto* more = picker.findChild<ColorPickerButton*>();
            QColor first;
            answerDialog(chosenColor, QDialog::Accepted, &first);
            User::click(more);
            QCOMPARE(first, QColor::fromHsv(76, 184, 206));
            QCOMPARE(picker.currentColor(), chosenColor);
            QCOMPARE(picker.text(), QString("Custom 01"));
            QColor second;
            answerDialog(QColor(4, 5, 6), QDialog::Accepted, &second);
            User::click(more);
            QCOMPARE(second, chosenColor);
            // A refused one, one that has a cell, and the ground: neither saved nor counted.
            answerDialog(QColor(7, 8, 9), QDialog::Rejected);
            User::click(more);
            answerDialog(QColor::fromHsv(0, 255, 255), QDialog::Accepted);
            User::click(more);
            answerDialog(picker.palette().color(QPalette::Base), QDialog::Accepted);
            User::click(more);
            QCOMPARE(picker.currentColor(), QColor(4, 5, 6));
            QCOMPARE(storedMap(), QStringList({Prefix::add("Custom 01", 21) + " #010203",
                                               Prefix::add("Custom 02", 22) + " #040506"}));
            QCOMPARE(AppSettings().value("ColorMap/Count", 0).toInt(), 2);
        }
        ColorPicker next;
        next.setStandardColors();
        QCOMPARE(next.colorList().mid(20), QList<QColor>({chosenColor, QColor(4, 5, 6)}));
        answerDialog(QColor(7, 8, 9), QDialog::Accepted);
        User::click(next.findChild<ColorPickerButton*>());
        QCOMPARE(next.text(), QString("Custom 03"));
    }

    void changingACustomColor()
    {
        store({{Prefix::add("Custom 01", 21), QColor(1, 1, 1)},
               {Prefix::add("Custom 02", 22), QColor(2, 2, 2)},
               {Prefix::add("Custom 01", 30), QColor(3, 3, 3)}},
              7);
        ColorPicker picker;
        picker.setStandardColors();
        picker.setCurrentColor(Qt::darkYellow);
        const QSignalSpy changed(&picker, &ColorPicker::colorChanged);
        ColorPickerItem* item = popupOf(picker)->items().at(20);
        QColor shown;
        answerDialog(chosenColor, QDialog::Accepted, &shown);
        rightClick(item);
        QCOMPARE(shown, QColor(1, 1, 1));
        QCOMPARE(item->color(), chosenColor);
        QCOMPARE(item->toolTip(), QString("Custom 01"));
        QVERIFY(changed.isEmpty());
        // One entry is left for the cell, in its old place.
        const QStringList expected{Prefix::add("Custom 01", 21) + " #010203",
                                   Prefix::add("Custom 02", 22) + " #020202"};
        QCOMPARE(storedMap(), expected);
        QCOMPARE(AppSettings().value("ColorMap/Count", 0).toInt(), 2);

        answerDialog(QColor(9, 9, 9), QDialog::Rejected);
        rightClick(item);
        QCOMPARE(storedMap(), expected);
        popupOf(picker)->cmenu(QPoint()); // from nobody: only a line
        QVERIFY(debugLines().join('\n').contains("ColorPickerPopup::cmenu()"));

        picker.setCurrentColor(QColor(50, 50, 50)); // a host's own cell enters the store like this
        answerDialog(QColor(60, 60, 60), QDialog::Accepted);
        rightClick(popupOf(picker)->items().last());
        QCOMPARE(storedMap().last(), Prefix::add("Custom", picker.colorList().size()) + " #3c3c3c");
        QCOMPARE(AppSettings().value("ColorMap/Count", 0).toInt(), 3);
    }

    void brokenStore()
    {
        store({{"no prefix", "#0a0b0c"},
               {Prefix::add("x", 3), 5},
               {Prefix::add("y", 4), QVariantList()}},
              "many");
        ColorPicker picker(nullptr, -1, false);
        picker.setStandardColors();
        const QList<QColor> custom = picker.colorList().mid(20);
        QCOMPARE(custom.size(), 2); // one cell for all that is no colour
        QCOMPARE(custom.count(QColor(10, 11, 12)), 1);
        QVERIFY(picker.currentColor().isValid());
        store({}, std::numeric_limits<int>::max());
        ColorPickerPopup popup(-1, true);
        answerDialog(chosenColor, QDialog::Accepted);
        popup.getColorFromDialog();
        QCOMPARE(storedMap().size(), 1);
    }

    void choosingWithoutAButton_data()
    {
        QTest::addColumn<QString>("act");
        QTest::addColumn<QColor>("chosen");
        QTest::newRow("a cell") << "click" << QColor(Qt::lightGray);
        QTest::newRow("the dialog") << "dialog" << chosenColor;
        QTest::newRow("closed") << "close" << QColor();
        QTest::newRow("destroyed") << "delete" << QColor();
    }
    void choosingWithoutAButton()
    {
        QFETCH(QString, act);
        QTimer::singleShot(0, this, [act] {
            auto* popup = qobject_cast<ColorPickerPopup*>(QApplication::activePopupWidget());
            if (!popup || popup->items().size() != 2 || popup->pos() != QPoint(70, 80))
                qFatal("no popup with two greys in its place");
            if (!QTest::qWaitForWindowExposed(popup))
                qFatal("the popup does not show");
            if (act == "click")
                User::click(popup->items().last());
            if (act == "dialog") {
                answerDialog(chosenColor, QDialog::Accepted);
                User::click(popup->findChild<ColorPickerButton*>());
            }
            if (act == "close")
                popup->close();
            if (act == "delete")
                delete popup;
        });
        const QColor chosen = ColorPicker::getColor(QPoint(70, 80), act == "dialog");
        QTEST(chosen, "chosen");
    }

    void hostDestroysThePicker_data()
    {
        QTest::addColumn<QString>("when");
        for (const char* when : {"mouse", "key", "dialog chosen", "dialog open", "set"})
            QTest::newRow(when) << when;
    }
    void hostDestroysThePicker()
    {
        QFETCH(QString, when);
        QPointer<ColorPicker> picker(new ColorPicker);
        picker->setStandardColors();
        connect(picker, &ColorPicker::colorChanged, this, [picker] { delete picker; });
        ColorPickerPopup* popup = open(*picker);
        if (when == "mouse")
            User::click(popup->items().first());
        if (when == "key")
            QTest::keyClick(popup, Qt::Key_Left), QTest::keyPress(popup, Qt::Key_Return);
        if (when == "set")
            picker->setCurrentColor(Qt::red);
        if (when == "dialog chosen") {
            answerDialog(chosenColor, QDialog::Accepted);
            popup->getColorFromDialog();
            QCOMPARE(storedMap().size(), 1);
        }
        if (when == "dialog open") {
            QTimer::singleShot(0, this, [picker] { delete picker; });
            popup->getColorFromDialog();
            QVERIFY(storedMap().isEmpty());
        }
        QVERIFY(!picker);
    }

    void pictures()
    {
        ColorPicker picker;
        picker.resize(60, 30);
        picker.setCurrentColor(Qt::red);
        const QImage button = picker.grab().toImage();
        QCOMPARE(button.pixelColor(1, 1), QColor(90, 91, 92));
        QCOMPARE(button.pixelColor(2, 2), QColor(60, 63, 65));
        QCOMPARE(button.pixelColor(58, 28), QColor(60, 63, 65));
        QCOMPARE(button.pixelColor(30, 15), QColor(Qt::red));
        QCOMPARE(button.pixelColor(59, 29), QColor(90, 91, 92));

        ColorPickerItem item(Qt::green, "green");
        QCOMPARE(item.size(), QSize(24, 21));
        for (const bool selected : {false, true}) {
            item.setSelected(selected);
            const QImage cell = item.grab().toImage();
            QCOMPARE(cell.pixelColor(3, 3), QColor(Qt::black));
            QCOMPARE(cell.pixelColor(4, 4), QColor(Qt::green));
            QCOMPARE(cell.pixelColor(22, 19), QColor(Qt::green));
            QCOMPARE(cell.pixelColor(1, 1) == QColor(Qt::gray), selected);
        }

        ColorPickerButton more;
        QCOMPARE(more.frameRect(), QRect(QPoint(2, 2), QPoint(21, 18)));
        const QColor ink = more.palette().color(QPalette::ButtonText);
        QImage dots = more.grab().toImage();
        for (const int x : {8, 12, 16})
            QCOMPARE(dots.pixelColor(x, 10), ink);
        QCOMPARE(dots.pixelColor(10, 10), QColor(90, 91, 92));
        User::press(&more);
        dots = more.grab().toImage();
        QCOMPARE(dots.pixelColor(9, 11), ink);
        QVERIFY(dots.pixelColor(8, 9) != ink && dots.pixelColor(7, 10) != ink);
    }
};

AXR_TEST_MAIN(ColorPickerTest)
#include "ColorPickerTest.moc"
