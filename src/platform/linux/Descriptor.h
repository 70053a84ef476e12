#pragma once

#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <utility>

namespace linealis::posix {

/// Returns errno as an error code.
inline std::error_code LastError()
{
    return {errno, std::generic_category()};
}

/// Owns a file descriptor or nothing. Closing it preserves errno.
class Descriptor {
public:
    Descriptor() = default;

    /// Takes ownership of a descriptor. A negative number means none, so the result of ::open can be passed
    /// directly.
    explicit Descriptor(int theNumber) : number(theNumber) {}
    Descriptor(Descriptor&& other) noexcept : number(std::exchange(other.number, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept
    {
        std::swap(number, other.number);
        return *this;
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor()
    {
        if (IsOpen()) {
            const int error = errno;
            ::close(number);
            errno = error;
        }
    }

    bool IsOpen() const { return number >= 0; }
    int Number() const { return number; }
    /// Gives up ownership and returns the descriptor.
    int Release() { return std::exchange(number, -1); }

private:
    int number = -1;
};

}  // namespace linealis::posix
