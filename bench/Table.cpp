#include "Table.h"

#include "kinds/Presets.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <optional>

namespace linealis::bench {

namespace {

constexpr double milli = 1e-3;
constexpr double micro = 1e-6;
constexpr double million = 1e6;
constexpr double kibibyte = 1024.0;
constexpr double mebibyte = kibibyte * kibibyte;
constexpr double memoryPerStream = 1.25;
constexpr double memoryBesides = 12.0 * mebibyte;

std::string Fixed(double value, int decimals)
{
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%.*f", decimals, value);
    return text.data();
}

/// Formats a number with three significant digits, but at most three decimals.
std::string Digits(double value)
{
    return Fixed(value, value >= 100.0 ? 0 : value >= 10.0 ? 1 : value >= 1.0 ? 2 : 3);
}

std::string Row(const std::vector<std::string>& cells)
{
    std::string row = "|";
    for (const std::string& cell : cells) {
        row += " " + cell + " |";
    }
    return row + "\n";
}

/// Returns a table header. The first column holds names, all others numbers.
std::string Head(const std::vector<std::string>& titles)
{
    std::vector<std::string> lines(titles.size(), "---:");
    lines.front() = "---";
    return Row(titles) + Row(lines);
}

std::vector<Page> AllPages()
{
    std::vector<Page> pages = DefaultPages();
    for (const Page& page : HeavyPages()) {
        pages.push_back(page);
    }
    return pages;
}

/// The figures of one page.
struct PageFigures {
    Page page;
    double whole;
    double drawing;
    double untuned;
    double tuned;
    double process;
    double strokes;
    double stream;
    double untunedSize;
    double tunedSize;
    double memory;
};

std::optional<PageFigures> FiguresOf(const Page& page, const Results& results)
{
    const std::string whole = wholePage + page.name;
    const std::string draw = drawing + page.name;
    const std::string untuned = untunedZlib + page.name;
    const std::string tuned = tunedZlib + page.name;
    const std::string command = process + page.name;
    for (const std::string& name : {whole, draw, untuned, tuned, command}) {
        if (!results.Has(name)) {
            return std::nullopt;
        }
    }
    return PageFigures{page,
                       results.Seconds(whole),
                       results.Seconds(draw),
                       results.Seconds(untuned),
                       results.Seconds(tuned),
                       results.Seconds(command),
                       results.Counter(whole, "strokes"),
                       results.Counter(tuned, "stream"),
                       results.Counter(untuned, "size"),
                       results.Counter(tuned, "size"),
                       results.peakMemory.at(page.name)};
}

std::vector<PageFigures> FiguresOf(const std::vector<Page>& pages, const Results& results)
{
    std::vector<PageFigures> all;
    for (const Page& page : pages) {
        if (const std::optional<PageFigures> figures = FiguresOf(page, results)) {
            all.push_back(*figures);
        }
    }
    return all;
}

std::string TimesTable(const std::vector<PageFigures>& pages)
{
    std::string text =
        "## Pages: processor time\n\n"
        "Milliseconds. *Whole page*: the work of the Generate button, in process. *zlib* over the same content "
        "stream:\n"
        "level 9 untuned, and tuned as in the program. *Process*: linealis-cli from start to end.\n\n" +
        Head({"page", "strokes", "whole page", "drawing alone", "zlib untuned", "zlib tuned", "tuned / untuned",
              "whole / tuned", "million strokes / s", "process", "process / untuned"});
    for (const PageFigures& page : pages) {
        text +=
            Row({page.page.name, Fixed(page.strokes, 0), Digits(page.whole / milli), Digits(page.drawing / milli),
                 Digits(page.untuned / milli), Digits(page.tuned / milli), Fixed(page.tuned / page.untuned, 3),
                 Fixed(page.whole / page.tuned, 2), Digits(page.strokes / page.whole / million),
                 Digits(page.process / milli), Fixed(page.process / page.untuned, 3)});
    }
    return text + "\n";
}

std::string SizesTable(const std::vector<PageFigures>& pages)
{
    std::string text = "## Pages: sizes\n\n"
                       "*Peak memory* is that of the linealis-cli process; its limit is 1.25 times the content "
                       "stream plus 12 MiB.\n\n" +
                       Head({"page", "content stream, KiB", "zlib untuned, KiB", "zlib tuned, KiB",
                             "tuned / untuned", "peak memory, MiB", "memory / stream", "memory / limit"});
    for (const PageFigures& page : pages) {
        text += Row({page.page.name, Fixed(page.stream / kibibyte, 1), Fixed(page.untunedSize / kibibyte, 1),
                     Fixed(page.tunedSize / kibibyte, 1), Fixed(page.tunedSize / page.untunedSize, 4),
                     Fixed(page.memory / mebibyte, 1), Digits(page.memory / page.stream),
                     Fixed(page.memory / (memoryPerStream * page.stream + memoryBesides), 2)});
    }
    return text + "\n";
}

/// The figures of one preset.
struct PresetFigures {
    std::string id;
    double time;  ///< processor seconds of linealis-cli, without those of /bin/true
    double size;  ///< of the content stream
    double best;  ///< its size at zlib's best level
};

std::vector<PresetFigures> FiguresOfPresets(const Results& results)
{
    std::vector<PresetFigures> all;
    for (const Preset& preset : Presets()) {
        const std::string name = presetProcess + std::string(preset.id);
        if (results.Has(name) && results.Has(trueProcess)) {
            all.push_back({std::string(preset.id), results.Seconds(name) - results.Seconds(trueProcess),
                           results.Counter(name, "size"), results.Counter(name, "best")});
        }
    }
    return all;
}

std::string PresetsTable(const std::vector<PresetFigures>& presets)
{
    if (presets.empty()) {
        return "";
    }
    std::string text = "## Presets\n\n*Process*: processor time of linealis-cli, less that of /bin/true.\n\n" +
                       Head({"preset", "process, ms", "stream, bytes", "zlib's best level, bytes", "ratio"});
    for (const PresetFigures& preset : presets) {
        text += Row({preset.id, Digits(preset.time / milli), Fixed(preset.size, 0), Fixed(preset.best, 0),
                     Fixed(preset.size / preset.best, 3)});
    }
    return text + "\n";
}

/// Returns the largest value of the presets, or nothing if they were not measured.
template <typename Value>
std::optional<double> LargestOfPresets(const std::vector<PresetFigures>& presets, Value value)
{
    std::optional<double> largest;
    for (const PresetFigures& preset : presets) {
        largest = std::max(largest.value_or(value(preset)), value(preset));
    }
    return largest;
}

std::string NameOf(const Writer& writer, const Page& page)
{
    return std::string(writer.name) + "/" + page.name;
}

/// Returns how many times as long as linealis-cli the fastest other writer takes, on the page of the kind where it
/// does best.
std::optional<double> FastestOther(const std::string& kind, const Results& results)
{
    std::optional<double> fastest;
    for (const Page& page : ComparedPages()) {
        for (const Writer& writer : otherWriters) {
            const std::string name = NameOf(writer, page);
            if (page.kind == kind && results.Has(name) && results.Has(process + page.name)) {
                const double ratio = results.Seconds(name) / results.Seconds(process + page.name);
                fastest = std::min(fastest.value_or(ratio), ratio);
            }
        }
    }
    return fastest;
}

std::string OthersTable(const Results& results)
{
    std::string text = Head({"page", "writer", "process, ms", "ratio to linealis-cli", "file, KiB", "file ratio"});
    bool any = false;
    for (const Page& page : ComparedPages()) {
        const std::string own = process + page.name;
        if (!results.Has(own)) {
            continue;
        }
        const double ownFile = results.Counter(own, "file");
        text += Row({page.name, "linealis-cli", Digits(results.Seconds(own) / milli), "1",
                     Fixed(ownFile / kibibyte, 1), "1"});
        for (const Writer& writer : otherWriters) {
            const std::string name = NameOf(writer, page);
            if (!results.Has(name)) {
                continue;
            }
            any = true;
            const bool stopped = results.Counter(name, "stopped") != 0.0;
            const std::string over = stopped ? "over " : "";
            const double file = results.Counter(name, "file");
            text += Row({page.name, writer.name, over + Digits(results.Seconds(name) / milli),
                         over + Digits(results.Seconds(name) / results.Seconds(own)),
                         stopped ? "" : Fixed(file / kibibyte, 1), stopped ? "" : Fixed(file / ownFile, 2)});
        }
    }
    return any ? "## Other writers: the same strokes, whole processes\n\n"
                 "At zlib's default level. A writer that takes more than 30 s is stopped.\n\n" +
                     text + "\n"
               : "";
}

struct Growth {
    double strokes;
    double perStroke;  ///< seconds
};

std::vector<Growth> GrowthOf(const Results& results)
{
    std::vector<Growth> all;
    for (const int dots : growingDots) {
        const std::string name = growth + std::to_string(dots);
        if (results.Has(name)) {
            const double strokes = results.Counter(name, "strokes");
            all.push_back({strokes, results.Seconds(name) / strokes});
        }
    }
    return all;
}

std::string GrowthTable(const Results& results)
{
    const std::vector<Growth> all = GrowthOf(results);
    if (all.empty()) {
        return "";
    }
    std::string text = "## Growth: one pattern of dots on sheets of increasing size, whole page in process\n\n" +
                       Head({"dots", "time, ms", "microseconds per dot", "ratio to previous decade"});
    for (std::size_t i = 0; i < all.size(); ++i) {
        text += Row({Fixed(all[i].strokes, 0), Digits(all[i].strokes * all[i].perStroke / milli),
                     Fixed(all[i].perStroke / micro, 4),
                     i == 0 ? "" : Fixed(all[i].perStroke / all[i - 1].perStroke, 3)});
    }
    return text + "\n";
}

/// Returns the share of the yield in the time of a page: the larger of the share without a screen on the first
/// heavy page and the share measured with one.
std::optional<double> YieldShare(const Results& results)
{
    std::optional<double> share;
    const std::string page = wholePage + HeavyPages().front().name;
    if (results.Has(oneRound) && results.Has(page)) {
        const double round = results.Seconds(oneRound) / results.Counter(oneRound, "rounds");
        share = round * results.Counter(page, "strokes") / results.Seconds(page);
    }
    if (results.Has(pageTurns)) {
        const double desktop = std::min(results.Counter(pageTurns, "new_yield_share"),
                                        results.Counter(pageTurns, "replaced_yield_share"));
        share = std::max(share.value_or(desktop), desktop);
    }
    return share;
}

std::string SmallThingsTable(const Results& results)
{
    std::string text;
    const auto add = [&](const std::string& name, double value, const char* unit) {
        text += Row({name, Digits(value) + " " + unit});
    };
    constexpr double nano = 1e-9;
    if (results.Has(plainNumbers)) {
        add("writing a coordinate", results.Seconds(plainNumbers) / results.Counter(plainNumbers, "numbers") / nano,
            "ns");
    }
    if (results.Has(toChars)) {
        add("std::to_chars for a coordinate (general, 7 digits)",
            results.Seconds(toChars) / results.Counter(toChars, "numbers") / nano, "ns");
    }
    if (results.Has(oneRound)) {
        add("yield per stroke, without a screen",
            results.Seconds(oneRound) / results.Counter(oneRound, "rounds") / nano, "ns");
    }
    if (results.Has(trueProcess)) {
        add("/bin/true, process", results.Seconds(trueProcess) / milli, "ms");
    }
    if (results.Has(desktopStart)) {
        for (const auto& [program, name] :
             {std::pair("gallery_start", "start until the gallery is painted"),
              std::pair("empty_window", "start until an empty Qt window is painted")}) {
            const std::string counter = program;
            add(name + std::string(", wall clock"), results.Counter(desktopStart, counter) / milli, "ms");
            add(name + std::string(", processor time"),
                results.Counter(desktopStart, counter + "_processor") / milli, "ms");
        }
    }
    if (results.Has(keyLatency)) {
        add("key press to live page, median of the slowest kind", results.Counter(keyLatency, "median") / milli,
            "ms");
        add("key press to live page, worst case", results.Counter(keyLatency, "worst") / milli, "ms");
        add("drag of a margin to live page, median of the slowest kind",
            results.Counter(keyLatency, "drag_median") / milli, "ms");
        add("drag of a margin to live page, worst case", results.Counter(keyLatency, "drag_worst") / milli, "ms");
        add("longest wait of a key press during a page of a million dots",
            results.Counter(keyLatency, "wait") / milli, "ms");
    }
    if (results.Has(pageTurns)) {
        for (const std::string file : {"new", "replaced"}) {
            const std::string gap = "longest gap between turns, a million dots, " + file + " file";
            add(gap + ", wall clock", results.Counter(pageTurns, file + "_gap") / milli, "ms");
            add(gap + ", processor time", results.Counter(pageTurns, file + "_gap_processor") / milli, "ms");
            add("turns of the event loop during that page", results.Counter(pageTurns, file + "_turns"), "");
        }
        add("share of the yield in that page", 100.0 * results.Counter(pageTurns, "new_yield_share"), "%");
    }
    return text.empty() ? "" : "## Other measurements\n\n" + Head({"measurement", "value"}) + text + "\n";
}

/// The table of targets, one row per target.
class Targets {
public:
    void AtMost(const std::string& target, double limit, std::optional<double> measured, int decimals = 3)
    {
        Add(target, measured, decimals, measured && *measured <= limit);
    }
    void AtLeast(const std::string& target, double limit, std::optional<double> measured, int decimals = 3)
    {
        Add(target, measured, decimals, measured && *measured >= limit);
    }

    std::string Table() const { return "## Targets\n\n" + Head({"target", "measured", "met"}) + rows; }

private:
    void Add(const std::string& target, std::optional<double> measured, int decimals, bool met)
    {
        if (measured) {
            rows += Row({target, Fixed(*measured, decimals), met ? "yes" : "**no**"});
        } else {
            rows += Row({target, "not measured", ""});
        }
    }

    std::string rows;
};

/// Returns the largest value of `figure` over the pages for which `among` returns true, or nothing if there are
/// none.
template <typename Figure, typename Among>
std::optional<double> Largest(const std::vector<PageFigures>& pages, Figure figure, Among among)
{
    std::optional<double> largest;
    for (const PageFigures& page : pages) {
        if (among(page)) {
            largest = std::max(largest.value_or(figure(page)), figure(page));
        }
    }
    return largest;
}

std::optional<double> HeavySizeRatio(const std::vector<PageFigures>& heavy)
{
    if (heavy.size() != HeavyPages().size()) {
        return std::nullopt;
    }
    double tuned = 0.0;
    double untuned = 0.0;
    for (const PageFigures& page : heavy) {
        tuned += page.tunedSize;
        untuned += page.untunedSize;
    }
    return tuned / untuned;
}

std::optional<double> LargestDecade(const Results& results)
{
    const std::vector<Growth> all = GrowthOf(results);
    std::optional<double> largest;
    for (std::size_t i = 1; i < all.size(); ++i) {
        const double change = std::fabs(all[i].perStroke / all[i - 1].perStroke - 1.0);
        largest = std::max(largest.value_or(change), change);
    }
    return largest;
}

std::optional<double> Ratio(const Results& results, const std::string& one, const std::string& other)
{
    if (!results.Has(one) || !results.Has(other)) {
        return std::nullopt;
    }
    return results.Seconds(one) / results.Seconds(other);
}

std::string TargetsTable(const Results& results)
{
    const auto defaults = FiguresOf(DefaultPages(), results);
    const auto heavy = FiguresOf(HeavyPages(), results);
    const auto all = FiguresOf(AllPages(), results);
    const auto every = [](const PageFigures&) { return true; };
    const auto dots = [](const PageFigures& page) { return page.page.kind == "dots"; };
    const auto otherThanDots = [](const PageFigures& page) { return page.page.kind != "dots"; };
    const auto size = [](const PageFigures& page) { return page.tunedSize / page.untunedSize; };
    const auto time = [](const PageFigures& page) { return page.tuned / page.untuned; };
    const auto whole = [](const PageFigures& page) { return page.whole / page.tuned; };
    const auto command = [](const PageFigures& page) { return page.process / page.untuned; };
    const auto memory = [](const PageFigures& page) {
        return page.memory / (memoryPerStream * page.stream + memoryBesides);
    };
    std::optional<double> slowestStart;
    if (results.Has(trueProcess)) {
        slowestStart = Largest(
            defaults, [&](const PageFigures& page) { return page.process / results.Seconds(trueProcess); }, every);
    }
    std::optional<double> start;
    if (results.Has(desktopStart)) {
        start = results.Counter(desktopStart, "gallery_start") / results.Counter(desktopStart, "empty_window");
    }
    std::optional<double> gap;
    if (results.Has(pageTurns)) {
        gap = std::max(results.Counter(pageTurns, "new_gap"), results.Counter(pageTurns, "replaced_gap")) / milli;
    }

    const auto latency = [&](const char* counter) {
        return results.Has(keyLatency) ? std::optional(results.Counter(keyLatency, counter) / milli) : std::nullopt;
    };

    Targets targets;
    targets.AtMost("key press to live page, median: at most 33 ms", 33.0, latency("median"));
    targets.AtMost("key press to live page, worst case: at most 100 ms", 100.0, latency("worst"));
    targets.AtMost("drag of a margin to live page, median: at most 33 ms", 33.0, latency("drag_median"));
    targets.AtMost("drag of a margin to live page, worst case: at most 100 ms", 100.0, latency("drag_worst"));
    targets.AtMost("wait of a key press during a page of a million dots: at most 30 ms", 30.0, latency("wait"));
    targets.AtMost("stream on every page: at most 1 of untuned", 1.0, Largest(all, size, every), 4);
    const std::vector<PresetFigures> presets = FiguresOfPresets(results);
    targets.AtMost("stream of every preset: at most 1 of zlib's best level", 1.0,
                   LargestOfPresets(presets, [](const PresetFigures& preset) { return preset.size / preset.best; }),
                   4);
    targets.AtMost("linealis-cli on every preset: at most 3 ms over /bin/true", 3.0,
                   LargestOfPresets(presets, [](const PresetFigures& preset) { return preset.time / milli; }), 2);
    targets.AtMost("1,000 pages of a table on one core: at most 1.5 s", 1.5,
                   results.Has(tableProcess) ? std::optional(results.Seconds(tableProcess)) : std::nullopt, 2);
    targets.AtMost("streams of the heavy pages together: at most 0.9 of untuned", 0.9, HeavySizeRatio(heavy));
    targets.AtMost("tuned zlib on the heavy dots pages: at most 0.1 of untuned", 0.1, Largest(heavy, time, dots));
    targets.AtMost("tuned zlib on the other heavy pages: at most 0.25 of untuned", 0.25,
                   Largest(heavy, time, otherThanDots));
    targets.AtMost("whole page on the heavy dots pages: at most 1.4 of tuned zlib", 1.4,
                   Largest(heavy, whole, dots));
    targets.AtMost("linealis-cli on the heavy dots pages: at most 0.11 of untuned zlib", 0.11,
                   Largest(heavy, command, dots));
    targets.AtLeast("fastest other writer on the heavy dots pages: at least 1.8 of linealis-cli", 1.8,
                    FastestOther("dots", results), 2);
    targets.AtLeast("fastest other writer on the heavy grid page: at least 1.8 of linealis-cli", 1.8,
                    FastestOther("grid", results), 2);
    targets.AtMost("writing a coordinate: at most 0.4 of std::to_chars", 0.4,
                   Ratio(results, plainNumbers, toChars));
    targets.AtMost("peak memory on every page: at most 1 of (1.25 content stream + 12 MiB)", 1.0,
                   Largest(all, memory, every), 2);
    targets.AtMost("time per stroke, change from decade to decade: at most 0.05", 0.05, LargestDecade(results));
    targets.AtMost("linealis-cli on every default page: at most 3 of /bin/true", 3.0, slowestStart, 2);
    targets.AtMost("start until the gallery is painted, wall clock: at most 1.3 of an empty Qt window", 1.3, start,
                   2);
    targets.AtMost("longest gap between turns of the event loop: at most 30 ms", 30.0, gap, 1);
    targets.AtMost("yield: at most 0.01 of the time of a page", 0.01, YieldShare(results), 4);
    return targets.Table();
}

}  // namespace

std::string MakeTable(const Results& results)
{
    const auto pages = FiguresOf(AllPages(), results);
    std::string text = "# Linealis bench\n\n"
                       "Built with " LINEALIS_COMPILER
                       ". Each value is the best of several repetitions within one run. Times apply only\n"
                       "to this machine and this run; only the ratios carry over.\n\n";
    if (!pages.empty()) {
        text += TimesTable(pages) + SizesTable(pages);
    }
    return text + PresetsTable(FiguresOfPresets(results)) + OthersTable(results) + GrowthTable(results) +
           SmallThingsTable(results) + TargetsTable(results);
}

}  // namespace linealis::bench
