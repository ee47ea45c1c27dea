#ifndef COLORPICKERITEM_P_H
#define COLORPICKERITEM_P_H

#include <QColor>
#include <QFrame>

/// One colour of the popup's grid.
class ColorPickerItem : public QFrame
{
    Q_OBJECT
public:
    ColorPickerItem(const QColor& color, const QString& text, QWidget* parent = nullptr);

    QColor color() const { return m_color; }
    QString text() const { return m_text; }
    /// The text is also the tool tip.
    void setColor(const QColor& color, const QString& text);

    bool isSelected() const { return m_selected; }
    /// Marks the cell or not. Emits nothing.
    void setSelected(bool selected);

Q_SIGNALS:
    /// The user chose this cell with the mouse.
    void selected();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    /// The right button is left to the context menu.
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    QColor m_color;
    QString m_text;
    bool m_selected = false;
};

#endif
