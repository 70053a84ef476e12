#include "kinds/Presets.h"

#include <initializer_list>
#include <string_view>

namespace linealis {

namespace {

// The functions below return settings that several presets share. Lengths are texts, as a user would type them, in
// the unit that OnA4 or OnLetter sets.
using Settings = std::vector<Setting>;
using Text = std::string_view;

/// Returns the settings of all parts, in order.
Settings Join(std::initializer_list<Settings> parts)
{
    Settings whole;
    for (const Settings& part : parts) {
        whole.insert(whole.end(), part.begin(), part.end());
    }
    return whole;
}

/// Sets the paper and the unit before the rest, whose numbers are in that unit.
Settings OnA4(const Settings& rest)
{
    return Join({{{"PopupPaperSize", "A4"}, {"PopupUnits", "cm"}}, rest});
}

Settings LyingA4(const Settings& rest)
{
    return OnA4(Join({{{"PopupOrientation", "Landscape"}}, rest}));
}

Settings OnLetter(const Settings& rest)
{
    return Join({{{"PopupPaperSize", "Letter"}, {"PopupUnits", "inches"}}, rest});
}

constexpr Text softBlue = "#6F8FAF";   // for lines to write and draw between
constexpr Text softGreen = "#5F9F7F";  // for engineering pads
constexpr Text darkBlue = "#4F6F8F";   // for lines to read values from

Settings Margins(Text top, Text bottom, Text left, Text right)
{
    return {
        {"EditTopMargin", top}, {"EditBottomMargin", bottom}, {"EditLeftMargin", left}, {"EditRightMargin", right}};
}

/// Returns four equal margins. The presets use the narrowest ones that most printers can print.
Settings NarrowMargins(Text all)
{
    return Margins(all, all, all, all);
}

// Grid, dots and crosses.

Settings Cells(Text size)
{
    return {{"EditVertSpacing", size}, {"EditHorzSpacing", size}};
}

Settings GridLines(Text weight)
{
    return {{"EditHorzWeight", weight}, {"EditVertWeight", weight}, {"LinesColorCanvas", softBlue}};
}

Settings Squares(Text size, Text weight)
{
    return Join({Cells(size), GridLines(weight)});
}

/// Knitting stitches, which are wider than high.
Settings Stitches(Text height, Text width)
{
    return Join({{{"EditVertSpacing", height}, {"EditHorzSpacing", width}}, GridLines(".3")});
}

Settings Dots()
{
    return {{"EditDotWeight", "1.4"}, {"LineColorCanvas", softBlue}};
}

// Lined and note paper.

/// Ruled paper. `blankLines` lines are left out to form the head of the page.
Settings Ruled(Text linesPerUnit, Text blankLines)
{
    return {{"EditHorzSpacing", linesPerUnit},
            {"EditBlankTop", blankLines},
            {"EditLineThicknessHorz", ".5"},
            {"EditLineThicknessVert", ".4"},
            {"LineColorCanvas", softBlue}};
}

/// Ruled paper for people with low vision: few, heavy black lines.
Settings BoldRuled(Text linesPerUnit)
{
    return {{"EditHorzSpacing", linesPerUnit},
            {"EditBlankTop", "1"},
            {"EditLineThicknessHorz", "2"},
            {"CheckBoxDrawVertical", "off"}};
}

/// Note paper whose header boxes are empty, to be filled in by hand.
Settings Notes(Text linesPerUnit)
{
    return {{"EditHorzSpacing", linesPerUnit},
            {"LineColorCanvas", darkBlue},
            {"EditName", ""},
            {"EditDate", ""},
            {"EditTopic", ""},
            {"EditSubject", ""}};
}

// Papers with one cell size.

Settings CellSize(Text size)
{
    return {{"EditSize", size}, {"EditLineThickness", ".3"}, {"LineColorCanvas", softBlue}};
}

// Polar and ternary.

Settings Spokes(Text labels, Text spokes, Text minorSpokes)
{
    return {{"EditNumCircles", "10"},      {"EditNumSpokes", spokes},   {"EditNumMinorSpokes", minorSpokes},
            {"EditMinorStart", "3"},       {"EditLineThickness", ".4"}, {"EditMinorLineThickness", ".15"},
            {"LineColorCanvas", darkBlue}, {"RadioButton1", labels},    {"EditTitle", ""}};
}

Settings Triangle(Text divisions, Text minorDivisions)
{
    return {{"EditMajorDivisions", divisions}, {"EditMinorDivisions", minorDivisions},
            {"PopupScaling", "Axis"},          {"EditAxisMaximum", "100"},
            {"EditLineThickness", ".6"},       {"EditMinorLineThickness", ".15"},
            {"LineColorCanvas", darkBlue}};
}

// Graph paper, always without titles.

const Settings& Untitled()
{
    static const Settings untitled = {{"EditTitle", ""}, {"EditXAxisTitle", ""}, {"EditYAxisTitle", ""}};
    return untitled;
}

/// Squares with a heavier line every `major` lines, counted from the lower left corner.
Settings HeavySquares(Text linesPerUnit, Text major)
{
    return Join({{{"EditXLineSpacing", linesPerUnit},
                  {"EditXLineThickness", ".25"},
                  {"EditXMajor", major},
                  {"EditXMajorWeight", ".7"},
                  {"EditYLineSpacing", linesPerUnit},
                  {"EditYLineThickness", ".25"},
                  {"EditYMajor", major},
                  {"EditYMajorWeight", ".7"},
                  {"EditXAxisMinimum", "0"},
                  {"EditYAxisMinimum", "0"},
                  {"CheckBoxShowAxes", "off"},
                  {"LineColorCanvas", softBlue},
                  {"MajorLineColorCanvas", softBlue}},
                 Untitled()});
}

/// The settings that all plotting papers share: thin blue lines and small numbers.
Settings Plot(const Settings& x, const Settings& y, Text numberSize = "7")
{
    return Join({{{"EditXLineThickness", ".15"},
                  {"EditXMajorWeight", ".5"},
                  {"EditYLineThickness", ".15"},
                  {"EditYMajorWeight", ".5"},
                  {"EditXAxisWeight", "1"},
                  {"EditXAxisTextSize", numberSize},
                  {"EditYAxisWeight", "1"},
                  {"EditYAxisTextSize", numberSize},
                  {"LineColorCanvas", darkBlue},
                  {"MajorLineColorCanvas", darkBlue}},
                 x,
                 y,
                 Untitled()});
}

/// A linear axis with 1 per centimeter, numbered from 0.
Settings LinearX()
{
    return {{"EditXLineSpacing", "5"},  {"EditXMajor", "5"},     {"EditXAxisMinimum", "0"},
            {"EditXAxisMaximum", "18"}, {"EditXAxisStep", ".2"}, {"EditXAxisSpacing", "5"}};
}

Settings LinearY(Text maximum)
{
    return {{"EditYLineSpacing", "5"},     {"EditYMajor", "5"},     {"EditYAxisMinimum", "0"},
            {"EditYAxisMaximum", maximum}, {"EditYAxisStep", ".2"}, {"EditYAxisSpacing", "5"}};
}

/// An axis of another type. The grid is cut to a whole number of line spacings even though no line is drawn at
/// them, so a fine spacing of 1 mm wastes little room.
Settings TypeX(Text type)
{
    return {{"EditXLineSpacing", "10"}, {"PopupXAxis", type}};
}

Settings TypeY(Text type)
{
    return {{"EditYLineSpacing", "10"}, {"PopupYAxis", type}};
}

Settings HydraulicX()
{
    return Join({TypeX("Hydraulic"),
                 {{"EditXHydraulicExponent", "1.85"},
                  {"EditXMajor", "2"},
                  {"EditXAxisMinimum", "0"},
                  {"EditXAxisMaximum", "100"},
                  {"EditXAxisStep", "5"},
                  {"EditXAxisSpacing", "2"}}});
}

/// Starts at 20, because the lines below would run into each other.
Settings HydraulicY()
{
    return Join({TypeY("Hydraulic"),
                 {{"EditYHydraulicExponent", "2.63"},
                  {"EditYMajor", "2"},
                  {"EditYAxisMinimum", "20"},
                  {"EditYAxisMaximum", "100"},
                  {"EditYAxisStep", "5"},
                  {"EditYAxisSpacing", "2"}}});
}

const Settings& PlotMargins()
{
    static const Settings margins = Margins("1.2", "1.5", "1.6", "1.3");
    return margins;
}

Settings SemiLog(Text decades)
{
    return OnA4(Join({PlotMargins(), Plot(LinearX(), TypeY(decades))}));
}

/// Like SemiLog, but the X axis is logarithmic.
Settings SemiLogX(Text decades, Text numberSize = "7")
{
    return OnA4(Join({PlotMargins(), Plot(TypeX(decades), LinearY("27"), numberSize)}));
}

Settings LogLog(Text decades)
{
    return OnA4(Join({PlotMargins(), Plot(TypeX(decades), TypeY(decades))}));
}

std::vector<Preset> MakePresets()
{
    using Group = PresetGroup;
    constexpr bool metric = true, us = false;
    return {
        // clang-format off
        {"squares-5mm", "Squares 5 mm", "grid", Group::Squares, metric, "quad graph squared school",
         OnA4(Join({Squares("0.5", ".3"), NarrowMargins("0.65")}))},
        {"squares-4mm", "Squares 4 mm", "grid", Group::Squares, metric, "quad graph squared school",
         OnA4(Join({Squares("0.4", ".3"), NarrowMargins("0.65")}))},
        {"squares-2mm", "Squares 2 mm", "grid", Group::Squares, metric, "quad graph squared",
         OnA4(Join({Squares("0.2", ".25"), NarrowMargins("0.65")}))},
        {"squares-1mm", "Squares 1 mm", "grid", Group::Squares, metric, "graph squared millimetre millimeter",
         OnA4(Join({Squares("0.1", ".2"), NarrowMargins("0.65")}))},
        {"quad-quarter-inch", "Quad 1/4 inch", "grid", Group::Squares, us, "squares quadrille graph 4 four",
         OnLetter(Join({Squares("0.25", ".3"), NarrowMargins("0.25")}))},
        {"quad-tenth-inch", "Quad 1/10 inch", "grid", Group::Squares, us, "squares quadrille graph 10 ten",
         OnLetter(Join({Squares("0.1", ".25"), NarrowMargins("0.25")}))},

        {"battle-grid", "Battle Grid 1 inch", "grid", Group::Squares, us, "squares game map miniatures",
         OnLetter(Join({Squares("1", ".7"), NarrowMargins("0.25")}))},
        {"knitting-4-5", "Knitting Gauge 4 by 5", "grid", Group::Other, metric,
         "stitches rows knit crochet needlework",
         OnA4(Join({Stitches("0.4", "0.5"), NarrowMargins("0.65")}))},
        {"knitting-5-7", "Knitting Gauge 5 by 7", "grid", Group::Other, metric,
         "stitches rows knit crochet needlework",
         OnA4(Join({Stitches("0.5", "0.7"), NarrowMargins("0.65")}))},

        {"squares-5mm-heavy", "Squares 5 mm, heavy every 1 cm", "graph", Group::Squares, metric,
         "quad squared majors bold",
         OnA4(Join({HeavySquares("2", "2"), Margins("0.8", "0.8", "0.65", "0.65")}))},
        {"squares-4mm-heavy", "Squares 4 mm, heavy every 2 cm", "graph", Group::Squares, metric,
         "quad squared majors bold",
         OnA4(Join({HeavySquares("2.5", "5"), Margins("0.8", "0.8", "0.65", "0.65")}))},
        {"squares-2mm-heavy", "Squares 2 mm, heavy every 1 cm", "graph", Group::Squares, metric,
         "quad squared majors bold",
         OnA4(Join({HeavySquares("5", "5"), Margins("0.8", "0.8", "0.65", "0.65")}))},
        {"squares-1mm-heavy", "Squares 1 mm, heavy every 1 cm", "graph", Group::Squares, metric,
         "millimetre millimeter squared majors bold",
         OnA4(Join({HeavySquares("10", "10"), Margins("0.8", "0.8", "0.65", "0.65")}))},

        {"squares-5mm-heavy-5", "Squares 5 mm, heavy every 5", "graph", Group::Squares, metric,
         "quad squared majors bold",
         OnA4(Join({HeavySquares("2", "5"), Margins("0.8", "0.8", "0.65", "0.65")}))},
        {"squares-6mm-heavy-5", "Squares 6 mm, heavy every 5", "graph", Group::Squares, metric,
         "quad squared majors bold",
         OnA4(Join({HeavySquares("1.6666667", "5"), Margins("0.8", "0.8", "0.65", "0.65")}))},

        {"ruled-8mm", "Ruled 8 mm", "lined", Group::Ruled, metric, "lines writing school notebook",
         OnA4(Join({Ruled("1.25", "2"), {{"EditBlankLeft", "2"}}, Margins("0.8", "0.8", "0.65", "0.65")}))},
        {"ruled-wide", "Wide Ruled", "lined", Group::Ruled, us, "lines writing school legal 11/32",
         OnLetter(Join({Ruled("2.909", "3"), {{"EditBlankLeft", "1"}}, Margins("0.25", "0.25", "0.25", "0.25")}))},
        {"ruled-college", "College Ruled", "lined", Group::Ruled, us, "lines writing medium school 9/32",
         OnLetter(Join({Ruled("3.5556", "4"), {{"EditBlankLeft", "1"}}, Margins("0.25", "0.25", "0.25", "0.25")}))},
        {"ruled-narrow", "Narrow Ruled", "lined", Group::Ruled, us, "lines writing 1/4",
         OnLetter(Join({Ruled("4", "4"), {{"EditBlankLeft", "1"}}, Margins("0.25", "0.25", "0.25", "0.25")}))},

        {"ruled-bold-15mm", "Bold Ruled 15 mm", "lined", Group::Ruled, metric, "low vision large lines writing",
         OnA4(Join({BoldRuled("0.6666667"), NarrowMargins("0.65")}))},
        {"ruled-bold-three-quarter-inch", "Bold Ruled 3/4 inch", "lined", Group::Ruled, us,
         "low vision large lines writing",
         OnLetter(Join({BoldRuled("1.3333333"), NarrowMargins("0.25")}))},

        {"dots-5mm", "Dot Grid 5 mm", "dots", Group::Dots, metric, "dotted journal bullet",
         OnA4(Join({Cells("0.5"), Dots(), NarrowMargins("0.65")}))},
        {"dots-quarter-inch", "Dot Grid 1/4 inch", "dots", Group::Dots, us, "dotted journal bullet",
         OnLetter(Join({Cells("0.25"), Dots(),
                        NarrowMargins("0.25")}))},
        {"crosses-1cm", "Crosses 1 cm", "crosses", Group::Dots, metric, "cross plus ticks",
         OnA4(Join({Cells("1"), {{"EditCrossHeight", "0.2"}, {"EditCrossWidth", "0.2"}, {"EditCrossWeight", ".4"},
                                 {"LineColorCanvas", softBlue}}, NarrowMargins("0.65")}))},

        {"engineering-pad", "Engineering Pad", "engineering", Group::Squares, us,
         "computation five squares green",
         OnLetter({{"EditHorzSpacing", "5"}, {"EditVertiSpacing", "5"}, {"EditBlankTop", "5"}, {"EditBlankLeft", "5"},
                   {"LineColorCanvas", softGreen}})},
        {"cornell-a4", "Cornell Notes A4, 8 mm lines", "cornell", Group::Notes, metric,
         "note lecture cue summary",
         OnA4(Notes("1.25"))},
        {"cornell-letter", "Cornell Notes Letter, 8 mm lines", "cornell", Group::Notes, us,
         "note lecture cue summary",
         OnLetter(Notes("3.175"))},

        {"cornell-left-handed", "Cornell Notes A4, left-handed", "cornell", Group::Notes, metric,
         "note lecture cue summary",
         OnA4(Join({Notes("1.25"), {{"CheckCueLeft", "off"}}}))},

        // The cell size is the side of a hexagon. The height from flat to flat is sqrt(3) = 1.7321 sides.
        {"hexagons-1inch-side", "Hexagons 1 inch by side", "hexagon", Group::HexagonsAndTriangles, us,
         "hex game map", OnLetter(CellSize("1"))},
        {"hexagons-1inch-flats", "Hexagons 1 inch across flats", "hexagon", Group::HexagonsAndTriangles, us,
         "hex game map miniatures",
         OnLetter(CellSize("0.57735"))},
        {"hexagons-10mm", "Hexagons 10 mm across flats", "hexagon", Group::HexagonsAndTriangles, metric,
         "hex game map chemistry",
         OnA4(CellSize("0.57735"))},
        {"hexagons-5mm", "Hexagons 5 mm across flats", "hexagon", Group::HexagonsAndTriangles, metric,
         "hex game map chemistry",
         OnA4(CellSize("0.288675"))},
        {"isometric-10mm", "Isometric 10 mm", "isometric", Group::HexagonsAndTriangles, metric,
         "triangles 30 degrees drawing 3d",
         OnA4(CellSize("1"))},
        {"isometric-5mm", "Isometric 5 mm", "isometric", Group::HexagonsAndTriangles, metric,
         "triangles 30 degrees drawing 3d",
         OnA4(CellSize("0.5"))},
        {"isometric-quarter-inch", "Isometric 1/4 inch", "isometric", Group::HexagonsAndTriangles, us,
         "triangles 30 degrees drawing 3d",
         OnLetter(CellSize("0.25"))},
        {"axonometric-1cm", "Axonometric 1 cm", "axonometric", Group::HexagonsAndTriangles, metric,
         "45 degrees drawing 3d", OnA4(CellSize("1"))},
        {"trapezoid-1cm", "Trapezoid 1 cm", "trapezoid", Group::HexagonsAndTriangles, metric,
         "60 degrees triangles", OnA4(CellSize("1"))},
        {"bricks-1x2cm", "Bricks 1 by 2 cm", "brick", Group::Other, metric, "wall masonry beads",
         OnA4({{"EditVertSpacing", "1"}, {"EditHorzWeight", ".4"}, {"EditHorzSpacing", "2"}, {"EditVertWeight", ".4"},
               {"LinesColorCanvas", softBlue}})},

        {"polar-10-degrees", "Polar, every 10 degrees", "polar", Group::Other, metric,
         "circular angle", OnA4(Spokes("Degrees", "36", "180"))},
        {"polar-15-degrees", "Polar, every 15 degrees", "polar", Group::Other, metric,
         "circular angle", OnA4(Spokes("Degrees", "24", "72"))},
        {"polar-radians", "Polar in radians", "polar", Group::Other, metric,
         "circular angle pi", OnA4(Spokes("Radians", "12", "72"))},
        {"ternary-by-10", "Ternary, numbers by 10", "ternary", Group::HexagonsAndTriangles, metric,
         "triangle mixture phase soil",
         OnA4(Join({Triangle("10", "5"), NarrowMargins("1.5")}))},
        {"ternary-by-20", "Ternary, numbers by 20", "ternary", Group::HexagonsAndTriangles, metric,
         "triangle mixture phase soil",
         OnA4(Join({Triangle("5", "10"), NarrowMargins("1.5")}))},

        {"semi-log-1", "Semi-log, 1 decade", "graph", Group::Logarithmic, metric,
         "logarithmic cycle", SemiLog("Log 1 Decade")},
        {"semi-log-2", "Semi-log, 2 decades", "graph", Group::Logarithmic, metric,
         "logarithmic cycles", SemiLog("Log 2 Decades")},
        {"semi-log-3", "Semi-log, 3 decades", "graph", Group::Logarithmic, metric,
         "logarithmic cycles", SemiLog("Log 3 Decades")},
        {"semi-log-4", "Semi-log, 4 decades", "graph", Group::Logarithmic, metric,
         "logarithmic cycles", SemiLog("Log 4 Decades")},
        {"semi-log-5", "Semi-log, 5 decades", "graph", Group::Logarithmic, metric,
         "logarithmic cycles", SemiLog("Log 5 Decades")},
        {"semi-log-x-1", "Semi-log across, 1 decade", "graph", Group::Logarithmic, metric,
         "logarithmic cycle", SemiLogX("Log 1 Decade")},
        {"semi-log-x-2", "Semi-log across, 2 decades", "graph", Group::Logarithmic, metric,
         "logarithmic cycles", SemiLogX("Log 2 Decades")},
        {"semi-log-x-3", "Semi-log across, 3 decades", "graph", Group::Logarithmic, metric,
         "logarithmic cycles", SemiLogX("Log 3 Decades")},
        {"semi-log-x-4", "Semi-log across, 4 decades", "graph", Group::Logarithmic, metric,
         "logarithmic cycles", SemiLogX("Log 4 Decades")},
        {"semi-log-x-5", "Semi-log across, 5 decades", "graph", Group::Logarithmic, metric,
         "logarithmic cycles", SemiLogX("Log 5 Decades", "5")},
        {"log-log-1", "Log-log, 1 by 1 decade", "graph", Group::Logarithmic, metric,
         "logarithmic cycle", LogLog("Log 1 Decade")},
        {"log-log-2", "Log-log, 2 by 2 decades", "graph", Group::Logarithmic, metric,
         "logarithmic cycles", LogLog("Log 2 Decades")},
        {"log-log-3", "Log-log, 3 by 3 decades", "graph", Group::Logarithmic, metric,
         "logarithmic cycles", LogLog("Log 3 Decades")},
        {"log-log-4", "Log-log, 4 by 4 decades", "graph", Group::Logarithmic, metric,
         "logarithmic cycles", LogLog("Log 4 Decades")},
        {"log-log-5", "Log-log, 5 by 5 decades", "graph", Group::Logarithmic, metric, "logarithmic cycles", 
         OnA4(Join({PlotMargins(), Plot(TypeX("Log 5 Decades"), TypeY("Log 5 Decades"), "5")}))},
        {"probability-normal", "Normal probability", "graph", Group::ProbabilityAndHydraulic, metric,
         "gauss distribution percent",
         OnA4(Join({PlotMargins(), Plot(LinearX(), TypeY("Probability"))}))},
        {"probability-log", "Probability against log, 2 decades", "graph", Group::ProbabilityAndHydraulic, metric,
         "lognormal distribution percent",
         OnA4(Join({PlotMargins(), Plot(TypeX("Log 2 Decades"), TypeY("Probability"))}))},
        {"hydraulic-linear", "Hydraulic 1.85 against linear", "graph", Group::ProbabilityAndHydraulic, metric,
         "flow pressure hydrant sprinkler",
         LyingA4(Join({PlotMargins(), Plot(HydraulicX(), LinearY("17"))}))},
        {"hydraulic-2.63", "Hydraulic 1.85 against 2.63", "graph", Group::ProbabilityAndHydraulic, metric,
         "flow diameter pipe",
         LyingA4(Join({PlotMargins(), Plot(HydraulicX(), HydraulicY())}))},
        // Both axes have the same scale: 1 is 2.122 cm long. On the X axis, 16 lines are pi; on the Y axis, 10
        // lines are 1.
        {"trigonometric", "Trigonometric, -2 pi to 2 pi", "graph", Group::Other, metric, "sine cosine pi waves",
         LyingA4(Join({Margins("2", "2", "1.5", "1.5"),
               Plot({{"EditXLineSpacing", "2.4"}, {"EditXMajor", "8"}, {"EditXAxisMinimum", "-2"},
                     {"EditXAxisMaximum", "2"}, {"EditXAxisStep", ".0625"}, {"EditXAxisSpacing", "8"},
                     {"PopupXAxisType", "Trigonometric"}},
                    {{"EditYLineSpacing", "4.7124"}, {"EditYMajor", "5"}, {"EditYAxisMinimum", "-4"},
                     {"EditYAxisMaximum", "4"}, {"EditYAxisStep", ".1"}, {"EditYAxisSpacing", "10"}})}))},
        // clang-format on
    };
}

}  // namespace

std::span<const Preset> Presets()
{
    static const std::vector<Preset> presets = MakePresets();
    return presets;
}

}  // namespace linealis
