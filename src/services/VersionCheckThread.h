#pragma once

#include "platform/Platform.h"
#include "platform/Version.h"

#include <cstdint>
#include <functional>
#include <string>

namespace linealis {

/// Asks the maker's web server whether there is a newer version, beside everything else, and tells the user.
class VersionCheckThread {
public:
    /// `server` is the web server's address, without a path. `lastUpdateCheckVersion` is the version that the user
    /// has skipped, 0 if none; `skip` is called with the next one.
    VersionCheckThread(Platform& thePlatform, const ProgramVersion& running, std::string theServer,
                       std::int64_t lastUpdateCheckVersion, std::function<void(std::int64_t version)> skip);

    /// Sends the request. This object must live until the reply has come or the program ends.
    void Event_Run();

    /// Fills the fields of the request and returns its address. `url` is the page that offers a newer version.
    std::string connection(int theProgramNumber, const std::string& url);

    /// Reads the server's reply and asks the user about a newer version. Which is newer only the server decides.
    void ParseResults(const std::string& response);

private:
    std::string SystemVersionDigits() const;

    Platform& platform;
    ProgramVersion runningVersion;
    std::string server;
    std::int64_t skippedVersion;
    std::function<void(std::int64_t version)> skipVersion;

    // The request's fields, each of a fixed width.
    std::string programNumber;  ///< 4
    std::string version;        ///< 3
    std::string OS;             ///< 1
    std::string osVersion;      ///< 4
    std::string rNum;           ///< 5
    std::string downloadUrl;
};

}  // namespace linealis
