// What a page costs, as ratios within one run: machines are noisy, ratios are not.

#include "app/PaperKinds.h"
#include "platform/ScreenlessPlatform.h"

#include <benchmark/benchmark.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <zlib.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace {

using namespace linealis;
namespace fs = std::filesystem;

struct Setting {
    const char* control;
    const char* value;
};

struct Page {
    std::string name;
    const char* kind;
    std::vector<Setting> settings;
};

std::vector<Page> Pages()
{
    std::vector<Page> pages;
    for (const PaperKind& kind : PaperKinds()) {
        pages.push_back({std::string(kind.name), kind.name.data(), {}});
    }
    const Setting a0{"PopupPaperSize", "A0"};
    pages.push_back(
        {"grid of 0.01 in on A0", "grid", {a0, {"EditVertSpacing", ".01"}, {"EditHorzSpacing", ".01"}}});
    pages.push_back(
        {"dots of 0.05 in on A0", "dots", {a0, {"EditVertSpacing", ".05"}, {"EditHorzSpacing", ".05"}}});
    return pages;
}

void Apply(const Setting& setting, PaperForm& form)
{
    const Control& control = form[setting.control].control;
    if (control.kind != ControlKind::Popup) {
        form.SetText(control.name, setting.value);
        return;
    }
    for (std::size_t i = 0; i < control.items.size(); ++i) {
        if (control.items[i] == setting.value) {
            form.SetListIndex(control.name, static_cast<std::int64_t>(i));
        }
    }
}

/// A window with the page's form and a file to write it to.
struct OpenPage {
    explicit OpenPage(const Page& page)
    {
        window = FindPaperKind(page.kind)->make(platform);
        for (const Setting& setting : page.settings) {
            Apply(setting, window->form);
        }
        file = fs::temp_directory_path() / ("linealis-bench-" + std::to_string(::getpid()) + ".pdf");
        platform.saveAnswer = FolderItem(file);
    }
    ~OpenPage() { fs::remove(file); }
    OpenPage(const OpenPage&) = delete;
    OpenPage& operator=(const OpenPage&) = delete;

    ScreenlessPlatform platform;
    std::unique_ptr<PaperWindow> window;
    fs::path file;
};

void WholePage(benchmark::State& state, const Page& page)
{
    OpenPage open(page);
    for ([[maybe_unused]] auto _ : state) {
        open.window->PushButtonGenerate_Action();
    }
}

/// zlib at level 9, in one call, over the same content stream.
void ZlibAlone(benchmark::State& state, const Page& page)
{
    OpenPage open(page);
    open.window->PushButtonGenerate_Action();
    const std::string_view stream = open.window->Pdf().Stream();
    std::vector<Bytef> out(compressBound(stream.size()));
    for ([[maybe_unused]] auto _ : state) {
        uLongf size = out.size();
        compress2(out.data(), &size, reinterpret_cast<const Bytef*>(stream.data()), stream.size(), 9);
        benchmark::DoNotOptimize(size);
    }
    state.counters["stream"] = static_cast<double>(stream.size());
}

/// Keeps what a run measured, for the table of ratios.
class Collector : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override
    {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) {
            seconds[run.benchmark_name()] = run.cpu_accumulated_time / static_cast<double>(run.iterations);
            if (const auto counter = run.counters.find("stream"); counter != run.counters.end()) {
                streamSize[run.benchmark_name()] = counter->second.value;
            }
        }
    }

    std::map<std::string, double> seconds;
    std::map<std::string, double> streamSize;
};

/// The most memory that the command line takes for the page, in bytes.
double PeakMemory(const Page& page)
{
    std::vector<std::string> words = {LINEALIS_CLI_PATH, "generate", page.kind, "-o", "/dev/null"};
    for (const Setting& setting : page.settings) {
        words.insert(words.end(), {"--set", std::string(setting.control) + "=" + setting.value});
    }
    std::vector<char*> arguments;
    for (std::string& word : words) {
        arguments.push_back(word.data());
    }
    arguments.push_back(nullptr);
    pid_t process = 0;
    int status = 0;
    struct rusage usage {};
    if (::posix_spawn(&process, arguments[0], nullptr, nullptr, arguments.data(), environ) != 0 ||
        ::wait4(process, &status, 0, &usage) != process || status != 0) {
        std::fprintf(stderr, "the command line failed on %s\n", page.name.c_str());
        std::exit(1);
    }
    constexpr double kibibyte = 1024.0;
    return static_cast<double>(usage.ru_maxrss) * kibibyte;
}

void PrintRatios(const std::vector<Page>& pages, Collector& collected, std::map<std::string, double>& memory)
{
    constexpr double mebibyte = 1024.0 * 1024.0;
    std::printf("\n| page | whole page, ms | zlib level 9 alone, ms | ratio | stream, MiB | peak memory, MiB |\n");
    std::printf("| --- | ---: | ---: | ---: | ---: | ---: |\n");
    for (const Page& page : pages) {
        const double whole = collected.seconds["whole/" + page.name];
        const double zlib = collected.seconds["zlib/" + page.name];
        if (whole == 0.0 || zlib == 0.0) {
            continue;  // filtered out
        }
        std::printf("| %s | %.3f | %.3f | %.2f | %.2f | %.1f |\n", page.name.c_str(), whole * 1e3, zlib * 1e3,
                    whole / zlib, collected.streamSize["zlib/" + page.name] / mebibyte,
                    memory[page.name] / mebibyte);
    }
}

}  // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    const std::vector<Page> pages = Pages();
    // A child's peak counts from what its parent held when it started it: so before this process grows.
    std::map<std::string, double> memory;
    for (const Page& page : pages) {
        memory[page.name] = PeakMemory(page);
    }
    for (const Page& page : pages) {
        benchmark::RegisterBenchmark(("whole/" + page.name).c_str(), WholePage, page)
            ->Unit(benchmark::kMillisecond);
        benchmark::RegisterBenchmark(("zlib/" + page.name).c_str(), ZlibAlone, page)->Unit(benchmark::kMillisecond);
    }
    Collector collected;
    benchmark::RunSpecifiedBenchmarks(&collected);
    PrintRatios(pages, collected, memory);
    return 0;
}
