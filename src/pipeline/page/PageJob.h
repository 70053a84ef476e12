#pragma once

#include "pipeline/page/PaperPage.h"
#include "platform/Platform.h"

#include <string>

namespace linealis {

/// Starts a document and draws the page's content into it: the page scale, the background, and what the kind draws.
/// What `turns` throws passes through, and so does PageGivenUp of a page that is too large.
void DrawContent(const PaperPage& page, MyPDFGenerator& pdf, Turns& turns, const PageQuestions& ask);

/// A page that is drawn, for whoever shows, prints, writes or judges it.
struct DrawnPage : PaperPage {
    CapacityString content;  ///< as Generate would compress it into the file
    PageRoles roles;         ///< of the content
};

/// Draws a page that was read. What `turns` throws passes through, and so does PageGivenUp.
DrawnPage DrawPage(PaperPage page, Turns& turns, const PageQuestions& ask = {});

/// Draws as much of a page as there is place for, in bytes of its content, until `turns` throw PageStopped. Asks
/// nothing.
DrawnPage DrawBeginning(PaperPage page, Turns& turns, std::int64_t mostContent);

/// Writes the page's file to an open stream. What `turns` throws passes through.
void WritePdf(const DrawnPage& page, const LocalTime& now, BinaryStream& stream, Turns& turns);

/// The same as bytes.
std::string FileBytesOf(const DrawnPage& page, const LocalTime& now, Turns& turns);

/// How the making of a page ended.
enum class PageEnd {
    Written,
    Failed,   ///< given up, or not to be written: the platform has told why
    Stopped,  ///< by the user
};

/// Draws the page and writes its file, `theFile` of the generator. Unless it is written, the old file stays as it
/// was; `platform` tells why a page was given up or could not be written.
PageEnd MakePage(const PaperPage& page, MyPDFGenerator& pdf, Turns& turns, const PageQuestions& ask,
                 Platform& platform);

}  // namespace linealis
