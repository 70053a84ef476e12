#include "graph/GraphForm.h"

#include "pipeline/form/FieldWords.h"
#include "pipeline/page/PageWords.h"
#include "text/Numbers.h"

#include <algorithm>
#include <cmath>

namespace linealis {

namespace {

using Name = std::string_view;

/// Returns the one of two names that belongs to the axis.
Name Of(AxisName axis, Name x, Name y)
{
    return axis == AxisName::x ? x : y;
}

std::vector<std::string_view> AxisTypes(AxisName axis)
{
    std::vector<std::string_view> types = {"Linear",        "Log 1 Decade",  "Log 2 Decades", "Log 3 Decades",
                                           "Log 4 Decades", "Log 5 Decades", "Hydraulic"};
    if (axis == AxisName::y) {
        types.emplace_back("Probability");
    }
    return types;
}

const AxisRoles& RolesOf(AxisName axis)
{
    return axis == AxisName::x ? rolesOfX : rolesOfY;
}

/// Returns the traits of a field in a table. Only the X row has separate labels.
Traits Column(AxisName axis, Meaning meaning, const RoleSet& roles, Name label = {})
{
    return {.label = Of(axis, label, {}), .captionAbove = true, .meaning = meaning, .governs = roles};
}

/// Returns the traits of a line weight in a table.
Traits WeightColumn(AxisName axis, Role role, Name linesOfX, Name linesOfY)
{
    Traits traits = Column(axis, Meaning::Weight, {role});
    traits.sets = Of(axis, linesOfX, linesOfY);
    return traits;
}

/// Returns the traits of a line density ("Lines/in").
Traits Density(AxisName axis)
{
    Traits traits = Column(axis, Meaning::GridDensity, {RolesOf(axis).grid}, "StaticTextLinesPerUnit");
    traits.unitRule = UnitRule::CountPerUnit;
    traits.fullName = Of(axis, "X Grid, lines per unit", "Y Grid, lines per unit");
    return traits;
}

}  // namespace

GridRow::GridRow(PaperForm& form, AxisName axis)
    : caption{form, Group::Spacing, Of(axis, "StaticTextXGrid", "StaticTextYGrid"), Of(axis, "X Grid:", "Y Grid:")},
      type{form,
           Group::Spacing,
           Of(axis, "PopupXAxis", "PopupYAxis"),
           Of(axis, "x-grid", "y-grid"),
           "Axis Type:",
           AxisTypes(axis),
           0,
           {.captionAbove = true, .governs = {RolesOf(axis).grid, RolesOf(axis).numbers}}},
      lineSpacing{form,
                  Group::Spacing,
                  Of(axis, "EditXLineSpacing", "EditYLineSpacing"),
                  Of(axis, "x-grid-lines-per-unit", "y-grid-lines-per-unit"),
                  "Lines/in",
                  "10",
                  Density(axis)},
      lineThickness{form,
                    Group::Spacing,
                    Of(axis, "EditXLineThickness", "EditYLineThickness"),
                    Of(axis, "x-grid-weight", "y-grid-weight"),
                    "Weight",
                    ".1",
                    WeightColumn(axis, RolesOf(axis).minor, "vertical grid lines", "horizontal grid lines")},
      major{form,
            Group::Spacing,
            Of(axis, "EditXMajor", "EditYMajor"),
            Of(axis, "x-grid-major-spacing", "y-grid-major-spacing"),
            "Major Spacing",
            "5",
            Column(axis, Meaning::GridLines, {RolesOf(axis).major})},
      majorWeight{form,
                  Group::Spacing,
                  Of(axis, "EditXMajorWeight", "EditYMajorWeight"),
                  Of(axis, "x-grid-major-weight", "y-grid-major-weight"),
                  "Major Weight",
                  ".7",
                  WeightColumn(axis, RolesOf(axis).major, "major vertical lines", "major horizontal lines")},
      hydraulicExponent{form,
                        Group::Spacing,
                        Of(axis, "EditXHydraulicExponent", "EditYHydraulicExponent"),
                        Of(axis, "x-grid-hydraulic-exponent", "y-grid-hydraulic-exponent"),
                        "Hydraulic\rExponent",
                        "1.85",
                        {.captionAbove = true,
                         .enabled = false,
                         .meaning = Meaning::Exponent,
                         .governs = {RolesOf(axis).grid, RolesOf(axis).numbers}}}
{}

AxisRow::AxisRow(PaperForm& form, AxisName axis)
    : caption{form, Group::Axes, Of(axis, "StaticText10", "StaticText11"), Of(axis, "X Axis:", "Y Axis:")},
      minimum{form,
              Group::Axes,
              Of(axis, "EditXAxisMinimum", "EditYAxisMinimum"),
              Of(axis, "x-axis-minimum", "y-axis-minimum"),
              "Minimum",
              Of(axis, "-35", "-45"),
              Column(axis, Meaning::AxisValue, {RolesOf(axis).numbers, RolesOf(axis).major}, "StaticText13")},
      maximum{form,
              Group::Axes,
              Of(axis, "EditXAxisMaximum", "EditYAxisMaximum"),
              Of(axis, "x-axis-maximum", "y-axis-maximum"),
              "Maximum",
              Of(axis, "35", "45"),
              Column(axis, Meaning::AxisValue, {RolesOf(axis).numbers, RolesOf(axis).grid})},
      step{form,
           Group::Axes,
           Of(axis, "EditXAxisStep", "EditYAxisStep"),
           Of(axis, "x-axis-step", "y-axis-step"),
           "Step",
           "1",
           Column(axis, Meaning::AxisStep, {RolesOf(axis).numbers}, "StaticText14")},
      spacing{form,
              Group::Axes,
              Of(axis, "EditXAxisSpacing", "EditYAxisSpacing"),
              Of(axis, "x-axis-spacing", "y-axis-spacing"),
              "Spacing",
              "5",
              Column(axis, Meaning::NumberSpacing, {RolesOf(axis).numbers}, "StaticText15")},
      weight{form,
             Group::Axes,
             Of(axis, "EditXAxisWeight", "EditYAxisWeight"),
             Of(axis, "x-axis-weight", "y-axis-weight"),
             "Weight",
             "1.5",
             WeightColumn(axis, RolesOf(axis).line, "vertical axis line", "horizontal axis line")},
      textSize{form,
               Group::Axes,
               Of(axis, "EditXAxisTextSize", "EditYAxisTextSize"),
               Of(axis, "x-axis-text-size", "y-axis-text-size"),
               "Text Size",
               "12",
               Column(axis, Meaning::FontSize, {RolesOf(axis).numbers})},
      numberType{form,
                 Group::Axes,
                 Of(axis, "PopupXAxisType", "PopupYAxisType"),
                 Of(axis, "x-axis-numbers", "y-axis-numbers"),
                 "",
                 {"Numeric", "Trigonometric"},
                 0,
                 {.captionAbove = true,
                  .fullName = Of(axis, "X Axis, Numbers", "Y Axis, Numbers"),
                  .governs = {RolesOf(axis).numbers}}}
{}

AxisTitleRow::AxisTitleRow(PaperForm& form, AxisName axis)
    : title{form,
            Group::Text,
            Of(axis, "EditXAxisTitle", "EditYAxisTitle"),
            Of(axis, "x-axis-title", "y-axis-title"),
            "Title:",
            Of(axis, "X-Axis Title", "Y-Axis Title"),
            {.meaning = Meaning::Prose,
             .fullName = Of(axis, "X axis title", "Y axis title"),
             .governs = {RolesOf(axis).title},
             .coversLines = true}},
      autoPosition{form,
                   Group::Text,
                   Of(axis, "CheckAutoPosXAxisText", "CheckAutoPosYAxisText"),
                   Of(axis, "x-axis-title-auto-pos", "y-axis-title-auto-pos"),
                   "Auto Pos",
                   false,
                   {.beside = true, .governs = {RolesOf(axis).title}}},
      textSize{form,
               Group::Text,
               Of(axis, "EditXAxisTitleTextSize", "EditYAxisTitleTextSize"),
               Of(axis, "x-axis-title-text-size", "y-axis-title-text-size"),
               "Text Size",
               "16",
               {.beside = true, .meaning = Meaning::FontSize, .governs = {RolesOf(axis).title}}},
      titleX{form,
             Group::Text,
             Of(axis, "EditXAxisTitleX", "EditYAxisTitleX"),
             Of(axis, "x-axis-title-x", "y-axis-title-x"),
             "X:",
             Of(axis, "2.9", "3.1"),
             {.beside = true,
              .meaning = Meaning::Length,
              .direction = Direction::Horizontal,
              .governs = {RolesOf(axis).title}}},
      titleY{form,
             Group::Text,
             Of(axis, "EditXAxisTitleY", "EditYAxisTitleY"),
             Of(axis, "x-axis-title-y", "y-axis-title-y"),
             "Y:",
             Of(axis, "6.4", "4"),
             {.beside = true,
              .meaning = Meaning::Length,
              .direction = Direction::Vertical,
              .governs = {RolesOf(axis).title}}}
{}

GraphForm::GraphForm() : PaperForm({.top = "1.5", .bottom = "0.5", .left = "0.75", .right = "0.75"})
{
    for (const AxisFields& fields : {X(), Y()}) {
        fields.grid.type.onChange = [this] { EnableAxisFields(); };
        for (TextField* const field : {&fields.axis.maximum, &fields.axis.step}) {
            field->onChange = [this, field] {
                if (focusedControl == field) {
                    RecalcLinesPerInch();
                }
            };
        }
    }
    CheckBoxShowAxes.onClick = [this] { CheckBoxShowAxes_Action(); };
}

void GraphForm::Event_Open(const Platform& /*platform*/)
{
    OpenPaperSize();
}

void GraphForm::BeforeLoad()
{
    BackgroundColorCanvas.SetColor(white);
}

void GraphForm::EnableAxisFields()
{
    for (const AxisFields& fields : {X(), Y()}) {
        const AxisType type = fields.grid.Type();
        for (TextField* const field : {&fields.grid.lineSpacing, &fields.grid.major, &fields.axis.minimum,
                                       &fields.axis.step, &fields.axis.spacing}) {
            field->SetEnabled(!IsLog(type));
        }
        const bool isHydraulic = type == hydraulic;
        fields.grid.hydraulicExponent.SetEnabled(isHydraulic);
        fields.axis.minimum.SetMeaning(isHydraulic ? Meaning::HydraulicStart : Meaning::AxisValue);
        fields.axis.step.SetMeaning(isHydraulic ? Meaning::HydraulicStep : Meaning::AxisStep);
        fields.axis.spacing.SetMeaning(isHydraulic ? Meaning::HydraulicNumber : Meaning::NumberSpacing);
    }
}

void GraphForm::CheckBoxShowAxes_Action()
{
    // Ignores the types of the axes. The next change of a type corrects the fields.
    const bool shown = CheckBoxShowAxes.Value();
    for (const AxisFields& fields : {X(), Y()}) {
        fields.axis.caption.SetEnabled(shown);
        for (TextField* const field : {&fields.axis.minimum, &fields.axis.step, &fields.axis.spacing}) {
            field->SetEnabled(shown);
            if (Label* const heading = field->CaptionLabel()) {
                heading->SetEnabled(shown);
            }
        }
    }
}

void GraphForm::RecalcLinesPerInch()
{
    const PageSetup setup = ReadSetup();
    const auto recalc = [&](const AxisFields& fields, double room) {
        const double step = UsedValue(Meaning::AxisStep, fields.axis.step.Number());
        const double steps = std::ceil((fields.axis.maximum.Number() - fields.axis.minimum.Number()) / step);
        // The extra 0.00001 keeps the last line from being lost to rounding.
        fields.grid.lineSpacing.SetText(Str(steps / (room / setup.unitPixels) * 1.00001));
    };
    recalc(X(), setup.UsableWidth());
    recalc(Y(), setup.UsableHeight());
}

namespace {

/// Returns why a field in the rows of an axis has no effect on the page; empty if it has one, or if it belongs to
/// other rows. `name` is the name of the axis in the text; `shown` is whether the axes are shown.
Message WhyIdleOnAxis(const ConstAxisFields& fields, const Control& control, const Message& name, bool shown)
{
    const AxisType type = fields.grid.Type();
    const auto isOneOf = [&](std::initializer_list<const Control*> group) {
        return std::find(group.begin(), group.end(), &control) != group.end();
    };
    const auto& [grid, axis, title] = fields;
    if (isOneOf({&grid.hydraulicExponent, &axis.maximum}) && type != hydraulic) {
        return Message("%1 is not hydraulic", name);
    }
    if (isOneOf({&grid.major, &axis.minimum, &axis.step, &axis.spacing}) && (IsLog(type) || type == probability)) {
        return IsLog(type) ? Message("%1 is logarithmic", name) : Message("%1 is a probability axis", name);
    }
    if (isOneOf({&grid.lineThickness, &grid.majorWeight}) && type == probability) {
        return Message("%1 is a probability axis", name);
    }
    if (isOneOf({&grid.majorWeight}) && !IsLog(type) && grid.major.Used() <= 0.0) {
        return Message("%1 has no major lines", name);
    }
    const bool numbersFollowAxes = type == linear || IsLog(type);
    const bool isOfNumbers = isOneOf({&axis.spacing, &axis.textSize, &axis.numberType}) && numbersFollowAxes;
    const bool isOfAxis =
        isOneOf({&axis.weight, &title.title, &title.autoPosition, &title.textSize, &title.titleX, &title.titleY});
    if ((isOfNumbers || isOfAxis) && !shown) {
        return Message("Show Axes is off");
    }
    if (isOneOf({&title.titleX, &title.titleY}) && title.autoPosition.Value()) {
        return Message("Auto Pos is on");
    }
    if (isOneOf({&axis.numberType}) && type != linear) {
        return Message("%1 is not linear", name);
    }
    return {};
}

}  // namespace

Message DecadeWords(AxisType type)
{
    return CountWords(static_cast<double>(type), {Plural("%1 decade", "%1 decades"), Phrase("no decades")});
}

Message GraphForm::WhyIdle(const Control& control) const
{
    if (&control == &yAxis.numberType) {
        return Message("the numbers of a Y axis are plain");
    }
    const bool shown = CheckBoxShowAxes.Value();
    for (const Message& why : {WhyIdleOnAxis(X(), control, Message("the X axis"), shown),
                               WhyIdleOnAxis(Y(), control, Message("the Y axis"), shown)}) {
        if (!why.IsEmpty()) {
            return why;
        }
    }
    return PaperForm::WhyIdle(control);
}

}  // namespace linealis
