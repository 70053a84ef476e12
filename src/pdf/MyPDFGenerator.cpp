#include "pdf/MyPDFGenerator.h"

#include "pdf/PdfObjects.h"
#include "pdf/StreamCompression.h"

#include <zlib.h>

#include <initializer_list>
#include <string>
#include <utility>

namespace linealis {

namespace {

constexpr std::int64_t initialCapacity = 20000;
constexpr std::int64_t capacityIncrement = 10000;

/// The numbers of the objects of a file.
namespace object {
constexpr std::size_t procSet = 1, pageTree = 2, page = 3, content = 4, contentLength = 5, info = 6, firstFont = 7,
                      resources = 8, catalog = 9, furtherFonts = 10;
}

void WriteLines(PdfObjects& file, std::size_t number, std::initializer_list<std::string> lines)
{
    file.Begin(number);
    for (const std::string& line : lines) {
        file.Line(line);
    }
    file.End();
}

void WriteContent(PdfObjects& file, std::string_view streamData)
{
    file.Begin(object::content);
    file.Line("<</Length " + PdfReference(object::contentLength) + " /Filter /FlateDecode");
    file.Line(">>");
    file.Line("stream");
    file.Bytes(streamData);
    file.Line("endstream");
    file.End();
}

void WriteResources(PdfObjects& file)
{
    file.Begin(object::resources);
    file.Line("<</ProcSet " + PdfReference(object::procSet));
    file.Text("/Font");
    WritePdfFontDictionary(file, object::firstFont, object::furtherFonts);
    file.Line(">>");
    file.End();
}

}  // namespace

MyPDFGenerator::MyPDFGenerator(Turns& theTurns, std::int64_t theLargestStream)
    : turns(theTurns), mostStream(theLargestStream), streamC(initialCapacity, capacityIncrement)
{}

int MyPDFGenerator::CreateNew()
{
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
    PdfObjects file(b, turns);
    file.Reserve(object::furtherFonts - 1 + furtherPdfFonts);
    WriteLines(file, object::procSet, {"[/PDF]"});
    WriteLines(file, object::pageTree,
               {"<</Type/Pages", "/Count 1", "/Kids[ " + PdfReference(object::page) + "]", ">>"});
    WriteLines(file, object::page,
               {"<</Type/Page", "/Parent " + PdfReference(object::pageTree),
                "/Contents " + PdfReference(object::content), "/Resources " + PdfReference(object::resources),
                "/MediaBox" + PdfBox(pageWidth, pageHeight), ">>"});
    WriteContent(file, streamData);
    WriteLines(file, object::contentLength, {std::to_string(streamData.size() - 1)});  // without the final CR
    WritePdfInfo(file, object::info, pageWidth, pageHeight, now);
    WriteFirstPdfFont(file, object::firstFont);
    WriteResources(file);
    WriteLines(file, object::catalog, {"<</Type/Catalog", "/Pages " + PdfReference(object::pageTree), ">>"});
    WriteFurtherPdfFonts(file, object::furtherFonts);
    file.Finish(object::catalog, object::info);
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

}  // namespace linealis
