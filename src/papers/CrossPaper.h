#pragma once

#include "papers/CellGrid.h"
#include "pipeline/document/Paper.h"

#include <string>

namespace linealis {

/// The form of cross paper: a small cross at every crossing of a grid whose lines are optional.
struct CrossForm final : PaperForm {
    SpacingFields spacing{*this, ".5", ".5"};
    // These are lengths too, but a change of units leaves their numbers unchanged.
    TextField EditCrossHeight{*this,
                              Group::Spacing,
                              "EditCrossHeight",
                              "cross-height",
                              "Cross Height:",
                              ".15",
                              {.label = "StaticText25", .meaning = Meaning::MarkSize, .governs = {"cross"}}};
    TextField EditCrossWidth{*this,
                             Group::Spacing,
                             "EditCrossWidth",
                             "cross-width",
                             "Cross Width:",
                             ".15",
                             {.label = "StaticText26", .meaning = Meaning::MarkSize, .governs = {"cross"}}};
    TextField EditCrossWeight{*this,
                              Group::Spacing,
                              "EditCrossWeight",
                              "cross-weight-of-the-crosses",
                              "Cross Weight:",
                              "1",
                              {.label = "StaticText3",
                               .meaning = Meaning::Weight,
                               .sets = "crosses",
                               .governs = {"cross"},
                               .apart = &spacing.EditHorzSpacing}};
    LineFields lines{*this, spacing, false};
    Swatch LineColorCanvas{*this,
                           Group::Lines,
                           "LineColorCanvas",
                           "cross-color",
                           "Cross Color",
                           black,
                           {.label = "StaticText4", .governs = {"cross"}}};
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
                                 {.label = "StaticText28", .beside = true, .governs = {"background"}}};
    ShiftClickNote note{*this, "StaticText27"};

    Message WhyIdle(const Control& control) const override;
};

/// The values of a page of cross paper.
struct CrossPage {
    PageFrame frame;
    Mark cross;  ///< the full lengths of its two bars
    CellGrid grid;
    double crossWeight = 0.0;  ///< points
    Color crossColor;
    Color linesColor;
};

// The functions of the kind that MakePaper and PageOf call.
SettingsTable Settings(CrossForm& form);
CrossPage Read(const CrossForm& form);
void Draw(const CrossPage& page, MyPDFGenerator& pdf, Turns& turns);
Message Describe(const CrossPage& page);

}  // namespace linealis
