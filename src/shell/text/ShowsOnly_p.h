#ifndef SHOWSONLY_P_H
#define SHOWSONLY_P_H

#include <QEvent>
#include <QPalette>
#include <QTimer>
#include <QWidget>

/// Lets a field that is disabled because it only shows be read like any other text: its text has
/// the colour of enabled ones, on the ground of a disabled field. For sheets, which overrule this,
/// the field has the property "showsOnly". Belongs to the field, whose parent it watches.
class ShowsOnly : public QObject
{
public:
    /// \param field has its parent
    explicit ShowsOnly(QWidget* field) : QObject(field), m_field(field)
    {
        field->setProperty("showsOnly", true);
        field->installEventFilter(this);
        field->parentWidget()->installEventFilter(this);
        m_later.setSingleShot(true);
        connect(&m_later, &QTimer::timeout, this, &ShowsOnly::follow);
        follow();
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        // In no order that could be relied on, while a look is switched: a sheet that goes gives
        // back palettes of an older look.
        if (event->type() == QEvent::PaletteChange ||
            event->type() == QEvent::ApplicationPaletteChange)
            m_later.start();
        return QObject::eventFilter(watched, event);
    }

private:
    void follow()
    {
        const QPalette around = m_field->parentWidget()->palette();
        QPalette palette; // all but these comes from around
        bool isNew = false;
        for (const QPalette::ColorRole role : {QPalette::Text, QPalette::WindowText}) {
            const QColor colour = around.color(QPalette::Active, role);
            isNew |= m_field->palette().color(QPalette::Disabled, role) != colour;
            for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
                palette.setColor(group, role, colour);
        }
        if (isNew)
            m_field->setPalette(palette);
    }

    QWidget* m_field;
    QTimer m_later;
};

#endif
