#ifndef ADDRESSBYTE_P_H
#define ADDRESSBYTE_P_H

#include <QSpinBox>
#include <QVector>

/// One byte of a dotted address, among the fields of the others. "." goes on to the next one,
/// Backspace in an empty field to the one before; a whole address that is pasted, by whatever
/// gesture and at whatever place in the text, fills all of them.
class AddressByte : public QSpinBox
{
public:
    using QSpinBox::QSpinBox;

    /// The fields of one address, the first byte in front.
    static void join(const QVector<AddressByte*>& fields);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    QValidator::State validate(QString& text, int& position) const override;

private:
    AddressByte* neighbour(int distance) const;

    QVector<AddressByte*> m_fields;
};

#endif
