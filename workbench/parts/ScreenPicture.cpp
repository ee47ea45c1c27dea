#include "ScreenPicture.h"

#include <QColor>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QGuiApplication>
#include <QPixmap>
#include <QScreen>
#include <QSet>
#include <QTimer>
#include <QWidget>
#include <QWindow>

namespace
{

constexpr int ShownWithin = 5000; // ms
constexpr int PaintTime = 60;     // ms
constexpr int Likeness = 40;      // of each part of a colour, for what is antialiased

bool isAlike(QRgb a, QRgb b)
{
    return qAbs(qRed(a) - qRed(b)) <= Likeness && qAbs(qGreen(a) - qGreen(b)) <= Likeness &&
           qAbs(qBlue(a) - qBlue(b)) <= Likeness;
}

} // namespace

void ScreenPicture::run(int milliseconds)
{
    QEventLoop loop;
    QTimer::singleShot(milliseconds, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec();
}

QImage ScreenPicture::of(const QWidget* widget)
{
    const QDeadlineTimer deadline(ShownWithin);
    const auto isExposed = [widget] {
        const QWindow* window = widget->window()->windowHandle();
        return window && window->isExposed();
    };
    do
        run(PaintTime);
    while (!isExposed() && !deadline.hasExpired());
    QGuiApplication::sync();
    const QRect place(widget->mapToGlobal(QPoint()), widget->size());
    QScreen* screen = QGuiApplication::primaryScreen();
    if (!isExposed() || !screen->geometry().contains(place))
        return {};
    return screen->grabWindow(0, place.x(), place.y(), place.width(), place.height())
        .toImage()
        .convertToFormat(QImage::Format_RGB32);
}

bool ScreenPicture::isEmpty(const QImage& picture)
{
    constexpr int FewColours = 3;
    QSet<QRgb> colours;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width() && colours.size() < FewColours; ++x)
            colours.insert(picture.pixel(x, y));
    }
    return colours.size() < FewColours;
}

bool ScreenPicture::has(const QImage& picture, const QRect& place, const QColor& colour)
{
    const QRect seen = place.intersected(picture.rect());
    for (int y = seen.top(); y <= seen.bottom(); ++y) {
        for (int x = seen.left(); x <= seen.right(); ++x) {
            if (isAlike(picture.pixel(x, y), colour.rgb()))
                return true;
        }
    }
    return false;
}

int ScreenPicture::columnsWith(const QImage& picture, const QColor& colour)
{
    const QRect all = extent(picture, colour);
    int columns = 0;
    for (int x = all.left(); x <= all.right(); ++x)
        columns += has(picture, QRect(x, 0, 1, picture.height()), colour);
    return columns;
}

QRect ScreenPicture::extent(const QImage& picture, const QColor& colour)
{
    QRect all;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (isAlike(picture.pixel(x, y), colour.rgb()))
                all |= QRect(x, y, 1, 1);
        }
    }
    return all;
}
