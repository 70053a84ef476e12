#pragma once

#include "papers/CellGrid.h"
#include "pipeline/document/Paper.h"

#include <string>

namespace linealis {

/// The form of dots paper: a round dot at every crossing of a grid whose lines are optional.
struct DotsForm final : PaperForm {
    SpacingFields spacing{*this, ".5", ".5"};
    TextField EditDotWeight{*this,
                            Group::Spacing,
                            "EditDotWeight",
                            "dot-weight-of-the-dots",
                            "Dot Weight:",
                            "1",
                            {.label = "StaticText3",
                             .meaning = Meaning::Weight,
                             .sets = "dots",
                             .governs = {"dot"},
                             .apart = &spacing.EditHorzSpacing}};
    LineFields lines{*this, spacing, false};
    Swatch LineColorCanvas{*this,
                           Group::Lines,
                           "LineColorCanvas",
                           "dot-color",
                           "Dot Color",
                           black,
                           {.label = "StaticText4", .governs = {"dot"}}};
    Swatch LinesColorCanvas{*this,
                            Group::Lines,
                            "LinesColorCanvas",
                            "line-color",
                            "Line Color",
                            black,
                            {.label = "StaticText5", .beside = true, .governs = {"grid"}}};
    Swatch BackgroundColorCanvas{*this,
                                 Group::Lines,
                                 "BackgroundColorCanvas",
                                 "background-color",
                                 "Background Color",
                                 white,
                                 {.label = "StaticText26", .beside = true, .governs = {"background"}}};
    ShiftClickNote note{*this, "StaticText25"};

    Message WhyIdle(const Control& control) const override;
};

/// The values of a page of dots paper.
struct DotsPage {
    PageFrame frame;
    CellGrid grid;
    double dotWeight = 0.0;  ///< the diameter of a dot in points
    Color dotColor;
    Color linesColor;
};

// The functions of the kind that MakePaper and PageOf call.
SettingsTable Settings(DotsForm& form);
DotsPage Read(const DotsForm& form);
void Draw(const DotsPage& page, MyPDFGenerator& pdf, Turns& turns);
Message Describe(const DotsPage& page);

}  // namespace linealis
