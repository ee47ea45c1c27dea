#include "ColorDialog.h"
#include "ColorPicker.h"
#include "ColorPickerButton_p.h"
#include "ColorPickerItem_p.h"
#include "ColorPickerPopup_p.h"
#include "Screen.h"
#include "TestCase.h"

#include <QtWidgets>

namespace
{

/// A picker beside a button that has the focus.
struct ShownPicker {
    QWidget window;
    QPushButton* other = new QPushButton("other");
    ColorPicker* picker = new ColorPicker;
    ColorPickerPopup* popup = picker->findChild<ColorPickerPopup*>();

    ShownPicker()
    {
        auto* row = new QHBoxLayout(&window);
        row->addWidget(other);
        row->addWidget(picker);
        picker->setMinimumSize(60, 30);
        picker->setStandardColors();
        Screen::show(&window);
        other->setFocus();
    }
    ~ShownPicker() { Screen::letGo(); }

    bool isOpen() const
    {
        return popup->isVisible() && popup->windowHandle()->isExposed() &&
               Screen::has(Screen::picture(popup), "tomato");
    }
    /// Closed, and the button can be used by key again.
    bool isBack() const { return !popup->isVisible() && picker->hasFocus(); }
    ColorPickerButton* more() const { return popup->findChild<ColorPickerButton*>(); }
};

/// Presses the key in the next colour dialog.
void keyInDialog(const QString& key, bool* wasThere)
{
    Screen::meanwhile(
        [=] {
            auto* dialog = qobject_cast<ColorDialog*>(QApplication::activeModalWidget());
            if (!dialog || !dialog->isActiveWindow())
                return keyInDialog(key, wasThere);
            *wasThere = Screen::has(Screen::picture(dialog), dialog->color());
            Screen::key(key);
        },
        20);
}

} // namespace

class ColorPickerScreenTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void gridByPointerAndKey_data()
    {
        QTest::addColumn<bool>("isManaged");
        QTest::newRow("bare display") << false;
        QTest::newRow("window manager") << true;
    }
    void gridByPointerAndKey()
    {
        QFETCH(bool, isManaged);
        const Screen::WindowManager manager(isManaged);
        ShownPicker shown;
        Screen::click(shown.picker);
        QVERIFY(Screen::waitFor([&] { return shown.isOpen(); }));
        Screen::click(shown.popup->find(Qt::red));
        QVERIFY(Screen::waitFor([&] { return shown.isBack(); }));
        QCOMPARE(shown.picker->currentColor(), QColor(Qt::red));
        QVERIFY(
            Screen::waitFor([&] { return Screen::has(Screen::picture(shown.picker), Qt::red); }));

        for (const char* key : {"Escape", "Return", "space"}) {
            const QColor before = shown.picker->currentColor();
            shown.other->setFocus();
            Screen::key("Tab");
            QVERIFY(shown.picker->hasFocus());
            Screen::key("space");
            QVERIFY(Screen::waitFor([&] { return shown.isOpen(); }));
            QCOMPARE(QApplication::focusWidget(), shown.popup->find(before));
            Screen::key("Right");
            Screen::key(key);
            QVERIFY2(Screen::waitFor([&] { return shown.isBack(); }), key);
            QCOMPARE(shown.picker->currentColor() == before, key == QString("Escape"));
            QVERIFY(!shown.picker->isChecked());
        }
        Screen::click(shown.picker);
        QVERIFY(Screen::waitFor([&] { return shown.isOpen(); }));
        Screen::click(QPoint(900, 700)); // beside it
        QVERIFY(Screen::waitFor([&] { return shown.isBack(); }));
    }

    void dialogByPointerAndKey_data() { gridByPointerAndKey_data(); }
    void dialogByPointerAndKey()
    {
        QFETCH(bool, isManaged);
        const Screen::WindowManager manager(isManaged);
        ShownPicker shown;
        int colors = shown.picker->colorList().size();
        for (const char* by : {"pointer", "Return", "space"}) {
            for (const char* answer : {"Escape", "Return"}) {
                Screen::click(shown.picker);
                QVERIFY(Screen::waitFor([&] { return shown.isOpen(); }));
                bool wasThere = false;
                keyInDialog(answer, &wasThere);
                if (by == QString("pointer")) {
                    Screen::click(shown.more());
                } else {
                    for (int i = 0; i < 6; ++i) // to the last row, which ends with that cell
                        Screen::key("Down");
                    QVERIFY(shown.more()->hasFocus());
                    Screen::key(by);
                }
                QVERIFY(Screen::waitFor([&] { return wasThere; }));
                QVERIFY(Screen::waitFor([&] { return shown.isBack(); }));
            }
            // The first choice got a cell; the dialog offers it again, which changes nothing.
            QCOMPARE(shown.picker->colorList().size(), colors + 1);
        }
    }

    /// Each state has a sign of its own at the edge, on a light and a dark ground.
    void statesAreSeen_data()
    {
        QTest::addColumn<QColor>("ground");
        QTest::addColumn<QColor>("ink");
        QTest::newRow("light") << QColor(240, 235, 231) << QColor(Qt::black);
        QTest::newRow("dark") << QColor(0, 80, 187) << QColor(Qt::white);
    }
    void statesAreSeen()
    {
        QFETCH(QColor, ground);
        QFETCH(QColor, ink);
        ShownPicker shown;
        QPalette palette = shown.window.palette();
        for (QPalette::ColorRole role : {QPalette::Button, QPalette::Window})
            palette.setColor(role, ground);
        shown.window.setPalette(palette);
        const auto edge = [](const QWidget* widget) {
            Screen::pass(100);
            return Screen::picture(widget).copy(0, 0, widget->width(), 1);
        };
        const auto checkStates = [&](QWidget* widget) {
            const QImage plain = edge(widget);
            QVERIFY(Screen::has(plain, ground, 2) && !Screen::has(plain, ink));
            widget->setFocus();
            const QImage focused = edge(widget);
            QVERIFY(Screen::has(focused, ink) && !Screen::has(focused, ground, 2));
            widget->setEnabled(false);
            const QImage disabled = edge(widget);
            QVERIFY(disabled != plain && disabled != focused);
            widget->setEnabled(true);
        };
        checkStates(shown.picker);
        Screen::click(shown.picker);
        QVERIFY(Screen::waitFor([&] { return shown.isOpen(); }));
        checkStates(shown.more());
        shown.popup->hide();
    }
};

AXR_TEST_MAIN(ColorPickerScreenTest)
#include "ColorPickerScreenTest.moc"
