#pragma once

#include "pipeline/form/Form.h"

namespace linealis {

/// The preferences dialog: sets whether the program checks for a newer version when it starts.
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

    /// Shows the value of `theNoUpdateCheck`, which must outlive the dialog, and changes it on OK.
    explicit PrefsWindow(bool& theNoUpdateCheck) : form(!theNoUpdateCheck), noUpdateCheck(theNoUpdateCheck) {}

    /// OK: stores the setting.
    void PushButton1_Action() { noUpdateCheck = !form.CheckBoxUpdateCheck.Value(); }
    /// Cancel: changes nothing.
    void PushButton2_Action() {}

private:
    bool& noUpdateCheck;
};

}  // namespace linealis
