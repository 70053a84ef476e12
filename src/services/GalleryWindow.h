#pragma once

#include <cstddef>
#include <functional>
#include <string_view>
#include <vector>

namespace linealis {

/// The first screen of the program: a framed picture of each kind of paper with its title. Positions and sizes are
/// in pixels.
class GalleryWindow {
public:
    static constexpr int width = 750;
    static constexpr int height = 563;
    static constexpr int canvasWidth = 102;
    static constexpr int canvasHeight = 132;
    static constexpr int titleWidth = 100;
    static constexpr int titleHeight = 20;
    static constexpr int margin = 20;  ///< around the content of the window
    static constexpr std::string_view title = "Linealis - Paper Gallery";
    static constexpr std::string_view prompt = "Select one of the following types of graph paper to get started:";

    /// The upper left corner of something in the window.
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

    /// Arranges the entries, given by title and picture, in rows of six. `open` is called with the index of an
    /// entry, from 0, when the user chooses it.
    GalleryWindow(std::vector<Entry> theEntries, std::function<void(std::size_t entry)> open);

    const std::vector<Entry>& Entries() const { return entries; }

    /// Returns the upper left corner of the free area after the last entry. The area extends to the right and lower
    /// margins.
    Place FreeRoom() const { return freeRoom; }

    /// The direction of an arrow key.
    enum class Direction { Left, Right, Up, Down };

    /// Returns the entry that an arrow key leads to from `entry`, which must exist. Left and Right lead to the
    /// previous and the next entry, even in another row; Up and Down lead to the nearest entry of the adjacent row.
    /// Returns `entry` itself if there is none in that direction.
    std::size_t Neighbor(std::size_t entry, Direction direction) const;

    /// Returns the upper left corner that centers a window in the available area of the screen. Negative if the
    /// window is larger.
    static Place PlaceOnScreen(int availableWidth, int availableHeight, int windowWidth, int windowHeight);

    /// Handles a click on the picture of an entry. Ignores an index that no entry has.
    void Event_MouseUp(std::size_t entry);

private:
    std::vector<Entry> entries;
    Place freeRoom{};
    std::function<void(std::size_t entry)> openEntry;
};

}  // namespace linealis
