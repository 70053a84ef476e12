#pragma once

#include "kinds/PadSheet.h"
#include "pipeline/page/PageJob.h"

#include <string>

namespace linealis::web {

/// Returns the PDF file of a pad, dated `now`. It is the file of the front page with an appended part (an
/// incremental update) that has the sides of the sheets as pages. Each of them refers to the content of the front
/// or the back, which is in the file once. `back`, which may be null or `front`, has the size of the front.
/// `layout.page` is that size.
std::string PadFile(const PadLayout& layout, std::size_t copies, const DrawnPage& front, const DrawnPage* back,
                    const LocalTime& now);

}  // namespace linealis::web
