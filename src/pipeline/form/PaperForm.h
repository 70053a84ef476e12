#pragma once

#include "pipeline/form/Form.h"
#include "pipeline/page/PageFrame.h"
#include "platform/Platform.h"

#include <string_view>
#include <vector>

namespace linealis {

/// The opening texts of the margin fields, in the current units.
struct MarginTexts {
    std::string_view top = "0.5";
    std::string_view bottom = "0.5";
    std::string_view left = "0.5";
    std::string_view right = "0.5";
};

/// The controls of one paper window: those that every form has, and those of the kind, which are members of a
/// derived class. All logic reads and writes the form; a window only displays it.
class PaperForm : public Form {
public:
    explicit PaperForm(const MarginTexts& margins = {});
    virtual ~PaperForm() = default;

    Popup PopupPaperSize;
    TextField EditCustomWidth;
    Label StaticBy;
    TextField EditCustomHeight;
    Label StaticText16;
    Popup PopupOrientation;
    Popup PopupUnits;
    TextField EditXScale;
    TextField EditYScale;
    TextField EditTopMargin;
    TextField EditBottomMargin;
    TextField EditLeftMargin;
    TextField EditRightMargin;
    CheckBox CheckBoxViewGraph;
    Label StaticFileName;

    /// Puts the form into its opening state. Call once, after all members are constructed. `platform` provides the
    /// date.
    virtual void Event_Open(const Platform& platform);
    /// Called before a settings file is loaded, even if it turns out that it cannot be opened.
    virtual void BeforeLoad() {}

    /// Returns why the control currently has no effect on the page, in a few words ("Paper Size is not Custom"), or
    /// an empty text if it has an effect. A disabled field can still have an effect, and an enabled one can have
    /// none.
    virtual Message WhyIdle(const Control& control) const;

    bool InInches() const { return PopupUnits.ListIndex() == 0; }
    LengthUnit UnitOfLengths() const override { return InInches() ? LengthUnit::Inches : LengthUnit::Centimeters; }

    /// Returns the paper size in points before rotation, from the popup or the custom size fields. A custom size
    /// may be smaller than smallestPage.
    PaperSize GetPaperSize() const;
    /// Shows a size, given in points, in the custom size fields.
    void SetPaperSize(const PaperSize& size);

    /// Returns the paper, unit, and margins as entered. Lengths are in points.
    PageSetup ReadSetup() const;
    /// Returns the frame of the page, including scales and colors, with each side at least smallestPage.
    /// `lineColor` is null for a kind without one line color for the whole page.
    PageFrame ReadFrame(const Swatch& background, const Swatch* lineColor) const;

    /// Replaces entered values with the values that the page uses, for the meanings that ask for it
    /// (MeaningFacts::isCorrectedInForm).
    void WriteCorrections();

protected:
    /// Selects another paper and back again, so that the handler runs and updates the custom size.
    void OpenPaperSize();

private:
    void PopupPaperSize_Change();
    void PopupUnits_Change();
};

/// The note under the file name. Its control name differs from window to window.
class ShiftClickNote {
public:
    ShiftClickNote(PaperForm& form, std::string_view name);

private:
    Label label;
};

/// Returns the items of a font popup. The index of an item plus 1 is the number of its font on the page.
const std::vector<std::string_view>& FontNames();

}  // namespace linealis
