#include "cli/PageOutput.h"

#include "app/PageCheck.h"
#include "cli/Errors.h"
#include "exchange/PngPage.h"
#include "exchange/SvgPage.h"
#include "pdf/Units.h"
#include "platform/Process.h"
#include "platform/ScreenlessPlatform.h"

#include <algorithm>
#include <iostream>

namespace linealis::cli {

namespace {

void LaunchViewer(const FolderItem& file)
{
    const std::string program = "xdg-open", path = file.Path().string();
    if (const std::error_code error = StartProgram(program, path)) {
        throw WorkError{path + ": the page is made, but the viewer could not be started: " + program + ": " +
                        error.message()};
    }
}

/// Of a page that is made, so much content is looked at for warnings: it takes no time. Bytes.
constexpr std::size_t longestChecked = std::size_t{256} << 10U;

/// Without a marker file the window asks for one, and the command line cannot.
PageWarnings WarningsOfMarkers(const PaperForm& form, const FolderItem& file)
{
    const auto* const box = form.Find<CheckBox>("CheckBoxMarkers");
    if (box != nullptr && box->Value() && file.IsEmpty()) {
        return {{"markers", std::string(box->Name()), "There are no markers, since no --markers FILE is given"}};
    }
    return MarkerWarnings(form, file);
}

/// What the form of a source says before its page is made, which may correct it.
struct FormCheck {
    explicit FormCheck(const OpenWindow& open)
        : page(open.window->ReadPage()), warnings(FormWarnings(open.window->form, page))
    {
        warnings.insert(warnings.end(), open.warnings.begin(), open.warnings.end());
    }

    PaperPage page;
    PageWarnings warnings;
};

PageWarnings WarningsOf(const OpenWindow& open, FormCheck check, std::string_view content,
                        const ScreenlessPlatform& platform)
{
    const PaperForm& form = open.window->form;
    const PageWarnings ofMarkers = WarningsOfMarkers(form, platform.openAnswer);
    check.warnings.insert(check.warnings.end(), ofMarkers.begin(), ofMarkers.end());
    return JoinedWarnings(form, std::move(check.warnings), ContentWarnings(check.page.frame, content));
}

void Warn(const std::string& name, const OpenWindow& open, const FormCheck& check, std::string_view content,
          const ScreenlessPlatform& platform)
{
    const bool isShort = content.size() <= longestChecked;
    for (const PageWarning& warning : isShort ? WarningsOf(open, check, content, platform) : check.warnings) {
        Complain("warning: " + name + ": " + warning.text);
    }
}

std::string DrawPage(const std::string& name, PaperWindow& window)
{
    try {
        return window.DrawPage();
    } catch (const PageGivenUp& givenUp) {
        throw WorkError{name + ": " + givenUp.reason};
    }
}

/// The file that a page goes to. Whoever may write to the folder shall not choose another for it.
FolderItem FileOf(const PageJob& job, const OutputOptions& how)
{
    const FolderItem file = OutputFile(job.output);
    return how.refusesLinks ? file.WithoutLinks() : file;
}

/// One page by the road of the Generate button with the shift key held down: a file that the settings brought
/// back is forgotten, and the save dialog answers with the output file.
void GeneratePdf(const PageJob& job, const OutputOptions& how, const std::atomic<bool>& stop)
{
    ScreenlessPlatform platform;
    platform.onYield = [&stop] {
        if (stop) {
            throw PageStopped{};
        }
    };
    platform.shiftKey = true;
    platform.saveAnswer = FileOf(job, how);
    const OpenWindow open = Open(*job.source, job.actions, platform);
    const FormCheck check(open);
    open.window->PushButtonGenerate_Action();
    if (open.window->LastPage() == PageEnd::Stopped) {
        return;
    }
    Say(platform);
    Warn(job.name, open, check, open.window->Pdf().Stream(), platform);
    if (!platform.fileErrors.empty()) {
        throw WorkError{job.output + ": " + platform.fileErrors.front().reason};
    }
    if (how.view) {
        LaunchViewer(platform.saveAnswer);
    }
}

void CheckPixels(const PaperSize& paper, const OutputOptions& how, const std::string& name)
{
    const PixelSize size = PixelsOf(paper, how.dotsPerInch.value_or(defaultDotsPerInch));
    if (size.width > mostPixels || size.height > mostPixels || size.width * size.height > mostPixels) {
        throw UsageError{name + ": a picture of " + std::to_string(size.width) + " by " +
                         std::to_string(size.height) + " pixels is too large; --dpi " +
                         std::to_string(HighestDotsPerInch(paper)) + " would fit"};
    }
}

/// The same content as that of the PDF file, in another format. The picture carries its form.
void GeneratePicture(const PageJob& job, const OutputOptions& how, const std::atomic<bool>& stop)
{
    ScreenlessPlatform platform;
    const auto stopIfAsked = [&stop] {
        if (stop) {
            throw PageStopped{};
        }
    };
    platform.onYield = stopIfAsked;
    const OpenWindow open = Open(*job.source, job.actions, platform);
    const FormCheck check(open);
    const PaperSize paper{check.page.frame.paperWidth, check.page.frame.paperHeight};
    if (job.format == PageFormat::Png) {
        CheckPixels(paper, how, job.name);
    }
    const std::string content = DrawPage(job.name, *open.window);
    Say(platform);
    Warn(job.name, open, check, content, platform);
    const std::string carried = CarriedForm(*open.kind, open.window->form);
    const FolderItem file = FileOf(job, how);
    Turns turns(stopIfAsked);
    BinaryStream stream = file.CreateBinaryFile();
    if (stream.IsOpen()) {
        if (job.format == PageFormat::Png) {
            WritePng(paper, content,
                     {how.dotsPerInch.value_or(defaultDotsPerInch), how.isTransparent, 0.0, carried}, stream,
                     &turns);
        } else {
            WriteSvg(paper, content, carried, stream, &turns);
        }
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

void GeneratePage(const PageJob& job, const OutputOptions& how, const std::atomic<bool>& stop)
{
    const auto generate = job.format == PageFormat::Pdf ? GeneratePdf : GeneratePicture;
    try {
        WorkOn(job.output, [&] { generate(job, how, stop); });
    } catch (const PageStopped&) {  // the program ends
    }
}

bool CheckPage(const PageJob& job, bool asJson, Json& found)
{
    ScreenlessPlatform platform;
    const OpenWindow open = Open(*job.source, job.actions, platform);
    const std::string content = DrawPage(job.name, *open.window);
    Say(platform);
    const PageWarnings warnings = WarningsOf(open, FormCheck(open), content, platform);
    for (const PageWarning& warning : warnings) {
        if (asJson) {
            found.push_back(
                {{"source", job.name}, {"id", warning.id}, {"control", warning.control}, {"text", warning.text}});
        } else {
            std::cout << job.name << ": " << warning.text << '\n';
        }
    }
    return !warnings.empty();
}

void MakeThumbnail(const std::string& settingsFile, const std::string& output, int size)
{
    const Source source{settingsFile};
    ScreenlessPlatform platform;
    const OpenWindow open = Open(source, {}, platform);
    const PageFrame frame = open.window->ReadPage().frame;
    const PaperSize paper{frame.paperWidth, frame.paperHeight};
    const auto longer = static_cast<double>(std::max(paper.width, paper.height));
    BinaryStream stream = OutputFile(output).CreateBinaryFile();
    if (stream.IsOpen()) {
        constexpr double thinnest = 0.5;  // pixels: thinner lines would hardly be seen
        const std::string content = DrawPage(settingsFile, *open.window);
        WritePng(paper, content, {size * pointsPerInch / longer, false, thinnest}, stream);
        stream.Close();
    }
    if (stream.Error()) {
        throw WorkError{output + ": " + stream.Error().message()};
    }
}

}  // namespace linealis::cli
