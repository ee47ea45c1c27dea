#ifndef COLORVIEWER_H
#define COLORVIEWER_H

#include "AXRGuiExport.h"

#include <QBrush>
#include <QColor>
#include <QPen>
#include <QWidget>

/// Shows a colour with its name, as "#RRGGBB", in white or black, whatever reads better. Black at
/// the start.
class AXRGUI_EXPORT ColorViewer : public QWidget
{
    Q_OBJECT
public:
    explicit ColorViewer(QWidget* parent = nullptr);

public Q_SLOTS:
    void changeColor(const QColor& color);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QPen m_pen;
    QBrush m_brush;
    QColor m_color;
    QColor m_textColor;
};

#endif
