#include "papers/DotsPaper.h"

#include "pipeline/page/PageWords.h"

namespace linealis {

namespace {

constexpr double roundCap = 1.0;

}  // namespace

Message DotsForm::WhyIdle(const Control& control) const
{
    return &control == &LinesColorCanvas ? lines.WhyNone() : PaperForm::WhyIdle(control);
}

SettingsTable Settings(DotsForm& form)
{
    using namespace settings;
    return Concatenate({
        Head(form),
        {text(form.EditDotWeight), text(form.spacing.EditHorzSpacing), text(form.spacing.EditVertSpacing)},
        Margins(form),
        {box(form.CheckBoxViewGraph), color(form.LineColorCanvas), fileReference(), color(form.LinesColorCanvas),
         box(form.lines.CheckVertLines), box(form.lines.CheckHorzLines), text(form.lines.EditHorzWeight),
         text(form.lines.EditVertWeight), inverseColor(form.BackgroundColorCanvas)},
    });
}

DotsPage Read(const DotsForm& form)
{
    DotsPage page;
    page.frame = form.ReadFrame(form.BackgroundColorCanvas, &form.LineColorCanvas);
    page.grid = FitCells(page.frame, form.spacing, form.lines);
    page.dotWeight = form.EditDotWeight.Used();
    page.dotColor = form.LineColorCanvas.Shown();
    page.linesColor = form.LinesColorCanvas.Shown();
    return page;
}

void Draw(const DotsPage& page, MyPDFGenerator& pdf, Turns& turns)
{
    pdf.SetRGBColor(page.linesColor);
    DrawChosenLines(page.grid, pdf, turns);
    pdf.SetRole("dot");
    // A line of length 0 with round caps is painted as a disc with the line width as its diameter.
    pdf.SetLineWidth(page.dotWeight);
    pdf.SetLineCap(roundCap);
    pdf.SetRGBColor(page.dotColor);
    ForEachCrossing(page.grid, turns, [&](double x, double y) { pdf.StrokeLine(x, y, x, y); });
}

Message Describe(const DotsPage& page)
{
    return CrossingWords(page.grid, page.frame, {Plural("%1 by %2 dot", "%1 by %2 dots"), Phrase("no dots")});
}

}  // namespace linealis
