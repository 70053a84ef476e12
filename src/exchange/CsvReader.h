#pragma once

#include "platform/BinaryStream.h"
#include "text/Message.h"

#include <string>
#include <string_view>
#include <vector>

namespace linealis {

/// Thrown if a table cannot be read. The message starts with the name of its file.
struct TableError {
    Message message;
};

/// Reads a table of comma-separated values (RFC 4180), or of values separated by semicolons or tabs, which
/// spreadsheets write where the comma is the decimal mark. Keeps only one row and one buffer of the file in memory.
class CsvReader {
public:
    /// `theName` is the name of the file in messages. Reads the beginning of the file to detect the separator.
    /// Throws TableError if the file cannot be read or is UTF-16.
    CsvReader(std::string theName, BinaryStream theFile);

    /// Returns the cells of the next row, at least one, or no cells at the end of the table. Skips empty lines. A
    /// line end inside a quoted cell becomes a space. Throws TableError if the file cannot be read, a quotation
    /// mark is not closed, or a row is longer than 1 MiB.
    std::vector<std::string> Next();

private:
    void Fill();
    bool AtEnd();
    bool AtLineEnd();
    char Take();
    void TakeLineEnd();
    std::string Plain();
    std::string Quoted();

    std::string name;
    BinaryStream file;
    std::string piece;      ///< the buffered part of the file; empty at the end of the file
    std::size_t place = 0;  ///< of the next byte in the piece
    std::size_t line = 1;   ///< the current line of the file, from 1
    std::size_t bytesOfRow = 0;
    char separator = ',';
};

}  // namespace linealis
