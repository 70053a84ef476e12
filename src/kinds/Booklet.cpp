#include "kinds/Booklet.h"

namespace linealis {

std::vector<NumberedPlace> Booklet::PlacesOn(std::size_t sheet, bool isFront) const
{
    const std::size_t all = 4 * Sheets();
    const std::size_t early = 2 * sheet + (isFront ? 1 : 2), late = all + 1 - early;
    const double inward = static_cast<double>(sheet) * creep;
    const Point left{inward, 0.0}, right{static_cast<double>(pad.page.width) - inward, 0.0};
    std::vector<NumberedPlace> places;
    for (const NumberedPlace& place :
         {NumberedPlace{isFront ? late : early, left}, {isFront ? early : late, right}}) {
        if (place.number <= pad.pages) {
            places.push_back(place);
        }
    }
    return places;
}

}  // namespace linealis
