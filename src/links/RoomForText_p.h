#ifndef ROOMFORTEXT_P_H
#define ROOMFORTEXT_P_H

#include <QEvent>
#include <QWidget>

#include <algorithm>

/// Lets a panel, or a part of one, outgrow the sizes of its form while a style sheet gives it a
/// font larger than the 12 pixels that the form is made for, so that nothing in it is cut off.
/// Belongs to the widget.
class RoomForText : public QObject
{
public:
    /// To be made when the form is set up.
    explicit RoomForText(QWidget* widget)
        : QObject(widget)
        , m_widget(widget)
        , m_minimum(widget->minimumSize())
        , m_maximum(widget->maximumSize())
    {
        widget->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        const auto follow = {QEvent::LayoutRequest, QEvent::FontChange, QEvent::StyleChange,
                             QEvent::Polish};
        if (watched == m_widget &&
            std::find(follow.begin(), follow.end(), event->type()) != follow.end()) {
            const bool isLarger = m_widget->font().pixelSize() > FormFont; // -1 for one in points
            const QSize needed = isLarger ? m_widget->minimumSizeHint() : QSize();
            m_widget->setMaximumSize(m_maximum.expandedTo(needed));
            m_widget->setMinimumSize(m_minimum.expandedTo(needed));
        }
        return QObject::eventFilter(watched, event);
    }

private:
    static constexpr int FormFont = 12; // px

    QWidget* m_widget;
    QSize m_minimum; // those of the form
    QSize m_maximum;
};

#endif
