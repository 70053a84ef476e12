#pragma once

#include "pipeline/document/Paper.h"

#include <cstdint>
#include <string>

namespace linealis {

/// The form of ternary paper: an equilateral triangle, divided by lines parallel to its sides, with numbers along
/// the sides or inside.
struct TernaryForm final : PaperForm {
    TextField EditMajorDivisions{*this,
                                 Group::Spacing,
                                 "EditMajorDivisions",
                                 "major-divisions",
                                 "Major Divisions:",
                                 "10",
                                 {.meaning = Meaning::Divisions, .governs = {"grid", "number"}}};
    TextField EditMinorDivisions{*this,
                                 Group::Spacing,
                                 "EditMinorDivisions",
                                 "minor-divisions",
                                 "Minor Divisions:",
                                 "5",
                                 {.beside = true, .meaning = Meaning::CountFromOne, .governs = {"grid.minor"}}};
    Popup PopupScaling{
        *this, Group::Spacing,         "PopupScaling", "scaling", "Scaling:", {"None", "Axis", "Center"},
        0,     {.governs = {"number"}}};
    TextField EditAxisMaximum{
        *this,
        Group::Spacing,
        "EditAxisMaximum",
        "axis-maximum",
        "Axis Maximum:",
        "100",
        {.label = "StaticTextAxisMaximum", .beside = true, .enabled = false, .governs = {"number"}}};
    CheckBox CheckBoxFlip{*this,
                          Group::Spacing,
                          "CheckBoxFlip",
                          "flip",
                          "Flip",
                          false,
                          {.beside = true, .enabled = false, .governs = {"number"}}};
    TextField EditLineThickness{
        *this,
        Group::Lines,
        "EditLineThickness",
        "major-weight-of-the-triangle-and-its-divisions",
        "Major Weight:",
        "1",
        {.meaning = Meaning::Weight, .sets = "triangle and its divisions", .governs = {"frame", "grid.major"}}};
    TextField EditMinorLineThickness{
        *this,
        Group::Lines,
        "EditMinorLineThickness",
        "minor-line-weight-of-the-minor-divisions",
        "Minor Line Weight:",
        ".05",
        {.beside = true, .meaning = Meaning::Weight, .sets = "minor divisions", .governs = {"grid.minor"}}};
    /// Has no effect: the triangle is always drawn.
    CheckBox CheckBoxFrame{*this, Group::Lines, "CheckBoxFrame", "draw-frame", "Draw Frame", true};
    Swatch LineColorCanvas{*this,
                           Group::Lines,
                           "LineColorCanvas",
                           "line-color",
                           "Line Color",
                           black,
                           {.governs = {"frame", "grid", "number"}}};
    Swatch BackgroundColorCanvas{*this,
                                 Group::Lines,
                                 "BackgroundColorCanvas",
                                 "background-color",
                                 "Background Color",
                                 white,
                                 {.beside = true, .governs = {"background"}}};
    ShiftClickNote note{*this, "StaticTextShiftClick"};

    TernaryForm();

    Message WhyIdle(const Control& control) const override;

private:
    /// Enables the controls that apply to the selected scaling.
    void PopupScaling_Change();
};

/// The place of the numbers, by the list index of PopupScaling.
enum class TernaryNumbers { none, onSides, inside };

/// The values of a page of ternary paper. Lengths are in points.
struct TernaryPage {
    PageFrame frame;
    double LineThickness = 0.0;
    double minorLineThickness = 0.0;
    Color lineColor;
    double majorDivisions = 0.0;  ///< whole, like minorDivisions
    double minorDivisions = 0.0;
    TernaryNumbers numbers = TernaryNumbers::none;
    double axisMaximum = 0.0;
    bool flip = false;
};

// The functions of the kind that MakePaper and PageOf call.
SettingsTable Settings(TernaryForm& form);
TernaryPage Read(const TernaryForm& form);
void Draw(const TernaryPage& page, MyPDFGenerator& pdf, Turns& turns);
Message Describe(const TernaryPage& page);
PageWarnings Warn(const TernaryForm& form, const TernaryPage& page);

}  // namespace linealis
