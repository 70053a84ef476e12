#include "api/Pad.h"

#include "exchange/TableReader.h"
#include "kinds/PadFile.h"
#include "pipeline/form/NearestInput.h"
#include "pipeline/form/SetControl.h"

#include <utility>

namespace linealis::api {

namespace {

constexpr const char* nameOfTable = "the table";

std::string FormOf(const linealis_sheet& sheet)
{
    return CarriedForm(sheet.Kind(), sheet.Form());
}

PadPage Named(std::string name, const DrawnPage& drawn)
{
    return {std::move(name), {drawn.frame.paperWidth, drawn.frame.paperHeight}};
}

/// Draws the page of a sheet with the values of a row.
DrawnPage DrawRow(const linealis_sheet& sheet, const TableRow& row, const std::string& name)
{
    try {
        return sheet.Draw(row.values);
    } catch (const UnknownInput& unknown) {
        throw BadInput(name + ": " + UnknownText(unknown.what, unknown.given, unknown.possible));
    }
}

/// Adds a page per row of the table.
void AddRows(const linealis_sheet& sheet, std::string_view table, PadFile& file, PadPages& pages)
{
    TableReader reader(nameOfTable, BinaryStream::FromMemory(table), sheet.Form());
    file.AttachTable(table, FormOf(sheet));
    while (const std::optional<TableRow> row = reader.Next()) {
        if (pages.fronts.size() == mostPadPages) {
            throw TableError{TableIsTooLong(nameOfTable, mostPadPages)};
        }
        const std::string name = std::string(nameOfTable) + ", row " + std::to_string(row->number);
        const DrawnPage drawn = DrawRow(sheet, *row, name);
        file.AddFront(drawn);
        pages.fronts.push_back(Named(name, drawn));
    }
    if (pages.fronts.empty()) {
        throw TableError{TableIsEmpty(nameOfTable)};
    }
}

PadPages AddPages(const PadSheets& sheets, PadFile& file)
{
    PadPages pages;
    if (sheets.table) {
        AddRows(*sheets.fronts.front(), *sheets.table, file, pages);
    } else {
        for (const linealis_sheet* const sheet : sheets.fronts) {
            const DrawnPage drawn = sheet->Draw();
            file.AddFront(drawn, FormOf(*sheet));
            pages.fronts.push_back(Named("sheet " + std::to_string(pages.fronts.size() + 1), drawn));
        }
    }
    if (sheets.back != nullptr) {
        const DrawnPage drawn = sheets.back->Draw();
        file.SetBack(drawn, FormOf(*sheets.back));
        pages.back = Named("the back", drawn);
    }
    return pages;
}

}  // namespace

std::string PadOf(const PadSheets& sheets, const PadOptions& options)
{
    if (sheets.fronts.empty()) {
        throw BadInput("a pad needs a sheet");
    }
    if (sheets.table && sheets.fronts.size() > 1) {
        throw BadInput("table takes one sheet, but " + std::to_string(sheets.fronts.size()) + " are given");
    }
    const PadInputs inputs{sheets.table.has_value(), sheets.back != nullptr};
    try {
        CheckPadOptions(options, inputs);
        std::string bytes;
        BinaryStream stream = BinaryStream::IntoMemory(bytes);
        Turns turns([] {});
        PadFile file(stream, turns);
        const PadPages pages = AddPages(sheets, file);
        file.Finish(PlanOf(options, inputs, pages), options.copies, ScreenlessPlatform().Now());
        return bytes;
    } catch (const PadError& error) {
        throw BadInput(error.message.English());
    } catch (const TableError& error) {
        throw BadInput(error.message.English());
    }
}

}  // namespace linealis::api
