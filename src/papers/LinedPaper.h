#pragma once

#include "pipeline/document/Paper.h"

#include <string>

namespace linealis {

/// The form of lined paper: horizontal lines from the bottom margin upward, and a vertical rule.
struct LinedForm final : PaperForm {
    TextField EditHorzSpacing{
        *this,
        Group::Spacing,
        "EditHorzSpacing",
        "line-spacing",
        "Line Spacing:",
        "5",
        {.label = "StaticText25", .meaning = Meaning::LinesPerUnit, .governs = {"line.ruled"}}};
    Label StaticHorzUnit{*this, Group::Spacing, "StaticHorzUnit", "-", {.beside = true}, {"per inch", "per cm"}};
    TextField EditBlankTop{*this,
                           Group::Spacing,
                           "EditBlankTop",
                           "blank-lines-on-top",
                           "Blank Lines on Top:",
                           "3",
                           {.label = "StaticText27", .meaning = Meaning::Count, .governs = {"line.ruled"}}};
    TextField EditLineThicknessHorz{*this,
                                    Group::Spacing,
                                    "EditLineThicknessHorz",
                                    "line-weight-of-the-vertical-rule",
                                    "Line Weight:",
                                    ".2",
                                    {.label = "StaticText1",
                                     .beside = true,
                                     .meaning = Meaning::Weight,
                                     .sets = "vertical rule",
                                     .governs = {"line.margin"},
                                     .drawnBy = &CheckBoxDrawVertical}};
    CheckBox CheckBoxDrawVertical{*this,
                                  Group::Lines,
                                  "CheckBoxDrawVertical",
                                  "draw-vertical-line",
                                  "Draw Vertical Line",
                                  true,
                                  {.governs = {"line.margin"}}};
    TextField EditBlankLeft{*this,
                            Group::Lines,
                            "EditBlankLeft",
                            "offset-from-left",
                            "Offset From left:",
                            "1",
                            {.label = "StaticText28",
                             .meaning = Meaning::WholeUnits,
                             .governs = {"line.margin"},
                             .drawnBy = &CheckBoxDrawVertical}};
    Label StaticvertUnit{*this, Group::Lines, "StaticvertUnit", "-", {.beside = true}, {"per inch", "per cm"}};
    TextField EditLineThicknessVert{*this,
                                    Group::Lines,
                                    "EditLineThicknessVert",
                                    "line-weight-of-the-ruled-lines",
                                    "Line Weight:",
                                    ".5",
                                    {.label = "StaticText24",
                                     .beside = true,
                                     .meaning = Meaning::Weight,
                                     .sets = "ruled lines",
                                     .governs = {"line.ruled"},
                                     .apart = &EditHorzSpacing}};
    Swatch LineColorCanvas{*this,
                           Group::Lines,
                           "LineColorCanvas",
                           "line-color",
                           "Line Color",
                           black,
                           {.label = "StaticText4", .governs = {"line"}}};
    Swatch BackgroundColorCanvas{*this,
                                 Group::Lines,
                                 "BackgroundColorCanvas",
                                 "background-color",
                                 "Background Color",
                                 white,
                                 {.label = "StaticText29", .beside = true, .governs = {"background"}}};
    ShiftClickNote note{*this, "StaticText26"};
};

/// The values of a page of lined paper. Lengths are in points. Each weight is in the row of the other lines on the
/// form: existing forms and settings files depend on it.
struct LinedPage {
    PageFrame frame;
    double LineThicknessHorz = 0.0;  ///< of the vertical rule
    double LineThicknessVert = 0.0;  ///< of the ruled lines
    double lineSpace = 0.0;
    double blankTop = 0.0;       ///< the lines left out at the top, whole; negative: the lines added
    double offset = 0.0;         ///< from the left margin to the vertical rule, whole
    bool drawsVertical = false;  ///< whether there is a vertical rule
};

// The functions of the kind that MakePaper and PageOf call.
SettingsTable Settings(LinedForm& form);
LinedPage Read(const LinedForm& form);
void Draw(const LinedPage& page, MyPDFGenerator& pdf, Turns& turns);
Message Describe(const LinedPage& page);

}  // namespace linealis
