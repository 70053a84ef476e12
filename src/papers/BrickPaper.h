#pragma once

#include "papers/CellGrid.h"
#include "pipeline/document/Paper.h"

#include <string>

namespace linealis {

/// The form of brick paper: rows of bricks in running bond, so that the joints of each row are half a brick beside
/// those of the next.
struct BrickForm final : PaperForm {
    TextField EditVertSpacing{
        *this, Group::Spacing,         "EditVertSpacing", "vertical-spacing", "Vertical Spacing:",
        ".25", SpacingFields::vertical};
    TextField EditHorzWeight{*this,
                             Group::Spacing,
                             "EditHorzWeight",
                             "line-weight-of-the-horizontal-lines",
                             "Line Weight:",
                             ".5",
                             {.label = "StaticTextVLines",
                              .beside = true,
                              .meaning = Meaning::Weight,
                              .sets = "horizontal lines",
                              .governs = {"grid.horizontal"},
                              .apart = &EditVertSpacing}};
    TextField EditHorzSpacing{
        *this, Group::Spacing,           "EditHorzSpacing", "horizontal-spacing", "Horizontal Spacing:",
        ".75", SpacingFields::horizontal};
    TextField EditVertWeight{*this,
                             Group::Spacing,
                             "EditVertWeight",
                             "line-weight-of-the-joints-between-the-bricks",
                             "Line Weight:",
                             ".5",
                             {.label = "StaticTextHLines",
                              .beside = true,
                              .meaning = Meaning::Weight,
                              .sets = "joints between the bricks",
                              .governs = {"joint"},
                              .apart = &EditHorzSpacing}};
    Swatch LinesColorCanvas{*this,
                            Group::Lines,
                            "LinesColorCanvas",
                            "line-color",
                            "Line Color",
                            black,
                            {.label = "StaticText5", .governs = {"grid", "joint"}}};
    Swatch BackgroundColorCanvas{*this,
                                 Group::Lines,
                                 "BackgroundColorCanvas",
                                 "background-color",
                                 "Background Color",
                                 white,
                                 {.label = "StaticText28", .beside = true, .governs = {"background"}}};
    ShiftClickNote note{*this, "StaticText27"};
};

/// The values of a page of brick paper.
struct BrickPage {
    PageFrame frame;
    CellGrid grid;  ///< each cell is a brick
    Color linesColor;
};

// The functions of the kind that MakePaper and PageOf call.
SettingsTable Settings(BrickForm& form);
BrickPage Read(const BrickForm& form);
void Draw(const BrickPage& page, MyPDFGenerator& pdf, Turns& turns);
Message Describe(const BrickPage& page);

}  // namespace linealis
