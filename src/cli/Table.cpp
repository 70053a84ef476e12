#include "cli/Table.h"

#include "cli/Errors.h"
#include "cli/InputText.h"
#include "platform/FilePath.h"
#include "text/LetterCase.h"
#include "text/ShortText.h"

#include <algorithm>
#include <map>
#include <string_view>

namespace linealis::cli {

namespace {

constexpr std::string_view nameColumn = "file";

std::string WithoutBlanksAround(std::string_view text)
{
    constexpr std::string_view blanks = " \t";
    const std::size_t begin = std::min(text.find_first_not_of(blanks), text.size());
    return std::string(text.substr(begin, text.find_last_not_of(blanks) + 1 - begin));
}

/// Maps every possible header, in lowercase, to the control name, or to "file".
std::map<std::string, std::string> ColumnsOf(const Form& form)
{
    std::map<std::string, std::string> columns = {{std::string(nameColumn), std::string(nameColumn)}};
    for (const Control* const control : form.Controls()) {
        for (const std::string_view head : {control->Name(), control->Alias()}) {
            if (!head.empty()) {
                columns.emplace(InSmallLetters(std::string(head)), control->Name());
            }
        }
    }
    return columns;
}

/// Throws UsageError if the file name of the row would leave the output folder or is too long for a file name.
void CheckName(const std::string& table, const TableRow& row)
{
    constexpr std::size_t longest = 255;
    if (row.fileName.find('/') != std::string::npos || row.fileName == "." || row.fileName == ".." ||
        row.fileName.size() > longest) {
        throw UsageError{table + ", row " + std::to_string(row.number) + ": '" + Shortened(row.fileName) +
                         "' is not a plain file name"};
    }
}

}  // namespace

Table::Table(const std::string& fileName, const Form& theForm) : name(fileName), form(theForm)
{
    constexpr std::size_t longestHeld = std::size_t{64} << 20U;
    if (fileName == "-") {
        name = "standard input";
        held = ReadInput(fileName, longestHeld);
    }
    Rewind();
}

void Table::Rewind()
{
    reader.emplace(name, held ? BinaryStream::FromMemory(*held) : FolderItem(PathOf(name)).OpenAsBinaryFile());
    rows = 0;
    head = reader->Next();
    const std::map<std::string, std::string> columns = ColumnsOf(form);
    for (std::string& cell : head) {
        cell = WithoutBlanksAround(cell);
        const auto column = columns.find(InSmallLetters(cell));
        // Shortens an unknown name, which every row copies into its actions. Apply rejects it later.
        cell = column == columns.end() ? Shortened(cell) : column->second;
    }
}

std::optional<TableRow> Table::Next()
{
    const std::vector<std::string> cells = reader->Next();
    if (cells.empty()) {
        return std::nullopt;
    }
    TableRow row{"", {}, ++rows};
    if (cells.size() != head.size()) {
        throw WorkError{name + ", row " + std::to_string(row.number) + " has " + std::to_string(cells.size()) +
                        " cells, but the header has " + std::to_string(head.size())};
    }
    for (std::size_t column = 0; column < head.size(); ++column) {
        if (head[column] == nameColumn) {
            row.fileName = cells[column];
        } else if (!cells[column].empty()) {
            row.actions.push_back({Action::Kind::Set, head[column] + "=" + cells[column]});
        }
    }
    CheckName(name, row);
    return row;
}

bool Table::NamesPages() const
{
    return std::find(head.begin(), head.end(), nameColumn) != head.end();
}

}  // namespace linealis::cli
