#include "graph/MainWindow.h"

#include "graph/EasyGraphWizard.h"
#include "pdf/Numbers.h"

#include <cmath>

namespace linealis {

namespace {

constexpr MarginTexts margins{"1.5", "0.5", "0.75", "0.75"};

std::vector<std::string_view> AxisTypes(bool isX)
{
    std::vector<std::string_view> types = {"Linear",        "Log 1 Decade",  "Log 2 Decades", "Log 3 Decades",
                                           "Log 4 Decades", "Log 5 Decades", "Hydraulic"};
    if (!isX) {
        types.emplace_back("Probability");
    }
    return types;
}

/// The X row of a table names its columns; the Y row stands under the same names.
std::vector<Control> GridRow(const AxisControls& axis, std::string_view caption, bool isX)
{
    Control density = textField(axis.lineSpacing, "Lines/in", "10").Converted(UnitRule::CountPerUnit);
    if (isX) {
        density = density.LabelledBy("StaticTextLinesPerUnit");
    }
    return {
        popup(axis.type, caption, AxisTypes(isX)),
        density.Means(Meaning::GridDensity).UnderCaption(),
        textField(axis.lineThickness, "Weight", ".1").Means(Meaning::Weight).UnderCaption(),
        textField(axis.major, "Major Spacing", "5").Means(Meaning::GridLines).UnderCaption(),
        textField(axis.majorWeight, "Major Weight", ".7").Means(Meaning::Weight).UnderCaption(),
        textField(axis.hydraulicExponent, "Hydraulic\rExponent", "1.85")
            .Means(Meaning::Exponent)
            .Disabled()
            .UnderCaption(),
    };
}

std::vector<Control> AxisRow(const AxisControls& axis, std::string_view minimum, std::string_view maximum, bool isX)
{
    const auto labelled = [isX](const Control& field, std::string_view label) {
        return isX ? field.LabelledBy(label) : field;
    };
    return {
        isX ? label("StaticText10", "X Axis:") : label("StaticText11", "Y Axis:"),
        labelled(textField(axis.minimum, "Minimum", minimum).Means(Meaning::AxisValue), "StaticText13")
            .UnderCaption(),
        textField(axis.maximum, "Maximum", maximum).Means(Meaning::AxisValue).UnderCaption(),
        labelled(textField(axis.step, "Step", "1").Means(Meaning::AxisStep), "StaticText14").UnderCaption(),
        labelled(textField(axis.spacing, "Spacing", "5").Means(Meaning::NumberSpacing), "StaticText15")
            .UnderCaption(),
        textField(axis.weight, "Weight", "1.5").Means(Meaning::Weight).UnderCaption(),
        textField(axis.textSize, "Text Size", "12").Means(Meaning::FontSize).UnderCaption(),
        popup(axis.numberType, "Numbers", {"Numeric", "Trigonometric"}).UnderCaption(),
    };
}

std::vector<Control> TitleRow(const AxisControls& axis, std::string_view title, std::string_view x,
                              std::string_view y)
{
    return {
        textField(axis.title, "Title:", title).Means(Meaning::Prose),
        checkBox(axis.autoPosition, "Auto Pos", false).Beside(),
        textField(axis.titleTextSize, "Text Size", "16").Means(Meaning::FontSize).Beside(),
        textField(axis.titleX, "X:", x).Means(Meaning::Length).Beside(),
        textField(axis.titleY, "Y:", y).Means(Meaning::Length).Beside(),
    };
}

std::vector<Control> Rows(std::initializer_list<std::vector<Control>> rows)
{
    std::vector<Control> all;
    for (const std::vector<Control>& row : rows) {
        all.insert(all.end(), row.begin(), row.end());
    }
    return all;
}

const ControlTable& OwnControls()
{
    Control linesPerUnit = unitLabel("StaticTextLinesPerUnit", "Lines/in", "Lines/cm");
    linesPerUnit.caption = linesPerUnit.captionInInches;
    static const ControlTable table = {
        {Group::Spacing,
         Rows({{linesPerUnit}, GridRow(xControls, "X Grid:", true), GridRow(yControls, "Y Grid:", false)})},
        {Group::Axes, Rows({AxisRow(xControls, "-35", "35", true),
                            AxisRow(yControls, "-45", "45", false),
                            {checkBox("CheckBoxShowAxes", "Show Axes", true),
                             checkBox("CheckBoxMarkers", "Add Markers", false).Beside()}})},
        {Group::Lines,
         {
             swatch("LineColorCanvas", "Line Color"),
             swatch("MajorLineColorCanvas", "Major Line Color").Beside(),
             swatch("BackgroundColorCanvas", "Background Color", white).Beside(),
         }},
        {Group::Text, Rows({{textField("EditTitle", "Title:", "A Sample Graph Paper").Means(Meaning::Prose),
                             textField("EditTitleSize", "Size:", "20").Means(Meaning::FontSize).Beside(),
                             textField("EditTitleX", "X:", "2.6").Means(Meaning::TitlePlace).Beside(),
                             textField("EditTitleY", "Y:", "1").Means(Meaning::Length).Beside()},
                            TitleRow(xControls, "X-Axis Title", "2.9", "6.4"),
                            TitleRow(yControls, "Y-Axis Title", "3.1", "4"),
                            {popup("PopupFont1", "Font:", FontNames(), 4)}})},
        {Group::File, {shiftClickNote("StaticTextShiftClick")}},
    };
    return table;
}

const SettingsTable& Settings()
{
    using namespace settings;
    static const SettingsTable table = Concatenate({
        {fixed("1.3.0"), text("EditTitle"), text("EditTitleX"), text("EditTitleY"), text("EditTitleSize"),
         popup("PopupOrientation"), popup("PopupPaperSize"), fixed("0"), fixed("0"), popup("PopupUnits"),
         text("EditXScale"), text("EditYScale")},
        {text("EditXLineSpacing"), text("EditXLineThickness"), text("EditXMajor"), text("EditXMajorWeight"),
         popup("PopupXAxis")},
        {text("EditYLineSpacing"), text("EditYLineThickness"), text("EditYMajor"), text("EditYMajorWeight"),
         popup("PopupYAxis")},
        {text("EditXAxisMinimum"), text("EditXAxisStep"), text("EditXAxisSpacing"), text("EditXAxisWeight"),
         text("EditXAxisTextSize")},
        {text("EditYAxisMinimum"), text("EditYAxisStep"), text("EditYAxisSpacing"), text("EditYAxisWeight"),
         text("EditYAxisTextSize")},
        Margins(),
        {box("CheckBoxShowAxes"), box("CheckBoxViewGraph"), box("CheckBoxMarkers"), colour("LineColorCanvas"),
         colour("MajorLineColorCanvas"), fileReference(), text("EditXAxisTitle"), text("EditYAxisTitle"),
         popup("PopupFont1")},
        {text("EditXAxisTitleTextSize"), text("EditXAxisTitleX"), text("EditXAxisTitleY")},
        {text("EditYAxisTitleTextSize"), text("EditYAxisTitleX"), text("EditYAxisTitleY")},
        {popup("PopupXAxisType"), popup("PopupYAxisType"), text("EditXHydraulicExponent"),
         text("EditYHydraulicExponent"), text("EditXAxisMaximum"), text("EditYAxisMaximum"),
         inverseColour("BackgroundColorCanvas"), boolean("CheckAutoPosXAxisText"),
         boolean("CheckAutoPosYAxisText")},
    });
    return table;
}

/// Zero, or a text without a number, counts as 1: nothing can be divided by it.
double OrOne(double value)
{
    return value == 0.0 ? 1.0 : value;
}

}  // namespace

MainWindow::MainWindow(Platform& thePlatform)
    : PaperWindow(thePlatform, OwnControls(), Settings(), settingsType, margins),
      wizard(std::make_unique<EasyGraphWizard>(*this))
{
    BindHandlers();
}

MainWindow::~MainWindow() = default;

void MainWindow::BindHandlers()
{
    for (const AxisControls* const axis : {&xControls, &yControls}) {
        form.OnChange(axis->type, [this] { EnableAxisFields(); });
        form.OnChange(axis->maximum, [this, axis] { RecalcIfTypedInto(axis->maximum); });
        form.OnChange(axis->step, [this, axis] { RecalcIfTypedInto(axis->step); });
    }
    form.OnChange("CheckBoxShowAxes", [this] { CheckBoxShowAxes_Action(); });
}

void MainWindow::Event_Open()
{
    // Unlike in the other windows the units stay as they are, so that short texts such as ".1" stay too.
    form.SetListIndex("PopupPaperSize", 1);
    form.SetListIndex("PopupPaperSize", 0);
    pdf.Delete();
    form.SetColor("LineColorCanvas", black);
    form.SetColor("MajorLineColorCanvas", black);
    form.SetColor("BackgroundColorCanvas", white);
}

void MainWindow::Event_Close()
{
    SaveSettings(LastSettingsFile());
}

FolderItem MainWindow::LastSettingsFile() const
{
    return platform.PreferencesFolder().Child("LinealisLastSettings");
}

void MainWindow::LoadLastSettings()
{
    if (const FolderItem file = LastSettingsFile(); file.Exists()) {
        LoadSettings(file);
    }
}

std::error_code MainWindow::LoadSettings(const FolderItem& file)
{
    form.SetColor("BackgroundColorCanvas", white);
    return PaperWindow::LoadSettings(file);
}

void MainWindow::EnableAxisFields()
{
    for (const AxisControls* const axis : {&xControls, &yControls}) {
        const int type = form.ListIndex(axis->type);
        const bool isLog = type >= logOneDecade && type <= logFiveDecades;
        for (const std::string_view name :
             {axis->lineSpacing, axis->major, axis->minimum, axis->step, axis->spacing}) {
            form.SetEnabled(name, !isLog);
        }
        form.SetEnabled(axis->hydraulicExponent, type == hydraulic);
    }
}

void MainWindow::CheckBoxShowAxes_Action()
{
    // Whatever the axis types say: the next change of one puts it right again.
    for (const char* const name :
         {"StaticText10", "StaticText11", "StaticText13", "StaticText14", "StaticText15", "EditXAxisMinimum",
          "EditYAxisMinimum", "EditXAxisStep", "EditYAxisStep", "EditXAxisSpacing", "EditYAxisSpacing"}) {
        form.SetEnabled(name, form.Value("CheckBoxShowAxes"));
    }
}

void MainWindow::RecalcIfTypedInto(std::string_view field)
{
    if (form.focusedControl == field) {
        RecalcLinesPerInch();
    }
}

void MainWindow::ReadOwnValues()
{
    ReadAxis(xAxis);
    ReadAxis(yAxis);
}

void MainWindow::ReadAxis(Axis& axis)
{
    const AxisControls& names = axis.controls;
    axis.lineSpacing = (1.0 / OrOne(form.Number(names.lineSpacing))) * unitPixels;
    axis.lineThickness = form.Number(names.lineThickness);
    axis.type = form.ListIndex(names.type);
    axis.majorStep = form.Number(names.major);
    axis.majorWeight = form.Number(names.majorWeight);
    axis.step = OrOne(form.Number(names.step));
    // Anything from 0 to 1 would never reach the next line.
    const double spacing = form.Number(names.spacing);
    axis.spacing = spacing >= 0.0 && spacing < 1.0 ? 1.0 : spacing;
    axis.hydraulicExponent = form.Number(names.hydraulicExponent);
}

double MainWindow::RoomAcross() const
{
    return static_cast<double>(paperWidth) - leftMargin - rightMargin;
}

double MainWindow::RoomUp() const
{
    return static_cast<double>(paperHeight) - topMargin - bottomMargin;
}

void MainWindow::RecalcLinesPerInch()
{
    ReadGUIValues();
    MeasureUsableArea();
    RecalcAxis(xAxis, usableWidth);
    RecalcAxis(yAxis, usableHeight);
}

void MainWindow::RecalcAxis(const Axis& axis, double room)
{
    const AxisControls& names = axis.controls;
    const double steps = std::ceil((form.Number(names.maximum) - form.Number(names.minimum)) / axis.step);
    // The little more than a whole number keeps the last line from being lost to rounding.
    form.SetText(names.lineSpacing, Str(steps / (room / unitPixels) * 1.00001));
}

}  // namespace linealis
