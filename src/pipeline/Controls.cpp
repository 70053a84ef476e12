#include "pipeline/Controls.h"

#include "pdf/Numbers.h"
#include "pipeline/Form.h"

#include <algorithm>
#include <utility>

namespace linealis {

Control::Control(Form& theForm, ControlKind theKind, Group theGroup, std::string_view theName,
                 std::string_view theCaption, const Traits& theTraits)
    : form(theForm), name(theName), kind(theKind), group(theGroup), traits(theTraits), caption(theCaption),
      enabled(theTraits.enabledBy == nullptr ? theTraits.enabled : theTraits.enabledBy->Value())
{
    if (!traits.label.empty()) {
        captionLabel = form.Find<Label>(traits.label);
        if (captionLabel == nullptr) {
            ownLabel = std::make_unique<Label>(form, group, traits.label, caption, Traits{.enabled = enabled});
            captionLabel = ownLabel.get();
        }
    }
    form.Add(*this);
}

Control::~Control() = default;

void Control::Changed() const
{
    if (form.observer) {
        form.observer(*this);
    }
}

void Control::SetCaption(std::string_view newCaption)
{
    caption = newCaption;
    Changed();
}

void Control::SetEnabled(bool isEnabled)
{
    enabled = isEnabled;
    Changed();
}

Label::Label(Form& theForm, Group theGroup, std::string_view theName, std::string_view theCaption,
             const Traits& theTraits, const UnitCaptions& theUnitCaptions)
    : Control(theForm, kindOf, theGroup, theName, theCaption, theTraits), unitCaptions(theUnitCaptions)
{}

void Label::ShowUnit(bool inches)
{
    if (!unitCaptions.inInches.empty()) {
        SetCaption(inches ? unitCaptions.inInches : unitCaptions.inCm);
    }
}

TextField::TextField(Form& theForm, Group theGroup, std::string_view theName, std::string_view theCaption,
                     std::string_view openingText, const Traits& theTraits)
    : Control(theForm, kindOf, theGroup, theName, theCaption, theTraits), text(openingText),
      meaning(theTraits.meaning)
{}

double TextField::Number() const
{
    return Val(text);
}

double TextField::Used() const
{
    return UsedValue(meaning, Number());
}

std::int64_t TextField::Whole() const
{
    return truncated(Number());
}

std::string TextField::Remark() const
{
    return IsEnabled() ? RemarkOn(meaning, text) : "";
}

void TextField::SetText(std::string newText)
{
    text = std::move(newText);
    Changed();
    if (onChange) {
        onChange();
    }
}

void TextField::Type(std::string newText)
{
    form.focusedControl = this;
    SetText(std::move(newText));
    form.focusedControl = nullptr;
}

void TextField::SetMeaning(Meaning newMeaning)
{
    meaning = newMeaning;
    Changed();
}

Choice::Choice(Form& theForm, ControlKind theKind, Group theGroup, std::string_view theName,
               std::string_view theCaption, std::vector<std::string_view> theItems, int openingIndex,
               const Traits& theTraits)
    : Control(theForm, theKind, theGroup, theName, theCaption, theTraits), items(std::move(theItems)),
      listIndex(openingIndex)
{}

void Choice::SetListIndex(std::int64_t index)
{
    const auto last = static_cast<std::int64_t>(items.size()) - 1;
    listIndex = static_cast<int>(std::clamp<std::int64_t>(index, 0, last));
    Changed();
    if (onChange) {
        onChange();
    }
}

Popup::Popup(Form& theForm, Group theGroup, std::string_view theName, std::string_view theCaption,
             std::vector<std::string_view> theItems, int openingIndex, const Traits& theTraits)
    : Choice(theForm, kindOf, theGroup, theName, theCaption, std::move(theItems), openingIndex, theTraits)
{}

RadioGroup::RadioGroup(Form& theForm, Group theGroup, std::string_view theName, std::string_view theCaption,
                       std::vector<std::string_view> theItems, int openingIndex)
    : Choice(theForm, kindOf, theGroup, theName, theCaption, std::move(theItems), openingIndex, {})
{}

CheckBox::CheckBox(Form& theForm, Group theGroup, std::string_view theName, std::string_view theCaption,
                   bool openingValue, const Traits& theTraits)
    : Control(theForm, kindOf, theGroup, theName, theCaption, theTraits), value(openingValue)
{}

void CheckBox::SetValue(bool newValue)
{
    value = newValue;
    Changed();
    form.EnableFollowersOf(*this);
}

void CheckBox::Click(bool newValue)
{
    SetValue(newValue);
    if (onClick) {
        onClick();
    }
}

Swatch::Swatch(Form& theForm, Group theGroup, std::string_view theName, std::string_view theCaption,
               Color openingColor, const Traits& theTraits)
    : Control(theForm, kindOf, theGroup, theName, theCaption, theTraits), color(openingColor)
{}

void Swatch::SetColor(Color newColor)
{
    color = newColor;
    Changed();
}

}  // namespace linealis
