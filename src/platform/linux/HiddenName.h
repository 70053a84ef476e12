#pragma once

#include <functional>
#include <memory>
#include <string>

namespace linealis::posix {

/// A name in a folder, ".linealis-PID-N", of a file that is not in its place yet. Whatever still has the name at
/// the end is removed, by the destructor or by RemoveAll.
class HiddenName {
public:
    /// `make` gives a file the name that it is handed, or returns false with errno set. Nothing if it cannot, errno
    /// then tells why. The folder's descriptor must outlive the name.
    static std::unique_ptr<HiddenName> Take(int folder, const std::function<bool(const char*)>& make);

    HiddenName(const HiddenName&) = delete;
    HiddenName& operator=(const HiddenName&) = delete;
    ~HiddenName();

    const char* Text() const { return text.c_str(); }

    /// Of all threads. May be called in a signal handler.
    static void RemoveAll();

    /// Removes the names that processes have left in the folder which were killed: regular files of this user,
    /// whose process is gone and which nobody holds locked. Looks once at a folder that is asked for again and
    /// again.
    static void ClearLeftovers(int folder);

private:
    HiddenName(int theFolder, std::string theText);

    int folder;
    std::string text;
    bool taken = false;
};

}  // namespace linealis::posix
