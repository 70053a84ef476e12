#include "pdf/StreamCompression.h"

#include <zlib.h>

#include <array>
#include <new>
#include <span>
#include <utility>

namespace linealis {

namespace {

// A search changes how hard deflate works; the level stays the highest, which the files say in their zlib header.
constexpr int highestLevel = 9;
constexpr std::size_t inputPieceSize = 50000;
constexpr std::int64_t outputPieceSize = 20000;
constexpr std::int64_t outputIncrement = 10000;

/// The work of compressing one piece, counted in drawn lines, so that the user interface gets a turn after each.
constexpr int linesWorthOfInput = Turns::linesPerYield;

constexpr std::size_t kibibyte = 1024;

/// How deflate works: whether it drops short repetitions (strategy), how many symbols share a code (memoryLevel),
/// and how hard it searches for repetitions (the parameters of deflateTune).
///
/// The repetitions of line art are short and close together, so that the long searches of an untuned level 9 gain
/// nothing. The values come from measuring the presets and the benchmark pages.
struct Search {
    int strategy;
    int memoryLevel;
    int goodLength;
    int maxLazy;
    int niceLength;
    int maxChain;
};

// Below 512 KiB, the smallest result of the searches is at most as large as that of the best of zlib's levels, for
// every preset. The more time a search takes, the fewer there are.
constexpr Search manyDots = {Z_DEFAULT_STRATEGY, 5, 8, 4, 16, 48};
constexpr std::array<Search, 4> smallSearches = {{
    {Z_FILTERED, 5, 258, 258, 258, 32},
    {Z_DEFAULT_STRATEGY, 5, 8, 258, 32, 128},
    {Z_DEFAULT_STRATEGY, 5, 8, 16, 258, 8},
    {Z_DEFAULT_STRATEGY, 5, 258, 4, 32, 16},
}};
constexpr std::array<Search, 2> middleSearches = {{{Z_FILTERED, 5, 8, 16, 258, 16}, manyDots}};
constexpr std::array<Search, 1> largeSearches = {{manyDots}};

/// The streams of the heavy pages together are a tenth smaller than untuned, in a fifteenth of the time.
constexpr std::array<Search, 1> heavySearches = {{{Z_DEFAULT_STRATEGY, 8, 5, 6, 32, 16}}};
constexpr std::array<Search, 1> heaviestSearches = {{{Z_DEFAULT_STRATEGY, 8, 5, 10, 32, 16}}};

std::span<const Search> SearchesFor(std::size_t size)
{
    if (size < 16 * kibibyte) {
        return smallSearches;
    }
    if (size < 64 * kibibyte) {
        return middleSearches;
    }
    if (size < 512 * kibibyte) {
        return largeSearches;
    }
    return size < 1024 * kibibyte ? heavySearches : heaviestSearches;
}

/// Runs deflate on one piece after another and collects the output.
class Compressor {
public:
    explicit Compressor(const Search& search)
    {
        // Either fails only if memory runs out.
        if (deflateInit2(&stream, highestLevel, Z_DEFLATED, MAX_WBITS, search.memoryLevel, search.strategy) !=
            Z_OK) {
            throw std::bad_alloc();
        }
        deflateTune(&stream, search.goodLength, search.maxLazy, search.niceLength, search.maxChain);
    }
    ~Compressor() { deflateEnd(&stream); }
    Compressor(const Compressor&) = delete;
    Compressor& operator=(const Compressor&) = delete;

    void Feed(std::string_view piece) { Run(piece, Z_NO_FLUSH); }

    CapacityString Finish()
    {
        Run({}, Z_FINISH);
        return std::move(result);
    }

private:
    void Run(std::string_view input, int flush)
    {
        stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(input.data()));
        stream.avail_in = static_cast<uInt>(input.size());
        do {
            stream.next_out = reinterpret_cast<Bytef*>(result.Room(outputPieceSize));
            stream.avail_out = static_cast<uInt>(outputPieceSize);
            deflate(&stream, flush);
            result.TakeIn(reinterpret_cast<const char*>(stream.next_out));
        } while (stream.avail_out == 0);
    }

    z_stream stream{};
    CapacityString result{outputPieceSize, outputIncrement};
};

CapacityString DeflatedBy(const Search& search, std::string_view text, Turns& turns)
{
    Compressor compressor(search);
    for (std::size_t start = 0; start < text.size(); start += inputPieceSize) {
        compressor.Feed(text.substr(start, inputPieceSize));
        turns.RuntimeBackgroundTask(linesWorthOfInput);
    }
    return compressor.Finish();
}

}  // namespace

CapacityString Deflated(std::string_view text, Turns& turns)
{
    const std::span<const Search> searches = SearchesFor(text.size());
    CapacityString smallest = DeflatedBy(searches.front(), text, turns);
    for (const Search& search : searches.subspan(1)) {
        CapacityString other = DeflatedBy(search, text, turns);
        if (other.Length() < smallest.Length()) {
            smallest = std::move(other);
        }
    }
    return smallest;
}

}  // namespace linealis
