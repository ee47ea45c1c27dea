#ifndef ENTRIES_H
#define ENTRIES_H

class SpinBox;

/// What is being typed into a field.
namespace Entries
{

/// Whether the box shows something else than the value that was confirmed last.
bool isPending(const SpinBox& box);

} // namespace Entries

#endif
