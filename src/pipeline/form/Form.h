#pragma once

#include "pipeline/form/Controls.h"

#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace linealis {

/// The unit of the lengths on a form.
enum class LengthUnit { None, Inches, Centimeters };

/// The controls of one window or dialog, which are members of a derived class. Gives access to each control by name
/// for code that does not know the form: windows, the command line, and tests.
class Form {
public:
    Form() = default;
    Form(const Form&) = delete;  // controls and windows hold references to it
    Form& operator=(const Form&) = delete;

    /// All controls in form order: group by group, and within a group as declared. A caption that is a separate
    /// control comes before its field.
    const std::vector<Control*>& Controls() const { return controls; }

    /// Controls that stand beside each other.
    using Row = std::vector<Control*>;

    /// Returns the rows of a group from top to bottom. A caption that is a control of its own belongs to its field
    /// and is in no row.
    std::vector<Row> Rows(Group group) const;

    /// Returns the control with that name, or null.
    Control* Find(std::string_view name) const;
    /// Returns the control with that name if it has that type, otherwise null.
    template <typename Type>
    Type* Find(std::string_view name) const
    {
        Control* const control = Find(name);
        return control != nullptr && control->Kind() == Type::kindOf ? static_cast<Type*>(control) : nullptr;
    }
    /// Returns the control with that name. Throws std::out_of_range if there is none of that type.
    template <typename Type>
    Type& Get(std::string_view name) const
    {
        if (Type* const control = Find<Type>(name)) {
            return *control;
        }
        throw std::out_of_range("no such control: " + std::string(name));
    }

    /// Returns the current unit of the lengths on the form; none by default.
    virtual LengthUnit UnitOfLengths() const { return LengthUnit::None; }

    /// Returns the place of a control of this form in Controls() and in a state of the form.
    std::size_t PlaceOf(const Control& control) const;

    /// Returns the state of all controls, in form order.
    std::vector<ControlState> State() const;
    /// Stores the current state as the opening state.
    void RememberOpening() { opening = State(); }
    /// Whether the content of a control equals its content in the opening state. Call RememberOpening first.
    bool IsAsOpened(const Control& control) const;
    /// Restores an earlier state of this form. Runs no handler.
    void Restore(const std::vector<ControlState>& earlier);

    const Control* focusedControl = nullptr;               ///< the control that the user is typing into, or null
    std::function<void(const Control& control)> observer;  ///< called at every change, by the user or by code

protected:
    ~Form() = default;

private:
    friend class Control;   // calls Add
    friend class CheckBox;  // calls EnableFollowersOf

    void Add(Control& control);
    void EnableFollowersOf(const CheckBox& box) const;

    std::vector<Control*> controls;
    std::vector<ControlState> opening;
};

}  // namespace linealis
