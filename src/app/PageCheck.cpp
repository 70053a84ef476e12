#include "app/PageCheck.h"

#include "pdf/Numbers.h"
#include "pipeline/FieldWords.h"
#include "pipeline/LengthText.h"
#include "pipeline/PageWords.h"
#include "platform/BinaryStream.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace linealis {

namespace {

constexpr double leastMargin = 18.0;      // points, 6.35 mm: what many printers cannot reach
constexpr double marginTolerance = 0.01;  // points; a margin in centimetres is off by less
constexpr double thinnest = 0.1;          // points; a thinner line may not print

class FormChecker {
public:
    FormChecker(const PaperForm& theForm, const PaperPage& page)
        : form(theForm), frame(page.frame), warnings(FieldWarnings(theForm))
    {
        warnings.insert(warnings.end(), page.warnings.begin(), page.warnings.end());
    }

    PageWarnings Check()
    {
        CheckWeights();
        CheckMargins();
        CheckRoom();
        CheckScale(form.EditXScale);
        CheckScale(form.EditYScale);
        CheckCustomSize();
        return std::move(warnings);
    }

private:
    void Warn(std::string_view id, const Control& control, const std::string& text)
    {
        warnings.push_back({id, std::string(control.Name()), text});
    }

    void CheckWeights()
    {
        for (const Control* const control : form.Controls()) {
            if (control->State().meaning == Meaning::Weight && form.WhyIdle(*control).empty()) {
                CheckWeight(static_cast<const TextField&>(*control));
            }
        }
    }

    void CheckWeight(const TextField& field)
    {
        const double width = field.Used() * std::min(std::abs(frame.xScale), std::abs(frame.yScale));
        if (width == 0.0) {
            Warn("thin", field,
                 WholeName(form, field) + ": lines of 0 points print as thin as possible, or not at all");
        } else if (width > 0.0 && width < thinnest - 1e-9 && !form.IsAsOpened(field)) {
            Warn("thin", field,
                 WholeName(form, field) + ": lines of " + Str(width) + " pt may not print; use at least " +
                     Str(thinnest) + " pt");
        }
        if (const TextField* const apart = field.Declared().apart) {
            const bool counts = FactsOf(apart->MeansNow()).quantity == Quantity::CountPerUnit;
            WarnOfInk(form, field, counts ? frame.unitPixels / apart->Used() : apart->Used() * frame.unitPixels,
                      warnings);
        }
    }

    void CheckMargins()
    {
        const struct {
            const TextField& field;
            double points;
        } margins[] = {{form.EditTopMargin, frame.topMargin},
                       {form.EditBottomMargin, frame.bottomMargin},
                       {form.EditLeftMargin, frame.leftMargin},
                       {form.EditRightMargin, frame.rightMargin}};
        const Control* first = nullptr;
        std::string names;
        for (const auto& [field, points] : margins) {
            if (points < leastMargin - marginTolerance) {
                first = first == nullptr ? &field : first;
                names += (names.empty() ? "" : ", ") + WholeName(form, field);
            }
        }
        if (first != nullptr) {
            Warn("margin", *first, names + " under 6.35 mm: many printers do not reach so close to the edge");
        }
    }

    void CheckRoom()
    {
        const std::array allMargins = {&form.EditTopMargin, &form.EditBottomMargin, &form.EditLeftMargin,
                                       &form.EditRightMargin};
        if (frame.UsableWidth() <= 0.0 || frame.UsableHeight() <= 0.0) {
            const TextField& widest =
                **std::max_element(allMargins.begin(), allMargins.end(),
                                   [](const TextField* a, const TextField* b) { return a->Used() < b->Used(); });
            Warn("room", widest, "The margins leave no room on the page");
            return;
        }
        for (const Control* const control : form.Controls()) {
            const bool isCell =
                control->State().meaning == Meaning::Spacing || control->State().meaning == Meaning::CellSize;
            if (control->Kind() == ControlKind::Text && isCell) {
                CheckCell(static_cast<const TextField&>(*control));
            }
        }
    }

    void CheckCell(const TextField& field)
    {
        const bool isUpright = field.Name() == "EditVertSpacing";
        const bool isFlat = field.Name() == "EditHorzSpacing";
        const double room = isUpright ? frame.UsableHeight()
                            : isFlat  ? frame.UsableWidth()
                                      : std::min(frame.UsableWidth(), frame.UsableHeight());
        const double cell = field.Used() * frame.unitPixels;
        if (cell > room) {
            Warn("cell", field,
                 WholeName(form, field) + " of " + LengthWords(cell, frame) + " is larger than the room of " +
                     LengthWords(room, frame) + " between the margins");
        }
    }

    void CheckScale(const TextField& field)
    {
        if (field.Used() != 100.0 && field.Used() != 0.0) {  // of 0 the field speaks
            Warn("scale", field,
                 WholeName(form, field) + " is " + Str(field.Used()) + " %: lengths on the page are not true");
        }
    }

    void CheckCustomSize()
    {
        if (form.EditCustomWidth.IsEnabled()) {
            Warn("custom-size", form.EditCustomWidth,
                 "A settings file does not keep a custom paper size, " + PaperWords(frame));
        }
        constexpr std::int64_t largestPaper = 14400;  // points: ISO 32000-1, annex C
        if (std::max(frame.paperWidth, frame.paperHeight) > largestPaper) {
            Warn("paper-size", form.EditCustomWidth,
                 "The paper of " + PaperWords(frame) + " is larger than 200 by 200 in, which many readers refuse");
        }
    }

    const PaperForm& form;
    const PageFrame& frame;
    PageWarnings warnings;
};

/// The field that holds the text; null if none does.
const TextField* FieldOf(const PaperForm& form, const std::string& printed)
{
    for (const Control* const control : form.Controls()) {
        if (control->Kind() == ControlKind::Text) {
            const auto& field = static_cast<const TextField&>(*control);
            if (field.MeansNow() == Meaning::Prose && field.Text() == printed) {
                return &field;
            }
        }
    }
    return nullptr;
}

/// Whether all that places the text is as the form opened.
bool StandsAsOpened(const PaperForm& form, const TextField& text)
{
    return std::all_of(form.Controls().begin(), form.Controls().end(), [&](const Control* control) {
        return control == &text || control->Kind() == ControlKind::Label ||
               &FirstInRow(form, *control) != &FirstInRow(form, text) || form.IsAsOpened(*control);
    });
}

}  // namespace

PageWarnings FieldWarnings(const PaperForm& form)
{
    PageWarnings warnings;
    for (const Control* const control : form.Controls()) {
        if (control->Kind() != ControlKind::Text) {
            continue;
        }
        const auto& field = static_cast<const TextField&>(*control);
        if (const std::string remark = field.Remark(); !remark.empty()) {
            warnings.push_back({field.MeansNow() == Meaning::Prose ? "text" : "field", std::string(field.Name()),
                                WholeName(form, field) + ": " + remark});
        }
    }
    return warnings;
}

PageWarnings FormWarnings(const PaperForm& form, const PaperPage& page)
{
    return FormChecker(form, page).Check();
}

PageWarnings JoinedWarnings(const PaperForm& form, PageWarnings ofForm, const PageWarnings& ofContent)
{
    for (PageWarning warning : ofContent) {
        const TextField* const field = warning.printed.empty() ? nullptr : FieldOf(form, warning.printed);
        if (field != nullptr) {
            if (warning.id == titleOverLines && field->Declared().coversLines && StandsAsOpened(form, *field)) {
                continue;
            }
            warning.control = field->Name();
        }
        ofForm.push_back(std::move(warning));
    }
    return ofForm;
}

PageWarnings MarkerWarnings(const PaperForm& form, const FolderItem& file)
{
    const auto* const box = form.Find<CheckBox>("CheckBoxMarkers");
    if (box == nullptr || file.IsEmpty()) {
        return {};
    }
    PageWarnings warnings;
    const auto warnIf = [&](bool isWrong, const char* text) {
        if (isWrong) {
            warnings.push_back({"markers", std::string(box->Name()), text});
        }
    };
    warnIf(!box->Value(), "There are no markers, since Add Markers is off");
    if (!box->Value()) {
        return warnings;
    }
    const std::string text = file.OpenAsBinaryFile().Read(BinaryStream::longestField);
    const auto has = [&](char c) { return text.find(c) != std::string::npos; };
    warnIf(has('\t'), "The marker file holds tabs; single blanks part its fields");
    warnIf(has(','), "The marker file holds commas, which are decimal marks; single blanks part its fields");
    warnIf(has('\0') || text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF"),
           "The marker file is in another encoding than UTF-8");
    return warnings;
}

}  // namespace linealis
