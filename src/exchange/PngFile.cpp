#include "exchange/PngFile.h"

#include "exchange/CarriedText.h"

#include <png.h>

#include <algorithm>
#include <cmath>
#include <csetjmp>
#include <new>

namespace linealis {

namespace {

/// Passes bytes of the file to the stream. libpng is written in C, so no exception may pass through it.
void PassOn(png_structp png, png_bytep bytes, std::size_t size)
{
    bool isDone = false;
    try {
        static_cast<BinaryStream*>(png_get_io_ptr(png))->Write({reinterpret_cast<const char*>(bytes), size});
        isDone = true;
    } catch (const std::bad_alloc&) {
    }
    if (!isDone) {
        png_error(png, "out of memory");
    }
}

/// Calls functions of libpng, which jumps out of them on an error. Its only error here is a lack of memory. `calls`
/// must not create objects with destructors.
template <typename Calls>
void CallPng(png_structp png, const Calls& calls)
{
    if (setjmp(png_jmpbuf(png)) != 0) {
        throw std::bad_alloc();
    }
    calls();
}

}  // namespace

/// The state of libpng.
struct PngFile::Writer {
    Writer()
        : png(png_create_write_struct(
              PNG_LIBPNG_VER_STRING, nullptr, [](png_structp failed, png_const_charp) { png_longjmp(failed, 1); },
              [](png_structp, png_const_charp) {})),
          info(png == nullptr ? nullptr : png_create_info_struct(png))
    {
        if (info == nullptr) {
            png_destroy_write_struct(&png, nullptr);
            throw std::bad_alloc();
        }
    }
    ~Writer() { png_destroy_write_struct(&png, &info); }
    Writer(const Writer&) = delete;
    Writer& operator=(const Writer&) = delete;

    png_structp png;
    png_infop info;
};

PngFile::PngFile(BinaryStream& stream, const PngHead& head) : writer(std::make_unique<Writer>())
{
    constexpr double inchesPerMetre = 1.0 / 0.0254;
    constexpr std::size_t bytesPerChunk = std::size_t{1} << 16U;
    const png_structp png = writer->png;
    const png_infop info = writer->info;
    const auto dotsPerMetre = static_cast<png_uint_32>(std::lround(head.dotsPerInch * inchesPerMetre));
    std::string keyword(carriedKeyword), carried = head.carried, none;
    CallPng(png, [&] {
        png_set_write_fn(png, &stream, &PassOn, [](png_structp) {});
        png_set_user_limits(png, PNG_UINT_31_MAX, PNG_UINT_31_MAX);  // the caller limits the size
        png_set_IHDR(png, info, head.width, head.height, 8,
                     head.hasAlpha ? PNG_COLOR_TYPE_RGB_ALPHA : PNG_COLOR_TYPE_RGB, PNG_INTERLACE_NONE,
                     PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
        png_set_pHYs(png, info, dotsPerMetre, dotsPerMetre, PNG_RESOLUTION_METER);
        // Most rows of a paper repeat the row above, so the difference from it is 0. Trying all filters would take
        // more than twice the time, and save nothing.
        png_set_filter(png, PNG_FILTER_TYPE_BASE, PNG_FILTER_UP);
        png_set_compression_strategy(png, 0);  // zlib's default; libpng's is for photographs
        png_set_compression_buffer_size(png, bytesPerChunk);
        if (!carried.empty()) {
            png_text text{};
            text.compression = PNG_ITXT_COMPRESSION_NONE;
            text.key = keyword.data();
            text.text = carried.data();
            text.lang = text.lang_key = none.data();
            png_set_text(png, info, &text, 1);
        }
        png_write_info(png, info);
    });
}

PngFile::~PngFile() = default;

void PngFile::WriteRow(std::span<const std::uint8_t> row)
{
    CallPng(writer->png, [&] { png_write_row(writer->png, row.data()); });
}

void PngFile::Finish()
{
    CallPng(writer->png, [&] { png_write_end(writer->png, nullptr); });
}

}  // namespace linealis
