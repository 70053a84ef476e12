#include "cli/PageOutput.h"

#include "check/PageCheck.h"
#include "cli/Commands.h"
#include "cli/Errors.h"
#include "cli/FileNames.h"
#include "cli/Remarks.h"
#include "exchange/PngPage.h"
#include "kinds/PageSummary.h"
#include "pdf/Units.h"
#include "pipeline/form/FieldWords.h"
#include "platform/Process.h"
#include "platform/ScreenlessPlatform.h"

#include <algorithm>
#include <array>
#include <ctime>
#include <iostream>
#include <utility>

namespace linealis::cli {

namespace {

/// Opens the page in the default viewer of the desktop. Throws WorkError if that cannot be started.
void LaunchViewer(const FolderItem& file)
{
    if (const ProgramStart start = OpenInViewer(file.Path()); start.error) {
        throw WorkError{file.Path().string() + ": the page was made, but the viewer could not be started: " +
                        start.name + ": " + start.error.message()};
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

/// Warns about the paper that the actions choose for a page that has the size of a screen.
void WarnOfPaper(const std::vector<Action>& actions, const PaperForm& form, PageWarnings& warnings)
{
    const std::array<const Control*, 3> paper = {&form.PopupPaperSize, &form.EditCustomWidth,
                                                 &form.EditCustomHeight};
    for (const Control* const control : paper) {
        if (std::any_of(actions.begin(), actions.end(),
                        [&](const Action& action) { return ControlOf(action, form) == control; })) {
            warnings.push_back(
                {"device", std::string(control->Name()),
                 Message("%1 has no effect: the page has the size of the screen; --fit keeps its own",
                         WholeName(form, *control))});
        }
    }
}

/// Opens the form of a job. One for a screen gets the paper of the screen, unless the page is scaled to it.
OpenWindow OpenJob(const PageJob& job, const OutputOptions& how, ScreenlessPlatform& platform)
{
    OpenWindow open = Open(*job.source, job.actions, platform);
    if (how.screen && !how.fitsScreen) {
        WarnOfPaper(job.actions, open.window->form, open.warnings);
        LayOut(*how.screen, open.window->form);
    }
    return open;
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
void Generate(const PageJob& job, const OutputOptions& how, const std::atomic<bool>& stop, Json* answer)
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
    if (answer != nullptr) {
        (*answer)["kind"] = open.kind->name;
        (*answer)["summary"] = PageSummary(*open.kind, read).English();
    }
    const DrawnPage page = DrawPage(job.output, *open.window, std::move(read));
    const Remarks remarks(answer);
    remarks.Say(platform);
    remarks.Warn(job.name, WarningsOfJob(open, page, platform, how.screen.has_value()));
    if (job.format->hasPixels) {
        remarks.WarnOfFonts(job.name, page.content);
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

PageWarnings WarningsOfJob(const OpenWindow& open, const DrawnPage& page, const ScreenlessPlatform& platform,
                           bool isForScreen)
{
    const bool isShort = page.content.View().size() <= longestChecked;
    return AllWarnings(open, isShort ? WarningsOf(page) : page.warnings, platform, isForScreen);
}

void GeneratePage(const PageJob& job, const OutputOptions& how, const std::atomic<bool>& stop, Json* answer)
{
    if (answer != nullptr) {
        *answer = FileJson(job.name, job.output);
        (*answer)["format"] = job.format->name;
    }
    try {
        WorkOn(job.output, [&] { Generate(job, how, stop, answer); });
    } catch (const PageStopped&) {  // the program is about to end
    }
}

bool CheckPage(const PageJob& job, const OutputOptions& how, bool asJson, Json& found)
{
    ScreenlessPlatform platform;
    const OpenWindow open = OpenJob(job, how, platform);
    const DrawnPage page = DrawPage(job.name, *open.window, open.window->ReadPage());
    Remarks().Say(platform);
    const PageWarnings warnings = AllWarnings(open, WarningsOf(page), platform, how.screen.has_value());
    for (const PageWarning& warning : warnings) {
        if (asJson) {
            found.push_back(WarningJson(job.name, warning));
        } else {
            std::cout << Readable(job.name + ": " + warning.text.English()) << '\n';
        }
    }
    return !warnings.empty();
}

void MakeThumbnail(const Source& source, const std::string& output, int size, bool asJson)
{
    CheckIsNoInput(output, InputsOf({source}, {}));
    CheckRoomForAnswer(asJson, output);
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
    if (asJson) {
        Json answer = FileJson(source.name, output);
        answer["kind"] = open.kind->name;
        Print(answer);
    }
}

}  // namespace linealis::cli
