#include "pdf/PdfObjects.h"

#include "pdf/StandardFonts.h"
#include "text/Numbers.h"

#include <algorithm>
#include <cmath>

namespace linealis {

namespace {

constexpr std::size_t writtenPieceSize = std::size_t{1} << 20U;

/// The work of writing one piece, counted in drawn lines, so that the user interface gets a turn after each piece.
constexpr int linesWorthOfAPiece = Turns::linesPerYield;

std::string TwoDigits(int value)
{
    return myformatstring(value, "00");
}

void WriteFont(PdfObjects& file, std::size_t number, const StandardFont& font)
{
    file.Begin(number);
    file.Line("<</Type/Font");
    file.Line("/Subtype/Type1");
    file.Line("/BaseFont/" + std::string(font.name));
    file.Line("/Encoding/MacRomanEncoding");
    file.Line(">>");
    file.End();
}

}  // namespace

PdfObjects::PdfObjects(BinaryStream& theStream, Turns& theTurns) : stream(theStream), turns(theTurns)
{
    Line("%PDF-1.4");
}

std::size_t PdfObjects::Reserve(std::size_t count)
{
    const std::size_t first = offsets.size() + 1;
    offsets.resize(offsets.size() + count);
    return first;
}

void PdfObjects::Begin(std::size_t number)
{
    offsets.at(number - 1) = length;
    Line(std::to_string(number) + " 0 obj");
}

std::size_t PdfObjects::Begin()
{
    const std::size_t number = Reserve();
    Begin(number);
    return number;
}

void PdfObjects::Text(std::string_view text)
{
    length += text.size();
    stream.Write(text);
}

void PdfObjects::Line(std::string_view text)
{
    Text(text);
    Text("\r");
}

void PdfObjects::Bytes(std::string_view bytes)
{
    for (; !bytes.empty(); bytes.remove_prefix(std::min(bytes.size(), writtenPieceSize))) {
        Text(bytes.substr(0, writtenPieceSize));
        turns.RuntimeBackgroundTask(linesWorthOfAPiece);
    }
}

void PdfObjects::End()
{
    Line("endobj");
}

void PdfObjects::Finish(std::size_t root, std::size_t info)
{
    const std::string size = std::to_string(offsets.size() + 1), table = std::to_string(length);
    Line("xref");
    Line("0 " + size);
    Line("0000000000 65535 f ");
    for (const std::uint64_t offset : offsets) {
        Line(myformatstring(static_cast<double>(offset), "0000000000") + " 00000 n ");
        turns.RuntimeBackgroundTask();
    }
    Line("trailer");
    Line("<</Size " + size);
    Line("/Root " + PdfReference(root));
    Line("/Info " + PdfReference(info));
    Line(">>");
    Line("startxref");
    Line(table);
    Line("%%EOF");
}

std::string PdfReference(std::size_t object)
{
    return std::to_string(object) + " 0 R";
}

std::string PdfBox(std::int64_t width, std::int64_t height)
{
    return "[0 0 " + mystring(width) + " " + mystring(height) + "]";
}

std::string PdfDate(const LocalTime& now)
{
    constexpr double secondsPerHour = 3600.0;
    const double offset = now.secondsEastOfGmt / secondsPerHour;
    std::string zone = "Z00";
    if (offset != 0.0) {
        zone = (offset < 0.0 ? "-" : "+") + myformatstring(std::fabs(offset), "00");
    }
    return "(D:" + myformatstring(now.year, "0000") + TwoDigits(now.month) + TwoDigits(now.day) +
           TwoDigits(now.hour) + TwoDigits(now.minute) + TwoDigits(now.second) + zone + "'00')";
}

void WritePdfInfo(PdfObjects& file, std::size_t number, std::int64_t width, std::int64_t height,
                  const LocalTime& now)
{
    file.Begin(number);
    file.Line("<</Subject (Width: " + mystring(width) + "  Height: " + mystring(height) + ")");
    file.Line("/Title (Linealis)");
    file.Line("/Author (Tallowmere Works)");
    file.Line("/Creator (Linealis)");
    file.Line("/CreationDate " + PdfDate(now));
    file.Line("/Producer (Linealis)");
    file.Line(">>");
    file.End();
}

void WriteFirstPdfFont(PdfObjects& file, std::size_t first)
{
    WriteFont(file, first, StandardFontOf(1));
}

void WriteFurtherPdfFonts(PdfObjects& file, std::size_t further)
{
    for (const StandardFont& font : StandardFonts().last<furtherPdfFonts>()) {
        WriteFont(file, further++, font);
    }
}

void WritePdfFontDictionary(PdfObjects& file, std::size_t first, std::size_t further)
{
    // F0 and F1 are the same font: FindFont returns number 0, and the first item of a font popup is number 1.
    file.Line("<</F0 " + PdfReference(first));
    file.Line("/F1 " + PdfReference(first));
    for (std::size_t i = 0; i < furtherPdfFonts; ++i) {
        file.Line("/F" + std::to_string(i + 2) + " " + PdfReference(further + i));
    }
    file.Line(">>");
}

}  // namespace linealis
