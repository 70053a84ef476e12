#pragma once

#include "pdf/PageRoles.h"
#include "pipeline/form/Meaning.h"
#include "platform/Color.h"

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace linealis {

class CheckBox;
class Form;
class Label;
class TextField;

enum class ControlKind { Text, Popup, Check, Radio, Color, Label };

/// Where a control stands on the form, from top to bottom.
enum class Group { Page, Spacing, Axes, Lines, Text, Margins, File };
inline constexpr std::array allGroups = {Group::Page, Group::Spacing, Group::Axes, Group::Lines,
                                         Group::Text, Group::Margins, Group::File};

/// What a change of units does to a text field.
enum class UnitRule {
    Keep,          ///< nothing
    Length,        ///< a length: times 2.54 on the way to centimeters
    CountPerUnit,  ///< a count per inch or centimeter: divided by 2.54 on the way to centimeters
};

/// The direction of the page in which a length extends.
enum class Direction { Any, Vertical, Horizontal };

/// What a declaration says of a control besides its name, caption and content.
struct Traits {
    std::string_view label = {};           ///< the label that shows the caption, where that is a control of its own
    bool beside = false;                   ///< on the same row as the control before it
    bool captionAbove = false;             ///< the caption heads a column instead of standing before the field
    bool enabled = true;                   ///< when the form opens
    const CheckBox* enabledBy = nullptr;   ///< enabled, with its label, exactly while this box is on
    Meaning meaning = Meaning::Number;     ///< of a text field
    UnitRule unitRule = UnitRule::Keep;    ///< of a text field
    Direction direction = Direction::Any;  ///< of a spacing or cell size
    std::string_view fullName = {};        ///< for who does not see the form, where caption and row do not tell
    std::string_view sets = {};            ///< of a weight: which lines of the page are as wide
    RoleSet governs = {};                  ///< the roles of what the control sets on the page
    const CheckBox* drawnBy = nullptr;  ///< without which what the field governs is not drawn; null: it always is
    const TextField* apart = nullptr;   ///< of a weight: how far its lines are from each other, or how many fit
    bool coversLines = false;           ///< of a text: stands over grid lines where the form opens
};

/// What a control holds at a moment: all that can change of it.
struct ControlState {
    std::string caption;
    bool enabled = true;
    Meaning meaning = Meaning::Number;                                    ///< of a text field
    std::variant<std::monostate, std::string, int, bool, Color> content;  ///< its text, list index, value or color

    bool operator==(const ControlState&) const = default;
};

/// One control of a form, declared once, as a member of it: what it is, and what it holds now. Windows are built
/// from it, the command line lists and sets by it, settings files and pages are read from it.
class Control {
public:
    Control(const Control&) = delete;  // forms and windows refer to it
    Control& operator=(const Control&) = delete;

    std::string_view Name() const { return name; }
    /// The name as one word for whoever types it: "top-margin". Stays whatever the caption says. Empty for a label.
    std::string_view Alias() const { return alias; }
    ControlKind Kind() const { return kind; }
    Group InGroup() const { return group; }
    const Traits& Declared() const { return traits; }
    /// The label that shows this control's caption, or null.
    Label* CaptionLabel() const { return captionLabel; }

    const std::string& Caption() const { return state.caption; }
    void SetCaption(std::string_view newCaption);
    bool IsEnabled() const { return state.enabled; }
    void SetEnabled(bool isEnabled);

    const ControlState& State() const { return state; }
    /// Puts a state of this control back. No handler runs.
    void Restore(const ControlState& earlier);

protected:
    using Content = decltype(ControlState::content);

    Control(Form& theForm, ControlKind theKind, Group theGroup, std::string_view theName, std::string_view theAlias,
            std::string_view theCaption, const Traits& theTraits, Content openingContent = {});
    ~Control();

    template <typename Type>
    const Type& Holds() const
    {
        return std::get<Type>(state.content);
    }
    void SetContent(Content content);
    void SetMeaningOfState(Meaning newMeaning) { state.meaning = newMeaning; }

    /// Tells the form that something of this control has changed.
    void Changed() const;

    Form& form;

private:
    std::string_view name;
    std::string_view alias;
    ControlKind kind;
    Group group;
    Traits traits;
    ControlState state;
    std::unique_ptr<Label> ownLabel;
    Label* captionLabel = nullptr;
};

/// A text that stands on the form, the caption of a field or one by itself.
class Label final : public Control {
public:
    static constexpr ControlKind kindOf = ControlKind::Label;

    /// What a label says in either unit, once the units have been chosen.
    struct UnitCaptions {
        std::string_view inInches;
        std::string_view inCm;
    };

    Label(Form& theForm, Group theGroup, std::string_view theName, std::string_view theCaption,
          const Traits& theTraits = {}, const UnitCaptions& theUnitCaptions = {});

    /// Shows the caption of the unit, if this label has one.
    void ShowUnit(bool inches);

private:
    UnitCaptions unitCaptions;
};

class TextField final : public Control {
public:
    static constexpr ControlKind kindOf = ControlKind::Text;

    TextField(Form& theForm, Group theGroup, std::string_view theName, std::string_view theAlias,
              std::string_view theCaption, std::string_view openingText, const Traits& theTraits = {});

    const std::string& Text() const { return Holds<std::string>(); }
    /// The leading number of the text.
    double Number() const;
    /// The number as the page uses it.
    double Used() const;
    /// The number, truncated.
    std::int64_t Whole() const;
    Meaning MeansNow() const { return State().meaning; }
    /// Whether it is empty and that means something.
    bool IsLeftOpen() const { return MeansNow() == Meaning::TitlePlace && Text().empty(); }
    /// What a person must know of the text; empty if all is well, or if the field is disabled.
    std::string Remark() const;

    void SetText(std::string newText);
    /// The user types a text into the field, which has the focus meanwhile.
    void Type(std::string newText);
    /// For a field whose meaning follows another control.
    void SetMeaning(Meaning newMeaning);

    std::function<void()> onChange;  ///< runs at every change of the text, by whomever it is made
};

/// One of several items: a popup or a group of radio buttons.
class Choice : public Control {
public:
    const std::vector<std::string_view>& Items() const { return items; }
    int ListIndex() const { return Holds<int>(); }
    /// The text of the selected item.
    std::string_view Selected() const { return items[static_cast<std::size_t>(ListIndex())]; }
    /// Limited to the items that there are.
    void SetListIndex(std::int64_t index);

    std::function<void()> onChange;  ///< runs at every choice, also of the item that it already shows

protected:
    Choice(Form& theForm, ControlKind theKind, Group theGroup, std::string_view theName, std::string_view theAlias,
           std::string_view theCaption, std::vector<std::string_view> theItems, int openingIndex,
           const Traits& theTraits);

private:
    std::vector<std::string_view> items;
};

class Popup final : public Choice {
public:
    static constexpr ControlKind kindOf = ControlKind::Popup;

    Popup(Form& theForm, Group theGroup, std::string_view theName, std::string_view theAlias,
          std::string_view theCaption, std::vector<std::string_view> theItems, int openingIndex = 0,
          const Traits& theTraits = {});
};

class RadioGroup final : public Choice {
public:
    static constexpr ControlKind kindOf = ControlKind::Radio;

    RadioGroup(Form& theForm, Group theGroup, std::string_view theName, std::string_view theAlias,
               std::string_view theCaption, std::vector<std::string_view> theItems, int openingIndex);
};

class CheckBox final : public Control {
public:
    static constexpr ControlKind kindOf = ControlKind::Check;

    CheckBox(Form& theForm, Group theGroup, std::string_view theName, std::string_view theAlias,
             std::string_view theCaption, bool openingValue, const Traits& theTraits = {});

    bool Value() const { return Holds<bool>(); }
    void SetValue(bool newValue);
    /// The user clicks the box.
    void Click(bool newValue);

    std::function<void()> onClick;  ///< runs only when the user clicks
};

/// A color swatch.
class Swatch final : public Control {
public:
    static constexpr ControlKind kindOf = ControlKind::Color;

    Swatch(Form& theForm, Group theGroup, std::string_view theName, std::string_view theAlias,
           std::string_view theCaption, Color openingColor, const Traits& theTraits = {});

    Color Shown() const { return Holds<Color>(); }
    void SetColor(Color newColor);
};

/// Calls `visitor` with the control as what it is.
template <typename Visitor>
decltype(auto) Visit(Control& control, Visitor&& visitor)
{
    switch (control.Kind()) {
    case ControlKind::Text:
        return visitor(static_cast<TextField&>(control));
    case ControlKind::Popup:
        return visitor(static_cast<Popup&>(control));
    case ControlKind::Radio:
        return visitor(static_cast<RadioGroup&>(control));
    case ControlKind::Check:
        return visitor(static_cast<CheckBox&>(control));
    case ControlKind::Color:
        return visitor(static_cast<Swatch&>(control));
    case ControlKind::Label:
        break;
    }
    return visitor(static_cast<Label&>(control));
}

}  // namespace linealis
