#ifndef CONDENSEDTEXT_P_H
#define CONDENSEDTEXT_P_H

#include "RoomForText_p.h"

#include <QFontMetrics>
#include <QTimer>
#include <QVector>

#include <functional>

/// Narrows all letters in a panel, for they are to look alike, while one of its captions would not
/// fit into the greatest width that the form gives it. Belongs to the panel.
class CondensedText : public QObject
{
public:
    /// To be made when the form is set up.
    /// \param captions parts of it, with a text() and a greatest width
    template <class Caption>
    CondensedText(QWidget* panel, std::initializer_list<Caption*> captions)
        : QObject(panel), m_panel(panel), m_contents(panel->findChildren<QWidget*>())
    {
        for (Caption* caption : captions)
            m_needs << [caption, room = caption->maximumWidth()](const QFontMetrics& wide) {
                const int frame = caption->sizeHint().width() -
                                  caption->fontMetrics().horizontalAdvance(caption->text());
                return frame + wide.horizontalAdvance(caption->text()) > room;
            };
        m_later.setSingleShot(true);
        connect(&m_later, &QTimer::timeout, this, &CondensedText::condense);
        panel->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        const auto follow = {QEvent::LayoutRequest, QEvent::FontChange, QEvent::StyleChange,
                             QEvent::Polish};
        if (std::find(follow.begin(), follow.end(), event->type()) != follow.end()) {
            if (m_panel->window() == currentLook().windowBetweenLooks)
                m_later.start();
            else
                condense();
        }
        return QObject::eventFilter(watched, event);
    }

private:
    void condense()
    {
        QFont wide = m_panel->font();
        wide.setStretch(QFont::Unstretched);
        const QFontMetrics metrics(wide);
        const bool isTight = RoomForText::formSizesHold(m_panel) &&
                             std::any_of(m_needs.begin(), m_needs.end(),
                                         [&](const auto& needsMore) { return needsMore(metrics); });
        if (isTight == m_isCondensed)
            return;
        m_isCondensed = isTight;
        QFont font; // all but this comes from the panel
        if (isTight)
            font.setStretch(QFont::Condensed);
        // Each of them: below a window's sheet the stretch is not handed down.
        for (QWidget* each : m_contents)
            each->setFont(font);
    }

    QTimer m_later;
    QWidget* m_panel;
    QWidgetList m_contents;
    bool m_isCondensed = false;
    QVector<std::function<bool(const QFontMetrics&)>> m_needs;
};

#endif
