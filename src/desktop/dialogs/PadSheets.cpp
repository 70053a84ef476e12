#include "desktop/dialogs/PadSheets.h"

#include <algorithm>
#include <map>
#include <memory>

namespace linealis::desktop {

namespace {

/// Draws the pages of a pad, and keeps those of the last side: the next one may show them too.
class DrawnPages {
public:
    DrawnPages(const PadJob& theJob, Turns& theTurns) : job(theJob), turns(theTurns) {}

    /// Forgets the pages that the side does not show, except the back.
    void TurnTo(const PadSide& side)
    {
        std::erase_if(pages, [&](const auto& page) {
            return page.first && std::none_of(side.pages.begin(), side.pages.end(),
                                              [&](const auto& placed) { return placed.front == page.first; });
        });
    }

    const DrawnPage& Page(const std::optional<std::size_t>& front)
    {
        if (const auto found = pages.find(front); found != pages.end()) {
            return found->second;
        }
        turns.Restart();
        return pages.emplace(front, job.Draw(front ? job.Front(*front) : job.back.value(), turns)).first->second;
    }

private:
    const PadJob& job;
    Turns& turns;
    std::map<std::optional<std::size_t>, DrawnPage> pages;  ///< by number on the fronts; none: the back
};

/// Uses the pages of a side, and what is on top of them. `size` is that of the side, in points.
void UseSide(const PadSide& side, const QSizeF& size, DrawnPages& drawn, const PrintedSheets::PageUse& use)
{
    const QRectF room =
        QRectF(QPointF(), size).marginsRemoved({side.margin, side.margin, side.margin, side.margin});
    drawn.TurnTo(side);
    for (const auto& placed : side.pages) {
        const DrawnPage& page = drawn.Page(placed.front);
        const QSizeF paper(static_cast<double>(page.frame.paperWidth), static_cast<double>(page.frame.paperHeight));
        const QPointF corner(placed.corner.x, size.height() - placed.corner.y - paper.height());
        const QRectF shown = QRectF(corner, paper) & room;
        if (shown.isEmpty()) {
            continue;  // a sheet deep inside a thick booklet
        }
        use({page.content, paper.height(), corner, side.isPlain ? QRectF() : shown});
    }
    if (!side.marks.empty()) {
        use({side.marks, size.height(), {}, {}, true});
    }
}

}  // namespace

PrintedSheets PadSheets(const PadJob& job, Turns& turns)
{
    const PaperSize size = job.plan.Side(0).size;
    PrintedSheets sheets;
    sheets.paper = {static_cast<double>(size.width), static_cast<double>(size.height)};
    sheets.sides = static_cast<int>(job.plan.Sides());
    sheets.hasBacks = job.plan.IsOnBothSides();
    sheets.copies = static_cast<int>(job.copies);
    sheets.forPages = [&job, paper = sheets.paper, drawn = std::make_shared<DrawnPages>(job, turns)](
                          int number, const PrintedSheets::PageUse& use) {
        UseSide(job.plan.Side(static_cast<std::size_t>(number)), paper, *drawn, use);
    };
    return sheets;
}

}  // namespace linealis::desktop
