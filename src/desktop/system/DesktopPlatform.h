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

/// Whether the name is that of a page as SVG or PNG, which carries its form.
bool IsPicture(const QString& path);

/// The platform with a screen, on Qt.
class DesktopPlatform final : public QObject, public Platform {
    Q_OBJECT

public:
    DesktopPlatform();

    void MsgBox(const std::string& text) override;
    void MsgBoxUnlessHidden(const std::string& text, const std::string& explanation,
                            std::string_view name) override;
    MessageDialog::Button ShowModal(const MessageDialog& dialog) override;
    void ShowFileError(const FolderItem& file, const std::string& text, const std::string& reason) override;
    void Note(const std::string& text) override;
    FolderItem GetSaveFolderItem(const FileType& type, const std::string& suggestedName) override;
    FolderItem GetOpenFolderItem(const FileType& type) override;
    bool ShiftKey() const override;
    bool SelectColor(Color& color, const std::string& title) override;
    bool Launch(const FolderItem& file) override;
    void ShowURL(const std::string& url) override;
    void FetchInBackground(const std::string& url, std::function<void(const std::string& page)> onReply) override;
    std::optional<std::int64_t> SystemVersion() const override;
    FolderItem PreferencesFolder() const override;
    FolderItem TemporaryFolder() const override;
    std::string ShortDate() const override;
    void Yield() override;

    /// Tells the window whose user is asked for a file; null if that knows nothing of it.
    std::function<const FileAsker*()> whoAsks;

    /// What was noted since the last call, for the status line of whoever began it.
    QString TakeNote() { return std::exchange(note, {}); }

    /// Runs long work that gives the interface its turn while it lasts, and ends it when `stop` has become true.
    void RunStoppable(const bool& stop, const std::function<void()>& work);

    /// Asks for settings files of any kinds; none if the user cancels.
    QStringList AskForSettings();

    /// Whether work of that sort is under way.
    bool IsBusy() const { return !stops.empty(); }

    /// Shows a dialog and waits for the user. Returns how it ended.
    int RunModal(QDialog& dialog);

    /// Whether a dialog waits for the user.
    bool HasDialog() const { return dialogs > 0; }

signals:
    /// The last work, or the last dialog, has ended. Who began it has not: take it as the event to come after that.
    void Idle();
    /// Where a settings file was asked for, the user has chosen a picture, which is opened in another way.
    void PictureChosen(const QString& path);

private:
    /// `choice` is what the user may tick below it; empty: nothing. Returns whether that was ticked.
    bool ShowMessage(QMessageBox::Icon icon, const std::string& text, const QString& more,
                     const QString& choice = {});
    /// A file dialog limited to the type.
    FolderItem AskForFile(const FileType& type, QFileDialog::AcceptMode mode, const QString& suggestedName);
    void EmitIfIdle();

    QString note;
    QElapsedTimer sinceLastTurn;
    int dialogs = 0;                 ///< open ones, one in the other
    std::vector<const bool*> stops;  ///< of the work under way, the innermost last
};

}  // namespace linealis::desktop
