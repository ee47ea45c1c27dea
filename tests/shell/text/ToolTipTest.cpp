#include "ToolTip.h"
#include "HTMLDelegate.h"
#include "SpinBoxDelegate.h"
#include "TestCase.h"
#include "User.h"
#include "WheelFocus.h"

#include <QtWidgets>

namespace
{

const QString closing = "</table></td></tr></table>";

QString cell(const QString& text, const QString& attributes = QString())
{
    return "<td valign=\"middle\" " + attributes + " style=\"color:navy; white-space:pre-wrap;\">" +
           text + "</td>";
}

/// The place of all pixels of that colour.
QRect inkOf(const QImage& image, const QColor& colour)
{
    QRect ink;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixelColor(x, y) == colour)
                ink |= QRect(x, y, 1, 1);
    return ink;
}

} // namespace

class ToolTipTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void wholeTable()
    {
        ToolTip tip(100, 0.0, 3);
        tip.addCaption("a %1");
        tip.addHeaderRow({"x", "<td colspan=\"2\">y</td>"});
        tip.addToolTip({"-5", "%1", "<td align=\"right\"</td>7", "<td>x", "<td a</td>b</td>c"});
        QCOMPARE(tip.getToolTip(),
                 "<table align=center><tr><td valign=middle><table><table width=\"100%\" border=0 "
                 "cellspacing=2 cellpadding=5         style=\"border-style: ridge; border-color: "
                 "cornflowerblue\"><p style=\"font-weight:bold; font-size:x-large; "
                 "color:dodgerblue\"><nobr>a %1</nobr><hr></p><tr valign=\"middle\" "
                 "bgcolor=\"navy\" style=\"font-weight:bold; color:white; "
                 "white-space:pre-wrap\"><td>x</td><td colspan=\"2\">y</td></tr><tbody><tr>" +
                     cell("&#x2212;5") + cell("%1") + cell("7", " align=\"right\"") + "<td>x</td>" +
                     cell("c", " ab") + "</tr></tbody>" + closing);
        QVERIFY(tip.getToolTip().endsWith(closing + closing));
    }

    /// How many cells each row has; a list of two comes behind.
    void listsFold()
    {
        const QMap<int, QString> shapes = {
            {0, "011"},         {1, "111"},         {25, QString(27, '1')},
            {26, "3333333322"}, {27, "3333333332"}, {28, "333333333111"}};
        for (const int size : shapes.keys()) {
            QStringList list;
            for (int i = 0; i < size; ++i)
                list << QString::number(i);
            ToolTip tip(100, 0.0, 0);
            tip.addToolTip(list);
            tip.addToolTip({"a", "b"});
            const QString html = tip.getToolTip();
            QString seen;
            for (const QString& row : html.split("<tbody>").mid(1))
                seen += QString::number(row.count("<td "));
            QCOMPARE(seen, shapes.value(size));
            QCOMPARE(QString(html).remove(QRegularExpression("<[^>]*>")), list.join("") + "ab");
        }
    }

    void integerCells()
    {
        QStandardItemModel model(1, 1);
        const QModelIndex index = model.index(0, 0);
        model.setData(index, 7);
        const SpinBoxDelegate delegate(-5, 50);
        QWidget parent;
        QStyleOptionViewItem option;
        option.rect = QRect(1, 2, 30, 40);
        auto* box = qobject_cast<QSpinBox*>(delegate.createEditor(&parent, option, index));
        QVERIFY(box && box->minimum() == -5 && box->maximum() == 50);
        delegate.setEditorData(box, index);
        delegate.updateEditorGeometry(box, option, index);
        QVERIFY(box->value() == 7 && box->geometry() == option.rect);
        box->findChild<QLineEdit*>()->setText("42"); // typed, not yet taken
        delegate.setModelData(box, &model, index);
        delegate.setModelData(&parent, &model, index); // is no editor of its
        QCOMPARE(index.data(Qt::EditRole).toInt(), 42);
        QCOMPARE(debugLines().join(' '),
                 QString("SpinBoxDelegate::SpinBoxDelegate() SpinBoxDelegate::createEditor() "
                         "SpinBoxDelegate::setEditorData() SpinBoxDelegate::updateEditorGeometry() "
                         "SpinBoxDelegate::setModelData() SpinBoxDelegate::setModelData()"));
    }

    void htmlIsDrawnCentred()
    {
        QStandardItemModel model(1, 1);
        const QModelIndex index = model.index(0, 0);
        model.setData(index, "<b>l</b>");
        const HTMLDelegate delegate;
        QTableView view;
        QStyleOptionViewItem option;
        option.widget = &view;
        option.rect = QRect(20, 10, 101, 81);
        option.palette.setColor(QPalette::Active, QPalette::Text, Qt::blue);
        option.palette.setColor(QPalette::Disabled, QPalette::Text, Qt::cyan);
        option.palette.setColor(QPalette::Highlight, Qt::white);
        const auto paint = [&](QStyle::State state) {
            QImage image(141, 101, QImage::Format_RGB32);
            image.fill(Qt::white);
            QPainter painter(&image);
            option.state = state;
            delegate.paint(&painter, option, index);
            return image;
        };
        const QStyle::State enabled = QStyle::State_Enabled;
        const QRect blue = inkOf(paint(enabled), Qt::blue);
        QVERIFY2(qAbs(blue.center().x() - 70) <= 1, "not centred across");
        QVERIFY2(qAbs(blue.center().y() - 50) <= 3, "not centred down");
        QVERIFY(!inkOf(paint(enabled | QStyle::State_Selected), Qt::red).isEmpty());
        QVERIFY(!inkOf(paint(QStyle::State_None), Qt::cyan).isEmpty());
        model.setData(index, QColor(Qt::green), Qt::ForegroundRole);
        QVERIFY(!inkOf(paint(enabled), Qt::green).isEmpty());
        model.setData(index, QVariant(), Qt::ForegroundRole);
        const QSize hint = delegate.sizeHint(option, index);
        QFont bold = option.font;
        bold.setBold(true);
        QCOMPARE(hint.height(), QFontMetrics(bold).height());

        // Beside an icon all of it stays in the cell.
        QPixmap icon(16, 16);
        icon.fill(Qt::white);
        model.setData(index, icon, Qt::DecorationRole);
        QCOMPARE(inkOf(paint(enabled), Qt::blue), blue.translated(16, 0)); // there is room
        const int margin = view.style()->pixelMetric(QStyle::PM_FocusFrameHMargin) + 1;
        QCOMPARE(delegate.sizeHint(option, index), hint + QSize(16 + 2 * margin, 0));
        option.rect.setWidth(hint.width() + 16 + 8);
        const QRect beside = inkOf(paint(enabled), Qt::blue);
        QCOMPARE(beside.height(), blue.height());
        QVERIFY(beside.left() >= 20 + 16 && beside.right() <= option.rect.right());
        // What has no room at all does not spill into the neighbours.
        model.setData(index, "much too long a text for such a cell");
        const QRect cut = inkOf(paint(enabled), Qt::blue);
        QVERIFY(option.rect.contains(cut));
    }

    void wheelNeedsFocus()
    {
        QWidget page;
        QSpinBox box(&page);
        QScrollBar bar(&page);
        QTableView view(&page);
        QSlider alone;
        for (QWidget* widget : QWidgetList{&view, &alone})
            widget->setFocusPolicy(Qt::WheelFocus);
        for (QWidget* widget : {&page, (QWidget*)&alone})
            WheelFocus::guard(widget);
        QComboBox later;
        later.addItems({"a", "b"});
        later.setParent(&page);
        QSpinBox made(&page); // is none yet when the guard hears of it
        made.ensurePolished();
        for (const QWidget* field : QWidgetList{&box, &later, &made, &alone})
            QCOMPARE(field->focusPolicy(), Qt::StrongFocus);
        QCOMPARE(view.focusPolicy(), Qt::WheelFocus);
        page.show();
        for (QWidget* widget : QWidgetList{&box, &made, &later, &bar, &alone})
            User::wheel(widget, widget == &bar || widget == &later ? -120 : 120);
        QVERIFY(box.value() == 0 && made.value() == 0 && later.currentIndex() == 0);
        QVERIFY(bar.value() > 0 && alone.value() > 0);
        QApplication::setActiveWindow(&page);
        box.setFocus();
        User::wheel(&box, 120);
        QCOMPARE(box.value(), 1);
    }
};

AXR_TEST_MAIN(ToolTipTest)
#include "ToolTipTest.moc"
