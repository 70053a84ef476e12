#pragma once

#include <cstddef>
#include <functional>
#include <string_view>
#include <vector>

namespace linealis {

/// The program's first screen: a framed picture of each paper kind with its title. Positions are in pixels.
class GalleryWindow {
public:
    static constexpr int width = 750;
    static constexpr int height = 563;
    static constexpr int canvasWidth = 102;
    static constexpr int canvasHeight = 132;
    static constexpr int titleWidth = 100;
    static constexpr int titleHeight = 20;
    static constexpr int margin = 20;  ///< about all that the window shows
    static constexpr std::string_view title = "Linealis - Paper Gallery";
    static constexpr std::string_view prompt = "Select one of the following types of graph paper to get started:";

    struct Place {
        int left;
        int top;
    };
    struct Entry {
        std::string_view title;
        std::string_view picture;  ///< file name
        Place titlePlace{};
        Place canvasPlace{};
    };

    /// Makes the entries, given by title and picture, in rows of six. `open` is called with the number of an entry,
    /// from 0.
    GalleryWindow(std::vector<Entry> theEntries, std::function<void(std::size_t entry)> open);

    const std::vector<Entry>& Entries() const { return entries; }

    /// The upper left corner of the room behind the last entry, which reaches to the right and lower margin.
    Place FreeRoom() const { return freeRoom; }

    /// Where an arrow key leads to from an entry.
    enum class Direction { Left, Right, Up, Down };

    /// Left and Right lead to the entries before and behind, also of another row; Up and Down to the nearest one of
    /// the next row. Where there is none, it is the entry itself.
    std::size_t Neighbor(std::size_t entry, Direction direction) const;

    /// Where a window of that size stands: in the middle of the room that the first screen has.
    static Place PlaceOnScreen(int availableWidth, int availableHeight, int windowWidth, int windowHeight);

    /// A click on the picture of an entry. The number of no entry does nothing.
    void Event_MouseUp(std::size_t entry);

private:
    std::vector<Entry> entries;
    Place freeRoom{};
    std::function<void(std::size_t entry)> openEntry;
};

}  // namespace linealis
