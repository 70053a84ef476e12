#pragma once

#include <QFileDialog>
#include <QString>

namespace linealis::desktop {

// Helpers for all file dialogs: the folder in which they start, and the names that they propose.

/// A window that file dialogs are shown for.
class FileAsker {
public:
    /// Returns a file name for the page of the window, without an extension. Empty if there is nothing specific to
    /// propose.
    virtual QString ProposedName() const = 0;
    /// Returns the folder of the window's settings file. Empty if it has none.
    virtual QString SettingsFolder() const = 0;

protected:
    ~FileAsker() = default;
};

/// Returns the user's documents folder, or the home folder if there is none.
QString DocumentsFolder();

/// Makes the dialog start in the folder that KeepFolder last stored under the key, or in DocumentsFolder if there
/// is none or it no longer exists.
void GoToFolder(QFileDialog& dialog, const QString& key);
/// Stores the folder that the dialog shows under the key, for the next dialog and the next run.
void KeepFolder(const QFileDialog& dialog, const QString& key);

/// Turns a text into a file name: on one line, without slashes, not hidden, and at most 60 characters long. The
/// result may be empty.
QString AsFileName(QString text);

}  // namespace linealis::desktop
