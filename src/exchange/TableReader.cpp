#include "exchange/TableReader.h"

#include "text/LetterCase.h"
#include "text/ShortText.h"

#include <algorithm>
#include <map>
#include <string_view>
#include <utility>

namespace linealis {

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

}  // namespace

TableReader::TableReader(std::string theName, BinaryStream file, const Form& form)
    : name(std::move(theName)), reader(name, std::move(file)), head(reader.Next())
{
    const std::map<std::string, std::string> columns = ColumnsOf(form);
    for (std::string& cell : head) {
        cell = WithoutBlanksAround(cell);
        const auto column = columns.find(InSmallLetters(cell));
        // Shortens an unknown name, which every row copies. Whoever sets the controls rejects it.
        cell = column == columns.end() ? Shortened(cell) : column->second;
    }
}

std::optional<TableRow> TableReader::Next()
{
    const std::vector<std::string> cells = reader.Next();
    if (cells.empty()) {
        return std::nullopt;
    }
    TableRow row{"", {}, ++rows};
    if (cells.size() != head.size()) {
        throw TableError{Message("%1, row %2 has %3 cells, but the header has %4", name, std::to_string(row.number),
                                 cells.size(), head.size())};
    }
    for (std::size_t column = 0; column < head.size(); ++column) {
        if (head[column] == nameColumn) {
            row.fileName = cells[column];
        } else if (!cells[column].empty()) {
            row.values.push_back({head[column], cells[column]});
        }
    }
    return row;
}

bool TableReader::NamesPages() const
{
    return std::find(head.begin(), head.end(), nameColumn) != head.end();
}

Message TableIsEmpty(const std::string& name)
{
    return Message("%1: has no rows below its header", name);
}

Message TableIsTooLong(const std::string& name, std::size_t mostRows)
{
    return Message("%1: has more than %2 rows", name, mostRows);
}

}  // namespace linealis
