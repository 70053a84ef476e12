#pragma once

#include "cli/Actions.h"
#include "cli/CsvReader.h"

#include <optional>
#include <string>
#include <vector>

namespace linealis::cli {

/// One page of a table.
struct TableRow {
    std::string fileName;         ///< of its page, without folder and extension; empty: the table gives none
    std::vector<Action> actions;  ///< what its cells set
    std::size_t number = 0;       ///< of the row, from 1, without the head
};

/// A table of pages (CsvReader), which is read row by row. The head names a control a column, by name or alias, in
/// any case; the column "file", if there is one, holds the names of the pages. An empty cell sets nothing.
class Table {
public:
    /// `fileName` may be "-", standard input, whose text is held. `theForm`, which must outlive this, has the
    /// controls. Throws WorkError if the table cannot be read.
    Table(const std::string& fileName, const Form& theForm);

    /// The next row; nothing: there is no more. Throws WorkError if the table cannot be read or a row does not fit
    /// the head; UsageError for a page's name that holds a path.
    std::optional<TableRow> Next();

    /// Goes back to the first row.
    void Rewind();

    /// Of the file, for messages.
    const std::string& Name() const { return name; }

    /// Whether it has the column of names.
    bool NamesPages() const;

private:
    std::string name;
    const Form& form;
    std::optional<std::string> held;
    std::optional<CsvReader> reader;
    std::vector<std::string> head;
    std::size_t rows = 0;  ///< read so far
};

}  // namespace linealis::cli
