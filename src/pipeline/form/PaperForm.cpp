#include "pipeline/form/PaperForm.h"

#include "pdf/StandardFonts.h"
#include "pdf/Units.h"
#include "pipeline/form/FieldWords.h"
#include "pipeline/form/UnitConversion.h"
#include "pipeline/page/PaperSizes.h"
#include "text/Numbers.h"

#include <algorithm>
#include <utility>

namespace linealis {

namespace {

/// Returns the paper names, followed by Custom.
std::vector<std::string_view> PaperNames()
{
    std::vector<std::string_view> names;
    for (const NamedPaper& paper : NamedPapers()) {
        names.push_back(paper.name);
    }
    names.emplace_back("Custom");
    return names;
}

constexpr Traits Margin(std::string_view fullName, bool isBeside = true)
{
    return {.beside = isBeside, .meaning = Meaning::Length, .unitRule = UnitRule::Length, .fullName = fullName};
}
constexpr Traits CustomSize(std::string_view fullName)
{
    return {.beside = true, .enabled = false, .meaning = Meaning::CustomInches, .fullName = fullName};
}

}  // namespace

PaperForm::PaperForm(const MarginTexts& margins)
    : PopupPaperSize{*this, Group::Page, "PopupPaperSize", "paper-size", "Paper Size:", PaperNames()},
      EditCustomWidth{*this, Group::Page, "EditCustomWidth", "custom-width", "", "8.5", CustomSize("Custom width")},
      StaticBy{*this, Group::Page, "StaticBy", "by", {.beside = true, .enabled = false}},
      EditCustomHeight{*this, Group::Page, "EditCustomHeight",         "custom-height",
                       "",    "11",        CustomSize("Custom height")},
      StaticText16{*this, Group::Page, "StaticText16", "in", {.beside = true}, {"in", "cm"}},
      PopupOrientation{*this,         Group::Page,    "PopupOrientation",
                       "orientation", "Orientation:", {"Portrait", "Landscape"}},
      PopupUnits{*this, Group::Page, "PopupUnits", "units", "Units:", {"inches", "cm"}, 0, {.beside = true}},
      EditXScale{*this, Group::Page, "EditXScale", "x-scale", "X Scale:", "100", {.meaning = Meaning::Scale}},
      EditYScale{*this,
                 Group::Page,
                 "EditYScale",
                 "y-scale",
                 "Y Scale:",
                 "100",
                 {.beside = true, .meaning = Meaning::Scale}},
      EditTopMargin{
          *this, Group::Margins, "EditTopMargin", "top-margin", "Top", margins.top, Margin("Top margin", false)},
      EditBottomMargin{*this,    Group::Margins, "EditBottomMargin",     "bottom-margin",
                       "Bottom", margins.bottom, Margin("Bottom margin")},
      EditLeftMargin{*this,  Group::Margins, "EditLeftMargin",     "left-margin",
                     "Left", margins.left,   Margin("Left margin")},
      EditRightMargin{*this,   Group::Margins, "EditRightMargin",     "right-margin",
                      "Right", margins.right,  Margin("Right margin")},
      CheckBoxViewGraph{*this, Group::File, "CheckBoxViewGraph", "view-graph", "View Graph", true},
      StaticFileName{*this, Group::File, "StaticFileName", "Untitled", {.beside = true}}
{
    PopupPaperSize.onChange = [this] { PopupPaperSize_Change(); };
    PopupUnits.onChange = [this] { PopupUnits_Change(); };
}

void PaperForm::Event_Open(const Platform& /*platform*/)
{
    OpenPaperSize();
    // Switch to centimeters and back, so that the handler runs and updates every field.
    PopupUnits.SetListIndex(1);
    PopupUnits.SetListIndex(0);
}

void PaperForm::OpenPaperSize()
{
    PopupPaperSize.SetListIndex(1);
    PopupPaperSize.SetListIndex(0);
}

Message PaperForm::WhyIdle(const Control& control) const
{
    const Traits& traits = control.Declared();
    if (&control == &EditCustomWidth || &control == &EditCustomHeight) {
        return control.IsEnabled() ? Message() : Message("Paper Size is not Custom");
    }
    const CheckBox* const box = traits.drawnBy != nullptr ? traits.drawnBy : traits.enabledBy;
    return box == nullptr || box->Value() ? Message() : IsOff(*box);
}

PaperSize PaperForm::GetPaperSize() const
{
    const auto index = static_cast<std::size_t>(PopupPaperSize.ListIndex());
    if (index < NamedPapers().size()) {
        return NamedPapers()[index].size;
    }
    return {PointsOfCustomSide(EditCustomWidth.MeansNow(), EditCustomWidth.Number()),
            PointsOfCustomSide(EditCustomHeight.MeansNow(), EditCustomHeight.Number())};
}

void PaperForm::SetPaperSize(const PaperSize& size)
{
    const auto inUnits = [this](std::int64_t points) {
        const auto side = static_cast<double>(points);
        return mystring(InInches() ? side / pointsPerInch : side * cmPerInch / pointsPerInch);
    };
    EditCustomHeight.SetText(inUnits(size.height));
    EditCustomWidth.SetText(inUnits(size.width));
}

void PaperForm::PopupPaperSize_Change()
{
    const bool custom = static_cast<std::size_t>(PopupPaperSize.ListIndex()) >= NamedPapers().size();
    EditCustomHeight.SetEnabled(custom);
    EditCustomWidth.SetEnabled(custom);
    StaticBy.SetEnabled(custom);
    if (!custom) {
        SetPaperSize(GetPaperSize());
    }
}

void PaperForm::PopupUnits_Change()
{
    ConvertUnits(*this, InInches());
    // A custom size is read in the new unit: its numbers stay, and their meaning changes.
    for (TextField* const side : {&EditCustomWidth, &EditCustomHeight}) {
        side->SetMeaning(InInches() ? Meaning::CustomInches : Meaning::CustomCm);
    }
    SetPaperSize(GetPaperSize());
}

PageSetup PaperForm::ReadSetup() const
{
    const double unitPixels = InInches() ? pointsPerInch : pointsPerCm;
    PaperSize paper = GetPaperSize();
    if (PopupOrientation.ListIndex() == 1) {
        std::swap(paper.width, paper.height);
    }
    return {.paperWidth = paper.width,
            .paperHeight = paper.height,
            .unitPixels = unitPixels,
            .leftMargin = EditLeftMargin.Number() * unitPixels,
            .rightMargin = EditRightMargin.Number() * unitPixels,
            .topMargin = EditTopMargin.Number() * unitPixels,
            .bottomMargin = EditBottomMargin.Number() * unitPixels};
}

PageFrame PaperForm::ReadFrame(const Swatch& background, const Swatch* lineColor) const
{
    PageFrame frame{ReadSetup()};
    frame.paperHeight = std::max(frame.paperHeight, smallestPage);
    frame.paperWidth = std::max(frame.paperWidth, smallestPage);
    frame.xScale = EditXScale.Number() / 100.0;
    frame.yScale = EditYScale.Number() / 100.0;
    frame.background = background.Shown();
    if (lineColor != nullptr) {
        frame.lineColor = lineColor->Shown();
    }
    return frame;
}

void PaperForm::WriteCorrections()
{
    for (Control* const control : Controls()) {
        if (control->Kind() != ControlKind::Text) {
            continue;
        }
        auto& field = static_cast<TextField&>(*control);
        if (FactsOf(field.MeansNow()).isCorrectedInForm && field.Used() != field.Number()) {
            field.SetText(Str(field.Used()));
        }
    }
}

ShiftClickNote::ShiftClickNote(PaperForm& form, std::string_view name)
    : label(form, Group::File, name, "(Shift click to change filename)", {.beside = true})
{}

const std::vector<std::string_view>& FontNames()
{
    static const std::vector<std::string_view> names = [] {
        std::vector<std::string_view> titles;
        for (const StandardFont& font : StandardFonts().subspan<1, 12>()) {
            titles.push_back(font.title);
        }
        return titles;
    }();
    return names;
}

}  // namespace linealis
