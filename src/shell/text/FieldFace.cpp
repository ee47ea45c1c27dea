#include "FieldFace_p.h"

#include <QLineEdit>
#include <QPainter>
#include <QSpinBox>
#include <QStyleOptionFrame>
#include <QTimerEvent>

#include <cmath>
#include <limits>
#include <utility>

namespace
{

constexpr int Moment = 1500;      // ms for which an overwritten entry is told of
constexpr int LeastStretch = 60;  // percent; digits narrower than that are no longer read
constexpr int SmallestBadge = 9;  // px
constexpr int Gap = 2;            // px between the sign and the digits
constexpr int LineEditMargin = 2; // px that a line edit leaves on either side of its text
constexpr double NoNumber = std::numeric_limits<double>::quiet_NaN();

} // namespace

FieldFace::FieldFace(QAbstractSpinBox* field, std::function<double()> number,
                     std::function<FieldSign()> entry)
    : QObject(field)
    , m_field(field)
    , m_edit(field->findChild<QLineEdit*>())
    , m_number(std::move(number))
    , m_entry(std::move(entry))
    , m_margins(m_edit->textMargins())
    , m_told(NoNumber)
    , m_shown(NoNumber)
{
    m_edit->installEventFilter(this);
}

FieldFace* FieldFace::in(const QAbstractSpinBox* field)
{
    for (QObject* child : field->children()) {
        if (auto* face = dynamic_cast<FieldFace*>(child))
            return face;
    }
    return nullptr;
}

FieldFace* FieldFace::of(QSpinBox* field)
{
    if (FieldFace* face = in(field))
        return face;
    return new FieldFace(field, [field] { return static_cast<double>(field->value()); });
}

void FieldFace::tell(double value)
{
    m_told = value;
    m_shown = m_number();
    if (sign() != m_fit.sign)
        refit();
}

bool FieldFace::isClipped() const { return clipped() != FieldSign::None; }

FieldSign FieldFace::clipped() const
{
    const double shown = m_number();
    const FieldSign sign = m_told > shown ? FieldSign::More : FieldSign::Less;
    if (shown == m_told || std::isnan(shown) || std::isnan(m_told))
        return FieldSign::None;
    const char* bound = sign == FieldSign::More ? "maximum" : "minimum";
    const double limit = m_field->property(bound).toDouble();
    const bool isBeyond = sign == FieldSign::More ? m_told > limit : m_told < limit;
    // A range that was widened since does not bring the told number back.
    const bool isWide = shown == m_shown && qAbs(m_told - shown) >= 1.0;
    return (isBeyond && shown == limit) || isWide ? sign : FieldSign::None;
}

void FieldFace::showOverwritten()
{
    m_overwritten.start(Moment, this);
    refit();
}

void FieldFace::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != m_overwritten.timerId())
        return;
    m_overwritten.stop();
    refit();
}

FieldSign FieldFace::sign() const
{
    FieldSign most = clipped();
    if (m_entry)
        most = qMax(most, m_entry());
    if (m_overwritten.isActive())
        most = qMax(most, FieldSign::Overwritten);
    return most;
}

int FieldFace::badgeSide() const
{
    return qBound(SmallestBadge, m_field->fontMetrics().ascent(),
                  qMax(SmallestBadge, m_edit->height() - 2));
}

/// In the room that the sign's margin keeps free of digits.
QRect FieldFace::signRect() const
{
    const int side = badgeSide();
    return QRect(m_margins.left() + 1, (m_edit->height() - side) / 2, side, side);
}

QFont FieldFace::naturalFont() const
{
    QFont font = m_edit->font();
    font.setStretch(m_field->font().stretch());
    return font;
}

int FieldFace::room(FieldSign sign) const
{
    QStyleOptionFrame option;
    option.initFrom(m_edit);
    const QRect contents =
        m_edit->style()->subElementRect(QStyle::SE_LineEditContents, &option, m_edit);
    const int badge = sign == FieldSign::None ? 0 : badgeSide() + Gap;
    return contents.width() - m_margins.left() - m_margins.right() - 2 * LineEditMargin - badge - 1;
}

FieldFace::Fit FieldFace::fit() const
{
    Fit fit;
    fit.sign = sign();
    QFont font = naturalFont();
    const int room = this->room(fit.sign);
    const auto width = [this, &font] {
        return QFontMetrics(font).horizontalAdvance(m_edit->displayText());
    };
    const int natural = width();
    if (natural <= room)
        return fit;
    const int own = font.stretch() ? font.stretch() : static_cast<int>(QFont::Unstretched);
    fit.stretch = qMax(LeastStretch, own * room / natural);
    font.setStretch(fit.stretch);
    while (width() > room && fit.stretch > LeastStretch) // letters come in whole pixels
        font.setStretch(--fit.stretch);
    if (width() > room)
        fit.sign = qMax(fit.sign, FieldSign::Cut);
    return fit;
}

void FieldFace::refit()
{
    m_refitDue = false;
    if (!m_edit)
        return;
    const Fit fit = this->fit();
    if (fit.stretch != m_fit.stretch) {
        QFont font; // which has a say in nothing but the stretch
        if (fit.stretch > 0)
            font.setStretch(fit.stretch);
        m_edit->setFont(font);
    }
    const int badge = fit.sign == FieldSign::None ? 0 : badgeSide() + Gap;
    const QMargins margins = m_margins + QMargins(badge, 0, 0, 0);
    if (margins != m_edit->textMargins())
        m_edit->setTextMargins(margins);
    if (fit.sign != m_fit.sign)
        m_edit->update();
    m_fit = fit;
}

bool FieldFace::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::Paint || watched != m_edit)
        return false;
    // Text, width or font may have changed without a word, so the last look is here; what it
    // changes repaints the field, which must not happen inside a paint event.
    const Fit fit = this->fit();
    if (fit != m_fit && !m_refitDue) {
        m_refitDue = true;
        QMetaObject::invokeMethod(
            this, [this] { refit(); }, Qt::QueuedConnection);
    }
    watched->event(event);
    QPainter painter(m_edit);
    paintFieldSign(painter, signRect(), fit.sign);
    return true;
}
