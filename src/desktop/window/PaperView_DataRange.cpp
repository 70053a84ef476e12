#include "desktop/window/PaperView.h"

#include "desktop/dialogs/DataRangeDialog.h"
#include "desktop/form/FormView.h"

namespace linealis::desktop {

void PaperView::ShowRangeWizard()
{
    RangeWizard& wizard = *window.GetRangeWizard();
    FinishEdit();
    wizard.Begin();
    const WindowState before = window.State();
    const auto fillIn = [&] {
        window.Restore(before);
        wizard.PushButton1_Action();
    };
    DataRangeDialog dialog(wizard, fillIn, this);
    fillIn();
    dialog.adjustSize();
    // Over the form, so that the page stays in view.
    const QWidget& visibleForm = *form->parentWidget();
    dialog.move(visibleForm.mapToGlobal(visibleForm.rect().center() - dialog.rect().center()));
    if (platform.RunModal(dialog) != QDialog::Accepted) {
        window.Restore(before);
    }
    ChangedOutside(tr("From Data Range"));
}

}  // namespace linealis::desktop
