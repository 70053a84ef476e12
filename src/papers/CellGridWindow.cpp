#include "papers/CellGridWindow.h"

#include "pipeline/Fitting.h"

namespace linealis {

void CellGridWindow::ReadOwnValues()
{
    vertSpacing = form.Number("EditVertSpacing") * unitPixels;
    horzSpacing = form.Number("EditHorzSpacing") * unitPixels;
    horzLineWeight = form.Number("EditHorzWeight");
    vertLineWeight = form.Number("EditVertWeight");
}

void CellGridWindow::FitCells(double markWidth, double markHeight)
{
    MeasureUsableArea();
    usableWidth -= markWidth;
    usableHeight -= markHeight;
    const std::int64_t wholeColumns = WholeCells(usableWidth, horzSpacing);
    const std::int64_t wholeRows = WholeCells(usableHeight, vertSpacing);
    leftMargin += CentringShift(usableWidth, wholeColumns, horzSpacing, markWidth);
    bottomMargin += CentringShift(usableHeight, wholeRows, vertSpacing, markHeight);
    columns = static_cast<double>(wholeColumns);
    rows = static_cast<double>(wholeRows);
}

void CellGridWindow::DrawHorizontalLines()
{
    pdf.SetLineWidth(horzLineWeight);
    for (double i = 0.0; i <= rows; i += 1.0) {
        StrokeLine(leftMargin, RowY(i), ColumnX(columns), RowY(i));
        RuntimeBackgroundTask();
    }
}

void CellGridWindow::DrawVerticalLines()
{
    pdf.SetLineWidth(vertLineWeight);
    for (double i = 0.0; i <= columns; i += 1.0) {
        StrokeLine(ColumnX(i), bottomMargin, ColumnX(i), RowY(rows));
        RuntimeBackgroundTask();
    }
}

void CellGridWindow::DrawChosenLines()
{
    if (form.Value("CheckHorzLines")) {
        DrawHorizontalLines();
    }
    if (form.Value("CheckVertLines")) {
        DrawVerticalLines();
    }
}

ControlGroup SpacingControls(std::string_view vertical, std::string_view horizontal, std::vector<Control> more)
{
    const auto spacing = [](std::string_view name, std::string_view caption, std::string_view text) {
        return textField(name, caption, text).Means(Meaning::Spacing).Converted(UnitRule::Length);
    };
    ControlGroup group{Group::Spacing,
                       {spacing("EditVertSpacing", "Vertical Spacing:", vertical).LabelledBy("StaticText1"),
                        spacing("EditHorzSpacing", "Horizontal Spacing:", horizontal).LabelledBy("StaticText24")}};
    group.controls.insert(group.controls.end(), more.begin(), more.end());
    return group;
}

ControlGroup LineControls(bool linesOn, std::vector<Control> swatches)
{
    Control horzWeight = textField("EditHorzWeight", "Line Weight:", ".5")
                             .Means(Meaning::Weight)
                             .LabelledBy("StaticTextVLines")
                             .Beside();
    Control vertWeight = textField("EditVertWeight", "Line Weight:", ".5")
                             .Means(Meaning::Weight)
                             .LabelledBy("StaticTextHLines")
                             .Beside();
    horzWeight.enabled = linesOn;
    vertWeight.enabled = linesOn;
    ControlGroup group{Group::Lines,
                       {checkBox("CheckVertLines", "Vertical Lines", linesOn), horzWeight,
                        checkBox("CheckHorzLines", "Horizontal Lines", linesOn), vertWeight}};
    group.controls.insert(group.controls.end(), swatches.begin(), swatches.end());
    return group;
}

void BindLineControls(PaperForm& form)
{
    form.OnChange("CheckVertLines", [&form] {
        form.SetEnabled("StaticTextVLines", form.Value("CheckVertLines"));
        form.SetEnabled("EditHorzWeight", form.Value("CheckVertLines"));
    });
    form.OnChange("CheckHorzLines", [&form] {
        form.SetEnabled("StaticTextHLines", form.Value("CheckHorzLines"));
        form.SetEnabled("EditVertWeight", form.Value("CheckHorzLines"));
    });
}

}  // namespace linealis
