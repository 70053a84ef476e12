#pragma once

#include "platform/Color.h"

#include <string_view>
#include <vector>

namespace linealis {

enum class ControlKind { Text, Popup, Check, Radio, Color, Label };

/// Where a control stands on the form, from top to bottom.
enum class Group { Page, Spacing, Axes, Lines, Text, Margins, File };

/// What a change of units does to a text field.
enum class UnitRule {
    Keep,          ///< nothing
    Length,        ///< a length: times 2.54 on the way to centimetres
    CountPerUnit,  ///< a count per inch or centimetre: divided by 2.54 on the way to centimetres
};

/// What the number or text of a text field stands for. Tells the user its unit, and whether the page can use it.
enum class Meaning {
    Number,         ///< any number
    Prose,          ///< text that is printed
    Length,         ///< in the current unit
    TitlePlace,     ///< a length; empty centres the title
    Spacing,        ///< a length; 0 makes no cells
    CellSize,       ///< a length; 0 or less draws no pattern
    CustomSize,     ///< a length; less than 10 points counts as 10
    Weight,         ///< of a line, in points in both units
    FontSize,       ///< in points in both units
    Scale,          ///< per cent of the true size
    Share,          ///< per cent, limited to 0 to 100
    LinesPerUnit,   ///< 0 or less is replaced by 5
    GridDensity,    ///< lines per unit of a graph; 0 counts as 1
    Count,          ///< whole; a fraction is cut off
    Quantity,       ///< whole; a negative one counts as 0
    CircleCount,    ///< whole; less than 1 counts as 1
    WholeUnits,     ///< a whole number of units; a negative one counts as 0
    GridLines,      ///< a number of grid lines; 0 or less means none
    NumberSpacing,  ///< a number of grid lines; from 0 to 1 counts as 1
    AxisValue,      ///< in the axis's own values
    AxisStep,       ///< in the axis's own values; 0 counts as 1
    Exponent,       ///< must be above 1 on a hydraulic axis
};

/// One control of a form: what it is and what it holds when the form opens. The form starts from it, windows
/// are built from it, and the command line lists and sets by it.
struct Control {
    std::string_view name;
    ControlKind kind = ControlKind::Label;
    std::string_view caption;             ///< beside or on the control; the text of a label
    std::string_view text;                ///< of a text field
    int listIndex = 0;                    ///< of a popup or radio group
    bool value = false;                   ///< of a check box
    Color color = black;                  ///< of a colour swatch
    std::vector<std::string_view> items;  ///< of a popup or radio group
    bool enabled = true;
    std::string_view labelName;  ///< the control that shows the caption, where one has a name of its own
    UnitRule unitRule = UnitRule::Keep;
    Meaning meaning = Meaning::Number;  ///< of a text field
    bool captionAbove = false;          ///< the caption heads a column instead of standing before the field
    std::string_view captionInInches;   ///< of a label that names the unit; empty otherwise
    std::string_view captionInCm;
    bool besidePrevious = false;  ///< on the same row as the control before it

    // For tables of controls: a copy of the control that differs in one thing.
    Control LabelledBy(std::string_view label) const { return With(&Control::labelName, label); }
    Control Disabled() const { return With(&Control::enabled, false); }
    Control Converted(UnitRule rule) const { return With(&Control::unitRule, rule); }
    Control Means(Meaning newMeaning) const { return With(&Control::meaning, newMeaning); }
    Control UnderCaption() const { return With(&Control::captionAbove, true); }
    Control Beside() const { return With(&Control::besidePrevious, true); }

private:
    template <typename T>
    Control With(T Control::*member, T newValue) const
    {
        Control copy = *this;
        copy.*member = newValue;
        return copy;
    }
};

/// The controls of a form, group by group, in the order in which a person reads them.
struct ControlGroup {
    Group group;
    std::vector<Control> controls;
};
using ControlTable = std::vector<ControlGroup>;

Control textField(std::string_view name, std::string_view caption, std::string_view text);
Control popup(std::string_view name, std::string_view caption, std::vector<std::string_view> items,
              int listIndex = 0);
Control radioGroup(std::string_view name, std::string_view caption, std::vector<std::string_view> items,
                   int listIndex);
Control checkBox(std::string_view name, std::string_view caption, bool value);
Control swatch(std::string_view name, std::string_view caption, Color color = black);
Control label(std::string_view name, std::string_view caption);

/// A label whose text follows the units; it stands as "-" until they are first chosen.
Control unitLabel(std::string_view name, std::string_view inInches, std::string_view inCm);

}  // namespace linealis
