#ifndef ENTRYKEYS_P_H
#define ENTRYKEYS_P_H

#include "FieldText_p.h"

#include <functional>

class QDoubleSpinBox;
class QLineEdit;

/// What a key replaces: the selection, or nothing at the caret.
struct Replaced {
    explicit Replaced(const QLineEdit* edit);
    int from;
    int to;
};

/// The keys that change the number in a field, whose validator puts the decimal point and the
/// groups: the caret stays at its digit meanwhile.
class EntryKeys
{
public:
    explicit EntryKeys(const QDoubleSpinBox* box) : m_box(box) {}

    /// Prefix and suffix may hold digits, too: nothing of them is replaced.
    void confine();
    /// Deletes the selection, or a digit, or the rest of the number.
    void remove(bool forward, bool word);
    /// Types a character that has a place in a number, by handing it on; any other is dropped, for
    /// the validator would take a number without a point for hundredths after it.
    void type(QChar typed, const std::function<void()>& handOn);
    /// The field was left, and a typed point with it.
    void leave() { m_isFraction = false; }

private:
    QLineEdit* edit() const;
    FieldText shown() const;
    void selectToDelete(bool forward, bool word);
    void keepCaret(const std::function<void()>& change);
    void typePoint();

    const QDoubleSpinBox* m_box;
    bool m_isFraction = false; // the next digit replaces one behind the typed point
};

#endif
