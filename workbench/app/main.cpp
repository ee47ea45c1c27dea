#include "Gallery.h"
#include "ScreenPicture.h"
#include "Tour.h"
#include "Workbench.h"

#include <QApplication>
#include <QLoggingCategory>
#include <QSettings>
#include <QTemporaryDir>
#include <QTextStream>

namespace
{

constexpr int UsageError = 2;

int failure(const QString& text)
{
    QTextStream(stderr) << "axrworkbench: " << text << Qt::endl;
    return EXIT_FAILURE;
}

/// Connects, lets the page settle and photographs the window.
int photograph(Workbench& bench, const QString& file)
{
    bench.show();
    Tour::settle(bench);
    if (!ScreenPicture::of(&bench).save(file, "PNG"))
        return failure(QStringLiteral("cannot write the photo \"%1\"").arg(file));
    return EXIT_SUCCESS;
}

/// Parsed before there is a display, so that --help and complaints need none.
WorkbenchOptions parseOptions(int argc, char* argv[])
{
    const QCoreApplication early(argc, argv);
    return WorkbenchOptions::parse(QCoreApplication::arguments(), Workbench::pageNames());
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication::setOrganizationName(QStringLiteral("AXR"));
    QCoreApplication::setApplicationName(QStringLiteral("axrworkbench"));
    const WorkbenchOptions options = parseOptions(argc, argv);
    switch (options.action) {
    case WorkbenchOptions::Action::Error:
        failure(options.text);
        return UsageError;
    case WorkbenchOptions::Action::Help:
    case WorkbenchOptions::Action::Version:
        QTextStream(stdout) << options.text << Qt::endl;
        return EXIT_SUCCESS;
    case WorkbenchOptions::Action::Show:
        break;
    }

    if (qEnvironmentVariableIsEmpty("DISPLAY") && qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") &&
        qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        return failure(
            QStringLiteral("there is no display; xvfb-run makes a virtual one, for --tour, --photo "
                           "and --gallery too, whose pictures are those of the screen"));

    QApplication app(argc, argv);
    QTemporaryDir settings;
    if (options.unattended()) {
        QLoggingCategory::setFilterRules(QStringLiteral("axr.*=false")); // the report stands alone
        // what the user has stored neither changes the pictures nor is changed
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings.path());
    }
    if (!options.galleryFolder.isEmpty())
        return Gallery(options.galleryFolder).write()
                   ? EXIT_SUCCESS
                   : failure(QStringLiteral("cannot write the gallery into \"%1\"")
                                 .arg(options.galleryFolder));
    Workbench bench(options);
    if (!options.tourFolder.isEmpty())
        return Tour(bench, options.tourFolder).run() ? EXIT_SUCCESS : EXIT_FAILURE;
    if (!options.photoFile.isEmpty())
        return photograph(bench, options.photoFile);
    bench.show();
    bench.startClock();
    return QApplication::exec();
}
