#pragma once

#include "cli/Actions.h"

#include <string>
#include <vector>

namespace linealis::cli {

/// One page of a table.
struct TableRow {
    std::string fileName;         ///< of its page, without folder and extension; empty: the table gives none
    std::vector<Action> actions;  ///< what its cells set
    std::size_t number = 0;       ///< of the row, from 1, without the head
};

/// Reads a table of comma-separated values (RFC 4180), or of values that semicolons separate, as spreadsheets write
/// them where the comma is the decimal mark. The head names a control a column, by name or alias; the column
/// "file", if there is one, holds the names of the pages. An empty cell sets nothing. "-" is standard input. Throws
/// WorkError if the table cannot be read, has no rows, or a row does not fit the head; UsageError for a page's name
/// that holds a path.
std::vector<TableRow> ReadTable(const std::string& fileName);

}  // namespace linealis::cli
