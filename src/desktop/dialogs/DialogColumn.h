#pragma once

class QDialog;
class QVBoxLayout;

namespace linealis::desktop {

/// Makes the column of a dialog, with the margins and the spacing that all dialogs of the program have. The dialog
/// owns it.
QVBoxLayout* MakeDialogColumn(QDialog& dialog);

}  // namespace linealis::desktop
