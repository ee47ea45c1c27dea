#ifndef TESTCASE_H
#define TESTCASE_H

#include <QRegularExpression>
#include <QStringList>
#include <QTemporaryDir>
#include <QtTest>

/// Base of every test class. Each test function starts with an empty settings store in a temporary
/// folder, and fails on a warning that it did not announce.
class TestCase : public QObject
{
    Q_OBJECT
public:
    TestCase();
    ~TestCase() override;

    /// The next warning that matches is wanted; the test fails if it does not come.
    void expectWarning(const QString& pattern);

    /// Debug lines since the start of the test function.
    QStringList debugLines() const;

protected Q_SLOTS:
    void init();
    void cleanup();

private:
    static void handle(QtMsgType type, const QMessageLogContext& context, const QString& text);

    QTemporaryDir m_settingsFolder;
};

/// Runs the test class under an application with this project's test names.
#define AXR_TEST_MAIN(TestClass)                                                                   \
    int main(int argc, char* argv[])                                                               \
    {                                                                                              \
        QApplication app(argc, argv);                                                              \
        QCoreApplication::setOrganizationName(QStringLiteral("AXRTest"));                          \
        QCoreApplication::setApplicationName(QStringLiteral(#TestClass));                          \
        TestClass test;                                                                            \
        return QTest::qExec(&test, argc, argv);                                                    \
    }

#endif
