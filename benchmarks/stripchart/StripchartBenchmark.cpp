// What a frame of a live graph costs, beside the least that Qt's painter can do and beside plotting
// libraries that are installed. See README.md for the conditions.

#include "Measuring.h"
#include "OwnChart.h"

#include <QApplication>
#include <QLoggingCategory>

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
    std::printf("%-14s", "ms per frame");
    for (const Contender& contender : Contenders)
        std::printf("%16s", contender.name);
    std::printf("\n");
    for (Row& row : *rows) {
        row.times = frameTimes(Contenders, row.load, frames);
        std::printf("%-14s", row.name);
        for (double time : row.times)
            std::printf("%16.2f", time);
        std::printf("\n");
        std::fflush(stdout);
    }
}

} // namespace

int main(int argc, char* argv[])
{
    QApplication app(argc, argv);
    QLoggingCategory::setFilterRules(QStringLiteral("axr.*=false"));
    int frames = 200;
    for (int i = 1; i < argc; ++i) {
        constexpr char Option[] = "--benchmark_min_time=";
        if (std::strncmp(argv[i], Option, sizeof Option - 1) != 0) {
            std::fprintf(stderr, "usage: %s [%sSECONDS]\n", argv[0], Option);
            return 1;
        }
        if (std::atof(argv[i] + sizeof Option - 1) < 0.1)
            frames = 5;
    }
    if (const char* only = std::getenv("ONLY")) {
        std::vector<Contender> one;
        for (const Contender& c : Contenders)
            if (!std::strcmp(c.name, only))
                one.push_back(c);
        const Load load{std::atoi(std::getenv("C")), std::atoi(std::getenv("R"))};
        std::printf("%s %.3f\n", only, frameTimes(one, load, 2000)[0]);
        if (const char* f = std::getenv("PIC")) {
            Run run(one[0].make(load), load);
            run.picture().save(f);
        }
        return 0;
    }
    std::vector<Row> rows = {
        {"1 x 25", {1, 25}},       {"4 x 200", {4, 200}}, {"4 x 1000", {4, 1000}},
        {"8 x 200", {8, 200}},     {"16 x 25", {16, 25}}, {"16 x 200", {16, 200}},
        {"16 x 1000", {16, 1000}},
    };
    printTable(&rows, frames);
    return 0;
}
