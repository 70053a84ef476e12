#pragma once

#include "pipeline/document/Paper.h"

#include <string>

namespace linealis {

/// The form of engineering pad paper: a grid, given in lines per unit and starting at the left and bottom margins.
/// A band at the top has no horizontal lines, and a band at the left has no vertical lines.
struct EngineeringForm final : PaperForm {
    TextField EditHorzSpacing{
        *this,
        Group::Spacing,
        "EditHorzSpacing",
        "horizontal-grid-spacing",
        "Horizontal Grid Spacing:",
        "5",
        {.label = "StaticText25", .meaning = Meaning::LinesPerUnit, .governs = {"grid.vertical"}}};
    Label StaticHorzUnit{*this, Group::Spacing, "StaticHorzUnit", "-", {.beside = true}, {"per inch", "per cm"}};
    TextField EditLineThicknessHorz{*this,
                                    Group::Spacing,
                                    "EditLineThicknessHorz",
                                    "line-weight-of-the-horizontal-lines",
                                    "Line Weight:",
                                    ".3",
                                    {.label = "StaticText1",
                                     .beside = true,
                                     .meaning = Meaning::Weight,
                                     .sets = "horizontal lines",
                                     .governs = {"grid.horizontal"},
                                     .apart = &EditVertiSpacing}};
    TextField EditBlankTop{
        *this,
        Group::Spacing,
        "EditBlankTop",
        "blank-lines-on-top",
        "Blank Lines on Top:",
        "3",
        {.label = "StaticText27", .beside = true, .meaning = Meaning::Count, .governs = {"grid.horizontal"}}};
    TextField EditVertiSpacing{
        *this,
        Group::Spacing,
        "EditVertiSpacing",
        "vertical-grid-spacing",
        "Vertical Grid Spacing:",
        "5",
        {.label = "StaticText26", .meaning = Meaning::LinesPerUnit, .governs = {"grid.horizontal"}}};
    Label StaticvertUnit{*this, Group::Spacing, "StaticvertUnit", "-", {.beside = true}, {"per inch", "per cm"}};
    TextField EditLineThicknessVert{*this,
                                    Group::Spacing,
                                    "EditLineThicknessVert",
                                    "line-weight-of-the-vertical-lines",
                                    "Line Weight:",
                                    ".15",
                                    {.label = "StaticText24",
                                     .beside = true,
                                     .meaning = Meaning::Weight,
                                     .sets = "vertical lines",
                                     .governs = {"grid.vertical"},
                                     .apart = &EditHorzSpacing}};
    TextField EditBlankLeft{
        *this,
        Group::Spacing,
        "EditBlankLeft",
        "blank-lines-on-left",
        "Blank Lines on Left:",
        "5",
        {.label = "StaticText28", .beside = true, .meaning = Meaning::Count, .governs = {"grid.vertical"}}};
    Swatch LineColorCanvas{*this,
                           Group::Lines,
                           "LineColorCanvas",
                           "line-color",
                           "Line Color",
                           black,
                           {.label = "StaticText4", .governs = {"grid"}}};
    Swatch BackgroundColorCanvas{*this,
                                 Group::Lines,
                                 "BackgroundColorCanvas",
                                 "background-color",
                                 "Background Color",
                                 white,
                                 {.label = "StaticText30", .beside = true, .governs = {"background"}}};
    ShiftClickNote note{*this, "StaticText29"};
};

/// The values of a page of engineering paper. Lengths are in points.
struct EngineeringPage {
    PageFrame frame;
    double LineThicknessHorz = 0.0;  ///< of the horizontal lines
    double LineThicknessVert = 0.0;  ///< of the vertical lines
    double columnSpace = 0.0;
    double rowSpace = 0.0;
    double blankTop = 0.0;   ///< the lines left out, whole; negative: the lines added
    double blankLeft = 0.0;  ///< likewise
};

// The functions of the kind that MakePaper and PageOf call.
SettingsTable Settings(EngineeringForm& form);
EngineeringPage Read(const EngineeringForm& form);
void Draw(const EngineeringPage& page, MyPDFGenerator& pdf, Turns& turns);
Message Describe(const EngineeringPage& page);

}  // namespace linealis
