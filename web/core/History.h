#pragma once

#include "pipeline/form/Form.h"
#include "text/Message.h"

#include <vector>

namespace linealis::web {

/// Undo and redo of a form. A step contains all changes since the previous one.
class History {
public:
    /// The form must outlive the history.
    explicit History(Form& theForm) : form(theForm), last(theForm.State()) {}

    /// Makes a step from all changes since the last one. Does nothing if there are none.
    void Commit(const Message& name);
    /// Makes a step named after the change of a control.
    void CommitChangeOf(const Control& control);

    /// Reverts the last step and returns its name; empty if there is none. What is not yet a step becomes one
    /// first.
    Message Undo();
    /// Repeats the step that was reverted last and returns its name; empty if there is none.
    Message Redo();

    /// Returns the name of the step that Undo or Redo would take; empty if there is none.
    Message UndoName() const { return done > 0 ? steps[done - 1].name : Message(); }
    Message RedoName() const { return done < steps.size() ? steps[done].name : Message(); }
    bool HasChange() const { return form.State() != last; }

private:
    struct Step {
        Message name;
        std::vector<ControlState> before;
    };

    Form& form;
    std::vector<ControlState> last;  ///< the state after the last step
    std::vector<Step> steps;
    std::size_t done = 0;                           ///< the number of steps that are not undone
    std::vector<std::vector<ControlState>> undone;  ///< the states that Redo returns to, last one first
};

}  // namespace linealis::web
