#pragma once

#include "platform/Color.h"
#include "platform/FolderItem.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace linealis {

/// A moment by the clock on the wall.
struct LocalTime {
    int year = 0;
    int month = 0;  ///< 1 to 12
    int day = 0;    ///< 1 to 31
    int hour = 0;
    int minute = 0;
    int second = 0;
    int secondsEastOfGmt = 0;
};

/// A message with up to three buttons. A button without a caption is not shown.
struct MessageDialog {
    enum class Button { Action, Cancel, Alternate };

    std::string message;  ///< plain text
    std::string actionButton = "OK";
    std::string cancelButton;
    std::string alternateActionButton;
};

/// What the program asks of the machine it runs on, but for files, which are the same everywhere. One
/// implementation has a screen, the other (ScreenlessPlatform) has its answers given by the caller.
class Platform {
public:
    Platform() = default;
    virtual ~Platform() = default;
    Platform(const Platform&) = delete;
    Platform& operator=(const Platform&) = delete;

    /// Shows a message and waits until the user has read it.
    virtual void MsgBox(const std::string& text) = 0;

    /// The same for a message that a user may choose to see no more. `explanation` stands below it, `name` tells it
    /// from other messages of this sort.
    virtual void MsgBoxUnlessHidden(const std::string& text, const std::string& /*explanation*/,
                                    std::string_view /*name*/)
    {
        MsgBox(text);
    }

    /// Shows a message with its buttons and waits for the user. Closing it in another way is Cancel.
    virtual MessageDialog::Button ShowModal(const MessageDialog& dialog) = 0;

    /// Tells that no file was written: `text` as a message box has it, `reason` as the system or the page
    /// itself gives it.
    virtual void ShowFileError(const FolderItem& file, const std::string& text, const std::string& reason) = 0;

    /// Says something that needs no answer, where no message box has its place: in passing, or not at all.
    virtual void Note(const std::string& /*text*/) {}

    /// Asks where to save; nothing if the user cancels.
    virtual FolderItem GetSaveFolderItem(const FileType& type, const std::string& suggestedName) = 0;

    /// Asks for a file to open; nothing if the user cancels.
    virtual FolderItem GetOpenFolderItem(const FileType& type) = 0;

    /// Whether the shift key is held down.
    virtual bool ShiftKey() const = 0;

    /// Lets the user choose a color, starting from `color`. Returns whether one was chosen.
    virtual bool SelectColor(Color& color, const std::string& title) = 0;

    /// Opens a file in the user's viewer for it. Returns whether that could be started.
    virtual bool Launch(const FolderItem& file) = 0;

    /// Opens a web page in the user's browser.
    virtual void ShowURL(const std::string& url) = 0;

    /// Asks a web server for a page, beside everything else. `onReply` gets the page on the caller's thread, at
    /// most longestReply bytes of it, if the server answers with status 200 within replySeconds and longestAnswer,
    /// the bytes of head and page; any failure is silent. `url` is one of http.
    virtual void FetchInBackground(const std::string& url,
                                   std::function<void(const std::string& page)> onReply) = 0;

    static constexpr std::size_t longestReply = 4096;
    static constexpr std::size_t longestAnswer = 65536;
    static constexpr int replySeconds = 10;

    /// The version of macOS as its Gestalt selector "sysv" has it, hexadecimal digits for decimal ones: 0x1068 is
    /// 10.6.8. Nothing on another system.
    virtual std::optional<std::int64_t> SystemVersion() const = 0;

    /// Where the program keeps what it remembers between runs; nothing if it shall remember nothing.
    virtual FolderItem PreferencesFolder() const = 0;

    virtual FolderItem TemporaryFolder() const = 0;

    /// The time by the clock, or the one that SOURCE_DATE_EPOCH tells, in UTC, for files that are the same each
    /// time.
    virtual LocalTime Now() const;

    /// Today's date as a short text: the system's own form where there is a screen, otherwise YYYY-MM-DD.
    virtual std::string ShortDate() const;

    /// Lets pending events run, and throws PageStopped if one of them was the user's wish to stop what is under
    /// way.
    virtual void Yield() = 0;
};

}  // namespace linealis
