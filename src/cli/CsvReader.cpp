#include "cli/CsvReader.h"

#include "cli/Errors.h"

namespace linealis::cli {

namespace {

/// The one of the head; a comma in a head of one column.
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

/// By its mark, or by its ASCII characters, each of which has a byte of 0.
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
        throw WorkError{name + ": is UTF-16; save the table as UTF-8"};
    }
    place = piece.starts_with(byteOrderMark) ? byteOrderMark.size() : 0;
    separator = SeparatorOf(std::string_view(piece).substr(place));
}

std::vector<std::string> CsvReader::Next()
{
    while (AtLineEnd()) {
        TakeLineEnd();
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
        throw WorkError{name + ": " + file.Error().message()};
    }
}

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

/// Not at the end.
char CsvReader::Take()
{
    constexpr std::size_t longestRow = std::size_t{1} << 20U;
    if (++bytesOfRow > longestRow) {
        throw WorkError{name + ", line " + std::to_string(line) + ": the row has more than " +
                        std::to_string(longestRow) + " bytes"};
    }
    return piece[place++];
}

/// One of CR, LF, or both.
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

/// Two quotation marks in a row stand for one. What follows the closing one belongs to the cell too.
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
    throw WorkError{name + ", line " + std::to_string(begin) + ": the quotation mark is not closed"};
}

}  // namespace linealis::cli
