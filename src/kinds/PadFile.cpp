#include "kinds/PadFile.h"

namespace linealis {

PadFile::PadFile(BinaryStream& theStream, Turns& theTurns) : file(theStream, theTurns) {}

void PadFile::AddFront(const DrawnPage& page, std::string_view form)
{
    fronts.push_back(Add(page, "front-" + std::to_string(fronts.size() + 1), form));
}

void PadFile::SetBack(const DrawnPage& page, std::string_view form)
{
    back = Add(page, "back", form);
}

void PadFile::AttachTable(std::string_view csv)
{
    file.Attach("table.csv", "text/csv", csv, true);
}

void PadFile::Finish(const PadPlan& plan, std::size_t copies, const LocalTime& now)
{
    for (std::size_t copy = 0; copy < copies; ++copy) {
        for (std::size_t side = 0; side < plan.Sides(); ++side) {
            AddSide(plan.Side(side));
        }
    }
    file.Finish(now);
}

/// Returns the number of the content. The form comes first: whoever looks for it reads only the beginning of a
/// file.
std::size_t PadFile::Add(const DrawnPage& page, const std::string& name, std::string_view form)
{
    if (!form.empty() && forms.emplace(form).second) {
        file.Attach(name + ".json", "application/json", form, false);
    }
    return file.AddContent(page.content, page.frame.paperWidth, page.frame.paperHeight);
}

void PadFile::AddSide(const PadSide& side)
{
    if (side.isPlain) {
        file.AddPage(ContentOf(side.pages.front()));
        return;
    }
    std::vector<PdfPages::Placed> placed;
    for (const PlacedPage& page : side.pages) {
        placed.push_back({ContentOf(page), page.corner});
    }
    file.AddPage(side.size.width, side.size.height, placed, side.marks, side.margin);
}

std::size_t PadFile::ContentOf(const PlacedPage& page) const
{
    return page.front ? fronts.at(*page.front) : back;
}

}  // namespace linealis
