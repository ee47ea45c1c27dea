#include "Csv_p.h"
#include "TestCase.h"

class CsvTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void lines()
    {
        QLocale::setDefault(QLocale(QLocale::German));
        CsvLine line;
        QCOMPARE(line.bytes(), QByteArray("\n"));
        line.skip(1).add(QString::fromUtf8("ä b")).add(-1234567).skip(2).add(qint64(1) << 40);
        line.add(0.1).add(1234567.0).skip(0).skip(1);
        QCOMPARE(line.bytes(),
                 QByteArray(";\xc3\xa4 b;-1234567;;;1099511627776;0.1;1.23457e+06;\n"));
        QLocale::setDefault(QLocale::c());
    }

    void proposedName()
    {
        const QDateTime time({2026, 1, 31}, {14, 5, 9});
        QCOMPARE(Csv::proposedName(time, {}), QString("./20260131_14.05.09.csv"));
        QCOMPARE(Csv::proposedName(time, {"target [mA]", "../a\\b"}),
                 QString("./20260131_14.05.09_target [mA]_.._a_b.csv"));
    }

    void wholeFiles()
    {
        QTemporaryDir folder;
        const QString name = folder.filePath("a.csv");
        QVERIFY(!Csv::save(QString(), "a\n"));
        QVERIFY(!Csv::save(folder.filePath("none/a.csv"), "a\n"));
        QVERIFY(Csv::save(name, "a;b\n"));
        QVERIFY(Csv::save(name, "\xc3\xa4;\n;2\n3;not whol")); // takes the place of the old one
        QCOMPARE(Csv::read(name), QVector<QStringList>({{QString::fromUtf8("ä"), ""}, {"", "2"}}));
        QVERIFY(Csv::read(folder.filePath("b.csv")).isEmpty());
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList("a.csv"));
    }

    void log()
    {
        QTemporaryDir folder;
        const QString name = folder.filePath("log.csv");
        const CsvLog log(name);
        QVERIFY(log.start(CsvLine().add(1)) && log.append(CsvLine().add(2)));
        QVERIFY(log.append(CsvLine().add(3)));
        QCOMPARE(Csv::read(name), QVector<QStringList>({{"1"}, {"2"}, {"3"}}));
        QVERIFY(log.start(CsvLine().add(4))); // anew
        QCOMPARE(Csv::read(name), QVector<QStringList>({{"4"}}));
        const CsvLog lost(folder.filePath("none/log.csv"));
        QVERIFY(!lost.start(CsvLine()) && !lost.append(CsvLine()));
        const CsvLog full("/dev/full");
        QVERIFY(!full.start(CsvLine().add(1)) && !full.append(CsvLine().add(1)));
    }
};

QTEST_GUILESS_MAIN(CsvTest)
#include "CsvTest.moc"
