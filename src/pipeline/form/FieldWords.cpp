#include "pipeline/form/FieldWords.h"

#include "pdf/Units.h"
#include "text/Numbers.h"

#include <algorithm>
#include <cmath>
#include <optional>

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
std::string Rounded(double value)
{
    std::string text = Str(std::round(value * 100.0) / 100.0);
    return text.find('.') == std::string::npos ? text + ".0" : text;
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

std::string WholeName(const Form& form, const Control& control)
{
    const Traits& traits = control.Declared();
    const std::string caption = PlainCaption(control);
    if (!traits.fullName.empty()) {
        return std::string(traits.fullName);
    }
    if (control.InGroup() == Group::Margins) {
        return caption + " margin";
    }
    if (!traits.sets.empty() && !traits.captionAbove) {
        return caption + " of the " + std::string(traits.sets);
    }
    const Control& first = FirstInRow(form, control);
    const bool isNamedByRow = traits.captionAbove || IsAmbiguous(form, control);
    return isNamedByRow && &first != &control ? WholeName(form, first) + ", " + caption : caption;
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

std::string Readout(std::span<Control* const> fields, LengthUnit unit)
{
    std::string readout;
    for (const Control* const control : fields) {
        const bool counts = control->Kind() == ControlKind::Text && control->IsEnabled();
        const auto length = counts ? Millimeters(static_cast<const TextField&>(*control), unit) : std::nullopt;
        if (length && std::isfinite(*length)) {
            readout += (readout.empty() ? "= " : ", ") + Rounded(*length);
        }
    }
    return readout.empty() ? readout : readout + " mm";
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

std::string HintOf(const TextField& field)
{
    const std::string_view sets = field.Declared().sets;
    const std::string hint(FactsOf(field.MeansNow()).hint);
    return sets.empty() ? hint : "Weight of the " + std::string(sets) + ". " + hint;
}

}  // namespace linealis
