#ifndef AXISPANEL_H
#define AXISPANEL_H

#include "Instruction.h"
#include "MotorController.h"
#include "ParameterPanel.h"

class Command;

/// Base of the panels that send and take whole commands. A panel adds its form, its parameters and
/// the instructions behind its buttons.
///
/// A panel reads nothing by itself: the host calls updateValues() and delivers every reply that it
/// wants applied to IN_replyValue(). No status is looked at.
class AXRGUI_EXPORT AxisPanel : public ParameterPanel, public MotorController
{
    Q_OBJECT
public:
    ~AxisPanel() override;

    /// Asks for each value that the panel reads back: one GAP with value 0 for each.
    void updateValues();

Q_SIGNALS:
    /// The one way out: a GAP, a SAP or a motion command. The command lives on the panel's stack
    /// and only during the emission, so connect directly and copy what is needed longer.
    void OUT_requestValue(Command* request);

public Q_SLOTS:
    /// The one way in. Takes a GAP reply with the panel's address and motor bank; its value goes to
    /// every parameter read back that has the reply's type, and only to what the panel reads back:
    /// the number of a target is none of these. Anything else, an echo of a SAP and null are
    /// ignored; the status is not looked at.
    ///
    /// A field shows what its range lets it show, with a sign in front of a number that is less
    /// than the reply; some panels drop a reply above the maximum instead, without a sign. An entry
    /// that the user was typing goes. A field with a Return to wait for sends nothing; a check box,
    /// combo box, group box or plain field whose change is sent sends a value that really changes
    /// it back once.
    void IN_replyValue(Command* reply);

protected:
    explicit AxisPanel(QWidget* parent);

    /// Emits a command with the panel's address and motor bank. Returns false when the panel was
    /// destroyed meanwhile: a host may do that inside the emission.
    bool send(Instruction instruction, char type, int value);
    /// The same, to an axis that need not be the panel's.
    bool send(const MotorController& axis, Instruction instruction, char type, int value);
    /// Sends SAP for the parameter.
    bool change(const AxisParameter& parameter, int value);
};

#endif
