#ifndef PANELTABLE_H
#define PANELTABLE_H

#include <QMetaType>
#include <QWidget>

#include <functional>

/// One panel in a table of panels: its own signals and slots, how a host sets it up, and a script
/// of what a host and a user then do, with all that comes of each step:
///
///     set up: sbActual tip AP 3 (-100..100)
///     update: 1 6 3 0 0
///     IN_replyValue 1 6 3 0 77: sbActual=77
///     btnStop click: 1 3 0 0 0
///
/// Behind the colon stand the signals of the panel in their order, each as SignalLog writes it but
/// without the name of OUT_requestValue, and then what has changed in the form, separated by "; ".
/// Nothing else may come of it. A line that ends with ";" goes on in the next.
///
/// The steps:
/// - "set up", always the first, and "update";
/// - a slot of the panel with its arguments, of a Command its address, command, type, motor bank
/// and
///   value, behind "any" where it does not matter whose reply it is;
/// - a widget of the form with "click", "press", "release", "hold" for a press that lasts until the
///   panel is disabled, "key" and its name, "type" and what replaces the whole text, or "choose"
///   and the entry of a combo box.
///
/// The changes: of value, text or check mark ("sbActual=77"), "tip", "suffix", "title", the "sheet"
/// of a label, "on", "off", "shown" and "hidden".
struct PanelRow {
    const char* members; // null in a further row of the same class
    std::function<QWidget*()> make;
    std::function<void(QWidget*)> setUp;
    std::function<void(QWidget*)> update;
    const char* script;
};

template <class Panel>
auto updateOf(Panel* panel, int) -> decltype(panel->updateValues())
{
    panel->updateValues();
}
template <class Panel>
void updateOf(Panel*, long)
{
    qFatal("a panel without updateValues()");
}

/// The row of a panel class that is made without arguments. A lambda as setUp takes Panel&.
template <class Panel, class SetUp>
PanelRow panelRow(const char* members, SetUp setUp, const char* script)
{
    return {members, [] { return new Panel; },
            [setUp](QWidget* panel) { setUp(*static_cast<Panel*>(panel)); },
            [](QWidget* panel) { updateOf(static_cast<Panel*>(panel), 0); }, script};
}

/// Plays the script of a row, and shows and hides the panel, which does nothing. Further:
/// - the panel has the members of the row, besides slots by the names of its form's objects, each
///   of which has a step;
/// - a reply that does something in the script does nothing when address, command, type, motor bank
///   or status is another one;
/// - the wheel alone gives no field the focus;
/// - a host may delete the panel inside the first signal of each step but "type".
void checkPanel(const PanelRow& row);

/// The signals and slots of the four forms of panels.
namespace Members
{
constexpr char Axis[] = "OUT_requestValue(Command* request) IN_replyValue(Command* reply)";
constexpr char Tuple[] = "requestValue(char address, char motorBank, char type) "
                         "requestedValue(char address, char motorBank, char type, int value)";
constexpr char TupleSettings[] =
    "requestValue(char address, char motorBank, char type) "
    "requestedValue(char address, char motorBank, char type, int value) "
    "changeValue(char address, char motorBank, char type, int value) "
    "requestedCommand(char address, char command, char type, char motorBank, char status, int "
    "data)";
constexpr char Bank[] = "requestValue(char motorBank, char type) "
                        "requestedValue(char motorBank, char type, int value) "
                        "requestedTraceValue(char motorBank, char type, int value)";
} // namespace Members

Q_DECLARE_METATYPE(PanelRow)

#endif
