#pragma once

#include "pipeline/page/PaperPage.h"
#include "platform/Platform.h"

#include <string>

namespace linealis {

/// Starts a document and draws the content of the page: scale, background, and the drawing of the kind. Exceptions
/// of `turns` pass through, and so does PageGivenUp if the page is too large.
void DrawContent(const PaperPage& page, MyPDFGenerator& pdf, Turns& turns, const PageQuestions& ask);

/// A drawn page, for code that shows, prints, writes, or checks it.
struct DrawnPage : PaperPage {
    CapacityString content;  ///< uncompressed, as Generate would write it
    PageRoles roles;         ///< of the content
};

/// Draws a page. Exceptions of `turns` pass through, and so does PageGivenUp.
DrawnPage DrawPage(PaperPage page, Turns& turns, const PageQuestions& ask = {});

/// Draws a page until it has `mostContent` bytes of content or `turns` throws; then returns what has been drawn.
/// Asks no questions.
DrawnPage DrawBeginning(PaperPage page, Turns& turns, std::int64_t mostContent);

/// Writes the PDF file of the page, dated `now`, to an open stream. Exceptions of `turns` pass through.
void WritePdf(const DrawnPage& page, const LocalTime& now, BinaryStream& stream, Turns& turns);

/// Returns the PDF file of the page as bytes.
std::string FileBytesOf(const DrawnPage& page, const LocalTime& now, Turns& turns);

/// The outcome of MakePage.
enum class PageEnd {
    Written,
    Failed,   ///< abandoned or not writable; the platform has reported why
    Stopped,  ///< by the user
};

/// Draws the page and writes it to `theFile` of the generator. If that fails or is stopped, an existing file stays
/// as it was. Reports through `platform` why a page was abandoned or could not be written.
PageEnd MakePage(const PaperPage& page, MyPDFGenerator& pdf, Turns& turns, const PageQuestions& ask,
                 Platform& platform);

}  // namespace linealis
