#ifndef FIELDFACE_P_H
#define FIELDFACE_P_H

#include "FieldSign_p.h"

#include <QBasicTimer>
#include <QMargins>
#include <QPointer>

#include <functional>

class QAbstractSpinBox;
class QFont;
class QLineEdit;
class QSpinBox;

/// Sees to it that what a number field shows is read as what it means: paints a sign in front of
/// a number that is not the one the field was told, or that waits, and narrows digits that have no
/// room, down to three fifths. Style sheet, tool tip and sizes of the field stay as they are.
///
/// Belongs to the field and paints in the paint event of its line edit, over what that painted.
class FieldFace : public QObject
{
public:
    /// \param number what the field shows, not a number while it shows none
    /// \param entry what the field says of an entry; without it, the field holds none
    FieldFace(QAbstractSpinBox* field, std::function<double()> number,
              std::function<FieldSign()> entry = {});

    /// The field's face, null when it has none.
    static FieldFace* in(const QAbstractSpinBox* field);
    /// The face of a plain field, made when there is none yet.
    static FieldFace* of(QSpinBox* field);

    /// To be called when the field shows what it was told to, or as much of it as its range lets.
    void tell(double value);
    /// Whether the field shows less than it was told, also by a range that came later. Not so once
    /// another number was put in.
    bool isClipped() const;
    /// Shows for a moment that an entry was replaced.
    void showOverwritten();

    FieldSign sign() const;
    QRect signRect() const; // in the line edit

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    struct Fit {
        FieldSign sign = FieldSign::None;
        int stretch = 0; // percent of the letters' width, 0 for the field's own
        bool operator!=(const Fit& other) const
        {
            return sign != other.sign || stretch != other.stretch;
        }
    };

    FieldSign clipped() const;
    QFont naturalFont() const;
    int room(FieldSign sign) const;
    int badgeSide() const;
    Fit fit() const;
    void refit();

    QAbstractSpinBox* m_field;
    QPointer<QLineEdit> m_edit;
    std::function<double()> m_number;
    std::function<FieldSign()> m_entry;
    QMargins m_margins; // of the line edit without a sign
    double m_told = 0.0;
    double m_shown = 0.0; // when it was told
    Fit m_fit;
    bool m_refitDue = false;
    QBasicTimer m_overwritten;
};

#endif
