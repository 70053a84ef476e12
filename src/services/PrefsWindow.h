#pragma once

#include "pipeline/PaperForm.h"

namespace linealis {

/// The preferences dialog: whether the program looks for a newer version when it starts.
class PrefsWindow {
public:
    PaperForm form;

    /// Shows and, on OK, changes `theNoUpdateCheck`.
    explicit PrefsWindow(bool& theNoUpdateCheck);

    /// OK.
    void PushButton1_Action();
    /// Cancel: changes nothing.
    void PushButton2_Action() {}

private:
    bool& noUpdateCheck;
};

}  // namespace linealis
