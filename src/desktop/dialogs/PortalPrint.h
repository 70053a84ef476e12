#pragma once

#include "desktop/dialogs/PrintPage.h"

#include <QDBusConnection>

namespace linealis::desktop {

/// Prints sheets through the desktop's portal, as programs in a sandbox must: the desktop lets the user choose the
/// printer and prints a PDF file with the sheets at true size. Factors of printers do not count, as the portal does
/// not name the printer. Returns a message for the status line, or an empty text if the user canceled. Exceptions
/// of `turns` pass through.
QString PrintThroughPortal(const QDBusConnection& bus, const PrintedSheets& sheets, Turns& turns,
                           const QString& name, QWidget* parent, const ModalRunner& runModal);

}  // namespace linealis::desktop
