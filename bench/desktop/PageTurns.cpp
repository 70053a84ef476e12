// Measures how responsive the event loop of the desktop program is while it makes a page of a million strokes:
// page_turns RESULTS

#include "Pages.h"
#include "desktop/system/DesktopPlatform.h"
#include "desktop/window/PaperView.h"
#include "kinds/PaperKinds.h"

#include <QApplication>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <ctime>
#include <fstream>
#include <memory>

namespace {

using namespace linealis;

double Elapsed()
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

double ProcessorTime()
{
    constexpr double nanosecond = 1e-9;
    timespec now{};
    ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * nanosecond;
}

/// Counts the turns of the event loop and records the longest time between two of them.
class TurnWatch {
public:
    TurnWatch()
    {
        QObject::connect(&everyTurn, &QTimer::timeout, [this] { Note(); });
    }

    void Start()
    {
        count = 0;
        longestElapsed = 0.0;
        longestProcessorTime = 0.0;
        elapsed = Elapsed();
        processorTime = ProcessorTime();
        everyTurn.start(0);
    }

    void Stop()
    {
        Note();
        everyTurn.stop();
    }

    int count = 0;
    double longestElapsed = 0.0;
    double longestProcessorTime = 0.0;

private:
    void Note()
    {
        const double elapsedNow = Elapsed();
        const double processorTimeNow = ProcessorTime();
        longestElapsed = std::max(longestElapsed, elapsedNow - elapsed);
        longestProcessorTime = std::max(longestProcessorTime, processorTimeNow - processorTime);
        elapsed = elapsedNow;
        processorTime = processorTimeNow;
        ++count;
    }

    QTimer everyTurn;
    double elapsed = 0.0;
    double processorTime = 0.0;
};

/// Makes a PDF file and settings that name it, so that the window does not ask for a file.
FolderItem SettingsWithOutput(const bench::Page& page)
{
    ScreenlessPlatform platform;
    platform.saveAnswer = FolderItem(bench::ScratchFolder() / "turns.pdf");
    const std::unique_ptr<PaperWindow> window = MakeWindow(*FindPaperKind(page.kind), platform);
    window->PushButtonGenerate_Action();
    bench::Apply(page.settings, window->form);
    window->form.CheckBoxViewGraph.SetValue(false);
    FolderItem settings(bench::ScratchFolder() / "turns.settings");
    window->SaveSettings(settings);
    return settings;
}

/// Returns the seconds that one yield takes when the event loop has no turn due.
double CostOfYield(desktop::DesktopPlatform& platform)
{
    constexpr int yields = 4'000'000;
    const bool stop = false;
    double cost = 0.0;
    linealis::Turns turns([&] { platform.Yield(); });
    platform.RunStoppable(stop, [&] {
        const double start = ProcessorTime();
        for (int i = 0; i < yields; ++i) {
            turns.RuntimeBackgroundTask();
        }
        cost = (ProcessorTime() - start) / yields;
    });
    return cost;
}

/// Returns the seconds that a turn of the event loop takes without a waiting event.
double CostOfTurn()
{
    constexpr int turns = 2000;
    const double start = ProcessorTime();
    for (int i = 0; i < turns; ++i) {
        QCoreApplication::processEvents();
    }
    return (ProcessorTime() - start) / turns;
}

}  // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    if (argc != 2) {
        return 2;
    }
    std::ofstream results(argv[1]);
    constexpr int strokes = 1'000'000;
    const bench::Page page = bench::PageOfDots(strokes);
    const FolderItem settings = SettingsWithOutput(page);
    desktop::DesktopPlatform platform;
    const std::unique_ptr<PaperWindow> window = MakeWindow(*FindPaperKind(page.kind), platform);
    window->LoadSettings(settings);
    bench::Apply(page.settings, window->form);  // settings do not store a custom paper size
    window->OutputFile().Delete();
    desktop::PaperView view(platform, *FindPaperKind(page.kind), *window);
    view.show();
    QCoreApplication::processEvents();

    TurnWatch turns;
    // The first run creates a file; the second replaces it, which waits until the disk has it.
    for (const char* const file : {"new", "replaced"}) {
        turns.Start();
        const double start = ProcessorTime();
        view.Generate();
        const double pageTime = ProcessorTime() - start;
        turns.Stop();
        const std::string_view stream = window->Pdf().Stream();
        constexpr std::size_t pieceSize = 50000;
        const double yields = static_cast<double>(bench::CountStrokes(stream)) +
                              static_cast<double>(stream.size() / pieceSize) * linealis::Turns::linesPerYield;
        const double yielding = yields * CostOfYield(platform) + turns.count * CostOfTurn();
        results << file << "_gap " << turns.longestElapsed << '\n'
                << file << "_gap_processor " << turns.longestProcessorTime << '\n'
                << file << "_turns " << turns.count << '\n'
                << file << "_yield_share " << yielding / pageTime << '\n';
    }
    return window->OutputFile().Exists() && results.flush() ? 0 : 1;
}
