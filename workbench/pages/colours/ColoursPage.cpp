#include "ColoursPage.h"

#include "ColorPicker.h"
#include "ColorTriangle.h"
#include "ColorViewer.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QVBoxLayout>

namespace
{
constexpr int TriangleSide = 280;
constexpr QSize PickerSize(90, 28);
} // namespace

ColoursPage::ColoursPage() : m_emitted(new QLabel(tr("none yet")))
{
    m_emitted->setObjectName(QStringLiteral("lblEmitted"));
    auto* row = new QHBoxLayout;
    row->addWidget(makePickers());
    row->addWidget(makeTriangle());
    row->addStretch();
    auto* column = new QVBoxLayout(this);
    column->addLayout(row);
    column->addStretch();
}

QWidget* ColoursPage::makePickers()
{
    auto* box = new QGroupBox(tr("Colour picker"));
    auto* form = new QFormLayout(box);
    form->addRow(tr("Standard colours:"), makePicker(QStringLiteral("btnStandardColor"), false));
    form->addRow(tr("With custom colours:"), makePicker(QStringLiteral("btnCustomColor"), true));
    form->addRow(tr("Last choice:"), m_emitted);
    return box;
}

ColorPicker* ColoursPage::makePicker(const QString& name, bool withDialog)
{
    auto* picker = new ColorPicker(this, -1, withDialog);
    picker->setObjectName(name);
    picker->setAccessibleName(withDialog ? tr("Colour with custom colours")
                                         : tr("Standard colour")); // its text is the choice
    picker->setMinimumSize(PickerSize);
    picker->setStandardColors();
    connect(picker, &ColorPicker::colorChanged, this, [this, picker](const QColor& color) {
        m_emitted->setText(QStringLiteral("%1 (%2)").arg(picker->text(), color.name()));
    });
    return picker;
}

QWidget* ColoursPage::makeTriangle()
{
    auto* box = new QGroupBox(tr("Colour triangle"));
    auto* triangle = new ColorTriangle;
    triangle->setMinimumSize(TriangleSide, TriangleSide);
    auto* viewer = new ColorViewer;
    viewer->setMinimumHeight(PickerSize.height());
    viewer->changeColor(triangle->color());
    connect(triangle, &ColorTriangle::colorChanged, viewer, &ColorViewer::changeColor);
    auto* layout = new QVBoxLayout(box);
    layout->addWidget(triangle, 1);
    layout->addWidget(viewer);
    return box;
}
