#include "papers/CrossPaper.h"

#include "pipeline/page/PageWords.h"

namespace linealis {

Message CrossForm::WhyIdle(const Control& control) const
{
    return &control == &LinesColorCanvas ? lines.WhyNone() : PaperForm::WhyIdle(control);
}

SettingsTable Settings(CrossForm& form)
{
    using namespace settings;
    return Concatenate({
        Head(form),
        {text(form.EditCrossWeight), text(form.spacing.EditHorzSpacing), text(form.spacing.EditVertSpacing),
         text(form.EditCrossHeight), text(form.EditCrossWidth)},
        Margins(form),
        {box(form.CheckBoxViewGraph), color(form.LineColorCanvas), fileReference(), color(form.LinesColorCanvas),
         box(form.lines.CheckVertLines), box(form.lines.CheckHorzLines), text(form.lines.EditHorzWeight),
         text(form.lines.EditVertWeight), inverseColor(form.BackgroundColorCanvas)},
    });
}

CrossPage Read(const CrossForm& form)
{
    CrossPage page;
    page.frame = form.ReadFrame(form.BackgroundColorCanvas, &form.LineColorCanvas);
    page.cross = {.width = form.EditCrossWidth.Used() * page.frame.unitPixels,
                  .height = form.EditCrossHeight.Used() * page.frame.unitPixels};
    page.grid = FitCells(page.frame, form.spacing, form.lines, page.cross);
    page.crossWeight = form.EditCrossWeight.Used();
    page.crossColor = form.LineColorCanvas.Shown();
    page.linesColor = form.LinesColorCanvas.Shown();
    return page;
}

void Draw(const CrossPage& page, MyPDFGenerator& pdf, Turns& turns)
{
    pdf.SetRGBColor(page.linesColor);
    DrawChosenLines(page.grid, pdf, turns);
    pdf.SetRole("cross");
    pdf.SetLineWidth(page.crossWeight);
    pdf.SetRGBColor(page.crossColor);
    const Mark& cross = page.cross;
    ForEachCrossing(page.grid, turns, [&](double x, double y) {
        pdf.StrokeLine(x - cross.width / 2.0, y, x + cross.width / 2.0, y);
        pdf.StrokeLine(x, y - cross.height / 2.0, x, y + cross.height / 2.0);
    });
}

Message Describe(const CrossPage& page)
{
    return CrossingWords(page.grid, page.frame,
                         {Plural("%1 by %2 cross mark", "%1 by %2 cross marks"), Phrase("no cross marks")});
}

}  // namespace linealis
