#include "kinds/PadSheet.h"

#include "pdf/MyPDFGenerator.h"
#include "pdf/StandardFonts.h"
#include "pipeline/form/SetControl.h"
#include "platform/Turns.h"
#include "text/Numbers.h"

#include <algorithm>
#include <vector>

namespace linealis {

namespace {

constexpr double stampSize = 9.0;  // points: the size of numbers and dates

/// The controls that determine the paper, which every kind has, in the order to set them: the unit before the
/// lengths that depend on it, the paper size before the custom lengths.
constexpr std::array paperControls = {"PopupUnits", "PopupPaperSize", "EditCustomWidth", "EditCustomHeight",
                                      "PopupOrientation"};

void DrawCutMarks(MyPDFGenerator& pdf, const PadLayout& layout)
{
    constexpr double length = 24.0;  // points, about 8 mm: printers leave the outer 4 mm or so blank
    constexpr double cross = 14.0;
    const auto x = static_cast<double>(layout.page.width), y = static_cast<double>(layout.page.height);
    const auto width = static_cast<double>(layout.Side().width), height = static_cast<double>(layout.Side().height);
    pdf.SetRGBColor(0.5, 0.5, 0.5);
    pdf.SetLineWidth(0.25);
    if (layout.Columns() == 2) {
        pdf.StrokeLine(x, 0.0, x, length);
        pdf.StrokeLine(x, height - length, x, height);
    }
    if (layout.Rows() == 2) {
        pdf.StrokeLine(0.0, y, length, y);
        pdf.StrokeLine(width - length, y, width, y);
    }
    if (layout.Columns() == 2 && layout.Rows() == 2) {
        pdf.StrokeLine(x - cross / 2.0, y, x + cross / 2.0, y);
        pdf.StrokeLine(x, y - cross / 2.0, x, y + cross / 2.0);
    }
}

/// Writes the text in the middle of a page of that width whose lower left corner is given, `up` points above its
/// lower edge.
void DrawText(MyPDFGenerator& pdf, const std::string& text, double pageWidth, const Point& corner, double up)
{
    const double width = ShownWidth(StandardFontOf(padNumberFont), text) * stampSize;
    pdf.SetTextPos(corner.x + (pageWidth - width) / 2.0, corner.y + up);
    pdf.Show(text);
}

/// Returns the date as YYYY-MM-DD.
std::string DateText(std::chrono::sys_days day)
{
    const std::chrono::year_month_day date(day);
    return myformatstring(static_cast<int>(date.year()), "0000") + "-" +
           myformatstring(static_cast<unsigned>(date.month()), "00") + "-" +
           myformatstring(static_cast<unsigned>(date.day()), "00");
}

/// Draws the numbers and dates of the places.
void DrawStamps(MyPDFGenerator& pdf, const PadLayout& layout, std::span<const NumberedPlace> places)
{
    // In points. A quarter of an inch is within the reach of usual printers, and below the usual margin.
    constexpr double fromEdge = 18.0;
    const auto width = static_cast<double>(layout.page.width), height = static_cast<double>(layout.page.height);
    pdf.SetRGBColor(0.3, 0.3, 0.3);
    pdf.SetFont(padNumberFont, stampSize);
    for (const NumberedPlace& place : places) {
        if (layout.hasNumbers) {
            DrawText(pdf, std::to_string(place.number), width, place.corner, fromEdge);
        }
        if (layout.firstDate) {
            const std::chrono::days later(static_cast<int>(place.number) - 1);
            DrawText(pdf, DateText(*layout.firstDate + later), width, place.corner, height - fromEdge - stampSize);
        }
    }
}

}  // namespace

std::size_t PadLayout::PagesOn(std::size_t sheet) const
{
    return std::min(up, pages - sheet * up);
}

std::int64_t PadLayout::Columns() const
{
    return up == 4 || (up == 2 && page.width <= page.height) ? 2 : 1;
}

std::int64_t PadLayout::Rows() const
{
    return static_cast<std::int64_t>(up) / Columns();
}

Point PadLayout::CornerOf(std::size_t place) const
{
    const auto index = static_cast<std::int64_t>(place);
    return {static_cast<double>(index % Columns() * page.width),
            static_cast<double>((Rows() - 1 - index / Columns()) * page.height)};
}

std::size_t PadLayout::NumberOf(std::size_t sheet, std::size_t place) const
{
    const std::size_t onLast = PagesOn(Sheets() - 1);  // the stacks of the other places are one page lower
    return place * Sheets() - (place > onLast ? place - onLast : 0) + sheet + 1;
}

std::string PadMarks(const PadLayout& layout, std::size_t sheet, bool isFront)
{
    Turns turns([] {});
    MyPDFGenerator pdf(turns);
    if (layout.up > 1) {
        DrawCutMarks(pdf, layout);
    }
    if (layout.HasStamps() && isFront) {
        std::vector<NumberedPlace> places;
        for (std::size_t place = 0; place < layout.PagesOn(sheet); ++place) {
            places.push_back({layout.NumberOf(sheet, place), layout.CornerOf(place)});
        }
        DrawStamps(pdf, layout, places);
    }
    return std::string(pdf.Stream());
}

std::string PadStamps(const PadLayout& layout, std::span<const NumberedPlace> places)
{
    Turns turns([] {});
    MyPDFGenerator pdf(turns);
    if (layout.HasStamps()) {
        DrawStamps(pdf, layout, places);
    }
    return std::string(pdf.Stream());
}

void TakePaperOf(const Form& other, std::string_view owner, Form& form)
{
    for (const char* const control : paperControls) {
        SetControl(owner, form, {control, ValueOf(*other.Find(control))});
    }
}

}  // namespace linealis
