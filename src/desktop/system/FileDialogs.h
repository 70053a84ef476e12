#pragma once

#include <QFileDialog>
#include <QString>

namespace linealis::desktop {

// What all file dialogs have in common: where they begin, and which names they propose.

/// A window whose user is asked for files.
class FileAsker {
public:
    /// A name for what the window holds, without an ending; empty if it has none of its own.
    virtual QString ProposedName() const = 0;
    /// The folder of its settings file; empty if it has none.
    virtual QString SettingsFolder() const = 0;

protected:
    ~FileAsker() = default;
};

/// The user's documents, or where there is no such folder, the home folder.
QString DocumentsFolder();

/// Begins in the folder that was kept last under the key, or in DocumentsFolder.
void GoToFolder(QFileDialog& dialog, const QString& key);
/// Keeps the folder that the dialog has ended in, for the next dialog and the next run.
void KeepFolder(const QFileDialog& dialog, const QString& key);

/// A text as the name of a file: on one line, without slashes, not hidden, and no longer than names may be.
QString AsFileName(QString text);

}  // namespace linealis::desktop
