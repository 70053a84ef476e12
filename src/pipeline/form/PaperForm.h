#pragma once

#include "pipeline/form/Form.h"
#include "pipeline/page/PageFrame.h"
#include "platform/Platform.h"

#include <string_view>
#include <vector>

namespace linealis {

/// What the margin fields hold when a form opens, in the current units.
struct MarginTexts {
    std::string_view top = "0.5";
    std::string_view bottom = "0.5";
    std::string_view left = "0.5";
    std::string_view right = "0.5";
};

/// The state of one paper window's controls: those that every form has, and the kind's own, which are members of a
/// class derived from this. All logic reads and writes it; a window only shows it.
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

    /// Brings the form into its opening state. Runs once, when the whole form stands. `platform` tells the date.
    virtual void Event_Open(const Platform& platform);
    /// Runs before a settings file is opened for a load, also of one that cannot be opened.
    virtual void BeforeLoad() {}

    /// Why the page is the same whatever the control holds, in a few words: "Paper Size is not Custom"; empty if it
    /// is not the same. A disabled field can still count, and an enabled one can count for nothing.
    virtual std::string WhyIdle(const Control& control) const;

    bool InInches() const { return PopupUnits.ListIndex() == 0; }
    LengthUnit UnitOfLengths() const override { return InInches() ? LengthUnit::Inches : LengthUnit::Centimeters; }

    /// The paper in points, upright, from the popup or the custom size fields.
    PaperSize GetPaperSize() const;
    /// Shows a size in points in the custom size fields.
    void SetPaperSize(const PaperSize& size);

    /// Paper, unit and margins as they stand in the form.
    PageSetup ReadSetup() const;
    /// The same for a page, with its scale and colors. A kind without a line color of the whole page gives none.
    PageFrame ReadFrame(const Swatch& background, const Swatch* lineColor) const;

    /// Writes into the form what a page uses instead of what a person has entered, where a kind says so.
    void WriteCorrections();

protected:
    /// Chooses another paper and back, so that the handler runs and the custom size shows what it writes.
    void OpenPaperSize();

private:
    void PopupPaperSize_Change();
    void PopupUnits_Change();
};

/// The note under the file name. Its name differs from window to window.
class ShiftClickNote {
public:
    ShiftClickNote(PaperForm& form, std::string_view name);

private:
    Label label;
};

/// The fonts of a font popup. An item's index plus 1 is the number of its font on the page.
const std::vector<std::string_view>& FontNames();

}  // namespace linealis
