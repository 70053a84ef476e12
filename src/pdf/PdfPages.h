#pragma once

#include "pdf/Geometry.h"
#include "pdf/PdfObjects.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace linealis {

/// Writes a PDF 1.4 file of any number of pages. Contents, attachments and pages go to the stream as they come, so
/// that only their places stay in memory. Viewers print the pages at true size unless the user chooses otherwise.
class PdfPages {
public:
    /// `theStream` and `theTurns` must outlive the object. Exceptions of `theTurns` pass through all functions.
    PdfPages(BinaryStream& theStream, Turns& theTurns);

    /// Stores the content of a page of that size in points. Returns the number that identifies it below. However
    /// many pages show it, it is in the file once.
    std::size_t AddContent(std::string_view content, std::int64_t width, std::int64_t height);

    /// Adds a page that shows one content, and has its size.
    void AddPage(std::size_t content);

    /// A content on a page, with the position of its lower left corner in points, rounded to thousandths.
    struct Placed {
        std::size_t content;
        Point corner;
    };

    /// Adds a page of that size in points with the contents on it, each cut off at the edges of its own paper and
    /// `margin` points from the edges of the page. On top of them, it shows the page content `marks`.
    void AddPage(std::int64_t width, std::int64_t height, std::span<const Placed> placed, std::string_view marks,
                 double margin = 0.0);

    /// Attaches a file that the pages are made from. The name is ASCII, without parentheses and backslashes, and
    /// differs from those of other attachments. A compressed one is smaller, but PdfAttachmentIn does not find it.
    void Attach(const std::string& name, std::string_view mimeType, std::string_view bytes, bool isCompressed);

    /// Writes the rest of the file, dated `now`. Needs at least one page. Does not close the stream.
    void Finish(const LocalTime& now);

private:
    struct Content {
        std::size_t object;
        std::int64_t width;
        std::int64_t height;
    };
    struct Attachment {
        std::string name;
        std::size_t object;
    };

    void WriteStream(std::string_view entries, std::string_view bytes);
    void WritePage(std::int64_t width, std::int64_t height, std::size_t content, std::string_view resources);
    std::size_t StreamOf(std::string content);
    std::size_t WriteCatalog();
    void WriteFonts();
    void WritePageTree();

    Turns& turns;
    PdfObjects file;
    const std::size_t pageTree, fonts, resources;
    std::vector<Content> contents;
    std::unordered_map<std::string, std::size_t> streams;  ///< what is on top of contents, by its text
    std::vector<std::size_t> pages;
    std::vector<Attachment> attachments;
    std::int64_t firstWidth = 0;  ///< of the first page
    std::int64_t firstHeight = 0;
};

}  // namespace linealis
