#include "pipeline/PaperWindow.h"

#include "pdf/Numbers.h"

#include <algorithm>
#include <array>
#include <new>
#include <utility>

namespace linealis {

namespace {

constexpr double pointsPerInch = 72.0;
constexpr double pointsPerCm = 28.346457;
constexpr double pointsPerCmOfCustomSize = 28.3464567;  // a custom size has its own, longer constant
constexpr double cmPerInch = 2.54;

constexpr std::int64_t smallestPage = 10;  // points

/// Even a page of the largest size, all of the shortest strokes, takes fewer rounds than this.
constexpr std::int64_t mostRounds = std::int64_t{1} << 28U;

using Pdf = MyPDFGenerator;

struct PaperSize {
    std::int64_t width;
    std::int64_t height;
};

/// By the list index of PopupPaperSize; the item behind these is Custom.
constexpr std::array<PaperSize, 12> paperSizes = {{
    {Pdf::letterWidth, Pdf::letterHeight},
    {Pdf::legalWidth, Pdf::legalHeight},
    {Pdf::ledgerWidth, Pdf::ledgerHeight},
    {Pdf::A0Width, Pdf::A0Height},
    {Pdf::A1Width, Pdf::A1Height},
    {Pdf::A2Width, Pdf::A2Height},
    {Pdf::A3Width, Pdf::A3Height},
    {Pdf::A4Width, Pdf::A4Height},
    {Pdf::A5Width, Pdf::A5Height},
    {Pdf::A6Width, Pdf::A6Height},
    {Pdf::B5Width, Pdf::B5Height},
    {Pdf::p11x17width, Pdf::p11x17height},
}};

bool IsCustom(const PaperForm& form)
{
    return static_cast<std::size_t>(form.ListIndex("PopupPaperSize")) >= paperSizes.size();
}

bool InInches(const PaperForm& form)
{
    return form.ListIndex("PopupUnits") == 0;
}

}  // namespace

PaperWindow::PaperWindow(Platform& thePlatform, const ControlTable& ownControls, const SettingsTable& fields,
                         const FileType& typeOfSettings, const MarginTexts& margins)
    : form(WithCommonControls(ownControls, margins)), platform(thePlatform), pdf(thePlatform),
      settingsTable(fields), settingsType(typeOfSettings)
{
    form.OnChange("PopupPaperSize", [this] { PopupPaperSize_Change(); });
    form.OnChange("PopupUnits", [this] { PopupUnits_Change(); });
}

void PaperWindow::Event_Open()
{
    form.SetColor("BackgroundColorCanvas", white);
    // There and back, so that the handlers run and every field shows what they write.
    form.SetListIndex("PopupPaperSize", 1);
    form.SetListIndex("PopupPaperSize", 0);
    form.SetListIndex("PopupUnits", 1);
    form.SetListIndex("PopupUnits", 0);
    pdf.Delete();
}

void PaperWindow::GetPaperSize()
{
    if (!IsCustom(form)) {
        const PaperSize size = paperSizes[static_cast<std::size_t>(form.ListIndex("PopupPaperSize"))];
        paperWidth = size.width;
        paperHeight = size.height;
        return;
    }
    const double factor = InInches(form) ? pointsPerInch : pointsPerCmOfCustomSize;
    paperWidth = truncated(form.Number("EditCustomWidth") * factor);
    paperHeight = truncated(form.Number("EditCustomHeight") * factor);
}

void PaperWindow::SetPaperSize()
{
    const auto inUnits = [&](std::int64_t points) {
        const auto size = static_cast<double>(points);
        return mystring(InInches(form) ? size / pointsPerInch : size * cmPerInch / pointsPerInch);
    };
    form.SetText("EditCustomHeight", inUnits(paperHeight));
    form.SetText("EditCustomWidth", inUnits(paperWidth));
}

void PaperWindow::PopupPaperSize_Change()
{
    GetPaperSize();
    const bool custom = IsCustom(form);
    for (const char* const name : {"EditCustomHeight", "EditCustomWidth", "StaticBy"}) {
        form.SetEnabled(name, custom);
    }
    if (!custom) {
        SetPaperSize();
    }
}

void PaperWindow::PopupUnits_Change()
{
    const bool toInches = InInches(form);
    for (const PaperForm::State& state : form.Controls()) {
        const Control& control = state.control;
        if (!control.captionInInches.empty()) {
            form.SetCaption(control.name, toInches ? control.captionInInches : control.captionInCm);
        }
        if (control.unitRule != UnitRule::Keep) {
            const bool divided = toInches == (control.unitRule == UnitRule::Length);
            const double number = Val(state.text);
            form.SetText(control.name, Str(divided ? number / cmPerInch : number * cmPerInch));
        }
    }
    // A custom size is read under the new unit, so its numbers stay and mean something else.
    GetPaperSize();
    SetPaperSize();
}

void PaperWindow::ReadGUIValues()
{
    unitPixels = InInches(form) ? pointsPerInch : pointsPerCm;
    leftMargin = form.Number("EditLeftMargin") * unitPixels;
    rightMargin = form.Number("EditRightMargin") * unitPixels;
    topMargin = form.Number("EditTopMargin") * unitPixels;
    bottomMargin = form.Number("EditBottomMargin") * unitPixels;
    ReadOwnValues();
    GetPaperSize();
    if (form.ListIndex("PopupOrientation") == 1) {
        std::swap(paperWidth, paperHeight);
    }
}

void PaperWindow::PushButtonGenerate_Action()
{
    if (platform.ShiftKey()) {
        SetOutputFile({});
        pdf.theFile = {};
    }
    pageStopped = false;
    ReadGUIValues();
    DoFilename();
    if (form.Value("CheckBoxViewGraph") && !pdf.theFile.IsEmpty() && !pageStopped) {
        platform.Launch(pdf.theFile);
    }
}

void PaperWindow::DoFilename()
{
    if (outputFile.IsEmpty()) {
        outputFile = platform.GetSaveFolderItem(pdfFileType, "Untitled.pdf");
    }
    if (outputFile.IsEmpty()) {
        return;
    }
    SetOutputFile(outputFile);
    pdf.theFile = outputFile;
    DoPage();
}

void PaperWindow::SetOutputFile(const FolderItem& file)
{
    outputFile = file;
    form.SetCaption("StaticFileName", file.IsEmpty() ? "" : file.Name());
}

void PaperWindow::DoPage()
{
    rounds = 0;
    pageStopped = false;
    paperHeight = std::max(paperHeight, smallestPage);
    paperWidth = std::max(paperWidth, smallestPage);
    try {
        DrawPage();
    } catch (const PageStopped&) {
        pageStopped = true;
        pdf.Discard();
    } catch (const PageTooLarge&) {
        GiveUpPage("the page would hold more than 1 GiB of drawing, so it was given up");
    } catch (const std::bad_alloc&) {
        GiveUpPage("there is not enough memory for the page, so it was given up");
    }
}

void PaperWindow::DrawPage()
{
    if (pdf.CreateNew() < 0) {
        return;
    }
    pdf.SetParameter("compatibility", "1.4");
    pdf.SetInfo("Creator", "Linealis");
    pdf.SetInfo("Author", "Tallowmere Works");
    pdf.SetInfo("Title", "Graph Paper");
    pdf.SetInfo("Subject", "Width: " + mystring(paperWidth) + "  Height: " + mystring(paperHeight));
    pdf.BeginPage(paperWidth, paperHeight);
    pdf.InitGraphics();
    pdf.Scale(form.Number("EditXScale") / 100.0, form.Number("EditYScale") / 100.0);
    const Color background = form.ColorOf("BackgroundColorCanvas");
    pdf.SetBackgroundColor(background.red / 255.0, background.green / 255.0, background.blue / 255.0);
    if (form.Has("LineColorCanvas")) {  // the kinds without it set their colours themselves
        pdf.SetRGBColor(form.ColorOf("LineColorCanvas"));
    }
    DoGraph();
    pdf.EndPage();
    pdf.CloseFile();
    pdf.Delete();
}

void PaperWindow::GiveUpPage(const std::string& reason)
{
    pdf.Discard();
    platform.ShowFileError(pdf.theFile,
                           "Unable to make the file " + pdf.theFile.Name() + ": " + reason +
                               ". Nothing was written. Larger spacings or a smaller paper make a smaller page.",
                           reason);
}

void PaperWindow::RuntimeBackgroundTask()
{
    if (++rounds > mostRounds) {
        throw PageTooLarge();
    }
    platform.RuntimeBackgroundTask();
}

void PaperWindow::MeasureUsableArea()
{
    usableWidth = static_cast<double>(paperWidth) - leftMargin - rightMargin;
    usableHeight = static_cast<double>(paperHeight) - topMargin - bottomMargin;
}

void PaperWindow::StrokeLine(double x1, double y1, double x2, double y2)
{
    pdf.MoveTo(x1, y1);
    pdf.LineTo(x2, y2);
    pdf.Stroke();
}

void PaperWindow::ColorCanvas_MouseDown(std::string_view canvas)
{
    Color color = form.ColorOf(canvas);
    if (platform.SelectColor(color, "Select a Color")) {
        form.SetColor(canvas, color);
    }
}

}  // namespace linealis
