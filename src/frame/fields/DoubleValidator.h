#ifndef DOUBLEVALIDATOR_H
#define DOUBLEVALIDATOR_H

#include "AXRGuiExport.h"
#include "SpinBox.h"

#include <QDoubleValidator>

class QLineEdit;

/// Does the entry work of a SpinBox in its line edit: the decimal point stays its number of digits
/// from the end, digit groups are marked, and the box is coloured by what is entered.
class AXRGUI_EXPORT DoubleValidator : public QDoubleValidator
{
    Q_OBJECT
public:
    /// \param parent the line edit of a SpinBox, which is found as the parent's parent; on any
    /// other line edit this validates as the base class does
    /// \param options with NoDots the digits stay as typed
    DoubleValidator(QLineEdit* parent, QFlags<SpinBox::Option> options);

    /// Colours the box as a side effect. In a SpinBox never Invalid: an entry out of range stays
    /// visible and is Intermediate.
    State validate(QString& input, int& pos) const override;

private:
    SpinBox::Options m_options;
};

#endif
