#include "cli/PageOutput.h"

#include "check/PageCheck.h"
#include "cli/Errors.h"
#include "cli/FileNames.h"
#include "exchange/FontCheck.h"
#include "exchange/PngPage.h"
#include "pdf/Units.h"
#include "platform/Process.h"
#include "platform/ScreenlessPlatform.h"

#include <algorithm>
#include <ctime>
#include <iostream>
#include <mutex>
#include <set>
#include <utility>

namespace linealis::cli {

namespace {

/// Opens the page in the default viewer of the desktop. Throws WorkError if that cannot be started.
void LaunchViewer(const FolderItem& file)
{
    const std::string program = "xdg-open", path = file.Path().string();
    if (const std::error_code error = StartProgram(program, path)) {
        throw WorkError{path + ": the page was made, but the viewer could not be started: " + program + ": " +
                        error.message()};
    }
}

/// Content up to this many bytes is checked for warnings while a page is made. Takes no noticeable time.
constexpr std::size_t longestChecked = std::size_t{256} << 10U;

/// Returns the warnings about the marker file. If markers are on, a window asks for a missing file; the command
/// line cannot ask and warns instead.
PageWarnings WarningsOfMarkers(const PaperForm& form, const FolderItem& file)
{
    const auto* const box = form.Find<CheckBox>("CheckBoxMarkers");
    if (box != nullptr && box->Value() && file.IsEmpty()) {
        return {{"markers", std::string(box->Name()), Message("No markers are drawn: there is no --markers FILE")}};
    }
    return MarkerWarnings(form, file);
}

/// Returns the warnings of the page, of the actions, and about the marker file.
PageWarnings AllWarnings(const OpenWindow& open, const PageWarnings& ofPage, const ScreenlessPlatform& platform,
                         bool isForScreen)
{
    PageWarnings all = ofPage;
    for (const PageWarnings& more : {open.warnings, WarningsOfMarkers(open.window->form, platform.openAnswer)}) {
        all.insert(all.end(), more.begin(), more.end());
    }
    if (isForScreen) {
        // A picture shows a thin line as a faint one, and its size is that of the screen.
        std::erase_if(
            all, [](const PageWarning& warning) { return warning.id == "thin" || warning.id == "custom-size"; });
    }
    return all;
}

/// Opens the form of a job. One for a screen gets the paper of the screen, unless the page is scaled to it.
OpenWindow OpenJob(const PageJob& job, const OutputOptions& how, ScreenlessPlatform& platform)
{
    OpenWindow open = Open(*job.source, job.actions, platform);
    if (how.screen && !how.fitsScreen) {
        LayOut(*how.screen, open.window->form);
    }
    return open;
}

/// Warns about fonts that this machine replaces, each of them once per run, however many pages use it. Thread-safe.
void WarnOfFonts(std::string_view content)
{
    static std::mutex mutex;
    static std::set<std::string> said;
    const std::lock_guard lock(mutex);
    for (const PageWarning& warning : FontWarnings(content)) {
        if (const std::string text = warning.text.English(); said.insert(text).second) {
            Complain("warning: " + text);
        }
    }
}

/// Draws the page. Throws WorkError if it is abandoned.
DrawnPage DrawPage(const std::string& name, PaperWindow& window, PaperPage page)
{
    try {
        return window.DrawPage(std::move(page));
    } catch (const PageGivenUp& givenUp) {
        throw WorkError{name + ": " + std::string(givenUp.reason.Text())};
    }
}

/// Returns the file of a page, which refuses links if the options say so.
FolderItem FileOf(const PageJob& job, const OutputOptions& how)
{
    const FolderItem file = OutputFile(job.output);
    return how.refusesLinks ? file.WithoutLinks() : file;
}

/// Throws UsageError if the picture would have more than mostPixels.
void CheckPixels(const PaperSize& paper, double dotsPerInch, const std::string& name)
{
    const PixelSize size = PixelsOf(paper, dotsPerInch);
    if (IsTooLarge(size)) {
        throw UsageError{name + ": a picture of " + std::to_string(size.width) + " by " +
                         std::to_string(size.height) + " pixels is too large; --dpi " +
                         std::to_string(HighestDotsPerInch(paper)) + " would fit"};
    }
}

WriteOptions OptionsOf(const OutputOptions& how, const OpenWindow& open, const PageFormat& format)
{
    WriteOptions options;
    options.now = ScreenlessPlatform().Now();
    options.carried = format.carriesForm ? CarriedForm(*open.kind, open.window->form) : "";
    options.dotsPerInch = how.dotsPerInch.value_or(options.dotsPerInch);
    options.isTransparent = how.isTransparent;
    options.screen = how.screen;
    options.fitsScreen = how.fitsScreen;
    return options;
}

/// Makes one page. Drawing and writing call `stopIfAsked` from time to time, which throws PageStopped once `stop`
/// is true. The picture size is checked before the page is drawn, and the file is created only after that, so a
/// failure leaves an existing file alone.
void Generate(const PageJob& job, const OutputOptions& how, const std::atomic<bool>& stop)
{
    ScreenlessPlatform platform;
    const auto stopIfAsked = [&stop] {
        if (stop) {
            throw PageStopped{};
        }
    };
    platform.onYield = stopIfAsked;
    const OpenWindow open = OpenJob(job, how, platform);
    PaperPage read = open.window->ReadPage();
    const WriteOptions options = OptionsOf(how, open, *job.format);
    if (job.format->hasPixels && !how.screen) {
        CheckPixels({read.frame.paperWidth, read.frame.paperHeight}, options.dotsPerInch, job.name);
    }
    const DrawnPage page = DrawPage(job.output, *open.window, std::move(read));
    Say(platform);
    Warn(job.name, open, page, platform, how.screen.has_value());
    if (job.format->hasPixels) {
        WarnOfFonts(page.content);
    }
    const FolderItem file = FileOf(job, how);
    Turns turns(stopIfAsked);
    BinaryStream stream = file.CreateBinaryFile();
    if (stream.IsOpen()) {
        job.format->write(page, options, stream, turns);
        stream.Close();
    }
    if (stream.Error()) {
        throw WorkError{job.output + ": " + stream.Error().message()};
    }
    if (how.view) {
        LaunchViewer(file);
    }
}

}  // namespace

void Say(const ScreenlessPlatform& platform)
{
    for (const std::vector<std::string>* const said : {&platform.messages, &platform.notes}) {
        std::for_each(said->begin(), said->end(), Complain);
    }
}

void Warn(const std::string& name, const OpenWindow& open, const DrawnPage& page,
          const ScreenlessPlatform& platform, bool isForScreen)
{
    const bool isShort = page.content.View().size() <= longestChecked;
    for (const PageWarning& warning :
         AllWarnings(open, isShort ? WarningsOf(page) : page.warnings, platform, isForScreen)) {
        Complain("warning: " + name + ": " + warning.text.English());
    }
}

void GeneratePage(const PageJob& job, const OutputOptions& how, const std::atomic<bool>& stop)
{
    try {
        WorkOn(job.output, [&] { Generate(job, how, stop); });
    } catch (const PageStopped&) {  // the program is about to end
    }
}

bool CheckPage(const PageJob& job, const OutputOptions& how, bool asJson, Json& found)
{
    ScreenlessPlatform platform;
    const OpenWindow open = OpenJob(job, how, platform);
    const DrawnPage page = DrawPage(job.name, *open.window, open.window->ReadPage());
    Say(platform);
    const PageWarnings warnings = AllWarnings(open, WarningsOf(page), platform, how.screen.has_value());
    for (const PageWarning& warning : warnings) {
        if (asJson) {
            found.push_back({{"source", job.name},
                             {"id", warning.id},
                             {"control", warning.control},
                             {"text", warning.text.English()}});
        } else {
            std::cout << Readable(job.name + ": " + warning.text.English()) << '\n';
        }
    }
    return !warnings.empty();
}

void MakeThumbnail(const Source& source, const std::string& output, int size)
{
    CheckIsNoInput(output, InputsOf({source}, {}));
    ScreenlessPlatform platform;
    const OpenWindow open = Open(source, {}, platform);
    PaperPage read = open.window->ReadPage();
    const PaperSize paper{read.frame.paperWidth, read.frame.paperHeight};
    const auto longer = static_cast<double>(std::max(paper.width, paper.height));
    BinaryStream stream = OutputFile(output).CreateBinaryFile();
    if (stream.IsOpen()) {
        constexpr double thinnest = 0.5;  // pixels: thinner lines would hardly be visible
        // File managers make many thumbnails at once. Of a heavy page, show what is painted within the limits.
        constexpr std::int64_t mostContent = std::int64_t{8} << 20U;
        constexpr std::clock_t longest = CLOCKS_PER_SEC * 3 / 4;
        const std::clock_t end = std::clock() + longest;
        Turns turns([end] {
            if (std::clock() >= end) {
                throw PageStopped{};
            }
        });
        const DrawnPage page = DrawBeginning(std::move(read), turns, mostContent);
        WritePng(paper, page.content, {size * pointsPerInch / longer, false, thinnest, {}, end}, stream);
        stream.Close();
    }
    if (stream.Error()) {
        throw WorkError{output + ": " + stream.Error().message()};
    }
}

}  // namespace linealis::cli
