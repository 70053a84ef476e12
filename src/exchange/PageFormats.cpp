#include "exchange/PageFormats.h"

#include "exchange/DxfPage.h"
#include "exchange/PngFormat.h"
#include "exchange/SvgPage.h"
#include "text/LetterCase.h"

#include <algorithm>
#include <array>
#include <vector>

namespace linealis {

namespace {

void WriteAsPdf(const DrawnPage& page, const WriteOptions& options, BinaryStream& stream, Turns& turns)
{
    WritePdf(page, options.now, stream, turns);
}

void WriteAsSvg(const DrawnPage& page, const WriteOptions& options, BinaryStream& stream, Turns& turns)
{
    WriteSvg({page.frame.paperWidth, page.frame.paperHeight}, page.content, page.roles, options.carried, stream,
             &turns);
}

void WriteAsDxf(const DrawnPage& page, const WriteOptions& /*options*/, BinaryStream& stream, Turns& turns)
{
    WriteDxf({page.frame.paperWidth, page.frame.paperHeight}, page.content, page.roles, stream, &turns);
}

constexpr auto formats = std::to_array<PageFormat>({
    {.name = "pdf",
     .title = "PDF",
     .words = "the page as Generate makes it",
     .mimeType = "application/pdf",
     .givesForm = true,
     .write = WriteAsPdf},
    {.name = "svg",
     .title = "SVG",
     .words = "lines that stay sharp at any size",
     .mimeType = "image/svg+xml",
     .carriesForm = true,
     .givesForm = true,
     .write = WriteAsSvg},
    {.name = "png",
     .title = "PNG",
     .words = "a picture of pixels",
     .mimeType = "image/png",
     .hasPixels = true,
     .carriesForm = true,
     .givesForm = true,
     .write = WriteAsPng},
    {.name = "dxf",
     .title = "DXF",
     .words = "lines on layers, for CAD programs and cutters",
     .mimeType = "image/vnd.dxf",
     .isPasted = false,
     .write = WriteAsDxf},
});

/// Joins words for a sentence: "a", "a or b", "a, b or c".
std::string InASentence(const std::vector<std::string>& words)
{
    std::string sentence;
    for (std::size_t i = 0; i < words.size(); ++i) {
        sentence += (i == 0 ? "" : i + 1 < words.size() ? ", " : " or ") + words[i];
    }
    return sentence;
}

}  // namespace

std::span<const PageFormat> PageFormats()
{
    return formats;
}

const PageFormat* FindPageFormat(std::string_view name)
{
    const auto* const found = std::find_if(formats.begin(), formats.end(),
                                           [&](const PageFormat& format) { return IsSameText(format.name, name); });
    return found == formats.end() ? nullptr : found;
}

std::string FormatNames(std::string_view prefix)
{
    std::vector<std::string> names;
    for (const PageFormat& format : formats) {
        names.push_back(std::string(prefix) + std::string(format.name));
    }
    return InASentence(names);
}

std::string FormatTitles(bool PageFormat::*property, std::string_view another)
{
    std::vector<std::string> titles;
    for (const PageFormat& format : formats) {
        if (format.*property) {
            titles.emplace_back(format.title);
        }
    }
    if (!another.empty()) {
        titles.emplace_back(another);
    }
    return InASentence(titles);
}

bool IsNameOfCarrier(std::string_view fileName)
{
    const std::size_t dot = fileName.rfind('.');
    const PageFormat* const format =
        dot == std::string_view::npos ? nullptr : FindPageFormat(fileName.substr(dot + 1));
    return format != nullptr && format->givesForm;
}

std::string BytesOf(const PageFormat& format, const DrawnPage& page, const WriteOptions& options, Turns& turns)
{
    std::string bytes;
    BinaryStream stream = BinaryStream::IntoMemory(bytes);
    format.write(page, options, stream, turns);
    return bytes;
}

}  // namespace linealis
