#include "papers/CornellWindow.h"

#include "papers/Ruling.h"
#include "pipeline/Fitting.h"

namespace linealis {

namespace {

constexpr double headerHeight = 55.0;  // points: two rows of boxes, the gap between them and the gap below
constexpr double headerBoxHeight = 20.0;
constexpr double headerRowPitch = 25.0;
constexpr std::int64_t headerFont = 1;  // Courier
constexpr double captionSize = 8.0;

const ControlTable& OwnControls()
{
    static const ControlTable table = {
        {Group::Spacing,
         {
             label("StaticText29", "Note Taking Area"),
             textField("EditHorzSpacing", "Line Spacing:", "5")
                 .Means(Meaning::LinesPerUnit)
                 .LabelledBy("StaticText25"),
             unitLabel("StaticHorzUnit", "per inch", "per cm").Beside(),
             textField("EditLineThicknessHorz", "Line Weight:", ".2")
                 .Means(Meaning::Weight)
                 .LabelledBy("StaticText1")
                 .Beside(),
             checkBox("CheckGrid", "Grid", false).Beside(),
             textField("EditNoteWidth", "Width:", "70").Means(Meaning::Share).LabelledBy("StaticText27"),
             label("StaticText31", "%").Beside(),
             textField("EditNoteHeight", "Height:", "83").Means(Meaning::Share).LabelledBy("StaticText30").Beside(),
             label("StaticText32", "%").Beside(),
         }},
        {Group::Lines,
         {
             checkBox("CheckCueLeft", "Cue Area on Left", true),
             checkBox("CheckSummaryBottom", "Summary Area on Bottom", true).Beside(),
             textField("EditCueWeight", "Line Weight:", ".5").Means(Meaning::Weight).LabelledBy("StaticText28"),
             swatch("LineColorCanvas", "Line Color").LabelledBy("StaticText4"),
             swatch("BackgroundColorCanvas", "Background Color", white).LabelledBy("StaticText33").Beside(),
         }},
        {Group::Text,
         {
             checkBox("CheckBoxTopicArea", "Topic Area", true),
             textField("EditName", "Name:", "Ned Fallow").Means(Meaning::Prose).LabelledBy("StaticName"),
             textField("EditDate", "Date:", "").Means(Meaning::Prose).LabelledBy("StaticDate").Beside(),
             textField("EditTopic", "Topic:", "English Term paper").Means(Meaning::Prose).LabelledBy("StaticTopic"),
             textField("EditSubject", "Subject:", "Writing")
                 .Means(Meaning::Prose)
                 .LabelledBy("StaticSubject")
                 .Beside(),
             textField("EditTextSize", "Text Size:", "12").Means(Meaning::FontSize).LabelledBy("StaticTextSize"),
         }},
        {Group::File, {shiftClickNote("StaticText26")}},
    };
    return table;
}

const SettingsTable& Settings()
{
    using namespace settings;
    static const SettingsTable table = Concatenate({
        Head(),
        {text("EditLineThicknessHorz")},
        Margins(),
        {boolean("CheckBoxViewGraph"), boolean("CheckBoxTopicArea"), text("EditName"), text("EditDate"),
         text("EditTopic"), text("EditSubject"), text("EditTextSize"), text("EditHorzSpacing"),
         text("EditLineThicknessHorz"),  // for the second time
         boolean("CheckGrid"), text("EditNoteWidth"), text("EditNoteHeight"), boolean("CheckCueLeft"),
         text("EditCueWeight"), boolean("CheckSummaryBottom"), colour("LineColorCanvas"), fileReference(),
         inverseColour("BackgroundColorCanvas")},
    });
    return table;
}

}  // namespace

CornellWindow::CornellWindow(Platform& thePlatform)
    : PaperWindow(thePlatform, OwnControls(), Settings(), settingsType)
{
    form.OnChange("CheckBoxTopicArea", [this] { CheckBoxTopicArea_Action(); });
}

void CornellWindow::Event_Open()
{
    PaperWindow::Event_Open();
    form.SetText("EditDate", platform.ShortDate());
}

void CornellWindow::CheckBoxTopicArea_Action()
{
    for (const char* const name : {"StaticName", "StaticDate", "StaticSubject", "StaticTopic", "StaticTextSize",
                                   "EditName", "EditDate", "EditTopic", "EditSubject", "EditTextSize"}) {
        form.SetEnabled(name, form.Value("CheckBoxTopicArea"));
    }
}

void CornellWindow::ReadOwnValues()
{
    LineThicknessHorz = form.Number("EditLineThicknessHorz");
    LineThicknessCue = form.Number("EditCueWeight");
}

/// A field of per cent as a fraction from 0 to 1. What lies outside is corrected in the form.
double CornellWindow::Share(std::string_view field)
{
    double percent = form.Number(field);
    if (percent < 0.0) {
        percent = 0.0;
        form.SetText(field, "0");
    }
    if (percent > 100.0) {
        percent = 100.0;
        form.SetText(field, "100");
    }
    return percent / 100.0;
}

void CornellWindow::DoGraph()
{
    MeasureUsableArea();
    const double lineSpace = unitPixels / LinesPerUnit(form, "EditHorzSpacing");
    const double noteWidthFraction = Share("EditNoteWidth");
    const double noteHeightFraction = Share("EditNoteHeight");

    Span cue{0.0, (1.0 - noteWidthFraction) * usableWidth};
    Span note{cue.to, usableWidth};
    if (!form.Value("CheckCueLeft")) {
        note = {0.0, noteWidthFraction * usableWidth};
        cue = {note.to, usableWidth};
    }

    pdf.SetLineWidth(LineThicknessCue);
    if (form.Value("CheckBoxTopicArea")) {
        DrawHeader();
        usableHeight -= headerHeight;
    }

    const double summaryHeight = (1.0 - noteHeightFraction) * usableHeight;
    Span boxes{summaryHeight, usableHeight};
    Span summary{0.0, summaryHeight};
    if (!form.Value("CheckSummaryBottom")) {
        boxes = {0.0, usableHeight - summaryHeight};
        summary = {boxes.to, usableHeight};
    }
    DrawArea(cue, boxes);
    DrawArea(note, boxes);
    DrawArea({0.0, usableWidth}, summary);
    DrawRuling(note, boxes, lineSpace);
}

void CornellWindow::DrawHeader()
{
    const double topY = bottomMargin + usableHeight;
    const Span wide{leftMargin, leftMargin + 0.68 * usableWidth};
    const Span narrow{leftMargin + 0.7 * usableWidth, leftMargin + usableWidth};
    DrawHeaderBox(wide, topY, 0.0, "Name", "EditName", 28.0);
    DrawHeaderBox(narrow, topY, 0.0, "Date", "EditDate", 38.0);
    DrawHeaderBox(wide, topY, headerRowPitch, "Topic", "EditTopic", 32.0);
    DrawHeaderBox(narrow, topY, headerRowPitch, "Subject", "EditSubject", 38.0);
}

void CornellWindow::DrawHeaderBox(Span across, double topY, double drop, std::string_view caption,
                                  std::string_view field, double valueOffset)
{
    DrawBox(across.from, topY - (drop + headerBoxHeight), across.to, topY - drop);
    pdf.SetFont(headerFont, captionSize);
    pdf.SetTextPos(across.from + 3.0, topY - (drop + 7.0));
    pdf.Show(caption);
    pdf.SetFont(headerFont, form.Number("EditTextSize"));
    pdf.SetTextPos(across.from + valueOffset, topY - (drop + 15.0));
    pdf.Show(form.Text(field));
}

void CornellWindow::DrawBox(double left, double bottom, double right, double top)
{
    pdf.MoveTo(left, top);
    pdf.LineTo(right, top);
    pdf.LineTo(right, bottom);
    pdf.LineTo(left, bottom);
    pdf.LineTo(left, top + LineThicknessCue / 2.0);  // half a line further, so that the corner closes square
    pdf.Stroke();
}

void CornellWindow::DrawArea(Span across, Span up)
{
    DrawBox(leftMargin + across.from, bottomMargin + up.from, leftMargin + across.to, bottomMargin + up.to);
}

void CornellWindow::DrawRuling(Span across, Span up, double lineSpace)
{
    pdf.SetLineWidth(LineThicknessHorz);
    for (double y = up.from; y <= up.to; y += lineSpace) {
        StrokeLine(leftMargin + across.from, bottomMargin + y, leftMargin + across.to, bottomMargin + y);
        RuntimeBackgroundTask();
        if (!Advances(y, lineSpace)) {
            break;
        }
    }
    if (!form.Value("CheckGrid")) {
        return;
    }
    for (double x = leftMargin + across.from; x <= leftMargin + across.to; x += lineSpace) {
        StrokeLine(x, bottomMargin + up.from, x, bottomMargin + up.to);
        RuntimeBackgroundTask();
        if (!Advances(x, lineSpace)) {
            break;
        }
    }
}

}  // namespace linealis
