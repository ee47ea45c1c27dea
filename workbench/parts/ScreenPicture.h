#ifndef SCREENPICTURE_H
#define SCREENPICTURE_H

#include <QImage>

class QWidget;

/// Pictures of what really stands on the screen. Asking a widget to paint itself for a picture
/// would show what nobody sees: that it was never updated, or is covered.
namespace ScreenPicture
{

/// Lets the event loop run.
void run(int milliseconds);

/// Lets the event loop run until what was to be painted is on the screen, and photographs the
/// widget. Null when it is not shown, or does not lie on the screen as a whole.
QImage of(const QWidget* widget);

/// True when next to nothing is on it: fewer than three colours.
bool isEmpty(const QImage& picture);

/// Whether a pixel of about this colour lies in the place.
bool has(const QImage& picture, const QRect& place, const QColor& colour);

/// In how many pixel columns about this colour can be seen.
int columnsWith(const QImage& picture, const QColor& colour);

/// The least rectangle that holds all of about this colour.
QRect extent(const QImage& picture, const QColor& colour);

} // namespace ScreenPicture

#endif
