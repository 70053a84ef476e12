#pragma once

#include "core/FormText.h"
#include "core/History.h"
#include "core/PageDrag.h"
#include "kinds/PaperKinds.h"
#include "pipeline/document/MarkerFile.h"
#include "platform/ScreenlessPlatform.h"

#include <memory>
#include <optional>

namespace linealis::web {

/// The most content of a page that is shown, in bytes. Of a larger page, only the beginning is.
inline constexpr std::int64_t mostContentShown = std::int64_t{64} << 20U;

/// The paper that the page in the browser shows, or one of its dialogs.
class Session {
public:
    /// Opens a new form of the kind. The language must outlive the session.
    Session(const PaperKind& theKind, const LocalTime& now, const Language& theLanguage);

    const PaperKind& Kind() const { return kind; }
    PaperWindow& Window() { return *window; }
    History& Steps() { return *history; }
    const FormText& Text() const { return text; }
    const Language& LanguageOfPage() const { return language; }
    /// Returns a message in the language of the page.
    std::string Say(const Message& message) const { return message.In(language); }

    /// Forgets all steps, so that the form as it is now is where undo ends.
    void BeginHistory() { history.emplace(window->form); }

    /// Reads the page. Remembers its summary for State.
    PaperPage Read();
    /// Draws the page for writing. Passes on PageGivenUp.
    DrawnPage Draw();
    /// Draws the page for the screen, or as much of it as is shown, and keeps it.
    void DrawForScreen();
    /// The page that was drawn last for the screen; null before the first one.
    const DrawnPage* Drawn() const { return drawn ? &*drawn : nullptr; }
    /// Why Drawn is not the whole page; empty if it is.
    const Message& Problem() const { return problem; }

    /// Uses the markers of a file and switches them on.
    void UseMarkers(const MarkerFile& file);
    const MarkerFile* Markers() const { return markers ? &*markers : nullptr; }

    /// Returns the paper: its kind, its form, and what State returns.
    Json Description();
    /// Returns what may have changed: the controls, readouts, summary and steps.
    Json State();

    bool marginsAreLinked = false;
    std::optional<PageDrag> drag = {};        ///< while the user moves something on the page
    std::optional<FormText> wizardText = {};  ///< of the dialog that is open

private:
    PageQuestions Answers() const;

    const PaperKind& kind;
    const Language& language;
    ScreenlessPlatform platform;
    std::unique_ptr<PaperWindow> window;
    std::optional<History> history;
    FormText text;
    std::optional<MarkerFile> markers;
    std::optional<DrawnPage> drawn;
    Message problem;
};

}  // namespace linealis::web
