#pragma once

#include "platform/Color.h"
#include "platform/FolderItem.h"
#include "text/Message.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace linealis {

/// A date and time of day in local time.
struct LocalTime {
    int year = 0;
    int month = 0;  ///< 1 to 12
    int day = 0;    ///< 1 to 31
    int hour = 0;
    int minute = 0;
    int second = 0;
    int secondsEastOfGmt = 0;
};

/// A message with up to three buttons. A button with an empty caption is not shown.
struct MessageDialog {
    enum class Button { Action, Cancel, Alternate };

    Message message;
    Message actionButton{"OK"};
    Message cancelButton;
    Message alternateActionButton;
};

/// Abstracts the services of the machine that the program uses, except for files, which are the same everywhere.
/// One implementation drives a screen; in the other (ScreenlessPlatform), the caller supplies the answers.
class Platform {
public:
    Platform() = default;
    virtual ~Platform() = default;
    Platform(const Platform&) = delete;
    Platform& operator=(const Platform&) = delete;

    /// Shows a message and waits until the user dismisses it.
    virtual void MsgBox(const Message& text) = 0;

    /// Like MsgBox, for a message that the user may choose to hide from then on. `explanation` is shown below the
    /// message; `name` identifies the message among others of this kind.
    virtual void MsgBoxUnlessHidden(const Message& text, const Message& /*explanation*/, std::string_view /*name*/)
    {
        MsgBox(text);
    }

    /// Shows a message with buttons and waits for the user. Closing it in any other way counts as Cancel.
    virtual MessageDialog::Button ShowModal(const MessageDialog& dialog) = 0;

    /// Reports that a file was not written. `text` is the complete message for a message box; `reason` is the cause
    /// alone, from the system or from the page.
    virtual void ShowFileError(const FolderItem& file, const Message& text, const Message& reason) = 0;

    /// Reports something that needs no answer and does not justify a message box. The default does nothing.
    virtual void Note(const Message& /*text*/) {}

    /// Asks where to save a file. Returns an empty reference if the user cancels.
    virtual FolderItem GetSaveFolderItem(const FileType& type, const std::string& suggestedName) = 0;

    /// Asks for a file to open. Returns an empty reference if the user cancels.
    virtual FolderItem GetOpenFolderItem(const FileType& type) = 0;

    /// Whether the Shift key is held down.
    virtual bool ShiftKey() const = 0;

    /// Lets the user choose a color, starting from `color`. Returns whether the user chose one; `color` is
    /// unchanged otherwise.
    virtual bool SelectColor(Color& color, const Message& title) = 0;

    /// Opens a file in the user's default viewer. Returns whether the viewer could be started.
    virtual bool Launch(const FolderItem& file) = 0;

    /// Opens a web page in the user's browser.
    virtual void ShowURL(const std::string& url) = 0;

    /// Requests a page from a web server without blocking. If the server answers with status 200 within
    /// replySeconds, calls `onReply` on the thread of the caller with the page, cut to its first longestReply
    /// bytes. Reads at most longestAnswer bytes, header and page together. Any failure is silent. `url` must use
    /// http.
    virtual void FetchInBackground(const std::string& url,
                                   std::function<void(const std::string& page)> onReply) = 0;

    static constexpr std::size_t longestReply = 4096;
    static constexpr std::size_t longestAnswer = 65536;
    static constexpr int replySeconds = 10;

    /// Returns the macOS version as the Gestalt selector "sysv" encodes it, with hexadecimal digits for decimal
    /// ones: 0x1068 is 10.6.8. Returns nothing on other systems.
    virtual std::optional<std::int64_t> SystemVersion() const = 0;

    /// Returns the folder for data that the program keeps between runs, or an empty reference if it must not keep
    /// any.
    virtual FolderItem PreferencesFolder() const = 0;

    /// Returns the folder for temporary files, or an empty reference if there is none.
    virtual FolderItem TemporaryFolder() const = 0;

    /// Returns the current local time. If the environment variable SOURCE_DATE_EPOCH is set, returns that time in
    /// UTC instead, so that files are reproducible.
    virtual LocalTime Now() const;

    /// Returns today's date as a short text: in the system's own format if there is a screen, otherwise as
    /// YYYY-MM-DD.
    virtual std::string ShortDate() const;

    /// Processes pending events. Throws PageStopped if one of them is a request by the user to stop the current
    /// page.
    virtual void Yield() = 0;
};

}  // namespace linealis
