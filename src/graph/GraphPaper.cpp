#include "graph/GraphPaper.h"

#include "graph/EasyGraphWizard.h"
#include "pipeline/form/FieldWords.h"
#include "text/Numbers.h"

#include <cmath>

namespace linealis {

SettingsTable Settings(GraphForm& form)
{
    using namespace settings;
    const auto gridRow = [](GridRow& row) -> SettingsTable {
        return {text(row.lineSpacing), text(row.lineThickness), text(row.major), text(row.majorWeight),
                index(row.type)};
    };
    const auto axisRow = [](AxisRow& row) -> SettingsTable {
        return {text(row.minimum), text(row.step), text(row.spacing), text(row.weight), text(row.textSize)};
    };
    const auto titlePlace = [](AxisTitleRow& row) -> SettingsTable {
        return {text(row.textSize), text(row.titleX), text(row.titleY)};
    };
    return Concatenate({
        {version(), text(form.EditTitle), text(form.EditTitleX), text(form.EditTitleY), text(form.EditTitleSize),
         index(form.PopupOrientation), index(form.PopupPaperSize), fixed("0"), fixed("0"), index(form.PopupUnits),
         text(form.EditXScale), text(form.EditYScale)},
        gridRow(form.xGrid),
        gridRow(form.yGrid),
        axisRow(form.xAxis),
        axisRow(form.yAxis),
        Margins(form),
        {box(form.CheckBoxShowAxes), box(form.CheckBoxViewGraph), box(form.CheckBoxMarkers),
         color(form.LineColorCanvas), color(form.MajorLineColorCanvas), fileReference(), text(form.xTitle.title),
         text(form.yTitle.title), index(form.PopupFont1)},
        titlePlace(form.xTitle),
        titlePlace(form.yTitle),
        {index(form.xAxis.numberType), index(form.yAxis.numberType), text(form.xGrid.hydraulicExponent),
         text(form.yGrid.hydraulicExponent), text(form.xAxis.maximum), text(form.yAxis.maximum),
         inverseColor(form.BackgroundColorCanvas), boolean(form.xTitle.autoPosition),
         boolean(form.yTitle.autoPosition)},
    });
}

namespace {

GraphAxis ReadAxis(const ConstAxisFields& fields, AxisName name, double unitPixels)
{
    GraphAxis axis;
    axis.name = name;
    axis.type = fields.grid.Type();
    axis.lineSpacing = (1.0 / fields.grid.lineSpacing.Used()) * unitPixels;
    axis.lineThickness = fields.grid.lineThickness.Used();
    axis.majorStep = fields.grid.major.Used();
    axis.majorWeight = fields.grid.majorWeight.Used();
    axis.hydraulicExponent = fields.grid.hydraulicExponent.Used();
    axis.minimum = fields.axis.minimum.Used();
    axis.maximum = fields.axis.maximum.Used();
    axis.step = UsedValue(Meaning::AxisStep, fields.axis.step.Number());
    axis.stepsForward = fields.axis.step.Number() > 0.0;
    axis.numberSpacing = fields.axis.spacing.Used();
    axis.weight = fields.axis.weight.Used();
    axis.textSize = fields.axis.textSize.Used();
    // The numbers of a Y axis are never trigonometric, whatever its popup shows.
    axis.isTrigonometric = name == AxisName::x && fields.axis.numberType.ListIndex() == 1;
    axis.title = fields.title.title.Text();
    axis.titleTextSize = fields.title.textSize.Used();
    axis.titlePlacesItself = fields.title.autoPosition.Value();
    axis.titleX = fields.title.titleX.Used() * unitPixels;
    axis.titleY = fields.title.titleY.Used() * unitPixels;
    return axis;
}

}  // namespace

GraphPage Read(const GraphForm& form)
{
    GraphPage page;
    page.frame = form.ReadFrame(form.BackgroundColorCanvas, &form.LineColorCanvas);
    page.x = ReadAxis(form.X(), AxisName::x, page.frame.unitPixels);
    page.y = ReadAxis(form.Y(), AxisName::y, page.frame.unitPixels);
    page.lineColor = form.LineColorCanvas.Shown();
    page.majorLineColor = form.MajorLineColorCanvas.Shown();
    page.font = form.PopupFont1.ListIndex() + 1;
    page.showsAxes = form.CheckBoxShowAxes.Value();
    page.hasMarkers = form.CheckBoxMarkers.Value();
    page.title = form.EditTitle.Text();
    page.titleSize = form.EditTitleSize.Used();
    page.titleIsCentred = form.EditTitleX.Text().empty();
    page.titleX = form.EditTitleX.Used() * page.frame.unitPixels;
    page.titleY = form.EditTitleY.Used() * page.frame.unitPixels;
    return page;
}

namespace {

/// Warns if no line is at the value 0, or if numbers and major lines do not coincide. Major lines are at multiples
/// of their step from the value 0, numbers at multiples of their spacing from the minimum.
void WarnOfPhase(const GraphForm& form, const ConstAxisFields& fields, PageWarnings& warnings)
{
    const auto warn = [&](const Control& control, const Message& text) {
        warnings.push_back({"phase", std::string(control.Name()), text});
    };
    const double step = fields.axis.step.Used();
    if (fields.grid.Type() != linear || step == 0.0) {
        return;
    }
    const double lines = fields.axis.minimum.Used() / step;  // from the value 0 to the first line
    const double major = fields.grid.major.Used();
    const double numbers = fields.axis.spacing.Used();
    const bool hasBoth = form.CheckBoxShowAxes.Value() && major >= 1.0 && numbers >= 1.0;
    if (std::abs(lines - std::round(lines)) > 1e-6) {
        warn(fields.axis.minimum, Message("%1 is not a whole number of steps from 0, so no line is at 0",
                                          WholeName(form, fields.axis.minimum)));
    } else if (hasBoth && std::fmod(numbers, major) != 0.0 && std::fmod(major, numbers) != 0.0) {
        warn(fields.axis.spacing, Message("%1: numbers at every %2 lines and heavy lines at every %3 do not meet",
                                          WholeName(form, fields.axis.spacing), numbers, major));
    }
}

}  // namespace

PageWarnings Warn(const GraphForm& form, const GraphPage& page)
{
    PageWarnings warnings;
    WarnOfPhase(form, form.X(), warnings);
    WarnOfPhase(form, form.Y(), warnings);
    if (page.x.type == linear) {
        WarnOfInk(form, form.xGrid.lineThickness, page.x.lineSpacing, warnings);
    }
    if (page.y.type == linear) {
        WarnOfInk(form, form.yGrid.lineThickness, page.y.lineSpacing, warnings);
    }
    return warnings;
}

std::unique_ptr<Wizard> MakeWizard(GraphForm& form)
{
    return std::make_unique<EasyGraphWizard>(form);
}

}  // namespace linealis
