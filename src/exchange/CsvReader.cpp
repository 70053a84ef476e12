#include "exchange/CsvReader.h"

#include <algorithm>
#include <utility>

namespace linealis {

namespace {

/// Returns the separator in the first line that is not empty: a comma, or else a semicolon, or else a tab. A table
/// with one column has none; a comma does no harm there.
char SeparatorOf(std::string_view text)
{
    text.remove_prefix(std::min(text.find_first_not_of("\r\n"), text.size()));
    const std::string_view head = text.substr(0, text.find_first_of("\r\n"));
    for (const char separator : {',', ';', '\t'}) {
        if (head.find(separator) != std::string_view::npos) {
            return separator;
        }
    }
    return ',';
}

/// Recognizes UTF-16 by its byte order mark or, without one, by the zero byte that each ASCII character contains.
bool IsUtf16(std::string_view text)
{
    return text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF") ||
           text.substr(0, 2).find('\0') != std::string_view::npos;
}

}  // namespace

CsvReader::CsvReader(std::string theName, BinaryStream theFile) : name(std::move(theName)), file(std::move(theFile))
{
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    Fill();
    if (IsUtf16(piece)) {
        throw TableError{Message("%1: is UTF-16; save the table as UTF-8", name)};
    }
    place = piece.starts_with(byteOrderMark) ? byteOrderMark.size() : 0;
    separator = SeparatorOf(std::string_view(piece).substr(place));
}

std::vector<std::string> CsvReader::Next()
{
    while (AtLineEnd()) {
        TakeLineEnd();
        bytesOfRow = 0;  // empty lines belong to no row
    }
    bytesOfRow = 0;
    std::vector<std::string> cells;
    if (AtEnd()) {
        return cells;
    }
    for (;;) {
        cells.push_back(!AtEnd() && piece[place] == '"' ? Quoted() : Plain());
        if (AtEnd() || AtLineEnd()) {
            return cells;
        }
        Take();  // the separator
    }
}

void CsvReader::Fill()
{
    piece = file.Read(BinaryStream::longestField);
    place = 0;
    if (file.Error()) {
        throw TableError{Message("%1: %2", name, file.Error().message())};
    }
}

/// Refills the buffer when it is used up, so that piece[place] is valid whenever this returns false.
bool CsvReader::AtEnd()
{
    if (place == piece.size() && !piece.empty()) {
        Fill();
    }
    return piece.empty();
}

bool CsvReader::AtLineEnd()
{
    return !AtEnd() && (piece[place] == '\n' || piece[place] == '\r');
}

/// Returns the next byte. Must not be called at the end of the file.
char CsvReader::Take()
{
    constexpr std::size_t longestRow = std::size_t{1} << 20U;
    if (++bytesOfRow > longestRow) {
        throw TableError{Message("%1, line %2: the row has more than %3 bytes", name, std::to_string(line),
                                 std::to_string(longestRow))};
    }
    return piece[place++];
}

/// Consumes one line end: CR, LF, or CR LF.
void CsvReader::TakeLineEnd()
{
    const bool mayBeTwo = Take() == '\r';
    if (mayBeTwo && !AtEnd() && piece[place] == '\n') {
        Take();
    }
    ++line;
}

std::string CsvReader::Plain()
{
    std::string cell;
    while (!AtEnd() && !AtLineEnd() && piece[place] != separator) {
        cell += Take();
    }
    return cell;
}

/// Reads a cell in quotation marks. A doubled quotation mark inside stands for one. Text between the closing mark
/// and the separator belongs to the cell too.
std::string CsvReader::Quoted()
{
    const std::size_t begin = line;
    std::string cell;
    Take();
    while (!AtEnd()) {
        if (AtLineEnd()) {
            TakeLineEnd();
            cell += ' ';
        } else if (const char c = Take(); c != '"') {
            cell += c;
        } else if (!AtEnd() && piece[place] == '"') {
            cell += Take();
        } else {
            return cell + Plain();
        }
    }
    throw TableError{Message("%1, line %2: the quotation mark is not closed", name, std::to_string(begin))};
}

}  // namespace linealis
