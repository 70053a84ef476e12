#include "papers/CornellPaper.h"

#include "pipeline/page/Fitting.h"
#include "pipeline/page/PageWords.h"

namespace linealis {

namespace {

constexpr double headerHeight = 55.0;  // points: two rows of boxes, the gap between them and the gap below
constexpr double headerBoxHeight = 20.0;
constexpr double headerRowPitch = 25.0;
constexpr std::int64_t headerFont = 1;  // Courier
constexpr double captionSize = 8.0;

/// A range of positions in one direction, in points.
struct Span {
    double from;
    double to;
};

/// Returns the vertical range of the cue and note boxes, from the bottom margin. `usableHeight` is the height below
/// the header.
Span NotesUp(const CornellPage& page, double usableHeight)
{
    const double summaryHeight = (1.0 - page.noteHeightFraction) * usableHeight;
    return page.summaryIsBottom ? Span{summaryHeight, usableHeight} : Span{0.0, usableHeight - summaryHeight};
}

class CornellDrawing {
public:
    CornellDrawing(const CornellPage& thePage, MyPDFGenerator& thePdf, Turns& theTurns)
        : page(thePage), pdf(thePdf), turns(theTurns), usableWidth(thePage.frame.UsableWidth()),
          usableHeight(thePage.frame.UsableHeight())
    {}

    void DoGraph();

private:
    /// Draws the four boxes of the header.
    void DrawHeader();
    /// Draws a box `drop` points below the top of the header, with its caption and the value of its field. The
    /// value is `valueOffset` points from the left edge of the box.
    void DrawHeaderBox(Span across, double drop, std::string_view caption, Role role, const std::string& value,
                       double valueOffset);
    void DrawBox(double left, double bottom, double right, double top);
    /// Draws a box whose position is given from the left and the bottom margin.
    void DrawArea(Role role, Span across, Span up);
    /// Draw the horizontal lines of the note column, and vertical lines at the same distance.
    void DrawRuling(Span across, Span up);
    void DrawColumns(Span across, Span up);

    const CornellPage& page;
    MyPDFGenerator& pdf;
    Turns& turns;
    const double left = page.frame.leftMargin;
    const double bottom = page.frame.bottomMargin;
    double usableWidth;
    double usableHeight;  ///< without the header, once it has been drawn
};

void CornellDrawing::DoGraph()
{
    Span cue{0.0, (1.0 - page.noteWidthFraction) * usableWidth};
    Span note{cue.to, usableWidth};
    if (!page.cueIsLeft) {
        note = {0.0, page.noteWidthFraction * usableWidth};
        cue = {note.to, usableWidth};
    }

    pdf.SetLineWidth(page.LineThicknessCue);
    if (page.hasHeader) {
        DrawHeader();
        usableHeight -= headerHeight;
    }

    const Span boxes = NotesUp(page, usableHeight);
    const Span summary = page.summaryIsBottom ? Span{0.0, boxes.from} : Span{boxes.to, usableHeight};
    DrawArea("box.cue", cue, boxes);
    DrawArea("box.note", note, boxes);
    DrawArea("box.summary", {0.0, usableWidth}, summary);
    DrawRuling(note, boxes);
    if (page.drawsGrid) {
        DrawColumns(note, boxes);
    }
}

void CornellDrawing::DrawHeader()
{
    const Span wide{left, left + 0.68 * usableWidth};
    const Span narrow{left + 0.7 * usableWidth, left + usableWidth};
    DrawHeaderBox(wide, 0.0, "Name", "text.name", page.name, 28.0);
    DrawHeaderBox(narrow, 0.0, "Date", "text.date", page.date, 38.0);
    DrawHeaderBox(wide, headerRowPitch, "Topic", "text.topic", page.topic, 32.0);
    DrawHeaderBox(narrow, headerRowPitch, "Subject", "text.subject", page.subject, 38.0);
}

void CornellDrawing::DrawHeaderBox(Span across, double drop, std::string_view caption, Role role,
                                   const std::string& value, double valueOffset)
{
    const double topY = bottom + usableHeight;
    pdf.SetRole("box.header");
    DrawBox(across.from, topY - (drop + headerBoxHeight), across.to, topY - drop);
    pdf.SetRole("caption");
    pdf.SetFont(headerFont, captionSize);
    pdf.SetTextPos(across.from + 3.0, topY - (drop + 7.0));
    pdf.Show(caption);
    pdf.SetRole(role);
    pdf.SetFont(headerFont, page.textSize);
    pdf.SetTextPos(across.from + valueOffset, topY - (drop + 15.0));
    pdf.Show(value);
}

void CornellDrawing::DrawBox(double boxLeft, double boxBottom, double boxRight, double boxTop)
{
    pdf.MoveTo(boxLeft, boxTop);
    pdf.LineTo(boxRight, boxTop);
    pdf.LineTo(boxRight, boxBottom);
    pdf.LineTo(boxLeft, boxBottom);
    // Half a line width further, so that the corner is square.
    pdf.LineTo(boxLeft, boxTop + page.LineThicknessCue / 2.0);
    pdf.Stroke();
}

void CornellDrawing::DrawArea(Role role, Span across, Span up)
{
    pdf.SetRole(role);
    DrawBox(left + across.from, bottom + up.from, left + across.to, bottom + up.to);
}

void CornellDrawing::DrawRuling(Span across, Span up)
{
    pdf.SetRole("line.ruled");
    pdf.SetLineWidth(page.LineThicknessHorz);
    for (double y = up.from; y <= up.to; y += page.lineSpace) {
        pdf.StrokeLine(left + across.from, bottom + y, left + across.to, bottom + y);
        turns.RuntimeBackgroundTask();
        if (!Advances(y, page.lineSpace)) {
            break;
        }
    }
}

void CornellDrawing::DrawColumns(Span across, Span up)
{
    pdf.SetRole("line.column");
    for (double x = left + across.from; x <= left + across.to; x += page.lineSpace) {
        pdf.StrokeLine(x, bottom + up.from, x, bottom + up.to);
        turns.RuntimeBackgroundTask();
        if (!Advances(x, page.lineSpace)) {
            break;
        }
    }
}

}  // namespace

void CornellForm::Event_Open(const Platform& platform)
{
    PaperForm::Event_Open(platform);
    EditDate.today = [&platform] { return platform.ShortDate(); };
    EditDate.SetText(EditDate.today());
}

SettingsTable Settings(CornellForm& form)
{
    using namespace settings;
    return Concatenate({
        Head(form),
        {text(form.EditLineThicknessHorz)},
        Margins(form),
        {boolean(form.CheckBoxViewGraph), boolean(form.CheckBoxTopicArea), text(form.EditName), text(form.EditDate),
         text(form.EditTopic), text(form.EditSubject), text(form.EditTextSize), text(form.EditHorzSpacing),
         text(form.EditLineThicknessHorz),  // stored a second time
         boolean(form.CheckGrid), text(form.EditNoteWidth), text(form.EditNoteHeight), boolean(form.CheckCueLeft),
         text(form.EditCueWeight), boolean(form.CheckSummaryBottom), color(form.LineColorCanvas), fileReference(),
         inverseColor(form.BackgroundColorCanvas)},
    });
}

CornellPage Read(const CornellForm& form)
{
    CornellPage page;
    page.frame = form.ReadFrame(form.BackgroundColorCanvas, &form.LineColorCanvas);
    page.LineThicknessHorz = form.EditLineThicknessHorz.Used();
    page.LineThicknessCue = form.EditCueWeight.Used();
    page.lineSpace = page.frame.unitPixels / form.EditHorzSpacing.Used();
    page.noteWidthFraction = form.EditNoteWidth.Used() / 100.0;
    page.noteHeightFraction = form.EditNoteHeight.Used() / 100.0;
    page.drawsGrid = form.CheckGrid.Value();
    page.cueIsLeft = form.CheckCueLeft.Value();
    page.summaryIsBottom = form.CheckSummaryBottom.Value();
    page.hasHeader = form.CheckBoxTopicArea.Value();
    page.textSize = form.EditTextSize.Used();
    page.name = form.EditName.Text();
    page.date = form.EditDate.Text();
    page.topic = form.EditTopic.Text();
    page.subject = form.EditSubject.Text();
    return page;
}

void Draw(const CornellPage& page, MyPDFGenerator& pdf, Turns& turns)
{
    CornellDrawing(page, pdf, turns).DoGraph();
}

Message Describe(const CornellPage& page)
{
    const double height = page.frame.UsableHeight();
    const Span notes = NotesUp(page, page.hasHeader ? height - headerHeight : height);
    return Message("%1 for notes, %2 apart",
                   CountWords(Positions(notes.from, notes.to, page.lineSpace), ruledLines),
                   LengthWords(page.lineSpace, page.frame));
}

}  // namespace linealis
