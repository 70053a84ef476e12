#pragma once

#include "pipeline/document/PaperWindow.h"
#include "pipeline/form/PlaceOnPage.h"

#include <optional>
#include <string_view>
#include <vector>

namespace linealis::web {

/// A margin or a title that the user moves on the page. Each move begins from the form as it was at first.
class PageDrag {
public:
    /// `handle` is "Top", "Bottom", "Left", "Right", or the role of a title, whose text starts at `theStart` before
    /// the scale of the page. The window must outlive the drag.
    PageDrag(PaperWindow& theWindow, std::string_view handle, const Point& theStart);

    /// Whether there is such a handle.
    bool IsPossible() const { return side || title; }

    /// Moves it as near as possible to a distance, in points, from where it was at first.
    void Move(const Point& distance, Grain grain, bool marginsAreLinked);
    void Cancel() { window.form.Restore(before); }

    /// Returns the control that names the step: the margin, or the text of the title.
    const Control& Moved() const;
    bool IsMargin() const { return side.has_value(); }

private:
    PaperWindow& window;
    PageFrame frame;  ///< of the page at first
    std::vector<ControlState> before;
    std::optional<Side> side;
    std::optional<PrintedField> title;
    Point start;
};

/// Returns the roles of the titles that can be moved.
std::vector<Role> MovableTitles(const PaperForm& form);

}  // namespace linealis::web
