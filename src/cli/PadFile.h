#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace linealis::cli {

/// A file of many pages, put together from files of one page; qpdf's library does it. What it finds wrong with
/// these it throws as a std::runtime_error. The source of this class is compiled as C++17, for which that library's
/// headers are made, and so this header has no more.
class PadFile {
public:
    PadFile();
    PadFile(const PadFile&) = delete;
    PadFile& operator=(const PadFile&) = delete;
    ~PadFile();

    /// Takes in a file of one page. Returns the number by which it is called from then on. However often a page is
    /// added, its content is in the pad once.
    std::size_t Take(const std::string& name, std::string bytes);

    /// Adds a page as it is.
    void AddPage(std::size_t page);

    /// A page on a side, its lower left corner in points.
    struct Placed {
        std::size_t page;
        std::int64_t x;
        std::int64_t y;
    };

    /// Adds a side of so many points with pages on it, each at its true size, and over them what `content` draws.
    void AddSide(std::int64_t width, std::int64_t height, const std::vector<Placed>& pages,
                 const std::string& content);

    std::string Bytes();

private:
    struct OnePage;
    struct Joined;
    std::unique_ptr<Joined> joined;
};

}  // namespace linealis::cli
