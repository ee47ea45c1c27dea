#include "ToolTip.h"
#include "HTMLDelegate.h"
#include "MethodName.h"
#include "SpinBoxDelegate.h"
#include "TestCase.h"

#include <QSpinBox>
#include <QStandardItemModel>
#include <QTableView>

namespace
{

const QString opening =
    "<table align=center><tr><td valign=middle><table><table width=\"100%\" border=0 "
    "cellspacing=2 cellpadding=5         style=\"border-style: ridge; border-color: "
    "cornflowerblue\">";
const QString closing = "</table></td></tr></table>";

QString cell(const QString& text, const QString& attributes = QString())
{
    return "<td valign=\"middle\" " + attributes + " style=\"color:navy; white-space:pre-wrap;\">" +
           text + "</td>";
}

QString row(const QStringList& cells)
{
    QString text;
    for (const QString& each : cells)
        text += cell(each);
    return "<tbody><tr>" + text + "</tr></tbody>";
}

QStringList numbers(int count)
{
    QStringList list;
    for (int i = 0; i < count; ++i)
        list << QString::number(i);
    return list;
}

QString body(ToolTip tip)
{
    const QString html = tip.getToolTip();
    return html.mid(opening.size(), html.size() - opening.size() - closing.size());
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
        tip.addToolTip({"-5", "%1", "<td align=\"right\"</td>7"});
        QCOMPARE(tip.getToolTip(),
                 opening +
                     "<p style=\"font-weight:bold; font-size:x-large; color:dodgerblue\"><nobr>a "
                     "%1</nobr><hr></p><tr valign=\"middle\" bgcolor=\"navy\" "
                     "style=\"font-weight:bold; color:white; white-space:pre-wrap\"><td>x</td><td "
                     "colspan=\"2\">y</td></tr><tbody><tr>" +
                     cell("&#x2212;5") + cell("%1") + cell("7", " align=\"right\"") +
                     "</tr></tbody>" + closing);
        QVERIFY(tip.getToolTip().endsWith(closing + closing));
    }

    void listsFold_data()
    {
        QTest::addColumn<int>("count");
        QTest::addColumn<int>("fullRows");
        QTest::addColumn<int>("perRow");
        QTest::addColumn<int>("rest");
        QTest::newRow("empty") << 0 << 0 << 1 << 0;
        QTest::newRow("25 in one column") << 25 << 25 << 1 << 0;
        QTest::newRow("26 in three") << 26 << 8 << 3 << 2;
        QTest::newRow("27 in three") << 27 << 9 << 3 << 0;
        QTest::newRow("28 in three") << 28 << 9 << 3 << 1;
    }
    void listsFold()
    {
        QFETCH(int, count);
        QFETCH(int, fullRows);
        QFETCH(int, perRow);
        QFETCH(int, rest);
        ToolTip tip(100, 0.0, 0);
        const QStringList list = numbers(count);
        tip.addToolTip(list);
        QString expected;
        for (int i = 0; i < fullRows; ++i)
            expected += row(list.mid(i * perRow, perRow));
        if (rest > 0 || count == 0)
            expected += row(list.mid(fullRows * perRow));
        QCOMPARE(body(tip), expected);
        // The table keeps its last number of columns: only one column still makes a list a column.
        tip.addToolTip({"a", "b"});
        const int columns = rest > 0 ? rest : perRow;
        QCOMPARE(body(tip), expected + (columns > 1 ? row({"a", "b"}) : row({"a"}) + row({"b"})));
    }

    void cellsWithOwnTag()
    {
        ToolTip tip(100, 0.0, 2);
        tip.addToolTip({"<td>x", "<td a</td>b</td>c"});
        QCOMPARE(body(tip), "<tbody><tr><td>x</td>" + cell("c", " ab") + "</tr></tbody>");
    }

    void methodNames()
    {
        QCOMPARE(methodName("virtual QWidget* A::create(QWidget*, const B::C&) const"),
                 QByteArray("A::create()"));
        QCOMPARE(methodName("WPanel::WPanel(QWidget*)"), QByteArray("WPanel::WPanel()"));
    }

    void integerCells()
    {
        QStandardItemModel model(1, 1);
        model.setData(model.index(0, 0), 7);
        const SpinBoxDelegate delegate(-5, 50);
        QWidget parent;
        QScopedPointer<QWidget> editor(
            delegate.createEditor(&parent, QStyleOptionViewItem(), model.index(0, 0)));
        auto* box = qobject_cast<QSpinBox*>(editor.data());
        QVERIFY(box);
        QCOMPARE(box->minimum(), -5);
        QCOMPARE(box->maximum(), 50);
        delegate.setEditorData(box, model.index(0, 0));
        QCOMPARE(box->value(), 7);
        box->findChild<QLineEdit*>()->setText("42"); // typed, not yet taken
        delegate.setModelData(box, &model, model.index(0, 0));
        QCOMPARE(model.index(0, 0).data(Qt::EditRole).toInt(), 42);

        QLineEdit other;
        delegate.setEditorData(&other, model.index(0, 0));
        delegate.setModelData(&other, &model, model.index(0, 0));
        QCOMPARE(other.text(), QString());
        QVERIFY(debugLines().contains("SpinBoxDelegate::createEditor()"));
    }

    void htmlIsDrawnCentred()
    {
        QStandardItemModel model(1, 1);
        model.setData(model.index(0, 0), "<b>l</b>");
        HTMLDelegate delegate;
        QTableView view;
        QStyleOptionViewItem option;
        option.widget = &view;
        option.rect = QRect(0, 0, 101, 81);
        option.palette.setColor(QPalette::Active, QPalette::Text, Qt::blue);
        const auto inkOf = [&](QStyle::State state) {
            QImage image(101, 81, QImage::Format_RGB32);
            image.fill(Qt::white);
            QPainter painter(&image);
            option.state = state;
            option.palette.setColor(QPalette::Highlight, Qt::white);
            delegate.paint(&painter, option, model.index(0, 0));
            QMap<QString, QRect> ink;
            for (int y = 0; y < image.height(); ++y) {
                for (int x = 0; x < image.width(); ++x) {
                    const QColor c = image.pixelColor(x, y);
                    const QString name = c == QColor(Qt::red)    ? "red"
                                         : c == QColor(Qt::blue) ? "blue"
                                         : c == QColor(Qt::cyan) ? "cyan"
                                                                 : "";
                    ink[name] |= QRect(x, y, 1, 1);
                }
            }
            return ink;
        };
        const QRect blue = inkOf(QStyle::State_Enabled).value("blue");
        QVERIFY(!blue.isEmpty());
        QVERIFY2(qAbs(blue.center().x() - 50) <= 3, "not centred across");
        QVERIFY2(qAbs(blue.center().y() - 40) <= 8, "not centred down");
        const QStyle::State selected = QStyle::State_Enabled | QStyle::State_Selected;
        QVERIFY(!inkOf(selected).value("red").isEmpty());
        option.palette.setColor(QPalette::Disabled, QPalette::Text, Qt::cyan);
        QVERIFY(!inkOf(QStyle::State_None).value("cyan").isEmpty());
        model.setData(model.index(0, 0), QColor(Qt::cyan), Qt::ForegroundRole);
        option.palette.setColor(QPalette::Disabled, QPalette::Text, Qt::black);
        QVERIFY(!inkOf(QStyle::State_Enabled).value("cyan").isEmpty());
        model.setData(model.index(0, 0), QVariant(), Qt::ForegroundRole);
        const QSize hint = delegate.sizeHint(option, model.index(0, 0));
        QVERIFY(hint.width() > 0 && hint.width() < 101 && hint.height() < 81);

        // Beside an icon all of it stays in the cell.
        QPixmap icon(16, 16);
        icon.fill(Qt::white);
        model.setData(model.index(0, 0), icon, Qt::DecorationRole);
        const QRect moved = inkOf(QStyle::State_Enabled).value("blue"); // there is room
        QCOMPARE(moved.center().x(), blue.center().x() + 16);
        QVERIFY(delegate.sizeHint(option, model.index(0, 0)).width() >= hint.width() + 16);
        option.rect.setWidth(hint.width() + 16 + 8);
        const QRect beside = inkOf(QStyle::State_Enabled).value("blue");
        QCOMPARE(beside.height(), blue.height());
        QVERIFY(beside.left() >= 16 && beside.right() <= option.rect.right());
    }
};

AXR_TEST_MAIN(ToolTipTest)
#include "ToolTipTest.moc"
