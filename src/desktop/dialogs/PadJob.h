#pragma once

#include "desktop/dialogs/TablePages.h"
#include "kinds/PadPlan.h"
#include "pipeline/document/MarkerFile.h"
#include "pipeline/page/PageJob.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace linealis::desktop {

/// A pad to save or to print: plain values, for any thread.
struct PadJob {
    PadPlan plan;
    std::size_t copies = 1;
    PaperPage form;                           ///< the page of the form
    std::shared_ptr<const TablePages> table;  ///< whose pages are on the fronts; null: that of the form is
    std::optional<PaperPage> back;
    bool backIsForm = false;  ///< whether the back is the page of the form too
    MarkerFile markers;       ///< for pages that ask for a marker file
    PageWarnings warnings;    ///< about the pad as a whole
    std::string carriedForm;  ///< the form, as the file carries it
    std::string carriedBack;  ///< that of the back
    LocalTime now{};          ///< the date of the file

    /// Returns one of the different pages on the fronts, from 0.
    const PaperPage& Front(std::size_t index) const { return table ? table->pages.at(index) : form; }

    /// Draws a page of the pad. Exceptions of `turns` pass through, and so does PageGivenUp.
    DrawnPage Draw(
        const PaperPage& page, Turns& turns,
        std::function<void(const Message& message)> say = [](const Message& /*message*/) {}) const
    {
        return DrawPage(page, turns, {std::move(say), [this] { return markers.Lines(); }});
    }
};

}  // namespace linealis::desktop
