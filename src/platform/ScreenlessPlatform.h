#pragma once

#include "platform/Platform.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace linealis {

/// The platform without a screen, for the command line and the tests. The caller sets the answers beforehand and
/// afterwards reads what was shown, asked, and launched.
class ScreenlessPlatform : public Platform {
public:
    struct FileError {
        FolderItem file;
        std::string text;
        std::string reason;
    };
    struct Fetch {
        std::string url;
        std::function<void(const std::string& page)> onReply;
    };
    struct Question {
        FileType type;
        std::string suggestedName;
    };

    // Answers, set by the caller.
    bool shiftKey = false;
    FolderItem saveAnswer;             ///< empty: every save dialog is canceled
    FolderItem openAnswer;             ///< empty: every open dialog is canceled
    std::optional<Color> colorAnswer;  ///< empty: the color picker is canceled
    FolderItem preferencesFolder;      ///< empty: nothing is kept between runs
    std::optional<LocalTime> clock;    ///< empty: the real clock
    FolderItem temporaryFolder;        ///< empty: there is none
    MessageDialog::Button buttonAnswer = MessageDialog::Button::Cancel;
    std::optional<std::int64_t> systemVersion;
    bool launchSucceeds = true;
    std::function<void()> onYield;  ///< may throw PageStopped

    // Records of what happened, in order.
    std::vector<std::string> messages;
    std::vector<FileError> fileErrors;
    std::vector<std::string> notes;
    std::vector<Question> saveQuestions;
    std::vector<FolderItem> launched;
    std::vector<MessageDialog> dialogs;
    std::vector<std::string> shownUrls;
    std::vector<Fetch> fetches;  ///< the caller calls onReply, or not

    void MsgBox(const Message& text) override { messages.push_back(text.English()); }
    void Note(const Message& text) override { notes.push_back(text.English()); }
    MessageDialog::Button ShowModal(const MessageDialog& dialog) override;
    void ShowFileError(const FolderItem& file, const Message& text, const Message& reason) override;
    FolderItem GetSaveFolderItem(const FileType& type, const std::string& suggestedName) override;
    FolderItem GetOpenFolderItem(const FileType& /*type*/) override { return openAnswer; }
    bool ShiftKey() const override { return shiftKey; }
    bool SelectColor(Color& color, const Message& title) override;
    bool Launch(const FolderItem& file) override;
    FolderItem PreferencesFolder() const override { return preferencesFolder; }
    FolderItem TemporaryFolder() const override { return temporaryFolder; }
    void ShowURL(const std::string& url) override { shownUrls.push_back(url); }
    void FetchInBackground(const std::string& url, std::function<void(const std::string& page)> onReply) override;
    std::optional<std::int64_t> SystemVersion() const override { return systemVersion; }
    LocalTime Now() const override { return clock ? *clock : Platform::Now(); }
    void Yield() override;
};

}  // namespace linealis
