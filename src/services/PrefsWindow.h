#pragma once

#include "pipeline/form/Form.h"

namespace linealis {

/// The preferences dialog: whether the program looks for a newer version when it starts.
class PrefsWindow {
public:
    struct PrefsForm final : Form {
        CheckBox CheckBoxUpdateCheck;

        explicit PrefsForm(bool checks)
            : CheckBoxUpdateCheck{
                  *this, Group::Page, "CheckBoxUpdateCheck", "check-for-updates", "Check For Updates", checks}
        {}
    };

    PrefsForm form;

    /// Shows and, on OK, changes `theNoUpdateCheck`.
    explicit PrefsWindow(bool& theNoUpdateCheck) : form(!theNoUpdateCheck), noUpdateCheck(theNoUpdateCheck) {}

    /// OK.
    void PushButton1_Action() { noUpdateCheck = !form.CheckBoxUpdateCheck.Value(); }
    /// Cancel: changes nothing.
    void PushButton2_Action() {}

private:
    bool& noUpdateCheck;
};

}  // namespace linealis
