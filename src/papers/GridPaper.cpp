#include "papers/GridPaper.h"

#include "pipeline/page/PageWords.h"

namespace linealis {

Message GridForm::WhyIdle(const Control& control) const
{
    return &control == &LinesColorCanvas ? lines.WhyNone() : PaperForm::WhyIdle(control);
}

SettingsTable Settings(GridForm& form)
{
    using namespace settings;
    return Concatenate({
        Head(form),
        {text(form.spacing.EditHorzSpacing), text(form.spacing.EditVertSpacing)},
        Margins(form),
        {box(form.CheckBoxViewGraph), fileReference(), color(form.LinesColorCanvas), box(form.lines.CheckVertLines),
         box(form.lines.CheckHorzLines), text(form.lines.EditHorzWeight), text(form.lines.EditVertWeight),
         inverseColor(form.BackgroundColorCanvas)},
    });
}

GridPage Read(const GridForm& form)
{
    const PageFrame frame = form.ReadFrame(form.BackgroundColorCanvas, nullptr);
    return {frame, FitCells(frame, form.spacing, form.lines), form.LinesColorCanvas.Shown()};
}

void Draw(const GridPage& page, MyPDFGenerator& pdf, Turns& turns)
{
    pdf.SetRGBColor(page.linesColor);
    DrawChosenLines(page.grid, pdf, turns);
}

Message Describe(const GridPage& page)
{
    return CellWords(page.grid, page.frame, gridCells);
}

}  // namespace linealis
