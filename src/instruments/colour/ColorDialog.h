#ifndef COLORDIALOG_H
#define COLORDIALOG_H

#include "AXRGuiExport.h"

#include <QColor>
#include <QDialog>

class ColorTriangle;

/// Asks for any colour by a ColorTriangle.
class AXRGUI_EXPORT ColorDialog : public QDialog
{
    Q_OBJECT
public:
    /// \param color shown first; invalid: the triangle's default
    explicit ColorDialog(const QColor& color, QWidget* parent = nullptr);

    /// What the triangle shows, chosen or not.
    QColor color() const;

public Q_SLOTS:
    /// As ColorTriangle::setColor().
    void setColor(const QColor& color);

private:
    ColorTriangle* m_triangle;
};

#endif
