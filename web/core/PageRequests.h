#pragma once

#include "core/Requests.h"

namespace linealis::web {

// The requests about the page, for the table of requests.

/// Draws the page and returns it as a display list.
Answer DrawOnScreen(const Question& question, Session& session);
/// Returns everything that will cause problems on the page that was drawn last, and what can be moved on it: where
/// the margins end, and the areas of the titles.
Answer CheckPage(const Question& question, Session& session);
/// Returns the parts of the drawn page that a control affects, as a display list.
Answer LightsOf(const Question& question, Session& session);
/// Begins to move a "handle" of the page: a margin or a title (see PageDrag).
Answer BeginDrag(const Question& question, Session& session);
/// Moves it to a distance in points from where it was at first.
Answer MoveDragged(const Question& question, Session& session);
/// Ends the drag, which becomes a step; with "isCanceled", the form is as it was.
Answer EndDrag(const Question& question, Session& session);
/// Returns the control that affects what the drawn page shows at a place in points.
Answer ControlAt(const Question& question, Session& session);
/// Returns the page as a file.
Answer WritePage(const Question& question, Session& session);
/// Returns a picture of the page, a PNG file, with its "dotsPerInch" and with the form.
Answer DressPicture(const Question& question, Session& session);
/// Returns the bytes of a settings file.
Answer WriteSettings(const Question& question, Session& session);
/// Returns the form as the text of a JSON file.
Answer WriteJson(const Question& question, Session& session);
/// Returns the form as the part of an address after "#".
Answer WriteLink(const Question& question, Session& session);

/// Returns the CSS fonts of the page by their numbers, each with families, and whether it is bold or slanted.
Json FontsForCanvas();

}  // namespace linealis::web
