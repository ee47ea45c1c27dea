#include "SpinBox.h"
#include "DoubleValidator.h"
#include "FieldFace_p.h"
#include "Numbers.h"
#include "SpinboxCommand.h"
#include "TestCase.h"
#include "User.h"

#include <QLineEdit>
#include <QToolTip>
#include <QUndoStack>

namespace
{

const SpinBox::Options confirm = SpinBox::ChangedOnEnter | SpinBox::ResetOnEscape;

/// Everything that a box lets out, in order.
class Listener : public QObject
{
    Q_OBJECT
public:
    explicit Listener(SpinBox* box)
    {
        connect(box, SIGNAL(valueChanged(int)), this, SLOT(whole(int)));
        connect(box, SIGNAL(valueChanged(double, double)), this, SLOT(both(double, double)));
        connect(box, SIGNAL(valueChanged(QString)), this, SLOT(text(QString)));
    }
    QStringList take()
    {
        QStringList taken;
        taken.swap(m_lines);
        return taken;
    }
    std::function<void()> onWhole;

private Q_SLOTS:
    void whole(int value)
    {
        m_lines << QString("int %1").arg(value);
        if (onWhole)
            onWhole();
    }
    void both(double value, double last) { m_lines << QString("%1 was %2").arg(value).arg(last); }
    void text(const QString& text) { m_lines << "text " + text; }

private:
    QStringList m_lines;
};

class TextBox : public SpinBox
{
public:
    using SpinBox::SpinBox;
    QLineEdit* edit() const { return lineEdit(); }
    void setTyped(const QString& text) { lineEdit()->setText(text); }
};

Parameter velocity()
{
    Parameter parameter;
    parameter.name = "actual velocity";
    parameter.unit = "rpm";
    parameter.unitFormat = "%1 rpm";
    parameter.number = 3;
    parameter.minimum = -4000;
    parameter.maximum = 4000;
    parameter.valid = true;
    return parameter;
}

QString colourOf(const SpinBox& box)
{
    for (const char* name : {"gold", "crimson"}) {
        if (box.styleSheet().contains(name))
            return name;
    }
    return QString();
}

} // namespace

class SpinBoxTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void construction()
    {
        const SpinBox box;
        QCOMPARE(box.minimum(), -2147483647.0);
        QCOMPARE(box.maximum(), 2147483647.0);
        QCOMPARE(box.decimals(), 0);
        QCOMPARE(box.alignment(), Qt::AlignRight | Qt::AlignVCenter);
        QVERIFY(!box.keyboardTracking());
        QVERIFY(!box.signalsBlocked());
        QVERIFY(SpinBox(nullptr, SpinBox::ChangedOnEnter).signalsBlocked());

        const TextBox result(nullptr, SpinBox::Result);
        QVERIFY(result.isReadOnly());
        QCOMPARE(result.maximum(), 9.99e99);
        QCOMPARE(result.text(), QString("result: 0"));

        TextBox plain(nullptr, SpinBox::NoDots);
        QVERIFY(!qobject_cast<const DoubleValidator*>(plain.edit()->validator()));
        plain.setFlags(SpinBox::Option(0));
        QVERIFY(qobject_cast<const DoubleValidator*>(plain.edit()->validator()));
    }

    void typingWaitsForReturn()
    {
        SpinBox box;
        box.setFlags(confirm);
        Listener listener(&box);
        box.selectAll();
        User::type(&box, "123");
        QTest::keyClick(&box, Qt::Key_Backspace);
        QCOMPARE(colourOf(box), QString("gold"));
        QTest::keyPress(&box, Qt::Key_Return);
        QCOMPARE(listener.take(), QStringList());
        QTest::keyRelease(&box, Qt::Key_Return);
        QCOMPARE(listener.take(), QStringList({"12 was 0", "int 12", "text 12"}));
        QCOMPARE(box.lastValue(), 12.0);
        QCOMPARE(colourOf(box), QString());
        QVERIFY(box.signalsBlocked());
        QTest::keyClick(&box, Qt::Key_Return); // unchanged
        User::wheel(&box, 120);
        QCOMPARE(listener.take(), QStringList());
        QCOMPARE(colourOf(box), QString("gold"));
        QTest::keyClick(&box, Qt::Key_Escape);
        QCOMPARE(box.value(), 12.0);
        QCOMPARE(colourOf(box), QString());
        QCOMPARE(listener.take(), QStringList());
    }

    void sendValueTakesTypedTextAndCutsIt()
    {
        TextBox box;
        box.setFlags(confirm);
        box.setDecimals(2);
        Listener listener(&box);
        box.setTyped("-2.75");
        box.sendValue();
        QCOMPARE(listener.take(), QStringList({"-2.75 was 0", "int -2", "text -2.75"}));
        SpinBox open;
        open.setDecimals(1);
        Listener openListener(&open);
        static_cast<QDoubleSpinBox&>(open).setValue(-2.5);
        QCOMPARE(openListener.take().filter(QRegularExpression("int|was")),
                 QStringList({"int -2", "-2.5 was 0"}));
        open.externItemMouseReleased();
        QCOMPARE(openListener.take().last(), QString("int -2"));
    }

    void receiverMaySetTheValueInItsSignal()
    {
        SpinBox box;
        Listener listener(&box);
        const auto numbers = [&listener] {
            return listener.take().filter(QRegularExpression("int|was"));
        };
        listener.onWhole = [&box] { box.setValue(toInt(box.value())); }; // the same once more
        box.setValue(5.0);
        QCOMPARE(numbers(), QStringList({"int 5", "5 was 0"}));
        QCOMPARE(box.lastValue(), 5.0);
        listener.onWhole = [&box] { box.setValue(8); };
        box.setValue(6.0);
        QCOMPARE(numbers(), QStringList({"int 6", "int 8", "8 was 5"}));
        QCOMPARE(box.lastValue(), 8.0);
        listener.onWhole = nullptr;
        box.valueToInt(2.5); // of somebody else
        QCOMPARE(numbers(), QStringList({"int 3", "2.5 was 8"}));
        QCOMPARE(box.lastValue(), 2.5);
        connect(&box, QOverload<double, double>::of(&SpinBox::valueChanged), &box,
                [&box] { box.QDoubleSpinBox::setValue(3.0); });
        box.setValue(4.0);
        QCOMPARE(numbers(), QStringList({"int 4", "4 was 2.5", "int 3", "3 was 2.5"}));
        QCOMPARE(box.lastValue(), 3.0);
    }

    void realValueFollowsTheNumber()
    {
        for (int decimals : {0, 2}) {
            TextBox box;
            const auto is = [&box, decimals](const char* number, const char* suffix) {
                return box.edit()->text() ==
                       QString(number) + (decimals ? ".00" : "") + " [" + suffix + " rpm]";
            };
            Parameter half = velocity();
            half.factor = 0.5;
            box.setFlags(confirm);
            box.setUnitParameter(half, false, 10, decimals);
            box.setSingleStep(1);
            box.setValue(20);
            QVERIFY(is("20", "10.00"));
            box.selectAll();
            User::type(&box, "6");
            QVERIFY(is("6", "3.00"));
            User::type(&box, "6");
            QVERIFY(is("66", "33.00"));
            QCOMPARE(box.edit()->cursorPosition(), 2);
            QCOMPARE(box.value(), 20.0);
            QTest::keyClick(&box, Qt::Key_Up);
            QVERIFY(is("67", "33.50"));
            User::wheel(&box, -120);
            QVERIFY(is("66", "33.00"));
            QTest::keyClick(&box, Qt::Key_Return);
            QVERIFY(is("66", "33.00"));
            QCOMPARE(box.lastValue(), 66.0);
            QTest::keyClick(&box, Qt::Key_Down);
            QTest::keyClick(&box, Qt::Key_Escape);
            QVERIFY(is("66", "33.00"));
            box.setFactor(2);
            box.setPulseDivisorFactor(0);
            box.setValue(66);
            QVERIFY(is("66", "33.00"));
            box.selectAll();
            User::type(&box, "40");
            QFocusEvent out(QEvent::FocusOut);
            QCoreApplication::sendEvent(&box, &out);
            QVERIFY(is("40", "19531.25"));
            box.setSuffix(" of the host");
            box.setValue(30);
            QCOMPARE(box.suffix(), QString(" of the host"));
        }

        TextBox tracking; // lets the number out while it is typed
        Parameter half = velocity();
        half.factor = 0.5;
        tracking.setUnitParameter(half, false, 10, 0);
        tracking.setKeyboardTracking(true);
        Listener listener(&tracking);
        tracking.selectAll();
        User::type(&tracking, "66");
        QCOMPARE(listener.take().filter("int"), QStringList({"int 6", "int 66"}));
        QCOMPARE(tracking.text(), QString("66 [33.00 rpm]"));
        tracking.setKeyboardTracking(false);
        User::type(&tracking, "6");
        QTest::keyClick(&tracking, Qt::Key_Backspace, Qt::ControlModifier);
        QTest::keyClick(&tracking, Qt::Key_Return);
        QCOMPARE(tracking.text(), QString("66 [33.00 rpm]"));
    }

    void replyEndsTyping()
    {
        SpinBox box;
        box.setFlags(confirm);
        Listener listener(&box);
        const auto overwritten = [&box] {
            return FieldFace::in(&box)->sign() == FieldSign::Overwritten;
        };
        box.selectAll();
        User::type(&box, "42");
        QVERIFY(box.hasEntry());
        box.setValue(42);
        QVERIFY(!overwritten()); // just what was typed
        QVERIFY(!box.hasEntry());
        User::type(&box, "0");
        box.setValue(7);
        QVERIFY(overwritten());
        QVERIFY(!box.hasEntry());
        User::type(&box, "3");
        QTest::keyClick(&box, Qt::Key_Return);
        QCOMPARE(listener.take(), QStringList({"3 was 7", "int 3", "text 3"}));
        QTRY_VERIFY(!overwritten());
        box.setValue(5.0); // a host's doing is no entry
        box.setValue(8);
        QVERIFY(!overwritten());
        listener.onWhole = [&box] { box.setValue(6); }; // the answer to what was sent
        User::type(&box, "9");
        QTest::keyClick(&box, Qt::Key_Return);
        QVERIFY(!overwritten());
    }

    void returnOutsideKeepsTheText()
    {
        for (int decimals : {0, 2}) {
            TextBox box;
            box.setDecimals(decimals);
            box.setFlags(confirm);
            box.setRange(0, 1000);
            Listener listener(&box);
            box.selectAll();
            User::type(&box, "5000");
            const QString text = box.edit()->text();
            QTest::keyClick(&box, Qt::Key_Return);
            box.sendValue();
            QCOMPARE(box.edit()->text(), text);
            QCOMPARE(listener.take(), QStringList());
            QTest::keyClick(&box, Qt::Key_Backspace);
            QTest::keyClick(&box, Qt::Key_Return);
            QCOMPARE(listener.take().value(1), QString("int 500"));
        }

        TextBox prefixed;
        prefixed.setFlags(confirm);
        prefixed.setPrefix("~");
        prefixed.setRange(0, 1000);
        prefixed.setFactor(0.5);
        QTest::keyClick(&prefixed, Qt::Key_Home, Qt::ControlModifier);
        QTest::keyClick(&prefixed, Qt::Key_Return);
        QCOMPARE(prefixed.edit()->text(), QString("2,000"));
    }

    void signsSayWhatColoursDoNot()
    {
        TextBox box;
        const auto sign = [&box] { return FieldFace::in(&box)->sign(); };
        box.setDecimals(2);
        box.setFlags(confirm);
        box.setRange(0, 100);
        box.setValue(50);
        QCOMPARE(sign(), FieldSign::None);
        QTest::keyClick(&box, Qt::Key_Up);
        QCOMPARE(sign(), FieldSign::Pending);
        QTest::keyClick(&box, Qt::Key_Escape);
        QCOMPARE(sign(), FieldSign::None);
        box.edit()->setCursorPosition(5);
        User::type(&box, "1");
        QCOMPARE(box.edit()->text(), QString("500.01"));
        QCOMPARE(sign(), FieldSign::Outside);
        QTest::keyClick(&box, Qt::Key_Backspace);
        QCOMPARE(sign(), FieldSign::None);
        QCOMPARE(colourOf(box), QString());
        box.setValue(5000);
        QCOMPARE(sign(), FieldSign::More);
        QCOMPARE(box.lastValue(), 5000.0);
        box.setMaximum(10000); // which does not bring the reply back
        QCOMPARE(sign(), FieldSign::More);
        box.setValue(-1);
        QCOMPARE(sign(), FieldSign::Less);
        box.setValue(60);
        box.setMaximum(30);
        QCOMPARE(sign(), FieldSign::More);
        box.selectAll();
        User::type(&box, "7"); // digits alone for that moment, so the colour says it
        QCOMPARE(colourOf(box), QString("gold"));
        QCOMPARE(sign(), FieldSign::None);
        QTest::keyClick(&box, Qt::Key_Return);
        QCOMPARE(sign(), FieldSign::None);

        SpinBox whole; // whose colours say it all
        whole.setFlags(confirm);
        whole.setRange(0, 100);
        User::type(&whole, "5");
        QCOMPARE(FieldFace::in(&whole)->sign(), FieldSign::None);
        User::type(&whole, "00");
        QCOMPARE(FieldFace::in(&whole)->sign(), FieldSign::None);
    }

    void repliesNeverGoOut()
    {
        SpinBox box;
        box.setFlags(confirm);
        Listener listener(&box);
        User::type(&box, "7");
        box.setValue(9);
        QCOMPARE(box.lastValue(), 9.0);
        QCOMPARE(colourOf(box), QString());
        box.setValue(5.0);
        QCOMPARE(box.lastValue(), 9.0);
        QCOMPARE(colourOf(box), QString("gold"));
        QCOMPARE(listener.take(), QStringList());

        // A host that answers inside the emission: the reply counts and causes nothing more.
        listener.onWhole = [&box] { box.setValue(4); };
        box.sendValue();
        QCOMPARE(listener.take(), QStringList({"5 was 9", "int 5", "text 4"}));
        QCOMPARE(box.lastValue(), 4.0);
        QCOMPARE(colourOf(box), QString());

        auto* doomed = new SpinBox;
        doomed->setFlags(confirm);
        connect(doomed, QOverload<int>::of(&SpinBox::valueChanged), [doomed] { delete doomed; });
        doomed->setValue(1.0);
        doomed->sendValue();
    }

    /// "|" marks the caret, "[" and "]" a selection; "<" is Backspace, ">" is Delete, "^" before
    /// one of them is Ctrl; "{" is Left.
    void editing_data()
    {
        const struct {
            const char* name;
            int decimals;
            const char* suffix;
            const char* start;
            const char* keys;
            const char* end;
            SpinBox::Options options = confirm;
            double minimum = -1e6;
            double maximum = 1e6;
        } rows[] = {
            {"groups", 0, "", "|", "10005", "10,005|"},
            {"point stays", 2, "", "1.23|", "56", "123.56|"},
            {"letter is dropped", 2, "", "1.23|", "x5", "12.35|"},
            {"minus", 0, "", "|", "-05", "-5|"},
            {"minus alone", 0, "", "|", "-", "-|"},
            {"fraction", 2, "", "0.00|", "5", "0.05|"},
            {"negative fraction", 2, "", "-.05|", "1", "-.51|"},
            {"no digit", 2, "", "|", "x", "|"},
            {"digit between groups", 0, "", "1,2|34", "9", "12,9|34"},
            {"taken back", 0, "", "12,9|34", "<", "1,2|34"},
            {"letter", 0, "", "1,2|34", "x", "1,2|34"},
            {"before the point", 2, "", "1|.23", "5", "15|.23"},
            {"back at the comma", 0, "", "1,|000", "<", "|0"},
            {"back behind the point", 2, "", "15.|23", "<", "1|.23"},
            {"delete", 2, "", "123|456.78", ">", "123|56.78"},
            {"delete at the point", 2, "", "12|.34", ">", "1.2|4"},
            {"delete at the end", 0, " m2", "10|", ">", "10|"},
            {"delete word", 0, " m2", "1|0", "^>", "1|"},
            {"back at the start", 0, "", "|10", "<", "|10"},
            {"typed over", 0, "", "[5]", "56", "56|"},
            {"typed over, same digit", 0, "", "5[5]", "5", "55|"},
            {"typed over, decimals", 2, "", "[1.00]", "56", "56|.00"},
            {"into nothing, decimals", 2, "", "|", "56", "56|.00"},
            {"negative over real units", 0, " [-0.50 rpm]", "[-10]", "-05", "-5|"},
            {"selection into the suffix", 0, " m2", "1[0 m]", "7", "17|"},
            {"first digit too small", 2, "", "[50.00]", "15", "15|.00", confirm, 10, 100},
            {"still too small", 2, " 0.5", "[500.00]", "15", "15|", confirm, 100, 1000},
            {"too small, negative", 2, "", "[-50.00]", "-15", "-15|.00", confirm, -100, -10},
            {"too large, taken back", 2, "", "1234|", "<", "123|.00", confirm, 0, 1000},
            {"letter while too small", 2, "", "1|", "x5", "15|.00", confirm, 10, 100},
            {"negative, decimals", 2, "", "[1.00]", "-56", "-56|.00"},
            {"selection over the point", 2, "", "[12.]34", "5", "5|34.00"},
            {"fraction typed", 2, "", "[1.00]", "12.35", "12.35|"},
            {"fraction only", 2, "", "[1.00]", ".5", "0.5|0"},
            {"negative fraction typed", 2, "", "[1.00]", "-0.5", "-.5|0"},
            {"fraction while too small", 2, "", "[50.00]", "1.55", "1.55|", confirm, 10, 100},
            {"fraction typed, real units", 2, " [0.50 rpm]", "12|.00", ".3", "12.3|0"},
            {"fraction taken back", 2, "", "12|.34", ".5<6", "12.6|4"},
            {"fraction left again", 2, "", "12|.34", ".{5", "125|.34"},
            {"inside the fraction", 2, "", "12.|34", "5", "125|.34"},
            {"second point", 2, "", "12|.34", "..5.", "12.5|4"},
            {"point elsewhere", 2, "", "1|2.34", ".5", "15|2.34"},
            {"point, no decimals", 0, "", "12|", ".3", "123|"},
            {"minus elsewhere", 2, "", "12.|34", "-", "12.|34"},
            {"letter over all", 0, "", "[12]", "x", "12|"},
            {"as typed, decimals", 2, "", "[1.00]", "1234", "1234|", confirm | SpinBox::NoDots},
            {"as typed, base class", 2, "", "[1.00]", "12.35", "12.35|", SpinBox::NoDots},
            {"as typed, delete at the end", 2, " m2", "10|", ">", "10|", confirm | SpinBox::NoDots},
        };
        QTest::addColumn<int>("decimals");
        QTest::addColumn<QString>("suffix");
        QTest::addColumn<QString>("start");
        QTest::addColumn<QString>("keys");
        QTest::addColumn<QString>("end");
        QTest::addColumn<int>("options");
        QTest::addColumn<double>("minimum");
        QTest::addColumn<double>("maximum");
        for (const auto& row : rows)
            QTest::newRow(row.name)
                << row.decimals << QString(row.suffix) << QString(row.start) << QString(row.keys)
                << QString(row.end) << int(row.options) << row.minimum << row.maximum;
    }
    void editing()
    {
        QFETCH(int, decimals);
        QFETCH(QString, suffix);
        QFETCH(QString, start);
        QFETCH(QString, keys);
        QFETCH(int, options);
        QFETCH(double, minimum);
        QFETCH(double, maximum);
        TextBox box(nullptr, SpinBox::Options(options));
        box.setDecimals(decimals);
        box.setRange(minimum, maximum);
        box.setSuffix(suffix);
        const int caret = start.indexOf('|');
        const int from = start.indexOf('[');
        const int to = start.indexOf(']') - 1;
        QString text = start;
        text.remove(QRegularExpression("[][|]"));
        box.setTyped(text.endsWith(suffix.left(2)) && !suffix.isEmpty() ? text + suffix.mid(2)
                                                                        : text + suffix);
        if (from >= 0)
            box.edit()->setSelection(to, from - to); // backward, so that the caret is in front
        else
            box.edit()->setCursorPosition(caret);
        Qt::KeyboardModifiers modifiers = Qt::NoModifier;
        for (QChar key : keys) {
            if (key == '^')
                modifiers = Qt::ControlModifier;
            else if (key == '<' || key == '>')
                QTest::keyPress(&box, key == '<' ? Qt::Key_Backspace : Qt::Key_Delete, modifiers);
            else if (key == '{')
                QTest::keyPress(&box, Qt::Key_Left);
            else
                User::type(&box, key);
        }
        QString end = box.edit()->text();
        QVERIFY(end.endsWith(suffix));
        end.chop(suffix.size());
        end.insert(box.edit()->cursorPosition(), '|');
        QTEST(end, "end");
    }

    void coloursOfDecimalsDoNotStick()
    {
        TextBox box;
        box.setDecimals(2);
        box.setRange(-100, 100);
        box.setFlags(confirm);
        box.show();
        QVERIFY(QTest::qWaitForWindowExposed(&box));
        const auto makeCrimson = [&box] {
            box.setTyped("99999");
            QCOMPARE(colourOf(box), QString("crimson"));
            QVERIFY(QToolTip::isVisible());
        };
        makeCrimson();
        QTest::keyClick(&box, Qt::Key_Escape);
        QCOMPARE(colourOf(box), QString());
        QTRY_VERIFY(!QToolTip::isVisible());
        makeCrimson();
        box.setValue(7.0);
        QCOMPARE(colourOf(box), QString("gold"));
        makeCrimson();
        box.setValue(7);
        QCOMPARE(colourOf(box), QString());
        makeCrimson();
        QFocusEvent out(QEvent::FocusOut);
        QCoreApplication::sendEvent(&box, &out); // shows the value again
        QCOMPARE(box.edit()->text(), QString("7.00"));
        QCOMPARE(colourOf(box), QString());
        makeCrimson();
        box.setUnitParameter(Parameter(), false, 0, 0);
        QCOMPARE(colourOf(box), QString());
    }

    void boxMayBeDeletedInItsOwnSignals()
    {
        for (int way = 0; way < 3; ++way) {
            auto* box =
                new SpinBox(nullptr, way == 2 ? SpinBox::ResetOnEscape : SpinBox::Options());
            if (way == 2) {
                const QSignalBlocker silent(box);
                box->setValue(3.0);
            }
            connect(box, QOverload<int>::of(&SpinBox::valueChanged), [box] { delete box; });
            if (way == 0)
                box->setValue(5.0);
            else if (way == 1)
                box->setValue(5);
            else
                QCoreApplication::sendEvent(
                    box,
                    std::make_unique<QKeyEvent>(QEvent::KeyRelease, Qt::Key_Escape, Qt::NoModifier)
                        .get());
        }
    }

    void readsBackInAnyLocale()
    {
        QLocale::setDefault(QLocale(QLocale::German));
        TextBox box;
        box.setDecimals(2);
        box.setFlags(confirm);
        QLocale::setDefault(QLocale::c());
        box.setTyped("1234567.89");
        QTest::keyClick(&box, Qt::Key_Return);
        QCOMPARE(box.value(), 1234567.89);
    }

    void outOfRange()
    {
        TextBox box;
        box.setRange(-1000, 5000);
        box.setFlags(confirm);
        box.setFactor(2.0);
        box.show();
        QVERIFY(QTest::qWaitForWindowExposed(&box));
        box.selectAll();
        User::type(&box, "6000");
        QCOMPARE(colourOf(box), QString("crimson"));
        const QString tip = QToolTip::text();
        QVERIFY(tip.contains("<td colspan=\"3\"; align=\"center\">Value out of range</td>"));
        QVERIFY(
            tip.contains(" align=\"right\" style=\"color:navy; white-space:pre-wrap;\">5,000<"));
        QVERIFY(tip.contains(">&#x2212;1,000<"));
        QVERIFY(tip.contains(">Ctrl&#x2212;End <"));
        QTest::keyRelease(&box, Qt::Key_Home, Qt::ControlModifier);
        QCOMPARE(box.edit()->text(), QString("2,500"));
        QCOMPARE(colourOf(box), QString("gold"));
        QTest::keyRelease(&box, Qt::Key_End, Qt::ControlModifier);
        QCOMPARE(box.edit()->text(), QString("-500"));
        box.setFactor(0.0);
        box.setDecimals(1);
        box.setSuffix(" m2");
        QTest::keyRelease(&box, Qt::Key_Home, Qt::ControlModifier);
        QCOMPARE(box.edit()->text(), QString("5000.0 m2"));
        QCOMPARE(box.edit()->cursorPosition(), 6);
        QCOMPARE(box.valueReal(), box.value());
    }

    void otherToolTipsStay()
    {
        SpinBox box;
        box.show();
        QVERIFY(QTest::qWaitForWindowExposed(&box));
        QToolTip::showText(QPoint(5, 5), "somebody else's");
        box.setValue(5);
        QCOMPARE(QToolTip::text(), QString("somebody else's"));
        QToolTip::hideText();
    }

    void keystrokeWithoutNewColourSetsNoSheet()
    {
        struct Counter : QObject {
            int changes = 0;
            bool eventFilter(QObject*, QEvent* event) override
            {
                changes += event->type() == QEvent::StyleChange;
                return false;
            }
        } counter;
        SpinBox box;
        box.setFlags(confirm);
        box.selectAll();
        User::type(&box, "1");
        box.installEventFilter(&counter);
        User::type(&box, "234");
        QCOMPARE(counter.changes, 0);
        QTest::keyClick(&box, Qt::Key_Return);
        QVERIFY(counter.changes > 0);
    }

    void unitParameter()
    {
        SpinBox box;
        QCOMPARE(box.setUnitParameter(velocity(), false, 10, 0), QString("Actual velocity"));
        QCOMPARE(box.suffix(), QString(" rpm"));
        QCOMPARE(box.toolTip(), QString("AP 3 (-4,000..4,000)"));
        QCOMPARE(box.value(), 10.0);

        Parameter half = velocity();
        half.factor = 0.5;
        box.setUnitParameter(half, false, 10, 2);
        QCOMPARE(box.suffix(), QString(" [5.00 rpm]"));
        QCOMPARE(box.singleStep(), 0.2);
        QCOMPARE(box.valueReal(), 20.0);
        box.setPulseDivisorFactor(0);
        QCOMPARE(box.suffix(), QString(" [5.00 rpm]"));
        box.valueHasChanged(10);
        QCOMPARE(box.suffix(), QString(" [1220.70 rpm]"));

        Parameter bare = velocity();
        bare.unit.clear();
        bare.minimum = -5;
        bare.maximum = 999;
        SpinBox ranged;
        ranged.setUnitParameter(bare, false, 1, 0);
        QCOMPARE(ranged.suffix(), QString(" [-5..999]"));
        bare.maximum = 1000;
        ranged.setUnitParameter(bare, true, 77, 0);
        QCOMPARE(ranged.suffix(), QString());
        QCOMPARE(ranged.value(), 1.0); // a raw display leaves the value
        bare.maximum = 0;
        ranged.setUnitParameter(bare, false, 1, 0);
        QCOMPARE(ranged.maximum(), 1000.0);

        QCOMPARE(ranged.setUnitParameter(Parameter(), false, 1, 0), QString());
        QVERIFY(!ranged.isEnabled());
        QCOMPARE(ranged.text(), QString("---"));
        QCOMPARE(ranged.toolTip(), QString("no AP"));
        ranged.setUnitParameter(velocity(), false, 1, 0);
        QVERIFY(!ranged.isEnabled());
        QCOMPARE(ranged.specialValueText(), QString("---"));
    }

    void coloursComeAndGoOnTheScreen()
    {
        SpinBox box;
        box.setRange(0, 100);
        box.setFlags(confirm);
        box.resize(140, 30);
        box.show();
        QVERIFY(QTest::qWaitForWindowExposed(&box));
        const auto shown = [&box] {
            const QImage picture = box.grab().toImage();
            return picture.pixelColor(12, picture.height() / 2);
        };
        const QColor clean = shown();
        for (int pass = 0; pass < 2; ++pass) {
            box.setValue(10.0 * pass + 5.0);
            QCOMPARE(shown(), QColor("gold"));
            box.selectAll();
            User::type(&box, "555");
            QCOMPARE(shown(), QColor("crimson"));
            QTest::keyClick(&box, Qt::Key_Escape);
            QCOMPARE(shown(), clean);
            box.setValue(10.0 * pass + 6.0);
            QTest::keyClick(&box, Qt::Key_Return);
            QCOMPARE(shown(), clean);
        }
    }

    void repliesKeepTheNumberSelected()
    {
        TextBox box;
        Parameter parameter = velocity();
        parameter.factor = 0.5;
        box.setFlags(confirm);
        box.setUnitParameter(parameter, false, 10, 0);
        box.selectAll();
        box.setValue(1234);
        box.valueHasChanged(1234);
        QCOMPARE(box.edit()->selectedText(), QString("1,234"));
        box.setValue(1234);
        QCOMPARE(box.edit()->selectedText(), QString("1,234"));
        box.edit()->setCursorPosition(3);
        box.setValue(1234);
        QCOMPARE(box.edit()->cursorPosition(), 3);
        box.selectAll();
        User::type(&box, "7");
        QTest::keyClick(&box, Qt::Key_Return);
        QCOMPARE(box.value(), 7.0);
        QCOMPARE(box.edit()->selectedText(), QString("7"));
    }

    void undoAndRedoSendNothing()
    {
        SpinBox box;
        box.setValue(3);
        const QSignalBlocker blocked(&box);
        box.setValue(8.0);
        box.blockSignals(false);
        Listener listener(&box);
        QUndoStack stack;
        stack.push(new SpinboxCommand(&box, nullptr));
        QCOMPARE(stack.text(0), QString("8"));
        stack.undo();
        QCOMPARE(box.value(), 3.0);
        stack.redo();
        QCOMPARE(box.value(), 8.0);
        QCOMPARE(listener.take(), QStringList());
    }

    void slider()
    {
        TextBox box(nullptr, SpinBox::Slider);
        box.setRange(0, 100);
        box.setButtonSymbols(QAbstractSpinBox::NoButtons);
        QCOMPARE(box.sizeHint().height(),
                 static_cast<QDoubleSpinBox&>(box).QDoubleSpinBox::sizeHint().height() + 20);
        box.resize(200, box.sizeHint().height());
        box.show();
        QVERIFY(QTest::qWaitForWindowExposed(&box));
        Listener listener(&box);
        User::drag(&box, QPoint(10, box.height() - 5), QPoint(80, box.height() - 5));
        QCOMPARE(box.value(), 40.0);
        QCOMPARE(listener.take(), QStringList());
        const QImage picture = box.grab().toImage();
        const int strip = (box.edit()->geometry().bottom() + box.height()) / 2;
        QCOMPARE(picture.pixelColor(0, strip), QColor(Qt::blue));
        QCOMPARE(picture.pixelColor(199, strip), QColor(Qt::blue));
        QCOMPARE(picture.pixelColor(100, box.sizeHint().height() - 2), QColor(Qt::blue));
    }

    void hoverAndFocusAreForwarded()
    {
        SpinBox box;
        int events = 0;
        connect(&box, &SpinBox::hoverFocusEvent, [&events] { ++events; });
        QFocusEvent focus(QEvent::FocusIn);
        QHoverEvent hover(QEvent::HoverMove, QPointF(1, 1), QPointF(0, 0));
        QEvent other(QEvent::ToolTipChange);
        for (QEvent* event : std::initializer_list<QEvent*>{&focus, &hover, &other})
            QCoreApplication::sendEvent(&box, event);
        QCOMPARE(events, 2);
    }
};

AXR_TEST_MAIN(SpinBoxTest)
#include "SpinBoxTest.moc"
