#include "TrapezialRamp.h"

#include "BasicTools.h"
#include "SpinBox.h"

#include <QGraphicsProxyWidget>
#include <QLayout>

#include <cmath>
#include <initializer_list>
#include <limits>

namespace
{

constexpr double StepFactor = 0.00390625;            // steps of v^2 / a
constexpr double TimeFactor = 131072.0 / 16000000.0; // s of v / a
constexpr double ToMilliseconds = 1000.0;
constexpr double Margin = 20;
constexpr double PointRadius = 2;

double orZero(double number) { return std::isfinite(number) ? number : 0.0; }

constexpr double LargestSingle = std::numeric_limits<float>::max();

/// The root of a square that is held in single precision. Where there is none, `otherwise`.
double rootOf(double square, double otherwise)
{
    if (square >= 0 && square <= LargestSingle)
        return std::sqrt(static_cast<double>(static_cast<float>(square)));
    return otherwise;
}

QString shown(double number) { return BasicTools::intInsertDot(orZero(number), 1); }

/// A change between two velocities, whichever way it is passed.
struct Phase {
    double steps = 0;
    double time = 0; // s

    Phase() = default;
    Phase(double upper, double lower, double acceleration)
        : steps((upper * upper - lower * lower) / acceleration * StepFactor)
        , time(std::abs(upper - lower) * TimeFactor / acceleration)
    {
    }
};

} // namespace

TrapezialRamp::TrapezialRamp(QSizeF size) : m_size(size) {}

void TrapezialRamp::ramp(double vmax, double v1, double vstart, double vstop, double a1,
                         double amax, double dmax, double d1, bool noDistance, double distance)
{
    for (double* argument : {&vmax, &v1, &vstart, &vstop, &a1, &amax, &dmax, &d1, &distance})
        *argument = orZero(*argument);
    const bool isV1TooHigh = v1 > vmax;
    vmax = qMax(vmax, 1.0);
    v1 = qMin(v1, vmax);
    vstart = static_cast<float>(qBound(-LargestSingle, qMin(vstart, vmax), LargestSingle));
    vstop = qMin(vstop, vmax);

    QString errors;
    const struct {
        double* acceleration;
        const char* message;
    } accelerations[] = {
        {&a1, " A1 = 0!"}, {&amax, " AMAX = 0!"}, {&dmax, " DMAX = 0!"}, {&d1, " D1 = 0!"}};
    for (const auto& each : accelerations) {
        if (*each.acceleration > 0)
            continue;
        errors += QLatin1String(each.message);
        *each.acceleration = 1.0;
    }
    if (isV1TooHigh)
        errors += QLatin1String(" V1 exceed VMAX");

    Phase first = Phase(v1, vstart, a1);
    Phase second = Phase(vmax, v1, amax);
    Phase third = Phase(vmax, v1, dmax);
    Phase fourth = Phase(v1, vstop, d1);
    double length = second.steps + first.steps + third.steps + fourth.steps;
    double peak = vmax;
    double cruise = 0; // s
    bool isV1Reached = true;
    QString notReached;
    if (noDistance) {
        // the shape alone
    } else if (distance > length) {
        cruise = std::abs(std::abs(distance) - length) / vmax;
    } else if (const double outer = first.steps + fourth.steps; distance >= outer) {
        const double shared = amax * dmax / (amax + dmax) / StepFactor;
        peak = rootOf(shared * (std::abs(distance) - std::abs(outer)) + v1 * v1, v1);
        second = Phase(peak, v1, amax);
        third = Phase(peak, v1, dmax);
        length = first.steps + second.steps + third.steps + fourth.steps;
        notReached = QStringLiteral("Vmax not reached <") + shown(peak) + QStringLiteral("> ");
    } else {
        peak = rootOf(std::abs(distance) / (StepFactor / a1 + StepFactor / d1), v1);
        isV1Reached = false;
        v1 = peak;
        first = Phase(peak, vstart, a1);
        fourth = Phase(peak, vstop, d1);
        second = third = Phase();
        length = first.steps + fourth.steps;
        notReached = QStringLiteral("V1 not reached <") + shown(peak);
    }

    m_steps = orZero(peak * cruise + length);
    double changing = orZero(first.time + second.time + third.time + fourth.time);
    if (changing == 0)
        changing = 1.0;
    m_text = notReached + QStringLiteral("<htm><b>Time from VSTART to VSTOP: <></b>  ") +
             shown(changing * ToMilliseconds);
    if (cruise > 0)
        m_text += QStringLiteral(" + ") + shown(cruise * ToMilliseconds);
    m_text += QStringLiteral(" ms (") + shown(m_steps) + QStringLiteral(" steps)");
    if (!errors.isEmpty())
        m_text +=
            QStringLiteral(" <span style=\"color:red;\">") + errors + QStringLiteral("</span>");

    const double height = m_size.height();
    const auto heightOf = [&](double velocity) { return orZero(height * (1 - velocity / vmax)); };
    const double width = m_size.width() - 2 * Margin;
    m_polygon.clear();
    m_polygon << QPointF(0, height) << QPointF(Margin, height) << QPointF(Margin, heightOf(vstart));
    double x = Margin;
    const auto goOn = [&](double time, double y) {
        x += orZero(time * width / (changing + cruise));
        m_polygon << QPointF(x, y);
    };
    const double top = orZero(height - height * peak / vmax);
    const double middle = isV1Reached ? heightOf(v1) : top;
    goOn(first.time, middle);
    goOn(second.time, top);
    goOn(cruise, top);
    goOn(third.time, middle);
    goOn(fourth.time, heightOf(vstop));
    m_polygon << QPointF(x, height) << QPointF(m_size.width(), height);

    if (vstart > v1)
        m_text += QStringLiteral(
            " <span style=\"color:white; background:red;\"> VSTART exceed V1 !</span>");
    if (vstop > v1)
        m_text += QStringLiteral(" <span style=\"color:red;\"> VSTOP exceed V1 !</span>");
    m_text += QStringLiteral("</html>");
}

void TrapezialRamp::ramp(const QList<QWidget*>& widgets, bool noDistance, double distance)
{
    double vmax = 0;
    double v1 = 0;
    double vstart = 0;
    double vstop = 0;
    double dmax = 0;
    double amax = 0;
    double a1 = 0;
    double d1 = 0;
    const struct {
        const char* part; // of the object name
        double* parameter;
    } names[] = {{"MaxPosVel", &vmax},
                 {"V1", &v1},
                 {"VStart", &vstart},
                 {"VStop", &vstop},
                 {"Deceleration", &dmax},
                 {"Acceleration", &amax},
                 {"A1", &a1},
                 {"D1", &d1}};
    for (QWidget* widget : widgets) {
        const auto* box = widget ? static_cast<SpinBox*>(widget->qt_metacast("SpinBox")) : nullptr;
        if (!box)
            continue;
        for (const auto& name : names) {
            if (box->objectName().contains(QLatin1String(name.part))) {
                *name.parameter = box->value();
                break;
            }
        }
    }
    ramp(vmax, v1, vstart, vstop, a1, amax, dmax, d1, noDistance, distance);
}

void TrapezialRamp::ramp(QList<QGraphicsItem*> items, bool noDistance, double distance)
{
    QList<QWidget*> widgets;
    for (QGraphicsItem* item : qAsConst(items)) {
        if (const auto* proxy = item && item->isWidget()
                                    ? qobject_cast<QGraphicsProxyWidget*>(item->toGraphicsObject())
                                    : nullptr)
            widgets << proxy->widget();
    }
    ramp(widgets, noDistance, distance);
}

void TrapezialRamp::ramp(QLayout* layout, bool noDistance, double distance)
{
    QList<QWidget*> widgets;
    for (int i = 0; layout && i < layout->count(); ++i)
        widgets << layout->itemAt(i)->widget();
    ramp(widgets, noDistance, distance);
}

QPainterPath TrapezialRamp::path() const
{
    QPainterPath path(QPointF(0, m_size.height()));
    for (const QPointF& point : m_polygon) {
        path.lineTo(point);
        if (point.y() < m_size.height()) {
            path.addEllipse(point, PointRadius, PointRadius);
            path.moveTo(point);
        }
    }
    return path;
}
