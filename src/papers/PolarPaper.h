#pragma once

#include "pipeline/document/Paper.h"

#include <cstdint>
#include <string>

namespace linealis {

/// The form of polar paper: circles around a center, crossed by major spokes with labels at their ends and by minor
/// spokes, and a title.
struct PolarForm final : PaperForm {
    TextField EditNumCircles{*this,
                             Group::Spacing,
                             "EditNumCircles",
                             "circles",
                             "Circles:",
                             "8",
                             {.meaning = Meaning::CountFromOne, .governs = {"circle", "spoke.minor"}}};
    TextField EditNumSpokes{*this,
                            Group::Spacing,
                            "EditNumSpokes",
                            "spokes",
                            "Spokes:",
                            "12",
                            {.beside = true, .meaning = Meaning::Quantity, .governs = {"spoke.major", "number"}}};
    TextField EditNumMinorSpokes{*this,
                                 Group::Spacing,
                                 "EditNumMinorSpokes",
                                 "minor",
                                 "Minor:",
                                 "48",
                                 {.beside = true, .meaning = Meaning::Quantity, .governs = {"spoke.minor"}}};
    TextField EditMinorStart{*this,
                             Group::Spacing,
                             "EditMinorStart",
                             "minor-start",
                             "Minor Start:",
                             "2",
                             {.beside = true, .meaning = Meaning::Count, .governs = {"spoke.minor"}}};
    TextField EditLineThickness{
        *this,
        Group::Lines,
        "EditLineThickness",
        "line-weight-of-the-circles-and-spokes",
        "Line Weight:",
        ".45",
        {.meaning = Meaning::Weight, .sets = "circles and spokes", .governs = {"circle", "spoke.major"}}};
    TextField EditMinorLineThickness{
        *this,
        Group::Lines,
        "EditMinorLineThickness",
        "minor-line-weight-of-the-minor-spokes",
        "Minor Line Weight:",
        ".1",
        {.beside = true, .meaning = Meaning::Weight, .sets = "minor spokes", .governs = {"spoke.minor"}}};
    Swatch LineColorCanvas{*this,
                           Group::Lines,
                           "LineColorCanvas",
                           "line-color",
                           "Line Color",
                           black,
                           {.governs = {"circle", "spoke"}}};
    Swatch BackgroundColorCanvas{*this,
                                 Group::Lines,
                                 "BackgroundColorCanvas",
                                 "background-color",
                                 "Background Color",
                                 white,
                                 {.beside = true, .governs = {"background"}}};
    RadioGroup RadioButton1{*this,    Group::Text, "RadioButton1",
                            "labels", "Labels:",   {"None", "Degrees", "Radians", "Start At 0", "Start At 1"},
                            1};
    Popup PopupMenuLabelSkip{*this,
                             Group::Text,
                             "PopupMenuLabelSkip",
                             "print-every",
                             "Print Every:",
                             {"1",  "2",  "3",  "4",  "5",  "6",  "7",  "8",  "9",  "10",
                              "11", "12", "13", "14", "15", "16", "17", "18", "19", "20"},
                             0,
                             {.governs = {"number"}}};
    Popup PopupFont1{
        *this, Group::Text, "PopupFont1", "font", "Font:", FontNames(), 4, {.governs = {"number", "title"}}};
    TextField EditFontSize{*this,
                           Group::Text,
                           "EditFontSize",
                           "font-size",
                           "Size:",
                           "10",
                           {.beside = true, .meaning = Meaning::FontSize, .governs = {"number"}}};
    Swatch TextColorCanvas{
        *this, Group::Text, "TextColorCanvas", "text-color", "Text Color", black, {.governs = {"number", "title"}}};
    TextField EditTitle{*this,
                        Group::Text,
                        "EditTitle",
                        "title",
                        "Title:",
                        "Sample Polar Graph Paper",
                        {.meaning = Meaning::Prose, .governs = {"title"}}};
    TextField EditTitleX{
        *this,
        Group::Text,
        "EditTitleX",
        "title-x",
        "X:",
        "2.6",
        {.beside = true, .meaning = Meaning::TitlePlace, .direction = Direction::Horizontal, .governs = {"title"}}};
    TextField EditTitleY{
        *this,
        Group::Text,
        "EditTitleY",
        "title-y",
        "Y:",
        "1",
        {.beside = true, .meaning = Meaning::Length, .direction = Direction::Vertical, .governs = {"title"}}};
    TextField EditTitleSize{*this,
                            Group::Text,
                            "EditTitleSize",
                            "title-size",
                            "Size:",
                            "20",
                            {.beside = true, .meaning = Meaning::FontSize, .governs = {"title"}}};
    ShiftClickNote note{*this, "StaticTextShiftClick"};

    Message WhyIdle(const Control& control) const override;
};

/// The label at the end of a spoke, by the list index of RadioButton1.
enum class SpokeLabels { none, degrees, radians, startAt0, startAt1 };

/// The values of a page of polar paper. Lengths are in points.
struct PolarPage {
    PageFrame frame;
    std::int64_t numCircles = 1;
    std::int64_t numSpokes = 0;
    std::int64_t numMinor = 0;
    std::int64_t minorStart = 0;  ///< the circle where the minor spokes start; 0 is the center
    double LineThickness = 0.0;
    double minorLineThickness = 0.0;  ///< of the minor spokes
    Color lineColor;
    Color textColor;
    SpokeLabels labels = SpokeLabels::none;
    std::int64_t labelEvery = 1;  ///< the number of spokes from one label to the next
    std::int64_t font = 0;
    std::int64_t labelSize = 0;
    std::string title;
    double titleSize = 0.0;
    bool titleIsCentred = false;
    double titleX = 0.0;  ///< from the left edge of the page
    double titleY = 0.0;  ///< downward
};

// The functions of the kind that MakePaper and PageOf call.
SettingsTable Settings(PolarForm& form);
PolarPage Read(const PolarForm& form);
void Draw(const PolarPage& page, MyPDFGenerator& pdf, Turns& turns);
Message Describe(const PolarPage& page);
/// Returns where a title whose fields X and Y are 0 stands, in points.
Point TitleZero(const PolarPage& page, Role title);
PageWarnings Warn(const PolarForm& form, const PolarPage& page);

}  // namespace linealis
