#ifndef TUPLESETTINGSPANEL_H
#define TUPLESETTINGSPANEL_H

#include "TuplePanel.h"

/// Base of the panels that set the parameters of an axis with tuple signals.
class AXRGUI_EXPORT TupleSettingsPanel : public TuplePanel
{
    Q_OBJECT
public:
    ~TupleSettingsPanel() override;

Q_SIGNALS:
    void changeValue(char address, char motorBank, char type, int value);

public Q_SLOTS:
    /// A reply from the stream of all replies: one with status 100, to a GAP or to a SAP, goes to
    /// requestedValue().
    void requestedCommand(char address, char command, char type, char motorBank, char status,
                          int data);

protected:
    explicit TupleSettingsPanel(QWidget* parent);

    /// Emits changeValue() for the parameter. Returns false when the panel was destroyed meanwhile:
    /// a host may do that inside the emission.
    bool change(const AxisParameter& parameter, int value);
};

#endif
