#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace linealis::cli {

/// Joins PDF files of one page into a file of many pages, using the library of qpdf. Throws std::runtime_error if
/// that library rejects a file. PadFile.cpp is compiled as C++17, the version that the headers of the library are
/// made for, so this header must be valid C++17 too.
class PadFile {
public:
    PadFile();
    PadFile(const PadFile&) = delete;
    PadFile& operator=(const PadFile&) = delete;
    ~PadFile();

    /// Takes in a file of one page; `name` is for messages. Returns the number that identifies the page in the
    /// calls below. The content of a page is in the pad only once, no matter how often it is added.
    std::size_t Take(const std::string& name, std::string bytes);

    /// Adds the page unchanged.
    void AddPage(std::size_t page);

    /// A page on a side, with the position of its lower left corner in points.
    struct Placed {
        std::size_t page;
        double x;
        double y;
    };

    /// Adds a side of the given size in points, with the pages on it at their true size, cut off `margin` points
    /// from its edges. The PDF operators in `content` are drawn on top of them; they may use the fonts of the first
    /// of these pages.
    void AddSide(std::int64_t width, std::int64_t height, const std::vector<Placed>& pages,
                 const std::string& content, double margin = 0.0);

    /// Returns the bytes of the joined file.
    std::string Bytes();

private:
    struct OnePage;
    struct Joined;
    std::unique_ptr<Joined> joined;
};

}  // namespace linealis::cli
