#pragma once

#include "core/Requests.h"

namespace linealis::web {

/// Returns a pad of the page as a file, or, with "isOnlyDescribed", what it is in words. Numbers of pages and
/// copies that are out of range become possible ones; the answer has them. "back" is null, or {"isSame": true}, or
/// what OpenedPaper takes.
Answer MakePad(const Question& question, Session& session);

}  // namespace linealis::web
