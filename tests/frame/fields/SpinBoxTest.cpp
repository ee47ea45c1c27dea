#include "SpinBox.h"
#include "DoubleValidator.h"
#include "EntryRules_p.h"
#include "FieldFace_p.h"
#include "RealUnits_p.h"
#include "SliderStrip_p.h"
#include "SpinboxCommand.h"
#include "TestCase.h"
#include "User.h"

#include <QLineEdit>
#include <QToolTip>
#include <QUndoStack>

#include <functional>

namespace
{

const SpinBox::Options confirm = SpinBox::ChangedOnEnter | SpinBox::ResetOnEscape;

Parameter velocity(double factor = 1.0)
{
    return {"actual velocity", "rpm", "%1 rpm", factor, 3, -4000, 4000, true};
}

/// A box with its line edit, and all that it lets out.
class Box : public SpinBox
{
public:
    explicit Box(SpinBox::Options options = confirm) : SpinBox(nullptr, options)
    {
        connect(this, QOverload<int>::of(&SpinBox::valueChanged), this, [this](int value) {
            m_sent << QString("int %1").arg(value);
            if (onWhole)
                onWhole();
        });
        connect(this, QOverload<double, double>::of(&SpinBox::valueChanged), this,
                [this](double value, double last) {
                    m_sent << QString("%1 was %2").arg(value).arg(last);
                });
    }
    using SpinBox::lineEdit;

    QString takeSent() { return std::exchange(m_sent, {}).join(", "); }

    /// Sets text with caret or selection: "1,2|34", "[12.]34".
    void write(const QString& marked, const QString& rest = {})
    {
        QString text = marked;
        text.remove(QRegularExpression("[][|]"));
        lineEdit()->setText(text + rest);
        const int from = marked.indexOf('[');
        const int to = marked.indexOf(']') - 1;
        if (from >= 0)
            lineEdit()->setSelection(to, from - to); // so that the caret is in front
        else
            lineEdit()->setCursorPosition(marked.indexOf('|'));
    }
    QString written() const
    {
        QString text = lineEdit()->text();
        if (lineEdit()->hasSelectedText())
            return text.insert(lineEdit()->selectionEnd(), ']')
                .insert(lineEdit()->selectionStart(), '[');
        return text.insert(lineEdit()->cursorPosition(), '|');
    }
    /// "text colour sign": what is seen of it.
    QString seen() const
    {
        static const QMap<FieldSign, QString> signs = {
            {FieldSign::None, ""},  {FieldSign::Pending, "waits"}, {FieldSign::Outside, "!"},
            {FieldSign::More, ">"}, {FieldSign::Less, "<"},        {FieldSign::Overwritten, "new"}};
        static const QRegularExpression colour("gold|crimson");
        return QString("%1 %2 %3")
            .arg(written(), colour.match(styleSheet()).captured(),
                 signs.value(FieldFace::in(this)->sign()))
            .simplified();
    }

    /// "reply 5" and "host 5" set a value as they do, "write" a text, "type" over the number,
    /// "keys" where the caret is, "press", "release" and "key" one by its name, "Ctrl" one that is
    /// released with it, "wheel" by notches, "wait" until a sign goes by itself.
    void doStep(const QString& step)
    {
        const QString rest = step.section(' ', 1);
        const auto key = Qt::Key(QKeySequence(rest)[0]);
        QFocusEvent out(QEvent::FocusOut);
        const QMap<QString, std::function<void()>> verbs = {
            {"reply", [&] { setValue(rest.toInt()); }},
            {"host", [&] { setValue(rest.toDouble()); }},
            {"write", [&] { write(rest); }},
            {"type", [&] { selectAll(), User::type(this, rest); }},
            {"keys", [&] { User::type(this, rest); }},
            {"press", [&] { QTest::keyPress(this, key); }},
            {"release", [&] { QTest::keyRelease(this, key); }},
            {"key", [&] { QTest::keyClick(this, key); }},
            {"Ctrl", [&] { QTest::keyRelease(this, key, Qt::ControlModifier); }},
            {"wheel", [&] { User::wheel(this, 120 * rest.toInt()); }},
            {"wait", [&] { QTRY_COMPARE(FieldFace::in(this)->sign(), FieldSign::None); }},
            {"send", [&] { sendValue(); }},
            {"leave", [&] { QCoreApplication::sendEvent(this, &out); }}};
        verbs[step.section(' ', 0, 0)]();
    }

    std::function<void()> onWhole;

private:
    QStringList m_sent;
};

/// A box, and what is seen and sent after each step: "step: seen; sent".
const struct {
    const char* name;
    SpinBox::Options options;
    std::function<void(Box&)> setUp;
    const char* script;
} stories[] = {
    {"typing waits for Return", confirm, [](Box&) {}, R"(
        type 123: 123| gold
        key Backspace: 12| gold
        press Return: [12] gold
        release Return: [12]; 12 was 0, int 12
        key Return: [12]
        wheel 1: [13] gold
        key Escape: [12])"},
    {"sent as typed, cut", confirm, [](Box& box) { box.setDecimals(2); }, R"(
        write -2.75|: -2.75| waits
        send: -2.75|; -2.75 was 0, int -2
        key Escape: -2.75|)"},
    {"sent at once, rounded", {}, [](Box& box) { box.setDecimals(1); }, R"(
        host -2.5: |-2.5; int -2, -2.5 was 0
        host 2.5: |2.5; int 3, 2.5 was -2.5
        host 2.5: |2.5)"},
    {"keyboard tracking",
     {},
     [](Box& box) {
         box.setUnitParameter(velocity(0.5), false, 10, 0);
         box.setKeyboardTracking(true);
         box.takeSent();
     },
     R"(
        type 66: 66| [33.00 rpm]; int 6, 6 was 10, int 66, 66 was 6
        type x: [66] [33.00 rpm]
        key Backspace: | [33.00 rpm]
        key Return: [66] [33.00 rpm]; int 66, 66 was 66)"},
    {"real value follows", confirm,
     [](Box& box) { box.setUnitParameter(velocity(0.5), false, 10, 0); }, R"(
        reply 20: |20 [10.00 rpm]
        type 6: 6| [3.00 rpm] gold
        keys 6: 66| [33.00 rpm] gold
        key Up: [67] [33.50 rpm] gold
        wheel -1: [66] [33.00 rpm] gold
        key Return: [66] [33.00 rpm]; 66 was 20, int 66
        key Down: [65] [32.50 rpm] gold
        key Escape: 66| [33.00 rpm]
        type 40: 40| [20.00 rpm] gold
        leave: 40| [20.00 rpm] gold
        key Escape: 66| [33.00 rpm]
        reply 1234: 1,|234 [617.00 rpm]
        reply 1234: 1,|234 [617.00 rpm]
        type 7: 7| [3.50 rpm] gold
        key Return: [7] [3.50 rpm]; 7 was 1234, int 7
        reply 1234: [1,234] [617.00 rpm]
        reply 1234: [1,234] [617.00 rpm])"},
    {"real value, decimals", confirm,
     [](Box& box) { box.setUnitParameter(velocity(0.5), false, 10, 2); }, R"(
        reply 20: |20.00 [10.00 rpm]
        type 66: 66|.00 [33.00 rpm] gold
        key Up: [66.20] [33.10 rpm] gold
        key Return: [66.20] [33.10 rpm]; 66.2 was 20, int 66
        type 4: 4|.00 [2.00 rpm] gold
        leave: 4|.00 [2.00 rpm] gold)"},
    {"a reply ends typing", confirm, [](Box&) {}, R"(
        type 42: 42| gold
        reply 42: 42|
        keys 0: 420| gold
        reply 7: [7] new
        wait: [7]
        keys 3: 3| gold
        key Return: [3]; 3 was 7, int 3
        host 5: [5] gold
        reply 8: [8])"},
    {"answered inside", confirm, [](Box& box) { box.onWhole = [&box] { box.setValue(6); }; }, R"(
        type 9: 9| gold
        key Return: [6]; 9 was 0, int 9
        host 5: [5] gold
        send: [6]; 5 was 6, int 5)"},
    {"outside", confirm, [](Box& box) { box.setRange(0, 1000); }, R"(
        type 5000: 5000| crimson
        key Return: 5000| crimson
        send: 5000| crimson
        key Backspace: 500| gold
        key Return: [500]; 500 was 0, int 500
        type 2000: 2000| crimson
        leave: 500|)"},
    {"outside, decimals", confirm,
     [](Box& box) {
         box.setDecimals(2);
         box.setRange(0, 100);
     },
     R"(
        reply 50: |50.00
        key Up: [51.00] waits
        key Escape: [50.00]
        write 50.00|: 50.00|
        keys 1: 500.01| !
        key Return: 500.01| !
        key Backspace: 50.00|
        key Backspace: 5.00| waits
        write 99999|: 99999| crimson
        key Escape: 50.00|
        write 99999|: 99999| crimson
        host 7: 7.00| gold
        write 99999|: 99999| crimson
        reply 7: 7.00|
        write 99999|: 99999| crimson
        leave: 7.00|)"},
    {"less than told", confirm, [](Box& box) { box.setRange(0, 100); }, R"(
        reply 5000: |100 gold >
        reply -1: |0 gold <
        host 5000: |100 gold >
        reply 60: |60
        type 7: 7| gold
        key Return: [7]; 7 was 60, int 7)"},
    {"special text elsewhere", confirm,
     [](Box& box) {
         box.setDecimals(2);
         box.setRange(0, 100);
         box.setSpecialValueText("---");
     },
     R"(
        reply 5: 5.0|0
        type 56: 56|.00 waits
        reply 0: [---] new)"},
    {"bounds by keys", confirm,
     [](Box& box) {
         box.setRange(-1000, 5000);
         box.setFactor(2.0);
         box.setPrefix("~");
         box.setSuffix(" m2");
     },
     R"(
        Ctrl Home: ~2,500| m2 gold
        Ctrl End: ~-500| m2 gold
        key Return: ~[-500] m2; -500 was 0, int -500)"},
    {"bounds by keys, out of range", confirm,
     [](Box& box) {
         box.setRange(0, 1000);
         box.setFactor(0.5);
     },
     R"(
        Ctrl Home: 2,000| crimson
        key Return: 2,000| crimson)"},
};

/// Keys in a text, "|" for the caret, "[" and "]" for a selection; "<" is Backspace, ">" is Delete,
/// "^" before one of them is Ctrl; "{" is Left.
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
} entries[] = {
    {"groups", 0, "", "|", "10005", "10,005|"},
    {"point stays", 2, "", "1.23|", "56", "123.56|"},
    {"minus", 0, "", "|", "-05", "-5|"},
    {"minus alone", 0, "", "|", "-", "-|"},
    {"digit between groups", 0, "", "1,2|34", "9", "12,9|34"},
    {"before the point", 2, "", "1|.23", "5", "15|.23"},
    {"back at the comma", 0, "", "1,|000", "<", "|0"},
    {"back behind the point", 2, "", "15.|23", "<", "1|.23"},
    {"delete", 2, "", "123|456.78", ">", "123|56.78"},
    {"delete at the point", 2, "", "12|.34", ">", "1.2|4"},
    {"delete at the end", 0, " m2", "10|", ">", "10|"},
    {"delete word", 0, " m2", "1|0", "^>", "1|"},
    {"back at the start", 0, "", "|10", "<", "|10"},
    {"typed over", 0, "", "[5]", "56", "56|"},
    {"typed over, decimals", 2, "", "[1.00]", "56", "56|.00"},
    {"negative over real units", 0, " [-0.50 rpm]", "[-10]", "-05", "-5|"},
    {"selection into the suffix", 0, " m2", "1[0 m]", "7", "17|"},
    {"first digit too small", 2, "", "[50.00]", "15", "15|.00", confirm, 10, 100},
    {"still too small", 2, " 0.5", "[500.00]", "15", "15|", confirm, 100, 1000},
    {"negative, decimals", 2, "", "[1.00]", "-56", "-56|.00"},
    {"selection over the point", 2, "", "[12.]34", "5", "5|34.00"},
    {"fraction typed", 2, "", "[1.00]", "12.35", "12.35|"},
    {"fraction only", 2, "", "[1.00]", ".5", "0.5|0"},
    {"negative fraction typed", 2, "", "[1.00]", "-0.5", "-.5|0"},
    {"fraction taken back", 2, "", "12|.34", ".5<6", "12.6|4"},
    {"fraction left again", 2, "", "12|.34", ".{5", "125|.34"},
    {"inside the fraction", 2, "", "12.|34", "5", "125|.34"},
    {"second point", 2, "", "12|.34", "..5.", "12.5|4"},
    {"point elsewhere", 2, "", "1|2.34", ".5", "15|2.34"},
    {"point, no decimals", 0, "", "12|", ".3", "123|"},
    {"minus elsewhere", 2, "", "12.|34", "-", "12.|34"},
    {"as typed, decimals", 2, "", "[1.00]", "1234", "1234|", confirm | SpinBox::NoDots},
    {"as typed, base class", 2, "", "[1.00]", "12.35", "12.35|", SpinBox::NoDots},
};

} // namespace

class SpinBoxTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void construction()
    {
        const Box box;
        QCOMPARE(box.minimum(), -2147483647.0);
        QCOMPARE(box.maximum(), 2147483647.0);
        QCOMPARE(box.alignment(), Qt::AlignRight | Qt::AlignVCenter);
        QVERIFY(box.signalsBlocked() && !box.keyboardTracking());
        QVERIFY(box.focusPolicy() != Qt::WheelFocus);
        Box result(SpinBox::Result);
        result.setMaximum(5);
        QVERIFY(result.isReadOnly() && result.contextMenuPolicy() == Qt::NoContextMenu);
        QCOMPARE(result.maximum(), 9.99e99);
        QCOMPARE(result.text(), QString("result: 0"));
        Box plain(SpinBox::NoDots);
        for (const bool isOurs : {false, true}) {
            QCOMPARE(bool(qobject_cast<const DoubleValidator*>(plain.lineEdit()->validator())),
                     isOurs);
            QCOMPARE(plain.signalsBlocked(), isOurs);
            plain.setFlags(SpinBox::ChangedOnEnter);
        }
    }

    void story_data()
    {
        QTest::addColumn<int>("index");
        for (int i = 0; i < int(std::size(stories)); ++i)
            QTest::newRow(stories[i].name) << i;
    }
    void story()
    {
        QFETCH(int, index);
        const auto& story = stories[index];
        Box box(story.options);
        story.setUp(box);
        for (const QString& line : QString(story.script).split('\n')) {
            const QString step = line.trimmed().section(": ", 0, 0);
            if (step.isEmpty())
                continue;
            box.doStep(step);
            QStringList parts = {box.seen(), box.takeSent()};
            parts.removeAll(QString());
            QCOMPARE(step + ": " + parts.join("; "), line.trimmed());
        }
    }

    void editing()
    {
        QLocale::setDefault(QLocale(QLocale::German)); // which marks its groups by points
        for (const auto& row : entries) {
            Box box(row.options);
            box.setDecimals(row.decimals);
            box.setRange(row.minimum, row.maximum);
            box.setSuffix(row.suffix);
            // a selection may reach into the suffix
            box.write(row.start, QString(row.suffix).mid(strstr(row.start, " m]") ? 2 : 0));
            Qt::KeyboardModifiers modifiers;
            for (const QChar key : QString(row.keys)) {
                const int special = QString("<>{^").indexOf(key);
                if (special < 0)
                    User::type(&box, key);
                else if (key == '^')
                    modifiers = Qt::ControlModifier;
                else
                    QTest::keyPress(
                        &box,
                        (const Qt::Key[]){Qt::Key_Backspace, Qt::Key_Delete, Qt::Key_Left}[special],
                        modifiers);
            }
            QCOMPARE(QString("%1: %2").arg(row.name, box.written()),
                     QString("%1: %2%3").arg(row.name, row.end, row.suffix));
        }
        QLocale::setDefault(QLocale::c());
    }

    /// What the table of keys does not reach: texts that come as a whole.
    void rulesOfAnEntry()
    {
        const EntryRules plain{"v5 ", " m2", "---", 0, -1000, 1000};
        const EntryRules cents{"", "", "", 2, -1000, 1000};
        const EntryRules asTyped{"", "", "", 2, -1000, 1000, true};
        const QString endless = QString("9").repeated(400);
        const struct {
            const EntryRules& rules;
            QString input;
            QString judged; // "text state look pos"
        } rows[] = {{plain, "---", "--- 2 0 3"},
                    {plain, "v5 12 m2", "v5 12 m2 2 2 3"},
                    {plain, "v5 -07 m2", "v5 -7 m2 1 0 3"},
                    {plain, "-,05", "-,05 1 0 3"},
                    {plain, "1000", "v5 1,000 m2 2 2 3"},
                    {plain, "-1000", "v5 -1,000 m2 2 2 3"},
                    {plain, "1001", "1001 1 1 3"},
                    {plain, "-1001", "-1001 1 1 3"},
                    {cents, endless, endless + " 1 1 3"},
                    {asTyped, "0012", "0012 2 2 3"}};
        for (const auto& row : rows) {
            const EntryVerdict verdict = row.rules.judge(row.input, 3);
            QCOMPARE(QString("%1 %2 %3 %4")
                         .arg(verdict.text)
                         .arg(verdict.state)
                         .arg(verdict.look)
                         .arg(verdict.pos),
                     row.judged);
        }
    }

    void receiverMaySetTheValueInItsSignal()
    {
        Box box{SpinBox::Options()};
        box.onWhole = [&box] { box.setValue(box.value() < 6 ? 5 : 8); };
        box.setValue(5.0);
        QCOMPARE(box.takeSent(), QString("int 5, 5 was 0"));
        box.setValue(6.0);
        QCOMPARE(box.takeSent(), QString("int 6, int 8, 8 was 5"));
        box.onWhole = nullptr;
        box.valueToInt(2.5); // of somebody else
        box.externItemMouseReleased();
        QCOMPARE(box.takeSent(), QString("int 3, 2.5 was 8, int 8"));
        connect(&box, QOverload<double, double>::of(&SpinBox::valueChanged), &box,
                [&box] { box.QDoubleSpinBox::setValue(3.0); });
        box.setValue(4.0);
        QCOMPARE(box.takeSent(), QString("int 4, 4 was 2.5, int 3, 3 was 2.5"));
        QCOMPARE(box.lastValue(), 3.0);
    }

    void hostMayDeleteTheBoxInItsSignals()
    {
        QKeyEvent escape(QEvent::KeyRelease, Qt::Key_Escape, Qt::NoModifier);
        for (const QString step : {"host 5", "reply 5", "send", ""}) {
            const QPointer<Box> box = new Box(step == "send" ? confirm : SpinBox::ResetOnEscape);
            const bool wasBlocked = box->blockSignals(true);
            box->QDoubleSpinBox::setValue(3.0);
            box->blockSignals(wasBlocked);
            box->onWhole = [box] { delete box; };
            if (step.isEmpty())
                QCoreApplication::sendEvent(box, &escape);
            else
                box->doStep(step);
            QVERIFY2(!box, qPrintable(step));
        }
    }

    void unitParameter()
    {
        SpinBox box;
        QCOMPARE(box.setUnitParameter(velocity(), false, 10, 0), QString("Actual velocity"));
        QCOMPARE(box.suffix(), QString(" rpm"));
        QCOMPARE(box.toolTip(), QString("AP 3 (-4,000..4,000)"));
        QCOMPARE(box.value(), 10.0);
        QCOMPARE(box.minimumWidth(),
                 box.minimumSizeHint().width() / 2 + box.fontMetrics().horizontalAdvance("10 rpm"));
        QCOMPARE(box.singleStep(), 1.0);
        box.setUnitParameter(velocity(0.5), false, 10, 2);
        QCOMPARE(box.singleStep(), 0.2);
        QCOMPARE(box.valueReal(), 20.0);
        box.setPulseDivisorFactor(0);
        QCOMPARE(box.suffix(), QString(" [5.00 rpm]"));
        box.valueHasChanged(10);
        QCOMPARE(box.suffix(), QString(" [1220.70 rpm]"));
        User::type(&box, "7");
        QVERIFY(box.hasEntry());
        box.setPulseDivisorFactor(0);
        QVERIFY(!box.hasEntry());

        Parameter bare = {"v", "", "", 1.0, 3, -5, 0, true};
        for (const int maximum : {999, 1000, 0}) {
            bare.maximum = maximum;
            const bool isRaw = maximum == 1000;
            QCOMPARE(box.setUnitParameter(bare, isRaw, maximum, 0), QString("v"));
            QCOMPARE(box.suffix(), QString(maximum == 999 ? " [-5..999]" : ""));
            QCOMPARE(box.maximum(), maximum ? maximum : 1000.0);
            QCOMPARE(box.value(), isRaw ? 999.0 : maximum);
        }
        QCOMPARE(box.setUnitParameter(Parameter(), false, 1, 0), QString());
        QCOMPARE(box.text() + box.toolTip(), QString("---no AP"));
        box.setUnitParameter(velocity(), false, 1, 0);
        QVERIFY(!box.isEnabled() && box.specialValueText() == "---");

        RealUnits units;
        for (const auto& [format, suffix] :
             {std::pair("%1 rpm", " rpm"), std::pair("%2", " [ %2]"), std::pair("[%]", " [%]")}) {
            units.setFormat(format);
            QCOMPARE(units.suffix(1), QString(suffix));
        }
        units.setPulseDivisor(1);
        QCOMPARE(units.divided(1000), 1000 / 122.0703125);
        units.factor = 0;
        QCOMPARE(units.divided(1000), 1000.0);
    }

    void toolTipOfTheRange()
    {
        Box box;
        box.setRange(-1000, 5000);
        box.show();
        QVERIFY(QTest::qWaitForWindowExposed(&box));
        box.doStep("type 6000");
        for (const char* part :
             {"<td colspan=\"3\"; align=\"center\">Value out of range</td>",
              " align=\"right\" style=\"color:navy; white-space:pre-wrap;\">5,000<",
              ">&#x2212;1,000<", ">Ctrl&#x2212;End <"})
            QVERIFY2(QToolTip::text().contains(part), part);
        box.doStep("key Escape");
        QTRY_VERIFY(!QToolTip::isVisible());
        QToolTip::showText(QPoint(5, 5), "somebody else's");
        box.setValue(5);
        QCOMPARE(QToolTip::text(), QString("somebody else's"));
        QToolTip::hideText();
    }

    void undoAndRedoSendNothing()
    {
        Box box{SpinBox::Options()};
        box.setValue(3);
        box.blockSignals(true);
        box.setValue(8.0);
        box.blockSignals(false);
        box.takeSent();
        QUndoStack stack;
        stack.push(new SpinboxCommand(&box, nullptr));
        QCOMPARE(stack.text(0), QString("8"));
        stack.undo();
        QCOMPARE(box.value(), 3.0);
        stack.redo();
        QCOMPARE(box.value(), 8.0);
        QCOMPARE(box.takeSent(), QString());
    }

    void slider()
    {
        SliderStrip strip{{}, 20, 42, 100.0};
        strip.box.rect = QRect(0, 0, 200, 42);
        QCOMPARE(strip.frame(), QRect(0, 20, 200, 21));
        QCOMPARE(strip.marker(50), QRect(95, 11, 10, 38));
        QCOMPARE(strip.valueAt(50), 25.0);
        QCOMPARE(strip.drawn().rect, QRect(0, 0, 200, 22));

        Box box(SpinBox::Slider);
        box.setRange(-50, 50);
        QCOMPARE(box.sizeHint().height(), box.QDoubleSpinBox::sizeHint().height() + 20);
        box.resize(200, box.sizeHint().height());
        box.show();
        QVERIFY(QTest::qWaitForWindowExposed(&box));
        const int below = box.height() - 5;
        User::drag(&box, {10, below}, {80, below});
        QCOMPARE(box.value(), 40.0);
        QCOMPARE(box.takeSent(), QString());
        const QImage picture = box.grab().toImage();
        for (const QPoint& place : {QPoint(0, below), QPoint(199, below)})
            QCOMPARE(picture.pixelColor(place), QColor(Qt::blue));
        User::drag(&box, {10, 5}, {60, below}); // begun in the field
        box.setReadOnly(true);
        User::drag(&box, {10, below}, {60, below});
        QCOMPARE(box.value(), 40.0);
    }

    void hoverAndFocusAreForwarded()
    {
        SpinBox box;
        QStringList forwarded;
        connect(&box, &SpinBox::hoverFocusEvent,
                [&](QEvent* event) { forwarded << QString::number(event->type()); });
        QFocusEvent in(QEvent::FocusIn);
        QFocusEvent out(QEvent::FocusOut);
        QHoverEvent move(QEvent::HoverMove, QPointF(1, 1), QPointF(0, 0));
        QHoverEvent enter(QEvent::HoverEnter, QPointF(1, 1), QPointF(0, 0));
        QHoverEvent leave(QEvent::HoverLeave, QPointF(1, 1), QPointF(0, 0));
        QEvent other(QEvent::ToolTipChange);
        for (QEvent* event :
             std::initializer_list<QEvent*>{&in, &out, &move, &enter, &leave, &other})
            QCoreApplication::sendEvent(&box, event);
        QCOMPARE(forwarded.join(' '), QString("8 9 129 127 128"));
    }
};

AXR_TEST_MAIN(SpinBoxTest)
#include "SpinBoxTest.moc"
