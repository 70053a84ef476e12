#pragma once

#include "pdf/MyPDFGenerator.h"
#include "pipeline/page/PageFrame.h"
#include "pipeline/page/PageWarning.h"
#include "platform/Turns.h"

#include <concepts>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace linealis {

/// Messages and questions of a drawing. Generate shows a dialog in the middle of the page; other callers collect
/// the messages. By default messages are dropped and there are no markers.
struct PageQuestions {
    /// Tells the user about a problem that keeps a part of the page from being drawn.
    std::function<void(const Message& message)> say = [](const Message& /*message*/) {};

    /// Asks for the marker file. Returns a function that reads it: each call stores the next line, without its line
    /// end, in `line` and returns whether there was one. Without a file, there are no lines.
    std::function<std::function<bool(std::string& line)>()> askForMarkers = [] {
        return [](std::string& /*line*/) { return false; };
    };
};

/// A text of the form that is printed on the page.
struct PrintedField {
    Role role;
    std::string control;         ///< the name of the field
    bool coversLines = false;    ///< overlaps grid lines when the form opens (Traits)
    bool standsAsOpened = true;  ///< whether everything that places it has its opening value
    Point zero{};                ///< of a title: where the place 0, 0 of the form is, in points
};

/// A page as read from a form: plain values and the function that draws them. It refers to no form, window, file,
/// or screen, so it can be drawn anywhere, on any thread.
struct PaperPage {
    PageFrame frame;
    std::function<void(MyPDFGenerator& pdf, Turns& turns, const PageQuestions& ask)> doGraph;
    /// Describes the page in a few words: "37 by 53 cells of 5 mm".
    std::function<Message()> describe = [] { return Message(); };
    PageWarnings warnings = {};              ///< the problems of the form on paper
    std::vector<PrintedField> printed = {};  ///< the printed texts of the form
};

/// A page that asks questions while it is drawn.
template <typename KindPage>
concept AskingPage = requires(const KindPage& page, MyPDFGenerator& pdf, Turns& turns, const PageQuestions& ask)
{
    Draw(page, pdf, turns, ask);
};

/// A page that is drawn without questions.
template <typename KindPage>
concept SilentPage = requires(const KindPage& page, MyPDFGenerator& pdf, Turns& turns)
{
    Draw(page, pdf, turns);
};

/// The values of a page of one kind: its frame, and functions beside its type, found by argument-dependent lookup,
/// that draw it and describe it in a few words.
template <typename KindPage>
concept PageOfAKind = std::same_as<decltype(KindPage::frame), PageFrame> &&
    std::same_as<decltype(Describe(std::declval<const KindPage&>())), Message> &&
    (AskingPage<KindPage> || SilentPage<KindPage>);

/// Wraps the page of a kind.
template <PageOfAKind KindPage>
PaperPage PageOf(KindPage page)
{
    const PageFrame frame = page.frame;
    const auto shared = std::make_shared<const KindPage>(std::move(page));
    return {frame,
            [shared](MyPDFGenerator& pdf, Turns& turns, const PageQuestions& ask) {
                if constexpr (AskingPage<KindPage>) {
                    Draw(*shared, pdf, turns, ask);
                } else {
                    Draw(*shared, pdf, turns);
                }
            },
            [shared] { return Describe(*shared); }};
}

}  // namespace linealis
