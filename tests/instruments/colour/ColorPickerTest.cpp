#include "ColorPicker.h"
#include "AppSettings.h"
#include "ColorDialog.h"
#include "ColorPickerButton_p.h"
#include "ColorPickerItem_p.h"
#include "ColorPickerPopup_p.h"
#include "ColorTriangle.h"
#include "ColorViewer.h"
#include "Prefix.h"
#include "SignalLog.h"
#include "TestCase.h"
#include "User.h"

#include <QtWidgets>

namespace
{

const QColor base(60, 63, 65); // as under a theme: a white one would swallow the white cell
const QColor ground(90, 91, 92);
const QColor around(70, 71, 72);
const QColor chosenColor(1, 2, 3);

struct Picker : ColorPicker {
    ColorPickerPopup* popup = findChild<ColorPickerPopup*>();
    ColorPickerButton* more = findChild<ColorPickerButton*>();
    SignalLog log{this, {"colorChanged"}};

    explicit Picker(int columns = -1, bool withDialog = true)
        : ColorPicker(nullptr, columns, withDialog)
    {
    }
    /// Opens the grid.
    void open()
    {
        show();
        QApplication::setActiveWindow(this);
        User::click(this);
    }
    ColorPickerItem* cell(int index) const { return popup->items().at(index); }
    /// Caption, colour, what was emitted, and whether the grid is closed.
    QString told()
    {
        return text() + currentColor().name() + log.takeLines().join(' ').remove("colorChanged") +
               (popup->isVisible() || isChecked() ? " open" : "");
    }
};

/// The stored custom colours and their count, in their order.
QString stored()
{
    QString lines;
    const QMap<QString, QVariant> map = AppSettings().getColorCustomMap("Default");
    for (auto entry = map.begin(); entry != map.end(); ++entry)
        lines += entry.key().mid(8) + entry.value().value<QColor>().name() + ' ';
    return lines + AppSettings().value("ColorMap/Count", "none").toString();
}

/// Does this once something modal, or a popup, is open.
template <class Window, class Act>
void onceOpen(Act act)
{
    QTimer::singleShot(0, qApp, [=] {
        QWidget* modal = QApplication::activeModalWidget();
        auto* window = qobject_cast<Window*>(modal ? modal : QApplication::activePopupWidget());
        if (!window)
            qFatal("it did not open");
        act(window);
    });
}

/// Answers the next colour dialog; an invalid colour refuses.
void answerDialog(const QColor& color, QColor* shown = nullptr)
{
    onceOpen<ColorDialog>([=](ColorDialog* dialog) {
        if (shown)
            *shown = dialog->color();
        dialog->setColor(color.isValid() ? color : Qt::green);
        dialog->done(color.isValid() ? QDialog::Accepted : QDialog::Rejected);
    });
}

void rightClick(ColorPickerItem* item)
{
    QTest::mouseClick(item, Qt::RightButton);
    emit item->customContextMenuRequested(QPoint());
}

/// The colours of a row of pixels, or of a column.
QString line(QWidget& widget, int at, bool down = false)
{
    const QMap<QString, QChar> letters = {
        {"#000000", 'b'},   {"#ffffff", 'w'},     {"#ff0000", 'r'},    {"#a0a0a4", 'g'},
        {base.name(), 'B'}, {ground.name(), '.'}, {around.name(), '-'}};
    const QImage image = widget.grab().toImage();
    QString text;
    for (int i = 0; i < (down ? image.height() : image.width()); ++i)
        text += letters.value(image.pixelColor(down ? at : i, down ? i : at).name(), '?');
    return text;
}

} // namespace

class ColorPickerTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase()
    {
        QPalette palette = QApplication::palette();
        palette.setColor(QPalette::Base, base);
        palette.setColor(QPalette::Button, ground);
        palette.setColor(QPalette::Window, around);
        palette.setColor(QPalette::ButtonText, Qt::white);
        QApplication::setPalette(palette);
        qApp->installEventFilter(this);
    }

    /// Keeps all windows off the display, where those of other programs would take the focus from
    /// grid and dialog. What needs a display is in ColorPickerScreenTest.
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        auto* widget = qobject_cast<QWidget*>(watched);
        if (event->type() == QEvent::Polish && widget && widget->isWindow())
            widget->setAttribute(Qt::WA_DontShowOnScreen);
        return false;
    }

    void standardColors()
    {
        Picker picker;
        QCOMPARE(picker.told(), QString("Black#000000"));
        for (int i = 0; i < 2; ++i)
            picker.setStandardColors();
        QString cells;
        for (const ColorPickerItem* item : picker.popup->items())
            cells += item->toolTip() + item->color().name() + ' ';
        QCOMPARE(cells, QString("Red#ff0000 Green#00ff00 Blue#0000ff Cyan#00ffff Magenta#ff00ff "
                                "Yellow#ffff00 Dark red#800000 Dark green#008000 Dark blue#000080 "
                                "Dark cyan#008080 Dark magenta#800080 Dark yellow#808000 "
                                "Tomato#ff6347 Light green#90ee90 Light skyblue#87cefa "
                                "Black#000000 White#ffffff Gray#a0a0a4 Dark gray#808080 "
                                "Light gray#c0c0c0 "));
        QCOMPARE(picker.cell(0)->accessibleName(), QString("Red #ff0000"));
        QCOMPARE(picker.popup->findChild<QGridLayout*>()->columnCount(), 5);
        QCOMPARE(picker.told(), QString("Black#000000"));
    }

    void insertion()
    {
        Picker picker(2, false);
        picker.insertColor(Qt::red, "a");
        picker.insertColor(Qt::blue, "b", 0);
        picker.insertColor(Qt::green, "c", 99);
        picker.insertColor(base, "ground");
        QCOMPARE(picker.colorList(), QList<QColor>({Qt::blue, Qt::red, Qt::green}));
        QVERIFY(picker.color(2) == Qt::green && !picker.color(3).isValid());
        QVERIFY(!picker.color(-1).isValid());
        QCOMPARE(picker.popup->findChild<QGridLayout*>()->columnCount(), 2);
        picker.setColorDialogEnabled(true);
        picker.insertColor(Qt::cyan, "d");
        QCOMPARE(picker.told(), QString("c#00ff00")); // current without the dialog, and silently
    }

    void settingTheColor()
    {
        Picker picker;
        picker.setStandardColors();
        picker.open();
        QCOMPARE(picker.told(), QString("Black#000000 open"));
        QCOMPARE(picker.popup->focusWidget(), picker.cell(15));
        User::click(picker.cell(12));
        QCOMPARE(picker.told(), QString("Tomato#ff6347 #ff6347"));
        picker.open();
        for (int i = 0; i < 20; ++i)
            QCOMPARE(picker.cell(i)->isSelected(), i == 12);
        const QPair<QColor, QString> rows[] = {{QColor::fromHsv(0, 255, 255), "Red#ff0000 #ff0000"},
                                               {Qt::red, "Red#ff0000"},
                                               {QColor(), "Red#ff0000"},
                                               {chosenColor, "Custom#010203 #010203"},
                                               {base, "Custom" + base.name() + ' ' + base.name()}};
        for (const auto& [color, told] : rows) {
            picker.setCurrentColor(color);
            QCOMPARE(picker.told(), told);
        }
        QCOMPARE(picker.colorList().mid(20), QList<QColor>{chosenColor});
    }

    void dialogShowsItsColor()
    {
        ColorDialog dialog(QColor(0x12, 0xAB, 0xEF));
        QCOMPARE(dialog.size(), QSize(400, 400));
        dialog.grab(); // lays it out
        const QRect triangle = dialog.findChild<ColorTriangle*>()->geometry();
        const QRect viewer = dialog.findChild<ColorViewer*>()->geometry();
        const QRect buttons = dialog.findChild<QDialogButtonBox*>()->geometry();
        QVERIFY(triangle.bottom() < viewer.top() && triangle.height() > 300);
        QVERIFY(triangle.right() == buttons.right() && triangle.left() == viewer.left());
        QVERIFY(viewer.right() < buttons.left() && viewer.width() > 100);
        QCOMPARE(dialog.grab().toImage().pixelColor(viewer.topLeft() + QPoint(4, 4)),
                 dialog.color());
        QVERIFY(ColorDialog(QColor()).color().isValid());
    }

    void popupStaysOnTheDesktop()
    {
        Picker picker;
        picker.setStandardColors();
        picker.resize(60, 20);
        const QRect desktop = QGuiApplication::primaryScreen()->availableGeometry();
        const QRect corners = desktop.adjusted(-30, -5, -30, -10);
        for (const QPoint& place : {corners.topLeft(), desktop.center(), corners.bottomRight()}) {
            picker.move(place);
            picker.setChecked(true);
            QVERIFY(desktop.contains(picker.popup->geometry()));
            QCOMPARE(picker.popup->pos() == picker.mapToGlobal(picker.rect().bottomLeft()),
                     place == desktop.center());
            picker.popup->hide();
        }
    }

    void keysMoveInTheGrid()
    {
        ColorPickerPopup popup(3, true);
        QList<QWidget*> cells;
        for (int i = 0; i < 7; ++i) {
            popup.insertColor(QColor(i, 0, 0), QString::number(i), -1);
            cells << popup.items().last();
        }
        cells << popup.findChild<ColorPickerButton*>();
        popup.show();
        QCOMPARE(popup.focusWidget(), cells.first());
        const QMap<QChar, Qt::Key> keys = {
            {'^', Qt::Key_Up}, {'v', Qt::Key_Down}, {'<', Qt::Key_Left}, {'>', Qt::Key_Right}};
        // 0 1 2
        // 3 4 5
        // 6 7, which is the button
        for (const QString& move :
             QString("4^1 1^0 4v7 5v7 6v6 5<4 3<2 0<0 6>7 2>3 7>7 7^4 7<6").split(' ')) {
            QWidget* from = cells.at(move.at(0).digitValue());
            from->setFocus();
            QTest::keyClick(from, keys.value(move.at(1))); // goes on to the grid
            QVERIFY2(popup.focusWidget() == cells.at(move.at(2).digitValue()), qPrintable(move));
        }
    }

    void keysChoose()
    {
        Picker picker;
        picker.insertColor(Qt::red, "red");
        picker.insertColor(Qt::blue, "blue");
        const struct {
            Qt::Key move, choose;
            QString told;
        } rows[] = {{Qt::Key_Right, Qt::Key_Return, "blue#0000ff #0000ff"},
                    {Qt::Key_Left, Qt::Key_Enter, "red#ff0000 #ff0000"},
                    {Qt::Key_Right, Qt::Key_Space, "blue#0000ff #0000ff"},
                    {Qt::Key_Left, Qt::Key_Escape, "blue#0000ff"}};
        for (const auto& row : rows) {
            picker.open();
            QTest::keyClick(picker.popup->focusWidget(), row.move);
            QTest::keyClick(picker.popup->focusWidget(), row.choose);
            QCOMPARE(picker.told(), row.told);
        }
        for (int i = 1; i < 3; ++i) { // on the dialog's cell, and with it in the focus
            picker.open();
            picker.more->setFocus();
            answerDialog(QColor(i, i, i));
            QTest::keyClick(i == 1 ? picker.more : (QWidget*)picker.popup, Qt::Key_Return);
            QCOMPARE(picker.text(), QString("Custom 0%1").arg(i));
        }
    }

    void customColorsAreNumberedAndKept()
    {
        Picker picker;
        picker.setStandardColors();
        QColor shown;
        answerDialog(chosenColor, &shown);
        User::click(picker.more);
        QCOMPARE(shown, QColor::fromHsv(76, 184, 206));
        QCOMPARE(picker.told(), QString("Custom 01#010203 #010203"));
        // A refused one, one that has a cell, and the ground: neither saved nor counted.
        for (const QColor& color :
             {QColor(4, 5, 6), QColor(), QColor::fromHsv(0, 255, 255), base}) {
            answerDialog(color, &shown);
            User::click(picker.more);
        }
        QCOMPARE(shown, QColor(4, 5, 6));
        QCOMPARE(picker.told(), QString("Custom 02#040506 #040506"));
        QCOMPARE(stored(), QString("21:Custom 01#010203 22:Custom 02#040506 2"));
        Picker next;
        next.setStandardColors();
        QCOMPARE(next.colorList().mid(20), QList<QColor>({chosenColor, {4, 5, 6}}));
        answerDialog(QColor(7, 8, 9));
        User::click(next.more);
        QCOMPARE(next.text(), QString("Custom 03"));
    }

    void changingACustomColor()
    {
        AppSettings().saveColorCustomMap({{Prefix::add("Custom 01", 21), QColor(1, 1, 1)},
                                          {Prefix::add("Custom 02", 22), QColor(2, 2, 2)},
                                          {Prefix::add("Custom 01", 30), QColor(3, 3, 3)}},
                                         "Default");
        Picker picker;
        picker.setStandardColors();
        QColor shown;
        answerDialog(chosenColor, &shown);
        rightClick(picker.cell(20));
        QCOMPARE(shown, QColor(1, 1, 1));
        QCOMPARE(picker.cell(20)->toolTip() + picker.cell(20)->color().name(),
                 QString("Custom 01#010203"));
        QCOMPARE(picker.told(), QString("Black#000000"));
        // One entry is left for the cell, in its old place.
        const QString wanted = "21:Custom 01#010203 22:Custom 02#020202 2";
        QCOMPARE(stored(), wanted);
        for (const QColor& refused : {QColor(), QColor(Qt::red), base}) {
            answerDialog(refused);
            rightClick(picker.cell(20));
            QCOMPARE(stored(), wanted);
        }
        rightClick(picker.cell(0));    // asks nothing
        picker.popup->cmenu(QPoint()); // from nobody: only a line
        QVERIFY(debugLines().join('\n').contains("ColorPickerPopup::cmenu()"));

        picker.setCurrentColor(QColor(50, 50, 50)); // a host's own cell enters the store like this
        answerDialog(QColor(60, 60, 60));
        rightClick(picker.popup->items().last());
        QCOMPARE(stored(), wanted.chopped(1) + "24:Custom#3c3c3c 3");
    }

    void brokenStore()
    {
        AppSettings().saveColorCustomMap(
            {{"no prefix", "#0a0b0c"}, {Prefix::add("x", 3), 5}, {"y", QVariantList()}}, "Default");
        AppSettings().setValue("ColorMap/Count", std::numeric_limits<int>::max());
        Picker picker;
        picker.setStandardColors();
        const QList<QColor> custom = picker.colorList().mid(20);
        QCOMPARE(custom.size(), 2); // one cell for all that is no colour
        QVERIFY(custom.contains(QColor(10, 11, 12)) && picker.currentColor().isValid());
        answerDialog(chosenColor);
        picker.popup->getColorFromDialog();
        QVERIFY(stored().endsWith(" 2147483647"));
    }

    void choosingWithoutAButton()
    {
        for (const QString act : {"cell", "dialog", "close", "delete"}) {
            onceOpen<ColorPickerPopup>([act](ColorPickerPopup* popup) {
                if (popup->items().size() != 2 || popup->pos() != QPoint(70, 80))
                    qFatal("no popup with two greys in its place");
                if (act == "cell")
                    User::click(popup->items().last());
                if (act == "dialog") {
                    answerDialog(chosenColor);
                    User::click(popup->findChild<ColorPickerButton*>());
                }
                if (act == "close")
                    popup->close();
                if (act == "delete")
                    delete popup;
            });
            const QColor wanted = act == "cell"     ? Qt::lightGray
                                  : act == "dialog" ? chosenColor
                                                    : QColor();
            QCOMPARE(ColorPicker::getColor(QPoint(70, 80), act == "dialog"), wanted);
        }
        Picker picker;
        picker.setStandardColors();
        onceOpen<ColorPickerPopup>([&](ColorPickerPopup* popup) {
            QCOMPARE(picker.exec(), QColor(Qt::black)); // returns at once
            User::click(popup->items().first());
        });
        QCOMPARE(picker.exec(), QColor(Qt::red));
        onceOpen<ColorPickerPopup>([](QWidget* popup) { delete popup->parentWidget(); });
        QVERIFY(!(new ColorPicker)->exec().isValid());
    }

    void hostDestroysThePicker()
    {
        for (const QString when : {"mouse", "key", "dialog", "set"}) {
            auto* picker = new Picker;
            picker->setStandardColors();
            picker->open();
            QVERIFY2(endsInside(picker, "colorChanged(QColor)",
                                [&] {
                                    ColorPickerPopup* popup = picker->popup;
                                    if (when == "mouse")
                                        User::click(picker->cell(0));
                                    if (when == "key")
                                        QTest::keyClick(popup, Qt::Key_Left),
                                            QTest::keyPress(popup, Qt::Key_Return);
                                    if (when == "dialog")
                                        answerDialog(chosenColor), popup->getColorFromDialog();
                                    if (when == "set")
                                        picker->setCurrentColor(Qt::red);
                                }),
                     qPrintable(when));
        }
        QCOMPARE(stored(), QString("21:Custom 01#010203 1"));
        auto* picker = new Picker;
        onceOpen<ColorDialog>([=](QDialog*) { delete picker; });
        picker->popup->getColorFromDialog();
        QCOMPARE(stored(), QString("21:Custom 01#010203 1"));
    }

    void pictures()
    {
        Picker picker;
        picker.resize(10, 9);
        picker.setCurrentColor(Qt::red);
        ColorPickerItem item(Qt::red, "red");
        ColorPickerButton more;
        ColorViewer viewer;
        viewer.resize(11, 10);
        viewer.changeColor(Qt::red);
        QStringList seen{line(picker, 5), line(picker, 5, true), line(item, 10),
                         line(item, 12, true)};
        item.setSelected(true);
        seen << line(item, 10) << line(item, 12, true);
        item.show();
        QApplication::setActiveWindow(&item);
        item.setFocus();
        seen << line(item, 10) << line(item, 12, true) << line(more, 10);
        User::press(&more);
        seen << line(more, 10) << line(more, 11) << line(viewer, 3) << line(viewer, 3, true);
        QCOMPARE(seen.join(' '),
                 QString("..BrrrrrB. ..BrrrrB. ---brrrrrrrrrrrrrrrrrrr- ---brrrrrrrrrrrrrrrr- "
                         "-g-brrrrrrrrrrrrrrrrrrr- -g-brrrrrrrrrrrrrrrr- bgwbrrrrrrrrrrrrrrrrrrbw "
                         "bgwbrrrrrrrrrrrrrrrbw --?....ww..ww..ww....?-- --?.....ww..ww..ww...?-- "
                         "--?.....ww..ww..ww...?-- --brrrrrrb- --brrrrrb-"));
        viewer.resize(120, 40);
        for (const int blue : {0x80, 0x81}) { // dark, and no more
            viewer.changeColor(QColor(0x80, 0x80, blue));
            QString text;
            for (int y = 10; y < 30; ++y)
                text += line(viewer, y).mid(4, 110);
            QCOMPARE(text.contains('w'), blue == 0x80);
            QCOMPARE(text.contains('b'), blue == 0x81);
        }
    }
};

AXR_TEST_MAIN(ColorPickerTest)
#include "ColorPickerTest.moc"
