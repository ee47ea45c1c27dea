#ifndef SPINBOXDELEGATE_H
#define SPINBOXDELEGATE_H

#include "AXRGuiExport.h"

#include <QItemDelegate>

/// Edits an integer cell of an item view with a QSpinBox in a given range. An editor of another
/// class is left alone.
class AXRGUI_EXPORT SpinBoxDelegate : public QItemDelegate
{
    Q_OBJECT
public:
    SpinBoxDelegate(int minimum, int maximum, QObject* parent = nullptr);

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    /// Text that was typed and not yet taken counts.
    void setModelData(QWidget* editor, QAbstractItemModel* model,
                      const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;

private:
    int m_minimum;
    int m_maximum;
};

#endif
