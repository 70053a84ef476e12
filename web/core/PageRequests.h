#pragma once

#include "core/Requests.h"

namespace linealis::web {

// The requests about the page, for the table of requests.

/// Draws the page and returns it as a display list.
Answer DrawOnScreen(const Question& question, Session& session);
/// Returns everything that will cause problems on the page that was drawn last.
Answer CheckPage(const Question& question, Session& session);
/// Returns the parts of the drawn page that a control affects, as a display list.
Answer LightsOf(const Question& question, Session& session);
/// Returns the control that affects what the drawn page shows at a place in points.
Answer ControlAt(const Question& question, Session& session);
/// Returns the page as a file.
Answer WritePage(const Question& question, Session& session);
/// Returns the bytes of a settings file.
Answer WriteSettings(const Question& question, Session& session);
/// Returns the form as the text of a JSON file.
Answer WriteJson(const Question& question, Session& session);
/// Returns the form as the part of an address after "#".
Answer WriteLink(const Question& question, Session& session);

/// Returns the CSS fonts of the page by their numbers, each with families, and whether it is bold or slanted.
Json FontsForCanvas();

}  // namespace linealis::web
