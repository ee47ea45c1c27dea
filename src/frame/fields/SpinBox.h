#ifndef SPINBOX_H
#define SPINBOX_H

#include "AXRGuiExport.h"
#include "Parameter.h"

#include <QDoubleSpinBox>

#include <memory>

class EntryKeys;
class EntryLook;
class FieldFace;
enum class FieldSign;
struct EntryVerdict;
struct FieldText;
struct RealUnits;
struct SliderStrip;

/// The numeric field of the panels: shows a device value in device units, can show it in real units
/// behind, is typed in with a fixed decimal point, and can hold a change back until Return.
///
/// A change that waits for Return shows gold, an entry out of range crimson. These colours are a
/// style sheet of the box and of its line edit, which replaces what a host set there, and they
/// follow texts of digits alone: a text with a decimal point keeps the colours that it had. What
/// they do not say, a small sign in front of the number says:
/// - an arrow of the Return key: the entry waits for Return;
/// - "!": the entry is out of range;
/// - ">" or "<": the box was told more, or less, than its range lets it show;
/// - an arrow from above, for a second and a half: a reply replaced the entry;
/// - three dots: not all digits have room, even narrowed.
///
/// Return on an entry out of range sends nothing and keeps the text; Escape, or leaving the box,
/// shows the value again. Releasing Ctrl-Home or Ctrl-End enters the maximum or minimum divided by
/// factor and pulse factor, which with factors below 1 is out of range.
///
/// Range at the start -2147483647..2147483647, no decimals, right-aligned, keyboard tracking off.
/// Without focus the wheel goes to the page round the box. The box always uses the C locale: in
/// another one, digit groups and decimal point would read back as a wrong value.
///
/// setMaximum(), setValue() and the valueChanged signals hide those of the base class; a caller
/// that holds a QDoubleSpinBox* gets no validation.
class AXRGUI_EXPORT SpinBox : public QDoubleSpinBox
{
    Q_OBJECT
public:
    enum Option {
        ReadOnly = 1, ///< Read-only, without step buttons.
        Result = 2,   ///< Read-only with "result: " in front; maximum 9.99e99.
        /// A strip under the field shows the value and takes drags, which send nothing. Its left
        /// end stands for 0 and its right one for maximum - minimum, whatever the minimum is.
        Slider = 4,
        NoDots = 8,          ///< The text stays as typed, without digit groups.
        ChangedOnEnter = 16, ///< Signals stay blocked; only sendValue() lets a change out.
        ResetOnEscape = 32   ///< Escape puts the last value back.
    };
    Q_DECLARE_FLAGS(Options, Option)

    explicit SpinBox(QWidget* parent = nullptr, QFlags<SpinBox::Option> options = {});
    ~SpinBox() override;

    /// Adds options; none is ever taken away. Blocks the signals when ChangedOnEnter is then set,
    /// and installs a new validator.
    void setFlags(QFlags<SpinBox::Option> options);

    /// With Result the maximum becomes 9.99e99 whatever is given.
    void setMaximum(double maximum);

    /// The value in real units, value / (factor x pulse factor); the value itself when that
    /// product is 0.
    double valueReal() const;

    /// The value last confirmed or received, with which a pending entry is compared.
    double lastValue() const { return m_lastValue; }

    /// Whether the user entered a number, by keys, arrows, wheel or drag, that is not yet
    /// confirmed, or something that is none. A reply that comes now replaces it.
    bool hasEntry() const;

    /// Configures the box from a device parameter. An invalid parameter disables the box and shows
    /// "---"; a later valid one does not enable it again.
    /// An empty unit format leaves the suffix as it is.
    /// \param rawDisplay true: no real units, the value stays; false: `value` is shown
    /// \param value in device units
    /// \param decimals above 0 also sets the single step to decimals / 10
    /// \return the caption: the parameter's name, with a capital when longer than one letter;
    /// empty for an invalid parameter
    QString setUnitParameter(Parameter parameter, bool rawDisplay, double value, int decimals);

    /// Gives the box the inset look with wide text. The next validation of a whole number wipes it.
    void updateStyleSheet();

    bool eventFilter(QObject* watched, QEvent* event) override;
    bool event(QEvent* event) override;
    void stepBy(int steps) override;
    QSize sizeHint() const override;

public Q_SLOTS:
    /// Shows a value without taking it as confirmed: with ChangedOnEnter it may show as pending.
    /// Emits nothing then.
    void setValue(double value);
    /// Applies a reply: the value counts as confirmed. Emits nothing with ChangedOnEnter. An entry
    /// of the user goes; the number that replaces it is then selected as a whole, so that the next
    /// digit typed does not join it, and a sign shows for a moment. Outside the range lastValue()
    /// is still the value given, and a sign stands before the bound that is shown.
    void setValue(int value);
    /// Runs the line edit's validator on the present text for its colours and width.
    void doValidation();
    /// Pulse factor = 2^-pulseDivisor x 16000000 / 65536; the real-unit display follows when the
    /// number changes, or at the next valueHasChanged(). Drops an entry that is being typed.
    void setPulseDivisorFactor(int pulseDivisor);
    /// Real units per device unit, default 1. Shows when the number changes, or at the next
    /// valueHasChanged().
    void setFactor(double factor);
    /// Emits valueChanged(int) with the rounded value, as a dial does that moved the box silently.
    void externItemMouseReleased();
    /// Rebuilds the suffix for a value in device units. By itself the real value in it follows
    /// every change of the number, also while it is typed; not in a suffix that the host set
    /// instead.
    void valueHasChanged(double value);
    /// Emits both forms of valueChanged, rounded by qRound, then takes the value as confirmed. When
    /// a receiver sets another value, that one goes out and counts, and the rest is left out.
    void valueToInt(double value);
    /// Confirms the entry: takes typed text, and when the value differs from the last one, emits
    /// valueChanged(double, double), valueChanged(int) with the value cut toward zero, and the
    /// base's valueChanged(QString). The signals are afterwards blocked or not as before. Called
    /// from one of these signals, or with a text out of range, it does nothing.
    void sendValue();

Q_SIGNALS:
    /// The value as a whole number; what panels connect to.
    void valueChanged(int);
    /// The new value, then the last one.
    void valueChanged(double, double);
    /// Forwards hover and focus events; the event is valid during the emission. Mute with
    /// ChangedOnEnter, as all signals are.
    void hoverFocusEvent(QEvent*);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    /// Keeps the caret at its digit while the validator moves point and digit groups, and the keys
    /// inside the number. Typing over the whole number starts with its whole units; after a typed
    /// point the digits of the fraction are replaced, at its end they shift the number again.
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    friend class DoubleValidator; // which colours the entry and shows its tool tip
    friend class SpinboxCommand;

    bool has(Option option) const { return m_options.testFlag(option); }
    void installValidator();
    void setLastValue(double value);
    bool setValueSilently(double value);
    void setBounds(double minimum, double maximum);
    void validateShown();
    FieldText shown() const;
    bool isOutside() const;
    FieldSign entrySign() const;
    void followNumber();
    template <class Change>
    void keepSelected(Change change);
    void showVerdict(const EntryVerdict& verdict, bool waits);
    void growWith(const QString& text);
    QString boundText(double bound) const;
    SliderStrip strip() const;
    QPoint placeForBase(QPoint place) const;
    QMouseEvent forBase(const QMouseEvent& event) const;

    std::unique_ptr<RealUnits> m_units;
    double m_lastValue = 0.0;
    QString m_realSuffix;    // the last one made with a real value
    double m_followed = 0.0; // the number shown when that was made
    Options m_options;
    int m_apNumber = -1;
    QPoint m_lastCursorPos;
    std::unique_ptr<EntryLook> m_look;
    std::unique_ptr<EntryKeys> m_keys;
    bool m_sending = false;
    bool m_touched = false; // by the user, since a value was set
    bool m_isRewriting = false;
    bool m_heldAboveStrip = false; // a press that began there does not drag
    FieldFace* m_face;
    unsigned m_confirmations = 0; // tells an emitter that a reply came inside its emission
};

Q_DECLARE_OPERATORS_FOR_FLAGS(SpinBox::Options)

#endif
