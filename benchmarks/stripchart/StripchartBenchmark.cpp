// What a frame of a live graph costs, beside the least that Qt's painter can do and beside plotting
// libraries that are installed. The conditions, the same for all, are in StripChart.h and
// README.md.

#include "Measuring.h"
#include "OwnFigures.h"

#include <QApplication>
#include <QLoggingCategory>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace
{

const std::vector<Contender> Contenders = {
    {"floor, redrawn", makeRedrawnFloor},
    {"floor, scrolled", makeScrolledFloor},
    {"ours", makeOurs},
    {"ours, dots", makeOursWithDots},
#ifdef HAVE_QCUSTOMPLOT
    {"QCustomPlot", makeQCustomPlot},
#endif
#ifdef HAVE_QWT
    {"Qwt", makeQwt},
    {"Qwt, pairs", makeQwtPairs},
#endif
};
enum { Redrawn, Scrolled, Ours, OursWithDots, FirstLibrary };

struct Row {
    const char* name;
    Load load;
    std::vector<double> times = {};
};

void printTable(std::vector<Row>* rows, int frames)
{
    std::printf("ms per frame   ");
    for (const Contender& contender : Contenders)
        std::printf("%16s", contender.name);
    std::printf("\n");
    for (Row& row : *rows) {
        row.times = frameTimes(Contenders, row.load, frames);
        std::printf("%-15s", row.name);
        for (double time : row.times)
            std::printf("%16.2f", time);
        std::printf("\n");
        std::fflush(stdout);
    }
}

double bestLibrary(const std::vector<double>& times)
{
    return times.size() > FirstLibrary
               ? *std::min_element(times.begin() + FirstLibrary, times.end())
               : 0;
}

void printRatios(const std::vector<Row>& rows)
{
    std::printf("\nratios         %16s%16s%16s%16s\n", "ours/redrawn", "ours/scrolled",
                "ours/library", "dots/ours");
    for (const Row& row : rows) {
        const std::vector<double>& times = row.times;
        std::printf("%-15s%16.2f%16.2f", row.name, times[Ours] / times[Redrawn],
                    times[Ours] / times[Scrolled]);
        if (const double library = bestLibrary(times); library > 0)
            std::printf("%16.2f", times[Ours] / library);
        else
            std::printf("%16s", "none installed");
        std::printf("%16.2f\n", times[OursWithDots] / times[Ours]);
    }
    std::printf("aim, at most   %16s%16s%16s%16s\n\n", "", "1.3", "or 0.6", "1.5");
}

} // namespace

int main(int argc, char* argv[])
{
    QApplication app(argc, argv);
    QLoggingCategory::setFilterRules(QStringLiteral("axr.*=false"));
    int frames = 200;
    for (int i = 1; i < argc; ++i) {
        Load load{};
        if (std::sscanf(argv[i], "--ours=%dx%d", &load.curves, &load.rate) == 2) {
            constexpr int LongRun = 1000; // frames
            for (double time :
                 frameTimes({Contenders[Scrolled], Contenders[Ours], Contenders[OursWithDots]},
                            load, LongRun))
                std::printf("%8.3f", time);
            std::printf(" ms: floor, scrolled; ours; ours, dots\n");
            return 0;
        }
        constexpr char Option[] = "--benchmark_min_time=";
        if (std::strncmp(argv[i], Option, sizeof Option - 1) != 0) {
            std::fprintf(stderr,
                         "usage: %s [%sSECONDS]\n"
                         "       %s --ours=CURVESxRATE   one case for long, for a profiler\n",
                         argv[0], Option, argv[0]);
            return 1;
        }
        if (std::atof(argv[i] + sizeof Option - 1) < 0.1)
            frames = 5;
    }
    std::vector<Row> rows = {
        {"1 x 25", {1, 25}},       {"4 x 200", {4, 200}}, {"4 x 1000", {4, 1000}},
        {"8 x 200", {8, 200}},     {"16 x 25", {16, 25}}, {"16 x 200", {16, 200}},
        {"16 x 1000", {16, 1000}},
    };
    Load changing{4, 200};
    changing.rangeSpan = FrameInterval;
    changing.rangeChanges = true;
    rows.push_back({"4 x 200, range", changing});
    std::printf(
        "curves x samples a second of each; \"range\": another value range at each frame\n");
    printTable(&rows, frames);
    printRatios(rows);
    printOwnFigures(frames);
    return 0;
}
