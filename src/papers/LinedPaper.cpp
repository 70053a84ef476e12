#include "papers/LinedPaper.h"

#include "pipeline/page/Fitting.h"
#include "pipeline/page/PageWords.h"

namespace linealis {

namespace {

/// Returns the number of lines that fit, a whole number, including those that are left out at the top.
double LinesUp(const LinedPage& page)
{
    return static_cast<double>(LinesThatFit(page.frame.UsableHeight(), page.lineSpace));
}

}  // namespace

SettingsTable Settings(LinedForm& form)
{
    using namespace settings;
    return Concatenate({
        Head(form),
        {text(form.EditLineThicknessHorz), text(form.EditLineThicknessVert)},
        Margins(form),
        {box(form.CheckBoxViewGraph), text(form.EditHorzSpacing), text(form.EditBlankTop), text(form.EditBlankLeft),
         color(form.LineColorCanvas), fileReference(), inverseColor(form.BackgroundColorCanvas),
         boolean(form.CheckBoxDrawVertical)},
    });
}

LinedPage Read(const LinedForm& form)
{
    LinedPage page;
    page.frame = form.ReadFrame(form.BackgroundColorCanvas, &form.LineColorCanvas);
    page.LineThicknessHorz = form.EditLineThicknessHorz.Used();
    page.LineThicknessVert = form.EditLineThicknessVert.Used();
    page.lineSpace = page.frame.unitPixels / form.EditHorzSpacing.Used();
    page.blankTop = form.EditBlankTop.Used();
    // The field is a whole number of units, and the result is truncated to whole points as well.
    page.offset = static_cast<double>(truncated(form.EditBlankLeft.Used() * page.frame.unitPixels));
    page.drawsVertical = form.CheckBoxDrawVertical.Value();
    return page;
}

void Draw(const LinedPage& page, MyPDFGenerator& pdf, Turns& turns)
{
    const double left = page.frame.leftMargin;
    const double bottom = page.frame.bottomMargin;
    const double usableWidth = page.frame.UsableWidth();
    const double numberVertical = LinesUp(page);
    const double usableHeight = page.lineSpace * (numberVertical - 1.0);

    pdf.SetRole("line.ruled");
    pdf.SetLineWidth(page.LineThicknessVert);
    for (double i = 0.0; i <= numberVertical - 1.0 - page.blankTop; i += 1.0) {
        const double y = i * page.lineSpace + bottom;
        pdf.StrokeLine(left, y, left + usableWidth, y);
        turns.RuntimeBackgroundTask();
    }
    if (page.drawsVertical) {
        pdf.SetRole("line.margin");
        pdf.SetLineWidth(page.LineThicknessHorz);
        pdf.StrokeLine(page.offset + left, bottom, page.offset + left, bottom + usableHeight);
    }
}

Message Describe(const LinedPage& page)
{
    return Message("%1, %2 apart", CountWords(LinesUp(page) - page.blankTop, ruledLines),
                   LengthWords(page.lineSpace, page.frame));
}

}  // namespace linealis
