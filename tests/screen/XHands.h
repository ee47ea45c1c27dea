#ifndef XHANDS_H
#define XHANDS_H

/// Pointer and keys by the window system's test extension, on a connection of its own. Apart from
/// Screen, for the names of Xlib and those of Qt do not go together.
namespace XHands
{

/// Whether the display has the extension; everything else needs it.
bool areThere();
void move(int x, int y);
/// \param button 1 left, 2 middle, 3 right, 4 and 5 the wheel
void button(unsigned button, bool isDown);
/// \param code from codeOf()
void key(unsigned code, bool isDown);
/// The key of a name such as "Return"; 0 when there is none.
unsigned codeOf(const char* name);
/// The key of a printable ASCII character; 0 when there is none.
unsigned codeOf(char character, bool* isShifted);
/// Waits until the display has taken what was sent.
void sync();
bool hasWindowManager();
/// Whether the window manager has taken this window into its care.
bool isManaged(unsigned long window);

} // namespace XHands

#endif
