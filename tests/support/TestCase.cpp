#include "TestCase.h"

#include <QSettings>
#include <mutex>

namespace
{

// The message handler is a plain function that any thread may enter.
std::mutex mutex;
QtMessageHandler qtTestHandler = nullptr;
QStringList debugMessages;
QStringList unexpected;
QList<QRegularExpression> expected;

/// The display's late answer about a window that has closed meanwhile: Qt asked while the window
/// manager was taking it away. Which of the two is first is nobody's fault.
bool isOfClosedWindow(const QString& text)
{
    return text.startsWith(QLatin1String("QXcbConnection: XCB error: 3 (BadWindow)"));
}

} // namespace

TestCase::TestCase()
{
    for (QSettings::Format format : {QSettings::NativeFormat, QSettings::IniFormat})
        QSettings::setPath(format, QSettings::UserScope, m_settingsFolder.path());
}

TestCase::~TestCase() = default;

void TestCase::expectWarning(const QString& pattern)
{
    const std::lock_guard<std::mutex> lock(mutex);
    expected << QRegularExpression(pattern);
}

QStringList TestCase::debugLines() const
{
    const std::lock_guard<std::mutex> lock(mutex);
    return debugMessages;
}

void TestCase::init()
{
    const QDir folder(m_settingsFolder.path());
    for (const QString& entry : folder.entryList(QDir::Dirs | QDir::NoDotAndDotDot))
        QDir(folder.filePath(entry)).removeRecursively();
    {
        const std::lock_guard<std::mutex> lock(mutex);
        debugMessages.clear();
        unexpected.clear();
        expected.clear();
    }
    qtTestHandler = qInstallMessageHandler(&TestCase::handle);
}

void TestCase::cleanup()
{
    qInstallMessageHandler(qtTestHandler);
    QVERIFY2(unexpected.isEmpty(), qPrintable("warnings: " + unexpected.join('\n')));
    QVERIFY2(expected.isEmpty(), "an announced warning did not come");
}

void TestCase::handle(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    std::unique_lock<std::mutex> lock(mutex);
    if (type == QtDebugMsg) {
        debugMessages << text;
        return; // thousands of them would hide the report
    }
    if ((type == QtWarningMsg || type == QtCriticalMsg) && !isOfClosedWindow(text)) {
        for (int i = 0; i < expected.size(); ++i) {
            if (expected.at(i).match(text).hasMatch()) {
                expected.removeAt(i);
                return;
            }
        }
        unexpected << text;
    }
    lock.unlock();
    qtTestHandler(type, context, text);
}
