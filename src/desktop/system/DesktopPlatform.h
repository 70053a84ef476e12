#pragma once

#include "desktop/system/FileDialogs.h"
#include "platform/Platform.h"
#include "platform/Turns.h"

#include <QElapsedTimer>
#include <QFileDialog>
#include <QMessageBox>
#include <QObject>
#include <QStringList>
#include <functional>
#include <utility>
#include <vector>

namespace linealis::desktop {

/// Whether the file name is that of a picture of a page, or of a PDF file of a pad, which can carry a form.
bool IsPicture(const QString& path);

/// Implements the platform on a screen with Qt. Also counts open dialogs and running work, so that the program
/// knows when it can open documents or end.
class DesktopPlatform final : public QObject, public Platform {
    Q_OBJECT

public:
    DesktopPlatform();

    void MsgBox(const Message& text) override;
    void MsgBoxUnlessHidden(const Message& text, const Message& explanation, std::string_view name) override;
    MessageDialog::Button ShowModal(const MessageDialog& dialog) override;
    void ShowFileError(const FolderItem& file, const Message& text, const Message& reason) override;
    void Note(const Message& text) override;
    FolderItem GetSaveFolderItem(const FileType& type, const std::string& suggestedName) override;
    FolderItem GetOpenFolderItem(const FileType& type) override;
    bool ShiftKey() const override;
    bool SelectColor(Color& color, const Message& title) override;
    bool Launch(const FolderItem& file) override;
    void ShowURL(const std::string& url) override;
    void FetchInBackground(const std::string& url, std::function<void(const std::string& page)> onReply) override;
    std::optional<std::int64_t> SystemVersion() const override;
    FolderItem PreferencesFolder() const override;
    FolderItem TemporaryFolder() const override;
    std::string ShortDate() const override;
    void Yield() override;

    /// Returns the window that a file dialog is shown for. The dialog takes its proposals from there. May be
    /// empty, and may return null.
    std::function<const FileAsker*()> whoAsks;

    /// Returns the last text passed to Note since the previous call, for a status line. Empty if there is none.
    QString TakeNote() { return std::exchange(note, {}); }

    /// Runs long work that calls Yield. While it runs, Yield processes events, and throws PageStopped once `stop`
    /// is true. Calls can be nested; then only the innermost `stop` counts.
    void RunStoppable(const bool& stop, const std::function<void()>& work);

    /// Asks for settings files of any kind of paper, or only one. Returns an empty list if the user cancels.
    QStringList AskForSettings(QFileDialog::FileMode howMany = QFileDialog::ExistingFiles);

    /// Whether RunStoppable is running.
    bool IsBusy() const { return !stops.empty(); }

    /// Shows a dialog and waits for the user. Returns its result code. All modal dialogs must go through this
    /// function, so that HasDialog is right.
    int RunModal(QDialog& dialog);

    /// Whether a dialog is waiting for the user.
    bool HasDialog() const { return dialogs > 0; }

signals:
    /// Emitted when a dialog or stoppable work has ended and no dialog is open. The code that started it is still
    /// running: receivers must queue their reaction.
    void Idle();
    /// Emitted when the user was asked for a settings file and has chosen a picture, which must be opened in
    /// another way. The request itself counts as canceled.
    void PictureChosen(const QString& path);

private:
    /// Shows a message, with `more` as additional text. `choice` is the caption of a check box below it; an empty
    /// one adds no check box. Returns whether the box was checked.
    bool ShowMessage(QMessageBox::Icon icon, const Message& text, const QString& more, const QString& choice = {});
    /// Shows a file dialog for the type. Returns an empty reference if the user cancels.
    FolderItem AskForFile(const FileType& type, QFileDialog::AcceptMode mode, const QString& suggestedName);
    void EmitIfIdle();

    QString note;
    QElapsedTimer sinceLastTurn;
    int dialogs = 0;                 ///< how many are open, nested in each other
    std::vector<const bool*> stops;  ///< the stop flags of running work, the innermost last
};

}  // namespace linealis::desktop
