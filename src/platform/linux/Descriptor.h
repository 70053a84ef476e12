#pragma once

#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <utility>

namespace linealis::posix {

inline std::error_code LastError()
{
    return {errno, std::generic_category()};
}

/// Owns a file descriptor, or none. Closing it leaves errno as it was.
class Descriptor {
public:
    Descriptor() = default;

    /// A negative number is none.
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
    int Release() { return std::exchange(number, -1); }

private:
    int number = -1;
};

}  // namespace linealis::posix
