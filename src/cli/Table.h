#pragma once

#include "cli/Actions.h"
#include "cli/CsvReader.h"

#include <optional>
#include <string>
#include <vector>

namespace linealis::cli {

/// One page of a table.
struct TableRow {
    std::string fileName;         ///< for its page, without folder; empty if the table gives none
    std::vector<Action> actions;  ///< set the controls to the values of the cells
    std::size_t number = 0;       ///< from 1, not counting the header
};

/// Reads a table of pages (CsvReader) row by row. Each cell of the header names a control by name or alias, in any
/// case. An optional column "file" contains file names for the pages. An empty cell leaves its control unchanged.
class Table {
public:
    /// `fileName` may be "-" for standard input, which is kept in memory, up to 64 MiB, so that Rewind works.
    /// `theForm` has the controls and must outlive the object. Throws WorkError if the table cannot be read.
    Table(const std::string& fileName, const Form& theForm);

    /// Returns the next row, or nothing after the last one. Throws WorkError if the table cannot be read or the row
    /// has a different number of cells than the header, UsageError if the name of a page is not a plain file name.
    std::optional<TableRow> Next();

    /// Returns to the first row. Reopens the file, so throws like the constructor.
    void Rewind();

    /// The name of the file, for messages.
    const std::string& Name() const { return name; }

    /// Whether the table has the column "file".
    bool NamesPages() const;

private:
    std::string name;
    const Form& form;
    std::optional<std::string> held;  ///< the text of standard input; empty for a file
    std::optional<CsvReader> reader;
    std::vector<std::string> head;  ///< of each column: the control name, "file", or an unknown word
    std::size_t rows = 0;           ///< the number of rows read so far
};

}  // namespace linealis::cli
