#include "kinds/PadPlan.h"

namespace linealis {

namespace {

std::size_t SidesOf(const PadLayout& layout, const PadPlan& plan)
{
    return layout.Sheets() * (plan.hasBacks ? 2 : 1);
}

std::size_t SidesOf(const Booklet& booklet, const PadPlan& /*plan*/)
{
    return booklet.Sheets() * 2;
}

std::size_t SidesOf(const Poster& poster, const PadPlan& /*plan*/)
{
    return poster.Columns() * poster.Rows();
}

PadSide SideOf(const PadLayout& layout, const PadPlan& plan, std::size_t number)
{
    const std::size_t sheet = plan.hasBacks ? number / 2 : number;
    const bool isFront = !plan.hasBacks || number % 2 == 0;
    // A partly filled front has a full back: its pages are mirrored when the sheet turns.
    const std::size_t count = isFront ? layout.PagesOn(sheet) : layout.up;
    PadSide side{layout.Side(), {}, PadMarks(layout, sheet, isFront)};
    side.isPlain = layout.up == 1 && !(layout.HasStamps() && isFront);
    for (std::size_t place = 0; place < count; ++place) {
        PlacedPage page{std::nullopt, layout.CornerOf(place)};
        if (isFront) {
            const std::size_t shown = plan.isTable ? layout.NumberOf(sheet, place) - 1 : sheet * layout.up + place;
            page.front = shown % plan.fronts;
        }
        side.pages.push_back(page);
    }
    return side;
}

PadSide SideOf(const Booklet& booklet, const PadPlan& plan, std::size_t number)
{
    const std::vector<NumberedPlace> places = booklet.PlacesOn(number / 2, number % 2 == 0);
    PadSide side{booklet.Side(), {}, PadStamps(booklet.pad, places)};
    for (const NumberedPlace& place : places) {
        side.pages.push_back({(place.number - 1) % plan.fronts, place.corner});
    }
    return side;
}

PadSide SideOf(const Poster& poster, const PadPlan& /*plan*/, std::size_t number)
{
    const std::size_t column = number % poster.Columns(), row = number / poster.Columns();
    return {poster.sheet, {{0, poster.CornerOf(column, row)}}, poster.Marks(column, row), posterMargin};
}

}  // namespace

bool PadPlan::IsOnBothSides() const
{
    return std::holds_alternative<PadLayout>(sheets) ? hasBacks : std::holds_alternative<Booklet>(sheets);
}

std::size_t PadPlan::Sides() const
{
    return std::visit([this](const auto& each) { return SidesOf(each, *this); }, sheets);
}

PadSide PadPlan::Side(std::size_t number) const
{
    return std::visit([&](const auto& each) { return SideOf(each, *this, number); }, sheets);
}

}  // namespace linealis
