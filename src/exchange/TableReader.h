#pragma once

#include "exchange/CsvReader.h"
#include "pipeline/form/Form.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace linealis {

/// The value that a cell gives for a control.
struct CellValue {
    std::string control;  ///< its name, or a shortened unknown word of the header
    std::string value;    ///< as SetControl takes it
};

/// One page of a table.
struct TableRow {
    std::string fileName;           ///< for its page; empty if the table gives none
    std::vector<CellValue> values;  ///< of the cells that are not empty
    std::size_t number = 0;         ///< from 1, not counting the header
};

/// Reads a table of pages (CsvReader) row by row. Each cell of the header names a control by name or alias, in any
/// case. An optional column "file" contains file names for the pages. An empty cell leaves its control unchanged.
class TableReader {
public:
    /// `theName` is the name of the file in messages; `form` has the controls. Throws TableError if the table
    /// cannot be read.
    TableReader(std::string theName, BinaryStream file, const Form& form);

    /// Returns the next row, or nothing after the last one. Throws TableError if the table cannot be read or the
    /// row has a different number of cells than the header.
    std::optional<TableRow> Next();

    /// Whether the table has the column "file".
    bool NamesPages() const;

private:
    std::string name;
    CsvReader reader;
    std::vector<std::string> head;  ///< of each column: the control name, "file", or an unknown word
    std::size_t rows = 0;           ///< the number of rows read so far
};

/// Returns the message of a table without rows, or with too many for a pad.
Message TableIsEmpty(const std::string& name);
Message TableIsTooLong(const std::string& name, std::size_t mostRows);

}  // namespace linealis
