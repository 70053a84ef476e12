#pragma once

#include "platform/BinaryStream.h"
#include "text/Numbers.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace linealis {

/// Writes a DXF file as groups: a code that says what follows, and a value, each on a line of its own.
class DxfGroups {
public:
    explicit DxfGroups(BinaryStream& theStream) : stream(theStream) {}

    void Add(int code, std::string_view value)
    {
        buffer.append(std::to_string(code)).append("\r\n").append(value).append("\r\n");
        constexpr std::size_t fullBuffer = 60000;  // bytes
        if (buffer.size() > fullBuffer) {
            Flush();
        }
    }
    void Add(int code, int value) { Add(code, std::string_view(std::to_string(value))); }
    void Add(int code, double value) { Add(code, std::string_view(Str(value))); }
    /// Adds the coordinates x and y, whose codes are 10 apart.
    void Add(int code, double x, double y)
    {
        constexpr int nextCoordinate = 10;
        Add(code, x);
        Add(code + nextCoordinate, y);
    }

    /// The code of the handle of most objects.
    static constexpr int handleCode = 5;

    /// Adds a new handle and returns it. No two objects of a file have the same handle.
    std::string AddHandle(int code = handleCode);
    /// The handle that the next object will have.
    std::string NextHandle() const;
    /// Begins an object of the given type with a new handle, and returns that. `owner` is the handle of the object
    /// that contains it.
    std::string Begin(std::string_view type, std::string_view owner, int codeOfHandle = handleCode);

    /// Writes what has been added. Must be called at the end.
    void Flush()
    {
        stream.Write(buffer);
        buffer.clear();
    }

private:
    BinaryStream& stream;
    std::string buffer;
    std::uint64_t lastHandle = 0;
};

/// Writes a number in hexadecimal digits, as handles are written.
std::string DxfHandle(std::uint64_t number);

}  // namespace linealis
