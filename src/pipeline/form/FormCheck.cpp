#include "pipeline/form/FormCheck.h"

#include "pipeline/form/FieldWords.h"
#include "pipeline/form/LengthText.h"
#include "pipeline/page/PageWords.h"
#include "text/Numbers.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace linealis {

namespace {

constexpr double leastMargin = 18.0;      // points, 6.35 mm: many printers cannot print closer to the edge
constexpr double marginTolerance = 0.01;  // points; margins in centimeters have a smaller rounding error
constexpr double thinnest = 0.1;          // points; a thinner line may not print

class FormChecker {
public:
    FormChecker(const PaperForm& theForm, const PageFrame& theFrame)
        : form(theForm), frame(theFrame), warnings(FieldWarnings(theForm))
    {}

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
    void Warn(std::string_view id, const Control& control, const Message& text)
    {
        warnings.push_back({id, std::string(control.Name()), text});
    }

    void CheckWeights()
    {
        for (const Control* const control : form.Controls()) {
            if (control->State().meaning == Meaning::Weight && form.WhyIdle(*control).IsEmpty()) {
                CheckWeight(static_cast<const TextField&>(*control));
            }
        }
    }

    void CheckWeight(const TextField& field)
    {
        const double width = field.Used() * std::min(std::abs(frame.xScale), std::abs(frame.yScale));
        if (width == 0.0) {
            Warn("thin", field,
                 Message("%1: lines of 0 pt print as thin as the printer allows, or not at all",
                         WholeName(form, field)));
        } else if (width > 0.0 && width < thinnest - 1e-9 && !form.IsAsOpened(field)) {
            Warn("thin", field,
                 Message("%1: lines of %2 pt may not print; use at least %3 pt", WholeName(form, field), width,
                         thinnest));
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
        std::vector<Message> names;
        for (const auto& [field, points] : margins) {
            if (points < leastMargin - marginTolerance) {
                first = first == nullptr ? &field : first;
                names.push_back(WholeName(form, field));
            }
        }
        if (first != nullptr) {
            Warn("margin", *first,
                 Message("%1 under %2 mm: many printers cannot print that close to the edge",
                         Message::Joined(std::move(names), ", "), 6.35));
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
            Warn("room", widest, Message("The margins leave no room on the page"));
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

    /// In points. Something that may stand either way must fit both ways.
    double RoomAlong(Direction direction) const
    {
        switch (direction) {
        case Direction::Vertical:
            return frame.UsableHeight();
        case Direction::Horizontal:
            return frame.UsableWidth();
        case Direction::Any:
            break;
        }
        return std::min(frame.UsableWidth(), frame.UsableHeight());
    }

    void CheckCell(const TextField& field)
    {
        const double room = RoomAlong(field.Declared().direction);
        const double cell = field.Used() * frame.unitPixels;
        if (cell > room) {
            Warn("cell", field,
                 Message("%1 of %2 is larger than the %3 between the margins", WholeName(form, field),
                         LengthWords(cell, frame), LengthWords(room, frame)));
        }
    }

    void CheckScale(const TextField& field)
    {
        if (field.Used() != 100.0 && field.Used() != 0.0) {  // 0 has its own remark
            Warn("scale", field,
                 Message("%1 is %2%: lengths on the page are not true to size", WholeName(form, field),
                         field.Used()));
        }
    }

    void CheckCustomSize()
    {
        if (form.EditCustomWidth.IsEnabled()) {
            Warn("custom-size", form.EditCustomWidth,
                 Message("A settings file does not store the custom paper size, %1", PaperWords(frame)));
        }
        constexpr std::int64_t largestPaper = 14400;  // points: ISO 32000-1, annex C
        if (std::max(frame.paperWidth, frame.paperHeight) > largestPaper) {
            Warn("paper-size", form.EditCustomWidth,
                 Message("The paper size, %1, exceeds 200 by 200 in; many PDF readers reject it",
                         PaperWords(frame)));
        }
    }

    const PaperForm& form;
    const PageFrame& frame;
    PageWarnings warnings;
};

/// Whether all controls in the row of the text, which place it, have their opening values.
bool StandsAsOpened(const PaperForm& form, const TextField& text)
{
    return std::all_of(form.Controls().begin(), form.Controls().end(), [&](const Control* control) {
        return control == &text || control->Kind() == ControlKind::Label ||
               &FirstInRow(form, *control) != &FirstInRow(form, text) || form.IsAsOpened(*control);
    });
}

/// Formats a length in points with three significant digits.
Message Rough(double points)
{
    const double grain = std::pow(10.0, 2.0 - std::floor(std::log10(points)));
    return Message("%1 pt", std::round(points * grain) / grain);
}

}  // namespace

PageWarnings FieldWarnings(const Form& form)
{
    PageWarnings warnings;
    for (const Control* const control : form.Controls()) {
        if (control->Kind() != ControlKind::Text) {
            continue;
        }
        const auto& field = static_cast<const TextField&>(*control);
        if (const Message remark = field.Remark(); !remark.IsEmpty()) {
            warnings.push_back({field.MeansNow() == Meaning::Prose ? "text" : "field", std::string(field.Name()),
                                Message("%1: %2", WholeName(form, field), remark)});
        }
    }
    return warnings;
}

PageWarnings FormWarnings(const PaperForm& form, const PageFrame& frame, PageWarnings ofKind)
{
    PageWarnings warnings = FormChecker(form, frame).Check();
    std::move(ofKind.begin(), ofKind.end(), std::back_inserter(warnings));
    return warnings;
}

std::vector<PrintedField> PrintedFields(const PaperForm& form)
{
    std::vector<PrintedField> printed;
    for (const Control* const control : form.Controls()) {
        const Traits& traits = control->Declared();
        if (IsProse(*control)) {
            printed.push_back({traits.governs.front(), std::string(control->Name()), traits.coversLines,
                               StandsAsOpened(form, static_cast<const TextField&>(*control))});
        }
    }
    return printed;
}

void WarnOfInk(const Form& form, const TextField& weight, double distance, PageWarnings& warnings)
{
    const double width = weight.Used();
    if (distance > 0.0 && width >= distance) {
        warnings.push_back({"ink", std::string(weight.Name()),
                            Message("%1: lines %2 wide and %3 apart leave no white space between them",
                                    WholeName(form, weight), Rough(width), Rough(distance))});
    }
}

}  // namespace linealis
