#include "services/GalleryWindow.h"

#include <cstdlib>
#include <utility>

namespace linealis {

GalleryWindow::GalleryWindow(std::vector<Entry> theEntries, std::function<void(std::size_t entry)> open)
    : entries(std::move(theEntries)), openEntry(std::move(open))
{
    constexpr int firstLeft = margin;
    constexpr int firstTop = 40;
    constexpr int columns = 6;
    constexpr int columnStep = canvasWidth + 20;
    constexpr int rowStep = canvasHeight + 40;
    int x = firstLeft;
    int y = firstTop;
    int column = 0;
    for (Entry& entry : entries) {
        entry.titlePlace = {x, y};
        entry.canvasPlace = {x, y + titleHeight};
        x += columnStep;
        ++column;
        if (column == columns) {
            column = 0;
            x -= columns * columnStep;
            y += rowStep;
        }
    }
    freeRoom = {x, y};
}

std::size_t GalleryWindow::Neighbor(std::size_t entry, Direction direction) const
{
    if (direction == Direction::Left || direction == Direction::Right) {
        // Left of entry 0 wraps around to the largest index, which is out of range.
        const std::size_t next = direction == Direction::Left ? entry - 1 : entry + 1;
        return next < entries.size() ? next : entry;
    }
    const Place from = entries[entry].canvasPlace;
    // The vertical distance comes first, so the result is in the adjacent row.
    const auto isCloser = [&](const Place& a, const Place& b) {
        const auto distance = [&](const Place& place) {
            return std::pair(std::abs(place.top - from.top), std::abs(place.left - from.left));
        };
        return distance(a) < distance(b);
    };
    std::size_t found = entry;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const Place place = entries[i].canvasPlace;
        const bool isThere = direction == Direction::Up ? place.top < from.top : place.top > from.top;
        if (isThere && (found == entry || isCloser(place, entries[found].canvasPlace))) {
            found = i;
        }
    }
    return found;
}

GalleryWindow::Place GalleryWindow::PlaceOnScreen(int availableWidth, int availableHeight, int windowWidth,
                                                  int windowHeight)
{
    return {(availableWidth - windowWidth) / 2, (availableHeight - windowHeight) / 2};
}

void GalleryWindow::Event_MouseUp(std::size_t entry)
{
    if (entry < entries.size()) {
        openEntry(entry);
    }
}

}  // namespace linealis
