#pragma once

#include "pdf/Geometry.h"
#include "pipeline/form/Form.h"
#include "pipeline/page/PageFrame.h"

#include <array>
#include <chrono>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace linealis {

/// The possible numbers of pages on one side of a sheet.
inline constexpr std::array<std::size_t, 3> possiblePagesUp = {1, 2, 4};

/// The most pages on the fronts of a pad, and the most copies of it in one file.
inline constexpr std::size_t mostPadPages = 10000;
inline constexpr std::size_t mostPadCopies = 100;

/// The layout of a pad: the place of each page on the sheets, which are cut where the pages meet. Lengths are in
/// points, from the lower left corner of the side.
struct PadLayout {
    std::size_t pages = 50;   ///< the number of pages on the fronts, from 1
    std::size_t up = 1;       ///< the number of pages on each side: one of possiblePagesUp
    bool hasNumbers = false;  ///< whether the front pages are numbered
    PaperSize page{};
    std::optional<std::chrono::sys_days> firstDate =
        {};  ///< the date on the first front page; each further one is a day later

    /// Whether anything is written on the front pages.
    bool HasStamps() const { return hasNumbers || firstDate; }
    std::size_t Sheets() const { return (pages + up - 1) / up; }
    /// Returns the number of pages on the front of a sheet. Only the last sheet can have fewer than `up`.
    std::size_t PagesOn(std::size_t sheet) const;
    /// Two pages share their longer edge.
    std::int64_t Columns() const;
    std::int64_t Rows() const;
    /// Returns the size of a side, which is as large as its pages are together.
    PaperSize Side() const { return {Columns() * page.width, Rows() * page.height}; }
    /// Returns the lower left corner of a place on the side. Places count from 0, row by row from the top.
    Point CornerOf(std::size_t place) const;
    /// Returns the number of a front page, from 1. The numbers run through the stack of each place, one stack after
    /// the other, so that the stacks only have to be put on top of each other after cutting.
    std::size_t NumberOf(std::size_t sheet, std::size_t place) const;
};

/// A page on a side of a sheet, with its number from 1 and the position of its lower left corner, in points.
struct NumberedPlace {
    std::size_t number;
    Point corner;
};

/// Returns the content that goes on top of the pages of a side, as ReadPage reads it: of each place, the number and
/// the date if the layout has them.
std::string PadStamps(const PadLayout& layout, std::span<const NumberedPlace> places);

/// The font of the page numbers and dates, by its number in the name on the page.
inline constexpr int padNumberFont = 5;

/// Returns the content that goes on top of the pages of a side, as ReadPage reads it: gray ticks at both ends of
/// each cut, a cross where two cuts meet, and, on a front, PadStamps.
std::string PadMarks(const PadLayout& layout, std::size_t sheet, bool isFront);

/// Gives the form the paper of another form: its unit, size, and orientation. `owner` names the form in errors.
void TakePaperOf(const Form& other, std::string_view owner, Form& form);

}  // namespace linealis
