#include "Measures.h"

#include "Deflate.h"
#include "Processes.h"
#include "kinds/Presets.h"
#include "pdf/StreamCompression.h"
#include "text/Numbers.h"

#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <optional>

namespace linealis::bench {

namespace fs = std::filesystem;

namespace {

constexpr double shortestMeasure = 0.05;  // seconds, for measurements too short to be taken one at a time

/// Times work on a freshly opened page.
void OnOpenPage(benchmark::State& state, const Page& page, void (OpenPage::*work)())
{
    std::optional<OpenPage> open;
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        open.reset();
        open.emplace(page);
        state.ResumeTiming();
        ((*open).*work)();
    }
    state.counters["strokes"] = static_cast<double>(CountStrokes(open->Stream()));
}

void Zlib(benchmark::State& state, const Page& page, bool tuned)
{
    constexpr int level = 9;
    OpenPage open(page);
    open.Generate();
    Turns turns([] {});
    std::size_t size = 0;
    for ([[maybe_unused]] auto _ : state) {
        size = tuned ? Deflated(open.Stream(), turns).View().size() : Deflate(open.Stream(), level);
        benchmark::DoNotOptimize(size);
    }
    state.counters["stream"] = static_cast<double>(open.Stream().size());
    state.counters["size"] = static_cast<double>(size);
}

/// Reports the run with the least processor time of several runs of a program.
void ProcessTime(benchmark::State& state, const std::vector<std::string>& words, const fs::path& output, int runs)
{
    for ([[maybe_unused]] auto _ : state) {
        ProcessCost best;
        for (int i = 0; i < runs; ++i) {
            std::error_code notThere;
            fs::remove(output, notThere);
            const ProcessCost cost = Run(words);
            if (i == 0 || cost.processorTime < best.processorTime) {
                best.processorTime = cost.processorTime;
            }
            best.stopped = best.stopped || cost.stopped;
        }
        state.SetIterationTime(best.processorTime);
        state.counters["stopped"] = best.stopped ? 1.0 : 0.0;
    }
    std::error_code notThere;
    if (const std::uintmax_t size = fs::file_size(output, notThere); !notThere) {
        state.counters["file"] = static_cast<double>(size);
    }
}

void OtherWriter(benchmark::State& state, const Page& page, const std::string& program)
{
    const fs::path strokes = ScratchFolder() / "strokes";
    const fs::path output = ScratchFolder() / "other.pdf";
    {
        OpenPage open(page);
        open.Draw();
        WriteStrokes(open.Stream(), open.Width(), open.Height(), strokes);
    }
    ProcessTime(state, {Program(program).string(), strokes.string(), output.string()}, output, 1);
}

/// Measures linealis-cli on a preset, and reports the size of its stream beside that of zlib's best level.
void PresetPage(benchmark::State& state, const Preset& preset)
{
    const fs::path output = ScratchFolder() / "preset.pdf";
    constexpr int runs = 40;
    ProcessTime(state,
                {Program("linealis-cli").string(), "generate", std::string(preset.id), "-o", output.string()},
                output, runs);
    ScreenlessPlatform platform;
    const DrawnPage page = MakeWindow(preset, platform)->DrawPage();
    const std::string_view content = page.content;
    std::size_t best = content.size();
    for (int level = 1; level <= 9; ++level) {
        best = std::min(best, Deflate(content, level));
    }
    Turns turns([] {});
    state.counters["size"] = static_cast<double>(Deflated(content, turns).View().size());
    state.counters["best"] = static_cast<double>(best);
}

/// Measures a table of a thousand pages, on one core.
void PagesOfATable(benchmark::State& state)
{
    const fs::path table = ScratchFolder() / "pages.csv", folder = ScratchFolder() / "pages";
    std::ofstream rows(table);
    rows << "file,EditTopMargin\n";
    for (int i = 0; i < pagesOfTheTable; ++i) {
        rows << i << ".pdf,0." << i << "\n";
    }
    rows.close();
    fs::create_directory(folder);
    ProcessTime(state,
                {Program("linealis-cli").string(), "generate", "squares-5mm", "--table", table.string(),
                 "--output-dir", folder.string(), "-j", "1"},
                {}, 3);
}

/// Returns coordinates of all pages, at most mostOfAPage per page.
std::vector<double> Coordinates()
{
    constexpr std::size_t mostOfAPage = 20'000;
    std::vector<double> coordinates;
    std::vector<Page> pages = DefaultPages();
    for (const Page& page : HeavyPages()) {
        pages.push_back(page);
    }
    for (const Page& page : pages) {
        OpenPage open(page);
        open.Draw();
        const std::vector<double> all = CoordinatesOf(open.Stream());
        const std::size_t step = all.size() / mostOfAPage + 1;
        for (std::size_t i = 0; i < all.size(); i += step) {
            coordinates.push_back(all[i]);
        }
    }
    return coordinates;
}

template <typename Write>
void WriteNumbers(benchmark::State& state, Write write)
{
    static const std::vector<double> numbers = Coordinates();
    std::array<char, longestPlainNumber> text{};
    for ([[maybe_unused]] auto _ : state) {
        for (const double number : numbers) {
            benchmark::DoNotOptimize(write(text.data(), number));
            benchmark::ClobberMemory();
        }
    }
    state.counters["numbers"] = static_cast<double>(numbers.size());
}

/// Measures the call in a drawing loop that gives the user interface a turn.
void OneRound(benchmark::State& state)
{
    constexpr int rounds = 1'000'000;
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        OpenPage open(PageOfDots(1));
        state.ResumeTiming();
        for (int i = 0; i < rounds; ++i) {
            open.Round();
        }
    }
    state.counters["rounds"] = rounds;
}

/// Runs a program that writes its own measurements to a file, one name and value per line.
void FiguresOf(benchmark::State& state, const char* program)
{
    const fs::path file = ScratchFolder() / program;
    for ([[maybe_unused]] auto _ : state) {
        state.SetIterationTime(Run({Program(program).string(), file.string()}).processorTime);
    }
    std::ifstream results(file);
    std::string name;
    double value = 0.0;
    while (results >> name >> value) {
        state.counters[name] = value;
    }
}

double Median(std::vector<double> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

/// Runs two programs alternately, each from its start until its first window is painted: the gallery and an empty
/// window. Uses an X server, because drawing into memory without one says little about what a user waits for. The
/// processes and the server share the machine, so the result is the median of many runs, not the best one.
void DesktopStart(benchmark::State& state)
{
    constexpr const char* screen = "QT_QPA_PLATFORM";
    constexpr int runs = 101;
    const std::string without = std::getenv(screen);
    ::setenv(screen, "xcb", 1);
    for ([[maybe_unused]] auto _ : state) {
        std::map<std::string, std::vector<double>> elapsed;
        std::map<std::string, std::vector<double>> processorTime;
        for (int i = 0; i < runs; ++i) {
            for (const char* const program : {"gallery_start", "empty_window"}) {
                const ProcessCost cost = Run({Program(program).string()});
                elapsed[program].push_back(cost.elapsed);
                processorTime[program].push_back(cost.processorTime);
            }
        }
        for (const auto& [program, times] : elapsed) {
            state.counters[program] = Median(times);
            state.counters[program + "_processor"] = Median(processorTime[program]);
        }
        state.SetIterationTime(Median(elapsed["gallery_start"]));
    }
    ::setenv(screen, without.c_str(), 1);
}

void RegisterInProcess(const Page& page, bool heavy)
{
    const auto add = [&](const std::string& name, auto function, int heavyRepetitions) {
        auto* const measure = benchmark::RegisterBenchmark(name.c_str(), function);
        if (heavy) {
            measure->Iterations(1)->Repetitions(heavyRepetitions);
        } else {
            measure->MinTime(shortestMeasure)->Repetitions(5);
        }
    };
    add(
        wholePage + page.name, [page](benchmark::State& state) { OnOpenPage(state, page, &OpenPage::Generate); },
        7);
    add(
        drawing + page.name, [page](benchmark::State& state) { OnOpenPage(state, page, &OpenPage::Draw); }, 7);
    add(
        tunedZlib + page.name, [page](benchmark::State& state) { Zlib(state, page, true); }, 7);
    add(
        untunedZlib + page.name, [page](benchmark::State& state) { Zlib(state, page, false); }, 3);
}

template <typename Function>
void RegisterProcess(const std::string& name, Function function, int repetitions)
{
    benchmark::RegisterBenchmark(name.c_str(), function)->Iterations(1)->Repetitions(repetitions)->UseManualTime();
}

void RegisterPage(const Page& page, bool heavy)
{
    RegisterInProcess(page, heavy);
    const fs::path output = ScratchFolder() / "process.pdf";
    const int runs = heavy ? 1 : 40;
    RegisterProcess(
        process + page.name,
        [page, output, runs](benchmark::State& state) {
            ProcessTime(state, CommandFor(page, output), output, runs);
        },
        5);
}

void RegisterOthers()
{
    for (const Page& page : ComparedPages()) {
        for (const Writer& writer : otherWriters) {
            if (IsBuilt(writer.program)) {
                const bool slow = writer.name == std::string_view("cairo");
                RegisterProcess(
                    writer.name + ("/" + page.name),
                    [page, writer](benchmark::State& state) { OtherWriter(state, page, writer.program); },
                    slow ? 1 : 5);
            }
        }
    }
}

void RegisterGrowth()
{
    // Each sample draws the same number of dots, on many small pages or on one large page: a short sample is more
    // likely to hit a quiet phase of the machine than a long one.
    constexpr int dotsOfASample = 1'000'000;
    for (const int dots : growingDots) {
        const Page page = PageOfDots(dots);
        benchmark::RegisterBenchmark(
            (growth + std::to_string(dots)).c_str(),
            [page](benchmark::State& state) { OnOpenPage(state, page, &OpenPage::Generate); })
            ->Iterations(std::max(dotsOfASample / dots, 1))
            ->Repetitions(9);
    }
}

void RegisterPresets()
{
    for (const Preset& preset : Presets()) {
        RegisterProcess(
            presetProcess + std::string(preset.id),
            [&preset](benchmark::State& state) { PresetPage(state, preset); }, 1);
    }
    RegisterProcess(tableProcess, PagesOfATable, 1);
}

void RegisterSmallThings()
{
    benchmark::RegisterBenchmark(
        plainNumbers,
        [](benchmark::State& state) {
            WriteNumbers(state, [](char* out, double number) { return WritePlainNumber(out, number); });
        })
        ->MinTime(shortestMeasure)
        ->Repetitions(10);
    benchmark::RegisterBenchmark(
        toChars,
        [](benchmark::State& state) {
            WriteNumbers(state, [](char* out, double number) {
                constexpr int digits = 7;
                return std::to_chars(out, out + longestPlainNumber, number, std::chars_format::general, digits).ptr;
            });
        })
        ->MinTime(shortestMeasure)
        ->Repetitions(10);
    benchmark::RegisterBenchmark(oneRound, OneRound)->MinTime(shortestMeasure)->Repetitions(5);
    constexpr int manyRuns = 100;
    RegisterProcess(
        trueProcess, [](benchmark::State& state) { ProcessTime(state, {"/bin/true"}, {}, manyRuns); }, 10);
}

void RegisterDesktop()
{
    if (IsBuilt("gallery_start") && std::getenv("DISPLAY") != nullptr) {
        RegisterProcess(desktopStart, DesktopStart, 1);
    }
    if (IsBuilt("page_turns")) {
        RegisterProcess(
            pageTurns, [](benchmark::State& state) { FiguresOf(state, "page_turns"); }, 5);
    }
    if (IsBuilt("key_latency") && std::getenv("DISPLAY") != nullptr) {
        RegisterProcess(
            keyLatency, [](benchmark::State& state) { FiguresOf(state, "key_latency"); }, 1);
    }
}

}  // namespace

std::vector<Page> ComparedPages()
{
    std::vector<Page> pages = HeavyPages();
    std::erase_if(pages, [](const Page& page) { return page.kind != "dots" && page.kind != "grid"; });
    return pages;
}

bool Results::ReportContext(const Context& /*context*/)
{
    return true;
}

void Results::ReportRuns(const std::vector<Run>& runs)
{
    for (const Run& run : runs) {
        if (run.run_type != Run::RT_Iteration) {
            continue;
        }
        const std::string& name = run.run_name.function_name;
        const bool byHand = run.run_name.time_type == "manual_time";
        const double total = byHand ? run.real_accumulated_time : run.cpu_accumulated_time;
        const auto note = [](std::map<std::string, double>& least, const std::string& what, double value) {
            const auto [found, added] = least.try_emplace(what, value);
            found->second = std::min(found->second, value);
        };
        note(seconds, name, total / static_cast<double>(run.iterations));
        for (const auto& [counter, value] : run.counters) {
            note(counters[name], counter, value.value);
        }
        if (::isatty(STDERR_FILENO) != 0) {
            std::fprintf(stderr, "\r\033[K%s", name.c_str());
        }
    }
}

double Results::Counter(const std::string& name, const std::string& counter) const
{
    const auto measure = counters.find(name);
    if (measure == counters.end()) {
        return 0.0;
    }
    const auto found = measure->second.find(counter);
    return found == measure->second.end() ? 0.0 : found->second;
}

void MeasureMemory(Results& results)
{
    for (const std::vector<Page>& pages : {DefaultPages(), HeavyPages()}) {
        for (const Page& page : pages) {
            results.peakMemory[page.name] = Run(CommandFor(page, ScratchFolder() / "memory.pdf")).peakMemory;
        }
    }
}

void RegisterMeasures()
{
    for (const Page& page : DefaultPages()) {
        RegisterPage(page, false);
    }
    for (const Page& page : HeavyPages()) {
        RegisterPage(page, true);
    }
    RegisterPresets();
    RegisterOthers();
    RegisterGrowth();
    RegisterSmallThings();
    RegisterDesktop();
}

}  // namespace linealis::bench
