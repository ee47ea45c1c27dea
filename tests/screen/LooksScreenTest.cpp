#include "AppSettings.h"
#include "Connection.h"
#include "CutTexts.h"
#include "Screen.h"
#include "TestCase.h"
#include "User.h"
#include "VelocityControl.h"
#include "Workbench.h"

#include <QtWidgets>

#include <cmath>

namespace
{

constexpr QSize WindowSize(1366, 768);
constexpr double Legible = 4.5; // contrast of a text to its ground

/// A workbench in the look and font size, on the screen.
struct ShownBench {
    Workbench bench;

    ShownBench(const QString& look, const QString& size) : bench(options(look, size))
    {
        bench.resize(WindowSize);
        Screen::show(&bench, {0, 0});
    }

    void connectModule()
    {
        bench.showPage("connection");
        User::click(User::find<QPushButton>(bench.findChild<Connection*>(), "btnConnect"));
    }

    QWidget* show(const QString& page)
    {
        bench.showPage(page);
        bench.advance(1000);
        Screen::pass(60);
        return User::find<QWidget>(&bench, page);
    }

private:
    static WorkbenchOptions options(const QString& look, const QString& size)
    {
        AppSettings().setValue("Workbench/Chip", AXR_CHIP); // not beside this program
        return WorkbenchOptions::parse(
            {"axrworkbench", "--photo", "x", "--theme", look, "--font-size", size},
            Workbench::pageNames());
    }
};

double luminance(const QColor& colour)
{
    const auto linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

double contrast(const QColor& a, const QColor& b)
{
    const double x = luminance(a) + 0.05;
    const double y = luminance(b) + 0.05;
    return qMax(x, y) / qMin(x, y);
}

QColor ground(const QImage& picture)
{
    QHash<QRgb, int> counts;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            ++counts[picture.pixel(x, y)];
    const auto most = std::max_element(counts.begin(), counts.end());
    return counts.isEmpty() ? QColor() : QColor(most.key());
}

/// The clearest pixel of what is written on the widget's place, to its ground.
double contrastIn(const QWidget* widget, const QRect& place)
{
    const QImage picture = Screen::picture({widget->mapToGlobal(place.topLeft()), place.size()});
    const QColor under = ground(picture);
    double best = 1;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            best = qMax(best, contrast(picture.pixelColor(x, y), under));
    return best;
}

double contrastOf(const QSpinBox* field)
{
    const auto* line = field->findChild<QLineEdit*>();
    return contrastIn(line, line->rect().adjusted(3, 3, -3, -3));
}

double contrastOf(const QAbstractItemView* view, const QModelIndex& index)
{
    return contrastIn(view->viewport(), view->visualRect(index).adjusted(3, 2, -3, -2));
}

/// How far the clearest pixel of its rim stands out from the page.
double rimOf(const QWidget* widget)
{
    const QRect middle(0, widget->height() / 2, widget->width(), 1);
    const QImage line = Screen::picture({widget->mapToGlobal(middle.topLeft()), middle.size()});
    const QImage page = Screen::picture({widget->mapToGlobal(QPoint(0, -2)), QSize(1, 1)});
    double best = 1;
    for (int x = 0; x < 4; ++x)
        best = qMax(best, contrast(line.pixelColor(x, 0), page.pixelColor(0, 0)));
    return best;
}

} // namespace

class LooksScreenTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void nothingIsCut_data()
    {
        QTest::addColumn<QString>("look");
        QTest::addColumn<QString>("size");
        for (const char* look : {"off", "on"}) {
            for (const char* size : {"8", "12", "16", "20"})
                QTest::addRow("%s, %s px", look, size) << look << size;
        }
    }
    void nothingIsCut()
    {
        QFETCH(QString, look);
        QFETCH(QString, size);
        ShownBench shown(look, size);
        shown.connectModule();
        QStringList found;
        for (const QString& page : Workbench::pageNames()) {
            shown.show(page);
            for (const QString& each : cutTexts(&shown.bench))
                found << page + ": " + each;
            if (shown.bench.size() != WindowSize)
                found << QString("%1: the window is %2 x %3")
                             .arg(page)
                             .arg(shown.bench.width())
                             .arg(shown.bench.height());
            // For the eye, when someone wants to look.
            const QString folder = qEnvironmentVariable("AXR_PICTURES");
            if (!folder.isEmpty())
                Screen::picture(&shown.bench)
                    .save(QString("%1/%2-%3-%4.png").arg(folder, page, look, size));
        }
        QVERIFY2(found.isEmpty(), qPrintable(found.join('\n')));
    }

    void whatIsShownCanBeRead_data()
    {
        QTest::addColumn<QString>("look");
        QTest::newRow("plain") << "off";
        QTest::newRow("dark blue") << "on";
    }
    void whatIsShownCanBeRead()
    {
        QFETCH(QString, look);
        ShownBench shown(look, "12");
        QStringList found;
        const auto check = [&found](const QString& what, double measured, double least = Legible) {
            if (measured < least)
                found << QString("%1: %2, wanted %3").arg(what).arg(measured).arg(least);
        };
        const bool isDark = look == "on";
        auto* motion = shown.show("motion"); // not connected
        if (isDark) {
            auto* group = User::find<QGroupBox>(motion, "gbVelocityControl");
            check("title of a disabled group", contrastIn(group, {8, 0, 100, 16}));
            auto* console = shown.show("console");
            auto* box = console->findChild<QCheckBox*>();
            box->setEnabled(false);
            Screen::pass(60);
            check("disabled check box", contrastIn(box, box->rect().adjusted(22, 2, -2, -2)));
        }
        shown.connectModule();
        Screen::pass(60);
        if (isDark) {
            auto* panel = shown.bench.findChild<Connection*>();
            auto* connects = User::find<QPushButton>(panel, "btnConnect"); // disabled now
            auto* disconnects = User::find<QPushButton>(panel, "btnDisconnect");
            check("disabled button", contrastIn(connects, connects->rect().adjusted(8, 4, -8, -4)));
            check("rim of the button to press, to that of the disabled one",
                  rimOf(disconnects) / rimOf(connects), 3);
        }
        shown.show("motion");
        for (const char* name : {"sbActualVelocity", "sbActualPosition", "sbActualCurrent"}) {
            auto* field = User::find<QSpinBox>(motion, name);
            QVERIFY(!field->isEnabled());
            check(name, contrastOf(field));
        }
        auto* list = User::find<QListWidget>(&shown.bench, "lwPages");
        list->setFocus();
        Screen::pass(60);
        if (isDark) {
            check("page that is open", contrastOf(list, list->currentIndex()));
            shown.bench.setFocus();
            list->clearFocus();
            Screen::pass(60);
            check("page that is open, list without focus", contrastOf(list, list->currentIndex()));
        }
        auto* table = shown.show("parameters")->findChild<QTableView*>();
        table->setCurrentIndex(table->model()->index(3, 1));
        Screen::pass(60);
        for (int column = 0; column < 5; ++column)
            check(QString("current parameter, column %1").arg(column),
                  contrastOf(table, table->currentIndex().siblingAtColumn(column)));
        auto* tree = User::find<QTreeWidget>(shown.show("registers"), "twRegisters");
        for (int row = 0; row < 2 && isDark; ++row) { // one of each band
            tree->setCurrentItem(tree->topLevelItem(0)->child(row));
            Screen::pass(60);
            for (int column = 0; column < 3; ++column) {
                check(QString("current register, column %1").arg(column),
                      contrastOf(tree, tree->currentIndex().siblingAtColumn(column)));
                check(QString("register, column %1").arg(column),
                      contrastOf(tree, tree->model()->index(row + 2, column,
                                                            tree->currentIndex().parent())));
            }
        }
        QVERIFY2(found.isEmpty(), qPrintable(found.join('\n')));
    }

    void whatOnlyShowsFollowsTheLook()
    {
        ShownBench shown("off", "12");
        shown.connectModule();
        auto* field = User::find<QSpinBox>(shown.show("motion"), "sbActualVelocity");
        for (const bool on : {true, false, true, false, true, false}) {
            shown.bench.setTheme(on);
            Screen::pass(60); // the size button is clicked in between
            QVERIFY2(Screen::waitFor([&] { return contrastOf(field) >= Legible; }),
                     on ? "dark blue" : "plain");
        }
    }

    /// A sign outside of where text and caret are.
    void focusIsSeen_data() { whatIsShownCanBeRead_data(); }
    void focusIsSeen()
    {
        QFETCH(QString, look);
        ShownBench shown(look, "12");
        shown.connectModule();
        Screen::key("Tab"); // from now on styles show who has it
        QStringList found;
        for (const QString& name : Workbench::pageNames()) {
            QWidget* page = shown.show(name);
            for (QWidget* input : page->findChildren<QWidget*>()) {
                if (!input->isVisible() || !input->isEnabled() ||
                    !(input->focusPolicy() & Qt::TabFocus) || input->focusProxy() ||
                    !input->visibleRegion().contains(input->rect().center()))
                    continue;
                const auto rim = [input] {
                    Screen::pass(30);
                    QImage picture = Screen::picture(input);
                    QPainter painter(&picture);
                    if (auto* line = input->findChild<QLineEdit*>())
                        painter.fillRect(line->geometry(), Qt::black);
                    return picture;
                };
                input->clearFocus();
                const QImage without = rim();
                input->setFocus(Qt::TabFocusReason);
                if (rim() == without)
                    found << QString("%1: %2 %3")
                                 .arg(name, input->metaObject()->className(), input->objectName());
            }
        }
        QVERIFY2(found.isEmpty(), qPrintable(found.join('\n')));
    }
};

AXR_TEST_MAIN(LooksScreenTest)
#include "LooksScreenTest.moc"
