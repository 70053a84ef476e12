#pragma once

#include "cli/Actions.h"
#include "exchange/TableReader.h"

#include <optional>
#include <string>
#include <vector>

namespace linealis::cli {

/// One page of a table.
struct RowOfTable {
    std::string fileName;         ///< for its page, without folder; empty if the table gives none
    std::vector<Action> actions;  ///< set the controls to the values of the cells
    std::size_t number = 0;       ///< from 1, not counting the header
};

/// The longest table that is kept in memory: 64 MiB.
inline constexpr std::size_t longestHeldTable = std::size_t{64} << 20U;

/// A table of pages (TableReader) in a file or on standard input, with its rows as actions.
class Table {
public:
    /// `fileName` may be "-" for standard input, which is kept in memory, up to longestHeldTable, so that Rewind
    /// works. `theForm` has the controls and must outlive the object. Throws WorkError if the table cannot be read.
    Table(const std::string& fileName, const Form& theForm);

    /// Keeps the whole text of the table in memory, whatever file it is in. Throws as the constructor does, and if
    /// the table is longer than longestHeldTable.
    static Table Held(const std::string& fileName, const Form& theForm);

    /// Returns the next row, or nothing after the last one. Throws WorkError if the table cannot be read or the row
    /// has a different number of cells than the header, UsageError if the name of a page is not a plain file name.
    std::optional<RowOfTable> Next();

    /// Returns to the first row. Reopens the file, so throws like the constructor.
    void Rewind();

    /// The name of the file, for messages.
    const std::string& Name() const { return name; }

    /// The text of the table, if it is kept in memory.
    const std::optional<std::string>& Text() const { return held; }

    /// Whether the table has the column "file".
    bool NamesPages() const { return reader->NamesPages(); }

private:
    Table(std::string theName, std::optional<std::string> theText, const Form& theForm);

    std::string name;
    const Form& form;
    std::optional<std::string> held;
    std::optional<TableReader> reader;
};

}  // namespace linealis::cli
