#include "api/Sheet.h"

#include "exchange/FontCheck.h"
#include "exchange/FormLink.h"
#include "exchange/PageFormats.h"
#include "exchange/PngPage.h"
#include "graph/RangeText.h"
#include "kinds/PageSummary.h"
#include "kinds/Presets.h"
#include "pipeline/form/FieldWords.h"
#include "pipeline/form/NearestInput.h"
#include "pipeline/form/SetControl.h"

#include <cmath>

using namespace linealis;
using namespace linealis::api;

namespace {

const PaperKind& KindOf(const FormFile& file)
{
    if (file.kind.empty()) {
        throw BadInput("the form has no \"kind\"; possible: " + ColumnOf(TableOfKinds(), "name").front() +
                       " and others");
    }
    if (const PaperKind* const kind = FindPaperKind(file.kind)) {
        return *kind;
    }
    throw UnknownInput{"kind", file.kind, ColumnOf(TableOfKinds(), "name")};
}

/// Reads the settings into a form that nobody sees.
LoadResult TryToLoad(const PaperKind& kind, const Platform& platform, std::string_view settings)
{
    const Paper scratch = kind.makePaper(platform);
    FolderItem ignored;
    return LoadSettings(scratch.settings, ignored, BinaryStream::FromMemory(settings));
}

/// Throws BadInput unless the settings can be of the kind. A file that only ends early can, because those of early
/// versions have fewer fields, unless it is a whole file of another kind. Returns what is missing.
std::string CheckSettings(const PaperKind& kind, const Platform& platform, std::string_view settings)
{
    constexpr std::size_t fieldsOfEveryVersion = 7;
    const LoadResult result = TryToLoad(kind, platform, settings);
    std::string problem = result.Problem().English();
    if (problem.empty()) {
        return problem;
    }
    bool isRefused = result.impossible > 0 || result.goesOn || result.fieldsRead < fieldsOfEveryVersion;
    for (const PaperKind& other : PaperKinds()) {
        if (!isRefused && TryToLoad(other, platform, settings).Problem().IsEmpty()) {
            problem += ", but is a whole file of " + std::string(other.name);
            isRefused = true;
        }
    }
    if (isRefused) {
        throw BadInput("no settings file of " + std::string(kind.name) + ": it " + problem);
    }
    return "the settings file " + problem;
}

}  // namespace

linealis_sheet::linealis_sheet(std::string_view source)
{
    if (IsLink(source)) {
        const FormFile file = ParseLink(source);
        Open(KindOf(file));
        LayOver(file);
    } else if (const Preset* const preset = FindPreset(source)) {
        kind = &linealis::KindOf(*preset);
        window = MakeWindow(*preset, platform);
    } else if (const PaperKind* const named = FindPaperKind(source)) {
        Open(*named);
    } else {
        std::vector<std::string> possible = ColumnOf(TableOfKinds(), "name");
        const std::vector<std::string> presets = ColumnOf(TableOfPresets(), "name");
        possible.insert(possible.end(), presets.begin(), presets.end());
        throw UnknownInput{"kind or preset", std::string(source), std::move(possible)};
    }
}

linealis_sheet::linealis_sheet(const FormFile& file)
{
    Open(::KindOf(file));
    LayOver(file);
}

void linealis_sheet::Open(const PaperKind& theKind)
{
    kind = &theKind;
    window = MakeWindow(theKind, platform);
}

const Control& linealis_sheet::ControlNamed(std::string_view name) const
{
    if (const Control* const control = FindByNameOrAlias(Form(), name)) {
        return *control;
    }
    throw UnknownInput{"control of " + std::string(kind->name), std::string(name),
                       ColumnOf(TableOfControls(Form()), "name")};
}

void linealis_sheet::Set(std::string_view control, std::string_view value)
{
    SetControl(kind->name, Form(), {control, value});
    given.emplace_back(control);
}

void linealis_sheet::Type(std::string_view control, std::string_view text)
{
    TypeIntoControl(kind->name, Form(), {control, text});
}

void linealis_sheet::LayOver(const FormFile& file)
{
    linealis::LayOver(file, *kind, Form());
}

std::string linealis_sheet::Load(std::string_view settings)
{
    std::string note = CheckSettings(*kind, platform, settings);
    window->LayOver(BinaryStream::FromMemory(settings));
    return note;
}

void linealis_sheet::UseMarkers(const char* path)
{
    if (path != nullptr && !kind->hasMarkers) {
        throw BadInput("markers go with graph, not with " + std::string(kind->name));
    }
    const FolderItem file = path == nullptr ? FolderItem() : FolderItem(path);
    if (const MarkerFile markers(file); !markers.Error().IsEmpty()) {
        throw BadInput(markers.Error().English());
    }
    window->ChooseMarkerFile(file);
}

Wizard& linealis_sheet::WizardOrRefuse(Wizard* wizard, const char* what) const
{
    if (wizard == nullptr) {
        throw BadInput(std::string(what) + " goes with graph, not with " + std::string(kind->name));
    }
    return *wizard;
}

void linealis_sheet::TypeIntoWizard(std::string_view field, std::string_view text)
{
    TypeIntoControl("the wizard", WizardOrRefuse(window->GetWizard(), "the wizard").Fields(), {field, text});
}

void linealis_sheet::PressOkOfWizard()
{
    WizardOrRefuse(window->GetWizard(), "the wizard").PushButton1_Action();
}

void linealis_sheet::Fit(const char* xRange, const char* yRange, const char* fineness)
{
    RangeWizard* const wizard = window->GetRangeWizard();
    linealis::Form& fields = WizardOrRefuse(wizard, "a range of data").Fields();
    const std::vector<ControlState> before = fields.State();
    try {
        // What an earlier call has entered must not count again.
        for (const char* const name : {"EditMinX", "EditMaxX", "EditMinY", "EditMaxY"}) {
            fields.Get<TextField>(name).SetText("");
        }
        for (const auto& [axis, range] : {std::pair(AxisName::x, xRange), std::pair(AxisName::y, yRange)}) {
            if (range != nullptr && !TypeRange(fields, axis, range)) {
                throw BadInput(std::string("a range is ") + rangeWords + ", not '" + range + "'");
            }
        }
        SetControl("the range of data", fields, {"fineness", fineness == nullptr ? "medium" : fineness});
        if (const Message problem = wizard->Problem(); !problem.IsEmpty()) {
            throw BadInput(problem.English());
        }
    } catch (...) {
        fields.Restore(before);
        throw;
    }
    wizard->PushButton1_Action();
}

std::string linealis_sheet::Summary() const
{
    return PageSummary(*kind, window->ReadPage()).English();
}

PageWarnings linealis_sheet::Warnings() const
{
    const PaperPage page = window->ReadPage();
    PageWarnings warnings;
    try {
        Turns turns([] {});
        const DrawnPage drawn = DrawPage(page, turns);
        if (drawn.content.View().size() <= longestContentChecked) {
            warnings = WarningsOf(drawn);
            const PageWarnings ofFonts = FontWarnings(drawn.content);
            warnings.insert(warnings.end(), ofFonts.begin(), ofFonts.end());
        } else {
            warnings = page.warnings;
        }
    } catch (const PageGivenUp& givenUp) {
        warnings = page.warnings;
        warnings.push_back({"too-large", "", Message(givenUp.reason)});
    }
    for (const std::string& name : given) {
        WarnIfIdle(Form(), ControlNamed(name), warnings);
    }
    const PageWarnings ofMarkers = MarkerWarnings(Form(), window->ChosenMarkerFile());
    warnings.insert(warnings.end(), ofMarkers.begin(), ofMarkers.end());
    return warnings;
}

DrawnPage linealis_sheet::Draw(const std::vector<CellValue>& row) const
{
    ScreenlessPlatform unseen;
    const auto copy = MakeWindow(*kind, unseen);
    copy->Restore(window->State());
    copy->ChooseMarkerFile(window->ChosenMarkerFile());
    for (const CellValue& cell : row) {
        SetControl(kind->name, copy->form, {cell.control, cell.value});
    }
    Turns turns([] {});
    return DrawPage(copy->ReadPage(), turns);
}

std::string linealis_sheet::Write(std::string_view format, double dotsPerInch, bool isTransparent) const
{
    constexpr double mostDotsPerInch = 9600.0;
    const PageFormat* const found = FindPageFormat(format);
    if (found == nullptr) {
        throw UnknownInput{"format", std::string(format), ColumnOf(TableOfFormats(), "name")};
    }
    if (!(dotsPerInch >= 1.0 && dotsPerInch <= mostDotsPerInch)) {
        throw BadInput("the dots per inch are a number from 1 to 9600");
    }
    PaperPage page = window->ReadPage();
    const PaperSize paper{page.frame.paperWidth, page.frame.paperHeight};
    if (found->hasPixels && IsTooLarge(PixelsOf(paper, dotsPerInch))) {
        throw BadInput("the picture is too large; " + std::to_string(HighestDotsPerInch(paper)) +
                       " dots per inch would fit");
    }
    WriteOptions options;
    options.now = platform.Now();
    options.carried = found->carriesForm ? CarriedForm(*kind, Form()) : "";
    options.dotsPerInch = dotsPerInch;
    options.isTransparent = isTransparent;
    Turns turns([] {});
    return BytesOf(*found, DrawPage(std::move(page), turns), options, turns);
}
