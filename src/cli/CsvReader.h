#pragma once

#include "platform/BinaryStream.h"

#include <string>
#include <string_view>
#include <vector>

namespace linealis::cli {

/// Reads comma-separated values (RFC 4180), or values that semicolons or tabs separate, as spreadsheets write them
/// where the comma is the decimal mark. It holds no more than a row at a time.
class CsvReader {
public:
    /// `theName` is the file's, for messages. Throws WorkError if the file cannot be read, or is UTF-16.
    CsvReader(std::string theName, BinaryStream theFile);

    /// The cells of the next row, which has at least one; no cells: there is no more. Lines with nothing in them
    /// are passed over, a line end within a cell becomes a blank. Throws WorkError where the file cannot be read, a
    /// quotation mark is not closed or a row is too long.
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
    std::string piece;      ///< of the file
    std::size_t place = 0;  ///< in the piece
    std::size_t line = 1;   ///< of the file, where the reader stands
    std::size_t bytesOfRow = 0;
    char separator = ',';
};

}  // namespace linealis::cli
