#pragma once

#include "Pages.h"

#include <benchmark/benchmark.h>

#include <array>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace linealis::bench {

// The names of the measurements. Each name is a Google benchmark; a name that ends in a slash is followed by the
// name of a page.

inline constexpr const char* wholePage = "whole/";
inline constexpr const char* drawing = "drawing/";
inline constexpr const char* untunedZlib = "zlib/";
inline constexpr const char* tunedZlib = "tuned/";
inline constexpr const char* process = "process/";
inline constexpr const char* presetProcess = "preset/";
inline constexpr const char* tableProcess = "table";
inline constexpr int pagesOfTheTable = 1000;
inline constexpr const char* growth = "growth/";
inline constexpr const char* trueProcess = "process/true";
inline constexpr const char* plainNumbers = "numbers/WritePlainNumber";
inline constexpr const char* toChars = "numbers/to_chars";
inline constexpr const char* oneRound = "round";
inline constexpr const char* desktopStart = "desktop/start";
inline constexpr const char* pageTurns = "desktop/turns";
inline constexpr const char* keyLatency = "desktop/latency";

/// Other PDF writers: name and program.
struct Writer {
    const char* name;
    const char* program;
};
inline constexpr std::array<Writer, 3> otherWriters = {
    {{"QPdfWriter", "qt_page"}, {"libharu", "haru_page"}, {"cairo", "cairo_page"}}};

/// Returns the heavy dots and grid pages, which the other writers make too.
std::vector<Page> ComparedPages();

/// Numbers of dots on the pages that show how the time grows.
inline constexpr std::array<int, 4> growingDots = {10'000, 100'000, 1'000'000, 10'000'000};

/// Collects the least processor time in seconds, and the least value of each counter, over all repetitions of every
/// benchmark.
class Results : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context& context) override;
    void ReportRuns(const std::vector<Run>& runs) override;

    bool Has(const std::string& name) const { return seconds.contains(name); }
    double Seconds(const std::string& name) const { return seconds.at(name); }
    double Counter(const std::string& name, const std::string& counter) const;

    std::map<std::string, double> peakMemory;  ///< bytes of the linealis-cli process, by page

private:
    std::map<std::string, double> seconds;
    std::map<std::string, std::map<std::string, double>> counters;
};

/// Measures the peak memory for every page. Call it while this process is still small (see Run).
void MeasureMemory(Results& results);

void RegisterMeasures();

}  // namespace linealis::bench
