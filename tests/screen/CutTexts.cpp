#include "CutTexts.h"

#include <QtWidgets>

namespace
{

/// Reads the option that a widget paints itself with, which is protected.
template <class Widget, class Option>
Option optionOf(const Widget* widget)
{
    struct Open : Widget {
        using Widget::initStyleOption;
    };
    Option option;
    (widget->*(&Open::initStyleOption))(&option);
    return option;
}

template <class Option, class Widget>
QRect contentsOf(const Widget* widget, QStyle::SubElement contents)
{
    const auto option = optionOf<Widget, Option>(widget);
    return widget->style()->subElementRect(contents, &option, widget);
}

class Search
{
public:
    QStringList found;

    void look(const QWidget* widget)
    {
        lookAs<QLabel>(widget) || lookAs<QGroupBox>(widget) || lookAs<QAbstractButton>(widget) ||
            lookAs<QAbstractSpinBox>(widget) || lookAs<QLineEdit>(widget) ||
            lookAs<QComboBox>(widget) || lookAs<QTabBar>(widget) ||
            lookAs<QAbstractItemView>(widget);
        if (const auto* area = qobject_cast<const QAbstractScrollArea*>(widget))
            lookForNesting(area);
        lookWhetherInside(widget);
    }

private:
    template <class Widget>
    bool lookAs(const QWidget* widget)
    {
        const auto* known = qobject_cast<const Widget*>(widget);
        if (known)
            look(known);
        return known;
    }

    void complain(const QWidget* widget, const QString& text, int needed, int room)
    {
        QStringList path;
        for (const QWidget* each = widget; each && !each->isWindow(); each = each->parentWidget()) {
            const QString name = each->objectName();
            if (name.isEmpty() ? each == widget : !name.startsWith("qt_"))
                path.prepend(name.isEmpty() ? QString(each->metaObject()->className()) : name);
        }
        found << QString("%1: \"%2\" needs %3, has %4")
                     .arg(path.join('/'), QString(text).replace('\n', ' '))
                     .arg(needed)
                     .arg(room);
    }

    void compare(const QWidget* widget, const QString& text, QSize needed, QSize room)
    {
        if (needed.width() > room.width())
            complain(widget, text, needed.width(), room.width());
        if (needed.height() > room.height())
            complain(widget, text + " (height)", needed.height(), room.height());
    }

    static QSize sizeOf(const QWidget* widget, const QString& text)
    {
        return widget->fontMetrics().size(Qt::TextShowMnemonic, text);
    }

    void look(const QLabel* label)
    {
        if (label->text().isEmpty())
            return;
        QSize needed = label->sizeHint();
        if (label->wordWrap())
            needed = {label->minimumSizeHint().width(), label->heightForWidth(label->width())};
        compare(label, label->text(), needed, label->size());
    }

    void look(const QGroupBox* box)
    {
        if (box->title().isEmpty())
            return;
        const auto option = optionOf<QGroupBox, QStyleOptionGroupBox>(box);
        const QRect title = box->style()->subControlRect(QStyle::CC_GroupBox, &option,
                                                         QStyle::SC_GroupBoxLabel, box);
        const QSize needed = sizeOf(box, box->title()) - QSize(2, 0); // the style's rounding
        compare(box, box->title(), needed, title.size());
        if (!box->rect().adjusted(-1, -1, 1, 1).contains(title))
            complain(box, box->title() + " (title in box)", title.right(), box->width());
        for (const QWidget* child :
             box->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly))
            if (child->isVisible() && child->geometry().top() < title.center().y())
                complain(box, box->title() + " (title under " + child->objectName() + ")",
                         title.bottom(), child->geometry().top());
    }

    void look(const QAbstractButton* button)
    {
        if (button->text().isEmpty())
            return;
        QSize needed = sizeOf(button, button->text());
        QRect room = button->rect();
        if (const auto* push = qobject_cast<const QPushButton*>(button)) {
            room = contentsOf<QStyleOptionButton>(push, QStyle::SE_PushButtonContents);
            if (!push->icon().isNull())
                needed.rwidth() += push->iconSize().width() + 4;
        } else if (const auto* check = qobject_cast<const QCheckBox*>(button)) {
            room = contentsOf<QStyleOptionButton>(check, QStyle::SE_CheckBoxContents);
        } else if (const auto* radio = qobject_cast<const QRadioButton*>(button)) {
            room = contentsOf<QStyleOptionButton>(radio, QStyle::SE_RadioButtonContents);
        } else if (qobject_cast<const QToolButton*>(button)) {
            needed = button->fontMetrics().tightBoundingRect(button->text()).size();
        } else {
            return;
        }
        compare(button, button->text(), needed, room.intersected(button->rect()).size());
    }

    void lookInside(const QLineEdit* line, const QWidget* owner, const QStringList& texts)
    {
        const QSize room = contentsOf<QStyleOptionFrame>(line, QStyle::SE_LineEditContents).size();
        const QMargins text = line->textMargins();
        for (const QString& each : texts)
            compare(owner, each,
                    {line->fontMetrics().horizontalAdvance(each) + text.left() + text.right(),
                     line->fontMetrics().height()},
                    room);
    }

    void look(const QAbstractSpinBox* number)
    {
        const auto* line = number->findChild<QLineEdit*>();
        QStringList texts{number->text()};
        if (const auto* whole = qobject_cast<const QSpinBox*>(number)) {
            for (const int end : {whole->minimum(), whole->maximum()})
                texts << whole->prefix() + QString::number(end) + whole->suffix();
        }
        lookInside(line, number, texts);
    }

    void look(const QLineEdit* line)
    {
        if (!qobject_cast<const QAbstractSpinBox*>(line->parentWidget()) &&
            !qobject_cast<const QComboBox*>(line->parentWidget()))
            lookInside(line, line, {line->displayText(), line->placeholderText()});
    }

    void look(const QComboBox* choice)
    {
        const auto option = optionOf<QComboBox, QStyleOptionComboBox>(choice);
        const QSize room =
            choice->style()
                ->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, choice)
                .size();
        for (int i = 0; i < choice->count(); ++i)
            compare(choice, choice->itemText(i),
                    choice->fontMetrics().boundingRect(choice->itemText(i)).size(), room);
    }

    void look(const QTabBar* tabs)
    {
        for (int i = 0; i < tabs->count(); ++i)
            if (tabs->fontMetrics().horizontalAdvance(tabs->tabText(i)) > tabs->tabRect(i).width())
                complain(tabs, tabs->tabText(i), 0, tabs->tabRect(i).width());
    }

    void look(const QAbstractItemView* view)
    {
        const QAbstractItemModel* model = view->model();
        if (!model || qobject_cast<const QHeaderView*>(view))
            return;
        QStyleOptionViewItem option;
        option.initFrom(view);
        option.font = view->font();
        option.fontMetrics = view->fontMetrics();
        option.widget = view;
        const auto* list = qobject_cast<const QListView*>(view);
        const auto* tree = qobject_cast<const QTreeView*>(view);
        for (QModelIndex index = model->index(0, 0); index.isValid();
             index = tree ? tree->indexBelow(index) : index.sibling(index.row() + 1, 0)) {
            for (int column = 0; column < model->columnCount(); ++column) {
                const QModelIndex cell = index.sibling(index.row(), column);
                const QRect room = view->visualRect(cell);
                option.rect = room;
                const QSize needed = view->itemDelegate(cell)->sizeHint(option, cell);
                if (room.isEmpty() || cell.data().toString().isEmpty())
                    continue;
                compare(view, cell.data().toString(), needed,
                        list ? QSize(qMin(room.width(), view->viewport()->width()), room.height())
                             : room.size());
            }
        }
        for (const auto* header : view->findChildren<QHeaderView*>()) {
            if (!header->isVisible() || header->orientation() != Qt::Horizontal)
                continue;
            for (int i = 0; i < header->count(); ++i) {
                const QString text = header->model()->headerData(i, Qt::Horizontal).toString();
                if (!header->isSectionHidden(i) &&
                    header->sectionSizeHint(i) > header->sectionSize(i))
                    complain(view, "header " + text, header->sectionSizeHint(i),
                             header->sectionSize(i));
            }
        }
    }

    void lookForNesting(const QAbstractScrollArea* area)
    {
        for (const QWidget* outer = area->parentWidget(); outer; outer = outer->parentWidget()) {
            const auto* around = qobject_cast<const QAbstractScrollArea*>(outer);
            if (around && ((area->verticalScrollBar()->isVisible() &&
                            around->verticalScrollBar()->isVisible()) ||
                           (area->horizontalScrollBar()->isVisible() &&
                            around->horizontalScrollBar()->isVisible())))
                complain(area, "scroll bar in one of the same direction", 0, 0);
        }
    }

    void lookWhetherInside(const QWidget* widget)
    {
        const QWidget* parent = widget->parentWidget();
        if (!parent || widget->isWindow() || parent->rect().contains(widget->geometry()))
            return;
        for (const QWidget* each = parent; each; each = each->parentWidget()) {
            const auto* area = qobject_cast<const QAbstractScrollArea*>(each->parentWidget());
            if (area && area->viewport() == each)
                return; // it scrolls, or an item view places it
        }
        if (widget->inherits("QRubberBand") || widget->inherits("QFocusFrame"))
            return;
        const QRect out = widget->geometry();
        complain(widget, QString("sticks out of %1").arg(parent->objectName()),
                 qMax(out.right(), out.bottom()), qMin(parent->width(), parent->height()));
    }
};

} // namespace

QStringList cutTexts(const QWidget* window)
{
    Search search;
    for (const QWidget* widget : window->findChildren<QWidget*>()) {
        if (widget->isVisible() && widget->window() == window)
            search.look(widget);
    }
    return search.found;
}
