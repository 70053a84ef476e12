#pragma once

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>

namespace linealis {

/// A byte buffer that grows by a tenth of its length at a time, so that a page of many megabytes neither is
/// copied often nor takes much more memory than it needs.
///
/// Throws std::bad_alloc when memory runs out, and stays as it was.
class CapacityString {
public:
    CapacityString() : CapacityString(0, 0) {}
    /// `capacity` bytes are allocated at once. The growth rule does not read `increment`.
    CapacityString(std::int64_t capacity, std::int64_t increment);

    /// Replaces the content. An empty text empties the buffer and keeps its block.
    void SetString(std::string_view text);

    void AppendString(std::string_view text);

    /// A place behind the content for `extra` bytes at most, to write them where they are to stand. They become
    /// content with TakeIn; any other change in between drops them.
    char* Room(std::int64_t extra);
    /// Appends what has been written into the room, up to `end`.
    void TakeIn(const char* end) { mLength = end - mData.get(); }

    /// For whoever writes a page out of order; the generator does not. Inserts before the byte at `position`, which
    /// counts from 1; Length() + 1 appends. Positions outside are moved to the nearest end.
    void InsertString(std::int64_t position, std::string_view text);

    /// A copy of the content.
    std::string Operator_Convert() const { return std::string(View()); }

    /// The content where it stands, until the next change.
    std::string_view View() const { return {mData.get(), static_cast<std::size_t>(mLength)}; }
    operator std::string_view() const { return View(); }  // NOLINT(google-explicit-constructor): it is a text

    std::int64_t Length() const { return mLength; }
    std::int64_t Capacity() const { return mCapacity; }
    std::int64_t Increment() const { return mIncrement; }

private:
    struct Free {
        void operator()(char* block) const { std::free(block); }
    };

    void Resize(std::int64_t capacity);

    std::int64_t mCapacity = 0;
    std::int64_t mLength = 0;
    std::unique_ptr<char, Free> mData;  // not a vector: realloc grows a large block without copying it
    std::int64_t mIncrement;
};

}  // namespace linealis
