#ifndef ENTRYLOOK_P_H
#define ENTRYLOOK_P_H

#include <QPoint>

class QAbstractSpinBox;
class QLineEdit;
class QString;

enum class Entry { Clean, Pending, Invalid };

/// The colours of a number field by what is entered, and the tool tip with its range.
class EntryLook
{
public:
    EntryLook(QAbstractSpinBox* box, QLineEdit* edit) : m_box(box), m_edit(edit) {}

    void show(Entry entry);
    Entry shown() const { return m_entry; }

    void showRange(QPoint place, const QString& minimum, const QString& maximum);
    /// Any other tool tip of the program stays.
    void hideRange();

private:
    QAbstractSpinBox* m_box;
    QLineEdit* m_edit;
    Entry m_entry = Entry::Clean;
    bool m_isRangeShown = false;
};

#endif
