#include "platform/ByteSource.h"

#include <algorithm>
#include <cerrno>
#include <limits>

namespace linealis {

std::size_t FileSource::Read(char* bytes, std::size_t count)
{
    const std::size_t done = std::fread(bytes, 1, count, file.get());
    NoteError();
    return done;
}

void FileSource::Skip(std::size_t count)
{
    const auto distance = static_cast<long>(std::min<std::size_t>(count, std::numeric_limits<long>::max()));
    if (std::fseek(file.get(), distance, SEEK_CUR) != 0) {  // beyond the range of any file
        std::fseek(file.get(), 0, SEEK_END);
    }
}

void FileSource::GoBackFromEnd(std::size_t count)
{
    if (std::fseek(file.get(), -static_cast<long>(count), SEEK_END) != 0) {
        std::rewind(file.get());
    }
}

bool FileSource::AtEnd()
{
    const int next = std::getc(file.get());
    NoteError();
    return next == EOF || std::ungetc(next, file.get()) == EOF;
}

void FileSource::NoteError()
{
    if (std::ferror(file.get()) != 0) {
        error = {errno, std::generic_category()};
    }
}

std::size_t MemorySource::Read(char* bytes, std::size_t count)
{
    const std::size_t done = left.copy(bytes, count);
    left.remove_prefix(done);
    return done;
}

void MemorySource::Skip(std::size_t count)
{
    left.remove_prefix(std::min(count, left.size()));
}

void MemorySource::GoBackFromEnd(std::size_t count)
{
    left = all.substr(all.size() - std::min(count, all.size()));
}

}  // namespace linealis
