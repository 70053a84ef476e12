#include "core/PadFile.h"

#include "text/Numbers.h"

#include <map>
#include <string_view>
#include <utility>
#include <vector>

namespace linealis::web {

namespace {

// The objects of a file of one page that a pad refers to.
constexpr std::size_t pageTree = 2, contentOfPage = 4, infoOfFile = 6, resources = 8, catalog = 9, lastObject = 22;

std::string Reference(std::size_t object)
{
    return std::to_string(object) + " 0 R";
}

/// Appends objects to a file of one page, and a table of them.
class Update {
public:
    explicit Update(std::string file) : bytes(std::move(file)), table(bytes.rfind("xref\r", bytes.rfind("trailer")))
    {}

    /// Adds an object and returns its number.
    std::size_t Add(std::string_view object)
    {
        Begin(++last);
        Write(object);
        return last;
    }

    /// Adds a stream, once for the same data.
    std::size_t Stream(const std::string& data)
    {
        const auto [found, isNew] = streams.try_emplace(data, 0);
        if (isNew) {
            found->second = AddStream({}, data);
        }
        return found->second;
    }

    std::size_t AddStream(std::string_view entries, std::string_view data)
    {
        return Add("<</Length " + std::to_string(data.size()) + std::string(entries) + ">>\rstream\r\n" +
                   std::string(data) + "\rendstream");
    }

    /// Replaces an object of the file.
    void Replace(std::size_t object, std::string_view by)
    {
        Begin(object);
        Write(by);
    }

    std::string Finish()
    {
        const std::size_t begin = bytes.size();
        bytes += "xref\r";
        for (const Run& run : runs) {
            bytes += std::to_string(run.first) + " " + std::to_string(run.places.size()) + "\r";
            for (const std::size_t place : run.places) {
                bytes += myformatstring(static_cast<double>(place), "0000000000") + " 00000 n \r";
            }
        }
        bytes += "trailer\r<</Size " + std::to_string(last + 1) + "/Root " + Reference(catalog) + "/Info " +
                 Reference(infoOfFile) + "/Prev " + std::to_string(table) + ">>\rstartxref\r" +
                 std::to_string(begin) + "\r%%EOF\r";
        return std::move(bytes);
    }

private:
    /// Objects with numbers that follow each other, and where they begin.
    struct Run {
        std::size_t first;
        std::vector<std::size_t> places;
    };

    void Begin(std::size_t object)
    {
        if (runs.empty() || runs.back().first + runs.back().places.size() != object) {
            runs.push_back({object, {}});
        }
        runs.back().places.push_back(bytes.size());
        bytes += std::to_string(object) + " 0 obj\r";
    }

    void Write(std::string_view object)
    {
        bytes += object;
        bytes += "\rendobj\r";
    }

    std::string bytes;
    std::size_t table;  ///< where the table of the file begins
    std::size_t last = lastObject;
    std::vector<Run> runs;
    std::map<std::string, std::size_t> streams;
};

/// Returns the compressed content in the file of a page. The object behind it has its length.
std::string_view ContentIn(std::string_view file)
{
    constexpr std::string_view beforeContent = "\rstream\r", beforeLength = "\r5 0 obj\r";
    const std::size_t begin = file.find(beforeContent) + beforeContent.size();
    const std::string length(file.substr(file.rfind(beforeLength) + beforeLength.size(), 20));
    return file.substr(begin, std::stoul(length));
}

/// Returns the contents of a side: references to the content of each page, moved to its place, and to the marks.
std::string ContentsOf(const PadLayout& layout, std::size_t sheet, bool isFront, std::size_t content, Update& file)
{
    const std::size_t count = isFront ? layout.PagesOn(sheet) : layout.up;  // a back is full, as it is mirrored
    std::string contents;
    for (std::size_t place = 0; place < count; ++place) {
        const Point corner = layout.CornerOf(place);
        const std::size_t begin =
            file.Stream("q 1 0 0 1 " + Str(corner.x) + " " + Str(corner.y) + " cm 0 0 " +
                        std::to_string(layout.page.width) + " " + std::to_string(layout.page.height) + " re W n");
        contents += Reference(begin) + " " + Reference(content) + " " + Reference(file.Stream("Q")) + " ";
    }
    return contents + Reference(file.Stream(PadMarks(layout, sheet, isFront)));
}

}  // namespace

std::string PadFile(const PadLayout& layout, std::size_t copies, const DrawnPage& front, const DrawnPage* back,
                    const LocalTime& now)
{
    Turns turns([] {});
    Update file(FileBytesOf(front, now, turns));
    std::size_t contentOfBack = contentOfPage;
    if (back != nullptr && back != &front) {
        contentOfBack = file.AddStream("/Filter/FlateDecode", ContentIn(FileBytesOf(*back, now, turns)));
    }
    std::vector<std::string> sides;
    for (std::size_t sheet = 0; sheet < layout.Sheets(); ++sheet) {
        for (const bool isFront : {true, false}) {
            const std::size_t content = isFront ? contentOfPage : contentOfBack;
            if (!isFront && back == nullptr) {
                continue;
            }
            const bool isPlain = layout.up == 1 && !(layout.HasStamps() && isFront);
            sides.push_back(isPlain ? Reference(content)
                                    : "[" + ContentsOf(layout, sheet, isFront, content, file) + "]");
        }
    }
    std::string pages;
    for (std::size_t copy = 0; copy < copies; ++copy) {
        for (const std::string& contents : sides) {
            pages +=
                Reference(file.Add("<</Type/Page/Parent " + Reference(pageTree) + "/Contents " + contents + ">>"));
            pages += "\r";
        }
    }
    const PaperSize side = layout.Side();
    file.Replace(pageTree, "<</Type/Pages/Count " + std::to_string(copies * sides.size()) + "/Resources " +
                               Reference(resources) + "/MediaBox[0 0 " + std::to_string(side.width) + " " +
                               std::to_string(side.height) + "]/Kids[" + pages + "]>>");
    return file.Finish();
}

}  // namespace linealis::web
