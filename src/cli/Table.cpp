#include "cli/Table.h"

#include "cli/Errors.h"
#include "cli/InputText.h"
#include "platform/FilePath.h"
#include "text/ShortText.h"

#include <utility>

namespace linealis::cli {

namespace {

std::string NameOf(const std::string& fileName)
{
    return fileName == "-" ? "standard input" : fileName;
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

Table::Table(const std::string& fileName, const Form& theForm)
    : Table(NameOf(fileName), fileName == "-" ? std::optional(ReadInput(fileName, longestHeldTable)) : std::nullopt,
            theForm)
{}

Table::Table(std::string theName, std::optional<std::string> theText, const Form& theForm)
    : name(std::move(theName)), form(theForm), held(std::move(theText))
{
    Rewind();
}

Table Table::Held(const std::string& fileName, const Form& theForm)
{
    return {NameOf(fileName), ReadInput(fileName, longestHeldTable), theForm};
}

void Table::Rewind()
{
    try {
        reader.emplace(name, held ? BinaryStream::FromMemory(*held) : FolderItem(PathOf(name)).OpenAsBinaryFile(),
                       form);
    } catch (const TableError& error) {
        throw WorkError{error.message.English()};
    }
}

std::optional<RowOfTable> Table::Next()
{
    try {
        const std::optional<TableRow> read = reader->Next();
        if (!read) {
            return std::nullopt;
        }
        CheckName(name, *read);
        RowOfTable row{read->fileName, {}, read->number};
        for (const CellValue& cell : read->values) {
            row.actions.push_back({Action::Kind::Set, cell.control + "=" + cell.value});
        }
        return row;
    } catch (const TableError& error) {
        throw WorkError{error.message.English()};
    }
}

}  // namespace linealis::cli
