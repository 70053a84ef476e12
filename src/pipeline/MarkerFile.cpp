#include "pipeline/MarkerFile.h"

#include "pdf/MyPDFGenerator.h"

namespace linealis {

MarkerFile::MarkerFile(const FolderItem& item)
{
    if (item.IsEmpty()) {
        return;
    }
    stream = item.OpenAsBinaryFile();
    ReadPiece();
    if (piece.find('\0') != std::string::npos) {  // no text has zero bytes
        piece.clear();
        stream.Close();
    }
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (piece.starts_with(byteOrderMark)) {
        position = byteOrderMark.size();
    }
}

void MarkerFile::ReadPiece()
{
    constexpr std::size_t pieceSize = 65536;
    piece = stream.Read(pieceSize);
    position = 0;
}

bool MarkerFile::NextByte(char& byte)
{
    if (position == piece.size()) {
        ReadPiece();
    }
    if (piece.empty()) {
        return false;
    }
    byte = piece[position++];
    return true;
}

bool MarkerFile::NextLine(std::string& line)
{
    line.clear();
    char byte = 0;
    if (!NextByte(byte)) {
        return false;
    }
    do {
        if (byte == '\n') {
            return true;
        }
        if (byte == '\r') {
            if (NextByte(byte) && byte != '\n') {
                --position;  // belongs to the next line
            }
            return true;
        }
        line += byte;
        if (line.size() > static_cast<std::size_t>(MyPDFGenerator::largestStream)) {
            throw PageGivenUp{
                "a line of the marker file is longer than any page can hold"};  // a line that no page can hold,
                                                                                // from a source that may have no
                                                                                // end
        }
    } while (NextByte(byte));
    return true;
}

}  // namespace linealis
