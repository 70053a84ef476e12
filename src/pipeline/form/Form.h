#pragma once

#include "pipeline/form/Controls.h"

#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace linealis {

/// What a length on a form is in.
enum class LengthUnit { None, Inches, Centimeters };

/// The controls of one window or dialog, which are members of a class derived from this, and the way to each by its
/// name, for those who do not know the form: windows, the command line, tests.
class Form {
public:
    Form() = default;
    Form(const Form&) = delete;  // controls and windows refer to it
    Form& operator=(const Form&) = delete;

    /// All controls in the order of the form: group by group, within a group as declared. A caption that is a
    /// control of its own stands before its field.
    const std::vector<Control*>& Controls() const { return controls; }

    /// Controls that stand beside each other.
    using Row = std::vector<Control*>;

    /// The rows of a group from top to bottom. A caption that is a control of its own belongs to its field and
    /// stands in no row.
    std::vector<Row> Rows(Group group) const;

    /// The control of that name, or null.
    Control* Find(std::string_view name) const;
    /// The same, if it is of that type.
    template <typename Type>
    Type* Find(std::string_view name) const
    {
        Control* const control = Find(name);
        return control != nullptr && control->Kind() == Type::kindOf ? static_cast<Type*>(control) : nullptr;
    }
    /// The same; throws std::out_of_range if there is none.
    template <typename Type>
    Type& Get(std::string_view name) const
    {
        if (Type* const control = Find<Type>(name)) {
            return *control;
        }
        throw std::out_of_range("no such control: " + std::string(name));
    }

    /// The unit of the form's lengths as it is now; none by default.
    virtual LengthUnit UnitOfLengths() const { return LengthUnit::None; }

    /// What all controls hold, in their order.
    std::vector<ControlState> State() const;
    /// Takes the state as it is now for the one in which the form opens.
    void RememberOpening() { opening = State(); }
    /// Whether a control of this form holds what it held when the form opened.
    bool IsAsOpened(const Control& control) const;
    /// Puts a state of this form back. No handler runs.
    void Restore(const std::vector<ControlState>& earlier);

    const Control* focusedControl = nullptr;               ///< the one that the user types into, or null
    std::function<void(const Control& control)> observer;  ///< told of every change, by whomever it is made

protected:
    ~Form() = default;

private:
    friend class Control;   // adds itself
    friend class CheckBox;  // tells of its state

    void Add(Control& control);
    void EnableFollowersOf(const CheckBox& box) const;

    std::vector<Control*> controls;
    std::vector<ControlState> opening;
};

}  // namespace linealis
