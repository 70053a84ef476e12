#include "cli/Table.h"

#include "cli/Errors.h"
#include "cli/InputText.h"

#include <algorithm>
#include <string_view>

namespace linealis::cli {

namespace {

using Cells = std::vector<std::string>;

constexpr std::string_view nameColumn = "file";

/// Goes through a table from row to row.
class TableReader {
public:
    TableReader(std::string_view theText, char theSeparator) : text(theText), separator(theSeparator) {}

    /// The cells of the next row. Lines with nothing in them are passed over; no cells: there is no more.
    Cells Next()
    {
        while (!text.empty() && IsLineEnd(text.front())) {
            text.remove_prefix(1);
        }
        Cells cells;
        while (!text.empty()) {
            cells.push_back(text.front() == '"' ? Quoted() : Plain());
            if (text.empty() || IsLineEnd(text.front())) {
                break;
            }
            text.remove_prefix(1);  // the separator
            if (text.empty() || IsLineEnd(text.front())) {
                cells.emplace_back();
                break;
            }
        }
        return cells;
    }

private:
    static bool IsLineEnd(char c) { return c == '\n' || c == '\r'; }

    std::string Plain()
    {
        const auto* const end =
            std::find_if(text.begin(), text.end(), [this](char c) { return c == separator || IsLineEnd(c); });
        std::string cell(text.begin(), end);
        text.remove_prefix(cell.size());
        return cell;
    }

    /// Two quotation marks in a row stand for one. What follows the closing one belongs to the cell too.
    std::string Quoted()
    {
        std::string cell;
        text.remove_prefix(1);
        while (!text.empty()) {
            const char c = text.front();
            text.remove_prefix(1);
            if (c != '"') {
                cell += c;
            } else if (!text.empty() && text.front() == '"') {
                cell += '"';
                text.remove_prefix(1);
            } else {
                break;
            }
        }
        return cell + Plain();
    }

    std::string_view text;
    char separator;
};

/// The one of the head; a comma in a head of one column.
char SeparatorOf(std::string_view text)
{
    const std::string_view head = text.substr(0, text.find_first_of("\r\n"));
    return head.find(',') == std::string_view::npos && head.find(';') != std::string_view::npos ? ';' : ',';
}

void CheckName(const std::string& table, const TableRow& row)
{
    if (row.fileName.find('/') != std::string::npos || row.fileName == "." || row.fileName == "..") {
        throw UsageError{table + ", row " + std::to_string(row.number) + ": '" + row.fileName +
                         "' is not the name of a file alone"};
    }
}

TableRow RowOf(const Cells& head, const Cells& cells, std::size_t number)
{
    TableRow row{"", {}, number};
    for (std::size_t column = 0; column < head.size(); ++column) {
        if (head[column] == nameColumn) {
            row.fileName = cells[column];
        } else if (!cells[column].empty()) {
            row.actions.push_back({Action::Kind::Set, head[column] + "=" + cells[column]});
        }
    }
    return row;
}

}  // namespace

std::vector<TableRow> ReadTable(const std::string& fileName)
{
    constexpr std::size_t longest = std::size_t{64} << 20U;
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    const std::string read = ReadInput(fileName, longest);
    std::string_view text = read;
    if (text.starts_with(byteOrderMark)) {
        text.remove_prefix(byteOrderMark.size());
    }
    TableReader reader(text, SeparatorOf(text));
    const Cells head = reader.Next();
    std::vector<TableRow> rows;
    for (Cells cells = reader.Next(); !cells.empty(); cells = reader.Next()) {
        const std::size_t number = rows.size() + 1;
        if (cells.size() != head.size()) {
            throw WorkError{fileName + ", row " + std::to_string(number) + " has " + std::to_string(cells.size()) +
                            " cells, but the head has " + std::to_string(head.size())};
        }
        rows.push_back(RowOf(head, cells, number));
        CheckName(fileName, rows.back());
    }
    if (rows.empty()) {
        throw WorkError{fileName + ": has no rows below its head"};
    }
    return rows;
}

}  // namespace linealis::cli
