#pragma once

#include "papers/CellGrid.h"
#include "pipeline/document/Paper.h"

#include <string>

namespace linealis {

/// The form of grid paper: horizontal and vertical lines.
struct GridForm final : PaperForm {
    SpacingFields spacing{*this, ".25", ".25"};
    LineFields lines{*this, spacing, true};
    Swatch LinesColorCanvas{*this,
                            Group::Lines,
                            "LinesColorCanvas",
                            "line-color",
                            "Line Color",
                            black,
                            {.label = "StaticText5", .governs = {"grid"}}};
    Swatch BackgroundColorCanvas{*this,
                                 Group::Lines,
                                 "BackgroundColorCanvas",
                                 "background-color",
                                 "Background Color",
                                 white,
                                 {.label = "StaticText28", .beside = true, .governs = {"background"}}};
    ShiftClickNote note{*this, "StaticText27"};

    Message WhyIdle(const Control& control) const override;
};

/// The values of a page of grid paper.
struct GridPage {
    PageFrame frame;
    CellGrid grid;
    Color linesColor;
};

// The functions of the kind that MakePaper and PageOf call.
SettingsTable Settings(GridForm& form);
GridPage Read(const GridForm& form);
void Draw(const GridPage& page, MyPDFGenerator& pdf, Turns& turns);
Message Describe(const GridPage& page);

}  // namespace linealis
