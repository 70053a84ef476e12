#pragma once

#include "pdf/MyPDFGenerator.h"
#include "pipeline/page/PageFrame.h"
#include "pipeline/page/PageWarning.h"
#include "platform/Turns.h"

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace linealis {

/// What a drawing must say or ask on its way. Generate shows a dialog in the middle of the page, another caller
/// collects. By default nothing is heard, and there are no markers.
struct PageQuestions {
    /// Tells the user something that keeps a part of the page from being drawn.
    std::function<void(const std::string& message)> say = [](const std::string& /*message*/) {};

    /// Asks for the marker file. Returns the way to its lines: each call puts the next one, without its end, into
    /// `line`, and returns whether there was one. Without a file there is none.
    std::function<std::function<bool(std::string& line)>()> askForMarkers = [] {
        return [](std::string& /*line*/) { return false; };
    };
};

/// A text of a form that stands on its page.
struct PrintedField {
    Role role;
    std::string control;         ///< the name of its field
    bool coversLines = false;    ///< where the form opens, it stands over grid lines (Traits)
    bool standsAsOpened = true;  ///< whether all that places it is as the form opened
};

/// A page as it was read from a form: plain values, and the drawing that goes with them. It knows no form, window,
/// file or screen, so that it can be drawn anywhere, on any thread.
struct PaperPage {
    PageFrame frame;
    std::function<void(MyPDFGenerator& pdf, Turns& turns, const PageQuestions& ask)> doGraph;
    /// What the page holds, in a few words: "37 by 53 cells of 5 mm".
    std::function<std::string()> describe = [] { return std::string(); };
    PageWarnings warnings = {};              ///< what of the form will disappoint
    std::vector<PrintedField> printed = {};  ///< the form's texts
};

/// The page of a kind, whose drawing is the function Draw for it, and Describe its words.
template <typename KindPage>
PaperPage PageOf(KindPage page)
{
    const PageFrame frame = page.frame;
    const auto shared = std::make_shared<const KindPage>(std::move(page));
    return {frame,
            [shared](MyPDFGenerator& pdf, Turns& turns, const PageQuestions& ask) {
                if constexpr (requires { Draw(*shared, pdf, turns, ask); }) {
                    Draw(*shared, pdf, turns, ask);
                } else {
                    Draw(*shared, pdf, turns);
                }
            },
            [shared] { return Describe(*shared); }};
}

}  // namespace linealis
