#pragma once

#include "graph/DataRange.h"

namespace linealis {

/// Fills in the form of graph paper from ranges of data: each axis gets lines at steps of 1, 2, or 5, or decades,
/// so that its range fits the paper.
class DataRangeWizard final : public RangeWizard {
public:
    explicit DataRangeWizard(GraphForm& theGraph) : graph(theGraph) {}

    Form& Fields() override { return form; }
    void Begin() override;
    Message Problem() const override;
    Message Outcome() const override;
    /// Fills in the form. Changes nothing if there is a problem.
    void PushButton1_Action() override;

private:
    /// The fields of the wizard for one axis.
    struct RangeRow {
        TextField minimum;
        TextField maximum;
        CheckBox isLog;

        RangeRow(Form& form, AxisName axis);
        bool IsEmpty() const;
    };
    struct WizardForm final : Form {
        RangeRow x{*this, AxisName::x};
        RangeRow y{*this, AxisName::y};
        Popup fineness{*this, Group::Spacing, "PopupFineness", "fineness", "Lines:", {"coarse", "medium", "fine"},
                       1};
    };

    /// The texts of the form after OK, by which Begin recognizes them.
    struct Entered {
        std::string minimum;
        std::string maximum;
        int type = -1;

        bool operator==(const Entered&) const = default;
    };

    static Entered ShownBy(const AxisFields& fields);
    static void Suggest(RangeRow& row, const AxisFields& fields, const Entered& entered);
    /// Returns the fit of an axis whose range is not empty.
    AxisFitOrProblem Fit(const RangeRow& row, AxisName axis) const;
    /// Calls `use` with each axis that has a range and its row.
    template <typename Use>
    void ForEachRange(const Use& use) const;

    GraphForm& graph;
    WizardForm form;
    Entered enteredX;
    Entered enteredY;
};

}  // namespace linealis
