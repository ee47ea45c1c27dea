#ifndef SPINBOXCOMMAND_H
#define SPINBOXCOMMAND_H

#include "AXRGuiExport.h"

#include <QPointer>
#include <QUndoCommand>

class SpinBox;

/// One change of a SpinBox for an undo stack, from its last value to its present one. Undo and redo
/// send nothing. A box that is gone is left alone.
class AXRGUI_EXPORT SpinboxCommand : public QUndoCommand
{
public:
    explicit SpinboxCommand(SpinBox* box, QUndoCommand* parent = nullptr);

    void undo() override;
    void redo() override;

private:
    void show(double value);

    QPointer<SpinBox> m_spinBox;
    double m_oldValue = 0.0;
    double m_newValue = 0.0;
};

#endif
