#include "kinds/Poster.h"

#include "kinds/PadSheet.h"
#include "pdf/MyPDFGenerator.h"

#include <algorithm>
#include <cmath>

namespace linealis {

namespace {

/// Returns how many sheets that show `shown` points each, and share `overlap` with the next, show the length.
std::size_t SheetsAlong(double length, double shown, double overlap)
{
    const double step = shown - overlap;
    if (step <= 0.0) {
        return 0;
    }
    return length <= shown ? 1 : static_cast<std::size_t>(std::ceil((length - overlap) / step - 1e-9));
}

/// Returns the letters of a column: A to Z, then AA and so on.
std::string Letters(std::size_t column)
{
    constexpr std::size_t letters = 26;
    const std::string last(1, static_cast<char>('A' + column % letters));
    return column < letters ? last : Letters(column / letters - 1) + last;
}

double Shown(std::int64_t side)
{
    return static_cast<double>(side) - 2.0 * posterMargin;
}

}  // namespace

std::size_t Poster::Columns() const
{
    return SheetsAlong(static_cast<double>(page.width), Shown(sheet.width), overlap);
}

std::size_t Poster::Rows() const
{
    return SheetsAlong(static_cast<double>(page.height), Shown(sheet.height), overlap);
}

std::string Poster::NameOf(std::size_t column, std::size_t row)
{
    return Letters(column) + std::to_string(row + 1);
}

Point Poster::CornerOf(std::size_t column, std::size_t row) const
{
    const double left = static_cast<double>(column) * (Shown(sheet.width) - overlap);
    const double down = static_cast<double>(row) * (Shown(sheet.height) - overlap);
    return {posterMargin - left,
            static_cast<double>(sheet.height) - posterMargin - static_cast<double>(page.height) + down};
}

std::string Poster::Marks(std::size_t column, std::size_t row) const
{
    constexpr double tick = 12.0, gap = 2.0, size = 9.0;  // points
    const auto width = static_cast<double>(sheet.width), height = static_cast<double>(sheet.height);
    Turns turns([] {});
    MyPDFGenerator pdf(turns);
    pdf.SetRGBColor(0.5, 0.5, 0.5);
    pdf.SetLineWidth(0.25);
    // The edges of what the sheet shows, and where its right and lower neighbors begin.
    std::vector<double> across = {posterMargin, width - posterMargin}, up = {posterMargin, height - posterMargin};
    if (column + 1 < Columns()) {
        across.push_back(width - posterMargin - overlap);
    }
    if (row + 1 < Rows()) {
        up.push_back(posterMargin + overlap);
    }
    for (const double x : across) {
        pdf.StrokeLine(x, posterMargin - gap - tick, x, posterMargin - gap);
        pdf.StrokeLine(x, height - posterMargin + gap, x, height - posterMargin + gap + tick);
    }
    for (const double y : up) {
        pdf.StrokeLine(posterMargin - gap - tick, y, posterMargin - gap, y);
        pdf.StrokeLine(width - posterMargin + gap, y, width - posterMargin + gap + tick, y);
    }
    pdf.SetRGBColor(0.3, 0.3, 0.3);
    pdf.SetFont(padNumberFont, size);
    pdf.SetTextPos(posterMargin + tick, height - posterMargin + gap + 1.0);
    pdf.Show(NameOf(column, row));
    return std::string(pdf.Stream());
}

Poster PosterOn(const PaperSize& paper, const PaperSize& page, double overlap)
{
    const Poster upright{page, paper, overlap}, across{page, {paper.height, paper.width}, overlap};
    const auto sheets = [](const Poster& poster) { return poster.Columns() * poster.Rows(); };
    const bool turns = sheets(across) > 0 && (sheets(upright) == 0 || sheets(across) < sheets(upright));
    return turns ? across : upright;
}

}  // namespace linealis
