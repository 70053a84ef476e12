#include "exchange/PngFile.h"

#include "exchange/CarriedText.h"

#include <zlib.h>

#include <cmath>
#include <new>

namespace linealis {

namespace {

/// Returns the number in big-endian order, as PNG stores all numbers.
std::string FourBytes(std::uint32_t value)
{
    std::string bytes;
    for (int shift = 24; shift >= 0; shift -= 8) {
        bytes += static_cast<char>((value >> static_cast<unsigned>(shift)) & 255U);
    }
    return bytes;
}

/// Returns the big-endian number in the first four bytes.
std::uint32_t NumberIn(std::string_view bytes)
{
    std::uint32_t number = 0;
    for (const char byte : bytes.substr(0, 4)) {
        number = number << 8U | static_cast<unsigned char>(byte);
    }
    return number;
}

/// Returns the CRC-32 of the bytes, which ends every chunk.
std::uint32_t Checksum(std::string_view bytes)
{
    return static_cast<std::uint32_t>(
        crc32(0, reinterpret_cast<const Bytef*>(bytes.data()), static_cast<uInt>(bytes.size())));
}

// The parts of a chunk: length, type, data, checksum.
constexpr std::size_t lengthSize = 4, typeSize = 4, checksumSize = 4;
constexpr std::string_view textType = "iTXt";

}  // namespace

/// The compressor of zlib with a buffer for its output. What one call puts into it becomes one IDAT chunk.
struct PngFile::Compressor {
    Compressor()
    {
        if (deflateInit(&stream, Z_DEFAULT_COMPRESSION) != Z_OK) {
            throw std::bad_alloc();
        }
    }
    ~Compressor() { deflateEnd(&stream); }
    Compressor(const Compressor&) = delete;
    Compressor& operator=(const Compressor&) = delete;

    z_stream stream{};
    std::string output = std::string(std::size_t{1} << 16U, '\0');
};

PngFile::PngFile(BinaryStream& theStream, const PngHead& theHead)
    : stream(theStream), compressor(std::make_unique<Compressor>()), bytesPerPixel(theHead.hasAlpha ? 4 : 3)
{
    constexpr double inchesPerMetre = 1.0 / 0.0254;
    rowBefore.assign(theHead.width * bytesPerPixel, '\0');
    stream.Write(pngSignature);
    // Color types of IHDR: 2 is RGB, 6 is RGB with alpha. The zeros after it select the only compression and filter
    // method, and no interlacing.
    const char colorType = theHead.hasAlpha ? 6 : 2;
    WriteChunk("IHDR",
               FourBytes(theHead.width) + FourBytes(theHead.height) + '\x08' + colorType + std::string(3, '\0'));
    const auto dotsPerMetre = static_cast<std::uint32_t>(std::lround(theHead.dotsPerInch * inchesPerMetre));
    // Resolution in both directions; unit 1 is the meter.
    WriteChunk("pHYs", FourBytes(dotsPerMetre) + FourBytes(dotsPerMetre) + '\x01');
    if (!theHead.carried.empty()) {
        // The five zero bytes end the keyword, say that the text is not compressed, and end an empty language and
        // an empty translated keyword.
        WriteChunk(textType, std::string(carriedKeyword) + std::string(5, '\0') + theHead.carried);
    }
}

PngFile::~PngFile() = default;

void PngFile::WriteRow(std::span<const std::uint8_t> row)
{
    // Filter type 2 (Up) stores each byte minus the one above it. Most rows of a paper repeat the row above, and so
    // become zeros.
    std::string filtered(row.size() + 1, '\x02');
    for (std::size_t i = 0; i < row.size(); ++i) {
        filtered[i + 1] = static_cast<char>(row[i] - static_cast<std::uint8_t>(rowBefore[i]));
        rowBefore[i] = static_cast<char>(row[i]);
    }
    Feed(filtered, false);
}

void PngFile::Finish()
{
    Feed({}, true);
    WriteChunk("IEND", {});
}

/// Writes a chunk. Its length counts only the data; its checksum covers type and data.
void PngFile::WriteChunk(std::string_view type, std::string_view data)
{
    const std::string body = std::string(type) + std::string(data);
    stream.Write(FourBytes(static_cast<std::uint32_t>(data.size())) + body + FourBytes(Checksum(body)));
}

/// Compresses bytes and writes the available output. Repeats while the buffer is full, because more output may be
/// pending then.
void PngFile::Feed(std::string_view bytes, bool isLast)
{
    z_stream& deflater = compressor->stream;
    std::string& output = compressor->output;
    std::string input(bytes);
    deflater.next_in = reinterpret_cast<Bytef*>(input.data());
    deflater.avail_in = static_cast<uInt>(input.size());
    do {
        deflater.next_out = reinterpret_cast<Bytef*>(output.data());
        deflater.avail_out = static_cast<uInt>(output.size());
        deflate(&deflater, isLast ? Z_FINISH : Z_NO_FLUSH);
        if (const std::size_t made = output.size() - deflater.avail_out; made > 0) {
            WriteChunk("IDAT", std::string_view(output).substr(0, made));
        }
    } while (deflater.avail_out == 0);
}

std::string TextInPng(std::string_view png)
{
    const std::string head = std::string(carriedKeyword) + std::string(5, '\0');
    png.remove_prefix(std::min(pngSignature.size(), png.size()));
    while (png.size() >= lengthSize + typeSize + checksumSize) {
        const std::size_t length = NumberIn(png);
        if (length > png.size() - lengthSize - typeSize - checksumSize) {
            break;
        }
        const std::string_view type = png.substr(lengthSize, typeSize);
        const std::string_view data = png.substr(lengthSize + typeSize, length);
        if (type == textType && data.starts_with(head)) {
            return std::string(data.substr(head.size()));
        }
        png.remove_prefix(lengthSize + typeSize + length + checksumSize);
    }
    return "";
}

}  // namespace linealis
