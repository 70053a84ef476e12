// Fuzzes tables of pages. A table either gives the same rows when read twice or is rejected with a message. A row
// written with quotation marks reads back unchanged.

#include "Fuzz.h"
#include "cli/Errors.h"
#include "cli/Table.h"

#include <unistd.h>

#include <fstream>

using namespace linealis;
using namespace linealis::fuzz;

namespace {

std::size_t CountRows(cli::Table& table)
{
    std::size_t count = 0;
    while (const std::optional<cli::RowOfTable> row = table.Next()) {
        ++count;
        Require(row->number == count && row->fileName.find('/') == std::string::npos);
    }
    return count;
}

void ReadAsTable(const std::string& path, const Form& form)
{
    try {
        cli::Table table(path, form);
        const std::size_t count = CountRows(table);
        table.Rewind();
        Require(CountRows(table) == count);
    } catch (const cli::WorkError& error) {
        Require(!error.message.empty());
    } catch (const cli::UsageError& error) {
        Require(!error.message.empty());
    }
}

std::string Written(const std::vector<std::string>& cells)
{
    std::string row;
    for (const std::string& cell : cells) {
        row += row.empty() ? "\"" : ",\"";
        for (const char c : cell) {
            row += c == '"' ? "\"\"" : std::string(1, c);
        }
        row += '"';
    }
    return row + "\n";
}

void ReadAsRows(std::string_view text)
{
    try {
        CsvReader reader("table", BinaryStream::FromMemory(text));
        for (std::vector<std::string> cells = reader.Next(); !cells.empty(); cells = reader.Next()) {
            const std::string row = Written(cells);
            CsvReader again("row", BinaryStream::FromMemory(row));
            Require(again.Next() == cells && again.Next().empty());
        }
    } catch (const TableError& error) {
        Require(!error.message.IsEmpty());
    }
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const std::string path = "/tmp/linealis-fuzz-table-" + std::to_string(::getpid());
    Input input(data, size);
    ScreenlessPlatform platform;
    const Paper paper = input.Kind().makePaper(platform);
    const std::string text(input.All());
    std::ofstream(path, std::ios::binary) << text;
    ReadAsTable(path, *paper.form);
    ReadAsRows(text);
    return 0;
}
