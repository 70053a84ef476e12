#include "pipeline/form/Controls.h"

#include "pipeline/form/Form.h"
#include "text/Numbers.h"

#include <algorithm>
#include <utility>

namespace linealis {

Control::Control(Form& theForm, ControlKind theKind, Group theGroup, std::string_view theName,
                 std::string_view theAlias, std::string_view theCaption, const Traits& theTraits,
                 Content openingContent)
    : form(theForm), name(theName), alias(theAlias), kind(theKind), group(theGroup),
      traits(theTraits), state{std::string(theCaption),
                               theTraits.enabledBy == nullptr ? theTraits.enabled : theTraits.enabledBy->Value(),
                               theTraits.meaning, std::move(openingContent)}
{
    if (!traits.label.empty()) {
        captionLabel = form.Find<Label>(traits.label);
        if (captionLabel == nullptr) {
            ownLabel =
                std::make_unique<Label>(form, group, traits.label, state.caption, Traits{.enabled = state.enabled});
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
    state.caption = newCaption;
    Changed();
}

void Control::SetEnabled(bool isEnabled)
{
    state.enabled = isEnabled;
    Changed();
}

void Control::Restore(const ControlState& earlier)
{
    state = earlier;
    Changed();
}

void Control::SetContent(Content content)
{
    state.content = std::move(content);
    Changed();
}

Label::Label(Form& theForm, Group theGroup, std::string_view theName, std::string_view theCaption,
             const Traits& theTraits, const UnitCaptions& theUnitCaptions)
    : Control(theForm, kindOf, theGroup, theName, "", theCaption, theTraits), unitCaptions(theUnitCaptions)
{}

void Label::ShowUnit(bool inches)
{
    if (!unitCaptions.inInches.empty()) {
        SetCaption(inches ? unitCaptions.inInches : unitCaptions.inCm);
    }
}

TextField::TextField(Form& theForm, Group theGroup, std::string_view theName, std::string_view theAlias,
                     std::string_view theCaption, std::string_view openingText, const Traits& theTraits)
    : Control(theForm, kindOf, theGroup, theName, theAlias, theCaption, theTraits, std::string(openingText))
{}

double TextField::Number() const
{
    return Val(Text());
}

double TextField::Used() const
{
    return UsedValue(MeansNow(), Number());
}

std::int64_t TextField::Whole() const
{
    return truncated(Number());
}

Message TextField::Remark() const
{
    return IsEnabled() ? RemarkOn(MeansNow(), Text()) : Message();
}

void TextField::SetText(std::string newText)
{
    SetContent(std::move(newText));
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
    SetMeaningOfState(newMeaning);
    Changed();
}

Choice::Choice(Form& theForm, ControlKind theKind, Group theGroup, std::string_view theName,
               std::string_view theAlias, std::string_view theCaption, std::vector<std::string_view> theItems,
               int openingIndex, const Traits& theTraits)
    : Control(theForm, theKind, theGroup, theName, theAlias, theCaption, theTraits, openingIndex),
      items(std::move(theItems))
{}

void Choice::SetListIndex(std::int64_t index)
{
    const auto last = static_cast<std::int64_t>(items.size()) - 1;
    SetContent(static_cast<int>(std::clamp<std::int64_t>(index, 0, last)));
    if (onChange) {
        onChange();
    }
}

Popup::Popup(Form& theForm, Group theGroup, std::string_view theName, std::string_view theAlias,
             std::string_view theCaption, std::vector<std::string_view> theItems, int openingIndex,
             const Traits& theTraits)
    : Choice(theForm, kindOf, theGroup, theName, theAlias, theCaption, std::move(theItems), openingIndex, theTraits)
{}

RadioGroup::RadioGroup(Form& theForm, Group theGroup, std::string_view theName, std::string_view theAlias,
                       std::string_view theCaption, std::vector<std::string_view> theItems, int openingIndex)
    : Choice(theForm, kindOf, theGroup, theName, theAlias, theCaption, std::move(theItems), openingIndex, {})
{}

CheckBox::CheckBox(Form& theForm, Group theGroup, std::string_view theName, std::string_view theAlias,
                   std::string_view theCaption, bool openingValue, const Traits& theTraits)
    : Control(theForm, kindOf, theGroup, theName, theAlias, theCaption, theTraits, openingValue)
{}

void CheckBox::SetValue(bool newValue)
{
    SetContent(newValue);
    form.EnableFollowersOf(*this);
}

void CheckBox::Click(bool newValue)
{
    SetValue(newValue);
    if (onClick) {
        onClick();
    }
}

Swatch::Swatch(Form& theForm, Group theGroup, std::string_view theName, std::string_view theAlias,
               std::string_view theCaption, Color openingColor, const Traits& theTraits)
    : Control(theForm, kindOf, theGroup, theName, theAlias, theCaption, theTraits, openingColor)
{}

void Swatch::SetColor(Color newColor)
{
    SetContent(newColor);
}

}  // namespace linealis
