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

QString reddened(const char* attributes, const QString& complaint)
{
    return QStringLiteral(" <span style=\"%1\">%2</span>")
        .arg(QLatin1String(attributes), complaint);
}

constexpr double StepFactor = TrapezialRamp::ChangeSteps;

/// A change between two velocities, whichever way it is passed.
struct Phase {
    double steps = 0;
    double time = 0; // s

    Phase() = default;
    Phase(double upper, double lower, double acceleration)
        : steps((upper * upper - lower * lower) / acceleration * StepFactor)
        , time(std::abs(upper - lower) * TrapezialRamp::ChangeTime / acceleration)
    {
    }
};

} // namespace

/// A ramp with its parameters as they are taken.
struct TrapezialRamp::Profile {
    double vmax;
    double v1; // the peak where V1 is not reached
    double vstart;
    double vstop;
    double peak;
    double cruise = 0; // s
    Phase first;
    Phase second;
    Phase third;
    Phase fourth;
    enum { Vmax, BelowVmax, BelowV1 } reached = Vmax;
    // Of the parameters as they came in:
    bool isWithoutA1;
    bool isWithoutAmax;
    bool isWithoutDmax;
    bool isWithoutD1;
    bool isV1AboveVmax;

    Profile(double vmaxGiven, double v1Given, double vstartGiven, double vstopGiven, double a1,
            double amax, double dmax, double d1, bool noDistance, double distance)
        : vmax(qMax(vmaxGiven, 1.0))
        , v1(qMin(v1Given, vmax))
        , vstart(static_cast<float>(qBound(-LargestSingle, qMin(vstartGiven, vmax), LargestSingle)))
        , vstop(qMin(vstopGiven, vmax))
        , peak(vmax)
        , isWithoutA1(a1 <= 0)
        , isWithoutAmax(amax <= 0)
        , isWithoutDmax(dmax <= 0)
        , isWithoutD1(d1 <= 0)
        , isV1AboveVmax(v1Given > vmaxGiven)
    {
        for (double* acceleration : {&a1, &amax, &dmax, &d1})
            *acceleration = *acceleration > 0 ? *acceleration : 1.0;
        first = Phase(v1, vstart, a1);
        second = Phase(vmax, v1, amax);
        third = Phase(vmax, v1, dmax);
        fourth = Phase(v1, vstop, d1);
        if (noDistance)
            return; // the shape alone
        const double outer = first.steps + fourth.steps;
        if (distance > changingSteps()) {
            cruise = std::abs(std::abs(distance) - changingSteps()) / vmax;
        } else if (distance >= outer) {
            reached = BelowVmax;
            const double shared = amax * dmax / (amax + dmax) / StepFactor;
            peak = rootOf(shared * (std::abs(distance) - std::abs(outer)) + v1 * v1, v1);
            second = Phase(peak, v1, amax);
            third = Phase(peak, v1, dmax);
        } else {
            reached = BelowV1;
            peak = rootOf(std::abs(distance) / (StepFactor / a1 + StepFactor / d1), v1);
            v1 = peak;
            first = Phase(peak, vstart, a1);
            fourth = Phase(peak, vstop, d1);
            second = third = Phase();
        }
    }

    double changingSteps() const { return second.steps + first.steps + third.steps + fourth.steps; }
    /// In s. A ramp without a change takes a second.
    double changingTime() const
    {
        const double time = orZero(first.time + second.time + third.time + fourth.time);
        return time == 0 ? 1.0 : time;
    }
    double steps() const { return orZero(peak * cruise + changingSteps()); }

    QString text() const;
    QPolygonF polygon(QSizeF size) const;
};

QString TrapezialRamp::Profile::text() const
{
    QString text;
    if (reached == BelowVmax)
        text = QStringLiteral("Vmax not reached <") + shown(peak) + QStringLiteral("> ");
    if (reached == BelowV1)
        text = QStringLiteral("V1 not reached <") + shown(peak);
    text += QStringLiteral("<htm><b>Time from VSTART to VSTOP: <></b>  ") +
            shown(changingTime() * ToMilliseconds);
    if (cruise > 0)
        text += QStringLiteral(" + ") + shown(cruise * ToMilliseconds);
    text += QStringLiteral(" ms (") + shown(steps()) + QStringLiteral(" steps)");
    const struct {
        bool isRaised;
        const char* message;
    } raised[] = {{isWithoutA1, " A1 = 0!"},
                  {isWithoutAmax, " AMAX = 0!"},
                  {isWithoutDmax, " DMAX = 0!"},
                  {isWithoutD1, " D1 = 0!"},
                  {isV1AboveVmax, " V1 exceed VMAX"}};
    QString complaints;
    for (const auto& each : raised)
        complaints += each.isRaised ? QLatin1String(each.message) : QLatin1String();
    if (!complaints.isEmpty())
        text += reddened("color:red;", complaints);
    if (vstart > v1)
        text += reddened("color:white; background:red;", QStringLiteral(" VSTART exceed V1 !"));
    if (vstop > v1)
        text += reddened("color:red;", QStringLiteral(" VSTOP exceed V1 !"));
    return text + QStringLiteral("</html>");
}

QPolygonF TrapezialRamp::Profile::polygon(QSizeF size) const
{
    const double height = size.height();
    const double width = size.width() - 2 * Margin;
    const auto heightOf = [&](double velocity) { return orZero(height * (1 - velocity / vmax)); };
    QPolygonF polygon;
    polygon << QPointF(0, height) << QPointF(Margin, height) << QPointF(Margin, heightOf(vstart));
    double x = Margin;
    const auto goOn = [&](double time, double y) {
        x += orZero(time * width / (changingTime() + cruise));
        polygon << QPointF(x, y);
    };
    const double top = orZero(height - height * peak / vmax);
    const double middle = reached == BelowV1 ? top : heightOf(v1);
    goOn(first.time, middle);
    goOn(second.time, top);
    goOn(cruise, top);
    goOn(third.time, middle);
    goOn(fourth.time, heightOf(vstop));
    return polygon << QPointF(x, height) << QPointF(size.width(), height);
}

TrapezialRamp::TrapezialRamp(QSizeF size) : m_size(size) {}

void TrapezialRamp::ramp(double vmax, double v1, double vstart, double vstop, double a1,
                         double amax, double dmax, double d1, bool noDistance, double distance)
{
    for (double* argument : {&vmax, &v1, &vstart, &vstop, &a1, &amax, &dmax, &d1, &distance})
        *argument = orZero(*argument);
    const Profile profile(vmax, v1, vstart, vstop, a1, amax, dmax, d1, noDistance, distance);
    m_polygon = profile.polygon(m_size);
    m_steps = profile.steps();
    m_text = profile.text();
    m_peak = profile.peak;
    m_duration = orZero(profile.changingTime() + profile.cruise);
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
