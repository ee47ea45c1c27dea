#include "CommandRecorder.h"
#include "FieldFace_p.h"
#include "MainAppStyle.h"
#include "PositionControl.h"
#include "Screen.h"
#include "SpinBox.h"
#include "TestCase.h"
#include "User.h"

#include <QComboBox>
#include <QLineEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QSlider>
#include <QStyle>
#include <QStyleOptionSpinBox>
#include <QVBoxLayout>

namespace
{

/// A window with fields one below the other, and room below them.
struct Page : QWidget {
    explicit Page(std::initializer_list<QWidget*> fields)
    {
        auto* column = new QVBoxLayout(this);
        for (QWidget* field : fields)
            column->addWidget(field);
        column->addStretch();
        resize(320, 240);
    }
    ~Page() override { Screen::letGo(); }
};

SpinBox* confirmBox(int decimals)
{
    auto* box = new SpinBox;
    box->setDecimals(decimals);
    box->setRange(0, 1000);
    box->setFlags(SpinBox::ChangedOnEnter | SpinBox::ResetOnEscape);
    return box;
}

bool shows(const QWidget* widget, const QColor& colour)
{
    return Screen::waitFor([&] { return Screen::has(Screen::picture(widget), colour); });
}

/// The field with the badge of a sign in it; the badge has the same colours in every look.
bool showsSign(const QAbstractSpinBox* box, FieldSign sign, const QColor& ground)
{
    return Screen::waitFor([&] {
        const auto* edit = box->findChild<QLineEdit*>();
        const FieldFace* face = FieldFace::in(box);
        const QRect place(edit->mapToGlobal(face->signRect().topLeft()), face->signRect().size());
        return face->sign() == sign && edit->textMargins().left() > face->signRect().width() &&
               Screen::has(Screen::picture(place), ground);
    });
}

class SliderBox : public SpinBox
{
public:
    SliderBox() : SpinBox(nullptr, SpinBox::Slider) { setRange(0, 1000); }
    /// Middle of an arrow as it is drawn, above the strip.
    QPoint arrow(QStyle::SubControl which) const
    {
        QStyleOptionSpinBox option;
        initStyleOption(&option);
        option.rect.adjust(0, 0, 0, -20);
        return style()->subControlRect(QStyle::CC_SpinBox, &option, which, this).center();
    }
};

} // namespace

class FieldsScreenTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void coloursComeAndGo()
    {
        auto* box = confirmBox(0);
        Page page({box});
        Screen::show(&page);
        Screen::click(box->findChild<QLineEdit*>());
        Screen::key("ctrl+a");
        Screen::type("42");
        QVERIFY(shows(box, "gold"));
        Screen::type("000");
        QVERIFY(shows(box, "crimson"));
        Screen::key("Return");
        Screen::pass(100);
        QVERIFY(shows(box, "crimson"));
        Screen::key("Escape");
        QVERIFY(Screen::waitFor([&] { return !Screen::has(Screen::picture(box), "crimson"); }));
        QVERIFY(!Screen::has(Screen::picture(box), "gold"));
    }

    void replyJoinsNoTyping()
    {
        auto* box = confirmBox(0);
        Page page({box});
        Screen::show(&page);
        Screen::click(box->findChild<QLineEdit*>());
        for (const char* begun : {"7", "8"}) { // the first one is the value so far
            box->setValue(7);
            Screen::key("ctrl+a");
            Screen::type(begun);
            box->setValue(9);
            Screen::type("5\n");
            QVERIFY(Screen::waitFor([&] { return box->lastValue() == 5.0; }));
        }
    }

    void signsStandInFrontOfTheNumber_data()
    {
        QTest::addColumn<bool>("dark");
        QTest::newRow("plain") << false;
        QTest::newRow("dark") << true;
    }
    void signsStandInFrontOfTheNumber()
    {
        QFETCH(bool, dark);
        auto* box = confirmBox(2);
        auto* panel = new PositionControl;
        auto* position = User::find<QSpinBox>(panel, "sbActualPosition");
        Page page({box, panel});
        MainAppStyle style(&page);
        if (dark)
            style.setMainStyle(true, QString(), QColor(0x00, 0x4D, 0xB9));
        Screen::show(&page);
        Screen::click(box->findChild<QLineEdit*>());
        Screen::key("Up");
        QVERIFY(showsSign(box, FieldSign::Pending, "gold"));
        Screen::key("Escape");
        Screen::key("ctrl+a");
        Screen::type("50000");
        QVERIFY(showsSign(box, FieldSign::Outside, "crimson"));
        box->setValue(7);
        QVERIFY(showsSign(box, FieldSign::Overwritten, "navy"));
        QVERIFY(Screen::waitFor(
            [&] { return box->findChild<QLineEdit*>()->textMargins().left() == 0; }));
        panel->setActualPositionCommandAndRange(1, -1000, 1000);
        Command beyond = reply(1, 6, 1, 0, 5000);
        panel->IN_replyValue(&beyond);
        QVERIFY(showsSign(position, FieldSign::More, "darkorange"));
        if (dark)
            style.setMainStyle(false, QString(), QColor());
    }

    /// Digits that have no room are narrowed, so that all of them stay on the screen; where even
    /// that does not help, a sign says so.
    void noDigitFallsOff_data() { signsStandInFrontOfTheNumber_data(); }
    void noDigitFallsOff()
    {
        QFETCH(bool, dark);
        PositionControl panel;
        MainAppStyle style(&panel);
        if (dark)
            style.setMainStyle(true, QString(), QColor(0x00, 0x4D, 0xB9));
        Screen::show(&panel);
        auto* field = User::find<QSpinBox>(&panel, "sbActualPosition");
        const auto* edit = field->findChild<QLineEdit*>();
        const auto answer = [&panel](int value) {
            Command command = reply(1, 6, 0, 0, value);
            panel.IN_replyValue(&command);
        };
        const auto room = [edit] { return edit->width() - edit->textMargins().left() - 4; };
        const auto width = [edit] { return edit->fontMetrics().horizontalAdvance(edit->text()); };
        for (int fontSize : {12, 20}) {
            panel.setStyleSheet(QString("* {font-size: %1px}").arg(fontSize));
            answer(-2147483647);
            field->setFixedWidth(1000);
            QVERIFY(Screen::waitFor([&] { return room() > 500; }));
            const int natural = width();
            const int around = field->width() - room();
            const int stretch = edit->font().stretch();
            field->setFixedWidth(around + natural * 4 / 5);
            QVERIFY(Screen::waitFor([&] { return width() <= room() && room() < natural; }));
            QCOMPARE(edit->textMargins().left(), 0);
            QCOMPARE(edit->font().pixelSize(), fontSize);
            QVERIFY(Screen::stands(edit));
            field->setFixedWidth(around + natural / 3);
            QVERIFY(Screen::waitFor([&] { return edit->textMargins().left() > 0; }));
            QVERIFY(shows(edit, "black")); // which only the badge has in a disabled field
            answer(1);
            QVERIFY(Screen::waitFor([&] {
                return edit->textMargins().left() == 0 && edit->font().stretch() == stretch;
            }));
        }
        if (dark)
            style.setMainStyle(false, QString(), QColor());
    }

    void sliderArrowsActWhereTheyAreDrawn()
    {
        auto* box = new SliderBox;
        box->setFixedSize(200, 46);
        Page page({box});
        Screen::show(&page);
        box->setValue(500);
        Screen::click(box, QPoint(192, 19));
        QCOMPARE(box->value(), 499.0);
        const struct {
            QStyle::SubControl arrow;
            int step;
        } rows[] = {{QStyle::SC_SpinBoxUp, 1}, {QStyle::SC_SpinBoxDown, -1}};
        for (const auto& row : rows) {
            box->setValue(500);
            const QPoint place = box->arrow(row.arrow);
            Screen::moveTo(box, place);
            Screen::press();
            Screen::moveTo(box, place + QPoint(1, 0));
            Screen::release();
            QCOMPARE(box->value(), 500.0 + row.step);
        }
        Screen::moveTo(box, QPoint(20, 12)); // the field
        Screen::press();
        Screen::moveTo(box, QPoint(100, 12));
        Screen::release();
        QCOMPARE(box->value(), 499.0);
        Screen::moveTo(box, QPoint(20, 36)); // the strip
        Screen::press();
        Screen::moveTo(box, QPoint(100, 36));
        Screen::release();
        QCOMPARE(box->value(), 500.0);
    }

    void wheelWithoutFocusTurnsThePage()
    {
        auto* inside = new QWidget;
        auto* column = new QVBoxLayout(inside);
        auto* panel = new PositionControl;
        auto* lone = new SpinBox;
        column->addWidget(panel);
        column->addWidget(lone);
        column->addSpacing(2000);
        auto* late = new QSlider(Qt::Horizontal, panel); // a host's, made later
        late->setGeometry(5, 100, 60, 20);
        late->setFocusPolicy(Qt::WheelFocus);
        QScrollArea area;
        area.setWidget(inside);
        area.resize(400, 400);
        Screen::show(&area);
        auto* target = User::find<QSpinBox>(panel, "sbTargetPosition");
        auto* relativeTo = User::find<QComboBox>(panel, "cmbRelativeTo");
        auto* bar = area.verticalScrollBar();
        area.setFocus();
        for (QWidget* field : std::initializer_list<QWidget*>{target, relativeTo, lone, late}) {
            bar->setValue(0);
            Screen::moveTo(field);
            Screen::wheel(-1);
            QVERIFY(Screen::waitFor([&] { return bar->value() > 0; }));
            QVERIFY(!field->hasFocus());
        }
        QCOMPARE(target->value(), 0);
        QCOMPARE(relativeTo->currentIndex(), 0);
        QCOMPARE(lone->value(), 0.0);
        QCOMPARE(late->value(), 0);
        bar->setValue(0);
        Screen::click(target->findChild<QLineEdit*>());
        Screen::wheel(-1);
        QVERIFY(Screen::waitFor([&] { return target->value() == -1000; }));
        QCOMPARE(bar->value(), 0);
    }
};

AXR_TEST_MAIN(FieldsScreenTest)
#include "FieldsScreenTest.moc"
