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

/// The section of the form that a control belongs to, from top to bottom.
enum class Group { Page, Spacing, Axes, Lines, Text, Margins, File };
inline constexpr std::array allGroups = {Group::Page, Group::Spacing, Group::Axes, Group::Lines,
                                         Group::Text, Group::Margins, Group::File};

/// How a change of units affects a text field.
enum class UnitRule {
    Keep,          ///< unchanged
    Length,        ///< a length: multiplied by 2.54 on the way to centimeters
    CountPerUnit,  ///< a count per inch or centimeter: divided by 2.54 on the way to centimeters
};

/// The direction of the page in which a length extends or a place is measured.
enum class Direction { Any, Vertical, Horizontal };

/// Properties of a control beyond its name, caption, and content.
struct Traits {
    std::string_view label = {};           ///< the label that shows the caption, if it is a separate control
    bool beside = false;                   ///< on the same row as the control before it
    bool captionAbove = false;             ///< the caption is above a column instead of before the field
    bool enabled = true;                   ///< enabled when the form opens
    const CheckBox* enabledBy = nullptr;   ///< this box enables and disables the control and its label
    Meaning meaning = Meaning::Number;     ///< of a text field
    UnitRule unitRule = UnitRule::Keep;    ///< of a text field
    Direction direction = Direction::Any;  ///< of a spacing, a cell size, or the place of a title
    std::string_view fullName = {};        ///< for users who cannot see the form, if caption and row are not enough
    std::string_view sets = {};            ///< of a weight: the lines of the page that it applies to
    RoleSet governs = {};                  ///< the roles of the parts of the page that the control affects
    const CheckBox* drawnBy = nullptr;     ///< this box must be on for these parts to be drawn; null: always drawn
    const TextField* apart = nullptr;      ///< of a weight: the distance between its lines, or their density
    bool coversLines = false;              ///< of a text: overlaps grid lines when the form opens
};

/// The complete variable state of a control.
struct ControlState {
    std::string caption;
    bool enabled = true;
    Meaning meaning = Meaning::Number;                                    ///< of a text field
    std::variant<std::monostate, std::string, int, bool, Color> content;  ///< its text, list index, value or color

    bool operator==(const ControlState&) const = default;
};

/// One control of a form, declared once as a member of the form: its properties and its current state. Windows are
/// built from it, the command line lists and sets it, and settings files and pages are read from it.
class Control {
public:
    Control(const Control&) = delete;  // forms and windows hold pointers to it
    Control& operator=(const Control&) = delete;

    std::string_view Name() const { return name; }
    /// The name to type on a command line, such as "top-margin". Does not follow the caption. Empty for a label.
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
    /// Restores an earlier state of this control. Runs no handler.
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

    /// Notifies the observer of the form.
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

/// A text on the form: the caption of a field, or a separate text.
class Label final : public Control {
public:
    static constexpr ControlKind kindOf = ControlKind::Label;

    /// The captions for each unit, used once the units have been chosen.
    struct UnitCaptions {
        std::string_view inInches;
        std::string_view inCm;
    };

    Label(Form& theForm, Group theGroup, std::string_view theName, std::string_view theCaption,
          const Traits& theTraits = {}, const UnitCaptions& theUnitCaptions = {});

    /// Shows the caption for the unit, if this label has unit captions.
    void ShowUnit(bool inches);

private:
    UnitCaptions unitCaptions;
};

/// A field for a number or a text.
class TextField final : public Control {
public:
    static constexpr ControlKind kindOf = ControlKind::Text;

    TextField(Form& theForm, Group theGroup, std::string_view theName, std::string_view theAlias,
              std::string_view theCaption, std::string_view openingText, const Traits& theTraits = {});

    const std::string& Text() const { return Holds<std::string>(); }
    /// The number at the start of the text; 0 if there is none (see Val).
    double Number() const;
    /// The number that the page uses (see UsedValue).
    double Used() const;
    /// The number, truncated toward zero.
    std::int64_t Whole() const;
    Meaning MeansNow() const { return State().meaning; }
    /// Whether the field is empty and that has a meaning of its own.
    bool IsLeftOpen() const { return MeansNow() == Meaning::TitlePlace && Text().empty(); }
    /// A remark for the user on the text (see RemarkOn). Empty if there is none or if the field is disabled.
    Message Remark() const;

    void SetText(std::string newText);
    /// Sets the text as if the user typed it. The field has the focus while handlers run.
    void Type(std::string newText);
    /// Changes the meaning, for a field whose meaning depends on another control.
    void SetMeaning(Meaning newMeaning);

    std::function<void()> onChange;      ///< runs at every change of the text, by the user or by code
    std::function<std::string()> today;  ///< of a date: returns that of today; null for any other field
};

/// A choice of one item: a popup or a group of radio buttons.
class Choice : public Control {
public:
    const std::vector<std::string_view>& Items() const { return items; }
    int ListIndex() const { return Holds<int>(); }
    /// The text of the selected item.
    std::string_view Selected() const { return items[static_cast<std::size_t>(ListIndex())]; }
    /// Selects an item. Clamps the index to the existing items.
    void SetListIndex(std::int64_t index);

    std::function<void()> onChange;  ///< runs at every selection, even of the current item

protected:
    Choice(Form& theForm, ControlKind theKind, Group theGroup, std::string_view theName, std::string_view theAlias,
           std::string_view theCaption, std::vector<std::string_view> theItems, int openingIndex,
           const Traits& theTraits);

private:
    std::vector<std::string_view> items;
};

/// A choice shown as a popup menu.
class Popup final : public Choice {
public:
    static constexpr ControlKind kindOf = ControlKind::Popup;

    Popup(Form& theForm, Group theGroup, std::string_view theName, std::string_view theAlias,
          std::string_view theCaption, std::vector<std::string_view> theItems, int openingIndex = 0,
          const Traits& theTraits = {});
};

/// A choice shown as a group of radio buttons.
class RadioGroup final : public Choice {
public:
    static constexpr ControlKind kindOf = ControlKind::Radio;

    RadioGroup(Form& theForm, Group theGroup, std::string_view theName, std::string_view theAlias,
               std::string_view theCaption, std::vector<std::string_view> theItems, int openingIndex);
};

/// A check box.
class CheckBox final : public Control {
public:
    static constexpr ControlKind kindOf = ControlKind::Check;

    CheckBox(Form& theForm, Group theGroup, std::string_view theName, std::string_view theAlias,
             std::string_view theCaption, bool openingValue, const Traits& theTraits = {});

    bool Value() const { return Holds<bool>(); }
    /// Sets the value and enables or disables the controls that depend on it. Does not run onClick.
    void SetValue(bool newValue);
    /// Sets the value as if the user clicked the box.
    void Click(bool newValue);

    std::function<void()> onClick;  ///< runs only at Click()
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

/// Calls `visitor` with the control as its concrete type.
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

/// Whether the control is a text field whose text is printed, not a number.
inline bool IsProse(const Control& control)
{
    return control.Kind() == ControlKind::Text && control.Declared().meaning == Meaning::Prose;
}

}  // namespace linealis
