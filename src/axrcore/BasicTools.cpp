#include "BasicTools.h"

#include "Numbers.h"

#include <QAbstractButton>
#include <QIcon>
#include <QImage>
#include <QPainter>
#include <QPixmap>

#include <cmath>

namespace
{

constexpr int ScalableSymbol = 128; // px, above any font's height

qint64 floorDiv(qint64 value, qint64 step)
{
    return value >= 0 ? value / step : -((-value + step - 1) / step);
}

qint64 ceilDiv(qint64 value, qint64 step) { return -floorDiv(-value, step); }

/// 1, 2, 5, 10, 20, 50 ...
qint64 nextStep(qint64 step)
{
    qint64 decade = 1;
    while (decade * 10 <= step)
        decade *= 10;
    return step / decade == 2 ? decade * 5 : step * 2;
}

QImage alphaFromDarkness(QImage image)
{
    for (int y = 0; y < image.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const int alpha = qAlpha(line[x]) * (255 - qGray(line[x])) / 255;
            line[x] = qRgba(0, 0, 0, alpha);
        }
    }
    return image;
}

QPixmap recoloured(QPixmap pixmap, const QColor& colour)
{
    BasicTools::setSymbolColor(&pixmap, colour, true, QColor());
    return pixmap;
}

} // namespace

QString BasicTools::intInsertDot(double value, int decimals)
{
    QString text = QString::number(value, 'f', qMax(0, decimals));
    if (!std::isfinite(value))
        return text;
    if (text.startsWith(QLatin1Char('-')) && text.toDouble() == 0.0)
        text.remove(0, 1);
    const int point = text.indexOf(QLatin1Char('.'));
    const int firstDigit = text.startsWith(QLatin1Char('-')) ? 1 : 0;
    for (int i = (point < 0 ? text.size() : point) - 3; i > firstDigit; i -= 3)
        text.insert(i, QLatin1Char(','));
    return text;
}

QString BasicTools::iToInt(int value, int width, const QString& text, char fill)
{
    return text + QStringLiteral("%1").arg(value, width, 10, QLatin1Char(fill));
}

void BasicTools::adjustLinearAxis(int& min, int& max)
{
    qint64 low = qMin(min, max);
    qint64 high = qMax(min, max);
    if (low == high) {
        --low;
        ++high;
    }
    qint64 step = 1;
    while (ceilDiv(high, step) - floorDiv(low, step) > 10)
        step = nextStep(step);
    min = toInt(floorDiv(low, step) * step);
    max = toInt(ceilDiv(high, step) * step);
}

void BasicTools::setSymbolColor(QPixmap* pixmap, QColor colour, bool keepShape, QColor background)
{
    if (!pixmap || pixmap->isNull() || !colour.isValid())
        return;
    const bool opaque = !pixmap->hasAlphaChannel();
    QImage image = pixmap->toImage().convertToFormat(QImage::Format_ARGB32);
    if (!keepShape && opaque)
        image = alphaFromDarkness(image);
    image = image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(1);
    {
        QPainter painter(&image);
        const QRect all(QPoint(), image.size());
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(all, QColor(colour.rgb())); // the symbol's own transparency counts
        if (background.isValid()) {
            painter.setCompositionMode(QPainter::CompositionMode_DestinationOver);
            painter.fillRect(all, background);
        }
    }
    const qreal ratio = pixmap->devicePixelRatio();
    *pixmap = QPixmap::fromImage(image);
    pixmap->setDevicePixelRatio(ratio);
}

void BasicTools::setButtonIconsColor(QAbstractButton* button, QColor text, QColor dark,
                                     QColor checked)
{
    if (!button || button->icon().isNull())
        return;
    const QIcon old = button->icon();
    QList<QSize> sizes = old.availableSizes(QIcon::Normal, QIcon::Off);
    for (const QSize& size : old.availableSizes(QIcon::Normal, QIcon::On)) {
        if (!sizes.contains(size))
            sizes << size;
    }
    if (sizes.isEmpty()) // drawn at any size, which a picture cannot be again
        sizes << button->iconSize().expandedTo(QSize(ScalableSymbol, ScalableSymbol));
    QIcon icon;
    for (const QSize& size : qAsConst(sizes)) {
        const QPixmap off = old.pixmap(size, QIcon::Normal, QIcon::Off);
        const QPixmap on = old.pixmap(size, QIcon::Normal, QIcon::On);
        for (QIcon::Mode mode : {QIcon::Normal, QIcon::Active, QIcon::Selected}) {
            icon.addPixmap(recoloured(off, text), mode, QIcon::Off);
            icon.addPixmap(recoloured(on, checked), mode, QIcon::On);
        }
        icon.addPixmap(recoloured(off, dark), QIcon::Disabled, QIcon::Off);
        icon.addPixmap(recoloured(on, dark), QIcon::Disabled, QIcon::On);
    }
    if (!icon.isNull())
        button->setIcon(icon);
}
