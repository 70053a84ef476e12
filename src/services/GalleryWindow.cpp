#include "services/GalleryWindow.h"

#include <utility>

namespace linealis {

GalleryWindow::GalleryWindow(std::vector<Entry> theEntries, std::function<void(std::size_t entry)> open)
    : entries(std::move(theEntries)), openEntry(std::move(open))
{
    constexpr int firstLeft = 20;
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
