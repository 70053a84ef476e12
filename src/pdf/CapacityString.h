#pragma once

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>

namespace linealis {

/// A byte buffer that grows by a tenth of its length at a time, so that a page of many megabytes is neither copied
/// often nor takes much more memory than it needs.
///
/// Throws std::bad_alloc when memory runs out, and then keeps its content.
class CapacityString {
public:
    CapacityString() : CapacityString(0, 0) {}
    /// Allocates `capacity` bytes at once. `increment` is only stored; growth does not use it.
    CapacityString(std::int64_t capacity, std::int64_t increment);

    /// Replaces the content. An empty text empties the buffer but keeps its memory.
    void SetString(std::string_view text);

    /// Appends the text.
    void AppendString(std::string_view text);

    /// Returns a pointer to room for at most `extra` bytes after the content, so that a caller can write them in
    /// place. TakeIn makes them content; any other change before that discards them.
    char* Room(std::int64_t extra);
    /// Appends the bytes that the caller wrote to Room(), up to `end`.
    void TakeIn(const char* end) { mLength = end - mData.get(); }

    /// Inserts the text before the byte at `position`, which counts from 1; Length() + 1 appends. Clamps a position
    /// outside that range. For code that writes a page out of order; the generator does not use it.
    void InsertString(std::int64_t position, std::string_view text);

    /// Returns a copy of the content.
    std::string Operator_Convert() const { return std::string(View()); }

    /// Returns a view of the content, valid until the next change.
    std::string_view View() const { return {mData.get(), static_cast<std::size_t>(mLength)}; }
    operator std::string_view() const { return View(); }  // NOLINT(google-explicit-constructor): usable as a text

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
