#include "RegistersPage.h"
#include "TestCase.h"

#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>

namespace
{

const char* const wholeChip = R"({
  "chip": "C",
  "registers": [
    {
      "title": "R", "address": 16,
      "fields": [
        { "title": "low", "bit": 0, "width": 4, "access": "READ_WRITE", "reset": 5 },
        { "title": "high", "bit": 8,
          "width": 8, "access": "READ_WRITE",
          "type": "signed fixed", "fraction": 4, "step": 0.0625,
          "min": -8, "max": 7.9375, "restricted": ["0x10", 3], "unit": "A" }
      ]
    },
    { "title": "S", "address": "0xFF", "fields": [
        { "title": "all", "bit": 0, "width": 64, "access": "READ",
          "reset": "0x8000000000000001" } ] }
  ]
})";

QTreeWidgetItem* row(const RegistersPage& page, int set, int field = -1)
{
    const auto* tree = page.findChild<QTreeWidget*>();
    QTreeWidgetItem* item = tree->topLevelItem(set);
    return field < 0 ? item : item->child(field);
}

QString error(const RegistersPage& page) { return page.findChild<QLabel*>("lblError")->text(); }

} // namespace

class RegistersPageTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void chipOfTheWorkbench()
    {
        RegistersPage page; // it looks beside this program, where there is none
        QVERIFY(error(page).contains("ramp-driver.json"));
        QVERIFY2(page.open(QFINDTESTDATA("../../workbench/chips/ramp-driver.json")),
                 qPrintable(error(page)));
        QVERIFY(error(page).isEmpty());
    }

    void wholeText()
    {
        ChipDescription::Problem problem;
        const auto chip = ChipDescription::read(wholeChip, &problem);
        QVERIFY2(chip, qPrintable(problem.reason));
        QCOMPARE(chip->registers().size(), size_t(2));
        const RegisterSet& set = *chip->registers()[0];
        QCOMPARE(set.getOffset(), quint8(16));
        Register* high = set.getFraction("high");
        QCOMPARE(chip->unit(high), QString("A"));
        QVERIFY(high->setValue(-0.0625) && static_cast<double>(*high) == -0.0625);
        QVERIFY(!high->setValue(3ULL) && !high->setValue(1.0) && !high->setValue(8.0));
        QCOMPARE(static_cast<unsigned long long>(*chip->registers()[1]), 0x8000000000000001ULL);
    }

    void badTexts_data()
    {
        QTest::addColumn<QString>("what");
        QTest::addColumn<QString>("with");
        QTest::addColumn<int>("line");
        QTest::addColumn<QString>("reason");
        const struct {
            const char* what;
            const char* with;
            int line;
            const char* reason;
        } rows[] = {
            {"\"chip\": \"C\",", "\"chip\": \"C\"", 3, "unterminated object"},
            {"\"chip\": \"C\",", "", 1, "\"chip\" must be a text"},
            {"\"chip\": \"C\",", "\"chip\": 5,", 2, "\"chip\" must be a text"},
            {"\"registers\": [", "\"registers\": 1, \"x\": [", 3, "nothing called \"x\""},
            {"\"title\": \"R\"", "\"title\": \"\"", 5, "\"title\" must be a text"},
            {"\"address\": 16", "\"address\": 256", 5, "up to 0xff"},
            {"\"address\": 16", "\"address\": 1.5", 5, "up to 0xff"},
            {"\"address\": 16", "\"address\": \"0xFF\"", 14, "\"R\" has this address too"},
            {"\"title\": \"S\"", "\"title\": \"R\"", 14, "two registers \"R\""},
            {"\"title\": \"high\"", "\"title\": \"low\"", 8, "two fields \"low\""},
            {"\"bit\": 8", "\"bit\": 3", 8, "bits in common"},
            {"\"width\": 8", "\"width\": 57", 9, "from 1 to 56"},
            {"\"width\": 8", "\"width\": \"8\"", 9, "from 1 to 56"},
            {"\"width\": 8", "\"widht\": 8", 9, "nothing called \"widht\""},
            {"\"READ_WRITE\",\n", "\"RW\",\n", 9, "must be one of READ, WRITE"},
            {"\"signed fixed\"", "\"float\"", 10, "must be one of unsigned"},
            {"\"signed fixed\"", "\"signed\"", 10, "only a fixed type"},
            {"\"fraction\": 4", "\"fraction\": 64", 10, "from 0 to 63"},
            {"0.0625", "0", 10, "above 0"},
            {"\"min\": -8", "\"min\": 8", 11, "above \"max\""},
            {"\"max\": 7.9375", "\"max\": true", 11, "must be a number"},
            {"[\"0x10\", 3]", "[\"0x10\", 256]", 11, "up to 0xff"},
            {"[\"0x10\", 3]", "3", 11, "must be a list"},
            {"\"reset\": 5", "\"reset\": 16", 7, "up to 0xf"},
            {"\"0x8000000000000001\"", "9007199254740994", 16, "up to 0xffffffffffffffff"},
            {"{ \"title\": \"low\"", "[], { \"title\": \"low\"", 7, "object in braces"},
        };
        for (const auto& row : rows)
            QTest::newRow(row.with) << row.what << row.with << row.line << row.reason;
    }
    void badTexts()
    {
        QFETCH(QString, what);
        QFETCH(QString, with);
        QFETCH(int, line);
        QFETCH(QString, reason);
        QString text(wholeChip);
        QVERIFY(text.contains(what));
        text.replace(text.indexOf(what), what.size(), with);
        ChipDescription::Problem problem;
        QVERIFY(!ChipDescription::read(text.toUtf8(), &problem));
        QVERIFY2(problem.reason.contains(reason), qPrintable(problem.reason));
        QCOMPARE(problem.line, line);
    }

    void aRefusedFileLeavesTheChip()
    {
        QTemporaryDir folder;
        const QString good = folder.filePath("good.json");
        const QString bad = folder.filePath("bad.json");
        for (const QString& name : {good, bad}) {
            QFile file(name);
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write(QByteArray(wholeChip).mid(0, name == good ? -1 : 90));
        }
        RegistersPage page;
        QVERIFY(page.open(good));
        QVERIFY(!page.open(bad));
        QVERIFY2(error(page).startsWith(bad + ", line 6: "), qPrintable(error(page)));
        QVERIFY(!page.open(folder.filePath("none.json")));
        QVERIFY(error(page).startsWith(folder.filePath("none.json")));
        QCOMPARE(page.findChild<QTreeWidget*>()->topLevelItemCount(), 2);
    }

    void editing()
    {
        QTemporaryDir folder;
        QFile file(folder.filePath("chip.json"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(wholeChip);
        file.close();
        RegistersPage page;
        QVERIFY(page.open(file.fileName()));
        QTreeWidgetItem* set = row(page, 0);
        QTreeWidgetItem* high = row(page, 0, 0);
        QTreeWidgetItem* low = row(page, 0, 1);
        const struct {
            QTreeWidgetItem* item;
            int column;
            const char* text;
            const char* all;  // of the register, raw
            const char* high; // physical
            const char* error;
        } rows[] = {
            {low, RegistersPage::RawColumn, "0xa", "0x000A", "0.0000", ""},
            {low, RegistersPage::RawColumn, "11", "0x000B", "0.0000", ""},
            {low, RegistersPage::BitsColumn, "01 10", "0x0006", "0.0000", ""},
            {low, RegistersPage::BitsColumn, "12", "0x0006", "0.0000", "no raw value"},
            {low, RegistersPage::RawColumn, "16", "0x0006", "0.0000", "wider than 4 bits"},
            {high, RegistersPage::PhysicalColumn, "-1.5", "0xE806", "-1.5000", ""},
            {high, RegistersPage::PhysicalColumn, "9", "0xE806", "-1.5000", "does not take 9"},
            {high, RegistersPage::PhysicalColumn, "x", "0xE806", "-1.5000", "no number"},
            {high, RegistersPage::RawColumn, "0x10", "0xE806", "-1.5000", "does not take 0x10"},
            {set, RegistersPage::RawColumn, "0x0203", "0x0203", "0.1250", ""},
            {set, RegistersPage::RawColumn, "0x0303", "0x0203", "0.1250", "high does not take"},
        };
        for (const auto& step : rows) {
            step.item->setText(step.column, step.text);
            QCOMPARE(set->text(RegistersPage::RawColumn), QString(step.all));
            QCOMPARE(high->text(RegistersPage::PhysicalColumn), QString(step.high));
            QVERIFY2(error(page).contains(step.error), qPrintable(error(page)));
            QCOMPARE(error(page).isEmpty(), !*step.error);
        }
        QVERIFY(low->font(RegistersPage::RawColumn).bold());
        QVERIFY(!(row(page, 1, 0)->flags() & Qt::ItemIsEditable)); // read only
        page.findChild<QPushButton*>("btnForget")->click();
        QVERIFY(!low->font(RegistersPage::RawColumn).bold());
        page.findChild<QPushButton*>("btnReset")->click();
        QCOMPARE(set->text(RegistersPage::RawColumn), QString("0x0005"));
    }
};

AXR_TEST_MAIN(RegistersPageTest)
#include "RegistersPageTest.moc"
