#pragma once

#include <functional>
#include <memory>
#include <string>

namespace linealis::posix {

/// Owns the name ".linealis-PID-N" of a file that is not in its final place yet. The destructor, or RemoveAll,
/// removes the file that still has the name.
class HiddenName {
public:
    /// Finds a free name and calls `make` with it. `make` gives the name to a file, or returns false with errno
    /// set. Returns null on failure, with errno set. The descriptor of the folder must outlive the object.
    static std::unique_ptr<HiddenName> Take(int folder, const std::function<bool(const char*)>& make);

    HiddenName(const HiddenName&) = delete;
    HiddenName& operator=(const HiddenName&) = delete;
    ~HiddenName();

    const char* Text() const { return text.c_str(); }

    /// Removes the hidden files of all threads. Safe to call in a signal handler.
    static void RemoveAll();

    /// Removes the hidden files that killed processes left in the folder: regular files of this user whose process
    /// no longer exists and that nobody holds locked. Skips a folder that was also the folder of the last call.
    static void ClearLeftovers(int folder);

private:
    HiddenName(int theFolder, std::string theText);

    int folder;
    std::string text;
    bool taken = false;
};

}  // namespace linealis::posix
