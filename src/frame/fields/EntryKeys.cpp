#include "EntryKeys_p.h"

#include <QDoubleSpinBox>
#include <QLineEdit>

#include <utility>

namespace
{
constexpr QLatin1Char Point = FieldText::Point;
}

Replaced::Replaced(const QLineEdit* edit)
    : from(edit->hasSelectedText() ? edit->selectionStart() : edit->cursorPosition())
    , to(edit->hasSelectedText() ? edit->selectionEnd() : from)
{
}

/// A subclass may have put in another one.
QLineEdit* EntryKeys::edit() const { return m_box->findChild<QLineEdit*>(); }

FieldText EntryKeys::shown() const { return {edit()->text(), m_box->prefix(), m_box->suffix()}; }

void EntryKeys::confine()
{
    const FieldText shown = this->shown();
    const auto inside = [&shown](int at) { return qBound(shown.start(), at, shown.end()); };
    const int from = inside(edit()->selectionStart());
    if (edit()->hasSelectedText())
        edit()->setSelection(from, inside(edit()->selectionEnd()) - from);
    else
        edit()->setCursorPosition(inside(edit()->cursorPosition()));
}

void EntryKeys::remove(bool forward, bool word)
{
    m_isFraction = false;
    if (!edit()->hasSelectedText())
        selectToDelete(forward, word);
    if (edit()->hasSelectedText())
        keepCaret([this] { edit()->del(); });
}

/// Selects what a deletion takes. Marks between digits come back by themselves, so the digit behind
/// the mark is meant; a word is the rest of the number.
void EntryKeys::selectToDelete(bool forward, bool word)
{
    const int last = forward ? shown().end() : shown().start();
    const int step = forward ? 1 : -1;
    int caret = edit()->cursorPosition();
    const auto next = [&] { return edit()->text().at(forward ? caret : caret - 1); };
    while (caret != last && (next() == Point || next() == QLatin1Char(',')))
        caret += step;
    const int end = word || caret == last ? last : caret + step;
    edit()->setSelection(qMin(caret, end), qAbs(end - caret));
}

/// Runs a change of what is selected, or at the caret, and keeps the caret left of the digits that
/// were right of it. Digits without a point are whole units: when they get one, as the first digits
/// of an entry do, the caret stays before it.
void EntryKeys::keepCaret(const std::function<void()>& change)
{
    const Replaced replaced(edit());
    const FieldText before = shown();
    const QString right = before.between(replaced.to, before.end());
    const bool wholeUnits =
        !(before.between(before.start(), replaced.from) + right).contains(Point);
    change();
    const FieldText after = shown();
    const int added = wholeUnits && after.hasPoint() ? m_box->decimals() : 0;
    edit()->setCursorPosition(after.caretBefore(FieldText::digitsIn(right) + added));
}

void EntryKeys::type(QChar typed, const std::function<void()>& handOn)
{
    if (typed == Point) {
        typePoint();
        return;
    }
    const int caret = Replaced(edit()).from;
    const bool wasFraction = std::exchange(m_isFraction, false);
    const FieldText before = shown();
    if (!FieldText::isDigit(typed) && (typed != QLatin1Char('-') || caret != before.start()))
        return;
    if (wasFraction && !edit()->hasSelectedText() && caret < before.end() &&
        before.between(before.start(), caret).contains(Point)) {
        edit()->setSelection(caret, 1);
        m_isFraction = true;
    }
    keepCaret(handOn);
}

/// A point typed where the number has its own steps behind it; the digits that follow then replace
/// those of the fraction. A number without one gets it at its end. Elsewhere a point is dropped.
void EntryKeys::typePoint()
{
    const int decimals = m_box->decimals();
    if (decimals == 0)
        return;
    const Replaced replaced(edit());
    const FieldText before = shown();
    const QString right = before.between(replaced.to, before.end());
    if (right.isEmpty() && !before.between(before.start(), replaced.from).contains(Point))
        edit()->insert(Point + QString(decimals, QLatin1Char('0')));
    else if (edit()->hasSelectedText() || !right.startsWith(Point))
        return;
    edit()->setCursorPosition(shown().caretBefore(decimals) + 1);
    m_isFraction = true;
}
