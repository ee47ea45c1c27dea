#include "PanelTable.h"

#include "Bytes.h"
#include "CommandRecorder.h"
#include "SignalLog.h"
#include "User.h"

#include <QtTest>
#include <QtWidgets>

#include <memory>

namespace
{

const QString anybody = "any ";

using Facts = QVector<QPair<QString, QString>>; // in the order of the form

QString checkMark(bool isChecked) { return QLatin1String(isChecked ? "1" : "0"); }

/// What a widget shows: the value, text or check mark.
QString shown(const QWidget* widget)
{
    if (const auto* field = qobject_cast<const QSpinBox*>(widget))
        return field->cleanText();
    if (const auto* field = qobject_cast<const QDoubleSpinBox*>(widget))
        return field->cleanText();
    if (const auto* box = qobject_cast<const QComboBox*>(widget))
        return box->currentText();
    if (const auto* slider = qobject_cast<const QAbstractSlider*>(widget))
        return QString::number(slider->value());
    if (const auto* label = qobject_cast<const QLabel*>(widget))
        return label->text();
    if (const auto* button = qobject_cast<const QAbstractButton*>(widget))
        return button->isCheckable() ? checkMark(button->isChecked()) : button->text();
    if (const auto* box = qobject_cast<const QGroupBox*>(widget))
        return checkMark(box->isChecked());
    return QString();
}

Facts factsOf(const QWidget& panel)
{
    Facts facts;
    for (const QWidget* widget : panel.findChildren<QWidget*>()) {
        const QString name = widget->objectName();
        if (name.isEmpty() || name.startsWith("qt_"))
            continue;
        const bool isEnabled = widget->isEnabledTo(widget->parentWidget());
        facts << qMakePair(name + '=', shown(widget))
              << qMakePair(name + " tip ", widget->toolTip())
              << qMakePair(name + " suffix ", widget->property("suffix").toString())
              << qMakePair(name + " title ", widget->property("title").toString())
              << qMakePair(name + ' ', QString(isEnabled ? "on" : "off"))
              << qMakePair(name + ' ', QString(widget->isHidden() ? "hidden" : "shown"));
        if (qobject_cast<const QLabel*>(widget))
            facts << qMakePair(name + " sheet ", widget->styleSheet());
    }
    return facts;
}

/// Signals and slots above QWidget, with the names of their arguments.
QString membersOf(const QObject& panel, QStringList* ofTheForm)
{
    QStringList members;
    const QMetaObject* meta = panel.metaObject();
    for (int i = QWidget::staticMetaObject.methodCount(); i < meta->methodCount(); ++i) {
        const QMetaMethod method = meta->method(i);
        QStringList arguments;
        for (int k = 0; k < method.parameterCount(); ++k)
            arguments << method.parameterTypes().at(k) + ' ' + method.parameterNames().at(k);
        if (method.name().startsWith("on_"))
            *ofTheForm << QString(method.name()).section('_', 1, 1);
        else
            members << method.name() + '(' + arguments.join(", ") + ')';
    }
    return members.join(' ');
}

QMetaMethod slotOf(const QObject& panel, const QString& name)
{
    for (int i = panel.metaObject()->methodCount() - 1; i >= 0; --i) {
        const QMetaMethod method = panel.metaObject()->method(i);
        if (method.methodType() == QMetaMethod::Slot && name == method.name())
            return method;
    }
    qFatal("there is no widget and no slot %s", qPrintable(name));
}

bool takesCommand(const QMetaMethod& slot) { return slot.parameterTypes().value(0) == "Command*"; }

/// Calls a slot with its arguments as numbers.
void call(QWidget* panel, const QMetaMethod& slot, QVector<int> numbers)
{
    numbers.resize(6);
    if (takesCommand(slot)) {
        Command command = reply(numbers[0], numbers[1], numbers[2], numbers[3], numbers[4]);
        command.setStatus(3); // the host delivers only what it wants applied
        slot.invoke(panel, Q_ARG(Command*, &command));
        return;
    }
    char bytes[6];
    QGenericArgument arguments[6];
    for (int i = 0; i < slot.parameterCount(); ++i) {
        bytes[i] = toByte(numbers[i]);
        arguments[i] = slot.parameterType(i) == QMetaType::Char
                           ? QGenericArgument("char", &bytes[i])
                           : QGenericArgument("int", &numbers[i]);
    }
    slot.invoke(panel, arguments[0], arguments[1], arguments[2], arguments[3], arguments[4],
                arguments[5]);
}

/// The numbers of a reply that are not meant for the panel: each has one byte that is another.
QVector<QVector<int>> foreign(const QMetaMethod& slot, const QVector<int>& numbers)
{
    QVector<QVector<int>> others;
    const auto change = [&](int at, int number) {
        others << numbers;
        others.last()[at] = number;
    };
    const QList<QByteArray> names =
        takesCommand(slot) ? QList<QByteArray>{"address", "command", "type", "motorBank", "value"}
                           : slot.parameterNames();
    for (int i = 0; i < qMin(names.size(), numbers.size()); ++i) {
        if (names.at(i) == "type")
            change(i, numbers.at(i) ^ 0x40);
        else if (names.at(i) == "command")
            change(i, 7);
        else if (names.at(i) != "value" && names.at(i) != "data")
            change(i, numbers.at(i) + 1);
        if (takesCommand(slot) && names.at(i) == "command")
            change(i, 5); // the echo of a change
    }
    return others;
}

struct Step {
    QString gesture;
    QString effects;
};

QVector<Step> stepsOf(const char* script)
{
    QVector<Step> steps;
    bool isOpen = false;
    for (const QString& line : QString::fromUtf8(script).split('\n')) {
        const QString text = line.trimmed();
        if (isOpen) {
            steps.last().effects += ' ' + text;
        } else if (!text.isEmpty()) {
            const int colon = text.indexOf(':');
            steps << Step{text.left(colon), text.mid(colon + 2)};
        }
        isOpen = text.endsWith(';');
    }
    return steps;
}

/// A panel that is being played with.
class Player
{
public:
    explicit Player(const PanelRow& row)
        : m_row(row), m_panel(row.make()), m_log(std::make_unique<SignalLog>(m_panel))
    {
        m_facts = factsOf(*m_panel);
    }
    ~Player() { delete m_panel; }

    QWidget* panel() const { return m_panel; }

    void play(QString gesture)
    {
        gesture.remove(anybody);
        const QString name = gesture.section(' ', 0, 0);
        const QString verb = gesture.section(' ', 1, 1);
        const QString rest = gesture.section(' ', 2);
        if (gesture == "set up")
            m_row.setUp(m_panel);
        else if (gesture == "update")
            m_row.update(m_panel);
        else if (auto* widget = m_panel->findChild<QWidget*>(name))
            handle(widget, verb, rest);
        else
            call(m_panel, slotOf(*m_panel, name), numbersOf(gesture));
    }

    /// What has come of it since the last call.
    QString effects()
    {
        QStringList effects = m_log->takeLines();
        m_hasSent = !effects.isEmpty();
        effects.replaceInStrings(QRegularExpression("^OUT_requestValue "), QString());
        const Facts facts = factsOf(*m_panel);
        for (int i = 0; i < facts.size(); ++i) {
            if (facts.at(i) != m_facts.value(i))
                effects << facts.at(i).first + facts.at(i).second;
        }
        m_facts = facts;
        return effects.join("; ");
    }

    /// Whether signals were among the last effects.
    bool hasSent() const { return m_hasSent; }

    /// What has come of the same reply for somebody else; nothing is right.
    QString effectsOfForeign(const QString& gesture)
    {
        const QString name = gesture.section(' ', 0, 0);
        if (gesture == "set up" || gesture == "update" || gesture.startsWith(anybody) ||
            m_panel->findChild<QWidget*>(name))
            return QString();
        const QMetaMethod slot = slotOf(*m_panel, name);
        for (const QVector<int>& numbers : foreign(slot, numbersOf(gesture)))
            call(m_panel, slot, numbers);
        return effects();
    }

    /// Does the gesture with a host that deletes the panel inside the first signal; how many came,
    /// none when the panel is still there.
    int endInside(const QString& gesture)
    {
        m_log->takeLines();
        bool isOver = false;
        m_log->onSignal([&](const QString&) {
            if (!std::exchange(isOver, true))
                delete m_panel;
        });
        play(gesture);
        return m_panel ? 0 : m_log->takeLines().size();
    }

private:
    static QVector<int> numbersOf(const QString& gesture)
    {
        QVector<int> numbers;
        for (const QString& word : gesture.split(' ').mid(1))
            numbers << word.toInt();
        return numbers;
    }

    void handle(QWidget* widget, const QString& verb, const QString& text)
    {
        if (verb == "click") {
            User::click(widget);
        } else if (verb == "press") {
            User::press(widget);
        } else if (verb == "release") {
            User::release(widget);
        } else if (verb == "hold") {
            User::press(widget);
            for (const bool isEnabled : {false, true}) {
                if (m_panel)
                    m_panel->setEnabled(isEnabled);
            }
        } else if (verb == "key") {
            QTest::keyClick(widget, Qt::Key(QKeySequence(text)[0]));
        } else if (verb == "choose") {
            User::choose(widget, text);
        } else if (verb == "type") {
            if (auto* field = qobject_cast<QAbstractSpinBox*>(widget))
                field->selectAll();
            User::type(widget, text);
        } else {
            qFatal("there is no gesture %s", qPrintable(verb));
        }
    }

    const PanelRow& m_row;
    QPointer<QWidget> m_panel;
    std::unique_ptr<SignalLog> m_log;
    Facts m_facts;
    bool m_hasSent = false;
};

} // namespace

void checkPanel(const PanelRow& row)
{
    const QVector<Step> steps = stepsOf(row.script);
    Player player(row);
    QStringList objects;
    const QString members = membersOf(*player.panel(), &objects);
    if (row.members)
        QCOMPARE(members, QString(row.members));
    for (int i = 0; i < steps.size(); ++i) {
        const Step& step = steps.at(i);
        objects.removeAll(step.gesture.section(' ', 0, 0));
        if (!step.effects.isEmpty())
            QCOMPARE(step.gesture + ", foreign: " + player.effectsOfForeign(step.gesture),
                     step.gesture + ", foreign: ");
        player.play(step.gesture);
        QCOMPARE(step.gesture + ": " + player.effects(), step.gesture + ": " + step.effects);
        if (i == 0 || !player.hasSent() || step.gesture.contains(" type "))
            continue; // Qt's own fields do not bear it while they are typed into
        Player doomed(row);
        for (int k = 0; k < i; ++k)
            doomed.play(steps.at(k).gesture);
        const int count = doomed.endInside(step.gesture);
        // What is held is stopped by the panel's end.
        const bool isHeld = step.gesture.contains(QRegularExpression(" (press|hold)$"));
        QVERIFY2(count == (isHeld ? 2 : 1), qPrintable(step.gesture));
    }
    if (row.members)
        QCOMPARE(objects, QStringList());
    for (const QWidget* field : player.panel()->findChildren<QWidget*>())
        QVERIFY2(field->focusPolicy() != Qt::WheelFocus, qPrintable(field->objectName()));
    player.panel()->show();
    player.panel()->hide();
    QCOMPARE(player.effects(), QString());
}
