#pragma once

#include "platform/BinaryStream.h"
#include "platform/Platform.h"
#include "platform/Turns.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace linealis {

/// Writes the objects of a PDF 1.4 file to a stream, one after the other, and the table that finds them. Each line
/// ends in one CR byte. Objects count from 1.
class PdfObjects {
public:
    /// Writes the beginning of the file. `theTurns` is called in long loops. Both must outlive the object.
    PdfObjects(BinaryStream& theStream, Turns& theTurns);

    /// Returns the number of a new object, or of the first of several, whose numbers follow each other. All must be
    /// written before the end of the file.
    std::size_t Reserve(std::size_t count = 1);
    /// Begins an object with a number that Reserve has returned, or with a new number, which it returns.
    void Begin(std::size_t number);
    std::size_t Begin();
    /// Writes bytes of the object.
    void Text(std::string_view text);
    void Line(std::string_view text);
    /// Writes bytes of any size, with a turn after each piece.
    void Bytes(std::string_view bytes);
    void End();

    /// Writes the cross-reference table and the trailer. The root is the number of the catalog.
    void Finish(std::size_t root, std::size_t info);

private:
    BinaryStream& stream;
    Turns& turns;
    std::vector<std::uint64_t> offsets;  ///< of the objects, by number from 1
    std::uint64_t length = 0;            ///< of the file so far
};

/// Returns a reference to an object, such as "7 0 R".
std::string PdfReference(std::size_t object);

/// Returns the rectangle of a page of that size in points, from the lower left corner of the paper.
std::string PdfBox(std::int64_t width, std::int64_t height);

/// Returns the date and time in PDF syntax, including the parentheses. The time zone is rounded to whole hours.
std::string PdfDate(const LocalTime& now);

/// Writes an object with the information on a file. The size is that of its page, in points.
void WritePdfInfo(PdfObjects& file, std::size_t number, std::int64_t width, std::int64_t height,
                  const LocalTime& now);

/// The number of fonts besides /F1.
inline constexpr std::size_t furtherPdfFonts = 13;

/// Writes the objects of all fonts: /F1 with the number `first`, /F2 and the following from `further` on.
void WriteFirstPdfFont(PdfObjects& file, std::size_t first);
void WriteFurtherPdfFonts(PdfObjects& file, std::size_t further);

/// Writes the dictionary of these fonts by their names on a page.
void WritePdfFontDictionary(PdfObjects& file, std::size_t first, std::size_t further);

}  // namespace linealis
