#include "papers/EngineeringPaper.h"

#include "pipeline/page/Fitting.h"
#include "pipeline/page/PageWords.h"

namespace linealis {

namespace {

// The number of lines that fit, a whole number, including those that are left out.
double LinesAcross(const EngineeringPage& page)
{
    return static_cast<double>(LinesThatFit(page.frame.UsableWidth(), page.columnSpace));
}

double LinesUp(const EngineeringPage& page)
{
    return static_cast<double>(LinesThatFit(page.frame.UsableHeight(), page.rowSpace));
}

}  // namespace

SettingsTable Settings(EngineeringForm& form)
{
    using namespace settings;
    return Concatenate({
        Head(form),
        {text(form.EditLineThicknessHorz), text(form.EditLineThicknessVert)},
        Margins(form),
        {box(form.CheckBoxViewGraph), text(form.EditHorzSpacing), text(form.EditVertiSpacing),
         text(form.EditBlankTop), text(form.EditBlankLeft), color(form.LineColorCanvas), fileReference(),
         inverseColor(form.BackgroundColorCanvas)},
    });
}

EngineeringPage Read(const EngineeringForm& form)
{
    EngineeringPage page;
    page.frame = form.ReadFrame(form.BackgroundColorCanvas, &form.LineColorCanvas);
    page.LineThicknessHorz = form.EditLineThicknessHorz.Used();
    page.LineThicknessVert = form.EditLineThicknessVert.Used();
    page.columnSpace = page.frame.unitPixels / form.EditHorzSpacing.Used();
    page.rowSpace = page.frame.unitPixels / form.EditVertiSpacing.Used();
    page.blankTop = form.EditBlankTop.Used();
    page.blankLeft = form.EditBlankLeft.Used();
    return page;
}

void Draw(const EngineeringPage& page, MyPDFGenerator& pdf, Turns& turns)
{
    const double left = page.frame.leftMargin;
    const double bottom = page.frame.bottomMargin;
    const double numAcross = LinesAcross(page);
    const double usableWidth = page.columnSpace * (numAcross - 1.0);
    const double numberVertical = LinesUp(page);
    const double usableHeight = page.rowSpace * (numberVertical - 1.0);

    pdf.SetRole("grid.vertical");
    pdf.SetLineWidth(page.LineThicknessVert);
    for (double i = page.blankLeft; i <= numAcross - 1.0; i += 1.0) {
        const double x = i * page.columnSpace + left;
        pdf.StrokeLine(x, bottom, x, bottom + usableHeight);
        turns.RuntimeBackgroundTask();
    }
    pdf.SetRole("grid.horizontal");
    pdf.SetLineWidth(page.LineThicknessHorz);
    for (double i = 0.0; i <= numberVertical - 1.0 - page.blankTop; i += 1.0) {
        const double y = i * page.rowSpace + bottom;
        pdf.StrokeLine(left, y, left + usableWidth, y);
        turns.RuntimeBackgroundTask();
    }
}

Message Describe(const EngineeringPage& page)
{
    return Message(
        "%1 of %2",
        CountWords(LinesAcross(page) - 1.0 - page.blankLeft, LinesUp(page) - 1.0 - page.blankTop, gridCells),
        SizeWords(page.columnSpace, page.rowSpace, page.frame));
}

}  // namespace linealis
