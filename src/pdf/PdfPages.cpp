#include "pdf/PdfPages.h"

#include "pdf/PdfAttachment.h"
#include "pdf/StreamCompression.h"
#include "text/Numbers.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace linealis {

namespace {

constexpr std::string_view flate = "/Filter/FlateDecode";

/// Returns the points, each followed by a blank. A thousandth of a point is far below what printers resolve.
std::string Rounded(std::initializer_list<double> points)
{
    constexpr double thousandths = 1000.0;
    std::string text;
    for (const double each : points) {
        text += mystring(std::round(each * thousandths) / thousandths) + " ";
    }
    return text;
}

}  // namespace

PdfPages::PdfPages(BinaryStream& theStream, Turns& theTurns)
    : turns(theTurns), file(theStream, theTurns), pageTree(file.Reserve()), fonts(file.Reserve()),
      resources(file.Reserve())
{}

std::size_t PdfPages::AddContent(std::string_view content, std::int64_t width, std::int64_t height)
{
    // A stream that pages take as their content, or draw as a form, which cuts it off at its box.
    contents.push_back({file.Begin(), width, height});
    WriteStream("/Type/XObject/Subtype/Form/BBox" + PdfBox(width, height) + "/Resources " +
                    PdfReference(resources) + std::string(flate),
                Deflated(content, turns));
    return contents.size() - 1;
}

void PdfPages::AddPage(std::size_t content)
{
    const Content& shown = contents.at(content);
    WritePage(shown.width, shown.height, shown.object, PdfReference(resources));
}

void PdfPages::AddPage(std::int64_t width, std::int64_t height, std::span<const Placed> placed,
                       std::string_view marks, double margin)
{
    std::string drawn, names;
    for (const Placed& each : placed) {
        const std::string name = "/Page" + std::to_string(each.content);
        drawn += "q 1 0 0 1 " + Rounded({each.corner.x, each.corner.y}) + "cm " + name + " Do Q\n";
        const std::string entry = name + " " + PdfReference(contents.at(each.content).object);
        names += names.find(entry) == std::string::npos ? entry : "";
    }
    if (margin > 0.0) {  // marks lie outside of it
        drawn = "q\n" +
                Rounded({margin, margin, static_cast<double>(width) - 2.0 * margin,
                         static_cast<double>(height) - 2.0 * margin}) +
                "re W n\n" + drawn + "Q\n";
    }
    drawn.append("q\n").append(marks).append("Q\n");
    WritePage(width, height, StreamOf(std::move(drawn)),
              "<</XObject<<" + names + ">>/Font " + PdfReference(fonts) + ">>");
}

void PdfPages::Attach(const std::string& name, std::string_view mimeType, std::string_view bytes, bool isCompressed)
{
    const std::size_t stream = file.Begin();
    const std::string entries =
        PdfAttachmentEntries(mimeType) + "/Params<</Size " + std::to_string(bytes.size()) + ">>";
    if (isCompressed) {
        WriteStream(entries + std::string(flate), Deflated(bytes, turns));
    } else {
        WriteStream(entries, bytes);
    }
    attachments.push_back({name, file.Begin()});
    file.Line("<</Type/Filespec/F(" + name + ")/UF(" + name + ")/AFRelationship/Source/EF<</F " +
              PdfReference(stream) + ">>>>");
    file.End();
}

void PdfPages::Finish(const LocalTime& now)
{
    WriteFonts();
    WritePageTree();
    const std::size_t catalog = WriteCatalog(), info = file.Reserve();
    WritePdfInfo(file, info, firstWidth, firstHeight, now);
    file.Finish(catalog, info);
}

/// Writes the rest of an object that is a stream.
void PdfPages::WriteStream(std::string_view entries, std::string_view bytes)
{
    file.Line("<<" + std::string(entries) + "/Length " + std::to_string(bytes.size()) + ">>");
    file.Text("stream\r\n");
    file.Bytes(bytes);
    file.Line("");
    file.Line("endstream");
    file.End();
}

void PdfPages::WritePage(std::int64_t width, std::int64_t height, std::size_t content,
                         std::string_view resourcesOfPage)
{
    if (pages.empty()) {
        firstWidth = width;
        firstHeight = height;
    }
    pages.push_back(file.Begin());
    file.Line("<</Type/Page/Parent " + PdfReference(pageTree) + "/Contents " + PdfReference(content) +
              "/Resources " + std::string(resourcesOfPage) + "/MediaBox" + PdfBox(width, height) + ">>");
    file.End();
    turns.RuntimeBackgroundTask(Turns::linesPerYield);
}

/// Returns the object of a content that pages repeat, such as that of all backs.
std::size_t PdfPages::StreamOf(std::string content)
{
    const auto [found, isNew] = streams.try_emplace(std::move(content), 0);
    if (isNew) {
        found->second = file.Begin();
        WriteStream(flate, Deflated(found->first, turns));
    }
    return found->second;
}

std::size_t PdfPages::WriteCatalog()
{
    const std::size_t catalog = file.Begin();
    file.Line("<</Type/Catalog/Pages " + PdfReference(pageTree));
    file.Line("/ViewerPreferences<</PrintScaling/None>>");
    if (!attachments.empty()) {
        std::sort(attachments.begin(), attachments.end(),
                  [](const Attachment& one, const Attachment& other) { return one.name < other.name; });
        file.Line("/Names<</EmbeddedFiles<</Names[");
        for (const Attachment& each : attachments) {
            file.Line("(" + each.name + ")" + PdfReference(each.object));
        }
        file.Line("]>>>>");
        file.Line("/AF[");
        for (const Attachment& each : attachments) {
            file.Line(PdfReference(each.object));
        }
        file.Line("]");
    }
    file.Line(">>");
    file.End();
    return catalog;
}

void PdfPages::WriteFonts()
{
    const std::size_t first = file.Reserve(), further = file.Reserve(furtherPdfFonts);
    WriteFirstPdfFont(file, first);
    WriteFurtherPdfFonts(file, further);
    file.Begin(fonts);
    WritePdfFontDictionary(file, first, further);
    file.End();
    file.Begin(resources);
    file.Line("<</ProcSet[/PDF/Text]/Font " + PdfReference(fonts) + ">>");
    file.End();
}

void PdfPages::WritePageTree()
{
    file.Begin(pageTree);
    file.Line("<</Type/Pages/Count " + std::to_string(pages.size()));
    file.Line("/Kids[");
    for (const std::size_t page : pages) {
        file.Line(PdfReference(page));
    }
    file.Line("]>>");
    file.End();
}

}  // namespace linealis
