#include "SpinBoxDelegate.h"

#include "Logging.h"
#include "MethodName.h"
#include "WheelFocus.h"

#include <QSpinBox>

SpinBoxDelegate::SpinBoxDelegate(int minimum, int maximum, QObject* parent)
    : QItemDelegate(parent), m_minimum(minimum), m_maximum(maximum)
{
    qCDebug(axrShell) << AXR_METHOD.constData();
}

QWidget* SpinBoxDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                       const QModelIndex& index) const
{
    qCDebug(axrShell) << AXR_METHOD.constData();
    auto* editor = new QSpinBox(parent);
    if (const QAbstractItemModel* model = index.model())
        editor->setAccessibleName(
            tr("%1, row %2")
                .arg(model->headerData(index.column(), Qt::Horizontal).toString())
                .arg(index.row() + 1));
    editor->setAlignment(Qt::AlignHCenter);
    editor->setRange(m_minimum, m_maximum);
    WheelFocus::guard(editor);
    return editor;
}

void SpinBoxDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const
{
    qCDebug(axrShell) << AXR_METHOD.constData();
    if (auto* box = qobject_cast<QSpinBox*>(editor))
        box->setValue(index.data(Qt::EditRole).toInt());
}

void SpinBoxDelegate::setModelData(QWidget* editor, QAbstractItemModel* model,
                                   const QModelIndex& index) const
{
    qCDebug(axrShell) << AXR_METHOD.constData();
    if (auto* box = qobject_cast<QSpinBox*>(editor)) {
        box->interpretText();
        model->setData(index, box->value(), Qt::EditRole);
    }
}

void SpinBoxDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                           const QModelIndex&) const
{
    qCDebug(axrShell) << AXR_METHOD.constData();
    if (editor)
        editor->setGeometry(option.rect);
}
