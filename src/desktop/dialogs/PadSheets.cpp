#include "desktop/dialogs/PadSheets.h"

namespace linealis::desktop {

PrintedSheets PadSheets(const PadLayout& layout, const DrawnPage& front, const DrawnPage* back)
{
    const PaperSize side = layout.Side();
    const int sidesOfSheet = back == nullptr ? 1 : 2;
    PrintedSheets sheets;
    sheets.paper = {static_cast<double>(side.width), static_cast<double>(side.height)};
    sheets.sides = static_cast<int>(layout.Sheets()) * sidesOfSheet;
    sheets.hasBacks = back != nullptr;
    sheets.forPages = [=, &front](int number, const PrintedSheets::PageUse& use) {
        const auto sheet = static_cast<std::size_t>(number / sidesOfSheet);
        const bool isFront = number % sidesOfSheet == 0;
        const DrawnPage& page = isFront ? front : *back;
        const auto height = static_cast<double>(layout.page.height), sideHeight = static_cast<double>(side.height);
        const std::size_t count = isFront ? layout.PagesOn(sheet) : layout.up;  // a back is full, as it is mirrored
        for (std::size_t place = 0; place < count; ++place) {
            const Point corner = layout.CornerOf(place);
            use({page.content, height, {corner.x, sideHeight - corner.y - height}});
        }
        const std::string marks = PadMarks(layout, sheet, isFront);
        use({marks, sideHeight, {}, true});
    };
    return sheets;
}

}  // namespace linealis::desktop
