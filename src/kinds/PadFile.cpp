#include "kinds/PadFile.h"

namespace linealis {

PadFile::PadFile(BinaryStream& theStream, Turns& theTurns) : file(theStream, theTurns) {}

void PadFile::AttachTable(std::string_view csv, std::string_view form)
{
    AttachForm("table", form);
    file.Attach("table.csv", "text/csv", csv, true);
}

void PadFile::AddFront(const DrawnPage& page, std::string_view form)
{
    AttachForm("front-" + std::to_string(fronts.size() + 1), form);
    fronts.push_back(file.AddContent(page.content, page.frame.paperWidth, page.frame.paperHeight));
}

void PadFile::SetBack(const DrawnPage& page, std::string_view form)
{
    AttachForm("back", form);
    back = file.AddContent(page.content, page.frame.paperWidth, page.frame.paperHeight);
}

void PadFile::Finish(const PadPlan& plan, std::size_t copies, const LocalTime& now,
                     const std::function<void(std::size_t sides)>& onSide)
{
    const std::size_t ofOne = plan.Sides();
    for (std::size_t side = 0; side < copies * ofOne; ++side) {
        AddSide(plan.Side(side % ofOne));
        onSide(side + 1);
    }
    file.Finish(now);
}

/// A form precedes the content of its page, since whoever looks for it reads only the beginning of a file.
void PadFile::AttachForm(const std::string& name, std::string_view form)
{
    if (!form.empty() && forms.emplace(form).second) {
        file.Attach(name + ".json", formMimeType, form, false);
    }
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
