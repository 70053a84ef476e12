#pragma once

#include "pipeline/form/PaperForm.h"

#include <string>
#include <string_view>

namespace linealis {

/// The type of an axis, by the list index of PopupXAxis and PopupYAxis. For a logarithmic type, the value is the
/// number of decades.
enum AxisType : int { linear = 0, logOneDecade = 1, logFiveDecades = 5, hydraulic = 6, probability = 7 };

inline bool IsLog(AxisType type)
{
    return type >= logOneDecade && type <= logFiveDecades;
}

/// Returns how many decades a logarithmic axis has, in words: "3 decades".
Message DecadeWords(AxisType type);

enum class AxisName { x, y };

/// The roles of the parts of the page that the controls of an axis affect.
struct AxisRoles {
    Role grid;
    Role minor;
    Role major;
    Role line;  ///< the line of the other axis, whose weight is in this row
    Role numbers;
    Role title;
};
inline constexpr AxisRoles rolesOfX = {"grid.x", "grid.x.minor", "grid.x.major", "axis.y", "number.x", "title.x"};
inline constexpr AxisRoles rolesOfY = {"grid.y", "grid.y.minor", "grid.y.major", "axis.x", "number.y", "title.y"};

/// The grid of one axis: a row of the first table. The captions of the X row name the columns.
struct GridRow {
    Label caption;
    Popup type;
    TextField lineSpacing;
    TextField lineThickness;
    TextField major;
    TextField majorWeight;
    TextField hydraulicExponent;

    GridRow(PaperForm& form, AxisName axis);

    AxisType Type() const { return static_cast<AxisType>(type.ListIndex()); }
};

/// The range and the numbers of one axis: a row of the second table.
struct AxisRow {
    Label caption;
    TextField minimum;
    TextField maximum;
    TextField step;
    TextField spacing;
    TextField weight;
    TextField textSize;
    Popup numberType;

    AxisRow(PaperForm& form, AxisName axis);
};

/// The title of one axis.
struct AxisTitleRow {
    TextField title;
    CheckBox autoPosition;
    TextField textSize;
    TextField titleX;
    TextField titleY;

    AxisTitleRow(PaperForm& form, AxisName axis);
};

/// All fields of one axis.
template <typename Grid, typename Axis, typename Title>
struct AxisFieldsOf {
    Grid& grid;
    Axis& axis;
    Title& title;
};
using AxisFields = AxisFieldsOf<GridRow, AxisRow, AxisTitleRow>;
using ConstAxisFields = AxisFieldsOf<const GridRow, const AxisRow, const AxisTitleRow>;

/// The form of graph paper: two axes, each linear, logarithmic, or hydraulic. The Y axis can also be a probability
/// axis.
struct GraphForm final : PaperForm {
    Label StaticTextLinesPerUnit{*this, Group::Spacing,          "StaticTextLinesPerUnit", "Lines/in",
                                 {},    {"Lines/in", "Lines/cm"}};
    GridRow xGrid{*this, AxisName::x};
    GridRow yGrid{*this, AxisName::y};
    AxisRow xAxis{*this, AxisName::x};
    AxisRow yAxis{*this, AxisName::y};
    CheckBox CheckBoxShowAxes{*this,
                              Group::Axes,
                              "CheckBoxShowAxes",
                              "show-axes",
                              "Show Axes",
                              true,
                              {.governs = {"axis", "number", "title.x", "title.y"}}};
    CheckBox CheckBoxMarkers{*this,
                             Group::Axes,
                             "CheckBoxMarkers",
                             "add-markers",
                             "Add Markers",
                             false,
                             {.beside = true, .governs = {"marker"}}};
    Swatch LineColorCanvas{*this,
                           Group::Lines,
                           "LineColorCanvas",
                           "line-color",
                           "Line Color",
                           black,
                           {.governs = {"grid.x.minor", "grid.y.minor", "grid.y.probability"}}};
    Swatch MajorLineColorCanvas{*this,
                                Group::Lines,
                                "MajorLineColorCanvas",
                                "major-line-color",
                                "Major Line Color",
                                black,
                                {.beside = true, .governs = {"grid.x.major", "grid.y.major"}}};
    Swatch BackgroundColorCanvas{*this,
                                 Group::Lines,
                                 "BackgroundColorCanvas",
                                 "background-color",
                                 "Background Color",
                                 white,
                                 {.beside = true, .governs = {"background"}}};
    TextField EditTitle{*this,
                        Group::Text,
                        "EditTitle",
                        "page-title",
                        "Title:",
                        "A Sample Graph Paper",
                        {.meaning = Meaning::Prose, .fullName = "Page title", .governs = {"title.page"}}};
    TextField EditTitleSize{
        *this,
        Group::Text,
        "EditTitleSize",
        "page-title-size",
        "Size:",
        "20",
        {.beside = true, .meaning = Meaning::FontSize, .fullName = "Page title, Size", .governs = {"title.page"}}};
    TextField EditTitleX{*this,
                         Group::Text,
                         "EditTitleX",
                         "page-title-x",
                         "X:",
                         "2.6",
                         {.beside = true,
                          .meaning = Meaning::TitlePlace,
                          .direction = Direction::Horizontal,
                          .governs = {"title.page"}}};
    TextField EditTitleY{
        *this,
        Group::Text,
        "EditTitleY",
        "page-title-y",
        "Y:",
        "1",
        {.beside = true, .meaning = Meaning::Length, .direction = Direction::Vertical, .governs = {"title.page"}}};
    AxisTitleRow xTitle{*this, AxisName::x};
    AxisTitleRow yTitle{*this, AxisName::y};
    Popup PopupFont1{*this,
                     Group::Text,
                     "PopupFont1",
                     "font",
                     "Font:",
                     FontNames(),
                     4,
                     {.governs = {"number", "title", "marker"}}};
    ShiftClickNote note{*this, "StaticTextShiftClick"};

    GraphForm();

    // The fields of each axis, for code that treats both alike.
    AxisFields X() { return {xGrid, xAxis, xTitle}; }
    AxisFields Y() { return {yGrid, yAxis, yTitle}; }
    ConstAxisFields X() const { return {xGrid, xAxis, xTitle}; }
    ConstAxisFields Y() const { return {yGrid, yAxis, yTitle}; }

    /// Unlike the other forms, leaves the units alone, so that short opening texts such as ".1" stay as they are.
    void Event_Open(const Platform& platform) override;
    /// Makes the background white first, so that a file without a background color results in a white page.
    void BeforeLoad() override;

    Message WhyIdle(const Control& control) const override;

    /// Rewrites both line densities ("Lines/in") so that the grid holds the whole range of each axis in whole
    /// steps.
    void RecalcLinesPerInch();

private:
    void EnableAxisFields();
    void CheckBoxShowAxes_Action();
};

}  // namespace linealis
