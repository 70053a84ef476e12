#pragma once

#include "pipeline/Controls.h"

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace linealis {

/// The state of one window's controls, by control name. All logic reads and writes it; a window only shows it.
///
/// Each control has at most one handler, which runs when the control changes: of a popup at every choice, by the
/// user or by program, also of the item it already shows; of a text field at every change of its text; of a check
/// box only when the user clicks it. What depends on who typed asks focusedControl.
///
/// Asking for a control that the form does not have throws std::out_of_range.
class PaperForm {
public:
    struct State {
        Control control;
        Group group = Group::Page;
        std::string caption;
        std::string text;
        int listIndex = 0;
        bool value = false;
        Color color;
        bool enabled = true;
    };
    using Handler = std::function<void()>;

    explicit PaperForm(const ControlTable& table);
    PaperForm(const PaperForm&) = delete;  // handlers and windows refer to it
    PaperForm& operator=(const PaperForm&) = delete;

    /// All controls in the order of the form. A caption with a name of its own is a label before its control.
    const std::vector<State>& Controls() const { return states; }
    bool Has(std::string_view name) const { return indices.contains(name); }
    const State& operator[](std::string_view name) const { return states[indices.at(name)]; }

    const std::string& Text(std::string_view name) const { return (*this)[name].text; }
    /// The leading number of a text field.
    double Number(std::string_view name) const;
    int ListIndex(std::string_view name) const { return (*this)[name].listIndex; }
    /// The text of the selected item of a popup or radio group.
    std::string_view SelectedItem(std::string_view name) const;
    bool Value(std::string_view name) const { return (*this)[name].value; }
    const Color& ColorOf(std::string_view name) const { return (*this)[name].color; }

    void SetText(std::string_view name, std::string text);
    /// Limited to the items that there are.
    void SetListIndex(std::string_view name, std::int64_t index);
    void SetValue(std::string_view name, bool value);
    void SetColor(std::string_view name, Color color);
    void SetEnabled(std::string_view name, bool enabled);
    void SetCaption(std::string_view name, std::string_view caption);

    /// The user types a text into the field, which has the focus meanwhile.
    void Type(std::string_view name, std::string text);
    /// The user clicks a check box.
    void Click(std::string_view name, bool value);

    void OnChange(std::string_view name, Handler handler);

    std::string focusedControl;                           ///< empty: none
    std::function<void(std::string_view name)> observer;  ///< told of every change, by whomever it is made

private:
    State& Find(std::string_view name) { return states[indices.at(name)]; }
    void Add(const Control& control, Group group);
    void Changed(std::string_view name, bool runHandler);

    std::vector<State> states;
    std::map<std::string_view, std::size_t> indices;
    std::map<std::string_view, Handler> handlers;
};

}  // namespace linealis
