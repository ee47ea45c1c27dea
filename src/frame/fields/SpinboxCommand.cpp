#include "SpinboxCommand.h"

#include "SpinBox.h"

#include <QSignalBlocker>

SpinboxCommand::SpinboxCommand(SpinBox* box, QUndoCommand* parent)
    : QUndoCommand(parent), m_spinBox(box)
{
    if (!box)
        return;
    setText(box->text());
    m_oldValue = box->lastValue();
    m_newValue = box->value();
}

void SpinboxCommand::undo() { show(m_oldValue); }

void SpinboxCommand::redo() { show(m_newValue); }

void SpinboxCommand::show(double value)
{
    if (!m_spinBox)
        return;
    const QSignalBlocker silent(m_spinBox);
    m_spinBox->QDoubleSpinBox::setValue(value);
    m_spinBox->validateShown();
}
