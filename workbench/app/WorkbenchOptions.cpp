#include "WorkbenchOptions.h"

#include "AXRGuiVersion.h"

#include <QCommandLineParser>

#include <cmath>

namespace
{

using Simulated::Weather;

QCommandLineOption option(const char* name, const char* text, const char* value = nullptr)
{
    return QCommandLineOption(QString::fromLatin1(name), QString::fromLatin1(text),
                              value ? QString::fromLatin1(value) : QString());
}

const char* const delayOption = "delay";

/// A weather switch that takes a percentage.
struct Chance {
    const char* name;
    const char* text;
    double Weather::*member;
};

constexpr Chance chances[] = {
    {"lost-requests", "Share of requests that get lost, 0..100 percent.", &Weather::requestLoss},
    {"lost-replies", "Share of replies that get lost, 0..100 percent.", &Weather::replyLoss},
    {"duplicates", "Share of replies that come twice, 0..100 percent.", &Weather::duplicate},
    {"late", "Share of replies that come late, 0..100 percent.", &Weather::lateReply},
    {"foreign", "Share of replies that a foreign one goes along with, 0..100 percent.",
     &Weather::foreignReply},
    {"failures", "Share of requests that the module refuses, 0..100 percent.",
     &Weather::failureStatus},
    {"resets", "Share of requests on which the module resets itself, 0..100 percent.",
     &Weather::spontaneousReset},
};

/// Reads options, and keeps the first complaint.
class Reader
{
public:
    explicit Reader(const QCommandLineParser& parser) : m_parser(parser) {}

    enum class Numbers { Whole, Any };

    double number(const QString& name, Numbers numbers, double minimum, double maximum,
                  double fallback)
    {
        if (!m_parser.isSet(name))
            return fallback;
        bool ok = false;
        const double value = m_parser.value(name).toDouble(&ok);
        const bool whole = numbers == Numbers::Whole;
        if (ok && value >= minimum && value <= maximum && !(whole && value != std::floor(value)))
            return value;
        complain(QStringLiteral("--%1 takes a %2number from %3 to %4, not \"%5\"")
                     .arg(name, whole ? QStringLiteral("whole ") : QString())
                     .arg(minimum)
                     .arg(maximum, 0, 'f', 0)
                     .arg(m_parser.value(name)));
        return fallback;
    }

    QString value(const QString& name)
    {
        if (m_parser.isSet(name) && m_parser.value(name).isEmpty())
            complain(QStringLiteral("--%1 takes a name").arg(name));
        return m_parser.value(name);
    }

    /// Empty when the option is not given.
    QString choice(const QString& name, const QStringList& choices)
    {
        const QString value = m_parser.value(name);
        if (m_parser.isSet(name) && !choices.contains(value))
            complain(QStringLiteral("--%1 takes %2, not \"%3\"")
                         .arg(name, choices.join(QStringLiteral(" or ")), value));
        return value;
    }

    void complain(const QString& text)
    {
        if (m_complaint.isEmpty())
            m_complaint = text;
    }
    QString complaint() const { return m_complaint; }

private:
    const QCommandLineParser& m_parser;
    QString m_complaint;
};

} // namespace

WorkbenchOptions WorkbenchOptions::parse(const QStringList& arguments, const QStringList& pages)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral(
            "Reference host of AXRGui: commissions a simulated motor-control module.\nPages: %1.")
            .arg(pages.join(QStringLiteral(", "))));
    const QCommandLineOption help = parser.addHelpOption();
    const QCommandLineOption version = parser.addVersionOption();
    parser.addOptions({
        option("tour", "Run the tour, write pictures and report.txt into DIR, and end.", "DIR"),
        option("gallery", "Write pictures of every widget and index.html into DIR, and end.",
               "DIR"),
        option("connect", "Connect the link used last, at first the USB one, at the start."),
        option("page", "Open the page NAME.", "NAME"),
        option("photo", "Photograph the page into FILE, and end.", "FILE"),
        option("theme", "Switch the dark blue look on or off.", "on|off"),
        option("font-size", "Font size in pixels: 8, 12, 16 or 20.", "PX"),
        option("seed", "Seed of the bad weather, default 1.", "N"),
        option(delayOption, "Time until a reply comes, in ms, default 1.", "MS"),
        option("silent", "The module starts silent."),
    });
    for (const Chance& chance : chances)
        parser.addOption(option(chance.name, chance.text, "PERCENT"));

    WorkbenchOptions options;
    Reader reader(parser);
    if (!parser.parse(arguments))
        reader.complain(parser.errorText());
    else if (!parser.positionalArguments().isEmpty())
        reader.complain(QStringLiteral("what is \"%1\"? Options begin with --")
                            .arg(parser.positionalArguments().constFirst()));

    options.tourFolder = reader.value(QStringLiteral("tour"));
    options.galleryFolder = reader.value(QStringLiteral("gallery"));
    options.photoFile = reader.value(QStringLiteral("photo"));
    options.page = reader.value(QStringLiteral("page"));
    options.connect = parser.isSet(QStringLiteral("connect"));
    options.silent = parser.isSet(QStringLiteral("silent"));
    if (!options.page.isEmpty() && !pages.contains(options.page))
        reader.complain(QStringLiteral("there is no page \"%1\"; there are: %2")
                            .arg(options.page, pages.join(QStringLiteral(", "))));
    if (!options.tourFolder.isEmpty() + !options.photoFile.isEmpty() +
            !options.galleryFolder.isEmpty() >
        1)
        reader.complain(QStringLiteral("--tour, --photo and --gallery do not go together"));

    const QString theme =
        reader.choice(QStringLiteral("theme"), {QStringLiteral("on"), QStringLiteral("off")});
    if (!theme.isEmpty())
        options.theme = theme == QLatin1String("on");
    options.fontSize =
        reader
            .choice(QStringLiteral("font-size"), {QStringLiteral("8"), QStringLiteral("12"),
                                                  QStringLiteral("16"), QStringLiteral("20")})
            .toInt();

    options.weather.seed = static_cast<quint32>(
        reader.number(QStringLiteral("seed"), Reader::Numbers::Whole, 0, 4294967295.0, 1));
    const int delay = static_cast<int>(
        reader.number(QString::fromLatin1(delayOption), Reader::Numbers::Whole, 0, 10000, 1));
    options.weather.minimumDelay = delay;
    options.weather.maximumDelay = delay;
    for (const Chance& chance : chances)
        options.weather.*chance.member =
            reader.number(QString::fromLatin1(chance.name), Reader::Numbers::Any, 0, 100, 0) /
            100.0;

    if (!reader.complaint().isEmpty()) {
        options.action = Action::Error;
        options.text = reader.complaint();
    } else if (parser.isSet(help)) {
        options.action = Action::Help;
        options.text = parser.helpText();
    } else if (parser.isSet(version)) {
        options.action = Action::Version;
        options.text = QStringLiteral("axrworkbench " AXRGUI_VERSION_STRING);
    }
    return options;
}
