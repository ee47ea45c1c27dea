#include "ColorTriangle.h"

#include "ColorTone_p.h"
#include "ColorTriangleFill_p.h"
#include "ColorTriangleGeometry_p.h"

#include <QConicalGradient>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

#include <cmath>
#include <cstring>

namespace
{

constexpr int DefaultHue = 76;
constexpr int DefaultSaturation = 184;
constexpr int DefaultValue = 206;
constexpr int LargestHue = 359;
constexpr int ToneStep = 5; // of saturation and value, by a key
constexpr int EdgeAlpha = 128;
constexpr double NoAngle = -1.0;

constexpr int FullCircle = 360 * 16; // in the unit of QPainter's arcs
constexpr int Top = 90 * 16;
constexpr int ArcLength = 20;
constexpr int Light = 1800; // where the ring's inner edge is brightest

/// The fill at the present corners.
ColorTriangleFill fillOf(const ColorTriangleGeometry& geometry, const QColor& hueColor)
{
    using G = ColorTriangleGeometry;
    return ColorTriangleFill({{{geometry.corner(G::PureHue), hueColor.rgb()},
                               {geometry.corner(G::Black), qRgb(0, 0, 0)},
                               {geometry.corner(G::White), qRgb(255, 255, 255)}}});
}

QRectF around(QPointF center, double diameter)
{
    return QRectF(center.x() - diameter / 2, center.y() - diameter / 2, diameter, diameter);
}

} // namespace

ColorTriangle::ColorTriangle(QWidget* parent)
    : QWidget(parent)
    , m_geometry(new ColorTriangleGeometry)
    , m_curColor(QColor::fromHsv(DefaultHue, DefaultSaturation, DefaultValue))
    , m_curHue(DefaultHue)
{
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(tr("Colour triangle"));
    m_geometry->hueAngle = ColorTriangleGeometry::angleOfHue(m_curHue);
}

ColorTriangle::~ColorTriangle() = default;

void ColorTriangle::setColor(const QColor& color)
{
    const int hue = color.hsvHue();
    // Dark colours of one RGB value differ in hue and saturation, which the keys step through.
    const bool isOtherHsv =
        color == color.toHsv() && // given as such
        ((hue != -1 && hue != m_curHue) || color.hsvSaturation() != m_curColor.hsvSaturation() ||
         color.value() != m_curColor.value());
    if (!color.isValid() || (isSameColor(color, m_curColor) && !isOtherHsv))
        return;
    m_curColor = color;
    if (hue != -1)
        m_curHue = hue;
    m_geometry->hueAngle = ColorTriangleGeometry::angleOfHue(m_curHue);
    placeMarker();
    if (isVisible())
        update();
    emit colorChanged(QColor(m_curColor)); // a copy: a host may destroy this, or set another
}

void ColorTriangle::placeMarker()
{
    m_selectorPos = m_geometry->position(m_curColor.hsvSaturation(), m_curColor.value());
}

QColor ColorTriangle::hueColor() const { return QColor::fromHsv(m_curHue, 255, 255); }

void ColorTriangle::resizeEvent(QResizeEvent*) { takeSize(); }

bool ColorTriangle::event(QEvent* event)
{
    if (event->type() == QEvent::ContentsRectChange)
        takeSize();
    return QWidget::event(event);
}

void ColorTriangle::takeSize()
{
    m_geometry->size = contentsRect().size();
    placeMarker();
    m_mustRedraw = true;
    update();
}

void ColorTriangle::changeEvent(QEvent* event)
{
    switch (event->type()) {
    case QEvent::PaletteChange:
    case QEvent::StyleChange:
    case QEvent::EnabledChange:
    case QEvent::ActivationChange:
        m_mustRedraw = true; // it stands on a colour of the palette's current group
        update();
        break;
    default:
        break;
    }
    QWidget::changeEvent(event);
}

void ColorTriangle::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const bool inside = m_geometry->isInsideRing(event->localPos() - contentsRect().topLeft());
    m_selMode = inside ? Selecting::Triangle : Selecting::Hue;
    followMouse(event);
}

void ColorTriangle::mouseMoveEvent(QMouseEvent* event)
{
    if (event->buttons() & Qt::LeftButton)
        followMouse(event);
}

void ColorTriangle::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        m_selMode = Selecting::Nothing;
}

void ColorTriangle::followMouse(const QMouseEvent* event)
{
    const QPointF point = event->localPos() - contentsRect().topLeft();
    if (m_selMode == Selecting::Hue)
        selectHue(point);
    else if (m_selMode == Selecting::Triangle)
        selectInTriangle(point);
}

void ColorTriangle::selectHue(QPointF point)
{
    m_geometry->hueAngle = m_geometry->angleAt(point);
    const int hue = m_geometry->hue();
    const bool changed = hue != m_curHue;
    if (changed) {
        m_curHue = hue;
        m_curColor = QColor::fromHsv(hue, m_curColor.hsvSaturation(), m_curColor.value());
    }
    placeMarker();
    update();
    if (changed)
        emit colorChanged(QColor(m_curColor));
}

void ColorTriangle::selectInTriangle(QPointF point)
{
    m_selectorPos = m_geometry->movedIntoTriangle(point);
    const QColor color(fillOf(*m_geometry, hueColor()).colorAt(m_selectorPos));
    update();
    if (isSameColor(color, m_curColor))
        return;
    m_curColor = color;
    emit colorChanged(QColor(m_curColor)); // a copy: a host may destroy this, or set another
}

void ColorTriangle::keyPressEvent(QKeyEvent* event)
{
    int hue = m_curHue;
    int saturation = m_curColor.hsvSaturation();
    int value = m_curColor.value();
    int& tone = event->modifiers() & Qt::ShiftModifier ? saturation : value;
    switch (event->key()) {
    case Qt::Key_Left:
        hue = hue > 0 ? hue - 1 : hue - 1 + LargestHue;
        break;
    case Qt::Key_Right:
        hue = hue < LargestHue ? hue + 1 : hue + 1 - LargestHue;
        break;
    case Qt::Key_Up:
        tone = qMin(tone + ToneStep, 255);
        break;
    case Qt::Key_Down:
        tone = qMax(tone - ToneStep, 0);
        break;
    default:
        QWidget::keyPressEvent(event);
        return;
    }
    setColor(QColor::fromHsv(hue, saturation, value));
}

void ColorTriangle::paintEvent(QPaintEvent*)
{
    if (m_geometry->isEmpty())
        return;
    if (m_mustRedraw)
        drawBackground();
    drawTriangle();
    QPainter painter(this);
    painter.setClipRect(contentsRect());
    painter.translate(contentsRect().topLeft());
    painter.drawImage(0, 0, m_picture);
    painter.setRenderHint(QPainter::Antialiasing);
    drawMarkers(painter);
    if (hasFocus()) {
        painter.setRenderHint(QPainter::Antialiasing, false);
        painter.setPen(contrastTo(palette().color(QPalette::Mid)));
        painter.drawRect(QRect(QPoint(), m_geometry->size - QSize(1, 1)));
    }
}

void ColorTriangle::drawBackground()
{
    m_mustRedraw = false;
    m_background = QImage(m_geometry->size, QImage::Format_RGB32);
    m_background.fill(palette().color(QPalette::Mid));
    m_picture = m_background.copy();
    m_pictureAngle = NoAngle;
    QPainter painter(&m_background);
    painter.setRenderHint(QPainter::Antialiasing);
    drawRing(painter);
    drawRingEdges(painter);
}

void ColorTriangle::drawRing(QPainter& painter) const
{
    constexpr int Stops = 10;
    QConicalGradient hues(m_geometry->center(), 90);
    for (int i = 0; i <= Stops; ++i) // both ends are red; there is no hue 360
        hues.setColorAt(i / double(Stops),
                        QColor::fromHsv((360 - 360 * i / Stops) % 360, 255, 255));
    QPainterPath ring;
    ring.addEllipse(m_geometry->circle(m_geometry->outerRadius()));
    ring.addEllipse(m_geometry->circle(m_geometry->innerRadius()));
    painter.fillPath(ring, hues);
}

/// Shades both edges in opposite directions, so that the ring looks lit from one side.
void ColorTriangle::drawRingEdges(QPainter& painter) const
{
    const QRect inner = m_geometry->circle(m_geometry->innerRadius());
    const QRect outer = m_geometry->circle(m_geometry->outerRadius());
    const double width = m_background.width() / 400.0;
    const auto drawArc = [&](const QRect& circle, int position, int shade) {
        const int hue = position * 360 / FullCircle % 360;
        const QColor color = QColor::fromHsv(hue, shade / 2 + 128, 255 - shade / 4);
        painter.setPen(QPen(color, width));
        painter.drawArc(circle, Top - position, ArcLength);
    };
    for (int i = 0; i <= FullCircle; i += ArcLength) {
        const double angle = ColorTriangleGeometry::FullTurn * (i - Light) / FullCircle;
        const int k = static_cast<int>((0.5 + 0.5 * std::cos(angle)) * 255);
        drawArc(inner, i, 255 - k);
        drawArc(outer, i, k);
    }
}

/// Puts the triangle into the ring. As long as it does not turn, the last picture holds.
void ColorTriangle::drawTriangle()
{
    using G = ColorTriangleGeometry;
    if (m_pictureAngle == m_geometry->hueAngle)
        return;
    m_pictureAngle = m_geometry->hueAngle;
    std::memcpy(m_picture.bits(), m_background.constBits(),
                static_cast<size_t>(m_background.sizeInBytes()));
    fillOf(*m_geometry, hueColor()).paint(m_picture);

    const QPointF corners[] = {m_geometry->corner(G::PureHue), m_geometry->corner(G::Black),
                               m_geometry->corner(G::White)};
    QPainter painter(&m_picture);
    painter.setClipRect(m_picture.rect()); // lines are drawn much faster with a clip
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(0, 0, 0, EdgeAlpha), 0));
    painter.drawConvexPolygon(corners, 3);
}

void ColorTriangle::drawMarkers(QPainter& painter) const
{
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(contrastTo(hueColor()), m_geometry->penWidth()));
    painter.drawEllipse(around(m_geometry->hueMarker(), m_geometry->markerSize()));
    painter.setPen(QPen(contrastTo(m_curColor), m_geometry->penWidth()));
    painter.drawEllipse(around(m_selectorPos, m_geometry->markerSize() + 0.5));
}
