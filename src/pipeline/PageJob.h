#pragma once

#include "pipeline/PaperPage.h"
#include "platform/Platform.h"

#include <string>

namespace linealis {

/// Starts a document and draws the page's content into it: the page scale, the background, and what the kind draws.
/// What `turns` throws passes through, and so does PageGivenUp of a page that is too large.
void DrawContent(const PaperPage& page, MyPDFGenerator& pdf, Turns& turns, const PageQuestions& ask);

/// The page's content as Generate would compress it into the file, for who shows, prints or judges it. What `turns`
/// throws passes through, and so does PageGivenUp.
std::string ContentOf(const PaperPage& page, Turns& turns, const PageQuestions& ask = {});

/// Draws the page and writes its file, `theFile` of the generator. A page that is stopped or given up leaves the
/// old file as it was; `platform` tells why a page was given up or could not be written. Returns whether the page
/// came to its end, written or not; false if the user has stopped it.
bool MakePage(const PaperPage& page, MyPDFGenerator& pdf, Turns& turns, const PageQuestions& ask,
              Platform& platform);

}  // namespace linealis
