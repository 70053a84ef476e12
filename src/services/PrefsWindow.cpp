#include "services/PrefsWindow.h"

namespace linealis {

PrefsWindow::PrefsWindow(bool& theNoUpdateCheck)
    : form({{Group::Page, {checkBox("CheckBoxUpdateCheck", "Check For Updates", !theNoUpdateCheck)}}}),
      noUpdateCheck(theNoUpdateCheck)
{}

void PrefsWindow::PushButton1_Action()
{
    noUpdateCheck = !form.Value("CheckBoxUpdateCheck");
}

}  // namespace linealis
