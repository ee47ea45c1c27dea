#ifndef ROOMFORTEXT_P_H
#define ROOMFORTEXT_P_H

#include "CurrentLook_p.h"

#include <QEvent>
#include <QRegularExpression>
#include <QWidget>

#include <algorithm>

/// Lets a widget outgrow the sizes of its form where they would cut its contents off: in a font
/// larger than the 12 pixels that forms are made for, when a style sheet gives it, and in the dark
/// blue look with its wide borders. Belongs to the widget.
class RoomForText : public QObject
{
public:
    /// For the panel and all in it that its form holds below or above a size. To be called when the
    /// form is set up.
    static void giveTo(QWidget* panel)
    {
        const QSize unbound(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
        for (QWidget* each :
             panel->findChildren<QWidget*>(QRegularExpression(QStringLiteral("^(?!qt_).")))) {
            if (each->minimumSize() != QSize(0, 0) || each->maximumSize() != unbound)
                new RoomForText(each);
        }
        if (panel->maximumSize() != unbound)
            new RoomForText(panel);
    }

    /// Whether sizes of a form hold for the widget as it is shown now.
    static bool formSizesHold(const QWidget* widget)
    {
        return widget->font().pixelSize() <= FormFont &&
               !currentLook().isDarkBlue(); // -1: in points
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        const auto follow = {QEvent::LayoutRequest, QEvent::FontChange, QEvent::StyleChange,
                             QEvent::Polish};
        if (std::find(follow.begin(), follow.end(), event->type()) != follow.end()) {
            const bool isFree = !formSizesHold(m_widget);
            const QSize least = isFree ? m_widget->minimumSizeHint() : QSize();
            const QSize wanted = isFree ? m_widget->sizeHint() : QSize();
            m_widget->setMaximumSize(m_maximum.expandedTo(least).expandedTo(wanted));
            m_widget->setMinimumSize(m_minimum.expandedTo(least));
        }
        return QObject::eventFilter(watched, event);
    }

private:
    explicit RoomForText(QWidget* widget)
        : QObject(widget)
        , m_widget(widget)
        , m_minimum(widget->minimumSize())
        , m_maximum(widget->maximumSize())
    {
        widget->installEventFilter(this);
        // Of a field that needs more or less room, its layout hears.
        if (widget->parentWidget() && !widget->layout())
            widget->parentWidget()->installEventFilter(this);
    }

    static constexpr int FormFont = 12; // px

    QWidget* m_widget;
    QSize m_minimum; // those of the form
    QSize m_maximum;
};

#endif
