#pragma once

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <span>

namespace others {

/// The processor time limit of a writer for one page, in seconds.
inline constexpr int secondsAllowed = 30;

/// A single straight line. Points, with the origin at the lower left corner of the page.
struct Stroke {
    double width;
    double x1;
    double y1;
    double x2;
    double y2;
};

/// The header of the file that passes the strokes of a page to another writer. An array of Stroke follows it.
struct PageHead {
    double width;
    double height;
    double roundCaps;  ///< 1 or 0
};

/// Maps the file of a page into memory, so that reading it costs the other writer next to nothing.
class StrokesFile {
public:
    /// Maps the file, and limits the processor time of the program. Exits the program on failure.
    explicit StrokesFile(const char* path)
    {
        const rlimit limit{secondsAllowed, secondsAllowed + 1};
        ::setrlimit(RLIMIT_CPU, &limit);
        const int descriptor = ::open(path, O_RDONLY);
        struct stat status {};
        if (descriptor < 0 || ::fstat(descriptor, &status) != 0) {
            Fail(path);
        }
        const auto size = static_cast<std::size_t>(status.st_size);
        void* const bytes = ::mmap(nullptr, size, PROT_READ, MAP_PRIVATE, descriptor, 0);
        if (bytes == MAP_FAILED) {
            Fail(path);
        }
        head = static_cast<const PageHead*>(bytes);
        strokes = {reinterpret_cast<const Stroke*>(head + 1), (size - sizeof(PageHead)) / sizeof(Stroke)};
    }

    const PageHead& Head() const { return *head; }
    std::span<const Stroke> Strokes() const { return strokes; }

private:
    [[noreturn]] static void Fail(const char* path)
    {
        std::perror(path);
        std::exit(1);
    }

    const PageHead* head = nullptr;
    std::span<const Stroke> strokes;
};

}  // namespace others
