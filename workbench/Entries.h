#ifndef ENTRIES_H
#define ENTRIES_H

#include <QStringList>

class QWidget;
class SpinBox;

/// What is being typed into a field.
namespace Entries
{

/// The spin boxes of these names take effect when an entry ends, not at each digit: the "1" of a
/// 1000 is a value of its own to the module.
void actAtTheirEnd(const QWidget* panel, const QStringList& boxes);

/// Whether the box shows something else than the value that was confirmed last.
bool isPending(const SpinBox& box);

} // namespace Entries

#endif
