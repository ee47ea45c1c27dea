#include "ColorDialog.h"

#include "ColorTriangle.h"
#include "ColorViewer.h"

#include <QDialogButtonBox>
#include <QGridLayout>

namespace
{
constexpr int Side = 400;
}

ColorDialog::ColorDialog(const QColor& color, QWidget* parent)
    : QDialog(parent, Qt::Window), m_triangle(new ColorTriangle)
{
    setWindowTitle(tr("circle: hue | triangle: saturation"));
    auto* viewer = new ColorViewer;
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    auto* layout = new QGridLayout(this);
    layout->addWidget(m_triangle, 0, 0, 1, 2);
    layout->addWidget(viewer, 1, 0);
    layout->addWidget(buttons, 1, 1);
    layout->setRowStretch(0, 1);
    layout->setColumnStretch(0, 1);
    resize(Side, Side);
    setSizeGripEnabled(true);

    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_triangle, &ColorTriangle::colorChanged, viewer, &ColorViewer::changeColor);
    viewer->changeColor(m_triangle->color());
    setColor(color);
}

QColor ColorDialog::color() const { return m_triangle->color(); }

void ColorDialog::setColor(const QColor& color) { m_triangle->setColor(color); }
