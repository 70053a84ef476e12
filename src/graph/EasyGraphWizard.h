#pragma once

#include "graph/GraphPaper.h"

namespace linealis {

/// The wizard of graph paper: fills in the form from the range of the data and the spacing of the lines, both in
/// values of the axes.
class EasyGraphWizard final : public Wizard {
public:
    explicit EasyGraphWizard(GraphForm& theGraph) : graph(theGraph) {}

    Form& Fields() override { return form; }
    void PushButton1_Action() override { CalcValues(); }

private:
    /// The fields of the wizard for one axis.
    struct Range {
        TextField& minimum;
        TextField& maximum;
        TextField& minorSpacing;
        TextField& majorSpacing;
    };
    struct WizardForm final : Form {
        TextField EditMinX{*this, Group::Spacing, "EditMinX", "min-x", "Min X:", "-20"};
        TextField EditMaxX{*this, Group::Spacing, "EditMaxX", "max-x", "Max X:", "20"};
        TextField EditMinorXSpacing{*this,
                                    Group::Spacing,
                                    "EditMinorXSpacing",
                                    "minor-x-spacing",
                                    "Minor X Spacing:",
                                    "2",
                                    {.meaning = Meaning::AxisStep}};
        TextField EditMajorXSpacing{
            *this, Group::Spacing, "EditMajorXSpacing", "major-x-spacing", "Major X Spacing:", "10"};
        TextField EditMinY{*this, Group::Spacing, "EditMinY", "min-y", "Min Y:", "-35"};
        TextField EditMaxY{*this, Group::Spacing, "EditMaxY", "max-y", "Max Y:", "35"};
        TextField EditMinorYSpacing{*this,
                                    Group::Spacing,
                                    "EditMinorYSpacing",
                                    "minor-y-spacing",
                                    "Minor Y Spacing:",
                                    "1",
                                    {.meaning = Meaning::AxisStep}};
        TextField EditMajorYSpacing{
            *this, Group::Spacing, "EditMajorYSpacing", "major-y-spacing", "Major Y Spacing:", "10"};
    };

    void CalcValues();
    /// Fills in the form fields of an axis that is `room` points long.
    void Fill(const Range& range, const AxisFields& fields, double room);
    /// Converts lines per point to lines per unit of the graph form.
    double ConvertToUnits(double linesPerPoint) const;

    GraphForm& graph;
    WizardForm form;
};

}  // namespace linealis
