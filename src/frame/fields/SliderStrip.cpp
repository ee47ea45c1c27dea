#include "SliderStrip_p.h"

#include "Numbers.h"

#include <QPainter>
#include <QWidget>

QRect SliderStrip::frame() const
{
    return {QPoint(0, fieldBottom), QPoint(box.rect.width() - 1, hintHeight - 2)};
}

QRect SliderStrip::marker(double value) const
{
    constexpr int Width = 10;
    const QRect strip = frame();
    const int left = toInt(value * box.rect.width() / span) - Width / 2;
    const int reach = strip.height() - 2;
    return {left, strip.height() / 2 + strip.top() - reach, Width, 2 * reach};
}

QStyleOptionSpinBox SliderStrip::drawn() const
{
    QStyleOptionSpinBox above = box;
    above.rect.adjust(0, 0, 0, -Height);
    return above;
}

QPoint SliderStrip::placeForBase(QPoint place, const QWidget* field) const
{
    const QStyle* style = field->style();
    const QStyleOptionSpinBox above = drawn();
    const auto hit = style->hitTestComplexControl(QStyle::CC_SpinBox, &above, place, field);
    const bool isArrow = hit == QStyle::SC_SpinBoxUp || hit == QStyle::SC_SpinBoxDown;
    return style
        ->subControlRect(QStyle::CC_SpinBox, &box, isArrow ? hit : QStyle::SC_SpinBoxEditField,
                         field)
        .center();
}

void SliderStrip::paint(QPainter* painter, double value, const QWidget* field) const
{
    const QStyleOptionSpinBox above = drawn();
    field->style()->drawComplexControl(QStyle::CC_SpinBox, &above, painter, field);
    painter->setPen(Qt::blue);
    painter->setBrush(Qt::NoBrush);
    painter->drawRect(frame().adjusted(0, 0, -1, -1));
    if (takesDrags())
        painter->drawEllipse(marker(value));
}
