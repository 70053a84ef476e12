#include "cli/Pad.h"

#include "cli/Errors.h"
#include "cli/Generate.h"
#include "platform/ScreenlessPlatform.h"

#include <qpdf/QPDF.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>
#include <qpdf/QPDFPageObjectHelper.hh>
#include <qpdf/QPDFWriter.hh>

#include <algorithm>
#include <array>
#include <map>
#include <memory>
#include <sstream>
#include <string_view>

namespace linealis::cli {

namespace {

/// The controls of every kind that say what paper it is on, in the order in which they are set.
constexpr std::array paperControls = {"PopupUnits", "PopupPaperSize", "EditCustomWidth", "EditCustomHeight",
                                      "PopupOrientation"};

/// The one-page file of a source. It must outlive the pad, which qpdf fills from it when it is written.
class OnePage {
public:
    /// On the paper of `sheet`, if there is one.
    OnePage(const Source& source, const std::vector<Action>& actions, const OnePage* sheet = nullptr)
        : name(source.name)
    {
        ScreenlessPlatform platform;
        const OpenWindow open = Open(source, actions, platform);
        for (std::size_t i = 0; i < paperControls.size(); ++i) {
            const char* const control = paperControls[i];
            if (sheet != nullptr) {
                SetControl(name, open.window->form, {control, sheet->paperValues[i]});
            }
            paperValues[i] = ValueOf(*open.window->form.Find(control));
        }
        const PageFrame frame = open.window->ReadPage().frame;
        paper = {frame.paperWidth, frame.paperHeight};
        try {
            bytes = open.window->FileBytes();
        } catch (const PageGivenUp& givenUp) {
            throw WorkError{name + ": " + givenUp.reason};
        }
        for (const std::vector<std::string>* const said : {&platform.messages, &platform.notes}) {
            std::for_each(said->begin(), said->end(), Complain);
        }
        file.setSuppressWarnings(true);
        file.processMemoryFile(name.c_str(), bytes.data(), bytes.size());
    }

    const std::string& Name() const { return name; }
    PaperSize Paper() const { return paper; }
    QPDFPageObjectHelper Page() { return QPDFPageDocumentHelper(file).getAllPages().front(); }

private:
    std::string name;
    std::string bytes;
    PaperSize paper{};
    std::array<std::string, paperControls.size()> paperValues;
    QPDF file;
};
using Pages = std::vector<std::unique_ptr<OnePage>>;

/// How the pages of a side lie, and how large it is.
struct Cells {
    std::int64_t columns;
    std::int64_t rows;
    PaperSize page;

    PaperSize Side() const { return {columns * page.width, rows * page.height}; }
};

/// Two pages lie side by side along their longer edges.
Cells CellsOf(std::size_t up, const PaperSize& page)
{
    const bool isUpright = page.width <= page.height;
    switch (up) {
    case 2:
        return isUpright ? Cells{2, 1, page} : Cells{1, 2, page};
    case 4:
        return {2, 2, page};
    default:
        return {1, 1, page};
    }
}

/// Grey ticks at the edges where a cut begins and ends, and a cross where two cuts meet.
std::string CutMarks(const Cells& cells)
{
    constexpr std::int64_t length = 14;  // points, about 5 mm
    const PaperSize side = cells.Side();
    std::ostringstream marks;
    marks << "q 0.5 G 0.25 w\n";
    const auto line = [&](std::int64_t x, std::int64_t y, std::int64_t toX, std::int64_t toY) {
        marks << x << ' ' << y << " m " << toX << ' ' << toY << " l S\n";
    };
    const std::int64_t x = cells.page.width, y = cells.page.height;
    if (cells.columns == 2) {
        line(x, 0, x, length);
        line(x, side.height - length, x, side.height);
    }
    if (cells.rows == 2) {
        line(0, y, length, y);
        line(side.width - length, y, side.width, y);
    }
    if (cells.columns == 2 && cells.rows == 2) {
        line(x - length / 2, y, x + length / 2, y);
        line(x, y - length / 2, x, y + length / 2);
    }
    marks << "Q\n";
    return marks.str();
}

/// A pad under way. Each page's content is in it once, however often the page is.
class PadFile {
public:
    PadFile() { pad.emptyPDF(); }

    void AddPage(OnePage& page) { QPDFPageDocumentHelper(pad).addPage(Copied(page), false); }

    /// A side of several pages: those of the list in turns, `first` and the next ones, row by row from the top.
    void AddSide(const Cells& cells, const Pages& pages, std::size_t first, std::size_t count)
    {
        std::ostringstream content;
        QPDFObjectHandle forms = QPDFObjectHandle::newDictionary();
        for (std::size_t i = 0; i < count; ++i) {
            const std::size_t index = (first + i) % pages.size();
            const std::string name = "/Page" + std::to_string(index);
            forms.replaceKey(name, FormOf(*pages[index]));
            const auto cell = static_cast<std::int64_t>(i);
            const std::int64_t x = cell % cells.columns * cells.page.width;
            const std::int64_t y = (cells.rows - 1 - cell / cells.columns) * cells.page.height;
            content << "q 1 0 0 1 " << x << ' ' << y << " cm " << name << " Do Q\n";
        }
        content << CutMarks(cells);
        const PaperSize side = cells.Side();
        QPDFObjectHandle page = QPDFObjectHandle::newDictionary();
        page.replaceKey("/Type", QPDFObjectHandle::newName("/Page"));
        page.replaceKey("/MediaBox",
                        QPDFObjectHandle::newArray(QPDFObjectHandle::Rectangle(
                            0.0, 0.0, static_cast<double>(side.width), static_cast<double>(side.height))));
        QPDFObjectHandle resources = QPDFObjectHandle::newDictionary();
        resources.replaceKey("/XObject", forms);
        page.replaceKey("/Resources", resources);
        page.replaceKey("/Contents", QPDFObjectHandle::newStream(&pad, content.str()));
        QPDFPageDocumentHelper(pad).addPage(pad.makeIndirectObject(page), false);
    }

    std::string Bytes()
    {
        QPDFWriter writer(pad);
        writer.setOutputMemory();
        writer.setObjectStreamMode(qpdf_o_disable);
        writer.setMinimumPDFVersion("1.4");
        writer.setDeterministicID(true);
        writer.write();
        const auto buffer = writer.getBufferSharedPointer();
        return {reinterpret_cast<const char*>(buffer->getBuffer()), buffer->getSize()};
    }

private:
    /// The page for one more place: qpdf copies it at first, and from then on shares what it has copied.
    QPDFPageObjectHelper Copied(OnePage& page)
    {
        const auto known = firstCopies.find(&page);
        if (known != firstCopies.end()) {
            return QPDFPageObjectHelper(known->second).shallowCopyPage();
        }
        const QPDFObjectHandle copy = pad.copyForeignObject(page.Page().getObjectHandle());
        firstCopies.emplace(&page, copy);
        return copy;
    }

    QPDFObjectHandle FormOf(OnePage& page)
    {
        const auto known = firstCopies.find(&page);
        if (known != firstCopies.end()) {
            return known->second;
        }
        const QPDFObjectHandle copy = pad.copyForeignObject(page.Page().getFormXObjectForPage());
        firstCopies.emplace(&page, copy);
        return copy;
    }

    QPDF pad;
    std::map<const OnePage*, QPDFObjectHandle> firstCopies;
};

void CheckRequest(const PadRequest& request)
{
    if (request.output.empty()) {
        throw UsageError{"-o takes a file name, not an empty text"};
    }
    if (request.up != 1 && request.up != 2 && request.up != 4) {
        throw Unknown("number of pages on a side", std::to_string(request.up), {"1", "2", "4"});
    }
    CheckIsNoInput(request.output, request.sources, request.actions);
    if (request.back) {
        CheckIsNoInput(request.output, {*request.back}, {});
    }
}

std::string Text(const PaperSize& paper)
{
    return std::to_string(paper.width) + " by " + std::to_string(paper.height) + " points";
}

/// A side that is cut, and one that is printed on both sides, has pages of one size.
void CheckSizes(const Pages& fronts, const Pages& backs, std::size_t up)
{
    const OnePage& first = *fronts.front();
    const auto check = [&](const OnePage& page) {
        if (page.Paper().width != first.Paper().width || page.Paper().height != first.Paper().height) {
            throw UsageError{"the pages of a sheet must be of one size, but " + first.Name() + " has " +
                             Text(first.Paper()) + " and " + page.Name() + " " + Text(page.Paper())};
        }
    };
    if (up > 1 || !backs.empty()) {
        for (const Pages* const pages : {&fronts, &backs}) {
            std::for_each(pages->begin(), pages->end(), [&](const auto& page) { check(*page); });
        }
    }
}

std::string Join(const PadRequest& request)
{
    Pages fronts, backs;
    for (const Source& source : request.sources) {
        fronts.push_back(std::make_unique<OnePage>(source, request.actions));
    }
    if (request.back) {
        const OnePage* const sheet = IsFile(*request.back) ? nullptr : fronts.front().get();
        backs.push_back(std::make_unique<OnePage>(*request.back, std::vector<Action>(), sheet));
    }
    CheckSizes(fronts, backs, request.up);
    const Cells cells = CellsOf(request.up, fronts.front()->Paper());
    PadFile pad;
    for (std::size_t first = 0; first < request.pages; first += request.up) {
        const std::size_t count = std::min(request.up, request.pages - first);
        for (const Pages* const pages : {&fronts, &backs}) {
            if (pages->empty()) {
                continue;
            }
            if (request.up == 1) {
                pad.AddPage(*(*pages)[first % pages->size()]);
            } else {  // the back of a sheet that is not full is: the printer turns its pages to the other side
                pad.AddSide(cells, *pages, first, pages == &backs ? request.up : count);
            }
        }
    }
    return pad.Bytes();
}

}  // namespace

void MakePad(const PadRequest& request)
{
    CheckRequest(request);
    std::string bytes;
    try {
        bytes = Join(request);
    } catch (const QPDFExc& error) {
        throw WorkError{request.output + ": " + error.what()};
    }
    BinaryStream stream = OutputFile(request.output).CreateBinaryFile();
    stream.Write(bytes);
    if (const std::error_code error = stream.Close()) {
        throw WorkError{request.output + ": " + error.message()};
    }
}

}  // namespace linealis::cli
