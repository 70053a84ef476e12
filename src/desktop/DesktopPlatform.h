#pragma once

#include "platform/Platform.h"
#include "platform/Turns.h"

#include <QElapsedTimer>
#include <QObject>
#include <functional>
#include <vector>

namespace linealis::desktop {

/// The platform with a screen, on Qt.
class DesktopPlatform final : public QObject, public Platform {
    Q_OBJECT

public:
    DesktopPlatform();

    void MsgBox(const std::string& text) override;
    MessageDialog::Button ShowModal(const MessageDialog& dialog) override;
    void ShowFileError(const FolderItem& file, const std::string& text, const std::string& reason) override;
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

    /// Runs long work that gives the interface its turn while it lasts, and ends it when `stop` has become true.
    void RunStoppable(const bool& stop, const std::function<void()>& work);

    /// Whether work of that sort is under way.
    bool IsBusy() const { return !stops.empty(); }
    void Yield() override;

private:
    QElapsedTimer sinceLastTurn;
    std::vector<const bool*> stops;  ///< of the work under way, the innermost last
};

}  // namespace linealis::desktop
