#include "pdf/CapacityString.h"

#include "text/Numbers.h"

#include <algorithm>
#include <cstring>
#include <new>

namespace linealis {

CapacityString::CapacityString(std::int64_t capacity, std::int64_t increment) : mIncrement(increment)
{
    Resize(capacity);
}

void CapacityString::Resize(std::int64_t capacity)
{
    const auto bytes = static_cast<std::size_t>(std::max<std::int64_t>(capacity, 1));
    char* const block = static_cast<char*>(std::realloc(mData.get(), bytes));
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    static_cast<void>(mData.release());  // realloc freed or reused the old block
    mData.reset(block);
    mCapacity = capacity;
}

char* CapacityString::Room(std::int64_t extra)
{
    const std::int64_t needed = mLength + extra;
    if (mCapacity < needed) {
        const double grown = static_cast<double>(mLength) + static_cast<double>(mLength) * 0.1;
        Resize(std::max(truncated(grown), needed));
    }
    return mData.get() + mLength;
}

void CapacityString::SetString(std::string_view text)
{
    const auto size = static_cast<std::int64_t>(text.size());
    if (mCapacity < size) {
        Resize(size);
    }
    std::copy(text.begin(), text.end(), mData.get());
    mLength = size;
}

void CapacityString::AppendString(std::string_view text)
{
    TakeIn(std::copy(text.begin(), text.end(), Room(static_cast<std::int64_t>(text.size()))));
}

void CapacityString::InsertString(std::int64_t position, std::string_view text)
{
    const auto size = static_cast<std::int64_t>(text.size());
    Room(size);
    char* const place = mData.get() + std::clamp<std::int64_t>(position - 1, 0, mLength);
    std::memmove(place + size, place, static_cast<std::size_t>(mData.get() + mLength - place));
    std::copy(text.begin(), text.end(), place);
    mLength += size;
}

}  // namespace linealis
