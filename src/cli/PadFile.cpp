#include "cli/PadFile.h"

#include <qpdf/QPDF.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>
#include <qpdf/QPDFPageObjectHelper.hh>
#include <qpdf/QPDFWriter.hh>
#include <qpdf/QUtil.hh>

#include <optional>
#include <utility>

namespace linealis::cli {

/// A file that was taken in. It must exist until the pad is written: qpdf copies its streams only then.
struct PadFile::OnePage {
    OnePage(const std::string& name, std::string theBytes) : bytes(std::move(theBytes))
    {
        file.setSuppressWarnings(true);
        file.processMemoryFile(name.c_str(), bytes.data(), bytes.size());
    }

    QPDFPageObjectHelper Page() { return QPDFPageDocumentHelper(file).getAllPages().front(); }

    /// Returns the fonts of the page as objects of the pad. They are copied once.
    QPDFObjectHandle Fonts(QPDF& pad)
    {
        return pad.copyForeignObject(Page().getAttribute("/Resources", false)).getKey("/Font");
    }

    std::string bytes;
    QPDF file;
    std::optional<QPDFObjectHandle> copiedPage;  ///< its copy in the pad as a page; empty until the first use
    std::optional<QPDFObjectHandle> copiedForm;  ///< its copy in the pad as a form XObject, to be placed on sides
};

struct PadFile::Joined {
    QPDF file;
    std::vector<std::unique_ptr<OnePage>> pages;
};

PadFile::PadFile() : joined(std::make_unique<Joined>())
{
    joined->file.emptyPDF();
    // Viewers print at true size unless the user chooses otherwise.
    QPDFObjectHandle preferences = QPDFObjectHandle::newDictionary();
    preferences.replaceKey("/PrintScaling", QPDFObjectHandle::newName("/None"));
    joined->file.getRoot().replaceKey("/ViewerPreferences", preferences);
}

PadFile::~PadFile() = default;

std::size_t PadFile::Take(const std::string& name, std::string bytes)
{
    joined->pages.push_back(std::make_unique<OnePage>(name, std::move(bytes)));
    return joined->pages.size() - 1;
}

void PadFile::AddPage(std::size_t page)
{
    OnePage& added = *joined->pages.at(page);
    if (!added.copiedPage) {
        added.copiedPage = joined->file.copyForeignObject(added.Page().getObjectHandle());
        QPDFPageDocumentHelper(joined->file).addPage(*added.copiedPage, false);
    } else {
        // The page tree may contain each page object only once, so a repeated page needs a copy of it.
        QPDFPageDocumentHelper(joined->file)
            .addPage(QPDFPageObjectHelper(*added.copiedPage).shallowCopyPage(), false);
    }
}

void PadFile::AddSide(std::int64_t width, std::int64_t height, const std::vector<Placed>& pages,
                      const std::string& content, double margin)
{
    constexpr int decimals = 3;  // a thousandth of a point is far below what printers resolve
    const auto number = [](double value) { return QUtil::double_to_string(value, decimals) + " "; };
    // The side refers to its pages as form XObjects, so that a page on many sides is stored only once.
    QPDFObjectHandle forms = QPDFObjectHandle::newDictionary();
    std::string all;
    if (margin > 0.0) {
        all = number(margin) + number(margin) + number(static_cast<double>(width) - 2.0 * margin) +
              number(static_cast<double>(height) - 2.0 * margin) + "re W n\n";
    }
    for (const Placed& placed : pages) {
        OnePage& page = *joined->pages.at(placed.page);
        if (!page.copiedForm) {
            page.copiedForm = joined->file.copyForeignObject(page.Page().getFormXObjectForPage());
        }
        const std::string name = "/Page" + std::to_string(placed.page);
        forms.replaceKey(name, *page.copiedForm);
        all += "q 1 0 0 1 " + number(placed.x) + number(placed.y) + "cm " + name + " Do Q\n";
    }
    QPDFObjectHandle resources = QPDFObjectHandle::newDictionary();
    resources.replaceKey("/XObject", forms);
    // The clip ends with the pages: marks lie outside it.
    all = margin > 0.0 ? "q\n" + all + "Q\n" : all;
    if (content.find(" Tf") != std::string::npos && !pages.empty()) {
        resources.replaceKey("/Font", joined->pages.at(pages.front().page)->Fonts(joined->file));
    }
    QPDFObjectHandle side = QPDFObjectHandle::newDictionary();
    side.replaceKey("/Type", QPDFObjectHandle::newName("/Page"));
    side.replaceKey("/MediaBox", QPDFObjectHandle::newArray(QPDFObjectHandle::Rectangle(
                                     0.0, 0.0, static_cast<double>(width), static_cast<double>(height))));
    side.replaceKey("/Resources", resources);
    side.replaceKey("/Contents", QPDFObjectHandle::newStream(&joined->file, all + "q\n" + content + "Q\n"));
    QPDFPageDocumentHelper(joined->file).addPage(joined->file.makeIndirectObject(side), false);
}

std::string PadFile::Bytes()
{
    QPDFWriter writer(joined->file);
    writer.setOutputMemory();
    // PDF 1.4, like the single pages, has no object streams.
    writer.setObjectStreamMode(qpdf_o_disable);
    writer.setMinimumPDFVersion("1.4");
    // The default ID contains the time. This one depends only on the content.
    writer.setDeterministicID(true);
    writer.write();
    const auto buffer = writer.getBufferSharedPointer();
    return {reinterpret_cast<const char*>(buffer->getBuffer()), buffer->getSize()};
}

}  // namespace linealis::cli
