#pragma once

#include "graph/Axis.h"
#include "pipeline/PaperWindow.h"

#include <memory>
#include <string>
#include <string_view>

namespace linealis {

class EasyGraphWizard;

/// The general graph paper: two axes, each linear, logarithmic or hydraulic, the Y axis also probability.
class MainWindow final : public PaperWindow {
public:
    static constexpr FileType settingsType{"Setg", "setg"};

    explicit MainWindow(Platform& thePlatform);
    ~MainWindow() override;

    void Event_Open() override;

    /// Saves the form as the last settings.
    void Event_Close() override;

    /// Rewrites the two "Lines/in" fields so that the grid holds the whole range of each axis in whole steps.
    void RecalcLinesPerInch();

    /// Makes the background white before anything else, so that a file without one gives a white page.
    std::error_code LoadSettings(const FolderItem& file) override;

    /// Loads what Event_Close saved, if there is such a file.
    void LoadLastSettings();

    /// The one wizard of this window.
    EasyGraphWizard& Wizard() { return *wizard; }

    /// Points between the margins, as ReadGUIValues left them.
    double RoomAcross() const;
    double RoomUp() const;

protected:
    void ReadOwnValues() override;
    void DoGraph() override;

private:
    // The form (MainWindow.cpp).
    void BindHandlers();
    void EnableAxisFields();
    void CheckBoxShowAxes_Action();
    void RecalcIfTypedInto(std::string_view field);
    void ReadAxis(Axis& axis);
    void RecalcAxis(const Axis& axis, double room);

    // The page (MainWindow_Page.cpp).
    void MeasureGrid(Axis& axis);
    void PlotAxesThatFillTheRoom();
    void PlotAxesThatFillTheGrid();
    void FindZero(Axis& axis) const;
    void DrawAxes();
    void DrawAxisLines();
    void DrawXAxisTitle();
    void DrawYAxisTitle();
    void DrawTitle();

    // What the plotters share (MainWindow_Page.cpp).
    double Origin(const Axis& axis) const { return axis.IsX() ? leftMargin : bottomMargin; }
    double Usable(const Axis& axis) const { return axis.IsX() ? usableWidth : usableHeight; }
    const Axis& Across(const Axis& axis) const { return axis.IsX() ? yAxis : xAxis; }
    /// A grid line of the axis: at `position` along it, from the graph's edge to `end` across it.
    void DrawGridLine(const Axis& axis, double position, double end);
    /// Where the lines of the axis end when the grid is what they fill.
    double GridEnd(const Axis& axis) const;
    void SetMinorStyle(const Axis& axis);
    void SetMajorStyle(const Axis& axis);
    double WidthOf(std::string_view text, double size) const;
    static double TextHeight(double size) { return 0.0 + size * 0.63; }

    // One plotter a type of axis (MainWindow_Linear.cpp and so on).
    double StartOfMajorCount(const Axis& axis) const;
    bool NextLineIsMajor(const Axis& axis, double& majorCount) const;
    void PlotLinearAxis(const Axis& axis);
    void DrawLinearNumbers(const Axis& axis);
    std::string LinearNumber(const Axis& axis, double value) const;
    void PlotLogAxis(const Axis& axis);
    void DrawLogNumber(const Axis& axis, double value, double position);
    void PlotHydraulicAxis(Axis& axis);
    bool HydraulicAxisIsValid(const Axis& axis);
    void DrawHydraulicNumber(const Axis& axis, double value, double position, double size);
    void PlotProbabilityYAxis();
    void PlotMarkers();
    void PlotMarker(std::string_view line);
    double MarkerPosition(const Axis& axis, double value) const;

    FolderItem LastSettingsFile() const;

    Axis xAxis{xControls};
    Axis yAxis{yControls};
    std::int64_t fonthandle = 0;
    std::unique_ptr<EasyGraphWizard> wizard;
};

}  // namespace linealis
