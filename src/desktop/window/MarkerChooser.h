#pragma once

#include "pipeline/document/PaperWindow.h"
#include "pipeline/page/PageWarning.h"

#include <QDateTime>
#include <QFileSystemWatcher>
#include <QTimer>
#include <QWidget>

class QToolButton;

namespace linealis::desktop {

/// Chooses the marker file of a window, shows its name and number of lines, and follows its changes.
class MarkerChooser final : public QWidget {
    Q_OBJECT

public:
    /// Both arguments must outlive the widget.
    MarkerChooser(Platform& thePlatform, PaperWindow& theWindow);

    /// Uses the file from now on. An empty path: no file is chosen.
    void Choose(const QString& path);
    /// Returns what is wrong with the file and its lines.
    PageWarnings Warnings() const;
    /// Returns the name of the file and its number of lines, or what is wrong with it. Empty if there is none.
    QString Words() const;

signals:
    /// Emitted when another file has been chosen, or none.
    void Chosen();
    /// Emitted when the content of the file has changed.
    void Changed();

private:
    /// Asks for a file. Keeps the current one if the user cancels.
    void Ask();
    /// Reads the file again if it is not the one that was read.
    void Follow();
    /// Watches the file, and its folder, because many programs replace a file instead of changing it.
    void Watch();
    /// Updates everything that depends on the content of the file.
    void Show();

    Platform& platform;
    PaperWindow& window;
    QToolButton* choose;
    QToolButton* clear;
    QFileSystemWatcher watcher;
    QTimer settling;    ///< waits until a program has written the file
    QDateTime written;  ///< when the file that was read last was written; invalid if there is no file
    qint64 size = 0;    ///< of that file, in bytes
    qint64 lines = 0;   ///< of that file
    std::vector<Message> faults;
};

}  // namespace linealis::desktop
