#include "pipeline/form/FieldWords.h"

#include "pdf/Units.h"
#include "text/Numbers.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>
#include <vector>

namespace linealis {

namespace {

/// Returns the caption on one line and without its colon.
std::string PlainCaption(const Control& control)
{
    std::string caption = control.Caption();
    std::replace_if(
        caption.begin(), caption.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
    if (caption.ends_with(':')) {
        caption.pop_back();
    }
    return caption;
}

bool IsAmbiguous(const Form& form, const Control& control)
{
    const std::string caption = PlainCaption(control);
    return caption.size() <= 1 ||
           std::any_of(form.Controls().begin(), form.Controls().end(), [&](const Control* other) {
               return other != &control && other->Kind() != ControlKind::Label && PlainCaption(*other) == caption;
           });
}

/// Returns the length of a field in millimeters, or nothing if it is not a length. A count per unit becomes the
/// distance.
std::optional<double> Millimeters(const TextField& field, LengthUnit formUnit)
{
    constexpr double mmPerCm = 10.0;
    if (formUnit == LengthUnit::None) {
        return std::nullopt;
    }
    const double unit = formUnit == LengthUnit::Inches ? cmPerInch * mmPerCm : mmPerCm;
    switch (FactsOf(field.MeansNow()).quantity) {
    case Quantity::Length:
        return field.IsLeftOpen() ? std::nullopt : std::optional(field.Used() * unit);
    case Quantity::CountPerUnit:
        return unit / field.Used();
    default:
        return std::nullopt;
    }
}

/// Formats a number with one or two decimals.
Message Rounded(double value)
{
    const std::string text = Str(std::round(value * 100.0) / 100.0);
    return Message::Number(text.find('.') == std::string::npos ? text + ".0" : text);
}

}  // namespace

const Control& FirstInRow(const Form& form, const Control& control)
{
    for (const Form::Row& row : form.Rows(control.InGroup())) {
        if (std::find(row.begin(), row.end(), &control) != row.end()) {
            return *row.front();
        }
    }
    return control;
}

Message WholeName(const Form& form, const Control& control)
{
    const Traits& traits = control.Declared();
    const Message caption = Message::Listed(PlainCaption(control));
    if (!traits.fullName.empty()) {
        return Message::Listed(traits.fullName);
    }
    if (!traits.sets.empty() && !traits.captionAbove) {
        return Message("%1 of the %2", caption, Message::Listed(traits.sets));
    }
    const Control& first = FirstInRow(form, control);
    const bool isNamedByRow = traits.captionAbove || IsAmbiguous(form, control);
    return isNamedByRow && &first != &control ? Message("%1, %2", WholeName(form, first), caption) : caption;
}

const Control* GovernorOf(const Form& form, Role role)
{
    const Control* governor = nullptr;
    std::pair<std::size_t, bool>
        best;  // the length of the role that governs, and whether the control is a text field
    for (const Control* const control : form.Controls()) {
        for (const Role governed : control->Declared().governs) {
            const std::pair rank(governed.size(), control->Kind() == ControlKind::Text);
            if (Includes({governed}, role) && rank > best) {
                best = rank;
                governor = control;
            }
        }
    }
    return governor;
}

Control* FindByNameOrAlias(const Form& form, std::string_view nameOrAlias)
{
    if (Control* const control = form.Find(nameOrAlias); control && control->Kind() != ControlKind::Label) {
        return control;
    }
    const auto found = std::find_if(form.Controls().begin(), form.Controls().end(), [&](const Control* control) {
        return control->Kind() != ControlKind::Label && control->Alias() == nameOrAlias;
    });
    return found == form.Controls().end() ? nullptr : *found;
}

Message Readout(std::span<Control* const> fields, LengthUnit unit)
{
    std::vector<Message> lengths;
    for (const Control* const control : fields) {
        const bool counts = control->Kind() == ControlKind::Text && control->IsEnabled();
        const auto length = counts ? Millimeters(static_cast<const TextField&>(*control), unit) : std::nullopt;
        if (length && std::isfinite(*length)) {
            lengths.push_back(Rounded(*length));
        }
    }
    return lengths.empty() ? Message() : Message("= %1 mm", Message::Joined(std::move(lengths), ", "));
}

std::string_view UnitWord(const Form& form, const TextField& field)
{
    const MeaningFacts& facts = FactsOf(field.MeansNow());
    if (!facts.sign.empty()) {
        return facts.sign;
    }
    switch (facts.quantity) {
    case Quantity::Length:
        return form.UnitOfLengths() == LengthUnit::Inches        ? "in"
               : form.UnitOfLengths() == LengthUnit::Centimeters ? "cm"
                                                                 : "";
    case Quantity::Inches:
        return "in";
    case Quantity::Centimeters:
        return "cm";
    case Quantity::Points:
        return "pt";
    case Quantity::CountPerUnit:
    case Quantity::None:
        break;
    }
    return "";
}

Message IsOff(const CheckBox& box)
{
    return Message("%1 is off", Message::Listed(box.Caption()));
}

Message HintOf(const TextField& field)
{
    const std::string_view sets = field.Declared().sets;
    const Message hint = Message::Listed(FactsOf(field.MeansNow()).hint);
    return sets.empty() ? hint : Message("Weight of the %1. %2", Message::Listed(sets), hint);
}

}  // namespace linealis
