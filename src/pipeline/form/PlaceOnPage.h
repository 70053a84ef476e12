#pragma once

#include "pipeline/form/PaperForm.h"
#include "pipeline/page/PaperPage.h"

namespace linealis {

// Margins and titles that the user moves on the page itself.

enum class Side { Top, Bottom, Left, Right };

/// Returns the field of a margin.
TextField& MarginOf(PaperForm& form, Side side);

/// Returns where a margin ends across the page, in points from the lower left corner of the paper.
double EndOfMargin(const PageFrame& frame, Side side);

/// How far a length is rounded: to 1/16 inch or 0.5 mm, or finely to 0.01 inch or 0.1 mm.
enum class Grain { Coarse, Fine };

/// Puts the end of a margin as near as possible to a place across the page: x of a left or right margin, y of a top
/// or bottom one, in points from the lower left corner of the paper. The margin stays between 0 and the opposite
/// margin. Does nothing if the scale of the page is not above 0.
void MoveMargin(PaperForm& form, Side side, double place, Grain grain);

/// The controls that place a title.
struct TitleControls {
    TextField* x = nullptr;  ///< null, like `y`, if the form has no fields for the place
    TextField* y = nullptr;
    CheckBox* placesItself = nullptr;  ///< null if there is no such box
};

TitleControls ControlsOfTitle(const PaperForm& form, Role title);

/// Lets a title begin as near as possible to a place, in points before the scale of the page. Switches off what
/// places the title by itself. Does nothing if the form has no fields for its place.
void MoveTitle(PaperForm& form, const PrintedField& title, const Point& place, Grain grain);

}  // namespace linealis
