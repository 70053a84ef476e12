#include "pdf/MyPDFGenerator.h"

#include "pdf/StandardFonts.h"
#include "pdf/StreamCompression.h"
#include "text/Numbers.h"

#include <zlib.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace linealis {

namespace {

constexpr std::int64_t initialCapacity = 20000;
constexpr std::int64_t capacityIncrement = 10000;

constexpr std::size_t writtenPieceSize = std::size_t{1} << 20U;

/// The work of writing one piece, counted in drawn lines, so that the user interface gets a turn
/// after each piece.
constexpr int linesWorthOfAPiece = Turns::linesPerYield;

/// The font /F1 is object 7; the remaining entries of StandardFonts() are objects 10 to 22.
constexpr int firstFontObject = 7;
constexpr int firstFurtherFontObject = 10;

std::span<const StandardFont, 13> FurtherFonts()
{
    return StandardFonts().last<13>();
}

std::string TwoDigits(int value)
{
    return myformatstring(value, "00");
}

}  // namespace

MyPDFGenerator::MyPDFGenerator(Turns& theTurns, std::int64_t theLargestStream)
    : turns(theTurns), mostStream(theLargestStream), streamC(initialCapacity, capacityIncrement)
{}

int MyPDFGenerator::CreateNew()
{
    numObjects = 0;
    currentFileLength = 0;
    streamC.SetString("");
    roles.clear();
    inTextMode = false;
    return 0;
}

void MyPDFGenerator::SetParameter(std::string_view /*key*/, std::string_view /*value*/) {}

void MyPDFGenerator::SetInfo(std::string_view /*key*/, std::string_view /*value*/) {}

int MyPDFGenerator::OpenFilename(const FolderItem& file)
{
    theFile = file;
    return 0;
}

void MyPDFGenerator::BeginPage(std::int64_t width, std::int64_t height)
{
    pageWidth = width;
    pageHeight = height;
}

void MyPDFGenerator::SetRole(Role role)
{
    const auto begin = static_cast<std::size_t>(streamC.Length());
    if (!roles.empty() && roles.back().begin == begin) {
        roles.back().role = role;
    } else if (roles.empty() || roles.back().role.data() != role.data()) {
        roles.push_back({begin, role});
    }
}

void MyPDFGenerator::Discard()
{
    streamC = CapacityString(initialCapacity, capacityIncrement);
    roles.clear();
    b = BinaryStream();
}

bool MyPDFGenerator::CloseFile(Platform& platform)
{
    const CapacityString streamData = CompressedStream(streamC);
    b = theFile.CreateBinaryFile();
    if (!b.IsOpen()) {
        platform.ShowFileError(
            theFile,
            Message(
                "Unable to open the file %1, perhaps it is already open for display in another program? Hold down "
                "the shift key when clicking the Generate button again to change the filename.",
                theFile.Name()),
            Message::Verbatim(b.Error().message()));
        return false;
    }
    WriteDocument(streamData.View(), platform.Now());
    if (const std::error_code error = b.Close()) {
        platform.ShowFileError(theFile,
                               Message("Unable to write the file %1: %2. The existing file, if any, is unchanged.",
                                       theFile.Name(), error.message()),
                               Message::Verbatim(error.message()));
        return false;
    }
    return true;
}

void MyPDFGenerator::WriteFile(std::string_view content, const LocalTime& now, BinaryStream& stream)
{
    const CapacityString streamData = CompressedStream(content);
    std::swap(b, stream);
    WriteDocument(streamData, now);
    std::swap(b, stream);
}

CapacityString MyPDFGenerator::TakeStream()
{
    return std::exchange(streamC, CapacityString(initialCapacity, capacityIncrement));
}

void MyPDFGenerator::WriteDocument(std::string_view streamData, const LocalTime& now)
{
    WriteStringLineToFile("%PDF-1.4");
    WriteObjects(streamData, now);
    WriteCrossReferenceTable();
    WriteTrailer();
}

CapacityString MyPDFGenerator::CompressedStream(std::string_view text)
{
    uLong checksum = 0;  // not 1, as in zlib: it follows the zlib stream, where no reader looks
    checksum = adler32_z(checksum, reinterpret_cast<const Bytef*>(text.data()), text.size());
    CapacityString data = Deflated(text, turns);
    data.AppendString(AddFourBytes(checksum));
    data.AppendString(AddFourBytes(text.size()));
    data.AppendString("\r");
    return data;
}

std::string MyPDFGenerator::AddFourBytes(std::uint64_t value)
{
    constexpr int count = 4;
    std::string bytes;
    for (int i = 0; i < count; ++i) {
        bytes += static_cast<char>(value & 255U);
        value >>= 8U;
        turns.RuntimeBackgroundTask();
    }
    return bytes;
}

void MyPDFGenerator::NewObject()
{
    ++numObjects;
    objectOffsets[static_cast<std::size_t>(numObjects)] = currentFileLength;
    WriteStringLineToFile(mystring(numObjects) + " 0 obj");
    WriteStringToFile("<<");
}

void MyPDFGenerator::EndObject()
{
    WriteStringLineToFile(">>");
    WriteStringLineToFile("endobj");
}

void MyPDFGenerator::WriteBareObject(std::int64_t number, std::string_view line)
{
    numObjects = number;
    objectOffsets[static_cast<std::size_t>(number)] = currentFileLength;
    WriteStringLineToFile(mystring(number) + " 0 obj");
    WriteStringLineToFile(line);
    WriteStringLineToFile("endobj");
}

void MyPDFGenerator::WriteFontObject(std::string_view baseFont)
{
    NewObject();
    WriteStringLineToFile("/Type/Font");
    WriteStringLineToFile("/Subtype/Type1");
    WriteStringLineToFile("/BaseFont/" + std::string(baseFont));
    WriteStringLineToFile("/Encoding/MacRomanEncoding");
    EndObject();
}

void MyPDFGenerator::WriteContentObject(std::string_view data)
{
    NewObject();
    WriteStringLineToFile("/Length 5 0 R /Filter /FlateDecode");
    WriteStringLineToFile(">>");
    WriteStringLineToFile("stream");
    for (std::string_view rest = data; !rest.empty(); rest.remove_prefix(std::min(rest.size(), writtenPieceSize))) {
        WriteStringToFile(rest.substr(0, writtenPieceSize));
        turns.RuntimeBackgroundTask(linesWorthOfAPiece);
    }
    WriteStringLineToFile("endstream");
    WriteStringLineToFile("endobj");
}

void MyPDFGenerator::WriteInfoObject(const LocalTime& now)
{
    NewObject();
    numObjectInfo = numObjects;
    WriteStringLineToFile("/Subject (Width: " + mystring(pageWidth) + "  Height: " + mystring(pageHeight) + ")");
    WriteStringLineToFile("/Title (Linealis)");
    WriteStringLineToFile("/Author (Tallowmere Works)");
    WriteStringLineToFile("/Creator (Linealis)");
    WriteStringLineToFile("/CreationDate " + ReturnCurrentDate(now));
    WriteStringLineToFile("/Producer (Linealis)");
    EndObject();
}

void MyPDFGenerator::WriteResourceObject()
{
    NewObject();
    WriteStringLineToFile("/ProcSet 1 0 R");
    // F0 and F1 are the same font: FindFont returns number 0, and the first item of a font popup is number 1.
    const std::string first = std::to_string(firstFontObject) + " 0 R";
    WriteStringLineToFile("/Font<</F0 " + first);
    WriteStringLineToFile("/F1 " + first);
    for (std::size_t i = 0; i < FurtherFonts().size(); ++i) {
        WriteStringLineToFile("/F" + std::to_string(i + 2) + " " + std::to_string(firstFurtherFontObject + i) +
                              " 0 R");
    }
    WriteStringLineToFile(">>");
    EndObject();
}

void MyPDFGenerator::WriteObjects(std::string_view streamData, const LocalTime& now)
{
    WriteBareObject(1, "[/PDF]");

    NewObject();
    WriteStringLineToFile("/Type/Pages");
    WriteStringLineToFile("/Count 1");
    WriteStringLineToFile("/Kids[ 3 0 R]");
    EndObject();

    NewObject();
    WriteStringLineToFile("/Type/Page");
    WriteStringLineToFile("/Parent 2 0 R");
    WriteStringLineToFile("/Contents 4 0 R");
    WriteStringLineToFile("/Resources 8 0 R");
    WriteStringLineToFile("/MediaBox[0 0 " + mystring(pageWidth) + " " + mystring(pageHeight) + "]");
    EndObject();

    WriteContentObject(streamData);
    WriteBareObject(5, mystring(static_cast<std::int64_t>(streamData.size()) - 1));  // without the final CR
    WriteInfoObject(now);
    WriteFontObject(StandardFontOf(1).name);
    WriteResourceObject();

    NewObject();
    numObjectCatalog = numObjects;
    WriteStringLineToFile("/Type/Catalog");
    WriteStringLineToFile("/Pages 2 0 R");
    EndObject();

    for (const StandardFont& font : FurtherFonts()) {
        WriteFontObject(font.name);
    }
}

void MyPDFGenerator::WriteCrossReferenceTable()
{
    startxref = currentFileLength;
    WriteStringLineToFile("xref");
    WriteStringLineToFile("0 " + mystring(numObjects + 1));
    WriteStringLineToFile("0000000000 65535 f ");
    for (std::int64_t i = 1; i <= numObjects; ++i) {
        const auto offset = static_cast<double>(objectOffsets[static_cast<std::size_t>(i)]);
        WriteStringLineToFile(myformatstring(offset, "0000000000") + " 00000 n ");
        turns.RuntimeBackgroundTask();
    }
}

void MyPDFGenerator::WriteTrailer()
{
    WriteStringLineToFile("trailer");
    WriteStringToFile("<<");
    WriteStringLineToFile("/Size " + mystring(numObjects + 1));
    WriteStringLineToFile("/Root " + mystring(numObjectCatalog) + " 0 R");
    WriteStringLineToFile("/Info " + mystring(numObjectInfo) + " 0 R");
    WriteStringLineToFile(">>");
    WriteStringLineToFile("startxref");
    WriteStringLineToFile(mystring(startxref));
    WriteStringLineToFile("%%EOF");
}

void MyPDFGenerator::WriteStringToFile(std::string_view text)
{
    currentFileLength += static_cast<std::int64_t>(text.size());
    b.Write(text);
}

void MyPDFGenerator::WriteStringLineToFile(std::string_view text)
{
    WriteStringToFile(text);
    WriteStringToFile("\r");
}

std::string MyPDFGenerator::ReturnCurrentDate(const LocalTime& now)
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

}  // namespace linealis
